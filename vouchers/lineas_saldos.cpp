#include "vouchers/lineas_saldos.h"

#include "toolkit/estilo.h"
#include "vouchers/letrero_diferencia.h"
#include "vouchers/nombres_en_linea.h"
#include "vouchers/pch.h"

namespace {

constexpr NombresLinea kNombres{.debito = "SAIN_DEBITO", .credito = "SAIN_CREDITO"};

} // namespace

LineasSaldos::LineasSaldos(ConjuntoDatos& saldos, ConjuntoDatos& consulta, QObject* dueno)
    : LineasCuenta(Libro::Decreto2649, saldos, consulta, kNombres, dueno) {
    defina_sumas(saldos, kNombres);
}

QWidget* LineasSaldos::construya_pagina() {
    auto* pagina = new QWidget;
    rejilla = new Rejilla(pagina);
    rejilla->setObjectName("DBGridEh1");
    rejilla->setAccessibleName("Saldos iniciales");
    new NombresEnLinea(rejilla, libro, kCuenta);
    rejilla->columnas({{"CUEN_COD", "Cuenta", 13},
                       {"TERC_NIT", "Tercero", 15},
                       {"PROY_COD", "Proy", 6},
                       {"CENT_COD", "Centro", 7},
                       {"SAIN_DEBITO", "Débito", 18, Suma, "#,###.00"},
                       {"SAIN_CREDITO", "Crédito", 18, Suma, "#,###.00"}});
    rejilla->pie(true);
    rejilla->enter_como_tab = true;
    rejilla->texto_vacio = "Sin saldos: digite el código de la cuenta, o F9 para buscarla.";
    rejilla->ate(&detalle);
    ofrezca_al_teclear();

    NomCuenta = caja_de_nombre("NomCuenta");
    NomTerc = caja_de_nombre("NomTerc");
    NomProy = caja_de_nombre("NomProy");
    NomCent = caja_de_nombre("NomCent");
    const auto suma = [](const char* nombre) {
        EditorNumero* e = EditorNumero::de_saldo();
        e->setObjectName(nombre);
        return e;
    };
    Sumadeb = suma("Sumadeb");
    SumCred = suma("SumCred");
    Difdeb = suma("Difdeb");
    DifCred = suma("DifCred");
    Formulario f(pagina);
    pagina->layout()->setContentsMargins(0, 0, 0, 0); // los de la pantalla bastan
    f.ancha(rejilla, 1);
    for (EditorNumero* e : {Difdeb, DifCred}) { // de las líneas que ya entraron; no se ven
        e->setParent(pagina);
        e->hide();
    }
    LabDiferencia = new LetreroDiferencia(*this);
    LabDiferencia->setObjectName("LabDiferencia");
    disponga_pie(f);
    return pagina;
}

void LineasSaldos::ate_eventos() {
    campo("CUEN_COD").OnChange = [this](Campo&) { cuenta_cambiada(); };
    campo("TERC_NIT").OnChange = [this](Campo&) { tercero_cambiado(); };
    campo("PROY_COD").OnChange =
        campo("CENT_COD").OnChange = [this](Campo& c) { centro_cambiado(c); };
    ate_lados();
    ate_preguntas();
    detalle.BeforePost = [this] { BeforePost(); };
    detalle.AfterInsert = [this] { AfterInsert(); };
    detalle.AfterScroll = [this] { AfterScroll(); };
    rejilla->ColEnter = [this](int c) { ColEnter(c); };
    rejilla->ColExit = [this](int c) { ColExit(c); };
}

// ---------------------------------------------------------------- celdas

void LineasSaldos::devuelva_a(int columna) {
    // Rehusar lo que se digita en la celda la deja abierta; lo que llegó por otro camino (otra
    // celda, una búsqueda) lleva el cursor allá.
    if (rejilla->SelectedIndex() == columna)
        throw EdicionAbortada();
    rejilla->vuelva_a(columna);
}

void LineasSaldos::cuenta_cambiada() {
    const QString texto = cuenta();
    NomCuenta->clear();
    if (texto.isEmpty() || busque_cuenta())
        return;
    if (!fdmcnt().valide_cuenta(texto)) {
        campo("CUEN_COD").limpie();
        devuelva_a(kCuenta);
        return;
    }
    NomCuenta->setText(fdmcnt().nom_cuenta(texto));
}

void LineasSaldos::tercero_cambiado() {
    const QString nit = campo("TERC_NIT").texto();
    if (busque_tercero())
        return;
    NomTerc->setText(nit.isEmpty() ? QString() : fdmter().nom_tercero(nit));
    if (!nit.isEmpty() && NomTerc->text().isEmpty()) {
        muestre_mensaje("Tercero no encontrado.");
        devuelva_a(kTercero);
    }
}

void LineasSaldos::centro_cambiado(const Campo& cual) {
    if (busque_proyecto() || busque_centro())
        return;
    NomProy->clear();
    NomCent->clear();
    const QString proyecto = campo("PROY_COD").texto(), centro = campo("CENT_COD").texto();
    // El proyecto que se borra no se deduce otra vez del centro que tenía.
    if (proyecto.isEmpty() && cual.FieldName == QLatin1String("CENT_COD"))
        deduzca_proyecto(); // y con él se vuelve aquí
    if (proyecto.isEmpty() || centro.isEmpty())
        return;
    if (!fdmcnt().valide_centro(proyecto, centro)) {
        devuelva_a(kCentro);
        return;
    }
    muestre_centro(proyecto, centro);
}

void LineasSaldos::muestre_centro(const QString& proyecto, const QString& centro) {
    NomProy->setText(fdmcnt().nom_centro(proyecto));
    NomCent->setText(fdmcnt().nom_subcentro(proyecto, centro));
}

void LineasSaldos::ColEnter(int columna) {
    if (cuenta().isEmpty())
        return;
    consulte_cuenta("CUEN_TERCERO, CUEN_CENTRO");
    abra_o_cierre(columna);
}

void LineasSaldos::ColExit(int columna) {
    const bool pregunto = se_pregunto();
    if (columna != kCuenta || cuenta().isEmpty())
        return;
    consulte_cuenta("CUEN_TIPO");
    // El panel edita la línea actual: abierto al pasar de fila, editaría la otra.
    al_dejar_la_cuenta(pregunto || rejilla->cambia_de_fila()
                           ? QString()
                           : consulta_.FieldByName("CUEN_TIPO").texto());
}

// ---------------------------------------------------------------- la línea

void LineasSaldos::AfterInsert() {
    campo("SAIN_ITEM") = contador.siguiente();
    campo("SAIN_DEBITO") = Moneda();
    campo("SAIN_CREDITO") = Moneda();
    vacie_pie();
}

void LineasSaldos::BeforePost() {
    if (cuenta().isEmpty()) {
        detalle.Cancel();
        throw EdicionAbortada();
    }
    if (intacta())
        return;
    // De una retención aquí solo se exige su tercero: un saldo no lleva base ni porcentaje.
    consulte_cuenta("CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION");
    AtributosCuenta cuenta = atributos();
    cuenta.tercero = cuenta.exige_tercero() ? "S" : "N";
    cuenta.retencion.clear();
    exija(faltas_de_linea(linea(), cuenta));
}

void LineasSaldos::AfterScroll() {
    vacie_pie();
    muestre_pie();
    actualice_sumas();
}

void LineasSaldos::muestre_pie() {
    // Pasar por una línea no la revisa.
    Conexion& base = detalle.conexion();
    if (!cuenta().isEmpty())
        NomCuenta->setText(nombre_en_el_plan(base, libro, cuenta()));
    if (!campo("TERC_NIT").vacio())
        NomTerc->setText(fdmter().nom_tercero(campo("TERC_NIT").texto()));
    const QString proyecto = campo("PROY_COD").texto(), centro = campo("CENT_COD").texto();
    if (!proyecto.isEmpty() && !centro.isEmpty()) {
        NomProy->setText(nombre_de_proyecto(base, proyecto));
        NomCent->setText(nombre_de_centro(base, proyecto, centro));
    }
}

bool LineasSaldos::cuadrados() const {
    return suma_debito() == suma_credito();
}
