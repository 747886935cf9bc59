#pragma once
// Medios magnéticos nacionales: cálculo, corrección a mano y archivos XML de un formato y un año.
#include "tax/forma_medio.h"
#include "tax/medio_formato.h"

class QComboBox;
class QDateEdit;
class QSpinBox;

/// La configuración de un formato con su versión (MEDM_FORMATO).
struct AbreConfiguracionMedio {
    int formato = 0;
};

struct MedioRevisado;

class Tfmediosmag13 : public FormaMedio {
    Q_OBJECT
public:
    Tfmediosmag13();

    ConjuntoDatos* CFtomediosm;
    QComboBox *LFormato, *Concepto;
    QLineEdit* Edit1;
    QDateEdit* FecEnvio;
    QSpinBox* NroEnv;

    void FormCreate() override;
    void FormActivate() override;
    void calculanombre();

protected:
    QString condicion() const override;
    QString codigo() const override;
    QString calculo() const override;
    QString candado() const override;
    QString por_configurar() const override;
    void SBGrabarClick() override;
    void SpeedButton3Click() override;
    void EAnoExit() override;

private:
    void defina_campos();
    void arme_encabezado(Formulario& f);
    void LFormatoExit();
    void CMedmagdataAfterInsert();
    void CMedmagdataMEMG_NITChange();
    void revise();
    MedioRevisado medio_a_la_vista() const;
    void escriba();
    QString del_formato(const char* campo) const;
    struct EnvioMedio envio() const;

    int formato_ = 0;       ///< MEDM_FORMATO del escogido
    bool revisado_ = false; ///< la revisión pudo poner filas al día
};
