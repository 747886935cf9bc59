// Importación de los saldos iniciales de un libro.
#include "exchange/importacion_clases.h"

#include "libro/catalogos.h"

QString ImportacionSaldos::tabla() const {
    return QStringLiteral("saldos_iniciales") + QLatin1String(datos(libro()).sufijo);
}

void ImportacionSaldos::tome_turno() {
    turno_ = std::make_unique<Transaccion>(conexion_, ModoTransaccion::EscrituraSinEspera);
    try {
        // Abrir un auxiliar toma todas las filas. La primera se deja a quien agrega un saldo.
        Cursor c(conexion_.prepare("select estr_nivel from estructura where estr_nivel > "
                                   "(select min(estr_nivel) from estructura) with lock",
                                   *turno_),
                 *turno_, {});
        while (c.siguiente()) {
        }
    } catch (const ErrorBase& falla) {
        if (!falla.conflicto())
            throw;
        throw ErrorDatos(QStringLiteral("Otro usuario está importando saldos iniciales. Espere a "
                                        "que termine y revise lo que dejó antes de importar."));
    }
}

void ImportacionSaldos::detenidos_por_el_turno() {
    // La transacción que va hasta el final retendría con esa fila a los demás: le basta el turno.
    (void)escriba([](Transaccion& t) {
        Cursor c(t.conexion().prepare("select rdb$set_context('USER_TRANSACTION', "
                                      "'AUXILIARES_DETENIDOS', 'S') from rdb$database",
                                      t),
                 t, {});
        (void)c.siguiente();
    });
}

void ImportacionSaldos::lea_item(Transaccion& t) {
    Cursor c(t.conexion().prepare(
                 QStringLiteral("select maxvalue(count(*), coalesce(max(sain_item), 0)) from %1")
                     .arg(tabla()),
                 t),
             t, {});
    if (c.siguiente())
        item_ = c.valor(0).entero();
}

void ImportacionSaldos::prepare() {
    if (const QString negativa = negativa_de_saldos_iniciales(conexion_, libro());
        !negativa.isEmpty())
        throw ErrorDatos(negativa + ". Los saldos iniciales no se pueden cambiar.");
    tome_turno();
    if (peticion_.borre_saldos) {
        todo_junto();
        const QString falla = escriba([&](Transaccion& t) {
            t.conexion().prepare(QStringLiteral("delete from %1").arg(tabla()), t)->ejecute(t, {});
        });
        if (!falla.isEmpty())
            throw ErrorDatos(falla);
        resultado_.siguen_los_anteriores = true; // mientras no se confirme
    }
    detenidos_por_el_turno();
    // Con números saltados la cuenta de filas repetiría uno que ya está.
    (void)escriba([&](Transaccion& t) { lea_item(t); });
}

void ImportacionSaldos::termine() {
    if (peticion_.borre_saldos && resultado_.grabados == 0)
        return; // un archivo equivocado no deja a la compañía sin saldos
    (void)escriba([&](Transaccion& t) {
        Cursor c(t.conexion().prepare(QStringLiteral("select coalesce(sum(sain_debito), 0), "
                                                     "coalesce(sum(sain_credito), 0) from %1")
                                          .arg(tabla()),
                                      t),
                 t, {});
        if (c.siguiente())
            resultado_.saldos = {c.valor(0).moneda(), c.valor(1).moneda()};
    });
    confirme_junto();
    resultado_.siguen_los_anteriores = false;
}

void ImportacionSaldos::inserte(Transaccion& t) {
    t.conexion()
        .prepare(
            QStringLiteral("insert into %1 (sain_item, cuen_cod, terc_nit, proy_cod, cent_cod, "
                           "arti_cod, sain_debito, sain_credito, doco_numero, doco_vence, "
                           "sain_tipodoc) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
                .arg(tabla()),
            t)
        ->ejecute(t, {item_, valor("CUEN_COD"), valor("TERC_NIT"), valor("PROY_COD"),
                      valor("CENT_COD"), valor("ARTI_COD"), valor("SAIN_DEBITO").moneda(),
                      valor("SAIN_CREDITO").moneda(), valor("DOCO_NUMERO"), valor("DOCO_VENCE"),
                      valor("SAIN_TIPODOC")});
}

QString ImportacionSaldos::rechazo_de_documento() {
    const QString tipo = texto("SAIN_TIPODOC");
    if (tipo.isEmpty() ||
        codigos(QStringLiteral("select tido_cod from tipo_documento")).contains(tipo))
        return {};
    const QStringList& ofrecidos =
        codigos(QStringLiteral("select tido_cod from tipo_documento where tido_cart = 'S' or "
                               "tido_cxp = 'S' order by tido_cod"));
    return QStringLiteral("El tipo de documento %1 no existe: los de cartera y cuentas por pagar "
                          "son %2.")
        .arg(tipo, ofrecidos.join(QStringLiteral(", ")));
}

QStringList ImportacionSaldos::revise(const LineaImportada& l) {
    if (!revisor_.existe_cuenta(l.cuenta))
        return {"Cuenta no existente " + l.cuenta};
    QStringList razones;
    if (!revisor_.cuenta_vale(l.cuenta))
        razones << QStringLiteral("Cuenta no afectable.");
    if (!revisor_.completa(l, false))
        razones << "Faltan detalles para el saldo inicial de la cuenta " + l.cuenta;
    revisor_.revise_codigos(l, razones);
    if (!valor("SAIN_DEBITO").moneda().es_cero() && !valor("SAIN_CREDITO").moneda().es_cero())
        razones << QStringLiteral("El saldo es débito o crédito, y no los dos.");
    if (const QString documento = rechazo_de_documento(); !documento.isEmpty())
        razones << documento;
    return razones;
}

void ImportacionSaldos::procese(const RegistroLeido& registro) {
    const QString mal_leido = lea(registro);
    if (mal_leido.isEmpty() && registro.en_blanco()) {
        ++resultado_.omitidos;
        return;
    }
    LineaImportada l;
    l.cuenta = texto("CUEN_COD");
    l.nit = texto("TERC_NIT");
    l.proyecto = texto("PROY_COD");
    l.centro = texto("CENT_COD");
    l.articulo = texto("ARTI_COD");
    muestre(l.cuenta + '-' + l.nit);
    ++item_;
    QStringList razones = mal_leido.isEmpty() ? revise(l) : QStringList{mal_leido};
    if (razones.isEmpty()) {
        const QString falla = escriba([&](Transaccion& t) {
            try {
                inserte(t);
            } catch (const ErrorBase& e) {
                if (e.clase() != ClaseFalla::LlaveRepetida)
                    throw;
                lea_item(t); // otro digitó saldos entre tanto y tomó el número
                ++item_;
                inserte(t);
            }
        });
        if (!falla.isEmpty())
            razones << falla;
    }
    if (razones.isEmpty()) {
        ++resultado_.grabados;
        return;
    }
    for (const QString& razon : razones)
        if (anote)
            anote(razon, llave_);
    rechace(registro, razones.join(' '));
}
