#pragma once
// Reglas de la línea de un comprobante: qué se recuerda de una a otra, con qué se completa una
// celda y qué le falta para valer. Las usan las pantallas que digitan y los lotes.
#include "libro/catalogos.h"
#include "libro/comprobante.h"

/// Lo que se recuerda de una línea a otra. Los dos libros leen las mismas memorias; la NIIF guarda
/// las suyas en otras que nadie lee, y así se queda.
struct MemoriasLinea {
    QString concepto_anterior, referencia_anterior, tercero_anterior;
};

/// Numera las líneas de un libro: cada inserción gasta un número, aunque la línea se abandone.
class ContadorLineas {
public:
    void empiece(int ultimo = 0) { ultimo_ = ultimo; }
    int siguiente() { return ++ultimo_; }
    int ultimo() const { return ultimo_; }

private:
    int ultimo_ = 0;
};

/// La marca que repite el valor anterior, sola en la celda.
inline bool es_repeticion(const QString& celda) {
    return celda == QLatin1String("\"");
}
/// Lo que queda en la celda del concepto al dejarla: vacía toma el del encabezado, la comilla el
/// anterior.
QString concepto_al_dejarlo(const QString& celda, const QString& encabezado,
                            const MemoriasLinea& memorias);
/// El tercero de una línea sin él: el de la memoria, si su cuenta lo exige.
QString tercero_al_dejarlo(const QString& celda, const AtributosCuenta& cuenta,
                           const MemoriasLinea& memorias);
/// La línea queda en las memorias; su tercero, solo si se pide.
void recuerde(MemoriasLinea& memorias, const LineaComprobante& linea, bool con_tercero);
/// La comilla de la referencia se cambia en la celda que sigue; vacía toma la del encabezado.
QString referencia_al_dejarla(const QString& celda, const QString& encabezado);

/// Lo que la línea debe y no trae, en el orden en que se pide: lo de la retención (tercero, base y
/// porcentaje), el tercero y el centro.
Rechazos faltas_de_linea(const LineaComprobante& linea, const AtributosCuenta& cuenta);

/// Un porcentaje de más de cien, que solo vale si el usuario lo confirma.
std::optional<Rechazo> revise_porcentaje(Moneda porcentaje);
