#include "vouchers/lineas_cuenta.h"

#include "libro/aritmetica.h"
#include "libro/grabacion.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/anuncio_pegado.h"
#include "toolkit/rejilla/texto_tabulado.h"
#include "vouchers/letrero_diferencia.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QClipboard>

bool vacio_o_cero(const Campo& c) {
    return c.vacio() || c.texto() == "0";
}

LineasCuenta::LineasCuenta(Libro l, ConjuntoDatos& d, ConjuntoDatos& consulta,
                           const NombresLinea& nombres, QObject* dueno)
    : QObject(dueno), libro(l), detalle(d), consulta_(consulta), n_(nombres) {}

void LineasCuenta::defina_sumas(ConjuntoDatos& d, const NombresLinea& nombres) {
    d.agregado("Sumadebito", QStringLiteral("Sum(%1)").arg(QLatin1String(nombres.debito)));
    d.agregado("Sumacredito", QStringLiteral("Sum(%1)").arg(QLatin1String(nombres.credito)));
}

QLineEdit* LineasCuenta::caja_de_nombre(const QString& componente) {
    auto* e = new QLineEdit;
    e->setObjectName(componente);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    e->setMinimumWidth(ancho_caracteres(e->fontMetrics(), 5));
    e->setMaximumWidth(ancho_caracteres(e->fontMetrics(), kLetrasNombre));
    return e;
}

namespace {
/// Un saldo que no dice nada le da su ancho al nombre, y si también calla, a los de su renglón: que
/// el nombre se llene o se vacíe no cambia dónde sigue otro renglón.
void ceda_si_calla(EditorNumero* saldo, QLineEdit* nombre) {
    const auto reparta = [saldo, nombre, minimo = nombre->minimumWidth()] {
        const int lleno = saldo->sizeHint().width();
        const int suyo = saldo->text().isEmpty() ? lleno / 3 : lleno, da = lleno - suyo;
        saldo->setFixedWidth(suyo);
        DisposicionFlujo::reserve(*nombre, nombre->text().isEmpty() ? da : 0);
        nombre->setMinimumWidth(minimo + (nombre->text().isEmpty() ? 0 : da));
    };
    for (QLineEdit* caja : {static_cast<QLineEdit*>(saldo), nombre})
        QObject::connect(caja, &QLineEdit::textChanged, nombre, reparta);
    reparta();
}
} // namespace

void LineasCuenta::disponga_pie(Formulario& f, EditorNumero* saldo_cuenta,
                                EditorNumero* saldo_tercero, EditorNumero* saldo_centro) {
    // Dos renglones para que quepan más líneas, las sumas contra ellas: si la ventana no alcanza,
    // lo que queda por debajo son los nombres. En una angosta los grupos siguen en otro renglón: un
    // nombre cede, más si no dice nada; una cifra no.
    auto* pie = new QWidget;
    auto* flujo = new DisposicionFlujo(pie, paso(0.5));
    const auto ponga = [&](const char* titulo, std::initializer_list<QWidget*> cajas,
                           EditorNumero* saldo = nullptr, QLineEdit* nombre = nullptr) {
        QWidget* grupo = Formulario::junto(cajas);
        auto* fila = static_cast<QHBoxLayout*>(grupo->layout());
        fila->insertWidget(0, rotulo(titulo, *cajas.begin()));
        if (saldo) {
            fila->insertWidget(int(cajas.size()) + 1, saldo);
            ceda_si_calla(saldo, nombre);
        }
        flujo->addWidget(grupo);
    };
    for (EditorNumero* suma : {Sumadeb, SumCred})
        ajuste_suma(*suma);
    ponga("Débitos", {Sumadeb});
    ponga("Créditos", {SumCred});
    ponga("Diferencia", {LabDiferencia});
    flujo->parta();
    ponga("Cuenta", {NomCuenta}, saldo_cuenta, NomCuenta);
    ponga("Tercero", {NomTerc}, saldo_tercero, NomTerc);
    ponga("Proyecto", {NomProy, NomCent}, saldo_centro, NomProy);
    f.ancha(pie, 0);
    for (EditorNumero* saldo : {saldo_cuenta, saldo_tercero, saldo_centro})
        if (saldo)
            saldos_ << saldo;
    NomCuenta->setAccessibleName("Nombre de la cuenta");
    NomTerc->setAccessibleName("Nombre del tercero");
    NomProy->setAccessibleName("Nombre del proyecto");
    NomCent->setAccessibleName("Nombre del centro");
}

// ---------------------------------------------------------------- la cuenta de la línea

void LineasCuenta::consulte_cuenta(const char* columnas, const char* plan) {
    consulta_.Open(QStringLiteral("select %1 from %2 where cuen_cod = ")
                       .arg(QLatin1String(columnas), QLatin1String(plan)) +
                   QuotedStr(cuenta()));
}

void LineasCuenta::ate_preguntas() {
    for (const char* celda : {n_.cuenta, n_.tercero, n_.proyecto, n_.centro})
        pregunta_.atienda(campo(celda));
    // Lo que se cancela ya no se nombra; lo que queda se nombra al reposar, que al cerrar no se
    // consulta nada.
    detalle.BeforeCancel = [this] {
        if (!intacta())
            vacie_pie();
    };
    connect(&fdmcnt(), &Tfdmcnt::balance_por_recalcular, this, [this] {
        if (!cuenta().isEmpty() && NomCuenta->text().isEmpty()) // recién creada desde la celda
            NomCuenta->setText(nombre_en_el_plan(detalle.conexion(), libro, cuenta()));
    });
    LabDiferencia->al_reposar = [this] {
        if (detalle.State() == Estado::Navegacion && !cuenta().isEmpty() &&
            NomCuenta->text().isEmpty())
            muestre_pie();
    };
}

std::optional<QString> LineasCuenta::tome_pregunta(const char* celda) {
    const auto texto = pregunta_.tome(campo(celda));
    if (texto) {
        pregunto_ = true;
        // Quien deja la celda lo mira enseguida; a quien no la deja no le queda para otra vez.
        QMetaObject::invokeMethod(
            this, [this] { pregunto_ = false; }, Qt::QueuedConnection);
        muestre_pie(); // también los nombres son los de antes
    }
    return texto;
}

bool LineasCuenta::busque_cuenta() {
    const auto texto = tome_pregunta(n_.cuenta);
    if (texto)
        escoja_cuenta(*texto);
    return texto || reponiendo();
}

bool LineasCuenta::busque_tercero() {
    const auto texto = tome_pregunta(n_.tercero);
    if (texto)
        escoja_tercero(*texto);
    return texto || reponiendo();
}

bool LineasCuenta::busque_centro() {
    return pregunta_por_centro(n_.centro);
}

bool LineasCuenta::busque_proyecto() {
    return pregunta_por_centro(n_.proyecto);
}

bool LineasCuenta::pregunta_por_centro(const char* celda) {
    if (!tome_pregunta(celda))
        return reponiendo();
    for (const char* otra : {n_.proyecto, n_.centro})
        tome_pregunta(otra);
    escoja_centro();
    return true;
}

void LineasCuenta::abra_o_cierre(int columna) {
    if (columna == kTercero) {
        rejilla->columna(kTercero).ReadOnly = consulta_.FieldByName("CUEN_TERCERO").texto() == "N";
    } else if (columna == kProyecto || columna == kCentro) {
        const bool sin_centro = consulta_.FieldByName("CUEN_CENTRO").texto() == "N";
        rejilla->columna(kProyecto).ReadOnly = sin_centro;
        rejilla->columna(kCentro).ReadOnly = sin_centro;
    }
}

AtributosCuenta LineasCuenta::atributos() const {
    const auto dice = [this](const char* columna) {
        const Campo* c = consulta_.FindField(QLatin1String(columna));
        return c ? c->texto() : QString();
    };
    AtributosCuenta a;
    a.tercero = dice("CUEN_TERCERO");
    a.centro = dice("CUEN_CENTRO");
    a.retencion = dice("CUEN_RETENCION");
    a.clase = dice("CUEN_TIPO");
    return a;
}

LineaComprobante LineasCuenta::linea() const {
    LineaComprobante l;
    l.nit = campo(n_.tercero).texto();
    l.proyecto = campo(n_.proyecto).texto();
    l.centro = campo(n_.centro).texto();
    return l;
}

bool LineasCuenta::intacta() const {
    return detalle.State() == Estado::Edicion && !detalle.cambiada();
}

void LineasCuenta::exija(const Rechazos& faltas) {
    if (!faltas.isEmpty())
        rehuse(faltas.first().texto);
}

void LineasCuenta::rehuse(const QString& texto) {
    if (al_rehusar)
        al_rehusar();
    muestre_mensaje(texto);
    throw EdicionAbortada();
}

// ---------------------------------------------------------------- los dos lados

void LineasCuenta::ate_lados() {
    const auto ate = [this](const char* uno, const char* otro) {
        campo(uno).OnChange = [this, otro](Campo& c) {
            if (en_edicion() && !c.moneda().es_cero())
                campo(otro) = Moneda();
            diferencia();
        };
    };
    ate(n_.debito, n_.credito);
    ate(n_.credito, n_.debito);
    detalle.AfterPost = [this] { actualice_sumas(); };
    detalle.AfterDelete = [this] { actualice_sumas(); };
}

void LineasCuenta::actualice_sumas() {
    if (sin_lineas())
        return;
    Sumadeb->valor(suma_debito());
    SumCred->valor(suma_credito());
    diferencia();
}

void LineasCuenta::diferencia() {
    if (!detalle.Active() || sin_lineas())
        return;
    const Moneda d = suma_debito() - suma_credito();
    if (d > Moneda()) {
        Difdeb->valor(d);
        DifCred->vacie();
    } else {
        DifCred->valor(d.absoluta());
        Difdeb->vacie();
    }
}

void LineasCuenta::anote_guardados() {
    guardados_ = {campo(n_.debito).moneda(), campo(n_.credito).moneda()};
}

Lados LineasCuenta::sumas_en_memoria(const Lados& escritos) const {
    Lados s{suma_debito(), suma_credito()};
    if (detalle.State() == Estado::Edicion) {
        s.debito += escritos.debito - guardados_.debito;
        s.credito += escritos.credito - guardados_.credito;
    }
    return s;
}

std::optional<Lados> LineasCuenta::lados_a_medio_digitar(const Lados& escritos) const {
    const Campo* c = rejilla->digitando() ? rejilla->campo_actual() : nullptr;
    const bool es_debito = c && c->FieldName == QLatin1String(n_.debito);
    if (!es_debito && !(c && c->FieldName == QLatin1String(n_.credito)))
        return {};
    const QString texto = rejilla->texto_digitado();
    const ResultadoOperacion r = calcule_operacion(texto, 2);
    const ImporteLeido leido = lea_importe(texto);
    if (r.es_operacion ? !r.valor : leido.clase != ImporteLeido::Bueno)
        return {};
    const Moneda valor = r.valor.value_or(leido.valor);
    // Un lado con valor quita el otro, como al dejar la celda.
    const Moneda otro = !valor.es_cero() ? Moneda()
                        : es_debito      ? escritos.credito
                                         : escritos.debito;
    return es_debito ? Lados{valor, otro} : Lados{otro, valor};
}

Lados LineasCuenta::sumas_al_digitar() const {
    if (detalle.editando() && cuenta().isEmpty()) // sin ella la línea no se queda
        return sumas_en_memoria(guardados_);
    const Lados escritos{campo(n_.debito).moneda(), campo(n_.credito).moneda()};
    Lados s = sumas_en_memoria(escritos);
    if (detalle.State() == Estado::Insercion) { // aún no es de las líneas
        s.debito += escritos.debito;
        s.credito += escritos.credito;
    }
    if (const auto tecleados = lados_a_medio_digitar(escritos)) {
        s.debito += tecleados->debito - escritos.debito;
        s.credito += tecleados->credito - escritos.credito;
    }
    return s;
}

void LineasCuenta::vacie_pie() {
    for (QLineEdit* e : {NomCuenta, NomTerc, NomProy, NomCent})
        e->clear();
    vacie_saldos();
}

void LineasCuenta::vacie_saldos() {
    for (EditorNumero* saldo : saldos_)
        saldo->vacie();
}

void LineasCuenta::vacie_diferencias() {
    Difdeb->vacie();
    DifCred->vacie();
}

void LineasCuenta::termine_linea() {
    if (!detalle.editando())
        return;
    rejilla->escriba_pendiente();
    ::termine_linea(detalle);
}

void LineasCuenta::vaya_a(qint64 numero, const QString& campo_item, const QString& celda) {
    detalle.Cancel();
    rejilla->limpie_filtros(); // pudo quedar oculta
    detalle.Locate(campo_item, {numero});
    const int columna = rejilla->columna_de(celda);
    rejilla->setFocus();
    if (columna >= 0)
        rejilla->SelectedIndex(columna);
}

void LineasCuenta::siga_los_items(const char* campo_item) {
    const Campo& item = campo(campo_item);
    qint64 mayor = contador.ultimo();
    detalle.recorra_todas(
        [&](const Fila& f) { mayor = qMax(mayor, detalle.valor_de(f, item).entero()); });
    if (detalle.State() == Estado::Insercion)
        mayor = qMax(mayor, item.entero());
    contador.empiece(int(mayor));
}

void LineasCuenta::exija_abiertas() const {
    if (!rejilla->ReadOnly)
        return;
    QApplication::beep();
    advierta_de_pantalla("Las líneas de este libro no se pueden cambiar: su fecha está "
                         "bloqueada o las hizo otro módulo.");
    throw EdicionAbortada();
}

void LineasCuenta::sugiera_db_cr() {
    exija_abiertas();
    rejilla->escriba_pendiente();
    for (const char* lado : {n_.debito, n_.credito})
        if (!vacio_o_cero(campo(lado)))
            return;
    detalle.Edit();
    const Lados s = sumas_en_memoria({}); // lo grabado de esta línea ya no cuenta
    const Lados cuadra = lados_que_cuadran(s.debito, s.credito);
    campo(n_.debito) = cuadra.debito;
    campo(n_.credito) = cuadra.credito;
    if (cuenta().isEmpty())
        advierta_de_fila(detalle, QStringLiteral("Digite la cuenta de la línea: sin ella lo "
                                                 "propuesto no se guarda."));
}

// ---------------------------------------------------------------- menú y recepción

QVector<Rejilla::Orden> LineasCuenta::ordenes_de_comprobante() {
    return {Rejilla::Cortar,          Rejilla::Copiar,          Rejilla::Pegar,  Rejilla::Borrar,
            Rejilla::SeleccionarTodo, Rejilla::VistaPreliminar, Rejilla::Guardar};
}

QMenu* LineasCuenta::arme_menu(const QVector<Rejilla::Orden>& ordenes,
                               const QString& nombre_archivo, const QString& titulo) {
    rejilla->nombre_archivo = nombre_archivo;
    titule(titulo);
    return rejilla->menu_emergente(ordenes);
}

void LineasCuenta::titule(const QString& titulo) {
    rejilla->titulo_impreso =
        titulo + (es_niif(libro) ? " · Libro NIIF" : " · Libro 2649") + "  %[Today]";
}

// ---------------------------------------------------------------- ayudas al digitar

void LineasCuenta::ofrezca_al_teclear() {
    ::ofrezca_al_teclear(*rejilla, libro, n_.cuenta, n_.tercero);
    ofrezca_centros(*rejilla, n_.proyecto, n_.centro);
    rejilla->OnDigitado = [this] {
        if (LabDiferencia)
            LabDiferencia->diga();
    };
    rejilla->OnCeldaCerrada = [this](int columna) {
        advierta_de_fila(detalle, por_que_cerrada(columna));
    };
}

QString LineasCuenta::por_que_cerrada(int columna) const {
    if (cuenta().isEmpty())
        return QStringLiteral("Digite primero la cuenta de la línea.");
    switch (columna) {
    case kTercero:
        return "La cuenta " + cuenta() + " no lleva tercero.";
    case kProyecto:
    case kCentro:
        return "La cuenta " + cuenta() + " no lleva proyecto ni centro.";
    default:
        return rejilla->columna(columna).Titulo() + " no se digita en la cuenta " + cuenta() + '.';
    }
}

void LineasCuenta::deduzca_proyecto() {
    const QString centro = campo(n_.centro).texto();
    if (!en_edicion() || centro.isEmpty() || !campo(n_.proyecto).vacio())
        return;
    QStringList lo_tienen;
    for (auto c = detalle.conexion().abra(
             "select proy_cod from centros where cent_cod = ? order by proy_cod", {centro});
         c->siguiente();)
        lo_tienen << c->valor(0).texto().trimmed();
    if (lo_tienen.size() == 1)
        campo(n_.proyecto) = lo_tienen.first();
    else
        advierta_de_fila(detalle, lo_tienen.isEmpty()
                                      ? "Ningún proyecto tiene el centro " + centro + '.'
                                      : "El centro " + centro + " es de varios proyectos (" +
                                            lo_tienen.join(", ") + "): indique cuál en Proy.");
}

QString LineasCuenta::como_de_comprobante(const QString& columna) const {
    const std::pair<const char*, const char*> iguales[] = {
        {n_.cuenta, "CUEN_COD"}, {n_.tercero, "TERC_NIT"},   {n_.proyecto, "PROY_COD"},
        {n_.centro, "CENT_COD"}, {n_.debito, "CODE_DEBITO"}, {n_.credito, "CODE_CREDITO"}};
    for (const auto& [propia, comun] : iguales)
        if (columna == QLatin1String(propia))
            return QLatin1String(comun);
    return {};
}

std::optional<QVector<QStringList>> LineasCuenta::anuncie_pegado(bool abre_columnas) {
    const QVector<QStringList> filas = tabla_pegada();
    if (!son_varias_celdas(filas))
        return filas;
    AnuncioPegado anuncio =
        reparta_pegado(*rejilla, filas,
                       en_blanco() ? detalle.RecordCount() : qMax(0, detalle.RecNo()), [&](int c) {
                           return rejilla->columna(c).ReadOnly &&
                                  !(abre_columnas && c >= kTercero && c <= kCentro);
                       });
    TextoPegado pegado{filas, {}, memorias_de_pegado(), anuncio.reemplaza};
    for (const auto& columna : anuncio.columnas)
        pegado.campos << como_de_comprobante(columna.campo);
    pegado.exige_valor = exige_valor();
    anuncio.rehusadas = revise_pegado(detalle.conexion(), libro, pegado);
    if (muestre_anuncio(rejilla->window(), anuncio) == RespuestaPegado::Desiste)
        return {};
    return las_que_entran(filas, anuncio);
}

void LineasCuenta::prepare_pegado() {
    const bool empezada = en_blanco();
    termine_linea();
    // Lo que se pega sobre la fila en blanco del final se agrega: no reemplaza la anterior.
    if (empezada && !detalle.IsEmpty())
        detalle.Append();
}

void LineasCuenta::pegue() {
    if (const auto filas = anuncie_pegado(true))
        pegue(*filas);
}

void LineasCuenta::pegue(const QVector<QStringList>& filas) {
    prepare_pegado();
    for (int columna : {kTercero, kProyecto, kCentro})
        rejilla->columna(columna).ReadOnly = false;
    rejilla->pegue(filas);
    detalle.First();
}

void LineasCuenta::prepare_recepcion() {
    exija_abiertas();
    pregunto_ = false;
    if (detalle.editando())
        return;
    if (cuenta().isEmpty())
        detalle.Insert();
    else
        detalle.Edit();
}

void LineasCuenta::reciba(const QString& nombre, const QString& valor) {
    prepare_recepcion();
    detalle.FieldByName(nombre) = valor;
}

void LineasCuenta::reciba(const CentroEscogido& escogido) {
    if (escogido.proyecto_seleccion.isEmpty())
        return;
    // El "?" que abrió la búsqueda no es un centro del proyecto que llega.
    prepare_recepcion();
    campo(n_.centro).limpie();
    reciba(n_.proyecto, escogido.proyecto_seleccion);
    reciba(n_.centro, escogido.centro_seleccion);
}

QString LineasCuenta::actual(const char* nombre) const {
    // Lo que se está digitando también es lo que la celda tiene.
    const Campo* c = detalle.Active() ? detalle.FindField(nombre) : nullptr;
    const QString texto = c ? c->texto() : QString();
    return PreguntaEnCampo::es(texto) ? QString() : texto;
}

Pantalla& LineasCuenta::pantalla() const {
    return *qobject_cast<Pantalla*>(parent());
}

void LineasCuenta::escoja_cuenta(Libro plan, const QString& texto) {
    ::escoja_cuenta(
        pantalla(), plan, texto, [this](const QString& cuenta) { reciba(n_.cuenta, cuenta); },
        texto.isEmpty() ? actual(n_.cuenta) : QString());
}

void LineasCuenta::escoja_tercero(const QString& texto) {
    ::escoja_tercero(
        pantalla(), texto, [this](const QString& nit) { reciba(n_.tercero, nit); },
        texto.isEmpty() ? actual(n_.tercero) : QString());
}

void LineasCuenta::escoja_centro() {
    ::escoja_centro(pantalla(), [this](const CentroEscogido& centro) { reciba(centro); },
                    {actual(n_.proyecto), actual(n_.centro)});
}
