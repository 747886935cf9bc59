#pragma once
// Borrador de lo que se digita en una hoja o en un encabezado con sus líneas, cualesquiera que sean
// sus columnas.
#include "vouchers/archivo_borrador.h"

#include <QDateTime>

class BorradorFilas : public ArchivoBorrador {
    Q_OBJECT
public:
    /// `hay`: lo digitado vale la pena guardarlo.
    BorradorFilas(const QString& llave, const QVector<ConjuntoDatos*>& conjuntos,
                  std::function<bool()> hay, QObject* dueno);

    using FilaGuardada = QMap<QString, QString>; ///< por campo, sin los vacíos
    struct Huerfano {
        QDateTime momento;                    ///< de la última tecla que guardó
        QVector<QVector<FilaGuardada>> filas; ///< por conjunto
    };
    std::optional<Huerfano> tome_huerfano();
    /// Vuelve a poner las filas, sin preguntar por ellas. El conjunto que ya tiene una en inserción
    /// la llena; a los demás se les agregan, y una a la que le falte algo obligatorio queda en
    /// edición, para completarla.
    void reponga(const Huerfano& huerfano);

protected:
    QByteArray contenido() const override;

private:
    static void agregue(ConjuntoDatos& conjunto, const QVector<FilaGuardada>& filas);

    QVector<ConjuntoDatos*> conjuntos_;
    std::function<bool()> hay_;
};
