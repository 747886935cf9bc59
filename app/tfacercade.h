#pragma once
// Acerca de: portada mientras el programa carga y, después, ventana del menú Ayuda.
#include "toolkit/pantalla.h"

class QLabel;

class Tfacercade : public Pantalla {
    Q_OBJECT
public:
    Tfacercade();
    void FormCreate() override;
    /// Sin marco, centrada y pintada de una vez. Se retira al cerrarla o cuando aparece un diálogo,
    /// que no debe quedar debajo de ella.
    void muestre_portada();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

private:
    QLabel* LDatos;
};
