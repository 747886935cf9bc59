#include "vouchers/pantalla_plantilla.h"

#include "toolkit/aire.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "vouchers/lineas_plantilla.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

PantallaPlantilla::PantallaPlantilla(const QString& clase, const QString& titulo,
                                     const QString& conjunto, const QString& archivo)
    : PantallaLineas(clase, titulo, "CDetallen"),
      PPlantilla(this, 'P' + conjunto.mid(1), &fdmcnt().TPlantilla,
                 poAllowCommandText | poCascadeDeletes | poCascadeUpdates),
      PArticulo(this, "PArticulo", &fdmArt().QArticulos, poAllowCommandText),
      CPlantilla(this, conjunto, &PPlantilla), CDetallen(Cdetniif), CPrefijos(this, "CPrefijos"),
      CArticulo(this, "CArticulo", &PArticulo) {
    defina_campos();
    lineas_2649 =
        new LineasPlantilla(Libro::Decreto2649, *this, CDetalle, CBorrar, memorias, ajustes, this);
    lineas_niif =
        new LineasPlantilla(Libro::Niif, *this, CDetallen, CBorrar, memorias, ajustes, this);
    construya(archivo);
}

PantallaPlantilla::~PantallaPlantilla() = default;

void defina_encabezado_plantilla(ConjuntoDatos& c) {
    c.entero("PLAN_ID").banderas(pfInUpdate | pfInWhere | pfInKey);
    c.texto("TICO_COD", 3);
    c.texto("PRCO_PREF", 4);
    c.texto("PLAN_CONCEPTO", 60);
    c.texto("PLAN_REFER", 8);
    c.texto("PLAN_USUARIO", 10);
}

void PantallaPlantilla::defina_campos() {
    ConjuntoDatos& c = CPlantilla;
    defina_encabezado_plantilla(c);
    c.BeforePost = [this] { CPlantillaBeforePost(); };
    c.FieldByName("TICO_COD").OnChange = [this](Campo& x) { TICO_CODChange(x); };
    CDetalle.anide_en(&c, &fdmcnt().TPlantilladetalle);
    CDetallen.anide_en(&c, &fdmcnt().TPlantilladn);
    for (ConjuntoDatos* d : {&CDetalle, &CDetallen}) {
        LineasPlantilla::defina_campos(*d);
        d->OnCalcFields = [this, d] { calcule(*d); };
    }
    CPrefijos.anide_en(&CTipodoc, &fdm().TPrefconta);
    campos_prefijos(CPrefijos);
    campos_articulos(CArticulo);
    CArticulo.CommandText = "select ARTI_COD, ARTI_DES from articulo order by arti_cod";
}

void PantallaPlantilla::construya(const QString& archivo) {
    LTipo = nombrado(new ListaDato(&CPlantilla, "TICO_COD"), "LTipo");
    LTipo->lista_de(&CTipodoc, "TICO_COD", "TICO_NOM");
    LTipo->OnEnter = [this] { LTipoEnter(); };
    LPref = nombrado(new ListaDato(&CPlantilla, "PRCO_PREF"), "LPref");
    LPref->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    EConcepto = nombrado(new EditorDato(&CPlantilla, "PLAN_CONCEPTO"), "EConcepto");
    ERef = nombrado(new EditorDato(&CPlantilla, "PLAN_REFER"), "ERef");
    construya_paginas();
    Formulario f(this);
    layout()->setContentsMargins(paso(1.5), aire(), paso(1.5), aire());
    layout()->setSpacing(aire());
    EConcepto->setMaximumWidth(ancho_caracteres(EConcepto->fontMetrics(), kLetrasNombre));
    f.fila("Tipo", en_flujo({LTipo, con_rotulo("Prefijo", LPref)}, paso()));
    f.fila("Concepto", en_flujo({EConcepto, con_rotulo("Referencia", ERef)}, paso()));
    f.ancha(PageControl1, 1);
    f.botones(nombrado(new BarraBotones(this), "barra"));
    ate_rejillas({Rejilla::Pegar, Rejilla::Borrar, Rejilla::Cortar, Rejilla::Copiar,
                  Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar},
                 archivo);
    for (LineasLibro* l : {lineas_2649, lineas_niif})
        l->rejilla->enter_con_seleccion = true;
    construya_panel_articulo("Edit7");
    Edit7 = descripcion_articulo;
    declare_teclas_comunes(ERef);
    tecla(Qt::Key_F8, "Tfauxiliar", [this] {
        const LineasLibro& l = lineas_a_la_vista();
        abra_auxiliar(l.libro, l.detalle.FieldByName("CUEN_COD").texto());
    });
    tecla_de_busqueda(Qt::Key_F9, "Tfcuentas", [this] { busque_cuenta(Libro::Decreto2649); });
    orden_de_entrega<PideTercero, PideCuenta, PideCentro, PideArticulo, PideActivo>();
    enter_como_tab();
    tamano_del_area(60, 40);
}

void PantallaPlantilla::calcule(ConjuntoDatos& d) {
    const auto busque = [&](ConjuntoDatos& tabla, const char* llave, const char* nombre) {
        const Valor codigo = d.FieldByName(llave).valor();
        return tabla.Active() && !codigo.nulo() ? tabla.Lookup(llave, {codigo}, nombre) : Valor();
    };
    d.FieldByName("ArtiDes") = busque(CArticulo, "ARTI_COD", "ARTI_DES");
    d.FieldByName("CateNom") = busque(CCategoria, "CONC_COD", "CONC_NOMBRE");
}

void PantallaPlantilla::abra_catalogos() {
    fdm().ConfigurarProviders(this);
    CTipodoc.Open();
    CArticulo.Open();
    CCategoria.Open();
    QStringList codigos, nombres;
    for (CCategoria.First(); !CCategoria.Eof(); CCategoria.Next()) {
        codigos << CCategoria.FieldByName("CONC_COD").texto();
        nombres << CCategoria.FieldByName("CONC_NOMBRE").texto();
    }
    lineas_2649->rejilla->lista(LineasLibro::kCategoria, nombres, codigos);
}

void PantallaPlantilla::FormActivate() {
    if (CTipodoc.Active())
        CTipodoc.Refresh();
}

// ---------------------------------------------------------------- encabezado

void PantallaPlantilla::ubique_tipo() {
    const Campo& tipo = CPlantilla.FieldByName("TICO_COD");
    if (!tipo.vacio())
        CTipodoc.Locate("TICO_COD", {tipo.valor()});
}

void PantallaPlantilla::TICO_CODChange(Campo& campo) {
    if (campo.vacio()) {
        CPlantilla.FieldByName("PRCO_PREF").limpie();
        return;
    }
    ubique_tipo();
    if (CPrefijos.IsEmpty())
        throw ErrorDatos(QStringLiteral("@Debe registrar antes los prefijos."));
    LPref->setEnabled(true);
    CPrefijos.First();
    CPlantilla.FieldByName("PRCO_PREF") = CPrefijos.FieldByName("PRCO_PREF").texto();
    if (CPrefijos.RecordCount() == 1)
        LPref->setEnabled(false);
}

void PantallaPlantilla::CPlantillaBeforePost() {
    const std::pair<const char*, const char*> exigidos[] = {
        {"TICO_COD", "Debe indicar el tipo de comprobante."},
        {"PRCO_PREF", "Debe indicar el prefijo de comprobante."},
        {"PLAN_CONCEPTO", "Debe indicar un concepto para el comprobante."}};
    for (const auto& [campo, mensaje] : exigidos)
        if (CPlantilla.FieldByName(campo).vacio()) {
            muestre_mensaje(mensaje);
            throw EdicionAbortada();
        }
}

// ---------------------------------------------------------------- líneas

void PantallaPlantilla::panel_de_clase(Libro libro, const QString& clase) {
    if (clase != "I" && clase != "A") {
        GroupBox2->hide();
        return;
    }
    destine_panel(clase == "A");
    Edit7->clear();
    EArticod->clear(); // el de otra línea no es el de esta
    GroupBox2->muestre(EArticod);
    const QString articulo = lineas_de(libro).FieldByName("ARTI_COD").texto();
    if (articulo.isEmpty())
        return;
    EArticod->setText(articulo);
    Edit7->setText(clase == "I" ? fdmArt().desc_articulo(articulo)
                                : fdmcnt().desc_activo(articulo));
}

void PantallaPlantilla::DBGridDblClick(Libro libro, int columna) {
    // Las cuentas se buscan en el plan 2649 desde las dos rejillas.
    if (columna == LineasLibro::kCuenta)
        busque_cuenta(Libro::Decreto2649);
    else
        PantallaLineas::DBGridDblClick(libro, columna);
}

void PantallaPlantilla::siga_borrador(
    const QString& cual, std::function<bool()> hay,
    const std::function<QString(const BorradorFilas::Huerfano&)>& frase) {
    borrador_ = new BorradorFilas(cual, {&CPlantilla}, std::move(hay), this);
    muestra_lineas_ = false;
    const bool repuso = borrador_->ofrezca(frase);
    CPlantilla.Edit();
    muestra_lineas_ = true;
    if (repuso) {
        ubique_tipo();
        for (LineasLibro* l : {lineas_2649, lineas_niif}) {
            // La que se empezaba, sin cuenta aún, se deja como al grabar.
            for (int i = l->detalle.RecordCount() - 1; i >= 0; --i) {
                l->detalle.vaya_a(i);
                if (l->detalle.FieldByName("CUEN_COD").vacio())
                    l->detalle.Delete();
            }
            l->siga_los_items("PLDE_ITEM");
            l->actualice_sumas();
            l->muestre_linea();
        }
    }
    borrador_->siga();
}

QWidget* PantallaPlantilla::encabezado_al_volver() const {
    return EConcepto;
}

void PantallaPlantilla::pegue(Rejilla& rejilla) {
    LineasLibro& l = &rejilla == lineas_niif->rejilla ? *lineas_niif : *lineas_2649;
    const auto filas = l.anuncie_pegado(false);
    if (!filas)
        return;
    l.prepare_pegado();
    rejilla.pegue(*filas);
}

// ---------------------------------------------------------------- salida

bool PantallaPlantilla::FormClose() {
    if (hay_por_perder() &&
        !pregunte_con_no("Desea salir de la plantilla y perder los movimientos que no ha grabado?"))
        return false;
    CPlantilla.CancelUpdates();
    CPlantilla.Close();
    if (borrador_)
        borrador_->descarte();
    return true;
}
