#include "reports/tfrngresulconsol.h"

#include "toolkit/formulario.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

namespace {

const DatosRango kDatosRngresulconsol{"Tfrngresulconsol",
                                      "Resultados consolidados",
                                      {420, 230},
                                      "resultados.rav",
                                      "RResultados",
                                      "CResultado",
                                      "RepResulGene",
                                      153,
                                      {}};

const QVector<VarianteConsolidado> kVariantesRngresulconsol{
    {"G", "Estado de resultados consolidado", "Resultadogeneral",
     "Estado de Resultados Consolidado"},
    {"D", "Resultados detallado consolidado", "Resultadodetallado",
     "Estado de Resultados Detallado Consolidado"}};

/// De la operación: ingresos y gastos operacionales, costos de venta y de producción.
bool es_operacional(const QString& codigo) {
    static const QStringList kCodigos{"41", "51", "52", "6", "7"};
    return kCodigos.contains(codigo);
}

} // namespace

Tfrngresulconsol::Tfrngresulconsol()
    : FormaConsolidado(kDatosRngresulconsol, kVariantesRngresulconsol) {
    CAuxiliar.texto("CODIGO", 20).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    defina_saldos();
    defina_niveles("S");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    importe("MOVIMIEN", "Movimiento");
    importe("UOP", "Utilidad operacional");
    importe("NETO", "Resultado neto");
    defina_totales("CODIGO");
    Formulario f(this);
    arme(f);
    // La utilidad operacional sale de los grupos.
    findChild<QSpinBox*>("Nivel")->setMinimum(2);
}

QString Tfrngresulconsol::sql() {
    return "select * from balance_mes(" + ano_y_periodo() + ',' + bandera(marcada(Cksinmov)) +
           ",'N','N','N')  where CODIGO >= '4' and CODIGO < '8' and " +
           (es("G") ? QStringLiteral("NIVEL < 4") : "nivel <= " + entre_comillas("Nivel")) +
           " order by CODIGO";
}

void Tfrngresulconsol::despues_de_abrir() {
    const QString otra = CodCia1->text().trimmed();
    QString aviso = aviso_de_cierre(fdm().Quorvex, fdm().codigo_compania);
    aviso += aviso_de_cierre(Conexion2, otra);
    FormaConsolidado::despues_de_abrir();
    if (!aviso.isEmpty())
        fdm().mostrar_advertencia(aviso + "Pida un período anterior al del cierre.");
    // Las utilidades al pie son las de lo que se imprime, y van iguales en todas las filas.
    Moneda operacional, neto;
    for (CAuxiliar.First(); !CAuxiliar.Eof(); CAuxiliar.Next()) {
        const Moneda final = CAuxiliar.FieldByName("FINAL").moneda();
        if (es_operacional(CAuxiliar.FieldByName("CODIGO").texto()))
            operacional -= final;
        if (CAuxiliar.FieldByName("NIVEL").entero() == 1)
            neto -= final;
    }
    for (CAuxiliar.First(); !CAuxiliar.Eof(); CAuxiliar.Next()) {
        CAuxiliar.Edit();
        CAuxiliar.FieldByName("UOP") = operacional;
        CAuxiliar.FieldByName("NETO") = neto;
        CAuxiliar.Post();
    }
    CAuxiliar.First();
}
