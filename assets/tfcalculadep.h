#pragma once
// "Cálculo depreciación": la del mes. Si hay activos que se deprecian por lo que producen, antes de
// grabar pide sus unidades u horas.
#include "catalogues/forma_proceso.h"

class QPushButton;
class Rejilla;

class Tfcalculadep : public FormaProceso {
    Q_OBJECT
public:
    Tfcalculadep();
    void FormCreate() override;

    Sentencia TDepunidad, QActivos;
    Proveedor PActivos;
    ConjuntoDatos CDepunidad, CActivos;
    Rejilla* DBGridEh1;

protected:
    void bajo_el_encabezado(Formulario& f) override;
    void botones_propios(BarraBotones& barra) override;
    void SBGrabarClick() override;

private:
    /// De cada activo al que no le resta lo mismo en los dos libros.
    QHash<QString, QString> restan_en_cada_libro();
    void liste_los_que_producen();
    bool pida_unidades();
    void CDepunidadBeforePost();
    void SpeedButton3Click();
    bool acepte_las_que_no_produjeron();
    bool acepte_las_que_pasan();

    QWidget* Panel2 = nullptr;
    QPushButton* SpeedButton3 = nullptr;
    bool llenando_ = false;
    QString fecha_pedida_; ///< la de los activos a la vista
};
