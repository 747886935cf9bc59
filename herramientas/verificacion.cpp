#include "herramientas/verificacion.h"

#include "datos/firebird/concuerde.h"

#include <QHash>

namespace {

constexpr int kMuestra = 20; // hallazgos que se nombran de cada causa; los demás se cuentan

/// Nombre del libro y sufijo de sus tablas y procedimientos.
const std::pair<QString, QString> kLibros[] = {{"2649", ""}, {"NIIF", "_NIIF"}};

/// Junta los hallazgos y, de cada causa, nombra los primeros.
class Hallazgos {
public:
    void agregue(const QString& causa, const QString& hallazgo) {
        if (++cuantos_[causa] <= kMuestra)
            lista_ << hallazgo;
        else if (cuantos_[causa] == kMuestra + 1)
            largas_ << causa;
    }
    QStringList lista() const {
        QStringList todos = lista_;
        for (const QString& causa : largas_)
            todos << QStringLiteral("%1: y %2 más").arg(causa).arg(cuantos_[causa] - kMuestra);
        return todos;
    }

private:
    QStringList lista_, largas_;
    QHash<QString, int> cuantos_;
};

/// "COLUMNA valor, COLUMNA valor" de las columnas que traen algo.
QString fila_con_nombres(const Cursor& filas) {
    QStringList partes;
    for (int i = 0; i < filas.columnas().size(); ++i)
        if (!filas.valor(i).texto().isEmpty())
            partes << filas.columnas()[i].nombre + ' ' + filas.valor(i).texto();
    return partes.join(QStringLiteral(", "));
}

bool sin_plan_niif(Conexion& c, Transaccion& foto) {
    Cursor plan(c.prepare("select first 1 cuen_cod from cuentas_niif", foto), foto, {});
    return !plan.siguiente();
}

void revise_libros(Conexion& c, Transaccion& foto, Hallazgos& hallazgos, Hallazgos& permitidos) {
    // Sin el plan NIIF toda equivalente sobra, y lo que falta es una sola cosa.
    const bool sin_plan = sin_plan_niif(c, foto);
    int sin_cuenta = 0;
    Cursor filas(c.prepare(QStringLiteral("select comprobante, libro, causa, detalle"
                                          " from verifique_libros union all"
                                          " select '', libro, causa, detalle"
                                          " from verifique_cuentas"),
                           foto),
                 foto, {});
    while (filas.siguiente()) {
        const QString comprobante = filas.valor(0).texto(), libro = filas.valor(1).texto(),
                      causa = filas.valor(2).texto(), detalle = filas.valor(3).texto();
        if (sin_plan && libro == QLatin1String("NIIF") && comprobante.isEmpty() &&
            causa == QLatin1String("se nombra una cuenta que no existe")) {
            ++sin_cuenta;
            continue;
        }
        QStringList donde;
        if (!comprobante.isEmpty())
            donde << QStringLiteral("comprobante ") + comprobante;
        if (!libro.isEmpty())
            donde << QStringLiteral("libro ") + libro;
        Hallazgos& destino = causa == QStringLiteral("descuadrado, como la compañía lo permite")
                                 ? permitidos
                                 : hallazgos;
        destino.agregue(causa + libro,
                        QStringLiteral("%1: %2").arg(donde.join(QStringLiteral(", ")), causa) +
                            (detalle.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(detalle)));
    }
    if (sin_cuenta > 0)
        hallazgos.agregue(
            QStringLiteral("sin plan"),
            concuerde(sin_cuenta,
                      "libro NIIF: no tiene plan de cuentas y se nombra una cuenta suya; copie o "
                      "importe el plan NIIF",
                      "libro NIIF: no tiene plan de cuentas y se nombran cuentas suyas %1 veces; "
                      "copie o importe el plan NIIF"));
}

void revise_saldos(Conexion& c, Transaccion& foto, const QString& libro, Hallazgos& hallazgos) {
    const QString titulo = QStringLiteral("saldo distinto de los renglones en el libro ") + libro;
    Cursor filas(c.prepare("select * from verifique_saldos(" + QuotedStr(libro) + ')', foto), foto,
                 {});
    while (filas.siguiente())
        if (filas.valor(0).texto() == QLatin1String("DESBORDE"))
            hallazgos.agregue(QStringLiteral("desborde") + libro,
                              QStringLiteral("libro %1, cuenta %2: sus importes no caben en una "
                                             "suma; corrija los renglones desmedidos y recalcule")
                                  .arg(libro, filas.valor(1).texto()));
        else
            hallazgos.agregue(titulo, titulo + QStringLiteral(": ") + fila_con_nombres(filas));
}

/// Si otro compactó mientras corría, la foto ya no sirve y se toma otra.
void recalcule_libro(Conexion& c, const QString& sufijo) {
    c.en_transaccion(Transaccion::Modo::EscrituraInstantanea, [&](Transaccion& t) {
        c.prepare(QStringLiteral("execute procedure chequeo_saldos_conta%1('00000001', '0',"
                                 " '99999999999999999999')")
                      .arg(sufijo),
                  t)
            ->ejecute_con_salida(t, {});
    });
}

qint64 diferencias(Conexion& c) {
    qint64 total = 0;
    for (const auto& [libro, sufijo] : kLibros)
        total += c.consulte(QStringLiteral("select count(*) from saldos_diferencia%1").arg(sufijo))
                     .entero();
    return total;
}

} // namespace

QStringList verifique_compania(Conexion& compania, QStringList* permitidos) {
    Hallazgos hallazgos, descuadrados;
    // Una sola foto: lo que otros graben entretanto no aparece a medias.
    Transaccion foto(compania, Transaccion::Modo::Instantanea);
    revise_libros(compania, foto, hallazgos, descuadrados);
    for (const auto& [libro, sufijo] : kLibros)
        revise_saldos(compania, foto, libro, hallazgos);
    if (permitidos)
        *permitidos = descuadrados.lista();
    return hallazgos.lista();
}

QStringList recalcule_saldos(Conexion& compania) {
    Hallazgos hallazgos;
    for (const auto& [libro, sufijo] : kLibros) {
        recalcule_libro(compania, sufijo);
        const QString titulo = QStringLiteral("saldo corregido en el libro ") + libro;
        const auto filas = compania.abra(
            QStringLiteral("select tabla, cuenta, ano, mes, nit, proyecto, centro, articulo,"
                           " debito, credito, debito_lineas, credito_lineas from saldos_corregidos"
                           " where saco_libro = ? order by 1, 2, 3, 4, 5, 6, 7, 8"),
            {Valor(libro)});
        while (filas->siguiente())
            hallazgos.agregue(titulo, titulo + QStringLiteral(": ") + fila_con_nombres(*filas));
    }
    return hallazgos.lista();
}

qint64 compacte_saldos(Conexion& compania) {
    // Cada llamada hace un trozo acotado; se repite mientras avance.
    const qint64 inicio = diferencias(compania);
    for (qint64 antes = inicio; antes > 0;) {
        compania.ejecute(QStringLiteral("execute procedure compacte_saldos"));
        const qint64 quedan = diferencias(compania);
        if (quedan >= antes)
            return inicio - quedan;
        antes = quedan;
    }
    return inicio;
}

void actualice_estadisticas(Conexion& compania) {
    compania.ejecute(QStringLiteral("execute procedure actualice_estadisticas"));
}
