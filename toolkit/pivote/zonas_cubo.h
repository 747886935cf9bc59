#pragma once
// Los campos de un cubo en sus zonas: sin usar, filas, columnas, filtros y valores. Se arrastran de
// una a otra o se mueven con teclas: F a las filas, C a las columnas, T a los filtros, V a los
// valores y Supr fuera; Alt+Arriba y Alt+Abajo cambian el orden. Enter escoge qué valores de un
// campo pasan, y en una cifra, cómo se muestra.
#include "toolkit/pivote/cubo.h"

#include <QCheckBox>
#include <QListWidget>
#include <QWidget>
#include <array>

class QGridLayout;
class QLabel;

enum class Zona { Campos, Filas, Columnas, Filtros, Valores };

class ZonasCubo : public QWidget {
    Q_OBJECT
public:
    explicit ZonasCubo(const Cubo& cubo, QWidget* padre = nullptr);

    /// Lo que dicen las zonas.
    DisposicionCubo disposicion() const;
    /// No emite `cambio`.
    void disposicion(const DisposicionCubo& disposicion);
    QListWidget* lista(Zona zona) const { return listas_[size_t(zona)]; }
    /// Lleva el campo al final de la zona. Falso si allí no cabe.
    bool mueva(const QString& campo, Zona zona);
    /// La zona recibe ese campo: las cifras solo van en los valores.
    bool recibe(Zona zona, const QString& campo) const;
    /// Lo que la rejilla desplegó, para guardarlo con lo demás.
    void nivel_filas(int nivel) { disposicion_.nivel_filas = nivel; }
    void nivel_columnas(int nivel) { disposicion_.nivel_columnas = nivel; }

    QCheckBox *total_filas, *total_columnas;

    QSize minimumSizeHint() const override;

signals:
    void cambio();

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    class Lista;
    /// Una debajo de otra; si falta alto, las que reciben campos van de a dos.
    void alinee(bool parejas);
    int alto_con(int listas, int casillas) const;
    void acomode_campos();
    Zona zona_de(const QString& campo) const;
    void ponga(Zona zona, const QStringList& campos);
    void rotule();
    QString rotulo(Zona zona, const QString& campo) const;
    bool oprima(Zona zona, QListWidgetItem* item, int tecla, Qt::KeyboardModifiers modificadores);
    void suba(QListWidget* lista, int paso);
    void escoja_valores(const QString& campo);
    void cambie_muestra(const QString& campo);
    void cambiaron();

    const Cubo& cubo_;
    DisposicionCubo disposicion_; ///< lo que las zonas no dicen: filtros, muestras, niveles
    std::array<QListWidget*, 5> listas_;
    std::array<QLabel*, 5> titulos_;
    QGridLayout* rejilla_;
    QWidget* casillas_;
    bool llenando_ = false, parejas_ = false;
};
