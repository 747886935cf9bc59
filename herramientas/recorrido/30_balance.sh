# Del balance de prueba al auxiliar y de vuelta al comprobante.
teclas shift+F9
foto balance_de_prueba 1.5
teclas Down Down Down F8
foto auxiliar 1
teclas End F4
foto editar_comprobante 1
teclas Escape Escape
teclas alt+Right
foto balance_de_febrero 1
teclas KP_Subtract
foto menos_detalle 1
teclas ctrl+Next
foto balance_niif
teclas Escape
