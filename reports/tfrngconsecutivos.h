#pragma once
// Listados de comprobantes: los consecutivos de un rango de números, para ver que no falte ninguno
// (Tfrngconsecutivos), y los de un rango de tipos en el orden de sus fechas (Tfrngcronologicos).
#include "catalogues/forma_rango.h"

/// Lo que distingue a un listado.
struct DatosListado {
    DatosRango rango;
    QString procedimiento;
    QStringList tramos;             ///< rótulo de cada par de cajas en el título
    bool con_fechas;                ///< empieza en el período de la sesión
    QString detallado, consolidado; ///< páginas del informe
    QString titulo_niif;            ///< antes de "Detallado NIIF" o "Consolidado NIIF"
};

class Tfrngconsecutivos : public FormaRango {
    Q_OBJECT
public:
    explicit Tfrngconsecutivos(const DatosListado& listado);
    /// Los que hay, cada uno con el nombre de su pantalla.
    static const QVector<DatosListado>& listados();

    QCheckBox *Ckdetalle, *CkDesc;

protected:
    QString sql() override;
    QString titulo() override;
    QString rango_legible() override;
    QString reporte() override;
    QString titulo_niif() override;

private:
    const DatosListado& listado_;
};
