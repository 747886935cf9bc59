#pragma once
// "Modificar informe": los datos, textos, líneas, cuadros e imágenes de un informe del usuario, con
// la página a la vista. Su código llega en la AbreFormatoEspecial.
#include "reports/definicion_informe.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class EditorDato;
class Formulario;
class ImagenDato;
class LienzoInforme;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QSpinBox;
class Rejilla;

class Tfmodformato : public Pantalla {
    Q_OBJECT
public:
    Tfmodformato();
    ~Tfmodformato() override;

    DefinicionInforme definicion{this};
    ConjuntoDatos &CFormato = definicion.CFormato, &CFormadatos = definicion.CFormadatos,
                  &CFormalineas = definicion.CFormalineas;

    Rejilla* DBGridEh1; ///< datos a imprimir
    Rejilla* DBGridEh2; ///< textos, líneas y cuadros
    EditorDato* ECodigo;
    QComboBox* EImpresora;
    QGroupBox* GroupBox3; ///< imagen de un elemento
    ImagenDato* DBImage1;
    QLabel* EstadoFormula; ///< lo que dice la fórmula que se escribe
    QSpinBox* EPagina;     ///< página a la vista
    LienzoInforme* lienzo;

    void FormCreate() override;
    bool FormClose() override;

protected:
    Tfmodformato(const QString& clase, const QString& titulo);
    /// Deja CFormato en el informe que se edita. Falso si no existe.
    virtual bool abra();
    /// Graba lo pendiente; falso si la base lo rehusó.
    bool aplique();

private:
    void defina_nacimientos();
    void construya_encabezado(Formulario& f);
    QWidget* construya_datos();
    QWidget* construya_lineas();
    QWidget* construya_vista();
    void construya_imagen();
    void declare_botones(BarraBotones* barra);
    void diga_formula(const QString& formula);
    void formula_de_la_fila();
    int mayor(const char* tabla);
    void CFormadatosAfterInsert();
    void CFormalineasAfterInsert();
    void DBGridEh2DblClick();
    void DBImage1Click();
    void SBGrabarClick();
    void SpeedButton3Click(); ///< F8:Vista previa
    void SBCancelClick();

    int item_datos_ = 0, item_lineas_ = 0;
};
