#include "reports/tfformatoconta.h"

#include "reports/definicion_informe.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>

namespace {

constexpr int kMayorCodigo = 999999;

/// La copia de un informe: cada orden toma el código nuevo y, tras WHERE, el del original. De la
/// primera, además, el nombre. Las columnas son las de siempre: la página, el factor, el proyecto,
/// el centro, la imagen y el libro del original no pasan a la copia.
struct OrdenCopia {
    const char *inserte, *seleccione;
    bool con_nombre;
};
constexpr OrdenCopia kCopia[] = {
    {"INSERT INTO FORMATOS_CONTABLES (FOCO_ID, FOCO_NOMBRE, FOCO_IMPRESORA, FOCO_LINEAS, "
     "FOCO_TITULO, FOCO_SUBTITULO) SELECT ",
     ", FOCO_IMPRESORA, FOCO_LINEAS, FOCO_TITULO, FOCO_SUBTITULO FROM FORMATOS_CONTABLES WHERE "
     "FOCO_ID = ",
     true},
    {"INSERT INTO FORMATOCONTABLE_DETALLE (FOCO_ID, FOCD_ITEM, FOCD_DATO, FOCD_CUENTA, FOCD_POSX, "
     "FOCD_POSY, FOCD_OPER, FOCD_LONG, FOCD_FONT, FOCD_FSIZE, FOCD_INI) SELECT ",
     ", FOCD_ITEM, FOCD_DATO, FOCD_CUENTA, FOCD_POSX, FOCD_POSY, FOCD_OPER, FOCD_LONG, FOCD_FONT, "
     "FOCD_FSIZE, FOCD_INI FROM FORMATOCONTABLE_DETALLE WHERE FOCO_ID = ",
     false},
    {"INSERT INTO FORMATOCONTABLE_TEXTOS (FOCO_ID, FOCD_ITEM, FOCD_TIPO, FOCD_X, FOCD_Y, "
     "FOCD_POSX, FOCD_POSY, FOCD_CADENA, FOCD_FONT, FOCD _FSIZE) SELECT ",
     ", FOCD_ITEM, FOCD_TIPO, FOCD_X, FOCD_Y, FOCD_POSX, FOCD_POSY, FOCD_CADENA, FOCD_FONT, "
     "FOCD _FSIZE FROM FORMATOCONTABLE_TEXTOS WHERE FOCO_ID = ",
     false},
};

/// La base no conoce nombres partidos: las dos mitades de "FOCD _FSIZE" van juntas.
QString nombres_enteros(const char* sql) {
    return QString::fromLatin1(sql).replace(QLatin1String(" _"), QLatin1String("_"));
}

} // namespace

Tfformatoconta::Tfformatoconta() : Pantalla("Tfformatoconta", "Formatos especiales") {
    CFormatos.entero("FOCO_ID");
    CFormatos.texto("FOCO_NOMBRE", 60);
    CFormatos.texto("FOCO_TITULO", 60);
    CFormatos.entero("FOCO_PAGINAS");
    CFormatos.bandera("FOCO_NIIF");

    DBGridEh1 = new Rejilla(this, &CFormatos);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Formatos especiales");
    DBGridEh1->ReadOnly = true;
    DBGridEh1->orden_local = true;
    DBGridEh1->columnas({{"FOCO_ID", "Código", 8},
                         {"FOCO_NOMBRE", "Nombre", 40},
                         {"FOCO_TITULO", "Título", 40},
                         {"FOCO_PAGINAS", "Páginas", 8},
                         {"FOCO_NIIF", "Niif", 6, Casilla}});
    DBGridEh1->texto_vacio = "No hay formatos. F5 crea el primero.";
    DBGridEh1->nombre_archivo = "FormatosEspeciales";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { SBEditClick(); };

    auto* barra = new BarraBotones(this);
    barra->boton("SBNuevo", "F5:Nuevo", "document-new", Qt::Key_F5, [this] { SBNuevoClick(); });
    barra->boton("SBEdit", "F4:Modificar", "accessories-text-editor", Qt::Key_F4,
                 [this] { SBEditClick(); });
    barra->principal(barra->boton("SpeedButton1", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBBorrar", "F3:Borrar", "edit-delete", Qt::Key_F3, [this] { SBBorrarClick(); });
    barra->boton("SpeedButton2", "F8:Copiar", "edit-copy", Qt::Key_F8,
                 [this] { PanelCopia->isVisible() ? SpeedButton3Click() : SpeedButton2Click(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape,
                 [this] { SBSalirClick(); });
    Formulario(this).ancha(DBGridEh1).ancha(cree_panel(), 0).botones(barra);
    tamano(820, 440);
}

QGroupBox* Tfformatoconta::cree_panel() {
    PanelCopia = new QGroupBox("Copiar el formato", this);
    PanelCopia->setObjectName("PanelCopia");
    ECodigo = new QSpinBox;
    ECodigo->setObjectName("ECodigo");
    ECodigo->setRange(0, kMayorCodigo);
    ECodigo->setSpecialValueText(" ");
    ENombre = new QLineEdit;
    ENombre->setObjectName("ENombre");
    ENombre->setMaxLength(60);
    auto* copie = new QPushButton("F8:Copiar");
    copie->setObjectName("SpeedButton3");
    copie->setAutoDefault(false);
    connect(copie, &QPushButton::clicked, this,
            [this] { ejecute([this] { SpeedButton3Click(); }); });
    Formulario(PanelCopia)
        .fila({{"Nuevo Código:", ECodigo}, {"Nuevo nombre:", ENombre}, {"", copie}});
    PanelCopia->hide();
    return PanelCopia;
}

void Tfformatoconta::FormCreate() {
    fdm().ConfigurarProviders(this);
    CFormatos.Open();
    DBGridEh1->setFocus();
}

void Tfformatoconta::FormActivate() {
    if (CFormatos.Active())
        CFormatos.Refresh();
}

// ---------------------------------------------------------------- órdenes

void Tfformatoconta::abra(const char* pantalla) {
    if (CFormatos.IsEmpty())
        QApplication::beep();
    else
        pantallas().abrir(pantalla, AbreFormatoEspecial{codigo()});
}

void Tfformatoconta::SBNuevoClick() {
    pantallas().abrir("Tfnvoformato");
}

void Tfformatoconta::SBEditClick() {
    abra("Tfmodformato");
}

void Tfformatoconta::SpeedButton1Click() {
    abra("Tfimpinforme");
}

void Tfformatoconta::SBBorrarClick() {
    if (CFormatos.IsEmpty()) {
        QApplication::beep();
        return;
    }
    if (!pregunte_con_no("Esta seguro de borrar el formato " +
                         CFormatos.FieldByName("FOCO_NOMBRE").texto() + "?"))
        return;
    // Sus renglones se van con él, en la base.
    fdm().CBorrar.Execute("delete from formatos_contables where foco_id = " +
                          QString::number(codigo()));
    CFormatos.Refresh();
}

void Tfformatoconta::SpeedButton2Click() {
    if (CFormatos.IsEmpty()) {
        QApplication::beep();
        return;
    }
    ECodigo->setValue(0);
    ENombre->clear();
    PanelCopia->show();
    ECodigo->setFocus();
    ECodigo->selectAll();
}

void Tfformatoconta::SpeedButton3Click() {
    const int nuevo = ECodigo->value();
    if (nuevo == 0 || !fdm()
                           .CBorrar
                           .valor_unico("select foco_id from formatos_contables where foco_id = " +
                                        QString::number(nuevo))
                           .nulo()) {
        muestre_mensaje(
            nuevo == 0 ? QStringLiteral("Digite el código del formato nuevo.")
                       : QStringLiteral("Ya existe el formato %1: digite otro código.").arg(nuevo));
        ECodigo->setFocus();
        return;
    }
    fdm().Quorvex.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& transaccion) {
        for (const OrdenCopia& o : kCopia) {
            QString sql = nombres_enteros(o.inserte) + QString::number(nuevo);
            if (o.con_nombre)
                sql += ", " + QuotedStr(ENombre->text());
            sql += nombres_enteros(o.seleccione) + QString::number(codigo());
            fdm().Quorvex.prepare(sql, transaccion)->ejecute(transaccion, {});
        }
    });
    PanelCopia->hide();
    CFormatos.Refresh();
    CFormatos.Locate("FOCO_ID", {nuevo});
    DBGridEh1->setFocus();
}

void Tfformatoconta::SBSalirClick() {
    if (PanelCopia->isVisible()) {
        PanelCopia->hide();
        DBGridEh1->setFocus();
        return;
    }
    close();
}
