// De la tecla al monitor: completar entre 20.000 terceros o 20.000 cuentas, digitar un importe en
// un comprobante largo y abrir uno de 2.000 líneas.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "sesion/indices_catalogos.h"
#include "tests/fallas/contador.h"

#include <QClipboard>

namespace {

constexpr int kTerceros = 20000, kCuentas = 20000, kLineas = 2000, kLargo = 90000000;
constexpr double kMsTecla = 30, kMsAbrir = 300;

void siembre(Conexion& c) {
    // Nombres de tres palabras que se repiten entre muchos, como los de verdad.
    c.ejecute(
        QString("execute block as declare i integer = 0; begin while (i < %1) do begin insert into "
                "terceros (terc_nit, terc_nom, terc_tipoid, terc_estado) values ('9' || lpad(:i, "
                "8, '0'), case mod(:i, 7) when 0 then 'Comercializadora' when 1 then 'Inversiones' "
                "when 2 then 'Pérez' when 3 then 'Transportes' when 4 then 'García' when 5 then "
                "'Ferretería' else 'Distribuciones' end || ' ' || case mod(:i, 11) when 0 then "
                "'Andina' when 1 then 'del Norte' when 2 then 'Bogotá' else 'Central' end || ' ' "
                "|| :i, 'J', 'S'); i = i + 1; end end")
            .arg(kTerceros));
    agrande_plan(c, kCuentas);
    c.ejecute("update cuentas set cuen_nom = case mod(cast(cuen_cod as bigint), 5) when 0 then "
              "'Bancos' when 1 then 'Pérdidas' when 2 then 'Provisión' when 3 then 'Deudores' "
              "else 'Ingresos' end || ' de la sucursal ' || cuen_cod "
              "where cuen_cod starting with '99'");
}

/// Un comprobante de muchas líneas, de las mismas cuentas en los dos libros.
void siembre_uno_largo(Conexion& c) {
    const QString cuenta = QuotedStr(cuenta_afectable(c, false));
    c.ejecute(QString("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                      "enco_numero, enco_fecha, enco_concepto, enco_usuario) values (%1, 'CG', "
                      "'0001', '900000', '20171215', 'Nómina', 'ADMIN')")
                  .arg(kLargo));
    for (const char* detalle : {"comprobante_detalle", "comprobante_detalle_niif"})
        c.ejecute(QString("execute block as declare i integer = 0; begin while (i < %1) do begin i "
                          "= i + 1; insert into %2 (enco_consec, code_item, cuen_cod, "
                          "code_concepto, code_debito, code_credito) values (%3, :i, %4, 'Sueldo', "
                          "mod(:i, 2) * 1000, (1 - mod(:i, 2)) * 1000); end end")
                      .arg(kLineas)
                      .arg(detalle)
                      .arg(kLargo)
                      .arg(cuenta));
}

/// Abrirlo para corregir, hasta que está pintado y Av Pág se mueve por él.
void mida_apertura(Contador& c) {
    siembre_uno_largo(c.dm.Quorvex);
    double abrir = 1e12, pagina = 1e12;
    for (int i = 0; i < 5; ++i) {
        Tfedtmovimien* e = nullptr;
        abrir = qMin(abrir, mida(
                                [&] {
                                    e = c.edite("900000");
                                    c.ventana.repaint();
                                },
                                1));
        if (!e || e->CDetalle.RecordCount() != kLineas)
            throw ErrorDatos("no abrió el comprobante largo");
        e->lineas_2649->rejilla->setFocus();
        pagina = qMin(pagina, mida(
                                  [&] {
                                      oprima(Qt::Key_PageDown);
                                      c.ventana.repaint();
                                  },
                                  1));
        e->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    informe(QString("abrir un comprobante de %1 líneas, hasta verlo").arg(kLineas), abrir,
            "el tope", kMsAbrir, 1);
    informe("pasar de página en él", pagina, "el tope", kMsTecla, 1);
}

/// Digita letra por letra y devuelve la tecla más lenta, con lo que deja pintado.
double peor_tecla(const QString& texto, QWidget& ventana) {
    double peor = 0;
    for (const QChar c : texto)
        peor = qMax(peor, mida(
                              [&] {
                                  digite(QString(c));
                                  ventana.repaint();
                              },
                              1));
    return peor;
}

/// La tecla más lenta al completar textos en esa columna, con su lista pintada. La celda queda como
/// estaba.
double peor_al_completar(Contador& c, int columna, std::initializer_list<const char*> textos) {
    Rejilla& r = *c.p->lineas_2649->rejilla;
    double peor = 0;
    for (const char* texto : textos) {
        r.setFocus();
        r.SelectedIndex(columna);
        peor = qMax(peor, peor_tecla(texto, c.ventana));
        oprima(Qt::Key_Escape); // la lista, si quedó
        if (r.digitando())
            oprima(Qt::Key_Escape);
    }
    return peor;
}

} // namespace

void mida_teclado() {
    Copia copia;
    {
        Conexion c;
        c.conectar({copia.lugar.base_compania("001"), "ADMIN", {}});
        siembre(c);
    }
    Contador c(copia.lugar, "ADMIN", {});
    const QString cuenta = cuenta_afectable(c.dm.Quorvex, true);
    c.p->DBEdit1->setFocus();
    digite("Concepto");
    Rejilla& r = *c.p->lineas_2649->rejilla;
    const double llegar = mida([&] { r.setFocus(); }, 1);
    r.SelectedIndex(0);
    c.linea({cuenta});
    c.p->GroupBox1->hide();
    auto& indices = IndicesCatalogos::de_la_sesion();
    const auto complete = [&](const QString& entre_que, int columna, int hay, int minimo,
                              std::initializer_list<const char*> textos) {
        const double peor = peor_al_completar(c, columna, textos);
        if (hay < minimo)
            throw ErrorDatos(QString("solo hay %1 %2").arg(hay).arg(entre_que));
        informe(QString("la tecla más lenta al completar entre %1 %2").arg(hay).arg(entre_que),
                peor, "el tope", kMsTecla, 1);
    };
    complete("terceros", 1, int(indices.terceros().cuantos()), kTerceros,
             {"perez", "ferreteria bogota 1", "9000", "zzz", "inversiones cen"});
    complete("cuentas", 0, int(indices.cuentas(Libro::Decreto2649).cuantos()), kCuentas,
             {"perdidas", "provision sucursal 9", "9900", "zzz", "deudores de la"});
    informe("llegar a las líneas la primera vez, con su lectura", llegar, "-", llegar);
    informe("volver a ellas sin que nada cambie",
            mida([] { IndicesCatalogos::de_la_sesion().refresque(Libro::Decreto2649); }), "-",
            llegar);
    c.p->CDetalle.Cancel();
    const QString llana = cuenta_afectable(c.dm.Quorvex, false);
    QStringList filas;
    for (int i = 0; i < kLineas; ++i)
        filas << llana + QString(9, '\t') + "1000";
    QApplication::clipboard()->setText(filas.join('\n'));
    r.setFocus();
    r.SelectedIndex(0);
    oprima(Qt::Key_V, Qt::ControlModifier);
    if (c.p->CDetalle.RecordCount() < kLineas)
        throw ErrorDatos("no entraron las líneas: " + c.mensajes.join(" / "));
    // La más lenta de cada pasada, en la que menos estorbó el resto del equipo.
    double importe = 1e12;
    for (int i = 0; i < 5; ++i) {
        r.SelectedIndex(LineasLibro::kDebito);
        importe = qMin(importe, peor_tecla("1250000*0.19", c.ventana));
        oprima(Qt::Key_Escape);
    }
    informe(QString("la tecla más lenta en un importe, con %1 líneas").arg(kLineas), importe,
            "el tope", kMsTecla, 1);
    mida_apertura(c);
}
