#pragma once
// Base de los medios magnéticos que se calculan, se guardan y se corrigen a mano antes de escribir
// el archivo: los nacionales y los distritales.
//
// F2 muestra lo guardado del formato y el año, o lo calcula; recalcular borra lo digitado y por eso
// se pregunta dos veces. Lo que se digita en la rejilla se graba al escribir el archivo, al volver
// a consultar y al cerrar.
#include "datos/recordset/conjunto.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class Formulario;
class QFrame;
class QLineEdit;
class Rejilla;

struct DatosFormaMedio {
    QString clase, titulo;
    QString tabla, columna; ///< de las filas guardadas, y la de su consecutivo
    QString filtro;         ///< del diálogo de archivo: "Archivos XML|*.xml"
};

/// Dice en la barra que el archivo quedó, con cuántas filas, o advierte que se canceló.
void diga_lo_grabado(bool cancelado, const QString& ruta, qint64 filas);

class FormaMedio : public Pantalla {
    Q_OBJECT
public:
    Proveedor* PMedmagdata;
    ConjuntoDatos* CMedmagdata;
    QLineEdit *EAno, *FecIni, *FecFin, *Ubicacion;
    Rejilla* DBGridEh1;
    QFrame* PanelAdvertencia;

    void FormCreate() override;
    bool FormClose() override;
    void abre_query();

protected:
    explicit FormaMedio(const DatosFormaMedio& datos);

    /// De lo guardado: "MEMG_FORMATO = 10018 and MEMG_ANO = '2017'".
    virtual QString condicion() const = 0;
    /// Cómo lo nombran las preguntas.
    virtual QString codigo() const = 0;
    /// La orden que llena la tabla.
    virtual QString calculo() const = 0;
    /// Toma la fila del formato: quien lo calcule a la vez espera.
    virtual QString candado() const = 0;
    /// Hay un formato escogido.
    virtual bool hay_formato() const { return true; }
    /// F2 sin ninguno.
    virtual void ofrezca_formatos() {}
    /// Lo que el cálculo necesita ya guardado.
    virtual void prepare_calculo() {}
    /// Lo que le falta a la configuración para que el cálculo dé algo; vacío si nada.
    virtual QString por_configurar() const { return {}; }
    virtual void SBGrabarClick() = 0;
    virtual void SpeedButton3Click() = 0;
    virtual void EAnoExit();
    /// Una tecla de función no saca de la caja: el año digitado se atiende antes que la orden.
    void siga_el_ano();

    // --- construcción
    QLineEdit* caja(const QString& nombre, int caracteres);
    QWidget* cree_ubicacion();
    /// El renglón crece con la ventana hasta el mismo borde que los demás.
    static QWidget* hasta_el_tope(QWidget* renglon);
    void arme_pie(Formulario& f, const QString& rotulo_archivo,
                  const std::function<void(BarraBotones&)>& otros = {});

    QString ano() const;
    /// La del archivo, con la última carpeta escogida si no la dice.
    QString ruta() const;
    /// Graba lo que se digitó. Falso si algo no se pudo; la falla ya se dijo.
    bool grabe_cambios();
    /// Va a cambiar de qué son las filas: las que hay a la vista ya no lo serán. Falso si no se
    /// pudo grabar lo digitado en ellas: siguen ahí y lo que se escogió no cambia.
    bool suelte_filas();
    /// Las filas pudieron cambiar en otra pantalla: las lee de nuevo, en la misma. Falso si algo de
    /// lo digitado no se pudo grabar.
    bool relea();
    bool revise_fechas();
    /// El siguiente consecutivo para una fila nueva.
    int siguiente_item();

private:
    void SpeedButton5Click();
    void SpeedButton2Click();
    void SpeedButton1Click();
    bool hay_guardadas();
    bool confirme_recalculo();
    /// Borra lo guardado, si lo `hay`, y calcula. Falso si el usuario lo canceló.
    bool calcule(bool hay);

    const DatosFormaMedio datos_;
    Sentencia* QMedmagdata;
    QString carpeta_, ano_a_la_vista_;
    int item_ = 0;
};
