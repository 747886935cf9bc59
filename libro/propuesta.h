#pragma once
// De la propuesta de un documento de otro módulo (CONTABILIZACION, CONTABILIZACION_DET) al
// comprobante. Las reglas lanzan la falla de la base; entonces nada de lo suyo quedó escrito.
#include "datos/firebird/conexion.h"
#include "libro/libro.h"

struct DocumentoOrigen {
    int tipo = 0, id = 0; ///< ENCO_TIPOREF y ENCO_IDREF del comprobante que salga de él
};

/// Los renglones de una propuesta dicen su libro con su número: desde este son del NIIF.
inline constexpr int kPrimerItemNiif = 100000;

/// Id del comprobante del documento, el primero que se encuentre; 0 si no está contabilizado.
qint64 comprobante_del_documento(Conexion& conexion, const DocumentoOrigen& documento);
/// Id del mayor de sus comprobantes; 0 si no está contabilizado. Lo que vio quien lo revisa.
qint64 ultimo_comprobante(Conexion& conexion, const DocumentoOrigen& documento);
/// Lanza ErrorOtroUsuario si la propuesta ya no existe, porque alguien volvió a contabilizar el
/// documento, o si este tiene un comprobante mayor que `visto`.
void exija_propuesta_vigente(Conexion& conexion, int cntb_id, qint64 visto);
/// Borra el comprobante del documento con las líneas de sus dos libros, en la misma transacción en
/// que exige lo anterior y ensaya la conversión: el que otro hizo mientras tanto no se borra, ni el
/// que no se podría rehacer o está en una fecha bloqueada.
void borre_comprobante_del_documento(Conexion& conexion, const DocumentoOrigen& documento,
                                     int cntb_id, qint64 visto, const QString& usuario);
/// Hace el comprobante de la propuesta ya guardada. `corrida`: el libro que se contabilizó.
void convierta_propuesta(Conexion& conexion, int cntb_id, Libro corrida, const QString& usuario);
/// Nombre del comprobante del documento de la propuesta si su libro 2649 ya no es el de ella,
/// porque alguien lo corrigió; vacío si es el mismo o no lo hay.
QString comprobante_corregido(Conexion& conexion, int cntb_id);

/// Lo que la pantalla de revisión hace con una propuesta que nadie cambia, y su conversión, en una
/// sola transacción: si algo la rehúsa, el documento queda como estaba. Falso, sin escribir, si un
/// libro no cuadra y debe verlo una persona.
bool asiente_sin_revisar(Conexion& conexion, const DocumentoOrigen& documento, int cntb_id,
                         Libro corrida, bool permite_descuadre, const QString& usuario);
