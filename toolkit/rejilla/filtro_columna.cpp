#include "toolkit/rejilla/filtro_columna.h"

#include "toolkit/tecleo.h"

#include <QRegularExpression>

FiltroColumna::FiltroColumna(const QString& expresion) {
    static const std::pair<QLatin1String, Operador> kOperadores[] = {
        {QLatin1String("<="), Operador::MenorIgual}, {QLatin1String(">="), Operador::MayorIgual},
        {QLatin1String("<>"), Operador::Distinto},   {QLatin1String("="), Operador::Igual},
        {QLatin1String("<"), Operador::Menor},       {QLatin1String(">"), Operador::Mayor},
    };
    QString t = expresion.trimmed();
    if (t.isEmpty())
        return;
    operador_ = Operador::Contiene;
    for (const auto& [signo, operador] : kOperadores)
        if (t.startsWith(signo)) {
            operador_ = operador;
            t = t.mid(signo.size()).trimmed();
            break;
        }
    texto_ = texto_llano(t);
    if (!t.isEmpty())
        numero_ = Moneda::intente(t);
    // "<" a medio escribir no compara con nada.
    if (t.isEmpty() && operador_ != Operador::Igual && operador_ != Operador::Distinto)
        operador_ = Operador::Ninguno;
}

bool FiltroColumna::cumple(const Valor& valor, const QString& presentado) const {
    if (operador_ == Operador::Ninguno)
        return true;
    if (operador_ == Operador::Contiene)
        return texto_llano(presentado).contains(texto_) ||
               texto_llano(valor.texto()).contains(texto_);
    const bool es_numero = std::holds_alternative<Moneda>(valor.dato()) ||
                           std::holds_alternative<qint64>(valor.dato());
    int orden = 0;
    if (texto_.isEmpty()) {
        orden = presentado.isEmpty() ? 0 : 1;
    } else if (es_numero && numero_) {
        const Moneda m = valor.moneda();
        orden = m < *numero_ ? -1 : m > *numero_ ? 1 : 0;
    } else {
        if (valor.nulo() && operador_ != Operador::Distinto)
            return false;
        // Una fecha se puede escribir con o sin sus barras.
        static const QRegularExpression fecha(QStringLiteral("^\\d{4}/\\d\\d/\\d\\d$"));
        if (fecha.match(presentado).hasMatch())
            orden = QString(presentado).remove('/').compare(QString(texto_).remove('/'));
        else
            orden = texto_llano(presentado).compare(texto_);
    }
    switch (operador_) {
    case Operador::Igual:
        return orden == 0;
    case Operador::Distinto:
        return orden != 0;
    case Operador::Menor:
        return orden < 0;
    case Operador::MenorIgual:
        return orden <= 0;
    case Operador::Mayor:
        return orden > 0;
    default:
        return orden >= 0;
    }
}
