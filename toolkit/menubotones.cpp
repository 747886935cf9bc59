#include "toolkit/menubotones.h"

#include "toolkit/aire.h"
#include "toolkit/estilo.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

/// Grande; con letra grande se aprieta antes de que haya que desplazar el menú.
class BotonMenu : public QPushButton {
public:
    using QPushButton::QPushButton;
    QSize sizeHint() const override {
        return QPushButton::sizeHint().expandedTo({escalado(260), escalado(56)});
    }
};

} // namespace

MenuBotones::MenuBotones(const QString& clase, const QString& titulo) : Pantalla(clase, titulo) {
    columna_ = new QVBoxLayout(this);
    columna_->setContentsMargins(aire(2), aire(1.5), aire(2), aire(1.5));
    columna_->setSpacing(aire());
    tecla(Qt::Key_Escape, QStringLiteral("Cerrar"), [this] { close(); });
    tecla(Qt::Key_Down, QStringLiteral("Opción siguiente"), [this] { focusNextChild(); });
    tecla(Qt::Key_Up, QStringLiteral("Opción anterior"), [this] { focusPreviousChild(); });
}

QPushButton* MenuBotones::opcion(const QString& nombre, const QString& texto, const QString& imagen,
                                 std::function<void()> accion) {
    auto* boton = new BotonMenu(::icono(imagen), texto, this);
    boton->setObjectName(nombre);
    boton->setIconSize({escalado(32), escalado(32)});
    boton->setMinimumSize(escalado(260), escalado(36));
    boton->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    boton->setAutoDefault(true); // Enter oprime el que tiene el foco
    connect(boton, &QPushButton::clicked, this,
            [this, accion = std::move(accion)] { ejecute(accion); });
    columna_->addWidget(boton);
    return boton;
}

void MenuBotones::keyPressEvent(QKeyEvent* evento) {
    // Una letra lleva a la opción siguiente que empieza por ella, como en cualquier menú.
    const QString letra = evento->text();
    if (!(evento->modifiers() & ~Qt::ShiftModifier) && !letra.isEmpty() && letra[0].isLetter()) {
        const auto opciones = findChildren<QPushButton*>();
        const auto n = opciones.size(), desde = opciones.indexOf(focusWidget());
        for (qsizetype i = 1; i <= n; ++i)
            if (QPushButton* b = opciones[(desde + i) % n];
                b->isEnabled() && b->text().remove('&').startsWith(letra, Qt::CaseInsensitive))
                return b->setFocus(Qt::ShortcutFocusReason);
    }
    Pantalla::keyPressEvent(evento);
}
