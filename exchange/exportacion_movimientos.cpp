#include "exchange/exportacion_movimientos.h"

#include "datos/firebird/letras.h"
#include "exchange/equivalencias.h"
#include "toolkit/exportacion/archivo_salida.h"

#include <QFileInfo>

namespace {

constexpr const char* kFin = "\r\n";
constexpr int kCamposWeb = 42;

/// Filas de la consulta, con sus columnas por nombre.
class Filas {
public:
    Filas(Transaccion& t, const QString& sql) : cursor_(t.conexion().prepare(sql, t), t, {}) {
        for (int i = 0; i < cursor_.columnas().size(); ++i)
            lugar_[cursor_.columnas()[i].nombre.toUpper()] = i;
    }
    bool siguiente() { return cursor_.siguiente(); }
    QString texto(const char* columna) const { return valor(columna).texto(); }
    Moneda moneda(const char* columna) const { return valor(columna).moneda(); }

private:
    Valor valor(const char* columna) const {
        const auto i = lugar_.constFind(QLatin1String(columna));
        if (i == lugar_.cend())
            throw std::logic_error(std::string("la consulta no trae ") + columna);
        return cursor_.valor(*i);
    }
    Cursor cursor_;
    QHash<QString, int> lugar_;
};

QString ceros(const QString& texto, int ancho) {
    return texto.rightJustified(ancho, '0');
}
QString blancos(const QString& texto, int ancho) {
    return texto.leftJustified(ancho, ' ', true);
}
/// Con dos decimales y sin miles.
QString importe(Moneda m) {
    const qint64 centavos = m.escalado(2);
    return QStringLiteral("%1%2.%3")
        .arg(centavos < 0 ? "-" : "")
        .arg(qAbs(centavos) / 100)
        .arg(qAbs(centavos) % 100, 2, 10, QChar('0'));
}
/// Un dato que no cabe correría todos los que siguen, y cortado sería otro.
QString quepa(const QString& texto, int ancho, const char* que) {
    if (texto.size() > ancho)
        throw ErrorDatos(QStringLiteral("%1 '%2' no cabe en el formato: son %3 caracteres y el "
                                        "campo tiene %4. Dele una equivalencia más corta o escoja "
                                        "otro destino.")
                             .arg(QString::fromUtf8(que), texto, QString::number(texto.size()),
                                  QString::number(ancho)));
    return texto;
}
QString limpio(const QString& texto, QChar separador) {
    return controles_a_blancos(texto).replace(separador, ' ').replace('"', ' ');
}
/// "ADMI" es el proyecto o centro que no lo es.
QString centro(const QString& codigo, const char* admi) {
    return codigo == "ADMI" ? QString::fromLatin1(admi) : codigo;
}

class Exportador {
public:
    Exportador(Transaccion& t, const PeticionExportacion& p) : t_(t), p_(p), equivalencias_(t) {}
    virtual ~Exportador() = default;
    virtual ResultadoExportacion corra() = 0;

protected:
    QString condicion(const char* tablas, const char* union_) const {
        QString sql = QStringLiteral(" FROM COMPROBANTE_ENCABEZADO E JOIN COMPROBANTE_DETALLE D ON "
                                     "E.ENCO_CONSEC = D.ENCO_CONSEC") +
                      QLatin1String(tablas) + " WHERE ENCO_FECHA >= " + QuotedStr(p_.desde) +
                      " and ENCO_FECHA <=" + QuotedStr(p_.hasta);
        if (!p_.tipo.isEmpty())
            sql += " and TICO_COD = " + QuotedStr(p_.tipo);
        if (!p_.prefijo.isEmpty())
            sql += " and PRCO_PREF = " + QuotedStr(p_.prefijo);
        return sql + QLatin1String(union_);
    }
    static QString orden() {
        return QStringLiteral(" order by E.ENCO_FECHA, D.ENCO_CONSEC, CODE_ITEM");
    }
    PrefijoExportado prefijo(const Filas& f) const {
        return equivalencias_.prefijo(f.texto("TICO_COD"), f.texto("PRCO_PREF"));
    }
    QString contado() const {
        return p_.omita_contado ? QStringLiteral(" and TICO_COD <> 'VNT'") : QString();
    }
    static void linea(ArchivoSalida& archivo, const QString& texto) {
        archivo.escriba(texto.toLatin1() + kFin);
    }

    Transaccion& t_;
    const PeticionExportacion& p_;
    const Equivalencias equivalencias_;
};

// ---------------------------------------------------------------- formato 0

class ExportadorSiigo : public Exportador {
public:
    using Exportador::Exportador;

    ResultadoExportacion corra() override {
        ArchivoSalida archivo(p_.archivo);
        Filas f(t_, "select E.ENCO_CONSEC, TICO_COD, PRCO_PREF, ENCO_NUMERO, ENCO_TIPOREF, "
                    "ENCO_IDREF, ENCO_FECHA, CUEN_COD, D.TERC_NIT, PROY_COD, CENT_COD, "
                    "CODE_CONCEPTO, CODE_REFER, CODE_DEBITO, CODE_CREDITO, CODE_BASE, CODE_PORC" +
                        condicion("", "") + orden());
        qint64 lineas = 0;
        QString comprobante;
        int contador = 0;
        while (f.siguiente()) {
            contador = f.texto("ENCO_CONSEC") == comprobante ? contador + 1 : 1;
            comprobante = f.texto("ENCO_CONSEC");
            linea(archivo, campos(f, contador).join(fijo() ? QString() : QString(p_.separador)));
            ++lineas;
        }
        archivo.confirme();
        return {{p_.archivo}, lineas};
    }

private:
    bool fijo() const { return p_.separador.isNull(); }
    QString lleno(const QString& texto, int ancho) const {
        return fijo() ? ceros(texto, ancho) : limpio(texto, p_.separador);
    }
    QString prefijo_fijo(const PrefijoExportado& p) const {
        if (!fijo())
            return limpio(p.prefijo, p_.separador);
        return p.hay ? ceros(quepa(p.prefijo, 9, "El prefijo"), 9) : "00000" + ceros(p.prefijo, 4);
    }
    /// En ancho fijo, el dato o una negativa; con separador, el dato.
    QString entero(const QString& texto, int ancho, const char* que) const {
        return fijo() ? quepa(texto, ancho, que) : limpio(texto, p_.separador);
    }

    QStringList campos(const Filas& f, int contador) const {
        const PrefijoExportado p = prefijo(f);
        const Moneda valor = f.moneda("CODE_DEBITO") + f.moneda("CODE_CREDITO");
        const qint64 centavos = qAbs(valor.escalado(2));
        const QString cuenta = f.texto("CUEN_COD");
        const QString tipo = entero(p.tipo, 3, "El tipo"),
                      destino = entero(equivalencias_.cuenta(cuenta), 10, "La cuenta");
        QStringList c{fijo() ? blancos(tipo, 3) : tipo,
                      prefijo_fijo(p),
                      entero(f.texto("ENCO_NUMERO"), 6, "El número"),
                      ceros(QString::number(contador), 5),
                      lleno(entero(f.texto("TERC_NIT"), 13, "El NIT"), 13),
                      "000"};
        c << (fijo() ? ceros(destino, 10) + "0000000000000" : destino) << f.texto("ENCO_FECHA")
          << lleno(centro(f.texto("PROY_COD"), "0001"), 4) << "0001"
          << lleno(centro(f.texto("CENT_COD"), "000"), 4) << "000"
          << concepto(f.texto("CODE_CONCEPTO")) << (f.moneda("CODE_DEBITO").es_cero() ? "C" : "D")
          << pesos(centavos / 100, valor.negativa()) << ceros(QString::number(centavos % 100), 2)
          << "0001"
          << "000"
          << "0000"
          << "000"
          << "000000000000000" << referencia(f, p, cuenta) << fecha_mas_30(f.texto("ENCO_FECHA"))
          << "001"
          << "0001"
          << "00";
        return c;
    }
    /// El signo de un valor negativo va adelante, también en ancho fijo.
    QString pesos(qint64 valor, bool negativo) const {
        const QString cifras = QString::number(valor);
        if (!negativo)
            return lleno(cifras, 13);
        return '-' + (fijo() ? ceros(cifras, 12) : cifras);
    }
    QString concepto(const QString& texto) const {
        const QString c = limpio(texto, fijo() ? QChar('"') : p_.separador).left(50);
        return fijo() ? blancos(c, 50) : c;
    }

    /// Solo en cuentas de clientes y proveedores: el documento al que se refiere la línea.
    QString referencia(const Filas& f, const PrefijoExportado& propio,
                       const QString& cuenta) const {
        const QString r =
            cuenta.startsWith("13") || cuenta.startsWith("22") ? documento(f, propio) : QString();
        return fijo() ? blancos(quepa(r, 31, "El documento"), 31) : limpio(r, p_.separador);
    }
    QString documento(const Filas& f, const PrefijoExportado& propio) const {
        const QString tipo = f.texto("TICO_COD"), id = f.texto("ENCO_IDREF"),
                      numero = "00000" + f.texto("ENCO_NUMERO");
        if (tipo == "DEV")
            return de_factura(dato("SELECT DEVT_FACTURA FROM DEVOLUCIONES_VENTAS WHERE DEVT_ID = " +
                                   QuotedStr(id)),
                              numero);
        if (tipo == "DVC")
            return de_factura(
                dato("SELECT DVCO_FACTURA FROM DEVOLUCIONES_COMPRAS WHERE DVCO_ID = " +
                     QuotedStr(id)),
                numero);
        if (tipo == "EGR")
            if (const QString pagado = de_egreso(id); !pagado.isEmpty())
                return pagado;
        return propio.prefijo + numero;
    }
    static QString de_factura(const QString& factura, const QString& numero) {
        return factura.isEmpty() ? numero : factura.left(4) + "00000" + factura.right(6);
    }
    QString de_egreso(const QString& id) const {
        Filas f(t_, "SELECT EGDE_PREFIJO, EGDE_NUMERO, egde_tipodoc FROM EGRESOS_DETALLE WHERE "
                    "EGRE_ID = " +
                        QuotedStr(id) + " ORDER BY EGDE_ITEM");
        if (!f.siguiente())
            return {};
        const QString tipo = f.texto("EGDE_TIPODOC");
        if (tipo != "FCC" && tipo != "NDP" && tipo != "NCP")
            return {};
        const PrefijoExportado p = equivalencias_.prefijo(tipo, f.texto("EGDE_PREFIJO"));
        return p.tipo + p.prefijo + "00000" + f.texto("EGDE_NUMERO");
    }
    QString dato(const QString& sql) const {
        Cursor c(t_.conexion().prepare(sql, t_), t_, {});
        return c.siguiente() ? c.valor(0).texto() : QString();
    }
};

// ---------------------------------------------------------------- formato 1

class ExportadorWeb : public Exportador {
public:
    using Exportador::Exportador;

    ResultadoExportacion corra() override {
        const QString carpeta = QFileInfo(p_.archivo).absolutePath();
        const QStringList rutas{carpeta + "/comprobantes.txt", carpeta + "/transacciones.txt"};
        ArchivoSalida encabezados(rutas[0]), movimientos(rutas[1]);
        const qint64 total = comprobantes(encabezados) + transacciones(movimientos);
        encabezados.confirme();
        movimientos.confirme();
        return {rutas, total};
    }

private:
    /// Un registro del ancho del formato: lo que falta va vacío.
    static QString registro(QStringList campos) {
        while (campos.size() < kCamposWeb)
            campos << QString();
        return campos.join(',');
    }
    QString texto(const QString& t) const { return limpio(t, ','); }
    QString hoy() const { return p_.hoy.toString(QStringLiteral("yyyyMMdd")); }

    qint64 comprobantes(ArchivoSalida& archivo) {
        linea(archivo, registro({"ET", "001", "1", hoy()}));
        linea(archivo, registro({"EB", "1", "8001"}));
        Filas f(t_, "select max(E.ENCO_CONSEC) CONSEC,max(TICO_COD) TICO_COD,max(PRCO_PREF) "
                    "PRCO_PREF,max(ENCO_NUMERO) NUMERO,max(ENCO_FECHA) FECHA,max(coalesce("
                    "E.TERC_NIT, D.TERC_NIT)) NIT,max(ENCO_CONCEPTO) CONC,max(ENCO_REFER) REF,"
                    "SUM(CODE_DEBITO) DB,SUM(CODE_CREDITO) CR,max(CONC_COD) CAT" +
                        condicion("", "") + " GROUP BY E.ENCO_CONSEC order by 5, 1");
        qint64 n = 0;
        for (; f.siguiente(); ++n) {
            const PrefijoExportado p = prefijo(f);
            const QString fecha = f.texto("FECHA"), numero = f.texto("NUMERO");
            linea(archivo, registro({"RG",
                                     texto(p.tipo),
                                     texto(p.prefijo),
                                     fecha,
                                     numero,
                                     f.texto("TICO_COD"),
                                     "11001",
                                     "000",
                                     "000",
                                     f.texto("NIT"),
                                     f.texto("CAT"),
                                     texto(f.texto("CONC")),
                                     "010",
                                     numero,
                                     fecha,
                                     fecha,
                                     importe(f.moneda("DB")),
                                     importe(f.moneda("CR")),
                                     "0",
                                     "0",
                                     "0"}));
        }
        linea(archivo, registro({"FB", "1", "8001", QString::number(n)}));
        linea(archivo, registro({"FT", "001", "1", "1"}));
        return n;
    }

    qint64 transacciones(ArchivoSalida& archivo) {
        linea(archivo, registro({"ET", "1000", "1", hoy()}));
        linea(archivo, registro({"EB", "1", "8002"}));
        Filas f(t_, "select E.ENCO_CONSEC, TICO_COD, PRCO_PREF, ENCO_NUMERO,ENCO_FECHA,CODE_ITEM+1 "
                    "ITEM,CUEN_COD,D.TERC_NIT,CODE_CONCEPTO,PROY_COD,CENT_COD,CODE_DEBITO,"
                    "CODE_CREDITO,CNDE_DOCNUMERO,CNDE_DOCAPLICA,DOCO_VENCE,CODE_TIPONUE,"
                    "CODE_TIPOAPL" +
                        condicion("", "") + orden());
        qint64 n = 0;
        for (; f.siguiente(); ++n) {
            const PrefijoExportado p = prefijo(f);
            const Moneda debito = f.moneda("CODE_DEBITO"), credito = f.moneda("CODE_CREDITO");
            linea(
                archivo,
                registro({"RG", texto(p.tipo), texto(p.prefijo), f.texto("ENCO_FECHA"),
                          f.texto("ENCO_NUMERO"), f.texto("ITEM"),
                          equivalencias_.cuenta(f.texto("CUEN_COD")), f.texto("TERC_NIT"),
                          texto(f.texto("CODE_CONCEPTO")), f.texto("ENCO_NUMERO"),
                          f.texto("DOCO_VENCE"), texto(f.texto("CNDE_DOCAPLICA")), importe(debito),
                          importe(credito), f.texto("PROY_COD"), f.texto("CENT_COD"), "000",
                          debito.es_cero() ? "C" : "D", importe(debito + credito)}));
        }
        linea(archivo, registro({"FB", "1", "8002", QString::number(n)}));
        linea(archivo, registro({"FT", "1000", "1", "1"}));
        return n;
    }
};

// ---------------------------------------------------------------- formatos 2 y 3

/// Lo común de los dos que llevan los datos del tercero. La línea sin tercero no sale: se cuenta,
/// porque sin ella el comprobante puede no cuadrar al leerlo.
class ExportadorLineas : public Exportador {
public:
    using Exportador::Exportador;

    ResultadoExportacion corra() override {
        ArchivoSalida archivo(p_.archivo);
        Filas f(t_, "select E.ENCO_CONSEC, TICO_COD, PRCO_PREF, ENCO_NUMERO, ENCO_FECHA, CUEN_COD, "
                    "D.TERC_NIT, PROY_COD, CENT_COD, CODE_CONCEPTO, CODE_REFER, CODE_BASE, "
                    "CODE_PORC, CODE_DEBITO, CODE_CREDITO, TERC_DV" +
                        condicion(" JOIN TERCEROS T ON D.TERC_NIT = T.TERC_NIT",
                                  contado().toLatin1().constData()) +
                        orden());
        qint64 n = 0;
        for (; f.siguiente(); ++n)
            linea(archivo, renglon(f));
        // Sin el índice del tercero, que por cada comprobante recorrería todas las nulas del libro.
        Filas quedan(t_, "select count(*) CUANTAS" +
                             condicion("", contado().toLatin1().constData()) +
                             " and D.TERC_NIT || '' is null");
        quedan.siguiente();
        archivo.confirme();
        return {{p_.archivo}, n, quedan.texto("CUANTAS").toLongLong()};
    }

protected:
    virtual QString renglon(const Filas& f) const = 0;
};

class ExportadorCsv : public ExportadorLineas {
public:
    using ExportadorLineas::ExportadorLineas;

protected:
    QString renglon(const Filas& f) const override {
        const PrefijoExportado p = prefijo(f);
        QStringList campos{p.tipo,
                           p.prefijo,
                           f.texto("ENCO_NUMERO"),
                           f.texto("ENCO_FECHA"),
                           equivalencias_.cuenta(f.texto("CUEN_COD")),
                           f.texto("TERC_NIT"),
                           f.texto("PROY_COD"),
                           f.texto("CENT_COD"),
                           f.texto("CODE_CONCEPTO"),
                           f.texto("CODE_REFER")};
        for (QString& c : campos)
            c = limpio(c, p_.separador);
        return (campos << importe(f.moneda("CODE_BASE")) << f.moneda("CODE_PORC").texto()
                       << importe(f.moneda("CODE_DEBITO")) << importe(f.moneda("CODE_CREDITO")))
            .join(p_.separador);
    }
};

class ExportadorIsis : public ExportadorLineas {
public:
    using ExportadorLineas::ExportadorLineas;

protected:
    QString renglon(const Filas& f) const override {
        const PrefijoExportado p = prefijo(f);
        const QString valor = importe(f.moneda("CODE_DEBITO") - f.moneda("CODE_CREDITO"));
        const QString fecha = f.texto("ENCO_FECHA");
        return blancos(quepa(p.tipo, 3, "El tipo"), 3) +
               blancos(quepa(p.prefijo, 4, "El prefijo"), 4) +
               ceros(quepa(f.texto("ENCO_NUMERO"), 6, "El número"), 6) + fecha +
               blancos(quepa(equivalencias_.cuenta(f.texto("CUEN_COD")), 12, "La cuenta"), 12) +
               ' ' + blancos(limpio(f.texto("CODE_CONCEPTO"), '"'), 40) +
               valor.rightJustified(18, ' ') + ceros(quepa(f.texto("TERC_NIT"), 13, "El NIT"), 13) +
               blancos(f.texto("TERC_DV"), 1) + "00000000000" + fecha + "    " + "CONTA" +
               "N00000" + p_.hasta + "0800" + "CONTA00";
    }
};

std::unique_ptr<Exportador> exportador_de(Transaccion& t, const PeticionExportacion& p) {
    switch (p.destino) {
    case DestinoExportacion::Siigo:
        return std::make_unique<ExportadorSiigo>(t, p);
    case DestinoExportacion::WebGerencial:
        return std::make_unique<ExportadorWeb>(t, p);
    case DestinoExportacion::Csv:
        return std::make_unique<ExportadorCsv>(t, p);
    default:
        return std::make_unique<ExportadorIsis>(t, p);
    }
}

} // namespace

QString fecha_mas_30(const QString& fecha) {
    int ano = fecha.left(4).toInt();
    QString mes = fecha.mid(4, 2), dia = fecha.mid(6, 2);
    if (mes == "12") {
        mes = "01";
        ++ano;
    } else {
        mes = ceros(QString::number(mes.toInt() + 1), 2);
        if (mes == "02" && dia.toInt() > 28)
            dia = "28";
    }
    if (dia == "31")
        dia = "30";
    return ceros(QString::number(ano), 4) + mes + dia;
}

ResultadoExportacion exporte_movimientos(Conexion& conexion, const PeticionExportacion& peticion) {
    Transaccion foto(conexion, ModoTransaccion::Instantanea);
    return exportador_de(foto, peticion)->corra();
}
