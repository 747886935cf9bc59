#pragma once
// "Configurar exportación": con qué cuentas, tipos y prefijos salen los de la compañía.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class Rejilla;

class Tfconfexporta : public Pantalla {
    Q_OBJECT
public:
    Tfconfexporta();

    Sentencia TCuentas{this, "TCuentas", fdm().Quorvex,
                       "SELECT * FROM CUENTAS_EXPORTACION ORDER BY CUEN_COD"};
    Sentencia TPrefijos{this, "TPrefijos", fdm().Quorvex,
                        "SELECT * FROM PREFIJOS_EXPORTACION ORDER BY PREX_TIPO, PREX_PREF"};
    Proveedor PCuentas{this, "PCuentas", &TCuentas};
    Proveedor PPrefijos{this, "PPrefijos", &TPrefijos};
    ConjuntoDatos CCuentas{this, "CCuentas", &PCuentas};
    ConjuntoDatos CPrefijos{this, "CPrefijos", &PPrefijos};

    Rejilla *DBGridEh1, *DBGridEh2;

    void FormCreate() override;
    bool FormClose() override;

private:
    void defina_conjuntos();
    Rejilla* rejilla(const char* nombre, ConjuntoDatos& conjunto, const QString& titulo);
    /// La escogida va a la fila en que se está o, si ya se dejó, a otra `nueva`.
    void escoja(const QString& texto, bool nueva);
    void SBGrabarClick();

    PreguntaEnCampo pregunta_;
};
