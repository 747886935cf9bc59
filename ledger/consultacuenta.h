#pragma once
// Base de las consultas de una cuenta: la de la AbreAuxiliar que las abre, con su nombre.
#include "ledger/consultaperiodo.h"
#include "ledger/familia.h"
#include "sesion/peticiones.h"
#include "sesion/tfdmcnt.h"

class Formulario;
class QLineEdit;

class ConsultaCuenta : public ConsultaPeriodo {
    Q_OBJECT
public:
    explicit ConsultaCuenta(const MiembroConsulta& miembro);

    void FormCreate() override;

    // --- controles
    Rejilla* DBGridEh1 = nullptr;
    QLineEdit* ECuenta;
    QLineEdit* NomCuenta;
    QLineEdit* EClave = nullptr; ///< tercero, centro o artículo de la consulta
    QLineEdit* NomClave = nullptr;

protected:
    /// Filas de la cuenta y de la clave.
    void arme_encabezado(Formulario& formulario);
    /// Texto de la consulta en el período de la sesión.
    QString componga(const QString& orden, const char* consulta = nullptr);
    /// Período en la caja, y en el encabezado de lo que se imprime con la cuenta y la clave.
    void muestre_lo_consultado();
    const QString& cuenta() const { return consulta_.cuenta; }

private:
    QString nombre_cuenta();
    void muestre_clave();

    const MiembroConsulta& datos_;
    DatosConsulta consulta_;
};
