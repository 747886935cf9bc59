# Saldos y auxiliares por tercero, por centro y por artículo, en los dos libros.

# del_plan: las consultas de la cuenta hallada y, de los saldos de sus terceros, al auxiliar de uno.
del_plan() {
    halle 130505
    teclas F8
    foto saldos_por_tercero
    teclas F8
    foto auxiliar_por_tercero
    teclas Escape Escape F9
    foto auxiliar_de_la_cuenta
    teclas Escape
}
teclas ctrl+F4
del_plan
teclas Escape
teclas alt+c Tab Return
del_plan
teclas Escape Escape

# centros: la última cuenta del balance los lleva; de ellos, a su auxiliar y a sus terceros.
centros() {
    teclas ctrl+End F7
    foto saldos_por_centro
    teclas F8
    foto auxiliar_por_centro
    teclas Escape Tab Tab space
    foto terceros_del_centro
    teclas Escape Escape
}
teclas shift+F9
centros
teclas ctrl+Next
centros
teclas ctrl+Prior ctrl+Home

# Los artículos: hacia abajo hasta la cuenta que los lleva; las otras lo dicen o no hacen nada.
for _ in $(seq 60); do
    antes=$(veces_abierta Tfsaldoartc)
    teclas Down F6
    [ "$(veces_abierta Tfsaldoartc)" = "$antes" ] && continue
    hay_aviso || break
    teclas Return
done
foto saldos_por_articulo
teclas F8
foto auxiliar_por_articulo
teclas Escape Escape Escape
