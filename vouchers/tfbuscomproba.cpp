#include "vouchers/tfbuscomproba.h"

#include "sesion/copias_comprobante.h"
#include "vouchers/pch.h"

#include <QMenu>

namespace {
const QString kVacia = QStringLiteral("No hay comprobantes con esas condiciones.");
} // namespace

Tfbuscomproba::Tfbuscomproba()
    : BusquedaPorTipo("Tfbuscomproba", "Búsqueda de comprobantes", fdmcnt().QComproba,
                      "CComproba") {
    ConjuntoDatos& c = conjunto_;
    c.entero("ENCO_CONSEC").banderas(pfInUpdate | pfInWhere | pfInKey);
    c.texto("TICO_COD", 3);
    c.texto("PRCO_PREF", 4);
    c.texto("ENCO_NUMERO", 8);
    c.texto("ENCO_CONCEPTO", 60);
    c.texto("ENCO_REFER", 8);
    c.entero("ENCO_TIPOREF");
    c.entero("ENCO_IDREF");
    c.texto("ENCO_FECHA", 8);
    fijo_ = "select * from comprobante_encabezado ";

    construya_filtros({{"TPref", "Prefijo", 4, "prco_pref"},
                       {"TNum", "Número", 8, "enco_numero", FiltroTexto::Desde},
                       {"FecIni", "Fecha desde", 8, "enco_fecha", FiltroTexto::Desde},
                       {"FecFin", "Fecha hasta", 8, "enco_fecha", FiltroTexto::Hasta},
                       {"TConc", "Concepto", 60, "enco_concepto", FiltroTexto::Contiene},
                       {"TRef", "Referencia", 20, "enco_refer", FiltroTexto::Contiene}},
                      "BitBtn1", true);
    filtros_->al_buscar = [this] {
        BitBtn1Click();
        DBGridEh1->texto_vacio = kVacia;
        if (const QString numero = filtros_->numero_como_se_graba(); !numero.isEmpty())
            DBGridEh1->texto_vacio += " El número se busca como está grabado: " + numero + '.';
        if (hay_fila())
            DBGridEh1->setFocus(); // lo que sigue es de la lista
    };
    DBGridEh1 = rejilla("DBGridEh1",
                        {{"ENCO_FECHA", "Fecha", 10, 0, "aaaa/mm/dd"},
                         {"TICO_COD", "Tipo", 5},
                         {"PRCO_PREF", "Prefijo", 7},
                         {"ENCO_NUMERO", "Número", 9},
                         {"ENCO_CONCEPTO", "Concepto", 48},
                         {"ENCO_REFER", "Referencia", 12}},
                        "BuscCompro", Rejilla::VistaPreliminar);
    DBGridEh1->orden_local = true;
    DBGridEh1->setProperty("sin_consultar", "Escoja las condiciones y oprima Buscar.");
    DBGridEh1->texto_vacio = kVacia;
    DBGridEh1->OnDblClick = [this](int) { SpeedButton2Click(); };
    DBGridEh1->OnReturn = [this] { SpeedButton2Click(); };
    ofrezca_copias(*this, {DBGridEh1->findChild<QMenu*>("menu_rejilla")}, [this] {
        return hay_fila() ? conjunto_.FieldByName("ENCO_CONSEC").entero() : 0;
    });
    connect(filtros_->ckfiltro, &QCheckBox::toggled, this,
            [this](bool visible) { DBGridEh1->filtro_visible(visible); });

    barra_ = new BarraBotones(this);
    barra_->principal(barra_->boton("SpeedButton2", "F4:Modificar", "accessories-text-editor",
                                    Qt::Key_F4, [this] { SpeedButton2Click(); }));
    // Los letreros no son las teclas: F2 no hace nada y F3 imprime y después borra.
    barra_->boton("SpeedButton1", "F2:Imprimir", "document-print", {},
                  [this] { SpeedButton1Click(); });
    barra_->boton("SpeedButton3", "F3:Eliminar", "edit-delete", {},
                  [this] { SpeedButton3Click(); });
    tecla(Qt::Key_F3, "SpeedButton1, SpeedButton3", [this] {
        SpeedButton1Click();
        SpeedButton3Click();
    });
    barra_->separe();
    barra_->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, Qt::ShiftModifier, "LTipo", [this] { filtros_->LTipo->setFocus(); });
    Formulario(this).ancha(filtros_, 0).ancha(DBGridEh1).botones(barra_);
    tamano(1060, 560);
}

void Tfbuscomproba::FormCreate() {
    const QString tipo = peticion<AbreBusquedaComprobantes>().tipo_busqueda;
    abra_tipos();
    if (!tipo.isEmpty())
        filtros_->escoja_tipo(tipo);
    const QString ano = fdmcnt().ano_actual;
    filtros_->caja("FecIni")->setText(ano + "0101");
    filtros_->caja("FecFin")->setText(ano + "1331"); // también el período trece
    if (!fdm().exija_acceso(31))
        pida_cierre_al_crear();
}

void Tfbuscomproba::FormActivate() {
    if (conjunto_.Active())
        conjunto_.Refresh();
    filtros_->LTipo->setFocus();
}

void Tfbuscomproba::BitBtn1Click() {
    busque("order by tico_cod, enco_fecha desc");
}

void Tfbuscomproba::SpeedButton1Click() {
    if (hay_fila())
        imprima_comprobante(dato("ENCO_CONSEC"));
}

void Tfbuscomproba::SpeedButton2Click() {
    if (hay_fila())
        editar_comprobante(dato("ENCO_CONSEC"));
}

void Tfbuscomproba::SpeedButton3Click() {
    if (hay_fila())
        borrar_comprobante();
}

void Tfbuscomproba::borrar_comprobante() {
    PedidoBorrado pedido;
    pedido.id = conjunto_.FieldByName("ENCO_CONSEC").entero();
    pedido.tipo = dato("TICO_COD");
    pedido.prefijo = dato("PRCO_PREF");
    pedido.numero = dato("ENCO_NUMERO");
    pedido.tipo_origen = conjunto_.FieldByName("ENCO_TIPOREF").entero();
    switch (fdmcnt().borrar_comprobante(objectName(), pedido)) {
    case ResultadoBorrado::Negado:
        close();
        break;
    case ResultadoBorrado::Borrado:
        busque(" order by tico_cod, enco_fecha desc");
        break;
    default:
        break;
    }
}
