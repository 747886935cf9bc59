// quorvex-admin: administra las bases de la suite donde no está el módulo principal.
#include "herramientas/administracion.h"
#include "herramientas/ordenes.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

constexpr int kFalla = 1, kMalUso = 2;
const QStringList kComunes = {"ubicacion", "usuario", "clave"};

void muestre_uso(const Orden& o) {
    diga(QStringLiteral("quorvex-admin %1 %2").arg(o.nombre, o.uso));
    diga(QStringLiteral("    %1.").arg(o.resumen));
}

void muestre_ayuda(const QVector<Orden>& ordenes) {
    diga(QStringLiteral(
        "Administración de las bases de datos de Quorvex 2018.\n\n"
        "Uso: quorvex-admin ORDEN --ubicacion LUGAR [opciones]\n\n"
        "LUGAR es una carpeta de este equipo o equipo/puerto:carpeta de un servidor; "
        "si falta se toma\nde QUORVEX_UBICACION. En un servidor se entra con "
        "--usuario (SYSDBA si falta) y --clave, o la\nvariable QUORVEX_CLAVE.\n"));
    for (const Orden& o : ordenes)
        muestre_uso(o);
    diga(QStringLiteral("\nquorvex-admin ORDEN --help muestra una sola. Códigos de salida: 0 bien, "
                        "1 la orden falló, 2 mal escrita."));
}

int ejecute(const Orden& o, const QStringList& escritos) {
    try {
        const Argumentos argumentos(escritos, o.con_valor + kComunes, o.banderas);
        o.ejecute(Sesion(argumentos));
        return 0;
    } catch (const ErrorDeUso& e) {
        QTextStream(stderr) << e.texto() << "\n";
        muestre_uso(o);
        return kMalUso;
    } catch (const ErrorDatos& e) {
        QTextStream(stderr) << mensaje_claro(e) << "\n";
    } catch (const std::exception& e) {
        QTextStream(stderr) << QStringLiteral("Falla inesperada: %1").arg(e.what()) << "\n";
    }
    return kFalla;
}

} // namespace

void diga(const QString& texto) {
    QTextStream(stdout) << texto << "\n";
}

Sesion::Sesion(const Argumentos& argumentos)
    : argumentos_(argumentos),
      ubicacion_(
          argumentos.valor(QStringLiteral("ubicacion"), qEnvironmentVariable("QUORVEX_UBICACION"))),
      usuario_(argumentos.valor(QStringLiteral("usuario"), QStringLiteral("SYSDBA"))),
      clave_(argumentos.valor(QStringLiteral("clave"), qEnvironmentVariable("QUORVEX_CLAVE"))) {
    if (ubicacion_.vacia())
        throw ErrorDeUso(QStringLiteral("Falta la opción --ubicacion."));
}

ParametrosConexion Sesion::de(const QString& base) const {
    ParametrosConexion p{base, usuario_, clave_};
    p.rol.clear(); // administra con los derechos del dueño, no con los del programa
    return p;
}

ParametrosConexion Sesion::general() const {
    return de(ubicacion_.base_general());
}

ParametrosConexion Sesion::compania(const QString& codigo) const {
    return de(ubicacion_.base_compania(codigo));
}

ParametrosConexion Sesion::compania() const {
    const QString codigo = codigo_compania(argumentos_.exija(QStringLiteral("compania")));
    Conexion general_abierta;
    general_abierta.conectar(general());
    if (!companias(general_abierta).contains(codigo))
        throw ErrorDatos(QStringLiteral("La compañía %1 no está registrada.").arg(codigo));
    return compania(codigo);
}

QStringList Sesion::codigos() const {
    Conexion general_abierta;
    general_abierta.conectar(general());
    const QStringList registradas = companias(general_abierta);
    if (!argumentos_.tiene(QStringLiteral("compania")))
        return registradas;
    const QStringList pedidas =
        argumentos_.valor(QStringLiteral("compania")).split(',', Qt::SkipEmptyParts);
    for (const QString& codigo : pedidas)
        if (!registradas.contains(codigo))
            throw ErrorDatos(QStringLiteral("La compañía %1 no está registrada.").arg(codigo));
    return pedidas;
}

int main(int argc, char** argv) {
    QCoreApplication aplicacion(argc, argv);
    QStringList escritos = aplicacion.arguments().mid(1);
    const QVector<Orden> ordenes =
        ordenes_de_bases() + ordenes_de_usuarios() + ordenes_de_documentos();
    const QStringList ayudas = {"--help", "--ayuda", "-h"};
    if (escritos.isEmpty() || ayudas.contains(escritos.front())) {
        muestre_ayuda(ordenes);
        return escritos.isEmpty() ? kMalUso : 0;
    }
    const QString nombre = escritos.takeFirst();
    for (const Orden& o : ordenes) {
        if (o.nombre != nombre)
            continue;
        for (const QString& ayuda : ayudas)
            if (escritos.contains(ayuda)) {
                muestre_uso(o);
                return 0;
            }
        return ejecute(o, escritos);
    }
    QTextStream(stderr)
        << QStringLiteral("No se conoce la orden '%1'. Use quorvex-admin --help.\n").arg(nombre);
    return kMalUso;
}
