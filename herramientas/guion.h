#pragma once
// Lectura de los guiones de la base de datos: parte un archivo .sql en sentencias.
//
// Reconoce SET TERM, comentarios, literales y nombres entre comillas. El texto entre los renglones
// --<LIBROS> y --</LIBROS> se repite por cada libro con sus marcas reemplazadas; cada sentencia
// recuerda el renglón del archivo en que empieza, que es el que nombran los errores.
//
// Lo que se repite por clave (cuenta, tercero, centro...) va entre --<CLAVES> y --</CLAVES>, dentro
// o fuera de un bloque de libros, y dice allí mismo sus marcas y una fila por clave; --& continúa
// la fila anterior:
//
//     --<CLAVES>
//     --| CLAVE   | COLUMNAS
//     --| TERCERO | TERC_NIT
//     --| CENTRO  | PROY_COD,
//     --&           CENT_COD
//     SELECT {COLUMNAS} FROM SALDOS_{CLAVE}{_NIIF};
//     --</CLAVES>
//
// Lo que se repite por cada fila de una lista del proyecto va entre "--<FILAS lista.tsv>" y
// --</FILAS>, con {COLUMNA} en lugar de su valor; "--<FILAS lista.tsv CON COLUMNA>" toma solo las
// filas en que esa columna no está vacía. Puede llevar dentro un bloque de libros, o ir dentro de
// uno.
#include <QString>
#include <QVector>
#include <functional>

struct SentenciaGuion {
    QString texto; ///< sin el terminador ni los comentarios
    int renglon = 0;
};

/// Texto de una lista, por su nombre relativo a la carpeta de los guiones.
using LectorListas = std::function<QString(const QString&)>;

/// `archivo` solo se usa para nombrarlo en los errores. Lanza ErrorDatos si un bloque, un
/// comentario o un literal queda sin cerrar, si al final sobra texto sin terminador, o si un bloque
/// de filas nombra una lista o una columna que no existe.
QVector<SentenciaGuion> lea_guion(const QString& texto, const QString& archivo,
                                  const LectorListas& listas = {});

/// Filas de una tabla (.tsv): el primer renglón nombra las columnas. "\N" es nulo.
struct ListaGuion {
    QStringList columnas;
    QVector<QStringList> filas; ///< nulo se distingue con isNull()
};
/// Lanza ErrorDatos con archivo y renglón si una fila no tiene tantos campos como columnas.
ListaGuion lea_lista(const QString& texto, const QString& archivo);
