#pragma once
// Abre una por una las pantallas registradas que tienen ventana, como lo haría quien las llama.
#include "pantallas_de_prueba.h"
#include "sesion_de_prueba.h"
#include "toolkit/rejilla/rejilla.h"

inline QString nombre_de(const QWidget* w) {
    return w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className())
                                     : w->objectName();
}
/// Hace fallar la prueba si hay faltas, después de decirlas todas.
inline void diga_faltas(const QStringList& faltas) {
    for (const QString& f : faltas)
        qWarning("%s", qPrintable(f));
    QVERIFY2(faltas.isEmpty(), qPrintable(QString("%1 faltas").arg(faltas.size())));
}

inline const QString kEnModal = QStringLiteral(" en modal");

/// Lo que una prueba de todas las pantallas debe probar, por su nombre, y lo que probó. Lo que se
/// le quede sin probar es una falta, menos lo que se exceptúa con su razón; y lo exceptuado que sí
/// se prueba, también.
class Cobertura {
public:
    explicit Cobertura(QSet<QString> exceptuadas) : exceptuadas_(std::move(exceptuadas)) {}
    void debe(const QString& cual) { debidas_ << cual; }
    void hecha(const QString& cual) {
        debidas_ << cual;
        hechas_ << cual;
    }
    QStringList faltas() const {
        QStringList lista;
        QSet<QString> sobran = exceptuadas_;
        for (const QString& d : debidas_ - hechas_) {
            // La misma, como hija o en modal.
            const QString e = exceptuadas_.contains(d) ? d : QString(d).remove(kEnModal);
            if (!exceptuadas_.contains(e))
                lista << d + " se quedó sin probar";
            sobran.remove(e);
        }
        for (const QString& e : sobran)
            lista << e + " ya no es una excepción";
        if (hechas_.isEmpty())
            lista << "no se probó nada";
        lista.sort();
        return lista;
    }

private:
    QSet<QString> exceptuadas_, debidas_, hechas_;
};

/// Su nombre, y si se abrió en modal.
inline QString nombre_y_manera(const Pantalla& p) {
    return p.objectName() + (p.es_modal() ? kEnModal : QString());
}

/// Da a `haga` la hoja con pestaña a la vista y después las demás, con su título.
inline void con_cada_hoja(Pantalla* p, const std::function<void(const QString&)>& haga) {
    haga({});
    for (QTabWidget* hojas : p->findChildren<QTabWidget*>()) {
        const int abierta = hojas->currentIndex();
        for (int i = 0; i < hojas->count(); ++i) {
            if (i == abierta || !hojas->isTabVisible(i))
                continue;
            hojas->setCurrentIndex(i);
            agote_eventos();
            haga(hojas->tabText(i));
        }
        hojas->setCurrentIndex(abierta);
        agote_eventos();
    }
}

/// Muestra el recuadro que esconde a `w`, si hay uno y no es la hoja de otro, mientras `haga`
/// corre.
inline void con_su_recuadro(QWidget* w, const std::function<void()>& haga) {
    QPointer<QWidget> escondido;
    for (QWidget* r = w->parentWidget(); r && !qobject_cast<Pantalla*>(r); r = r->parentWidget())
        if (r->isHidden() && !r->parentWidget()->inherits("QStackedWidget"))
            escondido = r;
    if (escondido)
        escondido->show();
    haga();
    if (escondido)
        escondido->hide();
}

/// Dos filas en un conjunto que solo se llena con un proceso.
inline void llene(Pantalla* p, const char* conjunto, const QMap<QString, Valor>& fila) {
    auto* c = p->findChild<ConjuntoDatos*>(conjunto);
    QVERIFY2(c, conjunto);
    for (int i = 0; i < 2; ++i) {
        c->Append();
        for (auto v = fila.begin(); v != fila.end(); ++v)
            c->FieldByName(v.key()) = v.value();
        c->Post();
    }
}

/// Pide lo que la pantalla no muestra al abrirse. Falso en las que no hay qué pedir.
inline bool consulte(Pantalla* p) {
    static const QHash<QString, QString> botones{
        {"Tfmediosmag", "SpeedButton5"},    {"Tfmediosmag13", "SpeedButton5"},
        {"Tfmediosmagbog", "SpeedButton5"}, {"Tfsupersociedades", "SpeedButton5"},
        {"Tfejecutaregiauto", "SBVista"},   {"Tfbuscomproba", "BitBtn1"},
        {"Tfprocusr", "SpeedButton5"},
    };
    const Moneda mayor = Moneda::de_texto("9999999999999.99");
    if (p->objectName() == "Tfcausadifc") {
        llene(p, "CDiferencia", {{"NUMERO", "0000000123"}, {"DIFERENCIA", mayor}});
        return true;
    }
    if (p->objectName() == "Tfrevisamedio") {
        llene(p, "CProblemas", {{"CONCEPTO", "5001"}, {"NIT", "900123456"}, {"CAUSA", "Sin dir."}});
        llene(p, "CCuadre", {{"CUENTA", "510506"}, {"LIBRO", Moneda(1000)}});
        return true;
    }
    if (p->objectName() == "Tfmensaje")
        return p->findChild<Rejilla*>("DBGridEh1")->conjunto()->Locate("USUARIO", {"AUXILIAR"});
    auto* boton = p->findChild<QAbstractButton*>(botones.value(p->objectName()));
    if (!botones.contains(p->objectName()) || !boton)
        return false;
    if (auto* procesos = p->findChild<QComboBox*>("LProceso"); procesos && procesos->count() == 0)
        return false; // ninguno registrado
    if (auto* hasta = p->findChild<QLineEdit*>("FecFin"); p->objectName() == "Tfbuscomproba")
        hasta->clear(); // con todos los tipos se busca por un solo dato
    boton->click();
    return true;
}

/// Corre las órdenes en la base, entra y da a `haga` cada pantalla ya abierta, de cada manera en
/// que el programa la abre; después la cierra. `ventana`: tamaño del formulario principal, en
/// píxeles independientes de la escala. Sin datos preparados solo abre las que se abren solas, como
/// en una compañía nueva. `la_toca`: `haga` la cambia o la cierra, y lo que quede abierto se cierra
/// contestando que sí a las salidas. Con QUORVEX_PANTALLA, para mirarla, solo esa: la prueba falla.
inline void con_cada_pantalla(SesionDePrueba& s, const QStringList& ordenes, QSize ventana,
                              const std::function<void(Pantalla*)>& haga, bool con_datos = true,
                              bool la_toca = false) {
    if (con_datos)
        const PantallasDePrueba preparadas(s.bases);
    s.bases.ejecute(ordenes);
    s.entre().resize(ventana);
    s.datos.confirmar_contabilizacion = true; // si no, la propuesta se graba y se va sola
    const QString sola = qEnvironmentVariable("QUORVEX_PANTALLA");
    QStringList no_salieron;
    const auto muestre_modal = [&](const QString& n, const Encargo& encargo, Interlocutor& modal) {
        bool salio = false;
        modal.espere_modal(n, [&](QWidget* w) {
            salio = true;
            haga(w->findChild<Pantalla*>(n));
            w->close();
        });
        pantallas().abrir_modal(n, encargo);
        // Se dice al final: en una prueba que ya falló nadie atiende las demás.
        if (!salio)
            no_salieron << n + " (" + modal.queja() + ')';
    };
    for (const QString& n : pantallas().nombres()) {
        if ((!sola.isEmpty() && sola != n) || PantallasDePrueba::imprime(n) ||
            (!con_datos && !PantallasDePrueba::sirve_vacia(n)))
            continue;
        for (const Manera manera : PantallasDePrueba::maneras(n)) {
            const Encargo encargo = PantallasDePrueba::encargo(n, manera, con_datos);
            // La revisión de una propuesta pone en edición cada línea a la que llega, y pregunta.
            const QScopedValueRollback<bool> sale(Guardia::unica().despedida,
                                                  la_toca || n == "Tfcontabiliza");
            if (manera == Manera::Modal && la_toca) {
                Interlocutor callado(Interlocutor::EnSilencio);
                muestre_modal(n, encargo, callado);
            } else if (manera == Manera::Modal) {
                muestre_modal(n, encargo, s.dialogos);
            } else {
                const QPointer<Pantalla> p(pantallas().abrir(n, encargo));
                QVERIFY2(p, qPrintable(n));
                agote_eventos();
                haga(p);
                QVERIFY2(!p || p->close(), qPrintable(n));
            }
            if (manera == Manera::Modal)
                s.principal->activateWindow(); // si no, ninguna de las que siguen tiene el foco
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    QVERIFY2(no_salieron.isEmpty(), qPrintable("no salieron en modal: " + no_salieron.join(", ")));
    QVERIFY2(sola.isEmpty(), qPrintable("solo se miró " + sola + ", la de QUORVEX_PANTALLA"));
}
/// Las que `haga` toca, con los datos preparados, a 1366x768.
inline void con_cada_pantalla(SesionDePrueba& s, const std::function<void(Pantalla*)>& haga) {
    con_cada_pantalla(s, {}, {1366, 768}, haga, true, true);
}
