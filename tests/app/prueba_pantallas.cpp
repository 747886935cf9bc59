// Todas las pantallas registradas, a su tamaño de fábrica: el Tab las recorre en el orden en que se
// leen sin salirse de ellas, y ninguna rejilla recorta una cifra.
#include "pantallas_de_prueba.h"
#include "sesion_de_prueba.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>

namespace {

/// Control que el usuario ve como uno: la rejilla entera, el grupo de opciones, la caja de fecha.
QWidget* control_de(QWidget* foco) {
    QWidget* control = foco;
    for (QWidget* w = foco; w && !qobject_cast<Pantalla*>(w); w = w->parentWidget())
        if (qobject_cast<Rejilla*>(w) || w->inherits("QComboBox") ||
            w->inherits("QAbstractSpinBox"))
            control = w;
    if (qobject_cast<QRadioButton*>(foco))
        control = foco->parentWidget();
    return control;
}

QString nombre(const QWidget* w) {
    return w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className())
                                     : w->objectName();
}

/// Los que comparten renglón, de izquierda a derecha; los renglones, de arriba abajo.
QVector<QWidget*> en_orden(QVector<QWidget*> hermanos, QWidget* padre) {
    const auto lugar = [padre](QWidget* w) { return QRect(w->mapTo(padre, QPoint()), w->size()); };
    std::stable_sort(hermanos.begin(), hermanos.end(), [&](QWidget* a, QWidget* b) {
        return lugar(a).center().y() < lugar(b).center().y();
    });
    QVector<QWidget*> todos;
    while (!hermanos.isEmpty()) {
        // Un renglón: lo que se cruza en altura con el más alto de los que quedan.
        const QRect primero = lugar(hermanos.first());
        QVector<QWidget*> renglon;
        for (QWidget* w : hermanos) {
            const QRect este = lugar(w);
            const int comun =
                qMin(primero.bottom(), este.bottom()) - qMax(primero.top(), este.top());
            if (w == hermanos.first() || comun > qMin(primero.height(), este.height()) / 2)
                renglon << w;
        }
        std::stable_sort(renglon.begin(), renglon.end(),
                         [&](QWidget* a, QWidget* b) { return lugar(a).left() < lugar(b).left(); });
        for (QWidget* w : renglon)
            hermanos.removeOne(w);
        todos << renglon;
    }
    return todos;
}

/// Controles con parada de Tab, como se leen: cada recuadro entero antes de lo que sigue.
void lea(QWidget* padre, QVector<QWidget*>& orden) {
    QVector<QWidget*> hijos;
    for (QObject* o : padre->children())
        if (auto* w = qobject_cast<QWidget*>(o); w && w->isVisible() && !w->isWindow())
            hijos << w;
    for (QWidget* w : en_orden(hijos, padre)) {
        const bool grupo = qobject_cast<QGroupBox*>(w) && w->findChild<QRadioButton*>();
        if (control_de(w) == w && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus) && !grupo &&
            !qobject_cast<QRadioButton*>(w))
            orden << w;
        else if (auto* r = qobject_cast<QRadioButton*>(w); r && r->isEnabled()) {
            if (!orden.contains(r->parentWidget()))
                orden << r->parentWidget();
            continue;
        }
        if (control_de(w) == w && !qobject_cast<Rejilla*>(w) && !w->inherits("QComboBox") &&
            !w->inherits("QAbstractSpinBox"))
            lea(w, orden);
    }
}

/// Lo que Tab visita, oprimiéndolo de verdad, hasta volver a donde empezó.
QStringList recorra_con_tab(Pantalla* p, bool atras, QString& fuga) {
    QStringList visitados;
    QWidget* ultimo = nullptr;
    for (int n = 0; n < 600; ++n) {
        QWidget* foco = QApplication::focusWidget();
        if (!foco || !p->isAncestorOf(foco)) {
            fuga = foco ? nombre(foco) : QString("nadie");
            break;
        }
        QWidget* control = control_de(foco);
        if (control != ultimo) {
            if (visitados.contains(nombre(control)))
                break;
            visitados << nombre(control);
            ultimo = control;
        }
        QTest::keyClick(foco, atras ? Qt::Key_Backtab : Qt::Key_Tab,
                        atras ? Qt::ShiftModifier : Qt::NoModifier);
    }
    return visitados;
}

} // namespace

class PruebaPantallas : public QObject {
    Q_OBJECT
private slots:
    void init() { s_.emplace(); }
    void cleanup() { s_.reset(); }

    void el_tab_recorre_cada_pantalla_en_el_orden_en_que_se_lee();
    void ninguna_rejilla_recorta_una_cifra();

private:
    /// Corre las órdenes en la base y abre una por una las que tienen ventana, a 1366x768.
    void con_cada_una(const QStringList& ordenes, const std::function<void(Pantalla*)>& haga) {
        const PantallasDePrueba preparadas(s_->bases);
        s_->bases.ejecute(ordenes);
        s_->entre().resize(1366, 768);
        for (const QString& n : pantallas().nombres()) {
            if (preparadas.imprime(n))
                continue;
            if (preparadas.es_modal(n)) {
                s_->dialogos.espere_modal(n, [&](QWidget* w) {
                    haga(w->findChild<Pantalla*>(n));
                    w->close();
                });
                pantallas().abrir_modal(n, preparadas.encargo(n));
            } else {
                Pantalla* p = pantallas().abrir(n, preparadas.encargo(n));
                QVERIFY2(p, qPrintable(n));
                haga(p);
                QVERIFY2(p->close(), qPrintable(n));
            }
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    std::optional<SesionDePrueba> s_;
};

void PruebaPantallas::el_tab_recorre_cada_pantalla_en_el_orden_en_que_se_lee() {
    QStringList malas;
    con_cada_una({}, [&](Pantalla* p) {
        const QString esta = p->objectName();
        p->window()->activateWindow();
        if (!QTest::qWaitForWindowActive(p->window()))
            malas << esta + ": no se activó";
        agote_eventos();
        if (!QApplication::focusWidget() || !p->isAncestorOf(QApplication::focusWidget()))
            malas << esta + ": abre sin el foco en ella";
        QVector<QWidget*> controles;
        lea(p, controles);
        if (controles.isEmpty())
            return;
        QStringList leidos;
        for (QWidget* w : controles)
            leidos << nombre(w);
        for (const bool atras : {false, true}) {
            controles.first()->setFocus(Qt::TabFocusReason);
            QString fuga;
            QStringList visitados = recorra_con_tab(p, atras, fuga), esperados = leidos;
            if (atras)
                std::reverse(esperados.begin() + 1, esperados.end());
            if (!fuga.isEmpty())
                malas << QString("%1%2: el foco se va a %3")
                             .arg(esta, atras ? " hacia atrás" : "", fuga);
            else if (visitados != esperados)
                malas << QString("%1%2:\n    se lee  %3\n    va a    %4")
                             .arg(esta, atras ? " hacia atrás" : "", esperados.join(' '),
                                  visitados.join(' '));
        }
        for (auto* c : p->findChildren<ConjuntoDatos*>())
            if (c->Active() && c->editando())
                c->Cancel();
    });
    for (const QString& m : malas)
        qWarning("%s", qPrintable(m));
    QVERIFY2(malas.isEmpty(), qPrintable(QString("%1 recorridos").arg(malas.size())));
}

void PruebaPantallas::ninguna_rejilla_recorta_una_cifra() {
    // Cifras grandes, y la mayor lejos del comienzo: las primeras filas no deciden por ella.
    const QString muchas =
        "execute block as declare n integer = 10; begin while (n < 400) do begin n = n + 1; insert "
        "into comprobante_detalle (enco_consec, code_item, cuen_cod, code_debito, code_credito) "
        "select 500, :n, '413505', iif(:n = 400, 99999999999.99, 5), 0 from rdb$database; end end";
    QStringList recortadas;
    con_cada_una({muchas}, [&](Pantalla* p) {
        agote_eventos();
        for (Rejilla* r : p->findChildren<Rejilla*>()) {
            if (!r->isVisible() || !r->conjunto() || !r->conjunto()->Active())
                continue;
            r->conjunto()->FetchAll();
            agote_eventos();
            for (int c = 0; c < r->cuenta_columnas(); ++c) {
                if (r->isColumnHidden(c) || !r->modelo().numerica(c))
                    continue;
                for (int f = 0; f < r->modelo().rowCount(); ++f) {
                    const QFontMetrics m(r->aspecto_de(f).letra);
                    const QString cifra = r->modelo().texto(f, c);
                    if (m.horizontalAdvance(cifra) >
                        r->columnWidth(c) - 1 - 2 * DelegadoCelda::margen(m)) {
                        recortadas
                            << QString("%1.%2 columna %3 fila %4: %5")
                                   .arg(p->objectName(), r->objectName(), r->columna(c).FieldName)
                                   .arg(f)
                                   .arg(cifra);
                        break;
                    }
                }
            }
        }
    });
    for (const QString& r : recortadas)
        qWarning("%s", qPrintable(r));
    QVERIFY2(recortadas.isEmpty(), qPrintable(QString("%1 columnas").arg(recortadas.size())));
}

PRUEBA_DE_LA_APLICACION(PruebaPantallas)
#include "prueba_pantallas.moc"
