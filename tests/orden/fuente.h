#pragma once
// Lee una fuente de C++ como trozos (nombres, literales, signos) y encuentra sus funciones: lo que
// una regla de orden necesita y un renglón suelto no dice. No es un compilador: ignora las líneas
// del preprocesador y distingue un cuerpo por lo que tiene delante.

struct Trozo {
    enum Tipo { Nombre, Cifra, Literal, Signo };
    Tipo tipo;
    QString texto; ///< de un literal, su contenido; los seguidos son uno solo
    int linea;     ///< desde 1

    bool es(const char* signo) const { return tipo != Literal && texto == QLatin1String(signo); }
};

struct Funcion {
    QString nombre;
    int primera, ultima; ///< renglones, contados el de la firma y el de la llave que cierra
    int desde, hasta;    ///< trozos de la firma y del cuerpo, sin contar `hasta`

    int renglones() const { return ultima - primera + 1; }
};

/// Lo que declaran los espacios sin nombre de la fuente: constantes y clases por su nombre, y
/// funciones con los tipos de sus argumentos.
class Fuente;
QStringList sin_espacio_con_nombre(const Fuente& fuente);

class Fuente {
public:
    explicit Fuente(const QString& texto);

    QVector<Trozo> trozos;
    QVector<Funcion> funciones; ///< las de fuera; una lambda cuenta en la suya

private:
    enum Ambito { Espacio, TipoDatos, Cuerpo, Otro };
    struct Abierta {
        Ambito ambito;
        int cabeza, parentesis;
    };

    void trocee(const QString& texto);
    void agregue(Trozo::Tipo tipo, const QString& texto, int linea);
    void busque_funciones();
    Ambito clase_de_llave(int cabeza, int llave) const;
    QString nombre_de(int cabeza, int llave) const;
};
