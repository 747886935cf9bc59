#include "budget/tfpresupuesto.h"

#include "budget/pch.h"
#include "budget/peticiones_presupuesto.h"
#include "toolkit/controles/lista_tecleo.h"

namespace {
constexpr int kGrabar = 50, kConsultar = 51;
constexpr int kLetrasCentro = 12; ///< del nombre de un centro, las que siempre se ven

QComboBox* lista_de_centros() {
    auto* lista = new ListaTecleo;
    lista->setObjectName("LCentro");
    // Un nombre largo no obliga a ensanchar la ventana.
    lista->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lista->setMinimumContentsLength(kLetrasCentro);
    lista->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return lista;
}
} // namespace

Tfpresupuesto::Tfpresupuesto()
    : Pantalla("Tfpresupuesto", "Presupuesto"), QPresupuesto(this, "QPresupuesto", fdm().Quorvex),
      PPresupuesto(this, "PPresupuesto", &QPresupuesto, poAllowCommandText),
      CPresupuesto(this, "CPresupuesto", &PPresupuesto),
      periodo_(presupuestable(fdmcnt().cursor())) {
    CPresupuesto.texto("CUENTA", 20);
    CPresupuesto.texto("NOMBRE", 60);
    CPresupuesto.decimal("DEBITO").formato("#,###.00");
    CPresupuesto.decimal("CREDITO").formato("#,###.00");
    construya();
}

void Tfpresupuesto::construya() {
    caja_ = new CajaPeriodo(this);
    caja_->nombres(Tfdm::nombres_periodo().mid(0, 12));
    connect(caja_, &CajaPeriodo::mes_cambiado, this, [this](int mes) {
        periodo_.indice = mes;
        proteja([this] { abre_presupuesto(); });
    });
    connect(caja_, &CajaPeriodo::ano_cambiado, this, [this](int ano) {
        periodo_.ano = ano;
        proteja([this] { abre_presupuesto(); });
    });
    const auto paso_de = [this](const char* nombre, Qt::ArrowType flecha, const char* ayuda,
                                void (CursorPeriodo::*paso)(), int tecla_del_paso) {
        auto* b = new QToolButton;
        b->setObjectName(nombre);
        b->setArrowType(flecha);
        b->setToolTip(ayuda);
        b->setAccessibleName(ayuda);
        connect(b, &QToolButton::clicked, this,
                [this, paso] { proteja([this, paso] { mueva(paso); }); });
        tecla(tecla_del_paso, Qt::AltModifier, nombre, [this, paso] { mueva(paso); });
        return b;
    };
    QWidget* periodo = Formulario::junto(
        {paso_de("SBAnterior", Qt::LeftArrow, "Mes anterior", &CursorPeriodo::menos, Qt::Key_Left),
         caja_,
         paso_de("SBSiguiente", Qt::RightArrow, "Mes siguiente", &CursorPeriodo::mas,
                 Qt::Key_Right)});
    periodo->setFocusProxy(caja_);
    LCentro = lista_de_centros();
    connect(LCentro, &QComboBox::activated, this,
            [this] { proteja([this] { abre_presupuesto(); }); });

    DBGridEh1 = new Rejilla(this, &CPresupuesto);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"CUENTA", "Cuenta", 14},
                         {"NOMBRE", "Nombre", 44},
                         {"DEBITO", "Débito", 18},
                         {"CREDITO", "Crédito", 18}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "El mes no tiene presupuesto. F2 lo digita.";
    DBGridEh1->nombre_archivo = "Presupuesto";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    // Las superiores, que son sumas, se leen más fuertes.
    constexpr int kCuenta = 4;
    DBGridEh1->OnGetCellParams = [this](int fila, QFont& letra, QColor&, QColor&) {
        letra.setBold(
            CPresupuesto.valor_en(fila, CPresupuesto.FieldByName("CUENTA")).texto().size() <=
            kCuenta);
    };
    auto* barra = new BarraBotones(this);
    barra->principal(
        barra->boton("SBModificar", "F2:Modificar", "accessories-text-editor", Qt::Key_F2, [this] {
            if (fdm().exija_acceso(kGrabar))
                abra("Tfnvopresup");
        }));
    barra->boton("SBComparar", "F8:Comparar", "view-sort-descending", Qt::Key_F8,
                 [this] { abra("Tfcompresupuesto"); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this)
        .fila({{"&Período", periodo}, {"&Centro de costos:", LCentro}})
        .ancha(DBGridEh1)
        .botones(barra);
    tamano(860, 560);
}

void Tfpresupuesto::FormCreate() {
    fdm().ConfigurarProviders(this);
    if (!fdm().exija_acceso(kConsultar)) {
        pida_cierre_al_crear();
        return;
    }
    llene_centros();
    abre_presupuesto();
    DBGridEh1->setFocus();
}

void Tfpresupuesto::FormActivate() {
    if (CPresupuesto.Active())
        CPresupuesto.Refresh(); // al volver de digitarlo
}

bool Tfpresupuesto::FormClose() {
    CPresupuesto.Close();
    return true;
}

void Tfpresupuesto::llene_centros() {
    LCentro->addItem("Todos");
    Sentencia& q = fdm().QBorrar;
    for (q.Open("select proy_cod, cent_cod, cent_nom from centros order by proy_cod, cent_cod");
         !q.Eof(); q.Next())
        LCentro->addItem(
            QString("%1-%2  %3").arg(q.Fields(0).texto(), q.Fields(1).texto(), q.Fields(2).texto()),
            QStringList{q.Fields(0).texto(), q.Fields(1).texto()});
    q.Close();
}

void Tfpresupuesto::muestre_periodo() {
    caja_->ano(periodo_.ano);
    if (periodo_.indice < 12)
        caja_->mes(periodo_.indice);
    else
        caja_->texto_mes(Tfdm::nombres_periodo().value(periodo_.indice));
}

void Tfpresupuesto::mueva(void (CursorPeriodo::*paso)()) {
    (periodo_.*paso)();
    abre_presupuesto();
}

void Tfpresupuesto::abre_presupuesto() {
    muestre_periodo();
    const QStringList centro = LCentro->currentData().toStringList();
    CPresupuesto.Open("select * from consulta_presupuesto_mes(" +
                      QuotedStr(QString::number(periodo_.ano)) + ',' +
                      QString::number(periodo_.numero()) + ',' +
                      (centro.isEmpty() ? QStringLiteral("'','')")
                                        : QuotedStr(centro[0]) + ',' + QuotedStr(centro[1]) + ')'));
    DBGridEh1->titulo_impreso =
        QStringLiteral("%1 · Libro 2649 · %2 de %3%4")
            .arg(windowTitle(), Tfdm::nombres_periodo().value(periodo_.indice))
            .arg(periodo_.ano)
            .arg(centro.isEmpty() ? QString() : " · Centro " + LCentro->currentText());
}

void Tfpresupuesto::abra(const char* pantalla) {
    pantallas().abrir(pantalla, AbrePresupuesto{periodo_});
}
