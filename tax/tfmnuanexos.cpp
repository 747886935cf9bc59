#include "tax/tfmnuanexos.h"

#include "sesion/tfdm.h"

Tfmnuanexos::Tfmnuanexos() : MenuBotones("Tfmnuanexos", "Anexos") {
    static const struct {
        const char *nombre, *texto, *pantalla;
        int acceso;
    } kOpciones[] = {{"SBCertificados", "Certificados de retención", "Tfrngcertificados", 130},
                     {"SBDetalle", "Detalle certificado", "Tfrngcertificadet", 130},
                     {"SBMedios", "Medios magnéticos XML", "Tfmediosmag13", 131},
                     {"SBBogota", "Hacienda Bogotá", "Tfmediosmagbog", 132},
                     {"SBExogena", "Inf. Exógena CSV", "Tfmediosmag", 131},
                     {"SBSupersociedades", "Supersociedades", "Tfsupersociedades", 131}};
    for (const auto& o : kOpciones)
        opcion(o.nombre, o.texto, "x-office-document", [&o] {
            if (fdm().exija_acceso(o.acceso))
                pantallas().abrir(o.pantalla);
        });
}
