#pragma once
// Base de las consultas del libro: siguen el período de la sesión y pueden moverlo.
//
// Los botones y las flechas guardan el período en la fila del usuario; la caja del mes y la del año
// lo cambian solo en memoria, salvo donde la pantalla diga otra cosa.
#include "libro/libro.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class CajaPeriodo;
class QCheckBox;
class QLineEdit;
class QToolButton;
class Rejilla;

class ConsultaPeriodo : public Pantalla {
    Q_OBJECT
public:
    ConsultaPeriodo(const QString& clase, const QString& titulo, int primer_ano);

    // --- conjuntos
    Proveedor PBorrar{this, "PBorrar", &fdm().QBorrar, poAllowCommandText};
    ConjuntoDatos CBorrar{this, "CBorrar", &PBorrar};

    // --- controles
    CajaPeriodo* periodo; ///< EMes y EAno

    void periodo_siguiente();
    void periodo_anterior();
    virtual void EMesChange(int mes);
    virtual void EAnoChange(int ano);

protected:
    /// El período ya cambió: consulta otra vez y deja el cursor donde estaba.
    virtual void recalcule() = 0;

    /// Encabezado de lo que se imprime o se guarda: "Auxiliar · Libro NIIF · Febrero de 2017 ·
    /// 110505 Caja general".
    QString titulo_de_hoja(Libro libro, const QString& cuando,
                           const QStringList& consultado = {}) const;
    /// "Febrero de 2017".
    static QString periodo_legible();
    QString dato(const QString& sql) { return CBorrar.valor_unico(sql).texto(); }
    /// Pone el período de la sesión en la caja.
    void muestre_periodo();

    /// La caja del período entre sus dos botones, que toman los nombres dados.
    QWidget* cree_periodo(const QString& anterior, const QString& siguiente);
    /// Alt+flecha oprime el botón de ese nombre.
    void flechas(const QString& izquierda, const QString& derecha);
    /// Rejilla de solo lectura con el menú emergente de las consultas.
    Rejilla* cree_rejilla(const QString& nombre, ConjuntoDatos* conjunto, const QString& archivo);
    /// "Habilitar filtros": muestra u oculta la fila de filtros de la rejilla.
    QCheckBox* cree_filtro(Rejilla* rejilla);
    /// Caja de texto que solo se lee; `caracteres` 0 toma el ancho que sobre.
    QLineEdit* cree_lectura(const QString& nombre, int caracteres = 0);

private:
    QToolButton* cree_paso(const QString& nombre, Qt::ArrowType sentido, const QString& ayuda,
                           std::function<void()> accion);
};
