# Activos fijos: la lista, la ficha, el cuadro con su curva, la depreciación con su comprobante, el
# nuevo valor y la baja. El año del libro ya está depreciado: se trabaja en el enero siguiente.
teclas shift+F9 alt+Right alt+Right Escape
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
escriba "Comprobante g"
teclas Tab Tab
escriba "31"
teclas Tab Tab
escriba "Depreciación del mes"
teclas Tab
escriba "Ambas"
foto calculo_depreciacion 0.8
teclas F2
foto depreciaciones 2
teclas F4
foto comprobante_de_la_depreciacion 2
teclas F2
espere 1
teclas Return
a_pdf depreciacion 1
espere 1
teclas Escape

# Un avalúo por debajo del valor en libros, y el activo que se vendió por chatarra.
teclas shift+F5
escriba "Comprobante g"
teclas Tab Tab
escriba "31"
teclas Tab
escriba "Avalúo anual"
teclas Tab Tab Tab
escriba "1000000"
teclas Tab
escriba "50000"
foto nuevo_valor_activo 0.8
teclas F2
espere 1
teclas F8
foto movimiento_con_deterioro 1
teclas Escape
teclas Down F4 Tab Tab Tab Tab Tab Tab Tab Tab space F2
espere 0.5
teclas F6
escriba "Comprobante g"
teclas Tab Tab
escriba "31"
teclas Tab Tab
escriba "Venta por chatarra"
foto baja_de_activo 0.8
teclas F2
espere 1
teclas F2
foto cuadro_del_dado_de_baja 1
teclas Escape
teclas Escape
teclas shift+F9
for _ in $(seq 12); do teclas alt+Left; done
teclas Escape
