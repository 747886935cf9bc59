#pragma once
// Una página a la vez. La oculta no cuenta en el tamaño, que en un QStackedWidget sí: con la letra
// grande la pantalla ganaba barras por una página que no estaba a la vista.
#include <QVBoxLayout>
#include <QWidget>

class Paginas : public QWidget {
public:
    explicit Paginas(QWidget* padre) : QWidget(padre), columna_(new QVBoxLayout(this)) {
        columna_->setContentsMargins(0, 0, 0, 0);
    }
    /// La primera queda a la vista.
    void addWidget(QWidget* pagina) {
        columna_->addWidget(pagina);
        if (columna_->count() > 1)
            pagina->hide();
    }
    int currentIndex() const { return actual_; }
    QWidget* currentWidget() const { return columna_->itemAt(actual_)->widget(); }
    void setCurrentIndex(int cual) {
        currentWidget()->hide();
        actual_ = cual;
        currentWidget()->show();
    }

private:
    QVBoxLayout* columna_;
    int actual_ = 0;
};

/// Lo que va en una ventanilla: no se desplaza mientras quepa con el menor alto que admite.
class EnVentanilla : public QWidget {
public:
    int heightForWidth(int ancho) const override { return layout()->minimumHeightForWidth(ancho); }
};
