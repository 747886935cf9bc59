#pragma once
// Intérprete de los formatos de impresión: dibuja un comprobante en la papelería de la compañía
// como dicen sus tablas.
//
// La rejilla de la página mide 2000 por 1500 unidades cualquiera que sea el papel. El pase de
// encabezado se dibuja al comienzo de cada hoja y el de cierre una vez, al final; entre los dos,
// los renglones del detalle.
#include "datos/recordset/conjunto.h"
#include "toolkit/informes/pintor_rejilla.h"

#include <optional>

/// Datos de un formato abiertos y ubicados en él.
struct TablasFormato {
    ConjuntoDatos& CFormato;
    ConjuntoDatos& CFormdatos;
    ConjuntoDatos& CFormlineas;
};

class InterpreteFormato {
public:
    /// `CComproba`: una fila por renglón, con el encabezado repetido. `id`: el comprobante, para
    /// los datos de su registro.
    InterpreteFormato(const TablasFormato& tablas, ConjuntoDatos& CComproba, const QString& id);

    /// Los gráficos se estiran sobre su cuadro; en la impresión masiva van a su tamaño.
    bool graficos_a_su_tamano = false;
    /// Lanza ErrorDatos con un dato que no es el número que el formato pide.
    void imprima(informes::Hojas& hojas);

private:
    void imprime_encabezado(bool final);
    void imprime_detalle();
    void dibuje(ConjuntoDatos& elemento, qreal x, qreal y);
    void imprima_dato_encabezado(qreal x, qreal y);
    void imprima_dato_detalle(qreal x, qreal y);
    void imprima_paso(const char* dato);
    void imprima_cadena(const QString& texto, qreal x, qreal y);
    void imprima_numero(const QString& formato, const QString& texto, bool moneda, qreal x,
                        qreal y);
    void pagina_nueva();

    bool toma(ConjuntoDatos& elementos, const char* prefijo, bool final) const;
    void letra_de(ConjuntoDatos& elementos, const char* prefijo);
    QString registro(const char* columna) const;

    TablasFormato t_;
    ConjuntoDatos& comprobante_;
    QString id_;
    std::optional<informes::PintorRejilla> pintor_;
    int pagina = 1, linea = 0;
};
