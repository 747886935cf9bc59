#pragma once
// Base de los informes por rango: cajas de límites, título, consulta y plantilla.
//
// Un miembro es sus pares de cajas, su consulta, su reporte y su título. F2 consulta y manda las
// filas al motor de informes; "F4:Exportar" las graba completas, en las columnas de la rejilla. La
// pantalla se cierra al terminar, también cuando no hay datos.
#include "sesion/tfdmcnt.h"
#include "sesion/variables_informe.h"
#include "toolkit/informes/motor.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class CajaPeriodo;
class Formulario;
class LetreroEspera;
class QCheckBox;
class QComboBox;
class QLineEdit;
class Rejilla;
struct CentroEscogido;

/// Qué recibe una caja de rango, y por tanto qué lista se abre desde ella.
/// El tipo de comprobante se digita o se escoge de su lista en la misma caja.
enum class ClaseRango { Codigo, Cuenta, Tercero, Proyecto, Centro, Fecha, Tipo };

/// Los dos límites de un rango, o dos valores que se comparan: estos ni se completan ni se copian.
enum class UsoPar { Rango, DosValores };

/// Par de cajas. Vacías las dos, toman los valores por omisión; con solo la de abajo, las dos lo
/// mismo. Sin `omision_hasta` el par es obligatorio.
struct ParRango {
    QString desde, hasta; ///< nombres de los componentes
    QString rotulo;       ///< "Cuentas"
    ClaseRango clase = ClaseRango::Codigo;
    QString omision_desde = QStringLiteral("0");
    QString omision_hasta = QStringLiteral("ZZ");
    UsoPar uso = UsoPar::Rango;
};

/// Lo que un miembro dice de sí mismo.
struct DatosRango {
    QString clase, titulo; ///< de la pantalla
    QSize tamano{382, 344};
    QString proyecto; ///< "auxiliares.rav"
    QString conexion; ///< la que conoce la plantilla
    QString conjunto = QStringLiteral("CAuxiliar");
    QString archivo; ///< que se propone al exportar
    int opcion_exportar = 0;
    QVector<ParRango> pares;
};

class FormaRango : public Pantalla {
    Q_OBJECT
public:
    explicit FormaRango(const DatosRango& datos);

    // --- conjuntos
    Sentencia QAuxiliar{this, "QAuxiliar", fdm().Quorvex};
    Proveedor PAuxiliar{this, "PAuxiliar", &QAuxiliar, poAllowCommandText};
    ConjuntoDatos CAuxiliar;
    Sentencia QTipos{this, "QTipos", fdm().Quorvex};

    // --- controles
    QLineEdit* ETit;
    QCheckBox* ckniif = nullptr; ///< "Cuentas NIIF"; nulo si el informe es de un solo libro
    Rejilla* DBGridEh1;
    LetreroEspera* Panel5;

    void FormCreate() override;

    void imprimirClick();
    void botonExportarClick();
    void compone_titulo();
    void seleccionartodo();
    void guardarseleccion();

protected:
    // --- lo que distingue a un miembro, en el orden en que se usa
    virtual QString sql() = 0;
    /// Qué se escoge en las cajas de un par, cuando depende de lo marcado en la pantalla.
    virtual ClaseRango clase_de(const ParRango& par) const { return par.clase; }
    /// Columnas que la base no calcula y pasos antes de abrir el conjunto. Lo que no se pueda
    /// imprimir se dice aquí con `rehuse`: la pantalla queda como estaba.
    virtual void antes_de_abrir() {}
    /// Rodea la lectura: quien pide que la base la haga de otro modo la envuelve.
    virtual void lea(const std::function<void()>& abra) { abra(); }
    /// El miembro mira o cambia las filas antes de imprimirlas: se traen todas.
    virtual bool todas_las_filas() const { return false; }
    /// Las filas ya están: con `todas_las_filas` se pueden recorrer y cambiar.
    virtual void despues_de_abrir() {}
    virtual QString titulo() = 0;
    /// El período y los límites como se leen en el papel (variable Rango).
    virtual QString rango_legible();
    virtual QString reporte() = 0;
    virtual QString titulo_niif() { return {}; }
    /// Texto de la página que lleva el título de NIIF.
    virtual QString item_titulo() { return QStringLiteral("Text1"); }
    /// Las variables de la plantilla que todos los informes llevan.
    virtual void fije_encabezado(MotorInformes& motor);
    /// Grupos, variables y demás cambios sobre la página `pagina` ("Cuentas.Page1").
    virtual void ajuste_reporte(MotorInformes& motor, const QString& pagina) {}
    /// Lo que va después del reporte en el mismo documento: conecta sus filas, escoge su reporte y
    /// lo agrega. No corre al exportar.
    virtual void anexe(MotorInformes& motor) {}
    /// Ya salió; tampoco corre al exportar.
    virtual void despues_de_imprimir() {}
    /// Niveles que entra una celda en el libro exportado: los que su renglón tiene impreso.
    virtual int sangria(int fila, const Campo& campo) { return 0; }

    // --- construcción: primero las cajas, luego lo propio del miembro y al final los botones
    void arme_pares(Formulario& f);
    void arme_titulo(Formulario& f);
    void arme_botones(Formulario& f);
    QCheckBox* casilla(const QString& nombre, const QString& texto);
    QCheckBox* casilla_niif(const QString& texto = QStringLiteral("Cuentas NIIF"));
    /// Las casillas, de a dos por renglón y a todo el ancho: la pantalla es angosta.
    void arme_casillas(Formulario& f, std::initializer_list<QCheckBox*> casillas);
    QLineEdit* caja(const QString& nombre, int caracteres);
    /// Caja de mes y año con sus dos botones, sobre `periodo`.
    QWidget* cree_periodo();
    /// Caja "Nivel": hasta qué nivel de cuentas llega el informe. Fija, no se puede cambiar.
    QWidget* cree_nivel(int inicial, bool fija = false);
    /// Caja de un año, con el del período propio.
    QWidget* cree_ano(const QString& nombre);
    /// Lista de los meses por su código, de "ENE" a "AJU"; `primero` y `ultimo`, 1 a 13.
    QWidget* cree_mes(const QString& nombre, int escogido, int primero = 1, int ultimo = 13);
    /// Caja de una fecha, con el día de hoy.
    QWidget* cree_fecha(const QString& nombre);
    /// Las cajas EFecIni y EFecFin, con el primer día y el último del período de la sesión.
    void ponga_fechas();

    // --- lectura
    /// Texto de una caja, sin espacios a los lados.
    QString valor(const QString& nombre) const;
    /// El mismo, como literal.
    QString entre_comillas(const QString& nombre) const;
    /// Varios, como argumentos de un procedimiento.
    QString argumentos(std::initializer_list<const char*> nombres,
                       const QString& separador = QStringLiteral(", ")) const;
    /// "Cuentas:" + desde + "..." + hasta.
    QString tramo(const QString& rotulo, const QString& desde, const QString& hasta) const;
    /// Mes escogido en una lista de códigos, 1 a 13.
    int mes(const QString& nombre) const;
    QDate fecha(const QString& nombre) const;
    /// 'S' o 'N', como literal.
    static QString bandera(bool si) { return si ? QStringLiteral("'S'") : QStringLiteral("'N'"); }
    /// El año y el número del período propio, como argumentos: "'2017', 3".
    QString ano_y_periodo() const;
    /// "Marzo/2017".
    QString nombre_del_periodo() const;
    /// "Cuentas 11 a 1399", "todas las cuentas".
    static QString tramo_legible(const QString& rotulo, const QString& desde, const QString& hasta);
    /// El período: "Febrero de 2017", "enero a junio de 2017", "año 2017"; vacío si no lo hay.
    QString tiempo_legible() const;
    /// "2649" o "NIIF"; vacío si el informe no es de un libro.
    QString libro_legible() const;
    bool niif() const;
    bool marcada(const QCheckBox* casilla) const;

    /// Abre la lista de lo que va en esa caja.
    void busque(QWidget* caja);
    /// Pone los valores por omisión en los pares y revisa las fechas.
    void complete_rangos();
    /// Dice qué está mal en la caja y abandona el informe; la pantalla queda como estaba.
    [[noreturn]] void rehuse(QWidget* caja, const QString& texto);

    DatosRango datos_;     ///< un miembro que sirve a varias letras lo completa al abrirse
    CursorPeriodo periodo; ///< propio: no es el de la sesión ni se guarda
    CajaPeriodo* caja_periodo = nullptr;
    bool exportar = false;

private:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void EHastaExit(const ParRango& par);
    void reciba(QLineEdit* caja, const QString& valor);
    void reciba_centro(bool abajo, const CentroEscogido& centro);
    bool abra();
    void saque(MotorInformes& motor);
    void muestre_periodo();
    void arme_tipos(Formulario& f, const ParRango& par);
    /// Donde se escribe: la caja misma o la de su lista.
    QLineEdit* renglon(const QString& nombre) const;
    const ParRango* par_de(const QString& caja) const;
};
