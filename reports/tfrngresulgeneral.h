#pragma once
// Estado de resultados: general ("G"), del año o del mes, y detallado ("D").
#include "reports/forma_estado.h"
#include "reports/notas_estado.h"

class Tfrngresulgeneral : public FormaEstado {
    Q_OBJECT
public:
    Tfrngresulgeneral();

    QCheckBox *ckMes, *ckNotas;

    void FormCreate() override;

protected:
    QString sql() override;
    void antes_de_abrir() override;
    QString rango_legible() override;
    QString titulo() override { return del_periodo(); }
    QString reporte() override;
    QString titulo_niif() override;
    QString item_titulo() override;
    void anexe(MotorInformes& motor) override;

private:
    bool del_mes() const { return es("G") && marcada(ckMes); }
    NotasEstado notas_{this};
};
