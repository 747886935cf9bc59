#pragma once
// El programa dentro de una prueba: sus módulos de datos y su formulario principal verdaderos,
// sobre una copia de las bases y con su propia carpeta de aplicación.
#include "apoyo_gui/interlocutor.h"
#include "app/aplicacion.h"
#include "app/compactador.h"
#include "app/registro.h"
#include "app/tfprincipal.h"
#include "datos/firebird/claves.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmart.h"
#include "sesion/tfdmcnt.h"
#include "sesion/tfdmter.h"
#include "toolkit/barraestado.h"
#include "toolkit/pantalla.h"

class SesionDePrueba {
public:
    SesionDePrueba() {
        qputenv("QUORVEX_DIRECTORIO", carpeta_.path().toLocal8Bit());
        registre_pantallas();
    }
    ~SesionDePrueba() { cierre(); }

    RelojDetenido reloj; ///< de la sesión, los sellos y ERRORES.TXT
    BaseDePrueba bases;
    Interlocutor dialogos;
    Tfdm datos;
    Tfdmcnt contables;
    TfdmArt articulos;
    Tfdmter terceros;
    std::unique_ptr<Tfprincipal> principal;

    QString carpeta() const { return carpeta_.path(); }
    QStringList argumentos(const QString& usuario = "ADMIN") const {
        return {"PUENTES", usuario, "001", ofusque_clave({}), bases.ruta()};
    }
    /// Muestra el formulario principal y espera a que termine su primera activación.
    Tfprincipal& abra(const QStringList& argumentos) {
        principal = std::make_unique<Tfprincipal>(argumentos);
        QSignalSpy terminada(principal.get(), &Tfprincipal::activacion_terminada);
        principal->show();
        if (terminada.isEmpty())
            terminada.wait(20000);
        // Los atajos solo viven en la ventana activa.
        principal->activateWindow();
        (void)QTest::qWaitForWindowActive(principal.get(), 2000);
        return *principal;
    }
    Tfprincipal& entre(const QString& usuario = "ADMIN") { return abra(argumentos(usuario)); }
    void cierre() {
        if (principal)
            principal->close();
        principal.reset();
    }
    /// El sello de la sesión en la general, "" si no hay.
    QString sello(const QString& usuario = "ADMIN") {
        return bases.general()
            .consulte("select feccon from usuario where usua_cod = " + QuotedStr(usuario))
            .texto();
    }
    void configure(const QString& propiedad, const QString& valor) {
        bases.base().ejecute("update configuracion set conf_valor = " + QuotedStr(valor) +
                             " where conf_propiedad = " + QuotedStr(propiedad));
    }
    /// Renglones de ERRORES.TXT.
    QStringList errores() const {
        QFile archivo(carpeta() + "/ERRORES.TXT");
        if (!archivo.open(QIODevice::ReadOnly))
            return {};
        return QString::fromLatin1(archivo.readAll()).split("\r\n", Qt::SkipEmptyParts);
    }

private:
    QTemporaryDir carpeta_;
};

#define PRUEBA_DE_LA_APLICACION(Clase)                                                             \
    int main(int cuantos, char** argumentos) {                                                     \
        Aplicacion aplicacion(cuantos, argumentos);                                                \
        QApplication::setQuitOnLastWindowClosed(false);                                            \
        Clase prueba;                                                                              \
        return QTest::qExec(&prueba, cuantos, argumentos);                                         \
    }
