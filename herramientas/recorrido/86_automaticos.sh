# Un registro automático con su concepto, que se ejecuta; otro concepto se borra.
teclas alt+u Tab Tab Tab Return F8
for cual in 1 2; do
    teclas F5
    escriba "TEC$cual"
    teclas Tab
    escriba "A tecleado $cual"
    teclas Tab
    escriba 110505
    teclas Insert
    linea 530595 "" "" "" "" "" "" 25000
    teclas space
    foto concepto_nuevo
    teclas F2
done
foto conceptos
teclas ctrl+Home Down F3
foto concepto_por_borrar
estaba "el concepto por borrar" "select conc_nom from conceptos
    where conc_cod = 'TEC2'" <<<"A tecleado 2"
teclas s Escape F5
escriba TEC1
teclas Tab
escriba "A registro tecleado"
teclas Tab
escriba "Factura de c"
teclas F8
foto conceptos_para_escoger
teclas ctrl+Home Return
foto registro_con_concepto
teclas F2
foto registros
teclas ctrl+Home F6
escriba "Registro tecleado"
teclas F5
foto vista_del_registro
teclas F2
foto comprobante_del_registro
teclas Escape Escape Escape
# El registro automático escribe en el libro 2649.
quede "el comprobante del registro" "select d.cuen_cod || ' ' ||
    cast(d.code_debito as numeric(18,2)) || ' ' || cast(d.code_credito as numeric(18,2))
    from comprobante_detalle d join comprobante_encabezado e on e.enco_consec = d.enco_consec
    where e.enco_concepto = 'Registro tecleado' and e.tico_cod = 'FC' order by d.code_item" <<FIN
530595 25000.00 0.00
110505 0.00 25000.00
FIN
quede "los conceptos" "select conc_cod || ' ' || conc_nom from conceptos
    where conc_cod starting 'TEC'" <<FIN
TEC1 A tecleado 1
FIN
