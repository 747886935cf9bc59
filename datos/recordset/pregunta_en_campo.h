#pragma once
// "?texto" digitado en un campo no es un dato sino una búsqueda: el campo vuelve a lo que tenía, y
// si de la búsqueda no se escoge nada, ahí sigue.
#include "datos/recordset/conjunto.h"

#include <QMap>
#include <QScopedValueRollback>
#include <optional>

class PreguntaEnCampo {
public:
    static bool es(const QString& texto) { return texto.startsWith('?'); }

    /// Desde ya recuerda lo que el campo tiene cuando en él se pregunta. Una pregunta no se valida.
    void atienda(Campo& campo) {
        campo.OnValidate = [this, valide = campo.OnValidate](Campo& c, const Valor& nuevo) {
            if (!es(nuevo.texto())) {
                if (valide && !reponiendo_)
                    valide(c, nuevo);
            } else if (!es(c.texto())) {
                antes_[c.FieldName] = c.valor();
            }
        };
    }
    /// Lo preguntado, ya con el campo como estaba; nada si no es una pregunta. Se llama al cambiar
    /// el campo, y el cambio de vuelta ocurre mientras `reponiendo()`.
    std::optional<QString> tome(Campo& campo) {
        const QString texto = campo.texto();
        if (reponiendo_ || !es(texto))
            return {};
        const QScopedValueRollback<bool> guarda(reponiendo_, true);
        campo = antes_.value(campo.FieldName);
        return texto.mid(1);
    }
    bool reponiendo() const { return reponiendo_; }

private:
    QMap<QString, Valor> antes_;
    bool reponiendo_ = false;
};
