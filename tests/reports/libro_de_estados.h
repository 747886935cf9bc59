#pragma once
// Un libro cuadrado al azar de tres años, con saldos iniciales, ajustes, cierre, diez niveles de
// cuentas y cifras distintas en los dos libros; y las mismas sumas hechas por fuera, línea a línea.
#include "ledger/libro_al_azar.h"

inline const QStringList kHojas{"110505",   "111005010101010101",
                                "11100502", "130505",
                                "143505",   "159215",
                                "220505",   "240805",
                                "310505",   "360505",
                                "413505",   "510506",
                                "519530",   "613505",
                                "613510"};
constexpr int kPrimerAnoLibro = 2017, kAnosLibro = 3;

/// Cinco niveles más que los oficiales, y cuentas que los usan.
inline void agregue_niveles(Conexion& base) {
    base.ejecute("alter trigger ESTRUCTURA_BIUD inactive");
    for (int nivel = 6; nivel <= 10; ++nivel)
        base.ejecute(QString("insert into estructura (estr_nivel, estr_digitos) values (%1, %2)")
                         .arg(nivel)
                         .arg(2 * nivel - 2));
    base.ejecute("alter trigger ESTRUCTURA_BIUD active");
    for (const char* tabla : {"cuentas", "cuentas_niif"})
        for (const QString& hoja : kHojas)
            for (int digitos = 4; digitos <= hoja.size(); digitos += 2)
                base.ejecute(QString("insert into %1 (cuen_cod, cuen_nom) select '%2', 'Cuenta %2' "
                                     "from rdb$database where not exists (select 1 from %1 where "
                                     "cuen_cod = '%2')")
                                 .arg(QLatin1String(tabla), hoja.left(digitos)));
}

inline QVector<Linea> lineas_cuadradas(QRandomGenerator& azar) {
    QVector<Linea> lineas;
    Moneda diferencia;
    const int n = 2 + azar.bounded(5);
    for (int item = 1; item < n; ++item) {
        const Moneda valor = Moneda::de_unidades(100 * qint64(1 + azar.bounded(90000000)));
        const bool debe = azar.bounded(2);
        const QString centro = uno_de(azar, kCentros);
        lineas << Linea{item,
                        uno_de(azar, kHojas),
                        debe ? valor : Moneda(),
                        debe ? Moneda() : valor,
                        uno_de(azar, kNits),
                        centro.section('|', 0, 0),
                        centro.section('|', 1)};
        diferencia += debe ? valor : -valor;
    }
    lineas << Linea{n, uno_de(azar, kHojas), diferencia.negativa() ? -diferencia : Moneda(),
                    diferencia.negativa() ? Moneda() : diferencia, uno_de(azar, kNits)};
    return lineas;
}

/// Cancela las clases 4 a 7 contra la utilidad, en el mes 14 del año.
inline void cierre_libro(Conexion& base, int ano, int id) {
    ComprobanteEnTablas c{id, QString("%1").arg(id, 6, 10, QChar('0')),
                          QString::number(ano) + "1431"};
    for (int libro : {0, 1}) {
        QMap<std::tuple<QString, QString, QString, QString>, Moneda> netos;
        for (const Renglon& r : renglones(base, libro, true))
            if (r.cuenta >= "4" && r.cuenta < "8" && r.fecha.left(4) <= QString::number(ano))
                netos[{r.cuenta, r.nit, r.proyecto, r.centro}] += r.neto();
        Moneda resultado;
        auto& lineas = libro ? c.lineas_niif : c.lineas;
        const auto linea = [&](const QString& cuenta, Moneda neto, const QString& nit,
                               const QString& proyecto, const QString& centro) {
            if (!neto.es_cero())
                lineas << Linea{int(lineas.size()) + 1,
                                cuenta,
                                neto.negativa() ? -neto : Moneda(),
                                neto.negativa() ? Moneda() : neto,
                                nit,
                                proyecto,
                                centro};
        };
        for (const auto& [llave, neto] : netos.asKeyValueRange()) {
            linea(std::get<0>(llave), neto, std::get<1>(llave), std::get<2>(llave),
                  std::get<3>(llave));
            resultado += neto;
        }
        linea("360505", -resultado, {}, {}, {});
    }
    grabe(base, c);
}

/// El primer año queda cerrado; los otros, no.
inline void arme_libro_de_estados(Conexion& base, quint32 semilla) {
    QRandomGenerator azar = azar_de_prueba(semilla);
    agregue_niveles(base);
    for (int libro : {0, 1}) {
        int item = 0;
        for (int i = 0; i < 8; ++i)
            for (const Linea& l : lineas_cuadradas(azar))
                base.ejecute(
                    QString("insert into saldos_iniciales%1 (sain_item, cuen_cod, terc_nit, "
                            "proy_cod, cent_cod, sain_debito, sain_credito) values (%2, '%3', "
                            "nullif('%4', ''), nullif('%5', ''), nullif('%6', ''), %7, %8)")
                        .arg(sufijo(libro))
                        .arg(++item)
                        .arg(l.cuenta, l.nit, l.proyecto, l.centro, l.debito.texto(),
                             l.credito.texto()));
    }
    constexpr int kComprobantes = 180;
    for (int id = 1; id <= kComprobantes; ++id) {
        const QString fecha = QString("%1%2%3")
                                  .arg(kPrimerAnoLibro + azar.bounded(kAnosLibro))
                                  .arg(1 + azar.bounded(13), 2, 10, QChar('0'))
                                  .arg(1 + azar.bounded(28), 2, 10, QChar('0'));
        ComprobanteEnTablas c{id, QString("%1").arg(id, 6, 10, QChar('0')), fecha};
        c.lineas = lineas_cuadradas(azar);
        c.lineas_niif = lineas_cuadradas(azar);
        grabe(base, c);
        if (id == kComprobantes / 2) // la otra mitad queda en diferencias por compactar
            base.ejecute("execute procedure compacte_saldos");
    }
    cierre_libro(base, kPrimerAnoLibro, kComprobantes + 1);
}

struct Cifras {
    Moneda inicial, debitos, creditos;
    Moneda final() const { return inicial + debitos - creditos; }
    bool movida() const { return !inicial.es_cero() || !debitos.es_cero() || !creditos.es_cero(); }
    void sume(const Cifras& c) {
        inicial += c.inicial;
        debitos += c.debitos;
        creditos += c.creditos;
    }
    QString texto() const {
        return QStringList{inicial.texto(), debitos.texto(), creditos.texto(), final().texto()}
            .join('|');
    }
};

using Filtro = std::function<bool(const Renglon&)>;
/// Lo que separa las filas de detalle de una cuenta: vacío si el renglón no lo tiene.
using Separa = std::function<QString(const Renglon&)>;

/// Un mes de un año como clave que se compara: los saldos iniciales van antes de todos.
inline QString mes_de(int ano, int mes) {
    return QString("%1%2").arg(ano).arg(mes, 2, 10, QChar('0'));
}

/// Saldos de cada cuenta con su detalle, de los renglones que pasan el filtro.
inline QMap<std::pair<QString, QString>, Cifras> saldos(const QVector<Renglon>& todos,
                                                        const Filtro& filtro, int ano, int desde,
                                                        int hasta, const Separa& separa = {}) {
    QMap<std::pair<QString, QString>, Cifras> por_hoja;
    for (const Renglon& r : todos) {
        const QString mes = r.fecha.left(6);
        if (mes > mes_de(ano, hasta) || !filtro(r))
            continue;
        Cifras& c = por_hoja[{r.cuenta, separa ? separa(r) : QString()}];
        if (mes < mes_de(ano, desde)) {
            c.inicial += r.neto();
        } else {
            c.debitos += r.debito;
            c.creditos += r.credito;
        }
    }
    return por_hoja;
}

/// Lo que no lleva detalle, en la llave de su fila.
inline QString o_sin(const QString& detalle) {
    return detalle.isEmpty() ? QStringLiteral("-") : detalle;
}

/// Las cuentas que tienen algún detalle.
inline QSet<QString> detalladas(const QMap<std::pair<QString, QString>, Cifras>& hojas) {
    QSet<QString> cuentas;
    for (const auto& [llave, c] : hojas.asKeyValueRange())
        if (!llave.second.isEmpty())
            cuentas << llave.first;
    return cuentas;
}

/// Quita las filas de lo que no lleva detalle donde la cuenta no tiene otras ni está en `dejar`:
/// serían ella misma.
template <class Fila>
void quite_solas(QMap<QString, Fila>& filas, const QSet<QString>& dejar = {}) {
    for (const QString& llave : filas.keys()) {
        if (!llave.endsWith("/-") || dejar.contains(llave.chopped(2)))
            continue;
        const auto otra = filas.upperBound(llave); // los códigos vienen después del guion
        if (otra == filas.end() || !otra.key().startsWith(llave.chopped(1)))
            filas.remove(llave);
    }
}

/// Las mismas, repartidas en los códigos de los que cuelga cada cuenta, y sus filas de detalle.
/// Solo lo que se movió.
inline QMap<QString, Cifras> por_codigo(const QMap<std::pair<QString, QString>, Cifras>& hojas,
                                        bool con_detalle) {
    QMap<QString, Cifras> filas;
    for (const auto& [llave, c] : hojas.asKeyValueRange()) {
        if (!c.movida())
            continue;
        for (int digitos : {1, 2, 4, 6, 8, 10, 12, 14, 16, 18})
            if (digitos <= llave.first.size())
                filas[llave.first.left(digitos)].sume(c);
        if (con_detalle)
            filas[llave.first + '/' + o_sin(llave.second)].sume(c);
    }
    return filas;
}

inline QStringList como_texto(const QMap<QString, Cifras>& filas) {
    QStringList lista;
    for (const auto& [codigo, c] : filas.asKeyValueRange())
        lista << codigo + '|' + c.texto();
    lista.sort();
    return lista;
}
