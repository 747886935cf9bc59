# Las cuentas y la nota de un renglón de la taxonomía.
teclas alt+x F4 F12 Down Down F6 ctrl+End Down
fila 1205
foto cuentas_del_renglon
teclas F2
foto cuentas_grabadas
teclas Escape F7
escriba "Nota tecleada"
foto nota_del_renglon
teclas F2 Escape Escape
quede "las cuentas y la nota del renglón" "select cuen_cod from taxonomia_cuentas
    where taxe_id = 210000 and taxd_id = 30
    union all select cast(tain_nota as varchar(100)) from taxonomia_notas" <<FIN
11
1205
Nota tecleada
FIN
