#pragma once
// Texto de celdas separadas por tabuladores, como lo ponen y lo toman las hojas de cálculo.
//
// Una celda con tabuladores, saltos o comillas al comienzo va entre comillas, con las interiores
// dobladas. Una comilla suelta (la marca de repetición) no abre nada.
#include <QStringList>
#include <QVector>

using TextoTabulado = QVector<QStringList>;

QString escriba_tabulado(const TextoTabulado& tabla);
TextoTabulado lea_tabulado(const QString& texto);
/// Lo que hay en el portapapeles, con cada celda en un renglón.
TextoTabulado tabla_pegada();
