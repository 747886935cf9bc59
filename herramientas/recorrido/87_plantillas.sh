# Una plantilla y una planilla de digitación, creadas, corregidas y borradas.
teclas alt+p Return F6
# De un tipo con un solo prefijo: no se pasa por él.
for cual in tecleada "que sobra"; do
    escriba "Factura de c"
    teclas Tab
    escriba "Plantilla $cual"
    teclas Tab
    escriba PT
    teclas Tab
    linea 530595 "" "" "" "" "" "" "" "" 8000 ""
    linea 11100501 "" "" "" "" "" "" "" "" "" 8000
    foto plantilla_nueva
    teclas F2
    foto plantilla_grabada
done
teclas Escape ctrl+Home Down Down
foto plantillas
teclas F3
foto plantilla_por_borrar
estaba "la plantilla por borrar" "select plan_concepto from plantilla_encabezado
    where plan_concepto starting 'Plantilla ' order by 1" <<FIN
Plantilla que sobra
Plantilla tecleada
FIN
teclas s
teclas ctrl+Home Down F4
foto plantilla_por_corregir
teclas Escape Escape Down Return
for cual in tecleada "que sobra"; do
    teclas F5
    escriba "Planilla $cual"
    teclas Tab
    escriba "Comprobante g"
    teclas Insert
    linea 110505 Caja
    foto planilla_nueva
    teclas F2
done
teclas ctrl+End
foto planillas
teclas F3
foto planilla_por_borrar
estaba "la planilla por borrar" "select pldi_nombre from planilla_digitacion
    where pldi_nombre starting 'Planilla ' order by 1" <<FIN
Planilla que sobra
Planilla tecleada
FIN
teclas s ctrl+End F4 ctrl+a
escriba "Planilla corregida"
foto planilla_corregida
teclas F2 Escape Escape
quede "la planilla" "select pldi_nombre || ' ' || pldc_cuenta || ' ' || pldc_titulo
    from planilla_digitacion p join planilla_digitacion_cuentas c on c.pldi_id = p.pldi_id
    where pldi_nombre starting 'Planilla '" <<FIN
Planilla corregida 110505 Caja
FIN
quede "la plantilla" "select plan_concepto || ' ' || cuen_cod || ' ' ||
    plde_debitos || ' ' || plde_creditos
    from plantilla_detalle d join plantilla_encabezado e on e.plan_id = d.plan_id
    where plan_concepto starting 'Plantilla ' order by plde_item" <<FIN
Plantilla tecleada 530595 8000.00 0.00
Plantilla tecleada 11100501 0.00 8000.00
FIN
