#pragma once
// Los miembros de las dos familias de consulta: auxiliares y saldos por clave.
//
// Cada pantalla es un renglón de estas tablas. También están aquí las diferencias que se conservan:
// el auxiliar de cuenta sin comillas, el centro NIIF que lee el libro 2649 y las flechas que unos
// tienen y otros no.
#include "libro/libro.h"

#include <QSize>
#include <QString>
#include <QVector>

/// Lo que acompaña a la cuenta para escoger los movimientos o los saldos.
enum class Clave { Ninguna, Tercero, Centro, Articulo };

/// Alt+flecha que cambia el período: las de los auxiliares van al revés de las demás.
enum class Flechas { Ninguna, Derechas, Invertidas };

/// Columnas que no todos los auxiliares tienen.
enum ColumnaAuxiliar : unsigned { ConNit = 1, ConCiudad = 2, ConCentros = 4 };

struct MiembroConsulta {
    const char* clase;
    const char* titulo;
    /// Texto SQL. {cuenta}, {nit}, {proyecto}, {centro}, {articulo} y {ano} entran entre comillas;
    /// {cuenta!} y {ano!}, tal como están; {mes} es el período más 1 y {orden} una columna.
    const char* consulta;
    const char* nombre_cuenta; ///< de dónde sale el nombre; vacío: nom_cuenta_niif
    Clave clave;
    const char* archivo; ///< nombre que propone la exportación
    Flechas flechas;
    QSize tamano;
};

struct DatosAuxiliar : MiembroConsulta {
    const char* saldo; ///< procedimiento del saldo a la cabeza; vacío: no lo muestra
    const char* final; ///< consulta del saldo con que termina el mes, como `consulta`
    unsigned columnas;
    const char* titulo_referencia;
};

struct DatosSaldo : MiembroConsulta {
    Clave por; ///< de qué es cada fila
    const char* titulo_creditos;
    const char* auxiliar;            ///< pantalla que abre F8
    const char* saldo_terceros = ""; ///< pantalla que abre "F5:Saldo terceros"
};

const QVector<DatosAuxiliar>& auxiliares();
const QVector<DatosSaldo>& saldos_por_clave();

/// Valores con que se completa una consulta.
struct DatosConsulta {
    QString cuenta, nit, proyecto, centro, articulo, ano, orden;
    int mes = 1; ///< 1 a 12 los meses, 13 ajustes, 14 cierre
};
QString componga_consulta(const char* consulta, const DatosConsulta& datos);
