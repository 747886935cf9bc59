#pragma once
// Certificados de retención: uno por tercero, de una clase y un período, en un informe o en un
// archivo PDF para cada uno.
#include "catalogues/forma_rango.h"

class QDateEdit;
struct ResumenArchivos;
class QSpinBox;

class Tfrngcertificados : public FormaRango {
    Q_OBJECT
public:
    Tfrngcertificados();

    QComboBox *Ltipo, *Lperiodo;
    QLabel* Label5;
    QSpinBox* DateAno;
    QDateEdit* Fecexp;
    QLineEdit *Admon, *NumIni;
    QCheckBox* Numerar;

    void FormCreate() override;
    /// Un PDF por tercero en la carpeta de la configuración.
    void AdvGlowButton1Click();

protected:
    QString sql() override;
    QString titulo() override;
    QString reporte() override;
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;
    void antes_de_abrir() override;

private:
    enum class Periodo { Ano, Bimestre, Mes };
    void arme_encabezado(Formulario& f);
    void arme_barra(Formulario& f);
    void LtipoChange();
    void ponga_fechas_del_periodo();
    Periodo periodo_de_la_clase() const;
    QString carpeta_de_archivos();
    QString aviso_sin_tercero();
    ResumenArchivos grabe_archivos(const QString& comienzo);
    void grabe_uno(ConjuntoDatos& filas, const QString& ruta);

    QString periodo_ica_; ///< "ANUAL", "MENSUAL" u otro, que es bimestral
};
