#include "reports/tfcatacuentas.h"

#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {

QString clase_de_cuenta(const QString& tipo) {
    static const QMap<QString, QString> clases{
        {"I", "Inventario"}, {"C", "Cartera"}, {"A", "Activo fijo"}};
    return clases.value(tipo);
}

} // namespace

Tfcatacuentas::Tfcatacuentas()
    : FormaCatalogo("Tfcatacuentas", "Catálogo de cuentas", "RCatacuentas", "CCuentas",
                    {"Código", "cuen_cod"}, {"Nombre", "cuen_nom"}, ClaseRango::Cuenta) {
    ConjuntoDatos& c = CAuxiliar;
    c.texto("CUEN_COD", 20).etiqueta("Código");
    c.texto("CUEN_NOM", 60).etiqueta("Nombre");
    c.bandera("CUEN_TERCERO").etiqueta("Terceros");
    c.bandera("CUEN_CENTRO").etiqueta("Centros");
    c.bandera("CUEN_RETENCION").etiqueta("Retenciones");
    c.decimal("CUEN_BASEMIN").etiqueta("Base mínima").formato("#,##0.00");
    c.decimal("CUEN_PORC", 4).etiqueta("Porcentaje").formato("#,##0.####");
    c.bandera("CUEN_TIPO").etiqueta("Tipo");
    c.bandera("CUEN_ACTIVA").etiqueta("Activa");
    c.bandera("CUEN_AFECTABLE").etiqueta("Afectable");
    c.texto("CUEN_EQNIIF", 20).etiqueta("Cuenta NIIF equivalente");
    entero_impreso("Nivel");
    for (const char* exige : {"Tercero", "Centro", "Retencion"})
        palabra(exige, 2);
    palabra("Clase", 12);
    palabra("Uso", 10);

    Formulario f(this);
    arme_rango(f);
    ckniif = casilla("ckniif", "Cuentas NIIF");
    arme_casillas(f, {ckniif});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfcatacuentas::sql() {
    return QStringLiteral("select CUEN_COD, CUEN_NOM, CUEN_TERCERO, CUEN_CENTRO, CUEN_RETENCION, "
                          "CUEN_BASEMIN, CUEN_PORC, CUEN_TIPO, CUEN_ACTIVA, CUEN_AFECTABLE, ") +
           (niif() ? "CUEN_COD CUEN_EQNIIF from cuentas_niif" : "CUEN_EQNIIF from cuentas") +
           " where " + dentro_del_rango() + " order by " + columna();
}

void Tfcatacuentas::antes_de_abrir() {
    FormaCatalogo::antes_de_abrir();
    digitos_.clear();
    fdm().CBorrar.Open("select ESTR_DIGITOS from ESTRUCTURA order by ESTR_DIGITOS");
    for (; !fdm().CBorrar.Eof(); fdm().CBorrar.Next())
        digitos_ << int(fdm().CBorrar.Fields(0).entero());
    fdm().CBorrar.Close();
}

QString Tfcatacuentas::reporte() {
    return niif() ? "CuentasNiif" : "Cuentas";
}

void Tfcatacuentas::describa() {
    // Por nombre, una cuenta queda lejos de la suya de arriba: el nivel no diría nada.
    int nivel = 0;
    if (por_codigo())
        nivel = 1 + int(std::lower_bound(digitos_.begin(), digitos_.end(),
                                         int(dato("CUEN_COD").size())) -
                        digitos_.begin());
    CAuxiliar.FieldByName("Nivel") = Valor(nivel);
    CAuxiliar.FieldByName("Tercero") = si("CUEN_TERCERO") ? "Sí" : "";
    CAuxiliar.FieldByName("Centro") = si("CUEN_CENTRO") ? "Sí" : "";
    CAuxiliar.FieldByName("Retencion") = si("CUEN_RETENCION") ? "Sí" : "";
    CAuxiliar.FieldByName("Clase") = clase_de_cuenta(dato("CUEN_TIPO"));
    CAuxiliar.FieldByName("Uso") = dato("CUEN_ACTIVA") == "N" ? "Inactiva"
                                   : si("CUEN_AFECTABLE")     ? "Movimiento"
                                                              : "";
}
