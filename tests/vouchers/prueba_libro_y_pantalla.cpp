// Comprobantes al azar, con faltas al azar, por dos caminos: digitados con el teclado en la
// pantalla, y armados con las reglas del libro sin pantalla alguna. Los dos rehúsan lo mismo y
// dejan las mismas filas. QUORVEX_COMPROBANTES dice cuántos (500 es la corrida entera).
#include "libro/grabacion.h"
#include "libro/importes.h"
#include "libro/revision.h"
#include "vouchers/digitador.h"

namespace {

using Columna = LineasLibro::ColumnaLibro;

/// Lo que una persona va a escribir en una línea y con qué se equivoca primero.
struct LineaPlaneada {
    QStringList celdas = QStringList(12); ///< lo debido, por columna
    QMap<int, QString> primero;           ///< lo que escribe antes en esa columna: "" la olvida
    bool cuadra = false;                  ///< la última: F5 pone lo que falta
    int sobra = 0;                        ///< y a mano le suma esto, que descuadra
};

struct Planeado {
    QString concepto, referencia, nit, dia, dia_bloqueado;
    QVector<LineaPlaneada> lineas[2];
};

class AlAzar {
public:
    explicit AlAzar(quint32 semilla) : azar_(azar_de_prueba(semilla)) {}

    Planeado comprobante() {
        Planeado c;
        c.concepto = uno({"Venta de contado", "Nómina", "Ajuste"});
        c.referencia = uno({"", "F-1", "F-2"});
        c.nit = uno({"", "", "52345678"});
        c.dia = uno({"11", "15", "28"});
        if (una_de(8))
            c.dia_bloqueado = uno({"05", "10"});
        c.lineas[0] = libro(c.dia_bloqueado.isEmpty());
        // El paso de página graba: lo que se descuadra o está bloqueado se queda en un libro.
        const bool descuadra = c.lineas[0].last().sobra != 0;
        if (una_de(4) && !descuadra && c.dia_bloqueado.isEmpty())
            c.lineas[1] = libro(true);
        return c;
    }

private:
    int entero(int n) { return azar_.bounded(n); }
    bool una_de(int n) { return entero(n) == 0; }
    QString uno(const QStringList& de) { return de[entero(int(de.size()))]; }

    QVector<LineaPlaneada> libro(bool puede_descuadrar) {
        QVector<LineaPlaneada> lineas;
        for (int n = 1 + entero(3); n > 0; --n)
            lineas << linea();
        LineaPlaneada ultima;
        ultima.celdas[LineasLibro::kCuenta] = "310505";
        ultima.cuadra = true;
        if (puede_descuadrar && una_de(5))
            ultima.sobra = 1 + entero(9);
        return lineas << ultima;
    }

    LineaPlaneada linea() {
        LineaPlaneada l;
        QStringList& c = l.celdas;
        c[LineasLibro::kCuenta] =
            uno({"110505", "111005", "240805", "510506", "413505", "519530", "236540", "135515"});
        const QString& cuenta = c[LineasLibro::kCuenta];
        const bool retencion = cuenta == "236540" || cuenta == "135515";
        if (retencion || cuenta == "510506")
            c[LineasLibro::kTercero] = uno({"900123456", "800456789", ""});
        if (QStringList{"510506", "413505", "519530"}.contains(cuenta)) {
            c[LineasLibro::kProyecto] = uno({"0001", "0002"});
            c[LineasLibro::kCentro] = uno({"0001", "0002"});
        }
        c[LineasLibro::kConcepto] = uno({"", "\"", "Propio"});
        c[LineasLibro::kCategoria] = uno({"", "01", "02"});
        c[LineasLibro::kReferencia] = uno({"", "\"", "R-9"});
        if (retencion) {
            c[LineasLibro::kBase] = uno({"895000", "-950000", "100000"});
            if (cuenta == "236540" && c[LineasLibro::kBase] == "100000")
                c[LineasLibro::kPorcentaje] = "3.5"; // no llega al mínimo
        } else {
            c[una_de(2) ? LineasLibro::kDebito : LineasLibro::kCredito] =
                uno({"1000", "1,250.50", "7", "1.234,56"});
        }
        equivoque(l, retencion);
        return l;
    }

    void equivoque(LineaPlaneada& l, bool retencion) {
        const auto mal = [&](int columna, const QStringList& con, int una_de_cada = 6) {
            if (una_de(una_de_cada))
                l.primero[columna] = uno(con);
        };
        mal(LineasLibro::kCuenta, {"999999", "1105", "11050", "110510"});
        if (!l.celdas[LineasLibro::kTercero].isEmpty())
            mal(LineasLibro::kTercero, {"77", "19876543", ""});
        if (!l.celdas[LineasLibro::kCentro].isEmpty())
            mal(LineasLibro::kCentro, {"0099"});
        if (!l.celdas[LineasLibro::kCategoria].isEmpty())
            mal(LineasLibro::kCategoria, {"ZZ"});
        if (retencion)
            mal(LineasLibro::kBase, {""});
        if (!l.celdas[LineasLibro::kPorcentaje].isEmpty())
            mal(LineasLibro::kPorcentaje, {"", "250"}, 1); // son pocas las que lo digitan
        for (int lado : {LineasLibro::kDebito, LineasLibro::kCredito})
            if (!l.celdas[lado].isEmpty())
                mal(lado, {"1.250", "12e3"});
    }

    QRandomGenerator azar_;
};

const char* const kTitulos[2][12] = {
    {"", "", "", "", "", "", "", "Base", "Porc.", "Débito", "Crédito", ""},
    {"", "", "", "", "", "", "", "Base", "Porc.", "Debito", "Crédito", ""}};
const char* const kCampos[] = {"CUEN_COD",      "TERC_NIT",    "PROY_COD",     "CENT_COD",
                               "CODE_CONCEPTO", "CONC_COD",    "CODE_REFER",   "CODE_BASE",
                               "CODE_PORC",     "CODE_DEBITO", "CODE_CREDITO", "CODE_DESCONTABLE"};

QString rechazado(int libro, int linea, const QString& texto) {
    return QString("%1/%2: %3").arg(libro).arg(linea).arg(texto);
}

// ---------------------------------------------------------------- por la pantalla

class ConTeclado {
public:
    ConTeclado(SesionGui& s, Digitador& d) : d_(d), p_(d.p) { Q_UNUSED(s); }

    QStringList grabe(const Planeado& c) {
        rechazos_.clear();
        oprima(Qt::Key_PageUp, Qt::ControlModifier);
        d_.encabezado("CG", c.dia_bloqueado.isEmpty() ? c.dia : c.dia_bloqueado, c.concepto);
        for (const auto& [control, texto] :
             {std::pair{static_cast<QWidget*>(p_->ERef), c.referencia},
              std::pair{static_cast<QWidget*>(p_->DBEdit2), c.nit}})
            if (!texto.isEmpty()) {
                digite_en(control, texto, Qt::Key_Tab);
            }
        for (int libro : {0, 1}) {
            libro_ = libro;
            if (c.lineas[libro].isEmpty())
                continue;
            if (libro == 1)
                oprima(Qt::Key_PageDown, Qt::ControlModifier);
            d_.entre_a_la_rejilla();
            for (int n = 0; n < c.lineas[libro].size(); ++n)
                linea(n + 1, c.lineas[libro][n]);
        }
        termine(c);
        return rechazos_;
    }

private:
    Rejilla& r() { return d_.rejilla(); }

    /// Corre lo que puede rehusarse y anota lo que la pantalla dijo.
    void oiga(int linea, const std::function<void()>& haga) {
        Oyente oyente;
        haga();
        for (QString t : oyente.dichos) {
            // El nombre del centro se dice aparte de la validación.
            if (t == "Centro de costos no encontrado.")
                continue;
            rechazos_ << rechazado(libro_, linea, t.remove("Se presento el siguiente error: "));
        }
    }
    /// Anota lo que dice cada diálogo y lo deja con Esc: "No" o "Aceptar".
    struct Oyente : AtiendeDialogos {
        Oyente() { Guardia::unica().tome(this); }
        ~Oyente() override { Guardia::unica().suelte(this); }
        Oyente(const Oyente&) = delete;
        void atienda(QWidget& modal) override {
            const auto* mensaje = qobject_cast<QMessageBox*>(&modal);
            dichos << (mensaje ? mensaje->text() : Guardia::nombre(modal));
            Guardia::cierre(modal);
        }
        QStringList dichos;
    };

    void celda(int numero, int columna, const QString& texto) {
        oiga(numero, [&] {
            r().setFocus();
            r().SelectedIndex(columna);
            if (!texto.isEmpty())
                digite(texto);
            oprima(Qt::Key_Return);
            if (r().digitando())
                deseche();
        });
    }
    /// Lo que la celda rehusó no se queda en ella. En la rejilla NIIF Esc es de la pantalla.
    void deseche() {
        if (libro_ == 0) {
            oprima(Qt::Key_Escape);
            return;
        }
        oprima(Qt::Key_A, Qt::ControlModifier);
        oprima(Qt::Key_Delete);
    }
    void linea(int numero, const LineaPlaneada& l) {
        if (numero > 1) {
            oprima(Qt::Key_End, Qt::ControlModifier);
            if (!d_.celda("CUEN_COD").isEmpty())
                oprima(Qt::Key_Down);
        }
        for (int c = 0; c < 11; ++c) {
            if (l.primero.contains(c)) {
                celda(numero, c, l.primero[c]);
                if (l.primero[c].isEmpty() || l.primero[c] == l.celdas[c])
                    continue; // la olvida: se la reclaman al dejar la línea
            }
            if (c == LineasLibro::kDebito && l.cuadra)
                oprima(Qt::Key_F5);
            celda(numero, c, l.celdas[c]);
        }
        if (l.sobra)
            sume(numero, l.sobra);
        deje(numero, l);
    }
    /// Le suma a mano al lado que F5 llenó.
    void sume(int numero, int cuanto) {
        const int lado = Moneda::de_texto(d_.celda("CODE_DEBITO")).es_cero() ? LineasLibro::kCredito
                                                                             : LineasLibro::kDebito;
        const Moneda actual = Moneda::de_texto(d_.celda(kCampos[lado]));
        celda(numero, lado, (actual + Moneda(cuanto)).formateada());
    }
    /// Sale de la línea; lo que le reclaman lo escribe y vuelve a salir.
    void deje(int numero, const LineaPlaneada& l) {
        for (int vuelta = 0; vuelta < 6; ++vuelta) {
            const auto antes = rechazos_.size();
            celda(numero, LineasLibro::kDescontable, {});
            if (rechazos_.size() == antes)
                return;
            const QString dicho = rechazos_.last();
            const int falta = dicho.contains("un NIT")          ? int(LineasLibro::kTercero)
                              : dicho.contains("una base")      ? int(LineasLibro::kBase)
                              : dicho.contains("un porcentaje") ? int(LineasLibro::kPorcentaje)
                                                                : int(LineasLibro::kCentro);
            celda(numero, falta,
                  l.celdas[falta].isEmpty() ? QString("900123456") : l.celdas[falta]);
        }
    }
    void termine(const Planeado& c) {
        for (int vuelta = 0; vuelta < 4 && !p_->CDetalle.IsEmpty(); ++vuelta) {
            const auto antes = rechazos_.size();
            libro_ = 0;
            oiga(0, [] { oprima(Qt::Key_F2); });
            for (auto i = antes; i < rechazos_.size(); ++i) {
                if (rechazos_[i].contains("bloqueada")) {
                    p_->EDia->setFocus();
                    p_->EDia->selectAll();
                    digite(c.dia, Qt::Key_Tab);
                } else {
                    descuadre(c, rechazos_[i].contains("NIIF") ? 1 : 0);
                }
            }
        }
    }
    void descuadre(const Planeado& c, int libro) {
        oprima(libro == 1 ? Qt::Key_PageDown : Qt::Key_PageUp, Qt::ControlModifier);
        r().setFocus();
        oprima(Qt::Key_End, Qt::ControlModifier);
        libro_ = libro;
        sume(int(c.lineas[libro].size()), -c.lineas[libro].last().sobra);
    }

    Digitador& d_;
    Tfmovimien* p_;
    QStringList rechazos_;
    int libro_ = 0;
};

// ---------------------------------------------------------------- por el libro

class SinPantalla {
public:
    SinPantalla(Conexion& conexion, const AjustesLibro& ajustes)
        : conexion_(conexion), ajustes_(ajustes) {}

    QStringList grabe(const Planeado& plan) {
        rechazos_.clear();
        c_ = {};
        c_.tipo = "CG";
        c_.prefijo = "0001";
        c_.fecha = "201701" + (plan.dia_bloqueado.isEmpty() ? plan.dia : plan.dia_bloqueado);
        c_.concepto = plan.concepto;
        c_.referencia = plan.referencia;
        c_.nit = plan.nit;
        c_.nombre_tercero = nombre_de_tercero(conexion_, plan.nit);
        c_.usuario = "ADMIN";
        if (!plan.nit.isEmpty())
            memorias_.tercero_anterior = plan.nit;
        for (int n = 0; n < 2; ++n) {
            if (n == 1 && !plan.lineas[1].isEmpty())
                memorias_.tercero_anterior = plan.nit; // el paso de página graba el encabezado
            for (int i = 0; i < plan.lineas[n].size(); ++i)
                linea(n, i + 1, plan.lineas[n][i]);
        }
        grabe_corrigiendo(plan);
        memorias_.tercero_anterior = plan.nit;
        return rechazos_;
    }

private:
    void grabe_corrigiendo(const Planeado& plan) {
        for (int vuelta = 0; vuelta < 4; ++vuelta) {
            const ResultadoGrabacion r = grabe_comprobante(conexion_, c_, ajustes_);
            if (r.clase == ResultadoGrabacion::Grabado)
                return;
            for (const Rechazo& x : r.rechazos) {
                rechazos_ << rechazado(0, 0, x.texto);
                if (x.motivo == Motivo::Bloqueo) {
                    c_.fecha = "201701" + plan.dia;
                } else {
                    const int n = es_niif(*x.libro) ? 1 : 0;
                    sume(c_.lineas(*x.libro).last(), -plan.lineas[n].last().sobra);
                }
            }
        }
        rechazos_ << "no se grabó";
    }
    static void sume(LineaComprobante& l, int cuanto) {
        (l.debito.es_cero() ? l.credito : l.debito) += Moneda(cuanto);
    }
    Moneda importe(int n, int numero, int columna, const LineaPlaneada& l) {
        QStringList escritos{l.celdas[columna]};
        if (l.primero.contains(columna)) {
            if (l.primero[columna].isEmpty())
                return {}; // olvidado
            escritos.prepend(l.primero[columna]);
        }
        for (const QString& texto : escritos) {
            const auto leido =
                columna == LineasLibro::kPorcentaje ? lea_porcentaje(texto) : lea_importe(texto);
            const QString dicho = rechazo_de_importe(leido, texto, kTitulos[n][columna]);
            if (dicho.isEmpty())
                return leido.valor;
            rechazos_ << rechazado(n, numero, dicho);
        }
        return {};
    }
    /// Lo que la persona escribe primero en la columna.
    static QString texto(const LineaPlaneada& l, int columna) {
        return l.primero.value(columna, l.celdas[columna]);
    }
    void linea(int n, int numero, const LineaPlaneada& plan) {
        const Libro libro = n == 1 ? Libro::Niif : Libro::Decreto2649;
        LineaComprobante l;
        l.item = numero;
        l.cuenta = texto(plan, LineasLibro::kCuenta);
        l.nit = texto(plan, LineasLibro::kTercero);
        l.proyecto = texto(plan, LineasLibro::kProyecto);
        l.centro = texto(plan, LineasLibro::kCentro);
        l.concepto =
            concepto_al_dejarlo(texto(plan, LineasLibro::kConcepto), c_.concepto, memorias_);
        l.categoria = texto(plan, LineasLibro::kCategoria);
        l.referencia = referencia_al_dejarla(texto(plan, LineasLibro::kReferencia), c_.referencia);
        if (es_repeticion(l.referencia))
            l.referencia = memorias_.referencia_anterior;
        l.descontable = c_.descontable;
        // Lo que los códigos tienen de malo se corrige primero, celda por celda.
        con_importes_ = false;
        corrija(libro, n, l, plan);
        con_importes_ = true;
        l.base = importe(n, numero, LineasLibro::kBase, plan);
        l.porcentaje = importe(n, numero, LineasLibro::kPorcentaje, plan);
        l.debito = importe(n, numero, LineasLibro::kDebito, plan);
        l.credito = importe(n, numero, LineasLibro::kCredito, plan);
        calcule(libro, l);
        if (plan.cuadra) {
            const Lados lados = lados_que_cuadran(c_.debitos(libro), c_.creditos(libro));
            l.debito = lados.debito;
            l.credito = lados.credito;
            if (plan.sobra)
                sume(l, plan.sobra);
        }
        corrija(libro, n, l, plan);
        c_.lineas(libro) << l;
        if (n == 0)
            recuerde(memorias_, l, c_.nit.isEmpty());
    }
    void calcule(Libro libro, LineaComprobante& l) {
        const auto a = atributos_de_cuenta(conexion_, libro, l.cuenta);
        if (!a || l.base.es_cero())
            return;
        Moneda tarifa = l.porcentaje;
        if (const auto p =
                porcentaje_sugerido(l.base, l.porcentaje, a->base_minima, a->porcentaje)) {
            tarifa = *p;
            l.porcentaje = p->redondeada(es_niif(libro) ? 4 : 2);
        }
        if (const auto lados = lados_de_retencion(l.base, tarifa, ajustes_.digito_redondeo)) {
            l.debito = lados->debito;
            l.credito = lados->credito;
        }
    }
    /// Revisa la línea y corrige lo primero que se le rehúse, hasta que no haya nada.
    void corrija(Libro libro, int n, LineaComprobante& l, const LineaPlaneada& plan) {
        for (int vuelta = 0; vuelta < 10; ++vuelta) {
            if (const auto a = atributos_de_cuenta(conexion_, libro, l.cuenta);
                a && !revise_cuenta(conexion_, libro, l.cuenta))
                l.nit = tercero_al_dejarlo(l.nit, *a, memorias_);
            Comprobante sola = c_;
            sola.lineas_2649.clear();
            sola.lineas_niif.clear();
            sola.lineas(libro) << l;
            const Rechazos lista = revise(conexion_, sola, modo_de(Grabador::Lote), ajustes_);
            const auto r = std::find_if(lista.begin(), lista.end(), [&](const Rechazo& x) {
                // Lo que falta se reclama al dejar la línea, cuando ya están sus importes.
                const bool de_importes =
                    x.motivo == Motivo::FaltaBase || x.motivo == Motivo::FaltaPorcentaje;
                return x.de_linea() && (con_importes_ || !de_importes);
            });
            if (r == lista.end())
                return;
            rechazos_ << rechazado(n, int(l.item), r->pregunta.isEmpty() ? r->texto : r->pregunta);
            const auto debido = [&](int columna) { return plan.celdas[columna]; };
            if (r->campo == "CUEN_COD")
                l.cuenta = debido(LineasLibro::kCuenta);
            else if (r->campo == "TERC_NIT")
                l.nit = debido(LineasLibro::kTercero).isEmpty() ? "900123456"
                                                                : debido(LineasLibro::kTercero);
            else if (r->campo == "CENT_COD" || r->campo == "PROY_COD")
                l.centro = debido(LineasLibro::kCentro);
            else if (r->campo == "CONC_COD")
                l.categoria = debido(LineasLibro::kCategoria);
            else if (r->campo == "CODE_BASE")
                l.base = Moneda::de_texto(debido(LineasLibro::kBase));
            else
                l.porcentaje = Moneda::de_texto(debido(LineasLibro::kPorcentaje));
            calcule(libro, l);
        }
    }

    Conexion& conexion_;
    const AjustesLibro ajustes_;
    MemoriasLinea memorias_;
    Comprobante c_;
    QStringList rechazos_;
    bool con_importes_ = true;
};

QString filas(Conexion& c) {
    QString todo;
    for (const char* sufijo : {"", "_niif"})
        todo +=
            filas_de(
                c, QString("select e.enco_numero, e.enco_fecha, e.enco_concepto, e.enco_refer, "
                           "e.terc_nit, e.enco_nomterc, e.enco_usuario, d.code_item, d.cuen_cod, "
                           "d.terc_nit, d.proy_cod, d.cent_cod, d.code_concepto, d.conc_cod, "
                           "d.code_refer, d.code_base, d.code_porc, d.code_debito, d.code_credito, "
                           "d.code_descontable from comprobante_encabezado e join "
                           "comprobante_detalle%1 d on d.enco_consec = e.enco_consec order by 1, 8")
                       .arg(QLatin1String(sufijo))) +
            "\n--\n";
    return todo;
}

/// Las filas que no son las mismas, una junto a la otra.
QString distintas(const QString& pantalla, const QString& libro) {
    const QStringList una = pantalla.split('\n'), otra = libro.split('\n');
    QString todas;
    for (qsizetype i = 0; i < qMax(una.size(), otra.size()); ++i)
        if (una.value(i) != otra.value(i))
            todas += "\npantalla: " + una.value(i) + "\nlibro:    " + otra.value(i);
    return todas;
}

} // namespace

class PruebaLibroYPantalla : public QObject {
    Q_OBJECT
private slots:
    void lo_mismo_se_rehusa_y_lo_mismo_queda() {
        bool dicho = false;
        const int dichos = qEnvironmentVariableIntValue("QUORVEX_COMPROBANTES", &dicho);
        const int cuantos = dicho ? dichos : 40;
        qInfo("%d comprobantes", cuantos);
        SesionGui s;
        Digitador d(s);
        d.configure("GENERAL", "FECHA DE BLOQUEO", "20170110");
        d.configure("GENERAL", "REDONDEO AL MULTIPLO DE DIEZ EN COMPROBANTES", "2");
        d.abra();
        BaseDePrueba sola;
        ConTeclado con_teclado(s, d);
        SinPantalla sin_pantalla(sola.base(), s.cnt.ajustes_libro());
        AlAzar azar(20180221);
        int con_rechazos = 0;
        for (int n = 0; n < cuantos; ++n) {
            const Planeado c = azar.comprobante();
            QStringList uno = con_teclado.grabe(c), otro = sin_pantalla.grabe(c);
            uno.sort();
            otro.sort();
            QVERIFY2(uno == otro, qPrintable(QString("comprobante %1\npantalla:\n%2\nlibro:\n%3")
                                                 .arg(n + 1)
                                                 .arg(uno.join('\n'), otro.join('\n'))));
            con_rechazos += uno.isEmpty() ? 0 : 1;
        }
        const QString otras = distintas(filas(s.base.base()), filas(sola.base()));
        QVERIFY2(otras.isEmpty(), qPrintable(otras));
        QCOMPARE(s.base.base().consulte("select count(*) from comprobante_encabezado").entero(),
                 qint64(cuantos));
        QVERIFY(con_rechazos > cuantos / 3);
        QCOMPARE(saldos_distintos(s.base.base()), QString());
        QCOMPARE(saldos_distintos(sola.base()), QString());
    }
};

QTEST_MAIN(PruebaLibroYPantalla)
#include "prueba_libro_y_pantalla.moc"
