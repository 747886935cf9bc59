#pragma once
// Las importaciones de cada clase de datos. Se piden con importacion_de().
#include "exchange/importacion.h"
#include "libro/comprobante.h"

#include <QHash>
#include <QSet>

/// Anota la razón y deja el renglón entre los rechazados.
class ImportacionPorRenglon : public Importacion {
public:
    using Importacion::Importacion;

protected:
    void rehuse(const RegistroLeido& registro, const QString& razon) {
        if (anote)
            anote(razon, llave_);
        rechace(registro, razon);
    }
    QSet<QString> vistos_; ///< lo que entró en este trabajo: en un ensayo no está en la base
};

class ImportacionCuentas : public ImportacionPorRenglon {
public:
    using ImportacionPorRenglon::ImportacionPorRenglon;

protected:
    void procese(const RegistroLeido& registro) override;
    void termine() override;

private:
    bool existe(const QString& codigo);
    /// Por qué la equivalente no sirve, o vacío.
    QString rechazo_de_equivalente();
    /// La que se nombra y para qué, y la última que la nombra.
    QMap<std::pair<QString, const char*>, QString> nombradas_;
};

class ImportacionTerceros : public ImportacionPorRenglon {
public:
    using ImportacionPorRenglon::ImportacionPorRenglon;

protected:
    void procese(const RegistroLeido& registro) override;

private:
    struct Ciudad {
        QString codigo;
        QString palabras, letras; ///< el nombre sin tildes ni puntuación, con blancos y sin ellos
    };
    bool existe(const QString& nit);
    /// Por qué los datos no hacen un tercero, o vacío.
    QString rechazo_de_tercero(const QString& nombre_compuesto);
    QString nombre_compuesto() const;
    Valor digito() const;
    /// Código de la ciudad que el archivo nombra, como se escribe de corrido ("Bogotá", "Cúcuta");
    /// nulo si ninguna o varias pueden ser.
    Valor ciudad(const QString& nombre);
    QVector<Ciudad> ciudades_;
};

class ImportacionSaldos : public ImportacionPorRenglon {
public:
    ImportacionSaldos(Conexion& conexion, const PeticionImportacion& peticion,
                      const AjustesLibro& ajustes, const QString& usuario)
        : ImportacionPorRenglon(conexion, peticion, ajustes, usuario), revisor_(conexion, libro()) {
    }

protected:
    void prepare() override;
    void procese(const RegistroLeido& registro) override;
    void termine() override;

private:
    QString tabla() const;
    /// Dos importaciones a la vez duplicarían los saldos: la segunda no empieza.
    void tome_turno();
    void detenidos_por_el_turno();
    void lea_item(Transaccion& t);
    void inserte(Transaccion& t);
    QStringList revise(const LineaImportada& linea);
    /// Por qué el tipo de su documento no sirve, o vacío.
    QString rechazo_de_documento();
    RevisorImportacion revisor_;
    std::unique_ptr<Transaccion> turno_; ///< vive lo que la importación
    qint64 item_ = 0;
};

/// Un comprobante empieza cuando cambian el tipo, el prefijo o el número. Sus líneas se reúnen y
/// entran todas al cerrarlo, por el camino de los asientos de la base.
class ImportacionComprobantes : public Importacion {
public:
    ImportacionComprobantes(Conexion& conexion, const PeticionImportacion& peticion,
                            const AjustesLibro& ajustes, const QString& usuario)
        : Importacion(conexion, peticion, ajustes, usuario), revisor_(conexion, libro()) {}

protected:
    void prepare() override;
    void procese(const RegistroLeido& registro) override;
    void termine() override { cierre(); }

private:
    struct Renglon {
        RegistroLeido registro;
        LineaComprobante linea;
        QStringList razones;
        bool sin_cuenta = false;
        bool entra() const { return razones.isEmpty() && !sin_cuenta; }
    };
    void empiece();
    void agregue(const RegistroLeido& registro, const QString& razon);
    void revise(Renglon& renglon);
    void falle(Renglon& renglon, const QString& razon);
    void cierre();
    QString llave_prefijo() const;
    void inserte_prefijo(Transaccion& t);
    QString asegure_prefijo();
    /// Es el que la importación cortada iba a grabar, y alcanzó.
    bool ya_entro();
    QString asiente();
    void ponga_lineas(Transaccion& t);
    QString revise_en_base(Transaccion& t);
    void grabe(Transaccion& t);
    void reparta(const QString& falla);

    RevisorImportacion revisor_;
    bool abierto_ = false;
    QVector<Renglon> renglones_;
    Moneda debitos_, creditos_;
    QString fecha_, concepto_, referencia_, falla_encabezado_;
    QString numero_final_;  ///< el que el prefijo dio al que no traía
    qint64 id_ = 0;         ///< del que ya existe; 0 si es nuevo
    int ultimo_ = 0;        ///< CODE_ITEM de la última línea del libro
    bool supuesto_ = false; ///< en un ensayo, lo "grabó" un renglón anterior
    QSet<QString> prefijos_;
    struct Supuesto {
        QString fecha;
        int ultimo = 0;
    };
    QHash<QString, Supuesto> supuestos_;
    QSet<QString> nuevos_; ///< los que nacieron en esta lectura
};
