#include "vouchers/interprete_formato.h"

#include "sesion/tfdm.h"
#include "toolkit/informes/dibujante.h"
#include "vouchers/datos_formato.h"

#include <QSize>
#include <functional>

using namespace informes;

namespace {

constexpr QSize kRejilla(2000, 1500);
constexpr int kCorrimientoPasan = 100; // unidades a la izquierda del total

/// De una sesión con agencia, el dato de la agencia; si no, el de la compañía.
QString de_la_agencia(const QString& compania, const QString& agencia) {
    return fdm().sucursal_usuario == 0 ? compania : agencia;
}

using Lectura = std::function<QString(ConjuntoDatos&)>;

/// Los datos que no son una columna de la consulta. La página, el registro y el logo salen del
/// intérprete.
const QHash<QString, Lectura>& calculados() {
    static const QHash<QString, Lectura> tabla{
        {"TOTAL DEBITOS", [](ConjuntoDatos& c) { return c.agregado("SumDb").texto(); }},
        {"TOTAL CREDITOS", [](ConjuntoDatos& c) { return c.agregado("SumCr").texto(); }},
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
    };
    return tabla;
}

QString lea(const DatoFormato& dato, ConjuntoDatos& c) {
    return dato.columna ? c.FieldByName(QLatin1String(dato.columna)).texto()
                        : calculados()[QLatin1String(dato.nombre)](c);
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
    : t_(tablas), comprobante_(CComproba), id_(id) {}

void InterpreteFormato::imprima(Hojas& hojas) {
    if (t_.CFormato.FieldByName("FORM_PAGINAS").texto() == QLatin1String("S") &&
        t_.CFormato.FieldByName("FORM_NROITEMS").entero() < 1)
        throw ErrorDatos(
            QStringLiteral("El formato de impresión %1 permite varias páginas y no dice cuántos "
                           "ítems caben en cada una: digite \"Número de repeticiones items:\".")
                .arg(t_.CFormato.FieldByName("PREF_PRE").texto()));
    // La hoja se toma ahora: es la que se escogió en las opciones de esta impresión.
    pintor_.emplace(hojas, papel_de_impresora(), kRejilla);
    pagina = 1;
    linea = 0;
    pintor_->comience_hoja();
    comprobante_.First();
    imprime_encabezado(false);
    imprime_detalle();
    imprime_encabezado(true);
    pintor_->termine_hoja();
}

void InterpreteFormato::pagina_nueva() {
    pintor_->termine_hoja();
    pintor_->comience_hoja();
}

bool InterpreteFormato::toma(ConjuntoDatos& elementos, const char* prefijo, bool final) const {
    return (elementos.FieldByName(QLatin1String(prefijo) + QLatin1String("_LIQUIDA")).texto() ==
            QLatin1String("S")) == final;
}

void InterpreteFormato::letra_de(ConjuntoDatos& elementos, const char* prefijo) {
    const QString base = QLatin1String(prefijo);
    const QString familia = elementos.FieldByName(base + QLatin1String("_FONT")).texto();
    const qint64 cuerpo = elementos.FieldByName(base + QLatin1String("_FSIZE")).entero();
    pintor_->letra(familia.isEmpty() ? t_.CFormato.FieldByName("FORM_FONT").texto() : familia,
                   cuerpo > 0 ? cuerpo : t_.CFormato.FieldByName("FORM_FSIZE").entero());
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
                pintor_->cadena(l.FieldByName("FOLI_CADENA").texto(), x, y);
            } else {
                dibuje(l, x, y);
            }
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
        pintor_->imagen(fdm().datos_compania.logo, x, y, lado, lado);
    } else if (nombre == QLatin1String("NUMERO PAGINA")) {
        imprima_cadena(QString::number(pagina), x, y);
    } else if (nombre.endsWith(QLatin1String(" REGISTRO"))) {
        const QString valor = registro(nombre.startsWith(QLatin1String("FECHA"))  ? "audi_fecha"
                                       : nombre.startsWith(QLatin1String("HORA")) ? "audi_HORA"
                                                                                  : "audi_usuario");
        if (!valor.isEmpty())
            imprima_cadena(valor, x, y);
    } else {
        const QString texto = lea(*dato, comprobante_);
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
    const QString texto = lea(*dato, comprobante_);
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
    const ConjuntoDatos& d = t_.CFormdatos;
    pintor_->cadena(texto, x, y, d.FieldByName("DAFO_INI").entero(),
                    d.FieldByName("DAFO_LONG").entero());
}

void InterpreteFormato::imprima_numero(const QString& formato, const QString& texto, bool moneda,
                                       qreal x, qreal y) {
    if (texto.isEmpty())
        return;
    bool bien = false;
    const int decimales = formato.toInt(&bien);
    pintor_->numero(numero(texto, t_.CFormdatos.FieldByName("DAFO_DATO").texto()),
                    bien ? decimales : 2, moneda, x, y);
}

void InterpreteFormato::dibuje(ConjuntoDatos& l, qreal x, qreal y) {
    const qreal dx = qreal(l.FieldByName("FOLI_X").entero());
    const qreal dy = qreal(l.FieldByName("FOLI_Y").entero());
    const QString tipo = l.FieldByName("FOLI_TIPO").texto();
    if (tipo == QLatin1String("L"))
        pintor_->linea(x, y, dx, dy);
    else if (tipo == QLatin1String("C"))
        pintor_->cuadro(x, y, dx, dy);
    else if (tipo == QLatin1String("G") && graficos_a_su_tamano)
        pintor_->imagen_a_su_tamano(l.FieldByName("FOLI_IMAGEN").valor().binario(), x, y);
    else if (tipo == QLatin1String("G"))
        pintor_->imagen(l.FieldByName("FOLI_IMAGEN").valor().binario(), x, y, dx, dy);
}
