#include "reports/tfrngresulgeneral.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {
const DatosRango kDatosRngresulgeneral{"Tfrngresulgeneral",
                                       "Estado de resultados",
                                       {382, 184},
                                       "resultados.rav",
                                       "RResultados",
                                       "CResultado",
                                       "RepResulGene",
                                       123,
                                       {}};
}

Tfrngresulgeneral::Tfrngresulgeneral() : FormaEstado(kDatosRngresulgeneral) {
    CAuxiliar.texto("CODIGO", 20).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    defina_saldos();
    defina_niveles("S");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    importe("MOVIMIEN", "Movimiento");
    importe("UOP", "Utilidad operacional");
    defina_niveles("M");
    importe("NETO", "Resultado neto");
    defina_totales("CODIGO");

    Formulario f(this);
    f.fila("Período:", cree_periodo());
    f.fila("Nivel:", cree_nivel(5));
    ckMes = casilla("ckMes", "Solo el movimiento del mes");
    ckNotas = casilla("ckNotas", "Incluir notas a estados financieros");
    casilla_niif();
    arme_casillas(f, {casilla_sin_movimiento()});
    arme_casillas(f, {ckNotas});
    arme_casillas(f, {ckMes, ckniif});
    arme_titulo(f);
    arme_botones(f);
}

void Tfrngresulgeneral::FormCreate() {
    FormaEstado::FormCreate();
    setWindowTitle(es("G") ? "Estado de resultados" : "Estado de resultados detallado");
    fije_nivel_del_tipo();
}

QString Tfrngresulgeneral::sql() {
    const QString texto = "select * from " + procedimiento("balance_mes") + '(' + ano_y_periodo() +
                          ',' + bandera(marcada(Cksinmov)) + ",'N', " + bandera(es("G")) + ',' +
                          bandera(marcada(ckMes)) + ") where CODIGO >= '4' and CODIGO < '8' and ";
    return texto + (es("G") ? "NIVEL < 4" : "nivel <= " + nivel()) + " order by CODIGO";
}

void Tfrngresulgeneral::antes_de_abrir() {
    if (es("G") || marcada(ckMes))
        return;
    if (const QString aviso = aviso_de_cierre(fdm().Quorvex); !aviso.isEmpty())
        fdm().mostrar_advertencia(aviso + "Para ver el resultado marque \"" + ckMes->text() +
                                  "\" o pida un período anterior al del cierre.");
}

QString Tfrngresulgeneral::rango_legible() {
    const QString rango = FormaEstado::rango_legible();
    return marcada(ckMes) ? rango + " · solo el movimiento del mes" : rango;
}

QString Tfrngresulgeneral::reporte() {
    return del_mes() ? "Resultadomes" : es("G") ? "Resultadogeneral" : "Resultadodetallado";
}

QString Tfrngresulgeneral::titulo_niif() {
    return del_mes() ? "Estado de Resultados Mensual NIIF"
           : es("G") ? "Estado de Resultados NIIF"
                     : "Estado de Resultados Detallado NIIF";
}

QString Tfrngresulgeneral::item_titulo() {
    return del_mes() ? "Text7" : "text1";
}

void Tfrngresulgeneral::anexe(MotorInformes& motor) {
    if (marcada(ckNotas))
        notas_.anexe(motor, periodo.ano, periodo.numero(), tiempo_legible());
}
