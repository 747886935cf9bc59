#pragma once
// Lo que el motor dice de sí mismo. No cambia dentro de una transacción: cada pregunta va en la
// suya.
#include "datos/firebird/conexion.h"

#include <future>

inline QString del_motor(Conexion& c, const char* sql) {
    Transaccion aparte(c, Transaccion::Modo::Lectura);
    Cursor cursor(c.prepare(sql, aparte), aparte, {});
    return cursor.siguiente() ? cursor.valor(0).texto() : QString();
}

/// Las fotos de la base que alguien tiene abiertas, por su número; vacío, ninguna. Detienen la
/// limpieza de lo que otros cambian.
inline QString fotos_abiertas(Conexion& c) {
    return del_motor(c, "select cast(list(mon$transaction_id) as varchar(200)) from "
                        "mon$transactions where mon$isolation_mode = 1");
}

/// Los registros que esta conexión ha leído.
inline qint64 registros_leidos(Conexion& c) {
    return del_motor(c, "select r.mon$record_seq_reads + r.mon$record_idx_reads from "
                        "mon$attachments a join mon$record_stats r on r.mon$stat_id = "
                        "a.mon$stat_id where a.mon$attachment_id = current_connection")
        .toLongLong();
}

/// Hasta que otra conexión esté a mitad de una orden, o `otra` termine sin haber esperado.
template <class T> void hasta_que_espere(Conexion& c, const std::future<T>& otra) {
    while (del_motor(c, "select count(*) from mon$statements where mon$state = 1 and "
                        "mon$attachment_id <> current_connection") == "0" &&
           otra.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready)
        continue;
}
