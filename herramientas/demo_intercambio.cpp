#include "herramientas/demo_intercambio.h"

#include "herramientas/demo_catalogos.h"
#include "herramientas/guion.h"
#include "herramientas/instalador.h"

#include <QDir>
#include <QSaveFile>

using namespace cuenta_demo;

namespace {

QByteArray lea(const QString& relativo) {
    QFile f(carpeta_guiones() + '/' + relativo);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("No se pudo leer %1.").arg(f.fileName()));
    return f.readAll();
}

// ---------------------------------------------------------------- apertura

constexpr const char* kUtilidades = "370505";
constexpr const char* kPlazoFijo = "122505";
constexpr const char* kSinTrabajar = "236530";
constexpr int kAPlazo = 28000000; ///< de los ahorros, lo que vence a más de noventa días

/// Los saldos con que empezó el año, ya cruzados, como los trae la pantalla.
void traiga_saldos(Conexion& c, int ano) {
    const QVector<Valor> anterior{Valor(QString::number(ano - 1))};
    c.ejecute("insert into apertura_niif (cuen_cod, apni_cuenniif, apni_saldoant, apni_ajustedb,"
              " apni_ajustecr, apni_saldoniif) select codigo, max(cuentaniif), sum(saldo), 0, 0,"
              " sum(saldo) from balance_final_det(?, 13, 'N') where codigo < '4' group by codigo",
              anterior);
    for (const char* lado :
         {"item * 2 - 1, codigo, null, maxvalue(-saldo, 0), maxvalue(saldo, 0), saldo, 0",
          "item * 2, null, cuentaniif, maxvalue(saldo, 0), maxvalue(-saldo, 0), 0, saldo"})
        c.ejecute(
            QStringLiteral("insert into apertura_niif_det (cuen_cod, terc_nit, proy_cod,"
                           " cent_cod, acti_cod, apnd_debito, apnd_credito, apnd_item, apnd_cuenta,"
                           " apnd_ctaniif, apnd_recldb, apnd_reclcr, apnd_saldoini,"
                           " apnd_saldofin) select codigo, nit, proy, centro, articulo, 0, 0,"
                           " %1 from"
                           " (select b.*, row_number() over (partition by codigo order by"
                           " nit, proy, centro, articulo) item from balance_final_det(?, 13, 'N') b"
                           " where codigo < '4')")
                .arg(QLatin1String(lado)),
            anterior);
}

/// Otra línea NIIF de la cuenta: el ajuste o la reclasificación va en `columna`.
void agregue(Conexion& c, const char* cuenta, const char* niif, const QString& concepto,
             const char* columna, int valor, int saldo) {
    c.ejecute(
        QStringLiteral("insert into apertura_niif_det (cuen_cod, apnd_item, apnd_ctaniif,"
                       " apnd_concepto, %1, apnd_saldoini, apnd_saldofin) values (?, (select"
                       " max(apnd_item) + 1 from apertura_niif_det where cuen_cod = ?), ?,"
                       " ?, ?, 0, ?)")
            .arg(QLatin1String(columna)),
        {Valor(cuenta), Valor(cuenta), Valor(niif), Valor(concepto), Valor(valor), Valor(saldo)});
}

/// Lo que el libro NIIF había depreciado de más o de menos al abrir, por su otra vida útil.
void ajuste_depreciado(Conexion& c, const DepreciacionDemo& d) {
    const int ajuste = d.inicial(false) - d.inicial(true);
    const bool debito = ajuste > 0;
    const QString concepto = debito ? "Mayor vida útil" : "Menor vida útil";
    const QString lado = debito ? "db" : "cr";
    c.ejecute(QStringLiteral("update apertura_niif_det set apnd_%1 = ?, apnd_saldofin ="
                             " apnd_saldofin + ?, apnd_concepto = ? where cuen_cod = ? and"
                             " apnd_item = 2")
                  .arg(debito ? "debito" : "credito"),
              {Valor(qAbs(ajuste)), Valor(ajuste), Valor(concepto), Valor(d.acumulada)});
    agregue(c, d.acumulada, kUtilidades, concepto, debito ? "apnd_credito" : "apnd_debito",
            qAbs(ajuste), -ajuste);
    const QString nota =
        QStringLiteral("%1: se deprecia en %2 meses y no en %3. Al abrir lleva %4"
                       " y no %5.")
            .arg(QString::fromUtf8(d.nombre))
            .arg(d.vida_niif)
            .arg(d.vida)
            .arg(Moneda(d.inicial(true)).formateada(0), Moneda(d.inicial(false)).formateada(0));
    c.ejecute(QStringLiteral("update apertura_niif set apni_ajuste%1 = ?, apni_saldoniif ="
                             " apni_saldoniif + ?, apni_nota = ? where cuen_cod = ?")
                  .arg(lado),
              {Valor(qAbs(ajuste)), Valor(ajuste), Valor(nota), Valor(d.acumulada)});
}

void trabaje_apertura(Conexion& c) {
    for (const DepreciacionDemo& d : kDepreciaciones)
        ajuste_depreciado(c, d);
    c.ejecute("update apertura_niif set apni_nota = apni_nota || ' El cálculo está en la hoja de"
              " trabajo.', apni_archivo = ? where cuen_cod = '159235'",
              {Valor(lea(QStringLiteral("niif/ejemplos/hoja_camion.xlsx")))});
    // De los ahorros, lo que está a término pasa a inversiones.
    c.ejecute("update apertura_niif_det set apnd_recldb = apnd_recldb - ?, apnd_saldofin ="
              " apnd_saldofin - ? where cuen_cod = ? and apnd_item = 2",
              {Valor(kAPlazo), Valor(kAPlazo), Valor(kAhorros)});
    agregue(c, kAhorros, kPlazoFijo, "CDT a más de noventa días", "apnd_recldb", kAPlazo, kAPlazo);
    c.ejecute("update apertura_niif set apni_nota = 'Hay un CDT por 28.000.000 que vence a más de"
              " noventa días: no es efectivo ni equivalente.' where cuen_cod = ?",
              {Valor(kAhorros)});
    // Una cuenta está por trabajar; es chica, para que el balance se lea entero.
    c.ejecute("delete from apertura_niif_det where cuen_cod = ?", {Valor(kSinTrabajar)});
}

// ---------------------------------------------------------------- procedimientos y equivalencias

void instale_procedimientos(Conexion& c) {
    const QString archivo = QStringLiteral("exchange/ejemplos/procedimientos_usuario.sql");
    for (const SentenciaGuion& s : lea_guion(QString::fromUtf8(lea(archivo)), archivo))
        c.ejecute(s.texto);
}

void siembre_equivalencias(Conexion& c) {
    for (const auto& [propia, destino] :
         {std::pair{kCaja, "11050501"}, {kClientes, "13050501"}, {kProveedores, "22050501"}})
        c.ejecute("insert into cuentas_exportacion (cuen_cod, cuex_cod) values (?, ?)",
                  {Valor(propia), Valor(destino)});
    for (const auto& [tipo, prefijo, destino, otro] : {std::tuple{"FV", "0001", "F", "001"},
                                                       {"FV", "0002", "F", "002"},
                                                       {"CE", "0001", "G", "001"}})
        c.ejecute("insert into prefijos_exportacion (prex_tipo, prex_pref, prex_tipoexp,"
                  " prex_exporta) values (?, ?, ?, ?)",
                  {Valor(tipo), Valor(prefijo), Valor(destino), Valor(otro)});
}

// ---------------------------------------------------------------- archivos de muestra

void escriba(const QString& ruta, const QStringList& renglones) {
    QSaveFile f(ruta);
    if (!f.open(QIODevice::WriteOnly) ||
        f.write((renglones.join("\r\n") + "\r\n").toLatin1()) < 0 || !f.commit())
        throw ErrorDatos(QStringLiteral("No se pudo escribir %1.").arg(ruta));
}

QStringList cuentas_de_muestra() {
    return {"11100502,Banco de la Sabana cuenta corriente,N,N,N,,,,11100501,N",
            "11200502,Cuenta de ahorros de nómina,N,N,N,,,,11200501,N",
            "13809501,Préstamos a contratistas,S,N,N,,,,138095,N",
            "110505,Caja general,N,N,N,,,,110505,N"}; // ya está: no cambia
}

QStringList terceros_de_muestra() {
    return {"830990015,Ferretería del Puerto S.A.S.,Calle 8 # 3-21,Medellín,Medellín,"
            "5557788,,,compras@puerto.com.co,,J,,,,,S,N,N",
            "830990023,Transportes La Ceiba Ltda.,Carrera 15 # 40-02,Cali,Cali,"
            "5551122,,,,,J,,,,,N,S,N",
            "1090444555,,Calle 22 # 9-10,Tunja,Tunja,,,300 5550199,,,C,Rincón,Mejía,Laura,Inés,"
            "S,N,N"};
}

/// Un comprobante por prefijo propio, para no estorbar a los que ya están.
QString renglon(int numero, const QString& fecha, const QString& concepto, const QString& cuenta,
                const QString& resto, const QString& debito, const QString& credito) {
    return QStringLiteral("CG,IMP,%1,%2,%3,,%4,%5,%6,%7")
        .arg(numero)
        .arg(fecha, concepto, cuenta, resto, debito, credito);
}

QStringList comprobantes_de_muestra(const QString& proveedor, int ano) {
    const QString dia = QString::number(ano) + "1215", sin = ",,,,,", nit = proveedor + ",,,,,",
                  gasto = proveedor + ",0001,0001,,,", retenido = proveedor + ",,,,-1000000,2.5";
    return {renglon(1, dia, "Energía de la sede", "513530", gasto, "350000", ""),
            renglon(1, dia, "Energía de la sede", kProveedores, nit, "", "350000"),
            renglon(2, dia, "Consignación", kCorriente, sin, "1200000.50", ""),
            renglon(2, dia, "Consignación", kCaja, sin, "", "1200000.50"),
            renglon(3, dia, "Retención que faltó", kProveedores, nit, "25000", ""),
            renglon(3, dia, "Retención que faltó", kRetencionCompras, retenido, "", "25000")};
}

QStringList comprobantes_con_fallas(const QString& proveedor, int ano) {
    const QString dia = QString::number(ano) + "1216", sin = ",,,,,";
    QStringList r{
        renglon(11, dia, "Bueno", kCaja, sin, "1000", ""),
        renglon(11, dia, "Bueno", kCorriente, sin, "", "1000"),
        renglon(12, dia, "Sin cuadrar", kCaja, sin, "1000", ""),
        renglon(12, dia, "Sin cuadrar", kCorriente, sin, "", "900"),
        renglon(13, dia, "Cuenta errada", "110599", sin, "500", ""),
        renglon(13, dia, "Cuenta errada", kCaja, sin, "", "500"),
        renglon(14, dia, "Sin tercero", kClientes, sin, "700", ""),
        renglon(14, dia, "Sin tercero", kCaja, sin, "", "700"),
        renglon(15, QString::number(ano) + "1232", "Fecha errada", kCaja, sin, "10", "10"),
        renglon(16, dia, "Importe dudoso", kProveedores, proveedor + sin, "1.250", ""),
        renglon(16, dia, "Importe dudoso", kCaja, sin, "", "1250")};
    r << QStringLiteral("ZZ,IMP,17,%1,Tipo que no hay,,110505,,,,,,,5,5").arg(dia);
    return r;
}

QStringList saldos_de_muestra(Conexion& c) {
    QStringList r;
    const auto filas =
        c.abra("select cuen_cod, terc_nit, proy_cod, cent_cod, arti_cod, sain_debito,"
               " sain_credito, doco_numero, doco_vence, nullif(sain_tipodoc, 0) from"
               " saldos_iniciales order by sain_item");
    while (filas->siguiente()) {
        QStringList campos;
        for (int i = 0; i < filas->columnas().size(); ++i)
            campos << filas->valor(i).texto();
        r << campos.join(',');
    }
    return r;
}

} // namespace

void siembre_intercambio(Conexion& compania, int ano) {
    traiga_saldos(compania, ano);
    trabaje_apertura(compania);
    instale_procedimientos(compania);
    siembre_equivalencias(compania);
}

void escriba_muestras(Conexion& compania, const QString& carpeta, int ano) {
    if (!QDir().mkpath(carpeta))
        throw ErrorDatos(QStringLiteral("No se pudo crear la carpeta %1.").arg(carpeta));
    const QString proveedor =
        compania
            .consulte("select min(terc_nit) from terceros where terc_prov = 'S' and terc_estado ="
                      " 'S'")
            .texto();
    escriba(carpeta + "/cuentas.csv", cuentas_de_muestra());
    escriba(carpeta + "/terceros.csv", terceros_de_muestra());
    escriba(carpeta + "/comprobantes.csv", comprobantes_de_muestra(proveedor, ano));
    escriba(carpeta + "/comprobantes_con_fallas.csv", comprobantes_con_fallas(proveedor, ano));
    escriba(carpeta + "/saldos_iniciales.csv", saldos_de_muestra(compania));
}
