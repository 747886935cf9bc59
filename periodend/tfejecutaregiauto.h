#pragma once
// "Ejecutar registro automático": hace en el período el comprobante de una receta, que antes se
// puede ver.
#include "catalogues/forma_proceso.h"

class EditorNumero;
class Rejilla;

class Tfejecutaregiauto : public FormaProceso {
    Q_OBJECT
public:
    Tfejecutaregiauto();
    void FormCreate() override;

    Sentencia QVista;
    Proveedor PVista;
    ConjuntoDatos CVista;
    Rejilla* DBGridEh1;

protected:
    void complete(Formulario& f) override;
    void bajo_el_encabezado(Formulario& f) override;
    void botones_propios(BarraBotones& barra) override;
    void SBGrabarClick() override;
    void prefijo_cambiado() override;

private:
    void SBVistaClick();
    bool siga_aunque_ya_se_hizo();

    QLineEdit *ERegistro, *Porc;
    QString registro_;
};
