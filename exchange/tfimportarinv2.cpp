#include "exchange/tfimportarinv2.h"

#include "exchange/pch.h"
#include "toolkit/controles/lista_tecleo.h"

#include <QButtonGroup>

Tfimportarinv2::Tfimportarinv2()
    : Pantalla("Tfimportarinv2", "Importación de datos contables 2/3") {
    Ubicacion = new QLineEdit;
    Ubicacion->setObjectName("Ubicacion");
    auto* explorar = new QPushButton("&Explorar");
    explorar->setObjectName("Explorar");
    connect(explorar, &QPushButton::clicked, this,
            [this] { proteja([this] { ExplorarClick(); }); });
    auto* caja = new QGroupBox("Tipo de archivo");
    auto* columna = new QVBoxLayout(caja);
    Tipo = new QButtonGroup(this);
    for (const char* rotulo : {"A&ncho fijo (Cada columna tiene siempre el mismo ancho)",
                               "&Delimitado (Un carácter separa las columnas)"}) {
        auto* radio = new QRadioButton(QString::fromUtf8(rotulo));
        radio->setObjectName(QStringLiteral("Tipo%1").arg(Tipo->buttons().size()));
        Tipo->addButton(radio, int(Tipo->buttons().size()));
        columna->addWidget(radio);
    }
    Separa = lista_tecleo("Separa", {"Coma (,)", "Punto y coma (;)", "Tabulador"});
    Delimita = lista_tecleo("Delimita", {"Ninguno", "Comillas (\")", "Comilla simple (\x27)"});
    connect(Tipo, &QButtonGroup::idToggled, this, &Tfimportarinv2::TipoChange);
    ckniif = new QCheckBox("Importar al Plan  NIIF");
    ckniif->setObjectName("ckniif");
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Continuar", "go-next", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBRechazos", "F8:Rechazados", "dialog-warning", Qt::Key_F8,
                 [] { muestre_rechazos(); });
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila("&Archivo", Formulario::junto({Ubicacion, explorar}));
    f.ancha(caja, 0);
    f.fila("&Separador", Separa);
    f.fila("D&elimitador", Delimita);
    f.fila("", ckniif);
    f.estire().botones(barra);
    enter_como_tab();
    tamano(640, 360);
}

void Tfimportarinv2::FormCreate() {
    asistente_ = peticion<AsistenteImportacion>();
    Ubicacion->setText(asistente_.archivo);
    Tipo->button(qBound(0, asistente_.formato, 1))->setChecked(true);
    Separa->setCurrentIndex(asistente_.separador);
    Delimita->setCurrentIndex(asistente_.delimitador);
    ckniif->setChecked(asistente_.niif);
    ckniif->setVisible(asistente_.clase() != ClaseImportacion::Terceros);
    TipoChange();
    Ubicacion->setFocus();
    Ubicacion->selectAll(); // el del anterior: lo que se digite lo cambia
}

void Tfimportarinv2::ExplorarClick() {
    QFileDialog dialogo(this, "Archivo por importar", QFileInfo(Ubicacion->text()).path(),
                        "Texto (*.txt *.csv);;Todos (*)");
    dialogo.setObjectName("escoger_archivo");
    dialogo.setFileMode(QFileDialog::ExistingFile);
    if (dialogo.exec() == QDialog::Accepted && !dialogo.selectedFiles().isEmpty())
        Ubicacion->setText(dialogo.selectedFiles().first());
}

void Tfimportarinv2::TipoChange() {
    // El ancho fijo se lee con el separador y el delimitador que estén: solo no se pueden cambiar.
    Separa->setEnabled(Tipo->checkedId() == 1);
    Delimita->setEnabled(Tipo->checkedId() == 1);
}

void Tfimportarinv2::SpeedButton1Click() {
    asistente_.archivo = Ubicacion->text().trimmed();
    if (asistente_.archivo.isEmpty()) {
        muestre_mensaje("Debe indicar antes el archivo con los datos a importar.");
        Ubicacion->setFocus();
        return;
    }
    if (!QFileInfo(asistente_.archivo).isFile()) {
        muestre_mensaje("No se encontró el archivo a importar.");
        Ubicacion->setFocus();
        return;
    }
    asistente_.formato = Tipo->checkedId();
    asistente_.separador = Separa->currentIndex();
    asistente_.delimitador = Delimita->currentIndex();
    asistente_.niif = ckniif->isChecked() && asistente_.clase() != ClaseImportacion::Terceros;
    recuerde(asistente_);
    pantallas().abrir("Tfimportarinv3", asistente_);
    close();
}
