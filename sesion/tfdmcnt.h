#pragma once
// Módulo de datos de la contabilidad: período, cuentas, centros y comprobantes.
#include "libro/borrado.h"
#include "libro/fechas.h"
#include "sesion/tfdm.h"

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
    /// Id del comprobante, nulo si no existe.
    std::optional<QString> existe_ComContable(const QString& tipo, const QString& prefijo,
                                              const QString& numero);
    /// Con el número de otro comprobante pregunta si se consulta; el sugerido que otro usuario tomó
    /// se adelanta a uno libre, y con él el contador.
    NumeroValidado valide_NumComConta(const QString& tipo, const QString& prefijo,
                                      const QString& numero_sugerido, Campo& campo);
    /// Lo que la compañía decide de todo comprobante.
    AjustesLibro ajustes_libro();
    /// Derecho, origen, pregunta y borrado, con las diferencias del renglón de esa pantalla.
    /// Muestra sus mensajes; las fallas de la base salen.
    ResultadoBorrado borrar_comprobante(const QString& pantalla, const PedidoBorrado& pedido);
    /// Descripción de un activo fijo, o vacía.
    QString desc_activo(const QString& codigo);

signals:
    /// El libro o el período cambiaron: los balances que estén a la vista se leen otra vez al
    /// activarse. Quien lo cambia hace `emit fdmcnt().balance_por_recalcular()`.
    void balance_por_recalcular();

private:
    void mueva_periodo(void (CursorPeriodo::*paso)());
};

Tfdmcnt& fdmcnt();
