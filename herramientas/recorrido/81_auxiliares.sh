# Saldos y auxiliares por tercero, por centro y por artículo, en los dos libros: cada cifra se
# compara con lo que suman los renglones. El mes es febrero de 2017.
mes=201702

# al_que_se_movio NOMBRE N: en los saldos recién guardados, a la primera fila con movimiento; sus N
# palabras quedan en $llave.
al_que_se_movio() {
    local fila
    read -r fila llave < <(cifras_de "$1" "$2" 4 |
        awk '$(NF - 2) + $(NF - 1) { NF -= 4; print NR, $0; exit }') || falle "$1 no se movió."
    teclas ctrl+Home
    veces $((fila - 1)) Down
}
# del_plan [_niif]: las consultas de la cuenta hallada y, de los saldos de sus terceros, al auxiliar
# de uno.
del_plan() {
    local cuenta="cuen_cod = '130505'"
    halle 130505
    teclas F8
    foto saldos_por_tercero
    coincide "saldos_por_tercero$1" 1 4 "$(sql_saldos terc_nit "$cuenta" $mes "$1")"
    al_que_se_movio "saldos_por_tercero$1" 1
    teclas F8
    foto auxiliar_por_tercero
    coincide "auxiliar_por_tercero$1" 4 2 \
        "$(sql_auxiliar "d.$cuenta and d.terc_nit = '$llave'" $mes "$1")"
    teclas Escape Escape F9
    foto auxiliar_de_la_cuenta
    coincide "auxiliar_de_la_cuenta$1" 4 2 "$(sql_auxiliar "d.$cuenta" $mes "$1")"
    teclas Escape
}
teclas ctrl+F4
del_plan ""
teclas Escape
teclas alt+c Tab Return
del_plan _niif
teclas Escape Escape

# centros [_niif]: la última cuenta del balance los lleva; de ellos, a su auxiliar, que siempre es
# del primer libro, y a sus terceros.
centros() {
    local cuenta="cuen_cod = '613548'"
    teclas ctrl+End F7
    foto saldos_por_centro
    coincide "saldos_por_centro$1" 2 4 \
        "$(sql_saldos "proy_cod || ' ' || cent_cod" "$cuenta" $mes "$1")"
    al_que_se_movio "saldos_por_centro$1" 2
    teclas F8
    foto auxiliar_por_centro
    coincide "auxiliar_por_centro$1" 4 2 "$(sql_auxiliar \
        "d.$cuenta and d.proy_cod || ' ' || d.cent_cod = '$llave'" $mes)"
    teclas Escape Tab Tab space
    foto terceros_del_centro
    teclas Escape Escape
}
teclas shift+F9
centros ""
teclas ctrl+Next
centros _niif
teclas ctrl+Prior ctrl+Home

# Los artículos: hacia abajo hasta la cuenta que los lleva; las otras lo dicen o no hacen nada.
for _ in $(seq 60); do
    antes=$(veces_abierta Tfsaldoartc)
    teclas Down F6
    [ "$(veces_abierta Tfsaldoartc)" = "$antes" ] && continue
    hay_aviso || break
    teclas Return
done
foto saldos_por_articulo
coincide saldos_por_articulo 1 4 "$(sql_saldos arti_cod "cuen_cod = '143505'" $mes)"
al_que_se_movio saldos_por_articulo 1
teclas F8
foto auxiliar_por_articulo
coincide auxiliar_por_articulo 4 2 \
    "$(sql_auxiliar "d.cuen_cod = '143505' and d.arti_cod = '$llave'" $mes)"
teclas Escape Escape Escape
