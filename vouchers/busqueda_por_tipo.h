#pragma once
// Lista de consulta con filtros por tipo: la comparten la búsqueda de comprobantes, la de los de un
// tercero y la de plantillas.
#include "datos/recordset/conjunto.h"
#include "toolkit/rejilla/rejilla.h"
#include "vouchers/filtros_busqueda.h"

class BarraBotones;

/// Opciones de acceso de las plantillas y las planillas.
inline constexpr int kCrear = 40, kConsultar = 41, kBorrar = 42;

class BusquedaPorTipo : public Pantalla {
    Q_OBJECT
public:
    bool FormClose() override;

protected:
    /// `conjunto`: nombre del resultado ("CComproba"); el proveedor lleva P en vez de C.
    BusquedaPorTipo(const QString& clase, const QString& titulo, Sentencia& sentencia,
                    const QString& conjunto);

    Proveedor PTipodoc, PBorrar, proveedor_;
    ConjuntoDatos CTipodoc, CVirtual, CBorrar, conjunto_;
    FiltrosBusqueda* filtros_ = nullptr;
    BarraBotones* barra_ = nullptr;

    void construya_filtros(const QVector<FiltroTexto>& filtros, const char* nombre_boton,
                           bool con_fila, const Formulario::Par& antes = {});
    /// Rejilla de consulta sobre el resultado, con el nombre de archivo que propone al guardar.
    Rejilla* rejilla(const char* nombre, const QVector<DefinicionColumna>& columnas,
                     const QString& archivo, Rejilla::Orden orden_imprimir);
    /// Une los proveedores y llena la lista de tipos, con "Todos" escogido.
    void abra_tipos();
    /// Rehace la condición con lo que hay en los controles.
    void compone_query();
    /// Compone, cierra, cambia el texto y abre. Si la base lo rehúsa, el resultado queda cerrado.
    void busque(const QString& orden);
    bool hay_fila() const { return conjunto_.Active() && !conjunto_.IsEmpty(); }
    QString dato(const char* campo) const;
    void editar_comprobante(const QString& id);

    // el texto en dos piezas, que la pantalla conserva de una búsqueda a otra
    QString fijo_, condicion_;
    QString condicion_base_; ///< " where id > 0 ", o nada
    QString columna_tipo_ = QStringLiteral("tico_cod");
};
