#pragma once
// Base de las pantallas que crean y modifican una cuenta: los controles de la ficha y sus reglas.
#include "datos/recordset/conjunto.h"
#include "libro/libro.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class CasillaDato;
class EditorDato;
class Formulario;
class ListaDato;
class QLabel;
class QToolButton;

class FichaCuenta : public Pantalla {
    Q_OBJECT
public:
    Libro libro() const { return libro_; }

    // --- eventos
    bool FormClose() override;
    void CkRetencionesClick();
    void CCuentasCUEN_EQNIIFChange();
    void ECtaAjusDblClick();

protected:
    FichaCuenta(const QString& clase, const QString& titulo, Libro libro);

    /// Controles de la ficha, del código hacia abajo; `barra` queda al pie.
    void arme_ficha();
    virtual void arme_botones() = 0;
    /// El porcentaje y la base solo se digitan en una cuenta de retención.
    void habilite_retencion(bool si);
    /// La marca de retención pasa al campo solo en este estado del conjunto.
    virtual Estado estado_de_trabajo() const = 0;
    /// Falso, con su mensaje, si falta el nombre.
    bool hay_nombre();
    /// Falso, con su mensaje, si la cuenta NIIF equivalente que se puso no existe.
    bool hay_equivalente();
    QString tabla() const { return datos(libro_).cuentas; }
    QString codigo() const { return CCuentas->FieldByName("CUEN_COD").texto(); }

    const Libro libro_;
    Proveedor *PCuentas, *PBorrar;
    ConjuntoDatos *CCuentas, *CBorrar;

    EditorDato *ECodigo, *ENombre, *EPorcentaje, *EBase, *ECtaAjuste, *ECtaCorreccion, *ENorma;
    EditorDato* ECtaAjus = nullptr; ///< cuenta NIIF equivalente
    CasillaDato *CkTerceros, *CkCentros, *CkRetenciones, *CkAjusteDb, *CkActiva;
    ListaDato* LTipo;
    QLabel *NomCtaniif = nullptr, *LabAudit = nullptr;
    BarraBotones* barra_;
    QString equivalente_antes_; ///< la que la cuenta ya tenía no estorba para corregir lo demás
};
