#pragma once
// Lo que las pantallas del sistema se piden unas a otras, con sus tipos y sus operaciones.
//
// Quien escoge algo llama la operación y dice qué hará con lo escogido; llega cuando su pantalla
// vuelve a activarse, o nunca si la lista se cerró sin escoger (toolkit/peticion.h):
//
//     escoja_tercero(*this, texto, [this](const QString& nit) { reciba("TERC_NIT", nit); });
//
// Quien atiende lee la petición por su tipo, peticion<PideTercero>().texto_busqueda, y contesta con
// responda<PideTercero>(nit).
#include "libro/libro.h"
#include "sesion/contabilizacion.h"
#include "toolkit/peticion.h"

#include <QString>

class Pantalla;

// ---------------------------------------------------------------- listas

/// Con que el menú abre una lista: Enter modifica en vez de escoger.
struct AbreLista {
    bool modo_mantenimiento = false;
};

/// Con que se abre un catálogo pequeño desde la ficha que tiene uno de sus valores.
struct AbreCatalogo {
    QString valor; ///< el código de la fila en que se ubica
};

/// Una cuenta del plan de la lista que se abra.
struct PideCuenta {
    using Respuesta = QString;
    QString texto_busqueda = {};
    QString cuenta_localizar = {}; ///< fila en que se ubica
    bool modo_selector = false;    ///< modal, solo con escoger y salir
};
struct PideTercero {
    using Respuesta = QString; ///< NIT
    QString texto_busqueda = {};
    QString tercero_localizar = {}; ///< fila en que se ubica
};
/// Un tercero nuevo con ese NIT; responde cuando queda grabado.
struct PideNuevoTercero {
    using Respuesta = QString;
    QString tercero_seleccion = {};
};
struct CentroEscogido {
    QString proyecto_seleccion, centro_seleccion;
};
struct PideCentro {
    using Respuesta = CentroEscogido;
    bool modo_selector = false;    ///< modal
    CentroEscogido localizar = {}; ///< filas en que se ubica
};
struct PideConcepto {
    using Respuesta = QString; ///< código de la categoría
    QString concepto_localizar = {};
};
struct PideArticulo {
    using Respuesta = QString;
    QString articulo_localizar = {};
};
struct PideActivo {
    using Respuesta = QString;
    QString activo_localizar = {};
};
struct PidePlantilla {
    using Respuesta = QString; ///< id
};
struct NormaEscogida {
    QString norma_seleccion, item_norma_seleccion;
};
struct PideNorma {
    using Respuesta = NormaEscogida;
};

template <class P> using Recibo = std::function<void(const typename P::Respuesta&)>;

/// El plan del libro, buscando `texto` si lo hay. `actual`, en esta y en las demás, es lo que ya
/// tiene quien pide: la lista se ubica ahí.
void escoja_cuenta(Pantalla& este, Libro libro, const QString& texto, Recibo<PideCuenta> reciba,
                   const QString& actual = {});
/// El plan como selector modal, ubicado en `cuenta_localizar`; vacío si salió sin escoger.
QString escoja_cuenta_modal(const QString& cuenta_localizar, Libro libro = Libro::Decreto2649);
void escoja_tercero(Pantalla& este, const QString& texto, Recibo<PideTercero> reciba,
                    const QString& actual = {});
void cree_tercero(Pantalla& este, const QString& nit, Recibo<PideNuevoTercero> reciba);
void escoja_centro(Pantalla& este, Recibo<PideCentro> reciba, const CentroEscogido& actual = {});
void escoja_concepto(Pantalla& este, Recibo<PideConcepto> reciba, const QString& actual = {});
void escoja_articulo(Pantalla& este, Recibo<PideArticulo> reciba, const QString& actual = {});
void escoja_activo(Pantalla& este, Recibo<PideActivo> reciba, const QString& actual = {});
void escoja_plantilla(Pantalla& este, Recibo<PidePlantilla> reciba);
void escoja_norma(Pantalla& este, Recibo<PideNorma> reciba);

// ---------------------------------------------------------------- fichas y consultas

/// Cuenta que se crea (Tfnvacuenta) o se modifica (Tfmodcuenta).
struct AbreCuenta {
    QString cuenta_seleccion = {};
};
/// Tercero que se modifica o cuyos documentos se ven.
struct AbreTercero {
    QString tercero_seleccion = {};
};
struct AbreArticulo {
    QString articulo_seleccion = {};
};
struct AbrePlantilla {
    QString plantilla_seleccion = {}; ///< id
};
/// Comprobante por editar o imprimir.
struct AbreComprobante {
    QString comprobante_encontrado = {}; ///< ENCO_CONSEC
};
/// Cuenta de un auxiliar, de unos saldos o de una norma, con lo que la acompañe.
struct AbreAuxiliar {
    QString cuenta_auxiliar = {};
    QString tercero_auxiliar = {}, proyecto_auxiliar = {}, centro_auxiliar = {},
            articulo_auxiliar = {};
};
struct AbreBusquedaComprobantes {
    QString tipo_busqueda = {}; ///< TICO_COD en que empieza; vacío: todos
};
struct AbreComprobantesTercero {
    QString nit_comprobantes = {}, nombre_seleccion = {};
};
/// Formato de impresión por editar: un prefijo o un tipo.
struct AbreFormato {
    QString formato_actual = {};
};
/// Formato de impresión cuyos elementos se van a mover.
struct MueveFormato {
    int tipo = 0; ///< TIDO_COD; 1 los comprobantes
    QString llave = {};
};
/// Informe que varios reportes comparten: la letra dice cuál.
struct AbreInforme {
    QString tipo_informe = {};
    bool niif = false; ///< con el libro NIIF ya marcado
};
struct RespondeMensaje {
    QString mensaje_responder = {}; ///< id del que se contesta
    QString autor_responder = {};
};

/// Propuesta por revisar: la del documento de otro módulo.
struct AbreContabilizacion {
    int tipo_ref = 0, id_ref = 0;
};
/// Una de varias interfaces contables; responde su id.
struct PideInterfaz {
    using Respuesta = int;
    QVector<InterfazContable> interfaces = {};
};

/// Abre la revisión en modal. Verdadero si quedó guardada, y entonces falta convertirla.
bool revise_contabilizacion(int tipo_ref, int id_ref);
/// Nulo si se desistió.
std::optional<int> escoja_interfaz(const QVector<InterfazContable>& interfaces);

void cree_cuenta(Libro libro, const QString& cuenta);
void modifique_cuenta(Libro libro, const QString& cuenta);
void abra_comprobante(const QString& id);
/// Pregunta cómo y lo imprime.
void imprima_comprobante(const QString& id);
void abra_auxiliar(Libro libro, const QString& cuenta);
