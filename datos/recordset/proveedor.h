#pragma once
// Proveedor: lee de una sentencia hacia un conjunto de datos y devuelve los cambios como SQL.
//
// Una fila se busca, para cambiarla o borrarla, por todo lo que de ella se leyó (también los
// memos): si otro usuario la cambió entretanto, el segundo se entera y no pisa lo del primero.
//
// Si se pierde la respuesta de una grabación, nadie sabe si quedó: el proveedor recuerda lo que
// envió y lo busca en la base, enseguida si puede y si no en la grabación siguiente. Lo que quedó
// se da por grabado, aunque el usuario haya seguido cambiando filas; lo que no, se envía de nuevo.
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
    void acepte(Grabacion& g, ConjuntoDatos& conjunto);
    void en_punto(Grabacion& g, const std::function<void()>& cuerpo);
    void resuelva_conjunto(Grabacion& g, ConjuntoDatos& conjunto);
    void resuelva_fila(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
    void resuelva_detalles(Grabacion& g, ConjuntoDatos& maestra, Fila& fila, bool solo_borrados);
    void lleve_llave(ConjuntoDatos& maestra, Fila& fila, ConjuntoDatos& detalle, Fila& linea);
    /// Da paso a una fila y a su clase de cambio: avisa y devuelve la tabla donde se graba.
    QString comience(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila, ClaseCambio clase);
    /// Los campos que se releen tras grabar (poPropogateChanges).
    QVector<Campo*> campos_devueltos(const QVector<Campo*>& campos) const;
    void inserte(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
    void inserte_una_vez(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila, const QString& tabla);
    void tome_siguiente(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila, const QString& tabla);
    void modifique(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
    void relea(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila, const QString& tabla);
    void borre(Grabacion& g, ConjuntoDatos& conjunto, Fila& fila);
};
