#pragma once
// Caja de un importe que no está en ningún campo: dos decimales, a la derecha, negativos en color.
#include "datos/firebird/moneda.h"

#include <QLineEdit>
#include <functional>

class EditorNumero : public QLineEdit {
    Q_OBJECT
public:
    explicit EditorNumero(QWidget* padre = nullptr, int decimales = 2);
    /// Caja de saldo: no se edita ni recibe el foco con Tab.
    static EditorNumero* de_saldo(QWidget* padre = nullptr);

    Moneda valor() const;
    void valor(Moneda importe);
    void vacie();                   ///< sin texto; `valor()` es cero
    std::function<void()> OnChange; ///< el usuario terminó de cambiar el valor

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    void termine();
    void coloree();
    Moneda valor_;
    int decimales_;
    bool editado_ = false;
};
