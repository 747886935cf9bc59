#include "libro/grabacion.h"

#include "datos/recordset/cambios.h"
#include "datos/recordset/sin_eventos.h"
#include "libro/numeracion.h"
#include "libro/revision.h"

#include <QScopedValueRollback>

namespace {

// Cada vuelta perdida es un comprobante que otro sí grabó: con más que estas algo anda mal.
constexpr int kVueltas = 50;

/// Mientras vive ve primero las fallas del proveedor: las que atiende no llegan a su manejador.
class AtiendeFallas {
public:
    using Atencion = std::function<bool(ConjuntoDatos&, const ErrorDatos&, ClaseCambio)>;

    AtiendeFallas(Proveedor& p, Atencion atienda) : p_(p), manejador_(p.OnUpdateError) {
        p_.OnUpdateError = [this,
                            atienda = std::move(atienda)](Proveedor& remitente, ConjuntoDatos& d,
                                                          const ErrorDatos& e, ClaseCambio clase) {
            if (!atienda(d, e, clase) && manejador_)
                manejador_(remitente, d, e, clase);
        };
    }
    ~AtiendeFallas() { p_.OnUpdateError = manejador_; }
    AtiendeFallas(const AtiendeFallas&) = delete;
    AtiendeFallas& operator=(const AtiendeFallas&) = delete;

private:
    Proveedor& p_;
    decltype(Proveedor::OnUpdateError) manejador_;
};

/// Deja la fila por grabar aunque nada le haya cambiado: un concepto lleno no tiene dónde poner el
/// blanco.
void marque(ConjuntoDatos& d, Campo& campo) {
    d.CheckBrowseMode();
    if (cambios::fila_actual(d)->marca != Fila::Marca::Intacta)
        return;
    const SinEventos callado(d);
    const Valor queda = campo.valor();
    for (const Valor& v : {queda.nulo() ? Valor(QStringLiteral("-")) : Valor(), queda}) {
        d.Edit();
        campo = v;
        d.Post();
    }
}

} // namespace

void termine_linea(ConjuntoDatos& lineas) {
    if (!lineas.editando())
        return;
    const bool intacta = lineas.State() == Estado::Edicion && !lineas.cambiada();
    if (intacta || lineas.FieldByName("CUEN_COD").vacio())
        lineas.Cancel();
    else
        lineas.Post();
}

GrabacionComprobante::GrabacionComprobante(const ConjuntosComprobante& conjuntos)
    : c_(conjuntos), conexion_(conjuntos.encabezado.conexion()) {}

QString GrabacionComprobante::numero() const {
    return c_.encabezado.FieldByName("ENCO_NUMERO").texto();
}

Rechazos GrabacionComprobante::revise(const ModoGrabacion& modo,
                                      const AjustesLibro& ajustes) const {
    return ::revise(conexion_, lea_comprobante(c_), modo, ajustes);
}

qint64 GrabacionComprobante::tome_id() {
    const qint64 id = c_.encabezado.FieldByName("ENCO_CONSEC").entero();
    if (id != 0)
        return id;
    const qint64 nuevo =
        conexion_.ejecute_con_salida("execute procedure CAMBIE_ID_COMPROBA").value(0).entero();
    c_.encabezado.Edit();
    c_.encabezado.FieldByName("ENCO_CONSEC") = nuevo;
    c_.encabezado.Post();
    return nuevo;
}

void GrabacionComprobante::relea() {
    c_.encabezado.Params["ID"] = c_.encabezado.FieldByName("ENCO_CONSEC").texto();
    c_.encabezado.Refresh();
}

void GrabacionComprobante::olvide() {
    blanco_puesto_ = false;
}

ResultadoGrabacion GrabacionComprobante::grabe(const ModoGrabacion& modo) {
    ResultadoGrabacion r;
    r.id = tome_id();
    r.numero_pedido = numero();
    Campo& concepto = c_.encabezado.FieldByName("ENCO_CONCEPTO");
    const QScopedValueRollback<unsigned> banderas(concepto.ProviderFlags);
    if (modo.encabezado_viaja)
        alterne_blanco();
    if (modo.encabezado_viaja || se_borraron_lineas()) {
        concepto.ProviderFlags |= cambios::pfSiempre;
        marque(c_.encabezado, concepto);
    }
    r.clase = aplique(modo, r) ? ResultadoGrabacion::Grabado : ResultadoGrabacion::Fallo;
    r.numero = numero();
    return r;
}

bool GrabacionComprobante::se_borraron_lineas() const {
    // Con el encabezado la base sabe que las quitó quien editaba el comprobante.
    const auto borradas = [this](Libro libro) {
        const Detalle* d = cambios::filas_de(c_.lineas(libro));
        return d && !d->borradas.empty();
    };
    return borradas(Libro::Decreto2649) || borradas(Libro::Niif);
}

void GrabacionComprobante::alterne_blanco() {
    c_.encabezado.Edit();
    if (!std::exchange(blanco_puesto_, true)) {
        Campo& concepto = c_.encabezado.FieldByName("ENCO_CONCEPTO");
        QString texto = concepto.texto();
        if (texto.endsWith(' '))
            texto.chop(1);
        else
            texto += ' ';
        concepto = texto;
    }
    c_.encabezado.Post();
}

bool GrabacionComprobante::aplique(const ModoGrabacion& modo, ResultadoGrabacion& resultado) {
    bool sigue = false;
    // La falla llega con la transacción ya deshecha: aquí se puede consultar y corregir.
    const AtiendeFallas atiende(
        *c_.encabezado.proveedor, [&](ConjuntoDatos& d, const ErrorDatos& e, ClaseCambio clase) {
            resultado.falla = e.para_usuario();
            sigue = modo.nuevo && !numero_fijo && clase == ClaseCambio::Insercion &&
                    &d == &c_.encabezado && tome_otro_numero();
            return sigue;
        });
    for (int vuelta = 0; vuelta < kVueltas; ++vuelta) {
        sigue = false;
        if (c_.encabezado.ApplyUpdates(0) == 0) {
            blanco_puesto_ = false;
            resultado.falla.clear();
            return true;
        }
        if (!sigue)
            break;
    }
    return false;
}

bool GrabacionComprobante::tome_otro_numero() {
    const auto texto = [this](const char* c) { return c_.encabezado.FieldByName(c).texto(); };
    const QString tipo = texto("TICO_COD"), prefijo = texto("PRCO_PREF");
    const QString de_otro = id_del_numero(conexion_, tipo, prefijo, numero());
    const auto datos = prefijo_contable(conexion_, tipo, prefijo);
    if (de_otro.isEmpty() || de_otro == texto("ENCO_CONSEC") || !datos ||
        (!datos->automatico && !numero_del_contador) ||
        revise_contador(tipo, prefijo, datos->siguiente))
        return false;
    QString libre = datos->siguiente;
    if (!id_del_numero(conexion_, tipo, prefijo, libre).isEmpty())
        libre = adelante_contador(conexion_, tipo, prefijo, libre);
    ponga_callado(c_.encabezado, "ENCO_NUMERO", libre);
    return true;
}

// ---------------------------------------------------------------- en lote

namespace {

/// Los conjuntos de un comprobante sin pantalla.
class Mesa {
public:
    explicit Mesa(Conexion& conexion)
        : encabezados_(&dueno_, "TComprobantes", conexion,
                       "SELECT * FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ID"),
          de_2649_(&dueno_, "TComprDetalle", conexion,
                   "SELECT * FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ENCO_CONSEC"),
          de_niif_(&dueno_, "TCompniif", conexion,
                   "SELECT * FROM COMPROBANTE_DETALLE_NIIF WHERE ENCO_CONSEC = :ENCO_CONSEC"),
          proveedor_(&dueno_, "PMovimiento", &encabezados_, poCascadeDeletes | poCascadeUpdates),
          encabezado_(&dueno_, "CMovimiento", &proveedor_), lineas_2649_(&dueno_, "CDetalle"),
          lineas_niif_(&dueno_, "Cdetniif") {
        for (Sentencia* s : {&de_2649_, &de_niif_})
            s->enlace_maestra(&encabezados_, {"ENCO_CONSEC"});
        defina_encabezado(encabezado_);
        lineas_2649_.anide_en(&encabezado_, &de_2649_);
        lineas_niif_.anide_en(&encabezado_, &de_niif_);
        defina_lineas(lineas_2649_, Libro::Decreto2649);
        defina_lineas(lineas_niif_, Libro::Niif);
    }
    ConjuntosComprobante conjuntos() { return {encabezado_, lineas_2649_, lineas_niif_}; }

    /// Abre el comprobante, o uno nuevo con id 0. Falso si el id no está.
    bool abra(qint64 id) {
        encabezado_.Params["ID"] = id == 0 ? Valor() : Valor(QString::number(id));
        encabezado_.Open();
        if (id != 0)
            return !encabezado_.IsEmpty();
        encabezado_.Append();
        encabezado_.FieldByName("ENCO_CONSEC") = 0;
        return true;
    }

private:
    QObject dueno_;
    Sentencia encabezados_, de_2649_, de_niif_;
    Proveedor proveedor_;
    ConjuntoDatos encabezado_, lineas_2649_, lineas_niif_;
};

/// Las líneas sin número toman los que siguen.
void numere_lineas(Comprobante& c) {
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        qint64 mayor = 0; // la primera sin número es la 1
        for (const LineaComprobante& l : c.lineas(libro))
            mayor = qMax(mayor, l.item);
        for (LineaComprobante& l : c.lineas(libro))
            if (l.item < 0)
                l.item = ++mayor;
    }
}

} // namespace

ResultadoGrabacion grabe_comprobante(Conexion& conexion, const Comprobante& comprobante,
                                     const AjustesLibro& ajustes) {
    const ModoGrabacion& modo = modo_de(Grabador::Lote);
    ResultadoGrabacion r;
    Comprobante c = comprobante;
    if (!c.numero.isEmpty())
        c.numero = complete_numero(c.numero);
    numere_lineas(c);
    r.rechazos = revise(conexion, c, modo, ajustes);
    if (!r.rechazos.isEmpty())
        return r;
    if (c.numero.isEmpty())
        c.numero = prefijo_contable(conexion, c.tipo, c.prefijo)->siguiente;
    Mesa mesa(conexion);
    if (!mesa.abra(c.id)) {
        r.clase = ResultadoGrabacion::Fallo;
        r.falla = QStringLiteral("No se encontró el comprobante solicitado.");
        return r;
    }
    vuelque(c, mesa.conjuntos());
    GrabacionComprobante grabacion(mesa.conjuntos());
    grabacion.numero_fijo = !comprobante.numero.isEmpty();
    grabacion.numero_del_contador = comprobante.numero.isEmpty();
    return grabacion.grabe(modo);
}
