# Activos fijos: la lista, la ficha, el cuadro con su curva, la depreciación y la baja.
teclas alt+a
foto activos_fijos 0.8
teclas F4
foto ficha_de_activo 1
teclas ctrl+Next
foto ficha_niif 0.6
teclas ctrl+Next
foto ficha_reparto 0.6
teclas Escape
teclas F2
foto cuadro_de_depreciacion 1
teclas Escape
teclas F8
foto movimiento_del_activo 0.8
teclas Escape
teclas F7 F5
escriba "Comprobante"
teclas Tab Tab Tab Tab
escriba "Depreciación del mes"
foto calculo_depreciacion 0.8
teclas Escape Escape
teclas F6
foto baja_de_activo 0.8
teclas Escape
teclas shift+F5
foto nuevo_valor_activo 0.8
teclas Escape Escape
