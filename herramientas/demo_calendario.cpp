#include "herramientas/demo_calendario.h"

namespace {

/// Domingo de Pascua (cálculo gregoriano anónimo).
QDate pascua(int ano) {
    const int a = ano % 19, b = ano / 100, c = ano % 100;
    const int d = (19 * a + b - b / 4 - (b - (b + 8) / 25 + 1) / 3 + 15) % 30;
    const int e = (32 + 2 * (b % 4) + 2 * (c / 4) - d - c % 4) % 7;
    const int f = d + e - 7 * ((a + 11 * d + 22 * e) / 451) + 114;
    return QDate(ano, f / 31, f % 31 + 1);
}

QDate lunes_desde(QDate fecha) {
    return fecha.addDays((8 - fecha.dayOfWeek()) % 7);
}

bool es_festivo(QDate fecha) {
    struct DiaDelAno {
        int mes, dia;
    };
    const int ano = fecha.year();
    for (const DiaDelAno& x : {DiaDelAno{1, 1}, {5, 1}, {7, 20}, {8, 7}, {12, 8}, {12, 25}})
        if (fecha == QDate(ano, x.mes, x.dia))
            return true;
    // Los que la ley corre al lunes siguiente.
    for (const DiaDelAno& x :
         {DiaDelAno{1, 6}, {3, 19}, {6, 29}, {8, 15}, {10, 12}, {11, 1}, {11, 11}})
        if (fecha == lunes_desde(QDate(ano, x.mes, x.dia)))
            return true;
    // Jueves y Viernes Santo, Ascensión, Corpus Christi y Sagrado Corazón.
    for (const int dias : {-3, -2, 43, 64, 71})
        if (fecha == pascua(ano).addDays(dias))
            return true;
    return false;
}

} // namespace

bool es_habil(QDate fecha) {
    return fecha.dayOfWeek() != Qt::Sunday && !es_festivo(fecha);
}

QDate desde_habil(QDate fecha) {
    while (!es_habil(fecha))
        fecha = fecha.addDays(1);
    return fecha;
}
