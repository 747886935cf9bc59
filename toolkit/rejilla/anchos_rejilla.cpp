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

constexpr int kFilasMedidas = 100;     ///< filas que deciden cuánto pide un texto
constexpr int kFilasCodigo = 2000;     ///< filas en que se busca el código más largo
constexpr int kCaracteresLargo = 24;   ///< desde aquí un texto es un nombre y no un código
constexpr int kCaracteresMinimo = 8;   ///< lo que de un nombre siempre se ve
constexpr int kCaracteresCodigo = 2;   ///< y de un código, aunque hoy sean más cortos
constexpr int kCaracteresHolgura = 45; ///< del nombre que va tras su código, si sobra
constexpr int kVecesCodigo = 3;        ///< lo más que un código se ensancha con lo que sobra
constexpr int kCaracteresEntero =
    100; ///< un nombre; lo más largo es una nota, y se lee en su celda

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

/// A los que menos les falta primero: entre un nombre largo y uno corto, el corto se lee entero.
int de_menor_a_mayor(QVector<int>& anchos, const QVector<int>& faltas, int libre) {
    QVector<qsizetype> orden;
    for (qsizetype i = 0; i < faltas.size(); ++i)
        if (faltas[i] > 0)
            orden << i;
    std::sort(orden.begin(), orden.end(),
              [&](qsizetype a, qsizetype b) { return faltas[a] < faltas[b]; });
    for (qsizetype i = 0; i < orden.size() && libre > 0; ++i) {
        const int da = qMin(faltas[orden[i]], libre / int(orden.size() - i));
        anchos[orden[i]] += da;
        libre -= da;
    }
    return libre;
}

int suma(const QVector<int>& pixeles) {
    return std::accumulate(pixeles.begin(), pixeles.end(), 0);
}

bool alguna_dice(const QVector<PedidoAncho>& pedidos) {
    return std::any_of(pedidos.begin(), pedidos.end(),
                       [](const PedidoAncho& p) { return !p.vacia && !p.fijo; });
}

/// Un texto sin nada en ninguna fila, también donde se podría digitar: le basta su título.
bool le_basta_su_titulo(const PedidoAncho& p) {
    return p.peso > 0 && p.entero > 0 && p.entero <= p.titulo;
}

/// Lo que cada columna quiere y lo que da, en el orden en que se pide.
struct Cesiones {
    QVector<int> anchos;
    QVector<int> reserva, nombre; ///< sin cortar su título
    QVector<int> titulo_vacia, titulo;

    explicit Cesiones(const QVector<PedidoAncho>& pedidos) {
        for (const PedidoAncho& p : pedidos) {
            const int ancho = qMax(p.contenido, p.titulo);
            // El sitio que un código guarda para digitar, y el de lo que no dice nada.
            const bool poco = le_basta_su_titulo(p), primero = poco || p.vacia || p.peso == 0;
            const int cede =
                p.fijo ? 0 : qBound(0, ancho - p.titulo, poco && !p.vacia ? ancho : p.cede);
            const int resto =
                p.fijo ? 0 : qMax(0, ancho - p.contenido + (poco && !p.vacia ? 0 : p.cede - cede));
            anchos << ancho - (primero ? cede : 0);
            reserva << (primero ? cede : 0);
            nombre << (primero ? 0 : cede);
            // El de la que se digita y no dice nada, hasta que se lea abreviado.
            const int corto = poco && !p.vacia && p.breve > 0 ? qMax(0, anchos.last() - p.breve)
                              : p.vacia || p.casilla          ? resto
                                                              : 0;
            titulo_vacia << corto;
            titulo << qMax(0, resto - corto);
        }
    }
    int sin_ceder() const { return suma(anchos) - suma(titulo_vacia); }
    int indispensable() const { return sin_ceder() - suma(nombre) - suma(titulo); }
};

/// Con menos, la rejilla se desplaza.
int lo_indispensable(const QVector<PedidoAncho>& pedidos) {
    const Cesiones c(pedidos);
    return c.indispensable() + (alguna_dice(pedidos) ? 0 : suma(c.titulo_vacia));
}

/// Por lo que le falta a la primera cifra que asoma, lo que no dice nada se aprieta y los nombres
/// de antes ceden un poco, y todavía se leen.
void ceda_a_la_que_asoma(QVector<int>& anchos, const Cesiones& c,
                         const QVector<PedidoAncho>& pedidos, int disponible) {
    QVector<int> vacias(anchos.size(), 0), nombres(anchos.size(), 0);
    int falta = -disponible;
    for (qsizetype i = 0; i < anchos.size(); ++i) {
        falta += anchos[i];
        if (falta <= 0) {
            if (pedidos[i].apretado > 0)
                vacias[i] = qMax(0, anchos[i] - pedidos[i].apretado);
            else if (c.nombre[i] > 0)
                nombres[i] = qMax(0, anchos[i] - (c.anchos[i] - c.nombre[i]));
            continue;
        }
        if (!pedidos[i].cifra || pedidos[i].vacia || falta >= anchos[i] ||
            falta > suma(vacias) + suma(nombres) * 3 / 4)
            return;
        QVector<int> da(anchos.size(), 0);
        de_lo_que_falta(da, nombres, de_lo_que_falta(da, vacias, falta));
        for (qsizetype j = 0; j < i; ++j)
            anchos[j] -= da[j];
        return;
    }
}

/// Tras el borde no le quitan sitio a lo que se ve: los nombres de allí se leen enteros. El último
/// que se ve también, si lo que le sigue no dice nada.
void complete_los_de_fuera(QVector<int>& anchos, const QVector<PedidoAncho>& pedidos,
                           int disponible) {
    int hasta = 0;
    for (qsizetype i = 0; i < anchos.size(); ++i) {
        const bool fuera = hasta >= disponible;
        hasta += anchos[i];
        const bool ultimo =
            i + 1 < anchos.size() && pedidos[i + 1].vacia && hasta + anchos[i + 1] > disponible;
        const PedidoAncho& p = pedidos[i];
        if (p.peso > 0 && p.cede > 0 && !p.vacia && !p.fijo && (fuera || ultimo))
            anchos[i] = qMax(anchos[i], qMin(p.entero, disponible / 2));
    }
}

/// Ni cediendo lo que no dice nada y los nombres cabe todo: un título se puede leer en su letrero;
/// una cifra, no. Si ni así, la rejilla se desplaza, con las más cifras a la vista y entero el
/// título de lo que dice algo.
QVector<int> apriete(const Cesiones& c, const QVector<PedidoAncho>& pedidos, int disponible) {
    QVector<int> anchos = c.anchos, quita(anchos.size(), 0);
    int sobra = de_lo_que_falta(quita, c.nombre, suma(anchos) - disponible);
    const bool cabe = c.indispensable() <= disponible;
    if (cabe || alguna_dice(pedidos))
        sobra = de_lo_que_falta(quita, c.titulo_vacia, sobra);
    if (cabe)
        de_lo_que_falta(quita, c.titulo, sobra);
    else // de todos modos se desplaza: que se lea de qué es cada fila
        for (qsizetype i = 0; i < anchos.size(); ++i)
            if (c.nombre[i] > 0)
                quita[i] = qMin(quita[i], anchos[i] - qMin(pedidos[i].entero, disponible / 5));
            else if (!pedidos[i].vacia && pedidos[i].breve > 0)
                quita[i] = qMax(quita[i], anchos[i] - pedidos[i].breve);
    for (qsizetype i = 0; i < anchos.size(); ++i)
        anchos[i] -= quita[i];
    de_menor_a_mayor(anchos, quita, disponible - suma(anchos)); // lo que se quitó de más
    if (!cabe) {
        ceda_a_la_que_asoma(anchos, c, pedidos, disponible);
        complete_los_de_fuera(anchos, pedidos, disponible);
    }
    return anchos;
}

} // namespace

QVector<int> reparta_ancho(const QVector<PedidoAncho>& pedidos, int disponible) {
    const Cesiones c(pedidos);
    QVector<int> anchos = c.anchos, cedidos = c.titulo_vacia;
    if (!alguna_dice(pedidos))
        cedidos.fill(0);
    int libre = disponible - suma(anchos) + suma(cedidos) + suma(c.nombre);
    if (libre < 0)
        return apriete(c, pedidos, disponible);
    for (qsizetype i = 0; i < anchos.size(); ++i)
        anchos[i] -= cedidos[i] + c.nombre[i];
    const auto lo_suyo = [&](const auto& cuanto) {
        QVector<int> faltas;
        for (qsizetype i = 0; i < pedidos.size(); ++i)
            faltas << (pedidos[i].fijo ? 0 : qMax(0, cuanto(pedidos[i], anchos[i])));
        return faltas;
    };
    const auto de = [&](const auto& cuanto) {
        libre = de_lo_que_falta(anchos, lo_suyo(cuanto), libre);
    };
    using P = const PedidoAncho&;
    // Antes que el título entero de lo que no dice nada, y que el sitio de lo que se digite, va lo
    // que ya hay.
    QVector<int> nombres = lo_suyo([](P p, int ancho) { return p.entero - ancho; });
    for (qsizetype i = 0; i < nombres.size(); ++i)
        nombres[i] = qMax(nombres[i], c.nombre[i]);
    libre = de_menor_a_mayor(anchos, nombres, libre);
    libre = de_menor_a_mayor(anchos, cedidos, libre); // los de un mismo largo, parejos
    libre = de_lo_que_falta(anchos, c.reserva, libre);
    // Los títulos en un renglón, si todos caben.
    if (const auto seguidos = lo_suyo([](P p, int ancho) { return p.seguido - ancho; });
        suma(seguidos) <= libre)
        libre = de_lo_que_falta(anchos, seguidos, libre);
    de([](P p, int ancho) { return p.peso > 0 ? p.comodo - ancho : 0; });
    de([](P p, int ancho) { return p.peso > 0 ? 0 : p.comodo - ancho; });
    if (std::any_of(pedidos.begin(), pedidos.end(), [](P p) { return p.peso > 0 && !p.fijo; })) {
        de([libre](P p, int) { return p.peso * qMax(1, libre); });
    } else {
        // Sin textos que lo aprovechen, las cifras se separan un poco, y no más.
        de([](P p, int ancho) { return ancho / 2; });
        de([](P p, int ancho) { return p.cifra ? 0 : kVecesCodigo * p.comodo - ancho; });
    }
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

bool AnchosRejilla::vea_cifras(int columna, int desde, int hasta,
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
    const bool ceros = alta.es_cero() && baja.es_cero(); // y alguna fila puede no decir ni eso
    for (int i = 0; i < primeras.size(); ++i)
        if (!pareja || ceros || primeras[i] > mucho || primeras[i] < poco)
            vea(columna, desde + i, mas_ancha);
    return !ceros;
}

AnchosRejilla::Contenido AnchosRejilla::contenido(int columna, int desde, int hasta) const {
    const int miradas = es_texto_largo(columna) ? kFilasMedidas : kFilasCodigo;
    std::pair<double, int> mas_ancha{-1, -1};
    Contenido visto;
    if (desde < hasta && rejilla_.modelo().numerica(columna))
        visto.calla = !vea_cifras(columna, desde, hasta, mas_ancha);
    else
        for (int f = desde; f < qMin(hasta, desde + miradas); ++f)
            vea(columna, f, mas_ancha);
    if (mas_ancha.second < 0)
        return visto;
    if (!rejilla_.modelo().numerica(columna))
        visto.calla = mas_ancha.first <= 0;
    const QModelIndex celda = rejilla_.modelo().index(mas_ancha.second, columna);
    visto.ancho = rejilla_.itemDelegate()->sizeHint({}, celda).width();
    return visto;
}

int AnchosRejilla::ancho_del_pie(int columna) const {
    if (!rejilla_.columna(columna).ConSuma)
        return 0;
    const auto* pie = rejilla_.findChild<PieRejilla*>();
    if (!pie || !pie->isVisibleTo(&rejilla_))
        return 0;
    QFont negrilla = rejilla_.font();
    negrilla.setBold(true);
    return qCeil(regla_.ancho(negrilla, pie->texto(columna))) +
           2 * DelegadoCelda::margen(rejilla_.fontMetrics()) + 2;
}

bool AnchosRejilla::es_texto_largo(int columna) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    if (c.casilla || c.codigo || rejilla_.modelo().numerica(columna))
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
    PedidoAncho p;
    p.titulo = titulos().ancho_en_renglones(columna);
    p.seguido = titulos().sectionSizeHint(columna);
    p.cifra = rejilla_.modelo().alineacion(columna) & Qt::AlignRight;
    if (es_texto_largo(columna))
        mida_texto(columna, p);
    else
        mida_corto(columna, p);
    return p;
}

void AnchosRejilla::mida_texto(int columna, PedidoAncho& p) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    const QFontMetrics medidas(rejilla_.font());
    const int declarado = ancho_caracteres(medidas, c.ancho);
    const int filas = rejilla_.modelo().rowCount();
    const auto [lleno, calla] = contenido(columna, 0, filas);
    int nivel = 0;
    for (int f = 0; rejilla_.sangrada(columna) && f < qMin(filas, kFilasMedidas); ++f)
        nivel = qMax(nivel, rejilla_.aspecto_de(f).nivel);
    int poco = ancho_caracteres(medidas, qMin(kCaracteresMinimo, c.ancho) + 2 * nivel);
    if (const int letras = rejilla_.property(kLetrasDeNombre).toInt(); letras > 0)
        poco = qMax(poco, qMin(lleno, ancho_caracteres(medidas, letras + 2 * nivel)));
    p.contenido = qMax(poco, qMin(lleno, declarado * 6 / 10));
    p.comodo = qMax(lleno, declarado);
    // Donde se digita un nombre siempre hay sitio para su comienzo.
    p.vacia = calla && !rejilla_.modelo().editable(columna);
    p.cede = p.contenido - (p.vacia ? qMin(piso(columna, lleno), p.contenido) : poco);
    p.breve = calla ? piso(columna, lleno) : 0;
    p.apretado = calla ? piso(columna, lleno, true) : 0;
    p.entero = ancho_entero(lleno);
    p.peso = qMax(1, c.ancho);
}

void AnchosRejilla::mida_corto(int columna, PedidoAncho& p) const {
    const ColumnaRejilla& c = rejilla_.columna(columna);
    const QFontMetrics medidas(rejilla_.font());
    const int declarado = ancho_caracteres(medidas, c.ancho);
    const int minimo =
        ancho_caracteres(medidas, kCaracteresCodigo) + 2 * DelegadoCelda::margen(medidas);
    if (c.casilla) {
        p.casilla = true;
        p.contenido = qMin(p.titulo, qMax(minimo, titulos().ancho_minimo(columna)));
        p.comodo = qMax(p.seguido, declarado);
        return;
    }
    const auto [lleno, calla] = contenido(columna, 0, rejilla_.modelo().rowCount());
    const int suelo = piso(columna, lleno);
    p.contenido = qMax(qMax(minimo, suelo), qMax(lleno, ancho_del_pie(columna)));
    // Donde se digita hace falta sitio aunque todavía no haya nada; si no alcanza para lo que sí
    // hay, lo da: se ensancha con lo que se escriba.
    const bool acompanada =
        static_cast<DelegadoCelda*>(rejilla_.itemDelegate())->acompanada(columna);
    const int indispensable = calla ? suelo : p.contenido;
    if (rejilla_.modelo().editable(columna) && !acompanada)
        p.contenido = qMax(p.contenido, declarado * 6 / 10);
    p.vacia = calla;
    p.apretado = calla ? piso(columna, lleno, true) : 0;
    p.cede = p.contenido - indispensable;
    p.comodo = qMax(p.contenido, declarado);
    if (acompanada) {
        p.comodo = p.contenido + ancho_caracteres(medidas, kCaracteresHolgura);
        if (const int filas = rejilla_.modelo().rowCount(); filas > 0)
            p.entero = con_su_nombre(columna, 0, filas);
        p.peso = c.ancho;
    }
}

int AnchosRejilla::con_su_nombre(int columna, int desde, int hasta) const {
    const auto& delegado = static_cast<const DelegadoCelda&>(*rejilla_.itemDelegate());
    const int aire = DelegadoCelda::margen(rejilla_.fontMetrics());
    int mayor = 0;
    for (int f = desde; f < qMin(hasta, desde + kFilasMedidas); ++f) {
        const QFont& letra = rejilla_.aspecto_de(f).letra;
        const int nombre = ancho_entero(
            qCeil(regla_.ancho(letra, delegado.acompanante(rejilla_.modelo().index(f, columna)))));
        const int codigo = qCeil(regla_.ancho(letra, rejilla_.modelo().texto(f, columna)));
        mayor = qMax(mayor, codigo + nombre + 4 * aire + 2);
    }
    return mayor;
}

bool AnchosRejilla::digitando() const {
    const ConjuntoDatos* c = rejilla_.conjunto();
    return rejilla_.digitando() || !c || c->Modified();
}

void AnchosRejilla::mida_nombres(int columna) {
    // Mientras se digita nada se mueve: al grabar la fila se mide.
    if (pedidos_.size() != rejilla_.cuenta_columnas() || digitando())
        return;
    crezca_con_su_nombre(columna, 0, rejilla_.modelo().rowCount());
    if (reparta_si_crecio())
        emit crecio();
}

void AnchosRejilla::crezca_con_su_nombre(int columna, int desde, int hasta) {
    PedidoAncho& p = pedidos_[columna];
    const int entero = p.fijo ? 0 : con_su_nombre(columna, desde, hasta);
    if (entero <= p.entero)
        return;
    p.entero = entero;
    p.comodo = qMax(p.comodo, entero);
    repartido_ = -1;
}

void AnchosRejilla::mida() {
    pedidos_.clear();
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c)
        pedidos_ << mida_columna(c);
    repartido_ = -1;
    reparta();
    emit crecio();
}

int AnchosRejilla::piso(int columna, int lleno, bool apretado) const {
    return qMax(titulos().ancho_minimo(columna, apretado), ceros(columna, lleno));
}

int AnchosRejilla::ceros(int columna, int lleno) const {
    const int blanco = 2 * DelegadoCelda::margen(rejilla_.fontMetrics()) + 2;
    return lleno > blanco ? qMax(lleno, ancho_del_pie(columna)) : 0;
}

EncabezadoRejilla& AnchosRejilla::titulos() const {
    return static_cast<EncabezadoRejilla&>(*rejilla_.horizontalHeader());
}

void AnchosRejilla::asegure(PedidoAncho& p, int ancho, bool dice) {
    if (dice && std::exchange(p.vacia, false))
        p.apretado = 0, repartido_ = -1;
    if (p.apretado > 0) // unos ceros
        p.apretado = qMax(p.apretado, ancho);
    if (p.contenido - p.cede >= ancho)
        return;
    p.contenido = qMax(p.contenido, ancho);
    p.cede = p.contenido - ancho;
    p.comodo = qMax(p.comodo, ancho);
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
    // Los nombres de un paquete que llega al bajar no mueven las columnas bajo los ojos.
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c)
        crezca(c, desde, hasta, desde == 0);
    if (reparta_si_crecio())
        emit crecio();
}

void AnchosRejilla::mida_fila(int fila, int columna) {
    if (pedidos_.size() != rejilla_.cuenta_columnas() || fila < 0 ||
        fila >= rejilla_.modelo().rowCount())
        return;
    for (int c = 0; c < rejilla_.cuenta_columnas(); ++c)
        if (columna < 0 || c == columna)
            crezca(c, fila, fila + 1, true);
    reparta_si_crecio();
}

void AnchosRejilla::crezca(int columna, int desde, int hasta, bool con_nombres) {
    PedidoAncho& p = pedidos_[columna];
    if (p.fijo || rejilla_.columna(columna).casilla)
        return;
    const bool texto = es_texto_largo(columna);
    if (texto && !con_nombres && !p.vacia)
        return;
    const auto [suyo, calla] = contenido(columna, desde, hasta);
    if (texto) {
        const int entero = ancho_entero(suyo);
        const bool no_cede = rejilla_.property(kLetrasDeNombre).toInt() > 0;
        if (!calla && (p.vacia || p.breve > 0 || (no_cede && entero > p.entero)))
            p = mida_columna(columna), repartido_ = -1;
        else if (entero > p.entero) {
            p.entero = entero;
            p.comodo = qMax(p.comodo, entero);
            repartido_ = -1;
        }
        return;
    }
    // A lo que se digita el nombre le llega al pintarse; una tecla no lo pide antes.
    if (con_nombres && !rejilla_.conjunto()->editando() &&
        static_cast<DelegadoCelda*>(rejilla_.itemDelegate())->acompanada(columna))
        crezca_con_su_nombre(columna, desde, hasta);
    const bool dice = !calla || !p.vacia;
    asegure(p, dice ? qMax(suyo, ancho_del_pie(columna)) : ceros(columna, suyo), !calla);
}

bool AnchosRejilla::reparta_si_crecio() {
    const bool mas = repartido_ < 0;
    reparta();
    return mas;
}

void AnchosRejilla::pida(int columna, int ancho) {
    if (columna >= pedidos_.size() || es_texto_largo(columna))
        return;
    PedidoAncho& p = pedidos_[columna];
    if (p.fijo || p.contenido - p.cede >= ancho)
        return;
    asegure(p, ancho, true);
    if (!std::exchange(pendiente_, true))
        QMetaObject::invokeMethod(
            this,
            [this] {
                pendiente_ = false;
                reparta();
                if (!digitando())
                    emit crecio();
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
    // pintar dos veces. La de abajo también les quita alto.
    if (filas > 0)
        con_barra_ = filas > todo.height() ||
                     (filas > todo.height() - barra && lo_indispensable(pedidos_) > todo.width());
    return todo.width() - (con_barra_ ? barra : 0);
}

int AnchosRejilla::lo_que_falta(bool con_titulos) const {
    const Cesiones c(pedidos_);
    int total = 0;
    bool partido = false; // los títulos van en un renglón después del sitio en que se digita
    for (qsizetype i = 0; con_titulos && i < pedidos_.size(); ++i)
        partido =
            partido || (!pedidos_[i].fijo && pedidos_[i].seguido > c.anchos[i] + c.reserva[i]);
    for (qsizetype i = 0; i < pedidos_.size(); ++i) {
        const PedidoAncho& p = pedidos_[i];
        const int minimo =
            c.anchos[i] + (partido ? c.reserva[i] : 0) - (con_titulos ? 0 : c.titulo_vacia[i]);
        total += qMax(minimo, qMax(con_titulos && !p.fijo ? p.seguido : 0, p.entero));
    }
    return qMax(0, total - ancho_disponible());
}

int AnchosRejilla::fuera_de_las_columnas() const {
    const int barra = rejilla_.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &rejilla_);
    return rejilla_.width() - rejilla_.maximumViewportSize().width() + barra;
}

int AnchosRejilla::sin_ceder() const {
    return Cesiones(pedidos_).sin_ceder() + fuera_de_las_columnas();
}

int AnchosRejilla::legible() const {
    const Cesiones c(pedidos_);
    int ancho = sin_ceder();
    for (int i = 0; i < qMin(pedidos_.size(), rejilla_.cuenta_columnas()); ++i)
        if (es_texto_largo(i))
            ancho += qMax(0, pedidos_[i].entero * 2 / 3 - c.anchos[i]);
    return ancho;
}

int AnchosRejilla::cediendo() const {
    return lo_indispensable(pedidos_) + fuera_de_las_columnas();
}

void AnchosRejilla::reparta() {
    const int disponible = ancho_disponible();
    if (repartiendo_ || disponible == repartido_ || pedidos_.size() != rejilla_.cuenta_columnas() ||
        pedidos_.isEmpty())
        return;
    const QScopedValueRollback<bool> guarda(repartiendo_, true);
    repartido_ = disponible;
    const auto ponga = [&](const QVector<PedidoAncho>& pedidos) {
        const QVector<int> anchos = reparta_ancho(pedidos, disponible);
        for (int c = 0; c < anchos.size(); ++c)
            if (!rejilla_.isColumnHidden(c))
                rejilla_.setColumnWidth(c, anchos[c]);
    };
    ponga(pedidos_);
    if (titulos().acorte_meses()) { // lo que los meses guardaban para su título es de los demás
        QVector<PedidoAncho> cortos = pedidos_;
        for (int c = 0; c < cortos.size(); ++c)
            if (const int corto = titulos().ancho_de_mes(c); corto > 0 && !cortos[c].fijo)
                cortos[c].titulo = cortos[c].seguido = corto;
        ponga(cortos);
    }
    titulos().acomode_titulos();
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
