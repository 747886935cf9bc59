# Fin de mes y de año: registros automáticos y cierres.

# Ver el comprobante antes de hacerlo, y hacerlo.
teclas alt+u
foto menu_automaticos 0.8
teclas Tab Tab Tab Return
foto registros_automaticos 0.8
teclas F4
foto registro_automatico 0.8
teclas F8
foto conceptos_automaticos 0.8
teclas F4
foto concepto_automatico 1
teclas Escape Escape Escape Escape
teclas Down Down F6
escriba "Provisión de cartera del mes"
teclas F5
foto vista_previa_del_registro 1
teclas F2
foto comprobante_del_registro 1.5
teclas Escape
espere 0.5
teclas Escape Escape
# El 1 % de los 256964891 que en la demostración de las pruebas deben los clientes en febrero.
[ -z "${QUORVEX_CIFRAS:-}" ] ||
    quede_comprobante CG "Provisión de cartera del mes" 20170201 <<FIN
519910 - 0001 0001 2569648.91 0.00
139905 - - - 0.00 2569648.91
NIIF nada
FIN

# Una venta de 1.000 dólares a 2.900, con su documento y su Base en la moneda, y la diferencia en
# cambio a la tasa del fin de mes.
teclas ctrl+b
escriba "Comprobante g"
teclas Tab Tab
escriba "10"
teclas Tab
escriba "Venta al exterior"
teclas Tab Tab Tab Tab Tab Tab Tab Tab
teclas space Tab
linea "130505"
teclas shift+Tab
escriba "EXP-1"
teclas Tab
escriba "Factura de v"
foto documento_en_moneda 0.6
teclas Tab Tab Tab Tab space
linea "807252596" "" "" "" "" "" "1000" "" "2900000" "" ""
linea "413548" "" "0004" "0001" "" "" "" "" "" "" "2900000"
foto venta_en_moneda 0.6
teclas F2
espere 1
teclas Escape
espere 0.5
teclas Escape
teclas alt+h Right Right Right Right Right Right Right
teclas Down Down Down Down Down Down
foto menu_herramientas 0.4
teclas Return
espere 0.5
escriba "Comprobante g"
teclas Tab Tab
escriba "28"
teclas Tab Tab
escriba "Diferencia en cambio de febrero"
teclas Tab
escriba "2984.15"
teclas Tab
escriba "1305"
teclas Tab F2
foto diferencia_en_cambio 1.5
teclas Escape
quede_comprobante CG "Venta al exterior" 20170210 <<FIN
130505 807252596 - - 2900000.00 0.00
413548 - 0004 0001 0.00 2900000.00
FIN
# 1000 por 84.15
quede_comprobante CG "Diferencia en cambio de febrero" 20170228 <<FIN
130505 807252596 - - 84150.00 0.00
421020 - - - 0.00 84150.00
NIIF nada
FIN

# El cierre del año se hace en el período de ajustes, que tiene resultados; se ve y se imprime su
# comprobante, y se deshace. El mes de la sesión se cambia en el balance, que aquí va por febrero.
teclas shift+F9
for _ in $(seq 11); do teclas alt+Right; done
teclas Escape
teclas shift+F4 F5
escriba "Comprobante de c"
teclas Tab Tab
escriba "31"
teclas Tab Tab
escriba "Cierre de resultados"
teclas Tab Tab
escriba "Normal"
foto cierre_anual 0.8
teclas F2
espere 2
foto cierres_anuales 0.8
hay_comprobante "Cierre de resultados"
teclas F4
foto comprobante_del_cierre 2
teclas F2
espere 1
teclas Return
a_pdf cierre_anual 1
espere 1
teclas F3 alt+s # Sí
foto cierre_deshecho 2
teclas Escape

# Lo demás es de diciembre.
teclas shift+F9
teclas alt+Left
teclas Escape

# Los proveedores quedan a nombre de uno solo, y se deshace.
teclas shift+F3 F5
escriba "Comprobante g"
teclas Tab Tab
escriba "31"
teclas Tab Tab
escriba "Cierre de proveedores"
teclas Tab
escriba "807252596"
teclas Tab Tab
escriba "2205"
teclas Tab
foto cierre_de_terceros 0.8
teclas F2
teclas ctrl+End # los de los impuestos ya estaban
foto cierres_de_terceros 1.5
hay_comprobante "Cierre de proveedores"
teclas F4
foto comprobante_del_cierre_de_terceros 1.5
teclas Escape
espere 0.5
teclas ctrl+End F3 alt+s # Sí
foto cierre_de_terceros_deshecho 1
teclas Escape

# El ajuste por inflación de diciembre.
teclas shift+F2 F5
escriba "Comprobante g"
teclas Tab Tab
escriba "31"
teclas Tab Tab
escriba "Ajuste de diciembre"
teclas Tab Tab
escriba "0.38"
teclas Tab
foto ajuste_por_inflacion 0.8
teclas F2
foto ajustes_por_inflacion 1.5
hay_comprobante "Ajuste de diciembre"
teclas F4
foto comprobante_del_ajuste 1.5
teclas Escape
espere 0.5
teclas F3 alt+s # Sí
foto ajuste_deshecho 1
teclas Escape
quede "los cierres que se deshicieron" "select 'quedan ' || count(*) from comprobante_encabezado
    where enco_concepto in ('Cierre de resultados', 'Cierre de proveedores', 'Ajuste de diciembre')
    and enco_consec > $ultimo" <<<"quedan 0"
