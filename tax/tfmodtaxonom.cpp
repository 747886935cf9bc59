#include "tax/tfmodtaxonom.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/recordset/consecutivo.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/instalacion.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "sesion/variables_informe.h"
#include "tax/taxonomia.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/fechadato.h"
#include "toolkit/dialogos.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/informes/motor.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QUrl>

namespace {

const char* const kPlantilla = "taxonomia.fr3";

} // namespace

Tfmodtaxonom::Consultas Tfmodtaxonom::cree_consultas() {
    Consultas c{new Sentencia(nullptr, "QTaxencabeza", fdm().Quorvex),
                new Sentencia(nullptr, "QTaxdetalle", fdm().Quorvex,
                              "SELECT * FROM TAXONOMIA_DETALLE WHERE TAXO_ID = :TAXO_ID and "
                              "TAXE_ID = :TAXE_ID order by TAXD_ITEM")};
    c.renglones->enlace_maestra(c.categorias, {"TAXO_ID", "TAXE_ID"});
    return c;
}

Tfmodtaxonom::Tfmodtaxonom() : Tfmodtaxonom(cree_consultas()) {}

Tfmodtaxonom::Tfmodtaxonom(Consultas consultas)
    : MaestroDetalle("Tfmodtaxonom", "Taxonomía", "PTaxencabeza", *consultas.categorias,
                     poCascadeDeletes | poCascadeUpdates, "CTaxencabeza", "CTaxdetalle",
                     *consultas.renglones),
      categorias_(consultas.categorias) {
    consultas.categorias->setParent(this);
    consultas.renglones->setParent(this);
    defina_campos();
    arme_panel();
    arme({"Categorías", {{"TAXE_ID", "Cód.", 8}, {"TAXE_NOMBRE", "Categoría", 30}}, 3},
         {"Renglones",
          {{"TAXD_ITEM", "Item", 7},
           {"TAXD_NOMBRE", "Descripción", 56},
           {"TAXD_TIPO", "Tipo", 10},
           {"TAXD_NIVEL", "Nivel", 6},
           {"TAXD_NORMA", "Norma", 24}},
          7,
          Panel});
    DBGridEh2->lista("TAXD_TIPO", {"Título", "Cuentas", "Suma"}, {"0", "1", "2"});
    DBGridEh2->sangre("TAXD_NOMBRE", [this](int fila) {
        return qMax(0, int(detalle_->valor_en(fila, detalle_->FieldByName("TAXD_NIVEL")).entero()) -
                           1);
    });
    DBGridEh2->OnGetCellParams = [this](int fila, QFont& letra, QColor&, QColor&) {
        letra.setBold(detalle_->valor_en(fila, detalle_->FieldByName("TAXD_TIPO")).entero() != 1);
    };
    for (Rejilla* r : {DBGridEh1, DBGridEh2}) {
        r->nombre_archivo = "Taxonomia";
        r->titulo_impreso = windowTitle() + "  %[Today]";
        r->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                           Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    }
    maestro_->AfterInsert = [this] { CTaxencabezaAfterInsert(); };
    detalle_->AfterInsert = [this] { CTaxdetalleAfterInsert(); };
    arme_barra();
    tamano(1100, 600);
}

void Tfmodtaxonom::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    maestro_->entero("TAXO_ID").banderas(kLlave);
    maestro_->entero("TAXE_ID").requerido().banderas(kLlave).etiqueta("Cód.");
    maestro_->texto("TAXE_NOMBRE", 100).requerido().etiqueta("Categoría");
    detalle_->entero("TAXO_ID").banderas(kLlave);
    detalle_->entero("TAXE_ID").banderas(kLlave);
    detalle_->entero("TAXD_ITEM").requerido().banderas(kLlave).etiqueta("Item");
    detalle_->texto("TAXD_NOMBRE", 255).etiqueta("Descripción");
    detalle_->entero("TAXD_TIPO").etiqueta("Tipo");
    detalle_->entero("TAXD_NIVEL").etiqueta("Nivel");
    detalle_->texto("TAXD_NORMA", 255).etiqueta("Norma");
    auto* resultado = new Sentencia(this, "QImprtax", fdm().Quorvex);
    CImprtax = new ConjuntoDatos(this, "CImprtax",
                                 new Proveedor(this, "PImprtax", resultado, poAllowCommandText));
    CImprtax->Instantanea = true;
    defina_resultado(*CImprtax);
}

void Tfmodtaxonom::arme_panel() {
    Panel = new QFrame(this);
    Panel->setObjectName("Panel");
    Panel->setFrameShape(QFrame::StyledPanel);
    auto* fila = new QHBoxLayout(Panel);
    auto* rotulo = new QLabel("Saldos a:", Panel);
    EFecIni = new FechaDato(Panel);
    EFecIni->setObjectName("EFecIni");
    EFecIni->setAccessibleName("Saldos a");
    rotulo->setBuddy(EFecIni);
    const auto boton = [this](const char* nombre, const char* texto) {
        auto* b = new QPushButton(texto, Panel);
        b->setObjectName(nombre);
        return b;
    };
    imprimir_ = boton("SBImprimir2", "F2:Imprimir");
    exportar_ = boton("SBExportar2", "F2:Exportar");
    auto* disenar = boton("SBDisenar", "F5:Diseñar");
    connect(imprimir_, &QPushButton::clicked, this, [this] { ejecute([this] { imprima(); }); });
    connect(exportar_, &QPushButton::clicked, this, [this] { ejecute([this] { exporte(); }); });
    connect(disenar, &QPushButton::clicked, this, [this] { ejecute([this] { disene(); }); });
    for (QWidget* w :
         std::initializer_list<QWidget*>{rotulo, EFecIni, imprimir_, exportar_, disenar})
        fila->addWidget(w);
    fila->addStretch(1);
    Panel->hide();
}

void Tfmodtaxonom::arme_barra() {
    barra_->principal(
        barra_->boton("SBGrabar", "F2:Grabar", "document-save", {}, [this] { grabe(); }));
    barra_->boton("SBCuentas", "F6:Cuentas", "x-office-address-book", Qt::Key_F6,
                  [this] { abra_del_renglon("Tftaxcuentas"); });
    barra_->boton("SBNotas", "F7:Notas", "accessories-text-editor", Qt::Key_F7,
                  [this] { abra_del_renglon("Tftaxnotas"); });
    barra_->boton("SBImprimir", "F8:Imprimir", "document-print", Qt::Key_F8,
                  [this] { muestre_panel(true); });
    barra_->boton("SBExportar", "F9:Exportar", "document-save-as", Qt::Key_F9,
                  [this] { muestre_panel(false); });
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { salga(); });
    tecla(Qt::Key_F2, "Grabar o aceptar el panel abierto", [this] { acepte(); });
    tecla(Qt::Key_F5, "F5:Diseñar", [this] { disene(); });
}

void Tfmodtaxonom::FormCreate() {
    fdm().ConfigurarProviders(this);
    const auto pedida = peticion<AbreTaxonomia>();
    taxonomia_ = pedida.taxonomia;
    setWindowTitle("Taxonomía " + pedida.nombre);
    categorias_->SQL =
        QStringLiteral("SELECT * FROM TAXONOMIA_ENCABEZA where TAXO_ID = %1 order by "
                       "TAXE_ID")
            .arg(QString::number(taxonomia_));
    EFecIni->fecha(QDate(fdmcnt().ano_actual.toInt(), 12, 31));
    maestro_->Open();
    DBGridEh1->setFocus();
}

int Tfmodtaxonom::seccion() const {
    return int(maestro_->FieldByName("TAXE_ID").entero());
}

// ---------------------------------------------------------------- filas

void Tfmodtaxonom::CTaxencabezaAfterInsert() {
    maestro_->FieldByName("TAXO_ID") = taxonomia_;
    maestro_->FieldByName("TAXE_ID") = mayor_de(*maestro_, "TAXE_ID") + 1;
}

void Tfmodtaxonom::CTaxdetalleAfterInsert() {
    // El siguiente de su categoría, contando los que aún no se graban; nace con el nivel del
    // último.
    const qint64 ultimo = mayor_de(*detalle_, "TAXD_ITEM");
    Valor nivel(1);
    detalle_->recorra_todas([&](const Fila& fila) {
        if (detalle_->valor_de(fila, detalle_->FieldByName("TAXD_ITEM")).entero() == ultimo)
            nivel = detalle_->valor_de(fila, detalle_->FieldByName("TAXD_NIVEL"));
    });
    detalle_->FieldByName("TAXO_ID") = taxonomia_;
    detalle_->FieldByName("TAXE_ID") = seccion();
    detalle_->FieldByName("TAXD_ITEM") = ultimo + 1;
    detalle_->FieldByName("TAXD_TIPO") = 1;
    detalle_->FieldByName("TAXD_NIVEL") = nivel;
}

bool Tfmodtaxonom::grabe() {
    for (ConjuntoDatos* c : {detalle_, maestro_})
        c->CheckBrowseMode();
    return grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle()) == 0;
}

void Tfmodtaxonom::abra_del_renglon(const QString& pantalla) {
    // Las cuentas y las notas cuelgan de un renglón ya grabado.
    if (!grabe())
        return;
    if (detalle_->IsEmpty()) {
        QApplication::beep();
        return;
    }
    pantallas().abrir(pantalla,
                      AbreRenglonTaxonomia{taxonomia_, seccion(),
                                           int(detalle_->FieldByName("TAXD_ITEM").entero()),
                                           detalle_->FieldByName("TAXD_NOMBRE").texto()});
}

// ---------------------------------------------------------------- impresión y archivo

void Tfmodtaxonom::muestre_panel(bool imprime) {
    imprime_ = imprime;
    imprimir_->setVisible(imprime);
    exportar_->setVisible(!imprime);
    Panel->show();
    EFecIni->setFocus();
}

void Tfmodtaxonom::acepte() {
    if (Panel->isHidden())
        grabe();
    else if (imprime_)
        imprima();
    else
        exporte();
}

void Tfmodtaxonom::salga() {
    if (Panel->isHidden()) {
        cancele_y_cierre();
        return;
    }
    Panel->hide();
    DBGridEh2->setFocus();
}

bool Tfmodtaxonom::abra_resultado() {
    if (!grabe())
        return false;
    if (EFecIni->vacia()) {
        advierta_de_pantalla("Digite la fecha de los saldos.");
        EFecIni->setFocus();
        return false;
    }
    // Los saldos son de fin de mes: la fecha que se imprime también.
    const QDate dia = EFecIni->fecha();
    EFecIni->fecha(QDate(dia.year(), dia.month(), dia.daysInMonth()));
    CImprtax->Open(sql_taxonomia(taxonomia_, seccion(), EFecIni->fecha_texto()));
    if (!CImprtax->IsEmpty())
        return true;
    muestre_mensaje("No hay datos que cumplan con los rangos indicados.");
    return false;
}

void Tfmodtaxonom::imprima() {
    if (!abra_resultado())
        return;
    MotorInformes motor(this);
    motor.nombre_archivo = "Taxonomia";
    motor.ProjectFile = ruta_informe(kPlantilla);
    motor.abrir_proyecto(motor.ProjectFile);
    fije_variables(motor, windowTitle());
    motor.conecte("RTaxonomia", *CImprtax);
    motor.seleccionar_reporte("Taxonomia");
    const QString pagina = "Taxonomia.Page1";
    motor.fijar_texto(pagina, "Memo17", fdm().valor<Llave::NombreCompania>());
    motor.fijar_texto(pagina, "Memo27", "Saldos a: " + EFecIni->fecha().toString("d/M/yyyy"));
    motor.fijar_texto(pagina, "Memo5", CImprtax->FieldByName("FECHAA").texto().left(4));
    motor.fijar_texto(pagina, "Memo6", EFecIni->fecha_texto().left(4));
    motor.ejecutar();
    motor.cerrar();
    CImprtax->Close();
    Panel->hide();
}

void Tfmodtaxonom::disene() {
    const QString ruta = ruta_informe(kPlantilla);
    if (!QFile::exists(ruta)) {
        // La del programa es el punto de partida de la propia.
        QDir().mkpath(QFileInfo(ruta).path());
        if (!QFile::copy(QStringLiteral(":/informes/") + kPlantilla, ruta))
            throw ErrorDatos("No se pudo escribir la plantilla en \"" + ruta + "\".");
        QFile::setPermissions(ruta, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                        QFile::ReadOther);
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(ruta)))
        fdm().mostrar_advertencia("El equipo no tiene con qué abrir la plantilla; está en " + ruta);
}

void Tfmodtaxonom::exporte() {
    if (!abra_resultado())
        return;
    const QString ano = EFecIni->fecha_texto().left(4);
    const auto escogido = pida_archivo(
        this, {.nombre = "escoja_archivo",
               .titulo = "Nombre del archivo",
               .sugerido = QStringLiteral("taxonomia_%1_%2.xml").arg(seccion()).arg(ano),
               .filtro = "Archivos XML (*.xml)"});
    if (!escogido)
        return;
    const QString& ruta = escogido->ruta;
    exporte_taxonomia(*CImprtax, ano, ruta);
    CImprtax->Close();
    Panel->hide();
    anuncie(fdm().barra(), "Se grabó " + ruta +
                               ". La cabecera (Cab) va sin cerrar, como la espera quien lo recibe: "
                               "otros programas pueden decir que no es un XML completo.");
}
