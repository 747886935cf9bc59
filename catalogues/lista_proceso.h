#pragma once
// Lista de consulta con unas cajas de búsqueda: los procesos ya hechos (su comprobante se abre con
// F4 y borrarlos lo deshace) y las recetas que se repiten.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"
#include "toolkit/rejilla/columna_rejilla.h"

#include <QSet>

class BarraBotones;
class QLineEdit;
class Rejilla;

struct DatosLista {
    /// Caja de la que sale una condición: la columna contiene lo digitado o empieza en ello.
    struct Filtro {
        const char *nombre, *rotulo, *columna;
        int ancho;
        bool desde = false;
    };
    const char *clase, *titulo, *conjunto;
    const char* consulta; ///< hasta el final de su FROM
    QVector<Filtro> filtros;
    const char* orden; ///< "order by ..."
    QVector<DefinicionColumna> columnas;
    const char* archivo;         ///< que propone al guardar
    const char* nuevo = nullptr; ///< pantalla de F5
    const char* pregunta;        ///< "Desea borrar definitivamente el cierre "
    QStringList nombra;          ///< columnas que siguen en la pregunta, separadas por un blanco
    const char* borrado;         ///< "delete from cierre_anual where cian_id = "
    const char* llave;           ///< columna que lo termina
    const char* deshaciendo = "Borrando...";
    int opcion = 0; ///< derecho de CONTABILIDAD para verla; 0: lo mira quien la abre
};

class ListaProceso : public Pantalla {
    Q_OBJECT
public:
    explicit ListaProceso(const DatosLista& datos);

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    ConjuntoDatos &CLista, &CBorrar;
    Rejilla* DBGridEh1;

protected:
    /// F5, F4 y F3, y los propios; después va Esc.
    virtual void arme_botones();
    virtual void botones_propios(BarraBotones&) {}
    virtual void SBNuevoClick();
    /// Por omisión, el comprobante del proceso.
    virtual void SBModificarClick();
    virtual void SBBorrarClick();
    /// Doble clic y, si la lista escoge, Enter.
    virtual void escoja() { SBModificarClick(); }
    bool hay_fila() const { return CLista.Active() && !CLista.IsEmpty(); }
    QString dato(const char* campo) const { return CLista.FieldByName(campo).texto(); }
    /// El texto hasta su FROM, cuando depende de lo que la pantalla trae.
    virtual QString consulta() const { return QString::fromUtf8(datos_.consulta); }
    QString compone_query() const;
    void busque(const QString& orden);

    const DatosLista datos_;
    BarraBotones* barra_ = nullptr;

private:
    QSet<QString> llaves() const; ///< de las filas ya traídas
    QVector<QLineEdit*> cajas_;
    QString orden_;
    bool recien_abierta_ = true;
    Sentencia QLista;
};
