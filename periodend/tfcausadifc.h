#pragma once
// "Causar diferencia en cambio": lleva la cartera en moneda de una cuenta a la tasa de un día y
// muestra lo que cambió cada documento.
#include "periodend/forma_con_cuenta.h"

class Rejilla;

class Tfcausadifc : public FormaConCuenta {
    Q_OBJECT
public:
    Tfcausadifc();
    void FormCreate() override;

    ConjuntoDatos CDiferencia;
    Rejilla* DBGridEh1;

protected:
    void complete(Formulario& f) override;
    void bajo_el_encabezado(Formulario& f) override;
    void SBGrabarClick() override;

private:
    QString llamada() const;
    /// Devuelve el consecutivo del comprobante hecho.
    QString cause(Transaccion& t);

    EditorDato* Trm;
};
