#include "ledger/tfsaldoterc.h"

#include "datos/recordset/foto.h"

#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>

namespace {
// Una fila sin saldo inicial ni movimiento no sale aunque su saldo final sea otro.
constexpr const char* kMovidos = " WHERE (INICIAL <> 0) OR (DEBITOS <> 0) OR (CREDITOS <> 0)";
} // namespace

Tfsaldoterc::Tfsaldoterc(const DatosSaldo& miembro) : ConsultaCuenta(miembro), miembro_(miembro) {
    defina_campos();
    arme();
}

// ---------------------------------------------------------------- conjuntos y aspecto

void Tfsaldoterc::defina_campos() {
    switch (miembro_.por) {
    case Clave::Centro: // los rótulos van corridos: el proyecto dice "Centro"
        CSaldos.texto("PROYECTO", 4).etiqueta("Centro");
        CSaldos.texto("CENTRO", 4).etiqueta("Subc.");
        break;
    case Clave::Articulo:
        CSaldos.texto("CODIGO", 15).etiqueta("Artículo");
        CSaldos.texto("NOMBRE", 60).etiqueta("Descripción");
        break;
    default:
        CSaldos.texto("CODIGO", 20).etiqueta("NIT");
        CSaldos.texto("NOMBRE", 60).etiqueta("Nombre");
    }
    CSaldos.decimal("INICIAL").etiqueta("S. Inicial").formato(kImporte);
    CSaldos.decimal("DEBITOS").etiqueta("Débitos").formato(kImporte);
    CSaldos.decimal("CREDITOS").etiqueta(miembro_.titulo_creditos).formato(kImporte);
    CSaldos.decimal("FINAL").etiqueta("S. Final").formato(kImporte);
}

void Tfsaldoterc::arme() {
    static const QMap<QString, int> kAnchos{
        {"CODIGO", 13}, {"NOMBRE", 28}, {"PROYECTO", 8}, {"CENTRO", 8}};
    DBGridEh1 = cree_rejilla("DBGridEh1", &CSaldos, miembro_.archivo);
    QVector<DefinicionColumna> columnas;
    for (int i = 0; i < CSaldos.FieldCount(); ++i) {
        const Campo& campo = CSaldos.Fields(i);
        columnas.append({campo.FieldName, campo.etiqueta(), kAnchos.value(campo.FieldName, 16)});
    }
    DBGridEh1->columnas(columnas);
    DBGridEh1->texto_vacio = "La cuenta no tiene saldos ni movimientos en el período.";
    DBGridEh1->OnDblClick = [this](int) { SpeedButton1Click(); };
    DBGridEh1->OnTitleClick = [this](Campo& campo) { calcule_saldoterc(campo.FieldName); };

    Formulario f(this);
    arme_encabezado(f);
    f.fila("Período", cree_periodo("SpeedButton2", "SpeedButton3"));
    f.ancha(DBGridEh1);

    auto* barra = new BarraBotones(this);
    barra->boton("SpeedButton1", "F8:Auxiliar", "edit-find", Qt::Key_F8,
                 [this] { SpeedButton1Click(); });
    if (*miembro_.saldo_terceros) // F5 está en el letrero y no en el teclado
        barra->boton("AdvGlowButton1", "F5:Saldo terceros", "system-users", {},
                     [this] { AdvGlowButton1Click(); });
    barra->agregue(cree_filtro(DBGridEh1));
    barra->separe();
    barra->boton("SBSalir", "Esc:Cancelar", "window-close", Qt::Key_Escape, [this] { close(); });
    f.botones(barra);

    tecla(Qt::Key_Return, "SpeedButton1");
    if (miembro_.flechas == Flechas::Derechas)
        flechas("SpeedButton2", "SpeedButton3");
}

// ---------------------------------------------------------------- vida

void Tfsaldoterc::FormCreate() {
    ConsultaCuenta::FormCreate();
    if (miembro_.por != Clave::Articulo)
        return;
    // La consulta del nombre trajo también el tipo.
    if (CBorrar.FieldByName("CUEN_TIPO").texto() != "I") {
        muestre_mensaje("La cuenta especificada no es de inventario.");
        pida_cierre_al_crear();
    }
}

void Tfsaldoterc::FormActivate() {
    recalcule();
    DBGridEh1->setFocus();
}

bool Tfsaldoterc::FormClose() {
    CSaldos.Close();
    CBorrar.Close();
    return true;
}

// ---------------------------------------------------------------- consulta

void Tfsaldoterc::calcule_saldoterc(const QString& orden) {
    // Entre iguales, por su llave: el motor no conserva ningún orden.
    Foto(fdm().Quorvex)
        .abra(CSaldos, componga(orden) + kMovidos + " order by " + orden +
                           (por_centro() ? ",proyecto,centro" : ",codigo"));
    muestre_lo_consultado();
}

QVector<Valor> Tfsaldoterc::llave_actual() const {
    if (CSaldos.IsEmpty())
        return {};
    if (por_centro())
        return {CSaldos.FieldByName("PROYECTO").valor(), CSaldos.FieldByName("CENTRO").valor()};
    return {CSaldos.FieldByName("CODIGO").valor()};
}

void Tfsaldoterc::recalcule() {
    const QVector<Valor> llave = llave_actual();
    calcule_saldoterc(por_centro() ? "proyecto" : "codigo");
    if (!llave.isEmpty())
        CSaldos.Locate(por_centro() ? "PROYECTO;CENTRO" : "CODIGO", llave);
}

// ---------------------------------------------------------------- auxiliares

void Tfsaldoterc::SpeedButton1Click() {
    if (CSaldos.IsEmpty())
        return;
    if (miembro_.por == Clave::Tercero) {
        mostrar_auxiliar_tercero(cuenta(), CSaldos.FieldByName("CODIGO").texto());
        return;
    }
    AbreAuxiliar auxiliar = con_centro();
    if (!por_centro())
        auxiliar.articulo_auxiliar = CSaldos.FieldByName("CODIGO").texto();
    pantallas().abrir(miembro_.auxiliar, auxiliar);
}

void Tfsaldoterc::mostrar_auxiliar_tercero(const QString& cuenta, const QString& nit) {
    pantallas().abrir(miembro_.auxiliar,
                      AbreAuxiliar{.cuenta_auxiliar = cuenta, .tercero_auxiliar = nit});
}

void Tfsaldoterc::AdvGlowButton1Click() {
    if (!CSaldos.IsEmpty())
        pantallas().abrir(miembro_.saldo_terceros, con_centro());
}

AbreAuxiliar Tfsaldoterc::con_centro() const {
    AbreAuxiliar auxiliar{.cuenta_auxiliar = cuenta()};
    if (por_centro()) {
        auxiliar.proyecto_auxiliar = CSaldos.FieldByName("PROYECTO").texto();
        auxiliar.centro_auxiliar = CSaldos.FieldByName("CENTRO").texto();
    }
    return auxiliar;
}
