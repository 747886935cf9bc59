#pragma once
// Proveedor: lee de una sentencia hacia un conjunto de datos y devuelve los cambios como SQL.
#include "datos/recordset/sentencia.h"

#include <functional>

class ConjuntoDatos;
class Campo;
struct Fila;

enum OpcionProveedor : unsigned {
    poAllowCommandText = 1, ///< el conjunto puede reemplazar el texto de la sentencia
    poCascadeDeletes = 2,   ///< una maestra borrada se lleva sus detalles anidados
    poCascadeUpdates = 4,   ///< la llave cambiada de la maestra pasa a los detalles
    poPropogateChanges = 8, ///< lo que el servidor cambió al grabar vuelve al conjunto
};

enum class ClaseCambio { Insercion, Modificacion, Borrado };

class Proveedor : public QObject {
    Q_OBJECT
public:
    Proveedor(QObject* dueno, const QString& nombre, Sentencia* sentencia, unsigned opciones = 0);

    Sentencia* sentencia = nullptr; ///< puede reasignarse mientras el conjunto está cerrado
    unsigned Options = 0;
    /// Recibe la falla de una fila que no se pudo grabar. Reporta; la fila queda en el registro de
    /// cambios.
    std::function<void(Proveedor&, ConjuntoDatos&, const ErrorDatos&, ClaseCambio)> OnUpdateError;
    /// Antes de resolver una fila; puede lanzar para rehusarla.
    std::function<void(ConjuntoDatos&, Fila&, ClaseCambio)> BeforeUpdateRecord;

    /// Graba los cambios del conjunto y sus anidados en una sola transacción.
    /// `errores_maximos` 0: al primer error todo se deshace. -1: sigue, y lo que falló queda en el
    /// registro de cambios. Devuelve el número de errores.
    int aplique(ConjuntoDatos& conjunto, int errores_maximos);

private:
    struct Grabacion;
    int intente(ConjuntoDatos& conjunto, int errores_maximos);
    void resuelva_conjunto(Grabacion& g, ConjuntoDatos& conjunto);
    void resuelva_fila(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
    void resuelva_detalles(Grabacion& g, ConjuntoDatos& maestra, Fila& fila, bool solo_borrados);
    /// Campos del conjunto que son columnas de `tabla`.
    static QVector<Campo*> campos_de(const ConjuntoDatos& conjunto, const QString& tabla);
    /// De ellos, los que se releen tras grabar (poPropogateChanges).
    QVector<Campo*> campos_devueltos(const QVector<Campo*>& campos) const;
    void inserte(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
    void modifique(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
    void borre(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
};
