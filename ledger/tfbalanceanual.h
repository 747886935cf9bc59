#pragma once
// "balance anual": el año en una fila por cuenta, mes por mes, con el gráfico de la escogida.
#include "ledger/balanceporniveles.h"
#include "sesion/tfdmcnt.h"

class GraficoCuenta;
class QComboBox;
class QGroupBox;
class Rejilla;

class Tfbalanceanual : public BalancePorNiveles {
    Q_OBJECT
public:
    Tfbalanceanual();

    // --- conjuntos
    Proveedor PBalance{this, "PBalance", &fdmcnt().QBalanceprueba, poAllowCommandText};
    ConjuntoDatos CBalance{this, "CBalance", &PBalance};
    ConjuntoDatos CGrafcta{this, "CGrafcta"};

    // --- controles
    Rejilla* DBGridEh1;
    QCheckBox *ckTerc, *cksaldos;
    QGroupBox* PanelGrafico;
    QComboBox* Tipo; ///< qué son los puntos del gráfico
    GraficoCuenta* grafico;

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;
    void EAnoChange(int ano) override;

    void actualice_balance();

    void BitBtn4Click(); ///< F12:Gráfico
    void TipoChange(int indice);

protected:
    void recalcule() override;
    void nivel_cambiado() override { recalcule(); }

private:
    void defina_conjuntos();
    void arme_rejilla();
    QWidget* cree_grafico();
    void arme_botones();
    /// Cuenta de la fila, también si la fila es de un tercero.
    QString cuenta() const;
    void abra(const char* pantalla);
    void cierre_grafico();
    void SBSalirClick();
};
