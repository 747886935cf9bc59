# Informes hasta el papel: el auxiliar por cuenta y el catálogo de cuentas, grabados como PDF desde
# "Opciones de impresión" y vueltos imagen junto a las fotos.

# Graba en recorrido/ el informe que ya pidió sus opciones y deja la imagen de sus primeras hojas.
a_pdf() {
    local nombre=$1 hojas=${2:-2}
    espere_ventana "Opciones de impresión"
    teclas alt+a alt+r
    escriba "PDF"
    foto "opciones_$nombre"
    teclas Return
    espere_ventana "Guardar"
    teclas ctrl+a
    escriba "$fotos/$nombre.pdf"
    teclas Return
    for _ in $(seq 100); do [ -s "$fotos/$nombre.pdf" ] && break; sleep 0.2; done
    if [ ! -s "$fotos/$nombre.pdf" ]; then
        foto "sin_$nombre"
        echo "No se grabó $nombre.pdf"
        exit 1
    fi
    pdftoppm -r 80 -png -l "$hojas" "$fotos/$nombre.pdf" "$fotos/${nombre}_hoja"
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

teclas alt+f Right Return
foto rango_cuentas
teclas F2
a_pdf catalogo_de_cuentas

# La libreta de contactos, en la vista preliminar.
teclas alt+f Right Down Return
teclas shift+Tab Right Tab Tab Tab space
foto rango_terceros
teclas F2
espere_ventana "Opciones de impresión"
teclas alt+v Return
espere_ventana "Vista preliminar"
foto libreta_de_contactos 1
teclas Escape
