#include "catalogues/grabe_y_anuncie.h"

#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/historia_avisos.h"

int grabe_y_anuncie(ConjuntoDatos& conjunto, const QString& aviso, int errores_maximos) {
    conjunto.CheckBrowseMode();
    for (ConjuntoDatos* detalle : conjunto.anidados())
        detalle->CheckBrowseMode();
    const bool hay = conjunto.ChangeCount() > 0;
    const int errores = conjunto.ApplyUpdates(errores_maximos);
    if (hay && errores == 0)
        anuncie(fdm().barra(), aviso);
    return errores;
}

void borre_y_anuncie(ConjuntoDatos& consulta, const QString& sql, const QString& aviso) {
    if (consulta.Execute(sql) > 0)
        anuncie(fdm().barra(), aviso);
}
