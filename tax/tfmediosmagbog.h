#pragma once
// Información de la secretaría de hacienda de Bogotá: un artículo y un año, corregidos a mano y
// escritos con ";".
#include "datos/recordset/pregunta_en_campo.h"
#include "tax/forma_medio.h"

class QComboBox;

class Tfmediosmagbog : public FormaMedio {
    Q_OBJECT
public:
    Tfmediosmagbog();

    ConjuntoDatos* CMeddist;
    QComboBox* LFormato;
    QLineEdit *NitShd, *CentroBogota;

    void FormCreate() override;
    void FormActivate() override;

protected:
    QString condicion() const override;
    QString codigo() const override;
    QString calculo() const override;
    void SBGrabarClick() override;
    void SpeedButton3Click() override;
    void EAnoExit() override;
    QString candado() const override;
    bool hay_formato() const override { return articulo() > 0; }
    void ofrezca_formatos() override;
    void prepare_calculo() override;
    QString por_configurar() const override;

private:
    void defina_campos();
    void arme_encabezado(Formulario& f);
    void liste_articulos();
    void LFormatoExit();
    void siga_al_nit();
    int articulo() const;

    PreguntaEnCampo pregunta_;
    QString ano_listado_;
    int a_la_vista_ = 0; ///< el artículo de las filas
};
