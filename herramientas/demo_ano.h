#pragma once
// El año de la compañía de demostración, día por día.
#include "herramientas/azar.h"
#include "herramientas/demo_catalogos.h"
#include "herramientas/demo_libro.h"

#include <array>
#include <deque>

class AnoDemo {
public:
    AnoDemo(Conexion& compania, CatalogosDemo catalogos, quint64 semilla, int ano);

    /// Saldos con que arranca el año, cuadrados, en los dos libros.
    void abra();
    /// Movimiento de un mes (1 a 12). `milesimas` es el volumen: 1000 es el normal.
    void mes(int mes, qint64 milesimas);
    /// Más ventas en diciembre hasta llegar a `renglones`.
    void complete(qint64 renglones);
    /// Ajustes del periodo 13.
    void ajuste();

    LibroDemo& libro() { return libro_; }

private:
    struct Cartera {
        QString numero, nit, nombre;
        Moneda valor;
        int tipo = 0;
        QString cuenta;
    };

    QString fecha(int mes, int dia) const;
    AsientoDemo asiento(const QString& tipo, const QString& concepto) const;
    RenglonDemo de(const QString& nit) const;
    RenglonDemo en(const CentroDemo& centro, const QString& nit = {}) const;

    /// Saldos iniciales que se van poniendo: un valor negativo va al crédito.
    struct SaldosDemo {
        QVector<RenglonDemo> filas;
        void ponga(const QString& cuenta, Moneda debito, const RenglonDemo& datos = {});
    };
    void abra_clientes(SaldosDemo& saldos);
    void abra_activos(SaldosDemo& saldos);
    void abra_proveedores(SaldosDemo& saldos);
    void abra_impuestos(SaldosDemo& saldos);
    void abra_laborales(SaldosDemo& saldos);
    /// Los escribe en el libro, cerrados con la utilidad de otros años.
    void grabe_saldos(QVector<RenglonDemo> filas, bool niif);

    struct Vendido {
        int articulo;
        Moneda costo, precio;
    };
    void dia(qint64 milesimas);
    void fechas_del_mes();
    void fin_de_mes();
    /// Hoy es ese día del mes o, si no era hábil, el primero que le sigue.
    bool toca(int dia) const;
    QVector<Vendido> escoja_vendidos();
    void venda();
    void devuelva();
    void compre(int articulo);
    void gaste(const GastoDemo& gasto);
    void recaude();
    void pague();
    void consigne();
    void pague_nomina(int quincena);
    /// Aportes del patrono y provisiones de un empleado, sobre lo que devengó en el mes.
    void provisione(AsientoDemo& a, const EmpleadoDemo& empleado);
    AsientoDemo egreso(const QString& concepto, const QString& nit = {}) const;
    void pague_aportes();
    void pague_prima();
    void pague_cesantias();
    void pague_intereses_cesantias();
    void deprecie();
    void cobre_banco();
    void pague_al_exterior();
    void reciba_indemnizacion();
    void reciba_sin_saber_de_quien();
    void pague_credito();
    void pague_retenciones();
    void pague_reteica();
    void pague_iva();
    void cause_ica();
    void pague_ica();
    void pague_renta();
    /// Las del año pasado, que se consignan en febrero: un mes de salario, sin más.
    static Moneda cesantias_anteriores(const EmpleadoDemo& e) { return Moneda(e.salario); }
    static constexpr int kRentaAnterior = 21600000; ///< la del año pasado, en dos cuotas
    Moneda retenga(AsientoDemo& a, const QString& cuenta, Moneda base, int milesimas,
                   const QString& nit);
    /// Cuántas veces ocurre hoy algo que normalmente pasa `por_cien` veces cada cien días.
    qint64 veces(qint64 por_cien, qint64 milesimas);
    /// Si no alcanza, antes se recauda lo que haga falta.
    void del_banco(AsientoDemo& a, Moneda valor);
    void al_banco(AsientoDemo& a, Moneda valor);

    Conexion& conexion_;
    CatalogosDemo demo_;
    LibroDemo libro_;
    Azar azar_;
    int ano_, mes_ = 1, dia_ = 1;
    std::deque<Cartera> por_cobrar_, por_pagar_;
    QVector<Moneda> existencias_; ///< costo en bodega de cada artículo
    /// Lo que se declara de dos en dos meses; el primero es el último del año anterior.
    struct Bimestre {
        Moneda iva_generado, iva_descontable, reteiva; ///< reteiva y reteica: lo que nos retienen
        Moneda ventas, ica, reteica;
    };
    std::array<Bimestre, 7> bimestres_;
    Bimestre& bimestre() { return bimestres_[size_t(mes_ + 1) / 2]; }
    Bimestre& por_declarar() { return bimestres_[size_t(mes_ - 1) / 2]; }
    std::array<QHash<QString, Moneda>, 13> retenido_; ///< de cada mes, por cuenta; 0, el anterior
    Moneda caja_, banco_, iva_a_favor_;
    struct Devengado {
        Moneda salario, auxilio; ///< el salario, con comisiones
    };
    QHash<QString, Devengado> devengado_; ///< del mes, por empleado
    QHash<QString, Moneda> primas_;       ///< provisionadas y sin pagar, por empleado
    Moneda aportes_eps_, aportes_pension_, aportes_riesgos_, aportes_caja_;
    Moneda ventas_, costos_, gastos_, otros_ingresos_;
    qint64 tamano_ = 100; ///< por ciento de cada venta y compra: con pocas, son mayores
    qint64 consecutivo_proveedor_ = 1000;
};
