#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace exportacion {

class FlujoOle;

/// Códigos de los registros BIFF8 que usa el libro.
enum class CodigoBiff : quint16 {
    Fin = 0x000A,
    Encabezado = 0x0014,
    PieDePagina = 0x0015,
    Seleccion = 0x001D,
    Fechas1904 = 0x0022,
    Fuente = 0x0031,
    Continuacion = 0x003C,
    VentanaLibro = 0x003D,
    Panel = 0x0041,
    PaginaCodigos = 0x0042,
    AnchoPorOmision = 0x0055,
    AnchoColumna = 0x007D,
    OpcionesHoja = 0x0081,
    Hoja = 0x0085,
    Impresion = 0x00A1,
    Formato = 0x041E,
    Estilo = 0x00E0,
    NombreEstilo = 0x0293,
    Cadenas = 0x00FC,
    CeldaCadena = 0x00FD,
    Dimensiones = 0x0200,
    CeldaVacia = 0x0201,
    CeldaNumero = 0x0203,
    VentanaHoja = 0x023E,
    Inicio = 0x0809,
};

constexpr quint32 kFilasHojaBiff = 65536;
constexpr int kColumnasHojaBiff = 256;
constexpr int kCaracteresCeldaBiff = 32767;

/// Un registro: código, longitud y contenido, en orden de bytes ascendente.
class RegistroBiff {
public:
    explicit RegistroBiff(CodigoBiff codigo);
    RegistroBiff& u8(quint8 valor);
    RegistroBiff& u16(quint16 valor);
    RegistroBiff& u32(quint32 valor);
    RegistroBiff& real(double valor);
    /// Cadena con su longitud en un byte (nombres de hoja y de letra) o en dos.
    RegistroBiff& cadena_corta(const QString& texto);
    RegistroBiff& cadena(const QString& texto);
    const QByteArray& bytes();

private:
    QByteArray bytes_;
};

/// Aspecto de una celda, que el libro guarda una vez y las celdas citan por número.
struct EstiloBiff {
    enum class Lado : quint8 { General = 0, Izquierda = 1, Centro = 2, Derecha = 3 };
    enum class Papel : quint8 { Dato, Titulo, Suma };

    quint16 formato = 0;
    Lado lado = Lado::General;
    Papel papel = Papel::Dato; ///< Título: negrita y fondo; suma: negrita y raya encima.
    quint8 sangria = 0;        ///< Niveles, de 0 a 15.

    bool operator==(const EstiloBiff&) const = default;
};

/// Estilos y formatos de número de un libro.
class EstilosBiff {
public:
    /// Número con que una celda cita el estilo.
    quint16 numero(const EstiloBiff& estilo);
    /// Número de un formato propio, como "yyyy/mm/dd".
    quint16 formato(const QString& patron);
    void escriba(FlujoOle& flujo) const;

private:
    std::vector<EstiloBiff> estilos_;
    std::vector<QString> formatos_;
};

/// La tabla de cadenas del libro, escrita a medida que llegan y repartida en continuaciones. Las
/// cadenas iguales se repiten: buscarlas obligaría a tenerlas todas en memoria.
class CadenasBiff {
public:
    CadenasBiff(FlujoOle& flujo, quint32 total);
    void agregue(const QString& texto);
    void cierre();

private:
    void pase_a_continuacion();

    FlujoOle& flujo_;
    CodigoBiff codigo_;
    QByteArray contenido_;
};

} // namespace exportacion
