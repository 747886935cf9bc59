#pragma once
// Página de un formato de impresión, a escala: dónde cae cada elemento mientras se edita.
//
// Muestra las líneas, cuadros y textos como salen y cada dato por su nombre; los que repiten se ven
// una vez, con la banda que ocupan los renglones de la página. No lee comprobantes.
#include "datos/recordset/conjunto.h"

#include <QWidget>

class QPainter;

class LienzoFormato : public QWidget {
    Q_OBJECT
public:
    static constexpr int kAncho = 2000, kAlto = 1500; ///< cuadrícula de toda página

    LienzoFormato(ConjuntoDatos& formato, ConjuntoDatos& datos, ConjuntoDatos& lineas);
    ~LienzoFormato() override;

    /// El elemento señalado de este conjunto sale resaltado; nulo, ninguno.
    void resalte(const ConjuntoDatos* conjunto);
    /// Rectángulo de la hoja dentro del control.
    QRect hoja() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evento) override;

private:
    class Enlace;
    void pinte_lineas(QPainter& p, bool textos);
    void pinte_datos(QPainter& p);
    QPoint punto(qint64 x, qint64 y) const;
    QFont letra(const QString& propia, qint64 tamano) const;
    QColor color(const ConjuntoDatos& conjunto, int fila, const QColor& normal) const;

    ConjuntoDatos &formato_, &datos_, &lineas_;
    const ConjuntoDatos* resaltado_ = nullptr;
    std::vector<std::unique_ptr<Enlace>> enlaces_;
};
