# Un activo nuevo con su grupo y su documento, y el catálogo.
echo "%PDF-1.4" >"$trabajo/contrato.pdf"
teclas alt+a F5
escriba ZZ-901
teclas Tab
escriba "Activo tecleado"
foto activo_nuevo
teclas F6 ctrl+End Down
fila 9 "Grupo tecleado" 36 48
foto grupo_nuevo
teclas F12 Insert
fila 1 "Subgrupo tecleado"
foto subgrupo_nuevo
teclas F2
foto grupo_grabado
teclas Return
foto grupo_escogido
teclas F2
foto activo_grabado
teclas ctrl+Home F4 F8 F5
escriba "$trabajo/contrato.pdf"
teclas Tab Tab
escriba "Factura del activo"
teclas F2
foto documento_del_activo
teclas Escape Escape F9 F2
a_pdf catalogo_de_activos 1
teclas Escape
quede "el activo, su grupo y su documento" "select acfj_cod || ' ' || acgr_id || ' ' || acsg_id
    from activos_fijos where acfj_cod = 'ZZ-901'
    union all select acgr_nom || ' ' || acgr_mesdep || ' ' || acgr_mesdepn from activos_grupos
    where acgr_id = 9 union all select acdo_nombre from activos_documentos" <<FIN
ZZ-901 9 1
Grupo tecleado 36 48
Factura del activo
FIN
