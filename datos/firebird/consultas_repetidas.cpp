// Memoria de corta vida de las consultas que un mismo trabajo repite.
#include "datos/firebird/interno.h"

namespace {

constexpr int kFilas = 64; ///< una respuesta más larga no se guarda

/// El texto y los parámetros, sin confundir el 1 con el "1".
QString clave_de(const QString& sql, const QVector<Valor>& valores) {
    QString clave = sql;
    for (const Valor& v : valores)
        clave += QChar(0) + QString::number(v.dato().index()) + v.texto();
    return clave;
}

bool con_blobs(const QVector<Columna>& columnas) {
    return std::any_of(columnas.begin(), columnas.end(), [](const Columna& c) {
        return c.tipo == TipoColumna::Memo || c.tipo == TipoColumna::Binario;
    });
}

} // namespace

ConsultasRepetidas::ConsultasRepetidas(Conexion& conexion) : conexion_(conexion) {
    ++conexion.interno().recordando;
}

ConsultasRepetidas::~ConsultasRepetidas() {
    if (--conexion_.interno().recordando == 0)
        conexion_.interno().contestadas.clear();
}

std::unique_ptr<Cursor> ConsultasRepetidas::abra(Conexion& conexion, const QString& sql,
                                                 const QVector<Valor>& valores) {
    auto& contestadas = conexion.interno().contestadas;
    const QString clave = clave_de(sql, valores);
    if (const auto sabida = contestadas.value(clave))
        return std::unique_ptr<Cursor>(new Cursor(conexion, sabida));
    Transaccion& t = conexion.lectura();
    auto cursor = std::make_unique<Cursor>(conexion.prepare(sql, t), t, valores);
    if (con_blobs(cursor->columnas()))
        return cursor;
    auto respuesta = std::make_shared<Contestada>();
    respuesta->columnas = cursor->columnas();
    respuesta->largo = int(cursor->largo_mensaje());
    while (respuesta->filas.size() < kFilas && cursor->siguiente())
        respuesta->filas.append(cursor->mensaje_);
    if (cursor->agotado()) {
        contestadas.insert(clave, respuesta);
        return std::unique_ptr<Cursor>(new Cursor(conexion, respuesta));
    }
    cursor->contestada_ = respuesta; // lo leído va primero; el resto sigue en la base
    return cursor;
}
