#pragma once
// "Nuevo valor activo": compara el valor en libros con lo que el activo puede recuperar y
// contabiliza la diferencia en el libro NIIF.
#include "catalogues/forma_proceso.h"

class Tfvalactivo : public FormaProceso {
    Q_OBJECT
public:
    Tfvalactivo();
    void FormCreate() override;

    /// Guarda el archivo como soporte. Lanza ErrorDatos si no se puede leer.
    void cargue_documento(const QString& ruta);

protected:
    void bajo_el_encabezado(Formulario& f) override;
    void botones_propios(BarraBotones& barra) override;
    void nueva_fila() override;
    void SBGrabarClick() override;
    Valor comprobante_hecho() const override;

private:
    QWidget* importe(const char* columna, const char* nombre);
    void lea_valor();
    void recalcule();
    void escoja_documento();

    QLineEdit *ECodigo, *EDocumento;
};
