#pragma once
// Lo común a digitar y a editar un comprobante: encabezado, dos libros con sus páginas y paneles.
#include "libro/grabacion.h"
#include "vouchers/deshacer.h"
#include "vouchers/pantalla_lineas.h"

#include <QScopedValueRollback>

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

    /// Encabezado y líneas de los dos libros, para las reglas del libro.
    ConjuntosComprobante conjuntos() { return {CMovimiento, CDetalle, Cdetniif}; }

protected:
    // estado de la pantalla
    bool encabezado_posteado_ = false;
    bool grabando = false;
    bool pregunta_mandante = false;
    bool cierre_confirmado_ = false; ///< ya no hay nada que preguntar al cerrar
    GrabacionComprobante grabacion;
    Deshacer deshacer; ///< lo último que se pegó o se trajo

    enum class Orden { Digitar, Editar }; ///< cada pantalla lee sus llaves en un orden propio
    void lea_configuracion(Orden orden);
    void construya(QWidget* control_prefijo);
    void declare_teclas_comunes() { PantallaLineas::declare_teclas_comunes(ultimo_); }
    virtual QString nombre_exportacion() const = 0;
    QWidget* encabezado_al_volver() const override;
    /// El encabezado cambió por fuera de sus controles: los prefijos son los de su tipo.
    virtual void siga_al_prefijo() {}
    /// Con Ctrl+Z sobre las líneas.
    void deshaga_lo_ultimo();
    /// Lo que hace cada pantalla al pegar, ya con las filas confirmadas.
    void pegue(Rejilla& rejilla) override;
    virtual void pegue_filas(LineasLibro& lineas, const QVector<QStringList>& filas) = 0;
    virtual bool pegar_abre_columnas() const { return true; }
    void llene_categorias(Rejilla* rejilla);
    /// Graba el libro que se deja.
    void pagina_cambiada(int pagina) override;
    virtual Grabador quien_pasa(bool entra_niif) const = 0;
    /// Termina lo que se deja; falso si al pasar no hay qué grabar.
    virtual bool prepare_paso(LineasLibro& deja) = 0;
    /// Lo que sigue a la grabación, cuando no se rehusó.
    virtual void termine_paso(bool entra_niif, bool grabado) = 0;
    /// El día y el tipo son los que se proponen en el comprobante que siga.
    void recuerde_para_el_siguiente();

    // eventos compartidos
    void encabezado_TERC_NITChange(Campo& campo);
    void ENCO_MANDANTEChange(Campo& campo);
    void muestre_mandante();
    static void devuelva_a(QWidget* caja); ///< lo que se le digitó se rehusó
    void DBGridDblClick(Libro libro, int columna) override;
    void ckFiltroClick();
    /// Fuera de la rejilla, al tercero del encabezado.
    void busque_tercero() override;
    void busque_tercero_del_encabezado(const QString& texto);
    void busque_mandante(const QString& texto);
    void escoja_para_encabezado(const char* campo, const QString& texto);
    void reciba_en_encabezado(const char* campo, const QString& valor);
    virtual void traiga_plantilla(const QString& plantilla) = 0;
    /// Revisa y graba por el único camino. Lo rehusado se dice aquí y deja el cursor donde se
    /// corrige; las fallas las dice el proveedor. `si_queda` se advierte con lo demás si se graba.
    ResultadoGrabacion grabe(Grabador quien, const QString& si_queda = {});
    /// Mientras vive, lo que se advierta espera a lo que la grabación tenga por decir.
    class JuntaAvisos {
    public:
        explicit JuntaAvisos(PantallaComprobante& p) : p_(p), guarda_(p.junta_avisos_, true) {}
        ~JuntaAvisos() { p_.diga_avisos(); }

    private:
        PantallaComprobante& p_;
        const QScopedValueRollback<bool> guarda_;
    };
    void advierta(const QString& texto);
    /// Lo rehusado que esta pantalla sí deja pasar.
    virtual bool se_tolera(const Rechazo&) const { return false; }
    void diga(const Rechazos& rechazos, const ModoGrabacion& modo);
    /// Hay algo digitado o cambiado que se perdería al cerrar.
    virtual bool hay_por_perder() const = 0;
    /// Pregunta si hay algo por perder; con "Sí" deshace los cambios y cierra.
    void SBCancelClick() override;
    bool FormClose() override;
    /// Cierra sin preguntar: lo que había ya está grabado o borrado.
    void cierre();
    /// La plantilla, puesta en su fila; falso, después de decirlo, si alguien la borró.
    bool ubique_plantilla(ConjuntoDatos& plantillas, const QString& id);
    void quite_filtro();
    /// Los contadores siguen a las líneas que hay.
    void siga_los_items();

private:
    void construya_controles();
    void disponga(QWidget* control_prefijo);
    void construya_panel_documento();
    /// En la barra cabe uno, el primero; los demás quedan en la historia.
    void diga_avisos();
    bool junta_avisos_ = false;
    QStringList avisos_;                      ///< el que más pesa, primero
    std::pair<qint64, QString> cierre_dicho_; ///< el último comprobante y el cierre que se le dijo
    QWidget* ultimo_ = nullptr;               ///< el control que precede a las rejillas
    PreguntaEnCampo pregunta_;                ///< en el tercero del encabezado y en el mandante
};
