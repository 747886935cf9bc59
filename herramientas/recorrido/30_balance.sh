# Del balance de prueba al auxiliar y de vuelta al comprobante.
teclas shift+F9
foto balance_de_prueba 1.5
