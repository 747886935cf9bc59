#pragma once
// Respaldos que se piden desde el programa: dónde se guardan, cuántos se conservan y cuándo fue el
// último bueno de la compañía de la sesión. Todo queda en respaldo.cfg, en la carpeta de la
// aplicación.
#include "datos/firebird/respaldo.h"

#include <QDateTime>
#include <QObject>

struct AjustesRespaldo {
    QString carpeta;
    int copias = 10; ///< las más viejas se borran cuando hay más
};
AjustesRespaldo ajustes_respaldo();
void ajustes_respaldo(const AjustesRespaldo& ajustes);

/// Inválida si nunca se hizo uno.
QDateTime ultimo_respaldo(const QString& compania);
/// "Último respaldo bueno: aaaa/mm/dd hh:mm", o que no lo hay.
QString letrero_respaldo(const QString& compania);

/// Avisa de cada respaldo bueno a quien lo muestra.
class AvisoRespaldos : public QObject {
    Q_OBJECT
signals:
    void hecho(const QString& compania);
};
AvisoRespaldos& aviso_respaldos();

/// Respalda la base en la carpeta con el nombre compania_aaaammdd_hhmmss.fbk, lo prueba y, si quedó
/// bueno, borra las copias que sobren de esa compañía. Lanza ErrorDatos si no se pudo: las copias
/// de antes siguen donde estaban.
ResultadoRespaldo respalde_compania(const ParametrosConexion& base, const QString& compania,
                                    const AjustesRespaldo& ajustes, QString& archivo);
