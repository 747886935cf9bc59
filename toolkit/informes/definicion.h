#pragma once
// Proyecto de informes: lo que dice un archivo de plantillas, ya leído y revisado.
//
// Un proyecto es un archivo XML con estilos, bloques que se repiten entre reportes y reportes. Cada
// reporte lee una conexión (un conjunto de registros con ese nombre) y tiene una página con bandas;
// cada banda, items. Las medidas son milímetros desde el margen y la parte alta de la banda; un
// ancho vacío llega hasta el margen derecho y una x negativa se cuenta desde él.
//
//     <reporte nombre="Cuentas" conexion="RAuxiliarcta" papel="carta">
//       <use bloque="membrete"/>
//       <banda tipo="grupo" nombre="grupo" columna="CUENTA" nivel="1" alto="6" repite="si">
//         <texto x="0" y="1" ancho="120" estilo="fuerte">{CUENTA} {NOMCUENTA}</texto>
//         <dato x="-30" y="1" ancho="30" de="INICIAL" formato="importe"/>
//       </banda>
//     </reporte>
//
// En un texto, {COLUMNA} es el dato de la fila, {COLUMNA|sin dato} lo mismo con lo que se escribe
// si está vacía, {@Variable} una variable del reporte, {#pagina},
// {#paginas}, {#fecha}, {#hora} lo que dicen, y {#sigue} " (continuación)" cuando la banda se
// repite en otra hoja. Una fórmula suma y resta columnas, `suma(COLUMNA)` y `cuenta()`: en un
// total, de su grupo; en un detalle, lo que va del grupo de su `nivel`, con la fila misma.
//
// Una banda de alto 0 se imprime sobre la anterior, con medidas negativas: así el cliente puede
// dejar por fuera una parte de otra banda.
#include "datos/firebird/errores.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace informes {

/// Falla de una plantilla o de una salida, con el texto que lee el usuario.
class ErrorInforme : public ErrorDatos {
public:
    using ErrorDatos::ErrorDatos;
};

enum class Lado : quint8 { Izquierda, Centro, Derecha };

struct Estilo {
    QString letra;
    double cuerpo = 8; ///< puntos
    bool negrita = false;
    bool cursiva = false;
    QString color = QStringLiteral("#000000");
    bool operator==(const Estilo&) const = default;
};

/// Pedazo de un texto: literal, o algo que se busca al imprimir.
struct Pedazo {
    enum Clase { Literal, Columna, Variable, Especial } clase = Literal;
    QString texto;
    QString si_falta{}; ///< lo que se escribe si la columna está vacía
    int columna = -1;   ///< posición en los datos, cuando ya se conocen
};

/// Sumando de una fórmula.
struct Sumando {
    enum Clase { Columna, Suma, Cuenta } clase = Columna;
    bool resta = false;
    QString texto;
    int columna = -1;
    int acumulado = -1; ///< cuál de los acumulados de la banda
};

enum class Formato : quint8 { Texto, Importe, Entero, Fecha, Porcentaje };

struct Item {
    enum Clase { Texto, Dato, Linea, Caja, Imagen } clase = Texto;
    QString nombre;
    double x = 0, y = 0, ancho = 0, alto = 0; ///< mm; en una línea, ancho y alto son su avance
    bool hasta_margen = false;                ///< el ancho llega al margen derecho
    int estilo = 0;
    Lado lado = Lado::Izquierda;
    QVector<Pedazo> pedazos;
    QVector<Sumando> formula;
    Formato formato = Formato::Texto;
    bool oculta_cero = false;
    bool parte = false;   ///< el texto largo sigue en otro renglón y la banda crece
    bool repetido = true; ///< falso: no se imprime si el dato es el de la fila anterior
    double grosor = 0.1;  ///< mm
    QString relleno;      ///< color, o vacío
    int renglon = 0;      ///< línea del archivo, para los mensajes
};

enum class TipoBanda : quint8 { Encabezado, Titulo, Columnas, Grupo, Detalle, Total, Final, Pie };

struct Banda {
    TipoBanda tipo = TipoBanda::Detalle;
    QString nombre;
    QStringList columnas; ///< las que, al cambiar, abren otro grupo
    QVector<int> indices;
    int nivel = 0; ///< 1 el grupo de afuera
    double alto = 5;
    bool repite = false;       ///< el grupo se anuncia otra vez en la hoja siguiente
    bool pagina_nueva = false; ///< cada grupo empieza hoja
    bool omitida = false;
    QString si; ///< columna que debe traer algo (no cero, no vacía); con "!" delante, lo contrario
    int indice_si = -1;
    QVector<Item> items;
    int renglon = 0;
};

struct Papel {
    QString nombre = QStringLiteral("carta");
    double ancho = 215.9, alto = 279.4; ///< mm, ya girados
    bool horizontal = false;
    double margen_x = 12, margen_y = 10;
    bool operator==(const Papel&) const = default;
};
/// "carta", "media" (media carta), "oficio", "a4". Vacío si no se conoce el nombre.
bool papel_de(const QString& nombre, bool horizontal, Papel& papel);

struct Reporte {
    QString nombre;
    QString conexion;
    QString pagina; ///< nombre completo de su página: "Cuentas.Page1"
    Papel papel;
    QVector<Banda> bandas;
    int renglon = 0;
    Banda* banda(const QString& nombre);
    Item* item(const QString& nombre);
};

struct Proyecto {
    QString ruta;
    QVector<Estilo> estilos;
    QVector<Reporte> reportes;
    Reporte* reporte(const QString& nombre);
    Reporte* reporte_de_pagina(const QString& pagina);
};

/// Lee un proyecto. Lanza ErrorInforme con el archivo y la línea de lo que no sirve.
Proyecto lea_proyecto(const QString& ruta);

} // namespace informes
