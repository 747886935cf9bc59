#include "exchange/tfmnumantenim.h"

#include "exchange/pch.h"
#include "toolkit/estilo.h"

namespace {

struct Entrada {
    const char *nombre, *texto, *icono;
    int opcion; ///< 0: solo los administradores
    const char* pantalla;
};

constexpr Entrada kEntradas[] = {
    {"SBEstructura", "&Estructura ", "preferences-system", 90, "Tfestructura"},
    {"SBCategorias", "&Categorias ", "user-bookmarks", 91, "Tfconceptos"},
    {"SBImportar", "Importar datos ", "document-open", 92, "Tfimportarinv1"},
    {"SBExportar", "Exportar datos ", "document-send", 93, "Tfexportar"},
    {"SBRecalculo", "Recálculo de saldos ", "view-refresh", 94, "Tfchequeosaldos"},
    {"SBDetalle", "Cambiar detalle cuenta ", "document-properties", 95, "Tfcambiacate"},
    {"SBAuxiliar", "Abrir auxiliar ", "list-add", 96, "Tfcreactamov"},
    {"SBCuenta", "Reemplazar cuenta ", "edit-find-replace", 97, "Tfcambictamov"},
    {"SBTercero", "Reemplazar tercero ", "system-users", 98, "Tfcambitermov"},
    {"SBBorrarMov", "Borrar movimientos ", "edit-delete", 99, "Tfborramov"},
    {"SBBorrarPlan", "Borrar plan de cuentas ", "edit-clear-all", 90, "Tfborractas"},
    {"SBCopiaCuentas", "Copiar cuentas a otra compañía ", "edit-copy", 90, "Tfcopiacatalogo"},
    {"SBCopiaTerceros", "Copiar terceros a otra compañía ", "edit-copy", 90, "Tfcopiaterceros"},
    {"SBRespaldo", "Respaldo ", "document-save-as", 0, "Tfrespaldo"},
};

bool permitida(const Entrada& e) {
    if (e.opcion > 0)
        return fdm().exija_acceso(e.opcion);
    if (!fdm().administrador)
        muestre_mensaje(kAccesoNegado);
    return fdm().administrador;
}

} // namespace

Tfmnumantenim::Tfmnumantenim() : MenuBotones("Tfmnumantenim", "Mantenimiento") {
    for (const Entrada& e : kEntradas) {
        const QString pantalla = QLatin1String(e.pantalla);
        QPushButton* b = opcion(QLatin1String(e.nombre), QString::fromUtf8(e.texto),
                                QLatin1String(e.icono), [&e, pantalla] {
                                    if (!permitida(e))
                                        return;
                                    if (pantalla == "Tfconceptos")
                                        pantallas().abrir(pantalla, AbreLista{true});
                                    else
                                        pantallas().abrir(pantalla);
                                });
        // Son muchas: más bajas que en los demás menús, caben todas en una pantalla pequeña.
        b->setMinimumSize(escalado(280), escalado(30));
        b->setMaximumHeight(escalado(32));
        b->setIconSize({escalado(20), escalado(20)});
    }
}
