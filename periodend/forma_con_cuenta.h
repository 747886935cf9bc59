#pragma once
// Proceso que trabaja sobre una cuenta del plan: su caja, con el nombre al lado. "?texto" o el
// doble clic abren el plan; la que no existe se rechaza.
#include "catalogues/forma_proceso.h"
#include "libro/libro.h"

class FormaConCuenta : public FormaProceso {
protected:
    using FormaProceso::FormaProceso;

    /// El campo de la fila y su caja, de nombre `caja`; con tantos caracteres para el nombre.
    void arme_cuenta(const char* campo, const char* etiqueta, const char* caja, int caracteres);
    /// El plan en que se busca.
    virtual Libro libro() const { return Libro::Decreto2649; }
    void CUEN_CODChange();

    EditorDato* ECta = nullptr;
    QLineEdit* NomCta = nullptr;

private:
    void escoja_la_cuenta(const QString& texto);

    const char* cuenta_ = nullptr;
};
