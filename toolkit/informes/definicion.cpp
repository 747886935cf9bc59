#include "toolkit/informes/definicion.h"

#include <QHash>
#include <QSizeF>

namespace informes {

bool papel_de(const QString& nombre, bool horizontal, Papel& papel) {
    static const QHash<QString, QSizeF> hojas{{"carta", {215.9, 279.4}},
                                              {"media", {215.9, 139.7}},
                                              {"oficio", {215.9, 330.2}},
                                              {"a4", {210.0, 297.0}}};
    const auto hoja = hojas.constFind(nombre);
    if (hoja == hojas.constEnd())
        return false;
    papel.nombre = nombre;
    papel.horizontal = horizontal;
    papel.ancho = horizontal ? hoja->height() : hoja->width();
    papel.alto = horizontal ? hoja->width() : hoja->height();
    return true;
}

namespace {

template <class T> T* busque(QVector<T>& todos, const QString& nombre) {
    for (T& t : todos)
        if (t.nombre.compare(nombre, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

} // namespace

Banda* Reporte::banda(const QString& nombre) {
    return busque(bandas, nombre);
}

Grupo* Reporte::grupo(const QString& nombre) {
    return busque(grupos, nombre);
}

bool Banda::trae_lo_que_lleva() const {
    return repite && std::any_of(items.begin(), items.end(), [](const Item& i) {
               return i.si.mira_si_sigue() && i.formula.tiene_sumas();
           });
}

Item* Reporte::item(const QString& nombre) {
    for (Banda& b : bandas)
        if (Item* i = busque(b.items, nombre))
            return i;
    return nullptr;
}

Reporte* Proyecto::reporte(const QString& nombre) {
    return busque(reportes, nombre);
}

Reporte* Proyecto::reporte_de_pagina(const QString& pagina) {
    for (Reporte& r : reportes)
        if (r.pagina.compare(pagina, Qt::CaseInsensitive) == 0)
            return &r;
    return nullptr;
}

} // namespace informes
