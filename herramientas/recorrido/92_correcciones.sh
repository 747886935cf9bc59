# Lo que se corrige y se borra en los catálogos: países, ciudades, proyectos, tipos, terceros,
# grupos y activos con sus documentos, y normas.

# dos_filas LETRA CÓDIGO CÓDIGO QUÉ: en la rejilla que abre esa letra de la ficha de un tercero, de
# última se crea lo que se corrige y después lo que se borra.
dos_filas() {
    local vez
    for vez in crea corrige; do
        teclas "alt+$1" Tab space ctrl+End
        if [ $vez = crea ]; then
            teclas Down
            fila "$2" "ZY $4"
            teclas Down Home
            fila "$3" "ZZ que sobra"
        else
            foto "por_corregir_$1"
            teclas ctrl+Delete s ctrl+End Home
            fila "" "ZY $4 corregido"
        fi
        teclas F2
    done
}
teclas ctrl+r
dos_filas p 996 997 "País"
dos_filas c 99996 99997 "Municipio"
teclas Escape
quede "los países y las ciudades que se corrigieron" "select pais_nom from paises
    where pais_id in ('996', '997') union all
    select ciud_nom from ciudades where ciud_cod in ('99996', '99997')" <<FIN
ZY País corregido
ZY Municipio corregido
FIN

# Un proyecto con dos centros y un tipo con su prefijo; sobran un proyecto, un centro y un tipo.
teclas alt+o ctrl+End Down
linea 0011
escriba "Proyecto nuevo"
teclas F12 Insert
linea 0001
escriba "Centro nuevo"
teclas Down Home
linea 0002
escriba "Centro que sobra"
teclas F12 ctrl+End Down
linea 0012
escriba "Proyecto que sobra"
teclas F2 alt+o ctrl+End
foto proyecto_por_borrar
teclas ctrl+Delete s ctrl+End Home
linea ""
escriba "Proyecto corregido"
teclas F12 ctrl+End ctrl+Delete s ctrl+End Home
linea ""
escriba "Centro corregido"
teclas F2
quede "los proyectos y los centros que se corrigieron" "select proy_nom from proyectos
    where proy_cod > '0010' union all select cent_nom from centros where proy_cod > '0010'" <<FIN
Proyecto corregido
Centro corregido
FIN
teclas alt+n ctrl+End Down
linea ZY
escriba "Tipo nuevo"
teclas F12 Insert
linea 0001
escriba 000007
teclas F12 ctrl+End Down
linea ZZ
escriba "Tipo que sobra"
teclas F2 alt+n ctrl+End
foto tipo_por_borrar
teclas ctrl+Delete s ctrl+End Home
linea ""
escriba "Tipo corregido"
teclas F2
quede "los tipos que se corrigieron" "select t.tico_cod || ' ' || tico_nom || ' ' || prco_pref ||
    ' ' || pref_numero from tipo_comprobante t join prefijos_conta p on p.tico_cod = t.tico_cod
    where t.tico_cod starting 'Z'" <<FIN
ZY Tipo corregido 0001 000007
FIN

teclas ctrl+F6
halle Taller
teclas F4 Tab Tab
escriba "Calle tecleada"
foto tercero_corregido
teclas F2 Escape
quede "el tercero que se corrigió" "select terc_nom || ' ' || terc_dir from terceros
    where terc_nit = '821320937'" <<<"Taller Industrial Güiza Ltda. Calle tecleada"

# Un activo, con un grupo que se corrige y otro que se borra; del otro activo, un documento.
teclas alt+a F5
escriba ZZ-902
teclas Tab
escriba "Activo que sobra"
teclas F6 ctrl+End Down
fila 10 "Grupo nuevo" 12 24
teclas Down Home
fila 11 "Grupo que sobra" 12 24
# Abierta para escoger, teclear ubica: Supr abre la celda.
teclas F2 ctrl+End ctrl+Delete s ctrl+End Home Tab Delete
escriba "Grupo corregido"
foto grupo_corregido
teclas F2 Return F2
halle "Activo que"
foto activo_hallado
estaba "el activo por borrar" "select acfj_cod || ' ' || acgr_nom from activos_fijos a
    join activos_grupos g on g.acgr_id = a.acgr_id where a.acgr_id > 9" <<<"ZZ-902 Grupo corregido"
teclas F3 s
halle "Activo tecleado"
teclas F4 F8 F5
escriba "$trabajo/contrato.pdf"
teclas Tab Tab
escriba "ZZ documento que sobra"
teclas F2 ctrl+End F3
foto documento_del_activo_por_borrar
estaba "el documento del activo por borrar" "select acdo_nombre from activos_documentos
    order by 1" <<FIN
Factura del activo
ZZ documento que sobra
FIN
teclas s Escape Escape Escape
quede "los activos y grupos que quedaron" "select acfj_cod from activos_fijos
    where acfj_cod starting 'ZZ' union all select acgr_nom from activos_grupos where acgr_id > 9
    union all select acdo_nombre from activos_documentos" <<FIN
ZZ-901
Grupo corregido
Factura del activo
FIN
