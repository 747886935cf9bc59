#include "catalogues/tfconceptos.h"

#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/rejilla/rejilla.h"

#include <QLayout>

Tfconceptos::Tfconceptos()
    : RejillaCatalogo("Tfconceptos", "Categorías", fdmcnt().TConceptoconta, "Concepto",
                      "CONC_COD") {
    campos_categorias(*conjunto_);
    rotulo_grabar_ = "F2: Grabar";
    arme({{"CONC_COD", "Código", 8}, {"CONC_NOMBRE", "Nombre", 44}}, "Categorias");
    barra_->boton("SpeedButton1", "Seleccionar", "dialog-ok-apply", QKeySequence(),
                  [this] { SpeedButton1Click(); });
    QWidget* salir = findChild<QWidget*>("SBCancelar"); // de última, como en las demás
    barra_->layout()->removeWidget(salir);
    barra_->separe();
    barra_->agregue(salir);
    DBGridEh1->OnDblClick = [this](int) { SpeedButton1Click(); };
    tamano(560, 480);
}

void Tfconceptos::FormCreate() {
    RejillaCatalogo::FormCreate();
    // Como selector, Enter escoge; en mantenimiento sigue siendo de la rejilla.
    if (peticion<AbreLista>().modo_mantenimiento)
        return;
    DBGridEh1->ubica_al_teclear = true;
    if (const QString actual = peticion<PideConcepto>().concepto_localizar; !actual.isEmpty())
        conjunto_->Locate("CONC_COD", {actual});
    tecla(Qt::Key_Return, "SpeedButton1", [this] {
        if (conjunto_->editando())
            conjunto_->Post();
        else
            SpeedButton1Click();
    });
}

void Tfconceptos::SpeedButton1Click() {
    if (const QString concepto = conjunto_->FieldByName("CONC_COD").texto(); !concepto.isEmpty())
        responda<PideConcepto>(concepto);
    close();
}
