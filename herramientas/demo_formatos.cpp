#include "herramientas/demo_formatos.h"

#include <QStringList>
#include <QtEndian>

// ---------------------------------------------------------------- logo

namespace {

/// Lienzo de 24 bits por punto, de abajo hacia arriba como lo guarda el formato BMP.
class MapaDeBits {
public:
    MapaDeBits(int ancho, int alto, quint32 fondo)
        : ancho_(ancho), alto_(alto), paso_((ancho * 3 + 3) / 4 * 4), puntos_(paso_ * alto, '\0') {
        rellene(0, 0, ancho, alto, fondo);
    }
    void rellene(int x, int y, int ancho, int alto, quint32 color) {
        for (int fila = y; fila < y + alto; ++fila)
            for (int columna = x; columna < x + ancho; ++columna)
                punto(columna, fila, color);
    }
    /// Trazo inclinado de `grueso` puntos de ancho, renglón por renglón.
    void trace(int x1, int y1, int x2, int y2, int grueso, quint32 color) {
        for (int y = y1; y < y2; ++y)
            rellene(x1 + (x2 - x1) * (y - y1) / (y2 - y1), y, grueso, 1, color);
    }
    QByteArray archivo() const {
        constexpr int kCabecera = 54;
        QByteArray b(kCabecera, '\0');
        const auto ponga = [&](int lugar, auto valor) { qToLittleEndian(valor, b.data() + lugar); };
        b[0] = 'B';
        b[1] = 'M';
        ponga(2, quint32(kCabecera + puntos_.size()));
        ponga(10, quint32(kCabecera));
        ponga(14, quint32(40));
        ponga(18, qint32(ancho_));
        ponga(22, qint32(alto_));
        ponga(26, quint16(1));
        ponga(28, quint16(24));
        ponga(34, quint32(puntos_.size()));
        return b + puntos_;
    }

private:
    void punto(int x, int y, quint32 color) {
        char* p = puntos_.data() + (alto_ - 1 - y) * paso_ + x * 3;
        p[0] = char(color);
        p[1] = char(color >> 8);
        p[2] = char(color >> 16);
    }
    int ancho_, alto_, paso_;
    QByteArray puntos_;
};

} // namespace

QByteArray logo_demo() {
    constexpr quint32 kAzul = 0x1f4468, kGris = 0x8a97a6, kBlanco = 0xffffff;
    MapaDeBits m(116, 200, kAzul);
    m.rellene(0, 96, 116, 8, kGris);
    // E
    m.rellene(34, 18, 12, 64, kBlanco);
    for (const int y : {18, 44, 70})
        m.rellene(46, y, 36, 12, kBlanco);
    // M
    m.rellene(24, 120, 12, 62, kBlanco);
    m.rellene(80, 120, 12, 62, kBlanco);
    m.trace(30, 120, 52, 160, 12, kBlanco);
    m.trace(74, 120, 52, 160, 12, kBlanco);
    return m.archivo();
}

// ---------------------------------------------------------------- formatos

namespace {

constexpr int kIzquierda = 80, kDerecha = 1920; // márgenes en la cuadrícula de 2000 por 1500
constexpr int kDetalle = 272;                   // primer renglón
constexpr int kEntrelinea = 48;
constexpr int kLetraComun = 8, kLetraMenuda = 7, kLetraNombres = 6;

/// Un formato que se arma elemento por elemento.
class FormatoDemo {
public:
    FormatoDemo(Conexion& compania, const QString& llave, int renglones)
        : c_(compania), llave_(llave) {
        c_.ejecute(QStringLiteral("insert into formatos (tido_cod, pref_pre, form_nroitems,"
                                  " form_paginas, form_entrelinea, form_font, form_fsize,"
                                  " form_papelan, form_papelal) values (1,?,?,'S',?,"
                                  "'Liberation Sans',?,8.5,11)"),
                   {Valor(llave), Valor(renglones), Valor(kEntrelinea), Valor(kLetraComun)});
    }
    enum Pase { Encabezado, Detalle, Cierre };
    void dato(const char* nombre, int x, int y, Pase pase = Encabezado, int letra = 0,
              int largo = 0, int desde = 1) {
        c_.ejecute(QStringLiteral("insert into formato_datos (tido_cod, pref_pre, dafo_item,"
                                  " dafo_dato, dafo_imprime, dafo_posx, dafo_posy, dafo_ini,"
                                  " dafo_long, dafo_formato, dafo_repite, dafo_fsize,"
                                  " dafo_liquida, dafo_posyvar)"
                                  " values (1,?,?,?,'S',?,?,?,?,'2',?,?,?,'N')"),
                   {Valor(llave_), Valor(++datos_), Valor(nombre), Valor(x), Valor(y), Valor(desde),
                    Valor(largo), si(pase == Detalle), letra ? Valor(letra) : Valor(),
                    si(pase == Cierre)});
    }
    /// El dato llega como se guarda, aaaammdd: se reparte para leerlo con sus barras.
    void fecha(int x, int y) {
        dato("FECHA", x, y, Encabezado, 0, 4);
        texto("/", x + 60, y, kLetraComun);
        dato("FECHA", x + 68, y, Encabezado, 0, 2, 5);
        texto("/", x + 99, y, kLetraComun);
        dato("FECHA", x + 107, y, Encabezado, 0, 2, 7);
    }
    void texto(const char* cadena, int x, int y, int letra = kLetraMenuda) {
        linea("T", x, y, 0, 0, Valor(QString::fromUtf8(cadena)), Valor(letra));
    }
    void cuadro(int x, int y, int ancho, int alto) { linea("C", x, y, ancho, alto); }
    void raya(int x, int y, int ancho, int alto) { linea("L", x, y, ancho, alto); }

private:
    static Valor si(bool x) { return Valor(x ? "S" : "N"); }
    void linea(const char* tipo, int x, int y, int ancho, int alto, const Valor& cadena = {},
               const Valor& letra = {}) {
        c_.ejecute(QStringLiteral("insert into formato_lineas (tido_cod, pref_pre, foli_item,"
                                  " foli_tipo, foli_posx, foli_posy, foli_x, foli_y, foli_cadena,"
                                  " foli_fsize, foli_liquida) values (1,?,?,?,?,?,?,?,?,?,'N')"),
                   {Valor(llave_), Valor(++lineas_), Valor(tipo), Valor(x), Valor(y), Valor(ancho),
                    Valor(alto), cadena, letra});
    }
    Conexion& c_;
    QString llave_;
    int datos_ = 0, lineas_ = 0;
};

/// `tercero`: rótulo de quien recibe o entrega. Las firmas van al pie de cada hoja, bajo los
/// totales.
void cree_formato(Conexion& compania, const QString& llave, int renglones, const char* tercero,
                  const QStringList& firmas) {
    using F = FormatoDemo;
    F f(compania, llave, renglones);
    // membrete
    f.dato("LOGO COMPANIA", kIzquierda, 40, F::Encabezado, 0, 90);
    f.dato("NOMBRE COMPANIA", 195, 38, F::Encabezado, 13);
    f.dato("ENCABEZA COMPANIA", 195, 70, F::Encabezado, kLetraMenuda);
    f.texto("NIT", 195, 90);
    f.dato("NIT COMPANIA", 245, 90, F::Encabezado, kLetraMenuda);
    f.dato("DIR COMPANIA", 195, 110, F::Encabezado, kLetraMenuda);
    f.texto("Tel.", 700, 110);
    f.dato("TELS COMPANIA", 745, 110, F::Encabezado, kLetraMenuda);
    // número
    f.cuadro(1340, 38, kDerecha - 1340, 78);
    f.dato("NOMBRE TIPO", 1360, 46, F::Encabezado, 10, 30);
    f.texto("No.", 1360, 82, 11);
    f.dato("PREFIJO", 1430, 82, F::Encabezado, 11);
    f.dato("NUMERO", 1560, 82, F::Encabezado, 11);
    f.texto("Página", 1760, 122);
    f.dato("NUMERO PAGINA", 1850, 122, F::Encabezado, kLetraMenuda);
    // encabezado
    f.cuadro(kIzquierda, 148, kDerecha - kIzquierda, 66);
    f.texto("Fecha", 100, 156);
    f.fecha(230, 156);
    f.texto(tercero, 520, 156);
    f.dato("ENCABEZADO NOMBRE", 720, 156, F::Encabezado, 0, 45);
    f.texto("Ref.", 1600, 156);
    f.dato("REFERENCIA", 1680, 156);
    f.texto("Concepto", 100, 186);
    f.dato("CONCEPTO", 230, 186);
    // columnas y detalle: cada línea ocupa dos renglones
    const int fin = kDetalle + renglones * kEntrelinea + 6;
    f.cuadro(kIzquierda, 232, kDerecha - kIzquierda, 30);
    f.cuadro(kIzquierda, 262, kDerecha - kIzquierda, fin - 262);
    for (const int x : {230, 690, 1070, 1290, 1370, 1640})
        f.raya(x, 232, 0, fin - 232);
    f.texto("Cuenta", 100, 239);
    f.texto("Nombre / proyecto", 245, 239);
    f.texto("Tercero / centro", 705, 239);
    f.texto("Documento / vence", 1085, 239);
    f.texto("Tasa", 1305, 239);
    f.texto("Débitos", 1540, 239);
    f.texto("Créditos", 1805, 239);
    constexpr int kSegundo = kDetalle + 21;
    f.dato("CUENTA", 100, kDetalle, F::Detalle, kLetraMenuda);
    f.dato("NOMBRE CUENTA", 245, kDetalle, F::Detalle, kLetraNombres, 46);
    f.dato("NOMBRE CENTRO COSTO", 245, kSegundo, F::Detalle, kLetraNombres, 46);
    f.dato("NOMBRE TERCERO", 705, kDetalle, F::Detalle, kLetraNombres, 38);
    f.dato("NOMBRE SUBCEBTRO COSTO", 705, kSegundo, F::Detalle, kLetraNombres, 38);
    f.dato("DOCUMENTO ITEM", 1085, kDetalle, F::Detalle, kLetraMenuda, 16);
    f.dato("DOCUMENTO VENCE", 1085, kSegundo, F::Detalle, kLetraMenuda);
    f.dato("PORCENTAJE ITEM", 1360, kDetalle, F::Detalle, kLetraMenuda);
    f.dato("DEBITO ITEM", 1630, kDetalle, F::Detalle, kLetraMenuda);
    f.dato("CREDITO ITEM", 1910, kDetalle, F::Detalle, kLetraMenuda);
    // cierre
    f.cuadro(kIzquierda, fin + 8, kDerecha - kIzquierda, 62);
    f.texto("Totales", 1085, fin + 16, kLetraComun);
    f.dato("TOTAL DEBITOS", 1630, fin + 16, F::Cierre);
    f.dato("TOTAL CREDITOS", 1910, fin + 16, F::Cierre);
    f.dato("MONTO LETRAS", 100, fin + 46, F::Cierre, kLetraMenuda);
    const int firma = fin + 130;
    const int campo = (kDerecha - kIzquierda) / int(firmas.size());
    f.dato("USUARIO REGISTRO", kIzquierda, firma - 22, F::Cierre, kLetraMenuda);
    for (qsizetype i = 0; i < firmas.size(); ++i) {
        const int x = kIzquierda + campo * int(i);
        f.raya(x, firma, campo - 40, 0);
        f.texto(firmas[i].toUtf8().constData(), x, firma + 6);
    }
}

} // namespace

void siembre_formatos(Conexion& compania) {
    cree_formato(compania, QStringLiteral("CE"), kRenglonesEgreso, "Pagado a",
                 {QStringLiteral("Elaboró"), QStringLiteral("Revisó"), QStringLiteral("Aprobó"),
                  QStringLiteral("Recibí conforme: C.C. o NIT")});
    cree_formato(compania, QStringLiteral("0000"), kRenglonesEgreso, "Tercero",
                 {QStringLiteral("Elaboró"), QStringLiteral("Revisó"), QStringLiteral("Aprobó")});
    compania.ejecute(
        QStringLiteral("update tipo_comprobante set tico_formato = 'S' where tico_cod = 'CE'"));
}
