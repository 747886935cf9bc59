#include "apoyo/base_prueba.h"

#include "apoyo/datos_ejemplo.h"
#include "herramientas/instalador.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLockFile>

namespace {

constexpr const char* kRolDueno = "RDB$ADMIN";
constexpr int kPaginasCache = 2000;
constexpr int kHorasDeVida = 2; // de una plantilla que ya no es la vigente

QString carpeta_construccion() {
    const QString c = qEnvironmentVariable("QUORVEX_CONSTRUCCION");
    return c.isEmpty() ? QCoreApplication::applicationDirPath() + "/.." : c;
}

/// Huella de todo lo que decide el contenido de la plantilla.
QString huella() {
    QStringList archivos;
    QDirIterator i(carpeta_guiones(), QDir::Files, QDirIterator::Subdirectories);
    while (i.hasNext())
        archivos << i.next();
    const QString proyecto = carpeta_guiones() + "/..";
    archivos << proyecto + "/tests/apoyo/datos_ejemplo.cpp"
             << proyecto + "/tests/apoyo/base_prueba.cpp" << proyecto + "/herramientas/guion.cpp"
             << proyecto + "/herramientas/instalador.cpp"
             << proyecto + "/herramientas/administracion.cpp"
             << proyecto + "/herramientas/existentes.cpp";
    archivos.sort();
    QCryptographicHash suma(QCryptographicHash::Sha1);
    for (const QString& a : archivos) {
        QFile f(a);
        suma.addData(a.toUtf8());
        if (f.open(QIODevice::ReadOnly))
            suma.addData(f.readAll());
    }
    return QString::fromLatin1(suma.result().toHex().left(16));
}

/// Con su esquema y nada más: para quien pone sus propios datos.
void aparte_vacias(const Ubicacion& lugar, const QString& carpeta, const QString& codigo) {
    const Ubicacion vacias(carpeta + "/vacias");
    vacias.prepare_carpeta(vacias.base_compania(codigo));
    QFile::copy(lugar.base_general(), vacias.base_general());
    QFile::copy(lugar.base_compania(codigo), vacias.base_compania(codigo));
}

void arme(const QString& carpeta) {
    const Ubicacion lugar(carpeta);
    const QString codigo = "001";
    lugar.prepare_carpeta(lugar.base_compania(codigo));
    Conexion general, compania;
    general.cree_base(desechable(lugar.base_general()), kPaginasCache);
    Instalador(general).instale(TipoBase::General);
    compania.cree_base(desechable(lugar.base_compania(codigo)), kPaginasCache);
    Instalador(compania).instale(TipoBase::Compania);
    for (Conexion* base : {&general, &compania})
        base->desconectar();
    aparte_vacias(lugar, carpeta, codigo);
    general.conectar(desechable(lugar.base_general()));
    compania.conectar(desechable(lugar.base_compania(codigo)));
    agregue_datos_ejemplo(general, compania);
    for (Conexion* base : {&general, &compania})
        base->ejecute(QString("grant %1 to user \"ADMIN\"").arg(QLatin1String(kRolDueno)));
}

} // namespace

ParametrosConexion desechable(const QString& base) {
    ParametrosConexion p{base, "SYSDBA", {}};
    p.escritura_forzada = false;
    return p;
}

QString plantilla_de_bases() {
    static QString lista;
    if (!lista.isEmpty())
        return lista;
    const QString raiz = carpeta_construccion() + "/plantilla_bd";
    QDir().mkpath(raiz);
    QLockFile cerrojo(raiz + "/cerrojo");
    cerrojo.setStaleLockTime(0);
    if (!cerrojo.lock())
        throw ErrorDatos(QString("No se pudo tomar el cerrojo de %1.").arg(raiz));
    const QString nombre = huella();
    const QString destino = raiz + '/' + nombre;
    if (!QDir(destino).exists()) {
        // La nueva se arma aparte y se renombra entera. Las de otros guiones se borran cuando ya
        // nadie puede estar copiándolas.
        const QDateTime hace_rato = QDateTime::currentDateTime().addSecs(-kHorasDeVida * 3600);
        for (const QFileInfo& vieja : QDir(raiz).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            if (vieja.lastModified() < hace_rato)
                QDir(vieja.filePath()).removeRecursively();
        const QString provisional = raiz + "/armando";
        QDir(provisional).removeRecursively();
        arme(provisional);
        if (!QDir().rename(provisional, destino))
            throw ErrorDatos(QString("No se pudo dejar la plantilla en %1.").arg(destino));
    }
    return lista = destino;
}

BaseDePrueba::BaseDePrueba() {
    const Ubicacion origen(plantilla_de_bases()), destino(ruta());
    destino.prepare_carpeta(destino.base_compania(compania()));
    const auto copie = [](const QString& de, const QString& a) {
        if (!QFile::copy(de, a))
            throw ErrorDatos(QString("No se pudo copiar %1.").arg(de));
    };
    copie(origen.base_general(), destino.base_general());
    copie(origen.base_compania(compania()), destino.base_compania(compania()));
}

ParametrosConexion BaseDePrueba::de(const QString& base, const QString& usuario) {
    ParametrosConexion p{base, usuario, {}};
    if (usuario == "ADMIN")
        p.rol = QLatin1String(kRolDueno);
    return p;
}

Conexion& BaseDePrueba::base() {
    if (!base_.conectada())
        base_.conectar(parametros());
    return base_;
}

Conexion& BaseDePrueba::general() {
    if (!general_.conectada())
        general_.conectar(parametros_general());
    return general_;
}

void BaseDePrueba::ejecute(const QStringList& ordenes) {
    for (const QString& orden : ordenes)
        base().ejecute(orden);
}
