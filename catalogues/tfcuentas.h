#pragma once
// Lista de un plan de cuentas: mantenimiento y selector. La del libro NIIF se llama Tfcuentasniif.
//
// Con AbreLista en mantenimiento Enter modifica; si no, escoge: contesta el código a la PideCuenta
// con que la abrieron y se cierra. Esta trae también la fila en que se ubica y lo que busca.
#include "catalogues/lista_catalogo.h"
#include "libro/libro.h"

class QPushButton;

class Tfcuentas : public ListaCatalogo {
    Q_OBJECT
public:
    explicit Tfcuentas(Libro libro = Libro::Decreto2649);

    void FormCreate() override;

protected:
    void sbBuscarClick() override;
    void SBNuevoClick() override;
    void SBModificarClick() override;
    void SBBorrarClick() override;
    void SBSelecClick() override;

private:
    void arme_botones();
    /// Los nombres se sangran según el nivel de la cuenta en la estructura.
    void lea_niveles();
    /// Deja solo escoger y salir, con sus teclas: así la abre un selector modal.
    void oculte_botones();
    /// Abre la consulta de la cuenta actual, si puede llevar movimiento.
    void consulte_cuenta(const char* pantalla);
    void SBNormasClick();
    void pinte(int fila, QFont& letra, QColor& frente) const;

    const Libro libro_;
    const QString base_;
};
