#include "exchange/tfimportarinv1.h"

#include "exchange/asistente_importacion.h"
#include "exchange/pch.h"

#include <QButtonGroup>

namespace {
constexpr int kPrimerTipo = 4; ///< los menores son del inventario
}

Tfimportarinv1::Tfimportarinv1()
    : Pantalla("Tfimportarinv1", "Importación de datos contables"),
      Importar(new QButtonGroup(this)) {
    auto* caja = new QGroupBox("Datos por importar");
    auto* columna = new QVBoxLayout(caja);
    int item = 0;
    for (const char* rotulo :
         {"Catálogo de cuentas", "Terceros", "Comprobantes", "Saldos iniciales"}) {
        auto* radio = new QRadioButton(QString::fromUtf8(rotulo));
        radio->setObjectName(QStringLiteral("Importar%1").arg(item));
        Importar->addButton(radio, item++);
        columna->addWidget(radio);
    }
    Importar->button(0)->setChecked(true);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Continuar", "go-next", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBRechazos", "F8:Rechazados", "dialog-warning", Qt::Key_F8,
                 [] { muestre_rechazos(); });
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(caja, 0).estire().botones(barra);
    enter_como_tab();
    tamano(420, 260);
}

void Tfimportarinv1::FormCreate() {
    Importar->button(0)->setFocus();
}

void Tfimportarinv1::SpeedButton1Click() {
    pantallas().abrir("Tfimportarinv2", recordado(Importar->checkedId() + kPrimerTipo));
    close();
}
