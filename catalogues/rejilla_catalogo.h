#pragma once
// Pantalla de un catálogo pequeño: la tabla entera en una rejilla editable.
//
// F2 graba y cierra, Esc deja todo como estaba. Una fila sin llave se descarta al dejarla; así una
// fila nueva que se abandona desaparece sin preguntar.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/columna_rejilla.h"

class BarraBotones;
class NavegadorDatos;
class Rejilla;

class RejillaCatalogo : public Pantalla {
    Q_OBJECT
public:
    void FormCreate() override;
    bool FormClose() override;

protected:
    /// `tabla` da nombre al proveedor (P + tabla) y al conjunto (C + tabla).
    RejillaCatalogo(const QString& clase, const QString& titulo, Sentencia& sentencia,
                    const QString& tabla, const QString& llave);
    /// Con una consulta propia en vez de una sentencia de la sesión.
    RejillaCatalogo(const QString& clase, const QString& titulo, const QString& sql,
                    Conexion& conexion, const QString& tabla, const QString& llave);
    /// Arma rejilla y botones cuando los campos del conjunto ya están definidos.
    void arme(const QVector<DefinicionColumna>& columnas, const QString& nombre_archivo);
    /// "S" o "N" en la columna: las filas que no estén activas salen en rojo.
    void resalte_inactivos(const QString& columna);

    void SBGrabarClick();
    void SBCancelarClick();

    Proveedor* proveedor_;
    ConjuntoDatos* conjunto_;
    Rejilla* DBGridEh1 = nullptr;
    BarraBotones* barra_ = nullptr;
    QString rotulo_grabar_ = QStringLiteral("F2:Grabar");

private:
    void lea_de(Sentencia& sentencia, const QString& tabla);

    QString llave_;
};
