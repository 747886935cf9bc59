#pragma once
// Documentos de los módulos hermanos: su valor, la única forma de escribirlos y su archivo de
// texto.
//
// El formato del archivo está en docs/documentos.md.
#include "datos/firebird/conexion.h"
#include "herramientas/renglones.h"

#include <optional>

/// Un importe de un concepto; los textos vacíos y las fechas inválidas van nulos.
struct LineaDocumento {
    QString concepto, clase;
    Moneda valor;
    std::optional<Moneda> valor_niif; ///< sin él, el mismo en los dos libros
    Moneda base, porcentaje;
    QString nit, proyecto, centro, articulo, detalle;
    int tipo_aplica = 0; ///< TIDO_COD del documento al que se aplica
    QString aplica;
    int renglon = 0; ///< del archivo del que salió
};

struct DocumentoSuite {
    int tipo = 0;
    QString prefijo = QStringLiteral("0000"), numero;
    QDate fecha, vence;
    QString concepto, referencia, nit, proyecto, centro;
    int banco = 0;
    Moneda total;
    QString contado; ///< "S", "N" o vacío: lo dice la autorización del prefijo
    QString cufe;
    QVector<LineaDocumento> lineas;
    int renglon = 0;
};

/// Escribe documentos en la transacción de quien lo crea.
class EscritorDocumentos {
public:
    explicit EscritorDocumentos(Transaccion& transaccion);
    /// Devuelve el id. El número de un documento anulado se puede volver a usar. Lanza ErrorBase si
    /// la base lo rehúsa.
    int escriba(const DocumentoSuite& documento);

private:
    Transaccion& transaccion_;
    Preparada anulado_, encabezado_, linea_;
};

/// Documentos de un archivo de texto. Lanza ErrorDatos con todo lo que esté mal, por renglón: lo
/// que la base no conoce (tipos, conceptos, terceros, centros, artículos) también.
QVector<DocumentoSuite> lea_documentos(Conexion& conexion, const QString& archivo);
/// Los lee y los escribe todos o ninguno; devuelve cuántos.
int cargue_documentos(Conexion& conexion, const QString& archivo);

struct FiltroDocumentos {
    QDate desde, hasta; ///< sin fecha, sin límite
    int tipo = 0;       ///< 0: todos
    bool pendientes = false;
};
/// Los documentos vigentes en la forma del archivo, por fecha.
QString liste_documentos(Conexion& conexion, const FiltroDocumentos& filtro);
/// Anula el documento "tipo/prefijo/número"; se lleva su comprobante. Lanza ErrorDatos si no
/// existe.
void anule_documento(Conexion& conexion, const QString& cual, const QString& usuario);
