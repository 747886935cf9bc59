# Apertura NIIF y conciliación, importar y exportar, mantenimiento, procedimientos de usuario y
# mensajes. Trabaja con los archivos de muestra de la demostración.
muestras=$trabajo/datos/001/importar

# --- la apertura a medio trabajar: la hoja, su resumen impreso y el detalle con su nota
teclas alt+s
foto menu_saldos_iniciales 0.8
teclas Tab Return
foto apertura_niif 1.5
teclas F5
foto apertura_detalle 1
teclas Escape
teclas F6
foto apertura_movimiento 1
teclas Escape
teclas F8
a_pdf apertura_niif
teclas F9
foto conciliacion_apertura 1.2
teclas F6
foto conciliacion_detalle 1
teclas Down Down Down F8
foto conciliacion_cuenta 1
teclas Escape Escape
teclas F7
foto apertura_ya_traida 0.8
teclas Return
teclas F12
foto apertura_por_llevar 0.8
teclas Return Escape Escape

# --- mantenimiento
teclas alt+e
foto menu_mantenimiento 0.8
teclas Tab Tab Return
foto importar_clase 0.8
teclas Down Down F2
escriba "$muestras/comprobantes_con_fallas.csv"
foto importar_archivo 0.8
teclas F2
foto importar_columnas 1
teclas F5
foto importar_ensayo 1.5
teclas Return
foto importar_rechazados 1
teclas Escape
teclas F2
foto importar_terminada 1.5
teclas Return
foto importar_rechazados_de_verdad 0.8
teclas Escape
foto importar_barra_de_estado 0.5
