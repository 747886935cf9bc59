#pragma once
// Lo común a las pantallas que digitan líneas en los dos libros, sean de un comprobante o de una
// plantilla: páginas, rejillas, teclas, el panel del artículo y la entrega de selecciones.
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/rejilla.h"
#include "vouchers/lineas_libro.h"
#include "vouchers/panel_flotante.h"

class BarraBotones;
class ListaDato;
class QPushButton;
class QTabWidget;

class PantallaLineas : public Pantalla, public AnfitrionLineas {
    Q_OBJECT
public:
    ~PantallaLineas() override;

    Proveedor PBorrar, PTipodoc, PCategoria;
    ConjuntoDatos CBorrar, CDetalle, Cdetniif, CTipodoc, CCategoria;

    ListaDato* LTipo = nullptr;
    QTabWidget* PageControl1;
    PanelFlotante* GroupBox2;
    QLineEdit *EArticod, *descripcion_articulo;
    QPushButton *SBGrabar = nullptr, *SBCancel = nullptr;

    LineasLibro* lineas_2649 = nullptr;
    LineasLibro* lineas_niif = nullptr;
    LineasLibro& lineas_a_la_vista() const;

    void articulo_cambiado(Libro libro) override;

protected:
    /// `detalle_niif`: nombre del conjunto de líneas NIIF. La pantalla anida los dos detalles en su
    /// encabezado y crea sus líneas.
    PantallaLineas(const QString& clase, const QString& titulo, const QString& detalle_niif);

    QString tipo_anterior;
    bool en_grilla = false;
    MemoriasLinea memorias;
    AjustesLinea ajustes;

    /// Páginas de los dos libros; la pantalla las pone en su formulario.
    void construya_paginas();
    /// Eventos y menú emergente de las rejillas, con el nombre de archivo que proponen.
    void ate_rejillas(const QVector<Rejilla::Orden>& menu, const QString& archivo);
    void construya_panel_articulo(const char* nombre_descripcion);
    /// El panel pide un activo fijo o un artículo: su título lo dice y el botón abre esa lista.
    void destine_panel(bool a_activo);
    /// El panel flota sobre las páginas. Al ocultarse el foco va a `destino`, o a la rejilla a la
    /// vista si el panel lo tenía.
    void agregue_panel(PanelFlotante* panel, QWidget* destino = nullptr);
    /// SBGrabar, SBCancel y las teclas que son las mismas; `anterior` precede a las rejillas con
    /// Tab.
    void declare_teclas_comunes(QWidget* anterior);
    /// Del encabezado a las líneas y de ellas a donde se estaba.
    void pase_de_parte();
    /// Donde empieza el encabezado para quien viene de las líneas.
    virtual QWidget* encabezado_al_volver() const = 0;
    void abra_pagina_inicial();
    /// La página de ese libro, con el cursor en sus líneas, sin grabar nada al pasar.
    void muestre_pagina(Libro libro);
    /// Termina la línea pendiente de cada libro; si una se rehúsa, deja a la vista la suya.
    void termine_lineas();
    /// Con el tipo vacío propone el anterior o el primero.
    void LTipoEnter();
    /// La línea a la que va lo que se busque ahora; nula: lo escogido no va a ninguna.
    virtual LineasLibro* linea_que_pide() const;
    /// Tecla que abre una lista. Ir a buscar no escribe la celda a medias: lo escogido la
    /// reemplaza.
    void tecla_de_busqueda(int clave, const char* pantalla, std::function<void()> accion);
    void busque_cuenta(Libro plan);
    virtual void busque_tercero();
    void busque_centro();
    void busque_concepto();
    /// Con el panel del artículo a la vista: allí y a la línea.
    void busque_articulo(bool activo);
    bool sin_lineas() const { return lineas_2649->sin_lineas() && lineas_niif->sin_lineas(); }
    /// Alguien escribió en uno de esos campos del encabezado, aunque siga en su caja. Los que la
    /// pantalla propone no se nombran.
    bool se_digito(const ConjuntoDatos& encabezado, const QStringList& campos) const;
    ConjuntoDatos& lineas_de(Libro libro) { return libro == Libro::Niif ? Cdetniif : CDetalle; }
    ConjuntoDatos& atributos(const LineasLibro& lineas, const char* columnas);

    virtual void pegue(Rejilla& rejilla) = 0;
    virtual void SBGrabarClick() = 0;
    virtual void SBCancelClick() = 0;
    virtual void pagina_cambiada(int pagina) = 0;
    virtual void DBGridDblClick(Libro libro, int columna);

    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void SpeedButton3Click(); ///< "Continuar" del panel de artículo
    void SpeedButton6Click();
    void EArticodDblClick();
    QVector<PanelFlotante*> paneles_;
    bool panel_de_activo_ = false;
    QPointer<QWidget> de_donde_; ///< el control del encabezado del que se pasó a las líneas
};
