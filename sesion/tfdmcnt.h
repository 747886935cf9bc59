#pragma once
// Módulo de datos de la contabilidad: período, cuentas, centros, comprobantes y los campos con que
// una pantalla entrega una selección a otra.
#include "datos/recordset/conjunto.h"
#include "libro/borrado.h"
#include "libro/fechas.h"

/// Período contable y cómo se mueve: 0 a 11 los meses, 12 "Ajustes".
struct CursorPeriodo {
    int ano = 0;
    int indice = 0;
    /// Después de "Ajustes" sigue el primer mes del otro año; no hay límite.
    void mas();
    /// En el mes de inicio de la contabilidad se queda, con un pitido.
    void menos();
    /// Número que va a un procedimiento: 1 a 13.
    int numero() const { return indice + 1; }
};

enum class ResultadoBorrado { Negado, Ajeno, Conservado, Borrado };

class Tfdmcnt : public QObject {
    Q_OBJECT
public:
    Tfdmcnt();
    ~Tfdmcnt() override;

    // --- período: 0 a 11 los meses, 12 "Ajustes" (13 "Cierre" solo si así quedó guardado)
    QString ano_actual;
    int periodo_actual = 0;
    QString dia_actual = QStringLiteral("01"); ///< día tecleado en el último comprobante
    void mes_mas();
    void mes_menos();
    /// Guarda el período en la fila del usuario.
    void guarde_periodo();
    CursorPeriodo cursor() const;
    QString nombre_periodo() const;
    QString dias_periodo() const;
    QString compone_fecha(const QString& dia) const;       ///< "aaaammdd"; corrige y pita si excede
    QString compone_fecha_admin(const QString& dia) const; ///< "aaaa/mm/dd"

    // --- selecciones entre pantallas: quien las toma las vacía
    QString cuenta_seleccion, proyecto_seleccion, centro_seleccion, concepto_seleccion;
    QString activo_seleccionado, articulo_seleccion, plantilla_seleccion;
    QString norma_seleccion, item_norma_seleccion;
    QString cuenta_auxiliar, cuenta_localizar, texto_busqueda;
    QString tercero_auxiliar, proyecto_auxiliar, centro_auxiliar, articulo_auxiliar;
    QString comprobante_encontrado; ///< comprobante por abrir
    QString tipo_informe;
    Valor tipo_busqueda;      ///< tipo con que abre la búsqueda de comprobantes
    QString nit_comprobantes; ///< tercero de la lista de comprobantes
    bool balance_por_recalcular = false;
    bool seleccion_cancelada = false;

    // --- sentencias compartidas
    Sentencia QBusccuentas, TEstructura, TComprobantes, TComprDetalle, TCompniif, SIdComproba;
    Sentencia QBalanceprueba, QBalniif, QAuxiliar, QSaldos, QComproba, QUsuarios, QSaldo;
    Sentencia TConceptoconta, TNorma, TNormadet, TNormacta, TPlantilla, TPlantilladetalle,
        TPlantilladn;
    Sentencia SIdPlantilla, TSaldiniciales;
    Sentencia QConsultas;
    Proveedor PConsultas, PPadre, PSaldocta;
    ConjuntoDatos CConsultas, CPadre, CSaldocta;

    // --- cuentas; con el libro por omisión son las de 2649
    /// Pregunta a la base si la cuenta puede llevar movimiento, con sus mensajes. Una cuenta que no
    /// existe se ofrece crear: "Sí" abre la pantalla de cuenta nueva y responde verdadero.
    bool valide_cuenta(const QString& cuenta, Libro libro = Libro::Decreto2649);
    bool valide_cuenta_niif(const QString& cuenta) { return valide_cuenta(cuenta, Libro::Niif); }
    /// Nombre, o vacío si no existe (callado) o está inactiva (con mensaje).
    QString nom_cuenta(const QString& cuenta, Libro libro = Libro::Decreto2649);
    QString nom_cuenta_niif(const QString& cuenta) { return nom_cuenta(cuenta, Libro::Niif); }
    QString padre(const QString& cuenta);
    Moneda saldo_cuenta(const QString& cuenta, const QString& fecha);

    // --- centros
    QString nom_centro(const QString& proyecto);
    QString nom_subcentro(const QString& proyecto, const QString& centro);
    bool valide_centro(const QString& proyecto, const QString& centro);

    // --- comprobantes
    bool existe_ComContable(const QString& tipo, const QString& prefijo, const QString& numero);
    /// Falso: el usuario no quiso consultar el comprobante repetido y el número debe vaciarse.
    bool valide_NumComConta(const QString& tipo, const QString& prefijo,
                            const QString& numero_sugerido, Campo& campo);
    /// Lo que la compañía decide de todo comprobante.
    AjustesLibro ajustes_libro();
    /// Derecho, origen, pregunta y borrado, con las diferencias del renglón de esa pantalla.
    /// Muestra sus mensajes; las fallas de la base salen.
    ResultadoBorrado borrar_comprobante(const QString& pantalla, const PedidoBorrado& pedido);
    /// Descripción de un activo fijo, o vacía.
    QString desc_activo(const QString& codigo);

private:
    void mueva_periodo(void (CursorPeriodo::*paso)());
};

Tfdmcnt& fdmcnt();
