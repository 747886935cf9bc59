#pragma once
// Nota a los estados financieros: lo que comparten la que se escribe y la que se modifica.
#include "datos/recordset/pregunta_en_campo.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/pantalla.h"

class EditorDato;
class EditorRico;
class QCheckBox;
class QComboBox;
class QSpinBox;

/// Nota por modificar.
struct AbreNota {
    QString nota = {}; ///< NOEF_ID
};

class FormaNota : public Pantalla {
    Q_OBJECT
public:
    FormaNota(const QString& clase, const QString& titulo);

    Sentencia QNotasestados;
    Proveedor PNotasestados;
    ConjuntoDatos CNotasestados;
    QComboBox* EMes; ///< doce meses y "Ajustes"
    QSpinBox* EAno;
    QCheckBox* ckTodos; ///< la nota es de todos los períodos del año
    EditorRico* Editor;

    bool FormClose() override;

protected:
    void abra(const QString& id);
    /// Año y número de período (0, todos; 1 a 14) que dicen las cajas.
    int ano() const { return cursor_.ano; }
    int numero_de_periodo() const;
    void muestre_periodo(int ano, int periodo);
    /// El siguiente en el período de las cajas.
    int numero_siguiente();

    EditorDato *ENumero, *ETitulo, *ECuenta;

private:
    QWidget* cajas_de_periodo();
    QWidget* caja_de_copia();
    QComboBox* lista_de_meses(const QString& nombre);
    void mueva(bool adelante);
    void cambio_el_periodo();
    void muestre_cajas();
    void cuenta_cambiada(Campo& cuenta);
    void ponga_nota();
    void SBGrabarClick();
    void SBCopiarClick();

    CursorPeriodo cursor_;
    PreguntaEnCampo pregunta_;
    QComboBox* MesCopia;
    QSpinBox *AnoCopia, *NumeroCopia;
};
