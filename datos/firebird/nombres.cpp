#include "datos/firebird/nombres.h"

#include <QScopedValueRollback>
#include <thread>

namespace {

NombresDeDatos nombres_;
std::thread::id hilo_; ///< quien los instaló
bool consultando_ = false;

/// El diccionario se lee de la base: si esa lectura falla, su falla no puede pedirlo otra vez. Y se
/// lee con los conjuntos del programa, que otro hilo no puede tocar.
template <class R, class F> R pregunte(F&& que) {
    if (hilo_ != std::this_thread::get_id() || consultando_)
        return {};
    const QScopedValueRollback<bool> guarda(consultando_, true);
    try {
        return que();
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace

void instale_nombres_de_datos(NombresDeDatos nombres) {
    nombres_ = std::move(nombres);
    hilo_ = std::this_thread::get_id();
}

QString nombre_de_columna(const QString& columna) {
    return nombres_.columna ? pregunte<QString>([&] { return nombres_.columna(columna); })
                            : QString();
}

QString nombre_de_tabla(const QString& tabla) {
    return nombres_.tabla ? pregunte<QString>([&] { return nombres_.tabla(tabla); }) : QString();
}

QStringList otros_usuarios_con_sesion() {
    return nombres_.otros_usuarios ? pregunte<QStringList>([] { return nombres_.otros_usuarios(); })
                                   : QStringList();
}
