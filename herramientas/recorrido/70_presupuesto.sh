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

# Digitación rápida: se define una planilla y se ejecuta.
teclas alt+p
teclas Tab Return
teclas F5
escriba "Ventas del día"
teclas Tab
escriba "Comprobante"
foto nueva_planilla 0.8
teclas Escape
teclas alt+s # Sí
espere 0.3
teclas Escape Escape
