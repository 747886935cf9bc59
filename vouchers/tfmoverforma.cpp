#include "vouchers/tfmoverforma.h"

#include "vouchers/pch.h"

#include <QButtonGroup>
#include <QRadioButton>

namespace {

struct Accion {
    char letra;
    const char* rotulo;
    bool corre; ///< usa posiciones y límites; si no, cambia el tamaño de todo
};
const Accion kAcciones[] = {
    {'R', "Mover a la derecha", true},
    {'L', "Mover a la izquierda", true},
    {'U', "Mover hacia arriba", true},
    {'D', "Mover hacia abajo", true},
    {'M', "Reducir verticalmente a la mitad", false},
    {'Y', "Reducir horizontalmente a la mitad", false},
    {'C', "Expandir verticalmente al doble", false},
    {'X', "Expandir horizontalmente al doble", false},
};
constexpr int kUltimaPosicion = 2000;

} // namespace

TFmoverforma::TFmoverforma() : Pantalla("TFmoverforma", "Mover Formato") {
    Formulario f(this);
    f.grupo("Acción");
    acciones = new QButtonGroup(this);
    QWidget* izquierda = nullptr; // de a dos por fila: se leen todas sin correr la ventana
    for (const Accion& a : kAcciones) {
        auto* boton = new QRadioButton(QString::fromUtf8(a.rotulo));
        boton->setObjectName(QStringLiteral("accion_") + QLatin1Char(a.letra));
        acciones->addButton(boton, a.letra);
        if (izquierda)
            f.fila({{"", std::exchange(izquierda, nullptr)}, {"", boton}});
        else
            izquierda = boton;
    }
    static_assert(std::size(kAcciones) % 2 == 0);
    f.fin_grupo();
    const auto casilla = [this](const char* nombre) {
        auto* e = new QLineEdit(this);
        e->setObjectName(nombre);
        e->setValidator(new QIntValidator(0, kUltimaPosicion, e));
        e->setMaxLength(4);
        e->setFixedWidth(e->fontMetrics().horizontalAdvance("000000"));
        return e;
    };
    Pos = casilla("Pos");
    Desde = casilla("Desde");
    Hasta = casilla("Hasta");
    f.fila("Numero de posiciones:", Pos);
    f.fila("Empezando en:", Desde);
    f.fila("Terminando en:", Hasta);
    f.estire();
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SpeedButton2", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape,
                 [this] { close(); });
    f.botones(barra);
    connect(acciones, &QButtonGroup::idToggled, this, [this](int, bool marcada) {
        if (marcada)
            accion_cambiada();
    });
    enter_como_tab();
    tamano(400, 470);
}

void TFmoverforma::FormCreate() {
    acciones->button(kAcciones[0].letra)->setChecked(true);
    acciones->button(kAcciones[0].letra)->setFocus();
}

void TFmoverforma::accion_cambiada() {
    const int letra = acciones->checkedId();
    const bool corre = std::any_of(std::begin(kAcciones), std::end(kAcciones),
                                   [&](const Accion& a) { return a.letra == letra && a.corre; });
    if (!corre)
        Pos->clear();
    for (QLineEdit* e : {Pos, Desde, Hasta})
        e->setEnabled(corre);
}

void TFmoverforma::SpeedButton1Click() {
    const auto valor = [](const QLineEdit* e, int vacio) {
        return e->text().isEmpty() ? vacio : Tfdm::entero(e->text());
    };
    Sentencia& s = fdm().Smueveformato;
    const auto formato = peticion<MueveFormato>();
    s.Close();
    s.ParamByName("TIPO") = formato.tipo;
    s.ParamByName("PREFI") = formato.llave;
    s.ParamByName("POSICIONES") = valor(Pos, 0);
    s.ParamByName("DESDE") = valor(Desde, 0);
    s.ParamByName("HASTA") = valor(Hasta, kUltimaPosicion);
    s.ParamByName("ACCION") = QString(QLatin1Char(char(acciones->checkedId())));
    s.ExecProc();
    close();
}
