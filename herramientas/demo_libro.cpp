#include "herramientas/demo_libro.h"

namespace {

// Comprobantes por transacción: bastantes para no pagar una confirmación por cada uno, y pocos para
// que lo que la base recuerda de la transacción en curso siga siendo corto.
constexpr int kLote = 250;

const QString kColumnas =
    QStringLiteral("(enco_consec, code_item, cuen_cod, code_concepto, code_debito, code_credito,"
                   " code_base, code_porc, terc_nit, proy_cod, cent_cod, arti_cod, doco_vence,"
                   " code_tiponue, code_tipoapl, cnde_docnumero, cnde_docaplica, code_descontable,"
                   " conc_cod) values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,'S','01')");

void exija_cuadre(const AsientoDemo& a, const QVector<RenglonDemo>& renglones) {
    Moneda debitos, creditos;
    for (const RenglonDemo& r : renglones) {
        debitos += r.debito;
        creditos += r.credito;
    }
    if (renglones.isEmpty() || debitos != creditos)
        throw ErrorDatos(QStringLiteral("El asiento %1 '%2' del %3 no cuadra: %4 y %5.")
                             .arg(a.tipo, a.concepto, a.fecha, debitos.texto(), creditos.texto()));
}

} // namespace

struct LibroDemo::Sentencias {
    explicit Sentencias(Conexion& c)
        : transaccion(c, Transaccion::Modo::Escritura),
          id(c, transaccion, QStringLiteral("execute procedure cambie_id_comproba")),
          encabezado(c, transaccion,
                     QStringLiteral("insert into comprobante_encabezado (enco_consec, tico_cod,"
                                    " prco_pref, enco_numero, enco_fecha, enco_concepto,"
                                    " enco_tiporef, enco_idref, enco_usuario, terc_nit,"
                                    " enco_nomterc, enco_monto, enco_descontable, enco_repniif)"
                                    " values (?,?,?,?,?,?,0,0,?,?,coalesce(cast(? as varchar(60)),"
                                    " (select terc_nom from terceros where terc_nit = ?)),?,"
                                    "'S','N')")),
          detalle(c, transaccion, QStringLiteral("insert into comprobante_detalle ") + kColumnas),
          niif(c, transaccion,
               QStringLiteral("insert into comprobante_detalle_niif ") + kColumnas) {}
    Transaccion transaccion;
    Preparada id, encabezado, detalle, niif;
};

Moneda cuenta_demo::parte(Moneda base, int milesimas) {
    return Moneda::porcentaje(base, Moneda::de_escalado(milesimas, 3)).redondeada(0);
}

void AsientoDemo::debite(const QString& cuenta, Moneda valor, const RenglonDemo& datos) {
    if (valor.es_cero())
        return;
    renglones.push_back(datos);
    renglones.back().cuenta = cuenta;
    (valor.negativa() ? renglones.back().credito : renglones.back().debito) = valor.absoluta();
}

void AsientoDemo::acredite(const QString& cuenta, Moneda valor, const RenglonDemo& datos) {
    debite(cuenta, -valor, datos);
}

LibroDemo::LibroDemo(Conexion& conexion) : conexion_(conexion) {
    const auto c = conexion.abra(
        QStringLiteral("select tico_cod, prco_pref, pref_numero from prefijos_conta"));
    while (c->siguiente())
        numeros_[c->valor(0).texto() + c->valor(1).texto()] = int(c->valor(2).entero());
}

LibroDemo::~LibroDemo() = default;

QString LibroDemo::proximo(const QString& tipo, const QString& prefijo) const {
    return QString::number(numeros_.value(tipo + prefijo, 1)).rightJustified(6, QLatin1Char('0'));
}

QString LibroDemo::asiente(const AsientoDemo& a) {
    const QVector<RenglonDemo>& niif = a.niif.isEmpty() ? a.renglones : a.niif;
    exija_cuadre(a, a.renglones);
    exija_cuadre(a, niif);
    if (!s_)
        s_ = std::make_unique<Sentencias>(conexion_);
    const QString numero = proximo(a.tipo, a.prefijo);
    ++numeros_[a.tipo + a.prefijo];
    const qint64 id = s_->id.ejecute_con_salida(s_->transaccion, {}).front().entero();
    Moneda monto;
    for (const RenglonDemo& r : a.renglones)
        monto += r.debito;
    const char* usuario = comprobantes_ % 3 == 0 ? "ADMIN" : "AUXILIAR";
    s_->encabezado.ejecute(s_->transaccion,
                           {Valor(id), Valor(a.tipo), Valor(a.prefijo), Valor(numero),
                            Valor(a.fecha), Valor(a.concepto), Valor(usuario), nulo_si_vacio(a.nit),
                            nulo_si_vacio(a.nombre), nulo_si_vacio(a.nit), Valor(monto)});
    escriba(s_->detalle, id, a, a.renglones);
    escriba(s_->niif, id, a, niif);
    renglones_ += a.renglones.size();
    if (++comprobantes_ % kLote == 0)
        confirme();
    return numero;
}

void LibroDemo::escriba(Preparada& sentencia, qint64 id, const AsientoDemo& a,
                        const QVector<RenglonDemo>& renglones) {
    int item = 0;
    for (const RenglonDemo& r : renglones) {
        const int abre = r.documento.isEmpty() ? 0 : r.tipo_documento;
        const int aplica = r.aplica.isEmpty() ? 0 : r.tipo_documento;
        sentencia.ejecute(
            s_->transaccion,
            {Valor(id), Valor(++item), Valor(r.cuenta), Valor(a.concepto), Valor(r.debito),
             Valor(r.credito), r.base.es_cero() ? Valor() : Valor(r.base),
             r.porcentaje.es_cero() ? Valor() : Valor(r.porcentaje), nulo_si_vacio(r.nit),
             nulo_si_vacio(r.proyecto), nulo_si_vacio(r.centro), nulo_si_vacio(r.articulo),
             nulo_si_vacio(r.vence), abre ? Valor(abre) : Valor(), aplica ? Valor(aplica) : Valor(),
             nulo_si_vacio(r.documento), nulo_si_vacio(r.aplica)});
    }
}

void LibroDemo::confirme() {
    if (!s_)
        return;
    s_->transaccion.confirme();
    s_.reset();
}
