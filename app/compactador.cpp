#include "app/compactador.h"

namespace {
constexpr int kDiferenciasPorPaso = 2000;
constexpr int kMsEntrePasos = 250;
constexpr int kMsEntreRondas = 5 * 60 * 1000;
constexpr int kMsQuieto = 2000; ///< sin teclas ni ratón: el usuario no espera respuesta
} // namespace

Compactador::Compactador(QObject* dueno) : QObject(dueno), reloj(new QTimer(this)) {
    reloj->setSingleShot(true);
    connect(reloj, &QTimer::timeout, this, [this] {
        if (quieto_.isValid() && quieto_.elapsed() < kMsQuieto)
            reloj->start(kMsQuieto); // el usuario está trabajando
        else
            reloj->start(compacte() > 0 ? kMsEntrePasos : kMsEntreRondas);
    });
}

void Compactador::inicie() {
    qApp->installEventFilter(this);
    reloj->start(kMsEntrePasos);
}

qint64 Compactador::compacte() {
    if (!fdm().Quorvex.en_linea())
        return 0;
    try {
        return fdm()
            .Quorvex
            .ejecute_con_salida("execute procedure compacte_saldos(?)", {kDiferenciasPorPaso},
                                ModoTransaccion::EscrituraSinEspera)
            .value(0)
            .entero();
    } catch (const ErrorBase& falla) {
        if (!falla.conflicto()) // otro lo está haciendo
            fdm().registre_en_archivo(falla.texto() + " | " + falla.detalle());
    } catch (const std::exception& falla) {
        fdm().registre_en_archivo(QString::fromUtf8(falla.what()));
    }
    return 0;
}

bool Compactador::eventFilter(QObject*, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress || evento->type() == QEvent::MouseButtonPress)
        quieto_.start();
    return false;
}
