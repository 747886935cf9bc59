#include "reports/menu_estados.h"

#include "sesion/peticiones.h"
#include "sesion/tfdm.h"

const QVector<DatosMenuEstados>& MenuEstados::todos() {
    static const QVector<DatosMenuEstados> tabla{
        {"Tfmnufinancieros",
         "Estados financieros",
         {{"SBGenerales", "Generales", "Tfmnugenerales", "", 120},
          {"SBDetallados", "Detallados", "Tfmnudetallados", "", 121},
          {"SBComparativos", "Comparativos", "Tfmnucomparativos", "", 122}}},
        {"Tfmnugenerales",
         "Generales",
         {{"SBBalance", "Balance General", "Tfrngbalancegeneral", "G"},
          {"SBResultados", "Estado resultados", "Tfrngresulgeneral", "G"},
          {"SBPatrimonio", "Cambios en el patrimonio", "Tfcambiopatr", "P"},
          {"SBSituacion", "Cambios Sit. financiera", "Tfcambiopatr", "S"},
          {"SBFlujo", "Flujo de efectivo", "Tfcambiopatr", "F"},
          {"SBNotas", "Notas estados financieros", "Tfbuscnotasestado"}}},
        {"Tfmnudetallados",
         "Detallados",
         {{"SBBalance", "Balance detallado", "Tfrngbalancegeneral", "D"},
          {"SBPrueba", "Balance de prueba", "Tfrngbalancegeneral", "P"},
          {"SBTerceros", "Balance terceros", "Tfrngbalancetercero", "T"},
          {"SBPruebaTerceros", "B. prueba terceros", "Tfrngbalancetercero", "R"},
          {"SBCentros", "Balance centros", "Tfrngbalancecentro", "C"},
          {"SBPruebaCentros", "B. prueba centros", "Tfrngbalancecentro", "P"},
          {"SBResultados", "Resultados detallado", "Tfrngresulgeneral", "D"},
          {"SBResulTerceros", "Resultados terceros", "Tfrngresultadotercero"},
          {"SBResulCentros", "Resultados centros", "Tfrngresultadocentro"}}},
        {"Tfmnucomparativos",
         "Comparativos",
         {{"SBAcumulado", "Bal. prueba acumulado", "Tfrngbalanceacumulado"},
          {"SBAnual", "Comparativo anual", "Tfrngbalanceanual"},
          {"SBPeriodos", "Compara dos periodos", "Tfrngbalancecomparativo"},
          {"SBCentros", "Comparativo centros", "Tfrngcomparacentro"},
          {"SBResultado", "Resultado Anual", "Tfrngresultadoanual"}}},
        {"Tfmnuinfniif",
         "Estados NIIF",
         {{"SBGenerales", "Generales", "Tfmnugenerales", "", 120},
          {"SBDetallados", "Detallados", "Tfmnudetallados", "", 121},
          {"SBComparativos", "Comparativos", "Tfmnucomparativos", "", 122},
          {"SBSituacion", "Estado situación financiera", "Tfrngbalancegeneral", "G", 120, true},
          {"SBResultados", "Estado de resultados", "Tfrngresulgeneral", "G", 120, true},
          {"SBFlujo", "Estado de flujos de efectivo", "Tfcambiopatr", "F", 120, true},
          {"SBPatrimonio", "Estado cambios patrimonio", "Tfcambiopatr", "P", 120, true},
          {"SBNotas", "Notas a estados financieros", "Tfbuscnotasestado", "", 120}}},
        {"Tfoficiales",
         "Libros oficiales",
         {{"SBMayor", "Mayor y balance", "Tfrngoficiales", "M", 140},
          {"SBInventario", "Inventario y balance", "Tfrngoficiales", "I", 141},
          {"SBDiario", "Libro diario", "Tfrngoficiales", "D", 142},
          {"SBNumeracion", "Numeración hojas", "Tfnumeracion", "", 143}}}};
    return tabla;
}

MenuEstados::MenuEstados(const DatosMenuEstados& datos)
    : MenuBotones(datos.pantalla, datos.titulo) {
    for (const EntradaEstado& e : datos.entradas)
        opcion(e.nombre, e.texto, "x-office-spreadsheet", [&e] {
            if (e.acceso == 0 || fdm().exija_acceso(e.acceso))
                pantallas().abrir(e.pantalla, AbreInforme{e.tipo, e.niif});
        });
}
