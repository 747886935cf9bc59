#include "toolkit/exportacion/impresion_tabla.h"

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/tabla_exportable.h"

#include <QFontMetricsF>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <optional>

namespace {

constexpr double kCuerpoMayor = 9;
constexpr double kCuerpoComodo = 7;
constexpr double kCuerpoMenor = 3;
constexpr const char* kHoy = "%[Today]";
const QColor kFondoTitulos(0xe4, 0xea, 0xf1);
const QColor kFondoAlterno(0xf5, 0xf7, 0xfa);
const QColor kRaya(0x66, 0x70, 0x7c);
const QColor kTenue(0x55, 0x5c, 0x66);

/// Cómo se reparte el ancho de la hoja: el cuerpo de la letra y el ancho de cada columna.
struct Reparto {
    double cuerpo = kCuerpoMayor;
    std::vector<double> anchos;
};

double margen_celda(const QFontMetricsF& letra) {
    return letra.horizontalAdvance(QLatin1Char('0')) * 0.7;
}

class Impresion {
public:
    Impresion(TablaExportable& tabla, QPagedPaintDevice& dispositivo,
              const OpcionesImpresion& opciones);
    int imprima();

private:
    enum class Fila { Titulos, Datos, Alterna, Sumas };

    QFont fuente(double cuerpo, bool negrita = false) const;
    double puntos(double valor) const { return valor * dispositivo_.logicalDpiY() / 72.0; }
    double alto_renglon(const QFont& letra) const {
        return QFontMetricsF(letra, &dispositivo_).height();
    }
    QString con_marcas(QString texto) const;
    bool reparta(double cuerpo, int caracteres_texto);
    void decida_reparto();
    void pase_pagina();
    void escriba_encabezado();
    void escriba_pie_pagina();
    template <class Texto> void escriba_fila(Fila clase, Texto&& texto_de);
    bool se_imprime(int pagina) const;

    TablaExportable& tabla_;
    QPagedPaintDevice& dispositivo_;
    const OpcionesImpresion& opciones_;
    std::vector<ColumnaExportable> columnas_;
    MedidaTabla medida_;
    Reparto reparto_;
    QPageRanges paginas_pedidas_;
    QPainter pintor_;
    QFont letra_titulo_;
    QFont letra_pagina_;
    QFont letra_;
    QFont letra_negrita_;
    std::optional<QFontMetricsF> medidas_;
    std::optional<QFontMetricsF> medidas_negrita_;
    double ancho_ = 0;
    double alto_ = 0;
    double alto_fila_ = 0;
    double alto_encabezado_ = 0;
    double y_ = 0;
    int pagina_ = 0;
    int total_paginas_ = 1;
    bool pintada_alguna_ = false;
};

Impresion::Impresion(TablaExportable& tabla, QPagedPaintDevice& dispositivo,
                     const OpcionesImpresion& opciones)
    : tabla_(tabla), dispositivo_(dispositivo), opciones_(opciones), columnas_(columnas_de(tabla)),
      medida_(mida_tabla(tabla)), letra_titulo_(fuente(11, true)), letra_pagina_(fuente(8)) {
    const auto* impresora = dynamic_cast<QPrinter*>(&dispositivo);
    if (impresora && impresora->printRange() == QPrinter::PageRange)
        paginas_pedidas_ = dispositivo.pageRanges();
}

QFont Impresion::fuente(double cuerpo, bool negrita) const {
    QFont letra(opciones_.fuente);
    letra.setPointSizeF(cuerpo);
    letra.setBold(negrita);
    return letra;
}

QString Impresion::con_marcas(QString texto) const {
    return texto.replace(QLatin1String(kHoy), opciones_.hoy.toString(QStringLiteral("yyyy/MM/dd")));
}

// Anchos con ese cuerpo si los textos ceden hasta tantos caracteres; falso si la hoja no alcanza.
bool Impresion::reparta(double cuerpo, int caracteres_texto) {
    const QFontMetricsF letra(fuente(cuerpo), &dispositivo_);
    const QFontMetricsF negrita(fuente(cuerpo, true), &dispositivo_);
    const double separacion = 2 * margen_celda(letra);
    const double tope_texto = letra.horizontalAdvance(QLatin1Char('0')) * caracteres_texto;
    std::vector<double> naturales;
    reparto_.cuerpo = cuerpo;
    reparto_.anchos.clear();
    double suma = 0;
    for (std::size_t i = 0; i < columnas_.size(); ++i) {
        double ancho = std::max(negrita.horizontalAdvance(en_una_linea(columnas_[i].titulo)),
                                tabla_.tiene_pie()
                                    ? negrita.horizontalAdvance(medida_.columnas[i].dato_mas_largo)
                                    : letra.horizontalAdvance(medida_.columnas[i].dato_mas_largo));
        const bool texto = columnas_[i].tipo == TipoExportable::Texto;
        if (texto)
            ancho *= 1.05; // El más largo en caracteres no siempre es el más ancho.
        ancho += separacion;
        naturales.push_back(ancho);
        reparto_.anchos.push_back(texto ? std::min(ancho, tope_texto) : ancho);
        suma += reparto_.anchos.back();
    }
    if (suma > ancho_)
        return false;
    // Lo que sobra vuelve a los textos recortados, por partes iguales.
    double sobra = ancho_ - suma;
    for (bool repartido = true; repartido && sobra > 1;) {
        std::vector<std::size_t> cortas;
        for (std::size_t i = 0; i < columnas_.size(); ++i)
            if (naturales[i] - reparto_.anchos[i] > 0.5)
                cortas.push_back(i);
        repartido = !cortas.empty();
        const double parte = repartido ? sobra / static_cast<double>(cortas.size()) : 0;
        for (std::size_t i : cortas) {
            const double aumento = std::min(parte, naturales[i] - reparto_.anchos[i]);
            reparto_.anchos[i] += aumento;
            sobra -= aumento;
        }
    }
    return true;
}

// Antes de achicar la letra más de lo cómodo se recortan los textos largos.
void Impresion::decida_reparto() {
    for (double cuerpo = kCuerpoMayor; cuerpo >= kCuerpoComodo; cuerpo -= 0.5)
        if (reparta(cuerpo, 45))
            return;
    for (int caracteres : {35, 25, 18})
        if (reparta(kCuerpoComodo, caracteres))
            return;
    for (double cuerpo = kCuerpoComodo; cuerpo >= kCuerpoMenor; cuerpo -= 0.25)
        if (reparta(cuerpo, 18))
            return;
    // Ni con la letra menor: todas las columnas ceden en proporción.
    double suma = 0;
    for (double ancho : reparto_.anchos)
        suma += ancho;
    for (double& ancho : reparto_.anchos)
        ancho *= ancho_ / suma;
}

bool Impresion::se_imprime(int pagina) const {
    return paginas_pedidas_.isEmpty() || paginas_pedidas_.contains(pagina);
}

int Impresion::imprima() {
    if (!pintor_.begin(&dispositivo_))
        throw ErrorExportacion(QStringLiteral("No se pudo abrir la impresora o el archivo de "
                                              "impresión. Revise la configuración de impresión."));
    ancho_ = dispositivo_.width();
    alto_ = dispositivo_.height();
    decida_reparto();
    letra_ = fuente(reparto_.cuerpo);
    letra_negrita_ = fuente(reparto_.cuerpo, true);
    medidas_.emplace(letra_, &dispositivo_);
    medidas_negrita_.emplace(letra_negrita_, &dispositivo_);
    alto_fila_ = medidas_->height() * 1.25;
    alto_encabezado_ = alto_renglon(letra_titulo_) * (1 + (opciones_.compania.isEmpty() ? 0 : 1) +
                                                      (opciones_.cifras.isEmpty() ? 0 : 1)) +
                       puntos(8);
    const double alto_pie = alto_renglon(letra_pagina_) + puntos(8);
    const auto filas_por_pagina = std::max<qint64>(
        1, static_cast<qint64>((alto_ - alto_encabezado_ - alto_pie) / alto_fila_) - 1);
    const qint64 filas = medida_.filas + (tabla_.tiene_pie() ? 1 : 0);
    total_paginas_ =
        static_cast<int>(std::max<qint64>(1, (filas + filas_por_pagina - 1) / filas_por_pagina));

    qint64 fila = 0;
    const auto asegure_pagina = [&] {
        if (fila % filas_por_pagina == 0)
            pase_pagina();
        ++fila;
    };
    tabla_.inicie();
    while (tabla_.siguiente()) {
        asegure_pagina();
        escriba_fila(fila % 2 == 0 ? Fila::Alterna : Fila::Datos,
                     [&](int i) { return tabla_.texto(i); });
    }
    if (tabla_.tiene_pie()) {
        asegure_pagina();
        escriba_fila(Fila::Sumas, [&](int i) { return tabla_.texto_pie(i); });
    }
    if (pagina_ == 0)
        pase_pagina();
    pintor_.end();
    return total_paginas_;
}

void Impresion::pase_pagina() {
    ++pagina_;
    if (!se_imprime(pagina_))
        return;
    if (pintada_alguna_)
        dispositivo_.newPage();
    pintada_alguna_ = true;
    escriba_encabezado();
    escriba_pie_pagina();
    y_ = alto_encabezado_;
    escriba_fila(Fila::Titulos, [&](int i) { return columnas_[i].titulo; });
}

void Impresion::escriba_encabezado() {
    const double renglon = alto_renglon(letra_titulo_);
    double y = 0;
    pintor_.setPen(Qt::black);
    const QString titulo = opciones_.encabezado.isEmpty() ? tabla_.titulo() : opciones_.encabezado;
    // La fecha no sale dos veces.
    const QString derecha =
        titulo.contains(QLatin1String(kHoy)) ? QString() : con_marcas(opciones_.encabezado_derecho);
    pintor_.setFont(letra_pagina_);
    const double ancho_derecha =
        QFontMetricsF(letra_pagina_, &dispositivo_).horizontalAdvance(derecha);
    pintor_.drawText(QRectF(0, y, ancho_, renglon), Qt::AlignRight | Qt::AlignVCenter, derecha);
    const double ancho_titulo = ancho_ - ancho_derecha - puntos(12);
    const auto escriba = [&](const QString& texto) {
        // Un título largo se achica, y solo si ni así cabe se corta.
        double cuerpo = letra_titulo_.pointSizeF();
        QFont letra = letra_titulo_;
        const auto ancho = [&] {
            return QFontMetricsF(letra, &dispositivo_).horizontalAdvance(en_una_linea(texto));
        };
        while (cuerpo > kCuerpoComodo && ancho() > ancho_titulo)
            letra.setPointSizeF(cuerpo -= 0.5);
        pintor_.setFont(letra);
        const QString visible = QFontMetricsF(letra, &dispositivo_)
                                    .elidedText(en_una_linea(texto), Qt::ElideRight, ancho_titulo);
        pintor_.drawText(QRectF(0, y, ancho_, renglon), Qt::AlignLeft | Qt::AlignVCenter, visible);
        y += renglon;
    };
    if (!opciones_.compania.isEmpty())
        escriba(opciones_.compania);
    escriba(con_marcas(titulo));
    if (!opciones_.cifras.isEmpty())
        escriba(opciones_.cifras);
}

void Impresion::escriba_pie_pagina() {
    pintor_.setFont(letra_pagina_);
    pintor_.setPen(kTenue);
    pintor_.drawText(
        QRectF(0, alto_ - alto_renglon(letra_pagina_), ancho_, alto_renglon(letra_pagina_)),
        Qt::AlignRight | Qt::AlignBottom,
        QStringLiteral("Página %1 de %2").arg(pagina_).arg(total_paginas_));
}

template <class Texto> void Impresion::escriba_fila(Fila clase, Texto&& texto_de) {
    if (!se_imprime(pagina_))
        return;
    const bool negrita = clase == Fila::Titulos || clase == Fila::Sumas;
    const QFontMetricsF& medidas = *(negrita ? medidas_negrita_ : medidas_);
    const double margen = margen_celda(*medidas_);
    double ancho_tabla = 0;
    for (double ancho : reparto_.anchos)
        ancho_tabla += ancho;
    const QRectF renglon(0, y_, ancho_tabla, alto_fila_);
    if (clase == Fila::Titulos)
        pintor_.fillRect(renglon, kFondoTitulos);
    else if (clase == Fila::Alterna)
        pintor_.fillRect(renglon, kFondoAlterno);
    pintor_.setPen(QPen(kRaya, puntos(0.5)));
    if (clase == Fila::Titulos)
        pintor_.drawLine(renglon.bottomLeft(), renglon.bottomRight());
    if (clase == Fila::Sumas)
        pintor_.drawLine(renglon.topLeft(), renglon.topRight());

    pintor_.setFont(negrita ? letra_negrita_ : letra_);
    pintor_.setPen(Qt::black);
    const double base = y_ + (alto_fila_ - medidas.height()) / 2 + medidas.ascent();
    double x = 0;
    for (std::size_t i = 0; i < columnas_.size(); ++i) {
        const double ancho = reparto_.anchos[i] - 2 * margen;
        QString texto = en_una_linea(texto_de(static_cast<int>(i)));
        double largo = medidas.horizontalAdvance(texto);
        if (columnas_[i].tipo == TipoExportable::Texto && largo > ancho) {
            texto = medidas.elidedText(texto, Qt::ElideRight, ancho);
            largo = medidas.horizontalAdvance(texto);
        }
        const Qt::AlignmentFlag lado = columnas_[i].lado();
        const double sangria = lado == Qt::AlignRight     ? ancho - largo
                               : lado == Qt::AlignHCenter ? (ancho - largo) / 2
                                                          : 0;
        if (!texto.isEmpty())
            pintor_.drawText(QPointF(x + margen + sangria, base), texto);
        x += reparto_.anchos[i];
    }
    y_ += alto_fila_;
}

} // namespace

int imprima_tabla(TablaExportable& tabla, QPagedPaintDevice& dispositivo,
                  const OpcionesImpresion& opciones) {
    return Impresion(tabla, dispositivo, opciones).imprima();
}
