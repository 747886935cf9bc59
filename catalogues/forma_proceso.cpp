#include "catalogues/forma_proceso.h"

#include "sesion/ayuda_al_teclear.h"
#include "sesion/campos_catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "sesion/tfdmter.h"
#include "toolkit/aviso_trabajo.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/nombrado.h"
#include "toolkit/sin_grabar.h"

#include <QIntValidator>
#include <QLabel>
#include <QLayout>

QLineEdit* caja_que_muestra(const char* nombre, int caracteres) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    constexpr int kNombre = 20; // de ahí en adelante toma el ancho que sobre
    const int letra = e->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    if (caracteres > kNombre)
        e->setMinimumWidth(letra * kNombre);
    else
        e->setFixedWidth(letra * (caracteres + 2));
    return e;
}

namespace {

ConjuntoDatos& nuevo(QObject* dueno, const char* nombre, Proveedor* proveedor) {
    return *new ConjuntoDatos(dueno, nombre, proveedor);
}

} // namespace

FormaProceso::FormaProceso(const DatosProceso& datos) : FormaProceso(datos, SinArmar{}) {
    arme();
}

FormaProceso::FormaProceso(const DatosProceso& datos, SinArmar)
    : Pantalla(datos.clase, datos.titulo),
      CTipodoc(nuevo(this, "CTipodoc", new Proveedor(this, "PTipodoc", &fdm().TTipocomp))),
      CPrefijos(nuevo(this, "CPrefijos",
                      new Proveedor(this, "PPrefijos", &fdm().QPrefijos, poAllowCommandText))),
      CProceso(nuevo(this, datos.conjunto, nullptr)), datos_(datos),
      QProceso(this, "QProceso", fdm().Quorvex), SId(this, "SId", fdm().Quorvex),
      PProceso(this, "PProceso", &QProceso) {
    if (datos_.tabla) {
        CProceso.proveedor = &PProceso;
        QProceso.SQL = QStringLiteral("select * from %1 where 1 = 0").arg(datos_.tabla);
        SId.procedimiento = datos_.procedimiento_id;
    }
    defina_campos();
    construya();
}

void FormaProceso::defina_campos() {
    campos_tipos_comprobante(CTipodoc);
    campos_prefijos(CPrefijos);
    ConjuntoDatos& c = CProceso;
    if (datos_.id)
        c.entero(datos_.id).banderas(pfInUpdate | pfInWhere | pfInKey);
    c.texto("TICO_COD", 3).requerido().etiqueta("Tipo");
    c.texto("PRCO_PREF", 4).requerido().etiqueta("Prefijo");
    c.texto("ENCO_NUMERO", datos_.largo_numero).etiqueta("Número");
    c.texto(datos_.fecha, 8).etiqueta("Fecha");
    c.texto(datos_.concepto, 60).etiqueta("Concepto");
    if (datos_.referencia)
        c.texto(datos_.referencia, datos_.largo_referencia).etiqueta("Referencia");
    if (datos_.tercero)
        c.texto(datos_.tercero, 20).etiqueta("Tercero").OnChange = [this](Campo& x) {
            TERC_NITChange(x);
        };
    if (datos_.usuario)
        c.texto(datos_.usuario, 10);
    if (datos_.libros)
        c.texto(datos_.libros, 1).etiqueta("Libros");
    if (datos_.tercero)
        pregunta_.atienda(campo(datos_.tercero));
    campo("TICO_COD").OnChange = [this](Campo& x) { TICO_CODChange(x); };
    campo("PRCO_PREF").OnChange = [this](Campo& x) { PRCO_PREFChange(x); };
}

void FormaProceso::construya() {
    LTipo = nombrado(new ListaDato(&CProceso, "TICO_COD"), "LTipo");
    LTipo->lista_de(&CTipodoc, "TICO_COD", "TICO_NOM");
    LPref = nombrado(new ListaDato(&CProceso, "PRCO_PREF"), "LPref");
    LPref->lista_de(&CPrefijos, "PRCO_PREF", "PRCO_PREF");
    LPref->setSizeAdjustPolicy(QComboBox::AdjustToContents); // sin el sitio de un dibujo
    LPref->OnExit = [this] { tome_numero(); };
    ENumero = nombrado(new EditorDato(&CProceso, "ENCO_NUMERO"), "ENumero");
    EConcepto = nombrado(new EditorDato(&CProceso, datos_.concepto), "EConcepto");
    if (datos_.referencia)
        ERef = nombrado(new EditorDato(&CProceso, datos_.referencia), "ERef");
    EAno = caja_que_muestra("EAno", 4);
    EMes = caja_que_muestra("EMes", 10);
    EDia = nombrado(new QLineEdit, "EDia");
    EDia->setValidator(new QIntValidator(1, 31, EDia));
    EDia->setMaxLength(2);
    EDia->setReadOnly(datos_.fecha_al_nacer);
    EDia->setFixedWidth(EDia->fontMetrics().horizontalAdvance("0000"));
    connect(EDia, &QLineEdit::editingFinished, this, [this] { proteja([this] { EDiaExit(); }); });
    if (datos_.tercero) {
        ENit = nombrado(caja_de_tercero(CProceso, datos_.tercero), "ENit");
        ENit->ancho(15);
        ENit->setToolTip("? y parte del nombre abre la lista; doble clic también");
        ENit->OnDblClick = [this] { escoja_el_tercero({}); };
        NomTerc = caja_que_muestra("NomTerc", 34);
    }
}

void FormaProceso::arme() {
    Panel1 = nombrado(new QWidget(this), "Panel1");
    arme_encabezado();
    Formulario f(this);
    f.ancha(Panel1, 0);
    bajo_el_encabezado(f);
    auto* barra = nombrado(new BarraBotones(this), "barra");
    barra->principal(barra->boton("SBGrabar", "F2: &Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    botones_propios(*barra);
    barra->separe();
    barra->boton("SBCancel", "ESC:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    f.botones(barra);
    enter_como_tab();
    QStringList propuestos = datos_.calculados;
    propuestos << "TICO_COD"
               << "PRCO_PREF"
               << "ENCO_NUMERO" << datos_.fecha << datos_.id;
    cuide_lo_digitado(*this, QVector<ConjuntoDatos*>{&CProceso} + CProceso.anidados(), propuestos);
    tamano(760, 340);
}

void FormaProceso::arme_encabezado() {
    Formulario f(Panel1);
    QWidget* fecha = Formulario::junto({EDia, EMes, EAno});
    f.fila({{"&Tipo", LTipo}, {"&Prefijo", LPref}, {"&Número", ENumero}});
    if (ERef)
        f.fila({{"&Día", fecha}, {"&Referencia", ERef}});
    else
        f.fila("&Día", fecha);
    f.fila("&Concepto", EConcepto);
    if (ENit)
        f.fila("Tercer&o", Formulario::junto({ENit, NomTerc}));
    if (datos_.libros) {
        auto* libros = nombrado(new ListaDato(&CProceso, datos_.libros), "LLibros");
        libros->lista_de(datos_.nombres_libros, {"C", "N", "A"});
        f.fila(datos_.rotulo_libros, libros);
    }
    complete(f);
    if (datos_.nota) {
        auto* nota = nombrado(new QLabel(datos_.nota), "Nota");
        nota->setWordWrap(true);
        f.ancha(nota, 0);
    }
    Panel1->layout()->setContentsMargins(0, 0, 0, 0);
}

void FormaProceso::bajo_el_encabezado(Formulario& f) {
    f.estire();
}

// ---------------------------------------------------------------- vida

void FormaProceso::FormCreate() {
    fdm().ConfigurarProviders(this);
    CTipodoc.Open();
    if (datos_.tabla)
        CProceso.Open();
    else
        CProceso.CreateDataSet();
    CProceso.Append();
    if (datos_.id)
        campo(datos_.id) = 0;
    if (datos_.libros)
        campo(datos_.libros) = "C";
    if (datos_.usuario)
        campo(datos_.usuario) = fdm().usuario;
    nueva_fila();
    LTipo->setFocus();
}

void FormaProceso::FormActivate() {
    if (datos_.fecha_al_nacer && !campo(datos_.fecha).vacio())
        return; // el período a la vista es el de la fila
    EAno->setText(fdmcnt().ano_actual);
    EMes->setText(fdmcnt().nombre_periodo());
    if (EDia->text().isEmpty())
        EDia->setText("1");
    if (CProceso.editando())
        ponga_fecha();
}

bool FormaProceso::FormClose() {
    CProceso.Cancel();
    CProceso.Close();
    return true;
}

// ---------------------------------------------------------------- encabezado

void FormaProceso::ponga_fecha() {
    if (datos_.fecha_al_nacer && !campo(datos_.fecha).vacio())
        return;
    campo(datos_.fecha) = fdmcnt().compone_fecha(EDia->text());
}

void FormaProceso::EDiaExit() {
    if (!EDia->text().isEmpty() && CProceso.editando())
        ponga_fecha();
}

void FormaProceso::TICO_CODChange(Campo& tipo) {
    campo("PRCO_PREF").limpie();
    campo("ENCO_NUMERO").limpie();
    if (tipo.vacio())
        return;
    CTipodoc.Locate("TICO_COD", {tipo.valor()});
    CPrefijos.Open("select * from prefijos_conta where tico_cod = " + QuotedStr(tipo.texto()) +
                   " and prco_activo = 'S' order by prco_pref");
    const bool hay = !CPrefijos.IsEmpty();
    LPref->habilite(hay);
    ENumero->habilite(hay);
    if (!hay) {
        const QString texto = QString::fromUtf8(datos_.sin_prefijos);
        if (!texto.contains("%1"))
            throw ErrorDatos(texto);
        muestre_mensaje(texto.arg(datos_.nombra_tipo
                                      ? QuotedStr(CTipodoc.FieldByName("TICO_NOM").texto())
                                      : tipo.texto()));
        return;
    }
    if (CPrefijos.RecordCount() == 1) {
        campo("PRCO_PREF") = CPrefijos.FieldByName("PRCO_PREF").texto();
        LPref->habilite(false);
    }
}

void FormaProceso::PRCO_PREFChange(Campo& prefijo) {
    if (prefijo.vacio() || !CPrefijos.Active() || !CPrefijos.Locate("PRCO_PREF", {prefijo.valor()}))
        return;
    campo("ENCO_NUMERO") = CPrefijos.FieldByName("PREF_NUMERO").texto();
    prefijo_cambiado();
}

void FormaProceso::tome_numero() {
    if (CProceso.editando() && campo("ENCO_NUMERO").vacio())
        PRCO_PREFChange(campo("PRCO_PREF"));
}

void FormaProceso::escoja_el_tercero(const QString& texto) {
    escoja_tercero(
        *this, texto, [this](const QString& nit) { campo(datos_.tercero) = nit; },
        texto.isEmpty() ? campo(datos_.tercero).texto() : QString());
}

void FormaProceso::TERC_NITChange(Campo& nit) {
    NomTerc->clear();
    if (nit.vacio())
        return;
    if (const auto texto = pregunta_.tome(nit)) {
        escoja_el_tercero(*texto);
    } else if (fdmter().valide_tercero(nit.texto())) {
        NomTerc->setText(fdmter().nom_tercero(nit.texto()));
        NomTerc->setCursorPosition(0);
    } else {
        nit.limpie();
    }
}

// ---------------------------------------------------------------- grabar

void FormaProceso::SBGrabarClick() {
    grabe();
}

void FormaProceso::grabe() {
    if (EDia->text().isEmpty())
        EDia->setText("1");
    CProceso.Edit();
    ponga_fecha();
    if (datos_.procedimiento_id && (datos_.id_en_cada_intento || campo(datos_.id).entero() == 0)) {
        SId.Close();
        SId.ExecProc();
        campo(datos_.id) = SId.ParamByName("ID");
    }
    const Valor a_la_vista = campo("ENCO_NUMERO").valor();
    const auto reponga = [&] {
        CProceso.Edit();
        campo("ENCO_NUMERO") = a_la_vista;
    };
    if (numero_pedido().isEmpty())
        campo("ENCO_NUMERO").limpie();
    try {
        if (envie() != 0) {
            reponga();
            return;
        }
    } catch (...) {
        reponga();
        throw;
    }
    emit fdmcnt().balance_por_recalcular();
    anuncie_hecho([this] { return comprobante_hecho(); });
    close();
}

int FormaProceso::envie() {
    postee();
    const AvisoTrabajo aviso(this, datos_.haciendo);
    return CProceso.ApplyUpdates(0);
}

QString FormaProceso::numero_pedido() const {
    const QString numero = campo("ENCO_NUMERO").texto();
    const auto dice = [this](const char* c) { return CPrefijos.FieldByName(c).texto(); };
    const bool propuesto = CPrefijos.Active() && dice("PRCO_PREF") == campo("PRCO_PREF").texto() &&
                           dice("PRCO_AUTO") == "S" && dice("PREF_NUMERO") == numero;
    return propuesto ? QString() : numero;
}

void FormaProceso::postee() {
    try {
        CProceso.Post();
    } catch (...) {
        for (QWidget* w : findChildren<QWidget*>())
            if (ControlDato* c = control_dato(w); c && c->widget() == w && w->isEnabled() &&
                                                  c->campo() && c->campo()->Required &&
                                                  c->campo()->vacio()) {
                w->setFocus();
                break;
            }
        throw;
    }
}

Valor FormaProceso::comprobante_hecho() const {
    return fdm().Quorvex.consulte(QStringLiteral("select enco_consec from %1 where %2 = ?")
                                      .arg(QLatin1String(datos_.tabla), QLatin1String(datos_.id)),
                                  {campo(datos_.id).valor()});
}

void FormaProceso::anuncie_hecho(const std::function<Valor()>& consecutivo) {
    // Ya está grabado: si el servidor se va ahora, se dice sin su número y no como una falla.
    try {
        const QString cual =
            fdm()
                .Quorvex
                .consulte("select tico_cod || ' ' || prco_pref || ' ' || enco_numero from "
                          "comprobante_encabezado where enco_consec = ?",
                          {consecutivo()})
                .texto();
        if (!cual.isEmpty())
            anuncie(fdm().barra(), "Grabado " + cual);
    } catch (const ErrorDatos&) {
        anuncie(fdm().barra(), "Grabado");
    }
}
