#pragma once
// "Comparativo centros de costo": las cuentas de resultado por centro en un cubo, con plantillas
// que se guardan.
#include "ledger/consultaperiodo.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/pivote/cubo.h"

class QComboBox;
class RejillaCubo;
class ZonasCubo;

class Tfcomparacentros : public ConsultaPeriodo {
    Q_OBJECT
public:
    Tfcomparacentros();

    // --- conjuntos
    Proveedor PBalcentro{this, "PBalcentro", &fdmcnt().QSaldos, poAllowCommandText};
    ConjuntoDatos CBalcentro{this, "CBalcentro", &PBalcentro};

    // --- controles
    QCheckBox* ckNiif;
    QComboBox* ComboBox1; ///< "Cargar ejemplo:"
    ZonasCubo* zonas;
    RejillaCubo* rejilla;

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    void actualice_balance();
    void SpeedButton5Click(); ///< F2:Calcula
    void SbGrabarClick();     ///< Grabar Plantilla

protected:
    void recalcule() override;

private:
    void defina_conjunto();
    void arme_botones();
    void llene_cubo();
    void lea_plantillas();
    DisposicionCubo lea_plantilla(const QString& ruta) const;
    DisposicionCubo plantilla_escogida() const;
    /// La de siempre, al abrir.
    DisposicionCubo plantilla_inicial() const;
    /// Muestra el cubo como dicen las zonas.
    void muestre();

    Cubo cubo_;
    bool por_recalcular_ = true;
};
