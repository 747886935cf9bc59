#pragma once
// Compañía de demostración: una comercializadora con un año de movimiento en los dos libros.
//
// Lo genera un sorteo con semilla: la misma semilla y el mismo volumen dan el mismo libro, que es
// lo que pide medir. Ventas con IVA y retenciones, compras, gastos, recaudos, pagos, nómina,
// bancos, impuestos y depreciación (distinta en cada libro), sobre saldos iniciales cuadrados. Del
// año siguiente hay tres meses de documentos de los módulos hermanos por contabilizar.
#include "datos/firebird/conexion.h"

#include <functional>

struct OpcionesDemostracion {
    /// Renglones 2649 por generar; 0 da el año normal, de unos 2.000 comprobantes. Con más, los
    /// mismos meses llevan más documentos.
    qint64 renglones = 0;
    quint64 semilla = 2018;
    int ano = 2017;
};

struct ResultadoDemostracion {
    qint64 comprobantes = 0, renglones = 0, renglones_niif = 0;
    int documentos = 0;  ///< de los módulos hermanos, sin contabilizar
    int defectuosos = 0; ///< los que a propósito no se contabilizan limpios
};

/// Llena una compañía recién creada (con su general) y registra a ADMIN, administrador, y a
/// AUXILIAR, con algunas opciones negadas. `aviso` recibe el nombre de cada mes; puede ser nulo.
ResultadoDemostracion genere_demostracion(Conexion& general, Conexion& compania,
                                          const OpcionesDemostracion& opciones = {},
                                          const std::function<void(const QString&)>& aviso = {});

/// Opciones de contabilidad que AUXILIAR no tiene.
QVector<int> opciones_negadas_demo();
