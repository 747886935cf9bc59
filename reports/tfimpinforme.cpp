#include "reports/tfimpinforme.h"

#include "datos/firebird/reloj.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/informes/motor.h"

#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

Tfimpinforme::Tfimpinforme()
    : Pantalla("Tfimpinforme", "Informes especiales"), LNombre(new QLabel), ETit(new QLineEdit),
      ESubt(new QLineEdit), Fecha(new QDateEdit) {
    LNombre->setObjectName("LNombre");
    QFont negrita = LNombre->font();
    negrita.setBold(true);
    LNombre->setFont(negrita);
    ETit->setObjectName("ETit");
    ETit->setMaxLength(60);
    ESubt->setObjectName("ESubt");
    ESubt->setMaxLength(255);
    Fecha->setObjectName("Fecha");
    Fecha->setDisplayFormat("yyyy/MM/dd");
    Fecha->setCalendarPopup(true);

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBImprimir", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { imprimirClick(); }));
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.ancha(LNombre, 0);
    f.fila("Título:", ETit);
    f.fila("Subtítulo:", ESubt);
    f.fila("Fecha de impresión:", Fecha);
    f.estire();
    f.botones(barra);
    enter_como_tab();
    tamano(460, 220);
}

void Tfimpinforme::FormCreate() {
    fdm().ConfigurarProviders(this);
    if (!definicion.abra(peticion<AbreFormatoEspecial>().formato_especial)) {
        muestre_mensaje("No se encontró el informe solicitado.");
        pida_cierre_al_crear();
        return;
    }
    const ConjuntoDatos& c = definicion.CFormato;
    LNombre->setText(c.FieldByName("FOCO_NOMBRE").texto());
    ETit->setText(c.FieldByName("FOCO_TITULO").texto());
    ESubt->setText(c.FieldByName("FOCO_SUBTITULO").texto());
    Fecha->setDate(reloj().hoy());
    ETit->setFocus();
}

bool Tfimpinforme::FormClose() {
    definicion.cierre();
    return true;
}

void Tfimpinforme::imprimirClick() {
    MotorInformes motor(this);
    // El nombre lo escribió una persona: "Balance 2017/2018" no es una carpeta.
    static const QRegularExpression kNoEsDeArchivo(QStringLiteral("[/\\\\:*?\"<>|]"));
    QString nombre = definicion.CFormato.FieldByName("FOCO_NOMBRE").texto().trimmed();
    nombre.replace(kNoEsDeArchivo, QStringLiteral("-"));
    if (!nombre.isEmpty())
        motor.nombre_archivo = nombre;
    motor.impresora = definicion.impresora();
    motor.vista_previa = fdm().valor<Llave::PrevisualizarImpresion>();
    motor.ejecutar_trabajo([this](informes::Hojas& hojas) { RvSystem1Print(hojas); });
    close();
}

void Tfimpinforme::RvSystem1Print(informes::Hojas& hojas) {
    const bool niif = definicion.CFormato.FieldByName("FOCO_NIIF").texto() == QLatin1String("S");
    FormulaContable formulas(periodo_de_la_sesion(niif), LectorReferencias());
    formulas.avise = [](const QString& texto) { muestre_mensaje(texto); };
    InformeDefinible informe(definicion, {ETit->text(), ESubt->text(), Fecha->date()}, formulas);
    informe.imprime_informe(hojas, informes::papel_de_impresora());
}
