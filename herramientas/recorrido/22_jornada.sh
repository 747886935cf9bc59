# Una jornada de contador: venta, nómina, compra, reverso, correcciones y un comprobante borrado.

# nuevo TIPO DÍA CONCEPTO REFERENCIA TERCERO: el encabezado, en los dos libros, hasta las líneas.
# Una palabra del tercero basta.
nuevo() {
    teclas ctrl+b
    escriba "$1"
    teclas Tab
    escriba "$2"
    teclas Tab
    escriba "$3"
    teclas Tab
    escriba "$4"
    teclas Tab
    if [ -n "$5" ]; then
        escriba "$5"
        teclas Down
    fi
    teclas Tab Tab Tab Tab Tab Tab space Tab
}
# importe CUENTA TERCERO PROYECTO CENTRO DÉBITO CRÉDITO: una línea entera.
importe() { linea "$1" "$2" "$3" "$4" "" "" "" "" "" "$5" "$6" ""; }
# grabe: y no lo imprime.
grabe() {
    teclas F2 Escape
    foto jornada_grabado
    teclas Escape
}
# busque TIPO CONCEPTO: lo deja señalado en la lista de los hallados.
busque() {
    teclas shift+F1
    escriba "$1"
    teclas Tab Tab Tab Tab Tab
    escriba "$2"
    teclas Return
}

# Venta de contado: el impuesto se calcula al digitarlo.
nuevo "Rec" 5 "Venta del cinco" FV-5 ""
importe 110505 "" "" "" "1000000*1.19" ""
importe 413548 "" 0004 0001 "" 1000000
importe 240805 "" "" "" "" "1000000*0.19"
grabe
quede_comprobante RC "Venta del cinco" 20170105 <<FIN
110505 - - - 1190000.00 0.00
413548 - 0004 0001 0.00 1000000.00
240805 - - - 0.00 190000.00
FIN

# Nómina: seis sueldos en sus centros, lo que se queda debiendo y el banco, por lo que falta.
nuevo "Nóm" 28 "Sueldos de prueba" NOM ""
importe 510506 1021564343 0001 0001 4800000 ""
importe 510506 1021584444 0001 0002 2600000 ""
importe 510506 1021604545 0001 0002 1500000.50 ""
importe 520506 1021644747 0002 0001 1200000 ""
importe 520506 1021664848 0002 0002 1200000 ""
importe 520506 1021725151 0003 0001 900000.25 ""
importe 250505 1021725151 "" "" "" 900000.25
escriba 11100501
teclas Return F5
foto nomina
grabe
quede_comprobante NO "Sueldos de prueba" 20170128 <<FIN
510506 1021564343 0001 0001 4800000.00 0.00
510506 1021584444 0001 0002 2600000.00 0.00
510506 1021604545 0001 0002 1500000.50 0.00
520506 1021644747 0002 0001 1200000.00 0.00
520506 1021664848 0002 0002 1200000.00 0.00
520506 1021725151 0003 0001 900000.25 0.00
250505 1021725151 - - 0.00 900000.25
11100501 - - - 0.00 11300000.50
FIN

# Compra: el proveedor por una palabra de su nombre; la cuenta que lleva documentos abre su panel.
nuevo "Factura de c" 12 "Compra de pintura" FC-9 pinturas
importe 519530 "" 0001 0001 250000 ""
importe 240810 "" "" "" "250000*19%" ""
escriba 220505
teclas Return
foto compra_panel
teclas Escape F5
foto compra
grabe
quede_comprobante FC "Compra de pintura" 20170112 <<FIN
519530 838515576 0001 0001 250000.00 0.00
240810 - - - 47500.00 0.00
220505 838515576 - - 0.00 297500.00
FIN

# Una nota mal digitada, que se corrige: el día antes de grabarla; después su concepto, un importe,
# una línea que sobra y una que falta, que queda de última.
nuevo "Nota b" 20 "Comision mal digitada" NB-1 ""
importe 530515 "" "" "" 10000 ""
importe 530505 "" "" "" 7000 ""
importe 11100501 "" "" "" "" 17000
teclas ctrl+e
foto vuelve_al_encabezado
grabe
busque "Nota b" "Comision mal"
teclas F4
foto por_corregir
teclas ctrl+a
escriba "Comision corregida"
teclas ctrl+e ctrl+Home Down ctrl+Delete s
foto linea_borrada
teclas ctrl+Home Tab Tab Tab Tab Tab Tab Tab Tab Tab
escriba "10000*1.5"
teclas Down
foto importe_corregido
teclas ctrl+Home Insert
importe 530505 "" "" "" 2000 ""
foto corregido
teclas F2 Escape Escape
teclas Escape Escape
quede_comprobante NB "Comision corregida" 20170120 <<FIN
530515 - - - 15000.00 0.00
11100501 - - - 0.00 17000.00
530505 - - - 2000.00 0.00
FIN

# Uno que sobra se borra desde la lista; la misma tecla ofrece antes imprimirlo.
nuevo "Nota b" 20 "Nota que sobra" NB-2 ""
importe 530505 "" "" "" 5000 ""
importe 11100501 "" "" "" "" 5000
grabe
busque "Nota b" "Nota que sobra"
foto por_borrar
hay_comprobante "Nota que sobra"
teclas F3 Escape
foto pregunta_borrar
teclas s Escape
quede "la nota que se borró" "select 'quedan ' || count(*) from comprobante_encabezado
    where enco_concepto = 'Nota que sobra'" <<<"quedan 0"

# La compra no era: se reversa.
busque "Factura de c" "Compra de pintura"
teclas ctrl+i
foto pregunta_reverso
antes=$(date +%Y%m%d)
teclas s
foto reverso
teclas Escape Escape Escape
quede_comprobante FC "Reverso de FC 0001 ______. Compra de pintura" "$antes" "$(date +%Y%m%d)" <<FIN
519530 838515576 0001 0001 0.00 250000.00
240810 - - - 0.00 47500.00
220505 838515576 - - 297500.00 0.00
FIN
