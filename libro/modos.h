#pragma once
// En qué difieren los que graban y los que borran comprobantes. Cada diferencia que se conserva es
// una columna de estas tablas; el procedimiento es uno solo.
#include <QString>
#include <QVector>

/// Quién graba.
enum class Grabador {
    Digitar,          ///< F2 de Tfmovimien
    DigitarEntraNiif, ///< Tfmovimien, al pasar a la página NIIF
    DigitarSaleNiif,  ///< ...y al volver
    Editar,           ///< F2 de Tfedtmovimien
    EditarEntraNiif,
    EditarSaleNiif,
    Lote, ///< sin pantalla: importación, planillas, cierres
};

struct ModoGrabacion {
    Grabador quien;
    bool prueba_2649 = false,
         prueba_niif = false;        ///< libros cuyo cuadre se prueba, si tienen líneas
    bool niif_solo_con_2649 = false; ///< con el 2649 vacío no se prueba ninguno de los dos
    bool vuelve_a_edicion = false;   ///< la fila actual del libro descuadrado vuelve a edición
    bool nuevo = false;              ///< respeta los bloqueos; un número automático tomado avanza
    bool encabezado_viaja = false;   ///< siempre hay un update, con un blanco que va y viene
    bool revisa_celdas = false;  ///< quien graba no pasó por las celdas: se revisa dato por dato
    bool rehusa_vacio = false;   ///< sin líneas en ningún libro no se graba
    bool revisa_nacidas = false; ///< a las réplicas que nacieron en la base no puede faltarles nada
};
const ModoGrabacion& modo_de(Grabador quien);

/// Una orden del borrado; todas van en una transacción, en el orden de su renglón.
enum class OrdenBorrado {
    Lineas2649,
    LineasNiif,
    Firma,     ///< el encabezado que se va nombra a quien lo borra
    FirmaCero, ///< la misma orden, sobre el comprobante 0
    Encabezado,
};

struct ModoBorrado {
    const char* pantalla;
    bool exige_derecho; ///< la opción 32, antes de todo
    QVector<OrdenBorrado> ordenes;
    const char* aviso = ""; ///< antecede a la pregunta
};
/// Renglón de la pantalla; lanza ErrorDatos si no borra comprobantes.
const ModoBorrado& modo_borrado(const QString& pantalla);
