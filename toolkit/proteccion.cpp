#include "toolkit/proteccion.h"

#include "datos/firebird/moneda.h"

#include <QMessageBox>

namespace {
ManejadorFallas manejador_;
}

void instale_manejador_fallas(ManejadorFallas manejador) {
    manejador_ = std::move(manejador);
}

void reporte_falla(const QString& texto) {
    if (manejador_)
        manejador_(texto);
    else
        QMessageBox::critical(nullptr, QStringLiteral("Error"), texto);
}

QString texto_de_excepcion() {
    try {
        throw;
    } catch (const ErrorDatos& e) {
        return e.texto();
    } catch (const std::exception& e) {
        return QString::fromUtf8(e.what());
    } catch (...) {
        return QStringLiteral("Falla desconocida.");
    }
}
