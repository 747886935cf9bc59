#pragma once
// Archivos de texto de un renglón por dato: "PALABRA PALABRA clave=valor clave="con blancos"".
//
// Los renglones vacíos y los que empiezan por '#' no cuentan. Lo que está mal no detiene la
// lectura: se junta en Faltas, con su renglón, y al final se dice todo de una vez.
#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>

class Conexion;

struct RenglonTexto {
    int numero = 0;
    QStringList palabras;
    QHash<QString, QString> datos;
};

class Faltas {
public:
    explicit Faltas(QString archivo) : archivo_(std::move(archivo)) {}
    void anote(int renglon, const QString& texto);
    bool hay() const { return cuantas_ > 0; }
    /// Lanza ErrorDatos con todas las faltas, "archivo:renglón: texto" cada una. De muchas dice las
    /// primeras y cuántas más hay.
    void lance_si_hay() const;

private:
    QString archivo_;
    QStringList textos_;
    int cuantas_ = 0;
};

/// Contenido de un archivo. Lanza ErrorDatos con la razón si no se puede leer.
QByteArray lea_archivo(const QString& archivo);

/// Lee un archivo UTF-8. Lanza ErrorDatos si no se puede leer; las comillas sin cerrar, las claves
/// repetidas y los caracteres que la base no guarda quedan en `faltas`.
QVector<RenglonTexto> lea_renglones(const QString& archivo, Faltas& faltas);

/// " clave=valor", entre comillas si hace falta; nada si el valor está vacío.
QString dato_escrito(const char* clave, const QString& valor);

/// Los textos de una consulta de una columna: lo que la base conoce y un archivo puede nombrar.
QSet<QString> textos_de(Conexion& c, const char* sql);
