#include "herramientas/instalador.h"

#include "herramientas/existentes.h"
#include "herramientas/guion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {

const QStringList kSubsistemas = {"sesion",  "catalogues", "vouchers",  "ledger", "hermanos",
                                  "posting", "reports",    "periodend", "assets", "budget",
                                  "tax",     "niif",       "exchange"};
constexpr int kVersionInicial = 1;
/// Antes de ella, lo que se agregaba a los medios y las taxonomías llegaba solo con sus semillas.
constexpr int kVersionDeMedios = 5;
/// Nacen con la compañía y de ahí en adelante son suyas: lo que ella borra no vuelve, y lo que una
/// versión nueva les agrega lo trae su actualización.
const QSet<QString> kDeLaCompania = {
    "ESTRUCTURA",         "FLUJO_EFECTIVO",     "CAMBIOS_SITUACION_CTAS", "CONFIGURA_MEDIOSMAG",
    "MEDIOSMAG_ARCHIVOS", "MEDIOSMAG_CUENTAS",  "MEDIOSMAG_DISTR",        "MEDIOSMAG_DISTR_CUENTAS",
    "TAXONOMIA",          "TAXONOMIA_ENCABEZA", "TAXONOMIA_DETALLE",      "TAXONOMIA_CUENTAS"};

QStringList columnas_clave(Conexion& conexion, const QString& tabla) {
    Transaccion lectura(conexion, Transaccion::Modo::Lectura);
    auto sentencia = std::make_shared<Preparada>(
        conexion, lectura,
        QStringLiteral("select trim(s.rdb$field_name) from rdb$relation_constraints c"
                       " join rdb$index_segments s on s.rdb$index_name = c.rdb$index_name"
                       " where c.rdb$relation_name = ? and c.rdb$constraint_type = 'PRIMARY KEY'"
                       " order by s.rdb$field_position"));
    Cursor filas(sentencia, lectura, {Valor(tabla)});
    QStringList columnas;
    while (filas.siguiente())
        columnas << filas.valor(0).texto();
    return columnas;
}

QString primera_linea(const QString& sentencia) {
    const QString linea = sentencia.section('\n', 0, 0).simplified();
    return linea.size() > 80 ? linea.left(77) + QStringLiteral("...") : linea;
}

/// Clave de una fila como texto comparable; "1" y "01" son claves distintas salvo en números, que
/// la base devuelve siempre en su forma canónica.
QString clave_unida(const QStringList& partes) {
    return partes.join(QChar(0x1F));
}

} // namespace

QString carpeta_guiones() {
    const QString junto =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QStringLiteral(".");
    const QStringList candidatas = {qEnvironmentVariable("QUORVEX_GUIONES"),
                                    junto + QStringLiteral("/../share/quorvex/database"),
                                    qEnvironmentVariable("QUORVEX_PROYECTO") +
                                        QStringLiteral("/database"),
                                    QStringLiteral(QUORVEX_CARPETA_GUIONES)};
    for (const QString& carpeta : candidatas)
        if (!carpeta.isEmpty() && QDir(carpeta + QStringLiteral("/sesion")).exists())
            return QDir::cleanPath(carpeta);
    throw ErrorDatos(QStringLiteral("No se encontró la carpeta de los guiones de la base de datos. "
                                    "Indíquela en la variable QUORVEX_GUIONES."));
}

Instalador::Instalador(Conexion& conexion, QString carpeta)
    : conexion_(conexion), carpeta_(std::move(carpeta)) {}

QStringList Instalador::archivos(TipoBase tipo) const {
    const QStringList subsistemas =
        tipo == TipoBase::General ? QStringList{"general"} : kSubsistemas;
    struct Orden {
        QString fase;
        int subsistema;
        bool guion;
        QString archivo;
    };
    QVector<Orden> orden;
    for (int i = 0; i < subsistemas.size(); ++i)
        for (const QString& parte : {QString(), QStringLiteral("datos/")}) {
            const QString relativa = subsistemas[i] + '/' + parte;
            const QStringList filtro{parte.isEmpty() ? "*.sql" : "*.tsv"};
            for (const QString& n : QDir(carpeta_ + '/' + relativa).entryList(filtro, QDir::Files))
                orden.push_back({n.left(2), i, parte.isEmpty(), relativa + n});
        }
    std::sort(orden.begin(), orden.end(), [](const Orden& a, const Orden& b) {
        return std::tie(a.fase, a.subsistema, a.guion, a.archivo) <
               std::tie(b.fase, b.subsistema, b.guion, b.archivo);
    });
    QStringList salida;
    for (const Orden& o : orden)
        salida << o.archivo;
    return salida;
}

QString Instalador::lea(const QString& archivo) const {
    QFile f(carpeta_ + '/' + archivo);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("No se pudo leer %1.").arg(f.fileName()));
    return QString::fromUtf8(f.readAll()).remove('\r');
}

void Instalador::instale(TipoBase tipo) {
    nueva_ = true;
    ejecute_guiones(tipo);
    // Lo último: la que se quedó a medias no dice ser de ninguna versión.
    anote_version({kVersionInicial, QStringLiteral("Esquema inicial")});
    for (const Actualizacion& a : actualizaciones(tipo))
        anote_version(a);
}

/// Un disparador de la base que ya corrió retiene los índices y procedimientos que usa mientras
/// viva la conexión: lo que una actualización apagó, la siguiente ya lo puede cambiar.
void Instalador::reconecte() {
    const ParametrosConexion parametros = conexion_.parametros();
    conexion_.desconectar();
    conexion_.conectar(parametros);
}

QSet<qint64> Instalador::aplicadas() {
    QSet<qint64> numeros;
    Transaccion lectura(conexion_, Transaccion::Modo::Lectura);
    auto s = std::make_shared<Preparada>(conexion_, lectura,
                                         QStringLiteral("select vers_numero from version_esquema"));
    Cursor filas(s, lectura, {});
    while (filas.siguiente())
        numeros.insert(qAbs(filas.valor(0).entero()));
    return numeros;
}

void Instalador::anuncie() {
    if (!quedo_a_medias())
        conexion_.ejecute(QStringLiteral("update version_esquema set vers_numero = -vers_numero"
                                         " where vers_numero = (select max(vers_numero) from"
                                         " version_esquema)"));
    desde_ = int(conexion_
                     .consulte(QStringLiteral("select min(abs(vers_numero)) from version_esquema"
                                              " where vers_numero < 0"))
                     .entero());
}

bool Instalador::quedo_a_medias() {
    return conexion_
               .consulte(QStringLiteral("select count(*) from version_esquema where"
                                        " vers_numero < 0"))
               .entero() > 0;
}

QStringList Instalador::actualice(TipoBase tipo) {
    const QSet<qint64> aplicadas = this->aplicadas();
    if (aplicadas.isEmpty())
        throw ErrorDatos(QStringLiteral("La creación de esta base de datos no terminó. Vuelva a "
                                        "crearla."));
    const QVector<Actualizacion> conocidas = actualizaciones(tipo);
    const int ultima = conocidas.isEmpty() ? kVersionInicial : conocidas.back().numero;
    for (const qint64 numero : aplicadas)
        if (numero > ultima)
            throw ErrorDatos(negativa_de_version(tipo, int(numero)));
    anuncie();
    QStringList hechas;
    for (Actualizacion a : conocidas) {
        if (aplicadas.contains(a.numero))
            continue;
        ejecute_guion(a.archivo);
        if (a.numero == ultima)
            a.numero = -ultima;
        anote_version(a);
        reconecte();
        hechas << QFileInfo(a.archivo).completeBaseName();
    }
    ejecute_guiones(tipo);
    conexion_.ejecute(QStringLiteral("update version_esquema set vers_numero = -vers_numero where"
                                     " vers_numero < 0"));
    return hechas;
}

QVector<Instalador::Actualizacion> Instalador::actualizaciones(TipoBase tipo) const {
    const QString relativa =
        QStringLiteral("actualizaciones/") + (tipo == TipoBase::General ? "general/" : "compania/");
    QVector<Actualizacion> lista;
    for (const QString& n :
         QDir(carpeta_ + '/' + relativa).entryList({"*.sql"}, QDir::Files, QDir::Name)) {
        const int numero = n.section('_', 0, 0).toInt();
        if (numero <= kVersionInicial)
            throw ErrorDatos(QStringLiteral("%1%2: el nombre debe empezar por el número de la "
                                            "actualización, mayor que %3")
                                 .arg(relativa, n)
                                 .arg(kVersionInicial));
        lista.push_back({numero, relativa + n});
    }
    std::sort(lista.begin(), lista.end(),
              [](const auto& a, const auto& b) { return a.numero < b.numero; });
    return lista;
}

void Instalador::anote_version(const Actualizacion& a) {
    conexion_.ejecute(
        QStringLiteral("update or insert into version_esquema (vers_numero, vers_fecha, "
                       "vers_nombre) values (?, current_timestamp, ?) matching (vers_numero)"),
        {Valor(a.numero), Valor(QFileInfo(a.archivo).completeBaseName().left(60))});
}

void Instalador::ejecute_guiones(TipoBase tipo) {
    for (const QString& archivo : archivos(tipo)) {
        if (aviso)
            aviso(archivo);
        if (archivo.endsWith(QLatin1String(".tsv")))
            cargue_lista(archivo);
        else
            ejecute_guion(archivo);
    }
}

void Instalador::ejecute_guion(const QString& archivo) {
    Existentes existentes(conexion_);
    const auto lista = [this](const QString& nombre) { return lea(nombre); };
    for (const SentenciaGuion& s : lea_guion(lea(archivo), archivo, lista)) {
        if (existentes.sobra(s.texto))
            continue;
        try {
            Transaccion transaccion(conexion_, Transaccion::Modo::Escritura);
            Preparada(conexion_, transaccion, s.texto).ejecute(transaccion, {});
            transaccion.confirme();
        } catch (const ErrorBase& e) {
            // De un guion mal escrito solo el motor dice qué tiene; lo demás (un disco lleno, una
            // red caída) ya tiene sus palabras.
            const bool del_guion =
                (e.clase() == ClaseFalla::Otra || e.clase() == ClaseFalla::OtraVersion) &&
                !e.detalle().isEmpty();
            throw ErrorDatos(QStringLiteral("%1:%2: %3\n%4")
                                 .arg(archivo, QString::number(s.renglon), primera_linea(s.texto),
                                      del_guion ? e.detalle() : e.para_usuario()),
                             e.detalle());
        }
        existentes.anote(s.texto);
    }
}

void Instalador::cargue_lista(const QString& archivo) {
    const ListaGuion lista = lea_lista(lea(archivo), archivo);
    const QString tabla = QFileInfo(archivo).completeBaseName().section('_', 1);
    const QStringList clave = columnas_clave(conexion_, tabla);
    if (clave.isEmpty())
        throw ErrorDatos(QStringLiteral("%1: la tabla %2 no tiene clave").arg(archivo, tabla));
    QVector<int> posiciones;
    for (const QString& c : clave) {
        posiciones.push_back(int(lista.columnas.indexOf(c)));
        if (posiciones.back() < 0)
            throw ErrorDatos(QStringLiteral("%1: falta la columna clave %2").arg(archivo, c));
    }
    const bool crecia =
        desde_ < kVersionDeMedios && (tabla.startsWith(QLatin1String("MEDIOSMAG_")) ||
                                      tabla.startsWith(QLatin1String("TAXONOMIA_")));
    const bool suya = !nueva_ && !crecia && kDeLaCompania.contains(tabla);
    Transaccion transaccion(conexion_, Transaccion::Modo::Escritura);
    QSet<QString> presentes;
    {
        auto s = std::make_shared<Preparada>(
            conexion_, transaccion,
            QStringLiteral("select %1 from %2").arg(clave.join(','), tabla));
        Cursor filas(s, transaccion, {});
        while (filas.siguiente()) {
            QStringList partes;
            for (int i = 0; i < clave.size(); ++i)
                partes << filas.valor(i).texto();
            presentes.insert(clave_unida(partes));
        }
    }
    if (suya && !presentes.isEmpty())
        return;
    const QStringList marcas(lista.columnas.size(), QStringLiteral("?"));
    Preparada inserte(conexion_, transaccion,
                      QStringLiteral("insert into %1 (%2) values (%3)")
                          .arg(tabla, lista.columnas.join(','), marcas.join(',')));
    int renglon = 1;
    for (const QStringList& fila : lista.filas) {
        ++renglon;
        QStringList partes;
        for (const int p : posiciones)
            partes << fila[p];
        if (presentes.contains(clave_unida(partes)))
            continue;
        QVector<Valor> valores;
        for (const QString& campo : fila)
            valores.push_back(campo.isNull() ? Valor() : Valor(campo));
        try {
            inserte.ejecute(transaccion, valores);
        } catch (const ErrorDatos& e) {
            // Es de algo que la compañía borró.
            const auto* motor = dynamic_cast<const ErrorBase*>(&e);
            if (suya && motor && motor->clase() == ClaseFalla::LlaveForanea)
                continue;
            throw ErrorDatos(QStringLiteral("%1:%2: %3")
                                 .arg(archivo, QString::number(renglon), e.para_usuario()),
                             e.detalle());
        }
        presentes.insert(clave_unida(partes));
    }
    transaccion.confirme();
}
