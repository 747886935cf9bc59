#pragma once
// Texto de varias líneas atado a un campo memo o de texto. Enter es una línea nueva.
#include "toolkit/controles/controldato.h"

#include <QPlainTextEdit>

class MemoDato : public QPlainTextEdit, public ControlDato {
    Q_OBJECT
public:
    explicit MemoDato(QWidget* padre = nullptr);
    MemoDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);

    QWidget* widget() override { return this; }
    /// Alto en líneas de texto.
    void lineas(int cuantas);
    QSize sizeHint() const override;
    /// En un área baja cede hasta dos líneas, y se desplaza.
    QSize minimumSizeHint() const override;

protected:
    void muestre() override;
    Valor contenido() const override;
    void aplique_permiso() override;
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    int alto_con(int lineas) const;

    int lineas_ = 4;
};
