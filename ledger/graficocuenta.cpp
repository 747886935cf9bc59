#include "ledger/graficocuenta.h"

#include "toolkit/estilo.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QLineSeries>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

namespace {

/// Escala en que las cifras del eje se leen sin contar ceros.
struct Escala {
    qreal divisor;
    const char* titulo;
};

Escala escala_de(qreal mayor) {
    if (mayor >= 10e6)
        return {1e6, "Millones de pesos"};
    if (mayor >= 10e3)
        return {1e3, "Miles de pesos"};
    return {1, "Pesos"};
}

} // namespace

GraficoCuenta::GraficoCuenta(QWidget* padre)
    : QWidget(padre), grafico_(new QChart), eje_meses_(new QBarCategoryAxis),
      eje_valores_(new QValueAxis) {
    grafico_->addAxis(eje_meses_, Qt::AlignBottom);
    grafico_->addAxis(eje_valores_, Qt::AlignLeft);
    eje_valores_->setLabelFormat(QStringLiteral("%.0f"));
    auto* vista = new QChartView(grafico_);
    vista->setRenderHint(QPainter::Antialiasing);
    vista->setFocusPolicy(Qt::NoFocus);
    grafico_->legend()->hide();
    grafico_->setBackgroundRoundness(0);
    auto* fila = new QVBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->addWidget(vista);
}

void GraficoCuenta::muestre(ConjuntoDatos& CGrafcta, const QString& titulo, Forma forma) {
    QStringList meses;
    QVector<qreal> valores;
    qreal mayor = 0;
    for (CGrafcta.First(); !CGrafcta.Eof(); CGrafcta.Next()) {
        meses << CGrafcta.FieldByName("MES").texto();
        valores << qreal(CGrafcta.FieldByName("VALOR").entero());
        mayor = qMax(mayor, qAbs(valores.last()));
    }
    const Escala escala = escala_de(mayor);
    grafico_->removeAllSeries();
    auto* barras = forma == Barras ? new QBarSet(titulo) : nullptr;
    auto* linea = forma == Linea ? new QLineSeries : nullptr;
    QAbstractSeries* serie = linea;
    for (qsizetype i = 0; i < valores.size(); ++i) {
        const qreal y = valores[i] / escala.divisor;
        if (barras)
            barras->append(y);
        else
            linea->append(qreal(i), y);
    }
    if (barras) {
        auto* serie_barras = new QBarSeries;
        barras->setColor(colores_empresa().principal);
        serie_barras->append(barras);
        serie = serie_barras;
    } else {
        linea->setPen(QPen(colores_empresa().principal, 2.5));
        linea->setPointsVisible(true);
    }
    grafico_->addSeries(serie);
    eje_meses_->setCategories(meses);
    eje_valores_->setTitleText(QString::fromUtf8(escala.titulo));
    serie->attachAxis(eje_meses_);
    serie->attachAxis(eje_valores_);
    // El cero siempre a la vista: sin él una variación pequeña parece un salto.
    const auto [menor, tope] = std::minmax_element(valores.begin(), valores.end());
    eje_valores_->setRange(qMin<qreal>(0, *menor) / escala.divisor,
                           qMax<qreal>(1, *tope) / escala.divisor);
    eje_valores_->applyNiceNumbers();
    grafico_->setTitle(titulo);
}
