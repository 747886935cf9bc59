#pragma once
// Sentencia: un texto SQL, una tabla o un procedimiento contra una conexión. No sabe de ediciones.
//
// Los parámetros se nombran con dos puntos (":ID"). Una sentencia de detalle se une a su maestra
// con `enlace_maestra`: sus parámetros toman el valor de los campos de igual nombre de la fila
// maestra y el proveedor de la maestra entrega el detalle anidado, en un campo con el nombre de la
// sentencia.
#include "datos/firebird/conexion.h"

#include <QMap>
#include <QObject>

class Sentencia : public QObject {
    Q_OBJECT
public:
    /// `nombre`: nombre de componente (QBorrar, TTercero, SIdComproba).
    Sentencia(QObject* dueno, const QString& nombre, Conexion& conexion, const QString& sql = {});
    ~Sentencia() override;

    Conexion& conexion() const { return conexion_; }

    // --- texto y parámetros
    QString SQL;           ///< texto; puede reemplazarse mientras está cerrada
    QString procedimiento; ///< no vacío: la sentencia ejecuta este procedimiento (ExecProc)
    Valor& ParamByName(const QString& nombre) { return parametros_[nombre.toUpper()]; }
    Valor parametro(const QString& nombre) const { return parametros_.value(nombre.toUpper()); }
    const QMap<QString, Valor>& parametros() const { return parametros_; }

    // --- unión con la maestra
    void enlace_maestra(Sentencia* maestra, const QStringList& campos);
    const QStringList& MasterFields() const { return campos_maestra_; }
    const QVector<Sentencia*>& detalles() const { return detalles_; }

    // --- lectura directa, sin conjunto de datos
    void Open();
    void Open(const QString& sql) {
        Close();
        SQL = sql;
        Open();
    }
    void Close();
    bool Active() const { return cursor_ != nullptr || abierta_; }
    bool IsEmpty() const { return vacia_; }
    bool Eof() const { return fin_; }
    void Next();
    /// Columna de la fila actual; sin fila lee como texto vacío o cero.
    Valor Fields(int indice) const;
    Valor FieldByName(const QString& nombre) const;
    /// Ejecuta y confirma; devuelve las filas tocadas.
    qint64 ExecSQL();
    qint64 ExecSQL(const QString& sql) {
        Close();
        SQL = sql;
        return ExecSQL();
    }
    /// Ejecuta `procedimiento` con los parámetros de entrada y deja las salidas en ParamByName.
    void ExecProc();

    /// Parte un texto con parámetros nombrados en texto posicional y la lista de nombres.
    static QString posicional(const QString& sql, QStringList& nombres);

private:
    Conexion& conexion_;
    QMap<QString, Valor> parametros_;
    Sentencia* maestra_ = nullptr;
    QStringList campos_maestra_;
    QVector<Sentencia*> detalles_;
    std::unique_ptr<Cursor> cursor_;
    bool abierta_ = false, vacia_ = true, fin_ = true;
};
