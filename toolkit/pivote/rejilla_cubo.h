#pragma once
// Un cubo en pantalla. Espacio, Enter o doble clic pliegan y despliegan la fila; Mayúscula+Espacio
// o doble clic en el título, la columna. El más y el menos del teclado numérico, todas las filas
// por niveles; con Control, las columnas. Los nombres de las filas no se corren con las cifras.
#include "toolkit/pivote/modelo_cubo.h"

#include <QTableView>

class RejillaCubo : public QTableView {
    Q_OBJECT
public:
    explicit RejillaCubo(QWidget* padre = nullptr);

    ModeloCubo& modelo() { return modelo_; }
    QString texto_vacio; ///< lo que dice sin hechos
    QString nombre_archivo = QStringLiteral("Cubo");
    QString titulo_impreso; ///< encabezado del archivo; vacío, su nombre

    /// Calcula y muestra, y vuelve a la fila y la columna en que estaba.
    void disponga(const Cubo& cubo, const DisposicionCubo& disposicion);
    void alterne_actual();
    /// Pliega o despliega una columna que no sea la primera, y deja en ella el cursor.
    void alterne_columna(int columna);
    /// Un nivel más o uno menos desplegado.
    void mueva_nivel(int paso);
    void mueva_nivel_columnas(int paso);
    /// Pregunta el archivo y graba lo que se ve.
    void guarde();
    /// Copia las celdas seleccionadas, separadas por tabuladores.
    void copie() const;
    /// Ancho de la columna que no se desplaza, si tapa otras.
    int ancho_fijo() const;
    /// Píxeles que le faltan para mostrar todas sus columnas con sus nombres y títulos enteros.
    int lo_que_falta() const;
    void scrollTo(const QModelIndex& celda, ScrollHint como = EnsureVisible) override;

signals:
    void nivel_cambiado(int nivel);
    void nivel_columnas_cambiado(int nivel);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void sin_moverse(const std::function<void()>& cambio);
    void ajuste_anchos();
    void reparta();

    ModeloCubo modelo_;
    class ColumnaFija* fija_ = nullptr;
    QVector<int> pedidos_; ///< ancho que cada columna pide
    QVector<int> minimos_; ///< con menos se cortaría una cifra
    QVector<int> titulos_; ///< con el que su título se lee en dos renglones
    QVector<int> puestos_; ///< y el que se le dio
    const Cubo* cubo_ = nullptr;
};
