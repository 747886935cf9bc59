#pragma once
// Por dónde va una importación de comprobantes. Si se corta, repetirla desde el comienzo agregaría
// otra vez las líneas que ya entraron: con lo anotado sigue donde iba, sin doblar ni perder nada.
//
// Es un archivo al que solo se agrega y que se borra al terminar. Cada comprobante se anota, y se
// lleva al disco, antes de grabarlo, y otra vez ya grabado: del que quedó entre las dos cosas no se
// sabe, y se pregunta a la base.
#include "exchange/importacion.h"

#include <QMap>

/// Lo que se sabe de una importación que no terminó.
struct AvanceImportacion {
    struct EnDuda {
        int ultimo = 0; ///< CODE_ITEM de la última línea que el comprobante ya tenía
        LlaveComprobante llave;
    };
    qint64 hasta = 0;                 ///< renglón hasta el que todo está resuelto
    LlaveComprobante llave;           ///< del último que entró, con el número que tomó
    int ultimo = 0;                   ///< CODE_ITEM de la última línea que este ya tenía
    QVector<LlaveComprobante> nuevos; ///< los que nacieron en ella
    QMap<qint64, QString> rechazados; ///< hasta ese renglón
    /// Los de más adelante que se iban a grabar, por su primer renglón.
    QMap<qint64, EnDuda> en_duda;
    bool cambio_el_archivo = false; ///< no es ya el que se estaba leyendo
    bool falta_el_ultimo = false;   ///< lo borraron: otros que entraron siguen en la base
};

class DiarioImportacion {
public:
    /// `base`, `libro` y `archivo` dicen de cuál importación es; va en `carpeta`. Con otra `forma`
    /// de leerlo (columnas, separador) vale como otro archivo.
    DiarioImportacion(const QString& carpeta, const QString& base, Libro libro,
                      const QString& archivo, const QString& forma = {});

    /// Lo que dejó la que no terminó, si algo de ella está en la base.
    std::optional<AvanceImportacion> anterior(Conexion& conexion) const;
    /// Se continúa esa en lugar de empezar otra.
    void siga(const AvanceImportacion& avance) { desde_ = avance; }
    const AvanceImportacion& desde() const { return desde_; }

    void empiece();
    void por_grabar(qint64 primero, int ultimo, const LlaveComprobante& llave);
    /// `numero`: el que tomó el que no traía.
    void grabado(qint64 hasta, const QString& numero = {});
    void rechazado(qint64 renglon, const QString& razon);
    void termine();

    /// No se pudo escribir: si esta se corta, no se sabrá por dónde iba.
    bool sin_escribir() const { return sin_escribir_; }
    QString ruta() const { return diario_.fileName(); }

private:
    QString encabezado() const;
    void escriba(const QStringList& datos, bool al_disco = false);

    const QString archivo_;
    const Libro libro_;
    const QString forma_;
    QFile diario_;
    AvanceImportacion desde_;
    bool sin_escribir_ = false;
};
