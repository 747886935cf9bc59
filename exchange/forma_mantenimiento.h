#pragma once
// Base de las herramientas del mantenimiento: cajas que se validan al dejarlas, la pregunta con
// cifras, el aviso mientras trabaja y el cierre.
#include "datos/recordset/conjunto.h"
#include "exchange/mantenimiento.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class CajaSugerida;
class Formulario;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

class FormaMantenimiento : public Pantalla {
    Q_OBJECT
public:
    FormaMantenimiento(const QString& clase, const QString& titulo);

    Proveedor PTipo{this, "PTipo", &fdm().TTipocomp};
    ConjuntoDatos CTipo{this, "CTipo", &PTipo};
    QCheckBox* ckniif = nullptr; ///< "Información NIIF"
    QComboBox* LTipo = nullptr;  ///< tipos de comprobante
    QLineEdit *FecIni = nullptr, *FecFin = nullptr;
    QLabel* Aviso; ///< lo que está haciendo

    void FormCreate() override;
    bool FormClose() override;

protected:
    /// Lo que hace F2; la pantalla se cierra cuando devuelve verdadero.
    virtual bool corra() = 0;

    QLineEdit* caja(const QString& nombre, int largo);
    /// Ofrece mientras se teclea, y al dejarla se valida o abre su búsqueda.
    CajaSugerida* caja_de_codigo(const QString& nombre);
    /// Caja de una cuenta del libro; "?" con texto abre la búsqueda. `al_dejarla` corre cuando se
    /// sale de ella con algo distinto escrito.
    QLineEdit* caja_cuenta(const QString& nombre, std::function<void(const QString&)> al_dejarla);
    QLineEdit* caja_tercero(const QString& nombre, std::function<void(const QString&)> al_dejarla);
    /// Con la caja de que es el nombre: en cuanto se escribe otra cosa en ella, ya no lo es.
    QLabel* rotulo(const QString& nombre, QLineEdit* caja = nullptr);
    QCheckBox* casilla(const QString& nombre, const QString& texto);
    QComboBox* lista_tipos(const QString& todos);
    void arme_fechas(Formulario& f);
    void arme_botones(Formulario& f, const QString& texto);

    Libro libro() const;
    QString dato(const QString& sql) const { return fdm().Quorvex.consulte(sql).texto(); }
    /// Nombre de la cuenta en el plan del libro, vacío después de decir que no existe.
    QString exija_cuenta(const QString& cuenta);
    QString exija_tercero(const QString& nit);
    /// Lo escrito en la caja; si falta o no existe lo dice, va a ella y no se sigue.
    QString cuenta_de(QLineEdit* caja);
    QString tercero_de(QLineEdit* caja);
    /// Si el libro tiene en las fechas líneas del tercero y la cuenta (vacíos, cualquiera); nada
    /// mientras las fechas no estén puestas.
    std::optional<bool> hay_movimientos(const QString& nit, const QString& cuenta);
    /// El rango de fechas, o nada después de decir qué está mal.
    std::optional<RangoFechas> fechas();
    /// Muestra la negativa, o pregunta con las cifras. Verdadero si el usuario quiere hacerlo.
    bool confirme(const CifrasMantenimiento& cifras, const QString& pregunta);
    /// Muestra el aviso mientras corre algo que no cambia nada.
    void mire(const QString& aviso, const std::function<void()>& trabajo);
    /// Muestra el aviso, corre el trabajo y pasa a los saldos lo que haya dejado.
    void trabaje(const QString& aviso, const std::function<CifrasMantenimiento()>& trabajo,
                 const QString& sin_cifras = {});
    void anuncie(const QString& texto);
    /// F2 leyó lo que hay que mirar antes de seguir: lo dice y lleva allá.
    void pida_revision(QWidget* donde, const QString& cuenta);
    /// Dice qué está mal, si no se ha dicho ya, y deja la pantalla como estaba.
    [[noreturn]] void rehuse(QWidget* donde, const QString& texto);

private:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void SpeedButton1Click();
    /// Al cambiar de libro, lo que las cajas mostraban era del otro.
    void relea_cajas();
    struct Caja {
        std::function<void(const QString&)> al_dejarla;
        std::function<void(QLineEdit*)> busque;
        QString vista; ///< lo último que se validó
        bool de_cuenta = false;
    };
    QHash<QObject*, Caja> cajas_;
    bool validando_ = false;
};
