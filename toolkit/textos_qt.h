#pragma once
// Lo que dice Qt y su traducción al español no trae, o trae en inglés: partes del diálogo de la
// impresora y del de archivos.
#include <QTranslator>

/// Se instala después de la traducción de Qt, para que se le pregunte primero.
class TextosQt : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    /// Nulo si el texto no es de los suyos: contesta la traducción de Qt.
    QString translate(const char* contexto, const char* texto, const char* caso,
                      int cuantos) const override;
};
