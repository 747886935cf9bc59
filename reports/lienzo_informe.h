#pragma once
// Página de un informe del usuario mientras se edita, a escala y con sus cifras verdaderas.
//
// Se dibuja con lo mismo que imprime, otra vez con cada cambio; lo que ya se leyó de la base se
// recuerda hasta `olvide`. El elemento señalado va en un recuadro; un clic sobre la hoja señala el
// que esté ahí.
#include "reports/informe_definible.h"

#include <QWidget>
#include <memory>

class Rejilla;

class LienzoInforme : public QWidget {
    Q_OBJECT
public:
    /// `periodo` se pregunta en cada dibujo: el libro lo dice el informe que se edita. `lector` da
    /// el que lee lo que falte en ese dibujo: todo de una vez.
    LienzoInforme(DefinicionInforme& definicion, std::function<PeriodoFormula()> periodo,
                  std::function<FormulaContable::Lee()> lector);
    ~LienzoInforme() override;

    /// Página a la vista, desde 1.
    void pagina(int numero);
    int pagina() const { return pagina_; }
    /// El conjunto en que se trabaja: la fila de su cursor es la señalada. Nulo, ninguna.
    void resalte(ConjuntoDatos* conjunto);
    /// Muestra también lo que se digita en esa rejilla, letra por letra.
    void siga(Rejilla& rejilla);
    /// Lee otra vez las cifras.
    void olvide();
    /// Rectángulo de la hoja dentro del control.
    QRect hoja() const;
    /// Por qué la fila del conjunto de datos no dio su cifra en el último dibujo; vacío si la dio.
    QString falla(int fila) const { return fallas_.value(fila); }
    QSize sizeHint() const override;

    /// Un clic señaló un elemento de este conjunto, que ya está en su fila.
    std::function<void(ConjuntoDatos&)> al_senalar;

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    bool eventFilter(QObject* editor, QEvent* evento) override;

private:
    class Enlace;
    void cambio();
    void componga();
    InformeDefinible::Digitado digitado() const;
    QRectF en_pantalla(qreal x, qreal y, qreal dx, qreal dy) const;
    /// Lugar de un elemento en el control, con algún tamaño aunque sea un punto.
    QRectF lugar(const ConjuntoDatos& conjunto, int fila) const;

    DefinicionInforme& d_;
    std::function<PeriodoFormula()> periodo_;
    std::function<FormulaContable::Lee()> lector_;
    QHash<QString, Moneda> leidas_;
    QHash<int, QString> fallas_; ///< por fila de los datos
    /// Lo que ocupan los textos y las cifras de la página, en milímetros.
    QHash<std::pair<const ConjuntoDatos*, int>, QRectF> lugares_;
    std::unique_ptr<informes::Hojas> hojas_; ///< nulas: hay que componer
    ConjuntoDatos* resaltado_ = nullptr;
    QVector<Rejilla*> rejillas_;
    int pagina_ = 1;
    std::vector<std::unique_ptr<Enlace>> enlaces_;
};
