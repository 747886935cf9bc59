# Los menús de informes por sus botones, lo que cada estado deja configurar, las notas, los informes
# que la compañía define y la impresión de varios comprobantes.

# menu LETRA...: en el menú de informes, hasta la que empieza por ellas.
menu() {
    teclas alt+i
    [ $# = 0 ] && teclas Return || opcion "$@"
}
menu
foto menu_catalogos
teclas Down Down Return
a_pdf centros_por_botones 1
teclas Escape Escape
menu a
foto menu_auxiliares
teclas Return
escriba 1305
teclas F2
a_pdf auxiliar_por_botones 1
teclas Escape Escape
menu e
opcion d
foto menu_detallados
teclas Return F2
a_pdf detallado_por_botones 1
teclas Escape Escape Escape
menu e e
foto menu_niif
teclas Down Down Down Return F2
a_pdf situacion_niif 1
teclas Escape Escape
menu l
foto menu_oficiales
teclas Return F2
a_pdf mayor_por_botones 1
teclas Escape Escape

# Lo que entra en dos estados: una cuenta más en cada uno.
estado Right Down Down Down Return
teclas Tab space ctrl+End Down
foto configuracion_situacion
fila "" 380505
foto configurada_situacion
teclas F2 Escape Escape
estado Right Down Down Down Down Return
teclas Tab space ctrl+End Down
foto configuracion_flujo
fila "" 380505
foto configurado_flujo
teclas F2 Escape Escape

# Las retenciones que se certifican, y las categorías de su detalle.
anexo c
teclas F8 ctrl+End Down
foto configuracion_certificados
fila 236540 "" 5120
foto configurados_certificados
teclas F2 Escape Escape
cierre_anexo
anexo d
teclas F8 ctrl+End Down
fila 5155 "Viajes tecleados"
foto configurado_detalle
teclas F2 Escape Escape
cierre_anexo

quede "lo configurado" "select 'situación ' || casi_cuenta || ' ' || casi_seccion || casi_db
    from cambios_situacion_ctas where casi_cuenta = '380505' union all
    select 'flujo ' || flef_cuenta || ' ' || flef_seccion || flef_db || flef_niif
    from flujo_efectivo where flef_cuenta = '380505' union all
    select cfcr_cuenta || ' ' || cfcr_ctabase
    from configura_certrete where cfcr_cuenta = '236540' and cfcr_ctabase = '5120' union all
    select crcd_cuenta || ' ' || crcd_nombre from cuentas_reporte_certdet
    where crcd_cuenta = '5155'" <<FIN
situación 380505 1N
flujo 380505 1NN
236540 5120
5155 Viajes tecleados
FIN

# Dos notas: se corrige una y se borra la otra.
menu e
teclas Return
opcion n
for titulo in "Nota tecleada" "Nota que sobra"; do
    teclas F5
    escriba "$titulo"
    veces 11 Tab
    escriba "Se tecleó."
    foto nota
    teclas F2
done
foto notas
teclas ctrl+End F3
foto nota_por_borrar
estaba "la nota por borrar" "select noef_titulo from notas_estados_financieros
    where noef_titulo starting 'Nota ' order by 1" <<FIN
Nota que sobra
Nota tecleada
FIN
teclas s
teclas ctrl+End F4
escriba "Corregida. "
foto nota_corregida
teclas F2 Escape Escape Escape Escape
quede "las notas" "select noef_titulo from notas_estados_financieros
    where noef_titulo starting 'Nota '" <<FIN
Nota tecleada
FIN

# Un informe definido por la compañía.
menu f
teclas F5
escriba 901
teclas Tab
escriba "Informe tecleado"
foto informe_nuevo
teclas F2
foto informe_grabado
teclas Escape
foto informes_definibles
teclas Escape Escape
quede "el informe definido" "select foco_nombre from formatos_contables
    where foco_id = 901" <<<"Informe tecleado"

# Varios comprobantes de una vez.
teclas alt+b Down Down Return
escriba "Recibo"
teclas Tab Tab
escriba 1
teclas Tab
escriba 2
foto impresion_masiva
teclas F2
a_pdf comprobantes_en_lote
