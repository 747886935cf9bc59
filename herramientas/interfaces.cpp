#include "herramientas/interfaces.h"

#include "herramientas/renglones.h"

#include <QRegularExpression>

namespace {

const QString kNomina = QStringLiteral("NOMINA");

// Lo que un renglón de cuentas puede llevar, en el orden en que se escribe.
constexpr const char* kMarcas[] = {"tercero", "centro", "articulo", "base"};

struct ReglaCuenta {
    QString concepto, clase, cuenta, lado, categoria;
    QSet<QString> marcas;
    QString documento = QStringLiteral("-"); ///< "N" abre, "A" se aplica
    Moneda porcentaje;
};

struct InterfazLeida {
    int renglon = 0;
    QString familia, nombre, tipo_comprobante, prefijo_comprobante, confirmar, detallada;
    int id = 0, documento = 0, banco = 0;
    QString prefijo = QStringLiteral("0000");
    QVector<ReglaCuenta> reglas, reglas_niif;
};

class LectorInterfaces {
public:
    LectorInterfaces(Conexion& c, Faltas& faltas)
        : faltas_(faltas), conceptos_(textos_de(c, "select coin_familia || ' ' || coin_concepto"
                                                   " from concepto_interfaz")),
          documentos_(textos_de(c, "select doct_familia || ' ' || tido_cod"
                                   " from documento_contable")),
          comprobantes_(textos_de(c, "select tico_cod || '/' || prco_pref from prefijos_conta")),
          cuentas_(textos_de(c, "select cuen_cod from cuentas where cuen_afectable = 'S'")),
          cuentas_niif_(
              textos_de(c, "select cuen_cod from cuentas_niif where cuen_afectable = 'S'")),
          categorias_(textos_de(c, "select conc_cod from concepto_contable")) {}

    QVector<InterfazLeida> lea(const QVector<RenglonTexto>& renglones) {
        QVector<InterfazLeida> interfaces;
        for (const RenglonTexto& r : renglones) {
            renglon_ = r.numero;
            const QString primera = r.palabras.value(0);
            if (primera == QLatin1String("INTERFAZ"))
                interfaces.push_back(lea_encabezado(r));
            else if (interfaces.isEmpty())
                falte(QStringLiteral("se esperaba INTERFAZ"));
            else if (primera == QLatin1String("NIIF") &&
                     r.palabras.value(1) == QLatin1String("igual"))
                interfaces.back().reglas_niif = igual(interfaces.back());
            else if (primera == QLatin1String("2649"))
                interfaces.back().reglas << lea_regla(r, interfaces.back().familia, cuentas_);
            else if (primera == QLatin1String("NIIF"))
                interfaces.back().reglas_niif
                    << lea_regla(r, interfaces.back().familia, cuentas_niif_);
            else
                falte(QStringLiteral("se esperaba INTERFAZ, 2649 o NIIF"));
        }
        return interfaces;
    }

private:
    void falte(const QString& texto) { faltas_.anote(renglon_, texto); }

    int numero(QHash<QString, QString>& datos, const char* clave, bool exigido) {
        const QString v = datos.take(QLatin1String(clave));
        bool bien = true;
        const int n = v.isEmpty() ? 0 : v.toInt(&bien);
        if (!bien || n < 0 || (exigido && n == 0))
            falte(QStringLiteral("'%1' es un número mayor que cero: %2")
                      .arg(QLatin1String(clave), v));
        return n;
    }

    QString si_o_no(QHash<QString, QString>& datos, const char* clave) {
        const QString v = datos.contains(QLatin1String(clave)) ? datos.take(QLatin1String(clave))
                                                               : QStringLiteral("N");
        if (v != QLatin1String("S") && v != QLatin1String("N"))
            falte(QStringLiteral("'%1' es S o N").arg(QLatin1String(clave)));
        return v;
    }

    InterfazLeida lea_encabezado(const RenglonTexto& r) {
        InterfazLeida i;
        i.renglon = r.numero;
        auto datos = r.datos;
        i.familia = datos.take("familia");
        i.id = numero(datos, "id", true);
        i.documento = numero(datos, "documento", true);
        if (!documentos_.contains(i.familia + ' ' + QString::number(i.documento)))
            falte(QStringLiteral("la familia '%1' no contabiliza documentos de tipo %2")
                      .arg(i.familia)
                      .arg(i.documento));
        if (datos.contains("prefijo"))
            i.prefijo = datos.take("prefijo");
        i.nombre = datos.take("nombre");
        if (i.prefijo.size() > 4 || i.nombre.size() > 60)
            falte(QStringLiteral("el prefijo pasa de 4 caracteres o el nombre de 60"));
        i.banco = numero(datos, "banco", false);
        const QString comprobante = datos.take("comprobante");
        if (!comprobantes_.contains(comprobante))
            falte(
                QStringLiteral("no existe el tipo y prefijo de comprobante '%1'").arg(comprobante));
        i.tipo_comprobante = comprobante.section('/', 0, 0);
        i.prefijo_comprobante = comprobante.section('/', 1);
        i.confirmar = si_o_no(datos, "confirmar");
        i.detallada = si_o_no(datos, "detallada");
        const QString clave = i.familia + ' ' + QString::number(i.id);
        if (leidas_.contains(clave))
            falte(QStringLiteral("la interfaz %1 de %2 está dos veces").arg(i.id).arg(i.familia));
        leidas_.insert(clave);
        sobra(r, datos, 1);
        return i;
    }

    ReglaCuenta lea_regla(const RenglonTexto& r, const QString& familia,
                          const QSet<QString>& cuentas) {
        ReglaCuenta regla;
        if (r.palabras.size() < 4) {
            falte(QStringLiteral("un renglón de cuentas es LIBRO CONCEPTO[:CLASE] CUENTA LADO"));
            return regla;
        }
        regla.concepto = r.palabras[1].section(':', 0, 0);
        regla.clase = r.palabras[1].section(':', 1);
        if (!conceptos_.contains(familia + ' ' + regla.concepto))
            falte(QStringLiteral("la familia %1 no tiene el concepto '%2'")
                      .arg(familia, regla.concepto));
        if (regla.clase.size() > 15)
            falte(QStringLiteral("la clase pasa de 15 caracteres"));
        regla.cuenta = r.palabras[2];
        if (!cuentas.contains(regla.cuenta))
            falte(QStringLiteral("la cuenta %1 no existe o no lleva movimiento en el libro %2")
                      .arg(regla.cuenta, r.palabras[0]));
        regla.lado = r.palabras[3];
        if (regla.lado != QLatin1String("D") && regla.lado != QLatin1String("C"))
            falte(QStringLiteral("el lado es D o C: %1").arg(regla.lado));
        for (const QString& palabra : r.palabras.mid(4))
            lea_marca(regla, palabra);
        auto datos = r.datos;
        const auto porcentaje = Moneda::intente(datos.take("porcentaje"));
        if (!porcentaje || porcentaje->negativa() || *porcentaje > Moneda(100))
            falte(QStringLiteral("el porcentaje va de 0 a 100"));
        else
            regla.porcentaje = *porcentaje;
        regla.categoria = datos.take("categoria");
        if (!regla.categoria.isEmpty() && !categorias_.contains(regla.categoria))
            falte(QStringLiteral("no existe la categoría %1").arg(regla.categoria));
        sobra(r, datos, r.palabras.size());
        return regla;
    }

    void lea_marca(ReglaCuenta& regla, const QString& palabra) {
        if (palabra == QLatin1String("abre") || palabra == QLatin1String("aplica")) {
            regla.documento = palabra == QLatin1String("abre") ? "N" : "A";
            return;
        }
        for (const char* m : kMarcas)
            if (palabra == QLatin1String(m)) {
                regla.marcas.insert(palabra);
                return;
            }
        falte(QStringLiteral("no se conoce la marca '%1'").arg(palabra));
    }

    /// Las cuentas 2649 para el otro libro, que debe tenerlas todas.
    QVector<ReglaCuenta> igual(const InterfazLeida& i) {
        for (const ReglaCuenta& regla : i.reglas)
            if (!cuentas_niif_.contains(regla.cuenta))
                falte(
                    QStringLiteral("la cuenta %1 no existe o no lleva movimiento en el libro NIIF")
                        .arg(regla.cuenta));
        return i.reglas;
    }

    void sobra(const RenglonTexto& r, const QHash<QString, QString>& datos, qsizetype palabras) {
        QStringList claves = datos.keys();
        claves.sort();
        for (const QString& clave : claves + r.palabras.mid(palabras))
            falte(QStringLiteral("no se conoce el dato '%1'").arg(clave));
    }

    Faltas& faltas_;
    const QSet<QString> conceptos_, documentos_, comprobantes_, cuentas_, cuentas_niif_,
        categorias_;
    QSet<QString> leidas_;
    int renglon_ = 0;
};

QHash<QString, QString> iniciales(Conexion& c) {
    QHash<QString, QString> letras;
    const auto filas = c.abra("select faco_familia, faco_ini from familia_contable");
    while (filas->siguiente())
        letras[filas->valor(0).texto()] = filas->valor(1).texto();
    return letras;
}

class EscritorInterfaces {
public:
    EscritorInterfaces(Transaccion& t, QHash<QString, QString> letras)
        : t_(t), letras_(std::move(letras)) {}

    void escriba(const InterfazLeida& i) {
        const bool nomina = i.familia == kNomina;
        const QString ini = nomina ? QStringLiteral("inno") : letras_[i.familia];
        // Se reemplaza, sin borrar: las cuentas viejas se van y el encabezado se corrige.
        QString columnas = QStringLiteral("%1_id, tido_cod, %1_nombre, tico_cod, prco_pre,"
                                          " %1_confirmar, %1_det")
                               .arg(ini);
        QVector<Valor> valores{
            i.id,        i.documento, i.nombre, i.tipo_comprobante, i.prefijo_comprobante,
            i.confirmar, i.detallada};
        if (!nomina) {
            columnas += QStringLiteral(", pref_pre");
            valores << Valor(i.prefijo);
        }
        if (i.familia == QLatin1String("BANCOS")) {
            columnas += QStringLiteral(", cuba_cod");
            valores << Valor(i.banco);
        }
        const QStringList marcas(valores.size(), QStringLiteral("?"));
        ejecute(QStringLiteral("update or insert into interfaz_%1 (%2) values (%3)"
                               " matching (%4_id)")
                    .arg(i.familia, columnas, marcas.join(','), ini),
                valores);
        const QString base = nomina ? kNomina : QStringLiteral("INTERFAZ_") + i.familia,
                      clave = nomina ? QStringLiteral("tido_cod") : ini + QStringLiteral("_id");
        const int id = nomina ? i.documento : i.id;
        escriba_reglas(base + QStringLiteral("_CTAS"), clave, id, i.reglas);
        escriba_reglas(base + QStringLiteral("_NIIF"), clave, id, i.reglas_niif);
    }

private:
    void ejecute(const QString& sql, const QVector<Valor>& valores) {
        t_.conexion().prepare(sql, t_)->ejecute(t_, valores);
    }

    void escriba_reglas(const QString& tabla, const QString& clave, int id,
                        const QVector<ReglaCuenta>& reglas) {
        ejecute(QStringLiteral("delete from %1 where %2 = ?").arg(tabla, clave), {id});
        int item = 0;
        for (const ReglaCuenta& r : reglas) {
            const auto lleva = [&](const char* m) {
                return Valor(r.marcas.contains(QLatin1String(m)) ? "S" : "N");
            };
            ejecute(QStringLiteral("insert into %1 (%2, inct_item, inct_concepto, inct_clase,"
                                   " inct_cuenta, inct_lado, inct_documento, inct_porc, conc_cod,"
                                   " inct_tercero, inct_centro, inct_articulo, inct_base)"
                                   " values (?,?,?,?,?,?,?,?,?,?,?,?,?)")
                        .arg(tabla, clave),
                    {id, ++item, r.concepto, r.clase, r.cuenta, r.lado, r.documento,
                     r.porcentaje.es_cero() ? Valor() : Valor(r.porcentaje),
                     r.categoria.isEmpty() ? Valor() : Valor(r.categoria), lleva(kMarcas[0]),
                     lleva(kMarcas[1]), lleva(kMarcas[2]), lleva(kMarcas[3])});
        }
    }

    Transaccion& t_;
    QHash<QString, QString> letras_;
};

QStringList reglas_escritas(Conexion& c, const QString& tabla, const QString& clave, qint64 id,
                            const char* libro) {
    QStringList renglones;
    const auto f = c.abra(
        QStringLiteral("select inct_concepto, inct_clase, inct_cuenta, inct_lado, inct_documento,"
                       " inct_porc, conc_cod, inct_tercero, inct_centro, inct_articulo, inct_base"
                       " from %1 where %2 = %3 order by inct_item")
            .arg(tabla, clave)
            .arg(id));
    while (f->siguiente()) {
        QString r = QLatin1String(libro) + ' ' + f->valor(0).texto();
        if (!f->valor(1).texto().isEmpty())
            r += ':' + f->valor(1).texto();
        r += ' ' + f->valor(2).texto() + ' ' + f->valor(3).texto();
        for (int i = 0; i < 4; ++i)
            if (f->valor(7 + i).texto() == QLatin1String("S"))
                r += ' ' + QLatin1String(kMarcas[i]);
        const QString documento = f->valor(4).texto();
        if (documento != QLatin1String("-"))
            r += documento == QLatin1String("N") ? " abre" : " aplica";
        if (!f->valor(5).nulo())
            r += dato_escrito("porcentaje", f->valor(5).moneda().texto());
        renglones << r + dato_escrito("categoria", f->valor(6).texto());
    }
    return renglones;
}

} // namespace

int cargue_interfaces(Conexion& conexion, const QString& archivo) {
    Faltas faltas(archivo);
    const QVector<RenglonTexto> renglones = lea_renglones(archivo, faltas);
    const QVector<InterfazLeida> interfaces = LectorInterfaces(conexion, faltas).lea(renglones);
    for (const InterfazLeida& i : interfaces)
        if (i.reglas.isEmpty())
            faltas.anote(i.renglon, QStringLiteral("la interfaz no tiene cuentas 2649"));
    faltas.lance_si_hay();
    const QHash<QString, QString> letras = iniciales(conexion);
    Transaccion t(conexion, Transaccion::Modo::Escritura);
    EscritorInterfaces escritor(t, letras);
    for (const InterfazLeida& i : interfaces)
        escritor.escriba(i);
    t.confirme();
    return int(interfaces.size());
}

QString liste_interfaces(Conexion& conexion, const QString& familia) {
    const QHash<QString, QString> letras = iniciales(conexion);
    QString salida;
    const auto f = conexion.abra(
        "select i.familia, i.interfaz, i.tido_cod, i.pref_pre, i.nombre, i.tico_cod, i.prco_pre,"
        " i.confirmar, i.detallada, b.cuba_cod from interfaz_contable i left join interfaz_bancos b"
        " on b.inba_id = i.interfaz and i.familia = 'BANCOS'"
        " where cast(? as varchar(10)) in ('', i.familia) order by i.familia, i.interfaz",
        {familia});
    while (f->siguiente()) {
        const QString de = f->valor(0).texto();
        const bool nomina = de == kNomina;
        const qint64 id = f->valor(nomina ? 2 : 1).entero();
        const QString base = nomina ? kNomina : QStringLiteral("INTERFAZ_") + de,
                      clave = nomina ? QStringLiteral("tido_cod") : letras[de] + "_id";
        salida += QStringLiteral("INTERFAZ") + dato_escrito("familia", de) +
                  dato_escrito("id", f->valor(1).texto()) +
                  dato_escrito("documento", f->valor(2).texto()) +
                  (nomina ? QString() : dato_escrito("prefijo", f->valor(3).texto())) +
                  dato_escrito("banco", f->valor(9).entero() ? f->valor(9).texto() : QString()) +
                  dato_escrito("comprobante", f->valor(5).texto() + '/' + f->valor(6).texto()) +
                  dato_escrito("confirmar", f->valor(7).texto()) +
                  dato_escrito("detallada", f->valor(8).texto()) +
                  dato_escrito("nombre", f->valor(4).texto()) + '\n';
        const QStringList local = reglas_escritas(conexion, base + "_CTAS", clave, id, "2649"),
                          niif = reglas_escritas(conexion, base + "_NIIF", clave, id, "NIIF");
        salida += local.join('\n') + '\n';
        const bool iguales =
            QStringList(niif).replaceInStrings(QRegularExpression("^NIIF"), "2649") == local;
        salida += iguales ? QStringLiteral("NIIF igual\n")
                          : niif.join('\n') + (niif.isEmpty() ? "" : "\n");
        salida += '\n';
    }
    return salida;
}
