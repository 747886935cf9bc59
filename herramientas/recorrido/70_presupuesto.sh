# Presupuesto: el mes, la digitación, la comparación con su gráfica y el informe.
teclas alt+r
foto presupuesto 0.8
teclas F2
foto nuevo_presupuesto 0.8
teclas Escape
teclas F8
teclas Down Down Down
foto presupuesto_contra_movimiento 1
teclas F2
a_pdf presupuesto
teclas Escape Escape

# Digitación rápida: se define una planilla, se ejecuta y sus comprobantes quedan grabados.
teclas alt+p
teclas Tab Return
teclas F5
escriba "Consignaciones del día"
teclas Tab
escriba "Comprobante g"
teclas Tab
escriba "Consignación"
teclas Tab space Tab Tab space Tab Tab space Tab Tab Tab Insert
linea 11100501 "Banco" "" "" ""
linea 110505 "Caja" ""
teclas space Return space
foto nueva_planilla 0.8
teclas F2
foto planillas 1
teclas F8
teclas Insert
linea 3 901 150000 ""
linea 4 902 275000 ""
foto planilla_digitada 1
teclas F2
espere 1.5
foto planilla_grabada 0.8
teclas Escape Escape
quede_comprobante CG "Consignación 901" 20170203 <<FIN
11100501 - - - 150000.00 0.00
110505 - - - 0.00 150000.00
NIIF nada
FIN
quede_comprobante CG "Consignación 902" 20170204 <<FIN
11100501 - - - 275000.00 0.00
110505 - - - 0.00 275000.00
NIIF nada
FIN
