#pragma once
// Lo que un pegado va a hacer, antes de hacerlo: a dónde va cada columna y qué filas no entran.
// Toda rejilla que se digita lo anuncia si son varias celdas; una sola entra sin preguntar.
#include "libro/pegado.h"

#include <QObject>
#include <functional>
#include <optional>

class QWidget;
class Rejilla;

struct AnuncioPegado {
    struct Columna {
        QString va_a;    ///< título de la columna, o por qué no se pega
        QString muestra; ///< lo que trae la primera fila
        QString campo;   ///< vacío si no se pega
    };
    QVector<Columna> columnas;
    int filas = 0, reemplaza = 0; ///< las demás se agregan
    bool sobre_la_nueva = false;  ///< la primera cae en la fila que se está agregando
    QVector<FilaRehusada> rehusadas;
};

/// Hay algo que anunciar.
bool son_varias_celdas(const QVector<QStringList>& filas);
/// A dónde va cada columna desde la celda actual, con la primera fila en la `desde` del conjunto.
/// `cerrada`: la columna no se escribe.
AnuncioPegado reparta_pegado(const Rejilla& rejilla, const QVector<QStringList>& filas, int desde,
                             const std::function<bool(int columna)>& cerrada);

enum class RespuestaPegado { Desiste, Pega };
/// Lo muestra y pregunta. Con filas que no entran, lo que se pega son las demás.
RespuestaPegado muestre_anuncio(QWidget* padre, const AnuncioPegado& anuncio);
/// Las que se pegan: la rehusada que caía sobre una fila que ya está la deja como está.
QVector<QStringList> las_que_entran(QVector<QStringList> filas, const AnuncioPegado& anuncio);

/// Lo que sabe una rejilla de lo que se le puede pegar, además de lo que sus campos admiten.
class ReglasPegado : public QObject {
    Q_OBJECT
public:
    /// Las de esa rejilla, que nacen la primera vez que se piden.
    static ReglasPegado& de(Rejilla& rejilla);

    /// Recibe lo que se va a pegar, con los campos de la rejilla, y da las filas que no entran.
    using Revision = std::function<QVector<FilaRehusada>(const TextoPegado&)>;
    void agregue(Revision revision) { revisiones_ << std::move(revision); }
    /// Por qué no entra un valor de esa columna; vacío si entra. No se pregunta por uno vacío.
    void exija(const QString& campo, std::function<QString(const QString& valor)> razon);
    /// Lo rehusado por los campos y por las revisiones, una razón por fila.
    QVector<FilaRehusada> rehusadas(const TextoPegado& pegado) const;

private:
    explicit ReglasPegado(Rejilla& rejilla);
    Rejilla& rejilla_;
    QVector<Revision> revisiones_;
};

/// Anuncia lo copiado y lo pega.
void pegue_con_anuncio(Rejilla& rejilla, const QVector<QStringList>& filas);
