#pragma once
// "Mensaje instantáneo": escribe a otro usuario o a todos, contesta y muestra lo conversado.
#include "datos/recordset/conjunto.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class ListaDato;
class MemoDato;
class QTimer;
class Rejilla;
class TextoDeFila;

class Tfmensaje : public Pantalla {
    Q_OBJECT
public:
    Tfmensaje();

    // --- conjuntos
    Sentencia QUsuarios{this, "QUsuarios", fdm().ConGeneral,
                        "SELECT USUA_COD, USUA_NOMBRE FROM USUARIO"};
    Sentencia QUsermensaje{this, "QUsermensaje", fdm().ConGeneral,
                           "SELECT USUA_COD USUARIO, USUA_NOMBRE NOMBRE, FECCON FROM USUARIO "};
    Sentencia QHistmensaje{this, "QHistmensaje", fdm().Quorvex};
    Sentencia TMensajes{this, "TMensajes", fdm().Quorvex,
                        "SELECT * FROM MENSAJERIA WHERE MENS_ID = :ID"};
    Proveedor PUsuarios{this, "PUsuarios", &QUsuarios};
    Proveedor PUsermens{this, "PUsermens", &QUsermensaje};
    Proveedor PHistomens{this, "PHistomens", &QHistmensaje, poAllowCommandText};
    Proveedor PMensajes{this, "PMensajes", &TMensajes};
    ConjuntoDatos CUsuarios{this, "CUsuarios", &PUsuarios};
    ConjuntoDatos CUsermens{this, "CUsermens", &PUsermens};
    ConjuntoDatos Chistomens{this, "Chistomens", &PHistomens};
    ConjuntoDatos CMensajes{this, "CMensajes", &PMensajes};

    // --- controles
    Rejilla *DBGridEh1, *DBGridEh2; ///< usuarios e historia
    TextoDeFila* EMensaje;          ///< el de la historia
    MemoDato* MENS_MENSAJE;
    ListaDato* MENS_NIVEL;
    QTimer* Timer1;

    void FormCreate() override;
    bool FormClose() override;

private:
    void defina_conjuntos();
    void construya();
    void envie(const QString& destino);
};
