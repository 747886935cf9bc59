# Apertura NIIF y conciliación, importar y exportar, mantenimiento, procedimientos de usuario y
# mensajes. Trabaja con los archivos de muestra de la demostración.
muestras=$trabajo/datos/001/importar

# --- la apertura a medio trabajar: la hoja, el detalle con su nota, su resumen y la conciliación
teclas alt+s
foto menu_saldos_iniciales 0.8
teclas Tab Return
foto apertura_niif 1.5
teclas Down Down Down Down Down Down Down F5
foto apertura_detalle 1
teclas alt+n Tab Tab Return
foto apertura_hoja_de_trabajo 1
teclas Return Escape F6
foto apertura_movimiento 1
teclas Escape F8
a_pdf apertura_niif
teclas F7
foto apertura_ya_traida 0.8
teclas Return F12
foto apertura_por_llevar 0.8
teclas Return F9
foto conciliacion_apertura 1.2
teclas F6
foto conciliacion_detalle 1.2
teclas F8
foto conciliacion_al_comenzar 2
teclas Escape shift+Tab
escriba "Ajustes"
teclas F2
foto conciliacion_del_ano 1.5
teclas F8
foto conciliacion_cuenta 2
teclas Down F4
foto conciliacion_comprobante 2
teclas Escape Escape Escape Escape
espere 0.5
teclas Escape

# --- importar: un ensayo, lo de verdad y los rechazados
teclas alt+e
foto menu_mantenimiento 0.8
teclas Return
foto estructura 0.8
teclas Escape Tab Tab Return
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
teclas Escape F2
foto importar_terminada 1.5
teclas Return Escape
teclas Return
teclas F2
escriba "$muestras/cuentas.csv"
teclas F2 F2
foto importar_cuentas 1.2
teclas Return Return
teclas Down F2
escriba "$muestras/terceros.csv"
teclas F2 F2
foto importar_terceros 1.2
teclas Return Return
teclas Down Down F2 ctrl+a
escriba "$muestras/comprobantes.csv"
teclas F2 F2
foto importar_comprobantes 1.5
teclas Return Return
teclas Down Down Down F2 ctrl+a
escriba "$muestras/saldos_iniciales.csv"
teclas F2 F5
foto importar_saldos_pregunta 0.8
teclas Return
foto importar_saldos_ensayo 1.5
teclas Return Escape

# --- exportar, con sus equivalencias
teclas Tab Return
escriba "20170101"
teclas Tab
escriba "20171231"
teclas Tab
escriba "$fotos/exportado.csv"
teclas Tab Tab Tab Tab Tab
escriba "C"
foto exportar 0.8
teclas F5
foto equivalencias 0.8
teclas Escape F2
foto exportado 2
teclas Return Escape

# --- reparar
teclas Tab Return
foto recalculo 0.8
teclas F5
foto recalculando 0.6
espere_ventana "Contabilidad - Quorvex 2018"
foto recalculado 0.6
teclas Return Tab Return Tab
escriba "130505"
teclas Tab
foto cambiar_detalle 0.8
teclas F2
foto cambiar_detalle_pregunta 1
teclas Escape Escape Tab Return Tab
escriba "13050501"
teclas Tab
escriba "Clientes de Bogotá"
foto abrir_auxiliar 0.8
teclas F2
foto abrir_auxiliar_pregunta 1
teclas Escape Escape Tab Return Tab
escriba "20170101"
teclas Tab
escriba "20171231"
teclas Tab Tab
escriba "110505"
teclas Tab
escriba "110510"
teclas Tab
foto reemplazar_cuenta 0.8
teclas F2
foto reemplazar_cuenta_pregunta 1
teclas alt+s
foto reemplazada 2.5
# Lo digitado antes en esa cuenta también pasa a la otra, en los dos libros.
sed -Ei 's/^(NIIF )?110505 /\1110510 /' "$trabajo"/exigido/*.esperado
teclas Tab Return
foto reemplazar_tercero 0.8
teclas Escape Tab Return
foto borrar_movimientos 0.8
teclas Escape Tab Return
foto borrar_plan 0.8
teclas Escape Tab Return
foto copiar_cuentas 0.8
teclas Escape Tab Return
escriba "001"
teclas Tab
escriba "002"
teclas Tab
foto copiar_terceros 0.8
teclas F2
foto terceros_copiados 2
teclas Return

# --- respaldo, que queda dicho en la barra de estado
teclas Tab Return
foto respaldo 0.8
teclas F2
espere_ventana "Contabilidad - Quorvex 2018"
foto respaldado 1
teclas Return
foto respaldo_en_la_barra 0.8
teclas Escape

# --- procedimientos de usuario y mensajes
teclas alt+v Left Down Down Down Down
foto menu_de_mantenimiento 0.6
teclas Return
foto procedimientos 0.8
teclas End Tab
escriba "20170101"
teclas Tab
escriba "20171231"
teclas F5
foto procedimiento_generado 1.5
teclas Escape
teclas ctrl+m
escriba "Ya se puede cerrar diciembre"
foto mensaje 0.8
teclas F2
foto aviso_de_mensaje 11
# El aviso no le quita el teclado a lo que se está haciendo: se va a él con Ctrl+Mayús+M.
teclas ctrl+shift+m
foto aviso_con_el_teclado 0.5
teclas Return
foto responder_mensaje 1
escriba "Cerrado queda"
teclas F2
foto aviso_de_respuesta 11
teclas ctrl+shift+m Escape
foto avisos_cerrados 0.5
