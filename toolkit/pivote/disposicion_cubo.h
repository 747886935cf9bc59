#pragma once
// Disposición de un cubo: qué campos van en las filas, en las columnas y de filtro, qué cifras se
// suman y cómo se muestran. Se guarda en un archivo de texto que se deja leer y corregir:
//
//     filas = CUENTA
//     columnas = PROY, CENTRO
//     filtros = NIVEL
//     solo NIVEL = 3
//     valores = MOVIMIEN
//     muestra MOVIMIEN = % fila
//     nivel filas = 1
//     total filas = no
//
// Un renglón que comienza por # es un comentario. "solo CAMPO = valor" se repite por cada valor que
// se deja pasar; sin ninguno pasan todos.
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

enum class MuestraCubo { Valor, PorFila, PorColumna, PorTotal };

struct ValorCubo {
    QString campo;
    MuestraCubo muestra = MuestraCubo::Valor;
    bool operator==(const ValorCubo&) const = default;
};

struct DisposicionCubo {
    QStringList filas, columnas, filtros;
    QVector<ValorCubo> valores;
    QMap<QString, QSet<QString>> solo;       ///< por campo; el que no está deja pasar todo
    int nivel_filas = 0, nivel_columnas = 0; ///< hasta dónde se despliega; 0, todo
    bool total_filas = true, total_columnas = true;
    bool operator==(const DisposicionCubo&) const = default;
};

/// "valor", "% fila", "% columna", "% total".
QString texto_de(MuestraCubo muestra);

/// Lanzan ErrorDatos con el archivo y el renglón que no se entiende. `campos`: los que el cubo
/// conoce; uno que no esté entre ellos se rehúsa.
DisposicionCubo lea_disposicion(const QString& texto, const QString& archivo,
                                const QStringList& campos);
DisposicionCubo lea_archivo_disposicion(const QString& ruta, const QStringList& campos);
QString escriba_disposicion(const DisposicionCubo& disposicion);
/// Reemplaza el archivo solo si todo salió bien.
void grabe_archivo_disposicion(const DisposicionCubo& disposicion, const QString& ruta);
