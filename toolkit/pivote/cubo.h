#pragma once
// Cubo: hechos con campos de texto y cifras, que se suman cruzando unos campos con otros.
//
// Los valores de cada campo se guardan una vez y los hechos llevan su número; una disposición se
// calcula en una pasada sobre los hechos. No conoce pantallas.
//
//     Cubo cubo({{"CUENTA", "Cuenta"}, {"PROY", "Centro"}, {"FINAL", "Saldo", true}});
//     cubo.agregue({"4135", "0001"}, {Moneda(100)});
//     const TablaCubo t = cubo.calcule({.filas = {"CUENTA"}, .columnas = {"PROY"},
//                                       .valores = {{"FINAL"}}});
#include "datos/firebird/moneda.h"
#include "toolkit/pivote/disposicion_cubo.h"

#include <QHash>
#include <memory>
#include <optional>
#include <vector>

struct CampoCubo {
    QString nombre, titulo;
    bool medida = false;
    QString etiqueta = {}; ///< campo con el nombre de cada valor; vacío si el valor se lee solo
};

/// Un valor de un eje con los que cuelgan de él. El 0 es la raíz: el total de todo.
struct NodoCubo {
    int padre = -1;
    int profundidad = 0;         ///< 0 la raíz
    QString valor, nombre;       ///< sin nombre si sus hechos traen varios
    std::vector<int> hijos = {}; ///< por valor
    /// El valor con su nombre. Se compone al pedirlo: de miles de nodos se ven unos pocos.
    QString texto() const;
};

/// Resultado de una disposición: los dos ejes y sus cruces.
class TablaCubo {
public:
    const std::vector<NodoCubo>& filas() const { return filas_; }
    const std::vector<NodoCubo>& columnas() const { return columnas_; }
    int valores() const { return int(muestras_.size()); }
    /// Suma de un cruce.
    Moneda suma(int fila, int columna, int valor) const;
    /// Como se muestra: la suma, o su porcentaje. Nulo si no hay de qué, o si no cabe en un
    /// importe.
    std::optional<Moneda> muestra(int fila, int columna, int valor) const;
    /// Hechos que cayeron en el cruce.
    int hechos(int fila, int columna) const;
    bool porcentaje(int valor) const { return muestras_[size_t(valor)] != MuestraCubo::Valor; }

private:
    friend class Cubo;
    size_t lugar(int fila, int columna, int valor) const {
        return (size_t(fila) * columnas_.size() + size_t(columna)) * muestras_.size() +
               size_t(valor);
    }
    std::vector<NodoCubo> filas_, columnas_;
    std::vector<MuestraCubo> muestras_;
    std::vector<Moneda> sumas_;
    std::vector<int> hechos_;
};

class Cubo {
public:
    explicit Cubo(QVector<CampoCubo> campos = {});

    const QVector<CampoCubo>& campos() const { return campos_; }
    const CampoCubo* campo(const QString& nombre) const;
    QStringList nombres() const;

    void vacie();
    /// Un hecho: los valores de los campos de texto y las cifras, en el orden de los campos.
    void agregue(const QStringList& valores, const QVector<Moneda>& cifras);
    int hechos() const { return hechos_; }
    /// Valores de un campo de texto, en orden, con su nombre si lo tienen.
    QVector<std::pair<QString, QString>> valores_de(const QString& campo) const;

    /// Lanza ErrorDatos si un campo no sirve donde está o está en dos partes.
    void revise(const DisposicionCubo& disposicion) const;
    /// Lanza ErrorDatos como `revise`, o si el cruce es inmanejable.
    TablaCubo calcule(const DisposicionCubo& disposicion) const;

private:
    struct Columna {
        QHash<QString, int> numeros;
        QStringList valores;
        std::vector<int> de; ///< número por hecho
    };
    class Eje;
    class Filtro;
    const Columna& texto(const QString& campo) const;
    QString etiqueta(const QString& campo, int hecho) const;
    void exija(const QStringList& campos, bool medida) const;

    QVector<CampoCubo> campos_;
    QHash<QString, int> indice_; ///< del campo a su columna de texto o de cifras
    std::vector<Columna> textos_;
    std::vector<std::vector<Moneda>> cifras_;
    int hechos_ = 0;
};
