#include "toolkit/sin_grabar.h"

#include "datos/recordset/conjunto.h"
#include "toolkit/controles/controldato.h"
#include "toolkit/dialogos.h"
#include "toolkit/pantalla.h"

namespace {

/// Hijo de la pantalla que cuida. La foto de una fila nueva separa lo propuesto de lo digitado.
class SinGrabar : public QObject {
public:
    SinGrabar(Pantalla& pantalla, QVector<ConjuntoDatos*> conjuntos, QStringList propuestos)
        : QObject(&pantalla), conjuntos_(std::move(conjuntos)), propuestos_(std::move(propuestos)) {
        setObjectName(QStringLiteral("sin_grabar"));
    }
    static SinGrabar* de(const Pantalla& pantalla) {
        return static_cast<SinGrabar*>(
            pantalla.findChild<QObject*>(QStringLiteral("sin_grabar"), Qt::FindDirectChildrenOnly));
    }
    void recuerde() {
        propuesto_.clear();
        for (const ConjuntoDatos* c : conjuntos_)
            propuesto_ << foto(*c);
    }
    bool hay(const Pantalla& pantalla) const {
        for (int i = 0; i < conjuntos_.size(); ++i) {
            const ConjuntoDatos& c = *conjuntos_[i];
            const QStringList ahora = foto(c), antes = propuesto_.value(i);
            if (!ahora.isEmpty() && ahora != antes)
                return true;
        }
        return hay_a_medio_escribir(pantalla);
    }

private:
    /// Cuántas filas cambiaron y cómo va la que se edita; vacía sin cambios.
    QStringList foto(const ConjuntoDatos& c) const {
        const bool unica = &c == conjuntos_.first() && !propuestos_.isEmpty();
        if (!c.Active() || (c.ChangeCount() == 0 && !(unica ? c.editando() : c.Modified())))
            return {};
        QStringList partes;
        if (!unica)
            partes << QString::number(c.ChangeCount());
        if (unica || c.Modified())
            for (int i = 0; i < c.FieldCount(); ++i) {
                const Campo& campo = const_cast<ConjuntoDatos&>(c).Fields(i);
                if (!propuestos_.contains(campo.FieldName))
                    partes << campo.valor().texto();
            }
        return partes;
    }

    QVector<ConjuntoDatos*> conjuntos_;
    QStringList propuestos_;
    QVector<QStringList> propuesto_;
};

} // namespace

bool hay_a_medio_escribir(const Pantalla& pantalla) {
    const ControlDato* control = control_dato(pantalla.focusWidget());
    return control && control->modificado();
}

void cuide_lo_digitado(Pantalla& pantalla, QVector<ConjuntoDatos*> conjuntos,
                       QStringList propuestos) {
    new SinGrabar(pantalla, std::move(conjuntos), std::move(propuestos));
}

void recuerde_lo_propuesto(Pantalla& pantalla) {
    if (SinGrabar* s = SinGrabar::de(pantalla))
        s->recuerde();
}

bool hay_sin_grabar(const Pantalla& pantalla) {
    const SinGrabar* s = SinGrabar::de(pantalla);
    return s && s->hay(pantalla);
}

bool consiente_perderlo(const Pantalla& pantalla) {
    return !hay_sin_grabar(pantalla) ||
           pregunte_con_no(QStringLiteral("Desea salir y perder los cambios que no ha grabado?"));
}
