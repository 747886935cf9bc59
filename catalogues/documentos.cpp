#include "catalogues/documentos.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {

ConjuntoDatos& conjunto_de_documentos(QObject* dueno, const DatosDocumentos& d) {
    auto* proveedor = new Proveedor(dueno, "PDocs", &d.sentencia(dueno), poAllowCommandText);
    auto* c = new ConjuntoDatos(dueno, "CDocs", proveedor);
    d.campos(*c);
    return *c;
}

ConjuntoDatos& conjunto_de_ordenes(QObject* dueno) {
    return *new ConjuntoDatos(dueno, "CBorrar",
                              new Proveedor(dueno, "PBorrar", &fdm().QBorrar, poAllowCommandText));
}

QString consulta(const DatosDocumentos& d, const QString& maestro) {
    return QStringLiteral("select * from %1 where %2 = ").arg(d.tabla, d.llave) +
           QuotedStr(maestro);
}

} // namespace

// ---------------------------------------------------------------- lista

PantallaDocumentos::PantallaDocumentos(const DatosDocumentos& datos)
    : Pantalla(datos.lista, datos.titulo), datos_(datos),
      CDocs(conjunto_de_documentos(this, datos)), CBorrar(conjunto_de_ordenes(this)) {
    DBGridEh1 = new Rejilla(this, &CDocs);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{datos.item, "Ítem", 6}, {datos.nombre, "Documento", 48}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = datos.vacio;

    auto* barra = new BarraBotones(this);
    barra->boton("PngSpeedButton1", "F5:Agregar", "list-add", QKeySequence(Qt::Key_F5),
                 [this] { PngSpeedButton1Click(); });
    barra->boton("PngSpeedButton3", "F3:Eliminar", "edit-delete", QKeySequence(Qt::Key_F3),
                 [this] { PngSpeedButton3Click(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                 [this] { close(); });
    Formulario(this).ancha(DBGridEh1).botones(barra);
    tamano(640, 420);

    CDocs.BeforeScroll = [this] { visor_.retire(); };
    CDocs.AfterScroll = [this] {
        visor_.muestre(CDocs.FieldByName(datos_.archivo).valor().binario(), nombre_archivo());
    };
    CDocs.AfterClose = [this] { visor_.retire(); };
}

void PantallaDocumentos::FormCreate() {
    fdm().ConfigurarProviders(this);
    CDocs.PacketRecords = 5; // cada fila trae su documento entero
    maestro_ = maestro();
    setWindowTitle(windowTitle() + ' ' + maestro_);
    CDocs.Open(consulta(datos_, maestro_));
    DBGridEh1->setFocus();
}

void PantallaDocumentos::PngSpeedButton1Click() {
    if (abra_nuevo(maestro_))
        CDocs.Reabra();
}

void PantallaDocumentos::PngSpeedButton3Click() {
    if (CDocs.IsEmpty())
        return;
    if (!fdm().valide_acceso(modulo(), datos_.opcion_borrar)) {
        muestre_mensaje(kAccesoNegado);
        return;
    }
    const QString nombre = CDocs.FieldByName(datos_.nombre).texto();
    if (!pregunte_con_no("Desea borrar definitivamente el documento " + nombre + "?"))
        return;
    const QString aviso = "Borrado el documento " + nombre;
    borre_y_anuncie(CBorrar,
                    QStringLiteral("delete from %1 where %2 = ").arg(datos_.tabla, datos_.llave) +
                        QuotedStr(maestro_) + " and " + datos_.item + " = " +
                        QString::number(CDocs.FieldByName(datos_.item).entero()),
                    aviso);
    CDocs.Reabra();
}

bool PantallaDocumentos::FormClose() {
    CDocs.Close();
    return true;
}

// ---------------------------------------------------------------- uno nuevo

NuevoDocumento::NuevoDocumento(const DatosDocumentos& datos)
    : Pantalla(datos.nuevo, datos.titulo_nuevo), datos_(datos),
      CDocs(conjunto_de_documentos(this, datos)), CBorrar(conjunto_de_ordenes(this)) {
    cuide_lo_digitado(*this, {&CDocs});
    EArchivo = new QLineEdit(this);
    EArchivo->setObjectName("EArchivo");
    auto* examinar = new QPushButton("E&xaminar", this);
    examinar->setObjectName("SBExaminar");
    examinar->setAutoDefault(false);
    connect(examinar, &QPushButton::clicked, this,
            [this] { proteja([this] { SBExaminarClick(); }); });
    ENombre = new EditorDato(&CDocs, datos.nombre, this);
    ENombre->setObjectName("ENombre");
    ENombre->ancho(40);

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save",
                                  QKeySequence(Qt::Key_F2), [this] { SBGrabarClick(); }));
    barra->boton("SBCancelar", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                 [this] { close(); });
    Formulario(this)
        .fila("&Archivo", Formulario::junto({EArchivo, examinar}))
        .fila("&Nombre", ENombre)
        .estire()
        .botones(barra);
    enter_como_tab();
    tamano(620, 180);
}

void NuevoDocumento::FormCreate() {
    fdm().ConfigurarProviders(this);
    // Sin filas: solo se agrega, y leer las otras traería sus documentos.
    CDocs.Open(consulta(datos_, maestro()) + " and " + datos_.item + " < 0");
    CDocs.Append();
    CDocs.FieldByName(datos_.llave) = maestro();
    EArchivo->setFocus();
}

void NuevoDocumento::SBExaminarClick() {
    const QString ruta =
        QFileDialog::getOpenFileName(this, windowTitle(), {}, "Documentos PDF (*.pdf *.PDF)");
    if (ruta.isEmpty())
        return;
    EArchivo->setText(ruta);
    if (CDocs.FieldByName(datos_.nombre).vacio())
        CDocs.FieldByName(datos_.nombre) = QFileInfo(ruta).completeBaseName();
    ENombre->setFocus();
}

void NuevoDocumento::SBGrabarClick() {
    QFile archivo(EArchivo->text());
    if (EArchivo->text().isEmpty() || !archivo.open(QIODevice::ReadOnly)) {
        muestre_mensaje("No se pudo abrir el archivo del documento. Revise su ruta.");
        return;
    }
    const QByteArray documento = archivo.readAll();
    if (!documento.startsWith("%PDF")) {
        muestre_mensaje("El archivo no es un documento PDF.");
        return;
    }
    CDocs.Edit();
    if (CDocs.FieldByName(datos_.nombre).vacio())
        CDocs.FieldByName(datos_.nombre) = QFileInfo(archivo).completeBaseName();
    CDocs.FieldByName(datos_.item) =
        CBorrar
            .valor_unico(QStringLiteral("select max(%1) from %2 where %3 = ")
                             .arg(datos_.item, datos_.tabla, datos_.llave) +
                         QuotedStr(CDocs.FieldByName(datos_.llave).texto()))
            .entero() +
        1;
    CDocs.FieldByName(datos_.archivo) = documento;
    if (grabe_y_anuncie(CDocs, "Grabado documento " + CDocs.FieldByName(datos_.nombre).texto()) ==
        0)
        resultado_modal(mrOk);
}

bool NuevoDocumento::FormClose() {
    CDocs.Cancel();
    CDocs.Close();
    return true;
}
