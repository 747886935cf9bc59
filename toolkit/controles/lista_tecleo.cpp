#include "toolkit/controles/lista_tecleo.h"

#include "toolkit/consejo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>
#include <utility>

namespace {
constexpr int kEntreLetrasMs = 700;
}

ListaTecleo::ListaTecleo(QWidget* padre) : QComboBox(padre) {
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
    espera_.setSingleShot(true);
    espera_.setInterval(kEntreLetrasMs);
    connect(&espera_, &QTimer::timeout, this, [this] {
        if (const auto haga = std::exchange(despues_, {}))
            haga();
    });
}

void ListaTecleo::al_acabar_de_teclear(std::function<void()> haga) {
    if (espera_.isActive())
        despues_ = std::move(haga);
    else
        haga();
}

void ListaTecleo::showPopup() {
    tecleo_.olvide();
    asegure_lista();
    QComboBox::showPopup();
    // Sin valor, la vista señala sola la primera fila: nadie la escogió.
    senalada_al_abrir_ = view()->currentIndex().row();
}

void ListaTecleo::keyPressEvent(QKeyEvent* evento) {
    asegure_lista();
    const int antes = currentIndex();
    if (isEnabled() && !isEditable() && tecleo_.reciba(*evento)) {
        espera_.start();
        if (const int hallado = con_lo_tecleado(antes); hallado < 0) {
            tecleo_.devuelva();
            siga_en_la_otra(*evento);
        } else if (hallado != antes) {
            setCurrentIndex(hallado);
            emit activated(hallado);
        }
        return;
    }
    if (evento->key() != Qt::Key_Shift && evento->key() != Qt::Key_AltGr)
        tecleo_.olvide();
    QComboBox::keyPressEvent(evento);
}

void ListaTecleo::tome_la_senalada() {
    const int senalada = view()->currentIndex().row();
    hidePopup();
    if (senalada < 0 || senalada == senalada_al_abrir_)
        return;
    setCurrentIndex(senalada);
    emit activated(senalada);
}

void ListaTecleo::siga_en_la_otra(QKeyEvent& evento) {
    if (!despues_)
        return;
    std::exchange(despues_, {})();
    if (QWidget* otra = QApplication::focusWidget(); otra && otra != this)
        QApplication::sendEvent(otra, &evento);
}

int ListaTecleo::con_lo_tecleado(int desde) const {
    if (tecleo_.vacio())
        return desde;
    const int hallado = con_prefijo(tecleo_.texto(), desde);
    // La misma letra otra vez: la siguiente que empieza por ella.
    return hallado < 0 && tecleo_.repetido() ? con_prefijo(tecleo_.texto().left(1), desde)
                                             : hallado;
}

int ListaTecleo::con_prefijo(const QString& comienzo, int desde) const {
    const QString buscado = texto_llano(comienzo);
    const int cuantos = count(), paso = buscado.size() == 1 ? 1 : 0;
    for (int i = 0; i < cuantos; ++i) {
        const int cual = (qMax(desde, -paso) + paso + i + cuantos) % cuantos;
        if (texto_llano(itemText(cual)).startsWith(buscado))
            return cual;
    }
    return -1;
}

bool ListaTecleo::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == view()->viewport() && evento->type() == QEvent::ToolTip) {
        // La fila que no cabe en lo desplegado.
        const QModelIndex fila = view()->indexAt(static_cast<QHelpEvent*>(evento)->pos());
        const bool cabe = view()->sizeHintForIndex(fila).width() <= view()->viewport()->width();
        muestre_consejo(evento, cabe ? QString() : fila.data().toString(), view());
        return true;
    }
    // Desplegada, las teclas son de la vista.
    if (objeto == view() && evento->type() == QEvent::KeyPress) {
        auto& tecla = static_cast<QKeyEvent&>(*evento);
        if (tecla.key() == Qt::Key_Tab || tecla.key() == Qt::Key_Backtab) {
            tome_la_senalada();
            QApplication::sendEvent(this, evento); // y sigue a la otra caja
            return true;
        }
        if (tecleo_.reciba(tecla)) {
            if (const int hallado = con_lo_tecleado(view()->currentIndex().row()); hallado < 0)
                tecleo_.devuelva();
            else
                view()->setCurrentIndex(model()->index(hallado, modelColumn(), rootModelIndex()));
            return true;
        }
        if (tecla.key() != Qt::Key_Shift && tecla.key() != Qt::Key_AltGr)
            tecleo_.olvide();
    }
    return QComboBox::eventFilter(objeto, evento);
}

void ListaTecleo::wheelEvent(QWheelEvent* evento) {
    if (hasFocus())
        QComboBox::wheelEvent(evento);
    else
        evento->ignore(); // pasar la rueda por encima no cambia el dato
}

void ListaTecleo::focusOutEvent(QFocusEvent* evento) {
    QComboBox::focusOutEvent(evento);
    tecleo_.olvide();
    espera_.stop();
    despues_ = {};
}

ListaTecleo* lista_tecleo(const char* nombre, const QStringList& filas) {
    auto* lista = new ListaTecleo;
    lista->setObjectName(nombre);
    lista->addItems(filas);
    return lista;
}
