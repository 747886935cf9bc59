#pragma once
// Tabla de órdenes del formulario principal: su menú y sus botones son estos datos.
//
// Cada orden dice dónde está, cómo se llama su componente, qué tecla tiene, quién pregunta el
// derecho y qué abre. La desigualdad es la de la suite: hay entradas que preguntan, entradas cuya
// pantalla pregunta al crearse y entradas que nadie guarda.
#include <QString>
#include <QVector>

enum class Permiso {
    Ninguno,  ///< abre a todos
    Entrada,  ///< pregunta la entrada, antes de abrir
    Pantalla, ///< pregunta la pantalla, en su creación
    Submenu,  ///< el submenú entero se deshabilita al entrar; la entrada no pregunta
};

enum class Apertura {
    Hija,    ///< ventana hija del formulario principal
    Modal,   ///< pantalla modal
    Informe, ///< se imprime al abrirla: no queda ventana
    Propia,  ///< la atiende el formulario principal: `abre` no es una pantalla
};

struct Derecho {
    Permiso permiso = Permiso::Ninguno;
    int opcion = -1; ///< del módulo CONTABILIDAD; -1 sin opción
};

struct Comando {
    QString ruta;      ///< "Cuentas/Nueva cuenta"; en los botones, su texto
    QString nombre;    ///< nombre del componente
    QString tecla;     ///< "Ctrl+T", o vacía
    Derecho derecho;   ///< quién pregunta y por cuál opción
    QString abre;      ///< pantalla o informe
    QString modo = {}; ///< kModoMantenimiento, kModoDescuadres o la letra de tipo_informe
    QString icono = {};
    Apertura apertura = Apertura::Hija;

    QString texto() const { return ruta.section(QLatin1Char('/'), -1); }
    QString menu() const { return ruta.section(QLatin1Char('/'), 0, -2); }
};

inline constexpr const char* kModoMantenimiento = "modo_mantenimiento";
/// cuenta_auxiliar toma la cuenta que cuadra los comprobantes descuadrados.
inline constexpr const char* kModoDescuadres = "cuenta_auxiliar";

/// Entradas del menú principal, en su orden.
const QVector<Comando>& comandos_menu();
/// Botones de balance, en el panel superior.
const QVector<Comando>& comandos_balance();
/// Columna de botones.
const QVector<Comando>& comandos_columna();

/// Submenú guardado entero por una opción.
struct Submenu {
    QString ruta;
    QString nombre;
    int opcion; ///< negada al entrar, el submenú queda deshabilitado
};
const QVector<Submenu>& submenus();

/// Botón oculto que da a un botón de la columna su tecla Alt.
struct AtajoAlt {
    char letra;
    QString boton;
};
const QVector<AtajoAlt>& atajos_alt();
