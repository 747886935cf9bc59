#pragma once
// Borrador de las filas que se digitan en una hoja, cualesquiera que sean sus columnas.
#include "vouchers/archivo_borrador.h"

#include <QDateTime>

class BorradorFilas : public ArchivoBorrador {
    Q_OBJECT
public:
    BorradorFilas(const QString& llave, ConjuntoDatos& hoja, QObject* dueno);

    struct Huerfano {
        QDateTime momento;                     ///< de la última tecla que guardó
        QVector<QMap<QString, QString>> filas; ///< por campo, sin los vacíos
    };
    std::optional<Huerfano> tome_huerfano();
    /// Agrega a la hoja sus filas, sin volver a preguntar por ellas. Una a la que le falte algo
    /// obligatorio queda en edición, para completarla.
    void reponga(const Huerfano& huerfano);

protected:
    QByteArray contenido() const override;

private:
    ConjuntoDatos& hoja_;
};
