#pragma once
// Base de las copias entre compañías: las dos compañías, sus conexiones y el avance.
#include "exchange/copia_compania.h"
#include "toolkit/pantalla.h"

class Formulario;
class QLabel;
class QLineEdit;
class QProgressBar;

class FormaCopia : public Pantalla {
    Q_OBJECT
public:
    FormaCopia(const QString& clase, const QString& titulo);

    Conexion Conexion1, Conexion2; ///< origen y destino
    QLineEdit *Compania1, *Compania2, *Desde, *Hasta;
    QLabel *Nombre1, *Nombre2, *Aviso;
    QProgressBar* ProgressBar1;

    void FormCreate() override;
    bool FormClose() override;

protected:
    void arme_companias(Formulario& f);
    void arme_rango(Formulario& f, const QString& rotulo);
    void arme_botones(Formulario& f);
    /// Lo que se copia, con las dos compañías ya conectadas. Vacío: el usuario no quiso.
    virtual std::optional<ResultadoCopia> copie(const RangoCodigos& rango) = 0;
    /// Con que se llenan las cajas del rango que se dejan vacías.
    virtual RangoCodigos omision() const = 0;
    void anuncie(const QString& texto);
    AvanceCopia avance();

private:
    QString exija_compania(QLineEdit* caja);
    void conecte(Conexion& conexion, const QString& codigo);
    void SpeedButton1Click();
};
