// Importación de los catálogos: el plan de cuentas de un libro y los terceros. Lo que ya existe se
// deja como está.
#include "exchange/importacion_clases.h"

#include "libro/catalogos.h"
#include "sesion/tfdmter.h"

#include <QRegularExpression>

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

/// El nombre en minúsculas, sin tildes, con un blanco donde haya puntuación.
QString palabras_de(const QString& nombre) {
    QString llano;
    for (const QChar c : nombre.normalized(QString::NormalizationForm_D))
        if (c.isLetterOrNumber())
            llano += c.toLower();
        else if (!c.isMark())
            llano += ' ';
    return llano.simplified();
}

Valor o(const Valor& valor, const char* defecto) {
    return valor.nulo() ? Valor(defecto) : valor;
}

/// Otras del mismo plan: pueden venir después en el archivo, y solo al final se sabe si faltan.
constexpr std::pair<const char*, const char*> kNombradas[] = {
    {"CUEN_CTAJUSTE", "la de ajuste"}, {"CUEN_CTACORRECION", "la de corrección"}};

} // namespace

void ImportacionCuentas::procese(const RegistroLeido& registro) {
    QString razon = lea(registro);
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
    if (razon.isEmpty())
        razon = rechazo_de_equivalente();
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
        for (const auto& [dato, nombre] : kNombradas)
            if (const QString otra = texto(dato); !otra.isEmpty())
                nombradas_.insert({otra, nombre}, codigo);
    } else {
        rehuse(registro, falla);
    }
}

void ImportacionCuentas::termine() {
    for (auto i = nombradas_.cbegin(); i != nombradas_.cend(); ++i) {
        if (existe(i.key().first))
            continue;
        resultado_.avisos << QStringLiteral("La cuenta %1 no existe: es %2 de la %3.")
                                 .arg(i.key().first, QLatin1String(i.key().second), i.value());
        if (anote)
            anote(resultado_.avisos.last(), llave_);
    }
}

bool ImportacionCuentas::existe(const QString& codigo) {
    return vistos_.contains(codigo) || atributos_de_cuenta(conexion_, libro(), codigo);
}

QString ImportacionCuentas::rechazo_de_equivalente() {
    const QString cuenta = texto("CUEN_EQNIIF");
    // La de una cuenta NIIF es del otro plan. Mientras el NIIF no haya llegado no se sabe cuáles
    // tendrá.
    if (cuenta.isEmpty() || es_niif(libro()) ||
        codigos(QStringLiteral("select first 1 cuen_cod from cuentas_niif")).isEmpty() ||
        atributos_de_cuenta(conexion_, Libro::Niif, cuenta))
        return {};
    return "La cuenta NIIF " + cuenta + " no existe.";
}

void ImportacionTerceros::procese(const RegistroLeido& registro) {
    QString razon = lea(registro);
    const QString nit = texto("TERC_NIT"), nombre_ciudad = texto("CIUD_NOM");
    muestre(nit);
    if (razon.isEmpty() && (nit.isEmpty() || existe(nit))) {
        ++resultado_.omitidos;
        return;
    }
    const QString nombre_compuesto = this->nombre_compuesto();
    if (razon.isEmpty())
        razon = rechazo_de_tercero(nombre_compuesto);
    if (!razon.isEmpty()) {
        rehuse(registro, razon);
        return;
    }
    const Valor codigo_ciudad = ciudad(nombre_ciudad);
    const QString falla = escriba([&](Transaccion& t) {
        QVector<QPair<QString, Valor>> datos;
        for (const DatoImportacion& d : datos_de(ClaseImportacion::Terceros))
            if (qstrcmp(d.clave, "CIUD_NOM") != 0)
                datos.append({QLatin1String(d.clave), valor(d.clave)});
        for (auto& [nombre, dato] : datos) {
            if (nombre == "TERC_CLIE" || nombre == "TERC_PROV" || nombre == "TERC_EMPL")
                dato = o(dato, "N");
            else if (nombre == "TERC_NOM" && dato.nulo())
                dato = nombre_compuesto;
            else if (nombre == "TERC_TIPOID" && !dato.nulo())
                dato = dato.texto().toUpper();
        }
        datos.append({QStringLiteral("CIUD_COD"), codigo_ciudad});
        datos.append({QStringLiteral("TERC_DV"), digito()});
        datos.append({QStringLiteral("TERC_USUARIO"), usuario_});
        inserte(t, QStringLiteral("terceros"), datos);
    });
    if (falla.isEmpty()) {
        ++resultado_.grabados;
        vistos_.insert(nit);
        if (!nombre_ciudad.isEmpty() && codigo_ciudad.nulo()) {
            resultado_.avisos << QStringLiteral("Ciudad no encontrada '%1': el tercero %2 entró "
                                                "sin ella.")
                                     .arg(nombre_ciudad, nit);
            if (anote)
                anote(resultado_.avisos.last(), llave_);
        }
    } else {
        rehuse(registro, falla);
    }
}

bool ImportacionTerceros::existe(const QString& nit) {
    return vistos_.contains(nit) ||
           !conexion_.consulte("select 1 from terceros where terc_nit = ?", {nit}).nulo();
}

QString ImportacionTerceros::rechazo_de_tercero(const QString& nombre_compuesto) {
    const QString tipo = texto("TERC_TIPOID");
    const QStringList& tipos =
        codigos(QStringLiteral("select trim(tiid_cod) from tipo_id order by tiid_nom"));
    if (!tipo.isEmpty() && !tipos.contains(tipo, Qt::CaseInsensitive))
        return QStringLiteral("El tipo de identificación %1 no existe: valen %2, como en la ficha "
                              "del tercero.")
            .arg(tipo, tipos.join(QStringLiteral(", ")));
    if (valor("TERC_NOM").nulo() && nombre_compuesto.trimmed().isEmpty())
        return QStringLiteral("El tercero %1 no trae nombre ni apellidos.").arg(texto("TERC_NIT"));
    return {};
}

QString ImportacionTerceros::nombre_compuesto() const {
    QString nombre = texto("TERC_APELLIDO1") + ' ';
    for (const char* dato : {"TERC_APELLIDO2", "TERC_NOMBRE1"})
        if (!texto(dato).isEmpty())
            nombre += texto(dato) + ' ';
    return (nombre + texto("TERC_NOMBRE2")).left(60);
}

Valor ImportacionTerceros::digito() const {
    const QString nit = texto("TERC_NIT");
    static const QRegularExpression cifras(QStringLiteral("^[0-9]{1,15}$"));
    return peticion_.digito_de_verificacion && cifras.match(nit).hasMatch()
               ? Valor(QString::number(Tfdmter::dv(nit)))
               : Valor();
}

Valor ImportacionTerceros::ciudad(const QString& nombre) {
    if (ciudades_.isEmpty())
        for (auto c = conexion_.abra("select ciud_cod, ciud_nom from ciudades order by ciud_cod");
             c->siguiente();) {
            const QString palabras = palabras_de(c->valor(1).texto());
            ciudades_.append(
                {c->valor(0).texto().trimmed(), palabras, QString(palabras).remove(' ')});
        }
    const QString buscada = palabras_de(nombre), letras = QString(buscada).remove(' ');
    if (buscada.isEmpty())
        return {};
    for (const Ciudad& c : ciudades_)
        if (c.letras == letras)
            return Valor(c.codigo);
    // "Cartagena" es la de Indias y "Buga", Guadalajara de Buga; entre varias, la capital.
    const auto escoja = [&](const std::function<bool(const Ciudad&)>& puede) -> QString {
        QStringList todas, capitales;
        for (const Ciudad& c : ciudades_)
            if (puede(c)) {
                todas << c.codigo;
                if (c.codigo.endsWith(QLatin1String("001")))
                    capitales << c.codigo;
            }
        if (todas.size() > 1)
            todas = capitales;
        return todas.size() == 1 ? todas.first() : QString();
    };
    QString codigo = escoja([&](const Ciudad& c) { return c.palabras.startsWith(buscada + ' '); });
    if (codigo.isEmpty())
        codigo = escoja([&](const Ciudad& c) { return c.palabras.endsWith(' ' + buscada); });
    return nulo_si_vacio(codigo);
}
