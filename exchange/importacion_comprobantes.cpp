// Importación de comprobantes a un libro.
#include "exchange/diario_importacion.h"
#include "exchange/importacion_clases.h"

#include "libro/numeracion.h"

namespace {

constexpr int kAsiento = 1; ///< las líneas por asentar viven lo que la transacción

QString unida(const LlaveComprobante& l) {
    return l.tipo + QChar(0x1F) + l.prefijo + QChar(0x1F) + l.numero;
}

/// Con seis cifras, como se guarda, aunque traiga más ceros; uno que no es de cifras, como vino.
QString numero_completo(const QString& numero) {
    for (const QChar c : numero)
        if (c < '0' || c > '9')
            return numero;
    qsizetype sobran = 0;
    while (numero.size() - sobran > kCifrasNumero && numero[sobran] == '0')
        ++sobran;
    return numero.isEmpty() ? numero : complete_numero(numero.mid(sobran));
}

const QStringList kEncabezado{"ENCO_FECHA", "ENCO_CONCEPTO", "ENCO_REFER"};
const QStringList kLinea{"CUEN_COD",  "TERC_NIT",  "PROY_COD",    "CENT_COD",    "ARTI_COD",
                         "CODE_BASE", "CODE_PORC", "CODE_DEBITO", "CODE_CREDITO"};

} // namespace

void ImportacionComprobantes::prepare() {
    if (diario)
        for (const LlaveComprobante& l : diario->desde().nuevos)
            nuevos_.insert(unida(l));
}

void ImportacionComprobantes::procese(const RegistroLeido& registro) {
    QString razon = lea(registro, kEncabezado);
    const LlaveComprobante llave{texto("TICO_COD"), texto("PRCO_PREF"),
                                 numero_completo(texto("ENCO_NUMERO"))};
    muestre(llave.tipo + ' ' + llave.prefijo + ' ' + llave.numero);
    if (!abierto_ || llave != llave_) {
        cierre();
        llave_ = llave;
        falla_encabezado_ = lea(registro, kLinea);
        empiece();
        razon = lea(registro, kEncabezado);
    }
    agregue(registro, razon);
}

void ImportacionComprobantes::empiece() {
    abierto_ = true;
    fecha_ = texto("ENCO_FECHA");
    concepto_ = texto("ENCO_CONCEPTO");
    referencia_ = texto("ENCO_REFER");
    debitos_ = creditos_ = Moneda();
    renglones_.clear();
    id_ = 0;
    ultimo_ = 0;
    supuesto_ = false;
    if (const auto s = supuestos_.constFind(unida(llave_)); s != supuestos_.constEnd()) {
        supuesto_ = true;
        fecha_ = s->fecha;
        ultimo_ = s->ultimo;
        falla_encabezado_.clear();
        return;
    }
    id_ = conexion_
              .consulte("select enco_consec from comprobante_encabezado where tico_cod = ? and "
                        "prco_pref = ? and enco_numero = ?",
                        {llave_.tipo, llave_.prefijo, llave_.numero})
              .entero();
    if (id_ == 0)
        return;
    falla_encabezado_.clear(); // el encabezado que ya está no cambia
    ultimo_ =
        int(conexion_
                .consulte(QStringLiteral("select max(code_item) from %1 where enco_consec = ?")
                              .arg(QLatin1String(datos(libro()).detalle)),
                          {id_})
                .entero());
}

void ImportacionComprobantes::agregue(const RegistroLeido& registro, const QString& razon) {
    Renglon r{registro, {}, {}};
    LineaComprobante& l = r.linea;
    l.cuenta = texto("CUEN_COD");
    l.nit = texto("TERC_NIT");
    l.proyecto = texto("PROY_COD");
    l.centro = texto("CENT_COD");
    l.articulo = texto("ARTI_COD");
    l.base = valor("CODE_BASE").moneda();
    l.porcentaje = valor("CODE_PORC").moneda();
    l.debito = valor("CODE_DEBITO").moneda();
    l.credito = valor("CODE_CREDITO").moneda();
    l.item = ++ultimo_;
    if (!razon.isEmpty())
        falle(r, razon);
    else
        revise(r);
    renglones_.append(r);
    try {
        debitos_ += l.debito;
        creditos_ += l.credito;
    } catch (const ErrorMoneda&) {
        falla_encabezado_ = QStringLiteral("El comprobante suma más de lo que cabe.");
    }
}

void ImportacionComprobantes::falle(Renglon& renglon, const QString& razon) {
    renglon.razones << razon;
    if (anote)
        anote(razon, llave_);
}

void ImportacionComprobantes::revise(Renglon& r) {
    const LineaComprobante& l = r.linea;
    r.sin_cuenta = l.cuenta.isEmpty();
    if (r.sin_cuenta)
        return;
    const LineaImportada i{l.cuenta, l.nit, l.proyecto, l.centro, l.articulo, l.base, l.porcentaje};
    if (!revisor_.cuenta_vale(l.cuenta))
        falle(r, QStringLiteral("Cuenta incorrecta."));
    else if (!revisor_.completa(i, true))
        falle(r, "Faltan detalles (tercero/proy/centro) para la cuenta " + l.cuenta);
    QStringList razones;
    revisor_.revise_codigos(i, razones);
    for (const QString& razon : razones)
        falle(r, razon);
}

// ---------------------------------------------------------------- cierre

void ImportacionComprobantes::cierre() {
    if (!abierto_)
        return;
    abierto_ = false;
    bool en_blanco = llave_ == LlaveComprobante{};
    for (const Renglon& r : renglones_)
        en_blanco = en_blanco && r.registro.en_blanco();
    if (en_blanco) { // un renglón vacío solo separa
        resultado_.omitidos += renglones_.size();
        return;
    }
    QString falla = falla_encabezado_;
    if (falla.isEmpty() && debitos_ != creditos_ && !ajustes_.permite_descuadre)
        falla = QStringLiteral("Comprobante descuadrado.");
    if (falla.isEmpty() && id_ == 0 && !supuesto_)
        falla = asegure_prefijo();
    numero_final_.clear();
    if (falla.isEmpty() && !ya_entro())
        falla = asiente();
    if (!falla.isEmpty() && anote)
        anote(falla, llave_);
    reparta(falla);
    if (falla.isEmpty() && diario)
        diario->grabado(renglones_.last().registro.renglon, numero_final_);
}

void ImportacionComprobantes::reparta(const QString& falla) {
    int entraron = 0;
    for (const Renglon& r : renglones_) {
        QStringList razones = r.razones;
        if (r.sin_cuenta && !(r.linea.debito.es_cero() && r.linea.credito.es_cero()))
            razones << QStringLiteral("La línea no trae cuenta.");
        else if (razones.isEmpty() && !falla.isEmpty())
            razones << falla;
        if (!razones.isEmpty())
            rechace(r.registro, razones.join(' '));
        else if (r.sin_cuenta)
            ++resultado_.omitidos;
        else
            ++entraron;
    }
    resultado_.grabados += entraron;
    if (id_ == 0)
        nuevos_.insert(unida(llave_));
    else if (!nuevos_.contains(unida(llave_)))
        resultado_.agregados += entraron;
    if (falla.isEmpty() && peticion_.ensayo && id_ == 0)
        supuestos_[unida(llave_)] = {fecha_, ultimo_};
}

QString ImportacionComprobantes::llave_prefijo() const {
    return llave_.tipo + QChar(0x1F) + llave_.prefijo;
}

void ImportacionComprobantes::inserte_prefijo(Transaccion& t) {
    t.conexion()
        .prepare("insert into prefijos_conta (tico_cod, prco_pref, pref_numero, prco_auto, "
                 "prco_activo) values (?, ?, ?, 'N', 'S')",
                 t)
        ->ejecute(t, {llave_.tipo, llave_.prefijo, llave_.numero});
}

QString ImportacionComprobantes::asegure_prefijo() {
    const QString llave = llave_prefijo();
    if (prefijos_.contains(llave) || prefijo_contable(conexion_, llave_.tipo, llave_.prefijo)) {
        prefijos_.insert(llave);
        return {};
    }
    if (conexion_.consulte("select 1 from tipo_comprobante where tico_cod = ?", {llave_.tipo})
            .nulo())
        return QStringLiteral("El tipo de comprobante %1 no existe.").arg(llave_.tipo);
    // En un ensayo nace con cada comprobante y se va con él.
    if (peticion_.ensayo)
        return {};
    const QString falla = escriba([&](Transaccion& t) { inserte_prefijo(t); });
    if (falla.isEmpty())
        prefijos_.insert(llave);
    return falla;
}

bool ImportacionComprobantes::ya_entro() {
    if (!diario || id_ == 0)
        return false;
    const auto duda = diario->desde().en_duda.constFind(renglones_.first().registro.renglon);
    if (duda == diario->desde().en_duda.constEnd())
        return false;
    QHash<qint64, QString> hay;
    const auto linea = [](const QString& cuenta, Moneda debito, Moneda credito) {
        return cuenta + ' ' + debito.formateada() + ' ' + credito.formateada();
    };
    const auto c = conexion_.abra(
        QStringLiteral("select code_item, cuen_cod, code_debito, code_credito from %1 where "
                       "enco_consec = ?")
            .arg(QLatin1String(datos(libro()).detalle)),
        {id_});
    while (c->siguiente())
        hay[c->valor(0).entero()] =
            linea(c->valor(1).texto(), c->valor(2).moneda(), c->valor(3).moneda());
    int item = duda->ultimo;
    for (const Renglon& r : renglones_) {
        const LineaComprobante& l = r.linea;
        if (++item; r.entra() && hay.value(item) != linea(l.cuenta, l.debito, l.credito))
            return false;
    }
    if (duda->ultimo == 0)
        nuevos_.insert(unida(llave_));
    return true;
}

QString ImportacionComprobantes::asiente() {
    if (!peticion_.ensayo) {
        if (diario)
            diario->por_grabar(renglones_.first().registro.renglon, ultimo_ - renglones_.size(),
                               llave_);
        return escriba([this](Transaccion& t) {
            ponga_lineas(t);
            grabe(t);
        });
    }
    try {
        Transaccion t(conexion_, ModoTransaccion::Escritura); // se deshace
        ponga_lineas(t);
        return revise_en_base(t);
    } catch (const ErrorBase& falla) {
        if (falla.conexion_perdida())
            throw;
        return falla.para_usuario();
    }
}

void ImportacionComprobantes::ponga_lineas(Transaccion& t) {
    const auto inserte = t.conexion().prepare(
        "insert into asiento_linea (asie_id, libro, code_item, cuen_cod, code_debito, "
        "code_credito, code_base, code_porc, terc_nit, proy_cod, cent_cod, arti_cod) values (?, ?, "
        "?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        t);
    for (const Renglon& r : renglones_) {
        const LineaComprobante& l = r.linea;
        if (r.entra())
            inserte->ejecute(t, {kAsiento, QString(QLatin1String(datos(libro()).nombre)), l.item,
                                 l.cuenta, l.debito, l.credito, l.base, l.porcentaje,
                                 nulo_si_vacio(l.nit), nulo_si_vacio(l.proyecto),
                                 nulo_si_vacio(l.centro), nulo_si_vacio(l.articulo)});
    }
}

QString ImportacionComprobantes::revise_en_base(Transaccion& t) {
    QString sql = QStringLiteral("select first 1 texto from revise_aumento(?, ?)");
    QVector<Valor> valores{kAsiento, id_};
    if (supuesto_) {
        sql = QStringLiteral("select first 1 texto from revise_asiento_cuerpo(?, ?)");
        valores = {kAsiento, fecha_};
    } else if (id_ == 0) {
        sql = QStringLiteral("select first 1 texto from revise_asiento(?, ?, ?, ?, ?)");
        valores = {kAsiento, llave_.tipo, llave_.prefijo, llave_.numero, fecha_};
        if (!prefijos_.contains(llave_prefijo()))
            inserte_prefijo(t);
    }
    Cursor c(t.conexion().prepare(sql, t), t, valores);
    return c.siguiente() ? c.valor(0).texto() : QString();
}

void ImportacionComprobantes::grabe(Transaccion& t) {
    if (id_ != 0) {
        t.conexion()
            .prepare("execute procedure aumente_comprobante(?, ?)", t)
            ->ejecute(t, {kAsiento, id_});
        return;
    }
    numero_final_ =
        t.conexion()
            .prepare(
                "execute procedure asiente_comprobante(?, ?, ?, ?, ?, ?, ?, 0, 0, ?, null, null, "
                "null, null, 'N', null)",
                t)
            ->ejecute_con_salida(t,
                                 {kAsiento, llave_.tipo, llave_.prefijo, llave_.numero, fecha_,
                                  nulo_si_vacio(concepto_), nulo_si_vacio(referencia_), usuario_})
            .value(1)
            .texto();
}

std::unique_ptr<Importacion> importacion_de(Conexion& conexion, const PeticionImportacion& peticion,
                                            const AjustesLibro& ajustes, const QString& usuario) {
    switch (peticion.clase) {
    case ClaseImportacion::Cuentas:
        return std::make_unique<ImportacionCuentas>(conexion, peticion, ajustes, usuario);
    case ClaseImportacion::Terceros:
        return std::make_unique<ImportacionTerceros>(conexion, peticion, ajustes, usuario);
    case ClaseImportacion::Comprobantes:
        return std::make_unique<ImportacionComprobantes>(conexion, peticion, ajustes, usuario);
    default:
        return std::make_unique<ImportacionSaldos>(conexion, peticion, ajustes, usuario);
    }
}
