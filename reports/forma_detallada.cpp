#include "reports/forma_detallada.h"

#include "toolkit/estilo.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

void deje_solo_resultados(ConjuntoDatos& conjunto) {
    conjunto.Filter(QStringLiteral("CUENTA < '8'"));
    conjunto.Filtered(true);
}

// ---------------------------------------------------------------- terceros

FormaConTerceros::FormaConTerceros(const DatosRango& datos)
    : FormaEstado(datos), cknombre(casilla("cknombre", "Ordenar por nombre")) {}

void FormaConTerceros::defina_columnas(bool con_contacto) {
    ConjuntoDatos& c = CAuxiliar;
    c.texto("CUENTA", 20).etiqueta("Cuenta");
    c.texto("NOM_CUENTA", 60).etiqueta("Nombre de la cuenta");
    c.texto("NIT", 20).etiqueta("NIT");
    c.texto("NOM_TERCERO", 60).etiqueta("Nombre del tercero");
    defina_saldos();
    defina_niveles("S");
    c.texto("NOMCTATER", 60).etiqueta("Cuenta o tercero");
    importe("STERCERO", "Tercero");
    c.entero("NIVEL").etiqueta("Nivel").Visible = con_contacto;
    if (con_contacto) {
        c.texto("DV", 1).etiqueta("DV");
        c.texto("DIR", 60).etiqueta("Dirección");
        c.texto("CIUDAD", 40).etiqueta("Ciudad");
        c.texto("CODCIU", 5).etiqueta("Código de la ciudad");
        c.texto("TEL", 40).etiqueta("Teléfono");
        c.texto("FAX", 25).etiqueta("Fax");
        c.texto("CEL", 25).etiqueta("Celular");
    }
    defina_totales("CUENTA");
}

QString FormaConTerceros::consulta(const QString& cuentas, bool sin_movimiento) const {
    const QString texto = "SELECT * FROM " + procedimiento("BALANCE_CON_TERCEROS_MES", "_N") + '(' +
                          ano_y_periodo() + ", " + cuentas + ", " +
                          argumentos({"ENitIni", "ENitFin"}) + ',' + bandera(sin_movimiento) + ')';
    return marcada(cknombre) ? texto + "ORDER BY CUENTA,NOM_TERCERO" : texto;
}

// ---------------------------------------------------------------- centros

FormaConCentros::FormaConCentros(const DatosRango& datos)
    : FormaEstado(datos), RgOrden(new QGroupBox(QStringLiteral("Orden"), this)),
      orden_(new QButtonGroup(this)) {
    RgOrden->setObjectName("RgOrden");
    auto* fila = new QHBoxLayout(RgOrden);
    fila->setContentsMargins(paso(), paso(0.5), paso(), paso(0.5));
    int numero = 0;
    for (const char* rotulo : {"&Cuenta-Centro", "C&entro-Cuenta"}) {
        auto* radio = new QRadioButton(QString::fromUtf8(rotulo), RgOrden);
        orden_->addButton(radio, numero++);
        fila->addWidget(radio);
    }
}

void FormaConCentros::FormCreate() {
    orden_->button(0)->setChecked(true);
    FormaEstado::FormCreate();
}

bool FormaConCentros::por_centro() const {
    return orden_->checkedId() == 1;
}

void FormaConCentros::defina_columnas(bool con_movimiento) {
    ConjuntoDatos& c = CAuxiliar;
    c.texto("CUENTA", 20).etiqueta("Cuenta");
    c.texto("NOM_CUENTA", 60).etiqueta("Nombre de la cuenta");
    c.texto("PROY", 4).etiqueta("Proyecto");
    c.texto("CENTRO", 4).etiqueta("Centro");
    c.texto("NOM_CENTRO", 60).etiqueta("Nombre del proyecto");
    defina_saldos();
    c.entero("NIVEL").etiqueta("Nivel");
    defina_niveles("S");
    importe("SCENTRO", "Centro de costo");
    c.texto("NOMCTACEN", 60).etiqueta("Cuenta o centro");
    c.texto("NOM_SUBCENTRO", 60).etiqueta("Nombre del centro");
    if (con_movimiento) {
        defina_niveles("M");
        importe("MOVIMIEN", "Movimiento");
    }
    defina_totales("CUENTA");
}

QString FormaConCentros::consulta(const QString& cuentas, bool solo_movidas) const {
    return "SELECT * FROM " + procedimiento("BALANCE_CON_CENTROS_MES", "_N") + '(' +
           ano_y_periodo() + (por_centro() ? ",'S'," : ",'N',") + cuentas + ',' +
           argumentos({"ECenIni", "ECenFin", "ESubcIni", "ESubcfin"}, ",") + ')' +
           (solo_movidas ? " WHERE ((inicial <> 0) or (debitos <> 0) or (creditos <> 0))" : "");
}
