#pragma once
// Ficha de un activo fijo, nueva (Tfnvoactivo) o guardada (Tfedtactivo): sus datos, lo que lo
// deprecia en cada libro, su reparto por centros y su foto.
#include "datos/recordset/pregunta_en_campo.h"
#include "libro/lineas.h"
#include "toolkit/pantalla.h"

class EditorDato;
class ImagenDato;
class ListaDato;
class QLineEdit;
class QTabWidget;
class Rejilla;

class FormaActivo : public Pantalla {
    Q_OBJECT
public:
    enum Modo { Nuevo, Editar };
    explicit FormaActivo(Modo modo);

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    Sentencia TActivo, TActcentros, TActfoto, TActinicial;
    Proveedor PActivo, PGrupos, PBorrar;
    ConjuntoDatos CActivo, CCentros, CFoto, CInicial, CGrupos, CSubgrupos, CBorrar;
    QTabWidget* PageControl1;
    Rejilla* DBGridEh1 = nullptr; ///< el reparto por centros; solo al editar
    Rejilla* DBGridEh2;           ///< lo que traía depreciado en cada libro

    /// Pone de foto la imagen del archivo. Lanza ErrorDatos si no lo es.
    void cargue_foto(const QString& ruta);

private:
    void defina_campos();
    void construya();
    QWidget* pagina_local();
    QWidget* pagina_niif();
    QWidget* pagina_centros();
    QWidget* pagina_inicial();
    QWidget* pagina_foto();
    QWidget* cuenta(const char* columna, const char* marca, Libro libro);
    /// A la caja, en su página.
    void vuelva_a(QWidget* caja);
    void busque_cuenta(const char* columna, Libro libro, const QString& texto);
    void cuenta_cambiada(Campo& campo, Libro libro, QLineEdit* nombre);
    void ACGR_IDChange(Campo& grupo);
    void muestre_valor();
    void escoja_grupo();
    void centro_cambiado();
    void quite_foto();
    bool acepte_reparto(); ///< o pregunta si no suma todo
    void SBGrabarClick();
    bool hay_por_perder() const;

    const Modo modo_;
    ContadorLineas contador_;
    PreguntaEnCampo pregunta_;               ///< en las cuentas
    QVector<std::function<void()>> nombres_; ///< muestran el de cada cuenta
    EditorDato *ECod, *EDesc;
    ListaDato *LGrupo, *LSubgrupo;
    QLineEdit* EValor = nullptr;
    ImagenDato* Foto;
};
