#pragma once
// Lo que la barra de estado ha dicho en la sesión. La barra, ya en reposo, sigue mostrando el
// último aviso con su edad, cada vez más tenue; un clic los abre todos con su texto completo.
#include <QDateTime>
#include <QObject>
#include <QTimer>
#include <QVector>

class AvisosBarra;
class QPlainTextEdit;

class HistoriaAvisos : public QObject {
    Q_OBJECT
public:
    struct Aviso {
        QDateTime cuando;
        QString texto;
    };
    /// Queda pendiente de `barra`: la pinta en un solo renglón y atiende sus clics.
    explicit HistoriaAvisos(AvisosBarra* barra);
    static HistoriaAvisos* de(const AvisosBarra* barra);

    void anote(const QString& texto);
    /// Ese aviso, si es el último, ya no se muestra en reposo; en la historia sigue. Falso si no lo
    /// es.
    bool retire(qint64 cual);
    /// Con qué se nombra al último después; 0 si ninguno.
    qint64 ultimo() const { return dichos_; }
    const QVector<Aviso>& avisos() const { return avisos_; }
    /// "hace 3 min": vacía en el primer minuto.
    QString edad(const Aviso& aviso) const;
    /// Cuánto queda de la tinta del último aviso, de 1 a 0.45.
    qreal intensidad() const;
    /// El diálogo con todos, del último al primero.
    void muestre();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void pinte() const;

    AvisosBarra* barra_;
    QVector<Aviso> avisos_;
    qint64 dichos_ = 0;
    bool retirado_ = false; ///< el último
    QTimer envejece_;
};

/// Dice lo que se acaba de hacer ("Grabado FC 0001 000106"). No cambia el color de la barra ni tapa
/// una advertencia: en ese caso queda para cuando termine. Sin barra no hace nada.
void anuncie(AvisosBarra* barra, const QString& texto);
/// Lo que ese aviso decía ya se resolvió: si es el último, deja de verse, también en reposo.
void retire_aviso(AvisosBarra* barra, qint64 cual);
void retire_aviso(AvisosBarra* barra, const QString& texto);
/// El de `mostrar_advertencia`, por el texto que se le dio.
void retire_advertencia(AvisosBarra* barra, const QString& texto);
