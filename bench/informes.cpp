// Informes: el auxiliar de cien mil renglones a PDF y la impresión de mil comprobantes, por sus
// pantallas.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "datos/firebird/conexion.h"
#include "reports/informe_de_prueba.h"
#include "reports/registro.h"
#include "reports/tfrngauxiliarcta.h"
#include "tests/fallas/contador.h"
#include "vouchers/registro.h"
#include "vouchers/tfimprmascomproba.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

constexpr int kRenglones = 100000;

int paginas_de(const QString& ruta) {
    QProcess p;
    p.start("pdfinfo", {ruta});
    p.waitForFinished();
    const auto cuantas =
        QRegularExpression("Pages:\\s+(\\d+)").match(QString::fromUtf8(p.readAllStandardOutput()));
    return cuantas.captured(1).toInt();
}

struct Salida {
    double ms;
    int paginas;
};

/// Imprime a PDF con la tecla F2 y mide desde ella hasta que el archivo está.
Salida imprima(Pantalla* pantalla) {
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("informe.pdf");
    Interlocutor i;
    espere_pdf(i, ruta);
    QElapsedTimer reloj;
    reloj.start();
    QTest::keyClick(pantalla, Qt::Key_F2);
    const double ms = double(reloj.nsecsElapsed()) / 1e6;
    if (!i.conforme())
        throw ErrorDatos(i.queja());
    return {ms, paginas_de(ruta)};
}

Salida auxiliar(const QString& desde, const QString& hasta) {
    auto* p = qobject_cast<Tfrngauxiliarcta*>(pantallas().abrir("Tfrngauxiliarcta"));
    p->findChild<QLineEdit*>("EFecIni")->setText(desde);
    p->findChild<QLineEdit*>("EFecFin")->setText(hasta);
    return imprima(p);
}

int traiga(const QString& desde, const QString& hasta) {
    const auto cursor = fdm().Quorvex.abra(
        "select * from auxiliar_desde_hasta('0', 'ZZ', " + QuotedStr(desde) + ", " +
        QuotedStr(hasta) + ", '', 'zz', '', 'zz', 'N') order by CUENTA,FECHA,PREFIJO,NUMERO");
    int filas = 0;
    while (cursor->siguiente())
        ++filas;
    return filas;
}

} // namespace

void mida_informe() {
    SesionEnLugar s(Ubicacion(demostracion(kRenglones)), "ADMIN", {});
    registre_pantallas_informes();
    // La caché de páginas de la base, llena desde el comienzo: es un tope fijo del motor.
    for (const char* tabla : {"comprobante_detalle", "comprobante_encabezado"})
        (void)fdm().Quorvex.consulte(QStringLiteral("select count(*) from ") + tabla);
    // Primero lo corto, para que la memoria de lo largo no esconda la suya.
    const int filas_mes = traiga("20170601", "20170699");
    const long vacia = memoria_maxima_mb();
    (void)auxiliar("20170601", "20170699");
    const long mes = memoria_maxima_mb();
    int filas = 0;
    const double crudo = mida([&] { filas = traiga("20170101", "20171399"); }, 2);
    const long cruda = memoria_maxima_mb();
    const Salida todo = auxiliar("20170101", "20171399");
    const long ano = memoria_maxima_mb();
    informe(QStringLiteral("auxiliar por cuenta de %1 renglones a PDF").arg(filas), todo.ms,
            "traer las mismas filas", crudo);
    nota(QStringLiteral("informe: %1 páginas, %2 por segundo")
             .arg(todo.paginas)
             .arg(todo.paginas * 1000.0 / todo.ms, 0, 'f', 0));
    nota(
        QStringLiteral("informe: memoria máxima %1 MB antes, %2 MB con %3 renglones; %4 MB después "
                       "de traer %5 sin informe")
            .arg(vacia)
            .arg(mes)
            .arg(filas_mes)
            .arg(cruda)
            .arg(filas));
    informe(QStringLiteral("memoria máxima con %1 renglones, en MB").arg(filas), double(ano),
            QStringLiteral("con %1").arg(filas_mes), double(mes), 1.3);
}

void mida_terceros() {
    constexpr int kTerceros = 50000;
    Copia copia;
    SesionEnLugar s(copia.lugar, "ADMIN", {});
    registre_pantallas_informes();
    s.cnt.periodo_actual = 11;
    fdm().Quorvex.ejecute(
        QStringLiteral("execute block as declare i integer = 0; begin while (i < %1) do begin "
                       "i = i + 1; insert into terceros (terc_nit, terc_nom) values ('T' || "
                       "lpad(:i, 8, '0'), 'Tercero ' || :i); insert into saldos_iniciales "
                       "(sain_item, cuen_cod, terc_nit, sain_debito, sain_credito) values "
                       "(1000000 + :i, %2, 'T' || lpad(:i, 8, '0'), :i, 0); end end")
            .arg(kTerceros)
            .arg(QuotedStr(cuenta_afectable(fdm().Quorvex, true))));
    const auto balance = [](const QString& desde, const QString& hasta) {
        Pantalla* p = pantallas().abrir("Tfrngbalancetercero", AbreInforme{"R"});
        p->findChild<QLineEdit*>("ENitIni")->setText(desde);
        p->findChild<QLineEdit*>("ENitFin")->setText(hasta);
        return imprima(p);
    };
    // La memoria que la base pide para ordenar, pedida desde el comienzo.
    for (auto c = fdm().Quorvex.abra("select * from balance_con_terceros_mes('2017', 12, '', 'ZZ', "
                                     "'', 'ZZ', 'N')");
         c->siguiente();) {
    }
    const Salida pocos = balance("T00000001", "T00000500");
    const long con_pocos = memoria_maxima_mb();
    const Salida todos = balance("", "ZZ");
    nota(QStringLiteral("terceros: %1 páginas, %2 por segundo; con 500 terceros, %3 páginas")
             .arg(todos.paginas)
             .arg(todos.paginas * 1000.0 / todos.ms, 0, 'f', 0)
             .arg(pocos.paginas));
    informe(QStringLiteral("memoria máxima con %1 terceros, en MB").arg(kTerceros),
            double(memoria_maxima_mb()), "con 500", double(con_pocos), 1.3);
}

void mida_masiva() {
    SesionEnLugar s(Ubicacion(demostracion(kRenglones)), "ADMIN", {});
    registre_pantallas_comprobantes();
    const auto cursor = fdm().Quorvex.abra(
        "select first 1 tico_cod, prco_pref, min(enco_numero) from comprobante_encabezado group "
        "by 1, 2 having count(*) > 1200 order by count(*)");
    if (!cursor->siguiente())
        throw ErrorDatos("la demostración no tiene un tipo con mil comprobantes");
    const QString tipo = cursor->valor(0).texto(), prefijo = cursor->valor(1).texto();
    const int desde = cursor->valor(2).entero();
    constexpr int kComprobantes = 1000;
    const QString condicion =
        QStringLiteral(" where tico_cod = %1 and prco_pref = %2 and "
                       "enco_numero between %3 and %4")
            .arg(QuotedStr(tipo), QuotedStr(prefijo),
                 QuotedStr(Tfdm::complete_numero(QString::number(desde))),
                 QuotedStr(Tfdm::complete_numero(QString::number(desde + kComprobantes - 1))));
    const double crudo = mida(
        [&] {
            QVector<int> ids;
            for (auto c = fdm().Quorvex.abra("select enco_consec from comprobante_encabezado" +
                                             condicion);
                 c->siguiente();)
                ids << int(c->valor(0).entero());
            for (int id : ids)
                for (auto c = fdm().Quorvex.abra(
                         QStringLiteral("select * from impr_comprobante(%1)").arg(id));
                     c->siguiente();) {
                }
        },
        2);
    auto* p = qobject_cast<Tfimprmascomproba*>(pantallas().abrir("Tfimprmascomproba"));
    p->CProv.FieldByName("TIPO") = tipo;
    p->CProv.FieldByName("PREF") = prefijo;
    p->Desde->setText(QString::number(desde));
    p->Hasta->setText(QString::number(desde + kComprobantes - 1));
    const Salida salida = imprima(p);
    informe(QStringLiteral("imprimir %1 comprobantes a PDF (%2 páginas)")
                .arg(kComprobantes)
                .arg(salida.paginas),
            salida.ms, "traer sus filas", crudo);
}
