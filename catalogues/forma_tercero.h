#pragma once
// Formulario de un tercero: lo que comparten crear uno nuevo y modificarlo.
//
// Una persona natural lleva sus apellidos y nombres aparte y el nombre completo se compone de
// ellos; una jurídica ("J") no los tiene. Un campo de cuenta que empieza por "?" abre el plan de
// cuentas en lo que sigue; con doble clic, en la cuenta escrita.
#include "datos/recordset/pregunta_en_campo.h"
#include "toolkit/pantalla.h"

#include <QSet>

class BarraBotones;
class CasillaDato;
class EditorDato;
class Formulario;
class ListaDato;
class MemoDato;
class QFrame;
class QPushButton;

class FormaTercero : public Pantalla {
    Q_OBJECT
public:
    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

protected:
    FormaTercero(const QString& clase, const QString& titulo);

    void CTercerosTERC_TIPOIDChange();
    void CTercerosBeforePost();
    void CTercerosTERC_CTACLIENTEChange(Campo& campo);
    void CTercerosCIUD_CODChange();
    void DBEdit9DblClick(EditorDato& editor);

    virtual void SBGrabarClick() = 0;
    /// Compone el nombre y revisa lo obligatorio; falso después de decir lo que falta.
    bool complete_y_valide(bool con_nit);
    /// Las filas de cliente y de proveedor que le falten según sus papeles.
    void agregue_papeles();

    bool natural() const;
    void habilite_nombres();
    Campo& campo(const QString& nombre) const { return CTerceros->FieldByName(nombre); }

    Proveedor *PTerceros, *PCiudades, *PPaises, *Ptipo_id, *PBorrar;
    ConjuntoDatos *CTerceros, *CCiudades, *CPaises, *Ctipo_id, *CBorrar;

    EditorDato *ENit, *DBEdit8, *EApellido1, *EApellido2, *ENombre1, *ENombre2, *ENombre;
    ListaDato* LTipoid;
    MemoDato* EObs;
    BarraBotones* barra_;
    QPushButton* SBGrabar;
    bool activada_ = false;

private:
    void defina_campos();
    bool tiene_papel(const QString& tabla);
    void agregue_cliente();
    void agregue_proveedor();
    // --- disposición, en forma_tercero_diseno.cpp
    void arme();
    void arme_identificacion(Formulario& f);
    void arme_ubicacion(Formulario& f);
    void arme_papeles(Formulario& f);
    void arme_cuentas(Formulario& f);
    EditorDato* editor(const QString& campo, const QString& nombre, int ancho = 0);
    ListaDato* lista(const QString& campo, const QString& nombre, ConjuntoDatos* tabla,
                     const QString& llave, const QString& columna);
    CasillaDato* casilla(const QString& texto, const QString& campo);

    void escoja_cuenta(Campo& campo, const QString& desde);
    /// Ubicado en el valor que el campo tiene.
    void abra_catalogo(const QString& pantalla, const char* campo);

    /// Campo de cuenta, de los que se revisan, cuyo código no está en el plan; vacío si ninguno.
    QString cuenta_que_no_existe();

    QFrame* panel_exento_;
    PreguntaEnCampo pregunta_;  ///< en las cuentas
    QSet<QString> por_revisar_; ///< campos de cuenta cambiados: alguna pudo quedar por crear
    bool obligatorios_ = false, releer_catalogos_ = false;
};
