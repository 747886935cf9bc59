#include "fallas/diario.h"

void Diario::lea(const QString& salida) {
    std::optional<Anuncio> pendiente;
    for (const QString& renglon : salida.split('\n', Qt::SkipEmptyParts)) {
        const QStringList p = renglon.split(' ');
        const QString que = p.value(1);
        if (p[0] == ">") {
            if (pendiente)
                dudosos_ << *pendiente;
            const bool nuevo = que == "graba" || que == "pagina";
            pendiente =
                Anuncio{que, nuevo ? QString() : p.value(2), nuevo ? p.value(2) : p.value(3)};
            continue;
        }
        pendiente.reset();
        ++hechas_;
        const QString numero = p.value(2);
        const bool estaba = valores_.contains(numero);
        if (estaba == (que == "graba" || que == "pagina"))
            quejas_ << "dio por hecho: " + renglon;
        if (que == "borra") {
            valores_.remove(numero);
        } else {
            valores_[numero] = p.value(3);
            anteriores_[numero] << p.value(3);
        }
    }
    if (pendiente)
        dudosos_ << *pendiente;
}

bool Diario::admite(const QString& numero, const std::optional<QString>& en_la_base) const {
    for (const Anuncio& a : dudosos_) {
        if (a.que == "borra" && a.numero == numero && !en_la_base)
            return true;
        if (a.que != "borra" && en_la_base == a.valor && (a.numero.isEmpty() || a.numero == numero))
            return true;
    }
    return false;
}

QString Diario::compare(Conexion& c) {
    QMap<QString, QString> vistos;
    QStringList quejas = std::exchange(quejas_, {});
    // Entero: cada libro cuadrado. Una corrección cambia el 2649; el NIIF la sigue o se queda en un
    // valor que tuvo.
    const auto cursor = c.abra(
        "select e.enco_numero, d.debito, d.credito, n.debito, n.credito from "
        "comprobante_encabezado e left join (select enco_consec, sum(code_debito) debito, "
        "sum(code_credito) credito from comprobante_detalle group by 1) d on d.enco_consec = "
        "e.enco_consec left join (select enco_consec, sum(code_debito) debito, sum(code_credito) "
        "credito from comprobante_detalle_niif group by 1) n on n.enco_consec = e.enco_consec");
    while (cursor->siguiente()) {
        const QString numero = cursor->valor(0).texto();
        const QString valor = cursor->valor(1).texto(), niif = cursor->valor(3).texto();
        anteriores_[numero] << valores_.value(numero) << valor;
        if (valor.isEmpty() || niif.isEmpty() || cursor->valor(2).texto() != valor ||
            cursor->valor(4).texto() != niif || !anteriores_[numero].contains(niif))
            quejas << numero + " quedó a medias";
        if (vistos.contains(numero))
            quejas << numero + " está dos veces";
        vistos[numero] = valor;
    }
    for (auto i = vistos.begin(); i != vistos.end(); ++i) {
        const QString dicho = valores_.value(i.key());
        if (dicho != i.value() && !admite(i.key(), i.value()))
            quejas << QString("%1 dice %2 y se dio por grabado %3").arg(i.key(), i.value(), dicho);
    }
    for (auto i = valores_.begin(); i != valores_.end(); ++i)
        if (!vistos.contains(i.key()) && !admite(i.key(), {}))
            quejas << i.key() + " se dio por grabado y no está";
    valores_ = vistos;
    dudosos_.clear();
    return quejas.join('\n');
}
