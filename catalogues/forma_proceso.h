#pragma once
// Base de los procesos que hacen un comprobante: cierres, ajustes, depreciación, baja, registros
// automáticos y diferencia en cambio.
//
// La pantalla reúne tipo, prefijo, número, día, concepto y referencia. Con tabla, F2 graba una fila
// y la base hace el comprobante y decide qué se puede; si lo rehúsa, lo dice y la pantalla sigue
// abierta. Sin tabla, los mismos datos están en memoria y el miembro llama su procedimiento.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/pregunta_en_campo.h"
#include "toolkit/pantalla.h"

class BarraBotones;
class EditorDato;
class Formulario;
class ListaDato;
class QLineEdit;

/// Lo que distingue a un proceso de otro.
struct DatosProceso {
    const char *clase, *titulo;
    const char* tabla = nullptr; ///< nula: el proceso no guarda fila
    const char* conjunto = "CProceso";
    const char *id = nullptr, *procedimiento_id = nullptr;
    const char *fecha, *concepto;
    const char* referencia = nullptr;
    const char *tercero = nullptr, *usuario = nullptr;
    const char* libros = nullptr; ///< columna del alcance "C", "N" o "A"
    const char* rotulo_libros = "Cerrar en:";
    QStringList nombres_libros = {}; ///< en el orden C, N, A
    QStringList calculados = {};     ///< lo que cambia con la fecha, que nadie digita
    int largo_numero = 6, largo_referencia = 8;
    bool fecha_al_nacer = false;     ///< la fila nace con la del día 1 y no la cambia
    bool id_en_cada_intento = false; ///< pide uno nuevo aunque el anterior no se haya usado
    /// Con "%1": se muestra con el tipo, y prefijo y número se apagan. Sin él, se lanza.
    const char* sin_prefijos = "Debe registrar antes los prefijos.";
    bool nombra_tipo = false; ///< "%1" es el nombre entre comillas, y no el código
    const char* haciendo = "Haciendo el comprobante...";
    const char* nota = nullptr; ///< renglón que explica el proceso
};

class FormaProceso : public Pantalla {
    Q_OBJECT
public:
    explicit FormaProceso(const DatosProceso& datos);

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    ConjuntoDatos &CTipodoc, &CPrefijos, &CProceso;

protected:
    /// Para los miembros con controles propios: construyen y llaman `arme`.
    struct SinArmar {};
    FormaProceso(const DatosProceso& datos, SinArmar);
    void arme();
    /// Renglones propios, antes de la nota.
    virtual void complete(Formulario&) {}
    /// Lo que va debajo del encabezado, entre él y los botones.
    virtual void bajo_el_encabezado(Formulario& f);
    virtual void botones_propios(BarraBotones&) {}
    /// Valores con que nace la fila.
    virtual void nueva_fila() {}
    virtual void SBGrabarClick();
    /// Pone la fecha, toma el id, graba la fila, dice el comprobante y cierra si la base la
    /// recibió.
    void grabe();
    /// Postea la fila; si le falta un dato, el foco va a su caja.
    void postee();
    /// El consecutivo del comprobante que la base hizo con la fila grabada.
    virtual Valor comprobante_hecho() const;
    /// Lo dice en la barra como los comprobantes: "Grabado CG 0001 000106".
    static void anuncie_hecho(const std::function<Valor()>& consecutivo);
    /// La fecha del día digitado, "aaaammdd", en la fila; con `fecha_al_nacer`, solo si no tiene.
    void ponga_fecha();
    Campo& campo(const char* nombre) const { return CProceso.FieldByName(nombre); }
    /// El número que se pide: vacío si es el que el prefijo propuso y numera solo, porque otro
    /// pudo tomarlo desde entonces y la base da el que sigue.
    QString numero_pedido() const;
    /// Apaga o enciende el número según el prefijo lo lleve solo; por omisión siempre se digita.
    virtual void prefijo_cambiado() {}
    void escoja_el_tercero(const QString& texto);

    const DatosProceso datos_;
    PreguntaEnCampo pregunta_;
    ListaDato *LTipo = nullptr, *LPref = nullptr;
    EditorDato *ENumero = nullptr, *EConcepto = nullptr, *ERef = nullptr, *ENit = nullptr;
    QWidget* Panel1 = nullptr; ///< el encabezado entero
    QLineEdit *EDia = nullptr, *EMes = nullptr, *EAno = nullptr, *NomTerc = nullptr;
    Sentencia QProceso, SId;
    Proveedor PProceso;

private:
    int envie();
    void defina_campos();
    void construya();
    void arme_encabezado();
    void EDiaExit();
    void TICO_CODChange(Campo& campo);
    void PRCO_PREFChange(Campo& campo);
    void TERC_NITChange(Campo& campo);
    void tome_numero();
};

/// Caja que solo muestra un dato, fuera del recorrido de Tab.
QLineEdit* caja_que_muestra(const char* nombre, int caracteres);
