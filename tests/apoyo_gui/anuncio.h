#pragma once
// Quien pega varias celdas lee primero lo que va a pasar.
#include "apoyo_gui/fotos.h"
#include "apoyo_gui/interlocutor.h"

#include <QPushButton>
#include <QTreeWidget>

/// Espera el anuncio del pegado y lo acepta con Enter, que solo pega si todo entra.
inline void espere_anuncio(Interlocutor& i) {
    i.espere_modal("anuncio_pegado",
                   [](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
}

/// Contesta el anuncio del pegado con el botón de ese rótulo, y guarda lo que dice.
inline void conteste_anuncio(Interlocutor& i, const QString& boton,
                             QStringList* rehusadas = nullptr, QStringList* columnas = nullptr) {
    i.espere_modal("anuncio_pegado", [=](QWidget* w) {
        tome_foto(w, "anuncio");
        const auto filas = [w](const char* tabla) {
            QStringList lista;
            if (auto* t = w->findChild<QTreeWidget*>(tabla))
                for (int f = 0; f < t->topLevelItemCount(); ++f)
                    lista << t->topLevelItem(f)->text(0) + ": " + t->topLevelItem(f)->text(1);
            return lista;
        };
        if (rehusadas)
            *rehusadas = filas("rehusadas");
        if (columnas)
            *columnas = filas("columnas");
        for (QPushButton* b : w->findChildren<QPushButton*>())
            if (b->text().remove('&') == boton)
                return QTest::keyClick(b, Qt::Key_Space);
        QFAIL("sin ese botón");
    });
}
