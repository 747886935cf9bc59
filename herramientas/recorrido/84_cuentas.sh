# Una cuenta tomada del plan publicado, que ya está: se crea su auxiliar. Y las normas de otra.
teclas ctrl+t F5
escriba 112525
foto plan_publicado
teclas Return
foto cuenta_publicada
teclas Return
escriba 11252501
teclas Tab
escriba "De amortización moneda nacional"
foto auxiliar_de_la_publicada
teclas F2 Escape
quede "la cuenta del plan publicado" "select cuen_cod || ' ' || cuen_nom from cuentas
    where cuen_cod = '11252501'" <<FIN
11252501 De amortización moneda nacional
FIN

teclas alt+c Tab Return
halle 110505
teclas alt+r F5 Insert
fila 7 "Norma tecleada"
teclas F12 Insert
fila 7.1 "Medición"
teclas Down Home
fila 7.2 "Revelación"
foto norma_nueva
teclas F2
foto norma_grabada
teclas Return
foto norma_escogida
teclas F5 Return Return
foto otra_norma
teclas F3
foto norma_por_borrar
estaba "la norma por borrar" "select nnid_item from cuentas_niif_norma
    where cuen_cod = '110505' order by 1" <<FIN
7.1
7.2
FIN
teclas s Escape Escape Escape
quede "las normas de la cuenta" "select nnif_id || ' ' || nnid_item from cuentas_niif_norma
    where cuen_cod = '110505' union all
    select nnid_item || ' ' || nnif_nombre from normas_niif_detalle where nnif_id = 7" <<FIN
7 7.1
7.1 Medición
7.2 Revelación
FIN
