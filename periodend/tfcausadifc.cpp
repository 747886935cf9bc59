#include "periodend/tfcausadifc.h"

#include "periodend/pch.h"
#include "toolkit/aviso_trabajo.h"
#include "toolkit/sin_grabar.h"

namespace {

const DatosProceso kDatosCausadifc{
    .clase = "Tfcausadifc",
    .titulo = "Causar diferencia en cambio",
    .fecha = "FECHA",
    .concepto = "CONCEPTO",
    .referencia = "REFERENCIA",
    .sin_prefijos = "Debe registrar antes los prefijos para el comprobante %1",
    .nota = "El saldo en moneda de un documento es la suma de las Bases de sus líneas en la cuenta "
            "de cartera. Los documentos sin Base son en pesos y no entran."};

} // namespace

Tfcausadifc::Tfcausadifc()
    : FormaConCuenta(kDatosCausadifc, SinArmar{}), CDiferencia(this, "CDiferencia") {
    CProceso.decimal("TRM", 4).tasa().requerido().etiqueta("TRM").formato("#,##0.00##");
    CDiferencia.texto("PREFIJO", 4);
    CDiferencia.texto("NUMERO", 10);
    CDiferencia.texto("NIT", 20);
    CDiferencia.texto("PROY", 4);
    CDiferencia.texto("CENTRO", 4);
    CDiferencia.decimal("DIFERENCIA").formato("#,###.00");
    Trm = new EditorDato(&CProceso, "TRM");
    Trm->setObjectName("Trm");
    Trm->ancho(12);
    arme_cuenta("CUENTA", "Cuenta cartera", "Cta", 30);
    DBGridEh1 = new Rejilla(this, &CDiferencia);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Diferencia de cada documento");
    DBGridEh1->columnas({{"PREFIJO", "Prefijo", 7},
                         {"NUMERO", "Documento", 12},
                         {"NIT", "Tercero", 14},
                         {"PROY", "Proy.", 6},
                         {"CENTRO", "Centro", 6},
                         {"DIFERENCIA", "Diferencia", 18, Suma}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio = "Al grabar se ve aquí lo que cambió cada documento.";
    DBGridEh1->nombre_archivo = "DifCambio";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    arme();
    tamano(860, 520);
}

void Tfcausadifc::complete(Formulario& f) {
    f.fila({{"T&RM Día:", Trm}, {"C&uenta cartera:", Formulario::junto({ECta, NomCta})}});
}

void Tfcausadifc::bajo_el_encabezado(Formulario& f) {
    f.ancha(DBGridEh1);
}

void Tfcausadifc::FormCreate() {
    CDiferencia.CreateDataSet();
    FormaConCuenta::FormCreate();
}

QString Tfcausadifc::llamada() const {
    return "select * from causa_diferencia_cambio(" +
           QuotedStr(fdmcnt().compone_fecha_admin(EDia->text())) + ',' +
           QuotedStr(campo("TICO_COD").texto()) + ',' + QuotedStr(campo("PRCO_PREF").texto()) +
           ',' + QuotedStr(numero_pedido()) + ',' + QuotedStr(campo("TRM").moneda().texto()) + ',' +
           QuotedStr(campo("CUENTA").texto()) + ')';
}

QString Tfcausadifc::cause(Transaccion& t) {
    CDiferencia.borre_todas();
    const auto variable = [&](const QString& nombre, const QString& valor) {
        Cursor(t.conexion().prepare("select rdb$set_context('USER_TRANSACTION', " +
                                        QuotedStr(nombre) + ", " + QuotedStr(valor) +
                                        ") from rdb$database",
                                    t),
               t, {})
            .siguiente();
    };
    variable("CONCEPTO_PROCESO", campo("CONCEPTO").texto());
    variable("REFER_PROCESO", campo("REFERENCIA").texto());
    Cursor cursor(t.conexion().prepare(llamada(), t), t, {});
    while (cursor.siguiente()) {
        CDiferencia.Append();
        for (int i = 0; i < CDiferencia.FieldCount(); ++i)
            CDiferencia.Fields(i) = cursor.valor(i);
        CDiferencia.Post();
    }
    // El procedimiento no lo devuelve: es el que escribió esta transacción.
    const QString sql = "select enco_consec from comprobante_encabezado where tico_cod = " +
                        QuotedStr(campo("TICO_COD").texto()) +
                        " and prco_pref = " + QuotedStr(campo("PRCO_PREF").texto()) +
                        " and rdb$record_version = current_transaction";
    Cursor hecho(t.conexion().prepare(sql, t), t, {});
    return hecho.siguiente() ? hecho.valor(0).texto() : QString();
}

void Tfcausadifc::SBGrabarClick() {
    if (EDia->text().isEmpty())
        EDia->setText("1");
    ponga_fecha();
    postee(); // los datos que faltan se dicen aquí
    CProceso.Edit();
    QString id;
    {
        const AvisoTrabajo aviso(this, "Comparando los documentos con la tasa...");
        id = fdm().Quorvex.en_transaccion(ModoTransaccion::Escritura,
                                          [this](Transaccion& t) { return cause(t); });
    }
    anuncie_hecho([&] { return id; });
    recuerde_lo_propuesto(*this); // ya está en su comprobante
    CDiferencia.First();
    DBGridEh1->setFocus();
    emit fdmcnt().balance_por_recalcular();
}
