# Lo que se busca, se corrige o se borra desde donde ninguna otra escena lo hace: los comprobantes
# de un tercero, el auxiliar de una cuenta, la estructura del plan, las normas, las taxonomías, las
# plantillas y las notas. Cada parte crea lo suyo.

# nota_bancaria DÍA CONCEPTO IMPORTE CUENTA [TERCERO PROYECTO CENTRO]: en el comprobante que está
# abierto, solo del libro 2649, contra el banco; y no lo imprime.
nota_bancaria() {
    escriba "Nota b"
    teclas Tab
    escriba "$1"
    teclas Tab
    escriba "$2"
    veces 9 Tab
    linea "$4" "${5:-}" "${6:-}" "${7:-}" "" "" "" "" "" "$3" "" ""
    linea 11100501 "" "" "" "" "" "" "" "" "" "$3" ""
    foto nota_bancaria
    teclas F2 Escape Escape
}

# De los comprobantes de un tercero se halla uno, se corrige y se borra. De allí, como del auxiliar,
# no se borra el libro NIIF: por eso son solo del otro.
teclas ctrl+b
nota_bancaria 21 "Nota del tercero" 5000 519530 838515576 0001 0001
teclas ctrl+F6
halle Pinturas
teclas F9 shift+F12 Tab Tab Tab
escriba "Nota del t"
teclas Return
foto comprobante_del_tercero
guarde_lista comprobantes_del_tercero
anotado "los comprobantes hallados del tercero, y su total" "$(
    cifras_de comprobantes_del_tercero 2 1 | sed '/^--/d')" <<FIN
NB 0001 5000.00
5000.00
FIN
teclas F4 ctrl+a
escriba "Nota del tercero corregida"
foto comprobante_del_tercero_corregido
teclas F2 Escape
hay_comprobante "Nota del tercero corregida"
teclas ctrl+Next F3
foto comprobante_del_tercero_por_borrar
teclas s Escape Escape

teclas ctrl+F4
halle 539520
teclas F9 F5
nota_bancaria 22 "Multa por borrar" 7000 539520
foto multa_en_el_auxiliar
hay_comprobante "Multa por borrar"
teclas F3
foto multa_por_borrar
teclas s
foto multa_borrada
teclas Escape Escape
quede "los comprobantes que se borraron" "select 'quedan ' || count(*) from comprobante_encabezado
    where enco_concepto starting 'Nota del tercero' or enco_concepto = 'Multa por borrar' union all
    select 'quedan ' || count(*) from comprobante_detalle where cuen_cod = '539520'" <<FIN
quedan 0
quedan 0
FIN

# Con cuentas creadas, la estructura solo se mira. Lo que rehusó queda dicho en el registro de
# fallas, y de allí se quita.
teclas alt+e Return
foto estructura_del_plan
coincide estructura_del_plan 1 1 "select estr_nivel || ' ' || estr_digitos from estructura
    order by estr_nivel"
teclas ctrl+End Tab
escriba 9
teclas F2
foto estructura_que_no_cambia
anotado "lo que la estructura rehusó" "$(iconv -f ISO-8859-1 -t UTF-8 \
    "$trabajo/aplicacion/ERRORES.TXT" | cut -d, -f4- | sed 's/ | .*//')" <<FIN
La estructura no se puede cambiar: ya hay cuentas creadas.
FIN
rm -f "$trabajo/aplicacion/ERRORES.TXT"
teclas Return Escape s Escape

# Una norma y un ítem se corrigen; otra y otro se borran. En la lista para escoger, teclear ubica y
# Supr abre la celda.
normas_tecleadas="select nnif_id || ' ' || nnif_nombre from normas_niif where nnif_id in (97, 98)
    union all select nnid_item || ' ' || nnif_nombre from normas_niif_detalle
    where nnif_id in (97, 98) order by 1"
teclas alt+c Tab Return
halle 110510
teclas alt+r F5 ctrl+Home Insert
fila 97 "Norma nueva"
teclas F12 Insert
fila 97.1 "Ítem nuevo"
teclas Down Home
fila 97.2 "Ítem que sobra"
teclas F12 ctrl+End Down
fila 98 "Norma que sobra"
teclas F2
foto normas_nuevas
estaba "las normas por corregir" "$normas_tecleadas" <<FIN
97 Norma nueva
97.1 Ítem nuevo
97.2 Ítem que sobra
98 Norma que sobra
FIN
teclas ctrl+Home Home
escriba 98
foto norma_ubicada
teclas ctrl+Delete s ctrl+Home Home
escriba 97
teclas Tab Delete
escriba "Norma corregida"
teclas F12 ctrl+Home Home
escriba 97.2
teclas ctrl+Delete s ctrl+Home Home Tab Delete
escriba "Ítem corregido"
foto normas_corregidas
teclas F2 Escape Escape Escape Escape
quede "las normas que se corrigieron" "$normas_tecleadas" <<FIN
97 Norma corregida
97.1 Ítem corregido
FIN

# Dos taxonomías: se borra la primera.
teclas alt+x
for cual in "que sobra" tecleada; do
    teclas F5
    escriba "Taxonomía $cual"
    teclas F2
done
foto taxonomias
estaba "la taxonomía por borrar" "select taxo_nombre from taxonomia
    where taxo_nombre starting 'Taxonomía ' order by taxo_id" <<FIN
Taxonomía que sobra
Taxonomía tecleada
FIN
teclas Up F3
foto taxonomia_por_borrar
teclas s Escape
quede "las taxonomías" "select taxo_nombre from taxonomia
    where taxo_nombre starting 'Taxonomía ' or taxo_id = 1 order by taxo_id" <<FIN
Supersociedades
Taxonomía tecleada
FIN

# Una plantilla hallada por su concepto entre todas, que se corrige; y por él entre las de su tipo,
# que se borra.
teclas shift+F6 F6
escriba "Factura de c"
teclas Tab
escriba "ZZ plantilla por buscar"
teclas Tab
escriba BUSC
teclas Tab
linea 530595 "" "" "" "" "" "" "" "" 9000 ""
teclas F2 Escape shift+F12 Tab Tab
escriba "por buscar"
teclas Return
foto plantilla_hallada
teclas F4 Tab Tab ctrl+a
escriba "ZZ plantilla hallada"
teclas F2
estaba "la plantilla que se halló" "select tico_cod || ' ' || plan_concepto
    from plantilla_encabezado where plan_refer = 'BUSC'" <<<"FC ZZ plantilla hallada"
teclas shift+F12
escriba "Factura de c"
teclas Tab Tab ctrl+a
escriba hallada
teclas Return Tab Tab Tab
foto plantilla_de_su_tipo
guarde_lista plantillas_halladas
anotado "las plantillas halladas" "$(cifras_de plantillas_halladas 2 2)" <<<"FC 0001 BUSC ADMIN"
teclas F3
foto plantilla_hallada_por_borrar
teclas s Escape
quede "la plantilla que se halló y se borró" "select 'quedan ' || count(*)
    from plantilla_encabezado where plan_refer = 'BUSC'" <<<"quedan 0"

# De dos notas, la segunda se halla tecleando su título: se corrige, y después se borra.
notas_tecleadas="select noef_titulo || iif(position('Hallada' in noef_nota) > 0, ' hallada', '')
    from notas_estados_financieros where noef_titulo starting 'Z' order by 1"
teclas alt+i
opcion e
teclas Return
opcion n
for titulo in "ZY queda" "ZZ por buscar"; do
    teclas F5
    escriba "$titulo"
    veces 11 Tab
    escriba "Se tecleó."
    teclas F2
done
teclas ctrl+Home Right Right Right
escriba "ZZ por"
foto nota_ubicada
teclas F4
escriba "Hallada. "
foto nota_hallada
teclas F2
estaba "la nota que se halló" "$notas_tecleadas" <<FIN
ZY queda
ZZ por buscar hallada
FIN
teclas F3
foto nota_hallada_por_borrar
teclas s Escape Escape Escape Escape
quede "las notas que quedaron" "$notas_tecleadas" <<<"ZY queda"
