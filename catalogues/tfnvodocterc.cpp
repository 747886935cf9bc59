#include "catalogues/tfnvodocterc.h"

#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"

#include <QFileDialog>
#include <QFileInfo>

Tfnvodocterc::Tfnvodocterc() : Pantalla("Tfnvodocterc", "Nuevo documento del tercero") {
    PDocs = new Proveedor(this, "PDocs", &fdmter().TDocsterc, poAllowCommandText);
    CDocs = new ConjuntoDatos(this, "CDocs", PDocs);
    campos_documentos_tercero(*CDocs);
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);

    EArchivo = new QLineEdit(this);
    EArchivo->setObjectName("EArchivo");
    auto* examinar = new QPushButton("E&xaminar…", this);
    examinar->setObjectName("SBExaminar");
    examinar->setAutoDefault(false);
    connect(examinar, &QPushButton::clicked, this,
            [this] { proteja([this] { SBExaminarClick(); }); });
    ENombre = new EditorDato(CDocs, "TEDO_NOMBRE", this);
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

void Tfnvodocterc::FormCreate() {
    fdm().ConfigurarProviders(this);
    const QString nit = peticion<AbreTercero>().tercero_seleccion;
    // Sin filas: solo se agrega, y leer las otras traería sus documentos.
    CDocs->Open("select * from tercero_documentos where terc_nit = " + QuotedStr(nit) +
                " and tedo_item < 0");
    CDocs->Append();
    CDocs->FieldByName("TERC_NIT") = nit;
    EArchivo->setFocus();
}

void Tfnvodocterc::SBExaminarClick() {
    const QString ruta = QFileDialog::getOpenFileName(this, "Documento del tercero", {},
                                                      "Documentos PDF (*.pdf *.PDF)");
    if (ruta.isEmpty())
        return;
    EArchivo->setText(ruta);
    if (CDocs->FieldByName("TEDO_NOMBRE").vacio())
        CDocs->FieldByName("TEDO_NOMBRE") = QFileInfo(ruta).completeBaseName();
    ENombre->setFocus();
}

void Tfnvodocterc::SBGrabarClick() {
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
    CDocs->Edit();
    if (CDocs->FieldByName("TEDO_NOMBRE").vacio())
        CDocs->FieldByName("TEDO_NOMBRE") = QFileInfo(archivo).completeBaseName();
    const QString nit = CDocs->FieldByName("TERC_NIT").texto();
    CDocs->FieldByName("TEDO_ITEM") =
        CBorrar
            ->valor_unico("select max(tedo_item) from tercero_documentos where terc_nit = " +
                          QuotedStr(nit))
            .entero() +
        1;
    CDocs->FieldByName("TEDO_ARCHIVO") = documento;
    if (CDocs->ApplyUpdates(0) == 0)
        resultado_modal(mrOk);
}

bool Tfnvodocterc::FormClose() {
    CDocs->Cancel();
    CDocs->Close();
    return true;
}
