#include "budget/tfcompresupuesto.h"

#include "budget/pch.h"
#include "budget/peticiones_presupuesto.h"
#include "sesion/instalacion.h"
#include "sesion/variables_informe.h"
#include "toolkit/controles/nombre_de_fila.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/grafica.h"
#include "toolkit/informes/motor.h"
#include "toolkit/lista_teclas.h"
#include "toolkit/rejilla/bandas_rejilla.h"

#include <QSplitter>
#include <QTimer>

namespace {

constexpr int kPeriodos = 13;

struct Importe {
    const char *columna, *titulo;
};
/// Las columnas de cada banda, en el orden en que se ven.
constexpr Importe kDelMes[] = {{"PRDEBITO", "Presup. débito"}, {"PRCREDITO", "Presup. crédito"},
                               {"MVDEBITO", "Movto. débito"},  {"MVCREDITO", "Movto. crédito"},
                               {"DIFERENCIAM", "Diferencia"},  {"PORCENTAJEM", "%"}};
constexpr Importe kAcumulado[] = {{"APDEBITO", "Presup. débito"}, {"APCREDITO", "Presup. crédito"},
                                  {"AMDEBITO", "Movto. débito"},  {"AMCREDITO", "Movto. crédito"},
                                  {"DIFERENCIAA", "Diferencia"},  {"PORCENTAJEA", "%"}};

/// Cuentas cuyo saldo natural es crédito: pasivo, patrimonio e ingresos.
bool de_credito(const QString& cuenta) {
    return cuenta >= QLatin1String("2") && cuenta < QLatin1String("5");
}

} // namespace

Tfcompresupuesto::Tfcompresupuesto()
    : Pantalla("Tfcompresupuesto", "Presupuesto vs Movimiento"),
      QComparacion(this, "QComparacion", fdm().Quorvex),
      PComparacion(this, "PComparacion", &QComparacion, poAllowCommandText),
      CComparacion(this, "CComparacion", &PComparacion), quieta_(new QTimer(this)) {
    defina_campos();
    construya();
    quieta_->setSingleShot(true);
    quieta_->setInterval(150);
    connect(quieta_, &QTimer::timeout, this, [this] { proteja([this] { dibuje(); }); });
    CComparacion.AfterScroll = [this] { quieta_->start(); };
}

void Tfcompresupuesto::defina_campos() {
    ConjuntoDatos& c = CComparacion;
    c.Instantanea = true; // lo que se suma y se imprime cuadra
    c.texto("CUENTA", 20);
    c.texto("NOMCUENTA", 60);
    for (const auto& banda : {kDelMes, kAcumulado})
        for (int i = 0; i < 6; ++i)
            c.decimal(banda[i].columna).formato(i == 5 ? "#,##0.00" : "#,###.00");
    c.calculado("AVISO", ClaseCampo::Texto, 8);
    c.OnCalcFields = [this] {
        const QString cuenta = CComparacion.FieldByName("CUENTA").texto();
        const Moneda diferencia = CComparacion.FieldByName("DIFERENCIAA").moneda(), cero = Moneda();
        // Gastar o costear más de lo previsto, y vender menos, es lo que hay que mirar.
        QString aviso;
        if (cuenta >= "5" && cuenta < "8" && diferencia > cero)
            aviso = "Excede";
        else if (cuenta.startsWith('4') && diferencia > cero)
            aviso = "Falta";
        CComparacion.FieldByName("AVISO") = aviso;
    };
}

// ---------------------------------------------------------------- disposición

namespace {
QWidget* limite(const char* texto, QLineEdit* caja) {
    auto* rotulo = new QLabel(QStringLiteral("&%1:").arg(QLatin1String(texto)));
    rotulo->setBuddy(caja);
    caja->setAccessibleName(QLatin1String(texto));
    return Formulario::junto({rotulo, caja});
}
} // namespace

QWidget* Tfcompresupuesto::construya_periodo() {
    const auto lectura = [](const char* nombre, int ancho) {
        auto* e = new QLineEdit;
        e->setObjectName(nombre);
        e->setReadOnly(true);
        e->setFocusPolicy(Qt::NoFocus);
        e->setFixedWidth(ancho_caracteres(e->fontMetrics(), ancho));
        return e;
    };
    EMes = lectura("EMes", 14);
    EAno = lectura("EAno", 7);
    const auto boton = [this](const char* nombre, Qt::ArrowType flecha, const char* ayuda,
                              int sentido, int clave) {
        auto* b = new QToolButton;
        b->setObjectName(nombre);
        b->setArrowType(flecha);
        b->setToolTip(ayuda);
        b->setAccessibleName(ayuda);
        connect(b, &QToolButton::clicked, this,
                [this, sentido] { proteja([this, sentido] { mueva(sentido); }); });
        tecla(clave, Qt::AltModifier, nombre, [this, sentido] { mueva(sentido); });
        return b;
    };
    return Formulario::junto(
        {boton("SpeedButton1", Qt::LeftArrow, "Mes anterior", -1, Qt::Key_Left), EMes, EAno,
         boton("SpeedButton2", Qt::RightArrow, "Mes siguiente", 1, Qt::Key_Right)});
}

void Tfcompresupuesto::construya() {
    const auto caja = [this](const char* nombre, const char* valor) {
        auto* e = new QLineEdit(valor);
        e->setObjectName(nombre);
        e->setMaxLength(20);
        e->setFixedWidth(ancho_caracteres(e->fontMetrics(), 11));
        connect(e, &QLineEdit::returnPressed, this, [this] { proteja([this] { consulte(); }); });
        return e;
    };
    EDesde = caja("EDesde", "1");
    EHasta = caja("EHasta", "8");
    explique_tecla(*EDesde, "Enter en una cuenta", "Consultar otra vez");
    DBGridEh1 = new Rejilla(this, &CComparacion);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    QVector<DefinicionColumna> columnas{{"CUENTA", "Cuenta", 10}, {"NOMCUENTA", "Nombre", 26}};
    for (const auto& banda : {kDelMes, kAcumulado})
        for (int i = 0; i < 6; ++i)
            columnas.append({banda[i].columna, banda[i].titulo, i == 5 ? 9 : 15});
    columnas.append({"AVISO", "Aviso", 8});
    DBGridEh1->columnas(columnas);
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "No hay cuentas entre esas dos.";
    DBGridEh1->nombre_archivo = "PresupMovto";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    // En gris se distinguen por la letra y por la palabra de la última columna.
    DBGridEh1->OnGetCellParams = [this](int fila, QFont& letra, QColor& frente, QColor&) {
        if (aviso(fila).isEmpty())
            return;
        letra.setBold(true);
        frente = color_negativo();
    };
    auto* tabla = new QWidget;
    auto* columna = new QVBoxLayout(tabla);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(0);
    columna->addWidget(
        new BandasRejilla(*DBGridEh1, {{"Periodo actual", 2, 7}, {"Acumulado", 8, 13}}));
    columna->addWidget(DBGridEh1, 1);
    columna->addSpacing(paso(0.5));
    columna->addWidget(NombreDeFila::renglon("Cuenta", CComparacion, {"NOMCUENTA"}, "NomCuenta"));
    Barras = new Grafica(Grafica::Barras);
    Barras->setObjectName("Barras");
    Barras->setAccessibleName("Presupuesto contra movimiento de la cuenta, mes a mes");
    auto* division = new QSplitter(Qt::Vertical);
    division->setChildrenCollapsible(false);
    division->addWidget(tabla);
    division->addWidget(Barras);
    // En un monitor grande las cuentas no usan todo lo que sobra.
    division->setStretchFactor(0, 2);
    division->setStretchFactor(1, 1);
    division->setSizes({escalado(400), escalado(150)});

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBConsultar", "F5:Consultar", "view-refresh", Qt::Key_F5,
                                  [this] { consulte(); }));
    barra->boton("SBImprimir", "F2:Imprimir", "document-print", Qt::Key_F2, [this] { imprima(); });
    barra->boton("SBExportar", "F4:Exportar", "document-save-as", Qt::Key_F4,
                 [this] { exporte(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila("Período", en_flujo({construya_periodo(), limite("Desde la cuenta", EDesde),
                                   limite("Hasta la cuenta", EHasta)},
                                  paso()))
        .ancha(division)
        .botones(barra);
    tamano_del_area(60, 40);
}

// ---------------------------------------------------------------- vida

void Tfcompresupuesto::FormCreate() {
    fdm().ConfigurarProviders(this);
    periodo_ = presupuestable(trae<AbrePresupuesto>() ? peticion<AbrePresupuesto>().periodo
                                                      : fdmcnt().cursor());
    consulte();
    dibuje();
    DBGridEh1->setFocus();
}

bool Tfcompresupuesto::FormClose() {
    quieta_->stop();
    CComparacion.Close();
    return true;
}

// ---------------------------------------------------------------- consulta

QString Tfcompresupuesto::compone_query() const {
    return "select * from presupuesto_mes(" + QString::number(periodo_.numero()) + ',' +
           QuotedStr(QString::number(periodo_.ano)) + ',' + QuotedStr(EDesde->text().trimmed()) +
           ',' + QuotedStr(EHasta->text().trimmed()) + ')';
}

void Tfcompresupuesto::consulte() {
    EMes->setText(Tfdm::nombres_periodo().value(periodo_.indice));
    EAno->setText(QString::number(periodo_.ano));
    const QString antes =
        CComparacion.Active() ? CComparacion.FieldByName("CUENTA").texto() : QString();
    CComparacion.Open(compone_query());
    consultadas_ = EDesde->text() + " - " + EHasta->text();
    if (!antes.isEmpty())
        CComparacion.Locate("CUENTA", {antes});
    DBGridEh1->titulo_impreso =
        QString("%1 · Libro 2649 · %2 de %3").arg(windowTitle(), EMes->text(), EAno->text());
}

void Tfcompresupuesto::mueva(int paso) {
    periodo_.indice = (periodo_.indice + paso + kPeriodos) % kPeriodos;
    consulte();
    dibuje();
}

QString Tfcompresupuesto::aviso(int fila) const {
    return CComparacion.valor_en(fila, CComparacion.FieldByName("AVISO")).texto();
}

void Tfcompresupuesto::dibuje() {
    if (!CComparacion.Active() || CComparacion.IsEmpty()) {
        Barras->muestre({}, {});
        return;
    }
    const QString cuenta = CComparacion.FieldByName("CUENTA").texto();
    const bool credito = de_credito(cuenta);
    QStringList meses;
    QVector<SerieGrafica> series{{"Presupuesto " + cuenta, {}}, {"Movimiento " + cuenta, {}}};
    Sentencia& q = fdm().QBorrar;
    q.Open("select mes, presupuestado, ejecutado from presupuesto_cuenta(" +
           QuotedStr(QString::number(periodo_.ano)) + ',' + QuotedStr(cuenta) + ')');
    for (; !q.Eof(); q.Next()) {
        meses << Tfdm::nombres_periodo().value(int(q.Fields(0).entero()) - 1).left(3);
        for (int i : {0, 1})
            series[i].valores << (credito ? -q.Fields(i + 1).moneda() : q.Fields(i + 1).moneda());
    }
    q.Close();
    Barras->muestre(meses, series);
    Barras->senale(periodo_.indice);
}

// ---------------------------------------------------------------- salidas

void Tfcompresupuesto::imprima() {
    MotorInformes motor(this);
    motor.nombre_archivo = "Presupuesto";
    motor.ProjectFile = ruta_informe("presupuesto.rav");
    motor.abrir_proyecto(motor.ProjectFile);
    fije_variables(motor, "Presupuesto para el periodo de:" + consultadas_);
    motor.fijar_parametro("Libro", "2649");
    motor.fijar_parametro("Periodo", EMes->text() + " de " + EAno->text());
    CComparacion.FetchAll();
    motor.conecte("RPresupuesto", CComparacion);
    motor.seleccionar_reporte("Presupuesto");
    motor.ejecutar();
    motor.cerrar();
}

void Tfcompresupuesto::exporte() {
    DBGridEh1->seleccione_todo();
    DBGridEh1->guarde_seleccion();
}
