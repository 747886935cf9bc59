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
#include "core/recordset/conjunto.h"
#include "toolkit/rejilla/columna_rejilla.h"

#include <QTableView>
#include <memory>
#include <vector>

class DelegadoCelda;
class FiltroRejilla;
class ModeloConjunto;
class PieRejilla;
class QMenu;
class QSettings;

class Rejilla : public QTableView {
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

    // --- comportamiento
    bool ReadOnly = false;        ///< no se edita, inserta ni borra desde la rejilla
    bool permite_insertar = true; ///< Abajo en la última fila agrega otra; Insert inserta
    bool permite_borrar = true;   ///< Ctrl+Supr pregunta y borra la fila actual
    bool enter_como_tab = false;  ///< Enter pasa a la celda siguiente si no hay selección
    bool orden_local = false;     ///< el título ordena las filas en memoria
    QString texto_vacio;   ///< lo que dice una lista sin filas, con la tecla que crea la primera
    bool editable() const; ///< atada, sin ReadOnly y con el conjunto abierto

    // --- celda actual y selección
    int SelectedIndex() const; ///< columna actual, -1 sin ella
    void SelectedIndex(int columna);
    Campo* campo_actual() const;
    /// El editor de la celda está abierto.
    bool digitando() const;
    /// Escribe en el campo lo digitado a medias. Si el campo lo rehúsa, deja el editor abierto y
    /// relanza la falla.
    void escriba_pendiente();
    void dgMultiSelect(bool activo); ///< varias filas marcadas con Espacio, Mayús y Ctrl
    bool dgMultiSelect() const { return marcas_activas_; }
    QVector<int> filas_marcadas() const; ///< en el orden de la vista
    void marque(int fila, bool marcada = true);
    void quite_marcas();
    /// Hay más de una celda seleccionada.
    bool tiene_seleccion() const;

    // --- pie, filtros y orden
    void pie(bool visible);
    Moneda suma(int columna) const; ///< exacta, sobre las filas a la vista ya traídas
    void filtro_visible(bool visible);
    bool filtro_visible() const;
    bool en_fila_de_filtro() const; ///< el foco está en la fila de filtros
    void limpie_filtros();
    /// Ordena en memoria por la columna, alternando el sentido, sin dejar la fila actual.
    void ordene_por(int columna);

    // --- portapapeles: texto separado por tabuladores
    bool puede_copiar() const;
    bool puede_pegar() const;
    bool puede_cortar() const;
    bool puede_borrar() const;
    void copie();
    void corte();
    void
    pegue(); ///< celda por celda con Campo::asigne desde la actual; agrega las filas que falten
    void borre_seleccion(); ///< vacía las celdas seleccionadas
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
    QString nombre_archivo; ///< nombre que propone "&Guardar selección"
    QString titulo_impreso; ///< encabezado de la impresión; "%[Today]" se cambia por la fecha
    void guarde_seleccion();
    void imprima();

    // --- anchos recordados
    /// Lee los anchos guardados bajo la clave y los sigue guardando
    /// ("usuario/Tfcuentas/DBGridEh1").
    void guarde_en(QSettings* ajustes, const QString& clave);
    void ajuste_anchos(); ///< al título y al contenido de las primeras filas

    // --- eventos
    std::function<void(int)> ColEnter; ///< entró a la columna, o a la rejilla estando en ella
    std::function<void(int)> ColExit;  ///< deja la celda; lo digitado ya está en el campo
    std::function<void(int)> OnDblClick;
    std::function<void(Campo&)> OnTitleClick; ///< sin `orden_local`
    std::function<void()> OnEnter, OnExit;    ///< el foco entra a la rejilla o la deja
    std::function<void()> OnEscape;           ///< Esc sin editor ni fila que cancelar
    std::function<void()> OnSelectionChanged;
    /// Letra y colores de una fila; el valor de otros campos se lee con conjunto()->valor_en.
    std::function<void(int fila, QFont& letra, QColor& frente, QColor& fondo)> OnGetCellParams;
};
