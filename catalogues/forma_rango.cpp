#include "catalogues/forma_rango.h"

#include "catalogues/columnas_auxiliar.h"
#include "datos/firebird/reloj.h"
#include "sesion/instalacion.h"
#include "sesion/peticiones.h"
#include "sesion/variables_informe.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/fecha_contable.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/letrero_espera.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QSpinBox>
#include <QToolButton>

namespace {

constexpr int kLargoFecha = 8;
constexpr int kPrimerAno = 1990;

const QStringList& codigos_de_mes() {
    static const QStringList codigos{"ENE", "FEB", "MAR", "ABR", "MAY", "JUN", "JUL",
                                     "AGO", "SEP", "OCT", "NOV", "DIC", "AJU"};
    return codigos;
}

struct AspectoCaja {
    int caracteres;
    QString ayuda;
};

AspectoCaja aspecto_de(ClaseRango clase) {
    const QString con_lista = QStringLiteral("F5 o doble clic muestra la lista");
    switch (clase) {
    case ClaseRango::Cuenta:
        return {20, con_lista};
    case ClaseRango::Tercero:
        return {15, con_lista};
    case ClaseRango::Proyecto:
    case ClaseRango::Centro:
        return {4, con_lista};
    case ClaseRango::Fecha:
        return {kLargoFecha, QStringLiteral("aaaammdd o aaaa/mm/dd")};
    case ClaseRango::Tipo:
        return {0, QStringLiteral("F5 muestra la lista")};
    default:
        return {10, {}};
    }
}

} // namespace

// ---------------------------------------------------------------- construcción

FormaRango::FormaRango(const DatosRango& datos)
    : Pantalla(datos.clase, datos.titulo), CAuxiliar(this, datos.conjunto, &PAuxiliar),
      ETit(new QLineEdit(this)), DBGridEh1(new Rejilla(this)),
      Panel5(new LetreroEspera("Panel5", "Generando informe. espere un momento...", this)),
      datos_(datos), periodo(fdmcnt().cursor()) {
    ETit->setObjectName("ETit");
    ETit->setPlaceholderText(QStringLiteral("(lo compone el programa)"));
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->nombre_archivo = datos_.archivo;
    DBGridEh1->hide();
    // "Cierre", que solo queda guardado, no es un período de los informes.
    periodo.indice = qMin(periodo.indice, 12);
    CAuxiliar.Instantanea = true;
    enter_como_tab();
    tamano(datos_.tamano.width(), datos_.tamano.height());
    centre_en_area(125, 120);
}

QLineEdit* FormaRango::caja(const QString& nombre, int caracteres) {
    auto* c = new QLineEdit(this);
    c->setObjectName(nombre);
    c->setMaxLength(caracteres);
    c->setMinimumWidth(ancho_caracteres(c->fontMetrics(), qMin(caracteres, 8) + 2));
    c->installEventFilter(this);
    return c;
}

void FormaRango::arme_tipos(Formulario& f, const ParRango& par) {
    // Una fila para cada caja: el nombre del tipo se lee entero.
    for (const auto& [lado, nombre] :
         {std::pair{" desde:", par.desde}, std::pair{" hasta:", par.hasta}}) {
        auto* lista = new ListaTecleo(this);
        lista->setObjectName(nombre);
        lista->setEditable(true);
        lista->setInsertPolicy(QComboBox::NoInsert);
        lista->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        lista->setFocusPolicy(Qt::StrongFocus); // la rueda sobre la caja no la cambia sin querer
        lista->setToolTip(aspecto_de(par.clase).ayuda);
        for (QTipos.Open("select * from tipo_comprobante order by tico_cod"); !QTipos.Eof();
             QTipos.Next()) {
            const QString codigo = QTipos.FieldByName("TICO_COD").texto().trimmed();
            lista->addItem(codigo + ' ' + QTipos.FieldByName("TICO_NOM").texto(), codigo);
        }
        QTipos.Close();
        lista->setCurrentIndex(-1);
        lista->installEventFilter(this);
        f.fila(par.rotulo + QLatin1String(lado), lista);
    }
}

QCheckBox* FormaRango::casilla(const QString& nombre, const QString& texto) {
    auto* c = new QCheckBox(texto, this);
    c->setObjectName(nombre);
    return c;
}

void FormaRango::arme_casillas(Formulario& f, std::initializer_list<QCheckBox*> casillas) {
    // Las de varias llamadas seguidas son un solo cuadro: todas a la misma distancia.
    const QLayoutItem* ultimo = layout()->itemAt(layout()->count() - 1);
    QWidget* grupo = ultimo ? ultimo->widget() : nullptr;
    if (!grupo || grupo->objectName() != QLatin1String("casillas")) {
        grupo = new QWidget(this);
        grupo->setObjectName(QStringLiteral("casillas"));
        auto* cuadro = new QGridLayout(grupo);
        cuadro->setContentsMargins(0, 0, 0, 0);
        cuadro->setHorizontalSpacing(paso(0.25));
        cuadro->setVerticalSpacing(paso(0.5));
        cuadro->setColumnStretch(1, 1);
        f.ancha(grupo, 0);
    }
    auto* cuadro = static_cast<QGridLayout*>(grupo->layout());
    const int fila = cuadro->count() ? cuadro->rowCount() : 0;
    const bool sola = casillas.size() == 1; // una larga no corre la segunda columna
    int puestas = 0;
    for (QCheckBox* c : casillas) {
        cuadro->addWidget(c, fila + puestas / 2, puestas % 2, 1, sola ? 2 : 1);
        ++puestas;
    }
}

QCheckBox* FormaRango::casilla_niif(const QString& texto) {
    return ckniif = casilla(QStringLiteral("ckniif"), texto);
}

void FormaRango::arme_pares(Formulario& f) {
    for (const ParRango& par : datos_.pares) {
        const AspectoCaja aspecto = aspecto_de(par.clase);
        if (par.clase == ClaseRango::Tipo) {
            arme_tipos(f, par);
            continue;
        }
        QLineEdit* desde = caja(par.desde, aspecto.caracteres);
        QLineEdit* hasta = caja(par.hasta, aspecto.caracteres);
        for (QLineEdit* c : {desde, hasta}) {
            c->setToolTip(aspecto.ayuda);
            if (par.clase == ClaseRango::Fecha)
                admita_barras(c);
        }
        if (par.uso == UsoPar::DosValores)
            f.fila({{par.rotulo + QStringLiteral(" 1:"), desde}, {"2:", hasta}});
        else
            f.fila({{par.rotulo + QStringLiteral(" desde:"), desde}, {"hasta:", hasta}});
    }
    // Escape no es la única salida del teclado: la lista también se alcanza sin ratón.
    tecla(Qt::Key_F5, "lista", [this] { busque(QApplication::focusWidget()); });
}

void FormaRango::arme_titulo(Formulario& f) {
    f.fila("Título:", ETit);
}

void FormaRango::arme_botones(Formulario& f) {
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBImprimir", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { imprimirClick(); }));
    if (datos_.opcion_exportar)
        barra->boton("botonExportar", "F4:Exportar", "document-save-as", {},
                     [this] { botonExportarClick(); });
    barra->boton("SpeedButton4", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.estire();
    f.botones(barra);
}

QWidget* FormaRango::cree_periodo() {
    caja_periodo = new CajaPeriodo(this);
    caja_periodo->rango_ano(kPrimerAno, 9999);
    const auto boton = [this](const char* nombre, Qt::ArrowType flecha, const QString& ayuda,
                              void (CursorPeriodo::*mueva)()) {
        auto* b = new QToolButton(this);
        b->setObjectName(nombre);
        b->setArrowType(flecha);
        b->setToolTip(ayuda);
        b->setAccessibleName(ayuda);
        connect(b, &QToolButton::clicked, this, [this, mueva] {
            proteja([&] {
                (periodo.*mueva)();
                muestre_periodo();
            });
        });
        return b;
    };
    connect(caja_periodo, &CajaPeriodo::mes_cambiado, this, [this](int m) { periodo.indice = m; });
    connect(caja_periodo, &CajaPeriodo::ano_cambiado, this, [this](int a) { periodo.ano = a; });
    muestre_periodo();
    return Formulario::junto(
        {boton("SpeedButton1", Qt::LeftArrow, "Período anterior", &CursorPeriodo::menos),
         caja_periodo,
         boton("SpeedButton2", Qt::RightArrow, "Período siguiente", &CursorPeriodo::mas)});
}

QWidget* FormaRango::cree_nivel(int inicial, bool fija) {
    constexpr int kNiveles = 10;
    auto* nivel = new QSpinBox(this);
    nivel->setObjectName(QStringLiteral("Nivel"));
    nivel->setAccessibleName(QStringLiteral("Nivel"));
    nivel->setRange(1, kNiveles);
    nivel->setValue(inicial);
    nivel->setEnabled(!fija);
    return nivel;
}

QWidget* FormaRango::cree_ano(const QString& nombre) {
    auto* ano = new QSpinBox(this);
    ano->setObjectName(nombre);
    ano->setAccessibleName(QStringLiteral("Año"));
    ano->setRange(kPrimerAno, 9999);
    ano->setValue(periodo.ano);
    return ano;
}

QWidget* FormaRango::cree_mes(const QString& nombre, int escogido, int primero, int ultimo) {
    auto* lista = new ListaTecleo(this);
    lista->setObjectName(nombre);
    lista->setAccessibleName(QStringLiteral("Mes"));
    lista->addItems(codigos_de_mes().mid(primero - 1, ultimo - primero + 1));
    lista->setCurrentText(codigos_de_mes().value(escogido - 1));
    return lista;
}

QWidget* FormaRango::cree_fecha(const QString& nombre) {
    auto* fecha = new QDateEdit(reloj().hoy(), this);
    fecha->setObjectName(nombre);
    fecha->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    fecha->setCalendarPopup(true);
    return fecha;
}

void FormaRango::ponga_fechas() {
    renglon(QStringLiteral("EFecIni"))->setText(primer_dia_del_periodo());
    renglon(QStringLiteral("EFecFin"))->setText(ultimo_dia_del_periodo());
}

void FormaRango::muestre_periodo() {
    caja_periodo->ano(periodo.ano);
    if (periodo.indice < 12)
        caja_periodo->mes(periodo.indice);
    else
        caja_periodo->texto_mes(Tfdm::nombres_periodo()[periodo.indice]);
}

void FormaRango::FormCreate() {
    fdm().ConfigurarProviders(this);
    if (auto* primera =
            datos_.pares.isEmpty() ? nullptr : findChild<QWidget*>(datos_.pares.first().desde))
        primera->setFocus();
    else if (caja_periodo) // y no en la flecha que va antes
        caja_periodo->setFocus();
}

// ---------------------------------------------------------------- cajas

QString FormaRango::valor(const QString& nombre) const {
    if (const auto* c = findChild<QLineEdit*>(nombre))
        return c->text().trimmed();
    if (const auto* numero = findChild<QSpinBox*>(nombre))
        return QString::number(numero->value());
    if (const auto* lista = findChild<QComboBox*>(nombre)) {
        // "CG Comprobante general", escogido o digitado de cualquier modo, es el tipo CG.
        const QString codigo = lista->currentText().trimmed().section(QLatin1Char(' '), 0, 0);
        const int indice = lista->findData(codigo, Qt::UserRole, Qt::MatchFixedString);
        return indice < 0 ? codigo : lista->itemData(indice).toString();
    }
    throw ErrorDatos(QStringLiteral("%1: no existe la caja %2.").arg(objectName(), nombre));
}

QString FormaRango::entre_comillas(const QString& nombre) const {
    return QuotedStr(valor(nombre));
}

QString FormaRango::argumentos(std::initializer_list<const char*> nombres,
                               const QString& separador) const {
    QStringList valores;
    for (const char* n : nombres)
        valores << entre_comillas(QString::fromLatin1(n));
    return valores.join(separador);
}

QString FormaRango::tramo(const QString& rotulo, const QString& desde, const QString& hasta) const {
    return rotulo + valor(desde) + QStringLiteral("...") + valor(hasta);
}

int FormaRango::mes(const QString& nombre) const {
    return int(codigos_de_mes().indexOf(findChild<QComboBox*>(nombre)->currentText())) + 1;
}

QDate FormaRango::fecha(const QString& nombre) const {
    return findChild<QDateEdit*>(nombre)->date();
}

QString FormaRango::ano_y_periodo() const {
    return QuotedStr(QString::number(periodo.ano)) + ", " + QString::number(periodo.numero());
}

QString FormaRango::nombre_del_periodo() const {
    return Tfdm::nombres_periodo()[periodo.indice] + '/' + QString::number(periodo.ano);
}

bool FormaRango::niif() const {
    return marcada(ckniif);
}

bool FormaRango::marcada(const QCheckBox* casilla) const {
    return casilla && casilla->isChecked();
}

void FormaRango::rehuse(QWidget* caja, const QString& texto) {
    muestre_mensaje(texto);
    caja->setFocus();
    throw EdicionAbortada();
}

const ParRango* FormaRango::par_de(const QString& caja) const {
    for (const ParRango& p : datos_.pares)
        if (p.desde == caja || p.hasta == caja)
            return &p;
    return nullptr;
}

bool FormaRango::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::MouseButtonDblClick) {
        if (auto* c = qobject_cast<QLineEdit*>(objeto))
            ejecute([&] { busque(c); });
    } else if (evento->type() == QEvent::FocusOut) {
        const ParRango* par = par_de(objeto->objectName());
        if (par && par->uso == UsoPar::Rango && par->hasta == objeto->objectName() &&
            static_cast<QFocusEvent*>(evento)->reason() != Qt::PopupFocusReason)
            EHastaExit(*par);
    } else if (evento->type() == QEvent::Wheel) {
        const auto* lista = qobject_cast<QComboBox*>(objeto);
        return lista && !lista->hasFocus();
    }
    return Pantalla::eventFilter(objeto, evento);
}

void FormaRango::EHastaExit(const ParRango& par) {
    if (renglon(par.hasta)->text().isEmpty())
        renglon(par.hasta)->setText(renglon(par.desde)->text());
}

QLineEdit* FormaRango::renglon(const QString& nombre) const {
    if (auto* c = findChild<QLineEdit*>(nombre))
        return c;
    return findChild<QComboBox*>(nombre)->lineEdit();
}

void FormaRango::busque(QWidget* caja) {
    if (auto* desplegable = qobject_cast<QComboBox*>(caja)) {
        desplegable->showPopup();
        return;
    }
    const ParRango* par = caja ? par_de(caja->objectName()) : nullptr;
    if (!par)
        return;
    QLineEdit* destino = renglon(caja->objectName());
    const auto reciba_codigo = [this, destino](const QString& codigo) { reciba(destino, codigo); };
    switch (clase_de(*par)) {
    case ClaseRango::Cuenta:
        escoja_cuenta(*this, niif() ? Libro::Niif : Libro::Decreto2649, {}, reciba_codigo,
                      destino->text());
        break;
    case ClaseRango::Tercero:
        escoja_tercero(*this, {}, reciba_codigo, destino->text());
        break;
    case ClaseRango::Proyecto:
    case ClaseRango::Centro: {
        const bool abajo = par->desde == caja->objectName();
        CentroEscogido actual;
        for (const ParRango& p : datos_.pares)
            if (p.clase == ClaseRango::Proyecto || p.clase == ClaseRango::Centro)
                (p.clase == ClaseRango::Proyecto ? actual.proyecto_seleccion
                                                 : actual.centro_seleccion) =
                    valor(abajo ? p.desde : p.hasta);
        escoja_centro(
            *this, [this, abajo](const CentroEscogido& c) { reciba_centro(abajo, c); }, actual);
        break;
    }
    default:
        break;
    }
}

void FormaRango::reciba_centro(bool abajo, const CentroEscogido& centro) {
    // Proyecto y centro se escogen juntos: el otro par recibe el suyo del mismo lado.
    for (const ParRango& p : datos_.pares) {
        const QString& caja = abajo ? p.desde : p.hasta;
        if (p.clase == ClaseRango::Proyecto)
            reciba(renglon(caja), centro.proyecto_seleccion);
        else if (p.clase == ClaseRango::Centro)
            reciba(renglon(caja), centro.centro_seleccion);
    }
}

void FormaRango::reciba(QLineEdit* caja, const QString& valor) {
    if (!valor.isEmpty())
        caja->setText(valor);
}

void FormaRango::complete_rangos() {
    for (const ParRango& par : datos_.pares) {
        if (par.uso == UsoPar::DosValores)
            continue;
        QLineEdit *desde = renglon(par.desde), *hasta = renglon(par.hasta);
        if (par.omision_hasta.isEmpty() && valor(par.desde).isEmpty()) {
            rehuse(
                findChild<QWidget*>(par.desde),
                QStringLiteral("Falta \"%1 desde\": escójalo de la lista (F5) o digite su código.")
                    .arg(par.rotulo));
        }
        if (valor(par.desde).isEmpty() && valor(par.hasta).isEmpty()) {
            desde->setText(par.omision_desde);
            hasta->setText(par.omision_hasta);
        } else if (valor(par.hasta).isEmpty()) {
            hasta->setText(desde->text());
        }
        if (par.clase != ClaseRango::Fecha)
            continue;
        static const QRegularExpression fecha(QStringLiteral("^[0-9]{8}$"));
        for (QLineEdit* c : {desde, hasta})
            if (const QString dia = c->text().trimmed();
                !dia.isEmpty() && !fecha.match(dia).hasMatch())
                rehuse(c, QStringLiteral("La fecha \"%1\" no es válida: digítela como aaaammdd o "
                                         "aaaa/mm/dd, por ejemplo 20170131.")
                              .arg(c->text()));
    }
}

// ---------------------------------------------------------------- informe

void FormaRango::imprimirClick() {
    complete_rangos();
    const auto cierre_conjunto = qScopeGuard([this] { CAuxiliar.Close(); });
    if (!abra()) {
        muestre_mensaje("No hay datos que cumplan con los rangos indicados.");
        close();
        return;
    }
    // Si algo falla la pantalla sigue abierta: el título de este rango no es el del siguiente.
    auto devuelva = qScopeGuard([this, propio = ETit->text()] { ETit->setText(propio); });
    compone_titulo();
    MotorInformes motor(this);
    motor.nombre_archivo = datos_.archivo;
    motor.ProjectFile = ruta_informe(datos_.proyecto);
    motor.abrir_proyecto(motor.ProjectFile);
    fije_encabezado(motor);
    motor.conecte(datos_.conexion, CAuxiliar);
    motor.al_componer = [this] { CAuxiliar.Close(); };
    motor.seleccionar_reporte(reporte());
    const QString pagina = reporte() + QStringLiteral(".Page1");
    if (niif() && !titulo_niif().isEmpty())
        motor.fijar_texto(pagina, item_titulo(), titulo_niif());
    ajuste_reporte(motor, pagina);
    saque(motor);
    motor.cerrar();
    devuelva.dismiss();
    close();
}

void FormaRango::fije_encabezado(MotorInformes& motor) {
    fije_variables(motor, ETit->text());
    // Un título digitado va como está; el rango lo sigue, para que el papel diga siempre de cuándo.
    const bool propio = ETit->text() != titulo();
    motor.fijar_parametro("Rango",
                          propio ? ETit->text() + " · " + rango_legible() : rango_legible());
    motor.fijar_parametro("Libro", libro_legible());
}

bool FormaRango::abra() {
    antes_de_abrir();
    Panel5->muestre();
    const auto quite = qScopeGuard([this] { Panel5->hide(); });
    CAuxiliar.Close();
    // Para imprimir basta una pasada; la exportación mide la tabla antes de escribirla.
    CAuxiliar.Unidireccional = !exportar && !todas_las_filas();
    lea([this] { CAuxiliar.Open(sql()); });
    if (CAuxiliar.IsEmpty())
        return false;
    despues_de_abrir();
    return true;
}

void FormaRango::saque(MotorInformes& motor) {
    if (exportar) {
        seleccionartodo();
        guardarseleccion();
        return;
    }
    if (!motor.agregue())
        return;
    anexe(motor);
    if (motor.saque_documento())
        despues_de_imprimir();
}

void FormaRango::compone_titulo() {
    if (ETit->text().isEmpty())
        ETit->setText(titulo());
}

void FormaRango::botonExportarClick() {
    if (!fdm().exija_acceso(datos_.opcion_exportar))
        return;
    exportar = true;
    const auto baje = qScopeGuard([this] { exportar = false; });
    imprimirClick();
}

void FormaRango::seleccionartodo() {
    CAuxiliar.FetchAll();
    DBGridEh1->columnas_del_conjunto();
    DBGridEh1->ate(&CAuxiliar);
    DBGridEh1->OnSangria = [this](int fila, const Campo& campo) { return sangria(fila, campo); };
    DBGridEh1->seleccione_todo();
}

void FormaRango::guardarseleccion() {
    DBGridEh1->guarde_seleccion();
}
