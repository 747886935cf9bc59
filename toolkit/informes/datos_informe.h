#pragma once
// Filas de un informe: lo que el compositor necesita de un conjunto de registros.
#include "datos/recordset/conjunto.h"

namespace informes {

/// Filas que se recorren una vez, de la primera a la última.
class DatosInforme {
public:
    virtual ~DatosInforme() = default;
    /// Posición de una columna por su nombre, sin distinguir mayúsculas; -1 si no existe.
    virtual int columna(const QString& nombre) const = 0;
    virtual bool primera() = 0;
    virtual bool siguiente() = 0;
    virtual Valor valor(int columna) const = 0;
};

/// Las filas de un conjunto de datos, con sus columnas calculadas.
class DatosConjunto : public DatosInforme {
public:
    explicit DatosConjunto(ConjuntoDatos& conjunto) : conjunto_(conjunto) {}
    int columna(const QString& nombre) const override {
        for (int i = 0; i < conjunto_.FieldCount(); ++i)
            if (conjunto_.Fields(i).FieldName.compare(nombre, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    }
    bool primera() override {
        conjunto_.First();
        return !conjunto_.IsEmpty();
    }
    bool siguiente() override {
        conjunto_.Next();
        return !conjunto_.Eof();
    }
    Valor valor(int columna) const override { return conjunto_.Fields(columna).valor(); }

private:
    ConjuntoDatos& conjunto_;
};

} // namespace informes
