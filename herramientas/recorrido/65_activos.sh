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
teclas Down F4 Tab Tab Tab Tab Tab Tab
escriba "Marca tecleada"
teclas Tab Tab space F2
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
# El camión, a 60 y a 96 meses; el equipo, lo que le falta a sus 43 de 60 y de 48, porque lo que ya
# tenía iba redondeado; los muebles, a 120 y a 144.
quede_comprobante CG "Depreciación del mes" 20180131 <<FIN
526035 - 0003 0002 1600000.00 0.00
159235 - - - 0.00 1600000.00
516020 - 0001 0003 466662.67 0.00
159220 - - - 0.00 466662.67
516015 - 0001 0001 300000.00 0.00
159215 - - - 0.00 300000.00
NIIF 526035 - 0003 0002 1000000.00 0.00
NIIF 159235 - - - 0.00 1000000.00
NIIF 516020 - 0001 0003 583337.33 0.00
NIIF 159220 - - - 0.00 583337.33
NIIF 516015 - 0001 0001 250000.00 0.00
NIIF 159215 - - - 0.00 250000.00
FIN
# Los 96 millones del camión menos 37 depreciados, hasta el avalúo menos lo que costaría venderlo.
quede_comprobante CG "Avalúo anual" 20180131 <<FIN
NIIF 519910 - 0003 0002 58050000.00 0.00
NIIF 159299 - - - 0.00 58050000.00
FIN
# Los muebles costaron 36 millones.
quede_comprobante CG "Venta por chatarra" 20180131 <<FIN
152405 - - - 0.00 36000000.00
159215 - - - 13500000.00 0.00
531015 - - - 22500000.00 0.00
NIIF 152405 - - - 0.00 36000000.00
NIIF 159215 - - - 11250000.00 0.00
NIIF 531015 - - - 24750000.00 0.00
FIN
quede "el activo que se vendió" "select acfj_cod || ' ' || acfj_marca || ' ' || acfj_activo
    from activos_fijos where acfj_cod = 'MUEBLES'" <<<"MUEBLES Marca tecleada N"
