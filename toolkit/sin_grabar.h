#pragma once
// Lo digitado que aún no se graba no se pierde sin preguntarlo, se salga como se salga: Esc, la
// equis o el cierre del programa.
#include <QStringList>

class ConjuntoDatos;
class Pantalla;

/// Al cerrarse, la pantalla pregunta si alguno de esos conjuntos, o un control suyo a medio
/// escribir, tiene algo que no estaba al abrir. Después de grabar o de CancelUpdates no hay nada.
/// Con `propuestos`, el primero es la fila única de un proceso, que un intento de grabar puede
/// dejar posteada: lo digitado son sus demás campos, y esos los llena la pantalla.
void cuide_lo_digitado(Pantalla& pantalla, QVector<ConjuntoDatos*> conjuntos,
                       QStringList propuestos = {});
/// Lo que haya ahora en esos conjuntos lo propuso la pantalla. Se llama al terminar FormCreate.
void recuerde_lo_propuesto(Pantalla& pantalla);
/// El control con el foco tiene algo escrito que aún no está en su campo.
bool hay_a_medio_escribir(const Pantalla& pantalla);
/// Algo de lo que cuida se perdería si se cerrara ya.
bool hay_sin_grabar(const Pantalla& pantalla);
/// Nada por perder, o el usuario acepta perderlo.
bool consiente_perderlo(const Pantalla& pantalla);
