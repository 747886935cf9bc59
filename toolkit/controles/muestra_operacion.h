#pragma once
// La operación que se digita en una caja de importe ("1250000*0.19"): se ve su resultado antes de
// tomarlo, y es lo que la caja entrega.
#include <QObject>
#include <QPointer>
#include <functional>

class Campo;
class QLabel;
class QLineEdit;

/// Decimales con que un campo toma el resultado; -1 si no es un importe y no admite operaciones.
int decimales_de_operacion(const Campo& campo);
/// El resultado de la operación, o el mismo texto si no lo es. Lanza ErrorDatos si no se puede
/// calcular.
QString texto_calculado(const QString& texto, int decimales);

class MuestraOperacion : public QObject {
    Q_OBJECT
public:
    /// Acompaña a la caja mientras viva; `decimales` dice cuántos lleva en cada momento.
    MuestraOperacion(QLineEdit* caja, std::function<int()> decimales);
    ~MuestraOperacion() override;

    /// Tras cada tecla en la caja.
    void muestre();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QLineEdit* caja_;
    std::function<int()> decimales_;
    QPointer<QLabel> resultado_; ///< hijo de la ventana, para que nada lo recorte
};
