# Análisis del libro y los informes que la compañía define: balance anual con su gráfico,
# comparativo de centros, formatos especiales y consolidado con la filial.

teclas alt+2
foto balance_anual
teclas Down Down Down F12
foto grafico_de_movimientos 1
teclas Down Down
foto grafico_de_saldos 0.8
teclas Escape Escape

teclas alt+3
foto comparativo_de_centros
# La columna de un subtotal se pliega, y a la derecha los nombres de las filas siguen a la vista.
teclas Right Right Right Right shift+space
foto cubo_centro_plegado 0.6
teclas shift+space End
foto cubo_a_la_derecha 0.6
teclas Home
# El subcentro pasa de las columnas a las filas, con teclas.
teclas shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab Down c Delete
foto cubo_sin_subcentros 0.6
teclas Escape

# Formatos especiales: la lista, el editor con la página a la vista y el papel.
teclas alt+i
opcion f
foto formatos_especiales 0.8
teclas End F4
foto editor_de_informe 1.5
teclas Escape
for informe in balance_propio resultados_con_porcentajes tablero_de_gerencia; do
    teclas Home
    case $informe in
    resultados*) teclas Down ;;
    tablero*) teclas Down Down ;;
    esac
    teclas F2
    espere 0.6
    teclas F2
    a_pdf "$informe" 1
done
teclas Escape

# Consolidado con la 002, si la demostración la trae.
if [ -f "$trabajo/datos/002/quorvex.fdb" ]; then
    opcion c c
    teclas space
    escriba "002"
    teclas F2
    a_pdf balance_general_consolidado 1
    teclas Tab space
    escriba "002"
    teclas F2
    a_pdf resultados_consolidado 1
    teclas Tab space
    escriba "002"
    teclas Tab Tab
    escriba "Dic" # con todo el año: la segunda tiene cuentas que la primera no
    foto rango_consolidado
    teclas F2
    a_pdf balance_de_prueba_consolidado 1
    foto lo_que_no_se_consolido
    teclas Escape
fi
teclas Escape
