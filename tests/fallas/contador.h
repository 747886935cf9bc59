#pragma once
// Un contador que graba, corrige y borra comprobantes de los dos libros en las pantallas, con el
// teclado, sobre las bases de cualquier ubicación. Como una persona: lee los mensajes, los cierra y
// vuelve a intentar.
#include "apoyo_gui/sesion_gui.h"
#include "vouchers/registro.h"
#include "vouchers/tfedtmovimien.h"
#include "vouchers/tfmovimien.h"

/// Módulos de datos y marco de ventanas sobre las bases de `lugar`. Lee los mensajes y los cierra.
struct SesionEnLugar {
    SesionEnLugar(const Ubicacion& lugar, const QString& usuario, const QString& clave)
        : escritorio(new QMdiArea(&ventana)) {
        qputenv("QUORVEX_DIRECTORIO", carpeta.path().toLocal8Bit());
        dm.Quorvex.conectar({lugar.base_compania("001"), usuario, clave});
        dm.ConGeneral.conectar({lugar.base_general(), usuario, clave});
        dm.modulo = "CONTABILIDAD";
        dm.codigo_compania = "001";
        dm.usuario = usuario;
        dm.administrador = true;
        dm.cargue_configuracion();
        cnt.ano_actual = "2017";
        cnt.dia_actual = "05";
        dm.barra(&barra);
        ventana.setCentralWidget(escritorio.area());
        ventana.resize(1200, 800);
        ventana.show();
        ventana.activateWindow();
        (void)QTest::qWaitForWindowActive(&ventana);
        QObject::connect(&reloj, &QTimer::timeout, &reloj, [this] { cierre_mensaje(); });
        reloj.start(2);
    }
    ~SesionEnLugar() {
        escritorio.cierre_todas();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        dm.barra(nullptr);
    }
    void cierre_mensaje() {
        QWidget* modal = QApplication::activeModalWidget();
        // La impresión que sale tras cada grabación se deja con Esc.
        if (auto* impresion = modal && modal->isVisible()
                                  ? modal->findChild<Pantalla*>("Tfimprcomproba")
                                  : nullptr)
            return QTest::keyClick(impresion, Qt::Key_Escape);
        if (modal && modal->objectName() == "anuncio_pegado")
            return QTest::keyClick(modal->focusWidget(), Qt::Key_Return);
        auto* mensaje = qobject_cast<QMessageBox*>(modal);
        if (!mensaje || !mensaje->isVisible())
            return;
        mensajes << mensaje->text();
        if (mensaje->text().startsWith("Desea borrar definitivamente")) {
            for (QAbstractButton* b : mensaje->buttons())
                if (b->text().remove('&') == "Sí")
                    return QTest::keyClick(b, Qt::Key_Space);
        }
        QTest::keyClick(mensaje, Qt::Key_Escape);
        if (mensaje->isVisible())
            mensaje->done(QMessageBox::Cancel);
    }

    QTemporaryDir carpeta;
    Tfdm dm;
    Tfdmcnt cnt;
    Tfdmter ter;
    TfdmArt art;
    AvisosBarra barra;
    QMainWindow ventana;
    Escritorio escritorio;
    QTimer reloj;
    QStringList mensajes; ///< los que ha cerrado
};

struct Contador : SesionEnLugar {
    Contador(const Ubicacion& lugar, const QString& usuario, const QString& clave)
        : SesionEnLugar(lugar, usuario, clave) {
        registre_pantallas_comprobantes();
        p = qobject_cast<Tfmovimien*>(pantallas().abrir("Tfmovimien"));
    }

    /// Escoge CG, pasando por el último tipo: la pantalla vuelve a leer el número.
    void escoja_tipo() { oprima_en(p->LTipo, Qt::Key_End, Qt::Key_Home); }
    /// Encabezado con réplica y dos renglones que cuadran, sin grabar. Lo que haya se digita de
    /// nuevo.
    void digite_comprobante(const QString& debito, const QString& credito, const QString& valor) {
        const auto campo = [this](const char* c) { return p->CMovimiento.FieldByName(c).texto(); };
        if (campo("TICO_COD") != "CG")
            escoja_tipo();
        if (campo("ENCO_CONCEPTO").isEmpty()) {
            digite_en(p->DBEdit1, "Concepto");
        }
        if (campo("ENCO_REPNIIF") != "S") {
            oprima_en(p->DBCheckBox2, Qt::Key_Space);
        }
        Rejilla& r = *p->lineas_2649->rejilla;
        r.setFocus();
        p->CDetalle.Cancel();
        while (!p->CDetalle.IsEmpty())
            p->CDetalle.Delete();
        r.SelectedIndex(0);
        linea({debito, "", "", "", "", "", "", "", "", valor, "", ""});
        linea({credito, "", "", "", "", "", "", "", "", "", valor});
    }
    /// Los dos renglones quedaron como se digitaron: una caída a media línea los deja a medias.
    bool completo(const QString& debito, const QString& credito, const QString& valor) {
        const ConjuntoDatos& d = p->CDetalle;
        const auto dice = [&d](int fila, const char* campo) {
            return d.valor_en(fila, d.FieldByName(campo));
        };
        const Moneda esperado = Moneda::de_texto(valor);
        return d.RecordCount() == 2 && p->CMovimiento.FieldByName("ENCO_REPNIIF").texto() == "S" &&
               dice(0, "CUEN_COD").texto() == debito && dice(1, "CUEN_COD").texto() == credito &&
               dice(0, "CODE_DEBITO").moneda() == esperado &&
               dice(1, "CODE_CREDITO").moneda() == esperado;
    }
    void linea(const QStringList& celdas) { digite_celdas(celdas); }
    /// F2; cierto si quedó grabado: la pantalla pasa al siguiente, sin renglones.
    bool grabe() {
        p->activateWindow();
        p->lineas_2649->rejilla->setFocus();
        if (p->CDetalle.RecordCount() != 2)
            qFatal("el comprobante no tiene sus dos renglones");
        oprima(Qt::Key_F2);
        return p->CDetalle.IsEmpty();
    }
    /// Graba pasando a la página NIIF; cierto si quedó. Deja la pantalla en el siguiente.
    bool grabe_por_cambio_de_pagina() {
        p->activateWindow();
        p->PageControl1->setCurrentIndex(1);
        const bool quedo = p->Cdetniif.RecordCount() == 2;
        p->PageControl1->setCurrentIndex(0);
        return quedo && grabe();
    }
    /// Abre el comprobante en su pantalla de edición; nulo si no se dejó.
    Tfedtmovimien* edite(const QString& numero) {
        const QString id =
            dm.Quorvex
                .consulte("select enco_consec from comprobante_encabezado where enco_numero = ?",
                          {Valor(numero)})
                .texto();
        return qobject_cast<Tfedtmovimien*>(
            pantallas().abrir("Tfedtmovimien", AbreComprobante{id}));
    }
    /// Pone el valor en los dos lados del libro 2649 y graba. Cierto si la pantalla quedó conforme.
    bool corrija(const QString& numero, const QString& valor) {
        Tfedtmovimien* e = edite(numero);
        if (!e)
            return false;
        ponga_valor(*e, valor);
        oprima(Qt::Key_F2);
        return cerrada("Tfedtmovimien");
    }
    void ponga_valor(Tfedtmovimien& e, const QString& valor) {
        Rejilla& r = *e.lineas_2649->rejilla;
        r.setFocus();
        e.CDetalle.First();
        r.SelectedIndex(9);
        digite(valor, Qt::Key_Down);
        r.SelectedIndex(10);
        digite(valor, Qt::Key_Return);
    }
    bool borre(const QString& numero) {
        Tfedtmovimien* e = edite(numero);
        if (!e)
            return false;
        oprima_en(e->SBBorrar, Qt::Key_Space);
        return cerrada("Tfedtmovimien");
    }
    /// Cierto si ya no está; si sigue, la deja abandonada sin guardar.
    bool cerrada(const char* pantalla) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Pantalla* sigue = escritorio.abierta(pantalla);
        if (!sigue)
            return true;
        qobject_cast<Tfedtmovimien*>(sigue)->CMovimiento.CancelUpdates();
        sigue->close();
        return false;
    }
    /// Número de un comprobante por su valor, que nadie más usa; vacío si no está.
    QString numero_de(const QString& valor) {
        return dm.Quorvex
            .consulte("select max(e.enco_numero) from comprobante_encabezado e join "
                      "comprobante_detalle d on d.enco_consec = e.enco_consec where "
                      "d.code_debito = ?",
                      {Valor(Moneda::de_texto(valor))})
            .texto();
    }
    /// Sin servidor no hay que insistir: espera a que vuelva a atender, o un minuto.
    void espere_servidor() {
        (void)QTest::qWaitFor(
            [this] {
                try {
                    Conexion prueba;
                    prueba.conectar(dm.ConGeneral.parametros());
                    return true;
                } catch (const ErrorDatos&) {
                    return false;
                }
            },
            60000);
    }
    /// Digita y graba insistiendo; devuelve el número, o vacío si ni así.
    QString grabe_insistiendo(const QString& debito, const QString& credito, const QString& valor,
                              int intentos = 300) {
        bool cayo = false;
        while (intentos-- > 0) {
            const int vistos = int(mensajes.size());
            if (!completo(debito, credito, valor))
                digite_comprobante(debito, credito, valor);
            const QString numero = p->ENumero->text();
            // El que quedó puede no ser el que se veía: otro pudo tomarlo antes.
            if (completo(debito, credito, valor) && !numero.isEmpty() && grabe())
                return numero_de(valor);
            const QString dicho = mensajes.mid(vistos).join(' ');
            if (dicho.contains("Se perdió la conexión")) {
                cayo = true;
                espere_servidor();
            } else if (cayo && dicho.contains("Ya existe")) {
                // La caída pudo llegar después de confirmar: lo busca antes de repetirlo.
                if (const QString suyo = en_la_base(); !suyo.isEmpty()) {
                    p->CMovimiento.CancelUpdates();
                    p->CMovimiento.Append();
                    return suyo;
                }
            }
            escoja_tipo();
        }
        return {};
    }
    /// Número con que quedó en la base el comprobante de la pantalla; vacío si no está.
    QString en_la_base() {
        return dm.Quorvex
            .consulte("select enco_numero from comprobante_encabezado where enco_consec = ?",
                      {p->CMovimiento.FieldByName("ENCO_CONSEC").valor()})
            .texto();
    }

    Tfmovimien* p = nullptr;
};
