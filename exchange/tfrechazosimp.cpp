#include "exchange/tfrechazosimp.h"

#include "exchange/pch.h"
#include "toolkit/aviso_salida.h"
#include "toolkit/controles/texto_de_fila.h"
#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/pida_archivo.h"

namespace {
constexpr int kLargoTexto = 2000; ///< lo que se ve de un renglón; al archivo va entero
}

Tfrechazosimp::Tfrechazosimp() : Pantalla("Tfrechazosimp", "Renglones rechazados") {
    CRechazos.entero("RENGLON");
    CRechazos.texto("RAZON", kLargoTexto);
    CRechazos.texto("TEXTO", kLargoTexto);
    DBGridEh1 = new Rejilla(this, &CRechazos);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas(
        {{"RENGLON", "Renglón", 9}, {"RAZON", "Razón", 48}, {"TEXTO", "Texto del renglón", 60}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->orden_local = true;
    DBGridEh1->nombre_archivo = "Rechazados";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->texto_vacio = "No hay renglones rechazados.";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    ERazon = new TextoDeFila(CRechazos, "RAZON", "ERazon", "Razón", 3);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar archivo", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(DBGridEh1, 1).ancha(ERazon, 0).botones(barra);
    tamano(900, 460);
}

void Tfrechazosimp::FormCreate() {
    rechazos_ = peticion<AbreRechazos>();
    CRechazos.CreateDataSet();
    CRechazos.DisableControls();
    for (const RenglonRechazado& r : rechazos_.resultado.rechazados) {
        CRechazos.Append();
        CRechazos.FieldByName("RENGLON") = r.renglon;
        CRechazos.FieldByName("RAZON") = r.razon.left(kLargoTexto);
        CRechazos.FieldByName("TEXTO") = QString::fromLatin1(r.texto).left(kLargoTexto);
        CRechazos.Post();
    }
    CRechazos.First();
    CRechazos.EnableControls();
    if (const qsizetype cuantos = rechazos_.resultado.rechazados.size())
        setWindowTitle(QStringLiteral("%1: %2 de %3")
                           .arg(windowTitle(), QString::number(cuantos),
                                QFileInfo(rechazos_.archivo).fileName()));
    DBGridEh1->setFocus();
}

void Tfrechazosimp::SBGrabarClick() {
    const QFileInfo origen(rechazos_.archivo);
    const auto escogido =
        pida_archivo(this, {.nombre = "grabar_rechazados",
                            .titulo = "Grabar los renglones rechazados",
                            .sugerido = origen.path() + '/' + origen.completeBaseName() +
                                        "_rechazados." + origen.suffix(),
                            .filtro = "Texto (*.txt *.csv);;Todos (*)"});
    if (!escogido)
        return;
    grabe(rechazos_.resultado.rechazados, escogido->ruta);
    avise_grabado(escogido->ruta);
}

void Tfrechazosimp::grabe(const QVector<RenglonRechazado>& renglones, const QString& ruta) {
    ArchivoSalida archivo(ruta);
    for (const RenglonRechazado& r : renglones)
        archivo.escriba(r.texto + "\r\n");
    archivo.confirme();
}
