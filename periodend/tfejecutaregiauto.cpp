#include "periodend/tfejecutaregiauto.h"

#include "periodend/pch.h"
#include "periodend/peticiones_cierre.h"
#include "toolkit/aviso_trabajo.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/sin_grabar.h"

namespace {

const DatosProceso kDatosEjecutaRegiauto{.clase = "Tfejecutaregiauto",
                                         .titulo = "Ejecutar registro automático",
                                         .fecha = "FECHA",
                                         .concepto = "CONCEPTO",
                                         .referencia = "REFERENCIA"};

} // namespace

Tfejecutaregiauto::Tfejecutaregiauto()
    : FormaProceso(kDatosEjecutaRegiauto, SinArmar{}), QVista(this, "QVista", fdm().Quorvex),
      PVista(this, "PVista", &QVista, poAllowCommandText), CVista(this, "CVista", &PVista) {
    CProceso.decimal("PORC", 4).tasa().etiqueta("Porcentaje").formato("#,##0.####");
    CVista.entero("ORDEN");
    CVista.texto("CUENTA", 20);
    CVista.texto("NOMBRE", 60);
    CVista.texto("NIT", 20);
    CVista.texto("PROY", 4);
    CVista.texto("CENTRO", 4);
    CVista.decimal("BASE").formato("#,###.00");
    CVista.decimal("PORCENTAJE", 4).formato("#,##0.####");
    CVista.decimal("DEBITO").formato("#,###.00");
    CVista.decimal("CREDITO").formato("#,###.00");
    ERegistro = caja_que_muestra("ERegistro", 50);
    auto* porc = new EditorDato(&CProceso, "PORC");
    porc->ancho(10);
    porc->setToolTip("Vacío o cero: cada línea usa el suyo");
    Porc = porc;
    Porc->setObjectName("Porc");
    DBGridEh1 = new Rejilla(this, &CVista);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Vista previa del comprobante");
    DBGridEh1->columnas({{"CUENTA", "Cuenta", 12},
                         {"NOMBRE", "Concepto", 26},
                         {"NIT", "Tercero", 12},
                         {"PROY", "Proy.", 5},
                         {"CENTRO", "Centro", 6},
                         {"BASE", "Base", 14, Numerica},
                         {"PORCENTAJE", "%", 7, Numerica},
                         {"DEBITO", "Débito", 14, Suma},
                         {"CREDITO", "Crédito", 14, Suma}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio = "El registro no produce líneas en el mes.";
    DBGridEh1->setProperty("sin_consultar", "F5 muestra las líneas que tendría el comprobante.");
    arme();
    tamano(960, 520);
}

void Tfejecutaregiauto::complete(Formulario& f) {
    f.fila("Registro", en_flujo({ERegistro, con_rotulo("Porcenta&je", Porc)}, paso()));
}

void Tfejecutaregiauto::bajo_el_encabezado(Formulario& f) {
    f.ancha(DBGridEh1);
}

void Tfejecutaregiauto::botones_propios(BarraBotones& barra) {
    barra.boton("SBVista", "F5:Vista previa", "document-print-preview", Qt::Key_F5,
                [this] { SBVistaClick(); });
}

void Tfejecutaregiauto::FormCreate() {
    registro_ = peticion<AbreRegistroAutomatico>().registro;
    fdm().QBorrar.Open("select reau_nom, tico_cod, prco_pref from registro_automatico where "
                       "reau_cod = " +
                       QuotedStr(registro_));
    if (fdm().QBorrar.IsEmpty()) {
        fdm().QBorrar.Close();
        muestre_mensaje("No se encontró el registro solicitado.");
        pida_cierre_al_crear();
        return;
    }
    const QString nombre = fdm().QBorrar.Fields(0).texto(), tipo = fdm().QBorrar.Fields(1).texto(),
                  prefijo = fdm().QBorrar.Fields(2).texto();
    fdm().QBorrar.Close();
    FormaProceso::FormCreate();
    ERegistro->setText(registro_ + "  " + nombre);
    // El comprobante sale con el tipo y el prefijo del registro: aquí solo se muestran.
    campo("TICO_COD") = tipo;
    LTipo->habilite(false);
    if (!prefijo.isEmpty()) {
        if (campo("PRCO_PREF").texto() != prefijo) {
            campo("ENCO_NUMERO").limpie();
            campo("PRCO_PREF") = prefijo;
        }
        LPref->habilite(false);
    }
    EConcepto->setFocus();
}

void Tfejecutaregiauto::prefijo_cambiado() {
    ENumero->habilite(CPrefijos.FieldByName("PRCO_AUTO").texto() != "S");
}

void Tfejecutaregiauto::SBVistaClick() {
    const CursorPeriodo p = fdmcnt().cursor();
    const QString porcentaje = QuotedStr(campo("PORC").moneda().texto());
    CVista.Open("select * from lineas_regiauto(" + QuotedStr(registro_) + ',' +
                QuotedStr(QString::number(p.ano)) + ',' + QString::number(p.numero()) + ',' +
                porcentaje + ") order by orden");
}

bool Tfejecutaregiauto::siga_aunque_ya_se_hizo() {
    const CursorPeriodo p = fdmcnt().cursor();
    fdm().QBorrar.Open("select comprobante from regiauto_ejecutado(" + QuotedStr(registro_) + ',' +
                       QuotedStr(QString::number(p.ano)) + ',' + QString::number(p.numero()) + ')');
    const bool hecho = !fdm().QBorrar.IsEmpty();
    const QString comprobante = fdm().QBorrar.Fields(0).texto();
    fdm().QBorrar.Close();
    return !hecho || pregunte_con_no(QString("El registro %1 ya se ejecutó en %2 de %3 "
                                             "(comprobante %4). Desea ejecutarlo otra vez?")
                                         .arg(registro_, fdmcnt().nombre_periodo(),
                                              QString::number(p.ano), comprobante));
}

void Tfejecutaregiauto::SBGrabarClick() {
    if (EDia->text().isEmpty())
        EDia->setText("1");
    if (campo("CONCEPTO").vacio()) {
        muestre_mensaje("Debe indicar el concepto del comprobante a generar.");
        EConcepto->setFocus();
        return;
    }
    if (!siga_aunque_ya_se_hizo())
        return;
    if (campo("PORC").nulo())
        campo("PORC") = Moneda();
    const CursorPeriodo p = fdmcnt().cursor();
    const QString sql =
        "select * from registre_regiauto(" + QuotedStr(registro_) + ',' +
        QuotedStr(QString::number(p.ano)) + ',' + QString::number(p.numero()) + ',' +
        QString::number(EDia->text().toInt()) + ',' + QuotedStr(numero_pedido()) + ',' +
        QuotedStr(campo("PORC").moneda().texto()) + ',' + QuotedStr(campo("CONCEPTO").texto()) +
        ',' + QuotedStr(campo("REFERENCIA").texto()) + ')';
    QString id;
    {
        const AvisoTrabajo aviso(this, "Haciendo el comprobante...");
        // Selecciona y escribe: no puede ir por la transacción de lectura de las listas.
        id = fdm().Quorvex.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
            Cursor cursor(fdm().Quorvex.prepare(sql, t), t, {});
            return cursor.siguiente() ? cursor.valor(0).texto() : QString();
        });
    }
    if (id.isEmpty() || id == "0") {
        muestre_mensaje(QString("Ninguna línea del registro %1 dio valor en %2 de %3. No se hizo "
                                "ningún comprobante.")
                            .arg(registro_, fdmcnt().nombre_periodo(), QString::number(p.ano)));
        return;
    }
    emit fdmcnt().balance_por_recalcular();
    anuncie_hecho([&] { return id; });
    recuerde_lo_propuesto(*this); // ya está en su comprobante
    close();
    abra_comprobante(id);
}
