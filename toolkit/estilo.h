#pragma once
// Apariencia del programa: estilo, paleta de la empresa, medidas que crecen con la letra e iconos.
#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

class QApplication;
class QFontMetrics;

struct ColoresEmpresa {
    QColor principal{0x2b, 0x5c, 0x8a};
    QColor secundario{0x6f, 0x9a, 0xc0};
};
void aplique_estilo(QApplication& aplicacion, const ColoresEmpresa& colores = {});
const ColoresEmpresa& colores_empresa();

/// Cuánto mide la letra frente a la de 100 %.
qreal escala();
/// `n` pasos de 8 píxeles a la escala de la letra.
int paso(qreal n = 1);
/// Píxeles de un diseño a 100 % llevados a la escala de la letra.
int escalado(int pixeles);
/// Ancho de `n` caracteres con la fuente dada.
int ancho_caracteres(const QFontMetrics& medidas, int n);

/// Letra de cifras de igual ancho.
QFont fuente_cifras(const QFont& base);
QColor color_negativo();
QColor color_inactivo(); ///< rojo de las filas inactivas

/// Icono del tema instalado por su nombre ("document-save"); vacío si no hay tema.
QIcon icono(const QString& nombre);
