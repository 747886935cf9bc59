#pragma once
// Rejilla: tabla sobre un conjunto de datos, hecha para digitar sin soltar el teclado.
//
// La fila actual es el cursor del conjunto, en los dos sentidos. Digitar abre el editor de la
// celda; lo escrito llega al campo al dejar la celda (Campo::asigne, con su OnChange). Salir de la
// fila la graba en memoria; si la grabación se rehúsa, el cursor se queda y la fila sigue en
// edición. Perder el foco no graba la fila.
//
//   rejilla->columnas({{"CUEN_COD", "Código", 12},
//                      {"CODE_DEBITO", "Débito", 16, Suma, "#,###.00"},
//                      {"CODE_DESCONTABLE", "Desc.", 5, Casilla}});
//   rejilla->ate(CDetalle);
//   rejilla->ColExit = [this](int columna) { ... };
//
// Las columnas se numeran desde 0 en el orden declarado, visibles o no; un número de fuera lanza
// ErrorDatos "List index out of bounds (n)".
//
// Teclas: flechas, Inicio, Fin, AvPág, RePág, Ctrl+Inicio, Ctrl+Fin; Tab, Mayús+Tab y Enter por las
// celdas; Abajo en la última fila agrega otra; Insert inserta; Ctrl+Supr borra; Esc cancela la
// celda y luego la fila; Ctrl+Z la pantalla deshace; Ctrl+Enter o Retroceso abren el editor con lo
// que hay, Supr lo abre vacío; Alt+Abajo abre la lista; teclear en una lista de consulta se ubica
// en lo tecleado; Espacio cambia la casilla o marca la fila; Mayús+flechas seleccionan; Arriba en
// la primera fila pasa a los filtros.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/columna_rejilla.h"
#include "toolkit/tecleo.h"

#include <QTableView>
#include <memory>
#include <set>
#include <vector>

class EditorCelda;
class EncabezadoRejilla;
class IndicadorFilas;
class ModeloConjunto;
class PieRejilla;
class QLabel;
class QMenu;
class QSettings;
class QTimer;

class Rejilla : public QTableView, public ReclamaTeclas {
    Q_OBJECT
public:
    explicit Rejilla(QWidget* padre = nullptr, ConjuntoDatos* conjunto = nullptr);
    ~Rejilla() override;

    // --- datos y columnas
    void ate(ConjuntoDatos* conjunto);
    ConjuntoDatos* conjunto() const;
    void columnas(const QVector<DefinicionColumna>& definiciones);
    /// Sin tabla de columnas la rejilla muestra los campos visibles del conjunto cada vez que abre.
    void columnas_del_conjunto();
    int cuenta_columnas() const { return int(columnas_.size()); }
    ColumnaRejilla& columna(int indice) const;
    /// Número de la columna que muestra el campo, -1 si ninguna.
    int columna_de(const QString& campo) const;
    void lista(int indice, const QStringList& textos, const QStringList& valores = {});
    void lista(const QString& campo, const QStringList& textos, const QStringList& valores = {}) {
        lista(columna_de(campo), textos, valores);
    }

    // --- comportamiento
    bool ReadOnly = false;            ///< no se edita, inserta ni borra desde la rejilla
    bool permite_insertar = true;     ///< Abajo en la última fila agrega otra; Insert inserta
    bool permite_borrar = true;       ///< Ctrl+Supr pregunta y borra la fila actual
    bool enter_como_tab = false;      ///< Enter pasa a la celda siguiente si no hay selección
    bool enter_con_seleccion = false; ///< enter_como_tab también con varias celdas seleccionadas
    bool reclama_escape = true;    ///< Esc cancela la celda o la fila antes de llegar a la pantalla
    bool ubica_al_teclear = false; ///< sin editar una fila, teclear ubica en vez de escribir
    bool orden_local = false;      ///< el título ordena las filas en memoria
    QString texto_vacio;   ///< lo que dice una lista sin filas, con la tecla que crea la primera
    bool editable() const; ///< atada, sin ReadOnly y con el conjunto abierto

    // --- celda actual y selección
    int SelectedIndex() const; ///< columna actual, -1 sin ella
    void SelectedIndex(int columna);
    /// Lleva el cursor a `columna` cuando termine lo que la tecla en curso haga con la celda.
    void vuelva_a(int columna);
    Campo* campo_actual() const;
    /// El editor de la celda está abierto.
    bool digitando() const;
    /// El foco está en la rejilla, en el editor de su celda o en su fila de filtros.
    bool enfocada() const;
    /// Lo que el editor abierto lleva escrito.
    QString texto_digitado() const;
    /// Escribe en el campo lo digitado a medias. Si el campo lo rehúsa, deja el editor abierto y
    /// relanza la falla.
    void escriba_pendiente();
    void dgMultiSelect(bool activo); ///< varias filas marcadas con Espacio, Mayús y Ctrl
    bool dgMultiSelect() const { return marcas_activas_; }
    QVector<int> filas_marcadas() const; ///< en el orden de la vista
    void marque(int fila, bool marcada = true);
    void quite_marcas();
    bool marcada(int fila) const { return marcas_.count(fila) > 0; }
    /// Hay más de una celda seleccionada.
    bool tiene_seleccion() const;

    // --- pie, filtros y orden
    void pie(bool visible);
    bool pie() const;
    Moneda suma(int columna) const;    ///< exacta, sobre las filas a la vista ya traídas
    void filtro_visible(bool visible); ///< ocultarla quita los filtros
    bool filtro_visible() const;
    bool en_fila_de_filtro() const; ///< el foco está en la fila de filtros
    void limpie_filtros();
    /// Ordena en memoria por la columna, alternando el sentido, sin dejar la fila actual.
    void ordene_por(int columna);

    // --- portapapeles: texto separado por tabuladores
    bool puede_copiar() const;
    bool puede_pegar() const;
    bool puede_borrar() const;
    void copie();
    void corte();
    /// Pega celda por celda con Campo::asigne desde la actual; agrega las filas que falten. La
    /// primera fila que se rehúsa queda en edición y detiene el resto.
    void pegue();
    void pegue(const QVector<QStringList>& filas); ///< estas, en vez de las copiadas
    /// Un pegado que tarda más muestra cuántas líneas van. Milisegundos.
    static inline int ms_avance = 300;
    void borre_seleccion(); ///< vacía las celdas; si son filas enteras, pregunta y las borra
    void seleccione_todo();

    // --- menú emergente, archivo e impresión
    enum Orden {
        Cortar,
        Copiar,
        Pegar,
        Borrar,
        SeleccionarTodo,
        Imprimir,
        VistaPreliminar,
        Guardar
    };
    /// Arma el menú de la rejilla con sus letreros ("Cor&tar", "&Copiar", "Se&lecccionar todo"...).
    /// Cada opción se habilita cuando la rejilla la permite. Devuelve el menú, para agregarle.
    QMenu* menu_emergente(const QVector<Orden>& ordenes);
    /// Reemplaza lo que hace una opción (el "&Pegar" de los comprobantes prepara la fila antes).
    void al_ordenar(Orden orden, std::function<void()> accion);
    void ejecute_orden(Orden orden);
    bool permite_orden(Orden orden) const;
    QString nombre_archivo; ///< nombre que propone "&Guardar selección"
    QString filtro_archivo; ///< vacío: los cinco formatos
    QString titulo_impreso; ///< encabezado de la impresión; "%[Today]" se cambia por la fecha
    static QString compania_impresa; ///< la pone la aplicación al abrir la compañía
    void guarde_seleccion();
    void imprima();

    // --- anchos recordados
    /// Lee los anchos guardados bajo la clave y los sigue guardando
    /// ("usuario/Tfcuentas/DBGridEh1").
    void guarde_en(QSettings* ajustes, const QString& clave);
    void ajuste_anchos(); ///< al título y al contenido de las primeras filas

    // --- eventos
    std::function<void(int)> ColEnter; ///< entró a la celda, o a la rejilla estando en ella
    std::function<void(int)> ColExit;  ///< deja la celda; lo digitado ya está en el campo
    /// Durante ColExit: la celda a la que se va es de otra fila. Lo que se abra entonces sería de
    /// esa.
    bool cambia_de_fila() const { return cambia_de_fila_; }
    std::function<void(int)> OnDblClick;
    std::function<void()> OnReturn; ///< Enter sobre las filas, en vez de lo que la rejilla haría
    std::function<void(Campo&)> OnTitleClick; ///< sin `orden_local`
    std::function<void()> OnEnter, OnExit;    ///< el foco entra a la rejilla o la deja
    std::function<void()> OnDeshacer;         ///< Ctrl+Z sobre las celdas
    std::function<void()> OnDigitado;         ///< tras cada tecla en el editor de una celda
    /// Se tecleó en una celda que no se digita: dice por qué. Sin él solo suena el pitido.
    std::function<void(int columna)> OnCeldaCerrada;
    std::function<void()> OnEscape;           ///< Esc sin editor ni fila que cancelar
    std::function<void()> OnSelectionChanged; ///< cambiaron las filas marcadas
    /// Letra y colores de una fila; el valor de otros campos se lee con conjunto()->valor_en.
    std::function<void(int fila, QFont& letra, QColor& frente, QColor& fondo)> OnGetCellParams;
    /// Niveles que entra una celda en el libro exportado.
    std::function<int(int fila, const Campo& campo)> OnSangria;

    /// Atiende lo que se teclea sobre una lista de consulta (o con `ubica_al_teclear`). Sin él la
    /// rejilla se ubica en la primera fila que empiece así en la columna actual.
    std::function<void(const QString& tecleado)> OnTeclear;
    /// Sangra el texto del campo según el nivel de su fila, el de arriba 0; solo a la vista.
    void sangre(const QString& campo, std::function<int(int fila)> nivel);

    // --- para las piezas de la rejilla
    struct Aspecto {
        QFont letra;
        QColor frente, fondo;
        int nivel = 0;
    };
    bool sangrada(int columna) const { return columna == columna_sangrada_; }
    const Aspecto& aspecto_de(int fila) const;
    ModeloConjunto& modelo() const { return *modelo_; }
    bool reclama(const QKeyEvent& evento) override;
    bool termine() override { return termine_edicion(); }

    /// Sus títulos, sus sumas y unas filas: con menos no se sabe dónde se está.
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void inputMethodEvent(QInputMethodEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void currentChanged(const QModelIndex& actual, const QModelIndex& anterior) override;
    void updateGeometries() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    friend class ModeloConjunto;

    // rejilla.cpp: columnas, anchos y lo que avisa el conjunto
    void rehaga_columnas(const QVector<DefinicionColumna>& definiciones);
    void columna_cambiada();
    void aplique_anchos();
    void guarde_anchos();
    bool olvide_anchos(); ///< vacía y se digita en ella: como recién abierta
    void mida_desde(int fila, int cuantas);
    void mida_filas();
    void conjunto_reiniciado();
    void cursor_movido();
    /// Las filas cambiadas se miden juntas después, y no una por una.
    bool aplaza_medida() const { return pegando_ || !isVisible(); }
    void mida_lo_aplazado();
    void estado_cambiado();
    void campo_cambiado(Campo* campo);
    void fila_modificada(int fila);
    void filas_corridas(int desde, int cuantas);
    void traiga_cerca_del_final();
    void titulo_oprimido(int columna);

    // rejilla_celda.cpp: movimiento y edición
    bool vaya(int fila, int columna);
    bool deje_celda(bool de_fila = false); ///< `de_fila`: se va a otra
    void entre_celda();
    void fije_actual(int fila, int columna);
    bool fila_intacta() const;
    bool agregue_fila(int columna);
    void inserte_fila();
    void borre_fila();
    void cancele_fila();
    bool termine_edicion();
    bool celda_editable(const QModelIndex& indice) const;
    bool asegure_edicion();
    void abra_editor(const QString& texto, bool digitado);
    void rehuse_tecla();
    void cierre_editor();
    void ubique_editor();
    void asigne(int columna, const QString& texto);
    void alterne_casilla();
    void abra_lista();
    int columna_visible(int desde, int paso) const;
    void foco_cambiado(QWidget* ahora);

    // rejilla_teclado.cpp: teclas y ratón
    bool navegue(QKeyEvent& evento);
    bool pase_con_tab(bool adelante);
    bool oprima_enter(Qt::KeyboardModifiers modificadores);
    bool salte_pagina(bool abajo);
    bool vaya_al_extremo(bool al_final);
    bool desista(); ///< Esc: de lo que haya a medias, de adentro hacia afuera
    bool tecla_de_celda(QKeyEvent& evento);
    bool siguiente_celda();
    bool celda_anterior();
    void baje();
    void suba();
    void extienda(int filas, int columnas);
    void seleccione_hasta(const QModelIndex& indice);
    int filas_por_pagina() const;
    bool salga_con_tab(bool adelante);
    bool busca_al_teclear() const;
    bool teclee(const QKeyEvent& tecla);
    void ubique_lo_tecleado();
    bool ubique_lo_que_empiece(const QString& comienzo);
    void olvide_tecleo();
    void muestre_tecleo();

    // rejilla_seleccion.cpp: marcas y portapapeles
    void alterne_marca(int fila);
    void marque_tramo(int desde, int hasta);
    QString texto_seleccionado() const;
    void pegue_celda(int columna, const QString& texto);
    bool pase_a_la_fila_pegada(int& fila, bool primera);

    ModeloConjunto* modelo_;
    EncabezadoRejilla* encabezado_;
    IndicadorFilas* indicador_;
    PieRejilla* pie_;
    EditorCelda* editor_ = nullptr;
    bool abierto_ = false; ///< el editor está en la celda actual
    std::vector<std::unique_ptr<ColumnaRejilla>> columnas_;
    bool columnas_automaticas_ = true;

    bool moviendo_ = false, sincronizando_ = false, escribiendo_ = false, saliendo_ = false,
         reenviando_ = false;
    bool geometria_ = false, ajustando_anchos_ = false, en_rejilla_ = false;
    int columna_destino_ = -1;
    bool cambia_de_fila_ = false;
    QPersistentModelIndex extremo_; ///< esquina de la selección opuesta a la celda actual
    bool arrastrando_ = false;

    bool marcas_activas_ = false;
    std::set<int> marcas_;
    bool todo_ = false; ///< seleccionado todo, con lo que falte por traer

    QString campo_orden_;
    bool orden_descendente_ = false;

    QMenu* menu_ = nullptr;
    QMap<int, std::function<void()>> ordenes_propias_;

    QSettings* ajustes_ = nullptr;
    QString clave_anchos_;
    QTimer* reloj_anchos_;
    bool anchos_puestos_ = false, mostrada_ = false;
    bool por_medir_ = false; ///< sus filas cambiaron mientras no se veía o se pegaba
    bool pegando_ = false;

    Tecleo tecleo_;
    QLabel* letrero_tecleo_ = nullptr;
    QString campo_sangrado_;
    std::function<int(int)> nivel_;
    int columna_sangrada_ = -1;

    mutable int fila_aspecto_ = -1;
    mutable Aspecto aspecto_;
};
