// Una jornada de contador sin ratón ni miradas: solo teclas, sin tocar ningún control por su
// nombre. Lo que se espera está hecho a mano.
#include "vouchers/digitador.h"

#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"
#include "vouchers/tfbuscomproba.h"

namespace {

/// Teclas entre llaves: "{Tab}", "{Enter}", "{Ctrl+E}"; lo demás se digita.
void teclee(const QString& guion) {
    static const QHash<QString, QKeyCombination> claves{{"Tab", Qt::Key_Tab},
                                                        {"Enter", Qt::Key_Return},
                                                        {"Esc", Qt::Key_Escape},
                                                        {"Abajo", Qt::Key_Down},
                                                        {"Arriba", Qt::Key_Up},
                                                        {"F2", Qt::Key_F2},
                                                        {"F4", Qt::Key_F4},
                                                        {"F5", Qt::Key_F5},
                                                        {"Supr", Qt::Key_Delete},
                                                        {"Inicio", Qt::Key_Home},
                                                        {"Ctrl+E", Qt::CTRL | Qt::Key_E},
                                                        {"Ctrl+I", Qt::CTRL | Qt::Key_I},
                                                        {"Ctrl+Inicio", Qt::CTRL | Qt::Key_Home},
                                                        {"Mayús+Tab", Qt::SHIFT | Qt::Key_Backtab}};
    for (qsizetype i = 0; i < guion.size(); ++i) {
        if (guion[i] != '{') {
            digite(QString(guion[i]));
            continue;
        }
        const qsizetype fin = guion.indexOf('}', i);
        const QString nombre = guion.mid(i + 1, fin - i - 1);
        QVERIFY2(claves.contains(nombre), qPrintable(nombre));
        const QKeyCombination k = claves.value(nombre);
        oprima(k.key(), k.keyboardModifiers());
        i = fin;
    }
}

/// Una línea celda por celda, con Enter entre ellas; las que faltan quedan como están y la línea
/// siguiente empieza sola. `panel`: la cuenta abrió un panel, que se cierra con Esc.
void linea(const QStringList& celdas, bool panel = false) {
    for (int c = 0; c < 12; ++c) {
        teclee(celdas.value(c) + "{Enter}");
        if (c == 0 && panel)
            teclee("{Esc}{Enter}");
    }
}

QString libro(SesionGui& s, const char* numero) {
    return s.dato(
        QString("select list(d.cuen_cod || ' ' || coalesce(d.terc_nit, '') || ' ' || "
                "cast(d.code_debito as numeric(15,2)) || ' ' || cast(d.code_credito as "
                "numeric(15,2)), '; ') from comprobante_detalle d join comprobante_encabezado e on "
                "e.enco_consec = d.enco_consec where e.enco_numero = '%1'")
            .arg(numero));
}

} // namespace

class PruebaACiegas : public QObject {
    Q_OBJECT
private slots:
    void una_jornada_solo_con_teclas();
};

void PruebaACiegas::una_jornada_solo_con_teclas() {
    const RelojDetenido hoy({2017, 5, 15});
    SesionGui s;
    Digitador d(s);
    registre_pantallas_cuentas();
    registre_pantallas_terceros();
    Interlocutor i;
    // El nombre del tipo lleva a él; los demás campos, en el orden en que se piensan.
    pantallas().abrir("Tfmovimien");
    const QString tipo = "Comprobante{Tab}";

    // Venta de contado, con el IVA calculado al vuelo y el crédito que falta por F5.
    teclee(tipo + "05{Tab}Venta de contado{Tab}FV-1{Tab}900123456{Tab}{Ctrl+E}");
    linea({"110505", "", "", "", "", "", "", "", "", "1000000*1.19"});
    linea({"413505", "", "0002", "0001", "", "", "", "", "", "", "1000000"});
    linea({"240805", "", "", "", "", "", "", "", "", "", "1000000*0.19"});
    teclee("{F2}");
    QCOMPARE(libro(s, "000001"),
             "110505  1190000.00 0.00; 413505  0.00 1000000.00; 240805  0.00 190000.00");

    // Nómina de ocho líneas: el foco quedó en el concepto del que sigue.
    teclee("Nomina de mayo{Tab}NOM5{Tab}{Ctrl+E}");
    const char* sueldos[] = {"1500000", "1250000.50", "980000", "737717", "2100000", "890000.25"};
    for (const char* sueldo : sueldos)
        linea({"510506", "52345678", "0001", "0002", "", "", "", "", "", sueldo});
    linea({"236540", "52345678", "", "", "", "", "", "-2100000"}); // toma su tarifa: 52.500
    teclee("111005{Enter}{F5}{F2}");
    QCOMPARE(
        libro(s, "000002"),
        "510506 52345678 1500000.00 0.00; 510506 52345678 1250000.50 0.00; 510506 52345678 "
        "980000.00 0.00; 510506 52345678 737717.00 0.00; 510506 52345678 2100000.00 0.00; 510506 "
        "52345678 890000.25 0.00; 236540 52345678 0.00 52500.00; 111005  0.00 7405217.75");

    // Compra: la cuenta y el proveedor por palabras de su nombre.
    teclee("Compra de papeleria{Tab}FC-9{Tab}andina{Abajo}{Tab}{Ctrl+E}");
    linea({"utiles{Abajo}", "", "0001", "0001", "", "", "", "", "", "250000"});
    linea({"240810", "", "", "", "", "", "", "", "", "47500"});
    teclee("220505{Enter}{Esc}{F5}{F2}");
    QCOMPARE(libro(s, "000003"),
             "519530  250000.00 0.00; 240810  47500.00 0.00; 220505 800456789 0.00 297500.00");
    QVERIFY2(i.conforme(), qPrintable(i.queja()));

    // La compra estaba mal: se busca y se reversa.
    teclee("{Esc}");
    auto* b = s.abra<Tfbuscomproba>("Tfbuscomproba");
    teclee(tipo + "{Tab}000003{Enter}");
    QCOMPARE(b->DBGridEh1->conjunto()->RecordCount(), 1);
    QVERIFY(b->DBGridEh1->enfocada());
    i.espere_comienzo("Se grabará un comprobante nuevo con la fecha de hoy, 2017/05/15", "Sí");
    teclee("{Ctrl+I}");
    QCOMPARE(libro(s, "000004"),
             "519530  0.00 250000.00; 240810  0.00 47500.00; 220505 800456789 297500.00 0.00");

    // Y una corrección en el que quedó abierto: el concepto y un importe con su contrapartida.
    teclee("{Inicio}Error: {Ctrl+E}{Ctrl+Inicio}");
    teclee("{Tab}{Tab}{Tab}{Tab}{Tab}{Tab}{Tab}{Tab}{Tab}{Tab}250000-50000{Abajo}{Abajo}");
    teclee("{Mayús+Tab}297500-50000{F2}");
    QCOMPARE(libro(s, "000004"),
             "519530  0.00 200000.00; 240810  0.00 47500.00; 220505 800456789 247500.00 0.00");
    QCOMPARE(s.dato("select enco_concepto from comprobante_encabezado where enco_numero = '000004'")
                 .trimmed(),
             "Error: Reverso de CG 0001 000003. Compra de papeleria");
}

QTEST_MAIN(PruebaACiegas)
#include "prueba_a_ciegas.moc"
