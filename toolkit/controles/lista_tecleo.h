#pragma once
// Lista desplegable en la que lo que se teclea seguido, con sus espacios, busca por el comienzo sin
// distinguir tildes, plegada o desplegada.
#include "toolkit/tecleo.h"

#include <QComboBox>

class ListaTecleo : public QComboBox {
    Q_OBJECT
public:
    explicit ListaTecleo(QWidget* padre = nullptr);

protected:
    /// Antes de mirar sus filas: quien las lee cuando hacen falta las lee aquí.
    virtual void asegure_lista() {}
    void showPopup() override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    int con_prefijo(int desde) const;
    Tecleo tecleo_;
};
