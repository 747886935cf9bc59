#pragma once
// Auxiliares: los movimientos de una cuenta en un período, y de ahí al comprobante.
#include "ledger/consultacuenta.h"

class EditorNumero;

class Tfauxiliar : public ConsultaCuenta {
    Q_OBJECT
public:
    explicit Tfauxiliar(const DatosAuxiliar& miembro);

    // --- conjuntos
    Proveedor PAuxiliar{this, "PAuxiliar", &fdmcnt().QAuxiliar, poAllowCommandText};
    ConjuntoDatos CAuxiliar{this, "CAuxiliar", &PAuxiliar};

    // --- controles
    EditorNumero *Saldoi = nullptr, *Saldof = nullptr;

    void FormActivate() override;
    bool FormClose() override;

    void calcule_auxiliar(const QString& orden);
    void editar_comprobante(const QString& id);
    void borrar_comprobante(const QString& id);

    void SpeedButton1Click();
    void SpeedButton2Click();
    void SpeedButton3Click();

protected:
    void recalcule() override;

private:
    void defina_campos();
    void arme();
    void calcule_saldos(class Foto& foto);

    const DatosAuxiliar& miembro_;
};
