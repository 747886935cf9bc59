#include "toolkit/informes/salidas.h"

#include "toolkit/aviso_salida.h"
#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/informes/letra.h"

#include <QDir>
#include <QFileDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <algorithm>

namespace informes {

namespace {

constexpr double kMilimetrosPorPulgada = 25.4;

QPageLayout hoja_de(const Papel& papel) {
    const QSizeF vertical =
        papel.horizontal ? QSizeF(papel.alto, papel.ancho) : QSizeF(papel.ancho, papel.alto);
    const QPageSize tamano =
        papel.nombre == QLatin1String("carta") ? QPageSize(QPageSize::Letter)
        : papel.nombre == QLatin1String("a4")
            ? QPageSize(QPageSize::A4)
            : QPageSize(vertical, QPageSize::Millimeter, papel.nombre, QPageSize::ExactMatch);
    // Una hoja más ancha que alta por su tamaño (media carta) ya es así sin girarla.
    return QPageLayout(tamano, papel.horizontal ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(0, 0, 0, 0));
}

void grabe_pdf(const Hojas& hojas, const QString& ruta, Rango rango, const QString& titulo) {
    ArchivoSalida salida(ruta);
    {
        QPdfWriter pdf(salida.dispositivo());
        pdf.setTitle(titulo);
        pdf.setCreator(QStringLiteral("Contabilidad"));
        pdf.setResolution(1200);
        pdf.setPageLayout(hoja_de(hojas.papel(rango.desde)));
        QPainter pintor;
        if (!pintor.begin(&pdf))
            throw ErrorInforme(QStringLiteral("No se pudo preparar el PDF \"%1\".")
                                   .arg(QDir::toNativeSeparators(ruta)));
        for (int p = rango.desde; p <= rango.hasta; ++p) {
            if (p > rango.desde) {
                pdf.setPageLayout(hoja_de(hojas.papel(p)));
                pdf.newPage();
            }
            pinte_hoja(pintor, hojas, p, pdf.resolution() / kMilimetrosPorPulgada);
            if (salida.dispositivo()->error() != QFileDevice::NoError)
                break; // el resto de las hojas tampoco cabría
        }
        pintor.end();
    }
    // Dentro del escritor de PDF un disco lleno pasa callado: aquí se sabe.
    salida.confirme();
}

} // namespace

QString extension_de(FormatoArchivo formato) {
    static const char* const extensiones[] = {"txt", "rtf", "htm", "pdf"};
    return QLatin1String(extensiones[int(formato)]);
}

void grabe(const Hojas& hojas, FormatoArchivo formato, const QString& ruta, Rango rango,
           const QString& titulo) {
    if (formato == FormatoArchivo::Pdf)
        return grabe_pdf(hojas, ruta, rango, titulo);
    ArchivoSalida salida(ruta);
    if (formato == FormatoArchivo::Html)
        escriba_html(hojas, salida, rango, titulo);
    else if (formato == FormatoArchivo::Rtf)
        escriba_rtf(hojas, salida, rango);
    else
        escriba_texto(hojas, salida, rango);
    salida.confirme();
}

void grabe_y_diga(const Hojas& hojas, FormatoArchivo formato, const QString& ruta, Rango rango,
                  const QString& titulo) {
    grabe(hojas, formato, ruta, rango, titulo);
    avise_grabado(ruta);
}

void imprima(const Hojas& hojas, QPrinter& impresora, Rango rango) {
    impresora.setFullPage(true);
    impresora.setPageLayout(hoja_de(hojas.papel(rango.desde)));
    QPainter pintor;
    const auto exija = [&](bool bien) {
        if (!bien || impresora.printerState() == QPrinter::Error)
            throw ErrorInforme(
                QStringLiteral("La impresora \"%1\" no recibió el trabajo. Revise que esté "
                               "encendida y conectada y vuelva a imprimir.")
                    .arg(impresora.outputFileName().isEmpty()
                             ? impresora.printerName()
                             : QDir::toNativeSeparators(impresora.outputFileName())));
    };
    exija(pintor.begin(&impresora));
    for (int p = rango.desde; p <= rango.hasta; ++p) {
        if (p > rango.desde) {
            impresora.setPageLayout(hoja_de(hojas.papel(p)));
            exija(impresora.newPage());
        }
        pinte_hoja(pintor, hojas, p, impresora.resolution() / kMilimetrosPorPulgada);
    }
    exija(pintor.end());
}

// ---------------------------------------------------------------- renglones

QVector<Renglon> renglones_de(const Hojas& hojas, int pagina) {
    struct Puesto {
        double y;
        const Trazo* trazo;
    };
    const QVector<Trazo> trazos = hojas.lea(pagina);
    QVector<Puesto> puestos;
    for (const Trazo& t : trazos)
        if (t.clase == Trazo::Texto)
            puestos << Puesto{t.lugar.center().y(), &t};
        else if (t.clase == Trazo::Linea && t.lugar.height() == 0 && t.lugar.width() > 20)
            puestos << Puesto{t.lugar.y(), &t};
    std::stable_sort(puestos.begin(), puestos.end(),
                     [](const Puesto& a, const Puesto& b) { return a.y < b.y; });
    constexpr double kMismaAltura = 1.4; // mm entre los centros de dos textos del mismo renglón
    QVector<Renglon> renglones;
    for (const Puesto& p : puestos) {
        if (p.trazo->clase == Trazo::Linea) {
            if (renglones.isEmpty() || !renglones.last().raya)
                renglones << Renglon{p.y, true, {}};
            continue;
        }
        if (renglones.isEmpty() || renglones.last().raya || p.y - renglones.last().y > kMismaAltura)
            renglones << Renglon{p.y, false, {}};
        const Trazo& t = *p.trazo;
        const double ancho = hojas.letra(t.recurso).ancho(t.texto);
        renglones.last().trozos << Trozo{t.lugar.x(), t.lugar.width(),      t.lado,
                                         t.recurso,   achique_de(t, ancho), t.texto};
    }
    for (Renglon& r : renglones)
        std::stable_sort(r.trozos.begin(), r.trozos.end(), [](const Trozo& a, const Trozo& b) {
            const auto ancla = [](const Trozo& t) {
                return t.lado == Lado::Derecha ? t.x + t.ancho - 1 : t.x;
            };
            return ancla(a) < ancla(b);
        });
    return renglones;
}

} // namespace informes
