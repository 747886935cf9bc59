#include "tax/tfmeddisctas.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/firebird/concuerde.h"
#include "datos/recordset/consecutivo.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "tax/articulos_distrito.h"
#include "tax/cuentas_configuradas.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/rejilla/rejilla.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

namespace {
const char* const kCuentasMeddisctas[] = {"MMDC_CUENTA", "MMDC_CTASALDO", "MMDC_CTADEV"};
}

Tfmeddisctas::Consultas Tfmeddisctas::cree_consultas() {
    Consultas c{new Sentencia(nullptr, "QMeddist", fdm().Quorvex,
                              "SELECT * FROM MEDIOSMAG_DISTR order by MMDI_ANO, MMDI_ARTICULO"),
                new Sentencia(nullptr, "Qmmcuentas", fdm().Quorvex,
                              "SELECT * FROM MEDIOSMAG_DISTR_CUENTAS WHERE MMDI_ARTICULO = "
                              ":MMDI_ARTICULO and MMDI_ANO = :MMDI_ANO order by MMDC_ITEM")};
    c.cuentas->enlace_maestra(c.articulos, {"MMDI_ARTICULO", "MMDI_ANO"});
    return c;
}

Tfmeddisctas::Tfmeddisctas() : Tfmeddisctas(cree_consultas()) {}

Tfmeddisctas::Tfmeddisctas(Consultas consultas)
    : MaestroDetalle("Tfmeddisctas", "Artículos de la información distrital", "PMeddist",
                     *consultas.articulos, poCascadeDeletes | poCascadeUpdates, "CMeddist",
                     "Cmmcuentas", *consultas.cuentas) {
    consultas.articulos->setParent(this);
    consultas.cuentas->setParent(this);
    defina_campos();
    QWidget* copia = cree_copia();
    arme({"Artículos",
          {{"MMDI_ANO", "Año", 6},
           {"MMDI_ARTICULO", "Cód.", 6},
           {"MMDI_NOMBRE", "Nombre", 34},
           {"MMDI_TOPE", "Mínimo", 13},
           {"MMDI_PROY", "Centro", 7},
           {"MMDI_CENTRO", "Subcen.", 7},
           {"MMDI_PROCEDIMIENTO", "Procedimiento", 16},
           {"MMDI_NATUR", "D/C", 8},
           {"MMDI_INCSALDO", "Inc.Saldo", 8, Casilla}},
          6,
          nullptr,
          copia},
         {"Cuentas del artículo",
          {{"MMDC_CUENTA", "Cuenta Mov.", 13},
           {"MMDC_CTASALDO", "Cuenta Saldo", 13},
           {"MMDC_CTADEV", "Cta. Devolución", 13}},
          3});
    DBGridEh1->lista("MMDI_NATUR", {"Débito", "Crédito"}, {"D", "C"});
    for (Rejilla* r : {DBGridEh1, DBGridEh2}) {
        r->nombre_archivo = "MedDistrital";
        r->titulo_impreso = windowTitle() + "  %[Today]";
        r->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                           Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    }
    maestro_->AfterInsert = [this] {
        maestro_->FieldByName("MMDI_ANO") = fdmcnt().ano_actual;
        maestro_->FieldByName("MMDI_NATUR") = "C";
        maestro_->FieldByName("MMDI_INCSALDO") = "N";
    };
    maestro_->BeforePost = [this] { CMeddistBeforePost(); };
    detalle_->AfterInsert = [this] { CmmcuentasAfterInsert(); };
    detalle_->BeforePost = [this] { CmmcuentasBeforePost(); };
    barra_->principal(barra_->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                    [this] { SBGrabarClick(); }));
    barra_->boton("SBCopiar", "F6:Copiar año", "edit-copy", Qt::Key_F6,
                  [this] { SBCopiarClick(); });
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape,
                  [this] { cancele_y_cierre(); });
    tamano(1100, 540);
}

void Tfmeddisctas::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    maestro_->entero("MMDI_ARTICULO").banderas(kLlave).etiqueta("Cód.");
    maestro_->texto("MMDI_ANO", 4).banderas(kLlave).etiqueta("Año");
    maestro_->texto("MMDI_NOMBRE", 60).etiqueta("Nombre");
    maestro_->decimal("MMDI_TOPE").etiqueta("Mínimo").formato("#,##0.00");
    maestro_->texto("MMDI_PROY", 4).etiqueta("Centro");
    maestro_->texto("MMDI_CENTRO", 4).etiqueta("Subcen.");
    maestro_->texto("MMDI_PROCEDIMIENTO", 60).etiqueta("Procedimiento");
    maestro_->texto("MMDI_NATUR", 1).etiqueta("D/C");
    maestro_->bandera("MMDI_INCSALDO").etiqueta("Inc.Saldo");
    detalle_->entero("MMDI_ARTICULO").banderas(kLlave);
    detalle_->texto("MMDI_ANO", 4).banderas(kLlave);
    detalle_->entero("MMDC_ITEM").banderas(kLlave);
    detalle_->CampoConsecutivo = "MMDC_ITEM"; // dos usuarios pueden configurar a la vez
    const char* const rotulos[] = {"Cuenta Mov.", "Cuenta Saldo", "Cta. Devolución"};
    for (int i = 0; i < 3; ++i)
        atienda_cuenta(*this, detalle_->texto(kCuentasMeddisctas[i], 20).etiqueta(rotulos[i]),
                       existe_o_se_crea);
}

QWidget* Tfmeddisctas::cree_copia() {
    EAnoNuevo = new QSpinBox(this);
    EAnoNuevo->setObjectName("EAnoNuevo");
    EAnoNuevo->setRange(1990, 9999);
    EAnoNuevo->setAccessibleName("Año al que se copian");
    auto* rotulo = new QLabel("F6 copia los artículos del año señalado al año:", this);
    rotulo->setBuddy(EAnoNuevo);
    auto* fila = new QWidget(this);
    auto* caja = new QHBoxLayout(fila);
    caja->setContentsMargins(0, 0, 0, 0);
    caja->addWidget(rotulo);
    caja->addWidget(EAnoNuevo);
    caja->addStretch(1);
    return fila;
}

void Tfmeddisctas::FormCreate() {
    fdm().ConfigurarProviders(this);
    maestro_->Open();
    maestro_->Last();
    EAnoNuevo->setValue(
        qMax(fdmcnt().ano_actual.toInt(), maestro_->FieldByName("MMDI_ANO").texto().toInt() + 1));
    maestro_->First();
    DBGridEh1->setFocus();
}

void Tfmeddisctas::CMeddistBeforePost() {
    for (const char* campo : {"MMDI_ARTICULO", "MMDI_ANO", "MMDI_NOMBRE"})
        if (maestro_->FieldByName(campo).vacio()) {
            muestre_mensaje("Debe indicar el artículo, año y nombre del formato.");
            throw EdicionAbortada();
        }
    if (maestro_->FieldByName("MMDI_PROCEDIMIENTO").vacio())
        maestro_->FieldByName("MMDI_PROCEDIMIENTO") =
            "ARTICULO_" + maestro_->FieldByName("MMDI_ARTICULO").texto();
}

void Tfmeddisctas::CmmcuentasAfterInsert() {
    for (const char* llave : {"MMDI_ARTICULO", "MMDI_ANO"})
        detalle_->FieldByName(llave) = maestro_->FieldByName(llave).valor();
    detalle_->FieldByName("MMDC_ITEM") = mayor_de(*detalle_, "MMDC_ITEM") + 1;
}

void Tfmeddisctas::CmmcuentasBeforePost() {
    for (const char* cuenta : kCuentasMeddisctas)
        if (!detalle_->FieldByName(cuenta).vacio())
            return;
    detalle_->Cancel();
}

void Tfmeddisctas::SBGrabarClick() {
    for (ConjuntoDatos* c : {detalle_, maestro_})
        c->CheckBrowseMode();
    grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle());
}

void Tfmeddisctas::SBCopiarClick() {
    SBGrabarClick(); // también se copia lo que se acaba de digitar
    if (maestro_->ChangeCount() > 0 || maestro_->IsEmpty())
        return;
    const QString desde = maestro_->FieldByName("MMDI_ANO").texto(), hasta = EAnoNuevo->text();
    const QString articulos = "artículos de " + desde;
    if (desde == hasta) {
        advierta_de_pantalla("Indique a qué otro año se copian los " + articulos + '.');
        EAnoNuevo->setFocus();
        return;
    }
    const int copiados = copie_articulos(fdm().Quorvex, desde, hasta);
    if (!copiados) {
        advierta_de_pantalla("El año " + hasta + " ya tiene todos los " + articulos + '.');
        return;
    }
    maestro_->Reabra();
    maestro_->Locate("MMDI_ANO", {hasta});
    DBGridEh1->setFocus();
    anuncie(fdm().barra(), concuerde(copiados, "Se copió %1 artículo de %2 al año %3",
                                     "Se copiaron %1 artículos de %2 al año %3")
                                   .arg(desde, hasta) +
                               " con sus cuentas.");
}
