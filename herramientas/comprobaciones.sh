# Lo que debió quedar de lo tecleado. Los papeles se leen enseguida; los registros, al cerrar el
# programa, que entre tanto tiene la base para sí. Se incluye; no se ejecuta.
exigidos=0
mkdir -p "$trabajo/exigido"

# consulte [BASE]: lo que responde la compañía, sin blancos de relleno. El programa está cerrado.
consulte() {
    { echo "set heading off;"; cat; } |
        isql-fb -q -ch UTF8 -user SYSDBA "${1:-$trabajo/datos/001/quorvex.fdb}" 2>&1 |
        sed 's/[[:space:]]*$//; /^$/d'
}
# ultimo: el consecutivo del último comprobante que ya estaba.
anote_lo_que_hay() {
    ultimo=$(echo "select coalesce(max(enco_consec), 0) from comprobante_encabezado;" | consulte)
    ultimo=$((ultimo))
}
# exija QUÉ sql|hallado TEXTO <<FIN: lo que se compara al cerrar.
exija() {
    exigidos=$((exigidos + 1))
    local n=$trabajo/exigido/$(printf '%03d' "$exigidos")
    echo "${guion##*/}: $1" >"$n.que"
    echo "$3" >"$n.$2"
    cat >"$n.esperado"
}
# quede QUÉ SQL <<FIN: al cerrar, la consulta de una columna debe dar esos renglones.
quede() { exija "$1" sql "$2"; }
# anotado QUÉ HALLADO <<FIN: lo que ya se sabe que había, para decirlo al cerrar con lo demás.
anotado() { exija "$1" hallado "$2"; }
# ya SQL [COMPAÑÍA]: lo que responde ahora, en una copia, que el programa tiene la base para sí. Lo
# confirmado está entero en el disco.
ya() {
    cp "$trabajo/datos/${2:-001}/quorvex.fdb" "$trabajo/copia.fdb"
    echo "$1;" | consulte "$trabajo/copia.fdb"
    rm "$trabajo/copia.fdb"
}
# estaba QUÉ SQL [COMPAÑÍA] <<FIN: lo mismo que quede, pero ya, antes de que se borre.
estaba() { anotado "$1" "$(ya "$2" "${3:-001}")"; }
# coincide NOMBRE N M SQL: guarda la lista que tiene el teclado; sus cifras son las de la consulta.
coincide() {
    guarde_lista "$1"
    [ -n "$(cifras_de "$1" "$2" "$3")" ] || falle "$1 no trae renglones."
    quede "lo que muestra $1" "$4" < <(cifras_de "$1" "$2" "$3")
}
# sql_saldos LLAVE CONDICIÓN AAAAMM [_niif]: lo que suman los renglones, por esa llave.
sql_saldos() {
    local mes="code_fecha between '${3}00' and '${3}99'"
    echo "select $1 || ' ' || cast(sum(i) as numeric(18,2)) || ' ' ||
        cast(sum(d) as numeric(18,2)) || ' ' || cast(sum(c) as numeric(18,2)) || ' ' ||
        cast(sum(i + d - c) as numeric(18,2))
        from (select cuen_cod, terc_nit, proy_cod, cent_cod, arti_cod,
            coalesce(sain_debito, 0) - coalesce(sain_credito, 0) i, 0 d, 0 c
            from saldos_iniciales${4:-} union all
            select cuen_cod, terc_nit, proy_cod, cent_cod, arti_cod,
            iif($mes, 0, code_debito - code_credito), iif($mes, code_debito, 0),
            iif($mes, code_credito, 0)
            from comprobante_detalle${4:-} where code_fecha <= '${3}99') where $2
        group by $1 having sum(i) <> 0 or sum(d) <> 0 or sum(c) <> 0 order by $1"
}
# sql_auxiliar CONDICIÓN AAAAMM [_niif]: los renglones de ese mes.
sql_auxiliar() {
    echo "select trim(e.tico_cod) || ' ' || trim(e.prco_pref) || ' ' || trim(e.enco_numero) ||
        ' ' || e.enco_fecha || ' ' || cast(d.code_debito as numeric(18,2)) || ' ' ||
        cast(d.code_credito as numeric(18,2))
        from comprobante_detalle${3:-} d
        join comprobante_encabezado e on e.enco_consec = d.enco_consec
        where $1 and e.enco_fecha between '${2}00' and '${2}99'
        order by e.enco_fecha, e.tico_cod, e.prco_pref, e.enco_numero, d.code_item"
}
# hay_comprobante CONCEPTO: está el nuevo que después se deshace.
hay_comprobante() {
    estaba "«$1» antes de deshacerse" "select 'hay ' || count(distinct e.enco_consec)
        from comprobante_encabezado e join comprobante_detalle d on d.enco_consec = e.enco_consec
        where e.enco_concepto = '$1' and e.enco_consec > $ultimo" <<<"hay 1"
}
# quede_comprobante TIPO CONCEPTO FECHA [HASTA] <<FIN: el único nuevo con ese concepto, en el que
# "_" es cualquier letra. Cada renglón: cuenta tercero proyecto centro débito crédito, con "-" en lo
# que no lleva. Los que empiezan por NIIF son los de ese libro; si no hay ninguno, es igual al otro.
# "NIIF nada": en ese no quedó. Con HASTA, la fecha puede ser cualquiera entre las dos.
quede_comprobante() {
    local suyo="e.enco_consec > $ultimo and e.tico_cod = '$1' and
        (e.enco_concepto = '$2' or e.enco_concepto like '$2')"
    local renglones libro consulta tabla
    renglones=$(cat)
    consulta="select iif(e.enco_fecha between '$3' and '${4:-$3}', '$3', e.enco_fecha)
        from comprobante_encabezado e where $suyo;"
    for tabla in comprobante_detalle comprobante_detalle_niif; do
        libro=$([ "$tabla" = comprobante_detalle ] || echo "NIIF ")
        consulta+="select '$libro' || d.cuen_cod || ' ' || coalesce(d.terc_nit, '-') || ' ' ||
            coalesce(d.proy_cod, '-') || ' ' || coalesce(d.cent_cod, '-') || ' ' ||
            cast(d.code_debito as numeric(18,2)) || ' ' || cast(d.code_credito as numeric(18,2))
            from $tabla d join comprobante_encabezado e on e.enco_consec = d.enco_consec
            where $suyo order by d.code_item;"
    done
    quede "el comprobante $1 «$2»" "$consulta" < <(
        echo "$3"
        grep -v '^NIIF ' <<<"$renglones" || true
        { grep '^NIIF ' <<<"$renglones" || sed 's/^/NIIF /' <<<"$renglones"; } |
            sed '/^NIIF nada$/d'
    )
}
# quedan_sumas QUÉ SIENDO <<FIN: fecha, cuenta, débitos y créditos de los comprobantes nuevos que
# cumplan la condición, los mismos en los dos libros.
quedan_sumas() {
    local sumas tabla
    sumas=$(cat)
    for tabla in comprobante_detalle comprobante_detalle_niif; do
        quede "las sumas de $1 en $tabla" "select e.enco_fecha || ' ' || d.cuen_cod || ' ' ||
            cast(sum(d.code_debito) as numeric(18,2)) || ' ' ||
            cast(sum(d.code_credito) as numeric(18,2))
            from $tabla d join comprobante_encabezado e on e.enco_consec = d.enco_consec
            where e.enco_consec > $ultimo and $2 group by e.enco_fecha, d.cuen_cod
            order by e.enco_fecha, d.cuen_cod" <<<"$sumas"
    done
}
# pdf_dice NOMBRE TEXTO...: lo impreso lo trae, sin contar los blancos seguidos.
pdf_dice() {
    local archivo=$fotos/$1.pdf texto impreso
    impreso=$(pdftotext -layout "$archivo" - | tr -s '[:space:]' ' ')
    shift
    for texto in "$@"; do
        [ -n "$texto" ] || falle "Falta decir qué trae ${archivo##*/}."
        [[ $impreso == *"$texto"* ]] || falle "${archivo##*/} no dice «$texto»."
    done
}
# compruebe: al cerrar; dice todo lo que no quedó como se tecleó.
compruebe() {
    local n faltas=0
    for n in "$trabajo"/exigido/*.sql; do
        [ -e "$n" ] || continue
        n=${n%.sql}
        echo "select '=== ${n##*/}' from rdb\$database;"
        cat "$n.sql"
        echo ";"
    done | consulte | awk -v en="$trabajo/exigido/" '
        /^=== / { n = $2; printf "" >(en n ".hallado"); next }
        { print >(en n ".hallado") }'
    for n in "$trabajo"/exigido/*.esperado; do
        [ -e "$n" ] || continue
        n=${n%.esperado}
        diff -u "$n.esperado" "$n.hallado" >"$n.diferencia" && continue
        faltas=$((faltas + 1))
        echo "No quedó $(cat "$n.que")"
        sed 1,2d "$n.diferencia"
    done
    [ "$faltas" = 0 ] || {
        echo "$faltas de $exigidos cosas no quedaron como se teclearon."
        return 1
    }
    echo "Lo tecleado quedó: $exigidos comprobaciones."
}
