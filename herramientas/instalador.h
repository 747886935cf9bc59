#pragma once
// Crea y pone al día el esquema de la base de una compañía o de la general a partir de los guiones.
//
// Orden de la compañía: por fase (los dos dígitos con que empieza el archivo), luego por subsistema
// (sesion, catalogues, vouchers, ledger...) y luego por nombre; la general solo tiene el suyo.
// Las listas datos/NN_TABLA.tsv entran en su fase antes que los guiones. Todo puede repetirse: lo
// que ya existe se deja quieto y una fila de semilla solo se agrega si falta su clave.
// Lo que nace con la compañía y después es suyo solo se siembra en su tabla vacía.
// Los errores son ErrorDatos con archivo, renglón y el texto del servidor.
#include "datos/firebird/version_esquema.h"

#include <QStringList>
#include <functional>

/// Carpeta de los guiones: $QUORVEX_GUIONES, la instalada junto al programa o la del proyecto.
QString carpeta_guiones();

class Instalador {
public:
    Instalador(Conexion& conexion, QString carpeta = carpeta_guiones());

    /// Instala todo en una base recién creada; las actualizaciones numeradas quedan anotadas como
    /// aplicadas, porque los guiones ya las contienen.
    void instale(TipoBase tipo);
    /// Aplica, en orden, las actualizaciones numeradas que falten y repite los guiones. Devuelve
    /// los nombres de las aplicadas. Se niega si la base es de una versión que los guiones no
    /// conocen. Entre una y otra vuelve a entrar a la base: la conexión no debe tener nada abierto.
    /// Mientras dura, el número de la versión de que se parte y el de la última llevan signo menos:
    /// la base que se quedó a medias dice ser de una anterior, nadie entra a ella y repetir la
    /// orden la termina como si no se hubiera cortado.
    QStringList actualice(TipoBase tipo);

    /// Si una actualización anterior murió antes de terminar.
    bool quedo_a_medias();

    /// Archivos de una base, en el orden en que se ejecutan, relativos a la carpeta.
    QStringList archivos(TipoBase tipo) const;

    /// Se llama con el nombre de cada archivo que comienza; puede ser nulo.
    std::function<void(const QString&)> aviso;

private:
    struct Actualizacion {
        int numero = 0;
        QString archivo;
    };
    QVector<Actualizacion> actualizaciones(TipoBase tipo) const;
    QSet<qint64> aplicadas();
    void anuncie();
    void reconecte();
    void ejecute_guiones(TipoBase tipo);
    void ejecute_guion(const QString& archivo);
    void cargue_lista(const QString& archivo);
    void anote_version(const Actualizacion& actualizacion);
    QString lea(const QString& archivo) const;

    Conexion& conexion_;
    QString carpeta_;
    bool nueva_ = false;
    int desde_ = 0; ///< versión de la que parte una actualización
};
