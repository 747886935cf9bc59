#include "datos/recordset/foto.h"

#include <QScopedValueRollback>

Foto::Foto(Conexion& conexion)
    : conexion_(conexion),
      transaccion_(std::make_shared<Transaccion>(conexion, Transaccion::Modo::Instantanea)) {}

void Foto::abra(ConjuntoDatos& conjunto, const QString& sql, Cuanto cuanto) {
    conjunto.Instantanea = true;
    const QScopedValueRollback<std::shared_ptr<Transaccion>> prestada(conjunto.foto, transaccion_);
    conjunto.Open(sql);
    if (cuanto == Entero)
        conjunto.FetchAll();
}

Valor Foto::consulte(const QString& sql, const QVector<Valor>& valores) {
    Cursor cursor(conexion_.prepare(sql, *transaccion_), *transaccion_, valores);
    return cursor.siguiente() ? cursor.valor(0) : Valor();
}
