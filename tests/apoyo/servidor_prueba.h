#pragma once
// Servidor Firebird privado para las pruebas: solo atiende en 127.0.0.1, en un puerto libre, con su
// propia base de seguridad, y muere con la prueba. Necesita el paquete firebird3.0-server (o la
// ruta de su programa en QUORVEX_FIREBIRD) e isql-fb.
#include "datos/firebird/conexion.h"
#include "herramientas/ubicacion.h"

#include <QProcess>
#include <QTemporaryDir>

class ServidorDePrueba {
public:
    /// Usuarios con clave: SYSDBA, ADMIN y AUXILIAR, cada uno con kClave.
    static constexpr const char* kClave = "tornillo7";

    /// Prepara las bases de la plantilla y arranca. Lanza ErrorDatos si no pudo.
    ServidorDePrueba();
    ~ServidorDePrueba();

    /// El programa del servidor; vacío si no está instalado.
    static QString programa();

    int puerto() const { return puerto_; }
    Ubicacion ubicacion() const;
    ParametrosConexion parametros(const QString& usuario = QStringLiteral("ADMIN")) const;
    ParametrosConexion parametros_general(const QString& usuario = QStringLiteral("ADMIN")) const;

    /// Para y vuelve a arrancar en el mismo puerto: lo que ve un cliente cuando se cae el servidor.
    void detenga();
    void inicie();
    /// Muere sin despedirse, con lo que estuviera haciendo.
    void mate();
    /// Del programa del servidor, para matarlo desde otro hilo.
    qint64 proceso() const { return proceso_.processId(); }

private:
    QProcessEnvironment entorno() const;
    void prepare_raiz();
    void cree_seguridad();

    QTemporaryDir carpeta_;
    QProcess proceso_;
    int puerto_ = 0;
};
