#pragma once
// Una prueba cuyos casos parten cada uno de una copia nueva de la plantilla.
#include "apoyo/base_prueba.h"
#include "apoyo/comprobantes.h"

#include <QObject>
#include <optional>

class PruebaConBase : public QObject {
    Q_OBJECT
protected slots:
    void init() { base_.emplace(); }

protected:
    Conexion& base() { return base_->base(); }
    QString filas(const QString& sql) { return filas_de(base(), sql); }

    std::optional<BaseDePrueba> base_;
};
