#pragma once
// Avance de un trabajo largo, con salida: aparece si tarda.
#include "toolkit/aviso_trabajo.h"

#include <QProgressDialog>

class AvanceTrabajo {
public:
    inline static int ms_demora = 1000; ///< lo que dura menos no muestra nada

    AvanceTrabajo(QWidget* padre, const QString& texto, int total = 0)
        : dialogo_(texto, QStringLiteral("Cancelar"), 0, total, padre) {
        dialogo_.setObjectName(QStringLiteral("avance"));
        dialogo_.setWindowTitle(QStringLiteral("Un momento"));
        dialogo_.setWindowModality(Qt::ApplicationModal);
        dialogo_.setMinimumDuration(ms_demora);
        repinte_lo_descubierto();
    }
    /// Falso si el usuario canceló.
    bool siga(qint64 hechos, const QString& texto = {}) {
        if (!texto.isEmpty())
            dialogo_.setLabelText(texto);
        // Sin total no hay porcentaje: basta que se mueva.
        dialogo_.setValue(dialogo_.maximum() ? int(qMin<qint64>(hechos, dialogo_.maximum() - 1))
                                             : int(hechos));
        return !dialogo_.wasCanceled();
    }

private:
    QProgressDialog dialogo_;
};
