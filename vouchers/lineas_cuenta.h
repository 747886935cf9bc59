#pragma once
// Lo común a toda rejilla de líneas contables: cuenta, tercero, centro, un débito o un crédito.
//
// Une la rejilla y su conjunto con los nombres y las sumas que van debajo: suma y compara los dos
// lados, sugiere el que cuadra, recibe lo escogido en las búsquedas y rehúsa la línea incompleta.
// Las cuatro primeras columnas de la rejilla son cuenta, tercero, proyecto y centro.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "libro/importes.h"
#include "libro/lineas.h"
#include "toolkit/rejilla/rejilla.h"

#include <QObject>
#include <functional>

class EditorNumero;
class Formulario;
class LetreroDiferencia;
class Pantalla;
class QLineEdit;
class QMenu;
struct CentroEscogido;

/// Cómo llama cada tabla lo que toda línea lleva.
struct NombresLinea {
    const char *debito, *credito;
    const char* cuenta = "CUEN_COD";
    const char* tercero = "TERC_NIT";
    const char* proyecto = "PROY_COD";
    const char* centro = "CENT_COD";
};

class LineasCuenta : public QObject {
    Q_OBJECT
public:
    LineasCuenta(Libro libro, ConjuntoDatos& detalle, ConjuntoDatos& consulta,
                 const NombresLinea& nombres, QObject* dueno);

    enum Columna { kCuenta, kTercero, kProyecto, kCentro };

    const Libro libro;
    ConjuntoDatos& detalle;
    Rejilla* rejilla = nullptr;
    QLineEdit *NomCuenta = nullptr, *NomTerc = nullptr, *NomProy = nullptr, *NomCent = nullptr;
    EditorNumero *Sumadeb = nullptr, *SumCred = nullptr, *Difdeb = nullptr, *DifCred = nullptr;
    LetreroDiferencia* LabDiferencia = nullptr; ///< lo que falta, al paso que se digita
    ContadorLineas contador;

    /// La línea se va a rehusar: corre antes de decirlo.
    std::function<void()> al_rehusar;

    /// Agregados de los dos lados, que las sumas leen por su nombre.
    static void defina_sumas(ConjuntoDatos& detalle, const NombresLinea& nombres);
    /// Caja de lectura para un nombre, fuera del recorrido de Tab.
    static QLineEdit* caja_de_nombre(const QString& componente);

    /// Graba la línea pendiente si tiene cuenta; si no, la cancela.
    void termine_linea();
    /// Escribe en la línea lo que cuadra el comprobante; con un lado ya escrito no hace nada.
    void sugiera_db_cr();
    /// Los nombres y saldos de la línea actual, en blanco.
    void vacie_pie();
    void vacie_saldos();
    void vacie_diferencias();
    void actualice_sumas();
    // De todas las líneas del comprobante, también las que un filtro oculta.
    virtual Moneda suma_debito() const { return detalle.agregado_total("Sumadebito").moneda(); }
    virtual Moneda suma_credito() const { return detalle.agregado_total("Sumacredito").moneda(); }
    /// Las dos sumas con lo que la línea en edición lleva escrito, aunque aún no haya entrado.
    Lados sumas_al_digitar() const;
    /// La línea acaba de entrar en edición: aún tiene lo que las sumas cuentan de ella.
    void anote_guardados();
    /// El contador sigue al mayor de los números que hay, también el de la que se inserta.
    void siga_los_items(const char* campo_item);
    bool sin_lineas() const { return detalle.filas_en_memoria() == 0; }
    /// La línea que se empieza aún no tiene cuenta: si no la tiene al final, no es de nadie.
    bool en_blanco() const { return detalle.State() == Estado::Insercion && cuenta().isEmpty(); }
    /// Lleva el cursor a la línea de ese número, sin el filtro que la oculte, y a la celda.
    void vaya_a(qint64 numero, const QString& campo_item, const QString& celda);
    /// Menú emergente de la rejilla, con el nombre que propone al guardar.
    QMenu* arme_menu(const QVector<Rejilla::Orden>& ordenes, const QString& nombre_archivo,
                     const QString& titulo);
    /// Título de lo que se imprima de la rejilla, al que se agregan el libro y la fecha.
    void titule(const QString& titulo);
    /// Las órdenes del menú de un comprobante.
    static QVector<Rejilla::Orden> ordenes_de_comprobante();
    /// Deja la rejilla lista para pegar: graba o cancela la línea en edición.
    void prepare_pegado();
    /// Termina la línea, abre las columnas que la anterior cerró, pega y vuelve a la primera.
    void pegue();
    void pegue(const QVector<QStringList>& filas); ///< las ya confirmadas
    /// Dice qué hará el pegado y qué filas no entran, antes de cambiar nada; devuelve las que se
    /// van a pegar, o nada si se desistió. Una celda sola no se anuncia. `abre_columnas`: las que
    /// la cuenta anterior cerró también se van a escribir.
    std::optional<QVector<QStringList>> anuncie_pegado(bool abre_columnas);
    /// Al teclear una cuenta, un tercero o un centro se ofrecen los que empiecen así.
    void ofrezca_al_teclear();
    /// Escribe en la línea lo escogido en una búsqueda; abre o inserta la línea si hace falta.
    void reciba(const QString& campo, const QString& valor);
    /// Dice por qué y aborta la orden si las líneas se muestran solo para leer.
    void exija_abiertas() const;
    void prepare_recepcion();
    void reciba(const CentroEscogido& centro);
    // Abren la lista; lo escogido llega a esta línea cuando la pantalla vuelve a activarse.
    void escoja_cuenta(const QString& texto = {}) { escoja_cuenta(libro, texto); }
    void escoja_cuenta(Libro plan, const QString& texto);
    void escoja_tercero(const QString& texto = {});
    void escoja_centro();
    /// Lo que la línea tiene en ese campo; vacío si es una pregunta ("?...").
    QString actual(const char* campo) const;
    /// Tabla de la que salen los atributos de la cuenta de la línea.
    virtual const char* tabla_atributos() const { return datos(libro).cuentas; }

protected:
    Campo& campo(const char* nombre) const { return detalle.FieldByName(QLatin1String(nombre)); }
    QString cuenta() const { return campo(n_.cuenta).texto(); }
    bool en_edicion() const { return detalle.editando(); }
    /// Deja en la consulta de la pantalla las columnas de la cuenta de la línea.
    void consulte_cuenta(const char* columnas) { consulte_cuenta(columnas, tabla_atributos()); }
    void consulte_cuenta(const char* columnas, const char* plan);
    /// "?" con texto: abre la búsqueda y lo que sigue al signo es lo buscado.
    bool busque_cuenta();
    bool busque_tercero();
    bool busque_centro();
    bool busque_proyecto(); ///< la misma lista, preguntada en el proyecto
    /// Lo preguntado en la celda, que vuelve a lo que tenía; nada si no empieza por "?".
    std::optional<QString> tome_pregunta(const char* celda);
    bool reponiendo() const { return pregunta_.reponiendo(); }
    /// Al dejar una celda: en ella se preguntó, y quien contesta es la lista que se abrió.
    bool se_pregunto() { return std::exchange(pregunto_, false); }
    /// Nombres y saldos de lo que la línea tiene, sin validarlo.
    virtual void muestre_pie() = 0;
    /// Cierra al entrar las columnas que la cuenta no lleva.
    void abra_o_cierre(int columna);
    /// Un débito quita el crédito, y al revés; y la diferencia sigue a las sumas.
    void ate_lados();
    /// Las celdas en que "?" pregunta, y el pie cuando se desiste de la línea.
    void ate_preguntas();
    void diferencia();
    /// Dice lo primero que falta y deja la línea en edición.
    void exija(const Rechazos& faltas);
    [[noreturn]] void rehuse(const QString& texto);
    /// La cuenta de la línea, de la última consulta; lo que no se pidió queda vacío.
    AtributosCuenta atributos() const;
    /// Lo que la cuenta mira de la línea.
    virtual LineaComprobante linea() const;
    /// Las de todas las líneas que ya entraron, con los dos lados que la que se edita lleva en sus
    /// campos. Cuesta lo mismo con muchas que con pocas.
    virtual Lados sumas_en_memoria(const Lados& escritos) const;
    /// Los dos lados que la línea tendría con el importe que se está tecleando; nada si no lo hay o
    /// aún no es un número.
    std::optional<Lados> lados_a_medio_digitar(const Lados& escritos) const;
    /// La columna de un comprobante que hace lo que esta columna hace; vacía si ninguna.
    virtual QString como_de_comprobante(const QString& columna) const;
    /// Con qué se completa lo que una línea pegada no traiga.
    virtual MemoriasLinea memorias_de_pegado() const { return {}; }
    virtual bool exige_valor() const { return false; }
    /// La línea guardada que nadie ha cambiado no se vuelve a probar: pasar por ella no atrapa.
    bool intacta() const;
    /// La pantalla que las aloja, que es la que pide por ellas.
    Pantalla& pantalla() const;

    bool pregunta_por_centro(const char* celda);
    /// Un centro sin proyecto: el único que lo tiene es el que se quiso decir; si no es uno solo,
    /// lo dice.
    void deduzca_proyecto();
    /// Por qué no se digita esa celda.
    QString por_que_cerrada(int columna) const;
    /// Los nombres y las sumas, bajo la rejilla; cada nombre con su saldo, si lo hay.
    void disponga_pie(Formulario& f, EditorNumero* saldo_cuenta = nullptr,
                      EditorNumero* saldo_tercero = nullptr, EditorNumero* saldo_centro = nullptr);

    PreguntaEnCampo pregunta_;
    bool pregunto_ = false;         ///< en la celda que aún no se deja
    QVector<EditorNumero*> saldos_; ///< los que van junto a los nombres
    Lados guardados_;               ///< los de la línea en edición, como las sumas la cuentan
    ConjuntoDatos& consulta_;       ///< CBorrar de la pantalla
    const NombresLinea n_;
};

/// Sin valor, o cero escrito.
bool vacio_o_cero(const Campo& campo);
