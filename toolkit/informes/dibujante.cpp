#include "toolkit/informes/dibujante.h"

#include "libro/letras.h"
#include "toolkit/informes/texto_rico.h"

#include <QScopedValueRollback>

namespace informes {

namespace {
constexpr double kEntreRayas = 0.7; // mm entre las dos de una línea doble
constexpr double kHolgura = 0.01;   // mm que no se ven
constexpr double kCasiCabe = 0.85;
const QString kContinua = QStringLiteral(" (continuación)");

Trazo raya(QRectF lugar, float grosor) {
    return {Trazo::Linea, lugar, 0, Lado::Izquierda, grosor, {}};
}
} // namespace

QString fecha_legible(const QString& texto) {
    if (texto.size() != 8)
        return texto;
    return texto.left(4) + QLatin1Char('/') + texto.mid(4, 2) + QLatin1Char('/') + texto.mid(6);
}

QString fecha_larga(const QString& aaaammdd) {
    static const QStringList meses{"enero",     "febrero",   "marzo",   "abril",      "mayo",
                                   "junio",     "julio",     "agosto",  "septiembre", "octubre",
                                   "noviembre", "diciembre", "ajustes", "cierre"};
    const int mes = aaaammdd.mid(4, 2).toInt();
    if (aaaammdd.size() != 8 || mes < 1 || mes > meses.size())
        return aaaammdd;
    return QStringLiteral("%1 de %2 de %3")
        .arg(aaaammdd.mid(6).toInt())
        .arg(meses[mes - 1], aaaammdd.left(4));
}

Dibujante::Dibujante(const Proyecto& proyecto, const Papel& papel, const Variables& variables,
                     DatosReporte& datos, Hojas& hojas)
    : proyecto_(proyecto), papel_(papel), variables_(variables), datos_(datos), hojas_(hojas) {
    for (const Estilo& e : proyecto_.estilos)
        estilos_ << hojas_.estilo(e);
}

const Letra& Dibujante::letra(int estilo) {
    return hojas_.letra(estilos_[estilo]);
}

// ---------------------------------------------------------------- bandas

bool Dibujante::visible(const Banda& banda) {
    const bool antes = std::exchange(datos_.en_detalle, banda.tipo == TipoBanda::Detalle);
    const bool si = (banda.si.vacia() || banda.si.cierta(datos_)) && !vista_de(banda.aspecto).omite;
    datos_.en_detalle = antes;
    return si;
}

Dibujante::Vista Dibujante::vista_de(int aspecto) const {
    Vista v;
    if (aspecto < 0)
        return v;
    for (const ReglaAspecto& r : datos_.aspecto(aspecto)) {
        if (!r.si.vacia() && !r.si.cierta(datos_))
            continue;
        v.estilo = r.estilo;
        v.antes = r.antes;
        v.relleno = r.relleno;
        v.omite = r.omite;
        v.sangria = medida(r.sangria);
        break;
    }
    return v;
}

double Dibujante::medida(const Formula& formula) const {
    if (formula.vacia())
        return 0;
    const Cifra c = formula.evalue(datos_);
    return double(c.numero.redondeado(Moneda::kDecimales).unidades()) / double(Moneda::kEscala);
}

BloqueHoja Dibujante::componga(const Banda& banda, bool sigue) {
    const Vista vista = vista_de(banda.aspecto);
    BloqueHoja b;
    b.alto = b.base = banda.alto;
    b.antes = vista.antes;
    b.superpuesta = banda.alto == 0;
    b.junta = banda.junta;
    b.acompanada = banda.acompanada;
    b.corta = banda.corta;
    b.escalon = int(medida(banda.escalon));
    const QScopedValueRollback<bool> repetida(datos_.sigue, sigue);
    for (const Item& i : banda.items)
        item(b, banda, i, vista);
    estire_cajas(b, banda, vista);
    return b;
}

void Dibujante::item(BloqueHoja& bloque, const Banda& banda, const Item& i, const Vista& de_banda) {
    // Una fila que se anuncia otra vez no repite sus cifras: se leerían dos veces.
    if (datos_.sigue && banda.tipo == TipoBanda::Detalle && i.clase == Item::Dato)
        return;
    if (!i.si.vacia() && !i.si.cierta(datos_))
        return;
    const Vista propia = vista_de(i.aspecto);
    if (propia.omite)
        return;
    const int estilo = propia.estilo >= 0                         ? propia.estilo
                       : !i.estilo_propio && de_banda.estilo >= 0 ? de_banda.estilo
                                                                  : i.estilo;
    const double entra = i.sangra ? de_banda.sangria + propia.sangria : 0;
    const QRectF lugar(i.x + entra, i.y, i.ancho - entra, i.alto);
    switch (i.clase) {
    case Item::Linea:
        return linea(bloque, i, lugar);
    case Item::Caja:
        bloque.trazos << Trazo{Trazo::Caja, lugar, 0, Lado::Izquierda, float(i.grosor), i.relleno};
        return;
    case Item::Imagen:
        return imagen(bloque, i, lugar);
    case Item::Rico:
        return rico(bloque, i, lugar, estilo);
    default:
        return escriba(bloque, banda, i, lugar, estilo);
    }
}

void Dibujante::linea(BloqueHoja& bloque, const Item& i, QRectF lugar) {
    bloque.trazos << raya(lugar, float(i.grosor));
    if (!i.doble)
        return;
    const bool acostada = lugar.width() >= lugar.height();
    bloque.trazos << raya(lugar.translated(acostada ? 0 : kEntreRayas, acostada ? kEntreRayas : 0),
                          float(i.grosor));
}

void Dibujante::imagen(BloqueHoja& bloque, const Item& i, QRectF lugar) {
    int numero = -1;
    if (const Formula::Nodo* c = i.formula.columna_sola()) {
        const QByteArray bytes = datos_.columna(c->fuente, c->columna).binario();
        numero = bytes.isEmpty() ? -1 : hojas_.imagen(bytes);
    } else if (const QImage propia = variables_.imagenes.value(i.pedazos.first().texto);
               !propia.isNull()) {
        numero = hojas_.imagen(propia);
    }
    if (numero < 0)
        return;
    const QSizeF cabe =
        QSizeF(hojas_.tamano_imagen(numero)).scaled(lugar.size(), Qt::KeepAspectRatio);
    bloque.trazos << Trazo{
        Trazo::Imagen, QRectF(lugar.topLeft(), cabe), quint16(numero), Lado::Izquierda, 0, {}};
}

void Dibujante::rico(BloqueHoja& bloque, const Item& i, QRectF lugar, int estilo) {
    const TextoRico texto = reparta_rico(i.formula.evalue(datos_).como_texto(), lugar.width(),
                                         proyecto_.estilos[estilo], hojas_);
    for (Trazo t : texto.trazos) {
        t.lugar.translate(lugar.topLeft());
        bloque.trazos << t;
    }
    for (const auto& [desde, hasta] : texto.indivisibles)
        bloque.indivisibles << std::pair{lugar.y() + desde, lugar.y() + hasta};
    bloque.alto = qMax(bloque.alto, bloque.base + texto.alto - i.alto);
    bloque.corta = true;
}

void Dibujante::escriba(BloqueHoja& bloque, const Banda& banda, const Item& i, QRectF lugar,
                        int estilo) {
    QString texto = texto_de(banda, i);
    bool callado = false;
    if (!i.repetido) {
        QString& ultimo = ultimos_[&i];
        callado = ultimo == texto;
        ultimo = texto;
    }
    if (texto.isEmpty())
        return;
    // Un número no se recorta nunca: el que no cabe se achica al pintarlo. Un texto se achica lo
    // que deja leerlo, y solo entonces se recorta.
    const double achique = i.numero() ? 1 : letra(estilo).achique(texto, lugar.width());
    // Lo que se anuncia otra vez ya salió entero; y por una palabra no se abre otro renglón.
    const bool casi_cabe =
        achique < 1 && achique >= kCasiCabe && !texto.contains(QLatin1Char('\n'));
    if (i.parte && !datos_.sigue && !casi_cabe)
        return parta(bloque, i, lugar, estilo, texto);
    if (achique < 1)
        texto = acorte(texto, lugar.width() / achique + kHolgura, estilo);
    else if (i.numero() && i.parentesis && i.lado == Lado::Derecha &&
             !texto.endsWith(QLatin1Char(')')))
        lugar.setWidth(lugar.width() - letra(estilo).ancho(QStringLiteral(")")));
    (callado ? bloque.callados : bloque.trazos) << Trazo{
        Trazo::Texto, lugar, quint16(estilos_[estilo]), i.lado, achique < 1 ? float(achique) : 0,
        texto};
}

QString Dibujante::acorte(const QString& texto, double ancho, int estilo) {
    const Letra& l = letra(estilo);
    if (!texto.endsWith(kContinua))
        return l.acorte(texto, ancho);
    // Lo que se corta es el nombre, no el aviso de que sigue.
    return l.acorte(texto.chopped(kContinua.size()), ancho - l.ancho(kContinua)) + kContinua;
}

void Dibujante::parta(BloqueHoja& bloque, const Item& i, QRectF lugar, int estilo,
                      const QString& texto) {
    const Letra& l = letra(estilo);
    const double renglon = l.alto_renglon();
    double y = lugar.y() + qMax(0.0, i.alto - renglon) / 2; // a la altura de sus vecinos
    for (const QString& r : l.renglones(texto, lugar.width())) {
        bloque.trazos << Trazo{Trazo::Texto,
                               QRectF(lugar.x(), y, lugar.width(), renglon),
                               quint16(estilos_[estilo]),
                               i.lado,
                               0,
                               r};
        y += renglon;
    }
    bloque.alto = qMax(bloque.alto, bloque.base + y - lugar.y() - i.alto);
}

void Dibujante::estire_cajas(BloqueHoja& bloque, const Banda& banda, const Vista& vista) {
    const double crece = bloque.alto - bloque.base;
    if (crece > 0)
        for (Trazo& t : bloque.trazos)
            if (t.clase == Trazo::Caja)
                t.lugar.setHeight(t.lugar.height() + crece);
    if (!vista.relleno.isEmpty())
        bloque.trazos.prepend({Trazo::Caja,
                               QRectF(0, 0, papel_.ancho - 2 * papel_.margen_x, bloque.alto), 0,
                               Lado::Izquierda, 0, vista.relleno});
}

// ---------------------------------------------------------------- sumas que se saben después

void Dibujante::resuelva(int nivel) {
    for (qsizetype i = 0; i < pendientes_.size();) {
        if (pendientes_[i].nivel != nivel) {
            ++i;
            continue;
        }
        const Pendiente p = pendientes_.takeAt(i);
        datos_.fila_guardada = &p.fila;
        hojas_.resuelva(p.lugar, dato(*p.item));
        datos_.fila_guardada = nullptr;
    }
}

// ---------------------------------------------------------------- textos

QString Dibujante::texto_de(const Banda& banda, const Item& item) {
    if (item.clase == Item::Dato) {
        const bool anuncio = banda.tipo == TipoBanda::Grupo || banda.tipo == TipoBanda::Titulo;
        const bool lleva = datos_.sigue && item.si.mira_si_sigue();
        if (!anuncio || lleva || !item.formula.tiene_sumas())
            return dato(item);
        for (const Pendiente& p : pendientes_)
            if (p.item == &item)
                return p.lugar; // el mismo grupo, anunciado otra vez
        pendientes_ << Pendiente{banda.nivel, &item, hojas_.pendiente(), datos_.fila()};
        return pendientes_.last().lugar;
    }
    QString texto;
    for (const Pedazo& p : item.pedazos)
        texto += pieza(p, item);
    return texto;
}

QString Dibujante::pieza(const Pedazo& pedazo, const Item& item) const {
    switch (pedazo.clase) {
    case Pedazo::Columna: {
        const QString valor = formatee(datos_.columna(pedazo.fuente, pedazo.columna), item);
        return valor.isEmpty() ? pedazo.si_falta : valor;
    }
    case Pedazo::Variable:
        return variables_.textos.value(pedazo.texto);
    case Pedazo::Especial:
        return especial(pedazo.texto);
    default:
        return pedazo.texto;
    }
}

QString Dibujante::especial(const QString& nombre) const {
    if (nombre == QLatin1String("pagina"))
        return QString::number(hojas_.pagina_del_documento());
    if (nombre == QLatin1String("paginas"))
        return kTotalPaginas;
    if (nombre == QLatin1String("fecha"))
        return variables_.ahora.toString(QStringLiteral("yyyy/MM/dd"));
    if (nombre == QLatin1String("fecha_larga"))
        return fecha_larga(variables_.ahora.toString(QStringLiteral("yyyyMMdd")));
    if (nombre == QLatin1String("hora"))
        return variables_.ahora.toString(QStringLiteral("HH:mm"));
    return datos_.sigue ? kContinua : QString();
}

QString Dibujante::dato(const Item& item) const {
    if (const Formula::Nodo* c = item.formula.columna_sola())
        return formatee(datos_.columna(c->fuente, c->columna), item);
    try {
        const Cifra c = item.formula.evalue(datos_);
        if (c.clase == Cifra::Texto)
            return formatee(Valor(c.texto), item);
        return c.clase == Cifra::Numero ? cifra(c.numero, item) : QString();
    } catch (const ErrorMoneda&) {
        if (item.formato == Formato::Porcentaje) // contra una base de centavos no dice nada
            return {};
        throw ErrorInforme(QStringLiteral("La fórmula \"%1\" del informe da una cifra que no cabe.")
                               .arg(item.formula.texto));
    }
}

QString Dibujante::formatee(const Valor& valor, const Item& item) const {
    switch (item.formato) {
    case Formato::Texto:
        return valor.texto();
    case Formato::Fecha:
    case Formato::FechaLarga: {
        const QString dia = std::holds_alternative<QDate>(valor.dato())
                                ? valor.fecha().toString(QStringLiteral("yyyyMMdd"))
                                : valor.texto();
        return item.formato == Formato::Fecha ? fecha_legible(dia) : fecha_larga(dia);
    }
    default:
        return valor.nulo() ? QString() : cifra(Racional(valor.moneda()), item);
    }
}

QString Dibujante::cifra(Racional valor, const Item& item) const {
    if (item.oculta_cero && valor.es_cero())
        return {};
    const bool porcentaje = item.formato == Formato::Porcentaje && item.decimales < 0;
    const int decimales = item.decimales >= 0               ? item.decimales
                          : item.formato == Formato::Entero ? 0
                          : porcentaje && valor.redondeado(2) != valor.redondeado(4) ? 4
                                                                                     : 2;
    const Moneda m =
        valor.redondeado(item.formato == Formato::Texto ? Moneda::kDecimales : decimales);
    if (item.formato == Formato::Letras)
        return importe_en_letras(m, variables_.moneda, variables_.fraccion,
                                 variables_.final_letras);
    if (item.formato == Formato::Texto || (porcentaje && decimales == 4))
        return m.texto();
    if (item.parentesis && m.negativa())
        return QLatin1Char('(') + m.absoluta().formateada(decimales) + QLatin1Char(')');
    return m.formateada(decimales);
}

} // namespace informes
