#include "libro/revision.h"

#include "libro/memoria.h"
#include "libro/numeracion.h"

#include <QMap>
#include <QStringList>

namespace {

/// Revisa las celdas de un comprobante. Cada código se pregunta a la base una sola vez.
class RevisorCeldas {
public:
    RevisorCeldas(Conexion& conexion, const Comprobante& c) : conexion_(conexion), c_(c) {}

    void encabezado(Rechazos& lista) {
        if (conexion_
                .consulte("select tico_cod from tipo_comprobante where tico_cod = ?", {c_.tipo})
                .nulo()) {
            agregue(lista, Motivo::Tipo, "TICO_COD",
                    QStringLiteral("El tipo de comprobante %1 no existe.").arg(c_.tipo));
            return;
        }
        const auto prefijo = prefijo_contable(conexion_, c_.tipo, c_.prefijo);
        if (!prefijo || !prefijo->activo) {
            agregue(lista, Motivo::Prefijo, "PRCO_PREF", prefijo_que_falta());
            return;
        }
        if (c_.numero.isEmpty()) {
            // Tomará el que sigue en el contador, numere solo el prefijo o no.
            if (const auto r = revise_contador(c_.tipo, c_.prefijo, prefijo->siguiente))
                lista << *r;
            return;
        }
        numero(lista);
    }

    void tercero_del_encabezado(Rechazos& lista) {
        if (!c_.nit.isEmpty() && !tercero_activo(conexion_, c_.nit))
            agregue(lista, Motivo::Tercero, "TERC_NIT",
                    QStringLiteral("El tercero %1 del comprobante no existe.").arg(c_.nit));
    }

    void linea(Rechazos& lista, Libro libro, const LineaComprobante& l) {
        Rechazos propias;
        const auto junte = [&](const std::optional<Rechazo>& r) {
            if (r)
                propias << *r;
        };
        junte(cuenta(libro, l.cuenta));
        if (!l.nit.isEmpty())
            junte(recordado(terceros_, l.nit, [&] { return revise_tercero(conexion_, l.nit); }));
        // Un proyecto sin centro tampoco es un centro.
        if (!l.proyecto.isEmpty() || !l.centro.isEmpty())
            junte(recordado(centros_, l.proyecto + '/' + l.centro,
                            [&] { return revise_centro(conexion_, l.proyecto, l.centro); }));
        if (!l.categoria.isEmpty())
            junte(recordado(categorias_, datos(libro).nombre + l.categoria,
                            [&] { return revise_categoria(conexion_, libro, l.categoria); }));
        const auto& a = atributos(libro, l.cuenta);
        const QString clase = a ? a->clase : QString();
        junte(recordado(articulos_, clase + '/' + l.articulo,
                        [&] { return revise_articulo(conexion_, clase, l.articulo); }));
        if (a)
            for (const Rechazo& r : faltas_de_linea(l, *a))
                if (r.motivo != Motivo::FaltaCentro || (l.proyecto.isEmpty() && l.centro.isEmpty()))
                    propias << r;
        junte(revise_porcentaje(l.porcentaje));
        std::stable_sort(propias.begin(), propias.end(),
                         [](const Rechazo& a, const Rechazo& b) { return a.motivo < b.motivo; });
        for (Rechazo& r : propias)
            lista << r.en(libro, int(l.item));
    }

private:
    static void agregue(Rechazos& lista, Motivo motivo, const char* campo, const QString& texto) {
        Rechazo r;
        r.motivo = motivo;
        r.campo = QLatin1String(campo);
        r.texto = texto;
        lista << r;
    }

    QString prefijo_que_falta() {
        const qint64 activos = conexion_
                                   .consulte("select count(*) from prefijos_conta where tico_cod = "
                                             "? and prco_activo = 'S'",
                                             {c_.tipo})
                                   .entero();
        return activos == 0
                   ? QStringLiteral("Debe registrar antes los prefijos.")
                   : QStringLiteral("El prefijo %1 del tipo %2 no existe o no está activo.")
                         .arg(c_.prefijo, c_.tipo);
    }

    void numero(Rechazos& lista) {
        bool cifras = true;
        for (const QChar x : c_.numero)
            cifras = cifras && x >= '0' && x <= '9';
        if (!cifras || c_.numero.size() > kCifrasNumero) {
            agregue(lista, Motivo::Numero, "ENCO_NUMERO",
                    QStringLiteral("El número %1 no es de seis cifras.").arg(c_.numero));
            return;
        }
        const auto tomado = revise_numero(conexion_, c_.tipo, c_.prefijo, c_.numero);
        if (tomado && tomado->dato != QString::number(c_.id))
            lista << *tomado;
    }

    const std::optional<Rechazo>& cuenta(Libro libro, const QString& codigo) {
        return recordado(cuentas_, datos(libro).nombre + codigo, [&]() -> std::optional<Rechazo> {
            if (auto r = revise_cuenta(conexion_, libro, codigo))
                return r;
            std::optional<Rechazo> inactiva;
            nombre_de_cuenta(conexion_, libro, codigo, inactiva);
            return inactiva;
        });
    }
    const std::optional<AtributosCuenta>& atributos(Libro libro, const QString& codigo) {
        return recordado(atributos_, datos(libro).nombre + codigo,
                         [&] { return atributos_de_cuenta(conexion_, libro, codigo); });
    }

    Conexion& conexion_;
    const Comprobante& c_;
    QHash<QString, std::optional<Rechazo>> cuentas_, terceros_, centros_, categorias_, articulos_;
    QHash<QString, std::optional<AtributosCuenta>> atributos_;
};

/// El libro tiene líneas, o las tendrá por la réplica.
bool lleva_lineas(const Comprobante& c, Libro libro) {
    return !c.lineas(libro).isEmpty() ||
           (es_niif(libro) && c.replica == "S" && !c.lineas_2649.isEmpty());
}

void revise_fechas(Rechazos& lista, const Comprobante& c, const AjustesLibro& ajustes) {
    if (const auto r = revise_fecha(c.fecha)) {
        lista << *r;
        return;
    }
    if (const auto r = revise_bloqueo_administrativo(c.fecha, ajustes))
        lista << *r;
    const bool vacio = !lleva_lineas(c, Libro::Decreto2649) && !lleva_lineas(c, Libro::Niif);
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        // El encabezado solo cuenta como del 2649.
        if (!lleva_lineas(c, libro) && !(vacio && !es_niif(libro)))
            continue;
        if (const auto r = revise_bloqueo(c.fecha, libro, ajustes))
            lista << *r;
    }
}

/// "línea 3", "líneas 3, 4"; de las muchas, las primeras.
QString nombre_lineas(const QVector<int>& items) {
    constexpr int kNombradas = 8;
    QStringList textos;
    for (const int item : items.first(qMin(items.size(), kNombradas)))
        textos << QString::number(item);
    if (items.size() > kNombradas)
        textos << QStringLiteral("y %1 más").arg(items.size() - kNombradas);
    return (items.size() == 1 ? "línea " : "líneas ") + textos.join(", ");
}

/// Lo que a unas líneas les falta para su cuenta NIIF: un rechazo por cuenta y falta, y no por
/// línea.
class FaltasNiif {
public:
    explicit FaltasNiif(Conexion& conexion) : conexion_(conexion) {}

    void mire(const LineaComprobante& l, const QString& cuenta_niif) {
        const auto& a = recordado(atributos_, cuenta_niif, [&] {
            return atributos_de_cuenta(conexion_, Libro::Niif, cuenta_niif);
        });
        if (a)
            for (const Rechazo& r : faltas_de_linea(l, *a)) {
                Falta& f = faltas_[{cuenta_niif, int(r.motivo)}];
                f.rechazo = r;
                f.items << int(l.item);
            }
    }
    /// `texto` dice la falta a partir de "líneas 3, 4" y la cuenta.
    Rechazos rechazos(Libro libro, const std::function<QString(QString, QString)>& texto) const {
        Rechazos lista;
        for (auto i = faltas_.cbegin(); i != faltas_.cend(); ++i) {
            Rechazo r = i->rechazo;
            r.texto = texto(nombre_lineas(i->items), i.key().first) + r.texto;
            lista << r.en(libro, i->items.first());
        }
        return lista;
    }

private:
    struct Falta {
        Rechazo rechazo;
        QVector<int> items;
    };
    Conexion& conexion_;
    QMap<std::pair<QString, int>, Falta> faltas_;
    QHash<QString, std::optional<AtributosCuenta>> atributos_;
};

/// Las réplicas nacen en la base: pueden no traer lo que su cuenta NIIF exige.
void revise_nacidas(Rechazos& lista, Conexion& conexion, const Comprobante& c) {
    FaltasNiif faltas(conexion);
    for (const LineaComprobante& l : c.lineas_niif)
        if (l.es_replica())
            faltas.mire(l, l.cuenta);
    lista << faltas.rechazos(Libro::Niif, [](QString lineas, const QString& cuenta) {
        return lineas.replace(0, 1, lineas[0].toUpper()) + " del libro NIIF, cuenta " + cuenta +
               ": ";
    });
}

/// La cuenta NIIF que replica esa; vacía si ninguna puede.
QString cuenta_de_replica(Conexion& conexion, const QString& cuenta) {
    return conexion
        .consulte("select n.cuen_cod from cuentas c join cuentas_niif n on n.cuen_cod = "
                  "c.cuen_eqniif and n.cuen_activa = 'S' where c.cuen_cod = ? and (select error "
                  "from valide_cuenta_niif_c(c.cuen_eqniif)) = 0",
                  {cuenta})
        .texto();
}

/// Las que aún no nacen: sin pasar por la página NIIF nadie las vería incompletas.
void revise_por_nacer(Rechazos& lista, Conexion& conexion, const Comprobante& c) {
    if (c.replica != "S" || !c.lineas_niif.isEmpty())
        return;
    FaltasNiif faltas(conexion);
    QHash<QString, QString> destinos;
    for (const LineaComprobante& l : c.lineas_2649) {
        const QString& destino =
            recordado(destinos, l.cuenta, [&] { return cuenta_de_replica(conexion, l.cuenta); });
        if (!destino.isEmpty())
            faltas.mire(l, destino);
    }
    Rechazos propias =
        faltas.rechazos(Libro::Decreto2649, [](QString lineas, const QString& cuenta) {
            return lineas.replace(0, 1, lineas[0].toUpper()) +
                   ", por su réplica en la cuenta NIIF " + cuenta + ": ";
        });
    for (Rechazo& r : propias)
        r.motivo = Motivo::SinEquivalente; // se tolera donde no haya réplica que hacer
    lista << propias;
}

} // namespace

std::optional<Rechazo> revise_cuadre(const Comprobante& comprobante, Libro libro) {
    if (comprobante.debitos(libro) == comprobante.creditos(libro))
        return {};
    Rechazo r;
    r.motivo = Motivo::Descuadre;
    r.texto = QString::fromUtf8(datos(libro).descuadrado);
    r.libro = libro;
    return r;
}

Rechazos revise_replica(Conexion& conexion, const Comprobante& c) {
    if (c.replica != "S")
        return {};
    const bool a_mano =
        !c.lineas_niif.isEmpty() && std::none_of(c.lineas_niif.begin(), c.lineas_niif.end(),
                                                 [](const auto& l) { return l.es_replica(); });
    if (a_mano)
        return {};
    QMap<QString, QStringList> lineas;
    for (const LineaComprobante& l : c.lineas_2649)
        lineas[l.cuenta] << QString::number(l.item);
    Rechazos lista;
    for (auto i = lineas.cbegin(); i != lineas.cend(); ++i) {
        if (!cuenta_de_replica(conexion, i.key()).isEmpty())
            continue;
        Rechazo r;
        r.motivo = Motivo::SinEquivalente;
        r.campo = QStringLiteral("CUEN_COD");
        r.texto = QStringLiteral("La cuenta %1 (%2 %3) no tiene una cuenta NIIF equivalente que "
                                 "pueda llevar movimiento: la réplica quedaría descuadrada.")
                      .arg(i.key(), i->size() == 1 ? "línea" : "líneas", i->join(", "));
        lista << r.en(Libro::Decreto2649, i->first().toInt());
    }
    return lista;
}

QString cierre_ya_hecho(Conexion& conexion, qint64 consecutivo) {
    const auto con_resultados = [](Libro libro) {
        return QStringLiteral("(alcanza_libro(a.cian_niif, '%1') and exists (select 1 from %2 d "
                              "where d.enco_consec = e.enco_consec and d.cuen_cod >= '4' and "
                              "d.cuen_cod < '8'))")
            .arg(es_niif(libro) ? "NIIF" : "2649", QLatin1String(datos(libro).detalle));
    };
    // Un cierre cancela lo de su año y lo de antes, meses de ajuste incluidos.
    return conexion
        .consulte("select first 1 c.tico_cod || ' ' || c.prco_pref || ' ' || c.enco_numero from "
                  "comprobante_encabezado e join cierre_anual a on substring(a.cian_fecha from 1 "
                  "for 4) >= substring(e.enco_fecha from 1 for 4) and a.enco_consec <> "
                  "e.enco_consec join comprobante_encabezado c on c.enco_consec = a.enco_consec "
                  "where e.enco_consec = ? and (" +
                      con_resultados(Libro::Decreto2649) + " or " + con_resultados(Libro::Niif) +
                      ") order by a.cian_fecha",
                  {Valor(consecutivo)})
        .texto();
}

Rechazos revise(Conexion& conexion, const Comprobante& c, const ModoGrabacion& modo,
                const AjustesLibro& ajustes) {
    Rechazos lista;
    RevisorCeldas celdas(conexion, c);
    if (modo.revisa_celdas)
        celdas.encabezado(lista);
    if (modo.nuevo)
        revise_fechas(lista, c, ajustes);
    if (modo.revisa_celdas)
        for (Libro libro : {Libro::Decreto2649, Libro::Niif})
            for (const LineaComprobante& l : c.lineas(libro))
                celdas.linea(lista, libro, l);
    else if (modo.revisa_nacidas)
        revise_nacidas(lista, conexion, c);
    if (modo.revisa_celdas || modo.revisa_nacidas)
        revise_por_nacer(lista, conexion, c);
    if (modo.revisa_celdas)
        celdas.tercero_del_encabezado(lista);
    lista << revise_replica(conexion, c);
    const bool prueba =
        !ajustes.permite_descuadre && !(modo.niif_solo_con_2649 && c.lineas_2649.isEmpty());
    for (Libro libro : {Libro::Decreto2649, Libro::Niif})
        if (prueba && (es_niif(libro) ? modo.prueba_niif : modo.prueba_2649))
            if (const auto r = revise_cuadre(c, libro))
                lista << *r;
    if (modo.rehusa_vacio && c.lineas_2649.isEmpty() && c.lineas_niif.isEmpty()) {
        Rechazo r;
        r.motivo = Motivo::Vacio;
        r.texto = QStringLiteral("El comprobante no tiene líneas.");
        lista << r;
    }
    return lista;
}
