#pragma once
// Filtros de las listas de comprobantes y plantillas: el tipo y unas cajas de texto.
#include "toolkit/formulario.h"
#include "toolkit/pantalla.h"

#include <QVector>

class ConjuntoDatos;
class ListaDato;
class QCheckBox;
class QLineEdit;
class QPushButton;

/// Caja de la que sale una condición sobre una columna.
struct FiltroTexto {
    enum Comparacion { Igual, Desde, Hasta, Contiene };
    const char* nombre;
    const char* rotulo; ///< también la nombra en los mensajes
    int ancho;          ///< caracteres que admite
    const char* columna;
    Comparacion comparacion = Igual; ///< Contiene no distingue mayúsculas ni tildes

    QString condicion(const QString& digitado) const;
    bool es_fecha() const;
};

/// Con un tipo o un texto sin buscar, Enter en él busca en vez de lo que haga la pantalla.
class FiltrosBusqueda : public QWidget, public ReclamaTeclas {
    Q_OBJECT
public:
    /// Valor de LTipo que no filtra.
    static constexpr const char* kTodos = "__";

    /// `tipos` tiene TICO_COD y TICO_NOM y se abre después. Uno de los filtros es el
    /// concepto, que abre el segundo renglón. Sin `con_fila` no hay ckfiltro. `antes`, si tiene
    /// control, es una fila más, arriba de todas.
    FiltrosBusqueda(ConjuntoDatos& tipos, const QVector<FiltroTexto>& filtros,
                    const char* nombre_boton, bool con_fila, const Formulario::Par& antes,
                    QWidget* padre);

    ListaDato* LTipo;
    QPushButton* buscar;
    QCheckBox* ckfiltro = nullptr; ///< "Habilitar filtros"
    QLineEdit* caja(const char* nombre) const;

    /// Deja escogido el tipo si está en la lista.
    void escoja_tipo(const QString& codigo);
    /// `base` con las condiciones de los controles llenos; `columna_tipo` es la del tipo. Con todos
    /// los tipos y sin `base` el texto solo admite una caja llena: con más queda mal escrito, y
    /// `sobrantes` lo dice.
    QString condicion(const QString& base, const QString& columna_tipo) const;

    /// Rótulos de las cajas llenas, en orden, cuando son más de las que la búsqueda admite; vacía
    /// si se puede buscar. `base` es la de `condicion`.
    QStringList sobrantes(const QString& base) const;

    /// El número digitado, con las cifras con que se graba; vacío si ya las tiene. La búsqueda lo
    /// compara como texto y a uno más corto no lo halla.
    QString numero_como_se_graba() const;

    std::function<void()> al_buscar;

    bool reclama(const QKeyEvent& evento) override;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void busque();
    bool con_tipo() const; ///< hay un tipo escogido, que no es el de todos

    ConjuntoDatos& tipos_;
    QVector<FiltroTexto> filtros_;
    QVector<QLineEdit*> cajas_;
    bool pendiente_ = false;
};
