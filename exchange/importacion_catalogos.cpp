// Importación de los catálogos: el plan de cuentas de un libro y los terceros. Lo que ya existe se
// deja como está.
#include "exchange/importacion_clases.h"

#include "libro/catalogos.h"

namespace {

/// Inserta en `tabla` las columnas que traigan valor.
void inserte(Transaccion& t, const QString& tabla, const QVector<QPair<QString, Valor>>& datos) {
    QStringList columnas, marcas;
    QVector<Valor> valores;
    for (const auto& [nombre, valor] : datos)
        if (!valor.nulo()) {
            columnas << nombre;
            marcas << QStringLiteral("?");
            valores << valor;
        }
    t.conexion()
        .prepare(
            QStringLiteral("insert into %1 (%2) values (%3)")
                .arg(tabla, columnas.join(QStringLiteral(", ")), marcas.join(QStringLiteral(", "))),
            t)
        ->ejecute(t, valores);
}

Valor o(const Valor& valor, const char* defecto) {
    return valor.nulo() ? Valor(defecto) : valor;
}

} // namespace

void ImportacionCuentas::procese(const RegistroLeido& registro) {
    const QString razon = lea(registro);
    const QString codigo = texto("CUEN_COD");
    muestre(codigo);
    if (codigo.isEmpty() && razon.isEmpty()) {
        ++resultado_.omitidos;
        return;
    }
    if (razon.isEmpty() && existe(codigo)) {
        ++resultado_.omitidos;
        return;
    }
    if (!razon.isEmpty()) {
        rehuse(registro, razon);
        return;
    }
    const QString falla = escriba([&](Transaccion& t) {
        QVector<QPair<QString, Valor>> datos;
        for (const DatoImportacion& d : datos_de(ClaseImportacion::Cuentas))
            datos.append({QLatin1String(d.clave), valor(d.clave)});
        for (auto& [nombre, dato] : datos)
            if (nombre == "CUEN_TERCERO" || nombre == "CUEN_CENTRO" || nombre == "CUEN_RETENCION" ||
                nombre == "CUEN_TIPO")
                dato = o(dato, "N");
        datos.append({QStringLiteral("CUEN_ACTIVA"), Valor("S")});
        datos.append({QStringLiteral("CUEN_AFECTABLE"), Valor("S")});
        inserte(t, QLatin1String(::datos(libro()).cuentas), datos);
        // La cuenta 2649 que el archivo da por equivalente queda unida a la que acaba de entrar.
        if (es_niif(libro()) && !texto("CUEN_EQNIIF").isEmpty())
            t.conexion()
                .prepare(QStringLiteral("update cuentas set cuen_eqniif = ? where cuen_cod = ?"), t)
                ->ejecute(t, {codigo, texto("CUEN_EQNIIF")});
    });
    if (falla.isEmpty()) {
        ++resultado_.grabados;
        vistos_.insert(codigo);
    } else {
        rehuse(registro, falla);
    }
}

bool ImportacionCuentas::existe(const QString& codigo) {
    return vistos_.contains(codigo) || atributos_de_cuenta(conexion_, libro(), codigo);
}

void ImportacionTerceros::procese(const RegistroLeido& registro) {
    QString razon = lea(registro);
    const QString nit = texto("TERC_NIT");
    muestre(nit);
    if (razon.isEmpty() && (nit.isEmpty() || existe(nit))) {
        ++resultado_.omitidos;
        return;
    }
    Valor ciudad;
    if (razon.isEmpty())
        razon = busque_ciudad(ciudad);
    if (!razon.isEmpty()) {
        rehuse(registro, razon);
        return;
    }
    const QString falla = escriba([&](Transaccion& t) {
        QVector<QPair<QString, Valor>> datos;
        for (const DatoImportacion& d : datos_de(ClaseImportacion::Terceros))
            if (qstrcmp(d.clave, "CIUD_NOM") != 0)
                datos.append({QLatin1String(d.clave), valor(d.clave)});
        for (auto& [nombre, dato] : datos) {
            if (nombre == "TERC_CLIE" || nombre == "TERC_PROV" || nombre == "TERC_EMPL")
                dato = o(dato, "N");
            else if (nombre == "TERC_NOM" && dato.nulo())
                dato = nombre_compuesto();
        }
        datos.append({QStringLiteral("CIUD_COD"), ciudad});
        datos.append({QStringLiteral("TERC_USUARIO"), usuario_});
        inserte(t, QStringLiteral("terceros"), datos);
    });
    if (falla.isEmpty()) {
        ++resultado_.grabados;
        vistos_.insert(nit);
    } else {
        rehuse(registro, falla);
    }
}

bool ImportacionTerceros::existe(const QString& nit) {
    return vistos_.contains(nit) ||
           !conexion_.consulte("select 1 from terceros where terc_nit = ?", {nit}).nulo();
}

QString ImportacionTerceros::nombre_compuesto() const {
    QString nombre = texto("TERC_APELLIDO1") + ' ';
    for (const char* dato : {"TERC_APELLIDO2", "TERC_NOMBRE1"})
        if (!texto(dato).isEmpty())
            nombre += texto(dato) + ' ';
    return (nombre + texto("TERC_NOMBRE2")).left(60);
}

QString ImportacionTerceros::busque_ciudad(Valor& codigo) {
    const QString nombre = texto("CIUD_NOM");
    if (nombre.isEmpty())
        return {};
    codigo = conexion_.consulte("select min(ciud_cod) from ciudades where ciud_nom collate "
                                "ES_ES_CI_AI = ?",
                                {nombre});
    return codigo.nulo() ? QStringLiteral("No existe la ciudad '%1'.").arg(nombre) : QString();
}
