#pragma once
// Líneas de una plantilla: las reglas de un comprobante, sin saldos ni configuración.
//
// Los atributos de la cuenta se leen siempre del plan 2649: una cuenta que solo existe en el NIIF
// se acepta y no tiene atributos.
#include "vouchers/lineas_libro.h"

class LineasPlantilla : public LineasLibro {
    Q_OBJECT
public:
    LineasPlantilla(Libro libro, AnfitrionLineas& anfitrion, ConjuntoDatos& detalle,
                    ConjuntoDatos& consulta, MemoriasLinea& memorias, const AjustesLinea& ajustes,
                    QObject* dueno);

    static void defina_campos(ConjuntoDatos& detalle);

    void validar_tercero() override;
    void validar_centro() override;
    const char* tabla_atributos() const override;

protected:
    void complete(Formulario& formulario) override;
    void AfterInsert() override;
    void base_cambiada() override;
    void comilla_de_referencia() override {}
    std::optional<int> digito() const override { return {}; }
};
