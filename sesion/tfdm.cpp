#include "sesion/tfdm.h"

#include "datos/firebird/nombres.h"
#include "datos/firebird/reloj.h"
#include "libro/letras.h"
#include "sesion/instalacion.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/aviso_salida.h"
#include "toolkit/barraestado.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/rejilla.h"

namespace {
Tfdm* unico_ = nullptr;
}

Tfdm& fdm() {
    Q_ASSERT(unico_);
    return *unico_;
}

const QStringList& Tfdm::nombres_periodo() {
    static const QStringList nombres{"Enero",     "Febrero",   "Marzo",   "Abril",      "Mayo",
                                     "Junio",     "Julio",     "Agosto",  "Septiembre", "Octubre",
                                     "Noviembre", "Diciembre", "Ajustes", "Cierre"};
    return nombres;
}

Tfdm::Tfdm()
    : QConfiguracion(this, "QConfiguracion", Quorvex, "SELECT * FROM CONFIGURACION"),
      QBorrar(this, "QBorrar", Quorvex), QBorrarGen(this, "QBorrarGen", ConGeneral),
      QAccesous(this, "QAccesous", Quorvex),
      TNomcampos(this, "TNomcampos", Quorvex, "SELECT * FROM NOMBRES_CAMPOS"),
      QAudit(this, "QAudit", Quorvex),
      TTipocomp(this, "TTipocomp", Quorvex, "SELECT * FROM TIPO_COMPROBANTE ORDER BY TICO_COD"),
      TPrefconta(this, "TPrefconta", Quorvex,
                 "SELECT * FROM PREFIJOS_CONTA WHERE TICO_COD = :TICO_COD"),
      QPrefijos(this, "QPrefijos", Quorvex),
      TTipodoc(this, "TTipodoc", Quorvex, "SELECT * FROM TIPO_DOCUMENTO ORDER BY TIDO_NOMLARGO"),
      TPrefijo(this, "TPrefijo", Quorvex,
               "SELECT * FROM PREFIJOS WHERE TIDO_COD = :TIDO_COD ORDER BY PREF_PRE"),
      TProyectos(this, "TProyectos", Quorvex, "SELECT * FROM PROYECTOS ORDER BY PROY_COD"),
      TCentros(this, "TCentros", Quorvex,
               "SELECT * FROM CENTROS WHERE PROY_COD = :PROY_COD ORDER BY CENT_COD"),
      TSubEmpresa(this, "TSubEmpresa", Quorvex, "SELECT * FROM SUCURSALES"),
      TCuentas(this, "TCuentas", Quorvex, "SELECT * FROM CUENTAS ORDER BY CUEN_COD"),
      TCuentasniif(this, "TCuentasniif", Quorvex, "SELECT * FROM CUENTAS_NIIF ORDER BY CUEN_COD"),
      QPuc(this, "QPuc", Quorvex), QNumerodoc(this, "QNumerodoc", Quorvex),
      QNomtipo(this, "QNomtipo", Quorvex),
      TUsracceso(this, "TUsracceso", Quorvex, "select * from usuario"),
      TCompania(this, "TCompania", ConGeneral, "SELECT * FROM COMPANIA"),
      QUserFec(this, "QUserFec", ConGeneral), QCuentausr(this, "QCuentausr", ConGeneral),
      QRevision(this, "QRevision", Quorvex), SPCtaPadre(this, "SPCtaPadre", Quorvex),
      SCreectapuc(this, "SCreectapuc", Quorvex), SAfectable(this, "SAfectable", Quorvex),
      Tformatos(this, "Tformatos", Quorvex, "SELECT * FROM FORMATOS"),
      Tformadatos(this, "Tformadatos", Quorvex,
                  "SELECT * FROM FORMATO_DATOS WHERE TIDO_COD = :TIDO_COD AND PREF_PRE = :PREF_PRE"
                  " ORDER BY DAFO_DATO"),
      Tformalineas(this, "Tformalineas", Quorvex,
                   "SELECT * FROM FORMATO_LINEAS WHERE TIDO_COD = :TIDO_COD AND"
                   " PREF_PRE = :PREF_PRE ORDER BY FOLI_ITEM"),
      Smueveformato(this, "Smueveformato", Quorvex),
      PConfiguracion(this, "PConfiguracion", &QConfiguracion),
      PBorrar(this, "PBorrar", &QBorrar, poAllowCommandText),
      PBorrarGen(this, "PBorrarGen", &QBorrarGen, poAllowCommandText),
      PAccesous(this, "PAccesous", &QAccesous, poAllowCommandText),
      PNomcampos(this, "PNomcampos", &TNomcampos),
      CConfiguracion(this, "CConfiguracion", &PConfiguracion), CBorrar(this, "CBorrar", &PBorrar),
      CBorrarGen(this, "CBorrarGen", &PBorrarGen), CAccesous(this, "CAccesous", &PAccesous),
      CNomcampos(this, "CNomcampos", &PNomcampos) {
    setObjectName("Tfdm");
    unico_ = this;
    TPrefconta.enlace_maestra(&TTipocomp, {"TICO_COD"});
    TCentros.enlace_maestra(&TProyectos, {"PROY_COD"});
    Tformadatos.enlace_maestra(&Tformatos, {"TIDO_COD", "PREF_PRE"});
    Tformalineas.enlace_maestra(&Tformatos, {"TIDO_COD", "PREF_PRE"});
    Smueveformato.procedimiento = "MOVER_FORMATO";
    SPCtaPadre.procedimiento = "PADRE";
    SCreectapuc.procedimiento = "CREE_CUENTA_PUC";
    SAfectable.procedimiento = "ES_AFECTABLE";
    CConfiguracion.texto("CONF_MODULO", 20);
    CConfiguracion.texto("CONF_CATEGORIA", 20);
    CConfiguracion.texto("CONF_PROPIEDAD", 100);
    CConfiguracion.texto("CONF_VALOR", 100);
    CNomcampos.texto("NOMBRE", 30);
    CNomcampos.texto("DESCRIPCION", 50);
    DataModuleCreate();
}

Tfdm::~Tfdm() {
    retire_manejador_fallas();
    instale_nombres_de_datos({});
    diga_salidas({});
    unico_ = nullptr;
}

void Tfdm::DataModuleCreate() {
    registros_paquete = 1000;
    hubo_error = sin_mensaje = false;
    instale_manejador_fallas([this](const ErrorDatos& falla) { ENoManejada(falla); });
    instale_nombres();
}

void Tfdm::barra(AvisosBarra* barra) {
    barra_ = barra;
    if (!barra)
        return diga_salidas({});
    diga_salidas(
        [this](const QString& texto) {
            barra_->mostrar_noticia(texto, valor<Llave::DuracionAdvertencias>());
        },
        [this](const QString& texto) { retire_aviso(barra_, texto); });
}

// ---------------------------------------------------------------- configuración

void Tfdm::cargue_configuracion() {
    CConfiguracion.Close();
    CConfiguracion.Open();
    CConfiguracion.First();
}

QString Tfdm::configuracion(const QString& modulo, const QString& categoria,
                            const QString& propiedad) {
    if (CConfiguracion.Locate("CONF_MODULO;CONF_CATEGORIA;CONF_PROPIEDAD",
                              {modulo, categoria, propiedad}))
        return CConfiguracion.FieldByName("CONF_VALOR").texto();
    muestre_error("No se encontró la configuración " + propiedad);
    return {};
}

QString Tfdm::texto_de(Llave llave) {
    const DatosLlave& d = datos_de(llave);
    return configuracion(QString::fromUtf8(d.modulo), QString::fromUtf8(d.categoria),
                         QString::fromUtf8(d.propiedad));
}

namespace {

[[noreturn]] void valor_ilegible(Llave llave, const QString& texto, const char* que) {
    throw ErrorDatos(
        QStringLiteral("La configuración %1 tiene el valor '%2', que no es %3. Corríjala en el "
                       "módulo principal.")
            .arg(QString::fromUtf8(datos_de(llave).propiedad), texto.left(40),
                 QString::fromUtf8(que)));
}

} // namespace

int Tfdm::entero_de(Llave llave, const QString& texto) {
    bool bien = false;
    const int n = texto.toInt(&bien);
    if (!bien)
        valor_ilegible(llave, texto, "un número entero");
    return n;
}

QDate Tfdm::fecha_de(Llave llave, const QString& texto) {
    if (texto.isEmpty())
        return {};
    const QDate fecha = QDate::fromString(QString(texto).remove('/'), QStringLiteral("yyyyMMdd"));
    // Un bloqueo ilegible no puede leerse como que no hay bloqueo.
    if (!fecha.isValid())
        valor_ilegible(llave, texto, "una fecha");
    return fecha;
}

int Tfdm::entero(const QString& texto) {
    bool bien = false;
    const int n = texto.toInt(&bien);
    if (!bien)
        throw ErrorDatos(QStringLiteral("'%1' no es un valor entero válido.").arg(texto));
    return n;
}

void Tfdm::ConfigurarProviders(QObject* componente) {
    for (QObject* o : componente->children()) {
        if (auto* p = qobject_cast<Proveedor*>(o)) {
            p->OnUpdateError = [this](Proveedor& remitente, ConjuntoDatos& d, const ErrorDatos& e,
                                      ClaseCambio) { ManejarError(&remitente, &d, e); };
        } else if (auto* c = qobject_cast<ConjuntoDatos*>(o)) {
            c->PacketRecords = registros_paquete;
            c->BeforeGetRecords = [this] { mostrar_mensaje(); };
            c->AfterGetRecords = [this] { quitar_mensaje(); };
            const auto manejador = [this](ConjuntoDatos& d, const ErrorDatos& e) {
                ManejarClientError(d, e);
            };
            c->OnEditError = c->OnPostError = c->OnDeleteError = manejador;
        } else if (!o->children().isEmpty() && !o->isWidgetType()) {
            ConfigurarProviders(o);
        }
    }
    // Un pie con parte de las filas daría otra suma.
    for (const Rejilla* r : componente->findChildren<Rejilla*>())
        if (r->pie() && r->conjunto())
            r->conjunto()->PacketRecords = -1;
}

// ---------------------------------------------------------------- derechos y auditoría

bool Tfdm::valide_acceso(const QString& modulo, int opcion) {
    return acceso_editacomproba(usuario, modulo, opcion);
}

bool Tfdm::acceso_editacomproba(const QString& usuario, const QString& modulo, int opcion) {
    if (administrador)
        return true;
    return CAccesous
               .valor_unico("select acus_si from acceso_usuario where user_cod = " +
                            QuotedStr(usuario) + " and acus_modulo = " + QuotedStr(modulo) +
                            " and acus_opcion = " + QString::number(opcion))
               .texto() == "S";
}

bool Tfdm::exija_acceso(int opcion) {
    if (valide_acceso("CONTABILIDAD", opcion))
        return true;
    muestre_mensaje(kAccesoNegado);
    return false;
}

QString Tfdm::valide_usuario(const QString& usuario) {
    CBorrarGen.Open("select usua_nombre from usuario where usua_cod = " + QuotedStr(usuario));
    if (!CBorrarGen.IsEmpty())
        return CBorrarGen.Fields(0).texto();
    muestre_error("Nombre de usuario incorrecto");
    return {};
}

QString Tfdm::razon_anulacion(int tipo, int id) {
    CBorrar.Open("select audi_razon, audi_usuario, audi_fecha from auditoria where tido_cod = " +
                 QString::number(tipo) + " and audi_iddoc = " + QString::number(id) +
                 " and audi_oper = 'A'");
    if (CBorrar.IsEmpty())
        return QStringLiteral("Sin explicación del usuario. Anulado por:, el dia: ");
    const QString razon = CBorrar.Fields(0).texto();
    const QString nombre = CBorrarGen
                               .valor_unico("select usua_nombre from usuario where usua_cod = " +
                                            QuotedStr(CBorrar.Fields(1).texto()))
                               .texto();
    return (razon.isEmpty() ? QStringLiteral("Sin explicación del usuario") : razon) +
           ". Anulado por:" + nombre + ", el dia: " + CBorrar.Fields(2).texto();
}

QString Tfdm::sql_auditoria(int tipo, const QString& columna, const QString& valor) {
    return QStringLiteral(
               "select first 1 audi_fecha || '  ' || substring(audi_hora from 1 for 8) || "
               "'  ' || audi_usuario AUDIT from auditoria  where tido_cod = %1 and %2 = %3"
               " order by audi_fecha desc, audi_hora desc")
        .arg(tipo)
        .arg(columna, QuotedStr(valor));
}

// ---------------------------------------------------------------- fechas y letras

void Tfdm::valide_fecha(Campo& campo) {
    if (campo.vacio())
        return;
    const QDate fecha = campo.fecha();
    const QDate bloqueo = valor<Llave::BloqueoAdministrativo>();
    if (bloqueo.isValid() && fecha <= bloqueo) {
        muestre_mensaje("Los módulos estan bloqueados a: " +
                        texto_de(Llave::BloqueoAdministrativo));
        campo = bloqueo.addDays(1);
        return;
    }
    const QDate cierre = valor<Llave::FechaBloqueo>();
    if (!cierre.isValid())
        return;
    if (fecha <= cierre) {
        muestre_mensaje("La contabilidad esta bloqueada a: " +
                        cierre.toString(QStringLiteral("yyyy/MM/dd")));
        campo = std::max(reloj().hoy(), cierre);
        return;
    }
    if (reloj().hoy().addDays(valor<Llave::DiasDocumentosFuturos>()) < fecha) {
        muestre_mensaje(
            "La fecha del documento es demasiado lejana. Revise la fecha del mismo y la "
            "fecha del sistema.");
        campo = reloj().hoy();
    }
}

QString Tfdm::numero_a_letras(Moneda valor) {
    if (valor <= Moneda())
        return {};
    return importe_en_letras(valor, this->valor<Llave::MonedaEnLetras>(),
                             this->valor<Llave::FraccionEnLetras>(),
                             this->valor<Llave::FinalEnLetras>());
}

QString Tfdm::nombre_impresora(const QString& clave) {
    return impresora_de(clave);
}
