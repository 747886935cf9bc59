#pragma once
// Formulario principal: marco de las ventanas hijas, menú, botones y sesión.
//
// Nada toca una base de datos antes de su primera activación, que revisa la línea de órdenes,
// conecta la compañía y la general, carga la configuración y lee el usuario y la compañía. La
// sesión termina solo al cerrarlo.
#include "app/comandos.h"
#include "datos/firebird/version_esquema.h"
#include "datos/recordset/conjunto.h"

#include <QMainWindow>
#include <QPointer>

class AvisosBarra;
class BotonComando;
class Compactador;
class Escritorio;
class PanelDegradado;
class QGridLayout;
class QLabel;
class QLineEdit;
class QMdiArea;
class QScrollArea;
class QSettings;
struct TeclaExplicada;
class VigiaMensajes;

class Tfprincipal : public QMainWindow {
    Q_OBJECT
public:
    /// `argumentos` de la línea de órdenes, sin el programa: PUENTES usuario compañía clave
    /// [ubicación]. Los que falten se leen vacíos.
    explicit Tfprincipal(const QStringList& argumentos);
    ~Tfprincipal() override;

    // --- sesión
    bool primera_activacion = false;
    QString codigo_compania, usuario, clave, ubicacion_parametro;
    void FormCreate();
    /// Corre sola al mostrarse la ventana. Después de la primera no hace nada.
    void FormActivate();
    void FormClose();

    // --- órdenes
    void ejecute(const Comando& comando);
    void crear_tercero();
    void buscar_tercero();
    void Action1Execute(); ///< Ctrl+F1: recarga la configuración

    // --- componentes
    PanelDegradado *AdvPanel1, *AdvPanel2; ///< superior e inferior
    QLineEdit *ECompania, *EUsuario;
    QLabel *LabRevision, *Label3, *Image2;
    AvisosBarra* barra;
    VigiaMensajes* mensajes;
    Compactador* compactador;
    QAction* Action1;
    QMenu *Generales1 = nullptr, *Detallados1 = nullptr, *Comparativos1 = nullptr;

signals:
    /// La primera activación terminó, bien o mal.
    void activacion_terminada();

protected:
    void showEvent(QShowEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    // tfprincipal.cpp
    void arme_panel_superior();
    void arme_panel_inferior();
    QWidget* columna_de_botones();
    BotonComando* boton(const Comando& comando);
    void acomode_panel_superior(); ///< en un renglón si la ventana es pequeña para su letra
    void acomode_columna();        ///< solo los iconos si a lo ancho no cabe casi nada
    void abra(const Comando& comando);
    /// Lo que el modo de la orden dice a la pantalla que abre.
    static Encargo peticion(const Comando& comando);
    void abra_pagina();
    // tfprincipal_menu.cpp
    void arme_menu();
    void arme_archivo();
    void arme_edicion();
    void arme_ventana();
    void arme_atajos();
    /// El teclado vuelve a quien lo tenía antes de F10.
    void deje_el_menu();
    QVector<TeclaExplicada> teclas_del_marco() const;
    QMenu* menu(const QString& ruta);
    QAction* entrada(QMenu* menu, const Comando& comando);
    void liste_ventanas();
    void mosaico(Qt::Orientation sentido);
    // tfprincipal_sesion.cpp
    bool tome_argumentos();
    void conecte_compania();
    void conecte_general();
    /// Si la base es de la versión de este programa; si no, lo dice y cierra.
    bool version_al_dia(Conexion& base, TipoBase tipo);
    /// Una guarda que alguien dejó apagada se enciende o, sin permiso, se dice.
    void revise_guardas();
    void ConGeneralAfterConnect();
    void lea_usuario();
    void lea_compania();
    void lea_agencia();
    void tome_colores();
    bool entre_usuario();
    /// Hay sesión, o se logra entrar ahora que el usuario pide algo.
    bool entre_si_falta();
    static QString rotulo_revision();
    void abra_iniciales();
    void habilite_submenus();
    void recuerde_preferencias();

    QStringList argumentos_;
    QMdiArea* area_;
    Escritorio* escritorio_;
    QGridLayout* campos_;
    QVector<QLabel*> rotulos_;
    QVector<BotonComando*> botones_balance_;
    int estrecho_ = -1; ///< aún sin acomodar
    QScrollArea* columna_ = nullptr;
    QHash<QString, QMenu*> menus_;
    QMenu* ventanas_ = nullptr;
    QList<QAction*> lista_ventanas_;
    std::unique_ptr<QSettings> ajustes_;
    QPointer<QWidget> ultimo_foco_;
    bool mostrada_ = false, activando_ = false;

    Proveedor Pusuario, PCompania, PAgencia;
    ConjuntoDatos CUsuario, CCompania, CAgencia;
};
