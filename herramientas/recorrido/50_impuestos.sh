# Lo que piden las autoridades: certificados, medios magnéticos, distrito y taxonomías. Deja los
# XML, los CSV y los PDF junto a las fotos.

# anexo LETRAS: la opción del menú de anexos a la que se llega con ellas, desde el de informes.
anexo() {
    teclas alt+i
    opcion a a
    opcion "$@"
}
# cierre_anexo: los dos menús que quedan abiertos.
cierre_anexo() { teclas Escape Escape; }
# calcule: F2 y, si tarda, lo que dure su avance, que entre tanto recibe las teclas.
calcule() {
    teclas F2
    espere
    while xdotool search --onlyvisible --name '^Un momento$' >/dev/null 2>&1; do espere 0.2; done
    espere 0.3
}
# formato_del_medio NÚMERO: la caja va después de los años, la fecha y el concepto.
formato_del_medio() {
    veces 9 Tab
    escriba "$1"
}
# archivo_en NOMBRE: lo digita en la caja que tiene el foco.
archivo_en() {
    teclas ctrl+a
    escriba "$fotos/$1"
}
# exija_archivo NOMBRE: quedó grabado.
exija_archivo() {
    espere_archivo "$fotos/$1"
    echo "     $1"
}

# --- certificados: un informe y un PDF por tercero
anexo c
foto certificados
teclas F5
foto certificados_por_tercero 3
teclas Return
ls "$fotos/certificados"/*.PDF >/dev/null
echo "     $(ls "$fotos/certificados" | wc -l) certificados en PDF"
teclas F2
a_pdf certificados_de_retencion 1
cierre_anexo

anexo d
teclas F2
a_pdf detalle_de_certificados 1
cierre_anexo

# --- medios nacionales: el 1001
anexo m
formato_del_medio 1001
calcule
foto medio_1001 2
teclas F8
foto configuracion_1001 1
teclas Escape Tab
archivo_en Dmuisca_010100109201700000001.xml
teclas F5
foto cuadre_1001 2
# Con algo por corregir, se graba igual.
[ -s "$fotos/Dmuisca_010100109201700000001.xml" ] || teclas F5
exija_archivo Dmuisca_010100109201700000001.xml
teclas Escape
cierre_anexo
# y el 1009, que muestra lo que le falta antes de grabar
anexo m
formato_del_medio 1009
calcule
teclas F5
foto por_corregir_1009 2
teclas Escape Escape
cierre_anexo

# --- distrito y listados
anexo h
teclas Tab Tab Tab
escriba "4"
teclas Tab
escriba 899999061 # la secretaría: lo que se le paga no es una retención
calcule
foto articulo_4 1.5
teclas Tab Tab
archivo_en articulo_4.csv
teclas F5
exija_archivo articulo_4.csv
# Las retenciones del año por tercero, redondeadas; lo que se le pagó a la secretaría no lo es.
estaba "lo que trae articulo_4.csv" "select terc_nit || ' ' || round(sum(abs(code_base))) || ' ' ||
    round(sum(code_credito)) from comprobante_detalle
    where cuen_cod starting '2368' and code_fecha starting '2017' and code_credito > 0
    and terc_nit <> '899999061'
    group by terc_nit order by terc_nit" < <(cut -d';' -f3,11,13 --output-delimiter=' ' \
    "$fotos/articulo_4.csv")
teclas F8
foto articulos_del_distrito 1
teclas F6
foto articulos_copiados_al_siguiente 1
quede "los artículos copiados al año siguiente" "select mmdi_ano || ' ' || count(*) || ' ' ||
    sum((select count(*) from mediosmag_distr_cuentas c where c.mmdi_ano = a.mmdi_ano
        and c.mmdi_articulo = a.mmdi_articulo))
    from mediosmag_distr a group by mmdi_ano order by mmdi_ano" <<FIN
2017 24 35
2018 24 35
FIN
teclas Escape Escape
cierre_anexo

anexo i
teclas F2
foto listado_exogena 1
teclas Tab Tab Tab
archivo_en exogena.csv
teclas F5
exija_archivo exogena.csv
# El mes por tercero y cuenta; sin los centavos, que el archivo solo trae si los hay.
estaba "lo que trae exogena.csv" "select terc_nit || ' ' || cuen_cod || ' ' ||
    cast(trunc(sum(code_debito)) as bigint) || ' ' || cast(trunc(sum(code_credito)) as bigint)
    from comprobante_detalle where terc_nit is not null and code_fecha between '20170200'
    and '20170299' group by terc_nit, cuen_cod order by terc_nit, cuen_cod" < <(LC_ALL=C sed -E \
    's/^"([^"]*)",.*,"([0-9]+)","[^"]*",([0-9]+)[.0-9]*,([0-9]+)[.0-9]*\r?$/\1 \2 \3 \4/' \
    "$fotos/exogena.csv")
teclas Escape
cierre_anexo

# --- taxonomías
anexo s
teclas F2
foto supersociedades 1
teclas Escape
cierre_anexo
teclas alt+x F4
foto taxonomia 1
teclas F8 F2
a_pdf taxonomia 1
teclas F9 F2
espere_ventana "Nombre del archivo"
teclas ctrl+a
escriba "$fotos/taxonomia.xml"
teclas Return
exija_archivo taxonomia.xml
teclas Escape Escape
