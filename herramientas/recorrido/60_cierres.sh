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

# Los cierres: su lista y su formulario.
teclas shift+F4
teclas F5
escriba "Comprobante"
teclas Tab Tab Tab Tab
escriba "Cierre de resultados"
foto cierre_anual 0.8
teclas Escape
foto cierres_anuales 0.8
teclas Escape
teclas shift+F3
teclas F5
foto cierre_de_terceros 0.8
teclas Escape Escape
teclas shift+F2
teclas F5
foto ajuste_por_inflacion 0.8
teclas Escape Escape
