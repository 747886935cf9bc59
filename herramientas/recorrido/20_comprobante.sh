# Un comprobante digitado en los dos libros, solo con el teclado.
teclas ctrl+b
escriba "R"
teclas Tab
escriba "15"
teclas Tab
escriba "Venta de contado"
teclas Tab Tab Tab Tab Tab Tab Tab Tab
teclas space
foto encabezado
teclas Tab
linea "?caja"
foto busqueda_de_cuenta 1
teclas Down Return
foto cuenta_escogida
linea "" "" "" "" "" "RC-15" "" "" "595000" "" ""
linea "413548" "" "0004" "0001" "\"" "" "\"" "" "" "" "500000" ""
foto segunda_linea
linea "240805" "" "" "" "Iva generado" "" "\"" ""
teclas F5
foto f5_cuadra
teclas ctrl+Next
foto replica_niif 1
teclas ctrl+Prior F2
foto ofrece_imprimir 1
teclas Return
foto opciones_de_impresion 1
teclas Return
foto vista_preliminar 2
# Desde la vista se graba como PDF.
teclas ctrl+p
a_pdf comprobante 1
teclas Escape
foto grabado 1
teclas Escape
quede_comprobante RC "Venta de contado" 20170115 <<FIN
110505 - - - 595000.00 0.00
413548 - 0004 0001 0.00 500000.00
240805 - - - 0.00 95000.00
FIN
