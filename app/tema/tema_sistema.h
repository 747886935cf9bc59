#pragma once
// Lo que el escritorio del usuario dice de sus colores.
#include <QObject>

class QDBusMessage;

/// Pide fondo oscuro, según el portal de preferencias de freedesktop. Falso si no lo dice o no hay
/// a quién preguntar; espera a lo sumo tres décimas de segundo.
bool escritorio_oscuro();

/// Oye al portal: avisa cada vez que el usuario pasa de claro a oscuro o al revés.
class VigiaTema : public QObject {
    Q_OBJECT
public:
    explicit VigiaTema(QObject* padre = nullptr);

signals:
    void cambio(bool oscuro);

private slots:
    void preferencia(const QDBusMessage& aviso);
};
