#pragma once
// Cifras de control de un balance: cuatro cajas debajo de las columnas que suman, que se
// desplazan con ellas.
#include "datos/recordset/conjunto.h"

#include <QStringList>
#include <QVector>
#include <QWidget>

class EditorNumero;
class NavegadorDatos;
class QLabel;
class Rejilla;

/// Muestra las columnas `sumas` de la primera fila, que el procedimiento repite en todas.
class CifrasControl : public QWidget, public EnlaceDatos {
    Q_OBJECT
public:
    /// `columnas` son las de la rejilla; `nombres`, los de las cajas.
    CifrasControl(Rejilla* rejilla, const QStringList& columnas, const QStringList& sumas,
                  const QStringList& nombres, QWidget* padre = nullptr);

    /// Lee las cifras; sin filas quedan en cero.
    void muestre();

    void filas_reiniciadas() override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

private:
    void ubique();
    void ubique_bajo_columnas(const QRect& vista, int alto);
    int ubique_a_la_vista(int ancho, int alto);
    int alto_de_renglon() const;
    int ancho_de(const EditorNumero* caja) const;

    Rejilla* rejilla_;
    QStringList columnas_, sumas_;
    QLabel* rotulo_;
    QWidget* hueco_; ///< por donde se ven las cajas, que se desplazan con sus columnas
    NavegadorDatos* navegador_;
    QVector<EditorNumero*> cajas_;
    QVector<QLabel*> titulos_; ///< de qué es cada una, si no está bajo su columna
};
