#include "ledger/tfauxiliar.h"

#include "datos/recordset/foto.h"
#include "sesion/copias_comprobante.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editornumero.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>
#include <QMenu>

namespace {
// El motor no conserva el orden entre iguales: dentro del mismo día, o del mismo valor de la
// columna pedida, van como en el libro.
constexpr const char* kDesempate = ",FECHA,TIPOCOMP,PREFIJO,NUMERO,ITEM";
} // namespace

Tfauxiliar::Tfauxiliar(const DatosAuxiliar& miembro) : ConsultaCuenta(miembro), miembro_(miembro) {
    defina_campos();
    arme();
}

// ---------------------------------------------------------------- conjuntos y aspecto

void Tfauxiliar::defina_campos() {
    const bool con_nit = miembro_.columnas & ConNit;
    const bool con_ciudad = miembro_.columnas & ConCiudad;
    const bool con_centros = miembro_.columnas & ConCentros;
    CAuxiliar.entero("ID");
    CAuxiliar.texto("TIPOCOMP", 3).etiqueta("Tipo");
    CAuxiliar.texto("PREFIJO", 4).etiqueta("Prefijo");
    CAuxiliar.texto("NUMERO", 6).etiqueta("Número");
    CAuxiliar.texto("FECHA", 8).etiqueta("Fecha");
    CAuxiliar.texto("CONCEPTO", 60).etiqueta("Concepto");
    if (con_nit)
        CAuxiliar.texto("NIT", 15).etiqueta("NIT");
    if (con_ciudad)
        CAuxiliar.texto("CIUDAD", 5).etiqueta("Mcpio");
    CAuxiliar.texto("REF", 20).etiqueta(miembro_.titulo_referencia);
    CAuxiliar.decimal("BASE").etiqueta("Base").formato(kImporte);
    CAuxiliar.decimal("PORC", 4).etiqueta("Porc.").formato("#.##");
    CAuxiliar.decimal("DEBITO").etiqueta("Débito").formato(kImporte);
    CAuxiliar.decimal("CREDITO").etiqueta("Crédito").formato(kImporte);
    if (con_centros) {
        CAuxiliar.texto("PROYECTO", 4).etiqueta("Pry.");
        CAuxiliar.texto("CENTRO", 4).etiqueta("Centro");
    }
    CAuxiliar.entero("TIPOREF");
    CAuxiliar.entero("IDREF");
    CAuxiliar.entero("ITEM");
}

void Tfauxiliar::arme() {
    static const QMap<QString, int> kAnchos{
        {"TIPOCOMP", 4}, {"PREFIJO", 6},  {"NUMERO", 8},   {"FECHA", 9}, {"CONCEPTO", 24},
        {"NIT", 13},     {"CIUDAD", 7},   {"REF", 10},     {"BASE", 13}, {"PORC", 6},
        {"DEBITO", 16},  {"CREDITO", 16}, {"PROYECTO", 5}, {"CENTRO", 6}};
    DBGridEh1 = cree_rejilla("DBGridEh1", &CAuxiliar, miembro_.archivo);
    QVector<DefinicionColumna> columnas;
    for (int i = 0; i < CAuxiliar.FieldCount(); ++i) {
        const Campo& campo = CAuxiliar.Fields(i);
        if (kAnchos.contains(campo.FieldName))
            columnas.append({campo.FieldName, campo.etiqueta(), kAnchos.value(campo.FieldName), 0,
                             campo.FieldName == "FECHA" ? "aaaa/mm/dd" : ""});
    }
    DBGridEh1->columnas(columnas);
    DBGridEh1->texto_vacio = "La cuenta no tiene movimientos en el período. F5 registra un "
                             "comprobante.";
    DBGridEh1->OnDblClick = [this](int) { SpeedButton1Click(); };
    ofrezca_copias(*this, {DBGridEh1->findChild<QMenu*>("menu_rejilla")}, [this] {
        return CAuxiliar.IsEmpty() ? 0 : CAuxiliar.FieldByName("ID").entero();
    });
    DBGridEh1->OnTitleClick = [this](Campo& campo) { calcule_auxiliar(campo.FieldName); };

    Formulario f(this);
    arme_encabezado(f);
    QWidget* caja = cree_periodo("SpeedButton4", "SpeedButton5");
    // Las cifras de las líneas pueden quedar a la derecha: el saldo del mes se ve al abrir.
    Saldof = EditorNumero::de_saldo(this);
    Saldof->setObjectName("Saldof");
    if (*miembro_.saldo) {
        Saldoi = EditorNumero::de_saldo(this);
        Saldoi->setObjectName("Saldoi");
        f.fila("Período", caja);
        f.fila({{"Saldo inicial", Saldoi}, {"Saldo final", Saldof}});
    } else {
        f.fila({{"Período", caja}, {"Saldo final", Saldof}});
    }
    f.ancha(DBGridEh1);

    auto* barra = new BarraBotones(this);
    barra->boton("SpeedButton1", "F4:Modificar", "accessories-text-editor", Qt::Key_F4,
                 [this] { SpeedButton1Click(); });
    barra->boton("SpeedButton2", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                 [this] { SpeedButton2Click(); });
    barra->boton("SpeedButton3", "F5: Nuevo", "document-new", Qt::Key_F5,
                 [this] { SpeedButton3Click(); });
    barra->agregue(cree_filtro(DBGridEh1));
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.botones(barra);

    tecla(Qt::Key_Return, "SpeedButton1");
    // Al revés que en las demás ventanas: la izquierda adelanta el período y la derecha lo atrasa.
    if (miembro_.flechas == Flechas::Invertidas)
        flechas("SpeedButton5", "SpeedButton4");
}

// ---------------------------------------------------------------- vida

void Tfauxiliar::recalcule() {
    calcule_auxiliar("FECHA");
}

void Tfauxiliar::FormActivate() {
    // Quien vuelve del comprobante sigue en el renglón del que salió.
    QVector<Valor> renglon;
    if (!CAuxiliar.IsEmpty())
        renglon = {CAuxiliar.FieldByName("ID").valor(), CAuxiliar.FieldByName("ITEM").valor()};
    recalcule();
    if (!renglon.isEmpty())
        CAuxiliar.Locate("ID;ITEM", renglon);
    DBGridEh1->setFocus();
}

bool Tfauxiliar::FormClose() {
    CAuxiliar.Close();
    CBorrar.Close();
    return true;
}

// ---------------------------------------------------------------- consulta

void Tfauxiliar::calcule_saldos(Foto& foto) {
    if (Saldoi) {
        const Valor saldo =
            foto.consulte(QStringLiteral("select * from %1(").arg(miembro_.saldo) +
                          QuotedStr(cuenta()) + ',' + QuotedStr(fdmcnt().compone_fecha("1")) + ')');
        if (!saldo.nulo())
            Saldoi->valor(saldo.moneda());
    }
    Saldof->valor(foto.consulte(componga({}, miembro_.final)).moneda());
    const QString inicial = Saldoi ? "Saldo inicial: " + Saldoi->text() + " · " : QString();
    DBGridEh1->setProperty("cifras_impresas", inicial + "Saldo final: " + Saldof->text());
}

void Tfauxiliar::calcule_auxiliar(const QString& orden) {
    // Los saldos y los renglones son del mismo instante.
    Foto foto(fdm().Quorvex);
    calcule_saldos(foto);
    foto.abra(CAuxiliar, componga(orden) + kDesempate, Foto::PorPaquetes);
    muestre_lo_consultado();
}

// ---------------------------------------------------------------- comprobantes

void Tfauxiliar::SpeedButton1Click() {
    if (!CAuxiliar.IsEmpty())
        editar_comprobante(CAuxiliar.FieldByName("ID").texto());
}

void Tfauxiliar::SpeedButton2Click() {
    if (!CAuxiliar.IsEmpty())
        borrar_comprobante(CAuxiliar.FieldByName("ID").texto());
}

void Tfauxiliar::SpeedButton3Click() {
    pantallas().abrir("Tfmovimien");
}

void Tfauxiliar::editar_comprobante(const QString& id) {
    abra_comprobante(id);
}

void Tfauxiliar::borrar_comprobante(const QString& id) {
    PedidoBorrado pedido;
    pedido.id = id.toLongLong();
    pedido.tipo = CAuxiliar.FieldByName("TIPOCOMP").texto();
    pedido.prefijo = CAuxiliar.FieldByName("PREFIJO").texto();
    pedido.numero = CAuxiliar.FieldByName("NUMERO").texto();
    pedido.tipo_origen = CAuxiliar.FieldByName("TIPOREF").entero();
    switch (fdmcnt().borrar_comprobante(objectName(), pedido)) {
    case ResultadoBorrado::Negado:
        close();
        break;
    case ResultadoBorrado::Borrado: {
        CAuxiliar.Refresh();
        Foto foto(fdm().Quorvex);
        calcule_saldos(foto); // el final ya no lo cuenta
        break;
    }
    default:
        break;
    }
}
