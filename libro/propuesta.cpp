#include "libro/propuesta.h"

#include "libro/borrado.h"

namespace {

constexpr const char* kSuComprobante =
    "select enco_consec from comprobante_encabezado where enco_tiporef = ? and enco_idref = ?";

qint64 comprobante_en(Transaccion& t, const DocumentoOrigen& documento) {
    Cursor c(t.conexion().prepare(QLatin1String(kSuComprobante), t), t,
             {documento.tipo, documento.id});
    return c.siguiente() ? c.valor(0).entero() : 0;
}

/// Con el procedimiento de la base, que mira los bloqueos de cada libro. Falso si no había.
bool borre_anterior(Transaccion& t, const DocumentoOrigen& documento, const QString& usuario) {
    const qint64 anterior = comprobante_en(t, documento);
    if (anterior != 0)
        t.conexion()
            .prepare("execute procedure borre_comprobante(?, ?)", t)
            ->ejecute(t, {anterior, usuario});
    return anterior != 0;
}

void convierta(Transaccion& t, int cntb_id, Libro corrida) {
    const QString sql = QStringLiteral("execute procedure contabiliza_pendiente%1(?)")
                            .arg(QLatin1String(datos(corrida).sufijo));
    t.conexion().prepare(sql, t)->ejecute(t, {cntb_id});
}

/// Bloquea el documento y la propuesta hasta que `t` termine.
void tome(Transaccion& t, int cntb_id, qint64 visto) {
    try {
        t.conexion()
            .prepare("execute procedure tome_propuesta(?, ?)", t)
            ->ejecute(t, {cntb_id, visto});
    } catch (const ErrorBase& e) {
        if (e.clase() == ClaseFalla::Rechazo)
            throw ErrorOtroUsuario(e.para_usuario());
        throw;
    }
}

/// Débitos menos créditos de cada libro, cero los dos.
bool cuadra(Conexion& conexion, int cntb_id) {
    return conexion
        .consulte("select first 1 1 from contabilizacion_det where cntb_id = ?"
                  " group by iif(cnde_item < ?, 0, 1)"
                  " having sum(coalesce(cnde_debitos, 0)) <> sum(coalesce(cnde_creditos, 0))",
                  {cntb_id, kPrimerItemNiif})
        .nulo();
}

} // namespace

qint64 comprobante_del_documento(Conexion& conexion, const DocumentoOrigen& documento) {
    return conexion.consulte(QLatin1String(kSuComprobante), {documento.tipo, documento.id})
        .entero();
}

qint64 ultimo_comprobante(Conexion& conexion, const DocumentoOrigen& documento) {
    return conexion
        .consulte("select max(enco_consec) from comprobante_encabezado where enco_tiporef = ?"
                  " and enco_idref = ?",
                  {documento.tipo, documento.id})
        .entero();
}

void exija_propuesta_vigente(Conexion& conexion, int cntb_id, qint64 visto) {
    conexion.en_transaccion(ModoTransaccion::Escritura,
                            [&](Transaccion& t) { tome(t, cntb_id, visto); });
}

void borre_comprobante_del_documento(Conexion& conexion, const DocumentoOrigen& documento,
                                     int cntb_id, qint64 visto, const QString& usuario) {
    conexion.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        const auto orden = [&](const char* sql) {
            conexion.prepare(QLatin1String(sql), t)->ejecute(t, {});
        };
        opere_como(t, usuario);
        tome(t, cntb_id, visto);
        if (!borre_anterior(t, documento, usuario))
            return;
        // La conversión es de quien llama y va después: si no va a entrar, no se borra nada. Las
        // dos corridas hacen el mismo comprobante.
        orden("savepoint ensayo");
        convierta(t, cntb_id, Libro::Decreto2649);
        orden("rollback to savepoint ensayo");
    });
}

void convierta_propuesta(Conexion& conexion, int cntb_id, Libro corrida, const QString& usuario) {
    conexion.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        opere_como(t, usuario);
        convierta(t, cntb_id, corrida);
    });
}

QString comprobante_corregido(Conexion& conexion, int cntb_id) {
    return conexion
        .consulte("select comprobante_corregido(" + QString::number(cntb_id) +
                  ") from rdb$database")
        .texto();
}

bool asiente_sin_revisar(Conexion& conexion, const DocumentoOrigen& documento, int cntb_id,
                         Libro corrida, bool permite_descuadre, const QString& usuario) {
    if (!permite_descuadre && !cuadra(conexion, cntb_id))
        return false;
    const qint64 visto = ultimo_comprobante(conexion, documento);
    conexion.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
        opere_como(t, usuario);
        tome(t, cntb_id, visto);
        borre_anterior(t, documento, usuario);
        convierta(t, cntb_id, corrida);
    });
    return true;
}
