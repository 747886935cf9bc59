# Una plantilla traída a un comprobante, la búsqueda de comprobantes y el movimiento de un tercero.
teclas ctrl+b
teclas F11
foto plantillas_para_escoger 0.8
teclas Down Down
teclas Return
foto plantilla_en_el_comprobante 1
teclas ctrl+Next
foto plantilla_en_el_libro_niif 1
teclas ctrl+Prior
teclas Escape
teclas alt+s # Sí, se deja: al pasar de libro ya quedó grabado
quede_comprobante GA "Arriendo mensual" 20170120 <<FIN
512010 855710215 0001 0001 4800000.00 0.00
240810 - - - 912000.00 0.00
236530 855710215 - - 0.00 168000.00
233540 855710215 - - 0.00 5544000.00
FIN
teclas shift+F6
foto lista_de_plantillas 0.8
teclas Down
teclas F4
foto editar_plantilla 1
teclas Escape
teclas Escape
teclas shift+F1
escriba "N"
teclas Tab Tab Tab Tab Tab
escriba "Comisiones"
foto filtros_de_comprobantes
teclas Return
foto comprobantes_encontrados 1
teclas F4
foto comprobante_encontrado 1
teclas Escape
teclas Escape
teclas ctrl+F6 shift+F12
escriba "Inmobiliaria"
teclas Return
teclas F9
foto comprobantes_del_tercero 1
teclas Escape
teclas Escape
