#pragma once
// Sesión de una persona para probar pantallas: base propia, módulos de datos y marco de ventanas.
//
//     SesionGui s;                       // ADMIN, administrador
//     SesionGui s("AUXILIAR");           // con las opciones de opciones_auxiliar()
//     s.escritorio.area()                // aquí se abren las ventanas hijas
#include "apoyo/base_prueba.h"
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/peticiones.h"
#include "apoyo_gui/teclado.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmart.h"
#include "sesion/tfdmcnt.h"
#include "sesion/tfdmter.h"
#include "toolkit/barraestado.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/editornumero.h"
#include "toolkit/controles/fechadato.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/estilo.h"
#include "toolkit/pantalla.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QScopedValueRollback>
#include <QSignalSpy>
#include <QTest>

/// La propiedad que dice en qué libro abren los comprobantes y las consultas.
inline const QString kLibroInicial = QStringLiteral(
    "MOSTRAR VENTANAS 2649 O NIIF INICIALMENTE AL REGISTRAR COMPROBANTES Y HACER CONSULTAS");

struct SesionGui {
    explicit SesionGui(const QString& usuario = QStringLiteral("ADMIN"))
        : escritorio(new QMdiArea(&ventana)) {
        Guardia::unica();
        qputenv("QUORVEX_DIRECTORIO", base.ruta().toLocal8Bit());
        dm.Quorvex.conectar(base.parametros(usuario));
        dm.ConGeneral.conectar(base.parametros_general(usuario));
        dm.modulo = QStringLiteral("CONTABILIDAD");
        dm.codigo_compania = base.compania();
        dm.usuario = usuario;
        dm.administrador = usuario == QLatin1String("ADMIN");
        dm.cargue_configuracion();
        cnt.ano_actual = QStringLiteral("2017");
        ventana.setCentralWidget(escritorio.area());
        ventana.resize(1200, 800);
        ventana.show();
        ventana.activateWindow();
        (void)QTest::qWaitForWindowActive(&ventana);
    }
    ~SesionGui() {
        const QScopedValueRollback<bool> despedida(Guardia::unica().despedida, true);
        escritorio.cierre_todas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Valor de una consulta hecha por fuera de la sesión.
    QString dato(const QString& sql) { return base.base().consulte(sql).texto(); }
    /// Otorga una opción de CONTABILIDAD al usuario de la sesión.
    void otorgue(int opcion) {
        base.base().ejecute(QStringLiteral("update or insert into acceso_usuario (user_cod, "
                                           "acus_modulo, acus_opcion, acus_si) values (%1, "
                                           "'CONTABILIDAD', %2, 'S')")
                                .arg(QuotedStr(dm.usuario))
                                .arg(opcion));
    }
    void niegue(int opcion) {
        base.base().ejecute(
            QStringLiteral("delete from acceso_usuario where user_cod = %1 and acus_opcion = %2")
                .arg(QuotedStr(dm.usuario))
                .arg(opcion));
    }
    /// Cambia una propiedad de la configuración y la vuelve a leer.
    void configure(const QString& propiedad, const QString& valor) {
        base.base().ejecute("update configuracion set conf_valor = ? where conf_propiedad = ?",
                            {valor, propiedad});
        dm.cargue_configuracion();
    }
    template <class T> T* abra(const QString& nombre, Encargo encargo = {}) {
        return qobject_cast<T*>(pantallas().abrir(nombre, std::move(encargo)));
    }

    BaseDePrueba base;
    Tfdm dm;
    Tfdmcnt cnt;
    Tfdmter ter;
    TfdmArt art;
    QMainWindow ventana;
    Escritorio escritorio;
};
