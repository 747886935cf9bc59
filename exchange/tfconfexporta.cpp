#include "exchange/tfconfexporta.h"

#include "catalogues/grabe_y_anuncie.h"
#include "toolkit/sin_grabar.h"

#include "exchange/pch.h"
#include "libro/catalogos.h"
#include "toolkit/division_fluida.h"
#include "toolkit/rejilla/anuncio_pegado.h"

Tfconfexporta::Tfconfexporta() : Pantalla("Tfconfexporta", "Configurar exportación") {
    defina_conjuntos();
    auto* division = new DivisionFluida(this);
    const auto lado = [&](const QString& titulo, Rejilla* r) {
        auto* caja = new QGroupBox(titulo, division);
        (new QVBoxLayout(caja))->addWidget(r);
    };
    DBGridEh1 = rejilla("DBGridEh1", CCuentas, "Equivalencia de cuentas ");
    DBGridEh1->columnas({{"CUEN_COD", "Cuenta", 16}, {"CUEX_COD", "Cuenta destino", 16}});
    ReglasPegado::de(*DBGridEh1).exija("CUEN_COD", [](const QString& cuenta) {
        std::optional<Rechazo> inactiva;
        return nombre_de_cuenta(fdm().Quorvex, Libro::Decreto2649, cuenta, inactiva).isEmpty()
                   ? QStringLiteral("La cuenta %1 no existe.").arg(cuenta)
                   : QString();
    });
    DBGridEh2 = rejilla("DBGridEh2", CPrefijos, "Equivalencia de prefijos");
    DBGridEh2->columnas({{"PREX_TIPO", "Tipo", 6},
                         {"PREX_TIPOEXP", "Tipo destino", 12},
                         {"PREX_PREF", "Prefijo", 8},
                         {"PREX_EXPORTA", "Prefijo destino", 14}});
    lado("Equivalencia de cuentas ", DBGridEh1);
    lado("Equivalencia de prefijos", DBGridEh2);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBCuentas", "F9:Cuentas", "edit-find", Qt::Key_F9, [this] { escoja({}, true); });
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, "Cambiar de rejilla",
          [this] { (DBGridEh1->enfocada() ? DBGridEh2 : DBGridEh1)->setFocus(); });
    Formulario(this).ancha(division, 1).botones(barra);
    tamano(820, 460);
}

void Tfconfexporta::defina_conjuntos() {
    cuide_lo_digitado(*this, {&CCuentas, &CPrefijos});
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    Campo& cuenta = CCuentas.texto("CUEN_COD", 20).requerido().banderas(kLlave).etiqueta("Cuenta");
    cuenta.OnChange = [this](Campo& campo) {
        if (const auto texto = pregunta_.tome(campo))
            escoja(*texto, CCuentas.State() == Estado::Insercion);
    };
    pregunta_.atienda(cuenta);
    CCuentas.texto("CUEX_COD", 20).etiqueta("Cuenta destino");
    CPrefijos.texto("PREX_TIPO", 3).requerido().banderas(kLlave).etiqueta("Tipo");
    CPrefijos.texto("PREX_PREF", 4).requerido().banderas(kLlave).etiqueta("Prefijo");
    CPrefijos.texto("PREX_EXPORTA", 10).etiqueta("Prefijo destino");
    CPrefijos.texto("PREX_TIPOEXP", 10).etiqueta("Tipo destino");
    CCuentas.BeforePost = [this] {
        const QString cuenta = CCuentas.FieldByName("CUEN_COD").texto();
        if (cuenta.isEmpty()) {
            CCuentas.Cancel();
        } else if (fdmcnt().nom_cuenta(cuenta).isEmpty()) {
            muestre_mensaje(QStringLiteral("La cuenta %1 no existe.").arg(cuenta));
            throw EdicionAbortada();
        }
    };
    CPrefijos.BeforePost = [this] {
        if (CPrefijos.FieldByName("PREX_TIPO").vacio())
            CPrefijos.Cancel();
    };
}

Rejilla* Tfconfexporta::rejilla(const char* nombre, ConjuntoDatos& conjunto,
                                const QString& titulo) {
    auto* r = new Rejilla(this, &conjunto);
    r->setObjectName(nombre);
    r->setAccessibleName(titulo.trimmed());
    r->enter_como_tab = true;
    r->texto_vacio = "Sin equivalencias: sale el código propio. Insert agrega la primera.";
    return r;
}

void Tfconfexporta::FormCreate() {
    fdm().ConfigurarProviders(this);
    CCuentas.Open();
    CPrefijos.Open();
    DBGridEh1->setFocus();
}

void Tfconfexporta::escoja(const QString& texto, bool nueva) {
    escoja_cuenta(
        *this, Libro::Decreto2649, texto,
        [this, nueva](const QString& cuenta) {
            if (!CCuentas.editando() && nueva)
                CCuentas.Append();
            else if (!CCuentas.editando())
                CCuentas.Edit();
            CCuentas.FieldByName("CUEN_COD") = cuenta;
            DBGridEh1->setFocus();
        },
        texto.isEmpty() ? CCuentas.FieldByName("CUEN_COD").texto() : QString());
}

void Tfconfexporta::SBGrabarClick() {
    const QString aviso = "Grabado: " + windowTitle();
    if (grabe_y_anuncie(CCuentas, aviso) == 0 && grabe_y_anuncie(CPrefijos, aviso) == 0)
        close();
}

bool Tfconfexporta::FormClose() {
    for (ConjuntoDatos* c : {&CCuentas, &CPrefijos}) {
        c->Cancel();
        c->Close();
    }
    return true;
}
