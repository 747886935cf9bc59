#pragma once
// Lo común a digitar y a editar un comprobante: encabezado, dos libros con sus páginas y paneles.
#include "toolkit/pantalla.h"
#include "vouchers/lineas_libro.h"
#include "vouchers/panel_flotante.h"

class BarraBotones;
class CasillaDato;
class EditorDato;
class FechaDato;
class ListaDato;
class MemoDato;
class QCheckBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

class PantallaComprobante : public Pantalla, public AnfitrionLineas {
    Q_OBJECT
public:
    PantallaComprobante(const QString& clase, const QString& titulo);
    ~PantallaComprobante() override;

    // --- conjuntos de datos
    Proveedor PBorrar, PMovimiento, PTipodoc, PTidocartera, PCategoria;
    ConjuntoDatos CBorrar, CMovimiento, CDetalle, Cdetniif, CTipodoc, CTidocartera, CCategoria;

    // --- controles del encabezado
    ListaDato* LTipo;
    EditorDato *ENumero, *ERef, *DBEdit1, *DBEdit2, *DBEdit3, *DBEdit6, *Mand;
    QLineEdit *EAno, *EMes, *EDia, *NomMand;
    QLabel* LabMand;
    CasillaDato *DBCheckBox1, *DBCheckBox2;
    MemoDato* DBMemo1;
    QCheckBox* ckFiltro;
    QTabWidget* PageControl1;
    PanelFlotante *GroupBox1 = nullptr, *GroupBox2 = nullptr;
    QLineEdit *EArticod, *Edit2;
    ListaDato* Etidocart;
    FechaDato* DateTimePicker1;
    QPushButton *SBGrabar = nullptr, *SBCancel = nullptr;

    LineasLibro* lineas_2649;
    LineasLibro* lineas_niif;
    LineasLibro& lineas_a_la_vista() const;

    // --- AnfitrionLineas
    ConjuntoDatos& encabezado() override { return CMovimiento; }
    bool encabezado_posteado() const override { return encabezado_posteado_; }
    void panel_de_clase(Libro libro, const QString& clase) override;
    void articulo_cambiado(Libro libro) override;

protected:
    // estado de la pantalla
    QString tipo_anterior;
    bool encabezado_posteado_ = false;
    bool en_grilla = false;
    bool grabando = false;
    bool pregunta_mandante = false;
    MemoriasLinea memorias;
    AjustesLinea ajustes;

    enum class Orden { Digitar, Editar }; ///< cada pantalla lee sus llaves en un orden propio
    void lea_configuracion(Orden orden);
    void construya(QWidget* control_prefijo);
    /// Botones y teclas comunes; la pantalla agrega los suyos antes y después.
    void declare_teclas_comunes();
    void llene_categorias(Rejilla* rejilla);
    virtual QString nombre_exportacion() const = 0;
    /// Pegar prepara la fila en la pantalla de digitar; en la de editar es el de la rejilla.
    virtual void pegue(Rejilla& rejilla) = 0;
    virtual void SBGrabarClick() = 0;
    virtual void SBCancelClick() = 0;
    virtual void TabSheet2Enter() = 0;
    virtual void TabSheet2Exit() = 0;

    // eventos compartidos
    void encabezado_TERC_NITChange(Campo& campo);
    void ENCO_MANDANTEChange(Campo& campo);
    void DBGridDblClick(Libro libro, int columna);
    void ckFiltroClick();
    void SpeedButton3Click(); ///< "Continuar" del panel de artículo
    void EArticodDblClick();
    void SpeedButton6Click();
    /// Entrega las selecciones que dejaron las pantallas de búsqueda, en su orden.
    void atienda_selecciones(bool sin_foco_en_grilla);
    /// Toma un id si el comprobante aún lleva el provisional; devuelve el que queda.
    QString tome_id();
    bool FormClose() override;
    bool salida_confirmada();
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void defina_encabezado();
    void construya_paneles();
};
