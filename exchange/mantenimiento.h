#pragma once
// Herramientas del mantenimiento, sin pantallas. Cada una dice primero sus cifras y después, si se
// pide, hace todo en una transacción: o queda entera o no queda nada. Los procedimientos de la base
// hacen el trabajo; aquí solo se llaman.
#include "datos/firebird/conexion.h"
#include "libro/libro.h"

struct CifrasMantenimiento {
    qint64 renglones = 0;    ///< líneas de comprobante que cambian
    qint64 comprobantes = 0; ///< en cuántos
    qint64 borrados = 0;     ///< comprobantes que se van enteros
    qint64 ajenos = 0;       ///< de ellos, los que generaron otros módulos
    qint64 descuadrados = 0; ///< que quedarán sin cuadrar
    qint64 incompletos = 0;  ///< líneas que quedarán sin lo que su cuenta exige
    QString negativa;        ///< por qué no se puede; vacío si se puede
    /// "n renglones de m comprobantes".
    QString cuantos() const;
};

enum class Paso { Cifras, Haga };

struct RangoFechas {
    QString desde, hasta; ///< "aaaammdd"
};

/// Lanzan ErrorBase con la negativa si, al hacerlo, algo ya no deja. `tipo` vacío: todos.
CifrasMantenimiento reemplace_cuenta(Conexion& conexion, Libro libro, const QString& origen,
                                     const QString& destino, const RangoFechas& fechas,
                                     const QString& tipo, Paso paso);
/// `cuenta` vacía: todas.
CifrasMantenimiento reemplace_tercero(Conexion& conexion, Libro libro, const QString& origen,
                                      const QString& destino, const RangoFechas& fechas,
                                      const QString& tipo, const QString& cuenta, Paso paso);

struct IndicadoresCuenta {
    bool tercero = false, centro = false, retencion = false;
};
struct AuxiliarNuevo {
    QString cuenta, nombre;
    IndicadoresCuenta indicadores;
    QString equivalente; ///< cuenta NIIF; solo del plan 2649
};
CifrasMantenimiento abra_auxiliar(Conexion& conexion, Libro libro, const AuxiliarNuevo& nuevo,
                                  Paso paso);
CifrasMantenimiento cambie_detalle(Conexion& conexion, Libro libro, const QString& cuenta,
                                   const IndicadoresCuenta& indicadores, Paso paso);

struct RangoBorrado {
    QString tipo, prefijo; ///< prefijo vacío: todos
    RangoFechas fechas;
    QString numero_desde, numero_hasta; ///< de seis cifras; vacíos: todos
    QString nit_desde, nit_hasta;       ///< vacíos: todos
};
CifrasMantenimiento borre_movimientos(Conexion& conexion, const RangoBorrado& rango,
                                      const QString& usuario, Paso paso);

/// En esta transacción el plan se va: a sus cuentas ya no las retiene que la configuración las
/// nombre ni, si `llega_otro` enseguida, que las nombren las interfaces y los certificados.
void plan_que_se_va(Transaccion& t, bool llega_otro);
struct RangoCodigos {
    QString desde, hasta;
};
/// Las cuentas de `quienes` dejan de nombrar, como de ajuste o contrapartida, a las que `se_van`:
/// la de ajuste suele ir después de la suya, y borrarla primero se rehusaría.
void suelte_ajustes(Transaccion& t, Libro libro, const RangoCodigos& quienes,
                    const RangoCodigos& se_van);

struct CuentasBorradas {
    qint64 borradas = 0;
    QString detenida; ///< la cuenta que no se dejó borrar
    QString razon;
};
/// Borra el plan 2649 entre dos cuentas, las más profundas primero y cada una por su cuenta, salvo
/// las de ajuste, que se van con la que las nombra. Se detiene en la primera que la base rehúsa, y
/// lo borrado hasta ahí queda borrado.
/// Con Paso::Cifras lo ensaya: dice hasta dónde llegaría, y no queda borrada ninguna.
CuentasBorradas borre_cuentas(Conexion& conexion, const QString& desde, const QString& hasta,
                              Paso paso = Paso::Haga,
                              const std::function<void(const QString&)>& avance = {});

/// Pasa a las tablas de saldos lo que un cambio grande dejó pendiente, para que los balances no lo
/// carguen. `avance` recibe cuántas diferencias van.
void compacte_lo_pendiente(Conexion& conexion, const std::function<void(qint64)>& avance = {});
