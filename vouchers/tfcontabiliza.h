#pragma once
// "Contabilización": la propuesta de comprobante de un documento de otro módulo, para revisarla.
//
// Se abre en modal con su documento. Con resultado 1 la propuesta quedó guardada y el comprobante
// anterior del documento borrado: quien la abrió debe convertirla. Si nadie tiene que confirmarla
// se guarda sola, apenas se activa.
#include "toolkit/pantalla.h"
#include "vouchers/lineas_propuesta.h"

class BarraBotones;
class QLineEdit;
class QTabWidget;
class QTimer;

class Tfcontabiliza : public Pantalla, public AnfitrionLineas {
    Q_OBJECT
public:
    Tfcontabiliza();

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    // --- conjuntos de datos
    Sentencia TContabiliza, TContadetalle;
    Proveedor PContabiliza, PPlantilla, PBorrar;
    ConjuntoDatos CContabiliza, CContadetalle, CPlantilla, CPlantilladet, CPlantilladn, CBorrar;

    // --- controles
    QTabWidget* PageControl1;
    QLineEdit *EDocumento, *EComprobante, *EFecha, *EConcepto;
    LineasPropuesta *lineas_2649, *lineas_niif;
    LineasPropuesta& lineas_a_la_vista() const;
    int ultimo_item_2649() const { return lineas_2649->contador.ultimo(); }
    int ultimo_item_niif() const { return lineas_niif->contador.ultimo(); }

    // --- AnfitrionLineas
    ConjuntoDatos& encabezado() override { return CContabiliza; }
    bool encabezado_posteado() const override { return true; }
    void panel_de_clase(Libro, const QString&) override {}
    void articulo_cambiado(Libro) override {}

private:
    void defina_conjuntos();
    void construya();
    void CContabilizaAfterOpen();
    void muestre_encabezado();
    void pagina_cambiada(int pagina);
    void muestre_libro(LineasPropuesta& lineas);
    void SpeedButton9Click(); ///< F9:Plantilla
    void traiga_plantilla(const QString& plantilla);
    void BitBtn1Click(); ///< F2:Grabar
    void grabe();
    LineasPropuesta* descuadrada() const;
    void exija_lineas_agregadas();
    void vuelva_a_la_primera();
    bool hay_por_perder() const;
    bool puede_salir();

    DocumentoOrigen origen_;
    qint64 visto_ = 0; ///< mayor comprobante del documento cuando se abrió
    MemoriasLinea memorias_;
    AjustesLinea ajustes_;
    QTimer* reloj_;
    int pagina_ = 0;
    bool permitir_cerrar_ = false, activada_ = false;
    bool perdida_ = false; ///< otro usuario ya contabilizó el documento: no hay qué grabar
};
