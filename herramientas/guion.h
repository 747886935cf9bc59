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
#include <QString>
#include <QVector>

struct SentenciaGuion {
    QString texto; ///< sin el terminador ni los comentarios
    int renglon = 0;
};

/// `archivo` solo se usa para nombrarlo en los errores. Lanza ErrorDatos si un bloque, un
/// comentario o un literal queda sin cerrar, o si al final sobra texto sin terminador.
QVector<SentenciaGuion> lea_guion(const QString& texto, const QString& archivo);

/// ListaGuion de una tabla (.tsv): el primer renglón nombra las columnas. "\N" es nulo.
struct ListaGuion {
    QStringList columnas;
    QVector<QStringList> filas; ///< nulo se distingue con isNull()
};
/// Lanza ErrorDatos con archivo y renglón si una fila no tiene tantos campos como columnas.
ListaGuion lea_lista(const QString& texto, const QString& archivo);
