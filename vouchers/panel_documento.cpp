#include "vouchers/panel_documento.h"

#include "datos/firebird/reloj.h"
#include "toolkit/controles/editor_sugerido.h"
#include "vouchers/pch.h"

namespace {
constexpr int kPrimerAno = 1990, kUltimoAno = 2099; ///< de un vencimiento
}

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
    connect(continuar, &QPushButton::clicked, this, &PanelFlotante::deje);
    Formulario f(this);
    if (campos.aplica) {
        f.fila({{"Documento", numero(campos.numero, "EDocumento")},
                {"Tipo", Etidocart},
                {"Vence", DateTimePicker1}});
        EAplica = arme_aplica(campos);
        f.fila({{"Aplica a:", EAplica},
                {"Tipo", tipo(campos.tipo_aplica, "Etidoapl")},
                {"", continuar}});
    } else {
        f.fila({{"Documento", numero(campos.numero, "EDocumento")},
                {"Tipo", Etidocart},
                {"Vence", DateTimePicker1},
                {"", continuar}});
    }
    OnEnter = [this] {
        if (EAplica)
            lea_abiertos();
        proponga_vencimiento();
    };
    falta = [this, campos] { return lo_que_falta(campos); };
    recuerde = [this, campos] {
        antes_.clear();
        for (const char* campo :
             {campos.numero, campos.tipo, campos.aplica, campos.tipo_aplica, "DOCO_VENCE"})
            if (campo && !lineas_.IsEmpty())
                antes_.emplace_back(campo, lineas_.FieldByName(campo).valor());
    };
    deshaga = [this] {
        for (const auto& [nombre, valor] : antes_)
            if (Campo& campo = lineas_.FieldByName(nombre); campo.valor() != valor) {
                lineas_.Edit();
                campo = valor;
            }
    };
}

PanelFlotante::Falta PanelDocumento::lo_que_falta(const Campos& campos) const {
    if (lineas_.IsEmpty())
        return {};
    // Lo que ya traía así, de otro día o de una importación, no retiene a quien pasa por ella.
    const auto tocado = [this](const char* campo) {
        for (const auto& [nombre, valor] : antes_)
            if (nombre == QLatin1String(campo))
                return lineas_.FieldByName(nombre).valor() != valor;
        return true;
    };
    if (EAplica && (tocado(campos.tipo_aplica) || tocado(campos.aplica)) &&
        lineas_.FieldByName(campos.tipo_aplica).entero() != 0 &&
        lineas_.FieldByName(campos.aplica).texto().trimmed().isEmpty())
        return {EAplica, QStringLiteral("\"Aplica a\" tiene un tipo y le falta el número del "
                                        "documento. Digítelo o borre el tipo con Supr.")};
    const QString vence = lineas_.FieldByName("DOCO_VENCE").texto();
    const int ano = vence.left(4).toInt();
    if (!vence.isEmpty() && tocado("DOCO_VENCE") && (ano < kPrimerAno || ano > kUltimoAno))
        return {DateTimePicker1,
                QStringLiteral("El documento no puede vencer en el año %1: va de %2 a %3.")
                    .arg(vence.left(4))
                    .arg(kPrimerAno)
                    .arg(kUltimoAno)};
    return {};
}

// ---------------------------------------------------------------- documentos abiertos

EditorSugerido* PanelDocumento::arme_aplica(const Campos& campos) {
    auto* e = new EditorSugerido(&lineas_, campos.aplica);
    e->setObjectName("EAplica");
    e->al_entrar = true;
    e->Sugiere = [this](const QString& tecleado) { return abiertos(tecleado); };
    e->OnEscoger = [this, tipo = campos.tipo_aplica](const Sugerencia& s) { aplique(s, tipo); };
    return e;
}

void PanelDocumento::lea_abiertos() {
    abiertos_ = documentos_abiertos(lineas_.conexion(), Libro::Decreto2649,
                                    lineas_.FieldByName("TERC_NIT").texto());
    // Primero los de la cuenta que se está moviendo.
    std::stable_partition(abiertos_.begin(), abiertos_.end(),
                          [cuenta = lineas_.FieldByName("CUEN_COD").texto()](const auto& d) {
                              return d.cuenta == cuenta;
                          });
}

namespace {
/// Como se ofrece: también su cuenta, que dos documentos pueden llevar el mismo número.
Sugerencia sugerencia_de(const DocumentoAbierto& d) {
    const QDate vence = QDate::fromString(d.vence, QStringLiteral("yyyyMMdd"));
    // Lo que se debe, adelante: es lo último que puede faltar si no cabe todo.
    QStringList dice{(d.saldo.negativa() ? "se debe " : "nos deben ") +
                         d.saldo.absoluta().formateada(),
                     d.nombre_tipo, d.cuenta};
    if (vence.isValid())
        dice << "vence " + vence.toString(QStringLiteral("yyyy/MM/dd"));
    dice.removeAll(QString());
    return {d.numero, dice.join(" · ")};
}
} // namespace

QVector<Sugerencia> PanelDocumento::abiertos(const QString& tecleado) const {
    QVector<Sugerencia> lista;
    for (const DocumentoAbierto& d : abiertos_) {
        if (d.numero.startsWith(tecleado.trimmed(), Qt::CaseInsensitive))
            lista.append(sugerencia_de(d));
    }
    return lista;
}

void PanelDocumento::aplique(const Sugerencia& escogida, const char* tipo_aplica) {
    const auto d = std::find_if(abiertos_.begin(), abiertos_.end(), [&](const auto& x) {
        return x.numero == escogida.codigo && sugerencia_de(x).nombre == escogida.nombre;
    });
    if (d == abiertos_.end())
        return;
    lineas_.Edit();
    if (d->tipo != 0)
        lineas_.FieldByName(tipo_aplica) = d->tipo;
    // El plazo lo puso el documento cuando nació.
    if (const QDate vence = QDate::fromString(d->vence, QStringLiteral("yyyyMMdd"));
        vence.isValid()) {
        DateTimePicker1->fecha(vence);
        DateTimePicker1Change();
    }
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
