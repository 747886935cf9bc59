#pragma once
// Proyecto de informes: lo que dice un archivo de plantillas, ya leído y revisado.
//
// Un proyecto es un archivo XML con estilos, aspectos, bloques que se repiten entre reportes y
// reportes. Cada reporte lee una conexión (un conjunto de registros con ese nombre) y tiene una
// página con bandas; cada banda, items. Las medidas son milímetros desde el margen y la parte alta
// de la banda; un ancho vacío llega hasta el margen derecho y una x negativa se cuenta desde él.
//
//     <reporte nombre="Cuentas" conexion="RAuxiliarcta" papel="carta">
//       <grupo nombre="por_cuenta" columna="CUENTA" nivel="1"/>
//       <use bloque="membrete"/>
//       <banda tipo="grupo" grupo="por_cuenta" nombre="grupo" alto="6" repite="si">
//         <texto x="0" y="1" ancho="120" estilo="fuerte">{CUENTA} {NOMCUENTA}</texto>
//         <dato x="-30" y="1" ancho="30" de="INICIAL" formato="importe"/>
//       </banda>
//     </reporte>
//
// El lenguaje completo está en docs/informes.md; el de las fórmulas, en formula.h.
//
// Una banda de alto 0 se imprime sobre la anterior, con medidas negativas: así el cliente puede
// dejar por fuera una parte de otra banda.
#include "datos/firebird/errores.h"
#include "toolkit/informes/formula.h"

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
    QString letra{};
    double cuerpo = 8; ///< puntos
    bool negrita = false;
    bool cursiva = false;
    bool subrayada = false;
    QString color = QStringLiteral("#000000");
    bool operator==(const Estilo&) const = default;
};

/// Un aspecto: la primera regla que se cumple dice cómo se ve la banda o el item.
struct ReglaAspecto {
    Formula si; ///< vacía: siempre
    int estilo = -1;
    Formula sangria;  ///< milímetros que entran los items que sangran
    double antes = 0; ///< milímetros en blanco encima, salvo al comienzo de la hoja
    QString relleno{};
    bool omite = false; ///< no se imprime
};
using Aspecto = QVector<ReglaAspecto>;

/// Pedazo de un texto: literal, o algo que se busca al imprimir.
struct Pedazo {
    enum Clase { Literal, Columna, Variable, Especial } clase = Literal;
    QString texto{};
    QString si_falta{};            ///< lo que se escribe si la columna está vacía
    QString conexion{};            ///< de una columna que no es de la sección
    int fuente = -1, columna = -1; ///< cuando ya se conocen los datos
};

enum class Formato : quint8 { Texto, Importe, Entero, Fecha, FechaLarga, Porcentaje, Letras };

struct Item {
    enum Clase { Texto, Dato, Rico, Linea, Caja, Imagen } clase = Texto;
    QString nombre;
    double x = 0, y = 0, ancho = 0, alto = 0; ///< mm; en una línea, ancho y alto son su avance
    bool hasta_margen = false;                ///< el ancho llega al margen derecho
    int estilo = 0;
    bool estilo_propio = false; ///< falso: cede ante el del aspecto de su banda
    int aspecto = -1;
    bool sangra = false;
    Formula si; ///< vacía: siempre
    Lado lado = Lado::Izquierda;
    QVector<Pedazo> pedazos;
    Formula formula; ///< de un dato o un texto rico; de una imagen, su columna
    Formato formato = Formato::Texto;
    int decimales = -1; ///< -1: los del formato
    bool oculta_cero = false;
    bool parentesis = false; ///< los negativos, entre paréntesis
    bool parte = false;      ///< el texto largo sigue en otro renglón y la banda crece
    bool repetido = true;    ///< falso: no se imprime si el dato es el de la fila anterior
    double grosor = 0.1;     ///< mm
    bool doble = false;      ///< dos rayas
    QString relleno;         ///< color, o vacío
    int renglon = 0;         ///< línea del archivo, para los mensajes
    bool numero() const {
        return formato == Formato::Importe || formato == Formato::Entero ||
               formato == Formato::Porcentaje;
    }
};

enum class TipoBanda : quint8 { Encabezado, Titulo, Columnas, Grupo, Detalle, Total, Final, Pie };

/// Filas que se separan cuando cambia alguna de sus columnas. Las bandas de un grupo comparten uno;
/// una banda que dice sus propias columnas tiene el suyo.
struct Grupo {
    QString nombre;
    QStringList columnas;
    int nivel = 1; ///< 1 el grupo de afuera
    int seccion = 0;
    QVector<std::pair<int, int>> indices; ///< fuente y columna, cuando ya se conocen
    int renglon = 0;
};

struct Banda {
    TipoBanda tipo = TipoBanda::Detalle;
    QString nombre;
    QString de_grupo;     ///< nombre del grupo declarado, o vacío
    QStringList columnas; ///< las de su propio grupo, si no usa uno declarado
    int grupo = -1;       ///< de una banda de grupo o total
    int nivel = 0;        ///< el de su grupo; en un detalle, hasta dónde llegan sus sumas
    int seccion = 0;      ///< cuyas filas lee
    int tras = 0;         ///< de un final: la sección al cabo de la cual sale
    double alto = 5;
    bool repite = false;       ///< el grupo se anuncia otra vez en la hoja siguiente
    bool pagina_nueva = false; ///< cada grupo empieza hoja
    bool numera = false;       ///< y la numeración vuelve a 1
    bool corta = false;        ///< se reparte entre hojas en vez de pasar entera a la otra
    bool junta = false;        ///< nunca queda al pie sin la banda que sigue
    bool acompanada = false;   ///< nunca empieza hoja sin la banda anterior
    bool omitida = false;
    Formula si; ///< vacía: siempre
    /// De un detalle: las filas que se anuncian otra vez en la hoja que empieza con las que siguen.
    Formula encabeza;
    /// De un detalle: qué tan honda es su fila, desde 1. La que tiene debajo otra más honda no
    /// queda al pie sin ella.
    Formula escalon;
    int aspecto = -1;
    QVector<Item> items;
    /// Al repetirse escribe lo que sus sumas llevan.
    bool trae_lo_que_lleva() const;
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

/// Filas que se recorren después de las del reporte, en la misma página.
struct Seccion {
    QString conexion;
    bool pagina_nueva = false;
};

struct Reporte {
    QString nombre;
    QString pagina;             ///< nombre completo de su página: "Cuentas.Page1"
    QVector<Seccion> secciones; ///< la primera es la del reporte
    Papel papel;
    QVector<Grupo> grupos;
    QVector<Banda> bandas;
    int renglon = 0;
    const QString& conexion() const { return secciones.first().conexion; }
    Banda* banda(const QString& nombre);
    Grupo* grupo(const QString& nombre);
    Item* item(const QString& nombre);
};

struct Proyecto {
    QString ruta;
    QVector<Estilo> estilos;
    QVector<Aspecto> aspectos;
    QVector<Reporte> reportes;
    Reporte* reporte(const QString& nombre);
    Reporte* reporte_de_pagina(const QString& pagina);
};

/// Lee un proyecto. Lanza ErrorInforme con el archivo y la línea de lo que no sirve.
Proyecto lea_proyecto(const QString& ruta);

} // namespace informes
