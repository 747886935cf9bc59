#include "sesion/tfdmcnt.h"

#include "sesion/peticiones.h"
#include "sesion/tfdm.h"

namespace {
Tfdmcnt* unico_ = nullptr;

QString dos_cifras(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}
} // namespace

Tfdmcnt& fdmcnt() {
    Q_ASSERT(unico_);
    return *unico_;
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
      PCuentas(this, "PCuentas", &QBusccuentas, poAllowCommandText),
      PValidcuenta(this, "PValidcuenta", &QConsultas, poAllowCommandText),
      PPadre(this, "PPadre", &QConsultas, poAllowCommandText),
      PSaldocta(this, "PSaldocta", &QConsultas, poAllowCommandText),
      PNomcent(this, "PNomcent", &QConsultas, poAllowCommandText),
      PValidcentro(this, "PValidcentro", &QConsultas, poAllowCommandText),
      CConsultas(this, "CConsultas", &PConsultas), CCuentas(this, "CCuentas", &PCuentas),
      CValidcuenta(this, "CValidcuenta", &PValidcuenta), CPadre(this, "CPadre", &PPadre),
      CSaldocta(this, "CSaldocta", &PSaldocta), CNomcent(this, "CNomcent", &PNomcent),
      CValidcentro(this, "CValidcentro", &PValidcentro),
      QCtaActiva(this, "QCtaActiva", fdm().Quorvex) {
    setObjectName("Tfdmcnt");
    unico_ = this;
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
    unico_ = nullptr;
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
    const int inicio =
        Tfdm::entero(fdm().configuracion("CONTABILIDAD", "GENERAL", "AÑO DE INICIO"));
    const int mes = Tfdm::entero(fdm().configuracion("CONTABILIDAD", "GENERAL", "MES DE INICIO"));
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
    switch (periodo_actual + 1) {
    case 2:
        return ano_actual.toInt() % 4 == 0 ? "29" : "28";
    case 4:
    case 6:
    case 9:
    case 11:
        return "30";
    default:
        return "31";
    }
}

QString Tfdmcnt::compone_fecha_admin(const QString& dia) const {
    const int tope = dias_periodo().toInt();
    int d = Tfdm::entero(dia);
    if (d > tope) {
        QApplication::beep();
        d = tope;
    }
    return ano_actual + '/' + dos_cifras(periodo_actual + 1) + '/' + dos_cifras(d);
}

QString Tfdmcnt::compone_fecha(const QString& dia) const {
    return compone_fecha_admin(dia).remove('/');
}

// ---------------------------------------------------------------- cuentas

bool Tfdmcnt::valide_cuenta(const QString& cuenta, Libro libro) {
    const DatosLibro& l = datos(libro);
    CValidcuenta.Open(QStringLiteral("select * from %1(").arg(l.valide_cuenta) + QuotedStr(cuenta) +
                      ')');
    switch (CValidcuenta.IsEmpty() ? 0 : CValidcuenta.FieldByName("ERROR").entero()) {
    case 0:
        return true;
    case 1:
        if (!pregunte(l.no_existe))
            return false;
        cree_cuenta(libro, cuenta);
        return true;
    case 2:
        muestre_mensaje(l.incompleta);
        return false;
    case 3:
        muestre_mensaje(l.inferior);
        return false;
    case 4:
        muestre_mensaje(l.con_auxiliares);
        return false;
    default:
        return false;
    }
}

QString Tfdmcnt::nom_cuenta(const QString& cuenta, Libro libro) {
    const DatosLibro& l = datos(libro);
    CCuentas.Open(QStringLiteral("select cuen_cod, cuen_nom, cuen_activa from %1 where cuen_cod = ")
                      .arg(l.cuentas) +
                  QuotedStr(cuenta));
    if (CCuentas.IsEmpty())
        return {};
    QCtaActiva.Open(QStringLiteral("SELECT CUEN_ACTIVA FROM %1 WHERE CUEN_COD = ")
                        .arg(QString(l.cuentas).toUpper()) +
                    QuotedStr(cuenta));
    const bool inactiva = QCtaActiva.Fields(0).texto() == "N";
    QCtaActiva.Close();
    if (!inactiva)
        return CCuentas.FieldByName("CUEN_NOM").texto();
    muestre_mensaje(QStringLiteral("La %1 %2 está inactiva.").arg(l.cuenta_de, cuenta));
    return {};
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
    CNomcent.Open("select proy_nom from proyectos where proy_cod = " + QuotedStr(proyecto));
    if (CNomcent.IsEmpty())
        muestre_mensaje("Proyecto no encontrado.");
    return CNomcent.Fields(0).texto();
}

QString Tfdmcnt::nom_subcentro(const QString& proyecto, const QString& centro) {
    CNomcent.Open("select cent_nom from centros where proy_cod = " + QuotedStr(proyecto) +
                  " and cent_cod = " + QuotedStr(centro));
    if (CNomcent.IsEmpty())
        muestre_mensaje("Centro de costos no encontrado.");
    return CNomcent.Fields(0).texto();
}

bool Tfdmcnt::valide_centro(const QString& proyecto, const QString& centro) {
    CValidcentro.Open("select * from existe_centro(" + QuotedStr(proyecto) + ',' +
                      QuotedStr(centro) + ')');
    if (CValidcentro.FieldByName("OK").texto() == "S")
        return true;
    muestre_mensaje("Proyecto-Centro no encontrado.");
    return false;
}

// ---------------------------------------------------------------- comprobantes

std::optional<QString> Tfdmcnt::existe_ComContable(const QString& tipo, const QString& prefijo,
                                                   const QString& numero) {
    if (numero.isEmpty())
        return std::nullopt;
    Sentencia& q = fdm().QBorrar;
    q.Open("select enco_consec from comprobante_encabezado where tico_cod = " + QuotedStr(tipo) +
           " and prco_pref = " + QuotedStr(prefijo) +
           " and enco_numero = " + QuotedStr(Tfdm::complete_numero(numero)));
    std::optional<QString> id;
    if (!q.IsEmpty())
        id = q.Fields(0).texto();
    q.Close();
    return id;
}

NumeroValidado Tfdmcnt::valide_NumComConta(const QString& tipo, const QString& prefijo,
                                           const QString& numero_sugerido, Campo& campo) {
    if (campo.vacio())
        return {};
    QString numero = campo.texto();
    const std::optional<QString> id = existe_ComContable(tipo, prefijo, numero);
    if (!id)
        return {};
    if (numero != numero_sugerido) {
        if (pregunte("Comprobante " + numero + " previamente registrado. Consultar?"))
            return {.encontrado = *id};
        return {.vale = false};
    }
    // El contador quedó atrás porque otro usuario tomó el número: se adelanta hasta uno libre.
    do {
        numero = Tfdm::complete_numero(QString::number(Tfdm::entero(numero) + 1));
        fdm().QBorrar.ExecSQL("update prefijos_conta set pref_numero = " + QuotedStr(numero) +
                              " where tico_cod = " + QuotedStr(tipo) +
                              " and prco_pref = " + QuotedStr(prefijo));
    } while (existe_ComContable(tipo, prefijo, numero));
    campo = numero;
    return {};
}

QString Tfdmcnt::desc_activo(const QString& codigo) {
    return CConsultas
        .valor_unico("select acfj_desc from activos_fijos where acfj_cod = " + QuotedStr(codigo))
        .texto();
}
