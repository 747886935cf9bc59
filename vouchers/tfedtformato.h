#pragma once
// "Definición de formatos documentos": el formato con que un tipo o prefijo imprime sus
// comprobantes en la papelería de la compañía. La llave llega en la AbreFormato.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"
#include "vouchers/panel_flotante.h"

class BarraBotones;
class EditorDato;
class ImagenDato;
class LienzoFormato;
class ListaDato;
class QCheckBox;
class QComboBox;
class QPushButton;
class Rejilla;

class Tfedtformato : public Pantalla {
    Q_OBJECT
public:
    Tfedtformato();
    ~Tfedtformato() override;

    Proveedor PFormato, PTipocomp, PBorrar;
    ConjuntoDatos CFormato, CFormadatos, CFormalineas, CTipocomp, CBorrar;

    Rejilla* DBGridEh1; ///< líneas y cuadros
    Rejilla* DBGridEh2; ///< datos a imprimir
    ListaDato* LFont;
    QCheckBox *ckfildat, *ckfiltex;
    PanelFlotante *Panel2, *GroupBox3;
    QComboBox* Pref;
    ImagenDato* DBImage1;
    LienzoFormato* lienzo;

    void FormCreate() override;
    bool FormClose() override;

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    void defina_conjuntos();
    QWidget* construya_lineas();
    QWidget* construya_datos();
    void construya_encabezado(class Formulario& f);
    void construya_paneles();
    void declare_botones(BarraBotones* barra);
    void ubique(const QString& llave);
    int mayor(const char* tabla, const char* columna);
    void nazca(ConjuntoDatos& elementos, int& contador, const char* prefijo);
    void DAFO_DATOChange(Campo& campo);
    void DBGridEh1DblClick();
    void DBImage1Click();
    /// Graba lo pendiente; falso si la base lo rehusó.
    bool aplique();
    void SBCancelClick();
    void SpeedButton2Click();
    void SpeedButton3Click();
    void AdvGlowButton1Click();
    void AdvGlowButton2Click();
    void SpeedButton4Click();

    QWidget* ultimo_;
    QPushButton *grafico_, *grabar_; ///< para el recorrido con Tab
    QString llave_;
    int item_datos_ = 0, item_lineas_ = 0;
};
