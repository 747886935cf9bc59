#pragma once
// Pantalla de configuración de una sola rejilla: F2 graba y sigue abierta, Esc sale.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/columna_rejilla.h"

class Rejilla;

class RejillaConfiguracion : public Pantalla {
    Q_OBJECT
public:
    void FormCreate() override;
    bool FormClose() override;

    ConjuntoDatos* CCambiosit;
    Rejilla* DBGridEh1 = nullptr;

protected:
    RejillaConfiguracion(const QString& clase, const QString& titulo, const QString& sql);
    /// Cuando los campos ya están definidos.
    void arme(const QVector<DefinicionColumna>& columnas, const QString& nombre_archivo);
    /// Detiene la grabación de la fila con ese mensaje.
    [[noreturn]] static void rehuse(const QString& texto);
};
