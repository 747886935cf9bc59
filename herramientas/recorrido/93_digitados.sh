# Lo que se corrige en lo que la compañía define: exportación, medios, informes, registros
# automáticos, plantillas y presupuesto.
teclas alt+e
opcion e
teclas F5 ctrl+End Down
linea 110510 CAJA
foto equivalencia_nueva
teclas F2 Escape Escape
quede "la equivalencia de la cuenta" "select cuex_cod from cuentas_exportacion
    where cuen_cod = '110510'" <<<CAJA

anexo m
formato_del_medio 1001
teclas F8 F12 ctrl+End Down
escriba 519595
foto cuenta_del_medio
teclas F2 Escape
cierre_anexo
quede "la cuenta del medio" "select mmcu_cuenta from mediosmag_cuentas
    where mmcu_cuenta = '519595'" <<<519595

# Dos informes con su dato: se corrige uno y se borra el otro.
menu f
for cual in 902 903; do
    teclas F5
    escriba $cual
    teclas Tab
    escriba "ZZ informe $cual"
    veces 7 Tab
    teclas Insert
    fila SF1105 100 200
    foto "informe_$cual"
    teclas F2
done
teclas ctrl+End
estaba "el informe por borrar" "select trim(foco_id) from formatos_contables
    where foco_id > 901 order by 1" <<FIN
902
903
FIN
teclas F3 s ctrl+End F4
escriba SF1110
foto informe_corregido
teclas F2 Escape Escape
quede "los informes que quedaron" "select foco_id || ' ' || focd_cuentas || ' ' || focd_posx ||
    ' ' || focd_posy from formatocontable_detalle where foco_id > 901" <<FIN
902 SF1110 100 200
FIN

# El registro automático que ya estaba y su concepto.
teclas alt+u Tab Tab Tab Return Down F4 ctrl+a
escriba "A registro corregido"
foto registro_corregido
teclas F2 F4 F8 ctrl+End F4
veces 5 shift+Tab
teclas ctrl+a
escriba "A concepto corregido"
foto concepto_corregido
teclas F2 Escape Escape Escape Escape
quede "el registro y el concepto que se corrigieron" "select reau_nom from registro_automatico
    where reau_nom starting 'A registro c' union all
    select conc_nom from conceptos where conc_nom starting 'A concepto'" <<FIN
A registro corregido
A concepto corregido
FIN

teclas shift+F6 Down Down F4 Tab Tab ctrl+a
escriba "Contado corregido"
foto plantilla_corregida
teclas F2 Escape Escape
quede "la plantilla que se corrigió" "select plan_concepto from plantilla_encabezado
    where plan_concepto = 'Contado corregido'" <<<"Contado corregido"

teclas alt+r F2 ctrl+End Down
linea 513095 5000
foto presupuesto_nuevo
teclas F2 Escape
quede "el presupuesto de una cuenta" "select distinct trim(pres_debito) from presupuesto
    where cuen_cod = '513095' and pres_debito = 5000" <<<5000.00
