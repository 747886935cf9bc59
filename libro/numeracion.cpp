#include "libro/numeracion.h"

#include "datos/firebird/errores.h"

namespace {

Rechazo de_numero(Motivo motivo, const QString& texto) {
    Rechazo r;
    r.motivo = motivo;
    r.texto = texto;
    r.campo = QStringLiteral("ENCO_NUMERO");
    return r;
}

QString agotado(const QString& tipo, const QString& prefijo) {
    return QStringLiteral("El prefijo %1 del tipo %2 ya usó el 999999, su último número. Registre "
                          "otro prefijo para el tipo y escójalo en el comprobante.")
        .arg(prefijo, tipo);
}

} // namespace

QString complete_numero(const QString& numero, int n) {
    return numero.size() >= n ? numero : numero.rightJustified(n, '0');
}

std::optional<PrefijoContable> prefijo_contable(Conexion& conexion, const QString& tipo,
                                                const QString& prefijo) {
    const auto c = conexion.abra("select pref_numero, prco_auto, prco_activo from prefijos_conta "
                                 "where tico_cod = ? and prco_pref = ?",
                                 {tipo, prefijo});
    if (!c->siguiente())
        return {};
    return PrefijoContable{c->valor(0).texto().trimmed(), c->valor(1).texto() == "S",
                           c->valor(2).texto() == "S"};
}

std::optional<Rechazo> revise_contador(const QString& tipo, const QString& prefijo,
                                       const QString& siguiente) {
    if (siguiente.trimmed().size() <= kCifrasNumero)
        return {};
    return de_numero(Motivo::NumeroAgotado, agotado(tipo, prefijo));
}

QString id_del_numero(Conexion& conexion, const QString& tipo, const QString& prefijo,
                      const QString& numero) {
    if (numero.isEmpty())
        return {};
    return conexion
        .consulte("select enco_consec from comprobante_encabezado where tico_cod = " +
                  QuotedStr(tipo) + " and prco_pref = " + QuotedStr(prefijo) +
                  " and enco_numero = " + QuotedStr(complete_numero(numero)))
        .texto();
}

std::optional<Rechazo> revise_numero(Conexion& conexion, const QString& tipo,
                                     const QString& prefijo, const QString& numero) {
    const QString id = id_del_numero(conexion, tipo, prefijo, numero);
    if (id.isEmpty())
        return {};
    Rechazo r =
        de_numero(Motivo::NumeroTomado, "Comprobante " + numero + " previamente registrado.");
    r.oferta = Oferta::ConsultarComprobante;
    r.pregunta = r.texto + " Consultar?";
    r.dato = id;
    return r;
}

QString adelante_contador(Conexion& conexion, const QString& tipo, const QString& prefijo,
                          const QString& numero) {
    QString libre = numero;
    do {
        bool bien = false;
        const int n = libre.toInt(&bien);
        if (!bien)
            throw ErrorDatos(QStringLiteral("'%1' no es un valor entero válido.").arg(libre));
        libre = complete_numero(QString::number(n + 1));
        if (libre.size() > kCifrasNumero)
            throw ErrorDatos(agotado(tipo, prefijo));
        // Otro puede haberlo llevado más lejos: solo se adelanta.
        conexion.ejecute(
            "update prefijos_conta set pref_numero = " + QuotedStr(libre) +
            " where tico_cod = " + QuotedStr(tipo) + " and prco_pref = " + QuotedStr(prefijo) +
            " and lpad(trim(pref_numero), 8, '0') < " + QuotedStr(complete_numero(libre, 8)));
    } while (!id_del_numero(conexion, tipo, prefijo, libre).isEmpty());
    return libre;
}
