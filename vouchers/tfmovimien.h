#pragma once
// "Comprobantes contables": digitación de comprobantes nuevos, uno tras otro, en el período de la
// sesión. El usuario teclea el día, el concepto y las líneas; el año y el mes son los de la sesión.
#include "vouchers/borrador_vivo.h"
#include "vouchers/pantalla_comprobante.h"

class Tfmovimien : public PantallaComprobante {
    Q_OBJECT
public:
    Tfmovimien();

    Proveedor PPrefijos, PProyectos, PPlantilla;
    ConjuntoDatos CPrefijos, CProyectos, CCentros, CPlantilla, CPlantilladet, Cplantilladn;
    ListaDato* LPref;
    QPushButton *SBPlantilla = nullptr, *SpeedButton1 = nullptr;
    QPushButton *speedButton4 = nullptr, *SpeedButton5 = nullptr;

    void FormCreate() override;
    void FormActivate() override;

    QString ano_saldos() const override;
    int mes_saldos() const override { return mes_ + 1; }

protected:
    QString nombre_exportacion() const override { return "CompConta"; }
    void pegue_filas(LineasLibro& lineas, const QVector<QStringList>& filas) override;
    bool FormClose() override;
    void SBGrabarClick() override;
    bool hay_por_perder() const override;
    Grabador quien_pasa(bool entra_niif) const override {
        return entra_niif ? Grabador::DigitarEntraNiif : Grabador::DigitarSaleNiif;
    }
    bool prepare_paso(LineasLibro& deja) override;
    void termine_paso(bool entra_niif, bool grabado) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void defina_conjuntos();
    void declare_botones();
    void CMovimientoAfterInsert();
    void CMovimientoBeforePost();
    void CMovimientoTICO_CODChange(Campo& campo);
    void CMovimientoPRCO_PREFChange(Campo& campo);
    void CMovimientoENCO_NUMEROChange(Campo& campo);
    void LPrefExit();
    void EDiaExit();
    void ajuste_dia();
    QString fecha_digitada();
    void ponga_fecha();
    void aplique_numeracion();
    void ubique_prefijo(const QString& tipo, const QString& prefijo);
    void siga_al_prefijo() override;
    bool sirve_su_prefijo();
    bool lo_cambio_otro(const Borrador& borrador);
    /// Donde iba quien lo digitaba: en ella, Abajo abre la que sigue.
    void vaya_a_la_ultima_linea();
    /// "aaaamm" en que hay que retomarlo: uno grabado no cambia de mes.
    QString periodo_de(const Borrador& borrador);
    void pase_al_periodo(const QString& periodo);
    void recuerde_lo_visto();
    QString siguiente_numero();
    void asegure_numeracion();
    void recupere_provisional();
    void ofrezca_lo_pendiente();
    void ofrezca_borrador();
    void recupere(const Borrador& borrador);
    void busque_plantilla();
    void traiga_plantilla(const QString& plantilla) override;
    void muestre_periodo();
    void siga_con_otro();

    BorradorVivo* borrador_ = nullptr;
    QString visto_;            ///< huella del que un cambio de página ya grabó
    bool provisional_ = false; ///< la base tiene uno sin grabar del todo
    int mes_ = 0;              ///< índice del mes en la última activación
};
