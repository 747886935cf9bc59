#include "vouchers/interprete_formato.h"

#include "sesion/tfdm.h"
#include "toolkit/impresora.h"
#include "vouchers/datos_formato.h"

#include <QFontMetricsF>
#include <cmath>
#include <functional>

using namespace informes;

namespace {

constexpr qreal kAnchoRejilla = 2000, kAltoRejilla = 1500;
constexpr qreal kTrazo = 0.2;          // mm
constexpr int kCorrimientoPasan = 100; // unidades a la izquierda del total
constexpr qreal kPixelesPorMilimetro = 96 / 25.4;

qreal cuatro_decimales(qreal valor) {
    return std::round(valor * 10000) / 10000;
}

/// De una sesión con agencia, el dato de la agencia; si no, el de la compañía.
QString de_la_agencia(const QString& compania, const QString& agencia) {
    return fdm().sucursal_usuario == 0 ? compania : agencia;
}

using Lectura = std::function<QString(ConjuntoDatos&)>;

Lectura campo(const char* nombre) {
    return [nombre](ConjuntoDatos& c) { return c.FieldByName(nombre).texto(); };
}

/// De dónde sale cada dato del vocabulario. Los de registro y el logo los resuelve el intérprete.
const QHash<QString, Lectura>& lecturas() {
    static const QHash<QString, Lectura> tabla{
        {"TIPO", campo("TIPO")},
        {"NOMBRE TIPO", campo("NOMTIPO")},
        {"PREFIJO", campo("PREF")},
        {"NUMERO", campo("NUMERO")},
        {"FECHA", campo("FECHA")},
        {"CONCEPTO", campo("CONCEPTO")},
        {"REFERENCIA", campo("REFER")},
        {"ENCABEZADO NIT", campo("NOMENC")},
        {"ENCABEZADO NOMBRE", campo("NOMENC")},
        {"TOTAL DEBITOS", [](ConjuntoDatos& c) { return c.agregado("SumDb").texto(); }},
        {"TOTAL CREDITOS", [](ConjuntoDatos& c) { return c.agregado("SumCr").texto(); }},
        {"MONTO COMPROBANTE", campo("MONTO")},
        {"MONTO LETRAS",
         [](ConjuntoDatos& c) { return fdm().numero_a_letras(c.FieldByName("MONTO").moneda()); }},
        {"NOMBRE USUARIO", [](ConjuntoDatos&) { return fdm().nombre_usuario; }},
        {"CODIGO USUARIO", [](ConjuntoDatos&) { return fdm().usuario; }},
        {"NOMBRE COMPANIA",
         [](ConjuntoDatos&) {
             return de_la_agencia(fdm().datos_compania.nombre, fdm().SUCU_NOMBRE);
         }},
        {"DIR COMPANIA",
         [](ConjuntoDatos&) {
             return de_la_agencia(fdm().datos_compania.direccion, fdm().SUCU_DIRECCION);
         }},
        {"TELS COMPANIA",
         [](ConjuntoDatos&) {
             return de_la_agencia(fdm().datos_compania.telefonos, fdm().SUCU_TELEFONOS);
         }},
        {"NIT COMPANIA", [](ConjuntoDatos&) { return fdm().datos_compania.nit; }},
        {"ENCABEZA COMPANIA", [](ConjuntoDatos&) { return fdm().datos_compania.encabezado; }},
        {"ITEM", campo("ITEM")},
        {"CUENTA", campo("CUENTA")},
        {"NOMBRE CUENTA", campo("NOMCUENTA")},
        {"NIT TERCERO", campo("NIT")},
        {"NOMBRE TERCERO", campo("NOMTERCERO")},
        {"CENTRO COSTO", campo("PROYECTO")},
        {"SUBCENTRO COSTO", campo("CENTRO")},
        {"NOMBRE CENTRO COSTO", campo("NOMPROY")},
        {"NOMBRE SUBCEBTRO COSTO", campo("NOMCENT")},
        {"CONCEPTO ITEM", campo("ITCONCEPTO")},
        {"REFERENCIA ITEM", campo("ITREFER")},
        {"ARTICULO", campo("ARTICULO")},
        {"DESCRIPCION ARTICULO", campo("NOMARTIC")},
        {"DEBITO ITEM", campo("DEBITO")},
        {"CREDITO ITEM", campo("CREDITO")},
        {"NETO ITEM", campo("NETO")},
        {"BASE ITEM", campo("BASE")},
        {"PORCENTAJE ITEM", campo("PORC")},
        {"DOCUMENTO ITEM", campo("NUMDOC")},
        {"DOCUMENTO APLICACION", campo("NUMAPLICA")},
        {"DOCUMENTO VENCE", campo("VENCE")},
    };
    return tabla;
}

const DatoFormato* dato_llamado(const QString& nombre, bool detalle) {
    for (const DatoFormato& d : kDatosFormato)
        if (d.detalle == detalle && nombre == QLatin1String(d.nombre))
            return &d;
    return nullptr;
}

Moneda numero(const QString& texto, const QString& dato) {
    if (const auto m = Moneda::intente(texto))
        return *m;
    throw ErrorDatos(
        QStringLiteral("'%1' no es un valor numérico válido, y el formato imprime %2 como número.")
            .arg(texto, dato));
}

} // namespace

InterpreteFormato::InterpreteFormato(const TablasFormato& tablas, ConjuntoDatos& CComproba,
                                     const QString& id)
    : t_(tablas), comprobante_(CComproba), id_(id) {
    const QSizeF hoja = hoja_de_impresora();
    papel_.nombre = QStringLiteral("impresora");
    papel_.ancho = hoja.width();
    papel_.alto = hoja.height();
    papel_.margen_x = papel_.margen_y = 0;
    escala_x = cuatro_decimales(hoja.width() * kPorMilimetro / kAnchoRejilla);
    escala_y = cuatro_decimales(hoja.height() * kPorMilimetro / kAltoRejilla);
}

void InterpreteFormato::imprima(Hojas& hojas) {
    if (t_.CFormato.FieldByName("FORM_PAGINAS").texto() == QLatin1String("S") &&
        t_.CFormato.FieldByName("FORM_NROITEMS").entero() < 1)
        throw ErrorDatos(
            QStringLiteral("El formato de impresión %1 permite varias páginas y no dice cuántos "
                           "items caben en cada una: digite \"Número de repeticiones items:\".")
                .arg(t_.CFormato.FieldByName("PREF_PRE").texto()));
    hojas_ = &hojas;
    pagina = 1;
    linea = 0;
    hojas.comience_pagina(papel_);
    comprobante_.First();
    imprime_encabezado(false);
    imprime_detalle();
    imprime_encabezado(true);
    hojas.termine_pagina();
}

void InterpreteFormato::pagina_nueva() {
    hojas_->termine_pagina();
    hojas_->comience_pagina(papel_);
}

bool InterpreteFormato::toma(ConjuntoDatos& elementos, const char* prefijo, bool final) const {
    return (elementos.FieldByName(QLatin1String(prefijo) + QLatin1String("_LIQUIDA")).texto() ==
            QLatin1String("S")) == final;
}

void InterpreteFormato::letra_de(ConjuntoDatos& elementos, const char* prefijo) {
    const QString base = QLatin1String(prefijo);
    const Valor familia = elementos.FieldByName(base + QLatin1String("_FONT")).valor();
    const Valor cuerpo = elementos.FieldByName(base + QLatin1String("_FSIZE")).valor();
    constexpr qreal kCuerpoPorOmision = 9;
    letra_.letra =
        familia.texto().isEmpty() ? t_.CFormato.FieldByName("FORM_FONT").texto() : familia.texto();
    letra_.cuerpo = qreal(cuerpo.entero() > 0 ? cuerpo.entero()
                                              : t_.CFormato.FieldByName("FORM_FSIZE").entero());
    if (letra_.cuerpo <= 0)
        letra_.cuerpo = kCuerpoPorOmision;
}

QPointF InterpreteFormato::punto(qreal x, qreal y) const {
    return QPointF(x * escala_x, y * escala_y) / kPorMilimetro;
}

// ---------------------------------------------------------------- encabezado y cierre

void InterpreteFormato::imprime_encabezado(bool final) {
    const qreal baja = qreal(t_.CFormato.FieldByName("FORM_ENTRELINEA").entero()) * linea;
    ConjuntoDatos& l = t_.CFormlineas;
    for (const bool textos : {false, true})
        for (l.First(); !l.Eof(); l.Next()) {
            const bool es_texto = l.FieldByName("FOLI_TIPO").texto() == QLatin1String("T");
            if (es_texto != textos || !toma(l, "FOLI", final))
                continue;
            const qreal x = qreal(l.FieldByName("FOLI_POSX").entero());
            const qreal y = qreal(l.FieldByName("FOLI_POSY").entero()) + baja;
            if (es_texto) {
                letra_de(l, "FOLI");
                texto_en(l.FieldByName("FOLI_CADENA").texto(), x, y, false);
                continue;
            }
            const QPointF desde = punto(x, y);
            const QPointF hasta = punto(x + qreal(l.FieldByName("FOLI_X").entero()),
                                        y + qreal(l.FieldByName("FOLI_Y").entero()));
            const QString tipo = l.FieldByName("FOLI_TIPO").texto();
            if (tipo == QLatin1String("L"))
                hojas_->linea(desde, hasta, kTrazo);
            else if (tipo == QLatin1String("C"))
                hojas_->caja(QRectF(desde, hasta).normalized(), kTrazo);
            else if (tipo == QLatin1String("G"))
                imagen(l.FieldByName("FOLI_IMAGEN").valor().binario(),
                       QRectF(desde, hasta).normalized(), graficos_a_su_tamano);
        }
    ConjuntoDatos& d = t_.CFormdatos;
    for (d.First(); !d.Eof(); d.Next()) {
        if (d.FieldByName("DAFO_IMPRIME").texto() != QLatin1String("S") ||
            d.FieldByName("DAFO_REPITE").texto() != QLatin1String("N") || !toma(d, "DAFO", final))
            continue;
        const bool sigue = d.FieldByName("DAFO_POSYVAR").texto() == QLatin1String("S");
        letra_de(d, "DAFO");
        imprima_dato_encabezado(qreal(d.FieldByName("DAFO_POSX").entero()),
                                qreal(d.FieldByName("DAFO_POSY").entero()) + (sigue ? baja : 0));
    }
}

void InterpreteFormato::imprima_dato_encabezado(qreal x, qreal y) {
    ConjuntoDatos& d = t_.CFormdatos;
    const QString nombre = d.FieldByName("DAFO_DATO").texto();
    const DatoFormato* dato = dato_llamado(nombre, false);
    if (!dato)
        return;
    if (dato->clase == ClaseDatoFormato::Imagen) {
        const qreal lado = qreal(d.FieldByName("DAFO_LONG").entero());
        imagen(fdm().datos_compania.logo, QRectF(punto(x, y), punto(x + lado, y + lado)), false);
    } else if (nombre == QLatin1String("NUMERO PAGINA")) {
        imprima_cadena(QString::number(pagina), x, y);
    } else if (nombre.endsWith(QLatin1String(" REGISTRO"))) {
        const QString valor = registro(nombre.startsWith(QLatin1String("FECHA"))  ? "audi_fecha"
                                       : nombre.startsWith(QLatin1String("HORA")) ? "audi_HORA"
                                                                                  : "audi_usuario");
        if (!valor.isEmpty())
            imprima_cadena(valor, x, y);
    } else {
        const QString texto = lecturas().value(nombre)(comprobante_);
        if (dato->clase == ClaseDatoFormato::Texto)
            imprima_cadena(texto, x, y);
        else
            imprima_numero(d.FieldByName("DAFO_FORMATO").texto(), texto,
                           dato->clase == ClaseDatoFormato::Pesos, x, y);
    }
}

QString InterpreteFormato::registro(const char* columna) const {
    return fdm()
        .CBorrar
        .valor_unico(QStringLiteral("select ") + QLatin1String(columna) +
                     QStringLiteral(" from auditoria where tido_cod = 1 and audi_oper = 'I' and "
                                    "audi_iddoc = ") +
                     id_ + QStringLiteral(" order by audi_id desc"))
        .texto();
}

// ---------------------------------------------------------------- detalle

void InterpreteFormato::imprime_detalle() {
    ConjuntoDatos& d = t_.CFormdatos;
    const qint64 caben = t_.CFormato.FieldByName("FORM_NROITEMS").entero();
    const bool varias = t_.CFormato.FieldByName("FORM_PAGINAS").texto() == QLatin1String("S");
    const qreal alto = qreal(t_.CFormato.FieldByName("FORM_ENTRELINEA").entero());
    linea = 0;
    for (comprobante_.First(); !comprobante_.Eof(); comprobante_.Next()) {
        if (linea >= caben) {
            // Sin varias páginas, lo que no cabe se pierde: así lo pide el formato.
            if (!varias)
                continue;
            imprima_paso("TOTAL DEBITOS");
            imprima_paso("TOTAL CREDITOS");
            pagina_nueva();
            ++pagina;
            linea = 0;
            imprime_encabezado(false);
        }
        for (d.First(); !d.Eof(); d.Next()) {
            if (d.FieldByName("DAFO_IMPRIME").texto() != QLatin1String("S") ||
                d.FieldByName("DAFO_REPITE").texto() != QLatin1String("S") ||
                d.FieldByName("DAFO_LIQUIDA").texto() == QLatin1String("S"))
                continue;
            letra_de(d, "DAFO");
            imprima_dato_detalle(qreal(d.FieldByName("DAFO_POSX").entero()),
                                 qreal(d.FieldByName("DAFO_POSY").entero()) + alto * linea);
        }
        ++linea;
    }
}

void InterpreteFormato::imprima_dato_detalle(qreal x, qreal y) {
    ConjuntoDatos& d = t_.CFormdatos;
    const QString nombre = d.FieldByName("DAFO_DATO").texto();
    const DatoFormato* dato = dato_llamado(nombre, true);
    if (!dato)
        return;
    const QString texto = lecturas().value(nombre)(comprobante_);
    if (dato->clase == ClaseDatoFormato::Texto)
        imprima_cadena(texto, x, y);
    else
        imprima_numero(d.FieldByName("DAFO_FORMATO").texto(), texto, false, x, y);
}

void InterpreteFormato::imprima_paso(const char* dato) {
    ConjuntoDatos& d = t_.CFormdatos;
    if (!d.Locate("DAFO_DATO", {dato}))
        return;
    letra_de(d, "DAFO");
    imprima_cadena(QStringLiteral("PASAN"),
                   qreal(d.FieldByName("DAFO_POSX").entero()) - kCorrimientoPasan,
                   qreal(d.FieldByName("DAFO_POSY").entero()));
}

// ---------------------------------------------------------------- trazos

void InterpreteFormato::imprima_cadena(const QString& texto, qreal x, qreal y) {
    const qint64 largo = t_.CFormdatos.FieldByName("DAFO_LONG").entero();
    const qint64 desde = qMax<qint64>(1, t_.CFormdatos.FieldByName("DAFO_INI").entero());
    texto_en(largo > 0 ? texto.mid(desde - 1, largo) : texto, x, y, false);
}

void InterpreteFormato::imprima_numero(const QString& formato, const QString& texto, bool moneda,
                                       qreal x, qreal y) {
    if (texto.isEmpty())
        return;
    bool bien = false;
    int decimales = formato.toInt(&bien);
    if (!bien)
        decimales = 2;
    const QString cifras = numero(texto, t_.CFormdatos.FieldByName("DAFO_DATO").texto())
                               .formateada(qBound(0, decimales, Moneda::kDecimales));
    texto_en(moneda ? QLatin1Char('$') + cifras : cifras, x, y, true);
}

void InterpreteFormato::texto_en(const QString& texto, qreal x, qreal y, bool a_la_derecha) {
    const qreal ancho =
        QFontMetricsF(informes::letra_de(letra_)).horizontalAdvance(texto) / kPorMilimetro;
    const QPointF donde = punto(x, y) - QPointF(a_la_derecha ? ancho : 0, 0);
    hojas_->texto(QRectF(donde, QSizeF(ancho, 0)), texto, hojas_->estilo(letra_),
                  a_la_derecha ? Lado::Derecha : Lado::Izquierda);
}

void InterpreteFormato::imagen(const QByteArray& bytes, const QRectF& lugar, bool a_su_tamano) {
    const QImage dibujo = QImage::fromData(bytes);
    if (dibujo.isNull())
        return;
    hojas_->imagen(
        a_su_tamano ? QRectF(lugar.topLeft(), QSizeF(dibujo.size()) / kPixelesPorMilimetro) : lugar,
        hojas_->imagen(dibujo));
}
