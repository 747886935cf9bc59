#pragma once
// Ejecución de una planilla de digitación: una fila por comprobante y una columna por cuenta. F2
// los graba todos juntos o ninguno.
#include "datos/recordset/pregunta_en_campo.h"
#include "libro/conjuntos_comprobante.h"
#include "libro/rechazo.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/pantalla.h"
#include "vouchers/planilla.h"

class BorradorFilas;
class QLineEdit;
class Rejilla;

class Tfplanilladatos : public Pantalla {
    Q_OBJECT
public:
    Tfplanilladatos();
    ~Tfplanilladatos() override;

    void FormCreate() override;
    void FormActivate() override;
    bool FormClose() override;

    Proveedor PMovimiento;
    ConjuntoDatos CMovimiento, CDetalle, Cdetniif; ///< los comprobantes por grabar
    ConjuntoDatos CVirtdata;                       ///< la hoja
    Rejilla* DBGridEh1;

private:
    void construya();
    void defina_hoja();
    void muestre_periodo();
    /// El de las filas que se retoman, si lo traen.
    void tome_periodo_de_las_filas();
    void valide(const char* columna, std::function<std::optional<Rechazo>(const QString&)> revise);
    void VirtdataBeforePost();
    void abra_fila();
    void busque_tercero(const QString& texto);
    void busque_centro();
    void DBGridDblClick(int columna);
    QString fecha_del_dia(const QString& dia) const;
    /// `valor`: el de cada columna en la fila.
    FilaPlanilla fila_de(const std::function<Valor(const Campo&)>& valor) const;
    QVector<Comprobante> comprobantes() const;
    QStringList rehusados(const QVector<Comprobante>& todos);
    bool cuadra(const Comprobante& comprobante) const;
    void agregue(const Comprobante& comprobante);
    void SBGrabarClick();
    void avise_omitidos(const QStringList& numeros);
    /// Quita de la hoja lo grabado; lo omitido queda en el borrador, para la próxima vez. Falso si
    /// no se pudo guardar.
    bool deje_las_omitidas();

    Planilla planilla_;
    PreguntaEnCampo pregunta_;   ///< en el tercero de una fila
    CursorPeriodo periodo_ = {}; ///< el que se ve y en el que se graba, aunque cambie la sesión
    QLineEdit *ETipo, *EMes, *EAno;
    BorradorFilas* borrador_ = nullptr;
    bool grabado_ = false, mirado_ = false;
    bool deja_borrador_ = false; ///< quedaron filas omitidas por corregir
};
