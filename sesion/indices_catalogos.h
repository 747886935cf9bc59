#pragma once
// Cuentas, terceros y centros de la compañía, en memoria, para completar mientras se teclea.
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
    const IndiceCodigos& proyectos() { return lea(Proyectos); }
    /// Los centros del proyecto que el usuario puede ver.
    const IndiceCodigos& centros(const QString& proyecto) { return lea(Centros, proyecto); }
    /// Los lee si no están y los lee otra vez si alguien los cambió: mientras nadie confirme un
    /// cambio en un catálogo es una consulta que no mira ninguno. Se llama al llegar a donde se
    /// van a usar: teclear no pregunta nada a la base.
    void refresque(Libro libro);
    void refresque_cuentas(Libro libro);
    void refresque_terceros();
    void refresque_centros();

private:
    using QObject::QObject;
    enum Cual { Decreto, Niif, Terceros, Proyectos, Centros };
    struct Leido {
        std::map<QString, IndiceCodigos> indices; ///< por proyecto los centros; los demás, uno solo
        QString sello; ///< cambia si alguien agrega, quita, apaga o renombra uno
        QString visto; ///< lo que decía la base de sus catálogos al mirarlo
        bool hecho = false, firme = false;
    };
    const IndiceCodigos& lea(Cual cual, const QString& grupo = {});
    void refresque(Cual cual, const QString& confirmado);
    /// Es una ayuda: sin servidor se queda como estaba, y quien digita lo sabrá por lo que haga.
    void refresque(std::initializer_list<Cual> cuales);
    static QString sello(Cual cual);

    std::map<Cual, Leido> leidos_;
};
