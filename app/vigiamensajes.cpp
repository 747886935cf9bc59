#include "app/vigiamensajes.h"

#include "app/paneldegradado.h"
#include "app/ventanaavisos.h"
#include "sesion/peticiones.h"

namespace {

constexpr int kIntervalo = 10000;

QColor color_de_nivel(qint64 nivel) {
    switch (nivel) {
    case 1:
        return PanelDegradado::color(0xFF80FF);
    case 2:
        return PanelDegradado::color(0x80FFFF);
    case 3:
        return PanelDegradado::color(0xFFFF80);
    default:
        return {};
    }
}

} // namespace

VigiaMensajes::VigiaMensajes(QWidget* marco)
    : QObject(marco), Timer3(new QTimer(this)), AdvAlertWindow2(new VentanaAvisos(marco)),
      QMensajes(this, "QMensajes", fdm().Quorvex),
      PMensajes(this, "PMensajes", &QMensajes, poAllowCommandText),
      CMensajes(this, "CMensajes", &PMensajes) {
    fdm().ConfigurarProviders(this);
    Timer3->setObjectName("Timer3");
    Timer3->setInterval(kIntervalo);
    connect(Timer3, &QTimer::timeout, this, [this] { proteja([this] { Timer3Timer(); }); });
    connect(AdvAlertWindow2, &VentanaAvisos::cerrada, Timer3, qOverload<>(&QTimer::start));
    connect(AdvAlertWindow2, &VentanaAvisos::oprimido, this,
            [this] { proteja([this] { AdvAlertWindow2AlertClick(); }); });
    connect(AdvAlertWindow2, &VentanaAvisos::respuesta, this,
            [this] { proteja([this] { AdvAlertWindow2PopupClick(); }); });
}

bool VigiaMensajes::eventFilter(QObject* objeto, QEvent* evento) {
    if ((evento->type() == QEvent::KeyPress || evento->type() == QEvent::MouseButtonPress) &&
        fdm().Quorvex.en_linea()) {
        qApp->removeEventFilter(this);
        if (!AdvAlertWindow2->isVisible())
            Timer3->start();
    }
    return QObject::eventFilter(objeto, evento);
}

void VigiaMensajes::Timer3Timer() {
    Timer3->stop();
    if (!fdm().Quorvex.conectada())
        return;
    // Sin servidor no hay mensajes; no le toca a este reloj esperar a que vuelva.
    if (!fdm().Quorvex.en_linea()) {
        Timer3->start();
        return;
    }
    AdvAlertWindow2->limpie();
    try {
        CMensajes.Open("select mens_id, mens_autor, mens_mensaje, mens_nivel  from mensajeria "
                       "where mens_destino = " +
                       QuotedStr(fdm().usuario) + " and mens_leido = 'N'");
    } catch (const ErrorBase& falla) {
        // Perdida la conexión se dice una vez y el reloj queda quieto: anda de nuevo cuando el
        // usuario siga y ella haya vuelto.
        if (falla.conexion_perdida())
            qApp->installEventFilter(this);
        else
            Timer3->start();
        throw;
    }
    if (CMensajes.IsEmpty()) {
        Timer3->start();
        return;
    }
    for (; !CMensajes.Eof(); CMensajes.Next())
        AdvAlertWindow2->agregue(
            CMensajes.FieldByName("MENS_ID").texto() + "<br><b>" +
                CMensajes.FieldByName("MENS_MENSAJE").texto().toHtmlEscaped() +
                "<br>De : " + CMensajes.FieldByName("MENS_AUTOR").texto().toHtmlEscaped() +
                "</b><br>Haga clic para marcar como leído",
            color_de_nivel(CMensajes.FieldByName("MENS_NIVEL").entero()));
    AdvAlertWindow2->muestre();
}

qint64 VigiaMensajes::id_del_aviso() const {
    return AdvAlertWindow2->texto_actual().section("<br>", 0, 0).toLongLong();
}

void VigiaMensajes::marque_leido(qint64 id) {
    CMensajes.Close();
    CMensajes.Execute("update mensajeria set mens_leido = 'S' where mens_id = " +
                      QString::number(id));
}

void VigiaMensajes::AdvAlertWindow2AlertClick() {
    marque_leido(id_del_aviso());
    AdvAlertWindow2->cierre();
}

void VigiaMensajes::AdvAlertWindow2PopupClick() {
    const qint64 id = id_del_aviso();
    const QString autor =
        CMensajes
            .valor_unico("select mens_autor from mensajeria where mens_id = " + QString::number(id))
            .texto();
    marque_leido(id);
    AdvAlertWindow2->cierre();
    pantallas().abrir("Tfmensaje", RespondeMensaje{QString::number(id), autor});
}
