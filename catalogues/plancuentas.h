#pragma once
// Lo que cambia de un plan de cuentas al otro en sus pantallas, y los campos de sus tablas.
#include "libro/libro.h"

#include <QStringList>

class ConjuntoDatos;

struct PlanCuentas {
    const char* titulo_lista;
    const char* titulo_nueva;
    const char* titulo_modificar;
    const char* nombre_archivo; ///< el que propone "Guardar selección"
    const char* pantalla_saldos;
    bool con_puc; ///< la cuenta nueva puede venir del plan publicado
    bool con_equivalencia;
    bool con_auditoria;
    bool con_normas;
};
const PlanCuentas& plan(Libro libro);

/// Clases de cuenta: los códigos que se guardan y cómo se leen, en el mismo orden.
struct ClasesCuenta {
    QStringList codigos, nombres;
};
const ClasesCuenta& clases_cuenta();

/// Columnas que enseña la lista de cuentas.
void campos_lista_cuentas(ConjuntoDatos& cuentas);
/// Columnas que se digitan de una cuenta. CUEN_AFECTABLE no está: lo lleva la base, y leerlo haría
/// chocar la grabación con un auxiliar que otro usuario acabe de crear.
void campos_ficha_cuenta(ConjuntoDatos& cuentas);
