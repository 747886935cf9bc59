#include "toolkit/rejilla/anchos_rejilla.h"

#include "toolkit/estilo.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/pie_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QScopedValueRollback>
#include <numeric>

namespace {

constexpr int kFilasMedidas = 100;    ///< filas que deciden cuánto pide un texto
constexpr int kFilasCodigo = 2000;    ///< filas en que se busca el código más largo
constexpr int kCaracteresLargo = 24;  ///< desde aquí un texto es un nombre y no un código
constexpr int kCaracteresMinimo = 12; ///< lo que de un nombre siempre se ve
constexpr int kCaracteresTitulo = 4;  ///< y de un título, si no hay más sitio
constexpr int kCaracteresEntero = 70; ///< un nombre; lo más largo es una nota, y se lee en su celda

/// Reparte hasta `libre` en proporción a lo que a cada uno le falta. Devuelve lo que sobra.
int de_lo_que_falta(QVector<int>& anchos, const QVector<int>& faltas, int libre) {
    qint64 total = 0;
    for (const int f : faltas)
        total += f;
    if (total <= 0 || libre <= 0)
        return libre;
    const int tope = int(qMin<qint64>(total, libre));
    int queda = tope;
    qint64 pedido = total;
    for (qsizetype i = 0; i < anchos.size(); ++i) {
        if (faltas[i] <= 0)
            continue;
        const int da = int(qint64(queda) * faltas[i] / pedido);
        anchos[i] += da;
        queda -= da;
        pedido -= faltas[i];
    }
    return libre - tope;
}

int suma(const QVector<int>& pixeles) {
    return std::accumulate(pixeles.begin(), pixeles.end(), 0);
}

/// Un texto sin nada en ninguna fila, también donde se podría digitar: le basta su título.
bool le_basta_su_titulo(const PedidoAncho& p) {
    return p.vacia || (p.peso > 0 && p.entero > 0 && p.entero <= p.titulo);
}

/// Lo que cada columna quiere y lo que da, en el orden en que se pide.
struct Cesiones {
    QVector<int> anchos;
    QVector<int> vacia, nombre; ///< sin cortar su título
    QVector<int> titulo_vacia, titulo;

    explicit Cesiones(const QVector<PedidoAncho>& pedidos) {
        for (const PedidoAncho& p : pedidos) {
            const int ancho = qMax(p.contenido, p.titulo);
            const bool calla = le_basta_su_titulo(p);
            const int cede =
                p.fijo ? 0 : qBound(0, ancho - p.titulo, calla && !p.vacia ? ancho : p.cede);
            const int resto =
                p.fijo ? 0 : qMax(0, ancho - p.contenido + (p.vacia ? p.cede - cede : 0));
            anchos << ancho;
            vacia << (calla ? cede : 0);
            nombre << (calla ? 0 : cede);
            titulo_vacia << (p.vacia ? resto : 0);
            titulo << (p.vacia ? 0 : resto);
        }
    }
    int sin_ceder() const { return suma(anchos) - suma(vacia) - suma(titulo_vacia); }
    int indispensable() const { return sin_ceder() - suma(nombre) - suma(titulo); }
};

} // namespace

QVector<int> reparta_ancho(const QVector<PedidoAncho>& pedidos, int disponible) {
    const Cesiones c(pedidos);
    QVector<int> anchos = c.anchos;
    const int total = suma(anchos);
    if (total > disponible) {
        // Un nombre y un título se pueden leer en su letrero; una cifra, no. Si ni así cabe se
        // desplaza, con las más cifras a la vista y entero el título de lo que dice algo.
        QVector<int> quita(anchos.size(), 0);
        int sobra = de_lo_que_falta(quita, c.vacia, total - disponible);
        sobra = de_lo_que_falta(quita, c.nombre, sobra);
        const bool cabe = c.indispensable() <= disponible;
        if (cabe || std::any_of(pedidos.begin(), pedidos.end(),
                                [](const PedidoAncho& p) { return !p.vacia && !p.fijo; }))
            sobra = de_lo_que_falta(quita, c.titulo_vacia, sobra);
        if (cabe)
            de_lo_que_falta(quita, c.titulo, sobra);
        else // de todos modos se desplaza: que se lea de qué es cada fila
            for (qsizetype i = 0; i < anchos.size(); ++i)
                if (c.nombre[i] > 0)
                    quita[i] = qMin(quita[i], anchos[i] - qMin(pedidos[i].entero, disponible / 5));
        for (qsizetype i = 0; i < anchos.size(); ++i)
            anchos[i] -= quita[i];
        return anchos;
    }
    QVector<int> falta_entero, falta_texto, falta_codigo, pesos, parejo;
    for (qsizetype i = 0; i < pedidos.size(); ++i) {
        const PedidoAncho& p = pedidos[i];
        falta_entero << (p.fijo ? 0 : qMax(0, p.entero - anchos[i]));
        const int falta = p.fijo ? 0 : qMax(0, p.comodo - qMax(anchos[i], p.entero));
        falta_texto << (p.peso > 0 ? falta : 0);
        falta_codigo << (p.peso > 0 ? 0 : falta);
        pesos << (p.fijo ? 0 : p.peso);
        parejo << (p.fijo ? 0 : qMax(anchos[i], p.comodo) / 2);
    }
    // Antes de guardarle sitio a lo que se digite, que se lea lo que ya hay.
    int libre = de_lo_que_falta(anchos, falta_entero, disponible - total);
    libre = de_lo_que_falta(anchos, falta_texto, libre);
    libre = de_lo_que_falta(anchos, falta_codigo, libre);
    // Sin textos que lo aprovechen, las cifras se separan un poco, y no más.
    const bool hay_textos = std::any_of(pesos.begin(), pesos.end(), [](int p) { return p > 0; });
    if (hay_textos)
        for (int& p : pesos)
            p *= qMax(1, libre);
    de_lo_que_falta(anchos, hay_textos ? pesos : parejo, libre);
    return anchos;
}

AnchosRejilla::AnchosRejilla(Rejilla& rejilla, QObject* padre)
    : QObject(padre), rejilla_(rejilla) {}

// ---------------------------------------------------------------- medir

void AnchosRejilla::vea(int columna, int fila, std::pair<double, int>& mas_ancha) const {
    const Rejilla::Aspecto& aspecto = rejilla_.aspecto_de(fila);
    double ancho = regla_.ancho(aspecto.letra, rejilla_.modelo().texto(fila, columna));
    if (rejilla_.sangrada(columna))
        ancho += aspecto.nivel * 2 * QFontMetricsF(rejilla_.font()).averageCharWidth();
    if (ancho > mas_ancha.first)
        mas_ancha = {ancho, fila};
}

void AnchosRejilla::vea_cifras(int columna, int desde, int hasta,
                               std::pair<double, int>& mas_ancha) const {
    // La cifra de más letras es la mayor o la menor: no hay que dar formato a cada una. La negrilla
    // de una fila no alcanza a otra cien veces mayor; un decimal que se calla cuando es cero sí, y
    // entonces se miran todas las primeras.
    const ModeloConjunto& modelo = rejilla_.modelo();
    int mayor = desde, menor = desde;
    Moneda alta, baja;
    QVector<Moneda> primeras;
    for (int f = desde; f < hasta; ++f) {
        const Moneda v = modelo.valor(f, columna).moneda();
        if (f - desde < kFilasMedidas)
            primeras << v;
        if (v > alta)
            alta = v, mayor = f;
        if (v < baja)
            baja = v, menor = f;
    }
    vea(columna, mayor, mas_ancha);
    vea(columna, menor, mas_ancha);
    const ColumnaRejilla& c = rejilla_.columna(columna);
    const QString formato =
        c.DisplayFormat().isEmpty() ? c.campo->DisplayFormat : c.DisplayFormat();
    const bool pareja = !formato.isEmpty() && formato.lastIndexOf('#') < formato.indexOf('.');
    const Moneda mucho = Moneda::porcentaje(alta, Moneda(1)),
                 poco = Moneda::porcentaje(baja, Moneda(1));
    for (int i = 0; i < primeras.size(); ++i)
        if (!pareja || primeras[i] > mucho || primeras[i] < poco)
            vea(columna, desde + i, mas_ancha);
}

int AnchosRejilla::contenido(int columna, int desde, int hasta) const {
    const int miradas = es_texto_largo(columna) ? kFilasMedidas : kFilasCodigo;
    std::pair<double, int> mas_ancha{-1, -1};
    if (desde < hasta && rejilla_.modelo().numerica(columna))
        vea_cifras(columna, desde, hasta, mas_ancha);
    else
        for (int f = desde; f < qMin(hasta, desde + miradas); ++f)
            vea(columna, f, mas_ancha);
    if (mas_ancha.second < 0)
        return 0;
    const QModelIndex celda = rejilla_.modelo().index(mas_ancha.second, columna);
    return rejilla_.itemDelegate()->sizeHint({}, celda).width();
}

int AnchosRejilla::ancho_del_pie(int columna) const {
    const auto* pie = rejilla_.findChild<PieRejilla*>();
    if (!pie || !pie->isVisibleTo(&rejilla_) || !rejilla_.columna(columna).ConSuma)
        return 0;
    QFont negrilla = rejilla_.font();
    negrilla.setBold(true);
    return QFontMetrics(negrilla).horizontalAdvance(pie->texto(columna)) +
           4 * DelegadoCelda::margen(rejilla_.fontMetrics());
}

bool AnchosRejilla::es_texto_largo(int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    if (c.casilla || rejilla_.modelo().numerica(columna))
        return false;
    if (!c.campo)
        return c.ancho >= kCaracteresLargo;
    if (c.campo->clase != ClaseCampo::Texto)
        return c.campo->clase == ClaseCampo::Blob;
    if (!c.PickList().isEmpty() && c.ancho < kCaracteresLargo)
        return false; // lo que se escoge de una lista se reconoce entero
    return c.campo->Size >= kCaracteresLargo || c.ancho >= kCaracteresLargo;
}

PedidoAncho AnchosRejilla::mida_columna(int columna) const {
    if (rejilla_.isColumnHidden(columna))
        return {.fijo = true};
    if (const int suyo = escogido(columna))
        return {.contenido = suyo, .comodo = suyo, .fijo = true};
    const ColumnaRejilla& c = rejilla_.columna(columna);
    const QFontMetrics medidas(rejilla_.font());
    const int declarado = ancho_caracteres(medidas, c.ancho);
    PedidoAncho p;
    p.titulo = static_cast<QHeaderView*>(rejilla_.horizontalHeader())->sectionSizeHint(columna);
    const int minimo =
        ancho_caracteres(medidas, kCaracteresTitulo) + 2 * DelegadoCelda::margen(medidas);
    if (c.casilla) {
        p.contenido = qMin(p.titulo, minimo);
        p.comodo = qMax(p.titulo, declarado);
        return p;
    }
    const int lleno = contenido(columna, 0, rejilla_.modelo().rowCount());
    p.vacia = no_dice_nada(lleno);
    if (es_texto_largo(columna)) {
        const int poco = ancho_caracteres(medidas, qMin(kCaracteresMinimo, c.ancho));
        p.contenido = qMax(poco, qMin(lleno, declarado * 6 / 10));
        p.comodo = qMax(lleno, declarado);
        // Donde se digita un nombre siempre hay sitio para su comienzo.
        p.vacia = p.vacia && !rejilla_.modelo().editable(columna);
        p.cede = p.contenido - (p.vacia ? qMin(piso_vacia(), p.contenido) : poco);
        p.entero = ancho_entero(lleno);
        p.peso = qMax(1, c.ancho);
        return p;
    }
    p.contenido = qMax(minimo, qMax(lleno, ancho_del_pie(columna)));
    // Donde se digita hace falta sitio aunque todavía no haya nada; si no alcanza para lo que sí
    // hay, lo da: se ensancha con lo primero que se escriba.
    if (rejilla_.modelo().editable(columna))
        p.contenido = qMax(p.contenido, declarado * 6 / 10);
    p.cede = p.vacia ? p.contenido - piso_vacia() : 0;
    p.comodo = qMax(p.contenido, declarado);
    if (static_cast<DelegadoCelda*>(rejilla_.itemDelegate())->acompanada(columna)) {
        p.comodo = p.contenido + ancho_caracteres(medidas, kCaracteresLargo);
        p.entero = rejilla_.modelo().rowCount() > 0 ? p.comodo : 0;
        p.peso = c.ancho;
    }
    return p;
}

void AnchosRejilla::mida() {
    pedidos_.clear();
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c)
        pedidos_ << mida_columna(c);
    repartido_ = -1;
    reparta();
    emit crecio();
}

bool AnchosRejilla::no_dice_nada(int lleno) const {
    return lleno <= 2 * DelegadoCelda::margen(QFontMetrics(rejilla_.font())) + 2;
}

int AnchosRejilla::piso_vacia() const {
    // Sin filas no hay cifra a la que darle el sitio: se leen los títulos.
    const QFontMetrics medidas(rejilla_.font());
    const int letras = rejilla_.modelo().rowCount() > 0 ? 1 : kCaracteresTitulo;
    return 2 * DelegadoCelda::margen(medidas) + ancho_caracteres(medidas, letras);
}

void AnchosRejilla::llene(PedidoAncho& p) {
    if (!std::exchange(p.vacia, false))
        return;
    p.cede = 0;
    repartido_ = -1;
}

int AnchosRejilla::ancho_entero(int lleno) const {
    return qMin(lleno, ancho_caracteres(QFontMetrics(rejilla_.font()), kCaracteresEntero));
}

void AnchosRejilla::mida_filas(int desde, int hasta) {
    if (pedidos_.size() != rejilla_.cuenta_columnas()) {
        mida();
        return;
    }
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c) {
        PedidoAncho& p = pedidos_[c];
        if (p.fijo || rejilla_.columna(c).casilla)
            continue;
        if (es_texto_largo(c)) {
            // Los de un paquete que llega al bajar no mueven las columnas bajo los ojos.
            const int entero = desde > 0 ? 0 : ancho_entero(contenido(c, desde, hasta));
            if (entero > p.entero) {
                p.entero = entero;
                p.comodo = qMax(p.comodo, entero);
                repartido_ = -1;
            }
            continue;
        }
        const int suyo = contenido(c, desde, hasta), ancho = qMax(suyo, ancho_del_pie(c));
        if (!no_dice_nada(suyo))
            llene(p);
        if (const int cede = p.contenido - piso_vacia(); p.vacia && p.cede != cede) {
            p.cede = cede;
            repartido_ = -1;
        }
        if (ancho > p.contenido) {
            p.contenido = ancho;
            p.comodo = qMax(p.comodo, ancho);
            repartido_ = -1;
        }
    }
    const bool mas = repartido_ < 0;
    reparta();
    if (mas)
        emit crecio();
}

void AnchosRejilla::pida(int columna, int ancho) {
    if (columna >= pedidos_.size() || es_texto_largo(columna))
        return;
    PedidoAncho& p = pedidos_[columna];
    if (p.fijo || p.contenido - p.cede >= ancho)
        return;
    llene(p);
    p.contenido = qMax(p.contenido, ancho);
    p.comodo = qMax(p.comodo, ancho);
    repartido_ = -1;
    if (!std::exchange(pendiente_, true))
        QMetaObject::invokeMethod(
            this,
            [this] {
                pendiente_ = false;
                reparta();
            },
            Qt::QueuedConnection);
}

// ---------------------------------------------------------------- repartir

int AnchosRejilla::ancho_disponible() const {
    // No depende de las barras que haya ahora: si el reparto quitara la de abajo, y con ella la del
    // lado, y el ancho de más la devolviera, no acabaría nunca.
    const QSize todo = rejilla_.maximumViewportSize();
    const int barra = rejilla_.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &rejilla_);
    const int filas =
        rejilla_.modelo().rowCount() * rejilla_.verticalHeader()->defaultSectionSize();
    // Sin filas queda como estaba: al volver a leer se vacía y se llena, y no hay que repartir ni
    // pintar dos veces.
    if (filas > 0)
        con_barra_ = filas > todo.height() - barra;
    return todo.width() - (con_barra_ ? barra : 0);
}

int AnchosRejilla::lo_que_falta() const {
    int total = 0;
    for (const PedidoAncho& p : pedidos_)
        total += qMax(qMax(p.contenido, p.titulo), p.entero);
    return qMax(0, total - ancho_disponible());
}

int AnchosRejilla::sin_ceder() const {
    const int barra = rejilla_.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &rejilla_);
    const int fuera = rejilla_.width() - rejilla_.maximumViewportSize().width();
    return Cesiones(pedidos_).sin_ceder() + fuera + barra;
}

void AnchosRejilla::reparta() {
    const int disponible = ancho_disponible();
    if (repartiendo_ || disponible == repartido_ || pedidos_.size() != rejilla_.cuenta_columnas() ||
        pedidos_.isEmpty())
        return;
    const QScopedValueRollback<bool> guarda(repartiendo_, true);
    repartido_ = disponible;
    const QVector<int> anchos = reparta_ancho(pedidos_, disponible);
    for (int c = 0; c < anchos.size(); ++c)
        if (!rejilla_.isColumnHidden(c))
            rejilla_.setColumnWidth(c, anchos[c]);
    static_cast<EncabezadoRejilla*>(rejilla_.horizontalHeader())->acomode_titulos();
}

// ---------------------------------------------------------------- los del usuario

int AnchosRejilla::escogido(int columna) const {
    const double letras = escogidos_.value(rejilla_.columna(columna).FieldName);
    return qRound(letras * QFontMetricsF(rejilla_.font()).averageCharWidth());
}

void AnchosRejilla::escoja(int columna, int ancho) {
    // En caracteres, para que valga con otra letra u otra escala.
    escogidos_.insert(rejilla_.columna(columna).FieldName,
                      ancho / QFontMetricsF(rejilla_.font()).averageCharWidth());
    if (columna < pedidos_.size())
        pedidos_[columna] = {.contenido = ancho, .comodo = ancho, .fijo = true};
}
