#include "ledger/cifrascontrol.h"

#include "toolkit/controles/editornumero.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>

namespace {
constexpr char kRotulo[] = "Cifras de control:";
}

CifrasControl::CifrasControl(Rejilla* rejilla, const QStringList& columnas,
                             const QStringList& sumas, const QStringList& nombres, QWidget* padre)
    : QWidget(padre), rejilla_(rejilla), columnas_(columnas), sumas_(sumas),
      rotulo_(new QLabel(kRotulo, this)), hueco_(new QWidget(this)),
      navegador_(new NavegadorDatos(rejilla->conjunto(), nbRecorrido | nbRefresh, this)) {
    for (int i = 0; i < nombres.size(); ++i) {
        auto* caja = EditorNumero::de_saldo(hueco_);
        const QString titulo = rejilla->columna(rejilla->columna_de(columnas[i])).Titulo();
        caja->setObjectName(nombres[i]);
        caja->setAccessibleName("Cifra de control: " + titulo);
        cajas_.append(caja);
        titulos_.append(new QLabel(titulo + ':', hueco_));
        titulos_.last()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    enlace(rejilla->conjunto());
    connect(rejilla->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { ubique(); });
    connect(rejilla->horizontalHeader(), &QHeaderView::geometriesChanged, this,
            [this] { ubique(); });
    connect(rejilla->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { ubique(); });
    connect(rejilla->horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this] { ubique(); });
}

void CifrasControl::muestre() {
    // Cualquier fila las lleva; si un filtro las oculta todas, siguen siendo las del libro.
    const ConjuntoDatos& datos = *conjunto();
    QStringList impresas;
    for (int i = 0; i < cajas_.size(); ++i) {
        const Campo& suma = datos.FieldByName(sumas_[i]);
        Valor v = datos.valor_en(0, suma);
        if (datos.RecordCount() == 0)
            datos.recorra_todas([&](const Fila& f) { v = datos.valor_de(f, suma); });
        cajas_[i]->valor(v.moneda().redondeada(2));
        impresas << titulos_[i]->text() + ' ' + cajas_[i]->text();
    }
    rejilla_->setProperty("cifras_impresas",
                          QLatin1String(kRotulo) + ' ' + impresas.join(QStringLiteral(" · ")));
    ubique(); // lo que ocupan depende de lo que dicen
}

void CifrasControl::filas_reiniciadas() {
    // Un filtro sin filas no cambia las cifras: son las del libro y no las de la vista.
    if (conjunto() && conjunto()->Active() && conjunto()->RecordCount() > 0)
        muestre();
}

int CifrasControl::alto_de_renglon() const {
    return qMax(cajas_.first()->sizeHint().height(), navegador_->sizeHint().height());
}

int CifrasControl::ancho_de(const EditorNumero* caja) const {
    return caja->fontMetrics().horizontalAdvance(caja->text()) + paso(2);
}

QSize CifrasControl::sizeHint() const {
    return {paso(60), alto_de_renglon()};
}

void CifrasControl::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    ubique();
}

void CifrasControl::showEvent(QShowEvent* evento) {
    QWidget::showEvent(evento);
    ubique();
}

void CifrasControl::ubique() {
    if (!isVisible()) { // en la otra hoja las columnas no tienen su ancho todavía
        setFixedHeight(alto_de_renglon());
        return;
    }
    const QSize botones = navegador_->sizeHint();
    auto& titulos = static_cast<EncabezadoRejilla&>(*rejilla_->horizontalHeader());
    for (int i = 0; i < cajas_.size(); ++i) {
        const int c = rejilla_->columna_de(columnas_[i]);
        if (titulos.sectionSize(c) < ancho_de(cajas_[i]))
            titulos.anchos().pida(c, ancho_de(cajas_[i]));
    }
    // Si las columnas empiezan antes de que termine el rótulo, va en dos renglones; si ni así, son
    // las cajas las que van en otro.
    const int primera = rejilla_->x() - x() + rejilla_->viewport()->x() +
                        titulos.sectionPosition(rejilla_->columna_de(columnas_[0]));
    // Si hay que desplazarse para ver sus columnas, las cajas no se van con ellas.
    const bool sueltas = rejilla_->horizontalScrollBar()->maximum() > 0;
    int alto = 0, libre = 0;
    const auto rotule = [&](const char* texto) {
        rotulo_->setText(QLatin1String(texto));
        alto = qMax(alto_de_renglon(), rotulo_->sizeHint().height());
        rotulo_->setGeometry(botones.width() + paso(), 0, rotulo_->sizeHint().width(), alto);
        libre = rotulo_->geometry().right() + paso(0.5);
    };
    rotule(kRotulo);
    if (!sueltas && primera < libre)
        rotule("Cifras de\ncontrol:");
    const bool debajo = sueltas || primera < libre;
    if (debajo) // la fila es suya
        rotule(kRotulo);
    navegador_->setGeometry(0, (alto - botones.height()) / 2, botones.width(), botones.height());
    const QRect vista(rejilla_->x() - x() + rejilla_->viewport()->x(), 0,
                      rejilla_->viewport()->width(), alto);
    QRect lugar = vista.translated(0, debajo ? alto : 0);
    if (sueltas)
        lugar.setRect(0, alto, width(), ubique_a_la_vista(width(), alto));
    else if (!debajo)
        lugar.setLeft(qMax(libre, vista.x()));
    hueco_->setGeometry(lugar);
    for (QLabel* titulo : titulos_)
        titulo->setVisible(sueltas);
    if (!sueltas)
        ubique_bajo_columnas(vista.translated(-lugar.x(), 0), alto);
    if (const int todo = lugar.bottom() + 1; todo != minimumHeight())
        setFixedHeight(todo);
}

void CifrasControl::ubique_bajo_columnas(const QRect& vista, int alto) {
    const auto& titulos = static_cast<EncabezadoRejilla&>(*rejilla_->horizontalHeader());
    for (int i = 0; i < cajas_.size(); ++i) {
        const int c = rejilla_->columna_de(columnas_[i]), pide = ancho_de(cajas_[i]);
        QRect caja(vista.x() + titulos.sectionViewportPosition(c) + 1, 0,
                   titulos.sectionSize(c) - 2, alto);
        // Si el usuario angostó la columna, se extiende sobre la vecina.
        caja.setLeft(qMin(caja.left(), caja.right() + 1 - pide));
        cajas_[i]->setGeometry(caja);
    }
}

int CifrasControl::ubique_a_la_vista(int ancho, int alto) {
    int rotulo = 0, caja = 0;
    for (int i = 0; i < cajas_.size(); ++i) {
        rotulo = qMax(rotulo, titulos_[i]->sizeHint().width());
        caja = qMax(caja, ancho_de(cajas_[i]));
    }
    const int cada = rotulo + caja + paso(1.5);
    const int caben = qBound(1, ancho / cada, int(cajas_.size()));
    // Parejas: de cuatro, dos y dos mejor que tres y una.
    const int renglones = (int(cajas_.size()) + caben - 1) / caben;
    const int por_renglon = (int(cajas_.size()) + renglones - 1) / renglones;
    for (int i = 0; i < cajas_.size(); ++i) {
        const int x = ancho - (por_renglon - i % por_renglon) * cada + paso(1.5);
        const int y = i / por_renglon * (alto + paso(0.5));
        titulos_[i]->setGeometry(x, y, rotulo, alto);
        cajas_[i]->setGeometry(x + rotulo + paso(0.5), y, caja - paso(0.5), alto);
    }
    return renglones * (alto + paso(0.5)) - paso(0.5);
}
