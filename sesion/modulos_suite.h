#pragma once
// Módulos de datos de los módulos hermanos de la suite: ventas, inventario, cartera, caja...
//
// Viven lo que el proceso y se crean al comienzo sin tocar datos. Cada uno contabiliza los
// documentos de su área; qué procedimientos y qué códigos de falla usa cada operación se dice en su
// renglón. Algunas solo las llaman los módulos hermanos, que comparten este servicio.
#include "sesion/contabilizacion.h"

#include <QObject>

/// Área dueña de un tipo de documento. Transporte y colegios venden; importaciones compra.
AreaSuite area_del_documento(int tipo);

class ModuloSuite : public QObject {
    Q_OBJECT
public:
    const AreaSuite area;

    ~ModuloSuite() override;
    /// El módulo del área; lanza ErrorDatos si no se ha creado.
    static ModuloSuite& vivo(AreaSuite area);

    /// Interfaz con que se contabilizará un documento. Sin `preguntar` solo comprueba que la haya y
    /// da 0 sin mensaje. Con varias, `escoja` dice cuál.
    virtual InterfazAbierta abre_interfaz(int tido_cod, const QString& pref_pre, bool preguntar,
                                          const EscogeInterfaz& escoja);

protected:
    ModuloSuite(const char* nombre, AreaSuite area);
    static InterfazAbierta escoja_entre(const QVector<InterfazContable>& interfaces, bool preguntar,
                                        const EscogeInterfaz& escoja, const QString& sin_ninguna);
};

#define QUORVEX_CONTABILICE(operacion, ...)                                                        \
    Contabilizado operacion(int id_documento, int id_interfaz, const QDate& fecha) {               \
        return contabilice({__VA_ARGS__}, id_documento, id_interfaz, fecha);                       \
    }
#define QUORVEX_CONTABILICE_SIN_GEMELO(operacion, procedimiento, errores)                          \
    Contabilizado operacion(int id_documento, int id_interfaz, const QDate&) {                     \
        return contabilice_sin_gemelo({procedimiento, nullptr, errores}, id_documento,             \
                                      id_interfaz);                                                \
    }

class TfdmInv : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Inventario;
    TfdmInv() : ModuloSuite("TfdmInv", kArea) {}
    QUORVEX_CONTABILICE(contabilice_cambcosto, "contabil_cambcosto", "contabil_cambcosto_niif", 10,
                        11)
    QUORVEX_CONTABILICE(contabilice_entrada, "contabil_entrada", "contabil_entrada_niif", 11, 11)
    QUORVEX_CONTABILICE(contabilice_salida, "contabil_salida", "contabil_salida_niif", 12, 11)
    QUORVEX_CONTABILICE(contabilice_traslado, "contabil_traslamercancia", "contabil_trasmerc_niif",
                        13, 11)
    QUORVEX_CONTABILICE(contabilice_ajuste, "contabil_ajuste", "contabil_ajuste_niif", 14, 11)
    QUORVEX_CONTABILICE(contabilice_ensamble, "contabil_ensamble", "contabil_ensamble_niif", 15, 11)
    QUORVEX_CONTABILICE(contabilice_desensamble, "contabil_desensamble",
                        "contabil_desensamble_niif", 16, 11)
    QUORVEX_CONTABILICE(contabilice_produccion, "contabil_produccion", "contabil_produccion_niif",
                        19, 11)
    QUORVEX_CONTABILICE(contabilice_produccionEnt, "contabil_produccion_ent",
                        "contabil_prodent_niif", 20, 11)
    QUORVEX_CONTABILICE(contabilice_produccionSal, "contabil_produccion_sal",
                        "contabil_prodsal_niif", 28, 11)
    QUORVEX_CONTABILICE(contabilice_produccionDev, "contabil_produccion_dev",
                        "contabil_proddev_niif", 29, 11)
};

class Tfdmcmp : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Compras;
    Tfdmcmp() : ModuloSuite("Tfdmcmp", kArea) {}
    QUORVEX_CONTABILICE(contabilice_facturac, "contabil_factcomp", "contabil_factcomp_niif", 21, 31,
                        true)
    // Los errores de la remisión quedan con el código de la devolución.
    QUORVEX_CONTABILICE(contabilice_remiprov, "contabil_remiprov", "contabil_remiprov_niif", 24, 31)
    QUORVEX_CONTABILICE(contabilice_devolucionc, "contabil_devolcomp", "contabil_devolcomp_niif",
                        24, 31)
    InterfazAbierta abre_interfaz(int tido_cod, const QString& pref_pre, bool preguntar,
                                  const EscogeInterfaz& escoja) override;
};

class Tfdmfact : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Facturacion;
    Tfdmfact() : ModuloSuite("Tfdmfact", kArea) {}
    /// Una factura de contado solo se contabiliza si así está configurado.
    Contabilizado contabilice_factura(int id_documento, int id_interfaz, const QDate& fecha);
    QUORVEX_CONTABILICE(contabilice_remiclie, "contabil_remiclie", "contabil_remiclie_niif", 32, 32)
    QUORVEX_CONTABILICE(contabilice_devolucion, "contabil_devolcli", "contabil_devolcli_niif", 33,
                        33)
    QUORVEX_CONTABILICE_SIN_GEMELO(contabilice_rutero, "contabil_rutero", 37)
};

class Tfdmcar : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Cartera;
    Tfdmcar() : ModuloSuite("Tfdmcar", kArea) {}
    QUORVEX_CONTABILICE(contabilice_notadb, "contabil_notadbcl", "contabil_notadbcl_niif", 41, 31)
    QUORVEX_CONTABILICE(contabilice_notacr, "contabil_notacrcl", "contabil_notacrcl_niif", 42, 31)
    QUORVEX_CONTABILICE(contabilice_aplica, "contabil_aplicacl", "contabil_aplicacl_niif", 43, 31)
    QUORVEX_CONTABILICE_SIN_GEMELO(contabilice_deterioro, "contabil_deterioro", 47)
};

class Tfdmcxp : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::CuentasPorPagar;
    Tfdmcxp() : ModuloSuite("Tfdmcxp", kArea) {}
    QUORVEX_CONTABILICE(contabilice_notadb, "contabil_notadbpr", "contabil_notadbpr_niif", 51, 31)
    QUORVEX_CONTABILICE(contabilice_notacr, "contabil_notacrpr", "contabil_notacrpr_niif", 52, 31)
    QUORVEX_CONTABILICE(contabilice_aplicapr, "contabil_aplicapr", "contabil_aplicapr_niif", 53, 31)
};

class Tfdmcja : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Caja;
    Tfdmcja() : ModuloSuite("Tfdmcja", kArea) {}
    QUORVEX_CONTABILICE(contabilice_recibo, "contabil_recicaja", "contabil_recicaja_niif", 61, 31)
    /// El recibo que busca su interfaz; sus errores se leen con el código de la nota débito.
    Contabilizado contabilice_recicaja(int id_documento, const QString& pref_pre,
                                       const QDate& fecha);
    QUORVEX_CONTABILICE(contabilice_egreso, "contabil_egreso", "contabil_egreso_niif", 62, 31)
    QUORVEX_CONTABILICE(contabilice_consignatj, "contabil_consignatar", "contabil_consignatar_niif",
                        64, 31)
    QUORVEX_CONTABILICE(contabilice_reciprov, "contabil_reciprov", "contabil_reciprov_niif", 65, 31)
    QUORVEX_CONTABILICE(contabilice_trascaja, "contabil_traslacaja", "contabil_traslacaja_niif", 66,
                        31)
};

class Tfdmbnc : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Bancos;
    Tfdmbnc() : ModuloSuite("Tfdmbnc", kArea) {}
    QUORVEX_CONTABILICE(contabilice_consigna, "contabil_consigna", "contabil_consigna_niif", 71, 31)
    QUORVEX_CONTABILICE(contabilice_notadebito, "contabil_notadbbc", "contabil_notadbbc_niif", 74,
                        31)
    QUORVEX_CONTABILICE(contabilice_notacredito, "contabil_notacrbc", "contabil_notacrbc_niif", 75,
                        31)
    QUORVEX_CONTABILICE(contabilice_traslacuenta, "contabil_trascuenta", "contabil_trascuenta_niif",
                        76, 31)
    QUORVEX_CONTABILICE(contabilice_devolcheq, "contabil_devolcheq", "contabil_devolcheq_niif", 77,
                        31)
    /// Un cheque devuelto no mira la cuenta, salvo que cada una lleve sus consecutivos.
    InterfazAbierta abre_interfaz(int tido_cod, int cuba_cod, bool preguntar,
                                  const QString& pref_pre, const EscogeInterfaz& escoja);

private:
    using ModuloSuite::abre_interfaz; // la de bancos siempre dice la cuenta
};

class Tfdmnomina : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Nomina;
    Tfdmnomina() : ModuloSuite("Tfdmnomina", kArea) {}
    // Los dos dejan sus errores con el código del egreso.
    Contabilizado contabilice_nomina(int id_documento) {
        return contabilice_de_nomina({"contabil_nomina", nullptr, 62}, id_documento, 92);
    }
    Contabilizado contabilice_pagonomi(int id_documento) {
        return contabilice_de_nomina({"contabil_pagonomi", nullptr, 62}, id_documento, 91);
    }
    Contabilizado contabilice_prestamo(int id_documento) {
        return contabilice_sin_gemelo({"contabil_prestamo", nullptr, 95}, id_documento, {});
    }
};

class Tfdmcrm : public ModuloSuite {
public:
    static constexpr AreaSuite kArea = AreaSuite::Clientes;
    Tfdmcrm() : ModuloSuite("Tfdmcrm", kArea) {}
};

/// El módulo de esa clase que vive en el proceso.
template <class Modulo> Modulo& modulo_suite() {
    return static_cast<Modulo&>(ModuloSuite::vivo(Modulo::kArea));
}

#undef QUORVEX_CONTABILICE
#undef QUORVEX_CONTABILICE_SIN_GEMELO
