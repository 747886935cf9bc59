#include "toolkit/textos_qt.h"

#include <QHash>

QString TextosQt::translate(const char*, const char* texto, const char*, int) const {
    static const QHash<QByteArray, QString> textos{
        // impresora
        {"Double Sided Printing", "Por las dos caras"},
        {"Off", "No"},
        {"Long side binding", "Se pasa por el lado largo"},
        {"Short side binding", "Se pasa por el lado corto"},
        {"Pages", "Páginas"},
        {"Specify pages or ranges separated by commas. Ranges are specified by two numbers "
         "separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
         "Páginas o intervalos separados por comas; un intervalo son dos números con un guion. "
         "3,5-7,9 imprime las páginas 3, 5, 6, 7 y 9."},
        {"Invalid Pages Definition", "Páginas mal escritas"},
        {"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' "
         "to define ranges and make sure ranges do not intersect with each other.",
         "%1 no está bien escrito: separe las páginas y los intervalos con comas, escriba un "
         "intervalo con guion y no repita páginas en dos intervalos."},
        {"Duplex Settings Conflicts", "Las dos caras"},
        {"There are conflicts in duplex settings. Do you want to fix them?",
         "La impresora no puede imprimir así las dos caras. Desea corregirlo?"},
        {"Page Setup Conflicts", "Configuración de página"},
        {"There are conflicts in page setup options. Do you want to fix them?",
         "Hay opciones de la página que no van juntas. Desea corregirlas?"},
        {"Advanced Option Conflicts", "Opciones avanzadas"},
        {"There are conflicts in some advanced options. Do you want to fix them?",
         "Hay opciones avanzadas que no van juntas. Desea corregirlas?"},
        {"There are conflicts in some options. Please fix them.",
         "Hay opciones que no van juntas. Corríjalas."},
        {"%1 x %2 in", "%1 x %2 pulg."},
        {"Folio (8.27 x 13 in)", "Folio (8.27 x 13 pulg.)"},
        // archivos
        {"Drive", "Unidad"},
        {"Folder", "Carpeta"},
        {"File Folder", "Carpeta"},
        {"File", "Archivo"},
        {"%1 File", "Archivo %1"},
        {"Shortcut", "Acceso directo"},
        {"Unknown", "Desconocido"},
    };
    return textos.value(texto);
}
