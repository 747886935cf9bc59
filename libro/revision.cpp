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
            junte(revise_categoria(conexion_, libro, l.categoria));
        const auto& a = atributos(libro, l.cuenta);
        junte(revise_articulo(conexion_, a ? a->clase : QString(), l.articulo));
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
    QHash<QString, std::optional<Rechazo>> cuentas_, terceros_, centros_;
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

/// Las réplicas nacen en la base: pueden no traer lo que su cuenta NIIF exige.
void revise_nacidas(Rechazos& lista, Conexion& conexion, const Comprobante& c) {
    for (const LineaComprobante& l : c.lineas_niif) {
        if (l.item_replica == 0)
            continue;
        if (const auto a = atributos_de_cuenta(conexion, Libro::Niif, l.cuenta))
            for (Rechazo& r : faltas_de_linea(l, *a)) {
                r.texto = QStringLiteral("Línea %1 del libro NIIF, cuenta %2: %3")
                              .arg(l.item)
                              .arg(l.cuenta, r.texto);
                lista << r.en(Libro::Niif, int(l.item));
            }
    }
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
                                                 [](const auto& l) { return l.item_replica != 0; });
    if (a_mano)
        return {};
    QMap<QString, QStringList> lineas;
    for (const LineaComprobante& l : c.lineas_2649)
        lineas[l.cuenta] << QString::number(l.item);
    Rechazos lista;
    for (auto i = lineas.cbegin(); i != lineas.cend(); ++i) {
        const Valor sirve = conexion.consulte(
            "select n.cuen_cod from cuentas c join cuentas_niif n on n.cuen_cod = c.cuen_eqniif "
            "and n.cuen_activa = 'S' where c.cuen_cod = ? and (select error from "
            "valide_cuenta_niif_c(c.cuen_eqniif)) = 0",
            {i.key()});
        if (!sirve.nulo())
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
