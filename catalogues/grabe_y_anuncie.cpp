#include "catalogues/grabe_y_anuncie.h"

#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/historia_avisos.h"

namespace {

/// La fila nueva en la que no se digitó nada se descarta, y no impide grabar las demás; la única
/// dice lo que le falta.
void termine(ConjuntoDatos& conjunto) {
    if (conjunto.State() == Estado::Insercion && !conjunto.Modified() && conjunto.RecordCount() > 1)
        conjunto.Cancel();
    conjunto.CheckBrowseMode();
}

} // namespace

int grabe_y_anuncie(ConjuntoDatos& conjunto, const QString& aviso, int errores_maximos) {
    for (ConjuntoDatos* detalle : conjunto.anidados())
        termine(*detalle);
    termine(conjunto);
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
