#include "exchange/datos_importacion.h"

#include "datos/firebird/letras.h"
#include "libro/fechas.h"
#include "libro/importes.h"

#include <QRegularExpression>

namespace {

using D = DatoImportacion;

const QVector<D>& cuentas() {
    static const QVector<D> lista{
        {"CUEN_COD", "la cuenta", D::Codigo, 20},
        {"CUEN_NOM", "el nombre", D::Texto, 60},
        {"CUEN_TERCERO", "exige tercero", D::Bandera},
        {"CUEN_CENTRO", "exige centro", D::Bandera},
        {"CUEN_RETENCION", "es de retención", D::Bandera},
        {"CUEN_CTAJUSTE", "la cuenta de ajuste", D::Codigo, 20},
        {"CUEN_CTACORRECION", "la cuenta de corrección", D::Codigo, 20},
        {"CUEN_AJUSDB", "ajuste débito", D::Bandera},
        {"CUEN_EQNIIF", "la cuenta equivalente", D::Codigo, 20},
        {"CUEN_TIPO", "la clase de cuenta", D::Clases},
    };
    return lista;
}

const QVector<D>& terceros() {
    static const QVector<D> lista{
        {"TERC_NIT", "el NIT", D::Codigo, 20},
        {"TERC_NOM", "el nombre", D::Texto, 60},
        {"TERC_DIR", "la dirección", D::Texto, 60},
        {"TERC_CIU", "la ciudad", D::Texto, 40},
        {"CIUD_NOM", "el nombre de la ciudad", D::Texto, 60},
        {"TERC_TEL", "el teléfono", D::Texto, 40},
        {"TERC_FAX", "el fax", D::Texto, 25},
        {"TERC_CEL", "el celular", D::Texto, 25},
        {"TERC_EMAIL", "el correo", D::Texto, 100},
        {"TERC_CONTACTO", "el contacto", D::Texto, 255},
        {"TERC_TIPOID", "el tipo de identificación", D::Texto, 1},
        {"TERC_APELLIDO1", "el primer apellido", D::Texto, 60},
        {"TERC_APELLIDO2", "el segundo apellido", D::Texto, 60},
        {"TERC_NOMBRE1", "el primer nombre", D::Texto, 60},
        {"TERC_NOMBRE2", "el segundo nombre", D::Texto, 60},
        {"TERC_CLIE", "es cliente", D::Bandera},
        {"TERC_PROV", "es proveedor", D::Bandera},
        {"TERC_EMPL", "es empleado", D::Bandera},
    };
    return lista;
}

const QVector<D>& comprobantes() {
    static const QVector<D> lista{
        {"TICO_COD", "el tipo", D::Codigo, 3},
        {"PRCO_PREF", "el prefijo", D::Codigo, 4},
        {"ENCO_NUMERO", "el número", D::Codigo, 8},
        {"ENCO_FECHA", "la fecha", D::Fecha},
        {"ENCO_CONCEPTO", "el concepto", D::Texto, 60},
        {"ENCO_REFER", "la referencia", D::Texto, 8},
        {"CUEN_COD", "la cuenta", D::Codigo, 20},
        {"TERC_NIT", "el tercero", D::Codigo, 20},
        {"PROY_COD", "el proyecto", D::Codigo, 4},
        {"CENT_COD", "el centro", D::Codigo, 4},
        {"ARTI_COD", "el artículo", D::Codigo, 15},
        {"CODE_BASE", "la base", D::Importe},
        {"CODE_PORC", "el porcentaje", D::Tasa},
        {"CODE_DEBITO", "el débito", D::Importe},
        {"CODE_CREDITO", "el crédito", D::Importe},
    };
    return lista;
}

const QVector<D>& saldos() {
    static const QVector<D> lista{
        {"CUEN_COD", "la cuenta", D::Codigo, 20},
        {"TERC_NIT", "el tercero", D::Codigo, 20},
        {"PROY_COD", "el proyecto", D::Codigo, 4},
        {"CENT_COD", "el centro", D::Codigo, 4},
        {"ARTI_COD", "el artículo", D::Codigo, 15},
        {"SAIN_DEBITO", "el débito", D::Importe},
        {"SAIN_CREDITO", "el crédito", D::Importe},
        {"DOCO_NUMERO", "el documento", D::Codigo, 8},
        {"DOCO_VENCE", "el vencimiento", D::Fecha},
        {"SAIN_TIPODOC", "el tipo de documento", D::Entero},
    };
    return lista;
}

DatoLeido rehuse(const QString& razon) {
    return {{}, razon};
}

/// El importe con lo que cabe en la base: quince cifras con sus decimales.
DatoLeido lea_numero(const D& dato, const QString& texto) {
    const QString rotulo = QString::fromUtf8(dato.rotulo);
    const bool tasa = dato.clase == D::Tasa;
    const ImporteLeido leido = tasa ? lea_porcentaje(texto) : lea_importe(texto);
    const bool bueno = leido.clase == ImporteLeido::Bueno;
    const int decimales = tasa ? 4 : 2;
    if (leido.clase == ImporteLeido::MuchosDecimales ||
        (bueno && leido.valor.redondeada(decimales) != leido.valor))
        return rehuse(QStringLiteral("'%1' tiene más de %2 decimales en %3.")
                          .arg(recortado(texto), QString::number(decimales), rotulo));
    const char* tope = tasa ? "99999999999.9999" : "9999999999999.99";
    if (leido.clase == ImporteLeido::NoCabe ||
        (bueno && leido.valor.absoluta() > Moneda::de_texto(QLatin1String(tope))))
        return rehuse(QStringLiteral("'%1' no cabe en %2: admite %3 cifras enteras.")
                          .arg(recortado(texto), rotulo, QString::number(15 - decimales)));
    const QString razon = rechazo_de_importe(leido, texto, rotulo);
    return razon.isEmpty() ? DatoLeido{leido.valor, {}} : rehuse(razon);
}

DatoLeido lea_entero(const QString& texto, const QString& rotulo) {
    bool bien = false;
    const int n = texto.toInt(&bien);
    if (bien)
        return {Valor(n), {}};
    static const QRegularExpression cifras(QStringLiteral("^[+-]?[0-9]+$"));
    return rehuse((cifras.match(texto).hasMatch() ? QStringLiteral("'%1' no cabe en %2.")
                                                  : QStringLiteral("'%1' no es un número para %2."))
                      .arg(recortado(texto), rotulo));
}

DatoLeido lea_letra(const D& dato, const QString& texto) {
    const QString letra = texto.toUpper();
    const QString validas =
        dato.clase == D::Bandera ? QStringLiteral("SN") : QStringLiteral("NICA");
    if (letra.size() != 1 || !validas.contains(letra))
        return rehuse(QStringLiteral("'%1' no vale en \"%2\": debe ser una de %3.")
                          .arg(recortado(texto), QString::fromUtf8(dato.rotulo),
                               QStringList(validas.split(QString(), Qt::SkipEmptyParts))
                                   .join(QStringLiteral(", "))));
    return {Valor(letra), {}};
}

} // namespace

const QVector<DatoImportacion>& datos_de(ClaseImportacion clase) {
    switch (clase) {
    case ClaseImportacion::Cuentas:
        return cuentas();
    case ClaseImportacion::Terceros:
        return terceros();
    case ClaseImportacion::Comprobantes:
        return comprobantes();
    default:
        return saldos();
    }
}

const DatoImportacion* dato_de(ClaseImportacion clase, const QString& clave) {
    for (const D& dato : datos_de(clase))
        if (clave == QLatin1String(dato.clave))
            return &dato;
    return nullptr;
}

DatoLeido lea_dato(const DatoImportacion& dato, const QByteArray& octetos) {
    const QString rotulo = QString::fromUtf8(dato.rotulo);
    QString texto = QString::fromLatin1(octetos).trimmed();
    if (texto.isEmpty())
        return {};
    // La base guarda cualquier octeto y entra como vino. Un tabulador u otro control en un texto es
    // un blanco: partiría la fila al copiarla. En un código o una cifra es otra cosa.
    const QString limpio = controles_a_blancos(texto);
    for (qsizetype i = 0; dato.clase != D::Texto && i < texto.size(); ++i)
        if (texto[i] != limpio[i])
            return rehuse(QStringLiteral("Hay un octeto que no es un carácter (%1) en %2.")
                              .arg(texto[i].unicode())
                              .arg(rotulo));
    texto = limpio;
    switch (dato.clase) {
    case D::Importe:
    case D::Tasa:
        return lea_numero(dato, texto);
    case D::Bandera:
    case D::Clases:
        return lea_letra(dato, texto);
    case D::Entero:
        return lea_entero(texto, rotulo);
    case D::Fecha:
        if (const auto r = revise_fecha(recortado(texto)))
            return rehuse(r->texto);
        return {Valor(texto), {}};
    default:
        if (texto.size() > dato.largo)
            return rehuse(QStringLiteral("'%1' no cabe en %2: son %3 caracteres y caben %4.")
                              .arg(recortado(texto), rotulo, QString::number(texto.size()),
                                   QString::number(dato.largo)));
        return {Valor(texto), {}};
    }
}
