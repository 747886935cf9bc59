#pragma once
// Abre una por una las pantallas registradas que tienen ventana, a 1366x768.
#include "pantallas_de_prueba.h"
#include "sesion_de_prueba.h"

/// `haga` puede cerrarla. Lo que quede abierto se cierra contestando que sí a las salidas.
inline void con_cada_pantalla(SesionDePrueba& s, const std::function<void(Pantalla*)>& haga) {
    const PantallasDePrueba preparadas(s.bases);
    s.entre().resize(1366, 768);
    const QScopedValueRollback<bool> sale(Guardia::unica().despedida, true);
    for (const QString& n : pantallas().nombres()) {
        if (preparadas.imprime(n))
            continue;
        if (preparadas.es_modal(n)) {
            Interlocutor modal(Interlocutor::EnSilencio);
            modal.espere_modal(n, [&](QWidget* w) {
                haga(w->findChild<Pantalla*>(n));
                w->close();
            });
            pantallas().abrir_modal(n, preparadas.encargo(n));
        } else {
            const QPointer<Pantalla> p(pantallas().abrir(n, preparadas.encargo(n)));
            QVERIFY2(p, qPrintable(n));
            agote_eventos();
            haga(p);
            if (p)
                p->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
