#pragma once
// Conjunto de datos: tabla en memoria con búfer de edición, registro de cambios y cursor.
//
// Trae filas de un proveedor por paquetes, las cambia en memoria sin bloquear nada y devuelve los
// cambios con ApplyUpdates, en una transacción. Un conjunto anidado (`anide_en`) muestra los
// detalles de la fila actual de su maestra. Sin proveedor (CreateDataSet) es una tabla en memoria.
//
// Una lectura que falla (Open, Refresh, pasar de una maestra a otra, el paquete siguiente) deja el
// conjunto como estaba: filas, anidados, cursor y estado.
//
// Fallas: un campo obligatorio vacío da un texto que empieza por "Fie"; una llave repetida en
// memoria, por "key"; borrar una maestra con detalles, por "Cannot delete master record wi".
#include "datos/recordset/campo.h"
#include "datos/recordset/proveedor.h"

#include <QVector>
#include <deque>
#include <memory>
#include <vector>

enum class Estado { Cerrado, Navegacion, Edicion, Insercion };

enum OpcionLocate : unsigned { loCaseInsensitive = 1, loPartialKey = 2 };

struct Detalle;

/// Fila en memoria. Recién traída solo apunta a su mensaje crudo; se decodifica lo que se mira.
struct Fila {
    enum class Marca { Intacta, Nueva, Insertada, Modificada };
    const char* cruda = nullptr;
    std::unique_ptr<QVector<Valor>> valores;    ///< por campo; nulo mientras baste el mensaje crudo
    std::unique_ptr<QVector<Valor>> originales; ///< lo que la base tenía, en filas modificadas
    Marca marca = Marca::Intacta;
    bool retenida = false; ///< nació con un filtro puesto: sigue a la vista aunque no lo cumpla
    /// Campos calculados, en su orden, y la vigencia del conjunto con que se calcularon.
    mutable std::unique_ptr<QVector<Valor>> calculados;
    mutable unsigned vigencia = 0;
    /// Lo que viajó en una grabación cuya respuesta no llegó, mientras no se sepa si quedó.
    struct Envio;
    std::shared_ptr<Envio> envio;
    std::vector<std::unique_ptr<Detalle>> detalles; ///< uno por detalle de la sentencia maestra
};

/// Filas de un conjunto (o del detalle de una fila maestra), con las borradas sin grabar.
struct Detalle {
    std::deque<std::unique_ptr<Fila>> filas; ///< dueño; el orden visible lo lleva el conjunto
    std::vector<std::unique_ptr<Fila>> borradas;
    std::vector<QByteArray> paquetes;
    bool cargado = false;
};

/// Lo que un control o una rejilla quiere saber de su conjunto.
class EnlaceDatos {
public:
    virtual ~EnlaceDatos();
    void enlace(ConjuntoDatos* conjunto);
    ConjuntoDatos* conjunto() const { return conjunto_; }
    virtual void estado_cambiado() {}
    virtual void fila_actual_cambiada() {} ///< el cursor pasó a otra fila
    virtual void campo_cambiado(Campo*) {} ///< de la fila actual; nulo: todos
    virtual void filas_reiniciadas() {}
    virtual void filas_insertadas(int desde, int cuantas) {}
    virtual void filas_borradas(int desde, int cuantas) {}
    virtual void fila_modificada(int indice) {}
    /// El conjunto va a grabar la fila: el control escribe lo que tenga a medias.
    virtual void escriba_pendiente() {}

private:
    friend class ConjuntoDatos;
    ConjuntoDatos* conjunto_ = nullptr;
};

class ConjuntoDatos : public QObject {
    Q_OBJECT
public:
    ConjuntoDatos(QObject* dueno, const QString& nombre, Proveedor* proveedor = nullptr);
    ~ConjuntoDatos() override;

    // --- definición de campos persistentes
    Campo& texto(const QString& nombre, int tamano);
    Campo& bandera(const QString& nombre); ///< CHAR(1) con "S" o "N"
    Campo& entero(const QString& nombre);
    Campo& decimal(const QString& nombre, int decimales = 2);
    Campo& fecha(const QString& nombre);
    Campo& hora(const QString& nombre);
    Campo& memo(const QString& nombre);
    Campo& blob(const QString& nombre);
    Campo& calculado(const QString& nombre, ClaseCampo clase, int tamano);
    Campo& interno(const QString& nombre, ClaseCampo clase, int tamano);
    Campo& busqueda(const QString& nombre, int tamano, const QString& llaves, ConjuntoDatos* tabla,
                    const QString& llaves_tabla, const QString& resultado);
    /// Este conjunto muestra el detalle `sentencia_detalle` de la fila actual de `maestra`.
    void anide_en(ConjuntoDatos* maestra, Sentencia* sentencia_detalle);
    ConjuntoDatos* maestra() const { return maestra_; }
    Sentencia* sentencia() const;
    const QVector<ConjuntoDatos*>& anidados() const { return anidados_; }

    // --- propiedades
    Proveedor* proveedor = nullptr;
    QString CommandText;    ///< exige poAllowCommandText en el proveedor
    int PacketRecords = -1; ///< filas por viaje; -1 todas
    /// Lee todo de una sola foto de la base, para que lo que se imprime cuadre.
    bool Instantanea = false;
    /// Con Instantanea, la foto que este conjunto comparte con otros o con varias aperturas suyas;
    /// nula, cada apertura toma la suya.
    std::shared_ptr<Transaccion> foto;
    /// Solo hacia adelante: al pasar de un paquete al otro se sueltan las filas del anterior y la
    /// memoria no crece con el resultado. Después de la última no queda fila actual.
    bool Unidireccional = false;
    /// OnCalcFields corre una vez por fila, al traerla y en su orden (más una vez, sin fila, al
    /// abrir): sirve a lo que depende de la fila anterior, como un saldo corrido. Sin esto corre
    /// una vez por fila cuando se la mira, y otra si la fila o su maestra cambian.
    bool calcular_al_traer = false;
    /// Los campos calculados dependen de algo de afuera que cambió: se calculan de nuevo.
    void recalcule() {
        ++vigencia_;
        ++version_;
    }
    /// Campo que numera las filas que comparten el resto de la llave ("CODE_ITEM" las de un
    /// comprobante), o toda la tabla si él es la llave. Si otro usuario ya grabó una con el número
    /// de una nueva, la nueva toma el siguiente libre en vez de rehusarse.
    QString CampoConsecutivo;
    QMap<QString, Valor> Params;
    void FetchParams(); ///< toma de la sentencia los nombres de sus parámetros
    void IndexFieldNames(const QString& campos, bool descendente = false);
    QString IndexFieldNames() const { return indice_; }
    void Filter(const QString& expresion);
    void Filtered(bool activo);
    const QString& Filter() const { return filtro_; }
    bool Filtered() const { return filtrado_; }
    /// Condición por código que se suma a Filter (fila de filtros de una rejilla); nula la quita.
    void condicion(std::function<bool()> f);
    /// Agregado con nombre sobre las filas a la vista: "Sum(CODE_DEBITO)".
    void agregado(const QString& nombre, const QString& expresion);
    Valor agregado(const QString& nombre) const;
    /// El mismo agregado sobre todas las filas en memoria, también las que esconde un filtro.
    Valor agregado_total(const QString& nombre) const;
    bool AggregatesActive = true;

    // --- todas las filas en memoria, también las que un filtro oculta
    /// Cuántas son, con la que se está insertando.
    int filas_en_memoria() const;
    /// Las recorre en el orden en que se graban. La que se está insertando no ha entrado.
    void recorra_todas(const std::function<void(const Fila&)>& visita) const;
    /// Valor de un campo en una fila de las que recorre `recorra_todas`.
    Valor valor_de(const Fila& fila, const Campo& campo) const;
    /// Las borra de una vez, con un solo AfterDelete; cancela la edición en curso.
    void borre_todas();

    // --- eventos, en el orden de la vida de una fila
    std::function<void()> BeforeOpen, AfterOpen, BeforeClose, AfterClose;
    std::function<void()> BeforeInsert, AfterInsert, OnNewRecord, BeforeEdit, AfterEdit;
    std::function<void()> BeforePost, AfterPost, BeforeCancel, AfterCancel;
    std::function<void()> BeforeDelete, AfterDelete, BeforeScroll, AfterScroll, OnCalcFields;
    std::function<void()> BeforeGetRecords, AfterGetRecords;
    /// Reciben la falla; la operación queda abortada en silencio. Sin manejador, la falla sale.
    std::function<void(ConjuntoDatos&, const ErrorDatos&)> OnEditError, OnPostError, OnDeleteError;

    // --- operaciones
    void Open();
    /// Cierra y abre con otro texto. Si la lectura falla, sigue abierto con lo que tenía.
    void Open(const QString& texto);
    /// Cierra y abre, con los parámetros que tenga ahora. Si falla, sigue como estaba: a diferencia
    /// de Close y Open, no se pierde lo que haya en pantalla.
    void Reabra();
    void Close();
    void CreateDataSet();
    void Refresh();
    /// Ejecuta CommandText (INSERT, UPDATE, DELETE, execute procedure) y confirma.
    qint64 Execute();
    qint64 Execute(const QString& texto) {
        CommandText = texto;
        return Execute();
    }
    void Append();
    void Insert();
    void Edit();
    void Post();
    void Cancel();
    void Delete();
    void First();
    void Last();
    void Next();
    void Prior();
    /// Posición visible, 0 a RecordCount()-1.
    void vaya_a(int indice);
    bool Locate(const QString& campos, const QVector<Valor>& valores, unsigned opciones = 0);
    Valor Lookup(const QString& campos, const QVector<Valor>& valores, const QString& resultado);
    int ApplyUpdates(int errores_maximos);
    void CancelUpdates();
    int ChangeCount() const;
    void DisableControls() { ++controles_apagados_; }
    void EnableControls();
    /// Si está en edición o inserción, graba la fila en memoria.
    void CheckBrowseMode();
    void FetchAll();

    // --- consulta
    Estado State() const { return estado_; }
    bool Active() const { return estado_ != Estado::Cerrado; }
    bool editando() const { return estado_ == Estado::Edicion || estado_ == Estado::Insercion; }
    /// Algún campo cambió desde que la fila entró en edición. Los valores con que nace una fila
    /// (DefaultExpression, AfterInsert, OnNewRecord) no cuentan.
    bool Modified() const { return editando() && modificado_; }
    bool IsEmpty() const;
    bool Eof() const { return fin_; }
    bool Bof() const { return inicio_; }
    int RecordCount() const { return int(orden_.size()); }  ///< filas a la vista ya traídas
    bool completo() const { return !cursor_ && !cortada_; } ///< ya llegaron todas
    /// Se perdió el servidor antes de traerlas todas: pedir más es una falla hasta leer de nuevo.
    bool cortada() const { return cortada_; }
    /// Trae otro paquete; falso si no había más.
    bool traiga_paquete();
    int RecNo() const { return pos_; } ///< 0-based; -1 sin filas
    Campo& FieldByName(const QString& nombre) const;
    Campo* FindField(const QString& nombre) const;
    Campo& Fields(int indice) const;
    int FieldCount() const { return int(campos_.size()); }
    /// Valor de la primera columna de la primera fila, vacío si no hay: la consulta de un dato.
    Valor valor_unico(const QString& sql);
    /// Valor de un campo en otra fila a la vista, sin mover el cursor.
    /// La fila en edición difiere de la guardada en algún campo que no sea de `salvo`.
    bool cambiada(const QStringList& salvo = {}) const;
    Valor valor_en(int indice, const Campo& campo) const;
    Fila::Marca marca_en(int indice) const { return orden_[size_t(indice)]->marca; }
    QVector<Campo*> campos_llave() const;  ///< los de pfInKey
    QVector<Campo*> campos_indice() const; ///< los del índice en uso, o la llave
    Conexion& conexion() const { return sentencia()->conexion(); }
    const QVector<Columna>& columnas() const { return columnas_; } ///< del último resultado

private:
    friend class Campo;
    friend class Proveedor;
    friend class EnvioPendiente;
    friend class EnlaceDatos;
    friend class Expresion;

    Campo& agregue_campo(const QString& nombre, ClaseCampo clase, int tamano, TipoCampo tipo);
    // lectura.cpp
    class Intento;
    void abra_cursor();
    void asegure_columnas();
    void ate_campos();
    void exija_texto_propio() const;
    void lea_paquete(Detalle& almacen, size_t desde);
    void lea_filas();
    void lea_detalle();
    void cargue_anidado();
    void cargue_anidados();
    void anuncie_anidados();
    /// Los anidados pasan a la fila actual cuando ya no hay cómo volver a la anterior. Devuelve la
    /// falla, para lanzarla después de avisar: los que no se pudieron leer quedan sin filas.
    std::exception_ptr siga_a_la_fila();
    void prepare_apertura();
    void anuncie_apertura();
    void ubique_tras_refrescar(int antes, const QVector<Campo*>& llave,
                               const QVector<Valor>& valores);
    void cambiaron_filas() { ++version_; }
    void reordene(const Fila* conservar);
    void reordene_y_avise();
    bool visible(Fila& fila);
    bool menor(const Fila& a, const Fila& b) const;
    void inserte_fila(int posicion);
    void guarde_en_memoria(Fila& fila);
    void falle(const std::function<void(ConjuntoDatos&, const ErrorDatos&)>& manejador,
               const ErrorDatos& error);
    void exija_abierto() const;
    void valide_requeridos();
    void valide_llave();
    void mueva(int destino, bool avise = true);
    void haga_propios(Fila& fila) const;
    Valor valor_guardado(const Fila& fila, const Campo& campo) const;
    Valor calcule(const Fila& fila, const Campo& campo) const;
    void corra_calculo(const Fila* fila) const;
    void calcule_al_traer(Fila& fila) const;
    void calcule_fila(const Fila& fila) const;
    /// Los valores de una fila cambiaron: lo que se calculó con ellos ya no vale.
    void valores_cambiados(const Fila& fila);
    Valor busque(const Campo& campo) const;
    static constexpr int kNoEsta = -1, kSinIndice = -2;
    QVector<Campo*> campos_de_lista(const QString& nombres) const;
    int busque_fila(const QVector<Campo*>& llaves, const QVector<Valor>& valores,
                    unsigned opciones);
    /// Entre las filas ya traídas y con índice, kNoEsta; kSinIndice si hay que mirarlas una a una.
    int fila_con(const QVector<Campo*>& llaves, const QVector<Valor>& valores) const;
    const Fila* fila_activa() const;
    void asigne(Campo& campo, const Valor& valor);
    Detalle* almacen() const;
    void acepte_cambios();
    void descarte(Detalle& detalle);
    int cuente_cambios(const Detalle& detalle) const;
    template <class F> void avise(F f) const;
    // agregados.cpp
    struct SumaViva {
        unsigned version = 0; ///< de las filas que suma
        Moneda suma;
        int cuantos = 0; ///< filas con valor
    };
    using Sumas = QHash<QString, SumaViva>; ///< por la expresión del agregado
    Valor sumando(const Fila& fila, const Campo& campo) const;
    template <class Filas>
    const SumaViva& sume(const QString& expresion, const Filas& filas, Sumas& sumas) const;
    /// Hace un cambio que solo toca esa fila, la actual, y corrige con ella las sumas ya hechas.
    void cambie_fila(const Fila& fila, const std::function<void()>& cambio);

    std::vector<std::unique_ptr<Campo>> campos_;
    std::vector<std::unique_ptr<Campo>> campos_previos_; ///< dinámicos, mientras se abre otro texto
    QHash<QString, Campo*> por_nombre_;
    bool campos_dinamicos_ = false;
    int campos_calculados_ = 0;
    QVector<Columna> columnas_;
    ConjuntoDatos* maestra_ = nullptr;
    Sentencia* sentencia_detalle_ = nullptr;
    int indice_detalle_ = -1;
    QVector<ConjuntoDatos*> anidados_;

    Detalle propio_;
    std::vector<Fila*> orden_;
    std::shared_ptr<Transaccion> foto_; ///< la de Instantanea; vive más que su cursor
    std::unique_ptr<Cursor> cursor_;
    Estado estado_ = Estado::Cerrado;
    int pos_ = -1;
    bool inicio_ = true, fin_ = true, cortada_ = false;
    unsigned vigencia_ = 1; ///< de los campos calculados de todas las filas
    unsigned version_ = 1;  ///< de las filas y sus valores, para los índices de búsqueda
    mutable std::unique_ptr<class IndiceBusqueda> indice_busqueda_;
    std::unique_ptr<Fila> nueva_; ///< fila en inserción, aún fuera del almacén
    QVector<Valor> bufer_;        ///< valores de la fila en edición
    int pos_previa_ = -1;
    bool modificado_ = false;
    mutable const Fila* fila_calculo_ = nullptr;
    mutable QVector<Valor> calculados_;
    mutable bool calculando_ = false;
    QString filtro_, indice_;
    bool filtrado_ = false, descendente_ = false, en_memoria_ = false, abriendo_ = false;
    bool recien_abierto_ = false;
    std::function<bool()> condicion_;
    std::shared_ptr<class Expresion> expresion_filtro_;
    QMap<QString, QString> agregados_;
    mutable Sumas sumas_a_la_vista_, sumas_totales_;
    int controles_apagados_ = 0;
    QVector<EnlaceDatos*> enlaces_;
};

template <class F> void ConjuntoDatos::avise(F f) const {
    if (controles_apagados_ > 0)
        return;
    const auto copia = enlaces_; // un control puede nacer o morir mientras se avisa
    for (EnlaceDatos* e : copia)
        if (enlaces_.contains(e))
            f(*e);
}
