#pragma once
// Datos que la importación entiende de cada clase de archivo, y cómo lee el texto de cada uno.
#include "datos/firebird/valor.h"

#include <QByteArray>
#include <QVector>

/// IMIN_TIPO; los menores son del módulo de inventario.
enum class ClaseImportacion { Cuentas = 4, Terceros = 5, Comprobantes = 6, Saldos = 7 };

struct DatoImportacion {
    enum Clase {
        Texto,
        Codigo,
        Bandera, ///< "S" o "N"
        Clases,  ///< clase de cuenta: "N", "I", "C" o "A"
        Importe,
        Tasa,
        Entero,
        Fecha, ///< "aaaammdd", mes 01 a 13
    };
    const char* clave;
    const char* rotulo; ///< como lo nombran los mensajes
    Clase clase = Texto;
    int largo = 0; ///< caracteres de un texto
};

/// En el orden en que se ofrecen.
const QVector<DatoImportacion>& datos_de(ClaseImportacion clase);
/// Nulo si la importación no lo entiende.
const DatoImportacion* dato_de(ClaseImportacion clase, const QString& clave);

/// Lo leído en una columna, o por qué no sirve, nombrando el dato.
struct DatoLeido {
    Valor valor;     ///< vacío es nulo; un importe sin digitar, también
    QString rechazo; ///< vacío si sirve
};
/// Los espacios de los lados no cuentan. Un importe admite coma o punto decimal, con dos decimales;
/// "1.250", que se lee de dos maneras, se rehúsa. Un octeto que no es un carácter, también.
DatoLeido lea_dato(const DatoImportacion& dato, const QByteArray& octetos);
