#include "tax/cuentas_configuradas.h"

#include "datos/recordset/pregunta_en_campo.h"
#include "libro/catalogos.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "toolkit/dialogos.h"

namespace {

/// La respuesta llega cuando la fila pudo quedar fuera de edición: se abre otra vez.
void reciba(Campo& campo, const QString& cuenta) {
    if (!campo.conjunto().editando())
        campo.conjunto().Edit();
    campo = cuenta;
}

} // namespace

void atienda_cuenta(Pantalla& pantalla, Campo& campo, std::function<bool(const QString&)> revise,
                    Libro libro) {
    const auto pregunta = std::make_shared<PreguntaEnCampo>();
    campo.al_cambiar([&pantalla, pregunta, revise = std::move(revise), libro](Campo& c) {
        if (c.vacio() || pregunta->reponiendo())
            return;
        if (const auto buscada = pregunta->tome(c))
            escoja_cuenta(
                pantalla, libro, *buscada, [&c](const QString& cuenta) { reciba(c, cuenta); },
                c.texto());
        else if (!revise(c.texto()))
            c.limpie();
    });
    pregunta->atienda(campo);
}

bool existe_o_se_crea(const QString& cuenta) {
    const auto rechazo = revise_cuenta(fdm().Quorvex, Libro::Decreto2649, cuenta);
    if (rechazo && rechazo->motivo == Motivo::CuentaInexistente)
        return fdmcnt().valide_cuenta(cuenta);
    // Un grupo, o el comienzo de varias, también sirve; lo que no es de ninguna no sumaría nada.
    const char* const alguna = "select first 1 1 from cuentas where substring(cuen_cod from 1 for "
                               "char_length(cast(? as varchar(20)))) = cast(? as varchar(20))";
    if (!rechazo || !fdm().Quorvex.consulte(alguna, {Valor(cuenta), Valor(cuenta)}).nulo())
        return true;
    muestre_mensaje("La cuenta " + cuenta + " no existe.");
    return false;
}

bool existe_cuenta(const QString& cuenta, const QString& mensaje, Libro libro) {
    if (!fdmcnt().nom_cuenta(cuenta, libro).isEmpty())
        return true;
    muestre_mensaje(mensaje);
    return false;
}
