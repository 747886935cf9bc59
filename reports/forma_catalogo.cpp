#include "reports/forma_catalogo.h"

#include "toolkit/estilo.h"
#include "toolkit/formulario.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>

namespace {
constexpr int kLargoNombre = 60; ///< el mayor de las columnas que limitan
constexpr int kExportarCatalogos = 105;
} // namespace

FormaCatalogo::FormaCatalogo(const QString& clase, const QString& titulo, const QString& conexion,
                             const QString& conjunto, const Orden& codigo, const Orden& nombre,
                             ClaseRango codigos)
    : FormaRango({clase,
                  titulo,
                  {382, 250},
                  "catalogos.rav",
                  conexion,
                  conjunto,
                  "RepEstResul",
                  kExportarCatalogos,
                  {{"EDesde", "EHasta", "Rango", codigos}}}),
      RGOrd(new QGroupBox(QStringLiteral("Ordenamiento"), this)), ordenes_{codigo, nombre},
      grupo_(new QButtonGroup(this)) {
    RGOrd->setObjectName("RGOrd");
    auto* fila = new QHBoxLayout(RGOrd);
    fila->setContentsMargins(paso(), paso(0.5), paso(), paso(0.5));
    for (int i = 0; i < ordenes_.size(); ++i) {
        auto* radio = new QRadioButton(ordenes_[i].rotulo, RGOrd);
        grupo_->addButton(radio, i);
        fila->addWidget(radio);
    }
    CAuxiliar.calcular_al_traer = true;
    CAuxiliar.OnCalcFields = [this] {
        // El primer cálculo es el de la apertura, que todavía no tiene fila.
        if (std::exchange(hay_fila_, true))
            describa();
    };
}

void FormaCatalogo::FormCreate() {
    // Con las teclas ya en orden: Tab solo se detiene en el renglón escogido, y de ahí se pasa al
    // otro con las flechas.
    for (QAbstractButton* b : grupo_->buttons()) {
        const auto siga = [b](bool escogido) {
            b->setFocusPolicy(escogido ? Qt::StrongFocus : Qt::ClickFocus);
        };
        connect(b, &QAbstractButton::toggled, this, siga);
        siga(false);
    }
    grupo_->button(0)->setChecked(true);
    FormaRango::FormCreate();
}

void FormaCatalogo::arme_rango(Formulario& f) {
    f.ancha(RGOrd, 0);
    arme_pares(f);
    for (const char* nombre : {"EDesde", "EHasta"})
        findChild<QLineEdit*>(nombre)->setMaxLength(kLargoNombre);
}

void FormaCatalogo::antes_de_abrir() {
    hay_fila_ = false;
}

const FormaCatalogo::Orden& FormaCatalogo::orden() const {
    return ordenes_[qMax(0, grupo_->checkedId())];
}

ClaseRango FormaCatalogo::clase_de(const ParRango& par) const {
    // Un nombre no se escoge de la lista, que devuelve códigos.
    return por_codigo() ? par.clase : ClaseRango::Codigo;
}

QString FormaCatalogo::titulo() {
    return tramo("Orden:" + orden().rotulo + ':', "EDesde", "EHasta");
}

QString FormaCatalogo::rango_legible() {
    const QString& rotulo = orden().rotulo;
    return "Por " + rotulo.toLower() + ", " +
           tramo_legible("registros", valor("EDesde"), valor("EHasta"));
}

QString FormaCatalogo::dentro_del_rango() const {
    return columna() + " >= " + entre_comillas("EDesde") + " and " + columna() +
           " <= " + entre_comillas("EHasta");
}

void FormaCatalogo::palabra(const QString& nombre, int largo) {
    CAuxiliar.calculado(nombre, ClaseCampo::Texto, largo).Visible = false;
}

void FormaCatalogo::entero_impreso(const QString& nombre) {
    CAuxiliar.calculado(nombre, ClaseCampo::Entero, 0).Visible = false;
}
