#include "herramientas/demostracion.h"

#include "herramientas/administracion.h"
#include "herramientas/demo_ano.h"
#include "herramientas/demo_cierres.h"
#include "herramientas/demo_definibles.h"
#include "herramientas/demo_documentos.h"
#include "herramientas/demo_formatos.h"
#include "herramientas/demo_impuestos.h"
#include "herramientas/demo_intercambio.h"

namespace {

// Medido en el año normal: lo que pasa una vez al mes y lo que crece con el volumen pedido. El
// volumen queda apenas corto y las últimas ventas de diciembre lo completan.
constexpr qint64 kRenglonesFijos = 3720, kRenglonesVariables = 10900;

void registre_usuarios(Conexion& general, Conexion& compania, int ano) {
    DatosUsuario admin{QStringLiteral("ADMIN"), QStringLiteral("Mónica Vélez Aristizábal"), true, 0,
                       ano};
    DatosUsuario auxiliar{QStringLiteral("AUXILIAR"), QStringLiteral("Carolina Suárez Peña"), false,
                          0, ano};
    for (const DatosUsuario& u : {admin, auxiliar}) {
        registre_usuario_general(general, u);
        registre_usuario_compania(compania, u);
    }
    otorgue(compania, auxiliar.codigo, kModuloContabilidad, opciones_contabilidad(), true);
    otorgue(compania, auxiliar.codigo, kModuloContabilidad, opciones_negadas_demo(), false);
}

} // namespace

QVector<int> opciones_negadas_demo() {
    return {2, 12, 32, 42, 50, 60, 80, 90, 95, 96, 97, 98, 99, 140, 141, 142, 143, 144};
}

ResultadoDemostracion genere_demostracion(Conexion& general, Conexion& compania,
                                          const OpcionesDemostracion& opciones,
                                          const std::function<void(const QString&)>& aviso) {
    registre_usuarios(general, compania, opciones.ano);
    const CatalogosDemo catalogos = siembre_catalogos(compania);
    AnoDemo ano(compania, catalogos, opciones.semilla, opciones.ano);
    siembre_formatos(compania);
    siembre_informes_definibles(compania);
    siembre_impuestos(compania, opciones.ano);
    ano.abra();
    const qint64 milesimas =
        opciones.renglones > 0
            ? qMax<qint64>(1, (opciones.renglones - kRenglonesFijos) * 1000 / kRenglonesVariables)
            : 1000;
    for (int mes = 1; mes <= 12; ++mes) {
        ano.mes(mes, milesimas);
        if (aviso)
            aviso(QStringLiteral("mes %1: %2 renglones").arg(mes).arg(ano.libro().renglones()));
    }
    ano.complete(opciones.renglones);
    ano.ajuste();
    cierre_impuestos(compania, catalogos, opciones.ano);
    siembre_cierres(compania, opciones.ano);
    siembre_intercambio(compania, opciones.ano);
    const DocumentosDemo pendientes =
        siembre_documentos(compania, catalogos, opciones.semilla, opciones.ano + 1);
    const auto filas = [&compania](const char* tabla) {
        return compania.consulte(QLatin1String("select count(*) from ") + QLatin1String(tabla))
            .entero();
    };
    return {filas("comprobante_encabezado"), filas("comprobante_detalle"),
            filas("comprobante_detalle_niif"), pendientes.documentos, pendientes.defectuosos};
}
