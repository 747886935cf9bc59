#include "tax/tfmediosmag.h"

#include "catalogues/columnas_auxiliar.h"
#include "datos/firebird/concuerde.h"
#include "libro/fechas.h"
#include "sesion/tfdm.h"
#include "tax/forma_medio.h"
#include "tax/medio_distrital.h"
#include "tax/procedimiento.h"
#include "toolkit/avance_trabajo.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/fecha_contable.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QToolButton>

namespace {

constexpr int kFecha = 8;         ///< letras de una fecha
constexpr int kLetrasNombre = 20; ///< de un nombre, las que siempre se leen

QLineEdit* nueva_caja(QWidget* padre, const char* nombre, int largo) {
    auto* c = new QLineEdit(padre);
    c->setObjectName(nombre);
    c->setMaxLength(largo);
    if (largo == kFecha)
        c->setMaximumWidth(ancho_caracteres(c->fontMetrics(), largo + 2));
    return c;
}

/// "NOMBRE_CUENTA": "Nombre cuenta"; una sigla queda como está.
QString titulo_de(const QString& columna) {
    if (columna.size() <= 3)
        return columna;
    QString titulo = columna.left(1) + columna.mid(1).toLower().replace('_', ' ');
    // En la base los nombres de las columnas no llevan tildes.
    for (const auto& [sin, con] : {std::pair{"ebito", "ébito"},
                                   {"edito", "édito"},
                                   {"eccion", "ección"},
                                   {"etencion", "etención"}})
        titulo.replace(sin, con);
    return titulo;
}

} // namespace

Tfmediosmag::Tfmediosmag() : Pantalla("Tfmediosmag", "Inf. Exógena CSV") {
    auto* listados = new Sentencia(this, "QListados", fdm().Quorvex,
                                   "select * from MEDIOSMAG_LISTADOS order by MM14_ID");
    CListados = new ConjuntoDatos(this, "CListados", new Proveedor(this, "PListados", listados));
    auto* datos = new Sentencia(this, "QMedmagdata", fdm().Quorvex);
    CMedmagdata = new ConjuntoDatos(this, "CMedmagdata",
                                    new Proveedor(this, "PMedmagdata", datos, poAllowCommandText));
    CMedmagdata->Instantanea = true;
    arme();
    enter_como_tab();
    tamano(900, 540);
}

void Tfmediosmag::arme() {
    const auto caja = [this](const char* nombre, int largo) {
        return nueva_caja(this, nombre, largo);
    };
    FecIni = caja("FecIni", kFecha);
    FecFin = caja("FecFin", kFecha);
    admita_barras(FecIni);
    admita_barras(FecFin);
    Ubicacion = caja("Ubicacion", 400);
    LFormato = new ListaTecleo(this);
    LFormato->setObjectName("LFormato");
    // Las filas a la vista son de lo que se consultó: con otro listado o fecha ya no lo son.
    const auto suelte = [this] { proteja([this] { CMedmagdata->Close(); }); };
    connect(LFormato, &QComboBox::currentIndexChanged, this, suelte);
    for (QLineEdit* f : {FecIni, FecFin})
        connect(f, &QLineEdit::textChanged, this, suelte);
    auto* otra = new QToolButton(this);
    otra->setObjectName("SpeedButton1");
    otra->setText("...");
    otra->setAccessibleName("Escoger el archivo");
    connect(otra, &QToolButton::clicked, this, [this] {
        ejecute([this] {
            const QString actual =
                Ubicacion->text().isEmpty() ? QStringLiteral("exogena.csv") : Ubicacion->text();
            if (const auto escogido = pida_archivo(this, {.nombre = "escoja_archivo",
                                                          .titulo = "Nombre del archivo",
                                                          .sugerido = actual,
                                                          .filtro = "Archivos CSV (*.csv)"}))
                Ubicacion->setText(escogido->ruta);
        });
    });
    DBGridEh1 = new Rejilla(this, CMedmagdata);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Resultado del listado");
    DBGridEh1->setProperty(AnchosRejilla::kLetrasDeNombre, kLetrasNombre);
    DBGridEh1->ReadOnly = true;
    DBGridEh1->orden_local = true;
    DBGridEh1->texto_vacio = "No hay filas entre las dos fechas.";
    DBGridEh1->setProperty("sin_consultar",
                           "No hay filas: F2 consulta el listado entre las dos fechas.");
    DBGridEh1->nombre_archivo = "Exogena";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton5", "F2:Ejecutar", "system-run", Qt::Key_F2,
                                  [this] { abre_query(); }));
    barra->boton("SpeedButton3", "F5:Graba CSV", "document-save", Qt::Key_F5,
                 [this] { SpeedButton3Click(); });
    barra->boton("SpeedButton2", "F6:Grabar XLS", "x-office-spreadsheet", Qt::Key_F6,
                 [this] { SpeedButton2Click(); });
    barra->separe();
    barra->boton("SpeedButton4", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila("Fecha inicial:", en_flujo({FecIni, con_rotulo("Fecha final", FecFin)}, paso()));
    f.fila("Formato de Archivo:", LFormato);
    f.fila("Nombre archivo:", Formulario::junto({Ubicacion, otra}));
    f.ancha(DBGridEh1).botones(barra);
}

void Tfmediosmag::FormCreate() {
    fdm().ConfigurarProviders(this);
    FecIni->setText(primer_dia_del_periodo());
    FecFin->setText(ultimo_dia_del_periodo());
    CListados->Open();
    CListados->FetchAll();
    for (CListados->First(); !CListados->Eof(); CListados->Next())
        LFormato->addItem(CListados->FieldByName("MM14_NOMBRE").texto());
    FecIni->setFocus();
}

bool Tfmediosmag::FormClose() {
    CMedmagdata->Close();
    CListados->Close();
    return true;
}

bool Tfmediosmag::abre_query() {
    for (QLineEdit* f : {FecIni, FecFin})
        if (revise_fecha(f->text())) {
            fdm().mostrar_advertencia("\"" + f->text() + "\" no es una fecha: use aaaammdd.");
            f->setFocus();
            return false;
        }
    if (!CListados->Locate("MM14_NOMBRE", {LFormato->currentText()}))
        return false;
    CMedmagdata->Open("select * from " +
                      procedimiento(CListados->FieldByName("MM14_PROCEDIMIENTO").texto()) + '(' +
                      QuotedStr(FecIni->text()) + ',' + QuotedStr(FecFin->text()) + ')');
    for (int i = 0; i < CMedmagdata->FieldCount(); ++i) {
        Campo& campo = CMedmagdata->Fields(i);
        campo.etiqueta(titulo_de(campo.FieldName));
        if (campo.clase == ClaseCampo::Decimal)
            campo.formato("#,##0.00");
    }
    DBGridEh1->columnas_del_conjunto();
    return true;
}

bool Tfmediosmag::exija_nombre() {
    if (!Ubicacion->text().trimmed().isEmpty())
        return CMedmagdata->Active() || abre_query();
    muestre_mensaje("Debe indicar el nombre del archivo a generar.");
    Ubicacion->setFocus();
    return false;
}

void Tfmediosmag::SpeedButton3Click() {
    if (!exija_nombre())
        return;
    const QString ruta = QDir(QDir::homePath()).absoluteFilePath(Ubicacion->text().trimmed());
    CMedmagdata->FetchAll();
    AvanceTrabajo avance(this, "Grabando " + ruta, CMedmagdata->RecordCount());
    const ResultadoMedio r =
        archivo_csv(*CMedmagdata, ruta, [&](qint64 hechos) { return avance.siga(hechos); });
    diga_lo_grabado(r.cancelado, ruta, CMedmagdata->RecordCount());
}

void Tfmediosmag::SpeedButton2Click() {
    if (!exija_nombre())
        return;
    DBGridEh1->nombre_archivo = QFileInfo(Ubicacion->text().trimmed()).completeBaseName();
    DBGridEh1->seleccione_todo();
    DBGridEh1->guarde_seleccion();
}
