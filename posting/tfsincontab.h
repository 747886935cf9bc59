#pragma once
// "Comprobantes sin contabilizar": los documentos de los módulos hermanos a los que les falta el
// comprobante en un mes, en el libro 2649 o en el NIIF, que aquí se contabilizan uno a uno o los
// marcados.
#include "datos/recordset/conjunto.h"
#include "posting/pendientes.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class CajaPeriodo;
class QCheckBox;
class QToolButton;
class Rejilla;

class Tfsincontab : public Pantalla {
    Q_OBJECT
public:
    Tfsincontab();
    void FormCreate() override;

    // --- conjuntos
    Sentencia QSincontab{this, "QSincontab", fdm().Quorvex};
    Proveedor PSincontab{this, "PSincontab", &QSincontab, poAllowCommandText};
    ConjuntoDatos CSincontab{this, "CSincontab", &PSincontab};

    // --- controles
    CajaPeriodo* periodo; ///< EMes y EAno
    QCheckBox *ckcont, *ckNiif, *ckfiltro;
    Rejilla* DBGridEh1;

    /// Lee la lista del período; en el de cierre queda como estaba.
    void calcule_pendientes();
    void BitBtn1Click();      ///< F2:Contabilizar
    void SpeedButton3Click(); ///< Cont.Marcados

private:
    void construya();
    QToolButton* paso_de_mes(const char* nombre, Qt::ArrowType sentido, const QString& ayuda,
                             void (Tfdmcnt::*mueva)());
    QCheckBox* casilla(const char* nombre, const QString& texto, std::function<void()> al_cambiar);
    void muestre_periodo();
    DocumentoPendiente actual() const;
    ResultadoDocumento contabilice_actual();
    ResultadoDocumento contabilice(const DocumentoPendiente& documento);
    ResultadoDocumento contabilice_en_lote(const DocumentoPendiente& documento);
    void asiente(ResultadoDocumento& resultado, int cntb_id);
    QPair<qint64, qint64> llave_de(int fila) const; ///< tipo e id del documento
    void refresque();
    /// Lo que ya se contabilizó no se le atribuye a otro.
    void actualice_si_vieja();
    void muestre_resumen(const QVector<ResultadoDocumento>& resultados, int sin_empezar);
    void vaya_a(const ResultadoDocumento& resultado);

    bool batch = false;        ///< corre el lote: la lista se lee una sola vez, al final
    bool lista_vieja_ = false; ///< no se pudo leer después de contabilizar
};
