#include "toolkit/informes/compositor.h"

#include <QFileInfo>

namespace informes {

namespace {

bool vacio(const Valor& valor) {
    if (valor.nulo())
        return true;
    if (std::holds_alternative<QString>(valor.dato()))
        return valor.texto().isEmpty();
    if (std::holds_alternative<qint64>(valor.dato()) ||
        std::holds_alternative<Moneda>(valor.dato()))
        return valor.moneda().es_cero();
    return false;
}

/// "20170331" como "2017/03/31"; lo que no sea una fecha de ocho cifras queda como está.
QString fecha_legible(const QString& texto) {
    if (texto.size() != 8)
        return texto;
    return texto.left(4) + QLatin1Char('/') + texto.mid(4, 2) + QLatin1Char('/') + texto.mid(6);
}

} // namespace

Compositor::Compositor(const Proyecto& proyecto, const Reporte& reporte, const Variables& variables,
                       DatosInforme& datos, Hojas& hojas)
    : proyecto_(proyecto), reporte_(reporte), variables_(variables), datos_(datos), hojas_(hojas) {
    for (const Estilo& e : proyecto_.estilos)
        estilos_ << hojas_.estilo(e);
    for (Banda& b : reporte_.bandas)
        if (!b.omitida)
            ate(b);
    fila_.resize(usadas_.size());
    previa_.resize(usadas_.size());
}

void Compositor::falle(int renglon, const QString& que) const {
    throw ErrorInforme(QStringLiteral("La plantilla de informes \"%1\", línea %2: %3.")
                           .arg(QFileInfo(proyecto_.ruta).fileName())
                           .arg(renglon)
                           .arg(que));
}

int Compositor::columna(const QString& nombre, int renglon) {
    const QString clave = nombre.toUpper();
    const auto i = por_nombre_.constFind(clave);
    if (i != por_nombre_.constEnd())
        return *i;
    const int en_datos = datos_.columna(clave);
    if (en_datos < 0)
        falle(renglon, QStringLiteral("la conexión %1 no tiene la columna \"%2\"")
                           .arg(reporte_.conexion, nombre));
    usadas_ << en_datos;
    por_nombre_.insert(clave, int(usadas_.size()) - 1);
    return int(usadas_.size()) - 1;
}

int Compositor::acumulado(int nivel, int columna) {
    for (int i = 0; i < acumulados_.size(); ++i)
        if (acumulados_[i].nivel == nivel && acumulados_[i].columna == columna)
            return i;
    acumulados_ << Acumulado{nivel, columna, Moneda()};
    return int(acumulados_.size()) - 1;
}

void Compositor::ate(Banda& banda) {
    for (const QString& c : banda.columnas)
        banda.indices << columna(c, banda.renglon);
    if (!banda.si.isEmpty())
        banda.indice_si = columna(
            banda.si.startsWith(QLatin1Char('!')) ? banda.si.mid(1) : banda.si, banda.renglon);
    for (Item& i : banda.items)
        ate(i, banda.nivel);
}

void Compositor::ate(Item& item, int nivel) {
    for (Pedazo& p : item.pedazos)
        if (p.clase == Pedazo::Columna)
            p.columna = columna(p.texto, item.renglon);
        else if (p.clase == Pedazo::Variable && item.clase != Item::Imagen &&
                 !variables_.textos.contains(p.texto))
            falle(item.renglon,
                  QStringLiteral("nadie dio valor a la variable \"%1\"").arg(p.texto));
    for (Sumando& s : item.formula) {
        if (s.clase != Sumando::Cuenta)
            s.columna = columna(s.texto, item.renglon);
        if (s.clase != Sumando::Columna)
            s.acumulado = acumulado(nivel, s.clase == Sumando::Cuenta ? -1 : s.columna);
    }
}

// ---------------------------------------------------------------- filas

bool Compositor::lea_fila(bool primera) {
    if (!(primera ? datos_.primera() : datos_.siguiente()))
        return false;
    std::swap(fila_, previa_);
    for (int i = 0; i < usadas_.size(); ++i)
        fila_[i] = datos_.valor(usadas_[i]);
    return true;
}

int Compositor::nivel_roto() const {
    int nivel = 99;
    for (const Banda& b : reporte_.bandas)
        if (!b.omitida && b.nivel > 0 && b.nivel < nivel)
            for (int c : b.indices)
                if (!(fila_[c] == previa_[c]))
                    nivel = b.nivel;
    return nivel;
}

void Compositor::acumule() {
    for (Acumulado& a : acumulados_)
        a.suma += a.columna < 0 ? Moneda(1) : fila_[a.columna].moneda();
}

bool Compositor::componga(const Avance& avance) {
    avance_ = avance;
    hojas_.comience_documento();
    bool hay = lea_fila(true);
    hoja_nueva(0);
    if (hay)
        abra_grupos(1);
    while (hay && !abandonado_) {
        detalle();
        acumule();
        hay = lea_fila(false);
        if (!hay) {
            previa_ = fila_;
            cierre_grupos(1);
        } else if (const int nivel = nivel_roto(); nivel < 99) {
            cierre_grupos(nivel);
            abra_grupos(nivel);
        }
    }
    if (!abandonado_) {
        imprima_todas(TipoBanda::Final, Mira::Actual);
        termine_hoja();
    }
    return !abandonado_;
}

void Compositor::cierre_grupos(int nivel) {
    // De adentro hacia afuera, en el orden inverso de sus niveles.
    for (int n = 9; n >= nivel; --n) {
        for (const Banda& b : reporte_.bandas)
            if (b.tipo == TipoBanda::Total && b.nivel == n && !b.omitida &&
                condicion(b, Mira::Previa)) {
                if (!cabe(alto_de(b, Mira::Previa))) {
                    // El grupo que se anuncia otra vez es el que termina, no el que sigue.
                    std::swap(fila_, previa_);
                    hoja_nueva(n);
                    std::swap(fila_, previa_);
                }
                imprima(b, Mira::Previa);
            }
        for (Acumulado& a : acumulados_)
            if (a.nivel == n)
                a.suma = Moneda();
    }
}

void Compositor::abra_grupos(int nivel) {
    double alto = 0;
    bool otra_hoja = false, hay = false;
    for (const Banda& b : reporte_.bandas) {
        const bool grupo = b.tipo == TipoBanda::Grupo && b.nivel >= nivel && !b.omitida &&
                           condicion(b, Mira::Actual);
        if (grupo || (b.tipo == TipoBanda::Detalle && !b.omitida))
            alto += alto_de(b, Mira::Actual);
        hay |= grupo;
        otra_hoja |= grupo && b.pagina_nueva && hubo_grupo_;
    }
    ultimo_.clear();
    if (!hay)
        return;
    hubo_grupo_ = true;
    // Un grupo no se anuncia al pie de la hoja sin al menos un renglón suyo.
    if (otra_hoja || !cabe(alto))
        hoja_nueva(nivel - 1);
    for (int n = nivel; n <= 9; ++n)
        for (const Banda& b : reporte_.bandas)
            if (b.tipo == TipoBanda::Grupo && b.nivel == n && !b.omitida &&
                condicion(b, Mira::Actual))
                imprima(b, Mira::Actual);
}

void Compositor::detalle() {
    for (const Banda& b : reporte_.bandas) {
        if (b.tipo != TipoBanda::Detalle || b.omitida || !condicion(b, Mira::Actual))
            continue;
        if (!cabe(alto_de(b, Mira::Actual)))
            hoja_nueva(9);
        en_detalle_ = true;
        imprima(b, Mira::Actual);
        en_detalle_ = false;
    }
}

// ---------------------------------------------------------------- hojas

void Compositor::hoja_nueva(int grupos_hasta) {
    termine_hoja();
    if (avance_ && !avance_(hojas_.paginas() + 1))
        abandonado_ = true; // lo que falte de esta fila se compone en una hoja que nadie verá
    hojas_.comience_pagina(reporte_.papel);
    en_hoja_ = true;
    y_ = reporte_.papel.margen_y;
    fondo_ = reporte_.papel.alto - reporte_.papel.margen_y;
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == TipoBanda::Pie && !b.omitida)
            fondo_ -= b.alto;
    imprima_todas(TipoBanda::Encabezado, Mira::Actual);
    if (primera_hoja_)
        imprima_todas(TipoBanda::Titulo, Mira::Actual);
    imprima_todas(TipoBanda::Columnas, Mira::Actual);
    primera_hoja_ = false;
    ultimo_.clear();
    for (int n = 1; n <= grupos_hasta; ++n)
        for (const Banda& b : reporte_.bandas)
            if (b.tipo == TipoBanda::Grupo && b.nivel == n && b.repite && !b.omitida &&
                condicion(b, Mira::Actual))
                imprima(b, Mira::Actual, true);
}

void Compositor::termine_hoja() {
    if (!en_hoja_)
        return;
    y_ = fondo_;
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == TipoBanda::Pie && !b.omitida)
            imprima(b, Mira::Actual);
    hojas_.termine_pagina();
    en_hoja_ = false;
}

void Compositor::imprima_todas(TipoBanda tipo, Mira mira) {
    for (const Banda& b : reporte_.bandas)
        if (b.tipo == tipo && !b.omitida && condicion(b, mira)) {
            if (tipo == TipoBanda::Final && !cabe(alto_de(b, mira)))
                hoja_nueva(0);
            imprima(b, mira);
        }
}

void Compositor::imprima(const Banda& banda, Mira mira, bool sigue) {
    const double izquierda = reporte_.papel.margen_x;
    const double alto = alto_de(banda, mira);
    for (const Item& i : banda.items) {
        const QRectF lugar(izquierda + i.x, y_ + i.y, i.ancho, i.alto);
        switch (i.clase) {
        case Item::Linea:
            hojas_.linea(lugar.topLeft(), lugar.topLeft() + QPointF(i.ancho, i.alto), i.grosor);
            break;
        case Item::Caja:
            hojas_.caja(QRectF(lugar.topLeft(), QSizeF(i.ancho, i.alto + alto - banda.alto)),
                        i.grosor, i.relleno);
            break;
        case Item::Imagen: {
            const QImage imagen = variables_.imagenes.value(i.pedazos.first().texto);
            if (!imagen.isNull()) {
                const QSizeF cabe = QSizeF(imagen.size()).scaled(lugar.size(), Qt::KeepAspectRatio);
                hojas_.imagen(QRectF(lugar.topLeft(), cabe), hojas_.imagen(imagen));
            }
            break;
        }
        default: {
            QString texto = texto_de(i, mira, sigue);
            if (!i.repetido) {
                QString& ultimo = ultimo_[&i];
                if (ultimo == texto)
                    continue;
                ultimo = texto;
            }
            const bool numero = i.formato == Formato::Importe || i.formato == Formato::Entero ||
                                i.formato == Formato::Porcentaje;
            // Un número no se recorta nunca: sobresale hacia la izquierda.
            if (!i.parte && !numero)
                texto = ajuste(texto, i.estilo, i.ancho);
            hojas_.texto(i.parte
                             ? QRectF(lugar.topLeft(), QSizeF(i.ancho, i.alto + alto - banda.alto))
                             : lugar,
                         texto, estilos_[i.estilo], i.lado, i.parte);
        }
        }
    }
    y_ += alto;
}

double Compositor::alto_de(const Banda& banda, Mira mira) {
    double crece = 0;
    for (const Item& i : banda.items)
        if (i.parte) {
            const QRectF ocupa = medidas(i.estilo).boundingRect(
                QRectF(0, 0, i.ancho * kPorMilimetro, 1e6), Qt::AlignTop | Qt::TextWordWrap,
                texto_de(i, mira, false));
            crece = qMax(crece, ocupa.height() / kPorMilimetro - i.alto);
        }
    return banda.alto + crece;
}

// ---------------------------------------------------------------- textos

const Valor& Compositor::dato(int columna, Mira mira) const {
    return mira == Mira::Actual ? fila_[columna] : previa_[columna];
}

bool Compositor::condicion(const Banda& banda, Mira mira) const {
    if (banda.indice_si < 0)
        return true;
    return vacio(dato(banda.indice_si, mira)) == banda.si.startsWith(QLatin1Char('!'));
}

Moneda Compositor::evalue(const QVector<Sumando>& formula, Mira mira) const {
    Moneda total;
    for (const Sumando& s : formula) {
        Moneda valor = s.clase == Sumando::Columna ? dato(s.columna, mira).moneda()
                                                   : acumulados_[s.acumulado].suma;
        if (en_detalle_ && s.clase != Sumando::Columna) // su fila todavía no se ha acumulado
            valor += s.clase == Sumando::Cuenta ? Moneda(1) : dato(s.columna, mira).moneda();
        total = s.resta ? total - valor : total + valor;
    }
    return total;
}

QString Compositor::formatee(const Valor& valor, const Item& item) const {
    switch (item.formato) {
    case Formato::Texto:
        return valor.texto();
    case Formato::Fecha:
        return std::holds_alternative<QDate>(valor.dato())
                   ? valor.fecha().toString(QStringLiteral("yyyy/MM/dd"))
                   : fecha_legible(valor.texto());
    default:
        break;
    }
    if (valor.nulo() || (item.oculta_cero && valor.moneda().es_cero()))
        return {};
    const Moneda m = valor.moneda();
    if (item.formato == Formato::Entero)
        return m.formateada(0);
    if (item.formato == Formato::Porcentaje && m != m.redondeada(2))
        return m.texto();
    return m.formateada();
}

QString Compositor::texto_de(const Item& item, Mira mira, bool sigue) {
    if (item.clase == Item::Dato) {
        const bool columna_sola = item.formula.size() == 1 && !item.formula.first().resta &&
                                  item.formula.first().clase == Sumando::Columna;
        return formatee(columna_sola ? dato(item.formula.first().columna, mira)
                                     : Valor(evalue(item.formula, mira)),
                        item);
    }
    QString texto;
    for (const Pedazo& p : item.pedazos)
        switch (p.clase) {
        case Pedazo::Literal:
            texto += p.texto;
            break;
        case Pedazo::Columna: {
            const QString valor = formatee(dato(p.columna, mira), item);
            texto += valor.isEmpty() ? p.si_falta : valor;
            break;
        }
        case Pedazo::Variable:
            texto += variables_.textos.value(p.texto);
            break;
        case Pedazo::Especial:
            if (p.texto == QLatin1String("pagina"))
                texto += QString::number(hojas_.pagina_del_documento());
            else if (p.texto == QLatin1String("paginas"))
                texto += kTotalPaginas;
            else if (p.texto == QLatin1String("fecha"))
                texto += variables_.ahora.toString(QStringLiteral("yyyy/MM/dd"));
            else if (p.texto == QLatin1String("hora"))
                texto += variables_.ahora.toString(QStringLiteral("HH:mm"));
            else if (sigue)
                texto += QStringLiteral(" (continuación)");
            break;
        }
    return texto;
}

const QFontMetricsF& Compositor::medidas(int estilo) {
    auto i = medidas_.find(estilo);
    if (i == medidas_.end()) {
        const QFontMetricsF letra(letra_de(proyecto_.estilos[estilo]));
        Medida medida{letra, {}};
        for (int c = 0; c < 256; ++c)
            medida.anchos[size_t(c)] = float(letra.horizontalAdvance(QChar(c)));
        i = medidas_.emplace(estilo, std::move(medida)).first;
    }
    return i->second.letra;
}

QString Compositor::ajuste(const QString& texto, int estilo, double ancho) {
    const QFontMetricsF& letra = medidas(estilo);
    const auto& anchos = medidas_.find(estilo)->second.anchos;
    const double cabe = ancho * kPorMilimetro;
    double suma = 0;
    for (QChar c : texto)
        suma += c.unicode() < 256 ? double(anchos[c.unicode()]) : letra.horizontalAdvance(c);
    return suma <= cabe ? texto : letra.elidedText(texto, Qt::ElideRight, cabe);
}

} // namespace informes
