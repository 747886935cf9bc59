# Estados financieros, por el menú Informes > Estados Financieros.

estado() {
    informe Down Down Right "$@"
}

estado Right Return
foto rango_balance_general
teclas F2
a_pdf balance_general

estado Right Down Return
teclas F2
a_pdf estado_de_resultados

estado Right Down Down Return
teclas F2
a_pdf cambios_en_el_patrimonio
estado Right Down Down Down Return
teclas F2
a_pdf cambios_de_la_situacion
estado Right Down Down Down Down Return
foto rango_flujo_de_efectivo
teclas F2
a_pdf flujo_de_efectivo

estado Down Right Return
teclas F2
a_pdf balance_detallado
estado Down Right Down Return
teclas F2
a_pdf balance_con_terceros
estado Down Right Down Down Return
foto rango_centros
teclas F2
a_pdf balance_con_centros
estado Down Right Down Down Down Return
teclas F2
a_pdf balance_de_prueba
estado Down Right Down Down Down Down Return
teclas F2
a_pdf balance_de_prueba_terceros
estado Down Right Down Down Down Down Down Return
teclas F2
a_pdf resultados_detallado
estado Down Right Down Down Down Down Down Down Return
teclas F2
a_pdf resultados_por_tercero
estado Down Right Down Down Down Down Down Down Down Return
teclas F2
a_pdf resultados_por_centro

estado Down Down Right Return
foto rango_acumulado
teclas F2
a_pdf balance_acumulado
estado Down Down Right Down Return
teclas F2
a_pdf comparativo_anual
# Enero contra febrero: cada mes, por su primera letra.
estado Down Down Right Down Down Return
escriba E
teclas Tab Tab
escriba F
foto rango_compara_periodos
teclas F2
a_pdf compara_periodos
# Los proyectos y los centros se escogen juntos; aquí se digitan.
estado Down Down Right Down Down Down Return
teclas Tab Tab
linea 0001 0001 0001 0002
foto rango_compara_centros
teclas F2
a_pdf compara_centros

# El resultado anual solo está en los menús de botones.
teclas alt+i
opcion e
opcion c
opcion r
foto rango_resultado_anual
teclas F2
a_pdf resultado_anual
teclas Escape Escape Escape

# Una nota, por los menús de botones: del menú Informes no se llega a ellas. Sale después del
# balance general de su período.
teclas alt+i
espere 0.6
teclas Down Down Return
espere 0.6
teclas Return
espere 0.6
teclas Down Down Down Down Down Return
espere 0.6
teclas F5
espere 0.6
escriba "Efectivo y equivalentes"
teclas Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab
escriba "Los saldos de caja y bancos se conciliaron al cierre del mes."
foto nota_nueva
teclas F2
espere 0.6
foto lista_de_notas
teclas Escape Escape Escape Escape
estado Right Return
teclas Tab Tab Tab space
foto balance_con_notas
teclas F2
a_pdf balance_con_notas 3
