#pragma once
// La aplicación: título, idioma de Qt y la última red para las excepciones.
#include <QApplication>

class Aplicacion : public QApplication {
    Q_OBJECT
public:
    Aplicacion(int& cuantos, char** argumentos);
    /// Ninguna excepción cruza el lazo de Qt: lo que un manejador dejó pasar llega a la falla
    /// general.
    bool notify(QObject* receptor, QEvent* evento) override;
};
