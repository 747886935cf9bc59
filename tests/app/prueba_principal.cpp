// La entrada al programa, la sesión y su cierre, con las bases verdaderas.
#include "apoyo/servidor_prueba.h"
#include "apoyo_gui/peticiones.h"
#include "apoyo_gui/teclado.h"
#include "app/paneldegradado.h"
#include "app/ventanaavisos.h"
#include "app/vigiamensajes.h"
#include "sesion/peticiones.h"
#include "sesion/respaldos.h"
#include "sesion_de_prueba.h"
#include "toolkit/rejilla/rejilla.h"

#include <QTcpServer>

class PruebaPrincipal : public QObject {
    Q_OBJECT
public:
    Q_INVOKABLE void tome_pagina(const QUrl& pagina) { pagina_ = pagina.toString(); }

private slots:
    void init() { s_.emplace(); }
    void cleanup() { s_.reset(); }

    void sin_una_linea_de_ordenes_valida_se_niega_sin_conectar() {
        const QString clave = ofusque_clave({}), lugar = "/no/hay/nada";
        for (const QStringList& argumentos :
             {QStringList{}, QStringList{"puentes", "ADMIN", "001", clave, lugar},
              QStringList{"PUENTES ", "ADMIN", "001", clave, lugar},
              QStringList{"PUENTES", "ADMIN", "001"},
              QStringList{"PUENTES", "ADMIN", "001", "", lugar}}) {
            s_->dialogos.espere("Acceso no permitido. Ingrese al módulo principal especificando un "
                                "usuario válido.");
            Tfprincipal& p = s_->abra(argumentos);
            QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
            QVERIFY(!p.isVisible());
            QVERIFY(!s_->datos.Quorvex.conectada() && !s_->datos.ConGeneral.conectada());
            QVERIFY(s_->datos.Quorvex.parametros().base.isEmpty()); // ni siquiera se intentó
            QVERIFY(s_->errores().isEmpty());
            s_->cierre();
        }
    }

    void una_conexion_fallida_se_explica_y_deja_el_marco_sin_sesion() {
        QTcpServer ocupado; // un puerto que acaba de quedar cerrado
        ocupado.listen(QHostAddress::LocalHost);
        const QString cerrado = QString("127.0.0.1/%1:/libros").arg(ocupado.serverPort());
        ocupado.close();
        const std::pair<QString, const char*> casos[] = {
            {"/no/hay/nada",
             "No se encontró el archivo o la ruta /no/hay/nada/datos/001/quorvex.fdb"},
            {"equipo.invalid:/libros",
             "No se encontró el equipo servidor con nombre equipo.invalid"},
            {cerrado, "No se encontró el servidor Interbase/Firebird. Verifique Servidor en panel "
                      "de control y puerto TCP 3050."}};
        for (const auto& [ubicacion, mensaje] : casos) {
            cleanup();
            init();
            s_->dialogos.espere(mensaje);
            QStringList argumentos = s_->argumentos();
            argumentos[4] = ubicacion;
            Tfprincipal& p = s_->abra(argumentos);
            QVERIFY(p.isVisible());
            QVERIFY(p.ECompania->text().isEmpty() && p.EUsuario->text().isEmpty());
            QCOMPARE(p.LabRevision->text(), "Rev: 2018/02/21 BD: ");
            QVERIFY(p.Generales1->isEnabled()); // los pasos siguientes no corrieron
            QVERIFY(!s_->datos.ConGeneral.conectada());
            // Fecha, hora, usuario (aún nadie) y el texto crudo, sin comillas.
            QCOMPARE(s_->errores().size(), 1);
            const QStringList campos = s_->errores().first().split(',');
            QCOMPARE(campos[0], "2017/05/15");
            QCOMPARE(campos[1], "12:00:00");
            QVERIFY(campos[2].isEmpty());
            QVERIFY(campos.mid(3).join(',').startsWith("dbExpress"));
            QVERIFY(p.barra->text().startsWith("dbExpress"));
        }
    }

    void el_servidor_rechaza_la_clave_y_acepta_la_buena() {
        ServidorDePrueba servidor;
        QStringList argumentos = s_->argumentos();
        argumentos[4] = servidor.ubicacion().texto();
        argumentos[3] = ofusque_clave("equivocada");
        s_->dialogos.espere("El nombre de Usuario o la clave son incorrectas.");
        s_->abra(argumentos);
        s_->cierre();

        argumentos[3] = ofusque_clave(ServidorDePrueba::kClave);
        Tfprincipal& p = s_->abra(argumentos);
        QCOMPARE(p.EUsuario->text(), "Administrador General");
        QVERIFY(!p.primera_activacion);
        s_->cierre(); // antes que el servidor
    }

    void la_ubicacion_sale_de_conexion_cfg_menos_sus_dos_ultimos_octetos() {
        QStringList argumentos = s_->argumentos();
        argumentos.removeLast();
        // Sin el archivo: el aviso y, en seguida, la conexión que falla.
        s_->dialogos.espere("No se encontró el archivo de conexión con la base de datos.");
        s_->dialogos.espere("No se encontró el archivo o la ruta /datos/001/quorvex.fdb");
        s_->abra(argumentos);
        QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
        s_->cierre();

        const auto escriba = [this](const QString& texto) {
            ponga_archivo(s_->carpeta() + "/conexion.cfg", texto.toLocal8Bit());
        };
        // Sin fin de línea pierde dos caracteres verdaderos.
        escriba(s_->bases.ruta());
        s_->dialogos.espere("No se encontró el archivo o la ruta " + s_->bases.ruta().chopped(2) +
                            "/datos/001/quorvex.fdb");
        s_->abra(argumentos);
        s_->cierre();

        escriba(s_->bases.ruta() + "\r\n");
        QCOMPARE(s_->abra(argumentos).EUsuario->text(), "Administrador General");
    }

    void sin_la_carpeta_de_la_aplicacion_se_avisa_solo_si_hace_falta() {
        qunsetenv("QUORVEX_DIRECTORIO");
        const QByteArray casa = qgetenv("HOME");
        QTemporaryDir vacia; // sin ajustes del usuario
        qputenv("HOME", vacia.path().toLocal8Bit());
        // Con la ubicación en la línea de órdenes ni el ajuste ni conexion.cfg hacen falta.
        QCOMPARE(s_->entre().EUsuario->text(), "Administrador General");
        s_->cierre();

        QStringList argumentos = s_->argumentos();
        argumentos.removeLast();
        s_->dialogos.espere(
            "No se encontró la Clave HKEY_LOCAL_MACHINE\\Software\\NQT\\Quorvex2018\\Directorio");
        s_->dialogos.espere("No se encontró el archivo de conexión con la base de datos.");
        s_->dialogos.espere("No se encontró el archivo o la ruta /datos/001/quorvex.fdb");
        s_->abra(argumentos);
        qputenv("HOME", casa);
    }

    void el_enlace_lleva_a_la_pagina_que_dice_la_instalacion() {
        const QByteArray casa = qgetenv("HOME");
        QTemporaryDir propia;
        qputenv("HOME", propia.path().toLocal8Bit());
        QDir(propia.path()).mkdir(".config");
        ponga_archivo(propia.filePath(".config/quorvex2018.conf"),
                      "Pagina=https://fabricante.example/\n");
        QDesktopServices::setUrlHandler("https", this, "tome_pagina");
        emit s_->entre().Label3->linkActivated("pagina");
        QDesktopServices::unsetUrlHandler("https");
        qputenv("HOME", casa);
        QCOMPARE(pagina_, "https://fabricante.example/");
    }

    void la_primera_activacion_sigue_su_orden() {
        QStringList orden;
        const auto anote = [&orden](const QString& sql) {
            if (!sql.contains("rdb$", Qt::CaseInsensitive) && !sql.contains("mon$") &&
                !sql.contains("version_esquema"))
                orden << sql;
        };
        s_->datos.Quorvex.observador = [&](const QString& sql) { anote("Q " + sql); };
        s_->datos.ConGeneral.observador = [&](const QString& sql) { anote("G " + sql); };
        s_->entre("AUXILIAR");
        const auto acceso = [](int opcion) {
            return QString("Q select acus_si from acceso_usuario where user_cod = 'AUXILIAR' and "
                           "acus_modulo = 'CONTABILIDAD' and acus_opcion = %1")
                .arg(opcion);
        };
        const QStringList esperado{
            "Q SELECT * FROM CONFIGURACION",
            "Q select revi_fecha from revision",
            "G UPDATE USUARIO SET FECCON = '2017/05/15' WHERE USUA_COD = 'AUXILIAR'",
            "G select usua_admin from usuario where usua_cod = 'AUXILIAR'",
            "G select usua_nombre from usuario where usua_cod = 'AUXILIAR'",
            "G SELECT * FROM COMPANIA",
            "Q select * from usuario where user_cod = 'AUXILIAR'",
            acceso(120),
            acceso(121),
            acceso(122),
            "Q select mens_id, mens_autor, mens_mensaje, mens_nivel  from mensajeria where "
            "mens_destino = 'AUXILIAR' and mens_leido = 'N'",
        };
        QCOMPARE(orden.mid(0, esperado.size()), esperado);

        orden.clear();
        s_->principal->FormActivate(); // ya no es la primera
        QVERIFY(orden.isEmpty());
        s_->cierre();
        s_->datos.Quorvex.observador = s_->datos.ConGeneral.observador = nullptr;
    }

    void la_sesion_queda_con_lo_que_dicen_las_bases() {
        s_->bases.ejecute({"update usuario set user_anocnt = '2017', user_percnt = 12 where "
                           "user_cod = 'AUXILIAR'",
                           "update revision set revi_fecha = '2018/05/09'"});
        s_->bases.general().ejecute("update compania set com_nombre = 'Registrada', "
                                    "comp_encabezado = 'Martillos', comp_logo = 'imagen'");
        s_->configure("NOMBRE COMPAÑIA", "La que configuró");
        s_->configure("NIT COMPAÑIA", "901555123-4");
        s_->configure("NUMERO DE REGISTROS A TRANSMITIR SIMULTANEAMENTE", "123");
        s_->configure("DURACION DE LAS BUSQUEDAS", "3");
        s_->configure("COLOR VENTANA PRINCIPAL", "255"); // rojo: el azul va en la parte alta
        s_->configure("COLOR FINAL VENTANA PRINCIPAL", "16711680"); // azul
        Tfprincipal& p = s_->entre("AUXILIAR");

        QCOMPARE(QApplication::applicationName(), "Contabilidad - Quorvex 2018");
        QCOMPARE(p.windowTitle(), "Contabilidad NIIF - Quorvex 2018");
        QCOMPARE(p.LabRevision->text(), "Rev: 2018/02/21 BD: 2018/05/09");
        QCOMPARE(p.ECompania->text(), "La que configuró");
        QCOMPARE(Rejilla::compania_impresa, "La que configuró · NIT 901555123-4");
        QCOMPARE(p.EUsuario->text(), "Auxiliar Contable");
        QVERIFY(p.ECompania->isReadOnly() && p.EUsuario->isReadOnly());
        QCOMPARE(s_->datos.modulo, "CONTABILIDAD");
        QCOMPARE(s_->datos.usuario, "AUXILIAR");
        QVERIFY(!s_->datos.administrador);
        QCOMPARE(s_->datos.sucursal_usuario, 2);
        QCOMPARE(s_->datos.registros_paquete, 123);
        QCOMPARE(s_->datos.duracion_busquedas, 3000);
        QCOMPARE(s_->contables.ano_actual, "2017");
        QCOMPARE(s_->contables.periodo_actual, 12);
        QCOMPARE(s_->datos.datos_compania.nombre, "Registrada");
        QCOMPARE(s_->datos.datos_compania.direccion, "Calle 10 # 20-30");
        QCOMPARE(s_->datos.datos_compania.telefonos, "601 3334455");
        QCOMPARE(s_->datos.datos_compania.encabezado, "Martillos");
        QCOMPARE(s_->datos.datos_compania.logo, QByteArray("imagen"));
        QCOMPARE(s_->datos.color_ventana, "255");
        QCOMPARE(p.AdvPanel1->color_inicial(), QColor(255, 0, 0));
        QCOMPARE(p.AdvPanel1->color_final(), QColor(0, 0, 255));
        QCOMPARE(p.AdvPanel2->color_inicial(), QColor(0, 0, 255));
        QCOMPARE(p.AdvPanel2->color_final(), QColor(255, 0, 0));
        QVERIFY(s_->datos.barra() == p.barra);
        QCOMPARE(p.barra->color(), AvisosBarra::Celeste);
    }

    void un_usuario_que_falta_en_una_base_no_entra() {
        const struct {
            const char* usuario;
            bool general;
            QStringList borra;
        } casos[] = {{"AUXILIAR", true, {"delete from usuario where usua_cod = 'AUXILIAR'"}},
                     {"AUXILIAR",
                      false,
                      {"delete from acceso_usuario where user_cod = 'AUXILIAR'",
                       "delete from usuario where user_cod = 'AUXILIAR'"}},
                     {"EXTRANO", false, {}}}; // nadie lo registró en ninguna
        for (const auto& c : casos) {
            cleanup();
            init();
            s_->dialogos.espere("Nombre de usuario incorrecto");
            for (const QString& orden : c.borra)
                (c.general ? s_->bases.general() : s_->bases.base()).ejecute(orden);
            if (c.general)
                s_->dialogos.espere("Usuario no registrado.");
            Tfprincipal& p = s_->entre(c.usuario);
            QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
            QVERIFY(!p.isVisible());
            if (c.borra.isEmpty()) { // lo que dijo el servidor queda para quien da soporte
                QVERIFY(!s_->errores().isEmpty());
                continue;
            }
            // El cierre borró el sello; los submenús y la marca de activación se alcanzaron igual.
            QVERIFY(s_->datos.ConGeneral.conectada());
            QCOMPARE(s_->sello(c.usuario), QString());
            QVERIFY(!p.Generales1->isEnabled());
            QVERIFY(!p.primera_activacion);
            QVERIFY(p.EUsuario->text().isEmpty() && p.ECompania->text().isEmpty());
        }
    }

    void una_base_de_otra_version_no_se_abre() {
        const QString nueva =
            "La base de datos %1 es de una versión más nueva que este programa (esquema 9999; el "
            "programa conoce hasta el %2). Instale la versión nueva del programa en este equipo.";
        const QString vieja = "La base de datos de la compañía es de una versión anterior a este "
                              "programa (esquema %1; el programa necesita el %2). Pida al "
                              "administrador que la ponga al día con quorvex-admin actualizar.";
        const QString agrega = "insert into version_esquema (vers_numero) values (9999)";
        const struct {
            bool general;
            QString orden, dice;
        } casos[] = {
            {false, agrega, nueva.arg("de la compañía").arg(kVersionCompania)},
            {true, agrega, nueva.arg("general").arg(kVersionGeneral)},
            {false,
             QString("delete from version_esquema where vers_numero = %1").arg(kVersionCompania),
             vieja.arg(kVersionCompania - 1).arg(kVersionCompania)},
        };
        for (const auto& c : casos) {
            cleanup();
            init();
            (c.general ? s_->bases.general() : s_->bases.base()).ejecute(c.orden);
            s_->dialogos.espere(c.dice);
            Tfprincipal& p = s_->entre();
            QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
            QVERIFY(!p.isVisible());
            QCOMPARE(s_->sello(), QString()); // ni siquiera se anotó la sesión
        }
    }

    void una_compania_sin_fila_toma_los_datos_de_la_primera() {
        s_->bases.general().ejecute("update compania set comp_cod = '777', com_nombre = 'Otra'");
        Tfprincipal& p = s_->entre();
        QCOMPARE(s_->datos.datos_compania.nombre, "Otra");
        QCOMPARE(p.ECompania->text(), "Compañía de Pruebas S.A.S.");
    }

    void un_valor_de_configuracion_danado_detiene_la_entrada() {
        s_->configure("COLOR VENTANA PRINCIPAL", "azul");
        s_->dialogos.espere(
            "Se presento el siguiente error: La configuración COLOR VENTANA PRINCIPAL tiene el "
            "valor 'azul', que no es un número entero. Corríjala en el módulo principal.");
        Tfprincipal& p = s_->entre();
        QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
        QVERIFY(p.isVisible() && p.EUsuario->text().isEmpty());
        s_->cierre();
        s_->datos.ConGeneral.desconectar();

        s_->bases.base().ejecute(
            "delete from configuracion where conf_propiedad = 'DURACION DE LAS BUSQUEDAS'");
        s_->dialogos.espere("No se encontró la configuración DURACION DE LAS BUSQUEDAS");
        s_->dialogos.espere(
            "Se presento el siguiente error: La configuración DURACION DE LAS BUSQUEDAS tiene el "
            "valor '', que no es un número entero. Corríjala en el módulo principal.");
        s_->entre();
        QVERIFY(!s_->datos.ConGeneral.conectada());
    }

    void el_sello_de_la_sesion_se_borra_solo_el_mismo_dia() {
        s_->entre();
        QCOMPARE(s_->sello(), "2017/05/15");
        QCOMPARE(s_->sello("AUXILIAR"), QString());
        s_->cierre();
        QCOMPARE(s_->sello(), QString());

        // La sesión que pasa la medianoche deja su sello.
        s_->entre();
        const RelojDetenido al_otro_dia({2017, 5, 16}, {0, 5});
        s_->cierre();
        QCOMPARE(s_->sello(), "2017/05/15");
    }

    void ctrl_f1_recarga_la_configuracion_y_conserva_lo_copiado() {
        Tfprincipal& p = s_->entre();
        const int busquedas = s_->datos.duracion_busquedas;
        const QString nombre = p.ECompania->text();
        s_->configure("DURACION DE LAS ADVERTENCIAS", "7");
        s_->configure("DURACION DE LAS BUSQUEDAS", "9");
        s_->configure("NOMBRE COMPAÑIA", "Cambiada");
        s_->datos.mostrar_advertencia("antes");
        QVERIFY(p.barra->Timer2->interval() != 700);
        QTest::keyClick(&p, Qt::Key_F1, Qt::ControlModifier);
        s_->datos.mostrar_advertencia("después");
        QCOMPARE(p.barra->Timer2->interval(), 700);
        QCOMPARE(s_->datos.duracion_busquedas, busquedas);
        QCOMPARE(p.ECompania->text(), nombre);
    }

    void lo_que_se_muestra_al_entrar_depende_de_un_si_exacto() {
        const QString balance = "MOSTRAR EL BALANCE DE PRUEBA AL ENTRAR AL MODULO";
        s_->configure(balance, "si");
        s_->entre();
        QVERIFY(escritorio()->abiertas().isEmpty());
        s_->cierre();

        s_->configure(balance, "SI");
        s_->entre();
        QVERIFY(escritorio()->abierta("Tfbalanceprueba"));
        s_->cierre();

        s_->bases.base().ejecute("delete from acceso_usuario where acus_opcion = 150");
        s_->dialogos.espere(kAccesoNegado);
        s_->entre("AUXILIAR");
        QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
        QVERIFY(escritorio()->abiertas().isEmpty());
        s_->cierre();

        // Los documentos sin contabilizar, en modal: el programa espera por ellos.
        s_->configure(balance, "NO");
        s_->configure("MOSTRAR COMPROBANTES SIN CONTABILIZAR AL ENTRAR AL MODULO", "SI");
        bool listada = false;
        s_->dialogos.espere_modal("Tfsincontab", [&listada](QWidget* w) {
            auto* lista = w->findChild<Pantalla*>("Tfsincontab");
            listada = lista && lista->windowTitle() == "Comprobantes sin contabilizar";
            lista->close();
        });
        s_->entre();
        QVERIFY(listada);
    }

    void busqueda_y_plantillas_se_abren_con_sus_teclas_y_sus_derechos() {
        const auto nombres = [] {
            QStringList todas;
            for (Pantalla* x : escritorio()->abiertas())
                todas << x->objectName();
            return todas;
        };
        const auto concede = [this](int opcion, bool si) {
            s_->bases.base().ejecute(
                QString("update or insert into acceso_usuario (user_cod, acus_modulo, acus_opcion, "
                        "acus_si) values ('AUXILIAR', 'CONTABILIDAD', %1, '%2')")
                    .arg(opcion)
                    .arg(si ? 'S' : 'N'));
        };
        s_->bases.base().ejecute("insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, "
                                 "plan_concepto) values (1, 'CG', '0001', 'Arriendo')");
        Tfprincipal& p = s_->entre("AUXILIAR");
        const struct {
            const char *entrada, *pantalla;
            int opcion;
        } casos[] = {{"Busquedadecomprobantes1", "Tfbuscomproba", 31},
                     {"Buscarplantillas1", "Tfbuscplantilla", 41},
                     {"Crearnuevaplantilla1", "Tfplantilla", 40}};
        for (const auto& c : casos) {
            QAction* entrada = p.findChild<QAction*>(c.entrada);
            QVERIFY(entrada);
            concede(c.opcion, false);
            s_->dialogos.espere(kAccesoNegado);
            entrada->trigger();
            QVERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
            QCOMPARE(nombres(), QStringList());
            concede(c.opcion, true);
            entrada->trigger();
            QCOMPARE(nombres(), QStringList({c.pantalla}));
            escritorio()->cierre_todas();
        }
        p.activateWindow(); // los diálogos se llevaron la activación
        (void)QTest::qWaitForWindowActive(&p);
        QTest::keyClick(&p, Qt::Key_F1, Qt::ShiftModifier);
        QCOMPARE(nombres(), QStringList({"Tfbuscomproba"}));
        escritorio()->cierre_todas();
        // Desde el menú la lista se mantiene: el doble clic edita en vez de escoger.
        QTest::keyClick(&p, Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(nombres(), QStringList({"Tfbuscplantilla"}));
        auto* rejilla = escritorio()->activa()->findChild<Rejilla*>("DBGridEh1");
        rejilla->OnDblClick(0);
        QCOMPARE(nombres(), QStringList({"Tfbuscplantilla", "Tfedtplantilla"}));
        escritorio()->cierre_todas();
        auto* plantillas = p.findChild<QPushButton*>("sButton6");
        plantillas->setFocus();
        QTest::keyClick(plantillas, Qt::Key_Return);
        QCOMPARE(nombres(), QStringList({"Tfmnuplantilla"}));
    }

    void f1_sin_una_pantalla_abierta_muestra_las_teclas_del_menu() {
        Tfprincipal& p = s_->entre();
        QStringList vistas;
        s_->dialogos.espere_modal("teclas_de_pantalla", [&vistas](QWidget* w) {
            auto* tabla = w->findChild<QTreeWidget*>("tabla_teclas");
            for (int i = 0; i < tabla->topLevelItemCount(); ++i)
                vistas << tabla->topLevelItem(i)->text(0) + ' ' + tabla->topLevelItem(i)->text(1);
            w->close();
        });
        QTest::keyClick(&p, Qt::Key_F1);
        for (const char* t :
             {"Mayús+F1 Comprobantes: Busqueda de comprobantes", "Alt+M Comprobantes",
              "Ctrl+S Archivo: Salir", "F10 Ir al menú", "F1 Ver esta lista"})
            QVERIFY2(vistas.contains(t), qPrintable(vistas.join('\n')));
    }

    void del_menu_se_vuelve_a_donde_se_estaba() {
        Tfprincipal& p = s_->entre();
        auto* boton = p.findChild<QPushButton*>("sButton6");
        boton->setFocus();
        QTest::keyClick(&p, Qt::Key_F10);
        QCOMPARE(QApplication::focusWidget(), p.menuBar());
        while (QWidget* abierto = QApplication::activePopupWidget())
            QTest::keyClick(abierto, Qt::Key_Escape);
        QTest::keyClick(p.menuBar(), Qt::Key_Escape);
        QTRY_COMPARE(p.focusWidget(), boton);
    }

    void los_mensajes_sin_leer_aparecen_al_entrar_y_se_marcan() {
        const auto escriba = [this](int id, int nivel, const QString& texto) {
            s_->bases.base().ejecute(
                QString("insert into mensajeria (mens_id, mens_autor, mens_mensaje, mens_nivel, "
                        "mens_destino, mens_leido) values (%1, 'AUXILIAR', %2, %3, 'ADMIN', 'N')")
                    .arg(id)
                    .arg(QuotedStr(texto))
                    .arg(nivel));
        };
        const auto leidos = [this] {
            return s_->bases.base()
                .consulte("select count(*) from mensajeria where mens_leido = 'S'")
                .entero();
        };
        escriba(901, 2, "Cierre <b>ya</b>");
        escriba(902, 9, "Otro");
        Tfprincipal& p = s_->entre();
        VentanaAvisos* aviso = p.mensajes->AdvAlertWindow2;
        QTimer* reloj = p.mensajes->Timer3;
        QVERIFY(aviso->isVisible());
        QCOMPARE(aviso->cuantos(), 2);
        QVERIFY(aviso->texto_actual().startsWith("901<br><b>Cierre &lt;b&gt;ya"));
        QVERIFY(aviso->texto_actual().endsWith(
            "<br>De : AUXILIAR</b><br>Haga clic para marcar como leído"));
        QCOMPARE(aviso->palette().color(QPalette::Window), QColor(0xFF, 0xFF, 0x80));
        QVERIFY(!reloj->isActive()); // con el aviso a la vista no se pregunta
        QCOMPARE(reloj->interval(), 10000);

        // Sin el ratón: Ctrl+Mayús+M lleva a sus botones, y al cerrarlo el teclado vuelve a su
        // sitio.
        const QPointer<QWidget> tenia = con_foco();
        oprima(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(con_foco()->objectName(), "Responder");
        for (const char* boton : {"Siguiente", "Leido"}) {
            for (int n = 0; n < 5 && con_foco()->objectName() != boton; ++n)
                oprima(Qt::Key_Tab);
            oprima(Qt::Key_Return);
            QVERIFY(aviso->texto_actual().startsWith("902<br>"));
            QCOMPARE(aviso->palette().color(QPalette::Window), p.palette().color(QPalette::Window));
        }
        QVERIFY(!aviso->isVisible() && reloj->isActive());
        QCOMPARE(con_foco(), tenia.data());
        QCOMPARE(leidos(), 1);

        p.mensajes->Timer3Timer();
        QCOMPARE(aviso->cuantos(), 1);
        RespondeMensaje contestado;
        registre_testigo("Tfmensaje",
                         [&](const Pantalla& m) { contestado = m.peticion<RespondeMensaje>(); });
        QTest::mouseClick(aviso->findChild<QPushButton*>("Responder"), Qt::LeftButton);
        QCOMPARE(leidos(), 2);
        QCOMPARE(contestado.mensaje_responder, "901");
        QCOMPARE(contestado.autor_responder, "AUXILIAR");
        escritorio()->cierre_todas();
        p.mensajes->Timer3Timer();
        QVERIFY(!aviso->isVisible() && reloj->isActive());
    }

    void el_aviso_no_tapa_los_botones_ni_cuando_se_mueven() {
        s_->bases.ejecute({"insert into mensajeria (mens_id, mens_autor, mens_mensaje, mens_nivel, "
                           "mens_destino, mens_leido) values (901, 'AUXILIAR', 'Hola', 9, 'ADMIN', "
                           "'N')"});
        Tfprincipal& p = s_->entre();
        const VentanaAvisos* aviso = p.mensajes->AdvAlertWindow2;
        p.resize(911, 512); // ni en un monitor pequeño
        Pantalla* cuentas = pantallas().abrir("Tfcuentas");
        QVERIFY(cuentas);
        agote_eventos();
        const auto tapado = [&] {
            QString tapados;
            for (const QPushButton* b : cuentas->findChildren<QPushButton*>())
                if (b->isVisible() &&
                    aviso->geometry().intersects({b->mapTo(&p, QPoint()), b->size()}))
                    tapados += b->text();
            return tapados;
        };
        QCOMPARE(tapado(), QString());
        QWidget* suya = p.findChild<QWidget*>("ventana_Tfcuentas"); // ni si sus botones se mueven
        const QSize abierta = suya->size();
        suya->resize(abierta - QSize(0, 60));
        agote_eventos();
        QCOMPARE(tapado(), QString());
        suya->resize(abierta); // la que escoge el usuario se guarda
        cuentas->close();
    }

    void una_excepcion_que_nadie_atrapa_llega_a_la_falla_general() {
        Tfprincipal& p = s_->entre();
        s_->dialogos.espere("Se presento el siguiente error: se rompió algo");
        QTimer::singleShot(0, &p, [] { throw ErrorDatos("se rompió algo"); });
        QTRY_VERIFY2(s_->dialogos.conforme(), qPrintable(s_->dialogos.queja()));
        QVERIFY(s_->errores().last().endsWith(",ADMIN,se rompió algo"));
        // Una edición abortada ya habló: no dice nada más.
        bool aborto = false;
        QTimer::singleShot(0, &p, [&] {
            aborto = true;
            throw EdicionAbortada();
        });
        QTRY_VERIFY(aborto);
        agote_eventos();
        QCOMPARE(s_->dialogos.vistos().size(), 1);
    }

    void los_saldos_se_compactan_en_silencio() {
        s_->bases.ejecute({"create exception no_suma 'no suma'",
                           "create trigger estorbo for saldos_cuenta before update as begin if "
                           "(new.sald_debito > 150) then exception no_suma; end",
                           "create table espera (plazo varchar(20))",
                           "grant insert on espera to public",
                           "create trigger espera_bi for saldos_cuenta before insert as begin "
                           "insert into espera values (rdb$get_context('SYSTEM', "
                           "'LOCK_TIMEOUT')); end"});
        Tfprincipal& p = s_->entre();
        p.compactador->reloj->stop();
        s_->bases.ejecute(
            {"insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, enco_numero, "
             "enco_fecha) values (1, 'CG', '0001', '000001', '20170105')",
             "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, code_debito, "
             "code_credito) values (1, 1, '110505', 100, 0)",
             "insert into comprobante_detalle (enco_consec, code_item, cuen_cod, code_debito, "
             "code_credito) values (1, 2, '413505', 0, 100)"});
        const auto pendientes = [this] {
            return s_->bases.base().consulte("select count(*) from saldos_diferencia").entero();
        };
        {
            // Mientras otro los tiene tomados no hace nada, ni lo espera.
            Transaccion retiene(s_->bases.base(), Transaccion::Modo::Escritura);
            s_->bases.base()
                .prepare("update saldos_control set saco_vuelta = saco_vuelta", retiene)
                ->ejecute(retiene, {});
            const qsizetype dichos = s_->errores().size();
            QCOMPARE(p.compactador->compacte(), 0);
            QVERIFY(pendientes() > 0);
            QCOMPARE(s_->errores().size(), dichos);
        }
        QVERIFY(p.compactador->compacte() > 0);
        QCOMPARE(pendientes(), 0);
        // Lo que el motor le habría hecho esperar por una fila tomada.
        QCOMPARE(s_->bases.base().consulte("select list(distinct plazo) from espera").texto(), "0");
        QCOMPARE(p.compactador->compacte(), 0);

        // Una falla queda en el archivo.
        s_->bases.ejecute({"update comprobante_detalle set code_debito = 200 where code_item = 1"});
        const qsizetype antes = s_->errores().size();
        QCOMPARE(p.compactador->compacte(), 0);
        QCOMPARE(s_->errores().size(), antes + 1);
        // Sin conexión espera: no la busca en nombre de nadie.
        s_->datos.Quorvex.desconectar();
        QCOMPARE(p.compactador->compacte(), 0);
        QCOMPARE(s_->errores().size(), antes + 1);
        QVERIFY(s_->dialogos.vistos().isEmpty());
    }

    void una_pantalla_que_no_se_deja_cerrar_retiene_el_programa() {
        struct Terca : Pantalla {
            Terca() : Pantalla("Terca", "Terca") {}
            bool FormClose() override { return deja; }
            bool deja = false;
        };
        Tfprincipal& p = s_->entre();
        auto* terca = new Terca;
        escritorio()->muestre(terca);
        QVERIFY(!p.close());
        QVERIFY(p.isVisible());
        QCOMPARE(s_->sello(), "2017/05/15");
        terca->deja = true;
        QTest::keyClick(&p, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!p.isVisible());
        QCOMPARE(s_->sello(), QString());
    }

    void el_pie_dice_del_respaldo_al_administrador() {
        const auto letrero = [&] { return s_->principal->findChild<QLabel*>("LetreroRespaldo"); };
        s_->entre("AUXILIAR");
        QVERIFY(!letrero()->isVisible());
        s_->cierre();
        Tfprincipal& p = s_->entre();
        QVERIFY(letrero()->isVisible());
        QCOMPARE(letrero()->text(), "Sin respaldo");
        QString archivo;
        ParametrosConexion dueno = s_->datos.Quorvex.parametros();
        dueno.usuario = "SYSDBA";
        dueno.rol.clear();
        respalde_compania(dueno, "001", {s_->carpeta() + "/copias", 3}, archivo);
        const QString cuando = ::reloj().ahora().toString("yyyy/MM/dd hh:mm");
        QCOMPARE(letrero()->text(), "Respaldo: " + cuando);
        p.barra->texto("Otra cosa"); // los avisos no lo tapan
        p.barra->mostrar_advertencia("Y otra", 0);
        QCOMPARE(letrero()->text(), "Respaldo: " + cuando);
        s_->cierre();
        s_->entre();
        QCOMPARE(letrero()->text(), "Respaldo: " + cuando); // al volver a entrar también
        s_->cierre();
    }

private:
    std::optional<SesionDePrueba> s_;
    QString pagina_;
};

PRUEBA_DE_LA_APLICACION(PruebaPrincipal)
#include "prueba_principal.moc"
