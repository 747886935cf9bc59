#pragma once
// Los dos libros: decreto 2649 y NIIF. Lo que cambia de uno a otro es esta tabla de datos.
//
// Las pantallas gemelas son una sola clase con un argumento Libro; aquí están los nombres de
// tablas, procedimientos y textos que difieren, también las asimetrías que se conservan.
#include <QString>

enum class Libro { Decreto2649, Niif };

struct DatosLibro {
    Libro libro;
    const char* nombre;  ///< "2649", "NIIF"
    const char* cuentas; ///< tabla del plan de cuentas
    const char* detalle; ///< tabla de líneas de comprobante
    const char* plantilla_detalle;
    const char* sufijo;        ///< "" o "_niif", para procedimientos y tablas
    const char* sufijo_corto;  ///< "" o "_n"
    const char* valide_cuenta; ///< procedimiento de validación
    int tipo_auditoria;        ///< TIDO_COD con que se auditan sus líneas
    const char* cuenta_de;     ///< "cuenta" o "cuenta NIIF", para mensajes
    // mensajes de valide_cuenta, por código de error
    const char* no_existe;
    const char* incompleta;
    const char* inferior;
    const char* con_auxiliares;
    // pantallas
    const char* pantalla_cuentas;
    const char* pantalla_nueva_cuenta;
    const char* pantalla_modificar_cuenta;
    const char* pantalla_auxiliar;
    const char* descuadrado; ///< rechazo del libro sin cuadrar
    const char* categoria_inexistente;
};

const DatosLibro& datos(Libro libro);
inline bool es_niif(Libro libro) {
    return libro == Libro::Niif;
}
