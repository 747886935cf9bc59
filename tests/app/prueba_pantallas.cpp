// Todas las pantallas registradas, a su tamaño de fábrica: el Tab las recorre en el orden en que se
// leen sin salirse de ellas, y sus datos se nombran con palabras.
#include "cada_pantalla.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/navegadordatos.h"
#include "toolkit/orden_lectura.h"
#include "toolkit/rejilla/rejilla.h"
#include "vouchers/panel_flotante.h"

namespace {

/// Desde este ancho toda pantalla cabe en su ventana: lo ancho se desplaza dentro de ella.
constexpr int kAngosto = 800, kCorriente = 1366;

/// Con letra grande sus recuadros lado a lado no pasan a otro renglón.
const QStringList kMasAnchas{"Tfedtarticulo", "Tfnvoarticulo", "Tfmodtercero", "Tfnvotercero",
                             "Tfvalactivo"};

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

QString nombres(const QVector<QWidget*>& controles) {
    QStringList lista;
    for (const QWidget* w : controles)
        lista << nombre_de(w);
    return lista.join(' ');
}

/// Los que comparten renglón, de izquierda a derecha; los renglones, de arriba abajo.
QVector<QWidget*> en_orden(QVector<QWidget*> hermanos, QWidget* padre) {
    // Los botones que se quedan en el borde de la ventanilla se leen al final, donde van.
    const auto lugar = [padre](QWidget* w) {
        const QVariant natural = w->property(kLugarNatural);
        return natural.isValid() ? natural.toRect() : QRect(w->mapTo(padre, QPoint()), w->size());
    };
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

bool para_en(QWidget* w) {
    return (control_de(w) == w || qobject_cast<QRadioButton*>(w)) &&
           (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy();
}

/// Un rótulo no hace renglón: no se llega a él.
bool con_paradas(QWidget* w) {
    const QList<QWidget*> dentro = w->findChildren<QWidget*>();
    return para_en(w) || std::any_of(dentro.begin(), dentro.end(), para_en);
}

/// Controles con parada de Tab, encendidos o no, como se leen: cada recuadro entero antes de lo que
/// sigue.
void lea(QWidget* padre, QVector<QWidget*>& orden) {
    QVector<QWidget*> hijos;
    for (QObject* o : padre->children())
        if (auto* w = qobject_cast<QWidget*>(o);
            w && w->isVisible() && !w->isWindow() && con_paradas(w))
            hijos << w;
    for (QWidget* w : en_orden(hijos, padre)) {
        const bool grupo = qobject_cast<QGroupBox*>(w) && w->findChild<QRadioButton*>();
        if (para_en(w) && !grupo && !qobject_cast<QRadioButton*>(w))
            orden << w;
        else if (auto* r = qobject_cast<QRadioButton*>(w)) {
            if (!orden.contains(r->parentWidget()))
                orden << r->parentWidget();
            continue;
        }
        if (control_de(w) == w && !qobject_cast<Rejilla*>(w) && !w->inherits("QComboBox") &&
            !w->inherits("QAbstractSpinBox"))
            lea(w, orden);
    }
}

/// Lo enfocado no se alcanza a ver: está fuera de la ventanilla o detrás de los botones.
bool tapado(Pantalla* p, QWidget* w) {
    constexpr int kSeReconoce = 12;
    QWidget* ventanilla = p->parentWidget();
    const QRect lugar(w->mapTo(ventanilla, QPoint()), w->size());
    QRect vista = lugar & ventanilla->rect();
    const auto* barra = p->findChild<BarraBotones*>();
    if (barra && barra->isVisible() && !barra->isAncestorOf(w))
        vista.setBottom(qMin(vista.bottom(), barra->mapTo(ventanilla, QPoint()).y() - 1));
    return vista.width() < qMin(lugar.width(), kSeReconoce) ||
           vista.height() < qMin(lugar.height(), kSeReconoce);
}

/// Lo que Tab visita, oprimiéndolo de verdad.
struct Recorrido {
    QVector<QWidget*> visitados;
    /// Apagados cuando Tab pasó por su sitio: el de ir al primero en la primera fila, el que graba
    /// lo que se edita.
    QSet<QWidget*> saltados;
    QSet<QWidget*> encendidos; ///< en algún momento
    QString fuga;
};

QSet<QWidget*> encendidos(const QVector<QWidget*>& controles) {
    QSet<QWidget*> s;
    for (QWidget* w : controles)
        if (w->isEnabled() && w->isVisible())
            s << w;
    return s;
}

/// Los que se leen entre dos, en el sentido en que se va.
QVector<QWidget*> entre(const QVector<QWidget*>& todos, QWidget* de, QWidget* a, bool atras) {
    const qsizetype n = todos.size(), paso = atras ? n - 1 : 1;
    QVector<QWidget*> v;
    const qsizetype desde = todos.indexOf(de), hasta = todos.indexOf(a);
    for (qsizetype i = desde; desde >= 0 && hasta >= 0 && (i = (i + paso) % n) != hasta;)
        v << todos[i];
    return v;
}

/// Lo que no se ve al llegar a un control.
QString lo_que_no_se_ve(Pantalla* p, QWidget* control) {
    QString mal;
    if (tapado(p, control))
        mal += nombre_de(control) + " recibe el foco y no se ve; ";
    // Quien digita las líneas ve si cuadran.
    if (qobject_cast<Rejilla*>(control) && p->window()->width() > kAngosto)
        for (auto* d : p->findChildren<QLabel*>(QRegularExpression("^LabDiferencia")))
            if (d->isVisible() && tapado(p, d))
                mal += d->objectName() + " no se ve desde las líneas; ";
    return mal;
}

/// Desde donde esté el foco hasta volver al comienzo.
Recorrido recorra_con_tab(Pantalla* p, bool atras) {
    QVector<QWidget*> todos;
    lea(p, todos);
    Recorrido r;
    QSet<QWidget*> antes;
    for (int n = 0; n < 600; ++n) {
        QWidget* foco = QApplication::focusWidget();
        if (!foco || !p->isAncestorOf(foco)) {
            r.fuga = "el foco se va a " + (foco ? nombre_de(foco) : QString("nadie"));
            return r;
        }
        QWidget* control = control_de(foco);
        const QSet<QWidget*> ahora = encendidos(todos);
        r.encendidos += ahora;
        if (r.visitados.isEmpty() || control != r.visitados.last()) {
            if (!r.visitados.isEmpty())
                for (QWidget* w : entre(todos, r.visitados.last(), control, atras))
                    if (!antes.contains(w) || !ahora.contains(w))
                        r.saltados << w;
            if (r.visitados.contains(control)) {
                if (control != r.visitados.first())
                    r.fuga += "el foco vuelve antes de tiempo a " + nombre_de(control);
                return r;
            }
            if (!r.visitados.isEmpty())
                r.fuga += lo_que_no_se_ve(p, control);
            r.visitados << control;
            // Celda por celda, una lista larga no se acaba: la última fila está a un paso.
            if (qobject_cast<Rejilla*>(control))
                QTest::keyClick(foco, atras ? Qt::Key_Home : Qt::Key_End, Qt::ControlModifier);
            foco = QApplication::focusWidget();
        }
        antes = encendidos(todos);
        QTest::keyClick(foco, atras ? Qt::Key_Backtab : Qt::Key_Tab,
                        atras ? Qt::ShiftModifier : Qt::NoModifier);
    }
    r.fuga = "el foco no sale de " + nombre_de(r.visitados.last());
    return r;
}

/// En qué se aparta Tab del orden de lectura; vacío si en nada.
QString compare_recorrido(Pantalla* p, bool atras, Recorrido& r) {
    QVector<QWidget*> esperados;
    lea(p, esperados);
    // Se sale de uno que no dependa de la fila por la que vaya la rejilla.
    const auto propio = std::find_if(esperados.begin(), esperados.end(), [](QWidget* w) {
        return w->isEnabled() && !qobject_cast<NavegadorDatos*>(w->parentWidget());
    });
    if (propio == esperados.end())
        return esperados.isEmpty() ? QString() : "nada en qué pararse: " + nombres(esperados);
    std::rotate(esperados.begin(), propio, esperados.end());
    if (atras)
        std::reverse(esperados.begin() + 1, esperados.end());
    esperados.first()->setFocus(Qt::TabFocusReason);
    r = recorra_con_tab(p, atras);
    // Lo que la fila de una lista hizo aparecer se lee donde salió.
    const bool salio = std::any_of(r.visitados.begin(), r.visitados.end(),
                                   [&](QWidget* w) { return !esperados.contains(w); });
    if (salio) {
        QWidget* primero = esperados.first();
        esperados.clear();
        lea(p, esperados);
        std::rotate(esperados.begin(), std::find(esperados.begin(), esperados.end(), primero),
                    esperados.end());
        if (atras)
            std::reverse(esperados.begin() + 1, esperados.end());
        esperados.removeIf([&](QWidget* w) { return !w->isEnabled() && !r.visitados.contains(w); });
    }
    esperados.removeIf(
        [&](QWidget* w) { return r.saltados.contains(w) && !r.visitados.contains(w); });
    const bool sola = esperados.size() == 1; // de ella se pasa a ella misma
    if (r.visitados == esperados && (r.fuga.isEmpty() || sola))
        return {};
    return QString("%1\n    se lee  %2\n    va a    %3")
        .arg(r.fuga, nombres(esperados), nombres(r.visitados));
}

/// De ida y de vuelta; lo que estuvo encendido, en alguna de las dos se alcanza. Los botones de ir
/// a una fila dependen de por dónde vaya su lista: se exigen encendidos al pasar por ellos.
QStringList compare_los_dos_sentidos(Pantalla* p) {
    QStringList malas;
    Recorrido ida, vuelta;
    if (const QString mala = compare_recorrido(p, false, ida); !mala.isEmpty())
        malas << ": " + mala;
    if (const QString mala = compare_recorrido(p, true, vuelta); !mala.isEmpty())
        malas << " hacia atrás: " + mala;
    for (QWidget* w : ida.encendidos + vuelta.encendidos)
        if (!ida.visitados.contains(w) && !vuelta.visitados.contains(w) &&
            !qobject_cast<NavegadorDatos*>(w->parentWidget()))
            malas << ": " + nombre_de(w) + " se enciende y Tab nunca llega a él";
    return malas;
}

/// Un panel que flota se recorre por dentro como se lee, y de él se pasa al resto.
QStringList recorra_el_panel(Pantalla* p, PanelFlotante* panel) {
    QStringList malas;
    Interlocutor callado(Interlocutor::EnSilencio);
    // Lo que propone al entrar es de una línea que lo pide, y aquí no la hay.
    const QScopedValueRollback<std::function<void()>> sin_proponer(panel->OnEnter, {});
    for (const bool atras : {false, true}) {
        // Se llega a él con la fila ya escrita.
        QVector<QWidget*> todos;
        lea(p, todos);
        todos.removeIf([](QWidget* w) { return !w->isEnabled() || qobject_cast<Rejilla*>(w); });
        todos.last()->setFocus();
        agote_eventos();
        panel->show(); // para leerlo
        QVector<QWidget*> dentro;
        lea(panel, dentro);
        dentro.removeIf([](QWidget* w) { return !w->isEnabled(); });
        panel->hide();
        if (dentro.isEmpty())
            return {panel->objectName() + " no tiene en qué pararse"};
        if (atras)
            std::reverse(dentro.begin(), dentro.end());
        panel->muestre(dentro.first());
        agote_eventos();
        QVector<QWidget*> visitados;
        for (int n = 0; n < 60; ++n) {
            QWidget* foco = QApplication::focusWidget();
            if (!foco || !panel->isAncestorOf(foco))
                break;
            if (visitados.isEmpty() || visitados.last() != control_de(foco))
                visitados << control_de(foco);
            if (tapado(p, foco))
                malas << panel->objectName() + ": " + nombre_de(foco) + " no se ve";
            QTest::keyClick(foco, atras ? Qt::Key_Backtab : Qt::Key_Tab,
                            atras ? Qt::ShiftModifier : Qt::NoModifier);
            agote_eventos();
        }
        if (visitados != dentro)
            malas << QString("%1%2\n    se lee  %3\n    va a    %4")
                         .arg(panel->objectName(), atras ? " hacia atrás" : "", nombres(dentro),
                              nombres(visitados));
        QWidget* foco = QApplication::focusWidget();
        if (!foco || !p->isAncestorOf(foco) || panel->isAncestorOf(foco) || panel->isVisible())
            malas << panel->objectName() + ": Tab no sale de él al resto de la pantalla";
    }
    if (!callado.conforme())
        malas << panel->objectName() + ": " + callado.queja();
    return malas;
}

/// Los recuadros con controles que la pantalla esconde hasta que se piden.
QVector<QWidget*> paneles_escondidos(Pantalla* p) {
    QVector<QWidget*> v;
    for (QWidget* w : p->findChildren<QWidget*>())
        if (w->isHidden() && !w->isWindow() && w->parentWidget()->isVisible() && !para_en(w) &&
            !w->parentWidget()->inherits("QStackedWidget") && con_paradas(w))
            v << w;
    return v;
}

/// Con qué se pide cada uno: el botón de la pantalla.
const QHash<QString, QString> kPidenPanel{
    {"Tfformatoconta.PanelCopia", "SpeedButton2"}, {"Tfmodtaxonom.Panel", "SBImprimir"},
    {"Tfmodtercero.PExento", "SpeedButton7"},      {"Tfnvotercero.PExento", "SpeedButton7"},
    {"Tfmodformato.GroupBox3", "SBGrafico"},       {"Tfbalanceanual.PanelGrafico", "BitBtn4"},
};
/// Los que no se piden con un botón: la segunda página, a la que se llega con la primera aceptada;
/// lo que advierte un cálculo; las filas que pregunta una planilla; y la imagen de un formato sin
/// grabar, que se recorre en el que se modifica.
const QSet<QString> kPanelesSinPedir{"Tfcalculadep.Panel2",
                                     "Tfbalaperturaniif.QWidget",
                                     "Tfmediosmag13.PanelAdvertencia",
                                     "Tfmediosmagbog.PanelAdvertencia",
                                     "Tfnvaplanillad.QWidget",
                                     "Tfnvoformato.GroupBox3"};

QStringList recorra_los_paneles(Pantalla* p) {
    QStringList malas;
    for (QWidget* panel : paneles_escondidos(p)) {
        const QString cual = p->objectName() + '.' + nombre_de(panel);
        if (auto* flota = qobject_cast<PanelFlotante*>(panel)) {
            malas << recorra_el_panel(p, flota);
            continue;
        }
        if (kPanelesSinPedir.contains(cual))
            continue;
        auto* boton = p->findChild<QAbstractButton*>(kPidenPanel.value(cual));
        if (boton && kPidenPanel.contains(cual)) {
            if (auto* c = p->findChild<ConjuntoDatos*>("CFormalineas"))
                c->Last(); // la del gráfico
            boton->click();
        }
        agote_eventos();
        if (!panel->isVisible())
            malas << ": " + cual + " no se recorrió";
        else
            malas << compare_los_dos_sentidos(p);
    }
    return malas;
}

} // namespace

class PruebaPantallas : public QObject {
    Q_OBJECT
private slots:
    void init() { s_.emplace(); }
    void cleanup() { s_.reset(); }

    void cada_pantalla_se_recorre_como_se_lee_y_nombra_sus_datos_data() {
        QTest::addColumn<QSize>("monitor");
        QTest::newRow("corriente") << QSize(1366, 768);
        QTest::newRow("con letra a la mitad más") << QSize(1366, 768) / 1.5;
        QTest::newRow("con letra al doble") << QSize(1366, 768) / 2;
    }
    void cada_pantalla_se_recorre_como_se_lee_y_nombra_sus_datos();
    void el_encabezado_del_comprobante_se_recorre_como_lo_piensa_un_contador();
    void lo_que_se_busca_desde_un_dato_se_abre_en_el();

private:
    std::optional<SesionDePrueba> s_;
};

void PruebaPantallas::cada_pantalla_se_recorre_como_se_lee_y_nombra_sus_datos() {
    QFETCH(QSize, monitor);
    QStringList malas;
    con_cada_pantalla(*s_, {}, monitor, [&](Pantalla* p) {
        const QString esta = nombre_y_manera(*p);
        if (const int sobra = p->width() - p->parentWidget()->width();
            sobra > 0 && monitor.width() > kAngosto &&
            (monitor.width() >= kCorriente || !kMasAnchas.contains(p->objectName())))
            malas << QString("%1 se desplaza %2 a lo ancho").arg(esta).arg(sobra);
        p->window()->activateWindow();
        if (!QTest::qWaitForWindowActive(p->window()))
            malas << esta + ": no se activó";
        agote_eventos();
        if (!QApplication::focusWidget() || !p->isAncestorOf(QApplication::focusWidget()))
            malas << esta + ": abre con el foco en " +
                         (QApplication::focusWidget() ? nombre_de(QApplication::focusWidget())
                                                      : QString("nadie"));
        con_cada_hoja(p, [&](const QString& hoja) {
            for (const QString& mala : compare_los_dos_sentidos(p))
                malas << (hoja.isEmpty() ? esta : esta + ", hoja " + hoja) + mala;
        });
        // Un pie suma todas las filas, no las del primer paquete.
        for (const Rejilla* r : p->findChildren<Rejilla*>())
            if (const ConjuntoDatos* c = r->conjunto();
                r->pie() && c && c->proveedor && c->PacketRecords > 0)
                malas << esta + ": " + r->objectName() + " suma solo lo traído";
        // Ningún dato se llama en un mensaje como su columna de la base.
        for (const ConjuntoDatos* c : p->findChildren<ConjuntoDatos*>())
            for (int i = 0; i < c->FieldCount(); ++i)
                if (const Campo& campo = c->Fields(i);
                    campo.FieldName.contains('_') && campo.nombre_visible() == campo.FieldName)
                    malas << esta + ": " + campo.FieldName + " no tiene nombre";
        for (const QString& mala : recorra_los_paneles(p))
            malas << esta + ' ' + mala;
    });
    diga_faltas(malas);
}

void PruebaPantallas::el_encabezado_del_comprobante_se_recorre_como_lo_piensa_un_contador() {
    const PantallasDePrueba preparadas(s_->bases);
    s_->entre().resize(1366, 768);
    // Al editar, el tipo y la fecha están fijos; al digitar, el prefijo y el número los pone el
    // tipo cuando no hay más que uno.
    const QString resto = "DBEdit1 ERef DBEdit2 DBEdit3 DBEdit6 DBMemo1 DBCheckBox1 ckFiltro "
                          "DBCheckBox2 DBGridEh1 SBGrabar SBCancel";
    const std::tuple<QString, QString, const char*> ordenes[] = {
        {"Tfmovimien", "LTipo EDia " + resto, nullptr},
        {"Tfmovimien", "LTipo LPref ENumero EDia " + resto, "RC"},
        {"Tfedtmovimien", "EPref ENumero " + resto, nullptr}};
    for (const auto& [pantalla, orden, tipo] : ordenes) {
        Pantalla* p = pantallas().abrir(pantalla, preparadas.encargo(pantalla));
        QVERIFY(p);
        if (tipo) { // con dos prefijos, y uno que se numera a mano
            auto* c = p->findChild<ConjuntoDatos*>("CMovimiento");
            const QString a_mano = s_->bases.base()
                                       .consulte("select prco_pref from prefijos_conta where "
                                                 "prco_auto = 'N' and tico_cod = " +
                                                 QuotedStr(tipo))
                                       .texto();
            QVERIFY(!a_mano.isEmpty());
            c->FieldByName("TICO_COD") = tipo;
            c->FieldByName("PRCO_PREF") = a_mano;
        }
        agote_eventos();
        p->findChild<QWidget*>(orden.section(' ', 0, 0))->setFocus(Qt::TabFocusReason);
        const Recorrido r = recorra_con_tab(p, false);
        const QString va = nombres(r.visitados);
        QVERIFY2(r.fuga.isEmpty(), qPrintable(r.fuga));
        QVERIFY2(va.startsWith(orden + ' '), qPrintable(va));
        QVERIFY(p->close());
    }
    // El que se edita abre donde por primera vez se puede escribir.
    Pantalla* p = pantallas().abrir("Tfedtmovimien", preparadas.encargo("Tfedtmovimien"));
    QCOMPARE(nombre_de(QApplication::focusWidget()), "DBEdit1");
    QVERIFY(p->close());
}

void PruebaPantallas::lo_que_se_busca_desde_un_dato_se_abre_en_el() {
    const PantallasDePrueba preparadas(s_->bases);
    s_->entre();
    const auto abierto_en = [](const char* conjunto, const char* campo) {
        Pantalla* lista = escritorio()->activa();
        const auto* c = lista->findChild<ConjuntoDatos*>(conjunto);
        return c ? c->FieldByName(campo).texto() : lista->objectName();
    };
    for (const auto& [pantalla, conjunto, campo, cuenta] :
         {std::tuple{"Tfmodplanillad", "CCuentas", "PLDC_CUENTA", "110505"},
          {"Tfedtactivo", "CActivo", "ACFJ_CTACONTA", "152405"},
          {"Tfmodconcepto", "CConceptos", "CONC_CTACIERRE", "220505"},
          {"Tfmodnotasestados", "CNotasestados", "NOEF_CUENTA", "110505"}}) {
        Pantalla* p = pantallas().abrir(pantalla, preparadas.encargo(pantalla));
        auto* c = p->findChild<ConjuntoDatos*>(conjunto);
        QVERIFY2(c, pantalla);
        c->Edit();
        if (c->FieldByName(campo).vacio())
            c->FieldByName(campo) = cuenta;
        c->FieldByName(campo) = "?";
        QCOMPARE(abierto_en("CCuentas", "CUEN_COD"), cuenta);
        escritorio()->activa()->close();
        c->CancelUpdates();
        QVERIFY(p->close());
    }
    Pantalla* p = pantallas().abrir("Tfrngauxiliarcent");
    p->findChild<QLineEdit*>("ProyIni")->setText("0002");
    auto* centro = p->findChild<QLineEdit*>("CentIni");
    centro->setText("0001");
    QTest::mouseDClick(centro, Qt::LeftButton);
    QCOMPARE(abierto_en("CProyectos", "PROY_COD") + abierto_en("CCentros", "CENT_COD"), "00020001");
}

PRUEBA_DE_LA_APLICACION(PruebaPantallas)
#include "prueba_pantallas.moc"
