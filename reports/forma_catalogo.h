#pragma once
// Catálogos impresos de un maestro: un rango sobre la columna por la que se ordena.
#include "catalogues/forma_rango.h"

class QButtonGroup;
class QGroupBox;

class FormaCatalogo : public FormaRango {
    Q_OBJECT
public:
    /// Renglón de `RGOrd` y la columna que ordena y limita.
    struct Orden {
        QString rotulo, columna;
    };
    /// `codigo` y `nombre`: los dos renglones, en ese orden. `codigos`: de qué son los códigos.
    FormaCatalogo(const QString& clase, const QString& titulo, const QString& conexion,
                  const QString& conjunto, const Orden& codigo, const Orden& nombre,
                  ClaseRango codigos);

    QGroupBox* RGOrd;

    void FormCreate() override;

protected:
    /// Las cajas y el ordenamiento; después van las casillas propias y los botones.
    void arme_rango(Formulario& f);
    void antes_de_abrir() override;
    ClaseRango clase_de(const ParRango& par) const override;
    QString titulo() override;
    QString rango_legible() override;

    const Orden& orden() const;
    const QString& columna() const { return orden().columna; }
    bool por_codigo() const { return &orden() == &ordenes_[0]; }
    /// "cuen_cod >= '0' and cuen_cod <= 'ZZ'".
    QString dentro_del_rango() const;

    /// Columna que se imprime y no se exporta: lo que una bandera dice en palabras.
    void palabra(const QString& nombre, int largo);
    void entero_impreso(const QString& nombre);
    /// Llena esas columnas en la fila actual.
    virtual void describa() {}
    QString dato(const char* campo) const { return CAuxiliar.FieldByName(campo).texto(); }
    bool si(const char* campo) const { return dato(campo) == QLatin1String("S"); }

private:
    const QVector<Orden> ordenes_;
    QButtonGroup* grupo_;
    bool hay_fila_ = false;
};
