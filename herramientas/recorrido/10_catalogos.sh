# Catálogos: plan de cuentas, terceros, centros y numeración.
teclas ctrl+F4
foto plan_de_cuentas 1
teclas F5
foto cuenta_nueva
teclas Escape Down Down Down Down F4
foto modificar_cuenta
teclas Escape Escape
teclas ctrl+F6
foto terceros 1
teclas F4
foto modificar_tercero
teclas Escape Escape
teclas ctrl+r
foto tercero_nuevo
teclas Escape
teclas alt+o
foto centros_de_costo
teclas Escape
teclas alt+n
foto numeracion
teclas Escape
