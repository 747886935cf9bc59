#pragma once
// Lo común a crear y a editar una plantilla: encabezado sin fecha ni número y los dos libros.
#include "sesion/borrador_filas.h"
#include "vouchers/pantalla_lineas.h"

class EditorDato;

/// Los datos del encabezado de una plantilla, como están en su tabla.
void defina_encabezado_plantilla(ConjuntoDatos& c);

class PantallaPlantilla : public PantallaLineas {
    Q_OBJECT
public:
    ~PantallaPlantilla() override;

    void FormActivate() override;
    /// Pregunta si hay algo por perder; sin un "Sí" no cierra.
    bool FormClose() override;

    Proveedor PPlantilla, PArticulo;
    ConjuntoDatos CPlantilla; ///< se llama CMovimiento en la pantalla de editar
    ConjuntoDatos& CDetallen; ///< líneas NIIF
    ConjuntoDatos CPrefijos, CArticulo;
    ListaDato* LPref;
    EditorDato *EConcepto, *ERef;
    QLineEdit* Edit7;

    ConjuntoDatos& encabezado() override { return CPlantilla; }
    bool encabezado_posteado() const override { return muestra_lineas_; }
    void panel_de_clase(Libro libro, const QString& clase) override;

protected:
    PantallaPlantilla(const QString& clase, const QString& titulo, const QString& conjunto,
                      const QString& archivo);

    BorradorFilas* borrador_ = nullptr; ///< desde que la pantalla está a la vista
    bool muestra_lineas_ = false;       ///< al pasar a una línea se muestran sus nombres y sumas

    /// Une los proveedores y abre los catálogos.
    void abra_catalogos();
    /// Deja en LPref los prefijos del tipo del encabezado, sin tocar el que tiene.
    void ubique_tipo();
    /// Desde aquí lo que se digita queda a salvo; si un programa murió digitando `cual`, lo ofrece.
    void siga_borrador(const QString& cual, std::function<bool()> hay,
                       const std::function<QString(const BorradorFilas::Huerfano&)>& frase);
    QWidget* encabezado_al_volver() const override;
    virtual bool hay_por_perder() const = 0;

    void pegue(Rejilla& rejilla) override;
    void SBCancelClick() override { close(); }
    void pagina_cambiada(int) override { lineas_a_la_vista().rejilla->setFocus(); }
    void DBGridDblClick(Libro libro, int columna) override;

private:
    void defina_campos();
    void construya(const QString& archivo);
    void CPlantillaBeforePost();
    void TICO_CODChange(Campo& campo);
    void calcule(ConjuntoDatos& detalle);
};
