#pragma once
// "Resumen de la contabilización": en qué paró cada documento de un lote, lo que falló primero.
//
// Doble clic, o Enter, lleva al documento: responde cuál.
#include "datos/recordset/conjunto.h"
#include "posting/pendientes.h"
#include "toolkit/pantalla.h"

class QLabel;
class Rejilla;
class TextoDeFila;

struct AbreResumen {
    using Respuesta = int; ///< posición del escogido en `resultados`
    QVector<ResultadoDocumento> resultados = {};
    int sin_empezar = 0; ///< los que quedaban al cancelar
};

class Tfresumencontab : public Pantalla {
    Q_OBJECT
public:
    Tfresumencontab();
    void FormCreate() override;

    ConjuntoDatos CResumen{this, "CResumen"};
    Rejilla* DBGridEh1;
    QLabel* ECuenta;
    TextoDeFila* EMotivo;

private:
    void BitBtn1Click(); ///< Ir al documento
    void llene(const QVector<ResultadoDocumento>& resultados);
};
