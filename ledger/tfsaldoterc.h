#pragma once
// Saldos de una cuenta por tercero, centro o artículo, y de ahí a su auxiliar.
#include "ledger/consultacuenta.h"

class Tfsaldoterc : public ConsultaCuenta {
    Q_OBJECT
public:
    explicit Tfsaldoterc(const DatosSaldo& miembro);

    // --- conjuntos
    Proveedor PSaldos{this, "PSaldos", &fdmcnt().QSaldos, poAllowCommandText};
    ConjuntoDatos CSaldos{this, "CSaldos", &PSaldos};

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    void calcule_saldoterc(const QString& orden);
    void mostrar_auxiliar_tercero(const QString& cuenta, const QString& nit);

    void SpeedButton1Click();
    void AdvGlowButton1Click();

protected:
    void recalcule() override;

private:
    void defina_campos();
    void arme();
    bool por_centro() const { return miembro_.por == Clave::Centro; }
    QVector<Valor> llave_actual() const;
    /// La cuenta y, si las filas son centros, el de la fila.
    AbreAuxiliar con_centro() const;

    const DatosSaldo& miembro_;
};
