#pragma once
// Abre una por una las pantallas registradas que tienen ventana, como lo haría quien las llama.
#include "pantallas_de_prueba.h"
#include "sesion_de_prueba.h"

#include <QScopedValueRollback>

/// Corre las órdenes en la base, entra y da a `haga` cada pantalla ya abierta; después la cierra.
/// `ventana`: tamaño del formulario principal, en píxeles independientes de la escala. Sin datos
/// preparados solo abre las que se abren solas, como en una compañía nueva.
inline void con_cada_pantalla(SesionDePrueba& s, const QStringList& ordenes, QSize ventana,
                              const std::function<void(Pantalla*)>& haga, bool con_datos = true) {
    if (con_datos)
        const PantallasDePrueba preparadas(s.bases);
    s.bases.ejecute(ordenes);
    s.entre().resize(ventana);
    for (const QString& n : pantallas().nombres()) {
        const Encargo encargo = PantallasDePrueba::encargo(n);
        if (PantallasDePrueba::imprime(n) || (!con_datos && !encargo.vacio()))
            continue;
        if (PantallasDePrueba::es_modal(n)) {
            s.dialogos.espere_modal(n, [&](QWidget* w) {
                haga(w->findChild<Pantalla*>(n));
                w->close();
            });
            pantallas().abrir_modal(n, encargo);
        } else {
            Pantalla* p = pantallas().abrir(n, encargo);
            QVERIFY2(p, qPrintable(n));
            haga(p);
            // La revisión de una propuesta pone en edición cada línea a la que llega, y pregunta.
            const QScopedValueRollback<bool> sale(Guardia::unica().despedida, n == "Tfcontabiliza");
            QVERIFY2(p->close(), qPrintable(n));
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
