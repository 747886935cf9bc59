#pragma once
// "Cierre de terceros": pasa a un solo tercero lo que los demás tienen en una cuenta.
#include "catalogues/forma_proceso.h"
#include "libro/libro.h"

class Tfcierreter : public FormaProceso {
    Q_OBJECT
public:
    Tfcierreter();

protected:
    void complete(Formulario& f) override;

private:
    Libro libro() const;
    void CUEN_CODChange(Campo& cuenta);
    void escoja_la_cuenta(const QString& texto);

    EditorDato* ECta;
    QLineEdit* NomCta;
};
