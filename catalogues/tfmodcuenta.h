#pragma once
// Modifica las cuentas de un plan, una a la vez, desde la de la AbreCuenta que la abre. La del
// libro NIIF se llama Tfmodcuentaniif.
#include "catalogues/fichacuenta.h"

class Tfmodcuenta : public FichaCuenta {
    Q_OBJECT
public:
    explicit Tfmodcuenta(Libro libro = Libro::Decreto2649);

    void FormCreate() override;
    void FormActivate() override;
    void CCuentasAfterEdit();
    void CCuentasAfterScroll();
    void SBGrabarClick();
    void SBSalirClick();
    /// Anterior o siguiente, después de grabar lo que esté en edición.
    void muevase(bool adelante);

protected:
    void arme_botones() override;
    Estado estado_de_trabajo() const override { return Estado::Edicion; }

private:
    /// Lo que se muestra de la cuenta y no está en su fila: equivalencia, candado y auditoría.
    void muestre_cuenta();
    QStringList indicadores() const;
    int grabe();
    void aplique_a_subcuentas();

    Proveedor* PAudit;
    ConjuntoDatos* CAudit;
    QStringList indicadores_antes_; ///< los tres de la cuenta cuando entró en edición
};
