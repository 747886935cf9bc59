#include "exchange/forma_copia.h"

#include "datos/firebird/concuerde.h"
#include "exchange/caja_de_codigo.h"
#include "exchange/pch.h"
#include "toolkit/aviso_trabajo.h"

#include <QScopeGuard>

namespace {
constexpr int kMuestra = 5; ///< fallas que se nombran
}

FormaCopia::FormaCopia(const QString& clase, const QString& titulo) : Pantalla(clase, titulo) {
    const auto caja = [](const char* nombre, int largo) {
        auto* c = new QLineEdit;
        c->setObjectName(nombre);
        c->setMaxLength(largo);
        mida_como_codigo(*c);
        return c;
    };
    const auto rotulo = [](const char* nombre) {
        auto* l = new QLabel;
        l->setObjectName(nombre);
        l->setTextFormat(Qt::PlainText);
        l->setMinimumWidth(l->fontMetrics().horizontalAdvance('n') * 30);
        return l;
    };
    Compania1 = caja("Compania1", 3);
    Compania2 = caja("Compania2", 3);
    Desde = caja("Desde", 20);
    Hasta = caja("Hasta", 20);
    Nombre1 = rotulo("Nombre1");
    Nombre2 = rotulo("Nombre2");
    Aviso = rotulo("Aviso");
    ProgressBar1 = new QProgressBar;
    ProgressBar1->setObjectName("ProgressBar1");
    ProgressBar1->hide();
    QSizePolicy guarda = ProgressBar1->sizePolicy(); // al salir no aplasta las cajas
    guarda.setRetainSizeWhenHidden(true);
    ProgressBar1->setSizePolicy(guarda);
    for (const auto& [codigo, nombre] : {std::pair{Compania1, Nombre1}, {Compania2, Nombre2}}) {
        connect(codigo, &QLineEdit::textEdited, nombre, &QLabel::clear);
        connect(codigo, &QLineEdit::editingFinished, this,
                [this, codigo = codigo, nombre = nombre] {
                    if (codigo->isModified() && !codigo->text().isEmpty()) {
                        codigo->setModified(false);
                        proteja([&] { nombre->setText(exija_compania(codigo)); });
                    }
                });
    }
    enter_como_tab();
}

void FormaCopia::arme_companias(Formulario& f) {
    f.fila("Compañía de origen", Formulario::junto({Compania1, Nombre1}));
    f.fila("Compañía de destino", Formulario::junto({Compania2, Nombre2}));
}

void FormaCopia::arme_rango(Formulario& f, const QString& rotulo) {
    f.fila({{rotulo, Desde}, {"Hasta", Hasta}});
}

void FormaCopia::arme_botones(Formulario& f) {
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Copiar", "edit-copy", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.ancha(Aviso, 0).ancha(ProgressBar1, 0).estire().botones(barra);
}

void FormaCopia::FormCreate() {
    Compania1->setFocus();
}

bool FormaCopia::FormClose() {
    Conexion1.desconectar();
    Conexion2.desconectar();
    return true;
}

QString FormaCopia::exija_compania(QLineEdit* caja) {
    const QString nombre = fdm()
                               .ConGeneral
                               .consulte("select com_nombre from compania where comp_cod = " +
                                         QuotedStr(caja->text().trimmed()))
                               .texto();
    if (nombre.isEmpty())
        muestre_mensaje("Compañía no encontrada.");
    return nombre;
}

void FormaCopia::anuncie(const QString& texto) {
    Aviso->setText(texto);
    repinte_lo_descubierto();
}

AvanceCopia FormaCopia::avance() {
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    return [this](int van, int total) {
        ProgressBar1->setRange(0, total);
        ProgressBar1->setValue(van);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
}

void FormaCopia::conecte(Conexion& conexion, const QString& codigo) {
    anuncie("Conectando a la base de datos " + codigo + " ...");
    conexion.desconectar();
    conexion.conectar(base_de_compania(fdm().Quorvex.parametros(), fdm().codigo_compania, codigo));
    exija_version(conexion);
}

void FormaCopia::SpeedButton1Click() {
    const QString origen = Compania1->text().trimmed(), destino = Compania2->text().trimmed();
    for (QLineEdit* caja : {Compania1, Compania2})
        if (exija_compania(caja).isEmpty()) {
            caja->setFocus();
            return;
        }
    if (origen == destino) {
        muestre_mensaje("Las dos compañías deben ser distintas.");
        Compania2->setFocus();
        return;
    }
    if (Desde->text().trimmed().isEmpty())
        Desde->setText(omision().desde);
    if (Hasta->text().trimmed().isEmpty())
        Hasta->setText(omision().hasta);
    if (Desde->text().trimmed() > Hasta->text().trimmed()) {
        muestre_mensaje("\"Desde\" es mayor que \"Hasta\".");
        Desde->setFocus();
        return;
    }
    std::optional<ResultadoCopia> r;
    {
        const auto al_salir = qScopeGuard([this] {
            Aviso->clear();
            ProgressBar1->hide();
        });
        conecte(Conexion1, origen);
        conecte(Conexion2, destino);
        r = copie({Desde->text().trimmed(), Hasta->text().trimmed()});
    }
    if (!r)
        return;
    QString texto = concuerde(r->copiados, "Se copió %1; ", "Se copiaron %1; ") +
                    concuerde(r->omitidos, "%1 no se tocó.", "%1 no se tocaron.");
    if (!r->fallas.isEmpty())
        texto += concuerde(r->fallas.size(), " No entró %1", " No entraron %1") +
                 "; la lista completa está en ERRORES.TXT:\n" +
                 r->fallas.mid(0, kMuestra).join('\n');
    for (const QString& falla : std::as_const(r->fallas))
        fdm().registre_en_archivo(windowTitle() + ": " + falla);
    muestre_mensaje(texto);
    close();
}
