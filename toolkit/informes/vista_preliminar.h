#pragma once
// "Vista preliminar": las hojas de un informe en pantalla, con búsqueda, impresión y grabación.
//
// Solo se leen y dibujan las hojas a la vista. Teclas: RePág y AvPág, Inicio y Fin, Ctrl+B o F3
// busca, Ctrl+I va a una página, Ctrl+P imprime, Ctrl+G graba, Ctrl + y Ctrl - el tamaño, Esc sale.
#include "toolkit/informes/opciones_impresion.h"

#include <QAbstractScrollArea>
#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace informes {

/// Las hojas una debajo de otra.
class VistaHojas : public QAbstractScrollArea {
    Q_OBJECT
public:
    explicit VistaHojas(const Hojas& hojas, QWidget* padre = nullptr);

    void tamano(int porcentaje);
    int tamano() const { return porcentaje_; }
    int pagina() const; ///< la que ocupa la parte alta, 0-based
    void vaya_a(int pagina);
    /// Siguiente texto que contiene `buscado`, sin distinguir mayúsculas, después del actual; al
    /// llegar al final sigue desde el principio. Falso si no está.
    bool busque(const QString& buscado);

signals:
    void cambio_pagina(int pagina);

protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void scrollContentsBy(int x, int y) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;

private:
    void ordene();
    double por_milimetro() const;
    QRectF lugar(int pagina) const; ///< en píxeles del contenido
    void muestre_hallazgo();

    const Hojas& hojas_;
    int porcentaje_ = 100;
    QVector<double> altos_; ///< dónde empieza cada hoja
    double ancho_ = 0;
    int hallada_ = -1, trazo_hallado_ = -1;
    QRectF hallazgo_; ///< milímetros de su hoja
};

class VistaPreliminar : public QDialog {
    Q_OBJECT
public:
    /// `opciones`: las escogidas al pedir el informe; con ellas se propone la impresión.
    VistaPreliminar(const Hojas& hojas, const QString& archivo, const OpcionesReporte& opciones,
                    QWidget* padre);

    QString titulo; ///< del documento que se imprime o se graba

private:
    QLayout* arme_barra();
    void arme_pagina();
    void arme_tamano();
    void arme_busqueda();
    void al_oprimir(const QKeySequence& tecla, std::function<void()> accion);
    void imprima();
    void guarde();
    void busque();
    void muestre_pagina(int pagina);

    const Hojas& hojas_;
    QString archivo_;
    OpcionesReporte opciones_;
    VistaHojas* vista_;
    QComboBox* tamano_;
    QSpinBox* pagina_;
    QLineEdit* buscado_;
    QLabel* estado_;
};

/// Lleva las hojas a la impresora con las copias, el intercalado y el rango pedidos. `documento`:
/// su nombre en la cola.
void imprima_hojas(const Hojas& hojas, const OpcionesReporte& opciones, int actual,
                   const QString& documento);

} // namespace informes
