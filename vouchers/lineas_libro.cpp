#include "vouchers/lineas_libro.h"

#include "libro/catalogos.h"
#include "libro/conjuntos_comprobante.h"
#include "libro/importes.h"
#include "sesion/tercero_nuevo.h"
#include "toolkit/aire.h"
#include "toolkit/estilo.h"
#include "vouchers/letrero_diferencia.h"
#include "vouchers/nombres_en_linea.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QHeaderView>
#include <QScopedValueRollback>

namespace {

const CamposLinea kDeComprobante{
    .linea = {.debito = "CODE_DEBITO", .credito = "CODE_CREDITO"},
    .item = "CODE_ITEM",
    .concepto = "CODE_CONCEPTO",
    .referencia = "CODE_REFER",
    .base = "CODE_BASE",
    .porcentaje = "CODE_PORC",
    .descontable = "CODE_DESCONTABLE",
    .concepto_encabezado = "ENCO_CONCEPTO",
    .referencia_encabezado = "ENCO_REFER",
    .dif_debito = "Difdeb",
    .dif_credito = "DifCred",
    .dif_debito_niif = "DifDebN",
    .dif_credito_niif = "DifCreN",
    .con_saldos = true,
};

/// Página de un libro: pide el alto con que se alcanza a digitar, no el que más le gusta a su
/// rejilla.
class Pagina : public QWidget {
public:
    int heightForWidth(int ancho) const override { return layout()->minimumHeightForWidth(ancho); }
};

struct Titulo {
    const char *campo, *titulo_2649, *titulo_niif;
    int ancho;
    unsigned opciones;
    const char* formato;
};

QVector<Titulo> titulos(const CamposLinea& c) {
    QVector<Titulo> t{
        {c.linea.cuenta, "Código", "Cuenta", 11, 0, ""},
        {c.linea.tercero, "Tercero", "NIT", 13, 0, ""},
        {c.linea.proyecto, "Proy", "Proy", 5, 0, ""},
        {c.linea.centro, "Centro", "Centro", 6, 0, ""},
        {c.concepto, "Concepto", "Concepto", 22, 0, ""},
        {c.categoria, "Categoría", "Categoria", 8, 0, ""},
        {c.referencia, "Ref.", "Referencia", 8, 0, ""},
        {c.base, "Base", "Base", 13, Suma, "#,###.00"},
        {c.porcentaje, "Porc.", "Porc.", 6, 0, "#,##0.####"},
        {c.linea.debito, "Débito", "Debito", 15, Suma, "#,###.00"},
        {c.linea.credito, "Crédito", "Crédito", 15, Suma, "#,###.00"},
    };
    if (c.referencia_antes)
        t.swapItemsAt(LineasLibro::kCategoria, LineasLibro::kReferencia);
    if (c.descontable)
        t.append({c.descontable, "Desc.", "Desc.", 5, Casilla, ""});
    return t;
}

} // namespace

LineasLibro::LineasLibro(Libro l, AnfitrionLineas& anfitrion, ConjuntoDatos& d,
                         ConjuntoDatos& consulta, MemoriasLinea& memorias,
                         const AjustesLinea& ajustes, QObject* dueno)
    : LineasLibro(l, kDeComprobante, anfitrion, d, consulta, memorias, ajustes, dueno) {}

LineasLibro::LineasLibro(Libro l, const CamposLinea& campos, AnfitrionLineas& anfitrion,
                         ConjuntoDatos& d, ConjuntoDatos& consulta, MemoriasLinea& memorias,
                         const AjustesLinea& ajustes, QObject* dueno)
    : LineasCuenta(l, d, consulta, campos.linea, dueno), c_(campos), anfitrion_(anfitrion),
      memorias_(memorias), ajustes_(ajustes) {}

LineasLibro::~LineasLibro() = default;

void LineasLibro::defina_campos(ConjuntoDatos& d, Libro libro) {
    defina_lineas(d, libro);
    defina_sumas(d, kDeComprobante.linea);
}

// ---------------------------------------------------------------- disposición

QWidget* LineasLibro::construya_pagina() {
    auto* pagina = new Pagina;
    pagina->setObjectName(es_niif(libro) ? "TabSheet2" : "TabSheet1");
    const QString n = es_niif(libro) ? QStringLiteral("N") : QString();
    rejilla = new Rejilla(pagina);
    rejilla->setObjectName(es_niif(libro) ? "DBGridEh2" : "DBGridEh1");
    new NombresEnLinea(rejilla, libro, kCuenta);
    QVector<DefinicionColumna> columnas;
    for (const Titulo& t : titulos(c_))
        columnas.push_back({t.campo, es_niif(libro) ? t.titulo_niif : t.titulo_2649, t.ancho,
                            t.opciones, t.formato});
    rejilla->columnas(columnas);
    rejilla->pie(true);
    // Con sus títulos y su pie, cuatro líneas antes de que haya que desplazar la ventana.
    rejilla->setMinimumHeight(13 * rejilla->verticalHeader()->defaultSectionSize() / 2);
    rejilla->enter_como_tab = true;
    rejilla->texto_vacio = QStringLiteral("Sin líneas: digite el código de la cuenta, o F9 para "
                                          "buscarla.");
    rejilla->ate(&detalle);
    ofrezca_al_teclear();

    const auto saldo = [&](EditorNumero*& e, const QString& componente) {
        e = EditorNumero::de_saldo();
        e->setObjectName(componente);
    };
    NomCuenta = caja_de_nombre("NomCuenta" + n);
    NomTerc = caja_de_nombre("NomTerc" + n);
    NomProy = caja_de_nombre("NomProy" + n);
    NomCent = caja_de_nombre("NomCent" + n);
    if (c_.con_saldos) {
        saldo(ESaldocta, es_niif(libro) ? "ESaldoCtaN" : "ESaldocta");
        saldo(ESaldoter, "ESaldoter" + n);
        saldo(ESaldocent, es_niif(libro) ? "EsaldocentN" : "ESaldocent");
        ESaldocta->setAccessibleName("Saldo de la cuenta");
        ESaldoter->setAccessibleName("Saldo del tercero");
        ESaldocent->setAccessibleName("Saldo del centro");
    }
    saldo(Sumadeb, "Sumadeb" + n);
    saldo(SumCred, es_niif(libro) ? "SumaCreN" : "SumCred");
    saldo(Difdeb, es_niif(libro) ? c_.dif_debito_niif : c_.dif_debito);
    saldo(DifCred, es_niif(libro) ? c_.dif_credito_niif : c_.dif_credito);

    Formulario f(pagina);
    pagina->layout()->setContentsMargins(paso(), aire(0.75), paso(), aire(0.75));
    pagina->layout()->setSpacing(aire(0.75));
    f.ancha(rejilla, 1);
    // Difdeb y DifCred guardan la diferencia de las líneas que ya entraron; la que se ve va al paso
    // de lo que se digita.
    for (EditorNumero* e : {Difdeb, DifCred}) {
        e->setParent(pagina);
        e->hide();
    }
    LabDiferencia = new LetreroDiferencia(*this);
    LabDiferencia->setObjectName("LabDiferencia" + n);
    disponga_pie(f, ESaldocta, ESaldoter, ESaldocent);
    complete(f);
    return pagina;
}

void LineasLibro::ate_eventos() {
    campo(n_.cuenta).OnChange = [this](Campo&) { cuenta_cambiada(); };
    campo(n_.tercero).OnChange = [this](Campo&) { tercero_cambiado(); };
    campo(n_.proyecto).OnChange = [this](Campo&) {
        if (reponiendo() || (!c_.pregunta_con_los_dos && busque_proyecto()))
            return;
        vacie_centro();
        validar_centro();
    };
    campo(n_.centro).OnChange = [this](Campo&) { centro_cambiado(); };
    campo(c_.categoria).OnChange = [this](Campo&) { categoria_cambiada(); };
    campo(c_.articulo).OnChange = [this](Campo&) { anfitrion_.articulo_cambiado(libro); };
    campo(c_.base).OnValidate = [this](Campo& c, const Valor&) { base_anterior_ = c.moneda(); };
    campo(c_.base).OnChange = [this](Campo&) { base_cambiada(); };
    campo(c_.porcentaje).OnChange = [this](Campo&) { porcentaje_cambiado(); };
    if (c_.comilla_en_celda) {
        campo(c_.concepto).OnChange = [this](Campo& c) { repita(c, memorias_.concepto_anterior); };
        campo(c_.referencia).OnChange = [this](Campo& c) {
            repita(c, memorias_.referencia_anterior);
        };
    }
    ate_lados();
    ate_preguntas();
    detalle.BeforePost = [this] { BeforePost(); };
    detalle.AfterInsert = [this] { AfterInsert(); };
    detalle.AfterScroll = [this] { AfterScroll(); };
    rejilla->ColEnter = [this](int c) { ColEnter(c); };
    rejilla->ColExit = [this](int c) { ColExit(c); };
}

// ---------------------------------------------------------------- consultas

void LineasLibro::saldo(EditorNumero* caja, const char* procedimiento,
                        const QStringList& argumentos) {
    Sentencia& q = fdmcnt().QSaldo;
    q.Open(QStringLiteral("Select * from %1%2(%3,%4,%5,'N')")
               .arg(QLatin1String(procedimiento), QLatin1String(datos(libro).sufijo),
                    argumentos.join(','), anfitrion_.ano_saldos(),
                    QString::number(anfitrion_.mes_saldos())));
    caja->valor(q.Fields(0).moneda());
    q.Close();
}

// ---------------------------------------------------------------- columnas

void LineasLibro::ColEnter(int columna) {
    if (c_.columnas_libres || cuenta().isEmpty())
        return;
    consulte_cuenta("CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION");
    abra_o_cierre(columna);
    if (columna == kPorcentaje && ajustes_.inhabilita_porcentaje &&
        consulta_.FieldByName("CUEN_RETENCION").texto() == "S") {
        // Nada quita la marca: queda para las líneas que sigan.
        rejilla->columna(kPorcentaje).ReadOnly = true;
    }
}

void LineasLibro::ColExit(int columna) {
    const bool pregunto = se_pregunto();
    if (cuenta().isEmpty())
        return;
    consulte_cuenta("CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION, CUEN_TIPO");
    ConjuntoDatos& e = anfitrion_.encabezado();
    switch (columna) {
    case kCuenta:
        // El panel edita la línea actual: abierto al pasar de fila, editaría la otra.
        anfitrion_.panel_de_clase(libro, pregunto || rejilla->cambia_de_fila() || rejilla->ReadOnly
                                             ? QString()
                                             : consulta_.FieldByName("CUEN_TIPO").texto());
        break;
    case kTercero:
        if (en_edicion())
            complete_tercero();
        break;
    case kConcepto:
        if (!en_edicion())
            break;
        if (const QString t = campo(c_.concepto).texto(); t.isEmpty() || es_repeticion(t))
            campo(c_.concepto) =
                concepto_al_dejarlo(t, e.FieldByName(c_.concepto_encabezado).texto(), memorias_);
        break;
    case kReferencia:
        if (en_edicion() && campo(c_.referencia).vacio())
            campo(c_.referencia) =
                referencia_al_dejarla({}, e.FieldByName(c_.referencia_encabezado).texto())
                    .left(campo(c_.referencia).Size);
        break;
    default:
        comilla_de_referencia();
    }
}

void LineasLibro::comilla_de_referencia() {
    if (es_repeticion(campo(c_.referencia).texto()))
        campo(c_.referencia) = memorias_.referencia_anterior;
}

// ---------------------------------------------------------------- cambios de campo

void LineasLibro::cuenta_cambiada() {
    vacie_saldos();
    NomCuenta->clear();
    if (cuenta().isEmpty() || busque_cuenta())
        return;
    if (cuenta().trimmed().isEmpty()) { // unos espacios son la celda vacía
        campo(n_.cuenta).limpie();
        return;
    }
    validar_cuenta();
    if (cuenta().isEmpty()) // rehusada: lo que se digite a ciegas no es del tercero
        rejilla->vuelva_a(kCuenta);
    if (ajustes_.mostrar_saldo && !cuenta().isEmpty()) {
        // El tercero y el centro que la línea ya tenía, en la cuenta nueva.
        muestre_saldo_tercero();
        muestre_saldo_centro();
    }
    if (!c_.completa_con_la_cuenta || !campo(n_.tercero).vacio())
        return;
    consulte_cuenta("CUEN_TERCERO");
    complete_tercero();
}

void LineasLibro::complete_tercero() {
    const QString nit = campo(n_.tercero).texto();
    const QString queda = tercero_al_dejarlo(nit, atributos(), memorias_);
    if (nit != queda)
        campo(n_.tercero) = queda;
}

void LineasLibro::validar_cuenta() {
    const QString texto = cuenta();
    if (texto.isEmpty())
        return;
    if (!fdmcnt().valide_cuenta(texto, libro)) {
        if (en_edicion())
            campo(n_.cuenta).limpie();
        return;
    }
    NomCuenta->setText(fdmcnt().nom_cuenta(texto, libro));
    if (ajustes_.mostrar_saldo)
        saldo(ESaldocta, "saldo_cuenta_mes", {QuotedStr(texto)});
}

void LineasLibro::repita(Campo& celda, const QString& anterior) {
    if (es_repeticion(celda.texto()) && !es_repeticion(anterior))
        celda = anterior;
}

void LineasLibro::tercero_cambiado() {
    NomTerc->clear();
    if (ESaldoter)
        ESaldoter->vacie();
    if (c_.comilla_en_celda && es_repeticion(campo(n_.tercero).texto()))
        campo(n_.tercero) = memorias_.tercero_anterior;
    else if (!busque_tercero())
        validar_tercero();
}

void LineasLibro::validar_tercero() {
    const QString nit = campo(n_.tercero).texto();
    if (nit.isEmpty())
        return;
    const QString nombre = fdmter().nom_tercero(nit);
    NomTerc->setText(nombre);
    if (nombre.isEmpty()) {
        const bool se_crea = pregunte("Tercero no encontrado. Desea crearlo?") &&
                             cree_tercero_digitado(pantalla(), nit, [this](const QString& creado) {
                                 reciba(n_.tercero, creado);
                             });
        if (!se_crea && en_edicion()) {
            campo(n_.tercero).limpie();
            rejilla->vuelva_a(kTercero);
        }
    } else if (ajustes_.mostrar_saldo) {
        muestre_saldo_tercero();
    }
}

void LineasLibro::muestre_saldo_tercero() {
    if (const QString nit = campo(n_.tercero).texto(); !nit.isEmpty())
        saldo(ESaldoter, "saldo_tercero_mes", {QuotedStr(cuenta()), QuotedStr(nit)});
}

void LineasLibro::centro_cambiado() {
    const bool sin_proyecto = campo(n_.proyecto).vacio();
    if (c_.pregunta_con_los_dos && sin_proyecto && campo(n_.centro).texto().startsWith('?'))
        return;
    if (busque_centro())
        return;
    vacie_centro();
    if (sin_proyecto)
        deduzca_proyecto(); // y con él se valida
    else
        validar_centro();
}

void LineasLibro::vacie_centro() {
    NomProy->clear();
    NomCent->clear();
    if (ESaldocent)
        ESaldocent->vacie();
}

void LineasLibro::validar_centro() {
    const QString proyecto = campo(n_.proyecto).texto(), centro = campo(n_.centro).texto();
    if (proyecto.isEmpty() || centro.isEmpty())
        return;
    NomProy->setText(fdmcnt().nom_centro(proyecto));
    if (es_niif(libro) && ajustes_.filtra_centros && fdm().sucursal_usuario != 0) {
        // Sin paréntesis: el OR queda como está escrito y gana cualquier centro general.
        consulta_.Open("select cent_nom from centros where (SUCU_ID = 0) OR (SUCU_ID = " +
                       QString::number(fdm().sucursal_usuario) + ") and proy_cod = " +
                       QuotedStr(proyecto) + " and cent_cod = " + QuotedStr(centro));
        NomCent->setText(consulta_.Fields(0).texto());
    } else {
        NomCent->setText(fdmcnt().nom_subcentro(proyecto, centro));
    }
    if (!fdmcnt().valide_centro(proyecto, centro)) {
        if (en_edicion())
            campo(n_.centro).limpie();
    } else if (ajustes_.mostrar_saldo) {
        muestre_saldo_centro();
    }
}

void LineasLibro::muestre_saldo_centro() {
    const QString proyecto = campo(n_.proyecto).texto(), centro = campo(n_.centro).texto();
    if (!proyecto.isEmpty() && !centro.isEmpty())
        saldo(ESaldocent, "saldo_centro_mes",
              {QuotedStr(cuenta()), QuotedStr(proyecto), QuotedStr(centro)});
}

void LineasLibro::categoria_cambiada() {
    const QString codigo = campo(c_.categoria).texto();
    if (codigo.isEmpty())
        return;
    if (const auto rechazo = revise_categoria(detalle.conexion(), libro, codigo)) {
        muestre_mensaje(rechazo->texto);
        campo(c_.categoria).limpie();
    }
}

void LineasLibro::base_cambiada() {
    if (!en_edicion() || cuenta().isEmpty())
        return;
    consulte_tarifa("CUEN_BASEMIN, CUEN_PORC");
    const Moneda minimo = consulta_.Fields(0).moneda(), tarifa = consulta_.Fields(1).moneda();
    const Moneda base = campo(c_.base).moneda();
    const auto sugerido = porcentaje_sugerido(base, campo(c_.porcentaje).moneda(), minimo, tarifa);
    const bool alcanza = !c_.base_con_signo || minimo <= base;
    if (sugerido && alcanza && !consulta_.IsEmpty()) {
        const QScopedValueRollback<bool> guarda(sugiriendo_, true);
        campo(c_.porcentaje) = *sugerido;
        if (!confirme_porcentaje())
            return;
        retenga(tarifa); // la columna guarda menos decimales: el valor es el de la tarifa entera
        return;
    }
    retenga(tarifa_en_uso(tarifa));
}

void LineasLibro::porcentaje_cambiado() {
    if (en_edicion() && !sugiriendo_ && confirme_porcentaje())
        retenga(campo(c_.porcentaje).moneda());
}

void LineasLibro::consulte_tarifa(const char* columnas) {
    if (c_.tarifa_del_2649)
        consulte_cuenta(columnas, datos(Libro::Decreto2649).cuentas);
    else
        consulte_cuenta(columnas);
}

bool LineasLibro::confirme_porcentaje() {
    const auto alto = revise_porcentaje(campo(c_.porcentaje).moneda());
    if (!alto || pregunte_con_no(alto->pregunta))
        return true;
    const QScopedValueRollback<bool> guarda(sugiriendo_, true);
    campo(c_.porcentaje).limpie();
    return false;
}

Moneda LineasLibro::tarifa_en_uso(Moneda tarifa_cuenta) const {
    const Campo& porcentaje = campo(c_.porcentaje);
    const auto de_la_cuenta = lados_de_retencion(base_anterior_, tarifa_cuenta, digito());
    const bool sugerida =
        porcentaje.moneda() == tarifa_cuenta.redondeada(porcentaje.Size) &&
        de_la_cuenta == Lados{campo(n_.debito).moneda(), campo(n_.credito).moneda()};
    return sugerida ? tarifa_cuenta : porcentaje.moneda();
}

void LineasLibro::retenga(Moneda tarifa) {
    if (const auto lados = lados_de_retencion(campo(c_.base).moneda(), tarifa, digito())) {
        campo(n_.debito) = lados->debito;
        campo(n_.credito) = lados->credito;
    }
}

// ---------------------------------------------------------------- la línea

void LineasLibro::AfterInsert() {
    campo(c_.item) = contador.siguiente();
    if (c_.descontable)
        campo(c_.descontable) = anfitrion_.encabezado().FieldByName("ENCO_DESCONTABLE").texto();
    vacie_pie();
}

void LineasLibro::BeforePost() {
    for (const char* celda : {n_.proyecto, n_.centro})
        tome_pregunta(celda); // la que no llegó a abrir la lista
    se_pregunto();
    if (cuenta().isEmpty()) {
        if (c_.exige_valor && !sin_valor())
            rehuse(QStringLiteral("Debe indicar una cuenta para el movimiento."));
        detalle.Cancel();
        throw EdicionAbortada();
    }
    recuerde(es_niif(libro) && !c_.memoria_comun ? propias_ : memorias_, linea(),
             siempre_recuerda_tercero || anfitrion_.encabezado().FieldByName("TERC_NIT").vacio());
    if (replicando || (!c_.exige_valor && intacta()))
        return;
    exija_completa();
}

bool LineasLibro::sin_valor() const {
    return vacio_o_cero(campo(n_.debito)) && vacio_o_cero(campo(n_.credito));
}

void LineasLibro::exija_completa() {
    consulte_cuenta("CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION");
    if (!c_.exige_valor && consulta_.IsEmpty())
        exija_cuenta();
    exija(faltas_de_linea(linea(), atributos()));
    if (c_.exige_valor && sin_valor() && !consulta_.IsEmpty())
        rehuse("Debe indicar un valor débito o crédito para la cuenta " + cuenta() +
               " o eliminar el registro completo.");
}

void LineasLibro::exija_cuenta() {
    // La que se dijo crear y no se creó no se queda en la línea.
    const auto r = revise_cuenta(detalle.conexion(), libro, cuenta());
    if (r && r->motivo == Motivo::CuentaInexistente)
        rehuse(QString("La cuenta ") + (es_niif(libro) ? "NIIF " : "") + cuenta() +
               " no existe. Regístrela o escoja otra.");
}

LineaComprobante LineasLibro::linea() const {
    LineaComprobante l = LineasCuenta::linea();
    l.concepto = campo(c_.concepto).texto();
    l.referencia = campo(c_.referencia).texto();
    l.base = campo(c_.base).moneda();
    l.porcentaje = campo(c_.porcentaje).moneda();
    return l;
}

QString LineasLibro::como_de_comprobante(const QString& columna) const {
    const std::pair<const char*, const char*> iguales[] = {
        {c_.concepto, "CODE_CONCEPTO"}, {c_.referencia, "CODE_REFER"},
        {c_.base, "CODE_BASE"},         {c_.porcentaje, "CODE_PORC"},
        {c_.categoria, "CONC_COD"},     {c_.descontable, "CODE_DESCONTABLE"}};
    for (const auto& [propia, comun] : iguales)
        if (propia && columna == QLatin1String(propia))
            return QLatin1String(comun);
    return LineasCuenta::como_de_comprobante(columna);
}

MemoriasLinea LineasLibro::memorias_de_pegado() const {
    return c_.completa_con_la_cuenta ? memorias_ : MemoriasLinea();
}

void LineasLibro::AfterScroll() {
    vacie_pie(); // era de otra línea
    if (!anfitrion_.encabezado_posteado())
        return;
    if (rejilla->ReadOnly) { // no hay qué corregir: pasar por una línea no la valida
        muestre_pie();
        actualice_sumas();
        return;
    }
    if (c_.solo_nombres) {
        muestre_nombres();
        if (!cuenta().isEmpty() || !campo(n_.tercero).vacio())
            detalle.Edit();
        actualice_sumas();
        return;
    }
    if (!cuenta().isEmpty())
        detalle.Edit();
    validar_cuenta();
    validar_tercero();
    validar_centro();
    actualice_sumas();
}

void LineasLibro::muestre_pie() {
    muestre_nombres();
    if (!ajustes_.mostrar_saldo || !ESaldocta || cuenta().isEmpty())
        return;
    saldo(ESaldocta, "saldo_cuenta_mes", {QuotedStr(cuenta())});
    muestre_saldo_tercero();
    muestre_saldo_centro();
}

void LineasLibro::muestre_nombres() {
    const QString nit = campo(n_.tercero).texto(), proyecto = campo(n_.proyecto).texto();
    const auto nombre = [this](const char* columna, const char* tabla, const char* llave,
                               const QString& codigo) {
        // Por aparte de la consulta de la pantalla, que puede estar a medio leer.
        return codigo.isEmpty() ? QString()
                                : detalle.conexion()
                                      .consulte(QStringLiteral("select %1 from %2 where %3 = ?")
                                                    .arg(columna, tabla, llave),
                                                {codigo})
                                      .texto();
    };
    NomCuenta->setText(nombre_en_el_plan(detalle.conexion(), libro, cuenta()));
    NomTerc->setText(nombre("terc_nom", "terceros", "terc_nit", nit));
    NomProy->setText(nombre("proy_nom", "proyectos", "proy_cod", proyecto));
    NomCent->setText(nombre_de_centro(detalle.conexion(), proyecto, campo(n_.centro).texto()));
}
