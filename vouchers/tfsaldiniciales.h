#pragma once
// "Saldos Iniciales": los saldos con que la compañía empieza en el programa, cuenta por cuenta, en
// una sola tabla que se digita como un gran comprobante del período de inicio.
#include "toolkit/pantalla.h"
#include "vouchers/panel_documento.h"

class BorradorFilas;
class EditorDato;
class LineasSaldos;
class QPushButton;
class Rejilla;

class Tfsaldiniciales : public Pantalla {
    Q_OBJECT
public:
    Tfsaldiniciales();
    ~Tfsaldiniciales() override;

    Proveedor PSaldos, PProyectos, PArticulo, PTidocartera, PMaxitem, PBalance, PBorrar;
    ConjuntoDatos CSaldos, CProyectos, CCentros, CArticulo, CTidocartera, CMaxitem, CBalance,
        CBorrar;

    QLineEdit *EAno, *EMes;
    QPushButton* SBGrabar;
    LineasSaldos* lineas;
    Rejilla* DBGridEh2; ///< lo que se imprime; no se ve
    PanelDocumento* GroupBox1;
    PanelFlotante* GroupBox2;
    ListaDato* EArticod;

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    void defina_conjuntos();
    void construya();
    void declare_teclas();
    void muestre_periodo();
    /// Con los meses del inicio cerrados no hay nada que grabar.
    void solo_muestre(const QString& negativa);
    void panel_de_clase(const QString& clase);
    void DBGridEh1DblClick(int columna);
    void SBGrabarClick();
    void SpeedButton1Click();
    void SBCancelClick();
    int separe_numeros();
    bool hay_por_perder() const;
    void cierre();

    BorradorFilas* borrador_ = nullptr; ///< desde que los saldos están a la vista
    qint64 item_al_abrir_ = 0;
    bool cierre_confirmado_ = false, solo_lectura_ = false;
    int corrimiento_ = 0; ///< cuánto se corren los números de las líneas nuevas al grabar
};
