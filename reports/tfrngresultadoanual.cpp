#include "reports/tfrngresultadoanual.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngresultadoanual{"Tfrngresultadoanual",
                                         "Resultado Anual",
                                         {382, 148},
                                         "Resultados.rav",
                                         "RResulanual",
                                         "CBalance",
                                         "ResultadoAnu",
                                         123,
                                         {}};
}

Tfrngresultadoanual::Tfrngresultadoanual() : FormaEstado(kDatosRngresultadoanual) {
    CAuxiliar.texto("CODIGO", 20).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    // El último período son solo los ajustes: el cierre no es resultado.
    const auto rotulo_de = [](const QString& mes, const QString& rotulo) {
        return mes == "CIE" ? QStringLiteral("Ajustes") : rotulo;
    };
    for (const auto& [nombre, rotulo] : meses_del_ano())
        importe("MV" + nombre, rotulo_de(nombre, rotulo));
    for (const auto& [nombre, rotulo] : meses_del_ano())
        importe("SA" + nombre, "Acumulado a " + rotulo_de(nombre, rotulo));

    Formulario f(this);
    f.fila("Año:", cree_ano("EAno"));
    casilla_niif();
    arme_casillas(f, {ckniif});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfrngresultadoanual::sql() {
    return "select * from resultado_anual(" + entre_comillas("EAno") + ',' + bandera(niif()) + ')';
}
