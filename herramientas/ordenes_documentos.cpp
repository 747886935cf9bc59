// Cargar y listar documentos e interfaces contables donde no están los módulos hermanos.
#include "datos/firebird/concuerde.h"
#include "herramientas/documentos.h"
#include "herramientas/factura_electronica.h"
#include "herramientas/interfaces.h"
#include "herramientas/ordenes.h"

namespace {

QDate fecha_pedida(const Argumentos& a, const char* opcion) {
    const QString texto = a.valor(QLatin1String(opcion));
    const QDate fecha = QDate::fromString(QString(texto).replace('-', '/'), "yyyy/MM/dd");
    if (!texto.isEmpty() && !fecha.isValid())
        throw ErrorDeUso(
            QStringLiteral("La opción --%1 es una fecha aaaa/mm/dd.").arg(QLatin1String(opcion)));
    return fecha;
}

void documentos(const Sesion& s) {
    const Argumentos& a = s.argumentos();
    const QString archivo = a.valor(QStringLiteral("cargar")),
                  anular = a.valor(QStringLiteral("anular"));
    const QStringList facturas =
        a.tiene(QStringLiteral("electronica"))
            ? QStringList{a.valor(QStringLiteral("electronica"))} + a.sueltos()
            : QStringList();
    if (int(!archivo.isEmpty()) + int(!anular.isEmpty()) + int(!facturas.isEmpty()) > 1)
        throw ErrorDeUso(QStringLiteral("Escoja una sola: --cargar, --electronica o --anular."));
    Conexion conexion;
    conexion.conectar(s.compania());
    if (!archivo.isEmpty()) {
        diga(concuerde(cargue_documentos(conexion, archivo), "%1 documento cargado.",
                       "%1 documentos cargados."));
    } else if (!anular.isEmpty()) {
        anule_documento(conexion, anular, conexion.parametros().usuario);
        diga(QStringLiteral("Documento %1 anulado.").arg(anular));
    } else if (!facturas.isEmpty()) {
        OpcionesFactura opciones;
        opciones.concepto = a.valor(QStringLiteral("concepto"), opciones.concepto);
        opciones.prefijo = a.valor(QStringLiteral("prefijo"), opciones.prefijo);
        const QString centro = a.valor(QStringLiteral("centro"));
        opciones.proyecto = centro.section('-', 0, 0);
        opciones.centro = centro.section('-', 1);
        for (const QString& hecho : cargue_facturas_electronicas(conexion, facturas, opciones))
            diga(hecho);
    } else {
        FiltroDocumentos filtro;
        filtro.desde = fecha_pedida(a, "desde");
        filtro.hasta = fecha_pedida(a, "hasta");
        filtro.tipo = a.entero(QStringLiteral("tipo"), 0, 1, 9999);
        filtro.pendientes = a.tiene(QStringLiteral("pendientes"));
        diga(liste_documentos(conexion, filtro));
    }
}

void interfaz(const Sesion& s) {
    Conexion conexion;
    conexion.conectar(s.compania());
    if (const QString archivo = s.argumentos().valor(QStringLiteral("cargar")); !archivo.isEmpty())
        diga(concuerde(cargue_interfaces(conexion, archivo), "%1 interfaz cargada.",
                       "%1 interfaces cargadas."));
    else
        diga(liste_interfaces(conexion, s.argumentos().valor(QStringLiteral("familia")).toUpper()));
}

} // namespace

QVector<Orden> ordenes_de_documentos() {
    return {
        {"documentos",
         "carga documentos por contabilizar, o los lista",
         "--compania 001 [--cargar ARCHIVO | --electronica FACTURA.xml... [--concepto GASTO:CLASE]"
         " [--prefijo 0001] [--centro 0001-0001] |"
         " --anular 31/0001/000123]\n    [--desde aaaa/mm/dd] [--hasta aaaa/mm/dd] [--tipo 31]"
         " [--pendientes]",
         {"compania", "cargar", "electronica", "concepto", "prefijo", "centro", "anular", "desde",
          "hasta", "tipo"},
         {"pendientes"},
         documentos},
        {"interfaz",
         "carga interfaces contables, o las lista",
         "--compania 001 [--cargar ARCHIVO] [--familia VENTAS]",
         {"compania", "cargar", "familia"},
         {},
         interfaz},
    };
}
