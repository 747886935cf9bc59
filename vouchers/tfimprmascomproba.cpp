#include "vouchers/tfimprmascomproba.h"

#include "vouchers/pch.h"

#include <QEvent>
#include <QLineEdit>
#include <QScopeGuard>

namespace {
constexpr int kLargoNumero = 8;
}

Tfimprmascomproba::Tfimprmascomproba()
    : ImpresionComprobante("Tfimprmascomproba", "Impresión masiva comprobantes") {
    CProv.texto("TIPO", 3).OnChange = [this](Campo&) { CProvTIPOChange(); };
    CProv.texto("PREF", 4);
    campos_tipos_comprobante(CTipo);
    campos_prefijos(CPrefijos);
    CImprmasiva.entero("ENCO_CONSEC");

    LTipo = new ListaDato(&CProv, "TIPO");
    LTipo->setObjectName("LTipo");
    LTipo->lista_de(&CTipo, "TICO_COD", "TICO_NOM");
    LPref = new ListaDato(&CProv, "PREF");
    LPref->setObjectName("LPref");
    LPref->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    const auto caja = [this](const char* nombre) {
        auto* c = new QLineEdit;
        c->setObjectName(nombre);
        c->setMaxLength(kLargoNumero);
        c->installEventFilter(this);
        return c;
    };
    Desde = caja("Desde");
    Hasta = caja("Hasta");
    Formulario f(this);
    f.fila("Tipo:", LTipo);
    f.fila("Prefijo:", LPref);
    f.fila({{"Desde:", Desde}, {"Hasta:", Hasta}});
    f.estire();
    arme_botones(f);
    tamano(420, 220);
}

void Tfimprmascomproba::FormCreate() {
    ImpresionComprobante::FormCreate();
    CTipo.Open();
    CProv.CreateDataSet();
    CProv.Append();
    LTipo->setFocus();
}

void Tfimprmascomproba::CProvTIPOChange() {
    CPrefijos.Open(sql_prefijos_activos(CProv.FieldByName("TIPO").texto()));
    // El prefijo de otro tipo no sirve a este: se propone su primero.
    CProv.FieldByName("PREF") =
        CPrefijos.IsEmpty() ? Valor() : CPrefijos.FieldByName("PRCO_PREF").valor();
}

bool Tfimprmascomproba::eventFilter(QObject* objeto, QEvent* evento) {
    auto* caja = qobject_cast<QLineEdit*>(objeto);
    if (evento->type() == QEvent::FocusOut && caja && !caja->text().trimmed().isEmpty())
        caja->setText(Tfdm::complete_numero(caja->text().trimmed()));
    return ImpresionComprobante::eventFilter(objeto, evento);
}

void Tfimprmascomproba::SpeedButton1Click() {
    const QString tipo = CProv.FieldByName("TIPO").texto();
    const QString prefijo = CProv.FieldByName("PREF").texto();
    if (tipo.isEmpty() || prefijo.isEmpty()) {
        muestre_mensaje("Escoja el tipo y el prefijo de los comprobantes.");
        (tipo.isEmpty() ? LTipo : LPref)->setFocus();
        return;
    }
    if (Hasta->text().isEmpty())
        Hasta->setText(Desde->text());
    for (QLineEdit* caja : {Desde, Hasta})
        if (!caja->text().trimmed().isEmpty())
            caja->setText(Tfdm::complete_numero(caja->text().trimmed()));
    MotorInformes motor(this);
    motor.nombre_archivo = "Comprobantes";
    motor.vista_previa = fdm().valor<Llave::PrevisualizarImpresion>();
    const QString numeros =
        "select enco_consec from comprobante_encabezado where tico_cod = " + QuotedStr(tipo) +
        " and prco_pref = " + QuotedStr(prefijo) +
        " and enco_numero >= " + QuotedStr(Desde->text()) +
        " and enco_numero <= " + QuotedStr(Hasta->text()) + " order by enco_numero";
    CImprmasiva.Open(numeros);
    const bool hay = !CImprmasiva.IsEmpty();
    CImprmasiva.Close();
    if (!hay) {
        muestre_mensaje("No hay comprobantes de ese tipo y prefijo entre los números pedidos.");
        Desde->setFocus();
        return;
    }
    if (motor.comience_lote())
        imprima_todos(motor, numeros);
    close();
}

void Tfimprmascomproba::imprima_todos(MotorInformes& motor, const QString& numeros) {
    // Todo el trabajo sale de la misma foto del libro, aunque otros sigan grabando; se suelta antes
    // de mostrarlo.
    CImprmasiva.Instantanea = true;
    CImprmasiva.foto = CComproba.foto =
        std::make_shared<Transaccion>(fdm().Quorvex, Transaccion::Modo::Instantanea);
    const auto suelte = [this] {
        CImprmasiva.Close();
        CImprmasiva.Instantanea = false;
        CImprmasiva.foto = CComproba.foto = nullptr;
    };
    const auto al_salir = qScopeGuard(suelte);
    motor.al_componer = suelte;
    bool sigue = true;
    CImprmasiva.Open(numeros);
    for (CImprmasiva.First(); sigue && !CImprmasiva.Eof(); CImprmasiva.Next())
        sigue = imprima(motor, CImprmasiva.FieldByName("ENCO_CONSEC").texto(), false, true);
    motor.termine_lote();
}
