#include "sesion/tfdmcnt.h"

#include "libro/catalogos.h"
#include "libro/numeracion.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/barraestado.h"

namespace {
Tfdmcnt* unico_cnt_ = nullptr;
constexpr int kBorrarComprobante = 32;

/// Los dos libros están cerrados a la fecha del comprobante: con uno abierto todavía se cambia, y
/// se borra.
QString cierre_de_los_dos(qint64 id, const AjustesLibro& ajustes) {
    const QString fecha =
        fdm()
            .Quorvex
            .consulte("select enco_fecha from comprobante_encabezado where enco_consec = ?", {id})
            .texto();
    if (fecha.isEmpty() || fecha >= ajustes.bloqueo_2649 || fecha >= ajustes.bloqueo_niif)
        return {};
    const auto cerrado = revise_bloqueo(fecha, Libro::Decreto2649, ajustes);
    return cerrado ? cerrado->texto : QString();
}

} // namespace

Tfdmcnt& fdmcnt() {
    Q_ASSERT(unico_cnt_);
    return *unico_cnt_;
}

Tfdmcnt::Tfdmcnt()
    : QBusccuentas(this, "QBusccuentas", fdm().Quorvex),
      TEstructura(this, "TEstructura", fdm().Quorvex,
                  "SELECT * FROM ESTRUCTURA ORDER BY ESTR_NIVEL"),
      TComprobantes(this, "TComprobantes", fdm().Quorvex,
                    "SELECT * FROM COMPROBANTE_ENCABEZADO WHERE ENCO_CONSEC = :ID"),
      TComprDetalle(this, "TComprDetalle", fdm().Quorvex,
                    "SELECT * FROM COMPROBANTE_DETALLE WHERE ENCO_CONSEC = :ENCO_CONSEC"),
      TCompniif(this, "TCompniif", fdm().Quorvex,
                "SELECT * FROM COMPROBANTE_DETALLE_NIIF WHERE ENCO_CONSEC = :ENCO_CONSEC"),
      SIdComproba(this, "SIdComproba", fdm().Quorvex),
      QBalanceprueba(this, "QBalanceprueba", fdm().Quorvex),
      QBalniif(this, "QBalniif", fdm().Quorvex), QAuxiliar(this, "QAuxiliar", fdm().Quorvex),
      QSaldos(this, "QSaldos", fdm().Quorvex), QComproba(this, "QComproba", fdm().Quorvex),
      QUsuarios(this, "QUsuarios", fdm().Quorvex), QSaldo(this, "QSaldo", fdm().Quorvex),
      TConceptoconta(this, "TConceptoconta", fdm().Quorvex,
                     "SELECT * FROM CONCEPTO_CONTABLE ORDER BY CONC_COD"),
      TNorma(this, "TNorma", fdm().Quorvex, "SELECT * FROM NORMAS_NIIF"),
      TNormadet(this, "TNormadet", fdm().Quorvex,
                "SELECT * FROM NORMAS_NIIF_DETALLE WHERE NNIF_ID = :NNIF_ID"),
      TNormacta(this, "TNormacta", fdm().Quorvex,
                "SELECT * FROM CUENTAS_NIIF_NORMA WHERE CUEN_COD = :CUENTA"),
      TPlantilla(this, "TPlantilla", fdm().Quorvex, "SELECT * FROM PLANTILLA_ENCABEZADO"),
      TPlantilladetalle(this, "TPlantilladetalle", fdm().Quorvex,
                        "SELECT * FROM PLANTILLA_DETALLE WHERE PLAN_ID = :PLAN_ID"),
      TPlantilladn(this, "TPlantilladn", fdm().Quorvex,
                   "SELECT * FROM PLANTILLA_DETALLE_NIIF WHERE PLAN_ID = :PLAN_ID"),
      SIdPlantilla(this, "SIdPlantilla", fdm().Quorvex),
      TSaldiniciales(this, "TSaldiniciales", fdm().Quorvex, "SELECT * FROM SALDOS_INICIALES "),
      QConsultas(this, "QConsultas", fdm().Quorvex),
      PConsultas(this, "PConsultas", &QConsultas, poAllowCommandText),
      PPadre(this, "PPadre", &QConsultas, poAllowCommandText),
      PSaldocta(this, "PSaldocta", &QConsultas, poAllowCommandText),
      CConsultas(this, "CConsultas", &PConsultas), CPadre(this, "CPadre", &PPadre),
      CSaldocta(this, "CSaldocta", &PSaldocta) {
    setObjectName("Tfdmcnt");
    unico_cnt_ = this;
    TComprDetalle.enlace_maestra(&TComprobantes, {"ENCO_CONSEC"});
    TCompniif.enlace_maestra(&TComprobantes, {"ENCO_CONSEC"});
    TNormadet.enlace_maestra(&TNorma, {"NNIF_ID"});
    TPlantilladetalle.enlace_maestra(&TPlantilla, {"PLAN_ID"});
    TPlantilladn.enlace_maestra(&TPlantilla, {"PLAN_ID"});
    SIdComproba.procedimiento = "CAMBIE_ID_COMPROBA";
    SIdPlantilla.procedimiento = "CAMBIE_ID_PLANTILLA";
    fdm().ConfigurarProviders(this);
}

Tfdmcnt::~Tfdmcnt() {
    unico_cnt_ = nullptr;
}

// ---------------------------------------------------------------- período

void CursorPeriodo::mas() {
    if (indice >= 12) {
        indice = 0;
        ++ano;
    } else {
        ++indice;
    }
}

void CursorPeriodo::menos() {
    const int inicio = fdm().valor<Llave::AnoInicio>(), mes = fdm().valor<Llave::MesInicio>();
    if (ano <= inicio) {
        if (indice > mes - 1)
            --indice;
        else
            QApplication::beep();
    } else if (indice < 1) {
        indice = 12;
        --ano;
    } else {
        --indice;
    }
}

CursorPeriodo Tfdmcnt::cursor() const {
    return {Tfdm::entero(ano_actual), periodo_actual};
}

void Tfdmcnt::mueva_periodo(void (CursorPeriodo::*paso)()) {
    CursorPeriodo nuevo = cursor();
    (nuevo.*paso)();
    ano_actual = QString::number(nuevo.ano);
    periodo_actual = nuevo.indice;
    guarde_periodo();
    emit balance_por_recalcular();
}

void Tfdmcnt::mes_mas() {
    mueva_periodo(&CursorPeriodo::mas);
}

void Tfdmcnt::mes_menos() {
    mueva_periodo(&CursorPeriodo::menos);
}

void Tfdmcnt::guarde_periodo() {
    QUsuarios.ExecSQL("update usuario set user_anocnt = " + QuotedStr(ano_actual) +
                      ",user_percnt = " + QString::number(periodo_actual) +
                      " where user_cod = " + QuotedStr(fdm().usuario));
}

QString Tfdmcnt::nombre_periodo() const {
    return Tfdm::nombres_periodo().value(periodo_actual);
}

QString Tfdmcnt::dias_periodo() const {
    return QString::number(dias_del_mes(ano_actual.toInt(), periodo_actual + 1));
}

QString Tfdmcnt::compone_fecha(const QString& dia) const {
    const FechaCompuesta f =
        componga_fecha(ano_actual.toInt(), periodo_actual + 1, Tfdm::entero(dia));
    if (f.corregida)
        QApplication::beep();
    return f.fecha;
}

QString Tfdmcnt::compone_fecha_admin(const QString& dia) const {
    const QString fecha = compone_fecha(dia);
    return fecha.left(4) + '/' + fecha.mid(4, 2) + '/' + fecha.mid(6);
}

// ---------------------------------------------------------------- cuentas

bool Tfdmcnt::valide_cuenta(const QString& cuenta, Libro libro) {
    // Unos espacios no son una cuenta que se pueda crear: valen lo que ninguna.
    const auto rechazo =
        revise_cuenta(fdm().Quorvex, libro, cuenta.trimmed().isEmpty() ? QString() : cuenta);
    if (!rechazo)
        return true;
    if (rechazo->oferta == Oferta::CrearCuenta) {
        if (!pregunte(rechazo->pregunta))
            return false;
        cree_cuenta(libro, cuenta);
        return true;
    }
    if (!rechazo->texto.isEmpty())
        muestre_mensaje(rechazo->texto);
    return false;
}

QString Tfdmcnt::nom_cuenta(const QString& cuenta, Libro libro) {
    std::optional<Rechazo> inactiva;
    const QString nombre = nombre_de_cuenta(fdm().Quorvex, libro, cuenta, inactiva);
    if (inactiva)
        muestre_mensaje(inactiva->texto);
    return nombre;
}

QString Tfdmcnt::padre(const QString& cuenta) {
    return CPadre.valor_unico("select * from padre(" + QuotedStr(cuenta) + ')').texto();
}

Moneda Tfdmcnt::saldo_cuenta(const QString& cuenta, const QString& fecha) {
    CSaldocta.Open("select * from saldo_cuenta(" + QuotedStr(cuenta) + ',' + QuotedStr(fecha) +
                   ')');
    return CSaldocta.FieldByName("SALDO").moneda();
}

// ---------------------------------------------------------------- centros

QString Tfdmcnt::nom_centro(const QString& proyecto) {
    const QString nombre = nombre_de_proyecto(fdm().Quorvex, proyecto);
    if (nombre.isEmpty())
        muestre_mensaje("Proyecto no encontrado.");
    return nombre;
}

QString Tfdmcnt::nom_subcentro(const QString& proyecto, const QString& centro) {
    const QString nombre = nombre_de_centro(fdm().Quorvex, proyecto, centro);
    if (nombre.isEmpty())
        muestre_mensaje("Centro de costos no encontrado.");
    return nombre;
}

bool Tfdmcnt::valide_centro(const QString& proyecto, const QString& centro) {
    const auto rechazo = revise_centro(fdm().Quorvex, proyecto, centro);
    if (rechazo)
        muestre_mensaje(rechazo->texto);
    return !rechazo;
}

// ---------------------------------------------------------------- comprobantes

std::optional<QString> Tfdmcnt::existe_ComContable(const QString& tipo, const QString& prefijo,
                                                   const QString& numero) {
    if (numero.isEmpty())
        return std::nullopt;
    const QString id = id_del_numero(fdm().Quorvex, tipo, prefijo, numero);
    return id.isEmpty() ? std::nullopt : std::optional(id);
}

NumeroValidado Tfdmcnt::valide_NumComConta(const QString& tipo, const QString& prefijo,
                                           const QString& numero_sugerido, Campo& campo) {
    if (campo.vacio())
        return {};
    const QString numero = campo.texto();
    const auto tomado = revise_numero(fdm().Quorvex, tipo, prefijo, numero);
    if (!tomado)
        return {};
    if (numero != numero_sugerido) {
        if (pregunte(tomado->pregunta))
            return {.encontrado = tomado->dato};
        return {.vale = false};
    }
    // El contador quedó atrás porque otro usuario tomó el número: se adelanta hasta uno libre.
    campo = adelante_contador(fdm().Quorvex, tipo, prefijo, numero);
    return {};
}

AjustesLibro Tfdmcnt::ajustes_libro() {
    // Las tres fechas se comparan como "aaaammdd", aunque se hayan escrito con separadores.
    const auto bloqueo = [](Llave llave) {
        return fdm().texto_de(llave).remove('/').remove('-').trimmed();
    };
    AjustesLibro a;
    a.permite_descuadre = fdm().valor<Llave::PermitirDescuadrados>();
    a.digito_redondeo = fdm().valor<Llave::RedondeoComprobantes>();
    a.bloqueo_2649 = bloqueo(Llave::FechaBloqueo);
    a.bloqueo_niif = bloqueo(Llave::FechaBloqueoNiif);
    a.bloqueo_administrativo = bloqueo(Llave::BloqueoAdministrativo);
    return a;
}

ResultadoBorrado Tfdmcnt::borrar_comprobante(const QString& pantalla, const PedidoBorrado& pedido) {
    const ModoBorrado& modo = modo_borrado(pantalla);
    if (modo.exige_derecho && !fdm().exija_acceso(kBorrarComprobante))
        return ResultadoBorrado::Negado;
    PedidoBorrado con_cierre = pedido;
    con_cierre.cerrado = cierre_de_los_dos(pedido.id, ajustes_libro());
    if (const auto ajeno = revise_borrado(fdm().Quorvex, con_cierre)) {
        muestre_mensaje(ajeno->texto);
        return ResultadoBorrado::Ajeno;
    }
    if (!pregunte_con_no(pregunta_borrado(modo, pedido)))
        return ResultadoBorrado::Conservado;
    const auto cambiado = revise_cambio_ajeno(fdm().Quorvex, pedido);
    if (cambiado && !pregunte_con_no(cambiado->pregunta))
        return ResultadoBorrado::Conservado;
    borre_comprobante(fdm().Quorvex, modo, pedido, fdm().usuario);
    emit balance_por_recalcular();
    if (AvisosBarra* barra = fdm().barra())
        barra->texto("Borrado " + pedido.tipo + ' ' + pedido.prefijo + ' ' + pedido.numero);
    return ResultadoBorrado::Borrado;
}

QString Tfdmcnt::desc_activo(const QString& codigo) {
    return CConsultas
        .valor_unico("select acfj_desc from activos_fijos where acfj_cod = " + QuotedStr(codigo))
        .texto();
}
