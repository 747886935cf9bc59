#pragma once
// Fila de controles que pasa a otro renglón cuando no caben, para ventanas angostas y letra grande.
// Los que se estiran ceden hasta su ancho mínimo antes de pasar, y se reparten lo que sobre por
// igual, salvo el que para leerse entero necesita más.
#include <QLayout>
#include <QVector>
#include <initializer_list>

/// Los controles en una fila que, si no caben, sigue en otro renglón. El foco va al primero.
QWidget* en_flujo(std::initializer_list<QWidget*> controles, int espacio);
/// Un control con su rótulo, que pasan juntos a otro renglón.
QWidget* con_rotulo(const QString& texto, QWidget* control);

class QLineEdit;

/// Ancho con que una caja muestra entero lo que tiene.
int ancho_de_lectura(const QLineEdit& caja);

class DisposicionFlujo : public QLayout {
public:
    DisposicionFlujo(QWidget* dueno, int espacio);
    ~DisposicionFlujo() override;

    /// Lo que sigue va pegado a la derecha mientras todo quepa en un renglón.
    void separe() { separador_ = int(items_.size()); }
    /// Lo que sigue empieza renglón mientras lo anterior quepa en uno solo.
    void parta() { corte_ = int(items_.size()); }

    void addItem(QLayoutItem* item) override { items_.append(item); }
    int count() const override { return int(items_.size()); }
    QLayoutItem* itemAt(int i) const override { return items_.value(i); }
    QLayoutItem* takeAt(int i) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    /// Sitio que la caja guarda en su renglón y presta a las demás mientras calla.
    static void reserve(QLineEdit& caja, int ancho);
    /// No pasa del ancho máximo de su dueño.
    int heightForWidth(int ancho) const override;
    void setGeometry(const QRect& marco) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;

private:
    /// Dónde termina el renglón que empieza en `desde`.
    int fin_de_renglon(int desde, int ancho) const;
    int acomode(const QRect& marco, bool aplicar) const;

    QVector<QLayoutItem*> items_;
    int separador_ = -1, corte_ = -1;
};
