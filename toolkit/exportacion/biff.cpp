#include "toolkit/exportacion/biff.h"

#include "toolkit/exportacion/flujo_ole.h"

#include <QtEndian>
#include <algorithm>
#include <bit>

namespace exportacion {

namespace {

constexpr qsizetype kCabecera = 4;
constexpr qsizetype kContenidoMaximo = 8224;
// Los estilos 0 a 14 son de base y el 15 es el de la celda corriente.
constexpr quint16 kPrimerEstiloPropio = 16;
constexpr quint16 kPrimerFormatoPropio = 164;
constexpr quint16 kFuenteNegrita = 1;
constexpr quint8 kColorRaya = 0x40; // El del texto.
constexpr quint8 kColorFondo = 22;  // Gris de la paleta.

template <class Entero> void anada(QByteArray& bytes, Entero valor) {
    const Entero ordenado = qToLittleEndian(valor);
    bytes.append(reinterpret_cast<const char*>(&ordenado), sizeof ordenado);
}

bool cabe_en_un_byte(const QString& texto) {
    return std::all_of(texto.begin(), texto.end(), [](QChar c) { return c.unicode() < 0x100; });
}

void anada_caracteres(QByteArray& bytes, QStringView texto, bool ancha) {
    for (QChar c : texto) {
        if (ancha)
            anada<quint16>(bytes, c.unicode());
        else
            bytes.append(static_cast<char>(c.unicode()));
    }
}

void anada_cadena(QByteArray& bytes, const QString& texto) {
    const bool ancha = !cabe_en_un_byte(texto);
    bytes.append(ancha ? '\1' : '\0');
    anada_caracteres(bytes, texto, ancha);
}

QByteArray fuente(bool negrita) {
    return RegistroBiff(CodigoBiff::Fuente)
        .u16(10 * 20)
        .u16(0)
        .u16(0x7FFF) // Color automático.
        .u16(negrita ? 700 : 400)
        .u16(0)
        .u8(0)
        .u8(2) // Familia sin remates.
        .u8(0)
        .u8(0)
        .cadena_corta(QStringLiteral("Arial"))
        .bytes();
}

QByteArray estilo_base() {
    return RegistroBiff(CodigoBiff::Estilo)
        .u16(0)
        .u16(0)
        .u16(0xFFF5) // De base, protegido, sin padre.
        .u8(0x20)
        .u8(0)
        .u8(0)
        .u8(0)
        .u32(0)
        .u32(0)
        .u16(0x20C0)
        .bytes();
}

QByteArray estilo_celda(const EstiloBiff& estilo) {
    const bool titulo = estilo.papel == EstiloBiff::Papel::Titulo;
    const bool suma = estilo.papel == EstiloBiff::Papel::Suma;
    const quint32 raya_arriba = suma ? 1u << 8 : 0;
    const quint32 raya_abajo = titulo ? 1u << 12 : 0;
    const quint32 colores = (suma ? kColorRaya : 0u) | (titulo ? kColorRaya << 7 : 0u);
    const quint32 trama = titulo ? 1u << 26 : 0;
    return RegistroBiff(CodigoBiff::Estilo)
        .u16(titulo || suma ? kFuenteNegrita : 0)
        .u16(estilo.formato)
        .u16(0x0001)
        .u8(static_cast<quint8>(0x20 | static_cast<quint8>(estilo.lado)))
        .u8(0)
        .u8(estilo.sangria)
        .u8(0xFC) // Todos los atributos son propios.
        .u32(raya_arriba | raya_abajo)
        .u32(colores | trama)
        .u16(titulo ? static_cast<quint16>(kColorFondo | 0x41 << 7) : 0x20C0)
        .bytes();
}

} // namespace

RegistroBiff::RegistroBiff(CodigoBiff codigo) {
    bytes_.reserve(32);
    anada(bytes_, static_cast<quint16>(codigo));
    anada<quint16>(bytes_, 0);
}

RegistroBiff& RegistroBiff::u8(quint8 valor) {
    bytes_.append(static_cast<char>(valor));
    return *this;
}

RegistroBiff& RegistroBiff::u16(quint16 valor) {
    anada(bytes_, valor);
    return *this;
}

RegistroBiff& RegistroBiff::u32(quint32 valor) {
    anada(bytes_, valor);
    return *this;
}

RegistroBiff& RegistroBiff::real(double valor) {
    anada(bytes_, std::bit_cast<quint64>(valor));
    return *this;
}

RegistroBiff& RegistroBiff::cadena_corta(const QString& texto) {
    u8(static_cast<quint8>(texto.size()));
    anada_cadena(bytes_, texto);
    return *this;
}

RegistroBiff& RegistroBiff::cadena(const QString& texto) {
    u16(static_cast<quint16>(texto.size()));
    anada_cadena(bytes_, texto);
    return *this;
}

const QByteArray& RegistroBiff::bytes() {
    qToLittleEndian(static_cast<quint16>(bytes_.size() - kCabecera), bytes_.data() + 2);
    return bytes_;
}

quint16 EstilosBiff::numero(const EstiloBiff& estilo) {
    const auto sitio = std::find(estilos_.begin(), estilos_.end(), estilo);
    const auto indice = static_cast<quint16>(sitio - estilos_.begin());
    if (sitio == estilos_.end())
        estilos_.push_back(estilo);
    return kPrimerEstiloPropio + indice;
}

quint16 EstilosBiff::formato(const QString& patron) {
    const auto sitio = std::find(formatos_.begin(), formatos_.end(), patron);
    const auto indice = static_cast<quint16>(sitio - formatos_.begin());
    if (sitio == formatos_.end())
        formatos_.push_back(patron);
    return kPrimerFormatoPropio + indice;
}

void EstilosBiff::escriba(FlujoOle& flujo) const {
    // Un libro trae al menos cuatro letras; el número 4 no existe.
    for (int i = 0; i < 4; ++i)
        flujo.escriba(fuente(i == kFuenteNegrita));
    for (std::size_t i = 0; i < formatos_.size(); ++i)
        flujo.escriba(RegistroBiff(CodigoBiff::Formato)
                          .u16(static_cast<quint16>(kPrimerFormatoPropio + i))
                          .cadena(formatos_[i])
                          .bytes());
    for (quint16 i = 0; i < kPrimerEstiloPropio - 1; ++i)
        flujo.escriba(estilo_base());
    flujo.escriba(estilo_celda({}));
    for (const EstiloBiff& estilo : estilos_)
        flujo.escriba(estilo_celda(estilo));
    flujo.escriba(
        RegistroBiff(CodigoBiff::NombreEstilo).u16(0x8000).u8(0).u8(0xFF).bytes()); // "Normal".
}

CadenasBiff::CadenasBiff(FlujoOle& flujo, quint32 total)
    : flujo_(flujo), codigo_(CodigoBiff::Cadenas) {
    contenido_.reserve(kContenidoMaximo);
    anada(contenido_, total);
    anada(contenido_, total);
}

void CadenasBiff::agregue(const QString& texto) {
    const bool ancha = !cabe_en_un_byte(texto);
    const qsizetype paso = ancha ? 2 : 1;
    // La cabecera de una cadena va entera, con al menos un carácter detrás.
    if (contenido_.size() + 3 + paso > kContenidoMaximo)
        pase_a_continuacion();
    anada(contenido_, static_cast<quint16>(texto.size()));
    contenido_.append(ancha ? '\1' : '\0');
    qsizetype escritos = 0;
    while (escritos < texto.size()) {
        const qsizetype caben = (kContenidoMaximo - contenido_.size()) / paso;
        if (caben == 0) {
            pase_a_continuacion();
            contenido_.append(ancha ? '\1' : '\0');
            continue;
        }
        const qsizetype tramo = std::min(caben, texto.size() - escritos);
        anada_caracteres(contenido_, QStringView(texto).mid(escritos, tramo), ancha);
        escritos += tramo;
    }
}

void CadenasBiff::cierre() {
    pase_a_continuacion();
}

void CadenasBiff::pase_a_continuacion() {
    QByteArray cabecera;
    anada(cabecera, static_cast<quint16>(codigo_));
    anada(cabecera, static_cast<quint16>(contenido_.size()));
    flujo_.escriba(cabecera);
    flujo_.escriba(contenido_);
    contenido_.resize(0);
    codigo_ = CodigoBiff::Continuacion;
}

} // namespace exportacion
