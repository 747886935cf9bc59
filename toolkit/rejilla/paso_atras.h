#pragma once
// Un paso atrás en una rejilla: cómo estaban sus filas antes de lo último que se pegó o se
// trajo de otra parte.
//
// Sigue a las filas mientras se agregan o borran otras. Leer el conjunto de nuevo, ordenarlo o
// filtrarlo lo olvida: ya no son las mismas filas.
#include "datos/recordset/conjunto.h"

#include <QObject>
#include <optional>

class Rejilla;

/// Pregunta si deshace `que` ("lo pegado") aunque lo que se hizo después también se pierda.
bool confirme_deshacer(const QString& que);

class PasoAtras : public QObject, public EnlaceDatos {
    Q_OBJECT
public:
    /// El de esa rejilla, que nace la primera vez que se pide.
    static PasoAtras& de(Rejilla& rejilla);

    /// Corre `cambio` y recuerda cómo estaba todo antes. `que` es como se nombra lo que se hizo.
    void con(const std::function<void()>& cambio, const QString& que = QStringLiteral("lo pegado"));
    /// Deja las filas como estaban, una sola vez; si después hubo otros cambios lo pregunta.
    void deshaga();

    // --- EnlaceDatos
    void filas_reiniciadas() override;
    void filas_insertadas(int desde, int cuantas) override;
    void filas_borradas(int desde, int cuantas) override;

private:
    using Valores = QVector<Valor>;
    explicit PasoAtras(Rejilla& rejilla);
    Valores valores_de(int fila) const;
    QVector<Valores> todas() const;
    void ponga(const Valores& valores);
    void reponga();

    Rejilla& rejilla_;
    QVector<std::optional<Valores>> antes_;   ///< por fila a la vista; nada: llegó después
    QVector<Valores> borradas_;               ///< estaban, y ya no
    std::optional<QVector<Valores>> despues_; ///< nulo: no hay a qué volver
    QString que_;
    bool sigue_ = false; ///< las filas se están siguiendo
};
