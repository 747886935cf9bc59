#pragma once
// "Opciones de impresión": impresora, copias, destino y rango de un informe.
#include "toolkit/informes/salidas.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;
class QSpinBox;

namespace informes {

struct OpcionesReporte {
    enum Destino { Impresora, Vista, Archivo } destino = Vista;
    enum Alcance { Todo, Paginas, Seleccion } alcance = Todo;
    QString impresora; ///< vacía: la del sistema
    int copias = 1;
    bool intercalar = true;
    bool duplex = false;
    FormatoArchivo formato = FormatoArchivo::Pdf;
    QString ruta;             ///< del archivo
    int desde = 1, hasta = 1; ///< páginas, 1-based

    /// Páginas que salen de un informe de `total`. `actual` (0-based) es la seleccionada. Lanza
    /// ErrorInforme si el rango no toca ninguna.
    Rango rango(int total, int actual) const;
};

class DialogoOpciones : public QDialog {
    Q_OBJECT
public:
    /// `archivo`: nombre que se sugiere. `hay_seleccion`: se está viendo una página.
    DialogoOpciones(const OpcionesReporte& inicial, const QString& archivo, bool hay_seleccion,
                    QWidget* padre);
    OpcionesReporte opciones() const;
    void accept() override;

private:
    QWidget* caja_impresora(const OpcionesReporte& inicial);
    QWidget* caja_destino(const OpcionesReporte& inicial);
    QWidget* caja_paginas(const OpcionesReporte& inicial, bool hay_seleccion);
    void configure();
    void liste_impresoras(QString escogida);
    void ajuste();

    QString archivo_, ruta_;
    QComboBox *impresora_, *formato_;
    QSpinBox *copias_, *desde_, *hasta_;
    QCheckBox *intercalar_, *duplex_;
    QRadioButton *a_impresora_, *a_vista_, *a_archivo_;
    QRadioButton *todo_, *paginas_, *seleccion_;
};

/// Pide dónde grabar, completa la extensión y confirma el reemplazo. Vacía si el usuario desiste.
QString pida_archivo(QWidget* ventana, const QString& sugerido, FormatoArchivo formato);

} // namespace informes
