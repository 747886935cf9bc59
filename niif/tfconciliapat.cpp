#include "niif/tfconciliapat.h"

#include "niif/pch.h"
#include "niif/peticiones_niif.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/controles/nombre_de_fila.h"
#include "toolkit/letrero_al_pie.h"

namespace {
constexpr int kNivelInicial = 3;
} // namespace

Tfconciliapat::Tfconciliapat() : Pantalla("Tfconciliapat", "Conciliación Patrimonial") {
    CConcilia.texto("CUENTA", 20);
    CConcilia.texto("NOMBRE", 60);
    CConcilia.texto("CUENTANIIF", 20);
    CConcilia.texto("NOMBRENIIF", 60);
    for (const char* campo : {"SALDO", "SALDONIIF", "DIFERENCIA", "PORCENTAJE"})
        CConcilia.decimal(campo).formato(kImporte);
    CConcilia.entero("NIVEL");
    construya();
}

void Tfconciliapat::construya() {
    EAno = new QSpinBox;
    EAno->setObjectName("EAno");
    EAno->setRange(1900, 2999);
    EMes = new ListaTecleo;
    EMes->setObjectName("EMes");
    EMes->addItem("Apertura del año");
    for (int mes = 0; mes < kMesAjustes; ++mes)
        EMes->addItem(Tfdm::nombres_periodo()[mes]);
    LNivel = new QLabel;
    LNivel->setObjectName("LNivel");
    Aviso = new QLabel;
    Aviso->setObjectName("Aviso");
    Aviso->hide();
    DBGridEh1 = new Rejilla(this, &CConcilia);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"CUENTA", "Cuenta", 12},
                         {"NOMBRE", "Nombre", 26},
                         {"CUENTANIIF", "Cuenta NIIF", 12},
                         {"NOMBRENIIF", "Nombre NIIF", 26},
                         {"SALDO", "Saldo 2649", 18},
                         {"SALDONIIF", "Saldo NIIF", 18},
                         {"DIFERENCIA", "Diferencia", 18},
                         {"PORCENTAJE", "%", 9}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->nombre_archivo = "BalanPrueba";
    DBGridEh1->texto_vacio = "Ninguna cuenta tiene saldo en ese período.";
    DBGridEh1->menu_emergente({Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir,
                               Rejilla::VistaPreliminar, Rejilla::Guardar});
    DBGridEh1->OnDblClick = [this](int) { AuxiliarClick(); };
    DBGridEh1->OnGetCellParams = [this](int fila, QFont& letra, QColor&, QColor&) {
        // Clases y grupos, como en el balance: hasta el detalle, casi todo sería mayor de algo.
        constexpr int kGrupos = 2;
        letra.setBold(CConcilia.valor_en(fila, CConcilia.FieldByName("NIVEL")).entero() <=
                      qMin(kGrupos, nivel_ - 1));
    };
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBCalcula", "F2:Calcula", "view-refresh", Qt::Key_F2,
                                  [this] { actualice_balance(); }));
    barra->boton("SpeedButton1", "Año de apertura", "x-office-spreadsheet", {},
                 [this] { SpeedButton1Click(); });
    barra->boton("SBMas", "F6:Más detalle", "list-add", Qt::Key_F6, [this] { nivel(1); });
    barra->boton("SBMenos", "F5:Menos detalle", "list-remove", Qt::Key_F5, [this] { nivel(-1); });
    barra->boton("SBAuxiliar", "F8:Auxiliar", "edit-find", Qt::Key_F8, [this] { AuxiliarClick(); });
    barra->separe();
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila({{"Año", EAno}, {"Mes", EMes}, {"Nivel", LNivel}});
    auto* nombres =
        NombreDeFila::renglon("Cuenta", CConcilia, {"NOMBRE", "NOMBRENIIF"}, "NomCuenta");
    f.ancha(DBGridEh1, 1).ancha(nombres, 0).ancha(Aviso, 0).botones(barra);
    tamano(1170, 570);
}

void Tfconciliapat::FormCreate() {
    fdm().ConfigurarProviders(this);
    CConcilia.PacketRecords = -1;
    nivel_maximo_ = int(fdm().Quorvex.consulte("select max(estr_nivel) from estructura").entero());
    nivel_ = qMin(kNivelInicial, nivel_maximo_);
    const auto p = peticion<AbreConciliacion>();
    EAno->setValue((p.ano.isEmpty() ? fdmcnt().ano_actual : p.ano).toInt());
    EMes->setCurrentIndex(p.apertura ? 0 : qMin(fdmcnt().periodo_actual + 1, kMesAjustes));
    actualice_balance();
    DBGridEh1->setFocus();
}

bool Tfconciliapat::FormClose() {
    CConcilia.Close();
    return true;
}

void Tfconciliapat::SpeedButton1Click() {
    EAno->setValue(fdm().texto_de(Llave::AnoAperturaNiif).toInt());
    actualice_balance();
}

void Tfconciliapat::nivel(int paso) {
    nivel_ = qBound(1, nivel_ + paso, nivel_maximo_);
    actualice_balance();
}

void Tfconciliapat::actualice_balance() {
    LNivel->setText(QStringLiteral("%1 de %2").arg(nivel_).arg(nivel_maximo_));
    diga_al_pie(Aviso, "Actualizando balance. Espere un momento...");
    Aviso->repaint();
    const QString cuenta = CConcilia.Active() ? CConcilia.FieldByName("CUENTA").texto() : QString();
    CConcilia.Instantanea = true;
    const int mes = EMes->currentIndex();
    const int hasta = nivel_;
    CConcilia.Open("select * from conciliacion_patrimonial(" +
                   QuotedStr(QString::number(EAno->value())) +
                   QStringLiteral(", %1, %2)").arg(mes).arg(hasta));
    consultado_ = {QString(), QString::number(EAno->value()), mes};
    if (!cuenta.isEmpty())
        CConcilia.Locate("CUENTA", {cuenta});
    DBGridEh1->titulo_impreso =
        QStringLiteral("%1 · %2 %3 · Nivel %4")
            .arg(windowTitle(), mes ? EMes->currentText() + " de" : EMes->currentText())
            .arg(EAno->value())
            .arg(hasta);
    diga_al_pie(Aviso, {});
}

void Tfconciliapat::AuxiliarClick() {
    if (CConcilia.IsEmpty())
        return;
    consultado_.cuenta = CConcilia.FieldByName("CUENTA").texto();
    pantallas().abrir("Tfconciliacta", consultado_);
}
