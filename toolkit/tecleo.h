#pragma once
// Texto que se va tecleando sobre una lista para ubicarse en ella.
#include <QString>

class QKeyEvent;

/// Texto que la tecla escribiría en un editor; vacío si es una orden.
QString escrito(const QKeyEvent& tecla);

/// Sin tildes y en minúsculas: quien busca "bogota" encuentra "Bogotá".
QString texto_llano(const QString& texto);

class Tecleo {
public:
    /// Agrega lo que escribe la tecla, o quita lo último con Retroceso. Falso si la tecla no es de
    /// la búsqueda: un espacio o un Retroceso sin nada tecleado. Una pausa larga empieza otro
    /// texto.
    bool reciba(const QKeyEvent& tecla);
    /// Quita lo último: nada de la lista empieza así.
    void devuelva() { texto_.chop(1); }
    void olvide() { texto_.clear(); }
    const QString& texto() const { return texto_; }
    bool vacio() const { return texto_.isEmpty(); }
    /// El mismo carácter una y otra vez: pasa de una fila a la siguiente que empiece por él.
    bool repetido() const;

private:
    QString texto_;
    quint64 ultima_ = 0;
};
