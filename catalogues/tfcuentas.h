#pragma once
// Lista de un plan de cuentas: mantenimiento y selector. La del libro NIIF se llama Tfcuentasniif.
//
// La abren con fdm().modo_mantenimiento (Enter modifica) o sin él (Enter escoge: deja el código en
// fdmcnt().cuenta_seleccion y se cierra). fdmcnt().cuenta_localizar es la fila en que se ubica y
// fdmcnt().texto_busqueda lo que busca al abrir; toma los dos y los vacía.
#include "core/libro.h"
#include "core/recordset/conjunto.h"
#include "toolkit/listabusqueda.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class Rejilla;

class Tfcuentas : public Pantalla {
    Q_OBJECT
public:
    explicit Tfcuentas(Libro libro = Libro::Decreto2649);

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    /// Deja solo escoger y salir, con sus teclas: así la abre un selector modal.
    void oculte_botones();

    void sbBuscarClick();
    void SBBorrarClick();
    void SBNuevaClick();
    void SBModificarClick();
    void SBSelecClick();

private:
    void arme_rejilla();
    void arme_botones();
    void consulte(const char* pantalla);
    void pinte(int fila, QFont& letra, QColor& frente) const;
    QString codigo() const { return CCuentas->FieldByName("CUEN_COD").texto(); }

    const Libro libro_;
    const QString base_;
    bool modo_mantenimiento_ = false;

    Proveedor *PCuentas, *PBorrar;
    ConjuntoDatos *CCuentas, *CBorrar;
    FilaBusqueda* busqueda_;
    Rejilla* DBGridEh1;
    BarraBotones* barra_;
    QPushButton *SBBorrar, *SBModificar, *SBNueva, *SBSaldos, *SBMovimiento, *SBSelec;
    QPushButton* SBNormas = nullptr;
};

/// Abre el plan como selector modal, ubicado en `localizar` (vacío: al comienzo). Devuelve el
/// código escogido, o vacío si el usuario salió sin escoger.
QString escoja_cuenta(const QString& localizar = {}, Libro libro = Libro::Decreto2649);
