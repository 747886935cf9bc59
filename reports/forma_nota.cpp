#include "reports/forma_nota.h"

#include "catalogues/grabe_y_anuncie.h"
#include "sesion/peticiones.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/editorrico.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/sin_grabar.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QScopeGuard>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>

namespace {
constexpr int kAjustes = 12, kCierre = 13; ///< índices de período
}

FormaNota::FormaNota(const QString& clase, const QString& titulo)
    : Pantalla(clase, titulo), QNotasestados(this, "QNotasestados", fdm().Quorvex,
                                             "select * from notas_estados_financieros where "
                                             "noef_id = :ID"),
      PNotasestados(this, "PNotasestados", &QNotasestados),
      CNotasestados(this, "CNotasestados", &PNotasestados), Editor(new EditorRico(this)),
      cursor_(fdmcnt().cursor()) {
    ConjuntoDatos& c = CNotasestados;
    c.entero("NOEF_ID").banderas(pfInUpdate | pfInWhere | pfInKey);
    c.entero("NOEF_ANO");
    c.entero("NOEF_PERIODO");
    c.texto("NOEF_CUENTA", 20).etiqueta("Cuenta");
    c.entero("NOEF_NUMERO").etiqueta("Nota No.");
    c.texto("NOEF_TITULO", 60).etiqueta("Título");
    c.memo("NOEF_NOTA");
    c.FieldByName("NOEF_CUENTA").OnChange = [this](Campo& cuenta) { cuenta_cambiada(cuenta); };
    pregunta_.atienda(c.FieldByName("NOEF_CUENTA"));
    const auto editor = [this](const char* campo, const char* nombre, int ancho) {
        auto* e = new EditorDato(&CNotasestados, QLatin1String(campo), this);
        e->setObjectName(QLatin1String(nombre));
        e->ancho(ancho);
        return e;
    };
    ETitulo = editor("NOEF_TITULO", "ETitulo", 50);
    ENumero = editor("NOEF_NUMERO", "ENumero", 5);
    ECuenta = editor("NOEF_CUENTA", "ECuenta", 16);
    Editor->setObjectName("Editor");
    cuide_lo_digitado(*this, {&CNotasestados});

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->boton("SBCopiar", "F8:Copiar", "edit-copy", Qt::Key_F8, [this] { SBCopiarClick(); });
    barra->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila("&Título:", en_flujo({ETitulo, con_rotulo("Nota &No.", ENumero)}, paso()))
        .fila({{"&Cuenta:", ECuenta}, {"Período:", cajas_de_periodo()}, {"", ckTodos}})
        .fila("Copiar de:", caja_de_copia())
        .ancha(Editor)
        .botones(barra);
    tamano(900, 620);
}

// ---------------------------------------------------------------- período

QComboBox* FormaNota::lista_de_meses(const QString& nombre) {
    auto* lista = new ListaTecleo(this);
    lista->setObjectName(nombre);
    lista->setAccessibleName(QStringLiteral("Mes"));
    lista->addItems(Tfdm::nombres_periodo().mid(0, kAjustes + 1));
    lista->setPlaceholderText(Tfdm::nombres_periodo()[kCierre]);
    return lista;
}

QWidget* FormaNota::cajas_de_periodo() {
    EMes = lista_de_meses("EMes");
    EAno = new QSpinBox(this);
    EAno->setObjectName("EAno");
    EAno->setAccessibleName(QStringLiteral("Año"));
    EAno->setRange(1990, 9999);
    ckTodos = new QCheckBox(QStringLiteral("Todos los períodos"), this);
    ckTodos->setObjectName("ckTodos");
    const auto boton = [this](const char* nombre, Qt::ArrowType flecha, const QString& ayuda,
                              bool adelante) {
        auto* b = new QToolButton(this);
        b->setObjectName(QLatin1String(nombre));
        b->setArrowType(flecha);
        b->setToolTip(ayuda);
        b->setAccessibleName(ayuda);
        connect(b, &QToolButton::clicked, this,
                [this, adelante] { proteja([&] { mueva(adelante); }); });
        return b;
    };
    connect(EMes, &QComboBox::activated, this, [this](int indice) {
        cursor_.indice = indice;
        proteja([this] { cambio_el_periodo(); });
    });
    connect(EAno, &QSpinBox::valueChanged, this, [this](int valor) {
        cursor_.ano = valor;
        proteja([this] { cambio_el_periodo(); });
    });
    connect(ckTodos, &QCheckBox::toggled, this, [this](bool si) {
        EMes->setEnabled(!si);
        proteja([this] { cambio_el_periodo(); });
    });
    return Formulario::junto({boton("SpeedButton1", Qt::LeftArrow, "Período anterior", false), EMes,
                              EAno,
                              boton("SpeedButton2", Qt::RightArrow, "Período siguiente", true)});
}

void FormaNota::mueva(bool adelante) {
    if (adelante)
        cursor_.mas();
    else if (cursor_.indice < 1 && cursor_.ano > fdm().valor<Llave::AnoInicio>())
        cursor_ = {cursor_.ano - 1, kCierre}; // aquí sí se llega al cierre
    else
        cursor_.menos();
    muestre_cajas();
    cambio_el_periodo();
}

void FormaNota::muestre_cajas() {
    const QSignalBlocker mes(EMes), ano(EAno);
    EMes->setCurrentIndex(cursor_.indice <= kAjustes ? cursor_.indice : -1);
    EAno->setValue(cursor_.ano);
}

void FormaNota::muestre_periodo(int ano, int periodo) {
    cursor_ = {ano, qMax(0, periodo - 1)};
    const QSignalBlocker todos(ckTodos);
    ckTodos->setChecked(periodo == 0);
    EMes->setEnabled(periodo != 0);
    muestre_cajas();
}

int FormaNota::numero_de_periodo() const {
    return ckTodos->isChecked() ? 0 : cursor_.numero();
}

int FormaNota::numero_siguiente() {
    const QString sql = "select max(noef_numero) from notas_estados_financieros where noef_ano = " +
                        QString::number(ano()) +
                        " and noef_periodo = " + QString::number(numero_de_periodo());
    return int(fdm().CBorrar.valor_unico(sql).entero()) + 1;
}

void FormaNota::cambio_el_periodo() {
    if (!CNotasestados.Active())
        return;
    CNotasestados.Edit();
    CNotasestados.FieldByName("NOEF_ANO") = ano();
    CNotasestados.FieldByName("NOEF_PERIODO") = numero_de_periodo();
    CNotasestados.FieldByName("NOEF_NUMERO") = numero_siguiente();
}

// ---------------------------------------------------------------- copia

QWidget* FormaNota::caja_de_copia() {
    MesCopia = lista_de_meses("MesCopia");
    MesCopia->insertItem(0, QStringLiteral("Todos"));
    MesCopia->setCurrentIndex(qMin(cursor_.indice, kAjustes) + 1);
    AnoCopia = new QSpinBox(this);
    AnoCopia->setObjectName("AnoCopia");
    AnoCopia->setAccessibleName(QStringLiteral("Año de la nota que se copia"));
    AnoCopia->setRange(1990, 9999);
    AnoCopia->setValue(cursor_.ano);
    NumeroCopia = new QSpinBox(this);
    NumeroCopia->setObjectName("NumeroCopia");
    NumeroCopia->setAccessibleName(QStringLiteral("Número de la nota que se copia"));
    NumeroCopia->setPrefix(QStringLiteral("Nota "));
    NumeroCopia->setRange(1, 9999);
    return Formulario::junto({MesCopia, AnoCopia, NumeroCopia});
}

void FormaNota::SBCopiarClick() {
    Sentencia q(nullptr, "QCopia", fdm().Quorvex);
    q.Open("select noef_nota, noef_titulo from notas_estados_financieros where noef_ano = " +
           QuotedStr(QString::number(AnoCopia->value())) +
           " and noef_periodo = " + QString::number(MesCopia->currentIndex()) +
           " and noef_numero = " + QString::number(NumeroCopia->value()));
    const auto cierre = qScopeGuard([&] { q.Close(); });
    if (q.IsEmpty()) {
        muestre_mensaje("No se encontró la nota indicada.");
        return;
    }
    CNotasestados.Edit();
    CNotasestados.FieldByName("NOEF_TITULO") = q.FieldByName("NOEF_TITULO").texto();
    Editor->html(q.FieldByName("NOEF_NOTA").texto());
    Editor->texto->document()->setModified(true);
}

// ---------------------------------------------------------------- vida

void FormaNota::abra(const QString& id) {
    fdm().ConfigurarProviders(this);
    CNotasestados.FetchParams();
    CNotasestados.Params["ID"] = id;
    CNotasestados.Open();
    Editor->html(CNotasestados.FieldByName("NOEF_NOTA").texto());
    // Lo primero que se escriba en el texto ya es un cambio de la nota; al grabar va entero.
    connect(Editor->texto->document(), &QTextDocument::modificationChanged, this, [this](bool si) {
        if (si)
            proteja([this] { ponga_nota(); });
    });
}

void FormaNota::cuenta_cambiada(Campo& cuenta) {
    if (const auto texto = pregunta_.tome(cuenta))
        escoja_cuenta(
            *this, Libro::Decreto2649, *texto,
            [&cuenta](const QString& escogida) {
                cuenta.conjunto().Edit();
                cuenta = escogida;
            },
            cuenta.texto());
}

void FormaNota::ponga_nota() {
    CNotasestados.Edit();
    CNotasestados.FieldByName("NOEF_NOTA") = Editor->html();
}

void FormaNota::SBGrabarClick() {
    ponga_nota();
    if (grabe_y_anuncie(CNotasestados, "Grabado: " + windowTitle()) == 0)
        close();
}

bool FormaNota::FormClose() {
    CNotasestados.Cancel();
    CNotasestados.Close();
    return true;
}
