#pragma once
// Letrero fijo del pie de la ventana principal: de cuándo es el último respaldo bueno de la
// compañía, o que no hay ninguno. Los avisos de la barra no lo tapan.
#include <QLabel>

class LetreroRespaldo : public QLabel {
    Q_OBJECT
public:
    explicit LetreroRespaldo(QWidget* padre = nullptr);
    /// Solo los administradores respaldan, y a los demás no se les muestra.
    void muestre(const QString& compania, bool administrador);
};
