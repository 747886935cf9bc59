#include "toolkit/pivote/zonas_cubo.h"

#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/letras_alt.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr std::array kTitulos = {"Campos", "Filas (F)", "Columnas (C)", "Filtros (T)",
                                 "Valores (V)"};
constexpr std::array kNombres = {"ZonaCampos", "ZonaFilas", "ZonaColumnas", "ZonaFiltros",
                                 "ZonaValores"};
constexpr int kCampo = Qt::UserRole;
const QString kTipoArrastre = QStringLiteral("application/x-campo-de-cubo");

QString campo_de(const QListWidgetItem* item) {
    return item->data(kCampo).toString();
}

} // namespace

/// Lista que da y recibe campos.
class ZonasCubo::Lista : public QListWidget {
public:
    Lista(ZonasCubo& zonas, Zona zona) : zonas_(zonas), zona_(zona) {
        setObjectName(QLatin1String(kNombres[size_t(zona)]));
        setAccessibleName(QLatin1String(kTitulos[size_t(zona)]));
        setDragDropMode(DragDrop);
        setDefaultDropAction(Qt::MoveAction);
        setSelectionMode(SingleSelection);
        setMinimumHeight(fontMetrics().height() * 3);
    }
    QSize sizeHint() const override { // el ancho que sobra es de las cifras
        return {ancho_caracteres(fontMetrics(), 24), QListWidget::sizeHint().height()};
    }

protected:
    QStringList mimeTypes() const override { return {kTipoArrastre}; }
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override {
        auto* datos = new QMimeData;
        if (!items.isEmpty())
            datos->setData(kTipoArrastre, campo_de(items.first()).toUtf8());
        return datos;
    }
    void dragEnterEvent(QDragEnterEvent* evento) override { evento->setAccepted(acepta(evento)); }
    void dragMoveEvent(QDragMoveEvent* evento) override { evento->setAccepted(acepta(evento)); }
    void dropEvent(QDropEvent* evento) override {
        if (!acepta(evento)) {
            evento->ignore();
            return;
        }
        // Se mueve el campo, no una copia de su renglón: así nunca queda en dos zonas, y el origen
        // no tiene qué borrar.
        evento->setDropAction(Qt::CopyAction);
        evento->accept();
        int lugar = indexAt(evento->position().toPoint()).row();
        zonas_.mueva(campo_en(evento), zona_);
        if (lugar < 0 || lugar >= count())
            lugar = count() - 1;
        insertItem(lugar, takeItem(count() - 1));
        setCurrentRow(lugar);
        zonas_.cambiaron();
    }
    void keyPressEvent(QKeyEvent* evento) override {
        if (!currentItem() ||
            !zonas_.oprima(zona_, currentItem(), evento->key(), evento->modifiers()))
            QListWidget::keyPressEvent(evento);
    }
    void mouseDoubleClickEvent(QMouseEvent* evento) override {
        if (QListWidgetItem* item = itemAt(evento->pos()))
            zonas_.oprima(zona_, item, Qt::Key_Return, {});
    }

private:
    static QString campo_en(const QDropEvent* evento) {
        return QString::fromUtf8(evento->mimeData()->data(kTipoArrastre));
    }
    bool acepta(const QDropEvent* evento) const {
        const QString campo = campo_en(evento);
        return zonas_.cubo_.campo(campo) && zonas_.recibe(zona_, campo);
    }
    ZonasCubo& zonas_;
    Zona zona_;
};

ZonasCubo::ZonasCubo(const Cubo& cubo, QWidget* padre)
    : QWidget(padre), total_filas(new QCheckBox(QStringLiteral("Fila de totales"))),
      total_columnas(new QCheckBox(QStringLiteral("Columna de totales"))), cubo_(cubo) {
    rejilla_ = new QGridLayout(this);
    rejilla_->setContentsMargins(0, 0, 0, 0);
    rejilla_->setSpacing(paso(0.5));
    for (size_t i = 0; i < listas_.size(); ++i) {
        listas_[i] = new Lista(*this, Zona(i));
        titulos_[i] = new QLabel(QLatin1String(kTitulos[i]));
        titulos_[i]->setBuddy(listas_[i]);
    }
    const auto casilla = [&](QCheckBox* c, const char* nombre, bool DisposicionCubo::*campo) {
        c->setObjectName(QLatin1String(nombre));
        connect(c, &QCheckBox::toggled, this, [this, campo](bool si) {
            disposicion_.*campo = si;
            cambiaron();
        });
    };
    casilla(total_filas, "TotalFilas", &DisposicionCubo::total_filas);
    casilla(total_columnas, "TotalColumnas", &DisposicionCubo::total_columnas);
    casillas_ = en_flujo({total_filas, total_columnas}, rejilla_->spacing());
    casillas_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum); // siguen en otro renglón
    alinee(false);
    setToolTip(QStringLiteral("Arrastre los campos, o F, C, T, V y Supr los mueven; Alt+Arriba y "
                              "Alt+Abajo los ordenan; Enter escoge sus valores o cómo se ven"));
    disposicion(DisposicionCubo{});
}

void ZonasCubo::alinee(bool parejas) {
    parejas_ = parejas;
    for (size_t i = 0; i < listas_.size(); ++i) {
        const int par = parejas ? int(i + 1) / 2 : int(i), columna = parejas && i > 0 && i % 2 == 0;
        const int anchas = parejas && i > 0 ? 1 : 2;
        rejilla_->addWidget(titulos_[i], par * 2, columna, 1, anchas);
        rejilla_->addWidget(listas_[i], par * 2 + 1, columna, 1, anchas);
    }
    constexpr int kRenglones = 10;
    for (int fila = 1; fila < kRenglones; fila += 2)
        rejilla_->setRowStretch(fila, parejas && fila > 5 ? 0 : fila == 1 ? 6 : 2);
    rejilla_->addWidget(casillas_, kRenglones, 0, 1, 2);
}

int ZonasCubo::alto_con(int listas, int casillas) const {
    return listas * (listas_[0]->minimumHeight() + titulos_[0]->sizeHint().height()) +
           casillas * total_filas->sizeHint().height() +
           (2 * listas + casillas - 1) * rejilla_->spacing();
}

QSize ZonasCubo::minimumSizeHint() const {
    return {QWidget::minimumSizeHint().width(), alto_con(3, 2)};
}

void ZonasCubo::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    if (const bool bajas = height() < alto_con(5, 2); bajas != parejas_)
        alinee(bajas);
    acomode_campos();
}

void ZonasCubo::acomode_campos() {
    // De las catorce partes le tocan seis; por menos de un renglón no le sale una barra.
    const QListWidget& campos = *listas_[0];
    const int renglon = campos.sizeHintForRow(0);
    const int todos = campos.count() * renglon + 2 * campos.frameWidth();
    const int libre = height() - alto_con(5, 2) + int(listas_.size()) * listas_[0]->minimumHeight();
    const int falta = parejas_ ? 0 : todos - libre * 6 / 14;
    rejilla_->setRowMinimumHeight(1, falta > 0 && falta <= renglon ? todos : 0);
}

// ---------------------------------------------------------------- disposición

void ZonasCubo::disposicion(const DisposicionCubo& d) {
    llenando_ = true;
    disposicion_ = d;
    QStringList valores, usados = d.filas + d.columnas + d.filtros;
    for (const ValorCubo& v : d.valores)
        valores << v.campo;
    usados += valores;
    QStringList libres;
    for (const CampoCubo& c : cubo_.campos())
        if (!usados.contains(c.nombre))
            libres << c.nombre;
    ponga(Zona::Campos, libres);
    ponga(Zona::Filas, d.filas);
    ponga(Zona::Columnas, d.columnas);
    ponga(Zona::Filtros, d.filtros);
    ponga(Zona::Valores, valores);
    total_filas->setChecked(d.total_filas);
    total_columnas->setChecked(d.total_columnas);
    llenando_ = false;
    acomode_campos();
}

void ZonasCubo::ponga(Zona zona, const QStringList& campos) {
    lista(zona)->clear();
    for (const QString& c : campos) {
        auto* item = new QListWidgetItem(rotulo(zona, c), lista(zona));
        item->setData(kCampo, c);
    }
}

DisposicionCubo ZonasCubo::disposicion() const {
    const auto campos = [this](Zona zona) {
        QStringList nombres;
        for (int i = 0; i < lista(zona)->count(); ++i)
            nombres << campo_de(lista(zona)->item(i));
        return nombres;
    };
    DisposicionCubo d = disposicion_;
    d.filas = campos(Zona::Filas);
    d.columnas = campos(Zona::Columnas);
    d.filtros = campos(Zona::Filtros);
    d.valores.clear();
    for (const QString& c : campos(Zona::Valores)) {
        ValorCubo valor{c};
        for (const ValorCubo& v : disposicion_.valores)
            if (v.campo == c)
                valor = v;
        d.valores.append(valor);
    }
    // Un filtro de un campo que ya no está en ninguna zona no se ve: no filtra.
    for (const QString& c : d.solo.keys())
        if (!(d.filas + d.columnas + d.filtros).contains(c))
            d.solo.remove(c);
    return d;
}

void ZonasCubo::cambiaron() {
    if (llenando_)
        return;
    disposicion_ = disposicion();
    rotule();
    acomode_campos();
    emit cambio();
}

void ZonasCubo::rotule() {
    for (size_t z = 0; z < listas_.size(); ++z)
        for (int i = 0; i < listas_[z]->count(); ++i)
            listas_[z]->item(i)->setText(rotulo(Zona(z), campo_de(listas_[z]->item(i))));
}

QString ZonasCubo::rotulo(Zona zona, const QString& campo) const {
    QString texto = cubo_.campo(campo)->titulo;
    if (zona != Zona::Campos && disposicion_.solo.contains(campo)) {
        QStringList valores(disposicion_.solo[campo].begin(), disposicion_.solo[campo].end());
        valores.sort();
        texto += valores.size() <= 3 ? ": " + valores.join(", ")
                                     : QStringLiteral(": %1 valores").arg(valores.size());
    }
    for (const ValorCubo& v : disposicion_.valores)
        if (zona == Zona::Valores && v.campo == campo && v.muestra != MuestraCubo::Valor)
            texto += ' ' + texto_de(v.muestra);
    return texto;
}

// ---------------------------------------------------------------- movimientos

bool ZonasCubo::recibe(Zona zona, const QString& campo) const {
    return zona == Zona::Campos || cubo_.campo(campo)->medida == (zona == Zona::Valores);
}

Zona ZonasCubo::zona_de(const QString& campo) const {
    for (size_t z = 0; z < listas_.size(); ++z)
        for (int i = 0; i < listas_[z]->count(); ++i)
            if (campo_de(listas_[z]->item(i)) == campo)
                return Zona(z);
    return Zona::Campos;
}

bool ZonasCubo::mueva(const QString& campo, Zona zona) {
    if (!recibe(zona, campo))
        return false;
    QListWidget* origen = lista(zona_de(campo));
    for (int i = 0; i < origen->count(); ++i)
        if (campo_de(origen->item(i)) == campo) {
            QListWidgetItem* item = origen->takeItem(i);
            lista(zona)->addItem(item);
            lista(zona)->setCurrentItem(item);
            return true;
        }
    return false;
}

void ZonasCubo::suba(QListWidget* lista, int paso) {
    const int fila = lista->currentRow(), destino = fila + paso;
    if (destino < 0 || destino >= lista->count())
        return;
    QListWidgetItem* item = lista->takeItem(fila);
    lista->insertItem(destino, item);
    lista->setCurrentItem(item);
    cambiaron();
}

bool ZonasCubo::oprima(Zona zona, QListWidgetItem* item, int tecla,
                       Qt::KeyboardModifiers modificadores) {
    const QString campo = campo_de(item);
    if (modificadores & Qt::AltModifier) {
        if (tecla != Qt::Key_Up && tecla != Qt::Key_Down)
            return false;
        suba(lista(zona), tecla == Qt::Key_Up ? -1 : 1);
        return true;
    }
    if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
        if (cubo_.campo(campo)->medida)
            cambie_muestra(campo);
        else if (zona != Zona::Campos)
            escoja_valores(campo);
        return true;
    }
    static const QMap<int, Zona> destinos{
        {Qt::Key_F, Zona::Filas},       {Qt::Key_C, Zona::Columnas},
        {Qt::Key_T, Zona::Filtros},     {Qt::Key_V, Zona::Valores},
        {Qt::Key_Delete, Zona::Campos}, {Qt::Key_Backspace, Zona::Campos}};
    if (modificadores != Qt::NoModifier || !destinos.contains(tecla))
        return false;
    const Zona destino = destinos[tecla];
    if (destino == zona || !mueva(campo, destino))
        return true;
    // El foco sigue al campo, para ordenarlo o moverlo otra vez; si salió, se queda.
    if (destino != Zona::Campos)
        lista(destino)->setFocus();
    cambiaron();
    return true;
}

void ZonasCubo::cambie_muestra(const QString& campo) {
    for (ValorCubo& v : disposicion_.valores)
        if (v.campo == campo)
            v.muestra = MuestraCubo((int(v.muestra) + 1) % 4);
    cambiaron();
}

void ZonasCubo::escoja_valores(const QString& campo) {
    QDialog dialogo(this);
    dialogo.setObjectName(QStringLiteral("filtro_cubo"));
    dialogo.setWindowTitle(cubo_.campo(campo)->titulo);
    auto* valores = new QListWidget;
    valores->setObjectName(QStringLiteral("valores"));
    const QSet<QString> pasan = disposicion_.solo.value(campo);
    for (const auto& [valor, nombre] : cubo_.valores_de(campo)) {
        auto* item = new QListWidgetItem((valor + ' ' + nombre).trimmed(), valores);
        item->setData(kCampo, valor);
        item->setCheckState(pasan.isEmpty() || pasan.contains(valor) ? Qt::Checked : Qt::Unchecked);
    }
    auto* todos = new QPushButton(QStringLiteral("Todos o ninguno"));
    todos->setObjectName(QStringLiteral("todos"));
    connect(todos, &QPushButton::clicked, valores, [valores] {
        const bool alguno = valores->count() && valores->item(0)->checkState() == Qt::Checked;
        for (int i = 0; i < valores->count(); ++i)
            valores->item(i)->setCheckState(alguno ? Qt::Unchecked : Qt::Checked);
    });
    auto* botones = new QDialogButtonBox;
    botones->addButton(QStringLiteral("Aceptar"), QDialogButtonBox::AcceptRole)
        ->setObjectName(QStringLiteral("aceptar"));
    botones->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
    connect(botones, &QDialogButtonBox::accepted, &dialogo, &QDialog::accept);
    connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
    auto* columna = new QVBoxLayout(&dialogo);
    columna->addWidget(valores);
    columna->addWidget(todos);
    columna->addWidget(botones);
    ponga_letras(dialogo);
    if (dialogo.exec() != QDialog::Accepted)
        return;
    QSet<QString> marcados;
    for (int i = 0; i < valores->count(); ++i)
        if (valores->item(i)->checkState() == Qt::Checked)
            marcados.insert(valores->item(i)->data(kCampo).toString());
    // Todos es no filtrar: lo que llegue después también pasa. Ninguno no dejaría nada que ver.
    if (marcados.size() == valores->count() || marcados.isEmpty())
        disposicion_.solo.remove(campo);
    else
        disposicion_.solo[campo] = marcados;
    cambiaron();
}
