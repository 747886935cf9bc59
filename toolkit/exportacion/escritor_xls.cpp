#include "toolkit/exportacion/escritores.h"

#include "toolkit/exportacion/archivo_salida.h"
#include "toolkit/exportacion/biff.h"
#include "toolkit/exportacion/flujo_ole.h"
#include "toolkit/exportacion/tabla_exportable.h"

#include <QtEndian>
#include <algorithm>
#include <cmath>

namespace exportacion {

namespace {

using Papel = EstiloBiff::Papel;

// Identificador de los libros de Excel 97 a 2003 dentro de un contenedor OLE2.
constexpr unsigned char kClaseLibro[16] = {0x20, 0x08, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00,
                                           0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};
constexpr quint16 kTipoLibro = 0x0005;
constexpr quint16 kTipoHoja = 0x0010;

// Formatos de número que todo libro ya trae.
constexpr quint16 kFormatoEntero = 1;        // 0
constexpr quint16 kFormatoMiles = 3;         // #,##0
constexpr quint16 kFormatoMilesCentavos = 4; // #,##0.00
constexpr quint16 kFormatoTexto = 49;        // @

constexpr int kAnchoMinimo = 8;
constexpr int kAnchoMayor = 60;
constexpr int kSangriaMaxima = 15;

/// Lo que una celda guarda: nada, un número o un texto.
using Celda = std::variant<std::monostate, double, QString>;

// Un real guarda exactas 15 cifras decimales; lo que tenga más va como texto, sin perder ninguna.
Celda numero_o_texto(Moneda importe, int decimales) {
    constexpr qint64 kPrimeroDe16Cifras = 1'000'000'000'000'000;
    qint64 cifras = importe.unidades();
    int divisor = Moneda::kEscala;
    while (divisor > 1 && cifras % 10 == 0) {
        cifras /= 10;
        divisor /= 10;
    }
    if (cifras <= -kPrimeroDe16Cifras || cifras >= kPrimeroDe16Cifras)
        return texto_exacto(importe, decimales);
    return static_cast<double>(cifras) / divisor;
}

Celda celda_de(const ValorExportable& valor, int decimales) {
    if (const auto* importe = std::get_if<Moneda>(&valor))
        return numero_o_texto(*importe, decimales);
    if (const auto* entero = std::get_if<qint64>(&valor)) {
        const auto real = static_cast<double>(*entero);
        if (std::abs(real) < 1e15)
            return real;
    }
    if (const auto* fecha = std::get_if<QDate>(&valor)) {
        // La cuenta de días de la hoja de cálculo solo es la del calendario desde marzo de 1900.
        if (*fecha >= QDate(1900, 3, 1))
            return static_cast<double>(QDate(1899, 12, 30).daysTo(*fecha));
    }
    QString texto = texto_valor(valor, decimales).left(kCaracteresCeldaBiff);
    if (texto.isEmpty())
        return {};
    return texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

/// El orden de hojas, filas y celdas, dicho una sola vez para las tres pasadas del escritor. El
/// destino recibe `hoja()` al abrir cada una y `celda(fila, columna, celda, papel, sangria)`.
template <class Destino>
void recorra(TablaExportable& tabla, const std::vector<ColumnaExportable>& columnas,
             Destino& destino) {
    const int total = static_cast<int>(columnas.size());
    quint32 fila = kFilasHojaBiff;
    const auto asegure_hoja = [&] {
        if (fila < kFilasHojaBiff)
            return;
        destino.hoja();
        for (int i = 0; i < total; ++i)
            destino.celda(0, i, celda_de(columnas[i].titulo, 0), Papel::Titulo);
        fila = 1;
    };
    tabla.inicie();
    asegure_hoja();
    while (tabla.siguiente()) {
        asegure_hoja();
        for (int i = 0; i < total; ++i)
            destino.celda(fila, i, celda_de(tabla.valor(i), columnas[i].decimales), Papel::Dato,
                          std::clamp(tabla.sangria(i), 0, kSangriaMaxima));
        ++fila;
    }
    if (tabla.tiene_pie()) {
        asegure_hoja();
        for (int i = 0; i < total; ++i)
            destino.celda(fila, i, celda_de(tabla.pie(i), columnas[i].decimales), Papel::Suma);
    }
}

/// Primera pasada: cuántas filas tiene cada hoja, cuántas cadenas el libro y cuánto mide cada
/// columna.
struct Recuento {
    std::vector<quint32> filas;
    quint32 cadenas = 0;
    std::vector<int> anchos;
    int sangria = 0; ///< la mayor

    void hoja() { filas.push_back(0); }
    void celda(quint32 fila, int columna, const Celda& celda, Papel, int entra = 0) {
        filas.back() = fila + 1;
        sangria = std::max(sangria, entra);
        if (const auto* texto = std::get_if<QString>(&celda)) {
            ++cadenas;
            mida(columna, static_cast<int>(texto->size()) + 2 * entra);
        } else if (const auto* numero = std::get_if<double>(&celda)) {
            const double grande = std::abs(*numero);
            const int cifras = grande < 10 ? 1 : static_cast<int>(std::log10(grande)) + 1;
            mida(columna, cifras + (cifras - 1) / 3 + 4); // Miles, signo y centavos.
        }
    }
    void mida(int columna, int caracteres) {
        anchos[columna] = std::max(anchos[columna], caracteres);
    }
    bool operator==(const Recuento&) const = default;
};

/// Segunda pasada: la tabla de cadenas.
struct PasadaCadenas {
    CadenasBiff& cadenas;
    Recuento recuento;

    void hoja() { recuento.hoja(); }
    void celda(quint32 fila, int columna, const Celda& celda, Papel papel, int entra = 0) {
        recuento.celda(fila, columna, celda, papel, entra);
        if (const auto* texto = std::get_if<QString>(&celda))
            cadenas.agregue(*texto);
    }
};

class LibroXls {
public:
    LibroXls(TablaExportable& tabla, ArchivoSalida& salida)
        : tabla_(tabla), columnas_(columnas_de(tabla)), flujo_(salida, "Workbook", kClaseLibro) {}

    void escriba();

    void hoja();
    void celda(quint32 fila, int columna, const Celda& celda, Papel papel, int entra = 0);

private:
    Recuento recuento_vacio() const;
    void exija_iguales(const Recuento& recuento) const;
    quint16 formato_de(const ColumnaExportable& columna);
    void prepare_estilos();
    void escriba_globales();
    void cierre_hoja();
    QString nombre_hoja(std::size_t indice) const;

    TablaExportable& tabla_;
    std::vector<ColumnaExportable> columnas_;
    FlujoOle flujo_;
    EstilosBiff estilos_;
    std::vector<quint16> estilo_columna_[3];        // Por papel.
    std::vector<std::vector<quint16>> con_sangria_; // Por niveles menos uno, de los datos.
    Recuento recuento_;
    Recuento escrito_;
    std::vector<qint64> citas_; // Dónde anota el libro el comienzo de cada hoja.
    quint32 cadena_ = 0;
};

QByteArray inicio(quint16 tipo) {
    return RegistroBiff(CodigoBiff::Inicio)
        .u16(0x0600) // BIFF8
        .u16(tipo)
        .u16(0x0DBB)
        .u16(0x07CC)
        .u32(0x00C1)
        .u32(0x0006)
        .bytes();
}

EstiloBiff::Lado lado_de(const ColumnaExportable& columna) {
    switch (columna.lado()) {
    case Qt::AlignRight:
        return EstiloBiff::Lado::Derecha;
    case Qt::AlignHCenter:
        return EstiloBiff::Lado::Centro;
    default:
        return EstiloBiff::Lado::Izquierda;
    }
}

void LibroXls::escriba() {
    recuento_ = recuento_vacio();
    recorra(tabla_, columnas_, recuento_);
    prepare_estilos();
    escriba_globales();
    escrito_ = recuento_vacio();
    recorra(tabla_, columnas_, *this);
    cierre_hoja();
    exija_iguales(escrito_);
    flujo_.cierre();
}

// Las citas a cadenas y hojas dependen de que las tres pasadas vean las mismas filas.
void LibroXls::exija_iguales(const Recuento& recuento) const {
    if (recuento != recuento_)
        throw ErrorExportacion(QStringLiteral("Los datos cambiaron mientras se exportaban. "
                                              "Actualice la consulta y vuelva a exportar."));
}

Recuento LibroXls::recuento_vacio() const {
    Recuento recuento;
    recuento.anchos.resize(columnas_.size());
    return recuento;
}

quint16 LibroXls::formato_de(const ColumnaExportable& columna) {
    switch (columna.tipo) {
    case TipoExportable::Entero:
        return kFormatoEntero;
    case TipoExportable::Moneda:
        if (columna.decimales == 0)
            return kFormatoMiles;
        if (columna.decimales == 2)
            return kFormatoMilesCentavos;
        return estilos_.formato(QStringLiteral("#,##0.") +
                                QString(columna.decimales, QLatin1Char('0')));
    case TipoExportable::Fecha:
        return estilos_.formato(QStringLiteral("yyyy/mm/dd"));
    default:
        return kFormatoTexto;
    }
}

void LibroXls::prepare_estilos() {
    for (const ColumnaExportable& columna : columnas_) {
        const quint16 formato = formato_de(columna);
        for (Papel papel : {Papel::Dato, Papel::Titulo, Papel::Suma})
            estilo_columna_[static_cast<int>(papel)].push_back(estilos_.numero(
                {papel == Papel::Titulo ? kFormatoTexto : formato, lado_de(columna), papel}));
    }
    for (int nivel = 1; nivel <= recuento_.sangria; ++nivel) {
        con_sangria_.emplace_back();
        for (const ColumnaExportable& columna : columnas_)
            con_sangria_.back().push_back(estilos_.numero(
                {formato_de(columna), lado_de(columna), Papel::Dato, static_cast<quint8>(nivel)}));
    }
}

void LibroXls::escriba_globales() {
    flujo_.escriba(inicio(kTipoLibro));
    flujo_.escriba(RegistroBiff(CodigoBiff::PaginaCodigos).u16(1200).bytes());
    flujo_.escriba(RegistroBiff(CodigoBiff::VentanaLibro)
                       .u16(0)
                       .u16(0)
                       .u16(20000)
                       .u16(12000)
                       .u16(0x0038) // Barras de desplazamiento y pestañas.
                       .u16(0)
                       .u16(0)
                       .u16(1)
                       .u16(600)
                       .bytes());
    flujo_.escriba(RegistroBiff(CodigoBiff::Fechas1904).u16(0).bytes());
    estilos_.escriba(flujo_);
    for (std::size_t i = 0; i < recuento_.filas.size(); ++i) {
        citas_.push_back(flujo_.posicion() + 4);
        flujo_.escriba(
            RegistroBiff(CodigoBiff::Hoja).u32(0).u16(0).cadena_corta(nombre_hoja(i)).bytes());
    }
    CadenasBiff cadenas(flujo_, recuento_.cadenas);
    PasadaCadenas pasada{cadenas, recuento_vacio()};
    recorra(tabla_, columnas_, pasada);
    exija_iguales(pasada.recuento);
    cadenas.cierre();
    flujo_.escriba(RegistroBiff(CodigoBiff::Fin).bytes());
}

// Hasta 31 caracteres, sin los que el libro prohíbe y sin repetir.
QString LibroXls::nombre_hoja(std::size_t indice) const {
    QString nombre = en_una_linea(tabla_.titulo());
    for (QChar& c : nombre)
        if (QStringLiteral(":\\/?*[]'").contains(c))
            c = QLatin1Char(' ');
    const QString sufijo = indice == 0 ? QString() : QStringLiteral(" (%1)").arg(indice + 1);
    nombre = nombre.simplified().left(31 - sufijo.size()).trimmed();
    return (nombre.isEmpty() ? QStringLiteral("Datos") : nombre) + sufijo;
}

void LibroXls::hoja() {
    if (!escrito_.filas.empty())
        cierre_hoja();
    const std::size_t indice = escrito_.filas.size();
    escrito_.hoja();
    if (indice >= citas_.size())
        return; // Sobran filas: el recuento final lo denuncia.
    QByteArray comienzo(4, '\0');
    qToLittleEndian(static_cast<quint32>(flujo_.posicion()), comienzo.data());
    flujo_.corrija(citas_[indice], comienzo);

    flujo_.escriba(inicio(kTipoHoja));
    flujo_.escriba(RegistroBiff(CodigoBiff::OpcionesHoja).u16(0x05C1).bytes()); // Ajuste a página.
    const QString titulo = en_una_linea(tabla_.titulo()).left(100);
    flujo_.escriba(RegistroBiff(CodigoBiff::Encabezado)
                       .cadena(QStringLiteral("&L") +
                               QString(titulo).replace(QLatin1Char('&'), QStringLiteral("&&")))
                       .bytes());
    flujo_.escriba(
        RegistroBiff(CodigoBiff::PieDePagina).cadena(QStringLiteral("&RPágina &P de &N")).bytes());
    flujo_.escriba(RegistroBiff(CodigoBiff::Impresion)
                       .u16(1) // Carta
                       .u16(100)
                       .u16(1)
                       .u16(1) // Una página de ancho...
                       .u16(0) // ...y las que haga falta de largo.
                       .u16(0) // Horizontal.
                       .u16(300)
                       .u16(300)
                       .real(0.5)
                       .real(0.5)
                       .u16(1)
                       .bytes());
    flujo_.escriba(RegistroBiff(CodigoBiff::AnchoPorOmision).u16(10).bytes());
    for (std::size_t i = 0; i < columnas_.size(); ++i) {
        const int caracteres = columnas_[i].ancho > 0 ? columnas_[i].ancho : recuento_.anchos[i];
        const int ancho = std::clamp(caracteres + 2, kAnchoMinimo, kAnchoMayor);
        flujo_.escriba(RegistroBiff(CodigoBiff::AnchoColumna)
                           .u16(static_cast<quint16>(i))
                           .u16(static_cast<quint16>(i))
                           .u16(static_cast<quint16>(ancho * 256))
                           .u16(15)
                           .u16(0)
                           .u16(0)
                           .bytes());
    }
    flujo_.escriba(RegistroBiff(CodigoBiff::Dimensiones)
                       .u32(0)
                       .u32(recuento_.filas[indice])
                       .u16(0)
                       .u16(static_cast<quint16>(columnas_.size()))
                       .u16(0)
                       .bytes());
}

void LibroXls::celda(quint32 fila, int columna, const Celda& celda, Papel papel, int entra) {
    escrito_.celda(fila, columna, celda, papel, entra);
    // Si las filas cambiaron entre pasadas, el recuento final lo denuncia.
    entra = std::min(entra, static_cast<int>(con_sangria_.size()));
    if (papel == Papel::Dato && std::holds_alternative<std::monostate>(celda))
        return;
    const auto comience = [&](CodigoBiff codigo) {
        RegistroBiff registro(codigo);
        registro.u16(static_cast<quint16>(fila))
            .u16(static_cast<quint16>(columna))
            .u16(entra > 0 ? con_sangria_[entra - 1][columna]
                           : estilo_columna_[static_cast<int>(papel)][columna]);
        return registro;
    };
    if (const auto* numero = std::get_if<double>(&celda))
        flujo_.escriba(comience(CodigoBiff::CeldaNumero).real(*numero).bytes());
    else if (std::holds_alternative<QString>(celda))
        flujo_.escriba(comience(CodigoBiff::CeldaCadena).u32(cadena_++).bytes());
    else
        flujo_.escriba(comience(CodigoBiff::CeldaVacia).bytes()); // La raya no se interrumpe.
}

void LibroXls::cierre_hoja() {
    const bool primera = escrito_.filas.size() == 1;
    flujo_.escriba(RegistroBiff(CodigoBiff::VentanaHoja)
                       .u16(static_cast<quint16>(0x01BE | (primera ? 0x0600 : 0))) // Fija.
                       .u16(0)
                       .u16(0)
                       .u16(64)
                       .u16(0)
                       .u16(0)
                       .u16(0)
                       .u32(0)
                       .bytes());
    constexpr quint16 kPanelInferior = 2;
    flujo_.escriba(RegistroBiff(CodigoBiff::Panel)
                       .u16(0)
                       .u16(1) // Un renglón fijo: los títulos.
                       .u16(1)
                       .u16(0)
                       .u16(kPanelInferior)
                       .bytes());
    flujo_.escriba(RegistroBiff(CodigoBiff::Seleccion)
                       .u8(kPanelInferior)
                       .u16(1)
                       .u16(0)
                       .u16(0)
                       .u16(1)
                       .u16(1)
                       .u16(1)
                       .u8(0)
                       .u8(0)
                       .bytes());
    flujo_.escriba(RegistroBiff(CodigoBiff::Fin).bytes());
}

} // namespace

void escriba_xls(TablaExportable& tabla, ArchivoSalida& salida) {
    if (tabla.columnas() > kColumnasHojaBiff)
        throw ErrorExportacion(
            QStringLiteral("Un libro de Excel admite %1 columnas y la rejilla tiene %2. Oculte "
                           "columnas o exporte a texto.")
                .arg(kColumnasHojaBiff)
                .arg(tabla.columnas()));
    LibroXls(tabla, salida).escriba();
}

} // namespace exportacion
