#pragma once
// Compacta los saldos en los ratos en que nadie usa el programa.
//
// Los comprobantes solo insertan diferencias de saldo; compactarlas a tiempo mantiene rápidos los
// balances. Se hace por pasos cortos al entrar y cada pocos minutos, y una falla suya solo se anota
// en ERRORES.TXT: no es asunto del usuario. Nunca espera: si otro usuario está compactando o no hay
// servidor, lo deja para después.
#include <QElapsedTimer>
#include <QObject>

class QTimer;

class Compactador : public QObject {
    Q_OBJECT
public:
    explicit Compactador(QObject* dueno);
    /// Empieza a trabajar, con la compañía ya abierta.
    void inicie();
    QTimer* reloj;

    /// Un paso: cuántas diferencias compactó; 0 si no quedaban o falló.
    qint64 compacte();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QElapsedTimer quieto_;
};
