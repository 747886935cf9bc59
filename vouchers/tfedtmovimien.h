#pragma once
// "Editar comprobantes contables": un comprobante guardado, para corregir, imprimir o borrar.
//
// Decide qué se puede cambiar todavía: las fechas de bloqueo de cada libro, los comprobantes de
// otros módulos y los derechos del usuario. Las reglas de las líneas son las de digitar.
#include "vouchers/borrador_vivo.h"
#include "vouchers/pantalla_comprobante.h"

class Tfedtmovimien : public PantallaComprobante {
    Q_OBJECT
public:
    Tfedtmovimien();

    Proveedor PMaxitem, PAudit, PTidocart, PPlantilla;
    ConjuntoDatos CMaxitem, CAudit, CPrefijos, CTidocart, CPlantilla, CPlantilladet;
    EditorDato* EPref;
    QLineEdit* Edit1;
    QLabel *LabAudit, *Edit3;  ///< último cambio de cada libro
    bool cambio_niif_ = false; ///< el libro NIIF del comprobante se ha modificado
    QPushButton* SBBorrar = nullptr;

    void FormCreate() override;
    void FormActivate() override;

    QString ano_saldos() const override { return anio_voucher; }
    int mes_saldos() const override { return mes_voucher + 1; }

    bool libre_2649 = true, libre_niif = true;

protected:
    QString nombre_exportacion() const override { return "EdCompCont"; }
    void pegue_filas(LineasLibro& lineas, const QVector<QStringList>& filas) override;
    bool pegar_abre_columnas() const override { return false; }
    void SBGrabarClick() override;
    bool hay_por_perder() const override;
    bool FormClose() override;
    bool se_tolera(const Rechazo& rechazo) const override;
    Grabador quien_pasa(bool entra_niif) const override {
        return entra_niif ? Grabador::EditarEntraNiif : Grabador::EditarSaleNiif;
    }
    bool prepare_paso(LineasLibro& deja) override;
    void termine_paso(bool entra_niif, bool grabado) override;
    /// Con el foco donde esté.
    LineasLibro* linea_que_pide() const override { return &lineas_a_la_vista(); }

private:
    void defina_conjuntos();
    void fije_encabezado();
    void declare_menu_y_teclas();
    void declare_pie();
    /// El de la hoja a la vista.
    void muestre_cambio();
    /// En el título y la barra, al abrir: quien lo va a corregir no lo descubre digitando.
    void diga_lo_cerrado(const QString& cual);
    void CMovimientoAfterEdit();
    void solo_imprima();
    void replique();
    void recuerde_lo_visto();
    void siga_borrador();
    void ofrezca_borrador();
    qint64 id_por_copiar();
    bool toca_la_replica() const;
    /// Una línea de la cuenta de esa nació, o cambió de cuenta o importes; o el check se acaba de
    /// poner.
    bool pide_equivalente(int item) const;
    void SBBorrarClick();
    void ReplicaraNIIF1Click();
    void muestre_columnas(bool visibles);
    void muestre_auditoria(int tipo, const QString& id, const std::function<void(QString)>& donde);
    int maximo_item(Libro libro, const QString& id);
    /// Por qué no se pudo ver el documento de origen; vacío si se vio o no lo hay.
    QString muestre_origen();
    QString numero_de_origen(qint64 tipo, qint64 origen);
    void muestre_fecha();
    void traiga_plantilla(const QString& plantilla) override;
    void borre_desde_la_actual(ConjuntoDatos& lineas);

    QString anio_voucher;
    int mes_voucher = 0;
    QString falla_origen_;             ///< por decir, con la ventana ya a la vista
    bool solo_imprime_ = false;        ///< nada se puede cambiar: F2 imprime
    BorradorVivo* borrador_ = nullptr; ///< nulo: nada se puede corregir
    Comprobante visto_;                ///< como lo vio quien lo abrió, o como lo dejó al grabar
};
