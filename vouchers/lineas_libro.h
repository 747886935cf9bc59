#pragma once
// Reglas de las líneas de un libro, las mismas en todas las pantallas que las digitan.
//
// Une una rejilla y un conjunto de líneas con sus nombres, saldos y sumas: valida cuenta, tercero,
// centro y categoría, completa lo que falta, aplica base y porcentaje, y rehúsa la línea
// incompleta. Los comandos de celda son "?" con texto (buscar) y una comilla sola (repetir lo
// anterior).
#include "libro/fechas.h"
#include "vouchers/lineas_cuenta.h"

class Formulario;
class QWidget;

/// Ajustes de la compañía que cambian las reglas.
struct AjustesLinea : AjustesLibro {
    bool mostrar_saldo = false;
    bool inhabilita_porcentaje = false;
    bool filtra_centros = false; ///< solo lo mira el validador de centros NIIF
};

/// Nombres de las columnas y controles de unas líneas, y en qué se apartan sus reglas: las de un
/// comprobante, las de una plantilla o las de una propuesta.
struct CamposLinea {
    NombresLinea linea;
    const char *item, *concepto, *referencia, *base, *porcentaje;
    const char* categoria = "CONC_COD";
    const char* articulo = "ARTI_COD";
    const char* descontable = nullptr; ///< nulo: las líneas no lo llevan
    const char *concepto_encabezado, *referencia_encabezado;
    const char *dif_debito, *dif_credito, *dif_debito_niif, *dif_credito_niif;
    bool con_saldos = false; ///< muestra los saldos junto a los nombres
    /// La rejilla trae la referencia antes que la categoría; las reglas siguen en su columna.
    bool referencia_antes = false;
    bool columnas_libres = false; ///< ninguna columna se cierra por lo que la cuenta no lleva
    bool comilla_en_celda =
        false;                    ///< la comilla vale en tercero, concepto y referencia, al digitar
    bool memoria_comun = false;   ///< los dos libros recuerdan en la misma memoria
    bool tarifa_del_2649 = false; ///< base mínima y tarifa salen del plan 2649 en los dos libros
    bool base_con_signo = false;  ///< una base negativa nunca llega al mínimo
    bool pregunta_con_los_dos = false; ///< "?" espera a que proyecto y centro estén escritos
    bool exige_valor = false;  ///< sin débito ni crédito, o sin cuenta y con ellos, no entra
    bool solo_nombres = false; ///< al pasar por la línea no se valida: se muestran los nombres
    /// El tercero que la cuenta pide se completa al escogerla, sin esperar a dejar su celda.
    bool completa_con_la_cuenta = true;
};

/// Lo que la línea pide a la pantalla que la aloja.
class AnfitrionLineas {
public:
    virtual ~AnfitrionLineas() = default;
    virtual ConjuntoDatos& encabezado() = 0;
    virtual QString ano_saldos() const { return {}; } ///< año de las consultas de saldo
    virtual int mes_saldos() const { return 0; }      ///< 1 a 13
    virtual bool encabezado_posteado() const = 0;
    /// Salió de la columna de la cuenta: muestra u oculta los paneles según la clase de cuenta.
    virtual void panel_de_clase(Libro libro, const QString& clase) = 0;
    virtual void articulo_cambiado(Libro libro) = 0;
};

class LineasLibro : public LineasCuenta {
    Q_OBJECT
public:
    LineasLibro(Libro libro, AnfitrionLineas& anfitrion, ConjuntoDatos& detalle,
                ConjuntoDatos& consulta, MemoriasLinea& memorias, const AjustesLinea& ajustes,
                QObject* dueno);
    ~LineasLibro() override;

    /// Columnas de la rejilla que siguen a las cuatro comunes.
    enum ColumnaLibro {
        kConcepto = kCentro + 1,
        kCategoria,
        kReferencia,
        kBase,
        kPorcentaje,
        kDebito,
        kCredito,
        kDescontable, ///< solo en las líneas de un comprobante
    };

    /// Página completa: rejilla, nombres con saldos y sumas.
    QWidget* construya_pagina();
    void ate_eventos();

    EditorNumero *ESaldocta = nullptr, *ESaldoter = nullptr, *ESaldocent = nullptr;
    /// Al editar, la línea siempre deja su tercero en la memoria; al digitar, solo si el encabezado
    /// no tiene uno.
    bool siempre_recuerda_tercero = false;

    /// La línea nace de otra, por equivalencia: puede entrar sin lo que su cuenta exige, que al
    /// grabar se pide diciendo cuál es.
    bool replicando = false;

    /// Define los campos del detalle (los llama la pantalla antes de abrir).
    static void defina_campos(ConjuntoDatos& detalle, Libro libro);

    /// Nombres, saldos y sumas de la línea actual, como al pasar a ella.
    void muestre_linea() { AfterScroll(); }

    // validadores
    void validar_cuenta();
    virtual void validar_tercero();
    virtual void validar_centro();

protected:
    LineasLibro(Libro libro, const CamposLinea& campos, AnfitrionLineas& anfitrion,
                ConjuntoDatos& detalle, ConjuntoDatos& consulta, MemoriasLinea& memorias,
                const AjustesLinea& ajustes, QObject* dueno);
    virtual void complete(Formulario&) {} ///< renglones propios, al pie de la página
    virtual void AfterInsert();
    virtual void base_cambiada();
    virtual void comilla_de_referencia(); ///< al salir de una columna sin regla propia
    /// Dígito a que se redondea lo retenido; nada, a centavos.
    virtual std::optional<int> digito() const { return ajustes_.digito_redondeo; }
    /// Los lados salen de la base de la línea y esa tarifa.
    void retenga(Moneda tarifa);
    /// Rehúsa la línea a la que le falta lo que su cuenta exige.
    void exija_completa();
    LineaComprobante linea() const override;
    QString como_de_comprobante(const QString& columna) const override;
    MemoriasLinea memorias_de_pegado() const override;
    bool exige_valor() const override { return c_.exige_valor; }
    void muestre_nombres();
    void muestre_pie() override;
    const AjustesLinea& ajustes() const { return ajustes_; }

    const CamposLinea& c_;

private:
    void saldo(EditorNumero* caja, const char* procedimiento, const QStringList& argumentos);
    void cuenta_cambiada();
    void repita(Campo& celda, const QString& anterior);
    void complete_tercero();
    void tercero_cambiado();
    void centro_cambiado();
    void vacie_centro();
    void muestre_saldo_tercero();
    void muestre_saldo_centro();
    void categoria_cambiada();
    void porcentaje_cambiado();
    void consulte_tarifa(const char* columnas);
    /// La de la cuenta si de ella salió el importe que la línea tiene; si no, la escrita en ella.
    Moneda tarifa_en_uso(Moneda tarifa_cuenta) const;
    bool confirme_porcentaje();
    void ColEnter(int columna);
    void ColExit(int columna);
    void BeforePost();
    bool sin_valor() const;
    void exija_cuenta();
    void AfterScroll();

    AnfitrionLineas& anfitrion_;
    MemoriasLinea& memorias_;
    MemoriasLinea propias_; ///< las de la NIIF, que nadie lee
    const AjustesLinea& ajustes_;
    Moneda base_anterior_;    ///< la que la celda tenía antes de cambiarla
    bool sugiriendo_ = false; ///< el porcentaje lo pone la cuenta, no el usuario
};
