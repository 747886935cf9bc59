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
foto apertura_sin_grabar
teclas s Escape # Sí, se pierde

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
anotado "los comprobantes rechazados" "$(grep -aoE 'Num:0*1[234]$' \
    "$trabajo/aplicacion/ERRIMPCN.TXT" | sed -E 's/Num:0*//' | sort -u)" <<FIN
12
13
14
FIN
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
quede_comprobante CG "Bueno" 20171216 <<FIN
110505 - - - 1000.00 0.00
11100501 - - - 0.00 1000.00
NIIF nada
FIN
quede_comprobante CG "Energía de la sede" 20171215 <<FIN
513530 836952427 0001 0001 350000.00 0.00
220505 836952427 - - 0.00 350000.00
NIIF nada
FIN
quede_comprobante CG "Consignación" 20171215 <<FIN
11100501 - - - 1200000.50 0.00
110505 - - - 0.00 1200000.50
NIIF nada
FIN
quede_comprobante CG "Retención que faltó" 20171215 <<FIN
220505 836952427 - - 25000.00 0.00
236540 836952427 - - 0.00 25000.00
NIIF nada
FIN
quede "lo importado con fallas" "select 'quedan ' || count(*) from comprobante_encabezado
    where enco_concepto in ('Sin cuadrar', 'Cuenta errada', 'Sin tercero')" <<<"quedan 0"
quede "las cuentas importadas" "select cuen_cod || ' ' || cuen_nom from cuentas
    where cuen_cod in ('11100502', '11200502', '13809501') order by 1" <<FIN
11100502 Banco de la Sabana cuenta corriente
11200502 Cuenta de ahorros de nómina
13809501 Préstamos a contratistas
FIN
quede "los terceros importados" "select terc_nit || ' ' || terc_nom from terceros
    where terc_nit in ('830990015', '830990023', '1090444555') order by 1" <<FIN
1090444555 Rincón Mejía Laura Inés
830990015 Ferretería del Puerto S.A.S.
830990023 Transportes La Ceiba Ltda.
FIN
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
espere_archivo "$fotos/exportado.csv"
# Lo que se acaba de importar vuelve a salir, y la cuenta con su equivalencia.
for sale in 513530,836952427,0001,0001,,,0.00,0,350000.00,0.00 \
    22050501,836952427,,,,,0.00,0,0.00,350000.00; do
    grep -qax "CG,IMP,000001,20171215,$sale"$'\r\\?' "$fotos/exportado.csv" ||
        falle "exportado.csv no trae $sale."
done
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
for esperado in "$trabajo"/exigido/*.esperado; do
    sed -Ei 's/^(NIIF )?110505 /\1110510 /' "$esperado"
done
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
estaba "lo copiado a la 002" "select terc_nit || ' ' || terc_nom from terceros
    where terc_nit in ('830990015', '830990023') order by 1" 002 <<FIN
830990015 Ferretería del Puerto S.A.S.
830990023 Transportes La Ceiba Ltda.
FIN
teclas Return

# --- un mensaje, que tarda en avisarse: entre tanto, el respaldo, que queda dicho en la barra
teclas ctrl+m
escriba "Ya se puede cerrar diciembre"
foto mensaje 0.8
teclas F2 Tab Return
foto respaldo 0.8
teclas F2
espere_ventana "Contabilidad - Quorvex 2018"
foto respaldado 1
# Trae lo que se acaba de importar.
anotado "el respaldo" "$(LC_ALL=C grep -al "Transportes La Ceiba Ltda" \
    "$trabajo"/aplicacion/respaldos/001_*.fbk | wc -l)" <<<1
teclas Return
foto respaldo_en_la_barra 0.8
teclas Escape
espere_aviso
foto aviso_de_mensaje
# El aviso no le quita el teclado a lo que se está haciendo: se va a él con Ctrl+Mayús+M.
teclas ctrl+shift+m
foto aviso_con_el_teclado 0.5
teclas Return
foto responder_mensaje 1
escriba "Cerrado queda"
teclas F2

# --- procedimientos de usuario, mientras se avisa la respuesta
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
espere_aviso
foto aviso_de_respuesta
# Se da por leído: si solo se cerrara, volvería y taparía las fotos que siguen.
teclas ctrl+shift+m shift+Tab
foto aviso_por_leer 0.5
teclas Return
foto avisos_leidos 0.5
teclas Escape
quede "los mensajes" "select mens_autor || ' ' || mens_destino || ' ' || mens_leido || ' ' ||
    cast(mens_mensaje as varchar(60)) from mensajeria order by mens_id" <<FIN
ADMIN ADMIN S Ya se puede cerrar diciembre
ADMIN ADMIN S Cerrado queda
FIN
