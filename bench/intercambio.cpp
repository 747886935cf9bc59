// Traer un archivo y reparar el libro: importación, reemplazo de una cuenta y recálculo; y traer
// los saldos a la apertura NIIF.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "exchange/importacion.h"
#include "exchange/mantenimiento.h"
#include "libro/recalculo.h"
#include "niif/registro.h"
#include "niif/tfbalaperturaniif.h"
#include "tests/apoyo_gui/interlocutor.h"
#include "tests/fallas/contador.h"

#include <QFile>

namespace {

constexpr int kComprobantes = 500, kLineas = 20;

void conecte(Conexion& c, const Ubicacion& lugar) {
    ParametrosConexion p;
    p.base = lugar.base_compania("001");
    p.usuario = "SYSDBA";
    c.conectar(p);
}

QString numero(int n) {
    return QString::number(n).rightJustified(6, '0');
}
QString importe(int linea) {
    return QString::number(1000 + linea / 2);
}

/// Comprobantes de veinte líneas cuadradas desde el número dado.
void escriba(const QString& ruta, int primero, const QStringList& cuentas) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly))
        throw ErrorDatos(QStringLiteral("No se pudo escribir %1.").arg(ruta));
    for (int n = primero; n < primero + kComprobantes; ++n)
        for (int l = 0; l < kLineas; ++l)
            f.write(QStringLiteral("CG,0001,%1,20171210,Traído,,%2,,,,,,,%3,%4\r\n")
                        .arg(numero(n), cuentas[l % cuentas.size()], l % 2 ? "" : importe(l),
                             l % 2 ? importe(l) : "")
                        .toLatin1());
}

void importe_archivo(Conexion& c, const QString& ruta) {
    PeticionImportacion p;
    p.clase = ClaseImportacion::Comprobantes;
    p.archivo = ruta;
    for (const DatoImportacion& d : datos_de(p.clase))
        p.columnas.append({QLatin1String(d.clave), int(p.columnas.size()) + 1});
    const ResultadoImportacion r = importacion_de(c, p, {}, "ADMIN")->corra();
    if (r.grabados != qint64(kComprobantes) * kLineas)
        throw ErrorDatos("La importación no entró entera: " + r.resumen());
}

/// Las mismas filas, con los mismos disparadores y una transacción por comprobante.
void inserte_directo(Conexion& c, int primero, const QStringList& cuentas) {
    for (int n = primero; n < primero + kComprobantes; ++n)
        c.en_transaccion(ModoTransaccion::Escritura, [&](Transaccion& t) {
            const Valor id(1000000 + n);
            c.prepare("insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref,"
                      " enco_numero, enco_fecha, enco_concepto, enco_tiporef, enco_idref,"
                      " enco_usuario, enco_repniif) values (?, 'CG', '0001', ?, '20171210',"
                      " 'Traído', 0, 0, 'ADMIN', 'N')",
                      t)
                ->ejecute(t, {id, Valor(numero(n))});
            const auto linea =
                c.prepare("insert into comprobante_detalle (enco_consec, code_item, cuen_cod,"
                          " code_debito, code_credito) values (?, ?, ?, ?, ?)",
                          t);
            for (int l = 0; l < kLineas; ++l) {
                const Moneda valor = Moneda::de_texto(importe(l));
                linea->ejecute(t, {id, Valor(l + 1), Valor(cuentas[l % cuentas.size()]),
                                   l % 2 ? Moneda() : valor, l % 2 ? valor : Moneda()});
            }
        });
}

/// Con su cuenta más usada, o con la que menos lo es entre las que pasan de cien renglones.
struct Reemplazo {
    qint64 renglones = 0;
    double propio = 0, directo = 0;
};

Reemplazo mida_cuenta(Conexion& c, const QString& origen, const QString& destino) {
    Reemplazo r;
    const auto en_ensayo = [&](const QString& sql, const QVector<Valor>& valores) {
        Transaccion t(c, ModoTransaccion::Escritura);
        c.prepare(sql, t)->ejecute(t, valores);
        t.deshaga();
    };
    r.renglones =
        c.consulte("select count(*) from comprobante_detalle where cuen_cod = ?", {origen})
            .entero();
    std::tie(r.propio, r.directo) = compare(
        [&] {
            en_ensayo("execute procedure reemplace_cuenta(?, ?, '20170101', '20171399', null, 'S')",
                      {origen, destino});
        },
        [&] {
            en_ensayo("update comprobante_detalle d set cuen_cod = ? where cuen_cod = ? and"
                      " enco_consec in (select enco_consec from comprobante_encabezado where"
                      " enco_fecha >= '20170101' and enco_fecha <= '20171399')",
                      {destino, origen});
        },
        2);
    return r;
}

QString mas_usada(Conexion& c) {
    return c
        .consulte("select first 1 d.cuen_cod from comprobante_detalle d join cuentas c on"
                  " c.cuen_cod = d.cuen_cod where c.cuen_tipo = 'N' and c.cuen_tercero = 'N' and"
                  " c.cuen_centro = 'N' and c.cuen_retencion = 'N' group by 1 order by count(*)"
                  " desc")
        .texto();
}

double recalcule(Conexion& c) {
    return mida([&] { recalcule_saldos(c, Libro::Decreto2649, "20000101", "0", "99999999"); }, 3);
}

/// F7 en la apertura NIIF, en una compañía que abrió con esos clientes de más: hasta que sus líneas
/// están en la hoja. `lectura`: lo que cuesta recorrer los mismos saldos.
double traiga_saldos(int clientes, double* lectura = nullptr) {
    const Copia copia;
    Conexion c;
    conecte(c, copia.lugar);
    for (const char* orden :
         {"delete from apertura_niif_det", "delete from apertura_niif",
          "execute block as declare i integer = 1; begin while (i <= %1) do begin insert into "
          "terceros (terc_nit, terc_nom) values ('7' || lpad(:i, 8, '0'), 'Cliente ' || :i); "
          "insert "
          "into saldos_iniciales (sain_item, cuen_cod, terc_nit, sain_debito) values (1000000 + :i,"
          " '130505', '7' || lpad(:i, 8, '0'), :i); i = i + 1; end end"})
        c.ejecute(QString(orden).replace("%1", QString::number(clientes)));
    SesionEnLugar s(copia.lugar, "ADMIN", {});
    s.reloj.stop(); // aquí los mensajes se contestan
    registre_pantallas_niif();
    auto* p = qobject_cast<Tfbalaperturaniif*>(pantallas().abrir("Tfbalaperturaniif"));
    Interlocutor i;
    i.espere_comienzo("Esta opción copia los saldos", "Sí");
    i.espere_comienzo("Se trajeron los saldos");
    const double ms = mida([p] { QTest::keyClick(p->DBGridEh1, Qt::Key_F7); }, 1);
    if (p->CSaldos.RecordCount() < 10)
        throw ErrorDatos(QStringLiteral("No se trajeron los saldos."));
    if (lectura)
        *lectura = mida(
            [] {
                const auto filas = fdm().Quorvex.abra(
                    "select * from balance_final_det('2016', 13, 'N') where codigo < '4'");
                while (filas->siguiente()) {
                }
            },
            3);
    p->CSaldos.CancelUpdates();
    return ms;
}

} // namespace

void mida_traslado() {
    constexpr int kMuchos = 20000, kPocos = 2000;
    double lectura = 0;
    const double muchos = traiga_saldos(kMuchos, &lectura), pocos = traiga_saldos(kPocos);
    const QString medida = "traer los saldos de 20.000 clientes a la apertura NIIF (F7)";
    informe(medida, muchos, "los de 2.000", pocos, 13);
    informe(medida, muchos, "recorrerlos en la base", lectura);
}

void mida_importacion() {
    const Copia copia;
    Conexion c;
    conecte(c, copia.lugar);
    QStringList cuentas{cuenta_afectable(c, false), mas_usada(c), "110510", "310505"};
    const QString ruta = copia.carpeta.filePath("entrada.csv");
    int tanda = 100000;
    double propio = 1e12, directo = 1e12;
    for (int i = 0; i < 5; ++i) {
        escriba(ruta, tanda, cuentas);
        propio = qMin(propio, mida([&] { importe_archivo(c, ruta); }, 1));
        tanda += kComprobantes;
        directo = qMin(directo, mida([&] { inserte_directo(c, tanda, cuentas); }, 1));
        tanda += kComprobantes;
    }
    informe(QStringLiteral("importar %1 renglones de comprobantes").arg(kComprobantes * kLineas),
            propio, "las mismas filas por inserciones preparadas", directo, 2);
    nota(QStringLiteral("importación: %1 renglones por segundo")
             .arg(qRound(kComprobantes * kLineas * 1000.0 / propio)));
}

void mida_reemplazo() {
    Conexion grande, chica;
    conecte(grande, Ubicacion(demostracion(1000000)));
    conecte(chica, Ubicacion(demostracion(100000)));
    const QString cuenta = mas_usada(grande);
    const Reemplazo g = mida_cuenta(grande, cuenta, "110510"),
                    p = mida_cuenta(chica, cuenta, "110510");
    informe(QStringLiteral("reemplazar la cuenta %1, %2 renglones de un libro de 1.000.000")
                .arg(cuenta)
                .arg(g.renglones),
            g.propio, "la misma orden UPDATE, sin revisar nada", g.directo, 1.5);
    // Sin tope: en el libro mayor ya no cabe en la caché, y la orden directa crece lo mismo.
    informe(QStringLiteral("el mismo, cada mil renglones"), g.propio * 1000 / g.renglones,
            QStringLiteral("en un libro de 100.000 (%1 renglones)").arg(p.renglones),
            p.propio * 1000 / p.renglones);
    informe(QStringLiteral("la orden UPDATE, cada mil renglones"), g.directo * 1000 / g.renglones,
            QStringLiteral("en un libro de 100.000"), p.directo * 1000 / p.renglones);
}

void mida_recalculo() {
    Conexion grande, chica;
    conecte(grande, Ubicacion(demostracion(1000000)));
    conecte(chica, Ubicacion(demostracion(100000)));
    const double mil = recalcule(grande), cien = recalcule(chica);
    informe("recalcular los saldos de 1.000.000 de renglones de un libro", mil, "de 100.000", cien,
            13);
    const double suma = mida(
        [&] {
            grande.consulte("select count(*) from (select cuen_cod, terc_nit, proy_cod, cent_cod,"
                            " arti_cod, substring(code_fecha from 1 for 6) mes, sum(code_debito) d,"
                            " sum(code_credito) c from comprobante_detalle group by 1, 2, 3, 4, 5,"
                            " 6)");
        },
        2);
    informe("recalcular los saldos de 1.000.000 de renglones de un libro", mil,
            "sumarlos una vez en SQL", suma, 6);
}
