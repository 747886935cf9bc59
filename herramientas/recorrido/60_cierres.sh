# Fin de mes y de año: registros automáticos y cierres.

# Ver el comprobante antes de hacerlo, y hacerlo.
teclas alt+u
foto menu_automaticos 0.8
teclas Tab Tab Tab Return
foto registros_automaticos 0.8
teclas F4
foto registro_automatico 0.8
teclas F8
foto conceptos_automaticos 0.8
teclas F4
foto concepto_automatico 1
teclas Escape Escape Escape
teclas Down Down F6
escriba "Provisión de cartera del mes"
teclas F5
foto vista_previa_del_registro 1
teclas F2
foto comprobante_del_registro 1.5
teclas Escape
espere 0.5
teclas Escape Escape

# El cierre del año se hace en diciembre, se ve y se imprime su comprobante, y se deshace. El mes de
# la sesión se cambia en el balance, que aquí va por febrero.
teclas shift+F9
for _ in $(seq 10); do teclas alt+Right; done
teclas Escape
teclas shift+F4 F5
escriba "Comprobante de c"
teclas Tab Tab
escriba "31"
teclas Tab Tab
escriba "Cierre de resultados"
teclas Tab Tab
escriba "Normal"
foto cierre_anual 0.8
teclas F2
espere 2
foto cierres_anuales 0.8
teclas F4
foto comprobante_del_cierre 2
teclas F2
espere 1
teclas Return
a_pdf cierre_anual 1
espere 1
teclas F3 alt+s # Sí
foto cierre_deshecho 2
teclas Escape
teclas shift+F3
teclas F5
foto cierre_de_terceros 0.8
teclas Escape Escape
teclas shift+F2
teclas F5
foto ajuste_por_inflacion 0.8
teclas Escape Escape
