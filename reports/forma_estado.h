#pragma once
// Estados financieros: lo que sus pantallas tienen en común.
#include "catalogues/forma_rango.h"
#include "sesion/peticiones.h"

class FormaEstado : public FormaRango {
    Q_OBJECT
public:
    using FormaRango::FormaRango;

    QCheckBox* Cksinmov = nullptr; ///< "Incluir cuentas sin movimiento o saldo"

    void FormCreate() override;

protected:
    /// El nombre de una cuenta entra según su nivel; el de un tercero, un centro o un artículo, un
    /// nivel más que su cuenta.
    int sangria(int fila, const Campo& campo) override;
    /// Letra con que el menú abrió la pantalla: cuál de sus informes es.
    QString tipo() const { return peticion<AbreInforme>().tipo_informe; }
    bool es(const char* letra) const { return tipo() == QLatin1String(letra); }

    // --- columnas
    /// INICIAL, DEBITOS, CREDITOS y FINAL, con ese sufijo en el nombre y en el título.
    void defina_saldos(const QString& sufijo = {});
    /// La cifra en la columna de su nivel: CLASE, GRUPO, SUBGRUPO y CUENTA, con ese prefijo.
    void defina_niveles(const QString& prefijo);
    /// Ini, Db, Cr y Fin: los saldos en las filas de nivel 1 y cero en las demás, para que una suma
    /// cuente cada clase una vez. También Clase, el primer dígito de `cuenta`, que la plantilla usa
    /// para agrupar y no se exporta, y Tope.
    void defina_totales(const QString& cuenta);
    /// Tope, solo para la plantilla: "S" en las filas que ninguna otra del rango contiene. Lo que
    /// suman es el total, también de un rango que no comienza por una clase.
    void defina_tope(const QString& cuenta);
    /// Código y nombre de los trece períodos de un comparativo: "ENE", "Enero"... "CIE", "Cierre".
    static const QVector<std::pair<QString, QString>>& meses_del_ano();
    Campo& importe(const QString& nombre, const QString& rotulo);
    /// La cuenta de que cuelga ese código queda antes del rango.
    bool es_tope(const QString& codigo) const;

    /// La casilla Cksinmov.
    QCheckBox* casilla_sin_movimiento(
        const QString& texto = QStringLiteral("Incluir cuentas sin movimiento o saldo"));
    /// "balance_mes" o, en el libro NIIF, con su sufijo.
    QString procedimiento(const char* nombre, const char* sufijo = "_niif") const;
    /// Balance del mes ("G", "D" o "P") de las cuentas y el nivel pedidos. En el general el
    /// resultado sin cerrar va en el patrimonio, para que cuadre.
    QString sql_del_balance(bool con_notas) const;
    /// La caja Nivel: el general no pasa de los subgrupos y no se escoge.
    void fije_nivel_del_tipo();
    /// Si el cierre del año ya dejó en cero los resultados del período, lo dice; vacío si no.
    QString aviso_de_cierre(Conexion& base, const QString& compania = {}) const;
    /// "Período:" + mes + "/" + año.
    QString del_periodo() const;
    /// También los que firman: un estado se imprime para firmarlo.
    void fije_encabezado(MotorInformes& motor) override;
    void fije_firmas(MotorInformes& motor);
    /// La cifra de la caja Nivel.
    QString nivel() const { return QString::number(valor(QStringLiteral("Nivel")).toInt()); }

private:
    mutable QVector<qint64> digitos_; ///< los de cada nivel de la estructura
};
