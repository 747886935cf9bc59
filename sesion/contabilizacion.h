#pragma once
// Contabilización de los documentos de los módulos hermanos: la mitad del cliente.
//
// La contabilidad la hace un procedimiento por clase de documento, CONTABIL_*, y su gemelo del
// libro NIIF; dejan una propuesta y sus fallas en ERRORES. Aquí se llaman, se decide si corre el
// gemelo y se leen las fallas. Nada de esto muestra nada: lo que hay que decir se entrega. Las
// operaciones de cada área, con su nombre, están en sesion/modulos_suite.h.
#include <QDate>
#include <QStringList>
#include <QVector>
#include <functional>
#include <optional>

enum class AreaSuite {
    Nomina,
    Facturacion,
    Inventario,
    CuentasPorPagar,
    Caja,
    Cartera,
    Compras,
    Bancos,
    Clientes
};

/// Lo que queda de contabilizar un documento.
struct Contabilizado {
    int cntb_id = 0;           ///< la propuesta; 0 si no la hay. Con fallas también puede haberla
    bool confirmar = false;    ///< una persona debe revisarla
    QStringList mensajes = {}; ///< fallas, cada una en su mensaje
};

/// Procedimientos de una clase de documento y los códigos con que quedan sus fallas. Los que no son
/// el del documento son los que esperan los módulos ya instalados.
struct ClaseContable {
    const char* procedimiento;
    const char* gemelo; ///< nulo: sin libro NIIF propio
    int errores, errores_niif = 0;
    /// Los dos mensajes de fallas dicen el libro.
    bool dice_libro = false;
};

/// Corre el procedimiento y, si quedó limpio y la fecha es del año de apertura NIIF o posterior, su
/// gemelo sobre la misma propuesta. Deja el resultado en Tfdm::confirmar_contabilizacion. Lanza
/// ErrorDatos si el año de apertura no es un número: la propuesta 2649 ya queda.
Contabilizado contabilice(const ClaseContable& clase, int id_documento, int id_interfaz,
                          const QDate& fecha);
/// Los que no tienen gemelo; sin interfaz, el procedimiento recibe solo el documento.
Contabilizado contabilice_sin_gemelo(const ClaseContable& clase, int id_documento,
                                     std::optional<int> id_interfaz);
/// Los de nómina: la propuesta es la segunda columna, y confirmar lo dice la interfaz del tipo.
Contabilizado contabilice_de_nomina(const ClaseContable& clase, int id_documento, int tido_cod);
/// El gemelo por aparte, sobre una propuesta que ya existe; no toca confirmar_contabilizacion.
Contabilizado contabilice_gemelo(const char* gemelo, int codigo_errores, int id_documento,
                                 int id_interfaz, int cntb_id);

struct InterfazContable {
    int id = 0;
    QString nombre = {};
};
/// Las interfaces de un tipo de documento y prefijo; en bancos también de una cuenta, si se da.
QVector<InterfazContable> interfaces_contables(AreaSuite area, int tido_cod,
                                               const QString& pref_pre,
                                               std::optional<int> cuba_cod = {});
/// Quien escoge entre varias; nulo si desiste.
using EscogeInterfaz = std::function<std::optional<int>(const QVector<InterfazContable>&)>;
struct InterfazAbierta {
    int id = 0;           ///< 0: ninguna
    QString mensaje = {}; ///< por qué no la hay, o vacío
};
