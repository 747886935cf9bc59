#include "sesion/tercero_nuevo.h"

#include "sesion/tfdm.h"
#include "sesion/tfdmter.h"
#include "toolkit/dialogos.h"

bool cree_tercero_digitado(Pantalla& este, const QString& nit, Recibo<PideNuevoTercero> reciba) {
    if (!fdm().valor<Llave::LetrasEnNit>()) {
        try {
            Tfdmter::dv(nit); // la ficha lo calcula al recibirlo
        } catch (const ErrorDatos&) {
            muestre_mensaje(QStringLiteral("El NIT %1 no se puede crear: la compañía solo admite "
                                           "cifras en el NIT, hasta 15.")
                                .arg(nit));
            return false;
        }
    }
    cree_tercero(este, nit, std::move(reciba));
    return true;
}
