#include "libro/copias.h"

#include <QDate>

namespace {

constexpr int kLargoConcepto = 60, kLargoReferencia = 8;

QDate como_dia(const QString& fecha) {
    return QDate::fromString(fecha, QStringLiteral("yyyyMMdd"));
}

/// El vencimiento que guarda el mismo plazo desde la fecha nueva; sin plazo conocido, esa fecha.
QString con_el_mismo_plazo(const QString& vence, const QString& antes, const QString& ahora) {
    if (vence.isEmpty())
        return {};
    const QDate fin = como_dia(vence), inicio = como_dia(antes), nueva = como_dia(ahora);
    if (!fin.isValid() || !inicio.isValid() || !nueva.isValid() || fin < inicio)
        return ahora;
    return nueva.addDays(inicio.daysTo(fin)).toString(QStringLiteral("yyyyMMdd"));
}

void reverse(LineaComprobante& l) {
    std::swap(l.debito, l.credito);
    l.base = -l.base; // su signo dice el lado
    if (l.documento_aplica.isEmpty() && !l.documento.isEmpty()) {
        l.documento_aplica = std::exchange(l.documento, {});
        l.tipo_aplica = std::exchange(l.tipo_abre, 0);
    }
}

} // namespace

QString nombre_de_comprobante(const Comprobante& c) {
    return QStringLiteral("%1 %2 %3").arg(c.tipo, c.prefijo, c.numero);
}

Comprobante copie_comprobante(const Comprobante& original, Copia clase, const QString& fecha,
                              const QString& usuario) {
    const bool reverso = clase == Copia::Reverso;
    Comprobante c = original;
    c.id = 0;
    c.numero.clear();
    c.fecha = fecha;
    c.tipo_origen = c.id_origen = 0;
    c.usuario = usuario;
    c.referencia = original.numero.right(kLargoReferencia);
    const QString nombre = nombre_de_comprobante(original);
    if (reverso)
        c.concepto = QStringLiteral("Reverso de %1. %2")
                         .arg(nombre, original.concepto)
                         .trimmed()
                         .left(kLargoConcepto);
    const QString nota = QStringLiteral("%1 de %2 del %3.")
                             .arg(reverso ? "Reverso" : "Duplicado", nombre,
                                  QString(original.fecha).insert(6, '/').insert(4, '/'));
    c.observaciones = original.observaciones.isEmpty() ? nota : nota + '\n' + c.observaciones;
    // Las líneas NIIF son las del original, también las que se corrigieron; la base reconoce las
    // que siguen siendo réplica. Sin ellas no nacen otras.
    if (c.lineas_niif.isEmpty())
        c.replica = QStringLiteral("N");
    for (Libro libro : {Libro::Decreto2649, Libro::Niif})
        for (LineaComprobante& l : c.lineas(libro)) {
            l.item_replica = -1;
            if (reverso) {
                reverse(l);
                continue;
            }
            if (!l.documento.isEmpty())
                l.documento.clear(); // el número que tenía es de otro documento
            l.vence = con_el_mismo_plazo(l.vence, original.fecha, fecha);
        }
    return c;
}

ResultadoGrabacion grabe_copia(Conexion& conexion, qint64 original, Copia clase,
                               const QString& fecha, const QString& usuario,
                               const AjustesLibro& ajustes) {
    const auto leido = lea_comprobante(conexion, original);
    if (!leido) {
        ResultadoGrabacion r;
        r.clase = ResultadoGrabacion::Fallo;
        r.falla = QStringLiteral("No se encontró el comprobante solicitado.");
        return r;
    }
    return grabe_comprobante(conexion, copie_comprobante(*leido, clase, fecha, usuario), ajustes);
}
