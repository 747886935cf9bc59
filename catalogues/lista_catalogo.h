#pragma once
// Lista de un catálogo grande (terceros, artículos): búsqueda, mantenimiento y selección.
//
// Lo que se teclea sobre las filas se busca, las cifras por el código y lo demás por el nombre. F3
// elimina, F4 modifica, F5 crea, Mayús+F12 lleva al texto de búsqueda y Esc cierra. Enter
// modifica en mantenimiento y escoge como selector; con la fila de filtros abierta solo aplica el
// filtro. Al volver a la lista las filas se releen.
#include "datos/recordset/conjunto.h"
#include "toolkit/listabusqueda.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/columna_rejilla.h"

class BarraBotones;
class Rejilla;

class ListaCatalogo : public Pantalla {
    Q_OBJECT
public:
    void FormActivate() override;
    bool FormClose() override;

protected:
    ListaCatalogo(const QString& clase, const QString& titulo, Sentencia& sentencia,
                  const QString& tabla);
    /// Arma búsqueda, rejilla y botones cuando los campos ya están definidos.
    void arme(const QVector<FilaBusqueda::Eleccion>& busquedas, const QString& rotulo_inactivos,
              const QVector<DefinicionColumna>& columnas, const QString& nombre_archivo);
    /// Cierra la barra; después de los botones propios de la pantalla.
    void boton_salir();
    /// Deja a la vista los botones del modo en que se abrió.
    void aplique_modo();
    void aplique_modo(bool mantenimiento);
    /// Con fila señalada contesta su código a quien abrió la lista; cierra en todo caso.
    template <class P> void responda_codigo() {
        if (!codigo().isEmpty())
            responda<P>(codigo());
        if (es_modal())
            resultado_modal(mrOk);
        else
            close();
    }
    /// Busca el texto con que otra pantalla la abrió tras un "?". Falso si viene vacío.
    bool busque_lo_pedido(const QString& texto_busqueda);
    /// Señala la fila de ese código, si está en la lista.
    bool ubique(const QString& codigo);
    /// Lo que no es el código de ninguna se busca.
    void ubique_o_busque(const QString& texto);
    /// Código de la fila actual, la primera columna, ya buscado lo que se tecleó; vacío sin filas.
    QString codigo() const;
    /// Cierra, cambia el texto y abre.
    void consulte(const QString& sql);

    virtual void sbBuscarClick() = 0;
    virtual void SBNuevoClick() = 0;
    virtual void SBModificarClick() = 0;
    virtual void SBBorrarClick() = 0;
    virtual void SBSelecClick() = 0;
    void enter();

    Proveedor *proveedor_, *PBorrar;
    ConjuntoDatos *conjunto_, *CBorrar;
    FilaBusqueda* busqueda_ = nullptr;
    Rejilla* DBGridEh1 = nullptr;
    BarraBotones* barra_ = nullptr;
    bool modo_mantenimiento_ = false;
    // antes de `arme`
    QString nombre_nuevo_ = "SBNuevo", rotulo_nuevo_ = "F5:Nuevo";
    bool enter_con_filtros_ = false; ///< Enter actúa aunque la fila de filtros esté abierta

private:
    bool recien_abierta_ = true;
};
