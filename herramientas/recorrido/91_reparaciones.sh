# Lo que repara o borra: un comprobante digitado escogiendo todo de las listas, dos cuentas de paso,
# un auxiliar que se abre, un tercero que se reemplaza y un pedazo del plan que se copia.
teclas ctrl+b
escriba "Nota b"
teclas Tab
escriba 17
teclas Tab
escriba "Para borrar"
teclas Tab Tab Tab Tab Tab Tab Tab Tab space Tab F9
halle 519530
teclas Return Return F6
halle Papeler
teclas Return F7 Down F12 Down Return
linea "" "" "" "" "" "" "" "" 5000 "" ""
for cuenta in 143505 152405; do
    escriba $cuenta
    teclas Return Tab space Down Return
    foto "escogido_$cuenta"
    teclas Escape
    linea "" "" "" "" "" "" "" "" "" 2500 ""
done
foto todo_escogido
teclas F2 Escape Escape
estaba "el comprobante por borrar" "select d.cuen_cod || ' ' || coalesce(d.terc_nit, '-') || ' ' ||
    coalesce(d.proy_cod, '-') || ' ' || coalesce(d.cent_cod, '-') || ' ' ||
    iif(d.arti_cod in (select arti_cod from articulo), 'artículo',
        iif(d.arti_cod in (select acfj_cod from activos_fijos), 'activo', '-'))
    from comprobante_detalle d join comprobante_encabezado e
    on e.enco_consec = d.enco_consec where e.enco_concepto = 'Para borrar' order by code_item" <<FIN
519530 866652258 0002 0002 -
143505 - - - artículo
152405 - - - activo
FIN

dia=$(ya "select enco_fecha from comprobante_encabezado where enco_concepto = 'Para borrar'")

teclas ctrl+t
for cual in 3 4; do
    escriba "1105150$cual"
    teclas Tab
    escriba "Fondo de paso $cual"
    teclas F2
done
teclas Escape alt+e

opcion c c
teclas Tab
escriba 11051503
teclas Tab Tab space
foto detalle_por_cambiar
teclas F2 s
opcion a
teclas Tab
escriba 51352001
teclas Tab
escriba "Proceso tecleado"
foto auxiliar_por_abrir
teclas F2 s
opcion r r
teclas Tab
escriba 20170101
teclas Tab
escriba 20170630
teclas Tab Tab
escriba 858836513
teclas Tab
escriba 861962811
teclas Tab
escriba 513535
foto tercero_por_reemplazar
teclas F2 s
opcion b
escriba "Nota b"
teclas Tab Tab
escriba "$dia" # el 17 del mes en que la sesión esté
teclas Tab
escriba "$dia"
foto movimientos_por_borrar
teclas F2 s
estaba "las cuentas de paso" "select cuen_cod || ' ' || cuen_tercero || cuen_centro ||
    cuen_retencion from cuentas where cuen_cod starting '1105150' and cuen_cod > '11051502'" <<FIN
11051503 NSN
11051504 NNN
FIN
opcion b
escriba 11051503
teclas Tab
escriba 11051504
foto plan_por_borrar
teclas F2 s
teclas Tab
if [ -f "$trabajo/datos/002/quorvex.fdb" ]; then # si la demostración la trae
    for hasta in 11051501 11051502; do # la segunda vez, con una que ya estaba
        teclas Return
        for caja in 001 002 11051501 $hasta; do
            escriba $caja
            teclas Tab
        done
        teclas F2
        foto "copia_$hasta"
        [ $hasta = 11051501 ] || teclas s
        estaba "el plan copiado a la 002 hasta $hasta" "select cuen_cod || ' ' || cuen_nom
            from cuentas where cuen_cod starting '1105150' order by 1" 002 < <(
            echo "11051501 Fondo tecleado 1"
            [ $hasta = 11051501 ] || echo "11051502 Fondo corregido"
        )
        teclas Return
    done
fi
teclas Escape
quede "lo borrado" "select 'quedan ' || count(*) from comprobante_encabezado
    where enco_concepto = 'Para borrar' union all
    select 'quedan ' || count(*) from cuentas where cuen_cod in ('11051503', '11051504')" <<FIN
quedan 0
quedan 0
FIN
quede "el auxiliar que se abrió y el tercero que se reemplazó" "select c.cuen_cod || ' ' ||
    c.cuen_nom || ' ' || d.terc_nit || ' ' || count(*) from comprobante_detalle d
    join cuentas c on c.cuen_cod = d.cuen_cod where c.cuen_cod starting '513520'
    or c.cuen_cod = '513535' group by c.cuen_cod, c.cuen_nom, d.terc_nit order by 1" <<FIN
51352001 Proceso tecleado 899478387 12
513535 Teléfono 858836513 6
513535 Teléfono 861962811 6
FIN
