#include "catalogues/forma_tercero.h"

#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "sesion/tfdmter.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/dialogos.h"
#include "toolkit/sin_grabar.h"

namespace {

const char* const kCuentas[] = {"TERC_CTACLIENTE", "TERC_CTAPROV",  "TERC_CTAEMPL",
                                "TERC_CTAVENTA",   "TERC_CTARTFTE", "TERC_CTARTIVA",
                                "TERC_CTARTICA",   "TERC_CTARCREE"};

QString sin_blancos_finales(QString texto) {
    while (texto.endsWith(' '))
        texto.chop(1);
    return texto;
}

} // namespace

FormaTercero::FormaTercero(const QString& clase, const QString& titulo) : Pantalla(clase, titulo) {
    PTerceros = new Proveedor(this, "PTerceros", &fdmter().TTercero);
    PCiudades = new Proveedor(this, "PCiudades", &fdmter().TCiudades);
    PPaises = new Proveedor(this, "PPaises", &fdmter().TPaises);
    Ptipo_id = new Proveedor(this, "Ptipo_id", &fdmter().Ttipoid);
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CTerceros = new ConjuntoDatos(this, "CTerceros", PTerceros);
    cuide_lo_digitado(*this, {CTerceros});
    CCiudades = new ConjuntoDatos(this, "CCiudades", PCiudades);
    CPaises = new ConjuntoDatos(this, "CPaises", PPaises);
    Ctipo_id = new ConjuntoDatos(this, "Ctipo_id", Ptipo_id);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);
    defina_campos();
    arme();

    CTerceros->BeforePost = [this] { CTercerosBeforePost(); };
    campo("TERC_TIPOID").OnChange = [this](Campo&) { CTercerosTERC_TIPOIDChange(); };
    campo("CIUD_COD").OnChange = [this](Campo&) { CTercerosCIUD_CODChange(); };
    for (const char* cuenta : kCuentas) {
        campo(cuenta).OnChange = [this](Campo& c) { CTercerosTERC_CTACLIENTEChange(c); };
        pregunta_.atienda(campo(cuenta));
    }
}

void FormaTercero::defina_campos() {
    ConjuntoDatos& t = *CTerceros;
    t.texto("TERC_NIT", 20).requerido().etiqueta("NIT");
    t.bandera("TERC_DV");
    t.bandera("TERC_DVDIAN");
    t.bandera("TERC_TIPOID");
    t.texto("TERC_NOM", 60).requerido().etiqueta("Nombre");
    for (const char* parte : {"TERC_APELLIDO1", "TERC_APELLIDO2", "TERC_NOMBRE1", "TERC_NOMBRE2"})
        t.texto(parte, 60);
    t.texto("TERC_DIR", 60);
    t.texto("TERC_CIU", 40);
    t.texto("CIUD_COD", 5);
    t.texto("PAIS_ID", 3).fijo();
    t.texto("TERC_TEL", 40);
    t.texto("TERC_FAX", 25);
    t.texto("TERC_CEL", 25);
    t.texto("TERC_EMAIL", 100);
    t.texto("TERC_CONTACTO", 255);
    t.memo("TERC_OBS");
    for (const char* bandera : {"TERC_CLIE", "TERC_PROV", "TERC_EMPL", "TERC_CONDUCTOR",
                                "TERC_ASOCIADO", "TERC_ASOCINAC", "TERC_TRANS", "TERC_ADMINI",
                                "TERC_DEPOS", "TERC_SIMPLIFICA", "TERC_EXENTO", "TERC_ESTADO"})
        t.bandera(bandera);
    t.fecha("TERC_ANIV");
    t.fecha("TERC_LICVEN");
    t.texto("TERC_CATEGORIA", 10);
    t.texto("TERC_USUARIO", 10);
    for (const char* cuenta : kCuentas)
        t.texto(cuenta, 20);
    t.texto("TERC_NITCONTA", 20);
    t.texto("TERC_ACTIVIDAD", 4).fijo();
    t.entero("TERC_CONCSH");

    campos_ciudades(*CCiudades);
    campos_paises(*CPaises);
    Ctipo_id->texto("TIID_COD", 3);
    Ctipo_id->texto("TIID_NOM", 60);
    Ctipo_id->texto("TIID_CODIGO", 3);
}

void FormaTercero::FormCreate() {
    fdm().ConfigurarProviders(this);
    DBEdit8->ReadOnly(!fdm().valor<Llave::ModificarDigito>());
    obligatorios_ = fdm().valor<Llave::DatosTerceroObligatorios>();
    CPaises->Open();
    CCiudades->Open();
    Ctipo_id->Open();
    for (ConjuntoDatos* lista : {CPaises, CCiudades, Ctipo_id})
        lista->FetchAll(); // una lista desplegable se ofrece entera
    CTerceros->Close();
    CTerceros->FetchParams();
}

void FormaTercero::FormActivate() {
    activada_ = true;
    // De vuelta de una cuenta que se iba a crear: si no se creó, su código no se queda aquí.
    for (QString nombre = cuenta_que_no_existe(); !nombre.isEmpty();
         nombre = cuenta_que_no_existe())
        campo(nombre).limpie();
    if (!std::exchange(releer_catalogos_, false))
        return;
    for (ConjuntoDatos* lista : {CPaises, CCiudades}) {
        lista->Refresh();
        lista->FetchAll();
    }
}

bool FormaTercero::natural() const {
    return campo("TERC_TIPOID").texto() != "J";
}

void FormaTercero::habilite_nombres() {
    for (EditorDato* parte : {EApellido1, EApellido2, ENombre1, ENombre2})
        parte->setEnabled(natural());
}

void FormaTercero::CTercerosTERC_TIPOIDChange() {
    habilite_nombres();
    if (natural()) {
        if (activada_)
            LTipoid->al_acabar_de_teclear([this] {
                if (natural())
                    EApellido1->setFocus();
            });
        return;
    }
    for (const char* parte : {"TERC_NOMBRE1", "TERC_NOMBRE2", "TERC_APELLIDO1", "TERC_APELLIDO2"})
        campo(parte).limpie();
}

void FormaTercero::CTercerosBeforePost() {
    if (!campo("TERC_NOM").vacio())
        return;
    QString nombre = campo("TERC_APELLIDO1").texto() + ' ';
    for (const char* parte : {"TERC_APELLIDO2", "TERC_NOMBRE1"})
        if (!campo(parte).vacio())
            nombre += campo(parte).texto() + ' ';
    campo("TERC_NOM") = nombre + campo("TERC_NOMBRE2").texto();
}

void FormaTercero::CTercerosCIUD_CODChange() {
    campo("TERC_CIU") =
        CCiudades->Lookup("CIUD_COD", {campo("CIUD_COD").valor()}, "CIUD_NOM").texto().left(40);
}

// ---------------------------------------------------------------- cuentas del tercero

void FormaTercero::CTercerosTERC_CTACLIENTEChange(Campo& campo) {
    const QString texto = campo.texto();
    if (texto.isEmpty() || pregunta_.reponiendo())
        return;
    if (const auto buscada = pregunta_.tome(campo))
        escoja_cuenta(campo, *buscada);
    else if (!fdmcnt().valide_cuenta(texto))
        campo.limpie();
    else
        por_revisar_ << campo.FieldName;
}

QString FormaTercero::cuenta_que_no_existe() {
    for (const QString& nombre : std::as_const(por_revisar_)) {
        const QString cuenta = campo(nombre).texto();
        if (!cuenta.isEmpty() &&
            CBorrar
                ->valor_unico("select cuen_cod from cuentas where cuen_cod = " + QuotedStr(cuenta))
                .nulo())
            return nombre;
    }
    por_revisar_.clear();
    return {};
}

void FormaTercero::DBEdit9DblClick(EditorDato& editor) {
    if (!editor.editable())
        return;
    CTerceros->Edit();
    escoja_cuenta(*editor.campo(), editor.text());
}

void FormaTercero::escoja_cuenta(Campo& campo, const QString& desde) {
    const QString escogida = escoja_cuenta_modal(desde);
    if (!escogida.isEmpty())
        campo = escogida;
}

// ---------------------------------------------------------------- grabación

bool FormaTercero::complete_y_valide(bool con_nit) {
    EObs->setFocus(); // lo que se estaba escribiendo llega al campo
    const QString compuesto = campo("TERC_APELLIDO1").texto() + ' ' +
                              campo("TERC_APELLIDO2").texto() + ' ' +
                              campo("TERC_NOMBRE1").texto() + ' ' + campo("TERC_NOMBRE2").texto();
    // Sin ninguna de las partes no hay de qué componer: queda el nombre escrito. El blanco de un
    // segundo nombre que falta no es un cambio.
    if (natural() && !compuesto.trimmed().isEmpty()) {
        const QString nuevo = sin_blancos_finales(compuesto);
        if (nuevo.size() > campo("TERC_NOM").Size) {
            muestre_mensaje(QString("El nombre completo del tercero admite %1 caracteres y los "
                                    "apellidos y nombres suman %2. Abrevie alguno.")
                                .arg(campo("TERC_NOM").Size)
                                .arg(nuevo.size()));
            EApellido1->setFocus();
            return false;
        }
        if (sin_blancos_finales(campo("TERC_NOM").texto()) != nuevo) {
            CTerceros->Edit();
            campo("TERC_NOM") = compuesto;
        }
    }
    struct Exigido {
        const char* campo;
        const char* mensaje;
        bool siempre;
    };
    static const Exigido exigidos[] = {
        {"TERC_NIT", "Falta ingresar el NIT o identificación del tercero.", true},
        {"TERC_TIPOID", "Falta ingresar el tipo de documento.", true},
        {"TERC_NOM", "Falta ingresar el nombre del tercero.", true},
        {"TERC_DIR", "Falta ingresar la dirección del tercero.", false},
        {"TERC_TEL", "Falta ingresar el teléfono del tercero.", false},
        {"TERC_EMAIL", "Falta ingresar el correo electrónico del tercero.", false},
        {"CIUD_COD", "Falta ingresar la ciudad del tercero.", false},
        {"PAIS_ID", "Falta ingresar el país del tercero.", false},
    };
    for (const Exigido& e : exigidos) {
        if (!(e.siempre || obligatorios_) || (!con_nit && e.campo == exigidos[0].campo))
            continue;
        if (campo(e.campo).vacio()) {
            muestre_mensaje(e.mensaje);
            return false;
        }
    }
    if (const QString nombre = cuenta_que_no_existe(); !nombre.isEmpty()) {
        muestre_mensaje("La cuenta " + campo(nombre).texto() +
                        " no existe. Créela o borre ese dato del tercero.");
        return false;
    }
    return true;
}

bool FormaTercero::tiene_papel(const QString& tabla) {
    CBorrar->Open("select * from " + tabla +
                  " where TERC_NIT = " + QuotedStr(campo("TERC_NIT").texto()));
    const bool tiene = !CBorrar->IsEmpty();
    CBorrar->Close();
    return tiene;
}

void FormaTercero::agregue_papeles() {
    if (campo("TERC_CLIE").texto() == "S" && !tiene_papel("clientes"))
        agregue_cliente();
    if (campo("TERC_PROV").texto() == "S" && !tiene_papel("proveedores"))
        agregue_proveedor();
}

void FormaTercero::agregue_cliente() {
    const QString nit = QuotedStr(campo("TERC_NIT").texto());
    CBorrar->Execute("insert into clientes (TERC_NIT, CLIE_COD, CLIE_ESTADO) VALUES (" + nit + "," +
                     nit + ", 'A')");
}

void FormaTercero::agregue_proveedor() {
    CBorrar->Execute("insert into proveedores (TERC_NIT, GRPR_COD, PROV_SIMPLIFICADO) VALUES (" +
                     QuotedStr(campo("TERC_NIT").texto()) + "," +
                     QuotedStr(fdm().valor<Llave::GrupoProveedores>()) + ", 'N')");
}

void FormaTercero::abra_catalogo(const QString& pantalla, const char* campo) {
    releer_catalogos_ = true;
    pantallas().abrir(pantalla, AbreCatalogo{CTerceros->FieldByName(campo).texto()});
}

bool FormaTercero::FormClose() {
    CTerceros->Cancel();
    for (ConjuntoDatos* conjunto : {CTerceros, CCiudades, CPaises, Ctipo_id})
        conjunto->Close();
    return true;
}
