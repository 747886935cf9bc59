# Un comprobante digitado en los dos libros, solo con el teclado.
linea() { local celda; for celda in "$@"; do [ -n "$celda" ] && escriba "$celda"; teclas Return; done; }

teclas ctrl+b
foto comprobante_nuevo 1
escriba "C"
teclas Tab
escriba "15"
teclas Tab
escriba "Venta de contado del día"
foto encabezado
teclas Tab Tab Tab Tab Tab Tab Tab Tab
foto rejilla
