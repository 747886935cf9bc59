#include "reports/columnas_auxiliar.h"

#include "sesion/tfdmcnt.h"

namespace {
constexpr const char* kImporte = "#,###.00";
constexpr const char* kPorcentaje = "#.##";

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

void defina_auxiliar(ConjuntoDatos& c) {
    c.entero("ID");
    c.texto("CUENTA", 20).etiqueta("Cuenta");
    c.texto("TIPOCOMP", 3).etiqueta("Tipo");
    c.texto("PREFIJO", 4).etiqueta("Prefijo");
    c.texto("NUMERO", 8).etiqueta("Número");
    c.texto("FECHA", 8).etiqueta("Fecha");
    c.texto("CONCEPTO", 60).etiqueta("Concepto");
    c.texto("NIT", 20).etiqueta("NIT");
    c.texto("REF", 20).etiqueta("Referencia");
    c.decimal("BASE").etiqueta("Base").formato(kImporte);
    c.decimal("PORC", 4).etiqueta("Porc.").formato(kPorcentaje);
    c.decimal("DEBITO").etiqueta("Débito").formato(kImporte);
    c.decimal("CREDITO").etiqueta("Crédito").formato(kImporte);
    c.texto("PROYECTO", 4).etiqueta("Proyecto");
    c.texto("CENTRO", 4).etiqueta("Centro");
    c.entero("TIPOREF");
    c.entero("IDREF");
}

void defina_listado(ConjuntoDatos& c) {
    c.entero("ID");
    c.texto("TIPOCOMP", 3).etiqueta("Tipo");
    c.texto("PREFIJO", 4).etiqueta("Prefijo");
    c.texto("NUMERO", 8).etiqueta("Número");
    c.texto("FECHA", 8).etiqueta("Fecha");
    c.texto("CUENTA", 20).etiqueta("Cuenta");
    c.texto("NIT", 20).etiqueta("NIT");
    c.texto("PROYECTO", 4).etiqueta("Proyecto");
    c.texto("CENTRO", 4).etiqueta("Centro");
    c.texto("CONCEPTO", 60).etiqueta("Concepto");
    c.texto("REF", 20).etiqueta("Referencia");
    c.decimal("BASE").etiqueta("Base").formato(kImporte);
    c.decimal("PORC", 4).etiqueta("Porc.").formato(kPorcentaje);
    c.decimal("DEBITO").etiqueta("Débito").formato(kImporte);
    c.decimal("CREDITO").etiqueta("Crédito").formato(kImporte);
    c.entero("TIPOREF");
    c.entero("IDREF");
    c.texto("NOMTIPO", 60).etiqueta("Nombre del tipo");
}

void defina_diario(ConjuntoDatos& c) {
    c.texto("CUENTA", 20).etiqueta("Cuenta");
    c.texto("TIPOCOMP", 3).etiqueta("Tipo");
    c.texto("NOMCOMP", 60).etiqueta("Nombre del tipo");
    c.texto("PREFIJO", 4).etiqueta("Prefijo");
    c.texto("NUMERO", 8).etiqueta("Número");
    c.texto("FECHA", 8).etiqueta("Fecha");
    c.decimal("DEBITOS").etiqueta("Débitos").formato(kImporte);
    c.decimal("CREDITOS").etiqueta("Créditos").formato(kImporte);
    c.texto("NOMCUENTA", 60).etiqueta("Nombre de la cuenta");
    c.texto("CONCEPTO", 60).etiqueta("Concepto");
    c.texto("REFER", 20).etiqueta("Referencia");
}

QString primer_dia_del_periodo() {
    return dia_del_periodo(QStringLiteral("01"));
}

QString ultimo_dia_del_periodo() {
    return dia_del_periodo(fdmcnt().dias_periodo());
}
