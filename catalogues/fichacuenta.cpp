#include "catalogues/fichacuenta.h"

#include "catalogues/plancuentas.h"
#include "libro/catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/nombrado.h"
#include "toolkit/sin_grabar.h"

#include <QLabel>
#include <QToolButton>

namespace {

constexpr int kDigitos = 14;      ///< ancho de un código: caben los del plan sin estirar la ficha
constexpr int kLetrasNombre = 48; ///< con menos, sigue en otro renglón

} // namespace

FichaCuenta::FichaCuenta(const QString& clase, const QString& titulo, Libro libro)
    : Pantalla(clase, titulo), libro_(libro) {
    PCuentas =
        new Proveedor(this, "PCuentas", es_niif(libro) ? &fdm().TCuentasniif : &fdm().TCuentas);
    CCuentas = new ConjuntoDatos(this, "CCuentas", PCuentas);
    campos_ficha_cuenta(*CCuentas);
    cuide_lo_digitado(*this, {CCuentas});
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);
    barra_ = new BarraBotones(this);
}

void FichaCuenta::arme_ficha() {
    const auto editor = [this](const char* nombre, const char* campo, int ancho = 0) {
        auto* e = new EditorDato(CCuentas, campo, this);
        e->setObjectName(nombre);
        e->ancho(ancho);
        return e;
    };
    const auto casilla = [this](const char* nombre, const char* texto, const char* campo) {
        auto* c = new CasillaDato(texto, CCuentas, campo, this);
        c->setObjectName(nombre);
        return c;
    };
    ECodigo = editor("ECodigo", "CUEN_COD", kDigitos);
    ENombre = editor("ENombre", "CUEN_NOM", 40);
    ENombre->setMinimumWidth(ancho_caracteres(fontMetrics(), kLetrasNombre));
    LTipo = nombrado(new ListaDato(CCuentas, "CUEN_TIPO", this), "LTipo");
    LTipo->lista_de(clases_cuenta().nombres, clases_cuenta().codigos);
    CkActiva = casilla("CkActiva", "Ac&tiva", "CUEN_ACTIVA");
    CkTerceros = casilla("CkTerceros", "Detalla &terceros", "CUEN_TERCERO");
    CkCentros = casilla("CkCentros", "Detalla &centros de costo", "CUEN_CENTRO");
    CkRetenciones = casilla("CkRetenciones", "Cuenta de &retenciones", "CUEN_RETENCION");
    CkRetenciones->OnClick = [this] { CkRetencionesClick(); };
    EPorcentaje = editor("EPorcentaje", "CUEN_PORC", 10);
    EBase = editor("EBase", "CUEN_BASEMIN", 16);
    ECtaAjuste = editor("ECtaAjuste", "CUEN_CTAJUSTE", kDigitos);
    ECtaCorreccion = editor("ECtaCorreccion", "CUEN_CTACORRECION", kDigitos);
    CkAjusteDb = casilla("CkAjusteDb", "Ajuste al &débito", "CUEN_AJUSDB");
    ENorma = editor("ENorma", "CUEN_NORMA", 40);

    Formulario forma(this);
    forma.fila({{"C&ódigo", ECodigo}, {"&Nombre", ENombre}})
        .fila({{"Ti&po", LTipo}, {"", CkActiva}});
    forma.grupo("Movimiento")
        .fila({{"", CkTerceros}, {"", CkCentros}})
        .fila({{"", CkRetenciones}, {"P&orcentaje", EPorcentaje}, {"&Base mínima", EBase}});
    forma.grupo("Ajustes por inflación")
        .fila({{"Cuenta de a&juste", ECtaAjuste},
               {"Cuenta de corrección", ECtaCorreccion},
               {"", CkAjusteDb}})
        .fin_grupo();
    if (plan(libro_).con_equivalencia) {
        ECtaAjus = editor("ECtaAjus", "CUEN_EQNIIF", kDigitos);
        ECtaAjus->OnDblClick = [this] { ECtaAjusDblClick(); };
        ECtaAjus->setToolTip("Doble clic: escoger del plan NIIF");
        CCuentas->FieldByName("CUEN_EQNIIF").OnChange = [this](Campo&) {
            CCuentasCUEN_EQNIIFChange();
        };
        auto* escoger = new QToolButton(this);
        escoger->setText("…");
        escoger->setToolTip("Escoger del plan NIIF");
        escoger->setAccessibleName("Escoger la cuenta NIIF equivalente");
        connect(escoger, &QToolButton::clicked, this, [this] { ejecute(ECtaAjus->OnDblClick); });
        NomCtaniif = nombrado(new QLabel(this), "NomCtaniif");
        NomCtaniif->setWordWrap(true);
        NomCtaniif->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        // Suelta, su rótulo correría los campos de arriba.
        forma.grupo("Equivalencia y norma")
            .fila("Cuenta NII&F equivalente", Formulario::junto({ECtaAjus, escoger, NomCtaniif}));
    }
    forma.fila("Nor&ma", ENorma).fin_grupo();
    if (plan(libro_).con_auditoria) {
        LabAudit = nombrado(new QLabel(this), "LabAudit");
        forma.ancha(LabAudit, 0);
    }
    arme_botones();
    forma.estire().botones(barra_);
    tamano(800, 430);
    enter_como_tab();
}

bool FichaCuenta::FormClose() {
    CCuentas->Cancel();
    CCuentas->Close();
    CBorrar->Close();
    return true;
}

void FichaCuenta::habilite_retencion(bool si) {
    EPorcentaje->setEnabled(si);
    EBase->setEnabled(si);
}

void FichaCuenta::CkRetencionesClick() {
    if (!CkRetenciones->isChecked()) {
        CCuentas->FieldByName("CUEN_PORC").limpie();
        CCuentas->FieldByName("CUEN_BASEMIN").limpie();
    } else if (CCuentas->State() == estado_de_trabajo()) {
        CCuentas->FieldByName("CUEN_RETENCION") = "S";
    }
    habilite_retencion(CkRetenciones->isChecked());
}

void FichaCuenta::CCuentasCUEN_EQNIIFChange() {
    const QString cuenta = CCuentas->FieldByName("CUEN_EQNIIF").texto();
    NomCtaniif->setText(cuenta.isEmpty() ? QString() : fdmcnt().nom_cuenta_niif(cuenta));
}

void FichaCuenta::ECtaAjusDblClick() {
    escoja_cuenta(
        *this, Libro::Niif, {},
        [this](const QString& cuenta) {
            CCuentas->Edit();
            CCuentas->FieldByName("CUEN_EQNIIF") = cuenta;
        },
        ECtaAjus->text());
}

bool FichaCuenta::hay_nombre() {
    if (!CCuentas->FieldByName("CUEN_NOM").texto().trimmed().isEmpty())
        return true;
    muestre_mensaje("Falta ingresar el nombre de la cuenta.");
    ENombre->setFocus();
    return false;
}

bool FichaCuenta::hay_equivalente() {
    const QString cuenta = CCuentas->FieldByName("CUEN_EQNIIF").texto();
    if (!ECtaAjus || cuenta.isEmpty() || cuenta == equivalente_antes_)
        return true;
    Conexion& base = fdm().Quorvex;
    // Los planes llegan en cualquier orden: sin el NIIF no se sabe cuáles tendrá.
    if (base.consulte("select first 1 cuen_cod from cuentas_niif").nulo() ||
        atributos_de_cuenta(base, Libro::Niif, cuenta))
        return true;
    muestre_mensaje("La cuenta NIIF " + cuenta + " no existe.");
    ECtaAjus->setFocus();
    return false;
}
