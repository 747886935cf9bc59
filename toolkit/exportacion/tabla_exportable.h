#pragma once

#include "datos/firebird/moneda.h"

#include <QDate>
#include <QString>
#include <optional>
#include <variant>
#include <vector>

/// Valor de una celda. El vacío (monostate) no escribe nada; el tipo que lleva manda sobre el de la
/// columna, de modo que una columna de fechas puede traer el texto "20181301" de un mes 13.
using ValorExportable = std::variant<std::monostate, QString, qint64, Moneda, QDate, bool>;

enum class TipoExportable { Texto, Entero, Moneda, Fecha, Casilla };

struct ColumnaExportable {
    QString titulo;
    TipoExportable tipo = TipoExportable::Texto;
    int decimales = 2; ///< Solo Moneda, de 0 a 4.
    int ancho = 0;     ///< En caracteres, para el libro; con 0 se mide. Los demás siempre miden.
    std::optional<Qt::AlignmentFlag> alineacion; ///< Sin ella decide el tipo.

    Qt::AlignmentFlag lado() const;
};

/// Lo que una rejilla o un conjunto de registros entrega para salir a un archivo o a la impresora:
/// columnas visibles con su título y filas una tras otra, sin retenerlas en memoria.
///
/// Los escritores recorren la tabla varias veces (medir, escribir): cada `inicie` tiene que dar las
/// mismas filas. Quien quiera mostrar avance o cancelar lo hace en `siguiente`: una excepción de la
/// tabla deja el archivo anterior como estaba.
class TablaExportable {
public:
    virtual ~TablaExportable() = default;

    virtual QString titulo() const = 0;
    virtual int columnas() const = 0;
    virtual ColumnaExportable columna(int indice) const = 0;

    /// Vuelve antes de la primera fila.
    virtual void inicie() = 0;
    /// Pasa a la fila siguiente; falso cuando no hay más.
    virtual bool siguiente() = 0;
    virtual ValorExportable valor(int indice) const = 0;
    /// Texto tal como se ve en pantalla; por omisión el de `texto_valor`.
    virtual QString texto(int indice) const;
    /// Niveles que entra el texto de la celda, de 0 a 15. Solo el libro los lleva.
    virtual int sangria(int indice) const { return 0; }

    /// Fila de sumas. Se lee después de la última fila.
    virtual bool tiene_pie() const { return false; }
    virtual ValorExportable pie(int indice) const { return {}; }
    virtual QString texto_pie(int indice) const;
};

/// "1234.50": sin separador de miles y exacto, con más decimales que los pedidos si hacen falta.
QString texto_exacto(Moneda importe, int decimales);
/// Texto por omisión de un valor: fechas aaaa/mm/dd, casillas "S" o "N".
QString texto_valor(const ValorExportable& valor, int decimales);
/// El texto en un solo renglón: los saltos, tabuladores y demás controles quedan como un espacio.
QString en_una_linea(const QString& texto);

struct MedidaColumna {
    int caracteres = 0;     ///< Del título, la celda y el pie más largos.
    QString dato_mas_largo; ///< De las celdas y el pie.
};

struct MedidaTabla {
    qint64 filas = 0; ///< Sin títulos ni pie.
    std::vector<MedidaColumna> columnas;
};

/// Recorre la tabla entera una vez, sobre los textos en un solo renglón.
MedidaTabla mida_tabla(TablaExportable& tabla);
std::vector<ColumnaExportable> columnas_de(const TablaExportable& tabla);
