// Usuarios, permisos, configuración y línea de arranque.
#include "datos/firebird/claves.h"
#include "datos/firebird/concuerde.h"
#include "herramientas/administracion.h"
#include "herramientas/ordenes.h"

#include <QFile>

namespace {

void usuario_crear(const Sesion& s) {
    const Argumentos& a = s.argumentos();
    DatosUsuario d;
    d.codigo = codigo_usuario(a.exija(QStringLiteral("codigo")));
    d.nombre = a.exija(QStringLiteral("nombre"));
    d.administrador = a.tiene(QStringLiteral("administrador"));
    d.sucursal = a.entero(QStringLiteral("sucursal"), 0, 0, 999999);
    Conexion general;
    general.conectar(s.general());
    if (s.ubicacion().en_servidor())
        cree_usuario_servidor(general, d.codigo, a.exija(QStringLiteral("clave-usuario")));
    registre_usuario_general(general, d);
    for (const QString& codigo : s.codigos()) {
        Conexion compania;
        compania.conectar(s.compania(codigo));
        d.ano = compania
                    .consulte(QStringLiteral("select conf_valor from configuracion where"
                                             " conf_modulo = 'CONTABILIDAD' and conf_categoria ="
                                             " 'GENERAL' and conf_propiedad = 'AÑO DE INICIO'"))
                    .texto()
                    .toInt();
        d.periodo = 0;
        registre_usuario_compania(compania, d);
        diga(QStringLiteral("Usuario %1 registrado en la compañía %2.").arg(d.codigo, codigo));
    }
}

void otorgar(const Sesion& s, bool conceder) {
    const Argumentos& a = s.argumentos();
    if (a.sueltos().isEmpty())
        throw ErrorDeUso(QStringLiteral("Faltan las opciones."));
    const QString modulo = a.valor(QStringLiteral("modulo"), kModuloContabilidad);
    const QVector<int> todas = opciones_contabilidad();
    QVector<int> opciones = a.sueltos() == QStringList{"todas"} ? todas : numeros(a.sueltos());
    // Un tramo puede saltarse números; las de los otros módulos no se conocen aquí.
    if (modulo == QLatin1String(kModuloContabilidad))
        opciones.removeIf([&](int opcion) { return !todas.contains(opcion); });
    if (opciones.isEmpty())
        throw ErrorDeUso(QStringLiteral("Ninguna de esas opciones existe."));
    Conexion compania;
    compania.conectar(s.compania());
    otorgue(compania, a.exija(QStringLiteral("codigo")), modulo, opciones, conceder);
    diga(conceder ? concuerde(opciones.size(), "Concedida %1 opción.", "Concedidas %1 opciones.")
                  : concuerde(opciones.size(), "Negada %1 opción.", "Negadas %1 opciones."));
}

void conceder(const Sesion& s) {
    otorgar(s, true);
}

void negar(const Sesion& s) {
    otorgar(s, false);
}

void configurar(const Sesion& s) {
    const QStringList& p = s.argumentos().sueltos();
    if (p.size() != 4)
        throw ErrorDeUso(
            QStringLiteral("Son cuatro valores: módulo, categoría, propiedad y valor."));
    Conexion compania;
    compania.conectar(s.compania());
    configure(compania, p[0], p[1], p[2], p[3]);
    diga(QStringLiteral("%1 / %2 / %3 = \"%4\"").arg(p[0], p[1], p[2], p[3]));
}

/// La línea que el módulo principal ejecuta para abrir la contabilidad con un usuario.
void clave(const Sesion& s) {
    const Argumentos& a = s.argumentos();
    const QString usuario = codigo_usuario(a.exija(QStringLiteral("codigo")));
    Conexion compania;
    compania.conectar(s.compania());
    exija_registrado(compania, usuario); // con la línea de otro el programa no abre
    const QString disfrazada = ofusque_clave(a.valor(QStringLiteral("clave-usuario")));
    diga(QStringLiteral("Clave: %1").arg(disfrazada));
    diga(QStringLiteral("Arranque: quorvex-contabilidad PUENTES %1 %2 %3 \"%4\"")
             .arg(usuario, codigo_compania(a.exija(QStringLiteral("compania"))), disfrazada,
                  s.ubicacion().texto()));
}

/// El archivo debe terminar en CR LF: quien lo lee descarta sus dos últimos octetos.
void conexion(const Sesion& s) {
    QFile archivo(s.argumentos().exija(QStringLiteral("carpeta")) +
                  QStringLiteral("/conexion.cfg"));
    const QByteArray texto = s.ubicacion().texto().toLocal8Bit() + "\r\n";
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(texto) != texto.size())
        throw ErrorDatos(
            QStringLiteral("No se pudo escribir %1. Verifique la carpeta y sus permisos.")
                .arg(archivo.fileName()));
    diga(QStringLiteral("Escrito %1.").arg(archivo.fileName()));
}

} // namespace

QVector<Orden> ordenes_de_usuarios() {
    return {
        {"usuario-crear",
         "registra un usuario en la general y en las compañías; en un servidor, también allí",
         "--codigo ANA --nombre NOMBRE [--administrador] [--sucursal 0] [--compania 001]\n"
         "    [--clave-usuario CLAVE]",
         {"codigo", "nombre", "sucursal", "compania", "clave-usuario"},
         {"administrador"},
         usuario_crear},
        {"conceder",
         "concede opciones a un usuario",
         "--codigo ANA --compania 001 [--modulo CONTABILIDAD] (30 31 100-105 | todas)",
         {"codigo", "compania", "modulo"},
         {},
         conceder},
        {"negar",
         "niega opciones a un usuario",
         "--codigo ANA --compania 001 [--modulo CONTABILIDAD] (30 31 100-105 | todas)",
         {"codigo", "compania", "modulo"},
         {},
         negar},
        {"configurar",
         "cambia un valor de la configuración",
         "--compania 001 MODULO CATEGORIA PROPIEDAD VALOR",
         {"compania"},
         {},
         configurar},
        {"clave",
         "muestra la clave disfrazada y la línea de arranque",
         "--codigo ANA --compania 001 [--clave-usuario CLAVE]",
         {"codigo", "compania", "clave-usuario"},
         {},
         clave},
        {"conexion",
         "escribe conexion.cfg en la carpeta de la aplicación",
         "--carpeta CARPETA",
         {"carpeta"},
         {},
         conexion},
    };
}
