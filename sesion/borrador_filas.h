#pragma once
// Borrador de lo que falta por grabar de unos conjuntos con sus anidados, cualesquiera que sean sus
// columnas: una hoja nueva, o lo que se corrige de lo que ya está en la base.
#include "sesion/archivo_borrador.h"

#include <QDateTime>
#include <QJsonArray>

class BorradorFilas : public ArchivoBorrador {
    Q_OBJECT
public:
    /// `que` distingue lo que se digita de lo demás de la compañía y el usuario. `hay`: vale la
    /// pena guardarlo; nulo, todo cambio.
    BorradorFilas(const QString& que, const QVector<ConjuntoDatos*>& conjuntos,
                  std::function<bool()> hay, QObject* dueno);

    struct Huerfano {
        QDateTime momento;                         ///< de la última tecla que guardó
        QVector<QJsonArray> cambios;               ///< por conjunto, como los da escriba_cambios()
        QString valor(const QString& campo) const; ///< de la primera fila del primer conjunto
        int detalles(const QString& con) const;    ///< filas de los anidados con ese campo
    };
    /// Si un programa murió digitando esto, pregunta por lo que dejó ("Hace 3 minutos " y la
    /// frase, que termina en pregunta) y lo repone. Una sola vez. Devuelve si repuso.
    bool ofrezca(const std::function<QString(const Huerfano&)>& frase);

protected:
    QByteArray contenido() const override;

private:
    std::optional<Huerfano> tome_huerfano();

    QVector<ConjuntoDatos*> conjuntos_;
    std::function<bool()> hay_;
};
