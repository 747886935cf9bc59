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

/// Abajo pasa a la segunda fila, Enter abre la suya y lo tecleado la busca.
QStringList recorra_la_lista(Pantalla* p, Rejilla* r) {
    r->setFocus(Qt::TabFocusReason);
    r->conjunto()->First();
    QTest::keyClick(r, Qt::Key_Down);
    if (r->currentIndex().row() != 1)
        return {"Abajo no pasa de fila"};
    QStringList malas;
    if (r->OnDblClick && !es_de_la_pantalla(*p, Qt::Key_Return)) {
        int abiertas = 0;
        r->OnReturn = {};
        r->OnDblClick = [&abiertas](int) { ++abiertas; };
        QTest::keyClick(r, Qt::Key_Return);
        if (abiertas != 1)
            malas << "Enter no abre la fila";
        r->OnDblClick = {};
    }
    if (r->OnTeclear) // lo tecleado va a su caja de buscar
        return malas;
    const int c = qMax(0, r->SelectedIndex());
    const QString texto = r->modelo().texto(1, c).left(6).trimmed();
    if (texto.isEmpty() || r->columna(c).casilla)
        return malas;
    r->conjunto()->First();
    digite_en(r, texto);
    const QString ahora = r->modelo().texto(r->currentIndex().row(), c);
    if (!texto_llano(ahora).startsWith(texto_llano(texto)))
        malas << "«" + texto + "» lleva a «" + ahora + "»";
    return malas;
}

/// Como hija o en modal, no se ha cerrado.
bool abierta(Pantalla* p) {
    return escritorio()->abiertas().contains(p) || (p->es_modal() && p->isVisible());
}

/// Veces que Enter, el del teclado numérico y Espacio lo oprimen.
int oprimido_por_tecla(QPushButton* b) {
    // Lo que hace no importa aquí: importa que la tecla llegue.
    QObject::disconnect(b, &QPushButton::clicked, nullptr, nullptr);
    int veces = 0;
    QObject::connect(b, &QPushButton::clicked, b, [&veces] { ++veces; });
    b->setFocus(Qt::TabFocusReason);
    for (const Qt::Key clave : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(b, clave, clave == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
    QObject::disconnect(b, &QPushButton::clicked, nullptr, nullptr);
    return veces;
}

// Lo que cada prueba no alcanza, y por qué.
/// Menús de botones grandes, y sus botones no nombran teclas.
const QSet<QString> kSinLetreros{
    "Tfauxiliares",    "Tfcatalogos",       "Tfinformes",     "Tfmnuanexos",
    "Tfmnucierre",     "Tfmnucomparativos", "Tfmnuconsol",    "Tfmnucuentas",
    "Tfmnudetallados", "Tfmnufinancieros",  "Tfmnugenerales", "Tfmnuinfniif",
    "Tfmnumantenim",   "Tfmnuplantilla",    "Tfmnusaldosi",   "Tfoficiales"};
/// Apagadas: el subgrupo sin grupo, el tipo de lo ya grabado, el comprobante que da el registro y
/// los meses del concepto que no vence.
const QSet<QString> kListasSinProbar{
    "Tfedtactivo.LSubgrupo",   "Tfnvoactivo.LSubgrupo",   "Tfedtmovimien.LTipo",
    "Tfejecutaregiauto.LTipo", "Tfejecutaregiauto.LPref", "Tfmodconcepto.MesIni",
    "Tfmodconcepto.MesFin",    "Tfnvoconcepto.MesIni",    "Tfnvoconcepto.MesFin"};
/// Escondidos: escoger y seguir cuando nadie lo pide, y las órdenes del plan que solo escoge.
const QSet<QString> kBotonesSinProbar{"Tfactivos.SBSelec",
                                      "Tfpuc.SBSelec",
                                      "Tfcalculadep.SpeedButton3",
                                      "Tfrevisamedio.SBGrabar",
                                      "Tftipodoc.SpeedButton3",
                                      "Tfcuentas en modal.SBBorrar",
                                      "Tfcuentas en modal.SBModificar",
                                      "Tfcuentas en modal.SBMovimiento",
                                      "Tfcuentas en modal.SBNueva",
                                      "Tfcuentas en modal.SBSaldos",
                                      "Tfcuentasniif en modal.SBBorrar",
                                      "Tfcuentasniif en modal.SBModificar",
                                      "Tfcuentasniif en modal.SBMovimiento",
                                      "Tfcuentasniif en modal.SBNormas",
                                      "Tfcuentasniif en modal.SBNueva",
                                      "Tfcuentasniif en modal.SBSaldos"};
/// En la segunda página, a la que se llega con la primera aceptada.
const QSet<QString> kMemosSinProbar{"Tfbalaperturaniif.APNI_NOTA"};
/// De una segunda página, de un libro que no se contabiliza aparte, de un medio sin calcular y de
/// un formato sin grabar.
const QSet<QString> kRejillasSinInsertar{"Tfbalaperturaniif.DBGridEh2", "Tfcontabiliza.DBGridEh2",
                                         "Tfmediosmag13.DBGridEh1",     "Tfmediosmagbog.DBGridEh1",
                                         "Tfnvoformato.DBGridEh1",      "Tfnvoformato.DBGridEh2"};
/// Sus cajas solo se encienden en una línea que las pide; la impresión masiva no graba nada.
const QSet<QString> kFichasSinProbar{"Tfbalaperturaniif", "Tfsaldiniciales", "Tfimprmascomproba"};
/// Solo lista lo que ya está dado de baja en la cuenta del activo y no en el registro.
const QSet<QString> kListasSinDosFilas;

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
    Cobertura probadas(kSinLetreros);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        int anuncios = 0;
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
        probadas.debe(p->objectName());
        if (anuncios > 0)
            probadas.hecha(p->objectName());
        QMap<QString, QString> letras;
        for (const QAction* a :
             p->es_modal() ? QList<QAction*>() : s_->principal->menuBar()->actions())
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
    diga_faltas(malas + probadas.faltas());
}

void PruebaManos::cada_lista_desplegable_se_halla_tecleando_seguido() {
    QStringList malas;
    Cobertura probadas(kListasSinProbar);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio); // escoger puede traer su mensaje
        const QPointer<Pantalla> viva(p);
        for (const QPointer<ListaDato> l : p->findChildren<ListaDato*>()) {
            if (!viva || !l)
                continue;
            const QString esta = nombre_y_manera(*p) + '.' + l->objectName();
            probadas.debe(esta);
            con_su_recuadro(l, [&] {
                (void)l->valor(); // con sus filas al día
                const int i = renglon_unico(*l);
                if (i < 0 || !disponible(l))
                    return;
                const QString texto = l->itemText(i);
                l->setFocus(Qt::TabFocusReason);
                probadas.hecha(esta);
                digite_en(l, texto);
                if (l && l->currentText() != texto)
                    malas << esta + ": «" + texto + "» da «" + l->currentText() + "»";
            });
        }
    });
    diga_faltas(malas + probadas.faltas());
}

void PruebaManos::el_foco_se_ve_y_cada_boton_con_el_se_oprime_con_enter_y_con_espacio() {
    QStringList malas;
    QSet<QString> clases;
    Cobertura probados(kBotonesSinProbar);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        {
            Interlocutor callado(Interlocutor::EnSilencio); // dejar una caja puede traer su mensaje
            revise_foco(p, clases, malas);
        }
        con_cada_hoja(p, [&](const QString&) {
            for (QPushButton* b : p->findChildren<QPushButton*>())
                con_su_recuadro(b, [&] {
                    const QString este = nombre_y_manera(*p) + '.' + b->objectName();
                    probados.debe(este);
                    if (!disponible(b) || !(b->focusPolicy() & Qt::TabFocus))
                        return;
                    if (const int veces = oprimido_por_tecla(b); veces != 3)
                        malas << QString("%1: %2 de 3").arg(este).arg(veces);
                    probados.hecha(este);
                });
        });
    });
    for (const char* clase : {"QPushButton", "QToolButton", "QLineEdit", "EditorDato", "ListaDato",
                              "CasillaDato", "QTabBar", "Rejilla", "MemoDato", "RejillaCubo"})
        if (!clases.contains(clase))
            malas << QString("no se vio el foco de ningún %1").arg(clase);
    diga_faltas(malas + probados.faltas());
}

void PruebaManos::en_cada_memo_ctrl_enter_hace_renglon() {
    QStringList malas;
    Cobertura probados(kMemosSinProbar);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio);
        for (MemoDato* m : p->findChildren<MemoDato*>()) {
            if (m->isReadOnly())
                continue;
            const QString este = nombre_y_manera(*p) + '.' + m->objectName();
            probados.debe(este);
            if (!disponible(m))
                continue;
            m->setFocus(Qt::TabFocusReason);
            m->selectAll();
            digite_en(m, "uno");
            if (m->toPlainText() != "uno") // sin una fila a la que ponérsela, no la recibe
                continue;
            probados.hecha(este);
            QTest::keyClick(m, Qt::Key_Return, Qt::ControlModifier);
            digite_en(m, "dos");
            if (m->toPlainText() != "uno\ndos")
                malas << p->objectName() + "." + m->objectName() + ": " + m->toPlainText();
        }
    });
    diga_faltas(malas + probados.faltas());
}

void PruebaManos::cada_fila_nueva_empieza_donde_se_digita() {
    QStringList malas;
    Cobertura probadas(kRejillasSinInsertar);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio);
        con_cada_hoja(p, [&](const QString&) {
            for (Rejilla* r : p->findChildren<Rejilla*>()) {
                if (r->ReadOnly || !r->permite_insertar || r->isHidden()) // hay de solo exportar
                    continue;
                const QString esta = nombre_y_manera(*p) + '.' + r->objectName();
                probadas.debe(esta);
                if (!disponible(r) || !r->editable())
                    continue;
                r->setFocus(Qt::TabFocusReason);
                QTest::keyClick(r, Qt::Key_Insert);
                if (r->conjunto()->State() != Estado::Insercion)
                    continue;
                bool escribe = false; // hay una en que todo se escoge de otra lista
                for (int c = 0; c < r->cuenta_columnas(); ++c)
                    escribe = escribe || (!r->isColumnHidden(c) && r->modelo().editable(c));
                probadas.hecha(esta);
                if (escribe && !r->modelo().editable(r->SelectedIndex()))
                    malas << p->objectName() + "." + r->objectName() + ": empieza en «" +
                                 QString(r->columna(r->SelectedIndex()).Titulo) + "»";
                r->conjunto()->Cancel();
            }
        });
    });
    diga_faltas(malas + probadas.faltas());
}

void PruebaManos::lo_digitado_en_una_ficha_no_se_pierde_con_esc() {
    static const QSet<QString> propuestos{"LTipo", "ENumero"};
    QStringList malas;
    Cobertura probadas(kFichasSinProbar);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        Interlocutor callado(Interlocutor::EnSilencio);
        const QScopedValueRollback<bool> aun_no(Guardia::unica().despedida, false);
        for (QWidget* w : p->findChildren<QWidget*>()) {
            ControlDato* c = control_dato(w);
            if (!c || c->widget() != w || !c->editable() || propuestos.contains(w->objectName()))
                continue;
            probadas.debe(nombre_y_manera(*p));
            if (!disponible(w))
                continue;
            w->setFocus(Qt::TabFocusReason);
            for (const char* tecleado : {"x", "9"})
                if (!c->modificado())
                    digite_en(w, tecleado);
            if (!c->modificado())
                continue;
            probadas.hecha(nombre_y_manera(*p));
            const QPointer<Pantalla> viva(p);
            QTest::keyClick(w, Qt::Key_Escape);
            if (!viva || !abierta(p) || callado.vistos().size() != 1 ||
                !callado.vistos().first().contains("graba"))
                malas << nombre_y_manera(*p) + ": Esc se lleva lo digitado";
            return;
        }
    });
    diga_faltas(malas + probadas.faltas());
}

void PruebaManos::cada_lista_de_consulta_se_recorre_se_busca_y_se_deja_con_esc() {
    QStringList malas;
    Cobertura recorridas(kListasSinDosFilas);
    con_cada_pantalla(*s_, [&](Pantalla* p) {
        const QString esta = nombre_y_manera(*p);
        const QPointer<Pantalla> viva(p);
        consulte(p);
        con_cada_hoja(p, [&](const QString&) {
            for (Rejilla* r : p->findChildren<Rejilla*>()) {
                if (!r->ReadOnly)
                    continue;
                const QString nombre = esta + '.' + r->objectName();
                recorridas.debe(nombre);
                if (!disponible(r) || !r->conjunto() || !r->conjunto()->Active() ||
                    r->modelo().rowCount() < 2)
                    continue;
                recorridas.hecha(nombre);
                for (const QString& mala : recorra_la_lista(p, r))
                    malas << nombre + ": " + mala;
            }
        });
        if (!es_de_la_pantalla(*p, Qt::Key_Escape) && !p->es_modal())
            return;
        // De adentro hacia afuera: la celda, la fila y la pantalla.
        for (int i = 0; i < 4 && viva && abierta(p); ++i) {
            QWidget* foco = QApplication::focusWidget();
            QTest::keyClick(foco && p->isAncestorOf(foco) ? foco : p, Qt::Key_Escape);
            QCoreApplication::processEvents();
        }
        if (viva && abierta(p))
            malas << esta + ": Esc no la deja";
    });
    diga_faltas(malas + recorridas.faltas());
}

PRUEBA_DE_LA_APLICACION(PruebaManos)
#include "prueba_manos.moc"
