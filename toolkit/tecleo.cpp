#include "toolkit/tecleo.h"

#include <QKeyEvent>

namespace {
constexpr quint64 kPausaMs = 1500;
}

QString escrito(const QKeyEvent& e) {
    const auto m = e.modifiers() & ~Qt::KeypadModifier;
    // AltGr llega como Ctrl+Alt en algunos teclados y su carácter es texto.
    const bool orden =
        (m & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
        (m & (Qt::ControlModifier | Qt::AltModifier)) != (Qt::ControlModifier | Qt::AltModifier);
    const QString texto = e.text();
    if (orden || texto.isEmpty() || !texto.at(0).isPrint())
        return {};
    return texto;
}

QString texto_llano(const QString& texto) {
    QString llano;
    for (const QChar c : texto.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing)
            llano += c.toLower();
    return llano;
}

bool Tecleo::reciba(const QKeyEvent& tecla) {
    // La hora de la tecla y no la del reloj: lo tecleado se atiende cuando se puede.
    if (tecla.timestamp() > ultima_ + kPausaMs)
        texto_.clear();
    const bool borra = tecla.key() == Qt::Key_Backspace && tecla.modifiers() == Qt::NoModifier;
    const QString nuevo = escrito(tecla);
    if (borra ? texto_.isEmpty() : nuevo.isEmpty() || (texto_.isEmpty() && nuevo == " "))
        return false;
    ultima_ = tecla.timestamp();
    if (borra)
        texto_.chop(1);
    else
        texto_ += nuevo;
    return true;
}

bool Tecleo::repetido() const {
    return texto_.size() > 1 && texto_.count(texto_[0], Qt::CaseInsensitive) == texto_.size();
}
