# Los saldos con que empezó la compañía y el formato con que imprime sus egresos.
teclas alt+s
foto menu_saldos_iniciales 0.8
teclas Return
foto saldos_iniciales 1
teclas ctrl+End Down
linea "?caja"
foto saldos_busqueda 1
teclas Down Return
linea "" "" ""
escriba "250000"
teclas Return
foto saldos_descuadrados
teclas F2
foto saldos_rechazo
teclas Return
teclas Escape Escape
foto saldos_salir
teclas alt+s # Sí
espere 0.5
teclas Escape

teclas alt+s Return
espere 1
teclas F8
a_pdf saldos_iniciales 1
espere 0.5
teclas Escape

teclas alt+n
foto tipos_de_comprobante 1
teclas Down Down F8
foto formato_egreso 1.2
teclas Tab Tab Tab Tab Tab Tab Tab Tab
foto formato_dato
teclas alt+Down
foto formato_lista_de_datos
teclas Escape Escape Escape
espere 0.5
teclas Escape
