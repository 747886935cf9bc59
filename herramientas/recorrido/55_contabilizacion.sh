# Documentos de los módulos hermanos que faltan por contabilizar: algunos de cada tipo, en tres
# lotes de un día, con las revisiones y la interfaz que piden y el comprobante de dos; y uno que
# falla. Están en el año siguiente al del libro; al final se vuelve al de las demás escenas.

# solo_los_de FECHA: del filtro de la fecha a la rejilla, con los de ese día a la vista.
solo_los_de() {
    teclas ctrl+Home Home Up Tab Tab Tab ctrl+a
    escriba "$1"
    teclas Return Down
}
contabilice_todos() {
    teclas ctrl+a Tab Tab Tab space
}

teclas shift+F10
espere 0.8
teclas shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab Up shift+Tab # el año y el mes
escriba "Ene"
teclas Tab
espere 0.8
foto documentos_sin_contabilizar 1.5
teclas Tab Tab Tab Tab space Tab
solo_los_de 2018/01/15
foto filtro_de_un_dia 0.8
contabilice_todos
foto revision_en_el_lote 4
teclas ctrl+Next
foto revision_en_el_libro_niif 0.8
teclas F2
foto resumen_del_lote 3
teclas Escape
solo_los_de 2018/01/10
contabilice_todos
foto revision_de_un_ajuste 3
teclas F2
espere 1.5
teclas F2 # el otro ajuste
foto resumen_de_inventarios 4
teclas Return
foto comprobante_de_una_entrada 2
teclas Escape
solo_los_de 2018/01/20
contabilice_todos
foto interfaz_por_escoger 4
teclas Return
espere 1.5
teclas Down Return # la otra nota crédito, con la otra interfaz
espere 3
teclas F2 # el cheque devuelto, que se revisa
foto resumen_de_notas_y_bancos 4
teclas ctrl+End Return
foto comprobante_de_un_cheque_devuelto 2
teclas ctrl+Next
foto comprobante_en_el_libro_niif 0.8
teclas Escape
solo_los_de 2018/01/30
teclas Down Down Down Down Down Down F2
foto documento_que_falla 1.5
teclas Return
foto propuesta_con_la_falla 1.5
teclas Escape
espere 0.5
teclas Escape
foto el_que_falla_sigue_pendiente 1.5
teclas ctrl+Home Home Up Tab Tab Tab ctrl+a Delete Return Down
teclas shift+Tab space shift+Tab shift+Tab shift+Tab shift+Tab Down shift+Tab
escriba "Feb"
espere 0.8
foto vuelta_al_ano_del_libro
teclas Escape
espere 0.5
