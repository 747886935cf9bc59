# Informes hasta el papel: cada uno se abre por el menú, se llena con el teclado y queda grabado
# como PDF, vuelto imagen junto a las fotos.

# informe TECLA...: lo abre desde el menú Informes, que empieza en Catálogos.
informe() {
    teclas alt+f "$@"
    espere 0.6
}

teclas alt+f Down Right
foto menu_informes
teclas Return
escriba "11"
teclas Tab
escriba "1399"
foto rango_auxiliar
teclas F2
a_pdf auxiliar_por_cuenta

informe Down Right Down Return
escriba "13"
teclas F2
a_pdf auxiliar_por_tercero

informe Down Right Down Down Return
escriba "51"
teclas F2
a_pdf auxiliar_por_centro

informe Down Right Down Down Down Return
escriba "FV"
teclas Tab
escriba "RC"
foto rango_consecutivos
teclas F2
a_pdf consecutivos 1
# Los mismos, si están descuadrados en el libro NIIF: ninguno.
informe Down Right Down Down Down Return
escriba "FV"
teclas Tab
escriba "RC"
veces 6 Tab
teclas space Tab space
foto solo_descuadrados
teclas F2
hay_aviso || falle "Sólo descuadrados no dice que no hay ninguno."
teclas Return

informe Down Right Down Down Down Down Return
teclas F2
a_pdf cronologico 1

informe Down Right Down Down Down Down Down Return
teclas F2
a_pdf diario_detallado 1

informe Right Return
foto rango_cuentas
teclas F2
a_pdf catalogo_de_cuentas

# Los que no piden rango.
informe Right Down Down Return
a_pdf catalogo_de_centros 1
informe Right Down Down Down Return
a_pdf tipos_de_comprobante 1
informe Right Down Down Down Down Return
a_pdf catalogo_de_plantillas 1

# La libreta de contactos, en la vista preliminar y como PDF.
informe Right Down Return
teclas shift+Tab Right Tab Tab Tab space
foto rango_terceros
teclas F2
espere_ventana "Opciones de impresión"
teclas alt+v Return
espere_ventana "Vista preliminar"
foto libreta_de_contactos 1
teclas ctrl+p
a_pdf libreta_de_contactos 1
teclas Escape
