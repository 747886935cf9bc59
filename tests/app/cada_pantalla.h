#pragma once
// Abre una por una las pantallas registradas que tienen ventana, como lo haría quien las llama.
#include "pantallas_de_prueba.h"
#include "sesion_de_prueba.h"

inline QString nombre_de(const QWidget* w) {
    return w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className())
                                     : w->objectName();
}
/// Hace fallar la prueba si hay faltas, después de decirlas todas.
inline void diga_faltas(const QStringList& faltas) {
    for (const QString& f : faltas)
        qWarning("%s", qPrintable(f));
    QVERIFY2(faltas.isEmpty(), qPrintable(QString("%1 faltas").arg(faltas.size())));
}

/// Corre las órdenes en la base, entra y da a `haga` cada pantalla ya abierta; después la cierra.
/// `ventana`: tamaño del formulario principal, en píxeles independientes de la escala. Sin datos
/// preparados solo abre las que se abren solas, como en una compañía nueva. `la_toca`: `haga` la
/// cambia o la cierra, y lo que quede abierto se cierra contestando que sí a las salidas.
inline void con_cada_pantalla(SesionDePrueba& s, const QStringList& ordenes, QSize ventana,
                              const std::function<void(Pantalla*)>& haga, bool con_datos = true,
                              bool la_toca = false) {
    if (con_datos)
        const PantallasDePrueba preparadas(s.bases);
    s.bases.ejecute(ordenes);
    s.entre().resize(ventana);
    for (const QString& n : pantallas().nombres()) {
        const Encargo encargo = PantallasDePrueba::encargo(n);
        const QString sola = qEnvironmentVariable("QUORVEX_PANTALLA"); // para mirar una
        if ((!sola.isEmpty() && sola != n) || PantallasDePrueba::imprime(n) ||
            (!con_datos && !PantallasDePrueba::sirve_vacia(n)))
            continue;
        // La revisión de una propuesta pone en edición cada línea a la que llega, y pregunta.
        const QScopedValueRollback<bool> sale(Guardia::unica().despedida,
                                              la_toca || n == "Tfcontabiliza");
        const auto muestre_modal = [&](Interlocutor& modal) {
            modal.espere_modal(n, [&](QWidget* w) {
                haga(w->findChild<Pantalla*>(n));
                w->close();
            });
            pantallas().abrir_modal(n, encargo);
        };
        if (PantallasDePrueba::es_modal(n) && la_toca) {
            Interlocutor callado(Interlocutor::EnSilencio);
            muestre_modal(callado);
        } else if (PantallasDePrueba::es_modal(n)) {
            muestre_modal(s.dialogos);
            s.principal->activateWindow(); // si no, ninguna de las que siguen tiene el foco
        } else {
            const QPointer<Pantalla> p(pantallas().abrir(n, encargo));
            QVERIFY2(p, qPrintable(n));
            agote_eventos();
            haga(p);
            QVERIFY2(!p || p->close(), qPrintable(n));
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
/// Las que `haga` toca, con los datos preparados, a 1366x768.
inline void con_cada_pantalla(SesionDePrueba& s, const std::function<void(Pantalla*)>& haga) {
    con_cada_pantalla(s, {}, {1366, 768}, haga, true, true);
}
