#pragma once
// Campo de un conjunto de datos: definición de la columna y acceso a su valor en la fila actual.
#include "datos/firebird/valor.h"

#include <QString>
#include <functional>

class ConjuntoDatos;

/// Formatos de los importes: el cero, en blanco o escrito.
inline constexpr const char* kImporte = "#,###.00";
inline constexpr const char* kImporteConCero = "#,##0.00";

enum class ClaseCampo { Texto, Entero, Decimal, Fecha, Hora, FechaHora, Memo, Blob, Conjunto };
enum class TipoCampo {
    Datos,
    Calculado, ///< lo pone OnCalcFields
    Interno,   ///< lo asigna la pantalla; vive en la fila y no viaja a la base
    Busqueda,
};

enum BanderaProveedor : unsigned { pfInUpdate = 1, pfInWhere = 2, pfInKey = 4 };

enum class Alineacion { Izquierda, Derecha, Centro };

class Campo {
public:
    // --- definición (se declara una vez, antes de abrir)
    QString FieldName;
    ClaseCampo clase = ClaseCampo::Texto;
    TipoCampo tipo = TipoCampo::Datos;
    int Size = 0; ///< caracteres de un texto, decimales de un decimal
    bool Required = false;
    bool FixedChar = false;
    bool ReadOnly = false;
    bool Visible = true;
    bool Tasa = false; ///< un porcentaje: al digitarlo, un solo separador siempre es el decimal
    QString DisplayLabel;
    QString DisplayFormat; ///< "#,###.00" o "#,##0.####"
    QString EditMask;
    Alineacion Alignment = Alineacion::Izquierda;
    unsigned ProviderFlags = pfInUpdate | pfInWhere;
    QString DefaultExpression; ///< valor con que nace el campo en una fila nueva
    // búsqueda: valor de LookupResultField donde LookupKeyFields es igual a KeyFields
    ConjuntoDatos* LookupDataSet = nullptr;
    QString KeyFields, LookupKeyFields, LookupResultField;

    std::function<void(Campo&)> OnChange; ///< tras cada asignación, del usuario o del código
    std::function<void(Campo&, const Valor&)> OnValidate; ///< antes de guardar; lanza para rehusar

    // --- valor en la fila actual
    Valor valor() const;
    QString texto() const { return valor().texto(); }
    qint64 entero() const { return valor().entero(); }
    Moneda moneda() const { return valor().moneda(); }
    QDate fecha() const { return valor().fecha(); }
    bool nulo() const { return valor().nulo(); }
    /// Vacío: nulo o texto sin caracteres.
    bool vacio() const { return texto().isEmpty(); }
    /// Guarda en la fila en edición, convirtiendo a la clase del campo, y dispara OnChange.
    /// Lanza ErrorDatos si el valor no se puede convertir, no cabe, no es de ISO 8859-1 o el
    /// conjunto no está en edición.
    void asigne(const Valor& valor);
    Campo& operator=(const Valor& v) {
        asigne(v);
        return *this;
    }
    void limpie() { asigne(Valor()); }
    /// Valor como lo muestra una pantalla: con DisplayFormat y sin ceros de más.
    QString presentado() const { return presente(valor()); }
    QString presente(const Valor& valor) const { return presente(valor, DisplayFormat); }
    /// Con otro formato: el de la columna de una rejilla. Vacío: el propio.
    QString presente(const Valor& valor, const QString& formato) const;
    /// Convierte un valor a la clase del campo; lanza ErrorDatos con el nombre del campo.
    Valor convierta(const Valor& valor) const;
    Valor convierta_texto(QString texto) const;
    Valor convierta_entero(const Valor& valor) const;
    Valor convierta_decimal(const Valor& valor) const;
    [[noreturn]] Valor rehuse(const Valor& valor, const QString& que) const; ///< lanza ErrorDatos

    QString etiqueta() const { return DisplayLabel.isEmpty() ? FieldName : DisplayLabel; }
    /// Como lo nombran los mensajes: su rótulo, o sus palabras en el diccionario de la compañía.
    QString nombre_visible() const;
    ConjuntoDatos& conjunto() const { return *conjunto_; }
    int indice() const { return indice_; }
    int columna() const { return columna_; } ///< posición en el resultado, -1 si no viene de él
    bool numerico() const { return clase == ClaseCampo::Decimal || clase == ClaseCampo::Entero; }

    // definición encadenada
    Campo& requerido() {
        Required = true;
        return *this;
    }
    Campo& fijo() {
        FixedChar = true;
        return *this;
    }
    Campo& etiqueta(const QString& e) {
        DisplayLabel = e;
        return *this;
    }
    Campo& formato(const QString& f) {
        DisplayFormat = f;
        return *this;
    }
    Campo& tasa() {
        Tasa = true;
        return *this;
    }
    Campo& mascara(const QString& m) {
        EditMask = m;
        return *this;
    }
    Campo& banderas(unsigned b) {
        ProviderFlags = b;
        return *this;
    }
    Campo& defecto(const QString& d) {
        DefaultExpression = d;
        return *this;
    }
    Campo& al_cambiar(std::function<void(Campo&)> f) {
        OnChange = std::move(f);
        return *this;
    }

    Campo(const Campo&) = delete;
    Campo& operator=(const Campo&) = delete;

private:
    friend class ConjuntoDatos;
    explicit Campo(ConjuntoDatos& conjunto) : conjunto_(&conjunto) {}
    ConjuntoDatos* conjunto_;
    int indice_ = -1;    ///< posición en la lista de campos
    int columna_ = -1;   ///< posición en el resultado del servidor
    int calculado_ = -1; ///< posición entre los calculados
};
