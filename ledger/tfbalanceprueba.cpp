#include "ledger/tfbalanceprueba.h"

#include "datos/recordset/foto.h"

#include "catalogues/letracuenta.h"
#include "ledger/cifrascontrol.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/nombre_de_fila.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/letrero_espera.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QCheckBox>
#include <QHeaderView>
#include <QScopeGuard>
#include <QTabWidget>
#include <QVBoxLayout>

struct Tfbalanceprueba::DatosPagina {
    Libro libro;
    const char* titulo;
    const char* rejilla;
    const char* procedimiento;
    std::array<const char*, 6> titulos;
    std::array<const char*, 4> cajas;
    const char* nombre;
    const char* auxiliar;
    const char* terceros;
    const char* centros;
};

const std::array<Tfbalanceprueba::DatosPagina, 2> Tfbalanceprueba::kPaginas = {{
    {
        .libro = Libro::Decreto2649,
        .titulo = "Dec.2649",
        .rejilla = "DBGridEh1",
        .procedimiento = "consulta_balance_mes",
        .titulos = {"Cód. Cuenta", "Nombre cuenta", "S. Inicial", "Débitos", "Créditos",
                    "S. Final"},
        .cajas = {"SIni", "Sdb", "Scr", "Sfin"},
        .nombre = "NomCuenta",
        .auxiliar = "Tfauxiliar",
        .terceros = "Tfsaldoterc",
        .centros = "Tfsaldocentro",
    },
    {
        .libro = Libro::Niif,
        .titulo = "NIIF",
        .rejilla = "DBGridEh2",
        .procedimiento = "consulta_balance_mes_niif",
        .titulos = {"Cuenta", "Nombre", "Inicial", "Débitos", "Créditos", "Final"},
        .cajas = {"SNIni", "SNdb", "SNcr", "SNfin"},
        .nombre = "NomNiif",
        .auxiliar = "Tfauxiliarniif",
        .terceros = "Tfsaldotercniif",
        .centros = "Tfsaldocentroniif",
    },
}};

Tfbalanceprueba::Tfbalanceprueba()
    : BalancePorNiveles("Tfbalanceprueba", "Balance de prueba"), PageControl1(new QTabWidget(this)),
      Panel(new LetreroEspera("Panel", "Actualizando balance. Espere un momento...", this)) {
    PageControl1->setObjectName("PageControl1");
    Formulario f(this);
    QWidget* caja = cree_periodo("SpeedButton1", "SpeedButton2");
    arme_pagina(0, CBalance);
    arme_pagina(1, CBalniif);
    f.fila({{"Período", caja}, {"", cree_filtro(paginas_[0].rejilla)}});
    f.ancha(PageControl1);
    arme_botones();
    f.botones(findChild<BarraBotones*>());
    flechas("SpeedButton1", "SpeedButton2");
}

// ---------------------------------------------------------------- conjuntos y aspecto

void Tfbalanceprueba::arme_pagina(int indice, ConjuntoDatos& conjunto) {
    const DatosPagina& datos = kPaginas[size_t(indice)];
    const QStringList importes{"INICIAL", "DEBITOS", "CREDITOS", "FINAL"};
    const QStringList sumas{"SUMINI", "SUMDB", "SUMCR", "SUMFIN"};
    conjunto.texto("CODIGO", 20).etiqueta(datos.titulos[0]);
    conjunto.texto("NOMBRE", 60).etiqueta(datos.titulos[1]);
    for (int i = 0; i < 4; ++i)
        conjunto.decimal(importes[i]).etiqueta(datos.titulos[size_t(i) + 2]).formato(kImporte);
    conjunto.entero("NIVEL");
    for (const QString& suma : sumas)
        conjunto.decimal(suma);

    Rejilla* rejilla = cree_rejilla(datos.rejilla, &conjunto, "BalanPrueba");
    QVector<DefinicionColumna> columnas;
    const int anchos[] = {12, 40, 17, 17, 17, 17};
    for (int i = 0; i < 6; ++i)
        columnas.append({conjunto.Fields(i).FieldName, conjunto.Fields(i).etiqueta(), anchos[i]});
    rejilla->columnas(columnas);
    rejilla->horizontalHeader()->setMinimumSectionSize(paso(8));
    rejilla->texto_vacio = "El período no tiene saldos ni movimientos.";
    const Campo& codigo = conjunto.FieldByName("CODIGO");
    rejilla->OnGetCellParams = [&conjunto, &codigo](int fila, QFont& letra, QColor&, QColor&) {
        letra_por_nivel(letra, conjunto.valor_en(fila, codigo).texto());
    };
    rejilla->OnDblClick = [this](int) { BitBtn6Click(); };

    auto* hoja = new QWidget(PageControl1);
    auto* columna = new QVBoxLayout(hoja);
    columna->setContentsMargins(paso(), paso(), paso(), paso());
    columna->addWidget(rejilla, 1);
    QStringList cajas;
    for (const char* nombre : datos.cajas)
        cajas << nombre;
    auto* cifras = new CifrasControl(rejilla, importes, sumas, cajas, hoja);
    columna->addWidget(cifras);
    columna->addWidget(NombreDeFila::renglon("Cuenta", conjunto, {"NOMBRE"}, datos.nombre));
    PageControl1->addTab(hoja, datos.titulo);
    paginas_[size_t(indice)] = {&datos, &conjunto, rejilla, cifras, {}};
}

void Tfbalanceprueba::arme_botones() {
    auto* barra = new BarraBotones(this);
    // La tecla F2 no oprime este botón: actualiza sin recordar la fila.
    barra->boton("BitBtn5", "F2:Actualizar", "view-refresh", {}, [this] { BitBtn5Click(); });
    tecla(Qt::Key_F2, "actualice_balance", [this] { actualice_balance(); });
    barra->boton("BitBtn6", "F8:Auxiliar", "edit-find", Qt::Key_F8, [this] { BitBtn6Click(); });
    barra->boton("BitBtn7", "F5:Terceros", "system-users", Qt::Key_F5, [this] { BitBtn7Click(); });
    barra->boton("BitBtn8", "F7:Centros", "folder", Qt::Key_F7, [this] { BitBtn8Click(); });
    barra->boton("BitBtn1", "F6:Artículos", "package-x-generic", Qt::Key_F6,
                 [this] { BitBtn1Click(); });
    botones_de_detalle(*barra);
    // La rejilla se queda con Tab: al otro libro se pasa como en los comprobantes.
    const auto pagina = [this](int clave, int indice) {
        tecla(clave, Qt::ControlModifier, "PageControl1",
              [this, indice] { PageControl1->setCurrentIndex(indice); });
    };
    pagina(Qt::Key_PageDown, 1);
    pagina(Qt::Key_PageUp, 0);
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
}

// ---------------------------------------------------------------- vida

void Tfbalanceprueba::FormCreate() {
    BalancePorNiveles::FormCreate();
    const bool local = fdm().valor<Llave::LibroInicial>() == "2649";
    PageControl1->setCurrentIndex(local ? 0 : 1);
}

void Tfbalanceprueba::FormActivate() {
    if (por_recalcular_) {
        actualice_balance();
        ubique(actual(), actual().posicion);
        actual().posicion.clear();
    }
    actual().rejilla->setFocus();
}

bool Tfbalanceprueba::FormClose() {
    CBalance.Close();
    CBalniif.Close();
    CBorrar.Close();
    return true;
}

// ---------------------------------------------------------------- lectura

void Tfbalanceprueba::actualice_balance() {
    Panel->muestre();
    const auto oculte = qScopeGuard([this] { Panel->hide(); });
    muestre_periodo();
    // Los dos libros y sus cifras de control son del mismo instante, aunque otros estén grabando.
    Foto foto(fdm().Quorvex);
    for (Pagina& pagina : paginas_)
        lea(pagina, foto);
    por_recalcular_ = false;
}

void Tfbalanceprueba::lea(Pagina& pagina, Foto& foto) {
    foto.abra(*pagina.conjunto,
              QStringLiteral("select * from %1(").arg(pagina.datos->procedimiento) +
                  QuotedStr(fdmcnt().ano_actual) + ", " +
                  QString::number(fdmcnt().periodo_actual + 1) + ",'S', " +
                  QString::number(nivel()) + ')');
    pagina.cifras->muestre();
    pagina.rejilla->titulo_impreso = titulo_de_hoja(pagina.datos->libro, periodo_legible());
}

Tfbalanceprueba::Pagina& Tfbalanceprueba::actual() {
    return paginas_[size_t(PageControl1->currentIndex())];
}

QString Tfbalanceprueba::codigo(const Pagina& pagina) const {
    return pagina.conjunto->Active() ? pagina.conjunto->FieldByName("CODIGO").texto() : QString();
}

void Tfbalanceprueba::guarde_posiciones() {
    for (Pagina& pagina : paginas_)
        pagina.posicion = codigo(pagina);
}

void Tfbalanceprueba::ubique(Pagina& pagina, const QString& codigo) {
    if (!codigo.isEmpty())
        pagina.conjunto->Locate("CODIGO", {codigo});
}

void Tfbalanceprueba::BitBtn5Click() {
    recalcule();
}

void Tfbalanceprueba::recalcule() {
    guarde_posiciones();
    actualice_balance();
    for (Pagina& pagina : paginas_)
        ubique(pagina, pagina.posicion);
}

// ---------------------------------------------------------------- período

void Tfbalanceprueba::EMesChange(int mes) {
    fdmcnt().periodo_actual = mes;
    periodo_escogido();
}

void Tfbalanceprueba::EAnoChange(int ano) {
    fdmcnt().ano_actual = QString::number(ano);
    periodo_escogido();
}

void Tfbalanceprueba::periodo_escogido() {
    fdmcnt().guarde_periodo();
    emit fdmcnt().balance_por_recalcular();
    guarde_posiciones();
    actualice_balance();
    // Las dos páginas van al código de la primera.
    for (Pagina& pagina : paginas_)
        ubique(pagina, paginas_[0].posicion);
}

// ---------------------------------------------------------------- consultas de la cuenta

bool Tfbalanceprueba::recuerde_y_consulte(Pagina& pagina, const QString& codigo,
                                          const char* pantalla) {
    pagina.posicion = this->codigo(pagina);
    return consulte(pagina.datos->libro, codigo, pantalla);
}

void Tfbalanceprueba::abra(Pagina& pagina, const QString& codigo, const char* pantalla) {
    if (!recuerde_y_consulte(pagina, codigo, pantalla))
        QApplication::beep();
}

void Tfbalanceprueba::mostrar_auxiliar(const QString& codigo) {
    abra(paginas_[0], codigo, kPaginas[0].auxiliar);
}

void Tfbalanceprueba::mostrar_auxiliar_niif(const QString& codigo) {
    abra(paginas_[1], codigo, kPaginas[1].auxiliar);
}

void Tfbalanceprueba::BitBtn6Click() {
    if (PageControl1->currentIndex() == 0)
        mostrar_auxiliar(codigo(paginas_[0]));
    else
        mostrar_auxiliar_niif(codigo(paginas_[1]));
}

void Tfbalanceprueba::BitBtn7Click() {
    abra(actual(), codigo(actual()), actual().datos->terceros);
}

void Tfbalanceprueba::BitBtn8Click() {
    abra(actual(), codigo(actual()), actual().datos->centros);
}

void Tfbalanceprueba::BitBtn1Click() {
    // Los artículos son del libro 2649, se vea la página que se vea; un rechazo no pita.
    recuerde_y_consulte(paginas_[0], codigo(paginas_[0]), "Tfsaldoartc");
}
