#include "exchange/tfrespaldo.h"

#include "exchange/pch.h"

#include <QScopeGuard>
#include <QSpinBox>

namespace {
constexpr const char* kDuenoDeLasBases = "SYSDBA";
constexpr int kMaximoCopias = 400;
} // namespace

Tfrespaldo::Tfrespaldo() : Pantalla("Tfrespaldo", "Respaldo de la compañía") {
    const auto caja = [](const char* nombre) {
        auto* c = new QLineEdit;
        c->setObjectName(nombre);
        return c;
    };
    Carpeta = caja("Carpeta");
    Usuario = caja("Usuario");
    Clave = caja("Clave");
    Clave->setEchoMode(QLineEdit::Password);
    Copias = new QSpinBox;
    Copias->setObjectName("Copias");
    Copias->setRange(1, kMaximoCopias);
    LUltimo = new QLabel;
    LUltimo->setObjectName("LUltimo");
    Aviso = new QLabel;
    Aviso->setObjectName("Aviso");
    Aviso->setWordWrap(true);
    auto* examinar = new QPushButton("E&xaminar");
    examinar->setObjectName("Examinar");
    connect(examinar, &QPushButton::clicked, this,
            [this] { proteja([this] { ExaminarClick(); }); });
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Respaldar", "document-save-as", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila("&Carpeta", Formulario::junto({Carpeta, examinar}));
    f.fila("Copias que se &conservan", Copias);
    f.fila({{"&Usuario de respaldos", Usuario}, {"C&lave", Clave}});
    f.ancha(LUltimo, 0).ancha(Aviso, 0).estire().botones(barra);
    enter_como_tab();
    tamano(620, 280);
}

void Tfrespaldo::FormCreate() {
    if (!fdm().administrador) {
        muestre_mensaje(kAccesoNegado);
        pida_cierre_al_crear();
        return;
    }
    const AjustesRespaldo a = ajustes_respaldo();
    Carpeta->setText(a.carpeta);
    Copias->setValue(a.copias);
    Usuario->setText(kDuenoDeLasBases);
    // El motor en proceso no pide clave; el servidor, sí.
    const bool en_servidor = fdm().Quorvex.parametros().base.indexOf(':') > 1;
    Usuario->setEnabled(en_servidor);
    Clave->setEnabled(en_servidor);
    LUltimo->setText(letrero_respaldo(fdm().codigo_compania));
    (en_servidor ? Clave : Carpeta)->setFocus();
}

void Tfrespaldo::ExaminarClick() {
    QFileDialog dialogo(this, "Carpeta de los respaldos", Carpeta->text());
    dialogo.setObjectName("escoger_carpeta");
    dialogo.setFileMode(QFileDialog::Directory);
    if (dialogo.exec() == QDialog::Accepted && !dialogo.selectedFiles().isEmpty())
        Carpeta->setText(dialogo.selectedFiles().first());
}

ParametrosConexion Tfrespaldo::base() const {
    ParametrosConexion p = fdm().Quorvex.parametros();
    p.usuario = Usuario->text().trimmed();
    p.clave = Clave->text();
    p.rol.clear(); // respalda el dueño de la base, no el programa
    return p;
}

void Tfrespaldo::SpeedButton1Click() {
    const AjustesRespaldo ajustes{Carpeta->text().trimmed(), Copias->value()};
    if (ajustes.carpeta.isEmpty()) {
        muestre_mensaje("Debe indicar la carpeta de los respaldos.");
        Carpeta->setFocus();
        return;
    }
    ajustes_respaldo(ajustes);
    const auto al_salir = qScopeGuard([this] {
        Aviso->clear();
        QApplication::restoreOverrideCursor();
    });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Aviso->setText("Respaldando y probando la copia. Espere un momento...");
    Aviso->repaint();
    QString archivo;
    const ResultadoRespaldo r = respalde_compania(base(), fdm().codigo_compania, ajustes, archivo);
    LUltimo->setText(letrero_respaldo(fdm().codigo_compania));
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(LUltimo->text());
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    muestre_mensaje(QStringLiteral("Respaldo bueno: %1 tablas y %2 filas, las mismas de la base, "
                                   "en %3.")
                        .arg(r.tablas)
                        .arg(r.filas)
                        .arg(archivo));
    QApplication::restoreOverrideCursor();
    close();
}
