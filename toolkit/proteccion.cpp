#include "toolkit/proteccion.h"

#include "datos/firebird/moneda.h"

#include <QMessageBox>
#include <system_error>

namespace {
ManejadorFallas manejador_;
}

void instale_manejador_fallas(ManejadorFallas manejador) {
    manejador_ = std::move(manejador);
}

void instale_manejador_fallas(std::function<void(const QString& texto)> manejador) {
    manejador_ = [m = std::move(manejador)](const ErrorDatos& falla) { m(falla.texto()); };
}

void retire_manejador_fallas() {
    manejador_ = nullptr;
}

void reporte_falla(const ErrorDatos& falla) {
    if (manejador_)
        manejador_(falla);
    else
        QMessageBox::critical(nullptr, QStringLiteral("Error"), falla.para_usuario());
}

void reporte_falla(const QString& texto) {
    reporte_falla(ErrorDatos(texto));
}

void reporte_excepcion() {
    try {
        throw;
    } catch (const ErrorDatos& e) {
        reporte_falla(e); // con su clase, que dice más que su texto
    } catch (...) {
        reporte_falla(falla_de_excepcion());
    }
}

ErrorDatos falla_de_excepcion() {
    try {
        throw;
    } catch (const ErrorDatos& e) {
        return e;
    } catch (const std::bad_alloc& e) {
        return ErrorDatos(QStringLiteral("Se acabó la memoria del equipo. Grabe lo que tenga y "
                                         "cierre otros programas."),
                          QString::fromUtf8(e.what()));
    } catch (const std::logic_error& e) { // de la biblioteca del lenguaje, en inglés
        return ErrorDatos(QStringLiteral("El programa encontró algo que no esperaba y no pudo "
                                         "terminar lo que se pidió."),
                          QString::fromUtf8(e.what()));
    } catch (const std::system_error& e) {
        return ErrorDatos(QStringLiteral("El sistema operativo no permitió lo que se pidió."),
                          QString::fromUtf8(e.what()));
    } catch (const std::exception& e) {
        return ErrorDatos(QString::fromUtf8(e.what()));
    } catch (...) {
        return ErrorDatos(QStringLiteral("Falla desconocida."));
    }
}

QString texto_de_excepcion() {
    return falla_de_excepcion().texto();
}
