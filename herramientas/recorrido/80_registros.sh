# Registros de catálogo que se crean, se corrigen y se borran: cuentas de los dos planes, terceros,
# proyectos con sus centros. Va de última: las filas nuevas correrían las de las otras escenas.

# tres_cuentas TABLA: en el plan abierto crea tres, corrige la segunda y borra la tercera.
tres_cuentas() {
    local cual
    teclas F5
    for cual in 1 2 3; do
        escriba "1105150$cual"
        teclas Tab
        escriba "Fondo tecleado $cual"
        teclas F2
        foto "cuenta_$cual"
    done
    teclas Escape
    halle 11051502
    foto cuenta_hallada
    teclas F4
    teclas ctrl+a
    escriba "Fondo corregido"
    foto cuenta_corregida
    teclas F2 Escape
    halle 11051503
    estaba "la cuenta por borrar" "select cuen_cod from $1 where cuen_cod = '11051503'" <<<11051503
    teclas F3
    foto cuenta_por_borrar
    teclas s
    foto cuenta_borrada
    teclas Escape Escape
}
quedan_cuentas() {
    quede "las cuentas de $1" "select cuen_cod || ' ' || cuen_nom from $1
        where cuen_cod starting '1105150' order by cuen_cod" <<FIN
11051501 Fondo tecleado 1
11051502 Fondo corregido
FIN
}
teclas ctrl+F4
tres_cuentas cuentas
quedan_cuentas cuentas
teclas alt+c Tab Return
foto plan_niif
tres_cuentas cuentas_niif
teclas Escape
quedan_cuentas cuentas_niif

# Un proyecto con su centro.
teclas alt+o ctrl+End Down
linea 0009
escriba "Proyecto tecleado"
foto proyecto
teclas F12 Insert
linea 0001
escriba "Centro tecleado"
foto centro
teclas F2
quede "el proyecto y su centro" "select proy_cod || ' ' || proy_nom from proyectos
    where proy_cod = '0009' union all select cent_cod || ' ' || cent_nom from centros
    where proy_cod = '0009'" <<FIN
0009 Proyecto tecleado
0001 Centro tecleado
FIN

# Dos terceros, personas naturales: uno se borra. Al escoger el tipo se pasa a los apellidos.
for apellido in Ñáñez Sobrante; do
    teclas ctrl+r
    escriba "5200100${#apellido}"
    teclas Tab Tab Tab
    escriba C
    escriba "$apellido"
    teclas Tab Tab
    escriba "María"
    foto "tercero_$apellido"
    teclas F2
    foto tercero_grabado
    teclas Escape
done
teclas ctrl+F6
halle Sobrante
foto tercero_hallado
estaba "el tercero por borrar" "select trim(terc_apellido1) from terceros
    where terc_nit = '52001008'" <<<Sobrante
teclas F3
foto tercero_por_borrar
teclas s
foto tercero_borrado
teclas Escape
quede "los terceros" "select terc_nit || ' ' || trim(terc_apellido1) || ' ' || trim(terc_nombre1)
    from terceros where terc_nit starting '520010'" <<FIN
52001005 Ñáñez María
FIN
