#include "catalogues/tfterceros.h"

#include "catalogues/grabe_y_anuncie.h"
#include "catalogues/terceros.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/rejilla.h"

namespace {
const QString kBase =
    "select TERC_NIT, TERC_DV, TERC_NOM, TERC_CONTACTO, TERC_TEL, TERC_CIU, TERC_CLIE, TERC_PROV, "
    "TERC_EMPL, TERC_ESTADO, CIUD_COD from terceros ";
}

Tfterceros::Tfterceros()
    : ListaCatalogo("Tfterceros", "Registro de Terceros", fdmter().QTerceros, "Terceros") {
    ConjuntoDatos& t = *conjunto_;
    t.texto("TERC_NIT", 20).banderas(pfInUpdate | pfInWhere | pfInKey);
    t.bandera("TERC_DV");
    t.texto("TERC_NOM", 60);
    t.texto("TERC_CONTACTO", 255);
    t.texto("TERC_TEL", 40);
    t.texto("TERC_CIU", 40);
    for (const char* bandera : {"TERC_CLIE", "TERC_PROV", "TERC_EMPL", "TERC_ESTADO"})
        t.bandera(QString::fromLatin1(bandera));
    t.texto("CIUD_COD", 5);

    arme({{"&NIT", "terc_nit", true}, {"N&ombre", "terc_nom"}, {"&Contacto", "terc_contacto"}},
         "Mostrar inactivos",
         {{"TERC_NIT", "NIT", 14},
          {"TERC_DV", "DV", 3},
          {"TERC_NOM", "Nombre", 36},
          {"TERC_CONTACTO", "Contacto", 20},
          {"TERC_TEL", "Teléfono", 14},
          {"TERC_CIU", "Ciudad", 16},
          {"TERC_CLIE", "Cliente", 7, Casilla},
          {"TERC_PROV", "Proveedor", 9, Casilla},
          {"TERC_EMPL", "Empleado", 9, Casilla}},
         "Terceros");
    busqueda_->ItemIndex(1);
    DBGridEh1->OnGetCellParams = [this](int fila, QFont&, QColor& frente, QColor&) {
        if (conjunto_->valor_en(fila, conjunto_->FieldByName("TERC_ESTADO")).texto() !=
            QLatin1String("S"))
            frente = color_inactivo();
    };
    // El letrero anuncia F8 y la tecla que funciona es F9: así se conoce la pantalla.
    barra_->boton("SBMovimiento", "F8:Movimiento", "view-list-details", QKeySequence(Qt::Key_F9),
                  [this] { SBMovimientoClick(); });
    boton_salir();
    tamano(1060, 560);
}

void Tfterceros::FormCreate() {
    fdm().ConfigurarProviders(this);
    aplique_modo();
    if (!fdm().exija_acceso(11)) {
        pida_cierre_al_crear();
        return;
    }
    // Un selector no ofrece inactivos aunque la búsqueda los pida.
    if (!modo_mantenimiento_) {
        conjunto_->Filter("TERC_ESTADO = 'S'");
        conjunto_->Filtered(true);
    }
    const auto pedido = peticion<PideTercero>();
    if (busque_lo_pedido(pedido.texto_busqueda))
        return; // se buscó otro: en ese queda
    consulte(kBase + "where terc_estado = 'S' order by terc_nom");
    ubique(pedido.tercero_localizar);
}

void Tfterceros::sbBuscarClick() {
    CriterioBusqueda plantilla;
    plantilla.base = kBase;
    plantilla.columna_activo = "terc_estado";
    consulte(sql_busqueda(busqueda_->criterio(plantilla)));
}

void Tfterceros::SBBorrarClick() {
    const QString nit = codigo();
    if (nit.isEmpty() || !fdm().exija_acceso(12) ||
        !pregunte_con_no("Desea borrar definitivamente el tercero con NIT " + nit + " ?"))
        return;
    CBorrar->PacketRecords = 1; // basta saber si hay una línea
    CBorrar->Open("select * from comprobante_detalle where terc_nit = " + QuotedStr(nit));
    const bool con_movimiento = !CBorrar->IsEmpty();
    CBorrar->Close();
    if (con_movimiento) {
        muestre_mensaje("El tercero tiene movimientos registrados.");
        return;
    }
    const QString aviso = "Borrado el tercero " + nit;
    borre_y_anuncie(*CBorrar, "delete from terceros where terc_nit = " + QuotedStr(nit), aviso);
    conjunto_->Refresh();
}

void Tfterceros::SBNuevoClick() {
    crear_tercero();
}

void Tfterceros::SBModificarClick() {
    if (codigo().isEmpty())
        return;
    pantallas().abrir("Tfmodtercero", AbreTercero{codigo()});
}

void Tfterceros::SBSelecClick() {
    responda_codigo<PideTercero>();
}

void Tfterceros::SBMovimientoClick() {
    if (codigo().isEmpty())
        return;
    pantallas().abrir("Tfcomproterc", AbreComprobantesTercero{
                                          codigo(), conjunto_->FieldByName("TERC_NOM").texto()});
}
