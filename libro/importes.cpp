#include "libro/importes.h"

namespace {

bool solo_cifras(const QString& texto) {
    for (const QChar c : texto)
        if (c < '0' || c > '9')
            return false;
    return !texto.isEmpty();
}

/// Los enteros vienen en grupos de tres tras el primero: "1.234.567".
bool en_grupos(const QString& enteros, QChar separador) {
    const QStringList grupos = enteros.split(separador);
    for (qsizetype i = 0; i < grupos.size(); ++i)
        if (!solo_cifras(grupos[i]) || grupos[i].size() > 3 || (i > 0 && grupos[i].size() != 3))
            return false;
    return !grupos.first().startsWith('0') || grupos.size() == 1;
}

/// Cifras, un punto y cifras.
ImporteLeido numero(const QString& con_punto) {
    if (const auto m = Moneda::intente(con_punto))
        return {ImporteLeido::Bueno, *m, {}, {}};
    const bool grande = !Moneda::intente(con_punto.section('.', 0, 0));
    return {grande ? ImporteLeido::NoCabe : ImporteLeido::MuchosDecimales, {}, {}, {}};
}

/// Enteros y decimales, cualquiera de ellos vacío, sin más signos.
ImporteLeido con_decimales(const QString& signo, const QString& enteros, const QString& decimales) {
    if ((!enteros.isEmpty() && !solo_cifras(enteros)) ||
        (!decimales.isEmpty() && !solo_cifras(decimales)) ||
        (enteros.isEmpty() && decimales.isEmpty()))
        return {ImporteLeido::NoEsNumero, {}, {}, {}};
    return numero(signo + (enteros.isEmpty() ? QStringLiteral("0") : enteros) + '.' +
                  (decimales.isEmpty() ? QStringLiteral("0") : decimales));
}

ImporteLeido lea(const QString& texto, bool un_separador_es_decimal) {
    QString t = texto.trimmed();
    if (t.isEmpty())
        return {};
    QString signo;
    if (t.startsWith('-') || t.startsWith('+')) {
        signo = t.startsWith('-') ? QStringLiteral("-") : QString();
        t = t.mid(1);
    }
    const qsizetype punto = t.lastIndexOf('.'), coma = t.lastIndexOf(',');
    const qsizetype ultimo = qMax(punto, coma);
    if (ultimo < 0)
        return con_decimales(signo, t, {});
    const QChar separador = t[ultimo];
    const QString antes = t.left(ultimo), despues = t.mid(ultimo + 1);
    if (punto >= 0 && coma >= 0) {
        const QChar miles = separador == '.' ? ',' : '.';
        if (antes.contains(separador) || !en_grupos(antes, miles))
            return {ImporteLeido::NoEsNumero, {}, {}, {}};
        return con_decimales(signo, QString(antes).remove(miles), despues);
    }
    if (t.count(separador) > 1) {
        if (!en_grupos(t, separador))
            return {ImporteLeido::NoEsNumero, {}, {}, {}};
        return con_decimales(signo, t.remove(separador), {});
    }
    const ImporteLeido decimal = con_decimales(signo, antes, despues);
    if (un_separador_es_decimal || decimal.clase != ImporteLeido::Bueno || !en_grupos(t, separador))
        return decimal;
    const ImporteLeido miles = con_decimales(signo, antes + despues, {});
    return {ImporteLeido::DosLecturas, {}, decimal.valor, miles.valor};
}

} // namespace

ImporteLeido lea_importe(const QString& texto) {
    return lea(texto, false);
}

ImporteLeido lea_porcentaje(const QString& texto) {
    return lea(texto, true);
}

QString recortado(const QString& dato) {
    constexpr int kLetras = 30;
    return dato.size() > kLetras ? dato.left(kLetras) + QStringLiteral("...") : dato;
}

QString rechazo_de_importe(const ImporteLeido& leido, const QString& texto, const QString& rotulo) {
    QString razon;
    switch (leido.clase) {
    case ImporteLeido::Bueno:
        return {};
    case ImporteLeido::DosLecturas:
        return QStringLiteral("'%1' se puede leer de dos maneras en %2: escriba %3 o %4.")
            .arg(texto, rotulo, leido.miles.texto(), leido.decimal.texto());
    case ImporteLeido::NoCabe:
        razon = QStringLiteral("'%1' no cabe en %2%3");
        break;
    case ImporteLeido::MuchosDecimales:
        razon = QStringLiteral("'%1' tiene demasiados decimales en %2%3");
        break;
    default:
        razon = QStringLiteral("'%1' no es un número para %2%3");
    }
    // Un rótulo abreviado ya trae su punto.
    return razon.arg(recortado(texto), rotulo,
                     rotulo.endsWith('.') ? QString() : QStringLiteral("."));
}

Moneda retencion(Moneda base, Moneda porcentaje, std::optional<int> digito) {
    return Moneda::porcentaje_redondeado(base.absoluta(), porcentaje, digito.value_or(-2));
}

std::optional<Lados> lados_de_retencion(Moneda base, Moneda porcentaje, std::optional<int> digito) {
    if (base.es_cero() || porcentaje <= Moneda())
        return {};
    const Moneda valor = retencion(base, porcentaje, digito);
    return base.negativa() ? Lados{{}, valor} : Lados{valor, {}};
}

std::optional<Moneda> porcentaje_sugerido(Moneda base, Moneda porcentaje, Moneda base_minima,
                                          Moneda porcentaje_cuenta) {
    if (!porcentaje.es_cero() || base_minima > base.absoluta())
        return {};
    return porcentaje_cuenta;
}

Lados lados_que_cuadran(Moneda debitos, Moneda creditos) {
    const Moneda diferencia = debitos - creditos;
    return diferencia <= Moneda() ? Lados{-diferencia, {}} : Lados{{}, diferencia};
}
