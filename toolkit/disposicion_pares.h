#pragma once
// Cuadrícula de rótulos y controles que, en una ventana más angosta que ella, deja de alinear sus
// columnas: lo que no cabe en una fila sigue en otro renglón.
#include <QGridLayout>
#include <QVector>

/// Las filas del Formulario de `dueno`, si no caben, siguen en otro renglón y no lo ensanchan. Se
/// llama antes de agregarlas.
void ceda_filas(QWidget* dueno);
bool ceden_las_filas(const QWidget& dueno);

/// Los rótulos van en las columnas pares y los controles, cada uno en su casilla, en las impares.
class DisposicionPares : public QGridLayout {
public:
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override;
    int minimumHeightForWidth(int ancho) const override;
    void setGeometry(const QRect& marco) override;

private:
    struct Par {
        QLayoutItem *rotulo = nullptr, *casilla = nullptr;
        int fila = 0;
    };
    /// Los que están a la vista, como se leen.
    QVector<Par> pares() const;
    bool cabe(int ancho) const { return ancho >= QGridLayout::minimumSize().width(); }
    /// Sitio del rótulo: el primero de un renglón va alineado con los de los demás.
    int ancho_rotulo(const Par& par, bool primero) const;
    int sitio(const Par& par, bool primero) const;
    int acomode(const QRect& marco, bool aplicar) const;
};
