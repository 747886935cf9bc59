# Documentos de los módulos hermanos que faltan por contabilizar: uno que se revisa, y un lote con
# su resumen. Están en el año siguiente al del libro; al final se vuelve al de las demás escenas.
teclas shift+F10
espere 0.8
xdotool mousemove 425 112 click 1 # la caja del año
teclas Up
foto documentos_sin_contabilizar 1.5
xdotool mousemove 560 164 click 1
teclas F2
foto propuesta_por_revisar 2
teclas F2
foto documento_contabilizado 2
teclas shift+Down shift+Down shift+Down shift+Down shift+Down shift+Down shift+Down shift+Down
xdotool mousemove 527 605 click 1 # Cont.Marcados
foto revision_en_el_lote 5
teclas F2
foto resumen_del_lote 3
teclas Escape
xdotool mousemove 425 112 click 1
teclas Down
espere 0.8
teclas Escape
espere 0.5
