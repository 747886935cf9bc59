#pragma once
// Quien pega varias celdas lee primero lo que va a pasar.
#include "apoyo_gui/interlocutor.h"

/// Espera el anuncio del pegado y lo acepta con Enter, que solo pega si todo entra.
inline void espere_anuncio(Interlocutor& i) {
    i.espere_modal("anuncio_pegado",
                   [](QWidget* w) { QTest::keyClick(w->focusWidget(), Qt::Key_Return); });
}
