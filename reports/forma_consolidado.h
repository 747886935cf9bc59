#pragma once
// Estados consolidados: los de la compañía de la sesión con los de otra sumados cuenta por cuenta.
//
// La otra compañía se lee por una conexión propia, con el usuario y la clave de la sesión. Las
// cuentas que solo ella movió no llegan al estado: la barra dice cuántas son y cuánto valen, y el
// papel cuántas.
#include "reports/forma_estado.h"

class QLineEdit;

/// Lo que distingue a cada tipo de un estado consolidado.
struct VarianteConsolidado {
    const char *tipo, *ventana, *reporte, *titulo;
};

class FormaConsolidado : public FormaEstado {
    Q_OBJECT
public:
    FormaConsolidado(const DatosRango& datos, const QVector<VarianteConsolidado>& variantes);

    Conexion Conexion2;
    Sentencia QDestino{this, "QDestino", Conexion2};
    Proveedor PDestino{this, "PDestino", &QDestino, poAllowCommandText};
    ConjuntoDatos CDestino{this, "CDestino", &PDestino};

    QLineEdit *CodCia1, *NomCia1;

    void FormCreate() override;
    void CodCia1Exit();

protected:
    void arme(Formulario& f);
    QString reporte() override { return QString::fromLatin1(variante().reporte); }
    void antes_de_abrir() override;
    bool todas_las_filas() const override { return true; }
    void despues_de_abrir() override;
    void ajuste_reporte(MotorInformes& motor, const QString& pagina) override;
    QString rango_legible() override;

private:
    const VarianteConsolidado& variante() const;
    void conecte();
    void sume_destino();
    void diga_lo_omitido(const QVector<std::pair<QString, Moneda>>& omitidas);
    QString lo_omitido() const;

    const QVector<VarianteConsolidado>& variantes_;
    int sin_consolidar_ = 0; ///< cuentas que solo movió la otra
    QString buscada_;        ///< la última que se buscó: no se avisa dos veces
};
