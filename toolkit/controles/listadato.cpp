#include "toolkit/controles/listadato.h"

#include "toolkit/proteccion.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStylePainter>
#include <QWheelEvent>

namespace {
constexpr int kTextoMaximo = 40, kFilasVisibles = 20;
constexpr int kTextoMinimo = 4; ///< una lista todavía vacía también parece una lista
} // namespace

/// Avisa a la lista cuando cambian las filas de su tabla.
class ListaDato::EnlaceTabla : public EnlaceDatos {
public:
    explicit EnlaceTabla(ListaDato& lista) : lista_(lista) {}
    void estado_cambiado() override {
        const bool activa = conjunto() && conjunto()->Active();
        if (activa != activa_) {
            activa_ = activa;
            lista_.marque_vieja();
        }
    }
    void filas_reiniciadas() override { lista_.marque_vieja(); }
    void filas_insertadas(int, int) override { lista_.marque_vieja(); }
    void filas_borradas(int, int) override { lista_.marque_vieja(); }
    void fila_modificada(int) override { lista_.marque_vieja(); }

private:
    ListaDato& lista_;
    bool activa_ = false;
};

ListaDato::ListaDato(QWidget* padre) : ListaTecleo(padre) {
    setMaxVisibleItems(kFilasVisibles);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kTextoMinimo);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QComboBox::activated, this, &ListaDato::escogido);
}

ListaDato::ListaDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre)
    : ListaDato(padre) {
    ate(conjunto, campo);
}

ListaDato::~ListaDato() = default;

void ListaDato::lista_de(ConjuntoDatos* tabla, const QString& llave, const QString& columna) {
    tabla_ = tabla;
    llave_ = llave;
    columna_ = columna;
    enlace_tabla_ = std::make_unique<EnlaceTabla>(*this);
    enlace_tabla_->enlace(tabla);
    enlace_tabla_->estado_cambiado();
    relea();
}

void ListaDato::lista_de(const QStringList& textos, const QStringList& valores) {
    enlace_tabla_.reset();
    tabla_ = nullptr;
    QScopedValueRollback<bool> guarda(releyendo_, true);
    clear();
    valores_.clear();
    int largo = 0;
    for (int i = 0; i < textos.size(); ++i) {
        addItem(textos[i]);
        valores_ << Valor(i < valores.size() ? valores[i] : textos[i]);
        largo = qMax(largo, int(textos[i].size()));
    }
    setMinimumContentsLength(qMin(largo, kTextoMaximo));
    refresque();
}

void ListaDato::marque_vieja() {
    if (vieja_)
        return;
    vieja_ = true;
    // Un paquete de filas avisa muchas veces: se relee una vez, cuando el lazo descansa o antes si
    // alguien mira.
    QMetaObject::invokeMethod(
        this, [this] { asegure_lista(); }, Qt::QueuedConnection);
}

void ListaDato::asegure_lista() {
    if (vieja_)
        relea();
}

void ListaDato::relea() {
    vieja_ = false;
    if (tabla_)
        proteja([this] { lea_tabla(); });
    refresque();
}

void ListaDato::lea_tabla() {
    QScopedValueRollback<bool> guarda(releyendo_, true);
    clear();
    valores_.clear();
    if (!tabla_->Active())
        return;
    if (!tabla_->completo())
        tabla_->FetchAll();
    const Campo& llave = tabla_->FieldByName(llave_);
    const Campo& columna = tabla_->FieldByName(columna_);
    QStringList textos;
    int largo = kTextoMinimo;
    for (int i = 0; i < tabla_->RecordCount(); ++i) {
        textos << columna.presente(tabla_->valor_en(i, columna));
        valores_ << tabla_->valor_en(i, llave);
        largo = qMax(largo, int(textos.last().size()));
    }
    addItems(textos);
    vieja_ = false; // FetchAll avisó de las filas que acaba de traer
    setMinimumContentsLength(qMin(largo, kTextoMaximo));
}

Valor ListaDato::valor() const {
    const_cast<ListaDato*>(this)->asegure_lista();
    return currentIndex() >= 0 ? valores_.value(currentIndex()) : Valor();
}

void ListaDato::muestre() {
    if (vieja_ && !releyendo_) {
        vieja_ = false;
        if (tabla_)
            proteja([this] { lea_tabla(); });
    }
    texto_ajeno_.clear();
    if (nombre_campo().isEmpty())
        return; // lista suelta: conserva lo que el usuario escogió
    const Campo* c = campo();
    int indice = -1;
    if (c && !c->vacio()) {
        const QString buscado = c->texto();
        for (int i = 0; i < valores_.size() && indice < 0; ++i)
            if (valores_[i].texto() == buscado)
                indice = i;
        if (indice < 0)
            texto_ajeno_ = c->presentado();
    }
    setCurrentIndex(indice);
    update();
}

Valor ListaDato::contenido() const {
    return valor();
}

void ListaDato::aplique_permiso() {
    if (!nombre_campo().isEmpty())
        encienda(editable());
}

void ListaDato::escogido(int indice) {
    if (!nombre_campo().isEmpty()) {
        const Campo* c = campo();
        if (c && indice >= 0 && valores_.value(indice).texto() == c->texto())
            return; // desplegar y dejar lo mismo no es un cambio
        if (!usuario_cambio())
            return;
        setCurrentIndex(indice); // entrar en edición pudo reponer el valor anterior
        // Quien escucha el cambio lee de la tabla la fila escogida.
        if (tabla_ && tabla_->State() == Estado::Navegacion && indice >= 0)
            proteja([&] { tabla_->vaya_a(indice); });
        if (!escriba())
            return;
    }
    if (OnChange)
        proteja(OnChange);
}

void ListaDato::keyPressEvent(QKeyEvent* evento) {
    asegure_lista();
    const bool borra = evento->key() == Qt::Key_Delete || evento->key() == Qt::Key_Backspace;
    if (borra && evento->modifiers() == Qt::NoModifier) {
        const Campo* c = campo();
        if (c && !c->Required && !c->vacio())
            escogido(-1);
        return;
    }
    ListaTecleo::keyPressEvent(evento);
}

void ListaDato::focusInEvent(QFocusEvent* evento) {
    ListaTecleo::focusInEvent(evento);
    foco_ganado();
}

void ListaDato::focusOutEvent(QFocusEvent* evento) {
    ListaTecleo::focusOutEvent(evento);
    foco_perdido(evento->reason());
}

void ListaDato::paintEvent(QPaintEvent* evento) {
    if (texto_ajeno_.isEmpty()) {
        ListaTecleo::paintEvent(evento);
        return;
    }
    QStylePainter pintor(this);
    QStyleOptionComboBox opcion;
    initStyleOption(&opcion);
    opcion.currentText = texto_ajeno_;
    pintor.drawComplexControl(QStyle::CC_ComboBox, opcion);
    pintor.drawControl(QStyle::CE_ComboBoxLabel, opcion);
}
