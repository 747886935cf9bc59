#pragma once
// Lo que los tres pasos del asistente de importación se pasan, y lo que se recuerda de uno a otro.
#include "exchange/datos_importacion.h"
#include "exchange/importacion.h"

/// Lo escogido en los pasos anteriores.
struct AsistenteImportacion {
    int tipo = 4;    ///< IMIN_TIPO
    int formato = 1; ///< 0 de ancho fijo, 1 delimitado
    QString archivo;
    bool niif = false;
    int separador = 0, delimitador = 0; ///< posición en sus listas
    ClaseImportacion clase() const { return ClaseImportacion(tipo); }
};

/// Por cada clase de datos, el último archivo y sus columnas, de cada usuario.
AsistenteImportacion recordado(int tipo);
void recuerde(const AsistenteImportacion& asistente);
QVector<ColumnaImportacion> columnas_recordadas(int tipo);
void recuerde_columnas(int tipo, const QVector<ColumnaImportacion>& columnas);

/// Los renglones rechazados de la última importación o del último ensayo de este programa.
struct AbreRechazos {
    ResultadoImportacion resultado;
    QString archivo;
};
const AbreRechazos& ultima_importacion();
void recuerde_importacion(const AbreRechazos& rechazos);
/// F8 de los tres pasos.
void muestre_rechazos();
