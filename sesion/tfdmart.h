#pragma once
// Módulo de datos de artículos: lo que la contabilidad necesita del inventario.
#include "datos/recordset/conjunto.h"

class TfdmArt : public QObject {
    Q_OBJECT
public:
    TfdmArt();
    ~TfdmArt() override;

    Sentencia TArticulo, QArticulos, QConsulta;

    bool valide_articulo(const QString& codigo); ///< "Código no encontrado"
    QString desc_articulo(const QString& codigo);
    Moneda ultimo_costo(const QString& codigo, const QString& bodega);
    Moneda ultimo_costo_niif(const QString& codigo, const QString& bodega);
    Moneda costo_promedio(const QString& codigo, const QString& bodega);
    Moneda costo_promedio_niif(const QString& codigo, const QString& bodega);
    bool tiene_movimiento(const QString& codigo);
};

TfdmArt& fdmArt();
