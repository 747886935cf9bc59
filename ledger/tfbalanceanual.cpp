#include "ledger/tfbalanceanual.h"

#include "catalogues/letracuenta.h"
#include "datos/recordset/foto.h"
#include "ledger/graficocuenta.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/controles/nombre_de_fila.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>

namespace {

struct Mes {
    const char *columna, *titulo, *corto;
};
constexpr Mes kMeses[] = {
    {"MVENE", "Enero", "Ene"},   {"MVFEB", "Febrero", "Feb"},   {"MVMAR", "Marzo", "Mar"},
    {"MVABR", "Abril", "Abr"},   {"MVMAY", "Mayo", "May"},      {"MVJUN", "Junio", "Jun"},
    {"MVJUL", "Julio", "Jul"},   {"MVAGO", "Agosto", "Ago"},    {"MVSEP", "Septiembre", "Sep"},
    {"MVOCT", "Octubre", "Oct"}, {"MVNOV", "Noviembre", "Nov"}, {"MVDIC", "Diciembre", "Dic"},
    {"MVCIE", "Cierre", "Cie"}};

enum LecturaGrafico { Movimientos, SaldoInicial, SaldoFinal };

/// Lo que es natural al crédito se dibuja en positivo.
bool se_invierte(const QString& codigo) {
    return codigo.startsWith(QLatin1Char('2')) || codigo.startsWith(QLatin1Char('3')) ||
           codigo.startsWith(QLatin1Char('4'));
}

} // namespace

Tfbalanceanual::Tfbalanceanual() : BalancePorNiveles("Tfbalanceanual", "balance anual") {
    defina_conjuntos();
    arme_rejilla();
    // El año es su único período.
    periodo->EMes->hide();
    ckTerc = new QCheckBox("Con Terceros", this);
    ckTerc->setObjectName("ckTerc");
    cksaldos = new QCheckBox("Saldos", this);
    cksaldos->setObjectName("cksaldos");
    cksaldos->setToolTip("Cada mes muestra el saldo con que termina, en vez de su movimiento");
    for (QCheckBox* casilla : {ckTerc, cksaldos})
        connect(casilla, &QCheckBox::toggled, this, [this] { ejecute([this] { recalcule(); }); });
    // El código de un tercero lleva su NIT y es mucho más largo que el de la cuenta.
    connect(ckTerc, &QCheckBox::toggled, DBGridEh1, &Rejilla::ajuste_anchos);

    Formulario f(this);
    f.fila({{"Año", periodo}, {"", Formulario::junto({ckTerc, cksaldos, cree_filtro(DBGridEh1)})}});
    f.ancha(DBGridEh1);
    f.ancha(NombreDeFila::renglon("Cuenta", CBalance, {"NOMBRE", "NOMTERC"}, "NomCuenta"), 0);
    f.ancha(cree_grafico(), 1);
    arme_botones();
    f.botones(findChild<BarraBotones*>());
}

// ---------------------------------------------------------------- conjuntos y aspecto

void Tfbalanceanual::defina_conjuntos() {
    CBalance.texto("CODIGO", 41).etiqueta("Código");
    CBalance.texto("NOMBRE", 60).etiqueta("Nombre");
    CBalance.texto("NIT", 20).etiqueta("NIT");
    CBalance.texto("NOMTERC", 60).etiqueta("Tercero");
    CBalance.decimal("INICIAL").etiqueta("Inicial").formato(kImporte);
    for (const Mes& m : kMeses)
        CBalance.decimal(m.columna).etiqueta(m.titulo).formato(kImporte);
    CBalance.decimal("FINAL").etiqueta("Final").formato(kImporte);
    CBalance.entero("NIVEL");
    CGrafcta.texto("MES", 3);
    CGrafcta.entero("VALOR");
}

void Tfbalanceanual::arme_rejilla() {
    DBGridEh1 = cree_rejilla("DBGridEh1", &CBalance, "BalanAnual");
    QVector<DefinicionColumna> columnas{{"CODIGO", "Código", 12, Codigo},
                                        {"NOMBRE", "Nombre", 32},
                                        {"NIT", "NIT", 13, Oculta},
                                        {"NOMTERC", "Tercero", 26, Oculta},
                                        {"INICIAL", "Inicial", 17}};
    for (const Mes& m : kMeses)
        columnas.append({m.columna, m.titulo, 17});
    columnas.append({"FINAL", "Final", 17});
    DBGridEh1->columnas(columnas);
    DBGridEh1->texto_vacio = "El año no tiene saldos ni movimientos.";
    DBGridEh1->OnGetCellParams = [this](int fila, QFont& letra, QColor&, QColor&) {
        letra_por_nivel(letra, CBalance.valor_en(fila, CBalance.FieldByName("CODIGO")).texto());
    };
    DBGridEh1->OnDblClick = [this](int) { abra("Tfauxiliar"); };
}

QWidget* Tfbalanceanual::cree_grafico() {
    PanelGrafico = new QGroupBox("Gráfico");
    PanelGrafico->setObjectName("PanelGrafico");
    Tipo = new ListaTecleo;
    Tipo->setObjectName("Tipo");
    Tipo->addItems({"Movimientos", "Saldo Inicial", "Saldo Final"});
    connect(Tipo, &QComboBox::activated, this,
            [this](int indice) { ejecute([this, indice] { TipoChange(indice); }); });
    auto* cierre = new QPushButton("Cerrar");
    cierre->setObjectName("SBCerrar");
    cierre->setAutoDefault(false);
    connect(cierre, &QPushButton::clicked, this, [this] { ejecute([this] { cierre_grafico(); }); });
    grafico = new GraficoCuenta;
    grafico->setMinimumHeight(paso(28));
    Formulario(PanelGrafico).fila("Ver:", Formulario::junto({Tipo, cierre})).ancha(grafico, 1);
    PanelGrafico->hide();
    return PanelGrafico;
}

void Tfbalanceanual::arme_botones() {
    auto* barra = new BarraBotones(this);
    barra->boton("BitBtn5", "F2:Actualizar", "view-refresh", Qt::Key_F2, [this] { recalcule(); });
    barra->boton("BitBtn6", "F8:Auxiliar", "edit-find", Qt::Key_F8, [this] { abra("Tfauxiliar"); });
    barra->boton("BitBtn7", "F5:Terceros", "system-users", Qt::Key_F5,
                 [this] { abra("Tfsaldoterc"); });
    barra->boton("BitBtn8", "F7:Centros", "folder", Qt::Key_F7, [this] { abra("Tfsaldocentro"); });
    barra->boton("BitBtn4", "F12:Gráfico", "x-office-presentation", Qt::Key_F12,
                 [this] { BitBtn4Click(); });
    botones_de_detalle(*barra);
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape,
                 [this] { SBSalirClick(); });
}

// ---------------------------------------------------------------- vida

void Tfbalanceanual::FormCreate() {
    BalancePorNiveles::FormCreate();
    CGrafcta.CreateDataSet();
}

void Tfbalanceanual::FormActivate() {
    if (por_recalcular_)
        recalcule();
    DBGridEh1->setFocus();
}

bool Tfbalanceanual::FormClose() {
    CBalance.Close();
    CGrafcta.Close();
    CBorrar.Close();
    return true;
}

// ---------------------------------------------------------------- lectura

void Tfbalanceanual::actualice_balance() {
    const QString terceros = ckTerc->isChecked() ? QuotedStr("S") : QuotedStr("N");
    const QString saldos = cksaldos->isChecked() ? QuotedStr("S") : QuotedStr("N");
    muestre_periodo();
    for (const char* columna : {"NIT", "NOMTERC"})
        DBGridEh1->columna(DBGridEh1->columna_de(columna)).Visible = ckTerc->isChecked();
    DBGridEh1->titulo_impreso = titulo_de_hoja(
        Libro::Decreto2649, "Año " + fdmcnt().ano_actual,
        {cksaldos->isChecked() ? QStringLiteral("Saldos") : QStringLiteral("Movimientos")});
    Foto foto(fdm().Quorvex);
    foto.abra(CBalance, "select * from balance_anual(" + QuotedStr(fdmcnt().ano_actual) +
                            ", '1','99', " + terceros + ", " + saldos +
                            ") where Nivel <= " + QString::number(nivel()) + " order by CODIGO");
    por_recalcular_ = false;
}

void Tfbalanceanual::recalcule() {
    const QString codigo = CBalance.Active() ? CBalance.FieldByName("CODIGO").texto() : QString();
    actualice_balance();
    if (!codigo.isEmpty())
        CBalance.Locate("CODIGO", {codigo});
    if (PanelGrafico->isVisible())
        TipoChange(Tipo->currentIndex());
}

void Tfbalanceanual::EAnoChange(int ano) {
    fdmcnt().ano_actual = QString::number(ano);
    fdmcnt().guarde_periodo();
    emit fdmcnt().balance_por_recalcular();
    recalcule();
}

// ---------------------------------------------------------------- consultas de la cuenta

QString Tfbalanceanual::cuenta() const {
    // La fila de un tercero lleva detrás de la cuenta un punto y su NIT.
    return CBalance.Active() ? CBalance.FieldByName("CODIGO").texto().section('.', 0, 0)
                             : QString();
}

void Tfbalanceanual::abra(const char* pantalla) {
    if (!consulte(Libro::Decreto2649, cuenta(), pantalla))
        QApplication::beep();
}

// ---------------------------------------------------------------- gráfico

void Tfbalanceanual::BitBtn4Click() {
    if (CBalance.IsEmpty()) {
        QApplication::beep();
        return;
    }
    Tipo->setCurrentIndex(Movimientos);
    DBGridEh1->hide(); // el gráfico toma su lugar: los dos juntos no se leen en un monitor pequeño
    PanelGrafico->show();
    TipoChange(Movimientos);
    Tipo->setFocus();
}

void Tfbalanceanual::TipoChange(int indice) {
    if (CBalance.IsEmpty())
        return;
    const QString codigo = CBalance.FieldByName("CODIGO").texto();
    const auto con_signo = [&](Moneda m) { return se_invierte(codigo) ? -m : m; };
    CGrafcta.borre_todas();
    Moneda saldo = con_signo(CBalance.FieldByName("INICIAL").moneda());
    for (const Mes& m : kMeses) {
        Moneda movimiento = con_signo(CBalance.FieldByName(m.columna).moneda());
        if (cksaldos->isChecked()) // la columna es el saldo final: lo que se movió es lo que cambió
            movimiento -= saldo;
        CGrafcta.Append();
        CGrafcta.FieldByName("MES") = m.corto;
        const Moneda punto = indice == Movimientos    ? movimiento
                             : indice == SaldoInicial ? saldo
                                                      : saldo + movimiento;
        CGrafcta.FieldByName("VALOR") = punto.escalado(0);
        CGrafcta.Post();
        saldo += movimiento;
    }
    QStringList titulo{codigo,
                       CBalance.FieldByName("NOMBRE").texto(),
                       CBalance.FieldByName("NOMTERC").texto(),
                       "-",
                       Tipo->itemText(indice),
                       fdmcnt().ano_actual};
    titulo.removeAll(QString());
    grafico->muestre(CGrafcta, titulo.join(' '),
                     indice == Movimientos ? GraficoCuenta::Barras : GraficoCuenta::Linea);
}

void Tfbalanceanual::cierre_grafico() {
    PanelGrafico->hide();
    DBGridEh1->show();
    DBGridEh1->setFocus();
}

void Tfbalanceanual::SBSalirClick() {
    if (PanelGrafico->isVisible())
        cierre_grafico();
    else
        close();
}
