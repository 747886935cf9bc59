#pragma once
// Reloj, informe y bases de las medidas. Los tiempos son milisegundos; el de una medida es el mejor
// de varias repeticiones, el que menos estorbó el resto del equipo.
#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <utility>

double mida(const std::function<void()>& trabajo, int repeticiones = 5);

/// Los mejores tiempos de dos trabajos alternados: lo que estorbe el equipo los estorba a los dos.
std::pair<double, double> compare(const std::function<void()>& uno,
                                  const std::function<void()>& otro, int repeticiones = 15);

/// Un renglón del informe. Con `tope` 0 la cifra solo se informa.
void informe(const QString& medida, double ms, const QString& contra, double base, double tope = 0);
/// Como el anterior, con una exigencia de "al menos": la base dividida por lo medido.
void informe_ganancia(const QString& medida, double ms, const QString& contra, double base,
                      double minimo);
void nota(const QString& texto);
/// Lo que no alcanzó su tope en este proceso.
int faltas();

/// Lo más que ha ocupado este proceso.
long memoria_maxima_mb();

/// Carpeta de la compañía de demostración con esos renglones; la crea la primera vez.
QString demostracion(int renglones);

void mida_apertura();
void mida_guardado();
void mida_celdas();
void mida_pegado();
void mida_plan();
void mida_balance();
void mida_auxiliar();
void mida_lista();
void mida_informe();
void mida_masiva();
void mida_estados();
void mida_cerrado();
void mida_definible();
void mida_anual();
void mida_cubo();
void mida_terceros();
void mida_medio();
void mida_cierre();
void mida_depreciacion();
void mida_contabilizacion();
void mida_importacion();
void mida_reemplazo();
void mida_recalculo();
void mida_traslado();
void mida_teclado();
