#include "niif/tfconciliacta.h"

#include "libro/catalogos.h"
#include "niif/pch.h"
#include "niif/peticiones_niif.h"

Tfconciliacta::Tfconciliacta() : Pantalla("Tfconciliacta", "Conciliacion cuenta") {
    CDetalle.entero("ID");
    CDetalle.entero("CONSEC");
    CDetalle.texto("TICO", 3);
    CDetalle.texto("PREF", 4);
    CDetalle.texto("NUMERO", 8);
    CDetalle.texto("FECHA", 8);
    CDetalle.texto("CONCEPTO", 60);
    for (const char* campo : {"DB2649", "CR2649", "DBNIIF", "CRNIIF", "DIF"})
        CDetalle.decimal(campo).formato(kImporte);
    CDetalle.texto("CUEN_NOM", 60);
    NomCuenta = new QLabel;
    NomCuenta->setObjectName("NomCuenta");
    NomCuenta->setTextFormat(Qt::PlainText);
    NomCuenta->setWordWrap(true);
    DBGridEh1 = new Rejilla(this, &CDetalle);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"TICO", "Tipo", 6},
                         {"PREF", "Pref.", 7},
                         {"NUMERO", "Número", 9},
                         {"FECHA", "Fecha", 10, 0, "aaaa/mm/dd"},
                         {"CONCEPTO", "Concepto", 28},
                         {"DB2649", "Débito 2649", 16, Suma},
                         {"CR2649", "Crédito 2649", 16, Suma},
                         {"DBNIIF", "Débito NIIF", 16, Suma},
                         {"CRNIIF", "Crédito NIIF", 16, Suma},
                         {"DIF", "Diferencia", 16, Suma}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->nombre_archivo = "ConciliaCta";
    DBGridEh1->texto_vacio = "Los dos libros suman lo mismo en esta cuenta.";
    DBGridEh1->menu_emergente({Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir,
                               Rejilla::VistaPreliminar, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { ModificarClick(); };
    auto* barra = new BarraBotones(this);
    barra->boton("SBEliminar", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                 [this] { borrar_comprobante(); });
    barra->boton("SBModificar", "F4:Modificar", "accessories-text-editor", Qt::Key_F4,
                 [this] { ModificarClick(); });
    barra->separe();
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila("Cuenta", NomCuenta);
    f.ancha(DBGridEh1, 1).botones(barra);
    tamano(1020, 460);
}

void Tfconciliacta::FormCreate() {
    fdm().ConfigurarProviders(this);
    CDetalle.PacketRecords = -1;
    CDetalle.Instantanea = true;
    const auto p = peticion<AbreConciliacionCuenta>();
    const QString nombre = nombre_en_el_plan(fdm().Quorvex, Libro::Decreto2649, p.cuenta);
    NomCuenta->setText(
        p.cuenta + ' ' + nombre + "  ›  " +
        (p.mes == 0 ? "al comenzar " + p.ano
                    : "hasta " + Tfdm::nombres_periodo().value(p.mes - 1) + " de " + p.ano));
    DBGridEh1->titulo_impreso = windowTitle() + " · " + NomCuenta->text().replace("  ›  ", " · ");
    sql_ =
        "select * FROM CONCILIA_PAT_DETALLE(" + QuotedStr(p.cuenta) + "," + QuotedStr(p.ano) + ")";
    // Lo posterior al mes no está en la diferencia que se vino a ver.
    const QString despues = p.ano + QString::number(p.mes + 1).rightJustified(2, '0');
    if (p.mes < kMesAjustes)
        sql_ += " where FECHA is null or FECHA < " + QuotedStr(despues);
    CDetalle.Open(sql_);
    DBGridEh1->setFocus();
}

void Tfconciliacta::FormActivate() {
    // El comprobante que se fue a ver pudo cambiar.
    if (CDetalle.Active())
        CDetalle.Refresh();
}

bool Tfconciliacta::FormClose() {
    CDetalle.Close();
    return true;
}

void Tfconciliacta::ModificarClick() {
    if (!CDetalle.IsEmpty() && !CDetalle.FieldByName("ID").nulo())
        abra_comprobante(CDetalle.FieldByName("ID").texto());
}

void Tfconciliacta::borrar_comprobante() {
    if (CDetalle.IsEmpty() || CDetalle.FieldByName("ID").nulo())
        return;
    PedidoBorrado pedido;
    pedido.id = CDetalle.FieldByName("CONSEC").entero();
    pedido.tipo = CDetalle.FieldByName("TICO").texto();
    pedido.prefijo = CDetalle.FieldByName("PREF").texto();
    pedido.numero = CDetalle.FieldByName("NUMERO").texto();
    pedido.tipo_origen =
        fdm()
            .Quorvex
            .consulte("select enco_tiporef from comprobante_encabezado where enco_consec = "
                      "?",
                      {pedido.id})
            .entero();
    if (fdmcnt().borrar_comprobante(objectName(), pedido) == ResultadoBorrado::Borrado)
        CDetalle.Refresh();
}
