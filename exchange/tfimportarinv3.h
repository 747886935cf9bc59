#pragma once
// "Importación de datos contables 3/3": en qué columna está cada dato; y la importación.
#include "datos/recordset/conjunto.h"
#include "exchange/asistente_importacion.h"
#include "exchange/diario_importacion.h"
#include "sesion/tfdm.h"
#include "toolkit/pantalla.h"

class QLabel;
class Rejilla;

class Tfimportarinv3 : public Pantalla {
    Q_OBJECT
public:
    Tfimportarinv3();

    // --- conjuntos
    Sentencia TImportacion{this, "TImportacion", fdm().Quorvex,
                           "SELECT * FROM IMPORTACION_INVENTARIO"};
    Proveedor PImportar{this, "PImportar", &TImportacion};
    Proveedor PNombres{this, "PNombres", &fdm().TNomcampos};
    ConjuntoDatos CImportar{this, "CImportar", &PImportar};
    ConjuntoDatos CNombres{this, "CNombres", &PNombres};
    ConjuntoDatos CImportacion{this, "CImportacion"}; ///< en memoria

    // --- controles
    Rejilla* DBGridEh1;
    QLabel* LAvance;

    /// Cómo se va a leer el archivo: formato, separadores y columnas.
    QString forma() const;

    void FormCreate() override;
    bool FormClose() override;

private:
    void defina_conjuntos();
    void construya();
    void llene_columnas();
    QVector<ColumnaImportacion> columnas(bool todas) const;
    QString pregunta_de_saldos() const;
    PeticionImportacion peticion_de(bool ensayo);
    /// Pregunta si se sigue la que se cortó con este archivo. Falso: no se importa.
    bool prepare_diario();
    void SpeedButton1Click();
    void SBEnsayoClick();
    ResultadoImportacion corra(bool ensayo);
    /// Lo que entró pero pide una mano: ciudades que faltan, saldos descuadrados.
    void diga_lo_incompleto(const ResultadoImportacion& resultado);
    void error_importacion(const QString& mensaje, const LlaveComprobante& llave);

    AsistenteImportacion asistente_;
    std::optional<DiarioImportacion> diario_;
    QString sin_bitacora_; ///< la que no se dejó escribir
};
