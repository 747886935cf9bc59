#pragma once
// Cuentas y terceros de la compañía, en memoria, para completar mientras se teclea.
#include "libro/libro.h"
#include "toolkit/indice_codigos.h"

#include <QObject>
#include <map>

/// Los de la sesión: nacen con la primera consulta y mueren con ella.
class IndicesCatalogos : public QObject {
    Q_OBJECT
public:
    static IndicesCatalogos& de_la_sesion();

    /// Cuentas activas que pueden llevar movimiento en ese libro.
    const IndiceCodigos& cuentas(Libro libro) { return lea(es_niif(libro) ? Niif : Decreto); }
    /// Terceros activos.
    const IndiceCodigos& terceros() { return lea(Terceros); }
    /// Los lee si no están y los lee otra vez si alguien los cambió. Se llama al llegar a donde se
    /// van a usar: teclear no pregunta nada a la base.
    void refresque(Libro libro);

private:
    using QObject::QObject;
    enum Cual { Decreto, Niif, Terceros };
    struct Leido {
        IndiceCodigos indice;
        QString sello; ///< cambia si alguien agrega, quita, apaga o renombra uno
        bool hecho = false;
    };
    const IndiceCodigos& lea(Cual cual);
    void refresque(Cual cual);
    static QString sello(Cual cual);

    std::map<Cual, Leido> leidos_;
};
