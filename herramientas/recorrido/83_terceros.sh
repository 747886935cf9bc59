# Lo que rodea a los terceros: países, ciudades, categorías, artículos y documentos.

# Un país y una ciudad, desde la ficha.
teclas ctrl+r alt+p Tab space ctrl+End Down
fila 999 "País tecleado"
foto pais_nuevo
teclas F2 alt+c Tab space ctrl+End Down
fila 99999 "Ciudad tecleada"
foto ciudad_nueva
teclas F2 Escape
quede "el país y la ciudad" "select pais_id || ' ' || pais_nom from paises where pais_id = '999'
    union all select ciud_cod || ' ' || ciud_nom from ciudades where ciud_cod = '99999'" <<FIN
999 País tecleado
99999 Ciudad tecleada
FIN

# Dos categorías: se corrige una y se borra la otra.
teclas alt+e
opcion c
teclas ctrl+End Down
fila 901 "Categoría tecleada"
teclas Down Home
fila 902 "Categoría que sobra"
foto categorias
teclas F2 Return ctrl+End
foto categoria_por_borrar
estaba "la categoría por borrar" "select conc_nombre from concepto_contable
    where conc_cod = '902'" <<<"Categoría que sobra"
teclas ctrl+Delete s
foto categoria_borrada
teclas ctrl+End
fila "" "Categoría corregida"
foto categoria_corregida
teclas F2 Escape
quede "las categorías" "select conc_cod || ' ' || conc_nombre from concepto_contable
    where conc_cod starting '90'" <<FIN
901 Categoría corregida
FIN

# Dos artículos, desde una cuenta nueva.
teclas ctrl+t F11 F5
for cual in tecleado sobrante; do
    escriba "ZZ-$cual"
    teclas Tab Tab
    escriba "Artículo $cual"
    foto "articulo_$cual"
    teclas F2
done
teclas Escape
halle "Artículo sobrante"
foto articulo_por_borrar
estaba "el artículo por borrar" "select arti_des from articulo
    where arti_cod = 'ZZ-sobrante'" <<<"Artículo sobrante"
teclas F3 s
halle "Artículo tecleado"
teclas F4 ctrl+a
escriba "Artículo corregido"
foto articulo_corregido
teclas F2 Escape Escape
quede "los artículos" "select arti_cod || ' ' || arti_des from articulo
    where arti_cod starting 'ZZ'" <<FIN
ZZ-tecleado Artículo corregido
FIN

# Dos documentos de un tercero.
echo "%PDF-1.4" >"$trabajo/contrato.pdf"
teclas ctrl+F6
halle "Inmobiliaria"
teclas F4
veces 5 shift+Tab
foto ficha_con_documentos
teclas space
for cual in firmado sobrante; do
    teclas F5
    escriba "$trabajo/contrato.pdf"
    teclas Tab Tab
    escriba "Contrato $cual"
    foto documento_nuevo
    teclas F2
done
teclas ctrl+End
foto documentos_del_tercero
teclas F3
foto documento_por_borrar
estaba "el documento por borrar" "select tedo_nombre from tercero_documentos order by 1" <<FIN
Contrato firmado
Contrato sobrante
FIN
teclas s Escape Escape Escape
quede "los documentos del tercero" "select tedo_nombre from tercero_documentos" <<FIN
Contrato firmado
FIN
