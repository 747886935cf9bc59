#pragma once
// Constructor de formularios: filas de controles con su rótulo sobre una cuadrícula, sin píxeles.
//
// Los rótulos van a la derecha, contra su control, con su atajo ("&Nombre") y dan al control su
// nombre accesible. Todas las distancias son pasos de 8 píxeles que crecen con la letra.
#include <QPointer>
#include <QString>
#include <QVector>
#include <initializer_list>

class QBoxLayout;
class QGridLayout;
class QGroupBox;
class QLabel;
class QWidget;

class Formulario {
public:
    struct Par {
        QString etiqueta; ///< vacía: control sin rótulo (casillas)
        QWidget* control;
    };
    /// Toma el arreglo de `dueno`; los controles pasan a ser sus hijos.
    explicit Formulario(QWidget* dueno);
    /// Al terminar, Tab recorre los controles en el orden en que se leen.
    ~Formulario();
    Formulario(const Formulario&) = delete;
    Formulario& operator=(const Formulario&) = delete;

    Formulario& fila(const QString& etiqueta, QWidget* control);
    /// Varios campos relacionados en una fila.
    Formulario& fila(std::initializer_list<Par> pares);
    /// Control a todo el ancho, sin rótulo: rejillas, memos, textos. `estira` toma el alto libre.
    Formulario& ancha(QWidget* control, int estira = 1);
    /// Caja con título: las filas que siguen van dentro, hasta `fin_grupo` u otro grupo.
    Formulario& grupo(const QString& titulo);
    Formulario& fin_grupo();
    /// El próximo grupo queda a la derecha del anterior, en la misma banda.
    Formulario& al_lado();
    /// Deja libre el espacio restante.
    Formulario& estire();
    /// Barra de botones, siempre al pie.
    Formulario& botones(QWidget* barra);

    /// Rótulo de un control, o nulo.
    QLabel* etiqueta(const QWidget* control) const;
    /// Muestra u oculta un control con su rótulo.
    void muestre(QWidget* control, bool visible) const;
    void rotule(QWidget* control, const QString& texto) const;

    /// Varios controles que se leen como uno: caja, botón y nombre. El foco va al primero.
    static QWidget* junto(std::initializer_list<QWidget*> controles);

private:
    QGridLayout* rejilla();
    QLabel* ponga_rotulo(QWidget* control, const QString& texto);
    void alinee_rotulos(int ancho);
    void remate();
    static void nombre_accesible(QWidget* control, const QString& texto);

    QWidget* dueno_;
    QBoxLayout* raiz_;
    QBoxLayout* banda_ = nullptr; ///< grupos lado a lado
    QGridLayout* rejilla_ = nullptr;
    QGroupBox* grupo_ = nullptr;
    bool al_lado_ = false;
    bool elastico_ = false; ///< algo del formulario toma el alto libre
    bool grupo_elastico_ = false;
    QVector<QGridLayout*> sueltas_; ///< las que no están en un grupo
    int ancho_rotulos_ = 0;
    struct Rotulo {
        const QWidget* control;
        QLabel* etiqueta;
    };
    QVector<Rotulo> rotulos_;
    void encadene();
    QVector<QPointer<QWidget>> puestos_; ///< en orden de lectura
};
