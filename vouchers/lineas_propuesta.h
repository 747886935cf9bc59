#pragma once
// Líneas de una propuesta de comprobante: las reglas de un comprobante sobre CONTABILIZACION_DET.
//
// Los dos libros comparten el conjunto: cada línea dice el suyo con su número, y un filtro deja a
// la vista las de uno. Las diferencias de las reglas son las opciones de su CamposLinea.
#include "libro/propuesta.h"
#include "vouchers/lineas_libro.h"

class LineasPropuesta : public LineasLibro {
    Q_OBJECT
public:
    LineasPropuesta(Libro libro, AnfitrionLineas& anfitrion, ConjuntoDatos& detalle,
                    ConjuntoDatos& consulta, MemoriasLinea& memorias, const AjustesLinea& ajustes,
                    QObject* dueno);

    static void defina_campos(ConjuntoDatos& detalle);
    /// Condición de las líneas del libro, para filtrar el conjunto.
    QString filtro() const;

    // De todas las líneas del libro, esté o no a la vista.
    Lados sumas_en_memoria(const Lados&) const override { return {suma_debito(), suma_credito()}; }
    Moneda suma_debito() const override { return sume(n_.debito); }
    Moneda suma_credito() const override { return sume(n_.credito); }
    /// Las dos sumas se leen igual.
    bool cuadrada() const;
    /// Anuncia lo copiado y lo pega en las líneas del libro.
    void pegue_lo_copiado();
    /// Corre `cambio` y recuerda cómo estaban las líneas del libro, que es el que está a la vista.
    void con(const QString& que, const std::function<void()>& cambio);
    /// Las deja como estaban, una sola vez; si después hubo otros cambios, lo pregunta.
    void deshaga();
    /// Lo mismo que al dejar cada línea, sobre las agregadas del libro a la vista: las que trajo
    /// una plantilla entraron sin probarse. Se queda en la primera que se rehúsa.
    void exija_agregadas();
    bool hay_agregadas() const;
    /// Escribe "?" en la celda, y así su regla abre la búsqueda.
    void pregunte_por(int columna);

    void validar_centro() override;

protected:
    std::optional<int> digito() const override { return -4; } // diezmilésimas

private:
    using Lineas = QMap<qint64, QVector<Valor>>; ///< por su número, que es lo que las ordena
    Lineas lea_lineas(bool con_la_que_nace) const;
    void reponga(const Lineas& lineas);

    std::optional<Lineas> antes_;
    Lineas despues_;
    QString que_;

    Moneda sume(const char* lado) const;
};
