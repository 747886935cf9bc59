#pragma once
// "Balance de Apertura NIIF": la hoja en que los saldos 2649 del año anterior pasan al plan NIIF,
// cuenta por cuenta, con reclasificaciones, ajustes, notas y una hoja de cálculo de cada una.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "niif/hoja_trabajo.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class BorradorFilas;
class EditorNumero;
class MemoDato;
class QLabel;
class QLineEdit;
class Paginas;
class Rejilla;

class Tfbalaperturaniif : public Pantalla {
    Q_OBJECT
public:
    Tfbalaperturaniif();

    // --- conjuntos
    Sentencia TApertura{this, "TApertura", fdm().Quorvex, "SELECT * FROM APERTURA_NIIF"};
    Sentencia TAperturaDet{this, "TAperturaDet", fdm().Quorvex,
                           "SELECT * FROM APERTURA_NIIF_DET WHERE CUEN_COD = :CUEN_COD"};
    Sentencia QConsulta{this, "QConsulta", fdm().Quorvex};
    Proveedor PSaldos{this, "PSaldos", &TApertura, poCascadeDeletes | poCascadeUpdates};
    Proveedor PConsulta{this, "PConsulta", &QConsulta, poAllowCommandText};
    ConjuntoDatos CSaldos{this, "CSaldos", &PSaldos};
    ConjuntoDatos CAperniifdet{this, "CAperniifdet"};
    ConjuntoDatos CAjusniif{this, "CAjusniif", &PConsulta};
    ConjuntoDatos CBalance{this, "CBalance", &PConsulta};
    ConjuntoDatos CBalinicial{this, "CBalinicial", &PConsulta};

    // --- controles
    Paginas* paginas; ///< principal, "Detalle calculos" y "Hoja de trabajo"
    QLineEdit *EAno, *NomCuenta, *NomNiif, *NomDetalle;
    QLabel *Ancestros, *LHoja;
    EditorNumero *Difdeb, *DifCred, *DetDebito, *DetCredito;
    Rejilla *DBGridEh1, *DBGridEh2;
    MemoDato* APNI_NOTA;
    HojaTrabajo hoja{this};

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    enum Pagina { Principal, Detalle, Hoja };

private:
    // tfbalaperturaniif.cpp
    void defina_conjuntos();
    QWidget* pagina_principal();
    QWidget* pagina_detalle();
    QWidget* pagina_hoja();
    /// Página cuyos botones se quedan a la vista aunque lo demás no quepa.
    static QWidget* con_botones(QWidget* contenido, BarraBotones* barra);
    void declare_teclas(Pagina pagina);
    void muestre_pagina(Pagina pagina);
    void CAjusniifAfterScroll();
    /// En la barra, lo que está en la hoja y no en la base.
    void diga_por_grabar(const QString& que);
    void retome_el_detalle(const QString& unica);
    bool hay_por_perder() const;
    void AdvGlowButton2Click();
    void traiga(const QString& ano);
    void cuente_lo_traido(const QString& ano, const QStringList& sin_equivalente);
    void agregue_cuenta(const QString& cuenta, const QString& equivalente, Moneda saldo);
    void agregue_saldo(const struct SaldoPorTraer& saldo, int& item);
    void SBGrabarClick();
    void SBCancelClick();
    void AdvGlowButton10Click();
    void AdvGlowButton8Click();
    void AdvGlowButton9Click();
    void SpeedButton1Click();
    void SBLlevarClick();
    QString ano_apertura() const { return fdm().texto_de(Llave::AnoAperturaNiif); }
    // detalle_apertura.cpp
    void defina_lineas();
    void AdvGlowButton1Click();
    void AdvGlowButton3Click();
    void cierre_detalle();
    bool hay_detalle_por_perder() const;
    QMap<qint64, QVector<Valor>> lineas_del_detalle() const; ///< por su ítem
    void reponga_lineas();
    void CAperniifdetAfterInsert();
    void calcule_saldo_final();
    void valide_celda(Campo& campo);
    void valide_articulo(const QString& texto,
                         const std::function<void(const QString&)>& reciba_en);
    void reciba(const QString& campo, const QString& valor);
    void sugiera_db_cr();
    void cuadre_o_abra_hoja(); ///< F5 del panel
    void muestre_ancestros();
    void muestre_sumas();
    void AdvGlowButton7Click();
    void AdvGlowButton5Click();
    void AdvGlowButton6Click();

    BorradorFilas* borrador_ = nullptr;         ///< desde que la pantalla está a la vista
    QString por_grabar_;                        ///< lo último que de eso se dijo
    bool fila_nueva_ = false;                   ///< la del detalle aún no estaba en la hoja
    QMap<qint64, QVector<Valor>> lineas_antes_; ///< las del detalle al abrirlo
    PreguntaEnCampo pregunta_;
    bool trayendo_ = false, recibiendo_ = false, cierre_confirmado_ = false;
};
