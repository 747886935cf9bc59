#pragma once
// Intérprete de los informes que define el usuario: dibuja sus páginas en una cuadrícula de 1500
// unidades de ancho por 2000 de alto, cualquiera que sea el papel.
#include "reports/definicion_informe.h"
#include "reports/formula_contable.h"
#include "toolkit/informes/pintor_rejilla.h"

#include <QDate>
#include <memory>

/// Lo que el usuario escribe al imprimir.
struct CabeceraInforme {
    QString titulo, subtitulo;
    QDate fecha;
};

/// El de la sesión, en el libro dado.
PeriodoFormula periodo_de_la_sesion(bool niif);

/// Lee las referencias de un informe, todas de la misma foto de la base: un balance impreso
/// mientras otros graban también cuadra. Cada referencia es una consulta, aunque se repita.
class LectorReferencias {
public:
    LectorReferencias();
    Moneda operator()(const LecturaDato& lectura);

private:
    std::shared_ptr<class Foto> foto_;
};

class InformeDefinible {
public:
    static constexpr QSize kRejilla{1500, 2000};
    /// Códigos de "Dato a imprimir" que no son cuentas, con lo que imprimen.
    static const QVector<CodigoReferencia>& codigos_fijos();
    /// El dato es uno de ellos, y no una fórmula.
    static bool es_fijo(const QString& dato);

    /// Lee los conjuntos sin mover su fila.
    InformeDefinible(const DefinicionInforme& definicion, const CabeceraInforme& cabecera,
                     const FormulaContable& formulas);

    /// Lo que se digita en una celda y aún no llega a su campo: se dibuja como si ya estuviera.
    struct Digitado {
        const ConjuntoDatos* conjunto = nullptr; ///< nulo: nada
        int fila = -1;
        QString campo{};
        Valor valor{};
    };
    Digitado digitado;
    /// Nombre de una cuenta; vacía, el del plan 2649 en la base.
    std::function<QString(const QString& cuenta)> nom_cuenta;
    /// Con ella un dato que falla no detiene la página: recibe su fila y qué pasó, y sale "¿?".
    std::function<void(int fila, const QString& falla)> al_fallar;
    /// Recibe el lugar en que quedó el texto o la cifra de una fila, en milímetros de la hoja.
    std::function<void(const ConjuntoDatos& conjunto, int fila, const QRectF& lugar)> al_colocar;

    /// Dibuja todas las páginas (FOCO_PAGINAS), o solo una.
    void imprime_informe(informes::Hojas& hojas, const informes::Papel& papel);
    void imprime_pagina(informes::Hojas& hojas, const informes::Papel& papel, int pagina);
    int paginas() const;

private:
    struct Renglon;
    void dibuje_fijos(int pagina);
    void dibuje_textos(int pagina);
    void dibuje_datos(int pagina);
    void imprima_dato(const Renglon& r);
    QString texto_fijo(const QString& dato);
    void imprima_cadena(const Renglon& r, const QString& texto);
    void imprima_numero(const Renglon& r, Moneda valor);
    void letra(const Renglon& r);
    void coloque(const Renglon& r, const QRectF& lugar);
    Renglon renglon(const ConjuntoDatos& conjunto, int fila) const;

    const DefinicionInforme& d_;
    CabeceraInforme cabecera_;
    const FormulaContable& formulas_;
    std::optional<informes::PintorRejilla> pintor_;
};
