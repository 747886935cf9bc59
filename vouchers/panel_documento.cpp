#include "vouchers/panel_documento.h"

#include "datos/firebird/reloj.h"
#include "vouchers/pch.h"

PanelDocumento::PanelDocumento(QWidget* pantalla, ConjuntoDatos& lineas, ConjuntoDatos& tipos,
                               const Campos& campos)
    : PanelFlotante("GroupBox1", "Documento cartera ", pantalla), lineas_(lineas) {
    const auto numero = [&](const char* campo, const char* nombre) {
        auto* e = new EditorDato(&lineas, campo);
        e->setObjectName(nombre);
        return e;
    };
    const auto tipo = [&](const char* campo, const char* nombre) {
        auto* l = new ListaDato(&lineas, campo);
        l->setObjectName(nombre);
        l->lista_de(&tipos, "TIDO_COD", "TIDO_NOMLARGO");
        return l;
    };
    Etidocart = tipo(campos.tipo, "Etidocart");
    DateTimePicker1 = new FechaDato;
    DateTimePicker1->setObjectName("DateTimePicker1");
    DateTimePicker1->OnChange = [this] { DateTimePicker1Change(); };
    auto* continuar = new QPushButton("Continuar");
    continuar->setObjectName("SpeedButton2");
    connect(continuar, &QPushButton::clicked, this, &PanelFlotante::oculte);
    Formulario f(this);
    if (campos.aplica) {
        f.fila({{"Documento", numero(campos.numero, "EDocumento")},
                {"Tipo", Etidocart},
                {"Vence", DateTimePicker1}});
        f.fila({{"Aplica a:", numero(campos.aplica, "EAplica")},
                {"Tipo", tipo(campos.tipo_aplica, "Etidoapl")},
                {"", continuar}});
    } else {
        f.fila({{"Documento", numero(campos.numero, "EDocumento")},
                {"Tipo", Etidocart},
                {"Vence", DateTimePicker1},
                {"", continuar}});
    }
    OnEnter = [this] { proponga_vencimiento(); };
}

void PanelDocumento::defina_tipos(ConjuntoDatos& tipos) {
    campos_documentos(tipos);
    tipos.Filter("(tido_cart = 'S') or (tido_cxp = 'S')");
}

void PanelDocumento::proponga_vencimiento() {
    // Entrar propone hoy; el que la línea ya tenía se queda, que pasar por ella no es cambiarlo.
    const QString guardado = lineas_.FieldByName("DOCO_VENCE").texto();
    if (guardado.isEmpty()) {
        DateTimePicker1->fecha(reloj().hoy());
        DateTimePicker1Change();
    } else if (const QDate d = QDate::fromString(guardado, QStringLiteral("yyyyMMdd"));
               d.isValid()) {
        DateTimePicker1->fecha(d);
    }
}

void PanelDocumento::DateTimePicker1Change() {
    // Sin líneas no hay a quién ponerle fecha.
    if (lineas_.IsEmpty())
        return;
    lineas_.Edit();
    lineas_.FieldByName("DOCO_VENCE") = DateTimePicker1->fecha_texto();
}
