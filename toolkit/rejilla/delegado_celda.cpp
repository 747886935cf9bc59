#include "toolkit/rejilla/delegado_celda.h"

#include "toolkit/consejo.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

#include <cmath>

namespace {

constexpr int kLetrasUtiles = 6; ///< con menos, un nombre no dice nada

QColor mezcle(const QColor& base, const QColor& tinte, qreal cuanto) {
    return QColor::fromRgbF(float(base.redF() + (tinte.redF() - base.redF()) * cuanto),
                            float(base.greenF() + (tinte.greenF() - base.greenF()) * cuanto),
                            float(base.blueF() + (tinte.blueF() - base.blueF()) * cuanto));
}

/// Luminancia relativa, de 0 a 1.
double luz(const QColor& c) {
    const auto lineal = [](double x) {
        return x <= 0.03928 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineal(c.redF()) + 0.7152 * lineal(c.greenF()) + 0.0722 * lineal(c.blueF());
}

/// La tinta, acercada al negro o al blanco hasta que se lea sobre ese fondo.
QColor legible(QColor tinta, const QColor& fondo) {
    constexpr double kContraste = 4.6; // el 4,5 de un texto corriente, y lo que pierde al redondear
    constexpr int kPaso = 12;
    const double detras = luz(fondo);
    const int hacia = detras < 0.18 ? kPaso : -kPaso;
    const auto contraste = [&] {
        const double suya = luz(tinta);
        return (qMax(suya, detras) + 0.05) / (qMin(suya, detras) + 0.05);
    };
    const auto corra = [hacia](int canal) { return qBound(0, canal + hacia, 255); };
    while (contraste() < kContraste && tinta != QColor(Qt::white) && tinta != QColor(Qt::black))
        tinta = QColor(corra(tinta.red()), corra(tinta.green()), corra(tinta.blue()));
    return tinta;
}

bool asoma_sin_titulo(const Rejilla& rejilla, int columna) {
    return static_cast<const EncabezadoRejilla&>(*rejilla.horizontalHeader())
        .asoma_sin_titulo(columna);
}

/// Lo que a lo ancho se ve de una columna, con su margen.
QRect a_la_vista(const QRect& lugar, const QWidget& vista, int margen) {
    return lugar & QRect(margen, lugar.y(), vista.width() - 2 * margen, lugar.height());
}

} // namespace

DelegadoCelda::DelegadoCelda(Rejilla& rejilla) : QStyledItemDelegate(&rejilla), rejilla_(rejilla) {}

int DelegadoCelda::margen(const QFontMetrics& medidas) {
    return qMax(4, medidas.averageCharWidth() * 2 / 3);
}

QString DelegadoCelda::cifra_entera(const QString& cifra, const QFontMetrics& medidas, int ancho) {
    const QString puntos = QStringLiteral("…");
    return medidas.horizontalAdvance(cifra) <= ancho    ? cifra
           : medidas.horizontalAdvance(puntos) <= ancho ? puntos
                                                        : QString();
}

QRect DelegadoCelda::caja(const QRect& celda, const QWidget* vista) {
    const int lado = qMin(vista->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, vista),
                          celda.height() - 2);
    QRect r(0, 0, lado, lado);
    r.moveCenter(celda.center());
    return r;
}

int DelegadoCelda::sangria(const QModelIndex& indice) const {
    if (!rejilla_.sangrada(indice.column()))
        return 0;
    return rejilla_.aspecto_de(indice.row()).nivel * 2 *
           QFontMetrics(rejilla_.font()).averageCharWidth();
}

QColor DelegadoCelda::fondo(const QStyleOptionViewItem& opcion, const QModelIndex& indice) const {
    const QPalette& paleta = rejilla_.palette();
    const Rejilla::Aspecto& aspecto = rejilla_.aspecto_de(indice.row());
    QColor color = aspecto.fondo;
    const QColor papel = paleta.color(QPalette::Base);
    // Sobre papel oscuro el mismo tinte apenas se distingue.
    const qreal fuerza = papel.lightness() < 128 ? 2 : 1;
    if (color.isValid() && papel.lightness() < color.lightness() / 2)
        color = mezcle(papel, color, 0.22); // pensado para papel blanco
    else if (!color.isValid())
        color = paleta.color(indice.row() % 2 ? QPalette::AlternateBase : QPalette::Base);
    const QColor tinte = paleta.color(QPalette::Active, QPalette::Highlight);
    const bool actual = indice == rejilla_.currentIndex();
    if (rejilla_.marcada(indice.row()))
        color = mezcle(color, tinte, 0.28 * fuerza);
    if ((opcion.state & QStyle::State_Selected) && !actual)
        return mezcle(color, tinte, 0.42 * fuerza);
    if (indice.row() == rejilla_.currentIndex().row())
        color = mezcle(color, tinte, (rejilla_.enfocada() ? 0.16 : 0.09) * fuerza);
    return color;
}

void DelegadoCelda::paint(QPainter* pintor, const QStyleOptionViewItem& opcion,
                          const QModelIndex& indice) const {
    const ModeloConjunto& modelo = rejilla_.modelo();
    const Rejilla::Aspecto& aspecto = rejilla_.aspecto_de(indice.row());
    const QRect celda = opcion.rect;
    pintor->save();
    const QColor papel = fondo(opcion, indice);
    pintor->fillRect(celda, papel);

    const ColumnaRejilla& columna = rejilla_.columna(indice.column());
    if (asoma_sin_titulo(rejilla_, indice.column())) { // un pedazo de no se sabe qué
    } else if (columna.casilla) {
        QStyleOptionButton caja;
        caja.initFrom(&rejilla_);
        caja.rect = DelegadoCelda::caja(celda, &rejilla_);
        const bool si = modelo.valor(indice.row(), indice.column()).texto() == QLatin1String("S");
        caja.state =
            (caja.state & ~QStyle::State_HasFocus) | (si ? QStyle::State_On : QStyle::State_Off);
        if (modelo.editable(indice.column()))
            caja.state |= QStyle::State_Enabled;
        rejilla_.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &caja, pintor, &rejilla_);
    } else {
        const QFontMetrics medidas(aspecto.letra);
        QColor frente = aspecto.frente;
        if (!frente.isValid()) {
            frente = rejilla_.palette().color(QPalette::Text);
            if (modelo.numerica(indice.column())) {
                const Valor v = modelo.valor(indice.row(), indice.column());
                if (!v.nulo() && v.moneda().negativa())
                    frente = color_negativo();
            }
        }
        pintor->setFont(aspecto.letra);
        pintor->setPen(frente);
        const int aire = margen(medidas);
        const QRect hueco = celda.adjusted(aire + sangria(indice), 0, -aire, 0);
        QString texto = modelo.texto(indice.row(), indice.column());
        const qsizetype salto = texto.indexOf('\n');
        if (salto >= 0)
            texto = texto.left(salto) + QStringLiteral(" …");
        // Un importe recortado se leería como otro importe.
        const bool cifra = modelo.numerica(indice.column());
        int ancho = medidas.horizontalAdvance(texto);
        if (ancho > hueco.width()) {
            anchos_de(rejilla_).pida(indice.column(), sizeHint(opcion, indice).width());
            texto =
                cifra
                    ? QString(qMax(1, hueco.width() / qMax(1, medidas.horizontalAdvance('#'))), '#')
                    : medidas.elidedText(texto, Qt::ElideRight, hueco.width());
            ancho = medidas.horizontalAdvance(texto);
        }
        // Un pedazo del que asoma a medias, también; y un código sin puntos, como otro código.
        const QRect sitio = a_la_vista(hueco, *rejilla_.viewport(), aire);
        pintor->drawText(sitio, int(modelo.alineacion(indice.column())) | Qt::TextSingleLine,
                         cifra ? cifra_entera(texto, medidas, sitio.width())
                               : medidas.elidedText(texto, Qt::ElideRight, sitio.width()));
        pinte_acompanante(*pintor, sitio.adjusted(ancho + 2 * aire, 0, 0, 0), indice, papel);
    }

    if (indice == rejilla_.currentIndex()) {
        const bool foco = rejilla_.enfocada();
        const int grueso = foco ? qMax(2, escalado(2)) : 1;
        const QColor borde = foco ? rejilla_.palette().color(QPalette::Active, QPalette::Link)
                                  : rejilla_.palette().color(QPalette::Mid);
        pintor->setPen(QPen(borde, grueso, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        const int medio = grueso / 2;
        pintor->drawRect(celda.adjusted(medio, medio, -medio - grueso % 2, -medio - grueso % 2));
    }
    pintor->restore();
}

void DelegadoCelda::acompane(int columna, std::function<QString(int fila)> texto) {
    acompanantes_[columna] = std::move(texto);
}

QString DelegadoCelda::acompanante(const QModelIndex& indice) const {
    const auto a = acompanantes_.find(indice.column());
    return a == acompanantes_.end() ? QString() : a->second(indice.row());
}

void DelegadoCelda::pinte_acompanante(QPainter& pintor, const QRect& hueco,
                                      const QModelIndex& indice, const QColor& papel) const {
    const QFontMetrics medidas = pintor.fontMetrics();
    if (!acompanada(indice.column()) || hueco.width() < medidas.averageCharWidth() * kLetrasUtiles)
        return;
    pintor.setPen(legible(rejilla_.palette().color(QPalette::PlaceholderText), papel));
    pintor.drawText(hueco, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                    medidas.elidedText(acompanante(indice), Qt::ElideRight, hueco.width()));
}

QSize DelegadoCelda::sizeHint(const QStyleOptionViewItem&, const QModelIndex& indice) const {
    const Rejilla::Aspecto& aspecto = rejilla_.aspecto_de(indice.row());
    const QFontMetrics medidas(aspecto.letra);
    const int ancho =
        medidas.horizontalAdvance(rejilla_.modelo().texto(indice.row(), indice.column()));
    return {ancho + 2 * margen(medidas) + sangria(indice) + 2, medidas.height()};
}

bool DelegadoCelda::helpEvent(QHelpEvent* evento, QAbstractItemView* vista,
                              const QStyleOptionViewItem& opcion, const QModelIndex& indice) {
    if (evento->type() != QEvent::ToolTip || !indice.isValid())
        return QStyledItemDelegate::helpEvent(evento, vista, opcion, indice);
    QString texto = rejilla_.modelo().texto(indice.row(), indice.column());
    const QString nombre = acompanante(indice);
    if (!nombre.isEmpty())
        texto += "  " + nombre;
    // De la que asoma a medias, en lo que se ve de ella.
    const int visible = (opcion.rect & rejilla_.viewport()->rect()).width();
    const bool cabe = nombre.isEmpty() && sizeHint(opcion, indice).width() <= visible;
    muestre_consejo(evento, cabe && !texto.contains('\n') ? QString() : texto, vista->window());
    return true;
}
