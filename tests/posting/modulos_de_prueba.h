#pragma once
// Los módulos de datos de la suite, que viven lo que la prueba, y cómo se atienden sus pantallas.
#include "apoyo_gui/sesion_gui.h"
#include "posting/documentos_de_prueba.h"
#include "sesion/modulos_suite.h"

struct ModulosDePrueba {
    TfdmInv inv;
    Tfdmcmp cmp;
    Tfdmfact fact;
    Tfdmcar car;
    Tfdmcxp cxp;
    Tfdmcja cja;
    Tfdmbnc bnc;
    Tfdmnomina nomina;
};

/// Espera la pantalla modal y corre `atienda` con ella; debe cerrarla.
template <class T>
void espere_pantalla(Interlocutor& i, const char* nombre, std::function<void(T&)> atienda) {
    i.espere_modal(nombre, [=](QWidget* w) {
        con_foco();
        agote_eventos();
        atienda(*w->findChild<T*>(nombre));
    });
}
