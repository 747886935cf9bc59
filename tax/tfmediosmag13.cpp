#include "tax/tfmediosmag13.h"

#include "datos/firebird/reloj.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "tax/filas_conjunto.h"
#include "tax/medio_xml.h"
#include "tax/procedimiento.h"
#include "tax/revision_medio.h"
#include "tax/tfrevisamedio.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSpinBox>
#include <utility>

namespace {

const DatosFormaMedio kDatosMediosmag13{"Tfmediosmag13", "Medios magnéticos XML",
                                        "MEDIOS_MAGNETICOS_DATOS", "MEMG_ITEM",
                                        "Archivos XML|*.xml"};
constexpr int kPrimerValor = 13; ///< columna de la rejilla en que empiezan los importes
constexpr int kValores = 11;
constexpr int kNit = 31; ///< el tipo de documento que lleva dígito de verificación

constexpr int kLetrasFormato = 24; ///< del nombre de un formato, las que siempre se ven

} // namespace

Tfmediosmag13::Tfmediosmag13() : FormaMedio(kDatosMediosmag13) {
    auto* consulta = new Sentencia(this, "QFtomediosm", fdm().Quorvex,
                                   "select * from MEDIOSMAG_ARCHIVOS order by MEDM_ORDEN");
    auto* proveedor = new Proveedor(this, "PFtomediosm", consulta);
    CFtomediosm = new ConjuntoDatos(this, "CFtomediosm", proveedor);
    defina_campos();
    QVector<DefinicionColumna> columnas{{"MEMG_CONCEPTO", "Concepto", 9, Numerica},
                                        {"MEMG_TIPODOC", "TipoDoc", 8, Numerica},
                                        {"MEMG_NIT", "NIT", 14},
                                        {"MEMG_DV", "DV", 4},
                                        {"MEMG_APELLIDO1", "Apellido1", 14},
                                        {"MEMG_APELLIDO2", "Apellido2", 14},
                                        {"MEMG_NOMBRE1", "Nombre1", 14},
                                        {"MEMG_NOMBRE2", "Nombre2", 14},
                                        {"MEMG_RAZONSOCIAL", "Razón social", 30},
                                        {"MEMG_DIRECCION", "Dirección", 24},
                                        {"MEMG_DEPARTAMENTO", "Dpto", 5},
                                        {"MEMG_MUNICIPIO", "Mpio", 5},
                                        {"MEMG_PAIS", "País", 5}};
    for (const char* valor :
         {"MEMG_PAGO", "MEMG_PAGOND", "MEMG_IVA", "MEMG_IVAND", "MEMG_RETENCION", "MEMG_RETEASUM",
          "MEMG_RETIVACOMUN", "MEMG_RETIVASIMP", "MEMG_RETIVAND", "MEMG_RETCREE", "MEMG_RASUMC"})
        columnas << DefinicionColumna{valor, CMedmagdata->FieldByName(valor).DisplayLabel, 15, Suma,
                                      kImporteConCero};
    DBGridEh1->columnas(columnas);
    DBGridEh1->pie(true);
    CMedmagdata->AfterInsert = [this] { CMedmagdataAfterInsert(); };
    CMedmagdata->FieldByName("MEMG_NIT").al_cambiar([this](Campo&) {
        CMedmagdataMEMG_NITChange();
    });
    CMedmagdata->agregado("SumValor1", "sum(MEMG_PAGO)");
    CMedmagdata->agregado("SumValor2", "sum(MEMG_RETENCION)");
    CMedmagdata->agregado("SumValor3", "sum(MEMG_TIPODOC)");
    CMedmagdata->agregado("SumValor4", "sum(MEMG_CONCEPTO)");
    Formulario f(this);
    arme_encabezado(f);
    arme_pie(f, "F5:Graba XML", [this](BarraBotones& barra) {
        barra.boton("SBRevisar", "F7:Revisar", "edit-find", Qt::Key_F7, [this] { revise(); });
    });
}

void Tfmediosmag13::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = *CMedmagdata;
    c.entero("MEMG_FORMATO").banderas(kLlave);
    c.texto("MEMG_ANO", 4).banderas(kLlave);
    c.entero("MEMG_ITEM").banderas(kLlave);
    c.entero("MEMG_CONCEPTO").etiqueta("Concepto");
    c.entero("MEMG_TIPODOC").etiqueta("TipoDoc");
    c.texto("MEMG_NIT", 20).etiqueta("NIT");
    c.texto("MEMG_DV", 1).etiqueta("DV");
    for (const auto& [campo, rotulo] : {std::pair{"MEMG_APELLIDO1", "Apellido1"},
                                        {"MEMG_APELLIDO2", "Apellido2"},
                                        {"MEMG_NOMBRE1", "Nombre1"},
                                        {"MEMG_NOMBRE2", "Nombre2"},
                                        {"MEMG_RAZONSOCIAL", "Razón social"},
                                        {"MEMG_DIRECCION", "Dirección"}})
        c.texto(campo, 60).etiqueta(rotulo);
    c.texto("MEMG_DEPARTAMENTO", 2).etiqueta("Dpto");
    c.texto("MEMG_MUNICIPIO", 3).etiqueta("Mpio");
    c.texto("MEMG_PAIS", 3).etiqueta("País");
    for (const auto& [campo, rotulo] : {std::pair{"MEMG_PAGO", "Valor1"},
                                        {"MEMG_PAGOND", "Valor no ded."},
                                        {"MEMG_IVA", "IVA"},
                                        {"MEMG_IVAND", "IVA_ND"},
                                        {"MEMG_RETENCION", "Valor2"},
                                        {"MEMG_RETEASUM", "RET_ASUM"},
                                        {"MEMG_RETIVACOMUN", "RTIVA_COMUN"},
                                        {"MEMG_RETIVASIMP", "RTIVA_SIMP"},
                                        {"MEMG_RETIVAND", "RTIVA_NODED"},
                                        {"MEMG_RETCREE", "Rt Cree"},
                                        {"MEMG_RASUMC", "RtCreeAsu"}})
        c.decimal(campo).etiqueta(rotulo).formato(kImporteConCero).defecto("0");
}

void Tfmediosmag13::arme_encabezado(Formulario& f) {
    Edit1 = caja("Edit1", 4);
    FecEnvio = new QDateEdit(this);
    FecEnvio->setObjectName("FecEnvio");
    FecEnvio->setDisplayFormat("yyyy-MM-dd");
    FecEnvio->setCalendarPopup(true);
    NroEnv = new QSpinBox(this);
    NroEnv->setObjectName("NroEnv");
    NroEnv->setRange(1, 999999);
    Concepto = new ListaTecleo(this);
    Concepto->setObjectName("Concepto");
    Concepto->addItems({"1. Nuevo archivo", "2. Reemplazo"});
    LFormato = new ListaTecleo(this);
    LFormato->setObjectName("LFormato");
    LFormato->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    LFormato->setMinimumContentsLength(kLetrasFormato);
    LFormato->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(NroEnv, &QSpinBox::valueChanged, this,
            [this] { proteja([this] { calculanombre(); }); });
    connect(Concepto, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { calculanombre(); }); });
    connect(LFormato, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { LFormatoExit(); }); });
    f.fila("Año a reportar:",
           en_flujo({EAno, con_rotulo("Fecha inicial", FecIni), con_rotulo("Fecha final", FecFin)},
                    paso()));
    f.fila("Año envío:", en_flujo({Edit1, con_rotulo("Fecha de envío", FecEnvio),
                                   con_rotulo("Consecutivo de envío", NroEnv)},
                                  paso()));
    f.fila("Concepto:",
           hasta_el_tope(en_flujo({Concepto, con_rotulo("Formato", LFormato)}, paso())));
    f.fila("Nombre archivo:", cree_ubicacion());
}

void Tfmediosmag13::FormCreate() {
    const QDate hoy = reloj().hoy();
    Edit1->setText(QString::number(hoy.year()));
    FecEnvio->setDate(hoy);
    FormaMedio::FormCreate();
    CFtomediosm->Open();
    CFtomediosm->FetchAll();
    for (int i = 0; i < CFtomediosm->RecordCount(); ++i)
        LFormato->addItem(
            CFtomediosm->valor_en(i, CFtomediosm->FieldByName("MEDM_NOMBRE")).texto());
    LFormatoExit();
}

void Tfmediosmag13::FormActivate() {
    if (std::exchange(revisado_, false))
        relea();
}

// ---------------------------------------------------------------- formato y nombre

QString Tfmediosmag13::del_formato(const char* campo) const {
    return CFtomediosm->Active() ? CFtomediosm->FieldByName(campo).texto() : QString();
}

void Tfmediosmag13::LFormatoExit() {
    if (!CFtomediosm->Active())
        return;
    if (!suelte_filas()) {
        const QSignalBlocker callada(LFormato);
        LFormato->setCurrentText(del_formato("MEDM_NOMBRE"));
        return;
    }
    if (!CFtomediosm->Locate("MEDM_NOMBRE", {LFormato->currentText()}))
        return;
    formato_ = del_formato("MEDM_FORMATO").toInt();
    calculanombre();
    const auto formato = formato_medio(codigo().toInt(), del_formato("MEDM_VERSION"));
    for (int i = 0; i < DBGridEh1->cuenta_columnas(); ++i) {
        ColumnaRejilla& columna = DBGridEh1->columna(i);
        columna.Visible = !formato || formato->escribe(columna.FieldName);
        if (i < kPrimerValor || i >= kPrimerValor + kValores)
            continue;
        const QString titulo =
            del_formato(qPrintable(QStringLiteral("MEDM_VALOR%1").arg(i - kPrimerValor + 1)));
        columna.Titulo =
            titulo.isEmpty() ? CMedmagdata->FieldByName(columna.FieldName).DisplayLabel : titulo;
    }
}

void Tfmediosmag13::EAnoExit() {
    FormaMedio::EAnoExit();
    calculanombre();
}

void Tfmediosmag13::calculanombre() {
    Ubicacion->setText(nombre_medio(envio()));
}

EnvioMedio Tfmediosmag13::envio() const {
    EnvioMedio e;
    e.formato_version = formato_;
    e.codigo = codigo().toInt();
    e.version = del_formato("MEDM_VERSION");
    e.ano = ano();
    e.ano_envio = Edit1->text().trimmed();
    e.concepto = Concepto->currentIndex() + 1;
    e.numero = NroEnv->value();
    e.fecha_envio = FecEnvio->date().toString("yyyy-MM-dd");
    e.hora = reloj().ahora().time();
    e.inicio = FecIni->text();
    e.final = FecFin->text();
    e.ruta = ruta();
    return e;
}

// ---------------------------------------------------------------- filas

QString Tfmediosmag13::condicion() const {
    return "MEMG_FORMATO = " + QString::number(formato_) + " and MEMG_ANO = " + QuotedStr(ano());
}

QString Tfmediosmag13::codigo() const {
    return LFormato->currentText().left(4);
}

QString Tfmediosmag13::calculo() const {
    return "execute procedure " + procedimiento(del_formato("MEDM_PROCEDIMIENTO")) + '(' +
           QuotedStr(FecIni->text()) + ", " + QuotedStr(FecFin->text()) + ')';
}

QString Tfmediosmag13::candado() const {
    return "select 1 from MEDIOSMAG_ARCHIVOS where MEDM_FORMATO = " + QString::number(formato_) +
           " with lock";
}

QString Tfmediosmag13::por_configurar() const {
    const Valor cuenta = fdm().Quorvex.consulte(
        "select first 1 MMCU_CONS from CONFIGURA_MEDIOSMAG join MEDIOSMAG_CUENTAS on MMCU_ITEM = "
        "COME_ITEM where COME_FORMATO = " +
        QString::number(formato_));
    return cuenta.nulo() ? QStringLiteral("El formato %1 no tiene conceptos con cuentas: F8 los "
                                          "configura.")
                               .arg(codigo())
                         : QString();
}

void Tfmediosmag13::CMedmagdataAfterInsert() {
    CMedmagdata->FieldByName("MEMG_FORMATO") = formato_;
    CMedmagdata->FieldByName("MEMG_ANO") = ano();
    CMedmagdata->FieldByName("MEMG_ITEM") = siguiente_item();
}

void Tfmediosmag13::CMedmagdataMEMG_NITChange() {
    Campo& digito = CMedmagdata->FieldByName("MEMG_DV");
    if (CMedmagdata->FieldByName("MEMG_TIPODOC").entero() == kNit)
        digito = QString::number(Tfdmter::dv(CMedmagdata->FieldByName("MEMG_NIT").texto()));
    else
        digito.limpie();
}

// ---------------------------------------------------------------- órdenes

void Tfmediosmag13::SBGrabarClick() {
    pantallas().abrir("Tfconfmediosm", AbreConfiguracionMedio{formato_});
}

MedioRevisado Tfmediosmag13::medio_a_la_vista() const {
    return {formato_, LFormato->currentText(), ano(), FecIni->text(), FecFin->text()};
}

void Tfmediosmag13::revise() {
    siga_el_ano();
    if (!grabe_cambios())
        return;
    revisado_ = true;
    pantallas().abrir("Tfrevisamedio", AbreRevisionMedio{medio_a_la_vista()});
}

void Tfmediosmag13::SpeedButton3Click() {
    if (!CMedmagdata->Active()) {
        fdm().mostrar_advertencia("No hay filas a la vista: F2 las consulta o las calcula.");
        return;
    }
    if (!grabe_cambios())
        return;
    if (revise_medio(fdm().Quorvex, formato_, ano()).isEmpty()) {
        escriba();
        return;
    }
    revisado_ = true;
    pida("Tfrevisamedio", PideRevisionMedio{medio_a_la_vista()}, [this](bool de_todos_modos) {
        if (de_todos_modos && relea())
            escriba();
    });
}

void Tfmediosmag13::escriba() {
    const EnvioMedio e = envio();
    TotalesMedio totales{CMedmagdata->RecordCount(), {}};
    for (std::size_t i = 0; i < totales.suma.size(); ++i) {
        const Valor suma = CMedmagdata->agregado(QStringLiteral("SumValor%1").arg(i + 1));
        totales.suma[i] = suma.nulo() ? QStringLiteral("0") : suma.texto();
    }
    // Grabarlo otra vez reemplaza lo que quedó.
    auto reponga = qScopeGuard([&] { NroEnv->setValue(e.numero); });
    const ResultadoMedio r = [&] {
        FilasConjunto filas(*CMedmagdata);
        AvanceTrabajo avance(this, "Grabando " + e.ruta, int(totales.filas));
        return escriba_medio(
            e, totales, filas, [&](qint64 hechos) { return avance.siga(hechos); },
            [this](int numero) { NroEnv->setValue(numero); });
    }();
    if (r.cancelado) {
        fdm().mostrar_advertencia(
            QStringLiteral("Grabación cancelada. Archivos del envío que ya estaban completos: %1.")
                .arg(r.archivos.size()));
        return;
    }
    if (!r.rechazo.isEmpty()) {
        fdm().mostrar_advertencia(r.rechazo);
        return;
    }
    reponga.dismiss();
    pantallas().abrir("Tfrevisamedio", AbreRevisionMedio{medio_a_la_vista(), r.archivos});
    close();
}
