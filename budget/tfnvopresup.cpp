#include "budget/tfnvopresup.h"

#include "budget/pch.h"
#include "budget/peticiones_presupuesto.h"
#include "catalogues/grabe_y_anuncie.h"
#include "libro/catalogos.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/rejilla/paso_atras.h"

namespace {

/// Lo digitado de un mes, 1 a 13.
QString del_mes(int ano, int mes) {
    return " where pres_ano = " + QuotedStr(QString::number(ano)) +
           " and pres_periodo = " + QString::number(mes) +
           " and pres_afecta = 'S' order by cuen_cod";
}

} // namespace

Tfnvopresup::Tfnvopresup()
    : Pantalla("Tfnvopresup", "Nuevo presupuesto"),
      QPresupuesto(this, "QPresupuesto", fdm().Quorvex),
      PPresupuesto(this, "PPresupuesto", &QPresupuesto, poAllowCommandText),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      CPresupuesto(this, "CPresupuesto", &PPresupuesto), CBorrar(this, "CBorrar", &PBorrar) {
    defina_campos();
    construya();
}

void Tfnvopresup::defina_campos() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = CPresupuesto;
    c.texto("PRES_ANO", 4).banderas(kLlave);
    c.entero("PRES_PERIODO").banderas(kLlave);
    c.texto("CUEN_COD", 20).requerido().banderas(kLlave).etiqueta("Cuenta");
    c.decimal("PRES_DEBITO").formato("#,###.00").etiqueta("Débito");
    c.decimal("PRES_CREDITO").formato("#,###.00").etiqueta("Crédito");
    c.texto("PRES_AFECTA", 1);
    c.FieldByName("CUEN_COD").OnChange = [this](Campo& x) { CUEN_CODChange(x); };
    pregunta_.atienda(c.FieldByName("CUEN_COD"));
    c.AfterInsert = [this] {
        CPresupuesto.FieldByName("PRES_ANO") = QString::number(periodo_.ano);
        CPresupuesto.FieldByName("PRES_PERIODO") = periodo_.numero();
        CPresupuesto.FieldByName("PRES_AFECTA") = "S";
        NomCuenta->clear();
    };
    c.AfterScroll = [this] { muestre_nombre(); };
}

void Tfnvopresup::construya() {
    DBGridEh1 = new Rejilla(this, &CPresupuesto);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"CUEN_COD", "Cuenta", 16},
                         {"PRES_DEBITO", "Débito", 20, Suma},
                         {"PRES_CREDITO", "Crédito", 20, Suma}});
    ofrezca_al_teclear(*DBGridEh1, Libro::Decreto2649, "CUEN_COD");
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio = "Insert agrega la primera cuenta; también se pueden pegar filas.";
    DBGridEh1->nombre_archivo = "Presupuesto";
    DBGridEh1->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                               Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { busque_cuenta({}); };
    NomCuenta = new QLineEdit;
    NomCuenta->setObjectName("NomCuenta");
    NomCuenta->setReadOnly(true);
    NomCuenta->setFocusPolicy(Qt::NoFocus);

    LMes = new ListaTecleo;
    LMes->setObjectName("LMes");
    LMes->addItems(Tfdm::nombres_periodo().mid(0, 13));
    EAnoOrigen = new QSpinBox;
    EAnoOrigen->setObjectName("EAnoOrigen");
    EAnoOrigen->setRange(1900, 2999);
    EAnoOrigen->setAccessibleName("Año del que se copia");
    ECrecimiento = new EditorNumero;
    ECrecimiento->setObjectName("ECrecimiento");
    ECrecimiento->setProperty("tasa", true);
    ECrecimiento->setMaximumWidth(ancho_caracteres(fontMetrics(), 10));
    auto* copiar = new QPushButton("Copiar");
    copiar->setObjectName("SpeedButton2");
    copiar->setAutoDefault(false);
    connect(copiar, &QPushButton::clicked, this,
            [this] { proteja([this] { SpeedButton2Click(); }); });

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->separe();
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila({{"Copiar de&l mes", Formulario::junto({LMes, EAnoOrigen})},
               {"C&recimiento %", Formulario::junto({ECrecimiento, copiar})}})
        .ancha(DBGridEh1)
        .fila("Cuenta", NomCuenta)
        .botones(barra);
    tamano(720, 560);
}

void Tfnvopresup::FormCreate() {
    fdm().ConfigurarProviders(this);
    periodo_ = presupuestable(trae<AbrePresupuesto>() ? peticion<AbrePresupuesto>().periodo
                                                      : fdmcnt().cursor());
    setWindowTitle(QString("%1: %2 de %3")
                       .arg(windowTitle(), Tfdm::nombres_periodo().value(periodo_.indice))
                       .arg(periodo_.ano));
    DBGridEh1->titulo_impreso = windowTitle() + " · Libro 2649  %[Today]";
    LMes->setCurrentIndex(qMax(0, periodo_.indice - 1));
    EAnoOrigen->setValue(periodo_.ano);
    CPresupuesto.Open("select * from presupuesto" + del_mes(periodo_.ano, periodo_.numero()));
    muestre_nombre();
    DBGridEh1->setFocus();
}

// ---------------------------------------------------------------- filas

void Tfnvopresup::muestre_nombre() {
    const QString cuenta = CPresupuesto.Active() && !CPresupuesto.IsEmpty()
                               ? CPresupuesto.FieldByName("CUEN_COD").texto()
                               : QString();
    NomCuenta->setText(nombre_en_el_plan(fdm().Quorvex, Libro::Decreto2649, cuenta));
}

void Tfnvopresup::CUEN_CODChange(Campo& cuenta) {
    NomCuenta->clear();
    const QString codigo = cuenta.texto();
    if (codigo.isEmpty())
        return;
    if (pregunta_.reponiendo()) {
        muestre_nombre();
        return;
    }
    if (const auto buscada = pregunta_.tome(cuenta)) {
        busque_cuenta(*buscada);
        return;
    }
    const bool nueva = CPresupuesto.State() == Estado::Insercion;
    for (int i = 0; i < CPresupuesto.RecordCount(); ++i)
        if ((nueva || i != CPresupuesto.RecNo()) &&
            CPresupuesto.marca_en(i) != Fila::Marca::Nueva &&
            CPresupuesto.valor_en(i, cuenta).texto() == codigo) {
            muestre_mensaje("Cuenta previamente registrada.");
            rehuse(cuenta);
            return;
        }
    if (fdmcnt().valide_cuenta(codigo))
        muestre_nombre();
    else
        rehuse(cuenta);
}

void Tfnvopresup::rehuse(Campo& cuenta) {
    cuenta.limpie();
    DBGridEh1->vuelva_a(0); // lo que sigue a ciegas es otra cuenta, no el importe
}

void Tfnvopresup::busque_cuenta(const QString& texto) {
    escoja_cuenta(
        *this, Libro::Decreto2649, texto,
        [this](const QString& cuenta) {
            if (!CPresupuesto.editando())
                CPresupuesto.IsEmpty() ? CPresupuesto.Append() : CPresupuesto.Edit();
            CPresupuesto.FieldByName("CUEN_COD") = cuenta;
        },
        CPresupuesto.FieldByName("CUEN_COD").texto());
}

// ---------------------------------------------------------------- copia

void Tfnvopresup::SpeedButton2Click() {
    if (!pregunte_con_no(
            "Se borrará el presupuesto previamente digitado para este mes. Continuar?"))
        return;
    const Moneda crecimiento = ECrecimiento->valor();
    const int mes = LMes->currentIndex() + 1;
    QMap<QString, std::array<Moneda, 2>> copiadas;
    CBorrar.Open("select cuen_cod, pres_debito, pres_credito from presupuesto" +
                 del_mes(EAnoOrigen->value(), mes));
    const auto crecido = [&](int columna) {
        const Moneda valor = CBorrar.Fields(columna).moneda();
        return valor + Moneda::porcentaje(valor, crecimiento);
    };
    for (; !CBorrar.Eof(); CBorrar.Next())
        copiadas[CBorrar.Fields(0).texto()] = {crecido(1), crecido(2)};
    CBorrar.Close();
    if (copiadas.isEmpty()) {
        muestre_mensaje(QString("%1 de %2 no tiene presupuesto. No se copió nada.")
                            .arg(LMes->currentText())
                            .arg(EAnoOrigen->value()));
        return;
    }
    // Un paso atrás la deshace, como a lo pegado.
    PasoAtras::de(*DBGridEh1).con([&] { reemplace_con(copiadas); }, QStringLiteral("la copia"));
}

void Tfnvopresup::reemplace_con(const QMap<QString, std::array<Moneda, 2>>& copiadas) {
    // En memoria: hasta F2 nada se ha perdido, y todo va en la misma transacción.
    ConjuntoDatos& c = CPresupuesto;
    auto faltan = copiadas;
    const auto ponga = [&c](const std::array<Moneda, 2>& valores) {
        c.FieldByName("PRES_DEBITO") = valores[0];
        c.FieldByName("PRES_CREDITO") = valores[1];
        c.Post();
    };
    const auto cambio = std::exchange(c.FieldByName("CUEN_COD").OnChange, nullptr);
    const auto paso = std::exchange(c.AfterScroll, nullptr);
    c.Cancel();
    for (int i = c.RecordCount() - 1; i >= 0; --i) {
        c.vaya_a(i);
        const auto copiada = faltan.find(c.FieldByName("CUEN_COD").texto());
        if (copiada == faltan.end()) {
            c.Delete();
            continue;
        }
        c.Edit();
        ponga(*copiada);
        faltan.erase(copiada);
    }
    for (auto i = faltan.begin(); i != faltan.end(); ++i) {
        c.Append();
        c.FieldByName("CUEN_COD") = i.key();
        ponga(*i);
    }
    c.First();
    c.FieldByName("CUEN_COD").OnChange = cambio;
    c.AfterScroll = paso;
    muestre_nombre();
    DBGridEh1->setFocus();
}

// ---------------------------------------------------------------- grabar y salir

void Tfnvopresup::SBGrabarClick() {
    if (CPresupuesto.State() == Estado::Insercion && !CPresupuesto.Modified())
        CPresupuesto.Cancel();
    CPresupuesto.CheckBrowseMode();
    if (grabe_y_anuncie(CPresupuesto, "Grabado: " + windowTitle()) == 0)
        close();
}

bool Tfnvopresup::FormClose() {
    if (CPresupuesto.Active() && (CPresupuesto.ChangeCount() > 0 || CPresupuesto.Modified()) &&
        !pregunte_con_no("Desea salir del presupuesto y perder los cambios que no ha grabado?"))
        return false;
    CPresupuesto.CancelUpdates();
    CPresupuesto.Close();
    return true;
}
