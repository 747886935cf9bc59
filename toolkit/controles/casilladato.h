#pragma once
// Casilla atada a una bandera "S"/"N". Cada cambio del usuario se guarda enseguida.
#include "toolkit/controles/controldato.h"

#include <QCheckBox>

class CasillaDato : public QCheckBox, public ControlDato {
    Q_OBJECT
public:
    explicit CasillaDato(const QString& texto, QWidget* padre = nullptr);
    CasillaDato(const QString& texto, ConjuntoDatos* conjunto, const QString& campo,
                QWidget* padre = nullptr);

    QWidget* widget() override { return this; }
    QString ValueChecked = QStringLiteral("S");
    QString ValueUnchecked = QStringLiteral("N");
    /// Después de que el usuario la cambió y el campo guardó el valor.
    std::function<void()> OnClick;

protected:
    void muestre() override;
    Valor contenido() const override;
    void aplique_permiso() override;
    void nextCheckState() override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
};
