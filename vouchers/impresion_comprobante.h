#pragma once
// Impresión de comprobantes: por la plantilla de informes o por el formato propio de la compañía.
//
// La base de las dos pantallas que imprimen. Cada comprobante dice, en la columna FTO de sus filas,
// por cuál de los dos caminos sale.
#include "sesion/tfdm.h"
#include "toolkit/informes/motor.h"
#include "toolkit/pantalla.h"

class ImpresionComprobante : public Pantalla {
    Q_OBJECT
public:
    ImpresionComprobante(const QString& clase, const QString& titulo);

    // --- conjuntos
    Sentencia QComproba{this, "QComproba", fdm().Quorvex};
    Proveedor PComproba{this, "PComproba", &QComproba, poAllowCommandText};
    Proveedor PFormato{this, "PFormato", &fdm().Tformatos};
    ConjuntoDatos CComproba{this, "CComproba", &PComproba};
    ConjuntoDatos CFormato{this, "CFormato", &PFormato};
    ConjuntoDatos CFormdatos{this, "CFormdatos"};
    ConjuntoDatos CFormlineas{this, "CFormlineas"};

    bool formato_base = false; ///< F10: el formato de último recurso, "0000"

    void FormCreate() override;

    /// Imprime lo pedido y cierra la pantalla.
    virtual void SpeedButton1Click() = 0;

protected:
    /// Los botones y las teclas, que son los mismos: F2 y Enter imprimen, F10 con el formato base.
    void arme_botones(class Formulario& f);
    /// Imprime el comprobante. Falso si el usuario canceló; un formato que no existe solo avisa.
    bool imprima(MotorInformes& motor, const QString& id, bool niif, bool masiva);

private:
    bool por_plantilla(MotorInformes& motor, bool niif);
    bool por_formato(MotorInformes& motor, const QString& id, bool masiva);
    bool abra_formato();

    QString formato_abierto_; ///< filtro con que está abierto CFormato
};
