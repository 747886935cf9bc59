#pragma once
// Las filas a la vista de un conjunto, para escribirlas en un archivo sin mover su cursor.
#include "datos/recordset/conjunto.h"
#include "tax/medio_xml.h"

class FilasConjunto : public FilasMedio {
public:
    explicit FilasConjunto(ConjuntoDatos& conjunto) : conjunto_(conjunto) { conjunto.FetchAll(); }
    bool siguiente() override { return ++fila_ < conjunto_.RecordCount(); }
    QString texto(const QString& columna) const override {
        return conjunto_.valor_en(fila_, conjunto_.FieldByName(columna)).texto();
    }

private:
    ConjuntoDatos& conjunto_;
    int fila_ = -1;
};
