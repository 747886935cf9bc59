#pragma once
// Caja del período: mes y año. Las señales salen solo cuando el usuario cambia algo.
#include "toolkit/pantalla.h"

#include <QWidget>

class QComboBox;
class QSpinBox;

class CajaPeriodo : public QWidget, public ReclamaTeclas {
    Q_OBJECT
public:
    explicit CajaPeriodo(QWidget* padre = nullptr);

    int mes() const; ///< 0 a 11; -1 si muestra un texto ajeno a la lista
    int ano() const;
    void mes(int indice);
    void ano(int valor);
    /// Muestra un texto que no está en la lista, como "Ajustes"; `mes()` pasa a -1.
    void texto_mes(const QString& texto);
    QString texto_mes() const;
    void rango_ano(int minimo, int maximo);
    void nombres(const QStringList& doce);

    /// Enter confirma el año a medio digitar, y toda otra tecla de la pantalla lo confirma antes.
    bool reclama(const QKeyEvent& evento) override;
    bool termine() override;

    QComboBox* EMes; ///< caja de los meses
    QSpinBox* EAno;  ///< caja del año

signals:
    void mes_cambiado(int mes);
    void ano_cambiado(int ano);

private:
    class ListaMeses;
    ListaMeses* meses_;
    int mes_previo_ = -1;
    bool por_codigo_ = false;
};
