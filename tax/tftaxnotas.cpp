#include "tax/tftaxnotas.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/formulario.h"
#include "toolkit/sin_grabar.h"

#include <QLabel>

Tftaxnotas::Tftaxnotas() : Pantalla("Tftaxnotas", "Nota del renglón") {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    auto* consulta = new Sentencia(this, "QTaxnotas", fdm().Quorvex);
    CTaxnotas = new ConjuntoDatos(this, "CTaxnotas", new Proveedor(this, "PTaxnotas", consulta));
    cuide_lo_digitado(*this, {CTaxnotas});
    for (const char* llave : {"TAXO_ID", "TAXE_ID", "TAXD_ID"})
        CTaxnotas->entero(llave).banderas(kLlave);
    CTaxnotas->texto("TAIN_ANO", 4).banderas(kLlave);
    CTaxnotas->entero("TAIN_PERIODO").banderas(kLlave);
    CTaxnotas->memo("TAIN_NOTA").etiqueta("Nota");
    LPeriodo = new QLabel(this);
    LPeriodo->setObjectName("LPeriodo");
    DBMemo1 = new MemoDato(CTaxnotas, "TAIN_NOTA", this);
    DBMemo1->setObjectName("DBMemo1");
    DBMemo1->setAccessibleName("Nota");
    DBMemo1->lineas(8);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->separe();
    barra->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(LPeriodo, 0).ancha(DBMemo1).botones(barra);
    tamano(640, 360);
}

void Tftaxnotas::FormCreate() {
    fdm().ConfigurarProviders(this);
    renglon_ = peticion<AbreRenglonTaxonomia>();
    LPeriodo->setText(renglon_.nombre + ", " + fdmcnt().nombre_periodo() + " de " +
                      fdmcnt().ano_actual);
    CTaxnotas->proveedor->sentencia->SQL =
        QStringLiteral("SELECT * FROM TAXONOMIA_NOTAS where TAXO_ID = %1 and TAXE_ID = %2 and "
                       "TAXD_ID = %3")
            .arg(QString::number(renglon_.taxonomia))
            .arg(QString::number(renglon_.seccion))
            .arg(QString::number(renglon_.renglon));
    CTaxnotas->Open();
    ubique();
    DBMemo1->setFocus();
}

void Tftaxnotas::ubique() {
    const int periodo = fdmcnt().periodo_actual + 1;
    if (CTaxnotas->Locate("TAIN_ANO;TAIN_PERIODO", {fdmcnt().ano_actual, periodo}))
        return;
    CTaxnotas->Append();
    CTaxnotas->FieldByName("TAXO_ID") = renglon_.taxonomia;
    CTaxnotas->FieldByName("TAXE_ID") = renglon_.seccion;
    CTaxnotas->FieldByName("TAXD_ID") = renglon_.renglon;
    CTaxnotas->FieldByName("TAIN_ANO") = fdmcnt().ano_actual;
    CTaxnotas->FieldByName("TAIN_PERIODO") = periodo;
}

void Tftaxnotas::SBGrabarClick() {
    CTaxnotas->CheckBrowseMode();
    if (grabe_y_anuncie(*CTaxnotas, "Grabado: " + windowTitle()) == 0)
        close();
}

bool Tftaxnotas::FormClose() {
    CTaxnotas->Cancel();
    CTaxnotas->Close();
    return true;
}
