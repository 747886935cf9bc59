#pragma once

/// El control, ya con su nombre de objeto.
template <class T> T* nombrado(T* control, const char* nombre) {
    control->setObjectName(nombre);
    return control;
}
