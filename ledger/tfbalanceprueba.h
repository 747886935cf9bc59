#pragma once
// Balance de prueba: los dos libros en un período, y la entrada a auxiliares y saldos.
#include "ledger/balanceporniveles.h"
#include "sesion/tfdmcnt.h"

#include <array>

class CifrasControl;
class LetreroEspera;
class QTabWidget;

class Tfbalanceprueba : public BalancePorNiveles {
    Q_OBJECT
public:
    Tfbalanceprueba();

    // --- conjuntos
    Proveedor PBalance{this, "PBalance", &fdmcnt().QBalanceprueba, poAllowCommandText};
    ConjuntoDatos CBalance{this, "CBalance", &PBalance};
    Proveedor PBalniif{this, "PBalniif", &fdmcnt().QBalniif, poAllowCommandText};
    ConjuntoDatos CBalniif{this, "CBalniif", &PBalniif};

    // --- controles
    QTabWidget* PageControl1;
    LetreroEspera* Panel;

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;
    void EMesChange(int mes) override;
    void EAnoChange(int ano) override;

    /// Lee los dos libros en el período de la sesión.
    void actualice_balance();
    void mostrar_auxiliar(const QString& codigo);
    void mostrar_auxiliar_niif(const QString& codigo);

    void BitBtn1Click(); ///< F6:Artículos
    void BitBtn5Click(); ///< F2:Actualizar
    void BitBtn6Click(); ///< F8:Auxiliar
    void BitBtn7Click(); ///< F5:Terceros
    void BitBtn8Click(); ///< F7:Centros

protected:
    void recalcule() override;
    void nivel_cambiado() override { actualice_balance(); }

private:
    struct DatosPagina;
    struct Pagina {
        const DatosPagina* datos = nullptr;
        ConjuntoDatos* conjunto = nullptr;
        Rejilla* rejilla = nullptr;
        CifrasControl* cifras = nullptr;
        QString posicion; ///< código al que se vuelve
    };
    static const std::array<DatosPagina, 2> kPaginas;

    void arme_pagina(int indice, ConjuntoDatos& conjunto);
    void arme_botones();
    Pagina& actual();
    QString codigo(const Pagina& pagina) const;
    void lea(Pagina& pagina, class Foto& foto);
    void guarde_posiciones();
    static void ubique(Pagina& pagina, const QString& codigo);
    void periodo_escogido();
    /// Recuerda la fila y, si su cuenta lleva movimiento, abre la pantalla en ella.
    bool recuerde_y_consulte(Pagina& pagina, const QString& codigo, const char* pantalla);
    /// Lo mismo, con un pitido si no lo lleva.
    void abra(Pagina& pagina, const QString& codigo, const char* pantalla);

    std::array<Pagina, 2> paginas_;
};
