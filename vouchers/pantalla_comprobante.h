#pragma once
// Lo común a digitar y a editar un comprobante: encabezado, dos libros con sus páginas y paneles.
#include "vouchers/pantalla_lineas.h"

class CasillaDato;
class EditorDato;
class FechaDato;
class MemoDato;
class QCheckBox;
class QLabel;

class PantallaComprobante : public PantallaLineas {
    Q_OBJECT
public:
    PantallaComprobante(const QString& clase, const QString& titulo);
    ~PantallaComprobante() override;

    // --- conjuntos de datos
    Proveedor PMovimiento, PTidocartera;
    ConjuntoDatos CMovimiento, CTidocartera;

    // --- controles del encabezado
    EditorDato *ENumero, *ERef, *DBEdit1, *DBEdit2, *DBEdit3, *DBEdit6, *Mand;
    QLineEdit *EAno, *EMes, *EDia, *NomMand, *Edit2;
    QLabel* LabMand;
    CasillaDato *DBCheckBox1, *DBCheckBox2;
    MemoDato* DBMemo1;
    QCheckBox* ckFiltro;
    PanelFlotante* GroupBox1;
    ListaDato* Etidocart;
    FechaDato* DateTimePicker1;

    // --- AnfitrionLineas
    ConjuntoDatos& encabezado() override { return CMovimiento; }
    bool encabezado_posteado() const override { return encabezado_posteado_; }
    void panel_de_clase(Libro libro, const QString& clase) override;

protected:
    // estado de la pantalla
    bool encabezado_posteado_ = false;
    bool grabando = false;
    bool pregunta_mandante = false;

    enum class Orden { Digitar, Editar }; ///< cada pantalla lee sus llaves en un orden propio
    void lea_configuracion(Orden orden);
    void construya(QWidget* control_prefijo);
    void declare_teclas_comunes() { PantallaLineas::declare_teclas_comunes(ultimo_); }
    virtual QString nombre_exportacion() const = 0;
    void llene_categorias(Rejilla* rejilla);
    void pagina_cambiada(int pagina) override { pagina == 1 ? TabSheet2Enter() : TabSheet2Exit(); }
    virtual void TabSheet2Enter() = 0;
    virtual void TabSheet2Exit() = 0;

    // eventos compartidos
    void encabezado_TERC_NITChange(Campo& campo);
    void ENCO_MANDANTEChange(Campo& campo);
    void DBGridDblClick(Libro libro, int columna) override;
    void ckFiltroClick();
    /// Fuera de la rejilla, al tercero del encabezado.
    void busque_tercero() override;
    void busque_tercero_del_encabezado(const QString& texto);
    void busque_mandante(const QString& texto);
    void reciba_en_encabezado(const char* campo, const QString& valor);
    virtual void traiga_plantilla(const QString& plantilla) = 0;
    /// Toma un id si el comprobante aún lleva el provisional; devuelve el que queda.
    QString tome_id();
    bool FormClose() override;
    bool salida_confirmada();

private:
    void defina_encabezado();
    void construya_panel_documento();
    QWidget* ultimo_ = nullptr; ///< el control que precede a las rejillas
};
