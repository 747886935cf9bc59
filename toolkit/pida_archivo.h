#pragma once
// Dónde queda un archivo que se va a grabar, preguntado de una sola manera en todo el programa.
#include <QString>
#include <functional>
#include <optional>

class QWidget;

struct ArchivoPorGrabar {
    const char* nombre; ///< objectName de la ventana
    QString titulo;
    QString sugerido; ///< ruta en que empieza; sin carpeta, la del usuario
    QString filtro;   ///< en la forma de Qt: "Texto (*.txt *.csv);;Todos (*)"
    /// La extensión que el nombre debe llevar según el filtro escogido; sin ella, queda el dado.
    std::function<QString(const QString& filtro)> extension = {};
    QString termina = {};       ///< lo que se le agrega al nombre que no termine así: ".mds"
    bool ultimo_filtro = false; ///< empieza en el último de los filtros
    bool reemplaza = true;      ///< pregunta si el archivo ya existe
};

struct ArchivoEscogido {
    QString ruta, filtro;
};

/// Nulo si el usuario desiste o no quiere reemplazar el archivo que ya está.
std::optional<ArchivoEscogido> pida_archivo(QWidget* padre, const ArchivoPorGrabar& que);
