#pragma once
// Búsqueda de las listas de mantenimiento: texto, columna, cualquier posición, inactivos y filtros.
#include "toolkit/pantalla.h"

#include <QStringList>

class QAbstractItemView;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QTimer;

struct CriterioBusqueda {
    QString base;           ///< "select * from cuentas "
    QString columna;        ///< columna de la búsqueda y del orden
    QString texto;          ///< como se digitó; se busca sin mayúsculas ni tildes
    bool desorden = false;  ///< en cualquier posición
    QString columna_activo; ///< "cuen_activa"; vacía: la lista no distingue inactivos
    bool inactivos = false; ///< también los inactivos
    QString conector = QStringLiteral(" where "); ///< " and " si la base ya trae su condición
};
/// Texto SQL de la búsqueda.
QString sql_busqueda(const CriterioBusqueda& criterio);

/// Fila de búsqueda. Con texto sin buscar, Enter en EBuscar busca en vez de escoger.
class FilaBusqueda : public QWidget, public ReclamaTeclas {
    Q_OBJECT
public:
    struct Eleccion {
        QString rotulo;
        QString columna;
        bool de_codigo = false; ///< lo que se busca por cifras
    };
    /// `rotulo_inactivos` vacío: sin ckinact.
    FilaBusqueda(const QVector<Eleccion>& columnas, const QString& rotulo_inactivos,
                 QWidget* padre = nullptr);

    QLineEdit* EBuscar;
    QGroupBox* RBuscar;
    QCheckBox* CkDesorden;        ///< "Buscar en cualquier posición"
    QCheckBox* ckinact = nullptr; ///< "Mostrar inactivas"
    QCheckBox* ckfiltro;          ///< "Habilitar filtros"
    QPushButton* sbBuscar;

    int ItemIndex() const;
    void ItemIndex(int indice);
    QString columna() const;
    /// Busca ese texto: por el código si empieza por cifra, y si no por la columna escogida o, si
    /// es la del código, por la primera de las otras. Con `demora` espera a que se deje de teclear.
    void busque_texto(const QString& texto);
    /// Busca ya lo que espera su demora: antes de escoger una fila.
    void pongase_al_dia();
    /// Las filas de lo que se busca: moverse por ellas con el teclado es moverse por lo ya buscado.
    /// El ratón señala lo que se ve, y lo que esperaba por buscarse ya no se busca.
    void siga(QAbstractItemView* filas);
    int demora = 0; ///< milisegundos de espera al buscar sobre la marcha
    /// Criterio con lo que el usuario dejó en los controles, sobre `plantilla`.
    CriterioBusqueda criterio(CriterioBusqueda plantilla) const;

    std::function<void()> sbBuscarClick; ///< también cuando cambia ckinact
    std::function<void(bool)> ckfiltroClick;
    std::function<void()> al_bajar; ///< Abajo en EBuscar, ya buscado su texto: pasa a las filas

    bool reclama(const QKeyEvent& evento) override;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void busque();
    void siga_a_las_filas(const QEvent& evento);
    QButtonGroup* grupo_;
    QVector<Eleccion> columnas_;
    bool pendiente_ = false;
    QAbstractItemView* filas_ = nullptr;
    QTimer* espera_;
};
