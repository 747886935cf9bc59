#pragma once
// Argumentos de una orden: opciones "--nombre valor", banderas "--nombre" y palabras sueltas.
#include <QHash>
#include <QSet>
#include <QStringList>

/// Falta o sobra algo en lo que se escribió: la herramienta muestra el uso y sale con código 2.
class ErrorDeUso : public std::exception {
public:
    explicit ErrorDeUso(QString texto) : texto_(std::move(texto)) {}
    const QString& texto() const { return texto_; }

private:
    QString texto_;
};

class Argumentos {
public:
    /// Lanza ErrorDeUso con una opción desconocida, repetida o sin su valor.
    Argumentos(const QStringList& escritos, const QStringList& con_valor,
               const QStringList& banderas);

    bool tiene(const QString& nombre) const { return valores_.contains(nombre); }
    QString valor(const QString& nombre, const QString& si_falta = {}) const {
        return valores_.value(nombre, si_falta);
    }
    QString exija(const QString& nombre) const;
    int entero(const QString& nombre, int si_falta, int minimo, int maximo) const;
    const QStringList& sueltos() const { return sueltos_; }

private:
    QHash<QString, QString> valores_;
    QStringList sueltos_;
};

/// "30 31 100-105" como números; lanza ErrorDeUso con lo que no sea un número o un tramo.
QVector<int> numeros(const QStringList& textos);
