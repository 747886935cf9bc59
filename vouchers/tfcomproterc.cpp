#include "vouchers/tfcomproterc.h"

#include "sesion/copias_comprobante.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QMenu>

Tfcomproterc::Tfcomproterc()
    : BusquedaPorTipo("Tfcomproterc", "Comprobantes tercero", fdmcnt().QComproba, "CComproba") {
    ConjuntoDatos& c = conjunto_;
    c.entero("ID");
    c.texto("TIPO", 3);
    c.texto("PREFIJO", 4);
    c.texto("NUMERO", 8);
    c.texto("FECHA", 8);
    c.texto("CONCEPTO", 60);
    c.texto("REF", 20);
    c.entero("TIPOREF");
    c.texto("CUENTA", 20);
    c.decimal("MONTO").formato("#,###.00");
    columna_tipo_ = "tipo";
    condicion_base_ = " where id > 0 ";

    arme_filtros();
    arme_paginas();
    arme_botones();
    Formulario(this).ancha(filtros_, 0).ancha(paginas).botones(barra_);
    tamano(1060, 560);
}

void Tfcomproterc::arme_filtros() {
    ENIT = caja_de_lectura("ENIT", 16);
    ENom = caja_de_lectura("ENom", 40);
    ENom->setAccessibleName("Nombre del tercero");
    construya_filtros({{"TPref", "Prefijo", 4, "prefijo"},
                       {"TNum", "Número", 8, "numero", FiltroTexto::Desde},
                       {"TFecha", "Fecha", 8, "fecha", FiltroTexto::Desde},
                       {"TConc", "Concepto", 60, "concepto", FiltroTexto::Contiene},
                       {"TRef", "Referencia", 20, "ref", FiltroTexto::Contiene}},
                      "BitBtn1", false, {"NIT", Formulario::junto({ENIT, ENom})});
    filtros_->al_buscar = [this] {
        busque("order by tipo, fecha desc");
        if (hay_fila())
            paginas->currentWidget()->setFocus();
    };
}

void Tfcomproterc::arme_paginas() {
    // Las mismas filas vistas de tres maneras.
    const DefinicionColumna tipo{"TIPO", "Tipo", 5}, prefijo{"PREFIJO", "Prefijo", 7},
        numero{"NUMERO", "Número", 9}, fecha{"FECHA", "Fecha", 10, 0, "aaaa/mm/dd"},
        cuenta{"CUENTA", "Cuenta", 12}, concepto{"CONCEPTO", "Concepto", 36},
        ref{"REF", "Referencia", 11}, monto{"MONTO", "Monto", 16, Suma, "#,###.00"};
    paginas = new QTabWidget(this);
    paginas->setObjectName("PageControl1");
    paginas->setFocusPolicy(Qt::NoFocus);
    const auto pagina = [this](const char* nombre, const QString& titulo,
                               const QVector<DefinicionColumna>& columnas) {
        Rejilla* r = rejilla(nombre, columnas, "CompTercero", Rejilla::Imprimir);
        r->orden_local = true;
        r->texto_vacio = "El tercero no tiene movimiento con esas condiciones.";
        r->OnDblClick = [this](int) { SpeedButton2Click(); };
        r->OnReturn = [this] { SpeedButton2Click(); };
        paginas->addTab(r, titulo);
        return r;
    };
    DBGridEh2 = pagina("DBGridEh2", "Movimiento",
                       {tipo, prefijo, numero, fecha, cuenta, concepto, ref, monto});
    DBGridEh1 = pagina("DBGridEh1", "Comprobantes", {fecha, tipo, prefijo, numero, concepto, ref});
    DBGridEh3 = pagina("DBGridEh3", "Cuentas", {cuenta, fecha, concepto, monto});
    for (Rejilla* r : {DBGridEh2, DBGridEh3})
        r->pie(true);
    const auto menu_de = [](const Rejilla* r) { return r->findChild<QMenu*>("menu_rejilla"); };
    ofrezca_copias(*this, {menu_de(DBGridEh2), menu_de(DBGridEh1), menu_de(DBGridEh3)},
                   [this] { return hay_fila() ? conjunto_.FieldByName("ID").entero() : 0; });
}

void Tfcomproterc::arme_botones() {
    barra_ = new BarraBotones(this);
    barra_->principal(barra_->boton("SpeedButton2", "F4:Modificar", "accessories-text-editor",
                                    Qt::Key_F4, [this] { SpeedButton2Click(); }));
    barra_->boton("SpeedButton3", "F3: Eliminar", "edit-delete", Qt::Key_F3, [this] {
        if (hay_fila())
            borrar_comprobante();
    });
    barra_->separe();
    barra_->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, Qt::ShiftModifier, "TPref", [this] { filtros_->caja("TPref")->setFocus(); });
    for (const auto& [clave, paso] : {std::pair{Qt::Key_PageDown, 1}, {Qt::Key_PageUp, -1}})
        tecla(clave, Qt::ControlModifier, "PageControl1", [this, salto = paso] {
            paginas->setCurrentIndex(qBound(0, paginas->currentIndex() + salto, 2));
            paginas->currentWidget()->setFocus();
        });
}

void Tfcomproterc::FormCreate() {
    const auto pedido = peticion<AbreComprobantesTercero>();
    ENIT->setText(pedido.nit_comprobantes);
    ENom->setText(pedido.nombre_seleccion);
    for (Rejilla* r : {DBGridEh1, DBGridEh2, DBGridEh3})
        r->titulo_impreso = QStringLiteral("%1 · %2 %3 · Libro 2649  %[Today]")
                                .arg(windowTitle(), ENIT->text(), ENom->text());
    abra_tipos();
    DBGridEh2->setFocus();
}

void Tfcomproterc::FormActivate() {
    fijo_ = "select * FROM COMPROBANTES_TERCERO(" + QuotedStr(ENIT->text()) + ')';
    const Valor actual = hay_fila() ? conjunto_.FieldByName("ID").valor() : Valor();
    busque(" order by tipo, fecha desc");
    // De vuelta del comprobante, la lista sigue en él.
    if (!actual.nulo())
        conjunto_.Locate("ID", {actual});
}

void Tfcomproterc::SpeedButton2Click() {
    if (hay_fila())
        editar_comprobante(dato("ID"));
}

void Tfcomproterc::borrar_comprobante() {
    PedidoBorrado pedido;
    pedido.id = conjunto_.FieldByName("ID").entero();
    pedido.tipo = dato("TIPO");
    pedido.prefijo = dato("PREFIJO");
    pedido.numero = dato("NUMERO");
    pedido.tipo_origen = conjunto_.FieldByName("TIPOREF").entero();
    if (fdmcnt().borrar_comprobante(objectName(), pedido) == ResultadoBorrado::Borrado)
        conjunto_.Refresh();
}
