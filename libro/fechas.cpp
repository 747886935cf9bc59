#include "libro/fechas.h"

namespace {

Rechazo de_fecha(Motivo motivo, const QString& texto) {
    Rechazo r;
    r.motivo = motivo;
    r.texto = texto;
    r.campo = QStringLiteral("ENCO_FECHA");
    return r;
}

/// "aaaa/mm/dd", como el sistema muestra una fecha.
QString con_barras(const QString& fecha) {
    return fecha.left(4) + '/' + fecha.mid(4, 2) + '/' + fecha.mid(6);
}

} // namespace

int dias_del_mes(int ano, int mes) {
    switch (mes) {
    case 2:
        return ano % 4 == 0 ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return 31;
    }
}

FechaCompuesta componga_fecha(int ano, int mes, int dia) {
    const int tope = dias_del_mes(ano, mes);
    const auto cifras = [](int n, int ancho) {
        return QStringLiteral("%1").arg(n, ancho, 10, QLatin1Char('0'));
    };
    return {cifras(ano, 4) + cifras(mes, 2) + cifras(qMin(dia, tope), 2), dia > tope};
}

std::optional<Rechazo> revise_fecha(const QString& fecha) {
    bool cifras = fecha.size() == 8;
    for (const QChar c : fecha)
        cifras = cifras && c >= '0' && c <= '9';
    if (!cifras)
        return de_fecha(Motivo::Fecha,
                        QStringLiteral("La fecha \"%1\" debe tener la forma aaaammdd.").arg(fecha));
    const int ano = fecha.left(4).toInt(), mes = fecha.mid(4, 2).toInt(),
              dia = fecha.mid(6).toInt();
    if (ano < 1 || mes < 1 || mes > 14 || dia < 1 || dia > dias_del_mes(ano, mes))
        return de_fecha(Motivo::Fecha,
                        QStringLiteral("La fecha %1 no existe.").arg(con_barras(fecha)));
    return {};
}

std::optional<Rechazo> revise_bloqueo_administrativo(const QString& fecha,
                                                     const AjustesLibro& ajustes) {
    if (ajustes.bloqueo_administrativo.isEmpty() || fecha > ajustes.bloqueo_administrativo)
        return {};
    return de_fecha(Motivo::Bloqueo, "Los módulos estan bloqueados a: " +
                                         con_barras(ajustes.bloqueo_administrativo));
}

std::optional<Rechazo> revise_bloqueo(const QString& fecha, Libro libro,
                                      const AjustesLibro& ajustes) {
    const QString& bloqueo = ajustes.bloqueo(libro);
    if (bloqueo.isEmpty() || fecha > bloqueo)
        return {};
    Rechazo r =
        de_fecha(Motivo::Bloqueo, "La contabilidad esta bloqueada a: " + con_barras(bloqueo) +
                                      (es_niif(libro) ? " (libro NIIF)" : ""));
    r.libro = libro;
    return r;
}
