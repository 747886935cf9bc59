#include "sesion/copias_comprobante.h"

#include "datos/firebird/reloj.h"
#include "libro/copias.h"
#include "sesion/peticiones.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/dialogos.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/pantalla.h"

#include <QMenu>

namespace {

constexpr int kCrearComprobante = 30;

QString pregunta(const Comprobante& original, Copia clase, const QDate& hoy) {
    return QStringLiteral("Se grabará un comprobante nuevo con la fecha de hoy, %1, que %2 %3. "
                          "Desea continuar?")
        .arg(hoy.toString(QStringLiteral("yyyy/MM/dd")),
             clase == Copia::Reverso ? "reversa en los dos libros" : "repite en los dos libros",
             nombre_de_comprobante(original));
}

void copie(qint64 id, Copia clase) {
    if (id == 0 || !fdm().exija_acceso(kCrearComprobante))
        return;
    const auto original = lea_comprobante(fdm().Quorvex, id);
    if (!original) {
        muestre_mensaje("No se encontró el comprobante solicitado.");
        return;
    }
    const QDate hoy = reloj().hoy();
    if (!pregunte_con_no(pregunta(*original, clase, hoy)))
        return;
    const ResultadoGrabacion r =
        grabe_copia(fdm().Quorvex, id, clase, hoy.toString(QStringLiteral("yyyyMMdd")),
                    fdm().usuario, fdmcnt().ajustes_libro());
    if (r.clase == ResultadoGrabacion::Rehusado) {
        QStringList razones;
        for (const Rechazo& x : r.rechazos)
            if (!razones.contains(x.texto))
                razones << x.texto;
        muestre_mensaje(razones.mid(0, 10).join('\n'));
    } else if (r.clase == ResultadoGrabacion::Fallo) {
        muestre_error(r.falla);
    } else {
        anuncie(
            fdm().barra(),
            QStringLiteral("Grabado %1 %2 %3").arg(original->tipo, original->prefijo, r.numero));
        emit fdmcnt().balance_por_recalcular();
        abra_comprobante(QString::number(r.id));
    }
}

} // namespace

void ofrezca_copias(Pantalla& pantalla, const QVector<QMenu*>& menus,
                    std::function<qint64()> cual) {
    const struct {
        Copia clase;
        int tecla;
        const char *nombre, *texto;
    } ordenes[] = {
        {Copia::Duplicado, Qt::Key_D, "Duplicar1", "&Duplicar comprobante"},
        {Copia::Reverso, Qt::Key_I, "Reversar1", "&Reversar comprobante"},
    };
    for (QMenu* menu : menus)
        menu->addSeparator();
    for (const auto& o : ordenes) {
        const auto haga = [cual, clase = o.clase] { copie(cual(), clase); };
        pantalla.tecla(o.tecla, Qt::ControlModifier, QString::fromUtf8(o.texto + 1), haga);
        for (QMenu* menu : menus) {
            QAction* a = menu->addAction(QString::fromUtf8(o.texto) + "\tCtrl+" + QChar(o.tecla));
            a->setObjectName(QLatin1String(o.nombre));
            QObject::connect(a, &QAction::triggered, &pantalla,
                             [p = &pantalla, haga] { p->ejecute(haga); });
        }
    }
}
