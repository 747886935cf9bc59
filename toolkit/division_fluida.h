#pragma once
// Dos partes con rejillas, lado a lado mientras así se vean todas sus columnas y se reconozcan sus
// nombres; si no, una debajo de la otra.
#include <QSplitter>

/// Reparte el ancho según lo que pide cada parte y lo que sobra según su factor; entre dos, la que
/// no se lee entera toma lo que a la otra le sobre. Eso hasta que el usuario la arrastre. Sigue a
/// sus rejillas cuando les llega algo más ancho.
class DivisionFluida : public QSplitter {
public:
    explicit DivisionFluida(QWidget* padre = nullptr);

protected:
    void showEvent(QShowEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void acomode();
    /// El ancho con que una parte muestra todas sus columnas.
    int pide(const QWidget& parte) const;
    /// Lo que a una parte le falta para que también sus nombres se lean enteros.
    int falta(const QWidget& parte, bool con_titulos) const;
    void preste();
    void preste(bool con_titulos);

    bool arrastrada_ = false, acomodando_ = false, siguiendo_ = false;
};
