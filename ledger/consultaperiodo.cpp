#include "ledger/consultaperiodo.h"

#include "sesion/tfdmcnt.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>

ConsultaPeriodo::ConsultaPeriodo(const QString& clase, const QString& titulo, int primer_ano)
    : Pantalla(clase, titulo), periodo(new CajaPeriodo(this)) {
    periodo->nombres(Tfdm::nombres_periodo().mid(0, 12));
    periodo->rango_ano(primer_ano, 2099);
    connect(periodo, &CajaPeriodo::mes_cambiado, this,
            [this](int mes) { ejecute([this, mes] { EMesChange(mes); }, false); });
    connect(periodo, &CajaPeriodo::ano_cambiado, this,
            [this](int ano) { ejecute([this, ano] { EAnoChange(ano); }, false); });
}

// ---------------------------------------------------------------- período

void ConsultaPeriodo::periodo_siguiente() {
    fdmcnt().mes_mas();
    recalcule();
}

void ConsultaPeriodo::periodo_anterior() {
    fdmcnt().mes_menos();
    recalcule();
}

void ConsultaPeriodo::EMesChange(int mes) {
    fdmcnt().periodo_actual = mes;
    emit fdmcnt().balance_por_recalcular();
    recalcule();
}

void ConsultaPeriodo::EAnoChange(int ano) {
    fdmcnt().ano_actual = QString::number(ano);
    emit fdmcnt().balance_por_recalcular();
    recalcule();
}

void ConsultaPeriodo::muestre_periodo() {
    periodo->ano(fdmcnt().ano_actual.toInt());
    if (fdmcnt().periodo_actual < 12)
        periodo->mes(fdmcnt().periodo_actual);
    else
        periodo->texto_mes(fdmcnt().nombre_periodo());
}

QString ConsultaPeriodo::titulo_de_hoja(Libro libro, const QString& cuando,
                                        const QStringList& consultado) const {
    QStringList partes{windowTitle(), QStringLiteral("Libro ") + datos(libro).nombre, cuando};
    partes[0][0] = partes[0][0].toUpper();
    return (partes + consultado).join(QStringLiteral(" · "));
}

QString ConsultaPeriodo::periodo_legible() {
    return fdmcnt().nombre_periodo() + " de " + fdmcnt().ano_actual;
}

// ---------------------------------------------------------------- piezas

QToolButton* ConsultaPeriodo::cree_paso(const QString& nombre, Qt::ArrowType sentido,
                                        const QString& ayuda, std::function<void()> accion) {
    auto* boton = new QToolButton(this);
    boton->setObjectName(nombre);
    boton->setArrowType(sentido);
    boton->setToolTip(ayuda);
    boton->setAccessibleName(ayuda);
    boton->setFocusPolicy(Qt::TabFocus);
    connect(boton, &QToolButton::clicked, this,
            [this, accion = std::move(accion)] { ejecute(accion); });
    return boton;
}

QWidget* ConsultaPeriodo::cree_periodo(const QString& anterior, const QString& siguiente) {
    auto* menos =
        cree_paso(anterior, Qt::LeftArrow, "Período anterior", [this] { periodo_anterior(); });
    auto* mas =
        cree_paso(siguiente, Qt::RightArrow, "Período siguiente", [this] { periodo_siguiente(); });
    return Formulario::junto({menos, periodo, mas});
}

void ConsultaPeriodo::flechas(const QString& izquierda, const QString& derecha) {
    const auto una = [this](int clave, const QString& nombre, const QString& atajo) {
        auto* boton = findChild<QToolButton*>(nombre);
        boton->setToolTip(boton->toolTip() + " (" + atajo + ')');
        tecla(clave, Qt::AltModifier, nombre, [boton] { boton->click(); });
    };
    una(Qt::Key_Left, izquierda, "Alt+Izquierda");
    una(Qt::Key_Right, derecha, "Alt+Derecha");
}

Rejilla* ConsultaPeriodo::cree_rejilla(const QString& nombre, ConjuntoDatos* conjunto,
                                       const QString& archivo) {
    auto* rejilla = new Rejilla(this, conjunto);
    rejilla->setObjectName(nombre);
    rejilla->ReadOnly = true;
    rejilla->nombre_archivo = archivo;
    rejilla->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    return rejilla;
}

QCheckBox* ConsultaPeriodo::cree_filtro(Rejilla* rejilla) {
    auto* casilla = new QCheckBox("Habilitar filtros", this);
    casilla->setObjectName("ckfiltro");
    connect(casilla, &QCheckBox::toggled, this,
            [this, rejilla](bool activa) { ejecute([=] { rejilla->filtro_visible(activa); }); });
    return casilla;
}

QLineEdit* ConsultaPeriodo::cree_lectura(const QString& nombre, int caracteres) {
    auto* caja = new QLineEdit(this);
    caja->setObjectName(nombre);
    caja->setReadOnly(true);
    caja->setFocusPolicy(Qt::ClickFocus);
    if (caracteres > 0)
        caja->setFixedWidth(ancho_caracteres(caja->fontMetrics(), caracteres) + paso(2));
    return caja;
}
