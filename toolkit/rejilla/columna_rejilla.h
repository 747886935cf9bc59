#pragma once
// Columna de una rejilla: qué campo muestra, cómo se ve y si se deja escribir.
#include "toolkit/indice_codigos.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <utility>

class Campo;

enum OpcionColumna : unsigned {
    Suma = 1,        ///< el pie suma la columna
    Casilla = 2,     ///< casilla de verificación sobre "S" y "N"
    SoloLectura = 4, ///< nace con ReadOnly
    Oculta = 8,      ///< nace sin Visible
    Numerica = 16,   ///< es una cifra, aunque su campo no se conozca hasta consultar
    Codigo = 32,     ///< un código, aunque su campo tenga sitio para un nombre: no se abrevia
};

/// Renglón de la tabla de columnas con que una pantalla declara su rejilla.
struct DefinicionColumna {
    QString campo;
    QString titulo;
    int ancho = 10; ///< en caracteres; el primer ancho se ajusta además al contenido
    unsigned opciones = 0;
    QString DisplayFormat = {}; ///< vacío: el del campo
};

/// Propiedad que avisa a su rejilla cuando cambia: `columna(11).Visible = false`.
template <class T> class PropiedadColumna {
public:
    PropiedadColumna(T inicial, std::function<void()> aviso)
        : valor_(std::move(inicial)), aviso_(std::move(aviso)) {}
    PropiedadColumna(const PropiedadColumna&) = delete;
    PropiedadColumna& operator=(const PropiedadColumna&) = delete;
    PropiedadColumna& operator=(const T& valor) {
        if (!(valor_ == valor)) {
            valor_ = valor;
            aviso_();
        }
        return *this;
    }
    operator const T&() const { return valor_; }
    const T& operator()() const { return valor_; }

private:
    T valor_;
    std::function<void()> aviso_;
};

class ColumnaRejilla {
public:
    ColumnaRejilla(const DefinicionColumna& definicion, const std::function<void()>& aviso);

    const QString FieldName;
    PropiedadColumna<QString> Titulo;
    PropiedadColumna<QString> DisplayFormat;
    PropiedadColumna<bool> Visible;
    PropiedadColumna<bool> ReadOnly;
    PropiedadColumna<bool> ConSuma; ///< el pie muestra su suma
    PropiedadColumna<QStringList>
        PickList; ///< textos que ofrece la celda; no obliga a uno de ellos
    /// Valores que guarda el campo, paralelos a PickList; vacía: se guarda el texto elegido.
    PropiedadColumna<QStringList> KeyList;
    /// Qué ofrecer bajo la celda para lo que se va tecleando; se toma con Abajo y Enter.
    std::function<QVector<Sugerencia>(const QString& tecleado)> Sugiere;
    const int ancho; ///< en caracteres
    const bool casilla, cifra, codigo;

    /// Campo del conjunto atado; nulo mientras el conjunto no lo tenga.
    Campo* campo = nullptr;
};
