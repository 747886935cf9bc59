# Los saldos con que se empezó, en los dos libros: dos que faltaban y la hoja de apertura, que se
# borra, se trae otra vez, se corrige y se lleva.
teclas alt+s Return ctrl+End Down F9
halle 110510
teclas Return
linea "" "" "" "" 250000 ""
teclas ctrl+End Down F9
halle 133015
teclas Return
linea ""
teclas F6
halle Suárez
teclas Return F5
foto saldos_por_grabar
teclas F2 Tab Return
quede "los saldos iniciales" "select cuen_cod || ' ' || coalesce(terc_nit, '-') || ' ' ||
    sain_debito || ' ' || sain_credito from saldos_iniciales
    where cuen_cod in ('110510', '133015') order by sain_item" <<FIN
110510 - 250000.00 0.00
133015 1021604545 0.00 250000.00
FIN

foto apertura_por_borrar
estaba "la apertura por borrar" "select iif(count(*) > 0, 'hay', 'no hay') from apertura_niif" \
    <<<hay
teclas F3 s n
estaba "la apertura que se borró" "select 'quedan ' || count(*) from apertura_niif" <<<"quedan 0"
teclas F7 s
foto apertura_traida
teclas Return Down F5 Down Tab
fila 111505 "Reclasificado"
foto apertura_corregida
teclas F2 F2 n F12
foto apertura_por_llevar
teclas s Return Escape Escape
quede "la apertura" "select apnd_ctaniif || ' ' || apnd_concepto || ' ' || apnd_saldofin
    from apertura_niif_det where cuen_cod = '110510' and apnd_item = 2" <<FIN
111505 Reclasificado 250000.00
FIN
quede "los saldos iniciales NIIF" "select cuen_cod || ' ' || sain_debito from saldos_iniciales_niif
    where cuen_cod in ('110505', '111505') union all
    select 'Sumas ' || sum(sain_debito) from saldos_iniciales_niif
    union all select 'Sumas ' || sum(sain_credito) from saldos_iniciales_niif" <<FIN
110505 3500000.00
111505 250000.00
Sumas 746962000.00
Sumas 746962000.00
FIN
