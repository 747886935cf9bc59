#include "tax/tfrngcertificados.h"

#include "sesion/instalacion.h"
#include "tax/archivos_por_tercero.h"
#include "tax/variables_certificado.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/letrero_espera.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSpinBox>

namespace {

const DatosRango kDatosRngcertificados{
    "Tfrngcertificados",
    "Certificados de retención",
    {600, 440},
    "auxiliares.rav",
    "RCertificados",
    "CAuxiliar",
    "Certificados",
    133,
    {{"EDesde", "EHasta", "Cuentas", ClaseRango::Cuenta},
     {"TerIni", "TerFin", "Terceros", ClaseRango::Tercero},
     {"EFecini", "Efecfin", "Fechas", ClaseRango::Fecha, "", "99991231"},
     {"PryIni", "PryFin", "Proyectos", ClaseRango::Proyecto},
     {"CenIni", "CenFin", "Centros", ClaseRango::Centro}}};

struct Clase {
    const char *rotulo, *desde, *hasta, *reporte, *archivo;
};
constexpr Clase kClases[] = {
    {"Retención en la fuente", "2365", "23659999", "Certificado", "en la fuente "},
    {"Iva retenido", "2367", "23679999", "Certificaiva", "de IVA "},
    {"Ica retenido", "2368", "23689999", "Certificaica", "de ICA "},
    {"Retención CREE", "2366", "23669999", "Certificacree", "de CREE "}};
enum { kRenta, kIva, kIca, kCree };

const QStringList& bimestres() {
    static const QStringList todos{"Ene - Feb", "Mar - Abr", "May - Jun",
                                   "Jul - Ago", "Sep - Oct", "Nov - Dic"};
    return todos;
}

void defina(ConjuntoDatos& c) {
    c.texto("NIT", 20).etiqueta("NIT");
    c.texto("NOMBRE", 60).etiqueta("Nombre");
    c.texto("DIRECCION", 60).etiqueta("Dirección");
    c.texto("CIUDAD", 40).etiqueta("Ciudad");
    c.texto("CODCUENTA", 20).etiqueta("Cuenta");
    c.texto("NOMCUENTA", 60).etiqueta("Nombre cuenta");
    c.decimal("BASE").etiqueta("Base").formato("#,###.00");
    c.decimal("RETENCION").etiqueta("Retención").formato("#,###.00");
    c.fecha("FECHAEXP").etiqueta("Expedición");
    c.texto("ADMINISTRACION", 60).etiqueta("Administración");
    c.texto("NUMERO", 20).etiqueta("Número");
    c.decimal("PORC").etiqueta("%").formato("#,##0.00");
    c.decimal("BASEIVA").etiqueta("Base IVA").formato("#,###.00");
    c.decimal("PAGADO").etiqueta("Pagado").formato("#,###.00");
    c.texto("DV", 1).etiqueta("DV");
}

} // namespace

Tfrngcertificados::Tfrngcertificados() : FormaRango(kDatosRngcertificados) {
    defina(CAuxiliar);
    Formulario f(this);
    arme_encabezado(f);
    arme_pares(f);
    f.fila({{"Fecha de expedición:", Fecexp}});
    f.fila("Admón de impuestos:", Admon);
    f.fila({{"Número inicial:", NumIni}, {"", Numerar}});
    arme_titulo(f);
    arme_barra(f);
}

void Tfrngcertificados::arme_encabezado(Formulario& f) {
    Ltipo = new ListaTecleo(this);
    Ltipo->setObjectName("Ltipo");
    for (const Clase& c : kClases)
        Ltipo->addItem(QString::fromUtf8(c.rotulo));
    Lperiodo = new ListaTecleo(this);
    Lperiodo->setObjectName("Lperiodo");
    Label5 = new QLabel(this);
    Label5->setObjectName("Label5");
    Label5->setBuddy(Lperiodo);
    auto* ano = cree_ano("DateAno");
    DateAno = qobject_cast<QSpinBox*>(ano);
    Fecexp = qobject_cast<QDateEdit*>(cree_fecha("Fecexp"));
    Admon = caja("Admon", 60);
    NumIni = caja("NumIni", 20);
    Numerar = casilla("Numerar", "Numerar certificados");
    f.fila("Clase:", Ltipo);
    f.fila("Año gravable:", Formulario::junto({DateAno, Label5, Lperiodo}));
    connect(Ltipo, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { LtipoChange(); }); });
    connect(DateAno, &QSpinBox::valueChanged, this,
            [this] { proteja([this] { ponga_fechas_del_periodo(); }); });
    connect(Lperiodo, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { ponga_fechas_del_periodo(); }); });
}

void Tfrngcertificados::arme_barra(Formulario& f) {
    // F5 es aquí de los archivos: las listas de las cajas se abren con F6.
    quite_tecla(Qt::Key_F5);
    tecla(Qt::Key_F6, "lista", [this] { busque(QApplication::focusWidget()); });
    for (const ParRango& par : datos_.pares)
        for (const QString& nombre : {par.desde, par.hasta})
            if (par.clase != ClaseRango::Fecha)
                findChild<QLineEdit*>(nombre)->setToolTip("F6 o doble clic muestra la lista");
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBImprimir", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { imprimirClick(); }));
    barra->boton("botonExportar", "F4:Exportar", "document-save-as", {},
                 [this] { botonExportarClick(); });
    barra->boton("AdvGlowButton1", "F5:Archivo x Tercero", "application-pdf", Qt::Key_F5,
                 [this] { AdvGlowButton1Click(); });
    barra->boton("SBGrabar", "F8:Configura", "preferences-system", Qt::Key_F8,
                 [] { pantallas().abrir("Tfconfcertrte"); });
    barra->boton("SpeedButton4", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.estire();
    f.botones(barra);
}

void Tfrngcertificados::FormCreate() {
    periodo_ica_ = fdm().valor<Llave::PeriodoIca>();
    FormaRango::FormCreate();
    LtipoChange();
    Ltipo->setFocus();
}

// ---------------------------------------------------------------- clase y período

Tfrngcertificados::Periodo Tfrngcertificados::periodo_de_la_clase() const {
    switch (Ltipo->currentIndex()) {
    case kIva:
        return Periodo::Bimestre;
    case kIca:
        return periodo_ica_ == QLatin1String("ANUAL")     ? Periodo::Ano
               : periodo_ica_ == QLatin1String("MENSUAL") ? Periodo::Mes
                                                          : Periodo::Bimestre;
    default:
        return Periodo::Ano;
    }
}

void Tfrngcertificados::LtipoChange() {
    const Clase& clase = kClases[Ltipo->currentIndex()];
    findChild<QLineEdit*>("EDesde")->setText(clase.desde);
    findChild<QLineEdit*>("EHasta")->setText(clase.hasta);
    const Periodo p = periodo_de_la_clase();
    {
        const QSignalBlocker callada(Lperiodo);
        Lperiodo->clear();
        Lperiodo->addItems(p == Periodo::Mes ? Tfdm::nombres_periodo().mid(0, 12) : bimestres());
    }
    Label5->setText(p == Periodo::Mes ? "Periodo:" : "Bimestre:");
    Label5->setVisible(p != Periodo::Ano);
    Lperiodo->setVisible(p != Periodo::Ano);
    ponga_fechas_del_periodo();
}

void Tfrngcertificados::ponga_fechas_del_periodo() {
    int primero = 1, ultimo = 12;
    switch (periodo_de_la_clase()) {
    case Periodo::Bimestre:
        primero = 1 + 2 * Lperiodo->currentIndex();
        ultimo = primero + 1;
        break;
    case Periodo::Mes:
        primero = ultimo = 1 + Lperiodo->currentIndex();
        break;
    default:
        break;
    }
    const int ano = DateAno->value();
    const QDate fin(ano, ultimo, QDate(ano, ultimo, 1).daysInMonth());
    findChild<QLineEdit*>("EFecini")->setText(QDate(ano, primero, 1).toString("yyyyMMdd"));
    findChild<QLineEdit*>("Efecfin")->setText(fin.toString("yyyyMMdd"));
}

// ---------------------------------------------------------------- informe

QString Tfrngcertificados::sql() {
    return "select * from certificados_retencion(" +
           argumentos({"EDesde", "EHasta", "TerIni", "TerFin", "EFecini", "Efecfin", "PryIni",
                       "PryFin", "CenIni", "CenFin"}) +
           ", " + QuotedStr(fecha("Fecexp").toString("yyyy/MM/dd")) + ", " +
           entre_comillas("Admon") +
           (marcada(Numerar) ? ", 'S', " + entre_comillas("NumIni") + ")" : ", 'N', '0')");
}

QString Tfrngcertificados::titulo() {
    return tramo("Cuentas:", "EDesde", "EHasta") + tramo(" Terceros:", "TerIni", "TerFin") +
           tramo(" Fechas:", "EFecini", "Efecfin");
}

QString Tfrngcertificados::reporte() {
    return kClases[Ltipo->currentIndex()].reporte;
}

void Tfrngcertificados::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    fije_compania(motor);
    motor.fijar_parametro("Ano", DateAno->text());
    motor.fijar_parametro("Inicial", QString::number(Lperiodo->currentIndex() + 1));
    motor.fijar_parametro("Final", Lperiodo->currentText());
    if (Ltipo->currentIndex() == kIca && periodo_de_la_clase() == Periodo::Ano)
        motor.fijar_texto("certificaICA.Page1", "DataText17", {});
}

QString Tfrngcertificados::aviso_sin_tercero() {
    const Valor suma = fdm().Quorvex.consulte(
        "select sum(CODE_CREDITO - CODE_DEBITO) from COMPROBANTE_DETALLE where TERC_NIT is null "
        "and CUEN_COD >= ? and (CUEN_COD <= ? or CUEN_COD starting with ?) and CODE_FECHA between "
        "? and ?",
        {Valor(valor("EDesde")), Valor(valor("EHasta")), Valor(valor("EHasta")),
         Valor(valor("EFecini")), Valor(valor("Efecfin"))});
    if (suma.nulo() || suma.moneda().es_cero())
        return {};
    return "Hay retenciones por " + suma.moneda().formateada() +
           " en líneas sin tercero: no están en ningún certificado.";
}

void Tfrngcertificados::antes_de_abrir() {
    if (const QString aviso = aviso_sin_tercero(); !aviso.isEmpty())
        fdm().mostrar_advertencia(aviso);
}

// ---------------------------------------------------------------- un archivo por tercero

QString Tfrngcertificados::carpeta_de_archivos() {
    const QString carpeta = fdm().valor<Llave::CarpetaCertificados>();
    // Se escoge en la configuración: aquí no hay caja a la que ir.
    QWidget* donde = focusWidget() ? focusWidget() : Ltipo;
    if (carpeta.isEmpty())
        rehuse(donde, "Falta en la configuración la carpeta para ubicar los archivos de "
                      "certificados generados como PDF.");
    const QFileInfo destino(carpeta);
    if (!destino.isDir() || !destino.isWritable())
        rehuse(donde, QStringLiteral("No se puede escribir en la carpeta de los certificados, "
                                     "\"%1\": créela o cámbiela en la configuración.")
                          .arg(carpeta));
    return carpeta;
}

void Tfrngcertificados::grabe_uno(ConjuntoDatos& filas, const QString& ruta) {
    MotorInformes motor(this);
    motor.ProjectFile = ruta_informe(datos_.proyecto);
    motor.abrir_proyecto(motor.ProjectFile);
    fije_variables(motor, ETit->text());
    motor.conecte(datos_.conexion, filas);
    motor.seleccionar_reporte(reporte());
    ajuste_reporte(motor, reporte() + ".Page1");
    motor.ejecutar_en(ruta);
    motor.cerrar();
}

ResumenArchivos Tfrngcertificados::grabe_archivos(const QString& comienzo) {
    const auto cierre = qScopeGuard([this] {
        CAuxiliar.Close();
        Panel5->setText("Generando informe. espere un momento...");
        Panel5->hide();
    });
    Panel5->muestre();
    CAuxiliar.Unidireccional = true;
    CAuxiliar.Open(sql());
    ConjuntoDatos uno(nullptr, "CUno");
    defina(uno);
    AvanceTrabajo avance(this, "Generando certificados");
    return archivos_por_tercero(
        CAuxiliar, uno, comienzo,
        [&](const QString& nit, int hechos) {
            Panel5->diga("Generando certificado del NIT " + nit);
            return avance.siga(hechos, Panel5->text());
        },
        [&](const QString& ruta) { grabe_uno(uno, ruta); });
}

void Tfrngcertificados::AdvGlowButton1Click() {
    if (!fdm().exija_acceso(datos_.opcion_exportar))
        return;
    const QString carpeta = carpeta_de_archivos();
    complete_rangos();
    // La pantalla sigue abierta: el título de este período no es el de los archivos del siguiente.
    const auto devuelva = qScopeGuard([this, propio = ETit->text()] { ETit->setText(propio); });
    compone_titulo();
    const ResumenArchivos r = grabe_archivos(carpeta + "/Certificado retencion " +
                                             kClases[Ltipo->currentIndex()].archivo);
    for (const QString& falla : r.fallas) // a la vista solo caben las primeras
        fdm().registre_en_archivo("Certificado del NIT " + falla);
    const QString aviso = aviso_sin_tercero();
    muestre_mensaje(r.texto(carpeta) + (aviso.isEmpty() ? QString() : '\n' + aviso));
}
