#include "catalogues/columnas_auxiliar.h"

#include "sesion/tfdmcnt.h"

#include <algorithm>

namespace {
constexpr const char* kPorcentaje = "#.##";

enum class Clase { Entero, Texto, Importe, Porcentaje };

struct ColumnaInforme {
    const char* campo;
    Clase clase = Clase::Entero;
    int largo = 0;
    const char* rotulo = "";
};

const ColumnaInforme kColumnas[] = {
    {"ID"},
    {"TIPOREF"},
    {"IDREF"},
    {"CUENTA", Clase::Texto, 20, "Cuenta"},
    {"NOMCUENTA", Clase::Texto, 60, "Nombre de la cuenta"},
    {"TIPOCOMP", Clase::Texto, 3, "Tipo"},
    {"NOMTIPO", Clase::Texto, 60, "Nombre del tipo"},
    {"NOMCOMP", Clase::Texto, 60, "Nombre del tipo"},
    {"PREFIJO", Clase::Texto, 4, "Prefijo"},
    {"NUMERO", Clase::Texto, 8, "Número"},
    {"FECHA", Clase::Texto, 8, "Fecha"},
    {"CONCEPTO", Clase::Texto, 60, "Concepto"},
    {"NIT", Clase::Texto, 20, "NIT"},
    {"NOMTERCERO", Clase::Texto, 60, "Nombre del tercero"},
    {"TERCERO", Clase::Texto, 60, "Nombre del tercero"},
    {"REF", Clase::Texto, 20, "Referencia"},
    {"REFER", Clase::Texto, 20, "Referencia"},
    {"BASE", Clase::Importe, 0, "Base"},
    {"PORC", Clase::Porcentaje, 0, "Porc."},
    {"DEBITO", Clase::Importe, 0, "Débito"},
    {"CREDITO", Clase::Importe, 0, "Crédito"},
    {"DEBITOS", Clase::Importe, 0, "Débitos"},
    {"CREDITOS", Clase::Importe, 0, "Créditos"},
    {"PROYECTO", Clase::Texto, 4, "Proyecto"},
    {"CENTRO", Clase::Texto, 4, "Centro"},
    {"NOMPROY", Clase::Texto, 60, "Nombre del proyecto"},
    {"NOMCENT", Clase::Texto, 60, "Nombre del centro"},
};

QString dia_del_periodo(const QString& dia) {
    return fdmcnt().ano_actual +
           QStringLiteral("%1").arg(fdmcnt().periodo_actual + 1, 2, 10, QLatin1Char('0')) + dia;
}
} // namespace

SaldoCorrido::SaldoCorrido(ConjuntoDatos& conjunto, const QString& clave, const QString& inicial)
    : conjunto_(conjunto), clave_(clave), inicial_(inicial) {
    conjunto_.OnCalcFields = [this] { CAuxiliarCalcFields(); };
    comience();
}

void SaldoCorrido::comience(bool reordenadas) {
    reordenadas_ = reordenadas;
    conjunto_.calcular_al_traer = !reordenadas;
    primera_ = true;
    ultima_clave_ = QString();
    saldo_ = Moneda();
    de_linea_.clear();
}

void SaldoCorrido::recorra() {
    if (!reordenadas_)
        return;
    for (conjunto_.First(); !conjunto_.Eof(); conjunto_.Next())
        de_linea_.insert(linea(), siguiente());
    conjunto_.recalcule();
    conjunto_.First();
}

QString SaldoCorrido::linea() const {
    return conjunto_.FieldByName("ID").texto() + '|' + conjunto_.FieldByName("ITEM").texto() + '|' +
           conjunto_.FieldByName(clave_).texto();
}

Moneda SaldoCorrido::siguiente() {
    const QString clave = conjunto_.FieldByName(clave_).texto();
    if (clave != ultima_clave_ || ultima_clave_.isNull())
        saldo_ = conjunto_.FieldByName(inicial_).moneda();
    saldo_ += conjunto_.FieldByName("DEBITO").moneda() - conjunto_.FieldByName("CREDITO").moneda();
    ultima_clave_ = clave.isNull() ? QStringLiteral("") : clave;
    return saldo_;
}

void SaldoCorrido::CAuxiliarCalcFields() {
    if (reordenadas_)
        conjunto_.FieldByName("SaldoF") = de_linea_.value(linea());
    else if (!std::exchange(primera_, false))
        conjunto_.FieldByName("SaldoF") = siguiente();
}

void defina_columnas(ConjuntoDatos& conjunto, std::initializer_list<const char*> campos) {
    for (const char* campo : campos) {
        const auto columna =
            std::find_if(std::begin(kColumnas), std::end(kColumnas),
                         [&](const ColumnaInforme& c) { return qstrcmp(c.campo, campo) == 0; });
        if (columna == std::end(kColumnas))
            throw ErrorDatos(QStringLiteral("Los informes no tienen la columna %1.").arg(campo));
        switch (columna->clase) {
        case Clase::Entero:
            conjunto.entero(campo);
            break;
        case Clase::Texto:
            conjunto.texto(campo, columna->largo).etiqueta(columna->rotulo);
            break;
        case Clase::Importe:
            conjunto.decimal(campo).etiqueta(columna->rotulo).formato(kImporte);
            break;
        case Clase::Porcentaje:
            conjunto.decimal(campo, 4).etiqueta(columna->rotulo).formato(kPorcentaje);
            break;
        }
    }
}

void defina_auxiliar(ConjuntoDatos& c) {
    defina_columnas(c, {"ID", "CUENTA", "TIPOCOMP", "PREFIJO", "NUMERO", "FECHA", "CONCEPTO", "NIT",
                        "REF", "BASE", "PORC", "DEBITO", "CREDITO", "PROYECTO", "CENTRO", "TIPOREF",
                        "IDREF", "NOMCUENTA"});
}

QString primer_dia_del_periodo() {
    return dia_del_periodo(QStringLiteral("01"));
}

QString ultimo_dia_del_periodo() {
    return dia_del_periodo(fdmcnt().dias_periodo());
}
