#include "tax/tfmediosmagbog.h"

#include "datos/firebird/concuerde.h"
#include "sesion/ayuda_al_teclear.h"
#include "sesion/instalacion.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "tax/articulos_distrito.h"
#include "tax/filas_conjunto.h"
#include "tax/medio_distrital.h"
#include "tax/procedimiento.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/rejilla/rejilla.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSettings>

namespace {

const DatosFormaMedio kDatosMediosmagbog{"Tfmediosmagbog", "Hacienda Bogotá",
                                         "MEDIOSMAG_DISTR_DATOS", "MMDD_ITEM",
                                         "Archivos CSV|*.csv"};
constexpr int kLetrasDePais = 20;

/// Las filas con lo que no está en la tabla: el nombre del país.
class FilasDistrito : public FilasConjunto {
public:
    explicit FilasDistrito(ConjuntoDatos& c) : FilasConjunto(c) {
        for (auto paises = fdm().Quorvex.abra(
                 QStringLiteral("select PAIS_ID, SUBSTRING(PAIS_NOM FROM 1 FOR %1) from PAISES")
                     .arg(kLetrasDePais));
             paises->siguiente();)
            paises_[paises->valor(0).texto()] = paises->valor(1).texto();
    }
    QString texto(const QString& columna) const override {
        return columna == QLatin1String("NombrePais") ? paises_.value(texto("MMDD_PAIS"))
                                                      : FilasConjunto::texto(columna);
    }

private:
    QHash<QString, QString> paises_;
};

/// La última secretaría de cada compañía, junto a los demás ajustes de la instalación.
class SecretariaRecordada {
public:
    QString nit() const { return ajustes_.value(clave_).toString(); }
    void recuerde(const QString& nit) { ajustes_.setValue(clave_, nit); }

private:
    const QString clave_ = "secretaria/" + fdm().codigo_compania;
    QSettings ajustes_{diraplicacion_callada() + "/distrito.cfg", QSettings::IniFormat};
};

} // namespace

Tfmediosmagbog::Tfmediosmagbog() : FormaMedio(kDatosMediosmagbog) {
    auto* consulta = new Sentencia(this, "QMeddist", fdm().Quorvex);
    CMeddist = new ConjuntoDatos(this, "CMeddist",
                                 new Proveedor(this, "PMeddist", consulta, poAllowCommandText));
    defina_campos();
    QVector<DefinicionColumna> columnas;
    for (const auto& [campo, ancho] : {std::pair{"MMDD_ITEM", 6}, {"MMDD_TIPODOC", 5},
                                       {"MMDD_NIT", 14},          {"MMDD_DV", 4},
                                       {"MMDD_NOMBRE", 30},       {"MMDD_DIRECCION", 24},
                                       {"MMDD_TEL", 14},          {"MMDD_EMAIL", 24},
                                       {"MMDD_CODMUNICIPIO", 7},  {"MMDD_NOMMUNICIPIO", 16},
                                       {"MMDD_NOMDEPTO", 16},     {"CodDpto", 8},
                                       {"MMDD_PAIS", 5},          {"MMDD_CONCSH", 9},
                                       {"MMDD_FECHA", 11},        {"MMDD_BASE", 15},
                                       {"MMDD_TARIFA", 9},        {"MMDD_MONTO", 15},
                                       {"MMDD_DEVOL", 15},        {"MMDD_SALDO", 15}}) {
        const Campo& c = CMedmagdata->FieldByName(campo);
        const bool suma =
            c.clase == ClaseCampo::Decimal && c.FieldName != QLatin1String("MMDD_TARIFA");
        columnas << DefinicionColumna{campo, c.DisplayLabel, ancho,
                                      suma           ? unsigned(Suma)
                                      : c.numerico() ? unsigned(Numerica)
                                                     : 0u};
    }
    DBGridEh1->columnas(columnas);
    DBGridEh1->columna(DBGridEh1->columna_de("MMDD_ITEM")).ReadOnly = true;
    DBGridEh1->pie(true);
    siga_al_nit();
    CMedmagdata->AfterInsert = [this] {
        CMedmagdata->FieldByName("MMDI_ARTICULO") = articulo();
        CMedmagdata->FieldByName("MMDI_ANO") = ano();
        CMedmagdata->FieldByName("MMDD_ITEM") = siguiente_item();
    };
    CMedmagdata->OnCalcFields = [this] {
        CMedmagdata->FieldByName("CodDpto") =
            CMedmagdata->FieldByName("MMDD_CODMUNICIPIO").texto().left(2);
    };
    Formulario f(this);
    arme_encabezado(f);
    arme_pie(f, "F5:Graba CSV");
}

void Tfmediosmagbog::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = *CMedmagdata;
    c.entero("MMDI_ARTICULO").banderas(kLlave);
    c.texto("MMDI_ANO", 4).banderas(kLlave);
    c.entero("MMDD_ITEM").banderas(kLlave).etiqueta("#");
    c.texto("MMDD_NIT", 20).etiqueta("Identificación");
    c.texto("MMDD_NOMBRE", 60).etiqueta("Nombre");
    c.texto("MMDD_DIRECCION", 60).etiqueta("Dirección");
    c.texto("MMDD_TEL", 40).etiqueta("Teléfono");
    c.texto("MMDD_EMAIL", 100).etiqueta("Correo electrónico");
    c.texto("MMDD_CODMUNICIPIO", 5).etiqueta("CodMun");
    c.texto("MMDD_NOMMUNICIPIO", 60).etiqueta("Municipio");
    c.texto("MMDD_NOMDEPTO", 60).etiqueta("Departamento");
    for (const auto& [campo, rotulo] : {std::pair{"MMDD_BASE", "Base"},
                                        {"MMDD_TARIFA", "Tarifa"},
                                        {"MMDD_MONTO", "Monto"},
                                        {"MMDD_DEVOL", "Devolución"},
                                        {"MMDD_SALDO", "Saldo"}})
        c.decimal(campo).etiqueta(rotulo).formato(kImporteConCero).defecto("0");
    c.fecha("MMDD_FECHA").etiqueta("Fecha");
    c.texto("MMDD_TIPODOC", 3).etiqueta("Doc.");
    c.texto("MMDD_DV", 1).etiqueta("DV");
    c.entero("MMDD_CONCSH").etiqueta("Concepto");
    c.texto("MMDD_PAIS", 3).etiqueta("País");
    c.calculado("CodDpto", ClaseCampo::Texto, 5).etiqueta("Cod Dpto");
}

void Tfmediosmagbog::arme_encabezado(Formulario& f) {
    LFormato = new ListaTecleo(this);
    LFormato->setObjectName("LFormato");
    LFormato->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    NitShd = caja("NitShd", 20);
    NitShd->setToolTip("F9 muestra los terceros");
    CentroBogota = caja("CentroBogota", 4);
    CentroBogota->setToolTip("Solo el movimiento de este centro; vacío, todo");
    connect(LFormato, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { LFormatoExit(); }); });
    f.fila("Año a reportar:",
           en_flujo({EAno, con_rotulo("Fecha inicial", FecIni), con_rotulo("Fecha final", FecFin)},
                    paso()));
    f.fila("Artículo:", hasta_el_tope(LFormato));
    f.fila("NIT secretaria hacienda:",
           en_flujo({NitShd, con_rotulo("Centro costos Bogotá", CentroBogota)}, paso()));
    f.fila("Nombre archivo:", cree_ubicacion());
}

void Tfmediosmagbog::FormCreate() {
    FormaMedio::FormCreate();
    NitShd->setText(SecretariaRecordada().nit());
    tecla(Qt::Key_F9, "terceros", [this] {
        escoja_tercero(
            *this, {}, [this](const QString& nit) { NitShd->setText(nit); }, NitShd->text());
    });
}

void Tfmediosmagbog::FormActivate() {
    // La configuración pudo cambiar los artículos.
    if (!CMedmagdata->Active())
        liste_articulos();
}

void Tfmediosmagbog::siga_al_nit() {
    Campo& campo = CMedmagdata->FieldByName("MMDD_NIT");
    campo.OnValidate = [](Campo&, const Valor& nit) {
        if (nit.texto().isEmpty() ||
            !fdm()
                 .Quorvex.consulte("select TERC_NIT from TERCEROS where TERC_NIT = ?", {nit})
                 .nulo())
            return;
        muestre_mensaje("Tercero no encontrado.");
        throw EdicionAbortada(); // queda el que había
    };
    campo.OnChange = [this](Campo& nit) {
        if (const auto texto = pregunta_.tome(nit))
            escoja_tercero(
                *this, *texto,
                [&nit](const QString& escogido) {
                    nit.conjunto().Edit();
                    nit = escogido;
                },
                nit.texto());
    };
    pregunta_.atienda(campo);
    ofrezca_al_teclear(*DBGridEh1, Libro::Decreto2649, {}, "MMDD_NIT");
}

// ---------------------------------------------------------------- artículo

int Tfmediosmagbog::articulo() const {
    return LFormato->currentData().toInt();
}

void Tfmediosmagbog::liste_articulos() {
    const int antes = articulo();
    ano_listado_ = ano();
    const QSignalBlocker callada(LFormato);
    LFormato->clear();
    CMeddist->Open("select * from MEDIOSMAG_DISTR where MMDI_ANO = " + QuotedStr(ano()) +
                   " order by MMDI_ARTICULO");
    for (CMeddist->First(); !CMeddist->Eof(); CMeddist->Next()) {
        const QString codigo = CMeddist->FieldByName("MMDI_ARTICULO").texto();
        LFormato->addItem(codigo + "  " + CMeddist->FieldByName("MMDI_NOMBRE").texto(),
                          codigo.toInt());
    }
    LFormato->setPlaceholderText("El año no tiene artículos: F8 los configura");
    LFormato->setCurrentIndex(qMax(0, LFormato->findData(antes)));
    LFormatoExit();
}

void Tfmediosmagbog::EAnoExit() {
    FormaMedio::EAnoExit();
    if (ano() != ano_listado_) // salir del año sin cambiarlo no suelta las filas
        liste_articulos();
}

void Tfmediosmagbog::LFormatoExit() {
    if (!suelte_filas()) {
        const QSignalBlocker callada(LFormato);
        LFormato->setCurrentIndex(LFormato->findData(a_la_vista_));
        return;
    }
    a_la_vista_ = articulo();
    Ubicacion->setText(hay_formato()
                           ? QStringLiteral("Articulo_%1_%2.csv").arg(articulo()).arg(ano())
                           : QString());
    CentroBogota->setText(CMeddist->Locate("MMDI_ARTICULO", {articulo()})
                              ? CMeddist->FieldByName("MMDI_PROY").texto()
                              : QString());
    const QStringList escritas = columnas_articulo(articulo());
    for (int i = 0; i < DBGridEh1->cuenta_columnas(); ++i) {
        ColumnaRejilla& c = DBGridEh1->columna(i);
        c.Visible = escritas.contains(c.FieldName) || c.FieldName == QLatin1String("MMDD_ITEM");
    }
}

QString Tfmediosmagbog::condicion() const {
    return "MMDI_ARTICULO = " + QString::number(articulo()) + " and MMDI_ANO = " + QuotedStr(ano());
}

QString Tfmediosmagbog::codigo() const {
    return QString::number(articulo());
}

QString Tfmediosmagbog::calculo() const {
    return "execute procedure " +
           procedimiento(CMeddist->FieldByName("MMDI_PROCEDIMIENTO").texto()) + '(' +
           QuotedStr(ano()) + ", " + QuotedStr(FecIni->text()) + ", " + QuotedStr(FecFin->text()) +
           ", " + QuotedStr(NitShd->text().trimmed()) + ')';
}

QString Tfmediosmagbog::candado() const {
    return "select 1 from MEDIOSMAG_DISTR where " + condicion() + " with lock";
}

void Tfmediosmagbog::ofrezca_formatos() {
    const QString otro = ano_con_articulos(fdm().Quorvex, ano());
    if (otro.isEmpty()) {
        fdm().mostrar_advertencia("El año no tiene artículos: F8 los configura.");
        return;
    }
    if (!pregunte(QStringLiteral("El año %1 no tiene artículos. Desea copiar los de %2, con sus "
                                 "cuentas?")
                      .arg(ano(), otro)))
        return;
    copie_articulos(fdm().Quorvex, otro, ano());
    liste_articulos();
    anuncie(fdm().barra(),
            "Se copiaron los artículos de " + otro + ": revise con F8 sus mínimos y sus cuentas.");
}

QString Tfmediosmagbog::por_configurar() const {
    const Valor cuenta = fdm().Quorvex.consulte(
        "select first 1 MMDC_ITEM from MEDIOSMAG_DISTR_CUENTAS where " + condicion());
    return cuenta.nulo() ? QStringLiteral("El artículo %1 no tiene cuentas: F8 las configura.")
                               .arg(articulo())
                         : QString();
}

void Tfmediosmagbog::prepare_calculo() {
    SecretariaRecordada().recuerde(NitShd->text().trimmed());
    // El centro es del artículo: queda guardado con él.
    fdm().Quorvex.ejecute("update MEDIOSMAG_DISTR set MMDI_PROY = " +
                          QuotedStr(CentroBogota->text().trimmed()) + " where " + condicion());
}

// ---------------------------------------------------------------- órdenes

void Tfmediosmagbog::SBGrabarClick() {
    if (suelte_filas())
        pantallas().abrir("Tfmeddisctas");
}

void Tfmediosmagbog::SpeedButton3Click() {
    if (!CMedmagdata->Active()) {
        fdm().mostrar_advertencia("No hay filas a la vista: F2 las consulta o las calcula.");
        return;
    }
    if (!grabe_cambios())
        return;
    if (CMedmagdata->IsEmpty() &&
        !pregunte_con_no(QStringLiteral("El artículo %1 no tiene filas del año %2: el archivo "
                                        "saldría vacío. Desea grabarlo de todos modos?")
                             .arg(articulo())
                             .arg(ano())))
        return;
    FilasDistrito revisadas(*CMedmagdata);
    const QString falta = por_corregir_articulo(articulo(), revisadas);
    if (!falta.isEmpty() && !pregunte_con_no("Hay filas por corregir: " + falta +
                                             ". Desea grabar el archivo de todos modos?"))
        return;
    FilasDistrito filas(*CMedmagdata);
    AvanceTrabajo avance(this, "Grabando " + ruta(), CMedmagdata->RecordCount());
    const ResultadoMedio r = escriba_articulo(articulo(), ano(), ruta(), filas,
                                              [&](qint64 hechos) { return avance.siga(hechos); });
    diga_lo_grabado(r.cancelado, ruta(), CMedmagdata->RecordCount());
}
