#pragma once
// Base de los controles atados a un campo de un conjunto de datos.
//
// El control muestra el valor con el formato del campo, pone el conjunto en edición cuando el
// usuario escribe y guarda en el campo al perder el foco, con Enter y antes de cada Post. Una falla
// al guardar se informa por la frontera de fallas: lo que una caja no pudo leer sigue en ella hasta
// corregirlo o Esc, y lo que el campo rehusó se repone. Durante un Post, lo aborta en silencio.
#include "datos/recordset/conjunto.h"

#include <functional>

class QWidget;

class ControlDato : public EnlaceDatos {
public:
    ~ControlDato() override;

    void ate(ConjuntoDatos* conjunto, const QString& campo);
    /// Campo atado; nulo mientras el conjunto esté cerrado o no tenga ese campo.
    Campo* campo() const;
    const QString& nombre_campo() const { return nombre_campo_; }
    /// Solo lectura propia del control; también manda Campo::ReadOnly.
    void ReadOnly(bool si);
    bool ReadOnly() const { return solo_lectura_; }
    /// Apaga el control aunque su campo se pueda cambiar. En casillas y listas es mejor que
    /// setEnabled, que el permiso del campo vuelve a decidir cuando cambia.
    void habilite(bool si);
    /// El usuario puede cambiar el valor ahora.
    bool editable() const;
    /// Hay algo escrito que aún no está en el campo.
    bool modificado() const { return modificado_; }
    /// Guarda lo escrito. Falso si no se pudo: la falla ya se mostró.
    bool escriba();
    /// Descarta lo escrito y muestra el valor del campo.
    void restaure();
    virtual QWidget* widget() = 0;

    std::function<void()> OnEnter; ///< al recibir el foco
    std::function<void()> OnExit;  ///< al perderlo, después de guardar

    // --- EnlaceDatos
    void estado_cambiado() override;
    void fila_actual_cambiada() override;
    void campo_cambiado(Campo* cual) override;
    void filas_reiniciadas() override;
    void escriba_pendiente() override;

protected:
    virtual void muestre() = 0;          ///< pasa el valor del campo al control
    virtual Valor contenido() const = 0; ///< lo que el usuario dejó en el control
    virtual void aplique_permiso() = 0;  ///< refleja `editable()`
    /// El usuario cambió el contenido: entra en edición. Falso si no se pudo y se repuso.
    bool usuario_cambio();
    void foco_ganado();
    void foco_perdido(Qt::FocusReason razon);
    bool mostrando() const { return mostrando_; }
    /// El campo aunque el conjunto esté cerrado, para medidas y máscara.
    Campo* definicion() const;
    void refresque();
    /// Enciende o apaga el control según el permiso del campo, sin pisar lo que dijo la pantalla.
    void encienda(bool puede);

private:
    void guarde(); ///< como escriba, sin proteger: lanza

    QString nombre_campo_;
    bool solo_lectura_ = false;
    bool modificado_ = false;
    bool mostrando_ = false;
    bool escribiendo_ = false;
    bool entrando_ = false; ///< Edit en curso por algo que el usuario escribió
    bool con_foco_ = false;
    bool permiso_ = true;
    bool apagado_ = false; ///< la pantalla lo quiere apagado
};

/// El control atado que contiene a `widget`, o nulo.
ControlDato* control_dato(QWidget* widget);
