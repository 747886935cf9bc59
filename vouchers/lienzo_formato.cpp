#include "vouchers/lienzo_formato.h"

#include "toolkit/aire.h"
#include "toolkit/estilo.h"
#include "vouchers/datos_formato.h"
#include "vouchers/pch.h"

#include <QPainter>

namespace {

const QColor kResaltado(0xc0, 0x18, 0x18); // el papel es blanco en cualquier tema
constexpr int kUnidades = 10000;           // una Moneda de una pulgada
constexpr int kCartaAncho = 85000, kCartaAlto = 110000;
constexpr int kPuntosPorPulgada = 72;

/// Valor de una columna en la fila dada.
struct Elemento {
    const ConjuntoDatos& c;
    int fila;
    Valor v(const char* campo) const {
        return c.valor_en(fila, c.FieldByName(QLatin1String(campo)));
    }
    qint64 n(const char* campo) const { return v(campo).entero(); }
    QString t(const char* campo) const { return v(campo).texto(); }
};

const DatoFormato* dato_de(const QString& nombre) {
    for (const DatoFormato& d : kDatosFormato)
        if (nombre == QLatin1String(d.nombre))
            return &d;
    return nullptr;
}

} // namespace

/// Repinta con cualquier cambio de uno de los conjuntos.
class LienzoFormato::Enlace : public EnlaceDatos {
public:
    Enlace(LienzoFormato& lienzo, ConjuntoDatos& conjunto) : lienzo_(lienzo) { enlace(&conjunto); }
    ~Enlace() override { enlace(nullptr); }
    void estado_cambiado() override { lienzo_.update(); }
    void fila_actual_cambiada() override { lienzo_.update(); }
    void campo_cambiado(Campo*) override { lienzo_.update(); }
    void filas_reiniciadas() override { lienzo_.update(); }
    void filas_insertadas(int, int) override { lienzo_.update(); }
    void filas_borradas(int, int) override { lienzo_.update(); }
    void fila_modificada(int) override { lienzo_.update(); }

private:
    LienzoFormato& lienzo_;
};

LienzoFormato::LienzoFormato(ConjuntoDatos& formato, ConjuntoDatos& datos, ConjuntoDatos& lineas)
    : formato_(formato), datos_(datos), lineas_(lineas) {
    setMinimumSize(escalado(area_estrecha() ? 110 : 180), escalado(160));
    for (ConjuntoDatos* c : {&formato_, &datos_, &lineas_})
        enlaces_.push_back(std::make_unique<Enlace>(*this, *c));
}

LienzoFormato::~LienzoFormato() = default;

QSize LienzoFormato::sizeHint() const {
    return {escalado(380), escalado(420)};
}

void LienzoFormato::resalte(const ConjuntoDatos* conjunto) {
    resaltado_ = conjunto;
    update();
}

QRect LienzoFormato::hoja() const {
    // Sin medidas de papel, la carta.
    qint64 ancho = formato_.FieldByName("FORM_PAPELAN").moneda().unidades();
    qint64 alto = formato_.FieldByName("FORM_PAPELAL").moneda().unidades();
    if (ancho <= 0 || alto <= 0) {
        ancho = kCartaAncho;
        alto = kCartaAlto;
    }
    const QSize medida =
        QSize(int(ancho / 100), int(alto / 100)).scaled(size() - QSize(8, 8), Qt::KeepAspectRatio);
    return {QPoint((width() - medida.width()) / 2, 4), medida}; // arriba: el alto se desplaza
}

QPoint LienzoFormato::punto(qint64 x, qint64 y) const {
    const QRect h = hoja();
    return {h.left() + int(x * h.width() / kAncho), h.top() + int(y * h.height() / kAlto)};
}

QFont LienzoFormato::letra(const QString& propia, qint64 tamano) const {
    QFont f = font();
    const QString familia = propia.isEmpty() ? formato_.FieldByName("FORM_FONT").texto() : propia;
    if (!familia.isEmpty())
        f.setFamily(familia);
    qint64 puntos = tamano > 0 ? tamano : formato_.FieldByName("FORM_FSIZE").entero();
    if (puntos <= 0)
        puntos = 10;
    qint64 alto = formato_.FieldByName("FORM_PAPELAL").moneda().unidades();
    if (alto <= 0)
        alto = kCartaAlto;
    f.setPixelSize(qMax(4, int(puntos * hoja().height() * kUnidades / (kPuntosPorPulgada * alto))));
    return f;
}

QColor LienzoFormato::color(const ConjuntoDatos& c, int fila, const QColor& normal) const {
    return &c == resaltado_ && fila == c.RecNo() ? kResaltado : normal;
}

void LienzoFormato::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Mid));
    if (!formato_.Active() || formato_.IsEmpty())
        return;
    p.fillRect(hoja(), Qt::white);
    p.setClipRect(hoja());
    pinte_lineas(p, false);
    pinte_lineas(p, true);
    pinte_datos(p);
}

void LienzoFormato::pinte_lineas(QPainter& p, bool textos) {
    for (int i = 0; i < lineas_.RecordCount(); ++i) {
        const Elemento e{lineas_, i};
        const QString tipo = e.t("FOLI_TIPO");
        if ((tipo == "T") != textos)
            continue;
        const QPoint inicio = punto(e.n("FOLI_POSX"), e.n("FOLI_POSY"));
        const QPoint fin =
            punto(e.n("FOLI_POSX") + e.n("FOLI_X"), e.n("FOLI_POSY") + e.n("FOLI_Y"));
        p.setPen(color(lineas_, i, Qt::black));
        if (tipo == "T") {
            p.setFont(letra(e.t("FOLI_FONT"), e.n("FOLI_FSIZE")));
            p.drawText(inicio + QPoint(0, p.fontMetrics().ascent()), e.t("FOLI_CADENA"));
        } else if (tipo == "L") {
            p.drawLine(inicio, fin);
        } else {
            const QImage imagen =
                tipo == "G" ? QImage::fromData(e.v("FOLI_IMAGEN").binario()) : QImage();
            if (imagen.isNull())
                p.drawRect(QRect(inicio, fin));
            else
                p.drawImage(QRect(inicio, fin), imagen);
        }
    }
}

void LienzoFormato::pinte_datos(QPainter& p) {
    const qint64 renglones = formato_.FieldByName("FORM_NROITEMS").entero();
    const qint64 entrelinea = formato_.FieldByName("FORM_ENTRELINEA").entero();
    bool banda = false;
    for (int i = 0; i < datos_.RecordCount(); ++i) {
        const Elemento e{datos_, i};
        if (e.t("DAFO_IMPRIME") != "S")
            continue;
        const DatoFormato* dato = dato_de(e.t("DAFO_DATO"));
        const qint64 x = e.n("DAFO_POSX"), y = e.n("DAFO_POSY");
        const bool repite = e.t("DAFO_REPITE") == "S";
        if (repite && !banda && renglones > 1) {
            // Una vez: los renglones ocupan lo mismo para todos los datos.
            p.fillRect(QRect(punto(0, y), punto(kAncho, y + renglones * entrelinea)),
                       QColor(0, 0, 0, 14));
            banda = true;
        }
        p.setPen(color(datos_, i, colores_empresa().principal));
        p.setFont(letra(e.t("DAFO_FONT"), e.n("DAFO_FSIZE")));
        const QPoint inicio = punto(x, y);
        if (dato && dato->clase == ClaseDatoFormato::Imagen) {
            p.drawRect(QRect(inicio, punto(x + e.n("DAFO_LONG"), y + e.n("DAFO_LONG"))));
            continue;
        }
        const bool derecha = dato && (dato->clase == ClaseDatoFormato::Numero ||
                                      dato->clase == ClaseDatoFormato::Pesos);
        const QString nombre = e.t("DAFO_DATO");
        const int corre = derecha ? p.fontMetrics().horizontalAdvance(nombre) : 0;
        p.drawText(inicio + QPoint(-corre, p.fontMetrics().ascent()), nombre);
    }
}
