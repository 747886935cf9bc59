#include "periodend/tfmnucierre.h"

#include "periodend/pch.h"

Tfmnucierre::Tfmnucierre() : MenuBotones("Tfmnucierre", "Automáticos") {
    static const struct {
        const char *nombre, *texto, *icono, *pantalla;
        int opcion;
    } kOpciones[] = {
        {"SBResultados", "Cierre &Resultados    ", "x-office-calendar", "Tfbusccieranual", 72},
        {"SBTerceros", "Cierre de &Terceros   ", "system-users", "Tfbusccierter", 71},
        {"SBAjustes", "Ajustes inflación     ", "accessories-calculator", "Tfbuscajustinf", 70},
        {"SBRegistro", "Registro a&utomático", "system-run", "Tfbuscregiauto", 73},
    };
    for (const auto& o : kOpciones)
        opcion(o.nombre, o.texto, o.icono, [o] {
            if (fdm().exija_acceso(o.opcion))
                pantallas().abrir(o.pantalla);
        });
}
