#pragma once
// Mensajes entre usuarios: pregunta cada diez segundos por los que no se han leído y los muestra.
//
// Mientras el aviso está a la vista no se pregunta; al cerrarlo el reloj vuelve a andar. Una
// conexión que se pierde al preguntar sale como cualquier falla y lo deja quieto hasta que el
// usuario siga trabajando con ella de vuelta.
#include "datos/recordset/conjunto.h"

#include <QPointer>

class QTimer;
class VentanaAvisos;

class VigiaMensajes : public QObject {
    Q_OBJECT
public:
    /// `marco`: la ventana en cuya esquina aparecen los avisos.
    explicit VigiaMensajes(QWidget* marco);

    QTimer* Timer3;
    VentanaAvisos* AdvAlertWindow2;
    void Timer3Timer();
    void AdvAlertWindow2AlertClick();
    void AdvAlertWindow2PopupClick();

private:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    qint64 id_del_aviso() const;
    void marque_leido(qint64 id);

    Sentencia QMensajes;
    Proveedor PMensajes;
    ConjuntoDatos CMensajes;
};
