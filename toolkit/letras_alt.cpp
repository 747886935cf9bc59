#include "toolkit/letras_alt.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <algorithm>
#include <functional>

namespace {

/// Un texto en que cabe una letra subrayada.
struct Rotulo {
    std::function<QString()> lea;
    std::function<void(const QString&)> ponga;
    bool a_la_vista, boton = false;
};

QChar letra_de(const QString& texto) {
    static const QRegularExpression subrayada("(?<!&)(?:&&)*&(?!&)(.)");
    const QString letra = subrayada.match(texto).captured(1);
    return letra.isEmpty() ? QChar() : letra[0].toUpper();
}

QVector<Rotulo> rotulos_de(QWidget& pantalla) {
    QVector<Rotulo> todos;
    for (QWidget* w : pantalla.findChildren<QWidget*>()) {
        const bool visto = w->isVisibleTo(&pantalla);
        if (auto* b = qobject_cast<QAbstractButton*>(w))
            todos << Rotulo{[b] { return b->text(); }, [b](auto& t) { b->setText(t); }, visto,
                            true};
        else if (auto* l = qobject_cast<QLabel*>(w); l && l->buddy())
            todos << Rotulo{[l] { return l->text(); }, [l](auto& t) { l->setText(t); }, visto};
        else if (auto* g = qobject_cast<QGroupBox*>(w))
            todos << Rotulo{[g] { return g->title(); }, [g](auto& t) { g->setTitle(t); }, visto};
        else if (auto* p = qobject_cast<QTabBar*>(w))
            for (int i = 0; i < p->count(); ++i)
                todos << Rotulo{[p, i] { return p->tabText(i); },
                                [p, i](auto& t) { p->setTabText(i, t); }, visto};
    }
    // Un botón conserva la suya antes que el rótulo de una caja.
    std::stable_partition(todos.begin(), todos.end(), [](const Rotulo& r) { return r.boton; });
    todos.removeIf([](const Rotulo& r) { return letra_de(r.lea()).isNull(); });
    return todos;
}

/// El texto con otra letra subrayada: la primera de una palabra, o cualquiera; sin ninguna si no
/// hay libre.
QString con_otra_letra(QString texto, const QSet<QChar>& usadas) {
    static const QRegularExpression marca("&(?!&)");
    texto.remove(marca);
    static const QRegularExpression comienzos("\\b[A-Za-z]"), todas("[A-Za-z]");
    for (const auto& cuales : {comienzos, todas})
        for (const auto& m : cuales.globalMatch(texto))
            if (!usadas.contains(m.captured()[0].toUpper()))
                return texto.insert(m.capturedStart(), '&');
    return texto;
}

} // namespace

QSet<QChar> letras_de_menus(QWidget* ventana) {
    QSet<QChar> letras;
    const auto* marco = qobject_cast<QMainWindow*>(ventana);
    const auto* menus = marco ? qobject_cast<QMenuBar*>(marco->menuWidget()) : nullptr;
    if (menus)
        for (const QAction* a : menus->actions())
            letras << letra_de(a->text());
    letras.remove(QChar());
    return letras;
}

void reparta_letras(QWidget& pantalla, const QSet<QChar>& ocupadas) {
    QSet<QChar> usadas = ocupadas;
    QVector<Rotulo> sin_letra;
    for (const Rotulo& r : rotulos_de(pantalla)) {
        const QChar letra = letra_de(r.lea());
        const bool libre = !(r.a_la_vista ? usadas : ocupadas).contains(letra);
        if (!libre)
            sin_letra << r;
        else if (r.a_la_vista)
            usadas << letra;
    }
    for (const Rotulo& r : sin_letra) {
        const QString texto = con_otra_letra(r.lea(), usadas);
        r.ponga(texto);
        if (r.a_la_vista)
            usadas << letra_de(texto);
    }
}

void ponga_letras(QWidget& dialogo) {
    QSet<QChar> usadas;
    for (const Rotulo& r : rotulos_de(dialogo))
        usadas << letra_de(r.lea());
    for (auto* b : dialogo.findChildren<QPushButton*>()) {
        if (!letra_de(b->text()).isNull() || b->text().contains(':'))
            continue;
        b->setText(con_otra_letra(b->text(), usadas));
        usadas << letra_de(b->text());
    }
}
