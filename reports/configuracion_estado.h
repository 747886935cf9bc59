#pragma once
// Cuentas que alimentan un estado de cambios: la tabla en una rejilla, con la cuenta validada.
#include "catalogues/rejilla_catalogo.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "libro/libro.h"

struct DatosConfiguracion {
    const char *pantalla, *titulo, *tabla, *archivo;
    QString prefijo; ///< de los campos: "CASI_"
    QStringList secciones;
};

class ConfiguracionEstado : public RejillaCatalogo {
    Q_OBJECT
public:
    explicit ConfiguracionEstado(const DatosConfiguracion& datos);
    void FormCreate() override;

protected:
    /// El libro en que se busca y valida la cuenta.
    virtual Libro libro() const { return Libro::Decreto2649; }
    /// Lo propio de una fila nueva; el número se lo da la base.
    virtual void fila_nueva() {}
    QString columna(const char* nombre) const { return datos_.prefijo + QLatin1String(nombre); }

    const DatosConfiguracion datos_;

private:
    void AfterInsert();
    void cuenta_cambiada(Campo& cuenta);

    PreguntaEnCampo pregunta_;
};
