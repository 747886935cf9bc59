#include "exchange/lector_registros.h"

namespace {

// Un archivo que no es de texto puede no tener fines de línea: lo crudo tampoco crece sin límite.
constexpr qsizetype kCrudo = 64 * 1024;

} // namespace

bool RegistroLeido::en_blanco() const {
    for (const QByteArray& c : columnas)
        if (!c.trimmed().isEmpty())
            return false;
    return true;
}

LectorRegistros::LectorRegistros(char separador, char delimitador,
                                 std::function<void(const RegistroLeido&)> entregue)
    : separador_(separador), delimitador_(delimitador), entregue_(std::move(entregue)) {}

void LectorRegistros::alimente(const QByteArray& octetos) {
    for (const char octeto : octetos)
        reciba(octeto);
}

void LectorRegistros::reciba(char octeto) {
    if (salte_) {
        salte_ = false;
        return;
    }
    if (octeto == '\r' || octeto == '\n') {
        termine_registro();
        salte_ = octeto == '\r';
        return;
    }
    if (registro_.crudo.size() < kCrudo)
        registro_.crudo += octeto;
    if (delimitador_ != 0 && octeto == delimitador_)
        en_texto_ = !en_texto_;
    else if (octeto == separador_ && !en_texto_)
        termine_columna();
    else if (columna_.size() < kOctetosColumna)
        columna_ += octeto;
}

void LectorRegistros::termine_columna() {
    if (registro_.columnas.size() < kColumnas)
        registro_.columnas += columna_;
    columna_.clear();
}

void LectorRegistros::termine_registro() {
    termine_columna();
    ++registro_.renglon;
    entregue_(registro_);
    registro_.crudo.clear();
    registro_.columnas.clear();
    en_texto_ = false;
}
