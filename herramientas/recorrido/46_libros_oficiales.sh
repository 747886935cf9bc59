# Libros oficiales, por el último renglón del menú Informes.

oficial() {
    informe Up Right "$@"
}

oficial Return
foto rango_mayor
teclas F2
a_pdf mayor_y_balances
oficial Down Return
teclas F2
a_pdf inventario_y_balances
oficial Down Down Return
foto rango_diario
teclas F2
a_pdf libro_diario
oficial Down Down Down Return
linea 001 MB 0001 0003
foto numeracion_de_hojas
teclas F2
espere 1.5
teclas Tab ctrl+a
escriba "$fotos/numeracion_de_hojas.pdf"
teclas Return
espere_archivo "$fotos/numeracion_de_hojas.pdf"
pdf_dice numeracion_de_hojas "001 MB 0001 001 MB 0002 001 MB 0003"
foto numeracion_impresa
