#pragma once
// Lista desplegable en la que lo que se teclea seguido, con sus espacios, busca por el comienzo sin
// distinguir tildes, plegada o desplegada.
#include "toolkit/tecleo.h"

#include <QComboBox>
#include <QTimer>
#include <functional>

class ListaTecleo : public QComboBox {
    Q_OBJECT
public:
    explicit ListaTecleo(QWidget* padre = nullptr);
    /// Lo que trae lo escogido y se lleva el foco: espera a que se acabe de teclear el comienzo,
    /// que si no seguiría en otra caja; si el foco se va antes, ya no se hace. Una letra que no es
    /// del comienzo de ninguna fila lo acaba, y es de la caja a la que pase el foco.
    void al_acabar_de_teclear(std::function<void()> haga);

protected:
    /// Antes de mirar sus filas: quien las lee cuando hacen falta las lee aquí.
    virtual void asegure_lista() {}
    void showPopup() override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    int con_lo_tecleado(int desde) const;
    int con_prefijo(const QString& comienzo, int desde) const;
    void tome_la_senalada();
    void siga_en_la_otra(QKeyEvent& evento);
    Tecleo tecleo_;
    int senalada_al_abrir_ = -1;
    QTimer espera_; ///< corre mientras se teclea
    std::function<void()> despues_;
};

/// Con su nombre y sus filas.
ListaTecleo* lista_tecleo(const char* nombre, const QStringList& filas = {});
