#include "app/comandos.h"

namespace {

constexpr Derecho libre;
constexpr Derecho pide(int opcion) {
    return {Permiso::Entrada, opcion};
}
constexpr Derecho de_pantalla(int opcion) {
    return {Permiso::Pantalla, opcion};
}
constexpr Derecho de_submenu(int opcion) {
    return {Permiso::Submenu, opcion};
}
const QString kMantenimiento = kModoMantenimiento;

struct Grupo {
    QString menu;
    QVector<Comando> comandos; ///< con la ruta relativa al menú
};

QVector<Comando> reuna(const QVector<Grupo>& grupos) {
    QVector<Comando> todos;
    for (const Grupo& g : grupos)
        for (Comando c : g.comandos) {
            c.ruta = g.menu + QLatin1Char('/') + c.ruta;
            todos.append(c);
        }
    return todos;
}

// clang-format off
QVector<Grupo> ordenes_de_registro() {
    return {
    {"Cuentas", {
        {"Nueva cuenta", "Nuevacuenta1", "Ctrl+T", de_pantalla(0), "Tfnvacuenta", "", "list-add"},
        {"Mantenimiento de cuentas", "Man1", "Ctrl+F4", de_pantalla(1),
         "Tfcuentas", kMantenimiento, "document-properties"},
        {"Ver balance de prueba", "Verbalancedeprueba1", "Shift+F9", pide(150),
         "Tfbalanceprueba", "", "accessories-calculator"},
    }},
    {"Terceros", {
        {"Nuevo tercero", "Nuevotercero1", "Ctrl+R", pide(10),
         "Tfnvotercero", "", "contact-new", Apertura::Propia},
        {"Regitro de terceros", "Regitrodeterceros1", "Ctrl+F6", pide(11),
         "Tfterceros", kMantenimiento, "system-users", Apertura::Propia},
    }},
    {"Comprobantes", {
        {"Nuevo comprobante contable", "Nuevocomprobantecontable1", "Ctrl+B", de_pantalla(30),
         "Tfmovimien", "", "document-new"},
        {"Busqueda de comprobantes", "Busquedadecomprobantes1", "Shift+F1", de_pantalla(31),
         "Tfbuscomproba", "", "edit-find"},
        {"Impresión masiva", "Impresinmasica1", "", libre,
         "Tfimprmascomproba", "", "document-print", Apertura::Modal},
    }},
    {"Automáticos/Ajustes por inflación", {
        {"Generar nuevo ajuste", "Generarnuevo1", "", libre, "Tfajustesinf"},
        {"Consulta ajustes", "Consultaajustes1", "Shift+F2", pide(70), "Tfbuscajustinf"},
    }},
    {"Automáticos/Cierre de terceros", {
        {"Realizar cierre", "Realizarcierre1", "", libre, "Tfcierreter"},
        {"Consultar el cierre", "Consultarelcierre1", "Shift+F3", pide(71), "Tfbusccierter"},
    }},
    {"Automáticos/Cierre de resultados", {
        {"Realizar cierre anual", "Realizarcierre2", "", libre, "Tfcierreanual"},
        {"Consultar cierre anual", "Consultarelcierre2", "Shift+F4", pide(72), "Tfbusccieranual"},
    }},
    {"Automáticos", {
        {"Registro de automáticos", "Registrodeautomticos1", "", pide(73), "Tfbuscregiauto"},
    }},
    };
}

QVector<Grupo> ordenes_de_herramientas() {
    return {
    {"Herramientas", {
        {"Centros de costo", "Centrosdecosto1", "", libre, "Tfcentros", "", "folder"},
        {"Presupuesto", "Presupuesto1", "", de_pantalla(51),
         "Tfpresupuesto", "", "x-office-spreadsheet"},
        {"Numeración", "Numeracin1", "", de_pantalla(60), "Tftipodoc", "", "view-sort-ascending"},
        {"Saldos iniciales", "Saldosiniciales1", "", de_pantalla(80),
         "Tfsaldiniciales", "", "x-office-spreadsheet"},
        {"Documentos sin contabilizar", "Comprobantessincontabilizar1", "Shift+F10", libre,
         "Tfsincontab", "", "appointment-missed", Apertura::Modal},
        {"Documentos en cuenta descuadres", "Documentosencuentadescuadres1", "", libre,
         "Tfauxiliar", kModoDescuadres, "dialog-warning"},
        {"Causar diferencia en cambio", "Causardiferenciaencambio1", "", libre, "Tfcausadifc"},
    }},
    {"Herramientas/Plantillas", {
        {"Crear nueva plantilla", "Crearnuevaplantilla1", "", pide(40), "Tfplantilla"},
        {"Buscar plantillas", "Buscarplantillas1", "Shift+F6", de_pantalla(41),
         "Tfbuscplantilla", kMantenimiento},
    }},
    };
}

QVector<Grupo> ordenes_de_listados() {
    return {
    {"Informes/Catálogos", {
        {"Cuentas", "Cuentas2", "", pide(100), "Tfcatacuentas"},
        {"Terceros", "erceros2", "", pide(101), "Tfcataterceros"},
        {"Centros", "Centros1", "", pide(102), "Tfimprcentros", "", "", Apertura::Informe},
        {"Tipo comprobante", "ipocomprobante1", "", pide(103), "Tipos", "", "", Apertura::Informe},
        {"Plantillas", "Plantillas2", "", pide(104), "Plantillas", "", "", Apertura::Informe},
    }},
    {"Informes/Auxiliares", {
        {"Por cuenta", "Porcuenta1", "", pide(110), "Tfrngauxiliarcta"},
        {"Por tercero", "Portercero1", "", pide(111), "Tfrngauxiliarter"},
        {"Por centro", "Porcentro1", "", pide(112), "Tfrngauxiliarcent"},
        {"Consecutivos", "Consecutivos1", "", pide(113), "Tfrngconsecutivos"},
        {"Cronológico", "Cronolgico1", "", pide(114), "Tfrngcronologicos"},
        {"Diario detallado", "Diriodetallado1", "", pide(115), "Tfrngcomprodiario"},
    }},
    };
}

QVector<Grupo> ordenes_de_estados() {
    return {
    {"Informes/Estados Financieros/Generales", {
        {"Balance general", "Balancegeneral1", "", pide(120), "Tfrngbalancegeneral", "G"},
        {"Estado de resultados", "Estadoderesultados1", "", pide(120), "Tfrngresulgeneral", "G"},
        {"Cambios al patrimonio", "Cambiosalpatrimonio1", "", pide(120), "Tfcambiopatr", "P"},
        {"Cambios situación financiera", "Cambiossituacinfinanciera1", "", pide(120),
         "Tfcambiopatr", "S"},
        {"Flujo de efectivo", "Flujodeefectivo1", "", pide(120), "Tfcambiopatr", "F"},
    }},
    {"Informes/Estados Financieros/Detallados", {
        {"Balance detallado", "Balancedetallado1", "", de_submenu(121), "Tfrngbalancegeneral", "D"},
        {"Balance por terceros", "Balanceporterceros1", "", de_submenu(121),
         "Tfrngbalancetercero", "D"},
        {"Balance por centros", "Balanceporcentros1", "", de_submenu(121),
         "Tfrngbalancecentro", "D"},
        {"Balance de prueba", "Balancedeprueba1", "", de_submenu(121), "Tfrngbalancegeneral", "P"},
        {"B. prueba por terceros", "Bpruebaporterceros1", "", de_submenu(121),
         "Tfrngbalancetercero", "R"},
        {"Estado de resultados", "Estadodereultados1", "", de_submenu(121),
         "Tfrngresulgeneral", "D"},
        {"Resultados por tercero", "Resultadosportercero1", "", de_submenu(121),
         "Tfrngresultadotercero", },
        {"Resultados por centros", "Resultadosporcentros1", "", de_submenu(121),
         "Tfrngresultadocentro", },
    }},
    {"Informes/Estados Financieros/Comparativos", {
        {"Balance prueba acumulado", "Balancepruebaacumulado1", "", de_submenu(122),
         "Tfrngbalanceacumulado", },
        {"Comparativo anual", "Comparativoanual1", "", de_submenu(122), "Tfrngbalanceanual"},
        {"Compara dos periodos", "Comparadosperiodos1", "", de_submenu(122),
         "Tfrngbalancecomparativo", },
        {"Comparativo por centros", "Comparativoporcentros1", "", de_submenu(122),
         "Tfrngcomparacentro", },
    }},
    };
}

QVector<Grupo> ordenes_de_anexos() {
    return {
    {"Informes/Anexos", {
        {"Cetificado de retenciones", "Cetificadoderetenciones1", "", pide(130),
         "Tfrngcertificados", },
        {"Medios magnéticos", "Mediosmagnticos1", "", pide(131), "Tfmediosmag"},
    }},
    {"Informes/Libros oficiales", {
        {"Mayor y balance", "Mayorybalance1", "", pide(140), "Tfrngoficiales", "M"},
        {"Inventario y balance", "Inventarioybalance1", "", pide(141), "Tfrngoficiales", "I"},
        {"Libro diario", "Librodiario1", "", pide(142), "Tfrngoficiales", "D"},
        {"Numeración hojas", "Numeracinhojas1", "", pide(143), "Tfnumeracion"},
    }},
    };
}

QVector<Grupo> ordenes_de_mantenimiento() {
    return {
    {"Mantenimiento", {
        {"Estructura", "Estructura1", "", pide(90), "Tfestructura", "", "preferences-system"},
        {"Categorías", "Categorias1", "", pide(91),
         "Tfconceptos", kMantenimiento, "user-bookmarks"},
        {"Importar datos", "Importardatos1", "", pide(92), "Tfimportarinv1", "", "document-open"},
        {"Exportar datos", "Exportardatos1", "", pide(93), "Tfexportar", "", "document-send"},
        {"Procedimientos Usuario", "ProcedimientosUsuario1", "", pide(93),
         "Tfprocusr", "", "system-run"},
        {"Copiar cuentas a NIIF", "CopiarcuentasaNIIF1", "", libre,
         "", "", "edit-copy", Apertura::Propia},
    }},
    {"Ventana", {
        {"Mensaje", "Mensaje1", "Ctrl+M", libre, "Tfmensaje", "", "mail-message-new"},
    }},
    {"Ayuda", {
        {"Acerca de", "Acercade2", "", libre, "Tfacercade", "", "help-about"},
    }},
    };
}
// clang-format on

} // namespace

const QVector<Comando>& comandos_menu() {
    static const QVector<Comando> tabla =
        reuna(ordenes_de_registro() + ordenes_de_herramientas() + ordenes_de_listados() +
              ordenes_de_estados() + ordenes_de_anexos() + ordenes_de_mantenimiento());
    return tabla;
}

// clang-format off
const QVector<Comando>& comandos_balance() {
    static const QVector<Comando> tabla{
        {"Balance de prueba", "SButton1", "", pide(150), "Tfbalanceprueba",
         "", "accessories-calculator"},
        {"Balance anual", "AdvGlowButton1", "", pide(151), "Tfbalanceanual",
         "", "x-office-calendar"},
        {"Compativo centros", "AdvGlowButton3", "", pide(152), "Tfcomparacentros",
         "", "view-sort-descending"},
        {"Conc. Patrimonial", "AdvGlowButton4", "", pide(153), "Tfconciliapat",
         "", "object-flip-horizontal"},
    };
    return tabla;
}

const QVector<Comando>& comandos_columna() {
    static const QVector<Comando> tabla{
        {"Terceros", "sButton3", "", pide(11), "Tfterceros", kMantenimiento, "system-users"},
        {"Cuentas", "sButton2", "", pide(0), "Tfmnucuentas",
         kMantenimiento, "x-office-address-book"},
        {"Centros de costo", "sButton4", "", libre, "Tfcentros", "", "folder"},
        {"Activos fijos", "sButton12", "", libre, "Tfactivos", "", "computer"},
        {"Comprobantes", "sButton5", "", de_pantalla(30), "Tfmovimien", "", "document-new"},
        {"Plantillas", "sButton6", "", libre, "Tfmnuplantilla", "", "x-office-document-template"},
        {"Presupuesto", "sButton7", "", de_pantalla(51), "Tfpresupuesto",
         "", "x-office-spreadsheet"},
        {"Numeración", "sButton8", "", de_pantalla(60), "Tftipodoc", "", "view-sort-ascending"},
        {"Informes", "sButton13", "", libre, "Tfinformes", "", "x-office-document"},
        {"Automáticos", "sButton9", "", libre, "Tfmnucierre", "", "system-run"},
        {"Saldos Iniciales", "sButton10", "", pide(80), "Tfmnusaldosi", "", "x-office-spreadsheet"},
        {"Mantenimiento", "sButton11", "", libre, "Tfmnumantenim", "", "preferences-system"},
        {"Taxonomías", "AdvGlowButton2", "", libre, "Tftaxonomias", "", "text-html"},
    };
    return tabla;
}

// clang-format on

const QVector<Submenu>& submenus() {
    static const QVector<Submenu> tabla{
        {"Informes/Estados Financieros/Generales", "Generales1", 120},
        {"Informes/Estados Financieros/Detallados", "Detallados1", 121},
        {"Informes/Estados Financieros/Comparativos", "Comparativos1", 122},
    };
    return tabla;
}

const QVector<AtajoAlt>& atajos_alt() {
    static const QVector<AtajoAlt> tabla{
        {'c', "sButton2"},       {'t', "sButton3"},  {'o', "sButton4"},  {'a', "sButton12"},
        {'m', "sButton5"},       {'p', "sButton6"},  {'r', "sButton7"},  {'n', "sButton8"},
        {'u', "sButton9"},       {'s', "sButton10"}, {'e', "sButton11"}, {'i', "sButton13"},
        {'x', "AdvGlowButton2"},
    };
    return tabla;
}
