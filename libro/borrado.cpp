#include "libro/borrado.h"

namespace {

struct Orden {
    QString sql;
    QVector<Valor> valores;
};

Orden orden_de(OrdenBorrado clase, qint64 id, const QString& usuario) {
    switch (clase) {
    case OrdenBorrado::Lineas2649:
        return {QStringLiteral("delete from comprobante_detalle where enco_consec = ?"), {id}};
    case OrdenBorrado::LineasNiif:
        return {QStringLiteral("delete from comprobante_detalle_niif where enco_consec = ?"), {id}};
    case OrdenBorrado::Firma:
    case OrdenBorrado::FirmaCero:
        return {QStringLiteral("update comprobante_encabezado set enco_usuario = ? where "
                               "enco_consec = ?"),
                {usuario, clase == OrdenBorrado::FirmaCero ? qint64(0) : id}};
    default:
        return {QStringLiteral("delete from comprobante_encabezado where enco_consec = ?"), {id}};
    }
}

bool existe(Conexion& conexion, qint64 id) {
    return !conexion
                .consulte("select enco_consec from comprobante_encabezado where enco_consec = ?",
                          {id})
                .nulo();
}

/// Con sus líneas por item: un conjunto de datos las trae como las tenga la base.
Comprobante por_item(Comprobante c) {
    for (auto* lineas : {&c.lineas_2649, &c.lineas_niif})
        std::stable_sort(lineas->begin(), lineas->end(),
                         [](const auto& a, const auto& b) { return a.item < b.item; });
    return c;
}

} // namespace

std::optional<Rechazo> revise_borrado(Conexion& conexion, const PedidoBorrado& pedido) {
    Rechazo r;
    if (pedido.tipo_origen == 0) {
        if (pedido.cerrado.isEmpty())
            return {};
        r.motivo = Motivo::Bloqueo;
        r.texto = QStringLiteral("%1. No se puede borrar el comprobante %2 %3 %4")
                      .arg(pedido.cerrado, pedido.tipo, pedido.prefijo, pedido.numero);
        r.campo = QStringLiteral("ENCO_FECHA");
        return r;
    }
    const QString opcion =
        conexion
            .consulte("select tido_nomlargo from tipo_documento where tido_cod = " +
                      QString::number(pedido.tipo_origen))
            .texto();
    r.motivo = Motivo::DeOtroModulo;
    r.texto = "Debe utilizar la opcion " + opcion + " para borrar el comprobante";
    r.campo = QStringLiteral("ENCO_TIPOREF");
    return r;
}

std::optional<Rechazo> revise_cambio_ajeno(Conexion& conexion, const PedidoBorrado& pedido) {
    if (!pedido.visto)
        return {};
    const auto guardado = lea_comprobante(conexion, pedido.id);
    if (!guardado || *guardado == por_item(*pedido.visto))
        return {};
    Rechazo r;
    r.motivo = Motivo::CambioAjeno;
    r.texto = QStringLiteral("El usuario %1 cambió este comprobante después de que usted lo abrió.")
                  .arg(guardado->usuario);
    r.oferta = Oferta::Confirmar;
    r.pregunta = r.texto + " Desea borrarlo de todos modos?";
    return r;
}

QString pregunta_borrado(const ModoBorrado& modo, const PedidoBorrado& pedido) {
    return QString::fromUtf8(modo.aviso) + "Desea borrar definitivamente el comprobante " +
           pedido.tipo + ' ' + pedido.prefijo + ' ' + pedido.numero + '?';
}

void opere_como(Transaccion& t, const QString& usuario) {
    Cursor(t.conexion().prepare("select rdb$set_context('USER_TRANSACTION', 'USUARIO', cast(? as "
                                "varchar(10))) from rdb$database",
                                t),
           t, {usuario})
        .siguiente();
}

void borre_comprobante(Transaccion& t, const ModoBorrado& modo, qint64 id, const QString& usuario) {
    t.conexion().prepare("execute procedure prepare_borrado(?)", t)->ejecute(t, {id});
    for (const OrdenBorrado clase : modo.ordenes) {
        const Orden orden = orden_de(clase, id, usuario);
        t.conexion().prepare(orden.sql, t)->ejecute(t, orden.valores);
    }
}

void borre_comprobante(Conexion& conexion, const ModoBorrado& modo, const PedidoBorrado& pedido,
                       const QString& usuario) {
    try {
        Transaccion t(conexion, Transaccion::Modo::Escritura);
        // La auditoría nombra a quien borra, firme o no el encabezado.
        opere_como(t, usuario);
        borre_comprobante(t, modo, pedido.id, usuario);
        t.confirme();
    } catch (const ErrorBase& e) {
        // La confirmación pudo llegar aunque su respuesta no.
        if (!e.conexion_perdida() || existe(conexion, pedido.id))
            throw;
    }
}
