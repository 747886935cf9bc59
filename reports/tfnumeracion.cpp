#include "reports/tfnumeracion.h"

#include "toolkit/aviso_salida.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/impresora.h"

#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <cmath>

namespace {
// En unidades de la impresora.
constexpr int kMargen = 100, kIzquierda = 50, kArriba = 40;
constexpr int kCifras = 4;
} // namespace

Tfnumeracion::Tfnumeracion() : Pantalla("Tfnumeracion", "Numeración hojas") {
    const auto caja = [this](const char* nombre, int largo) {
        auto* c = new QLineEdit(this);
        c->setObjectName(QLatin1String(nombre));
        c->setMaxLength(largo);
        return c;
    };
    ECia = caja("ECia", 20);
    Elibro = caja("Elibro", 20);
    PagIni = caja("PagIni", 6);
    PagFin = caja("PagFin", 6);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton3", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { SpeedButton3Click(); }));
    barra->boton("SpeedButton4", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila("Código compañía:", ECia)
        .fila("Código del libro:", Elibro)
        .fila({{"Páginas del:", PagIni}, {"al:", PagFin}})
        .estire()
        .botones(barra);
    enter_como_tab();
    tamano(382, 150);
    centre_en_area(125, 120);
}

bool Tfnumeracion::consistente() const {
    // Las páginas se comparan como textos: del "9" al "10" se rehúsa.
    bool desde = false, hasta = false;
    PagIni->text().toInt(&desde);
    PagFin->text().toInt(&hasta);
    return !ECia->text().isEmpty() && !Elibro->text().isEmpty() && desde && hasta &&
           PagFin->text() >= PagIni->text();
}

void Tfnumeracion::SpeedButton3Click() {
    if (!consistente()) {
        muestre_mensaje("Debe indicar compañía, libro y un rango consistente.");
        return;
    }
    const int paginas = PagFin->text().toInt() - PagIni->text().toInt() + 1;
    if (paginas < 1) { // "12" y "3", en orden como textos
        muestre_mensaje("Del " + PagIni->text() + " al " + PagFin->text() +
                        " no hay páginas que numerar.");
        return;
    }
    QPrinter impresora(QPrinter::ScreenResolution);
    prepare_impresora(impresora);
    impresora.setFullPage(true);
    impresora.setDocName("Numeración hojas " + ECia->text() + '-' + Elibro->text());
    QPrintDialog dialogo(&impresora, this);
    dialogo.setObjectName("ImprimirNumeracion");
    dialogo.setWindowTitle("Numeración hojas");
    dialogo.setOptions(QAbstractPrintDialog::PrintToFile);
    if (dialogo.exec() != QDialog::Accepted)
        return;
    imprima(impresora);
    avise_impreso(impresora, paginas);
    close();
}

void Tfnumeracion::imprima(QPrinter& impresora) const {
    QPainter pintor;
    if (!pintor.begin(&impresora))
        throw ErrorDatos(QStringLiteral("No se pudo comenzar la impresión. Revise la impresora."));
    const QFontMetrics medidas(pintor.font(), &impresora);
    const int ancho = impresora.width() - kMargen, base = kArriba + medidas.ascent();
    const QString libro = Elibro->text();
    const int centro = 2 * int(std::ceil((ancho - medidas.horizontalAdvance(libro)) / 3.0));
    for (int n = PagIni->text().toInt(); n <= PagFin->text().toInt(); ++n) {
        const QString numero = QStringLiteral("%1").arg(n, kCifras, 10, QLatin1Char('0'));
        pintor.drawText(kIzquierda, base, ECia->text());
        pintor.drawText(centro, base, libro);
        pintor.drawText(ancho - medidas.horizontalAdvance(numero), base, numero);
        impresora.newPage(); // también después de la última
    }
    pintor.end();
}
