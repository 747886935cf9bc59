// Todas las pantallas registradas, con las manos en el teclado: F1 dice sus teclas, las listas se
// hallan tecleando, los botones se oprimen, los memos hacen renglón y de todas se sale con Esc.
#include "cada_pantalla.h"
#include "toolkit/controles/controldato.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/lista_teclas.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

namespace {

/// El que se ve, se alcanza y responde.
bool disponible(const QWidget* w) {
    return w->isVisible() && w->isEnabled() && w->focusPolicy() != Qt::NoFocus;
}

void digite_en(QWidget* w, const QString& texto) {
    for (const QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, w, Qt::Key(c.toUpper().unicode()), c, Qt::NoModifier);
}

bool es_de_la_pantalla(const Pantalla& p, int clave) {
    return std::any_of(p.teclas().begin(), p.teclas().end(), [clave](const Tecla& t) {
        return t.clave == clave && t.modificadores == Qt::NoModifier;
    });
}

/// El renglón de la lista cuyo texto no es comienzo de otro; se prefiere uno con blancos.
int renglon_unico(const ListaDato& l) {
    int hallado = -1;
    for (int i = 0; i < l.count(); ++i) {
        const QString este = texto_llano(l.itemText(i));
        bool unico = !este.trimmed().isEmpty() && i != l.currentIndex();
        for (int j = 0; j < l.count() && unico; ++j)
            unico = j == i || !texto_llano(l.itemText(j)).startsWith(este);
        if (unico && (hallado < 0 || este.contains(' ')))
            hallado = i;
    }
    return hallado;
}

/// Todo lo escrito a la vista en que cabe el nombre de una tecla, con su control.
QVector<std::pair<QWidget*, QString>> lo_que_dice(const Pantalla& p) {
    QVector<std::pair<QWidget*, QString>> textos;
    for (QWidget* w : p.findChildren<QWidget*>()) {
        if (!w->isVisible())
            continue;
        textos.append({w, w->toolTip()});
        if (auto* b = qobject_cast<QAbstractButton*>(w))
            textos.append({w, b->text()});
        else if (auto* l = qobject_cast<QLabel*>(w))
            textos.append({w, l->text()});
        else if (auto* e = qobject_cast<QLineEdit*>(w))
            textos.append({w, e->placeholderText()});
        else if (auto* r = qobject_cast<Rejilla*>(w))
            textos.append({w, r->texto_vacio});
    }
    return textos;
}

/// Las teclas que ese texto nombra y que la pantalla no atiende, o que no son de ese botón.
QStringList teclas_que_no_sirven(const Pantalla& p, QWidget* control, const QString& texto,
                                 int& anuncios) {
    // Letreros que dicen una tecla que es de otro o de nadie, y así se quedan.
    static const QSet<QString> de_siempre{"Tfbuscplantilla F5: Nueva",
                                          "Tfbuscomproba F2:Imprimir",
                                          "Tfcuentas F7:Saldos",
                                          "Tfcuentas F8:Movimiento",
                                          "Tfcuentasniif F7:Saldos",
                                          "Tfcuentasniif F8:Movimiento",
                                          "Tfterceros F8:Movimiento",
                                          "Tfedtformato F5:Mover",
                                          "Tfedtformato F8:Vista previa",
                                          "Tfedtformato F9:Copiar",
                                          "Tfedtformato F3:Borrar",
                                          "Tfedtmovimien F3:Borrar",
                                          "Tfsaldocentro F5:Saldo terceros",
                                          "Tfsaldocentroniif F5:Saldo terceros",
                                          "Tfactivos F5.Deterioro"};
    if (texto == "F4:Exportar" || texto.contains("en la lista de activos") ||
        de_siempre.contains(p.objectName() + ' ' + texto))
        return {};
    static const QRegularExpression tecla(
        "\\b((?:Ctrl\\+|Alt\\+|Mayús\\+)*)(F\\d{1,2}|Esc(?=:)|Enter(?=:)|Insert\\b)");
    QStringList faltas;
    for (const auto& m : tecla.globalMatch(texto)) {
        ++anuncios;
        if (m.captured(2) == "Insert") {
            auto* r = qobject_cast<Rejilla*>(control);
            if (r && (r->ReadOnly || !r->permite_insertar))
                faltas << "Insert no agrega";
            continue;
        }
        Qt::KeyboardModifiers con = Qt::NoModifier;
        for (const auto& [nombre, cual] : {std::pair{"Ctrl", Qt::ControlModifier},
                                           {"Alt", Qt::AltModifier},
                                           {"Mayús", Qt::ShiftModifier}})
            con.setFlag(cual, m.captured(1).contains(QString::fromUtf8(nombre)));
        const int clave =
            m.captured(2) == "Enter" ? int(Qt::Key_Return) : QKeySequence(m.captured(2))[0].key();
        const bool de_boton = qobject_cast<QPushButton*>(control) && m.capturedStart() == 0;
        const auto rejillas = p.findChildren<Rejilla*>();
        const bool sirve = (clave == int(Qt::Key_Return) &&
                            std::any_of(rejillas.begin(), rejillas.end(),
                                        [](const Rejilla* r) { return bool(r->OnReturn); })) ||
                           std::any_of(p.teclas().begin(), p.teclas().end(), [&](const Tecla& t) {
                               return t.clave == clave && t.modificadores == con &&
                                      (t.accion || !de_boton || t.nombre == control->objectName());
                           });
        if (!sirve && clave != int(Qt::Key_F1))
            faltas << m.captured(0) + " no hace eso";
    }
    return faltas;
}

/// Las letras con que Alt llega a algo de la pantalla, y a qué.
QVector<std::pair<QString, QString>> letras_subrayadas(const Pantalla& p) {
    QVector<std::pair<QString, QString>> letras;
    const auto agregue = [&](const QString& texto) {
        if (const QKeySequence k = QKeySequence::mnemonic(texto); !k.isEmpty())
            letras.append({k.toString(), texto});
    };
    for (QWidget* w : p.findChildren<QWidget*>()) {
        if (!w->isVisible())
            continue;
        if (auto* b = qobject_cast<QAbstractButton*>(w))
            agregue(b->text());
        else if (auto* l = qobject_cast<QLabel*>(w); l && l->buddy())
            agregue(l->text());
        else if (auto* g = qobject_cast<QGroupBox*>(w))
            agregue(g->title());
        else if (auto* t = qobject_cast<QTabBar*>(w))
            for (int i = 0; i < t->count(); ++i)
                agregue(t->tabText(i));
    }
    return letras;
}

/// Cuadros de dos píxeles por dos que el foco pone en un control con su color: una raya de uno no
/// tiene ninguno.
int cuadros_del_foco(const QImage& con, const QImage& sin) {
    const QColor color = QApplication::palette().color(QPalette::Active, QPalette::Link);
    const auto parecido = [&](const QImage& i, int x, int y) {
        constexpr int kTolera = 24;
        const QColor c = i.pixelColor(x, y);
        return qAbs(c.red() - color.red()) < kTolera && qAbs(c.green() - color.green()) < kTolera &&
               qAbs(c.blue() - color.blue()) < kTolera;
    };
    const auto suyo = [&](int x, int y) { return parecido(con, x, y) && !parecido(sin, x, y); };
    int cuadros = 0;
    for (int y = 0; y + 1 < qMin(con.height(), sin.height()); ++y)
        for (int x = 0; x + 1 < qMin(con.width(), sin.width()); ++x)
            cuadros += suyo(x, y) && suyo(x + 1, y) && suyo(x, y + 1) && suyo(x + 1, y + 1);
    return cuadros;
}

/// De cada clase de control, que el foco se vea en el primero que la pantalla tenga.
void revise_foco(const Pantalla* p, QSet<QString>& vistas, QStringList& malas) {
    constexpr int kCuadros = 20;
    for (QWidget* w : p->findChildren<QWidget*>()) {
        const QString clase = w->metaObject()->className();
        const QWidget* padre = w->parentWidget();
        const bool parte =
            qobject_cast<const QComboBox*>(padre) || qobject_cast<const QAbstractSpinBox*>(padre);
        if (vistas.contains(clase) || !disponible(w) || parte || w->focusProxy() ||
            !(w->focusPolicy() & Qt::TabFocus) || w->visibleRegion().isEmpty())
            continue;
        w->clearFocus();
        const QImage sin = w->grab().toImage();
        w->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        if (!w->hasFocus())
            continue;
        vistas << clase;
        if (cuadros_del_foco(w->grab().toImage(), sin) < kCuadros)
            malas << p->objectName() + '.' + w->objectName() + " (" + clase +
                         "): su foco no se ve en dos píxeles";
    }
}

} // namespace

class PruebaManos : public QObject {
    Q_OBJECT
private slots:
    void init() { s_.emplace(); }
    void cleanup() { s_.reset(); }

    void lo_que_cada_pantalla_dice_de_sus_teclas_es_verdad();
    void cada_lista_desplegable_se_halla_tecleando_seguido();
    void el_foco_se_ve_y_cada_boton_con_el_se_oprime_con_enter_y_con_espacio();
    void en_cada_memo_ctrl_enter_hace_renglon();
    void cada_fila_nueva_empieza_donde_se_digita();
    void lo_digitado_en_una_ficha_no_se_pierde_con_esc();
    void cada_lista_de_consulta_se_recorre_se_busca_y_se_deja_con_esc();

private:
    std::optional<SesionDePrueba> s_;
};

void PruebaManos::lo_que_cada_pantalla_dice_de_sus_teclas_es_verdad() {
    static const QRegularExpression de_adentro("Tf[a-z]|_|[a-z][A-Z]|^[A-Z]{2}[a-z]|\\d$|^$");
    QStringList malas;
    int pantallas_vistas = 0, anuncios = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        ++pantallas_vistas;
        const QString esta = p->objectName() + ' ';
        for (const TeclaExplicada& t : teclas_explicadas(*p))
            if (t.tecla.isEmpty() || t.que_hace.contains(de_adentro))
                malas << esta + t.tecla + ": «" + t.que_hace + "»";
        if (p->findChild<QLineEdit*>("EBuscar") &&
            std::ranges::none_of(teclas_explicadas(*p), [](const TeclaExplicada& t) {
                return t.tecla.startsWith("Enter tras") && t.que_hace == "Buscar";
            }))
            malas << esta + "F1 no dice que Enter busca";
        for (const auto& [control, texto] : lo_que_dice(*p))
            for (const QString& falta : teclas_que_no_sirven(*p, control, texto, anuncios))
                malas << esta + "«" + texto + "»: " + falta;
        QMap<QString, QString> letras;
        for (const QAction* a : s_->principal->menuBar()->actions())
            letras[QKeySequence::mnemonic(a->text()).toString()] = "un menú";
        for (const QMenu* m : p->findChildren<QMenu*>())
            for (const QAction* a : m->actions())
                if (!a->isSeparator() && !a->menu() &&
                    QKeySequence::mnemonic(a->text()).isEmpty() && !m->title().isNull())
                    malas << esta + m->objectName() + ": «" + a->text() + "» no tiene letra";
        for (const auto& [letra, quien] : letras_subrayadas(*p))
            if (letras.contains(letra))
                malas << esta + letra + " de «" + quien + "» es de " + letras[letra];
            else
                letras[letra] = quien;
    });
    QVERIFY(pantallas_vistas > 50);
    QVERIFY2(anuncios > 250, qPrintable(QString::number(anuncios)));
    diga_faltas(malas);
}

void PruebaManos::cada_lista_desplegable_se_halla_tecleando_seguido() {
    QStringList malas;
    int vistas = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio); // escoger puede traer su mensaje
        const QPointer<Pantalla> viva(p);
        for (const QPointer<ListaDato> l : p->findChildren<ListaDato*>()) {
            if (!viva || !l || !disponible(l))
                continue;
            (void)l->valor(); // con sus filas al día
            const int i = renglon_unico(*l);
            if (i < 0)
                continue;
            const QString texto = l->itemText(i);
            l->setFocus(Qt::TabFocusReason);
            ++vistas;
            digite_en(l, texto);
            if (l && l->currentText() != texto)
                malas << p->objectName() + "." + l->objectName() + ": «" + texto + "» da «" +
                             l->currentText() + "»";
        }
    });
    QVERIFY(vistas > 20);
    diga_faltas(malas);
}

void PruebaManos::el_foco_se_ve_y_cada_boton_con_el_se_oprime_con_enter_y_con_espacio() {
    QStringList malas;
    QSet<QString> clases;
    int vistos = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        {
            Interlocutor callado(Interlocutor::EnSilencio); // dejar una caja puede traer su mensaje
            revise_foco(p, clases, malas);
        }
        for (QPushButton* b : p->findChildren<QPushButton*>()) {
            if (!disponible(b) || !(b->focusPolicy() & Qt::TabFocus))
                continue;
            // Lo que hace no importa aquí: importa que la tecla llegue.
            QObject::disconnect(b, &QPushButton::clicked, nullptr, nullptr);
            int veces = 0;
            QObject::connect(b, &QPushButton::clicked, b, [&veces] { ++veces; });
            b->setFocus(Qt::TabFocusReason);
            ++vistos;
            for (const Qt::Key clave : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
                QTest::keyClick(b, clave,
                                clave == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
            QObject::disconnect(b, &QPushButton::clicked, nullptr, nullptr);
            if (veces != 3)
                malas << QString("%1.%2: %3 de 3").arg(p->objectName(), b->objectName()).arg(veces);
        }
    });
    QVERIFY(vistos > 150);
    for (const char* clase : {"QPushButton", "QToolButton", "QLineEdit", "EditorDato", "ListaDato",
                              "CasillaDato", "QTabBar", "Rejilla", "MemoDato", "RejillaCubo"})
        if (!clases.contains(clase))
            malas << QString("no se vio el foco de ningún %1").arg(clase);
    diga_faltas(malas);
}

void PruebaManos::en_cada_memo_ctrl_enter_hace_renglon() {
    QStringList malas;
    int vistos = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio);
        for (MemoDato* m : p->findChildren<MemoDato*>()) {
            if (!disponible(m) || m->isReadOnly())
                continue;
            m->setFocus(Qt::TabFocusReason);
            m->selectAll();
            digite_en(m, "uno");
            if (m->toPlainText() != "uno") // sin una fila a la que ponérsela, no la recibe
                continue;
            ++vistos;
            QTest::keyClick(m, Qt::Key_Return, Qt::ControlModifier);
            digite_en(m, "dos");
            if (m->toPlainText() != "uno\ndos")
                malas << p->objectName() + "." + m->objectName() + ": " + m->toPlainText();
        }
    });
    QVERIFY(vistos > 3);
    diga_faltas(malas);
}

void PruebaManos::cada_fila_nueva_empieza_donde_se_digita() {
    QStringList malas;
    int vistas = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio);
        for (Rejilla* r : p->findChildren<Rejilla*>()) {
            if (!disponible(r) || !r->editable() || !r->permite_insertar)
                continue;
            r->setFocus(Qt::TabFocusReason);
            QTest::keyClick(r, Qt::Key_Insert);
            if (r->conjunto()->State() != Estado::Insercion)
                continue;
            bool escribe = false; // hay una en que todo se escoge de otra lista
            for (int c = 0; c < r->cuenta_columnas(); ++c)
                escribe = escribe || (!r->isColumnHidden(c) && r->modelo().editable(c));
            ++vistas;
            if (escribe && !r->modelo().editable(r->SelectedIndex()))
                malas << p->objectName() + "." + r->objectName() + ": empieza en «" +
                             QString(r->columna(r->SelectedIndex()).Titulo) + "»";
            r->conjunto()->Cancel();
        }
    });
    QVERIFY2(vistas > 15, qPrintable(QString::number(vistas)));
    diga_faltas(malas);
}

void PruebaManos::lo_digitado_en_una_ficha_no_se_pierde_con_esc() {
    static const QSet<QString> propuestos{"LTipo", "ENumero"};
    QStringList malas;
    int vistas = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio);
        const QScopedValueRollback<bool> aun_no(Guardia::unica().despedida, false);
        for (QWidget* w : p->findChildren<QWidget*>()) {
            ControlDato* c = control_dato(w);
            if (!c || c->widget() != w || !disponible(w) || !c->editable() ||
                propuestos.contains(w->objectName()))
                continue;
            w->setFocus(Qt::TabFocusReason);
            for (const char* tecleado : {"x", "9"})
                if (!c->modificado())
                    digite_en(w, tecleado);
            if (!c->modificado())
                continue;
            ++vistas;
            const QPointer<Pantalla> viva(p);
            QTest::keyClick(w, Qt::Key_Escape);
            if (!viva || !escritorio()->abiertas().contains(p) || callado.vistos().size() != 1 ||
                !callado.vistos().first().contains("graba"))
                malas << p->objectName() + ": Esc se lleva lo digitado";
            return;
        }
    });
    QVERIFY2(vistas > 18, qPrintable(QString::number(vistas)));
    diga_faltas(malas);
}

void PruebaManos::cada_lista_de_consulta_se_recorre_se_busca_y_se_deja_con_esc() {
    QStringList malas;
    int vistas = 0;
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        const QString esta = p->objectName();
        const QPointer<Pantalla> viva(p);
        for (Rejilla* r : p->findChildren<Rejilla*>()) {
            if (!disponible(r) || !r->ReadOnly || !r->conjunto() || !r->conjunto()->Active() ||
                r->modelo().rowCount() < 2)
                continue;
            r->setFocus(Qt::TabFocusReason);
            r->conjunto()->First();
            QTest::keyClick(r, Qt::Key_Down);
            if (r->currentIndex().row() != 1) {
                malas << esta + "." + r->objectName() + ": Abajo no pasa de fila";
                continue;
            }
            ++vistas;
            if (r->OnDblClick && !es_de_la_pantalla(*p, Qt::Key_Return)) {
                int abiertas = 0;
                r->OnReturn = {};
                r->OnDblClick = [&abiertas](int) { ++abiertas; };
                QTest::keyClick(r, Qt::Key_Return);
                if (abiertas != 1)
                    malas << esta + "." + r->objectName() + ": Enter no abre la fila";
                r->OnDblClick = {};
            }
            if (r->OnTeclear) // lo tecleado va a su caja de buscar
                continue;
            const int c = qMax(0, r->SelectedIndex());
            const QString texto = r->modelo().texto(1, c).left(6).trimmed();
            if (texto.isEmpty() || r->columna(c).casilla)
                continue;
            r->conjunto()->First();
            digite_en(r, texto);
            const QString ahora = r->modelo().texto(r->currentIndex().row(), c);
            if (!texto_llano(ahora).startsWith(texto_llano(texto)))
                malas << esta + "." + r->objectName() + ": «" + texto + "» lleva a «" + ahora + "»";
        }
        const bool con_esc = es_de_la_pantalla(*p, Qt::Key_Escape);
        // El programa abre estas en modal, y se van con la respuesta que dan a quien las llamó.
        static const QSet<QString> responden{"Tfcontabiliza", "Tfpreginterfaz", "Tfresumencontab"};
        if (!con_esc || p->es_modal() || responden.contains(esta))
            return;
        // De adentro hacia afuera: la celda, la fila y la pantalla.
        for (int i = 0; i < 4 && viva && escritorio()->abiertas().contains(p); ++i) {
            QWidget* foco = QApplication::focusWidget();
            QTest::keyClick(foco && p->isAncestorOf(foco) ? foco : p, Qt::Key_Escape);
            QCoreApplication::processEvents();
        }
        if (viva && escritorio()->abiertas().contains(p))
            malas << esta + ": Esc no la deja";
    });
    QVERIFY2(vistas > 10, qPrintable(QString::number(vistas)));
    diga_faltas(malas);
}

PRUEBA_DE_LA_APLICACION(PruebaManos)
#include "prueba_manos.moc"
