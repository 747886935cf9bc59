#pragma once
#include <QDate>

/// Ni domingo ni festivo colombiano.
bool es_habil(QDate fecha);
/// Esa fecha o la primera hábil que le siga.
QDate desde_habil(QDate fecha);
