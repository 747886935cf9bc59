#include "exchange/tfprocusr.h"

#include "exchange/pch.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/letrero_al_pie.h"

#include <QGridLayout>
#include <QRegularExpression>

namespace {
constexpr const char* kModulo = "MANTENIMIENTO";
constexpr const char* kSinRango =
    "Este procedimiento no requiere indicar ningun rango. Presione el boton F5:Generar.";
} // namespace

Tfprocusr::Tfprocusr() : Pantalla("Tfprocusr", "Procedimientos de usuario") {
    CProcesos.texto("PRUS_COD", 10);
    CProcesos.texto("PRUS_NOMBRE", 60);
    CProcesos.texto("PRUS_SP", 31);
    for (int i = 1; i <= kParametros; ++i)
        CProcesos.texto(QStringLiteral("PRUS_PARAM%1").arg(i), 40);
    CProcesos.texto("PRUS_MODULO", 20);
    construya();
}

void Tfprocusr::construya() {
    LProceso = new ListaTecleo;
    LProceso->setObjectName("LProceso");
    LNota = new QLabel(kSinRango);
    LNota->setObjectName("LNota");
    Aviso = new QLabel;
    Aviso->setObjectName("Aviso");
    Aviso->hide();
    DBGridEh1 = new Rejilla(this, &CResultado);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Resultado del procedimiento");
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->filtro_archivo =
        "Text files (*.txt)|*.TXT|Comma separated values (*.csv)|*.CSV|Microsoft Excel Workbook "
        "(*.xls)|*.XLS";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->setProperty("sin_consultar", "Escoja el procedimiento y oprima F5.");
    DBGridEh1->texto_vacio = "El procedimiento no dio filas con esos datos.";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    connect(LProceso, &QComboBox::currentIndexChanged, this,
            [this] { proteja([this] { LProcesoChange(); }); });
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton5", "F5:Generar", "system-run", Qt::Key_F5,
                                  [this] { SpeedButton5Click(); }));
    barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                 [this] { DBGridEh1->ejecute_orden(Rejilla::Guardar); });
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila("&Procedimiento", LProceso);
    for (int i = 0; i < kParametros; ++i) {
        cajas[i] = new QLineEdit;
        cajas[i]->setObjectName(QStringLiteral("EParam%1").arg(i + 1));
        f.fila(QStringLiteral("Parámetro"), cajas[i]); // el rótulo lo da el procedimiento
        for (QLabel* rotulo : findChildren<QLabel*>())
            if (rotulo->buddy() == cajas[i])
                rotulos[i] = rotulo;
        rotulos[i]->setTextFormat(Qt::PlainText);
        rotulos[i]->setBuddy(nullptr); // un "&" del dato no es una tecla
    }
    f.ancha(LNota, 0).ancha(DBGridEh1, 1).ancha(Aviso, 0).botones(barra);
    enter_como_tab();
    tamano(860, 520);
}

void Tfprocusr::FormCreate() {
    fdm().ConfigurarProviders(this);
    CProcesos.PacketRecords = CResultado.PacketRecords = -1;
    CProcesos.Open();
    CProcesos.Filter("PRUS_MODULO = " + QuotedStr(kModulo));
    CProcesos.Filtered(true);
    for (CProcesos.First(); !CProcesos.Eof(); CProcesos.Next())
        LProceso->addItem(dato("PRUS_NOMBRE"), dato("PRUS_COD"));
    LProcesoChange();
    LProceso->setFocus();
}

bool Tfprocusr::FormClose() {
    CResultado.Close();
    CProcesos.Close();
    return true;
}

QString Tfprocusr::dato(const char* campo) const {
    return CProcesos.FieldByName(QLatin1String(campo)).texto();
}

void Tfprocusr::LProcesoChange() {
    CProcesos.Locate("PRUS_COD", {LProceso->currentData().toString()});
    const bool hay = LProceso->currentIndex() >= 0;
    for (int i = 0; i < kParametros; ++i) {
        const QString rotulo =
            CProcesos.FieldByName(QStringLiteral("PRUS_PARAM%1").arg(i + 1)).texto();
        const bool usa = hay && !sin_rango() && !rotulo.isEmpty();
        rotulos[i]->setText(rotulo.endsWith(QLatin1Char(':')) ? rotulo : rotulo + QLatin1Char(':'));
        rotulos[i]->setVisible(usa);
        cajas[i]->setAccessibleName(rotulo);
        cajas[i]->clear();
        cajas[i]->setVisible(usa);
    }
    LNota->setVisible(hay && sin_rango());
    DBGridEh1->nombre_archivo = LProceso->currentText();
}

QString Tfprocusr::sql() {
    static const QRegularExpression nombre("^[A-Za-z][A-Za-z0-9_$]*$");
    const QString procedimiento = dato("PRUS_SP");
    if (!nombre.match(procedimiento).hasMatch()) {
        muestre_mensaje("El procedimiento " + LProceso->currentText() +
                        " está mal registrado. Avise a quien lo instaló.");
        return {};
    }
    QStringList valores;
    for (int i = 0; i < kParametros; ++i) {
        if (!cajas[i]->isVisibleTo(this))
            continue;
        if (cajas[i]->text().trimmed().isEmpty()) {
            muestre_mensaje("Debe indicar un parámetro al procedimiento.");
            cajas[i]->setFocus();
            return {};
        }
        valores << QuotedStr(cajas[i]->text().trimmed());
    }
    const QString base = "select * from " + procedimiento;
    return valores.isEmpty() ? base : base + "(" + valores.join(",") + ")";
}

void Tfprocusr::SpeedButton5Click() {
    if (LProceso->currentIndex() < 0) {
        muestre_mensaje("La compañía no tiene procedimientos de usuario.");
        return;
    }
    const QString texto = sql();
    if (texto.isEmpty())
        return;
    diga_al_pie(Aviso, "Ejecutando procedimiento. espere un momento ...");
    Aviso->repaint();
    try {
        CResultado.Open(texto);
    } catch (...) {
        diga_al_pie(Aviso, {});
        throw;
    }
    diga_al_pie(Aviso, {});
    presente_resultado(sin_rango());
}

void Tfprocusr::presente_resultado(bool entero) {
    QVector<DefinicionColumna> columnas;
    for (int i = 0; i < CResultado.FieldCount(); ++i) {
        const Campo& c = CResultado.Fields(i);
        const QString titulo = fdm().nombre_campo(c.FieldName);
        columnas.append({c.FieldName, titulo, c.numerico() ? 16 : qBound(8, c.Size, 34),
                         c.numerico() && !entero ? unsigned(Suma) : 0u,
                         c.numerico() ? QString(entero ? "#,###" : "#,###.00") : QString()});
    }
    DBGridEh1->columnas(columnas);
    DBGridEh1->setFocus();
}
