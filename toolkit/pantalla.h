#pragma once
// Base de las pantallas: nacimiento, activación, cierre, teclas y tamaño.
//
// Una pantalla se crea por su nombre (`pantallas().abrir("Tfcuentas")`) o directamente
// (`escritorio()->muestre(new Tfcuentas)`): FormCreate corre después del constructor, FormActivate
// cada vez que la ventana hija recibe la activación (no cuando se cierra un simple mensaje), y
// FormClose antes de liberarla. Lo que una pantalla pide a otra está en toolkit/peticion.h.
#include "toolkit/peticion.h"
#include "toolkit/proteccion.h"

#include <QDialog>
#include <QMap>
#include <QPointer>
#include <QVector>
#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <vector>

class QKeyEvent;
class QMdiArea;
class QMdiSubWindow;
class QPushButton;
class QSettings;
class Escritorio;

enum ResultadoModal { mrNone = 0, mrOk = 1, mrCancel = 2 };

/// Renglón de la tabla de teclas de una pantalla.
struct Tecla {
    int clave = 0;                       ///< Qt::Key; Return y Enter son la misma
    Qt::KeyboardModifiers modificadores; ///< exactamente estos
    QString nombre;                      ///< botón que oprime, o descripción
    std::function<void()> accion;        ///< vacía: oprime el botón de ese nombre
    bool escribe = true; ///< antes guarda lo escrito en el control con foco (nunca con Esc)
};

/// Un control que a veces necesita para sí una tecla que la tabla de la pantalla tomaría (Esc que
/// solo cancela la celda en edición). Se pregunta al control con foco y a los que lo contienen.
class ReclamaTeclas {
public:
    virtual ~ReclamaTeclas() = default;
    virtual bool reclama(const QKeyEvent& evento) = 0;
    /// Guarda lo digitado a medias antes de la acción de una tecla o un botón. Falso si no se pudo:
    /// la falla ya se mostró y la acción no corre.
    virtual bool termine() { return true; }
};

class Pantalla : public QWidget {
    Q_OBJECT
public:
    /// `clase`: nombre de la pantalla; queda como objectName.
    explicit Pantalla(const QString& clase, const QString& titulo = {}, QWidget* padre = nullptr);
    ~Pantalla() override;

    // --- vida
    virtual void FormCreate() {}
    virtual void FormActivate() {}
    /// Falso rehúsa el cierre.
    virtual bool FormClose() { return true; }
    /// Cierra y libera la ventana. Falso si FormClose lo rehusó.
    bool close();
    /// Desde FormCreate: la pantalla se libera sin mostrarse y sin pasar por FormClose.
    void pida_cierre_al_crear() { cierre_pedido_ = true; }
    /// Corre FormCreate una sola vez. Falso si pidió el cierre o falló (la falla ya se informó).
    bool cree();

    // --- modal
    /// Muestra la pantalla y espera. Quien la creó la libera. Devuelve el resultado modal; cerrarla
    /// de otra manera es mrCancel. Si FormCreate pidió el cierre, mrCancel sin mostrarse.
    int mostrar_modal();
    int resultado_modal() const { return resultado_modal_; }
    /// Fija el resultado y, si está en modal, cierra.
    void resultado_modal(int resultado);
    bool es_modal() const { return dialogo_ != nullptr; }

    // --- peticiones: toolkit/peticion.h dice cómo se usan
    /// Pide a otra pantalla; `reciba` corre con la respuesta cuando esta se active. Lanza
    /// ErrorDatos si no existe.
    template <class P>
    void pida(const QString& nombre, P peticion,
              std::function<void(const typename P::Respuesta&)> reciba) {
        Encargo encargo(std::move(peticion));
        encargo.al_responder_ = [yo = QPointer<Pantalla>(this),
                                 reciba = std::move(reciba)](const std::any& respuesta) {
            if (yo)
                yo->espere_entrega({typeid(P), [reciba, respuesta] {
                                        reciba(
                                            std::any_cast<const typename P::Respuesta&>(respuesta));
                                    }});
        };
        abra_encargo(nombre, std::move(encargo));
    }
    /// La petición con que se abrió; con otra o con ninguna, los valores por omisión.
    template <class P> P peticion() const {
        const P* p = encargo_.de<P>();
        return p ? *p : P{};
    }
    template <class P> bool trae() const { return encargo_.de<P>() != nullptr; }
    /// Contesta a quien la abrió con esa petición: la última respuesta vale, si la pantalla cierra.
    /// Falso si nadie la pidió.
    template <class P> bool responda(typename P::Respuesta respuesta) {
        return trae<P>() && conteste(std::move(respuesta));
    }
    /// Deja una respuesta que nadie pidió para la próxima pantalla activa que acepte las de P.
    template <class P> void ofrezca(typename P::Respuesta respuesta) {
        deje(typeid(P), std::move(respuesta));
    }
    /// Acepta al activarse lo que otra pantalla haya ofrecido. Con falso lo ve y lo deja esperando.
    template <class P> void acepte(std::function<bool(const typename P::Respuesta&)> acepta) {
        aceptadas_[typeid(P)] = [acepta = std::move(acepta)](const std::any& respuesta) {
            return acepta(std::any_cast<const typename P::Respuesta&>(respuesta));
        };
    }
    /// Orden en que recibe lo que llegue en una misma activación; las no nombradas, al final.
    template <class... P> void orden_de_entrega() { orden_ = {typeid(P)...}; }

    // --- teclas
    void tecla(int clave, Qt::KeyboardModifiers modificadores, const QString& nombre,
               std::function<void()> accion = {}, bool escribe = true);
    void tecla(int clave, const QString& nombre, std::function<void()> accion = {}) {
        tecla(clave, Qt::NoModifier, nombre, std::move(accion));
    }
    const QVector<Tecla>& teclas() const { return teclas_; }
    void quite_tecla(int clave, Qt::KeyboardModifiers modificadores = Qt::NoModifier);
    /// Return y Enter pasan al control siguiente, salvo en memos, botones y rejillas.
    void enter_como_tab(bool si = true) { enter_como_tab_ = si; }
    /// Guarda lo escrito en el control con foco y corre la acción, protegida. Falso si algo falló.
    bool ejecute(const std::function<void()>& accion, bool escribe = true);

    /// Sirve una tecla destinada a `destino`. Con `solo_pregunta` solo dice si la serviría. La
    /// llama el filtro de la aplicación.
    bool atienda(QKeyEvent& evento, QWidget* destino, bool solo_pregunta);

    // --- tamaño
    /// Tamaño con que abre, en píxeles a escala de 100 %; crece con la letra y no pasa del área.
    void tamano(int ancho, int alto);
    QSize tamano_inicial() const;
    /// Espacio disponible para ventanas hijas; sin escritorio, el del monitor.
    QSize area_principal() const;
    /// Abre arriba a la izquierda, más angosta y más baja que el área en esos píxeles.
    void tamano_del_area(int menos_ancho, int menos_alto);
    /// Abre en el centro del área menos esas medidas, a escala de 100 %.
    void centre_en_area(int menos_ancho, int menos_alto);
    /// El alto que de verdad necesita: lo que puede encogerse no hace salir una barra.
    int heightForWidth(int ancho) const override;

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    friend class Escritorio;
    friend class MarcoPantalla;
    friend class DialogoPantalla;
    bool consienta_cierre();
    QMdiSubWindow* ventana_hija() const;
    const Tecla* busque(int clave, Qt::KeyboardModifiers modificadores) const;
    QPushButton* boton_de(const Tecla& tecla) const;
    QPoint lugar_centrado(QSize ventana) const;
    bool pase_de_control(const QKeyEvent& evento, QWidget* foco, bool solo_pregunta);
    // en peticion.cpp
    friend class RegistroPantallas;
    void abra_encargo(const QString& nombre, Encargo encargo);
    bool conteste(std::any respuesta);
    static void deje(std::type_index tipo, std::any respuesta);
    void espere_entrega(Entrega entrega);
    void reciba_entregas();

    Encargo encargo_;
    std::vector<Entrega> entregas_;
    std::vector<std::type_index> orden_;
    std::map<std::type_index, std::function<bool(const std::any&)>> aceptadas_;
    QVector<Tecla> teclas_;
    QVector<QString> en_curso_; ///< teclas cuya acción no ha terminado
    QPointer<QDialog> dialogo_;
    QSize tamano_;
    QSize menos_area_;
    QSize menos_centro_; ///< inválido: la ubica el marco
    int resultado_modal_ = mrNone;
    bool creada_ = false, creada_bien_ = false;
    bool cierre_pedido_ = false;
    bool cerrando_ = false, cerrada_ = false;
    bool enter_como_tab_ = false;
    bool del_area_ = false;
};

/// Marco de ventanas hijas. El formulario principal (o una prueba) crea uno sobre su QMdiArea y ese
/// queda como el del proceso mientras viva.
class Escritorio : public QObject {
    Q_OBJECT
public:
    explicit Escritorio(QMdiArea* area);
    ~Escritorio() override;

    QMdiArea* area() const { return area_; }
    /// Corre FormCreate y la muestra como ventana hija, activa. Toma posesión. Nulo (y liberada) si
    /// FormCreate pidió el cierre o falló.
    Pantalla* muestre(Pantalla* pantalla);
    void active(Pantalla* pantalla);
    Pantalla* activa() const { return activa_; }
    /// Pantallas abiertas, en el orden en que se abrieron.
    QVector<Pantalla*> abiertas() const;
    Pantalla* abierta(const QString& nombre) const;
    /// Recuerda el tamaño que el usuario dio a cada pantalla. Nulo para dejar de hacerlo.
    void recuerde_en(QSettings* ajustes);
    /// Cierra todas, de la última activa a la primera. Falso si alguna lo rehusó.
    bool cierre_todas();

signals:
    void cambiaron_las_abiertas();

private:
    friend class Pantalla;
    void activada(QMdiSubWindow* ventana);
    void olvide(Pantalla* pantalla); ///< se cierra: activa la anterior
    void quite(Pantalla* pantalla);
    static QString clave_tamano(const Pantalla* pantalla);
    void notifique(Pantalla* pantalla);

    QMdiArea* area_;
    QSettings* ajustes_ = nullptr;
    QPointer<Pantalla> activa_;
    QVector<Pantalla*> abiertas_;
    QVector<Pantalla*> historia_;                   ///< la más reciente al final
    std::map<std::type_index, std::any> ofrecidas_; ///< respuestas que nadie pidió
    bool en_silencio_ = false;
};

/// Escritorio del proceso, o nulo.
Escritorio* escritorio();

/// Registro de pantallas por nombre: así un piso bajo abre una de un piso alto.
class RegistroPantallas {
public:
    using Creador = std::function<Pantalla*()>;
    enum Copias { Varias, Unica };

    void registre(const QString& nombre, Creador creador, Copias copias = Varias);
    bool existe(const QString& nombre) const { return creadores_.contains(nombre); }
    QStringList nombres() const { return creadores_.keys(); }
    /// La construye sin FormCreate; el que llama es el dueño. Lanza ErrorDatos si no existe.
    Pantalla* construya(const QString& nombre) const;
    /// Abre como ventana hija. La petición está puesta antes de FormCreate. Una pantalla de copia
    /// única ya abierta se activa con ella. Nulo si FormCreate pidió el cierre.
    Pantalla* abrir(const QString& nombre, Encargo encargo = {});
    /// Abre en modal y la libera; devuelve su resultado modal.
    int abrir_modal(const QString& nombre, Encargo encargo = {});
    /// Abre en modal y devuelve su respuesta; nulo si se cerró sin contestar.
    template <class P>
    std::optional<typename P::Respuesta> pida_modal(const QString& nombre, P peticion) {
        std::optional<typename P::Respuesta> respuesta;
        Encargo encargo(std::move(peticion));
        encargo.al_responder_ = [&respuesta](const std::any& r) {
            respuesta = std::any_cast<const typename P::Respuesta&>(r);
        };
        abrir_modal(nombre, std::move(encargo));
        return respuesta;
    }

private:
    struct Registrada {
        Creador creador;
        Copias copias;
    };
    QMap<QString, Registrada> creadores_;
};

RegistroPantallas& pantallas();
