// El rango de un informe como se lee en el papel: "Cuentas 11 a 1399 · del 2017/02/01 al
// 2017/02/28". El título que compone cada pantalla es otro: va al pie, con los límites tal como se
// digitaron.
#include "catalogues/forma_rango.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

namespace {

constexpr int kDias = 8; ///< cifras de una fecha

QString dia(const QString& aaaammdd) {
    return aaaammdd.size() == kDias
               ? aaaammdd.left(4) + '/' + aaaammdd.mid(4, 2) + '/' + aaaammdd.mid(6)
               : aaaammdd;
}

QString fechas(const QString& desde, const QString& hasta) {
    const bool sin_fin = hasta.isEmpty() || hasta >= QLatin1String("9999");
    if (desde.isEmpty())
        return sin_fin ? QStringLiteral("todas las fechas") : "hasta el " + dia(hasta);
    return sin_fin ? "desde el " + dia(desde) : "del " + dia(desde) + " al " + dia(hasta);
}

QString mes_en_letras(const FormaRango& forma, const char* caja) {
    static const QStringList codigos{"ENE", "FEB", "MAR", "ABR", "MAY", "JUN", "JUL",
                                     "AGO", "SEP", "OCT", "NOV", "DIC", "AJU"};
    const auto* lista = forma.findChild<QComboBox*>(QLatin1String(caja));
    return Tfdm::nombres_periodo().value(int(codigos.indexOf(lista->currentText()))).toLower();
}

} // namespace

QString FormaRango::tramo_legible(const QString& rotulo, const QString& desde,
                                  const QString& hasta) {
    const bool sin_comienzo = desde.isEmpty() || desde == QLatin1String("0");
    const bool sin_fin = hasta.isEmpty() || hasta.toUpper() == QLatin1String("ZZ");
    if (sin_comienzo && sin_fin)
        return (rotulo == QLatin1String("Cuentas") ? QStringLiteral("todas las ")
                                                   : QStringLiteral("todos los ")) +
               rotulo.toLower();
    if (sin_fin)
        return rotulo + " desde " + desde;
    if (sin_comienzo)
        return rotulo + " hasta " + hasta;
    return desde == hasta ? rotulo + ' ' + desde : rotulo + ' ' + desde + " a " + hasta;
}

QString FormaRango::tiempo_legible() const {
    const auto ano = [this](const char* caja) {
        const auto* numero = findChild<QSpinBox*>(QLatin1String(caja));
        return numero ? QString::number(numero->value()) : QString();
    };
    if (caja_periodo)
        return Tfdm::nombres_periodo()[periodo.indice] + " de " + QString::number(periodo.ano);
    if (!ano("EAno1").isEmpty())
        return mes_en_letras(*this, "MesIni") + " de " + ano("EAno1") + " frente a " +
               mes_en_letras(*this, "MesFin") + " de " + ano("EAno2");
    if (ano("EAno").isEmpty())
        return {};
    if (findChild<QComboBox*>(QStringLiteral("MesIni")))
        return mes_en_letras(*this, "MesIni") + " a " + mes_en_letras(*this, "MesFin") + " de " +
               ano("EAno");
    return "año " + ano("EAno");
}

QString FormaRango::rango_legible() {
    QStringList partes{tiempo_legible()};
    for (const ParRango& par : datos_.pares) {
        const QString desde = valor(par.desde), hasta = valor(par.hasta);
        if (par.clase == ClaseRango::Fecha)
            partes << fechas(desde, hasta);
        else if (par.uso == UsoPar::Rango || !desde.isEmpty() || !hasta.isEmpty())
            partes << tramo_legible(par.rotulo, desde, hasta);
    }
    if (const auto* nivel = findChild<QSpinBox*>(QStringLiteral("Nivel")))
        partes << "nivel " + QString::number(nivel->value());
    partes.removeAll(QString());
    QString texto = partes.join(QStringLiteral(" · "));
    if (!texto.isEmpty())
        texto[0] = texto[0].toUpper();
    return texto;
}

QString FormaRango::libro_legible() const {
    if (!ckniif)
        return {};
    return niif() ? QStringLiteral("NIIF") : QStringLiteral("2649");
}
