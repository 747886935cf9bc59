#include "reports/forma_estado.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

namespace {
constexpr int kDeDetalle = 99; ///< NIVEL de los terceros y los centros de una cuenta
} // namespace

void FormaEstado::FormCreate() {
    FormaRango::FormCreate();
    if (ckniif && peticion<AbreInforme>().niif)
        ckniif->setChecked(true);
}

const QVector<std::pair<QString, QString>>& FormaEstado::meses_del_ano() {
    static const QVector<std::pair<QString, QString>> meses{
        {"ENE", "Enero"},      {"FEB", "Febrero"}, {"MAR", "Marzo"},     {"ABR", "Abril"},
        {"MAY", "Mayo"},       {"JUN", "Junio"},   {"JUL", "Julio"},     {"AGO", "Agosto"},
        {"SEP", "Septiembre"}, {"OCT", "Octubre"}, {"NOV", "Noviembre"}, {"DIC", "Diciembre"},
        {"CIE", "Cierre"}};
    return meses;
}

Campo& FormaEstado::importe(const QString& nombre, const QString& rotulo) {
    return CAuxiliar.decimal(nombre).etiqueta(rotulo).formato(kImporte);
}

void FormaEstado::defina_saldos(const QString& sufijo) {
    const QString rotulo = sufijo.isEmpty() ? sufijo : ' ' + sufijo;
    for (const auto& [nombre, titulo] : {std::pair{"INICIAL", "Saldo inicial"},
                                         {"DEBITOS", "Débitos"},
                                         {"CREDITOS", "Créditos"},
                                         {"FINAL", "Saldo final"}})
        importe(nombre + sufijo, titulo + rotulo);
}

void FormaEstado::defina_niveles(const QString& prefijo) {
    for (const auto& [nombre, titulo] : {std::pair{"CLASE", "Clase"},
                                         {"GRUPO", "Grupo"},
                                         {"SUBGRUPO", "Subgrupo"},
                                         {"CUENTA", "Cuenta"}})
        importe(prefijo + nombre, prefijo == "S" ? titulo : titulo + QStringLiteral(" del mes"));
}

void FormaEstado::defina_totales(const QString& cuenta) {
    static const QVector<std::pair<const char*, const char*>> totales{
        {"Ini", "INICIAL"}, {"Db", "DEBITOS"}, {"Cr", "CREDITOS"}, {"Fin", "FINAL"}};
    for (const auto& [nombre, de] : totales)
        CAuxiliar.calculado(nombre, ClaseCampo::Decimal, 2).Visible = false;
    CAuxiliar.calculado("Clase", ClaseCampo::Texto, 1).Visible = false;
    defina_tope(cuenta);
    CAuxiliar.OnCalcFields = [this, cuenta, tope = CAuxiliar.OnCalcFields] {
        tope();
        const bool clase = CAuxiliar.FieldByName("NIVEL").texto() == QLatin1String("1");
        for (const auto& [nombre, de] : totales)
            CAuxiliar.FieldByName(nombre) = clase ? CAuxiliar.FieldByName(de).moneda() : Moneda();
        CAuxiliar.FieldByName("Clase") = CAuxiliar.FieldByName(cuenta).texto().left(1);
    };
}

void FormaEstado::defina_tope(const QString& cuenta) {
    CAuxiliar.calculado("Tope", ClaseCampo::Texto, 1).Visible = false;
    CAuxiliar.OnCalcFields = [this, cuenta] {
        const bool clase = CAuxiliar.FieldByName("NIVEL").texto() == QLatin1String("1");
        const bool tope = clase || es_tope(CAuxiliar.FieldByName(cuenta).texto());
        CAuxiliar.FieldByName("Tope") = tope ? "S" : "N";
    };
}

bool FormaEstado::es_tope(const QString& codigo) const {
    const auto* desde = findChild<QLineEdit*>(QStringLiteral("EDesde"));
    if (!desde || codigo.contains('.')) // "130505.900123456" es un tercero de la cuenta
        return false;
    if (digitos_.isEmpty()) {
        Sentencia niveles(nullptr, "QNiveles", fdm().Quorvex);
        for (niveles.Open("select estr_digitos from estructura order by 1"); !niveles.Eof();
             niveles.Next())
            digitos_ << niveles.FieldByName("ESTR_DIGITOS").entero();
    }
    const auto propio = std::lower_bound(digitos_.begin(), digitos_.end(), codigo.size());
    return propio != digitos_.begin() && codigo.left(*std::prev(propio)) < desde->text().trimmed();
}

int FormaEstado::sangria(int fila, const Campo& campo) {
    static const QStringList nombres{"NOMBRE", "NOM_CUENTA", "NOMCTATER", "NOMCTACEN", "NOMCTAART"};
    if (!nombres.contains(campo.FieldName))
        return 0;
    const auto dato = [&](const char* nombre) {
        const Campo* c = CAuxiliar.FindField(QLatin1String(nombre));
        return c ? CAuxiliar.valor_en(fila, *c) : Valor();
    };
    const int nivel = int(dato("NIVEL").entero());
    const QString codigo = dato("CODIGO").texto() + dato("CUENTA").texto();
    if (nivel == kDeDetalle) // uno y dos dígitos son la clase y el grupo; después, de a dos
        return int(codigo.size() < 3 ? codigo.size() : codigo.size() / 2 + 1);
    return qMax(0, codigo.contains('.') ? nivel : nivel - 1); // "130505.900123456"
}

QCheckBox* FormaEstado::casilla_sin_movimiento(const QString& texto) {
    return Cksinmov = casilla(QStringLiteral("Cksinmov"), texto);
}

QString FormaEstado::procedimiento(const char* nombre, const char* sufijo) const {
    return QLatin1String(nombre) + (niif() ? QLatin1String(sufijo) : QLatin1String());
}

QString FormaEstado::sql_del_balance(bool con_notas) const {
    QString texto = "select * from " + procedimiento("balance_mes") + '(' + ano_y_periodo() + ',' +
                    bandera(marcada(Cksinmov)) + ", " + bandera(es("G")) + ',' +
                    bandera(es("G") && con_notas) +
                    ",'N')  where CODIGO >= " + entre_comillas("EDesde") +
                    " and CODIGO <= " + entre_comillas("EHasta");
    if (es("G"))
        texto += " and nivel < 5 and CODIGO < '4'";
    return texto + " and Nivel <= " + nivel() + " order by CODIGO";
}

void FormaEstado::fije_nivel_del_tipo() {
    auto* nivel = findChild<QSpinBox*>(QStringLiteral("Nivel"));
    nivel->setValue(es("G") ? 3 : 5);
    nivel->setEnabled(!es("G"));
}

void FormaEstado::fije_encabezado(MotorInformes& motor) {
    FormaRango::fije_encabezado(motor);
    fije_firmas(motor);
}

void FormaEstado::fije_firmas(MotorInformes& motor) {
    Sentencia firmas(nullptr, "QFirmas", fdm().Quorvex);
    firmas.Open("select * from firmas_estados");
    for (const auto& [variable, columna] : {std::pair{"Representante", "REPRESENTANTE"},
                                            {"DocumentoRepresentante", "DOCUMENTO"},
                                            {"Contador", "CONTADOR"},
                                            {"TarjetaContador", "TARJETA_CONTADOR"},
                                            {"Revisor", "REVISOR"},
                                            {"TarjetaRevisor", "TARJETA_REVISOR"}})
        motor.fijar_parametro(variable, firmas.FieldByName(columna).texto());
    firmas.Close();
}

QString FormaEstado::aviso_de_cierre(Conexion& base, const QString& compania) const {
    const QString ano = QString::number(periodo.ano);
    const Valor cierres = base.consulte(
        // La fecha es la del comprobante, que se pudo cambiar: con ella van las cifras.
        "select count(*) from CIERRE_ANUAL C left join COMPROBANTE_ENCABEZADO E on E.ENCO_CONSEC = "
        "C.ENCO_CONSEC where E.ENCO_FECHA starting with ? and "
        "cast(substring(E.ENCO_FECHA from 5 for 2) as smallint) <= ? and "
        "ALCANZA_LIBRO(C.CIAN_NIIF, ?)",
        {Valor(ano), Valor(periodo.numero()), Valor(niif() ? "NIIF" : "2649")});
    if (cierres.entero() == 0)
        return {};
    return "El año " + ano + " ya tiene cierre" +
           (compania.isEmpty() ? QString() : " en la compañía " + compania) +
           ": sus cuentas de resultados van en cero. ";
}

QString FormaEstado::del_periodo() const {
    return QStringLiteral("Período:") + nombre_del_periodo();
}
