#include "tax/tfsupersociedades.h"

#include "datos/recordset/foto.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "tax/taxonomia.h"
#include "toolkit/barrabotones.h"
#include "toolkit/division_fluida.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QGroupBox>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr int kTaxonomia = 1, kSituacion = 210000, kResultados = 310000;
}

Tfsupersociedades::Tfsupersociedades() : Pantalla("Tfsupersociedades", "Supersociedades") {
    const auto conjunto = [this](const QString& nombre) {
        auto* q = new Sentencia(this, 'Q' + nombre, fdm().Quorvex);
        auto* c = new ConjuntoDatos(this, 'C' + nombre,
                                    new Proveedor(this, 'P' + nombre, q, poAllowCommandText));
        defina_resultado(*c);
        return c;
    };
    CImprtax = conjunto("Imprtax");
    CImptaxr = conjunto("Imptaxr");
    EAno = new QSpinBox(this);
    EAno->setObjectName("EAno");
    EAno->setRange(1990, 9999);
    auto* division = new DivisionFluida(this);
    DBGridEh1 = cree_rejilla("DBGridEh1", CImprtax, "Situación financiera", division);
    DBGridEh2 = cree_rejilla("DBGridEh2", CImptaxr, "Resultados", division);
    division->setStretchFactor(0, 3);
    division->setStretchFactor(1, 2);
    EAno->setMaximumWidth(escalado(110));
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton5", "F2:Calcula", "system-run", Qt::Key_F2,
                                  [this] { SpeedButton5Click(); }));
    barra->separe();
    barra->boton("SpeedButton4", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, "Cambiar de rejilla",
          [this] { (DBGridEh1->enfocada() ? DBGridEh2 : DBGridEh1)->setFocus(); });
    Formulario(this).fila({{"Año:", EAno}}).ancha(division).botones(barra);
    tamano(1200, 560);
}

Rejilla* Tfsupersociedades::cree_rejilla(const QString& nombre, ConjuntoDatos* conjunto,
                                         const QString& titulo, QWidget* division) {
    auto* marco = new QGroupBox(titulo, division);
    auto* r = new Rejilla(marco, conjunto);
    r->setObjectName(nombre);
    r->setAccessibleName(titulo);
    r->columnas({{"ITEM", "Ítem", 6, Numerica},
                 {"NOMBRE", "Descripción", 36},
                 {"VALOR", "Valor", 17, Numerica},
                 {"VALORA", "Año anterior", 17, Numerica}});
    r->ReadOnly = true;
    r->sangre("NOMBRE", [conjunto](int fila) {
        return qMax(0, int(conjunto->valor_en(fila, conjunto->FieldByName("NIVEL")).entero()) - 1);
    });
    r->OnGetCellParams = [conjunto](int fila, QFont& letra, QColor&, QColor&) {
        letra.setBold(conjunto->valor_en(fila, conjunto->FieldByName("NIVEL")).entero() == 1);
    };
    r->texto_vacio = "La taxonomía no tiene renglones en esta sección.";
    r->setProperty("sin_consultar", "F2 calcula las dos secciones del año.");
    r->nombre_archivo = "BalanPrueba";
    r->titulo_impreso = titulo + "  %[Today]";
    r->menu_emergente({Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir,
                       Rejilla::VistaPreliminar, Rejilla::Guardar});
    (new QVBoxLayout(marco))->addWidget(r);
    return r;
}

void Tfsupersociedades::FormCreate() {
    fdm().ConfigurarProviders(this);
    EAno->setValue(fdmcnt().ano_actual.toInt());
    EAno->setFocus();
}

bool Tfsupersociedades::FormClose() {
    CImprtax->Close();
    CImptaxr->Close();
    return true;
}

void Tfsupersociedades::SpeedButton5Click() {
    // El resultado de una sección está en la otra: las dos salen de la misma foto.
    const QString fecha = QString::number(EAno->value()) + "1231";
    Foto foto(fdm().Quorvex);
    for (const auto& [conjunto, seccion] :
         {std::pair{CImprtax, kSituacion}, {CImptaxr, kResultados}}) {
        const QString base = sql_taxonomia(kTaxonomia, seccion, fecha);
        foto.abra(*conjunto, base + " order by ITEM");
    }
}
