#include "apoyo/intermediario.h"
#include "apoyo/servidor_prueba.h"
#include "datos/firebird/vigia.h"
#include "fallas/comprobaciones.h"
#include "fallas/contador.h"
#include "fallas/escenarios.h"

namespace {

/// Lo único que se puede decir cuando la red se corta, siempre que sea cierto.
const QRegularExpression kPerdida("Se perdió la conexión"),
    kYaEstaba("ya había quedado|^No se encontró el comprobante solicitado"),
    kPregunta("^Desea borrar definitivamente");

/// Una jugada de teclado sobre un comprobante y lo que debe quedar en la base cuando se logra.
struct Jugada {
    const char* nombre;
    bool borra;
    std::function<void()> prepare, haga;
    std::function<bool()> abierta; ///< la pantalla sigue con lo digitado, para insistir
};

class Mesa {
public:
    Mesa(const Corrida& corrida, bool calla)
        : corrida_(corrida), calla_(calla), red_(servidor_.puerto()),
          c_(red_.por_aqui(servidor_.ubicacion()), "ADMIN", ServidorDePrueba::kClave) {
        fuera_.conectar(servidor_.parametros());
    }
    QStringList corra(int puntos);

private:
    QVector<Jugada> jugadas();
    void nuevo();
    void inserte();
    Tfedtmovimien* edicion() {
        return qobject_cast<Tfedtmovimien*>(c_.escritorio.abierta("Tfedtmovimien"));
    }
    bool lograda(const Jugada& j) { return en_la_base().isEmpty() == j.borra; }
    /// Números de los comprobantes con el valor de la jugada, en el libro 2649.
    QString en_la_base() {
        return filas_de(fuera_, "select e.enco_numero from comprobante_encabezado e join "
                                "comprobante_detalle d on d.enco_consec = e.enco_consec where "
                                "d.code_debito = " +
                                    valor_);
    }
    QString pruebe(const Jugada& j, Intermediario::Sentido sentido, qint64 octeto);
    QString mienten(const QStringList& mensajes, bool estaba) const;

    const Corrida& corrida_;
    const bool calla_; ///< la red calla en vez de cortarse
    ServidorDePrueba servidor_;
    Intermediario red_;
    Contador c_;
    Conexion fuera_; ///< mira la base sin pasar por la red que se corta
    int consecutivo_ = 0;
    QString numero_, valor_;     ///< del comprobante de la jugada
    qint64 octetos_[2] = {0, 0}; ///< los que pasan en cada sentido cuando nadie corta
    int cortados_ = 0;
};

void Mesa::nuevo() {
    valor_ = QString::number(100000 + ++consecutivo_);
    c_.p->activateWindow();
    c_.digite_comprobante("110505", "111005", valor_);
}

/// Un comprobante ya grabado, que otro digitó.
void Mesa::inserte() {
    ++consecutivo_;
    numero_ = QString("9%1").arg(consecutivo_, 5, 10, QChar('0'));
    const Moneda habia(50000 + consecutivo_);
    const QVector<Linea> lineas{{1, "110505", habia, 0}, {2, "111005", 0, habia}};
    grabe(fuera_, {500000 + consecutivo_, numero_, "20170105", lineas, lineas});
    valor_ = habia.texto();
}

QVector<Jugada> Mesa::jugadas() {
    const auto digitado = [this] { return c_.completo("110505", "111005", valor_); };
    const auto grabe = [this] {
        c_.p->activateWindow();
        oprima_en(c_.p->lineas_2649->rejilla, Qt::Key_F2);
    };
    return {
        {"grabar", false, [this] { nuevo(); }, grabe, digitado},
        {"cambiar de página", false, [this] { nuevo(); },
         [this, grabe] {
             c_.p->activateWindow();
             if (c_.p->CMovimiento.FieldByName("ENCO_CONSEC").entero() == 0) {
                 c_.p->PageControl1->setCurrentIndex(1);
                 c_.p->PageControl1->setCurrentIndex(0);
             } else {
                 grabe();
             }
         },
         digitado},
        {"corregir", false,
         [this] {
             inserte();
             if (Tfedtmovimien* e = c_.edite(numero_)) {
                 valor_ = QString::number(100000 + consecutivo_);
                 c_.ponga_valor(*e, valor_);
             }
         },
         [this] {
             edicion()->activateWindow();
             oprima_en(edicion()->lineas_2649->rejilla, Qt::Key_F2);
         },
         [this] { return edicion() != nullptr; }},
        {"borrar", true,
         [this] {
             inserte();
             c_.edite(numero_);
         },
         [this] { oprima_en(edicion()->SBBorrar, Qt::Key_Space); },
         [this] { return edicion() != nullptr; }},
    };
}

/// El primer mensaje que no es verdad; vacío si todos lo son.
QString Mesa::mienten(const QStringList& mensajes, bool estaba) const {
    for (const QString& m : mensajes) {
        const bool cierto = (kPerdida.match(m).hasMatch() && red_.cortado()) ||
                            (kYaEstaba.match(m).hasMatch() && estaba) ||
                            kPregunta.match(m).hasMatch();
        if (!cierto)
            return m;
    }
    return {};
}

QString Mesa::pruebe(const Jugada& j, Intermediario::Sentido sentido, qint64 octeto) {
    c_.mensajes.clear();
    j.prepare();
    if (!c_.mensajes.isEmpty())
        return "al preparar: " + c_.mensajes.join(" | ");
    const qint64 antes[] = {red_.pasados(Intermediario::HaciaServidor),
                            red_.pasados(Intermediario::HaciaCliente)};
    if (octeto >= 0 && calla_)
        red_.calle_tras(sentido, octeto);
    else if (octeto >= 0)
        red_.corte_tras(sentido, octeto);
    j.haga();
    if (octeto < 0)
        for (const auto s : {Intermediario::HaciaServidor, Intermediario::HaciaCliente})
            octetos_[s] = red_.pasados(s) - antes[s];
    QString falta = mienten(c_.mensajes, lograda(j));
    if (!falta.isEmpty())
        return "dijo: " + falta;
    if (!a_medias(fuera_).isEmpty())
        return "quedó a medias: " + a_medias(fuera_);
    cortados_ += red_.cortado();
    if (red_.cortado() && !lograda(j) && !j.abierta())
        return "la pantalla perdió lo digitado";
    red_.atienda();
    // Con la red de vuelta se insiste, como cualquiera.
    for (int intento = 0; intento < 5 && (j.abierta() || !lograda(j)); ++intento) {
        if (!j.abierta())
            return "no está en la base ni en la pantalla";
        c_.mensajes.clear();
        const bool estaba = lograda(j);
        j.haga();
        falta = mienten(c_.mensajes, estaba);
        if (!falta.isEmpty())
            return "al insistir dijo: " + falta;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (Tfedtmovimien* e = edicion(); e && !j.borra && lograda(j) && j.nombre[0] != 'c')
            e->close(); // el que ya estaba se abre para revisarlo
    }
    if (!lograda(j) || en_la_base().contains('\n'))
        return "no quedó una vez: " + en_la_base();
    return saldos_distintos(fuera_);
}

QStringList Mesa::corra(int puntos) {
    QStringList faltas;
    int van = 0;
    const auto todas = jugadas();
    const int de_cada_una = qMax(1, puntos / int(2 * todas.size()));
    for (const Jugada& j : todas) {
        // Dos veces: la primera prepara sentencias que después no vuelven a pasar, y la mitad de
        // sus octetos podría ser más de lo que pasa en las otras.
        for (int vez = 0; vez < 2; ++vez)
            if (const QString sin_corte = pruebe(j, Intermediario::HaciaServidor, -1);
                !sin_corte.isEmpty())
                return {QString("%1, sin cortar: %2").arg(j.nombre, sin_corte)};
        for (const auto sentido : {Intermediario::HaciaServidor, Intermediario::HaciaCliente})
            for (int k = 0; k < de_cada_una; ++k) {
                const qint64 octeto = octetos_[sentido] * (2 * k + calla_) / (2 * de_cada_una);
                const QString donde =
                    QString("%1, octeto %2 de %3 %4")
                        .arg(j.nombre)
                        .arg(octeto)
                        .arg(octetos_[sentido])
                        .arg(sentido == Intermediario::HaciaServidor ? "de ida" : "de vuelta");
                const QString falta = pruebe(j, sentido, octeto);
                corrida_.diga(QString("corte %1: %2").arg(++van).arg(donde));
                if (!falta.isEmpty()) // lo que sigue, sobre una pantalla ya dudosa, no dice nada
                    return {donde + ": " + falta};
            }
    }
    if (cortados_ * 2 < van)
        faltas << QString("solo se cortó %1 veces de %2").arg(cortados_).arg(van);
    return faltas;
}

} // namespace

QStringList cortes(int puntos, const Corrida& corrida) {
    return Mesa(corrida, false).corra(puntos);
}

QStringList silencios(int puntos, const Corrida& corrida) {
    const LimitesDeRed antes = limites_de_red();
    limites_de_red({200, 2000, 2000});
    const auto vuelva = qScopeGuard([&] { limites_de_red(antes); });
    return Mesa(corrida, true).corra(puntos);
}
