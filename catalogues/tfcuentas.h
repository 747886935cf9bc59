#pragma once
// Lista de un plan de cuentas: mantenimiento y selector. La del libro NIIF se llama Tfcuentasniif.
//
// La abren con fdm().modo_mantenimiento (Enter modifica) o sin él (Enter escoge: deja el código en
// fdmcnt().cuenta_seleccion y se cierra). fdmcnt().cuenta_localizar es la fila en que se ubica y
// fdmcnt().texto_busqueda lo que busca al abrir; toma los dos y los vacía.
#include "catalogues/lista_catalogo.h"
#include "libro/libro.h"

class QPushButton;

class Tfcuentas : public ListaCatalogo {
    Q_OBJECT
public:
    explicit Tfcuentas(Libro libro = Libro::Decreto2649);

    void FormCreate() override;
    void FormActivate() override;

    /// Deja solo escoger y salir, con sus teclas: así la abre un selector modal.
    void oculte_botones();

protected:
    void sbBuscarClick() override;
    void SBNuevoClick() override;
    void SBModificarClick() override;
    void SBBorrarClick() override;
    void SBSelecClick() override;

private:
    void arme_botones();
    /// Abre la consulta de la cuenta actual, si puede llevar movimiento.
    void consulte_cuenta(const char* pantalla);
    void SBNormasClick();
    void pinte(int fila, QFont& letra, QColor& frente) const;

    const Libro libro_;
    const QString base_;
};

/// Abre el plan como selector modal, ubicado en `localizar` (vacío: al comienzo). Devuelve el
/// código escogido, o vacío si el usuario salió sin escoger.
QString escoja_cuenta(const QString& localizar = {}, Libro libro = Libro::Decreto2649);
