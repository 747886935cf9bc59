#pragma once
// Reglas de la lista de documentos sin contabilizar: qué interfaz y qué libro le tocan a cada uno y
// cómo llega a tener propuesta. Nada de esto muestra nada.
#include "sesion/contabilizacion.h"

/// Un renglón de la lista.
struct DocumentoPendiente {
    int tido = 0, id = 0;
    int ctabco = 0; ///< cuenta bancaria, en los de bancos
    QString tipo = {}, prefijo = {}, numero = {};
    QDate fecha = {};

    /// "FACTURA 0001 000123"
    QString nombre() const { return tipo + ' ' + prefijo + ' ' + numero; }
};

struct PropuestaPendiente {
    int cntb_id = 0;           ///< 0: no hay nada que revisar
    QStringList mensajes = {}; ///< los que la pantalla muestra, en su orden
    QString motivo = {};       ///< por qué no la hay, cuando la lista lo calla
};

/// El tipo se contabiliza desde la lista.
bool se_despacha(int tido);

/// Deja la propuesta de un documento. `niif`: agrega el libro NIIF a la que ya tiene; en nómina es
/// lo mismo que sin él. `escoja` corre si el documento tiene varias interfaces.
PropuestaPendiente proponga(const DocumentoPendiente& documento, bool niif,
                            const EscogeInterfaz& escoja);

/// En qué paró un documento de un lote.
enum class Desenlace {
    Contabilizado,
    EnEspera, ///< tiene propuesta, pero quien la revisó no la grabó
    Fallo,
};
struct ResultadoDocumento {
    DocumentoPendiente documento;
    Desenlace desenlace = Desenlace::Fallo;
    QString motivo = {};
};
