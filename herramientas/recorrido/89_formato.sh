# El formato de los egresos, corrido tres posiciones a la derecha.
teclas alt+n Down Down F8
veces 4 shift+Tab
foto boton_mover
teclas space Tab
escriba 3
foto por_mover
teclas F2
foto movido
teclas Escape Escape
quede "el formato movido" "select trim(dafo_posx) from formato_datos
    where pref_pre = 'CE' and dafo_dato = 'CONCEPTO'" <<<233

# Y lo último del menú.
teclas alt+v Right Return
foto acerca_de
teclas Escape
