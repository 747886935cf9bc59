// Comprobantes que se revisan, se graban y se borran sin pantalla, sobre una base verdadera.
#include "libro/borrado.h"
#include "libro/grabacion.h"
#include "libro/numeracion.h"
#include "libro/revision.h"

namespace {

using Clase = ResultadoGrabacion;

LineaComprobante linea(const char* cuenta, int debito, int credito) {
    LineaComprobante l;
    l.cuenta = cuenta;
    l.debito = debito;
    l.credito = credito;
    l.descontable = "S";
    return l;
}

Comprobante sencillo(int pesos = 100) {
    Comprobante c;
    c.tipo = "CG";
    c.prefijo = "0001";
    c.fecha = "20170210";
    c.concepto = "Venta de contado";
    c.usuario = "ADMIN";
    c.lineas_2649 = {linea("110505", pesos, 0), linea("310505", 0, pesos)};
    return c;
}

QStringList textos(const Rechazos& lista) {
    QStringList t;
    for (const Rechazo& r : lista)
        t << r.texto;
    return t;
}

/// "libro/línea/campo", con "-" donde no hay.
QString lugar(const Rechazo& r) {
    return QStringLiteral("%1/%2/%3")
        .arg(r.libro ? QString(datos(*r.libro).nombre) : QString("-"),
             r.de_linea() ? QString::number(r.item) : QString("-"),
             r.campo.isEmpty() ? "-" : r.campo);
}

} // namespace

class PruebaGrabacion : public PruebaConBase {
    Q_OBJECT
private slots:
    void init() {
        PruebaConBase::init();
        ajustes_ = {};
    }

    void un_comprobante_en_lote_se_graba_se_corrige_y_se_relee();
    void cada_rechazo_dice_que_esta_mal_y_donde();
    void los_rechazos_salen_todos_de_una_vez_y_en_orden();
    void un_numero_que_ya_esta_se_puede_consultar();
    void lo_que_se_rehusa_en_lote_es_lo_mismo_que_rehusa_la_base();
    void cada_libro_se_bloquea_con_su_llave();
    void sin_cuenta_equivalente_no_se_replica_a_medias();
    void el_numero_automatico_tomado_avanza_solo();
    void varios_que_graban_a_la_vez_no_ven_un_numero_repetido();
    void el_borrado_es_todo_o_nada_y_lo_firma_quien_borra();
    void un_cambio_ajeno_se_avisa_antes_de_borrar();

private:
    QString encabezados() {
        return filas_de(base(), "select enco_numero, enco_fecha, enco_concepto from "
                                "comprobante_encabezado order by 1");
    }
    QString lineas(qint64 id, const char* sufijo = "") {
        return filas_de(base(), QStringLiteral("select code_item, cuen_cod, code_debito, "
                                               "code_credito, terc_nit from comprobante_detalle%1 "
                                               "where enco_consec = %2 order by 1")
                                    .arg(sufijo)
                                    .arg(id));
    }
    ResultadoGrabacion grabe(const Comprobante& c) {
        return grabe_comprobante(base(), c, ajustes_);
    }
    Rechazos revise(const Comprobante& c) {
        return ::revise(base(), c, modo_de(Grabador::Lote), ajustes_);
    }

    AjustesLibro ajustes_;
};

void PruebaGrabacion::un_comprobante_en_lote_se_graba_se_corrige_y_se_relee() {
    Comprobante c = sencillo();
    c.observaciones = "Con \"comillas\", ñ y\ndos renglones";
    c.lineas_niif = {linea("111005", 100, 0), linea("310505", 0, 100)};
    const ResultadoGrabacion r = grabe(c);
    QCOMPARE(textos(r.rechazos), QStringList());
    QCOMPARE(r.clase, Clase::Grabado);
    QCOMPARE(r.numero, "000001");
    QVERIFY(r.id > 0);
    QCOMPARE(lineas(r.id), "1|110505|100|0|\n2|310505|0|100|");
    QCOMPARE(lineas(r.id, "_niif"), "1|111005|100|0|\n2|310505|0|100|");

    // Lo leído es lo mandado, con lo que la base le puso.
    c.id = r.id;
    c.numero = "000001";
    auto leido = lea_comprobante(base(), r.id);
    QVERIFY(leido);
    for (Libro l : {Libro::Decreto2649, Libro::Niif})
        for (int i = 0; i < 2; ++i)
            c.lineas(l)[i].item = i + 1;
    QVERIFY(*leido == c);
    QVERIFY(!lea_comprobante(base(), r.id + 1));

    // Corregido: una línea cambia, una se va y otra llega. El número y el id son los mismos.
    c.lineas_2649[0].debito = 130;
    c.lineas_2649[1] = linea("310505", 0, 130);
    c.lineas_niif = {};
    c.concepto = "Venta corregida";
    const ResultadoGrabacion otra = grabe(c);
    QCOMPARE(textos(otra.rechazos), QStringList());
    QCOMPARE(otra.id, r.id);
    QCOMPARE(encabezados(), "000001|20170210|Venta corregida");
    QCOMPARE(lineas(r.id), "1|110505|130|0|\n2|310505|0|130|");
    QCOMPARE(lineas(r.id, "_niif"), QString());
    QCOMPARE(saldos_distintos(base()), QString());

    // Uno que no está no se inventa.
    c.id = 99999;
    c.numero = "000099";
    QCOMPARE(grabe(c).clase, Clase::Fallo);
    QCOMPARE(base().consulte("select count(*) from comprobante_encabezado").entero(), qint64(1));
}

void PruebaGrabacion::cada_rechazo_dice_que_esta_mal_y_donde() {
    QCOMPARE(grabe(sencillo()).numero, "000001");
    const auto con = [](const std::function<void(Comprobante&)>& cambio) {
        Comprobante c = sencillo();
        cambio(c);
        return c;
    };
    const auto primera = [&con](const std::function<void(LineaComprobante&)>& cambio) {
        return con([&](Comprobante& c) { cambio(c.lineas_2649[0]); });
    };
    const struct {
        Comprobante c;
        const char *texto, *lugar;
    } casos[] = {
        {con([](auto& c) { c.tipo = "XX"; }), "El tipo de comprobante XX no existe.",
         "-/-/TICO_COD"},
        {con([](auto& c) { c.tipo = "NC"; }), "Debe registrar antes los prefijos.",
         "-/-/PRCO_PREF"},
        {con([](auto& c) { c.prefijo = "0009"; }),
         "El prefijo 0009 del tipo CG no existe o no está activo.", "-/-/PRCO_PREF"},
        {con([](auto& c) { c.numero = "A1"; }), "El número 0000A1 no es de seis cifras.",
         "-/-/ENCO_NUMERO"},
        {con([](auto& c) { c.fecha = "20170231"; }), "La fecha 2017/02/31 no existe.",
         "-/-/ENCO_FECHA"},
        {con([](auto& c) { c.nit = "1"; }), "El tercero 1 del comprobante no existe.",
         "-/-/TERC_NIT"},
        {primera([](auto& l) { l.cuenta = "999999"; }), "La cuenta especificada no existe.",
         "2649/1/CUEN_COD"},
        {primera([](auto& l) { l.cuenta = "1105"; }),
         "La cuenta es de nivel inferior al mínimo afectable.", "2649/1/CUEN_COD"},
        {primera([](auto& l) { l.cuenta = "11050"; }),
         "El código de cuenta está incompleto o demasiado largo.", "2649/1/CUEN_COD"},
        {primera([](auto& l) { l.cuenta = "110510"; }), "La cuenta 110510 está inactiva.",
         "2649/1/CUEN_COD"},
        {primera([](auto& l) { l.cuenta = "130505"; }), "Debe indicar un NIT para el movimiento.",
         "2649/1/TERC_NIT"},
        {primera([](auto& l) { l.nit = "19876543"; }), "Tercero no encontrado.", "2649/1/TERC_NIT"},
        {primera([](auto& l) { l.cuenta = "413505"; }),
         "Debe indicar un Proyecto-Centro para el movimiento.", "2649/1/PROY_COD"},
        {primera([](auto& l) {
             l.proyecto = "0001";
             l.centro = "0099";
         }),
         "Proyecto-Centro no encontrado.", "2649/1/CENT_COD"},
        {primera([](auto& l) { l.categoria = "ZZ"; }), "El concepto indicado no existe.",
         "2649/1/CONC_COD"},
        {primera([](auto& l) {
             l.cuenta = "143505";
             l.articulo = "NOHAY";
         }),
         "El artículo NOHAY no existe.", "2649/1/ARTI_COD"},
        {primera([](auto& l) { l.porcentaje = 101; }), "El porcentaje 101 pasa de 100.",
         "2649/1/CODE_PORC"},
        {primera([](auto& l) { l.debito = 99; }), "No puede grabar un comprobante descuadrado",
         "2649/-/-"},
        {con([](auto& c) { c.lineas_niif = {linea("110505", 1, 0)}; }),
         "No puede grabar un comprobante NIIF descuadrado", "NIIF/-/-"},
        {con([](auto& c) { c.lineas_2649.clear(); }), "El comprobante no tiene líneas.", "-/-/-"},
    };
    for (const auto& caso : casos) {
        const ResultadoGrabacion r = grabe(caso.c);
        QCOMPARE(r.clase, Clase::Rehusado);
        QCOMPARE(textos(r.rechazos), QStringList{caso.texto});
        QCOMPARE(lugar(r.rechazos[0]), QString(caso.lugar));
    }
    QCOMPARE(encabezados(), "000001|20170210|Venta de contado"); // nada llegó a la base
}

void PruebaGrabacion::los_rechazos_salen_todos_de_una_vez_y_en_orden() {
    Comprobante c = sencillo();
    c.numero = "7";
    c.fecha = "20171501";
    c.lineas_2649[1] = linea("236540", 0, 50);
    c.lineas_2649 << linea("999999", 0, 1);
    c.lineas_niif = {linea("110505", 1, 0)};
    QStringList sitios;
    for (const Rechazo& r : grabe(c).rechazos)
        sitios << lugar(r);
    QCOMPARE(sitios, QStringList({"-/-/ENCO_FECHA", "2649/2/TERC_NIT", "2649/2/CODE_BASE",
                                  "2649/2/CODE_PORC", "2649/3/CUEN_COD", "2649/-/-", "NIIF/-/-"}));
    QCOMPARE(encabezados(), QString());
}

void PruebaGrabacion::un_numero_que_ya_esta_se_puede_consultar() {
    Comprobante c = sencillo();
    c.tipo = "RC";
    c.prefijo = "0002";
    c.numero = "44";
    c.lineas_2649[0].debito = 3;
    ajustes_.permite_descuadre = true; // y el descuadre, permitirse
    const qint64 id = grabe(c).id;
    const Rechazos tomado = grabe(c).rechazos;
    QCOMPARE(textos(tomado), QStringList{"Comprobante 000044 previamente registrado."});
    QCOMPARE(tomado[0].pregunta, "Comprobante 000044 previamente registrado. Consultar?");
    QCOMPARE(tomado[0].oferta, Oferta::ConsultarComprobante);
    QCOMPARE(tomado[0].dato, QString::number(id));
}

namespace {

/// El código con que la base nombra cada motivo.
QString codigo_de(Motivo m) {
    static const QMap<Motivo, const char*> codigos{
        {Motivo::Tipo, "TIPO"},
        {Motivo::Prefijo, "PREFIJO"},
        {Motivo::Numero, "NUMERO"},
        {Motivo::NumeroTomado, "NUMERO_TOMADO"},
        {Motivo::NumeroAgotado, "NUMERO_AGOTADO"},
        {Motivo::Fecha, "FECHA"},
        {Motivo::Bloqueo, "BLOQUEO"},
        {Motivo::CuentaInexistente, "CUENTA_INEXISTENTE"},
        {Motivo::CuentaIncompleta, "CUENTA_INCOMPLETA"},
        {Motivo::CuentaSuperior, "CUENTA_SUPERIOR"},
        {Motivo::CuentaConAuxiliares, "CUENTA_AUXILIARES"},
        {Motivo::CuentaInactiva, "CUENTA_INACTIVA"},
        {Motivo::Tercero, "TERCERO"},
        {Motivo::FaltaTercero, "FALTA_TERCERO"},
        {Motivo::Centro, "CENTRO"},
        {Motivo::FaltaCentro, "FALTA_CENTRO"},
        {Motivo::Categoria, "CATEGORIA"},
        {Motivo::Articulo, "ARTICULO"},
        {Motivo::FaltaBase, "FALTA_BASE"},
        {Motivo::FaltaPorcentaje, "FALTA_PORCENTAJE"},
        {Motivo::PorcentajeAlto, "PORCENTAJE_ALTO"},
        {Motivo::Descuadre, "DESCUADRE"},
        {Motivo::Vacio, "VACIO"}};
    return codigos.value(m, "OTRO");
}

/// Comprobantes con faltas al azar, de las que las dos partes conocen.
class AlAzar {
public:
    explicit AlAzar(quint32 semilla) : azar_(azar_de_prueba(semilla)) {}

    Comprobante comprobante() {
        Comprobante c = sencillo();
        c.tipo = uno({"CG", "CG", "CG", "CG", "RC", "NC", "XX"});
        c.prefijo = uno({"0001", "0001", "0001", "0002"});
        c.numero = uno({"000700", "000700", "000001", "12345678"});
        c.fecha = uno({"20170210", "20170210", "20170231", "2017", "20160115", "20171331"});
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            c.lineas(libro).clear();
            for (int n = entero(4); n > 0; --n)
                c.lineas(libro) << una_linea();
        }
        return c;
    }

private:
    int entero(int n) { return azar_.bounded(n); }
    QString uno(const QStringList& de) { return de[entero(int(de.size()))]; }

    LineaComprobante una_linea() {
        LineaComprobante l;
        l.cuenta = uno({"110505", "110505", "130505", "236540", "413505", "510506", "143505",
                        "152405", "110510", "1105", "11050", "999999", "1"});
        l.nit = uno({"", "900123456", "52345678", "19876543", "77"});
        l.proyecto = uno({"", "0001", "0002"});
        l.centro = l.proyecto.isEmpty() ? QString() : uno({"", "0001", "0002", "0099"});
        l.categoria = uno({"", "", "01", "ZZ"});
        l.articulo = uno({"", "", "MART01", "ESC01", "NOHAY"});
        l.base = entero(2) * 1000;
        l.porcentaje = entero(3) * 60;
        (entero(2) ? l.debito : l.credito) = entero(3) * 10;
        l.descontable = "S";
        return l;
    }
    QRandomGenerator azar_;
};

} // namespace

void PruebaGrabacion::lo_que_se_rehusa_en_lote_es_lo_mismo_que_rehusa_la_base() {
    ajustes_.bloqueo_2649 = "20160131";
    ajustes_.bloqueo_niif = "20160228";
    base_->ejecute({"update configuracion set conf_valor = '20160131' where conf_propiedad = "
                    "'FECHA DE BLOQUEO'",
                    "update configuracion set conf_valor = '20160228' where conf_propiedad = "
                    "'FECHA DE BLOQUEO NIIF'"});
    ::grabe(base(), {5, "000001", "20170210"});
    AlAzar azar(20180221);
    int con_faltas = 0;
    for (int i = 0; i < 150; ++i) {
        Comprobante c = azar.comprobante();
        Transaccion t(base(), Transaccion::Modo::Escritura);
        int orden = 0;
        for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
            orden = 0;
            for (LineaComprobante& l : c.lineas(libro)) {
                l.item = ++orden;
                base()
                    .prepare("insert into asiento_linea (asie_id, libro, code_item, cuen_cod, "
                             "terc_nit, proy_cod, cent_cod, conc_cod, arti_cod, code_base, "
                             "code_porc, code_debito, code_credito) values (1, ?, ?, ?, ?, ?, ?, "
                             "?, ?, ?, ?, ?, ?)",
                             t)
                    ->ejecute(t, {datos(libro).nombre, l.item, l.cuenta, nulo_si_vacio(l.nit),
                                  nulo_si_vacio(l.proyecto), nulo_si_vacio(l.centro),
                                  nulo_si_vacio(l.categoria), nulo_si_vacio(l.articulo), l.base,
                                  l.porcentaje, l.debito, l.credito});
            }
        }
        QStringList de_la_base;
        Cursor cursor(base().prepare("select codigo, libro, item, campo from revise_asiento(1, ?, "
                                     "?, ?, ?)",
                                     t),
                      t, {c.tipo, c.prefijo, c.numero, c.fecha});
        while (cursor.siguiente())
            de_la_base << QStringLiteral("%1 %2 %3")
                              .arg(cursor.valor(0).texto(), cursor.valor(1).texto(),
                                   cursor.valor(2).texto());
        QStringList del_libro;
        for (const Rechazo& r : revise(c))
            del_libro << QStringLiteral("%1 %2 %3")
                             .arg(codigo_de(r.motivo), r.libro ? datos(*r.libro).nombre : "",
                                  r.de_linea() ? QString::number(r.item) : QString());
        QCOMPARE(del_libro.join('\n'), de_la_base.join('\n'));
        con_faltas += del_libro.isEmpty() ? 0 : 1;
        t.deshaga();
    }
    QVERIFY(con_faltas > 100);
}

void PruebaGrabacion::cada_libro_se_bloquea_con_su_llave() {
    ajustes_.bloqueo_2649 = "20170228";
    QCOMPARE(textos(grabe(sencillo()).rechazos),
             QStringList{"La contabilidad esta bloqueada a: 2017/02/28"});
    Comprobante niif = sencillo();
    niif.lineas_niif = std::exchange(niif.lineas_2649, {});
    QCOMPARE(grabe(niif).clase, Clase::Grabado); // el 2649 no la toca
    ajustes_.bloqueo_2649.clear();
    ajustes_.bloqueo_niif = "20170210"; // el mismo día ya está bloqueado
    QCOMPARE(textos(grabe(niif).rechazos),
             QStringList{"La contabilidad esta bloqueada a: 2017/02/10 (libro NIIF)"});
    QCOMPARE(grabe(sencillo()).clase, Clase::Grabado);
    Comprobante con_replica = sencillo();
    con_replica.replica = "S"; // escribiría en el NIIF
    QCOMPARE(textos(grabe(con_replica).rechazos),
             QStringList{"La contabilidad esta bloqueada a: 2017/02/10 (libro NIIF)"});
    con_replica.fecha = "20170211";
    QCOMPARE(grabe(con_replica).clase, Clase::Grabado);
    ajustes_.bloqueo_administrativo = "20170211";
    QCOMPARE(textos(grabe(sencillo()).rechazos),
             QStringList{"Los módulos estan bloqueados a: 2017/02/11"});
    QCOMPARE(base().consulte("select count(*) from comprobante_encabezado").entero(), qint64(3));
}

void PruebaGrabacion::sin_cuenta_equivalente_no_se_replica_a_medias() {
    base_->ejecute({"update cuentas set cuen_eqniif = null where cuen_cod = '240805'",
                    "update cuentas set cuen_eqniif = '11' where cuen_cod = '240810'",
                    "update cuentas_niif set cuen_activa = 'N' where cuen_cod = '111005'"});
    Comprobante c = sencillo();
    c.lineas_2649 << linea("240805", 5, 0) << linea("240810", 0, 5) << linea("240805", 0, 0)
                  << linea("111005", 0, 0);
    c.replica = "S";
    const QString resto = " no tiene una cuenta NIIF equivalente que pueda llevar movimiento: la "
                          "réplica quedaría descuadrada.";
    QCOMPARE(textos(grabe(c).rechazos), QStringList({"La cuenta 111005 (línea 6)" + resto,
                                                     "La cuenta 240805 (líneas 3, 5)" + resto,
                                                     "La cuenta 240810 (línea 4)" + resto}));
    QCOMPARE(encabezados(), QString());
    // Con el libro NIIF a mano no hay nada que replicar.
    c.lineas_niif = {linea("110505", 100, 0), linea("310505", 0, 100)};
    // Las de una planilla empiezan en cero, y esa también es réplica.
    c.lineas_niif[0].item_replica = 0;
    QCOMPARE(revise(c).size(), 3);
    c.lineas_niif[0].item_replica = -1;
    QCOMPARE(grabe(c).clase, Clase::Grabado);
}

void PruebaGrabacion::el_numero_automatico_tomado_avanza_solo() {
    ::grabe(base(), {700, "000003", "20170101"}); // el contador va en 4
    base_->ejecute({"update prefijos_conta set pref_numero = '000003' where tico_cod = 'CG'"});
    Comprobante c = sencillo();
    const ResultadoGrabacion r = grabe(c);
    QCOMPARE(r.clase, Clase::Grabado);
    QVERIFY(r.cambio_de_numero());
    QCOMPARE(r.numero_pedido + ' ' + r.numero, "000003 000004");
    // El que trae su número no avanza: es de quien lo escribió.
    c.numero = "000003";
    QCOMPARE(grabe(c).rechazos.value(0).motivo, Motivo::NumeroTomado);
    c.tipo = "RC";
    c.prefijo = "0002";
    QCOMPARE(grabe(c).clase, Clase::Grabado);
    QCOMPARE(grabe(c).rechazos.value(0).motivo, Motivo::NumeroTomado);
    // Con el 999999 se acaba: el último se graba y el que sigue se rehúsa con su razón.
    base_->ejecute({"update prefijos_conta set pref_numero = '999999' where tico_cod = 'CG'"});
    QCOMPARE(grabe(sencillo()).numero, "999999");
    QCOMPARE(grabe(sencillo()).rechazos.value(0).motivo, Motivo::NumeroAgotado);
}

void PruebaGrabacion::varios_que_graban_a_la_vez_no_ven_un_numero_repetido() {
    constexpr int kUsuarios = 5, kCadaUno = 20;
    base();
    std::mutex cerrojo;
    QStringList fallas;
    const auto usuario = [&] {
        Conexion c;
        c.conectar(base_->parametros());
        for (int n = 0; n < kCadaUno; ++n) {
            const ResultadoGrabacion r = grabe_comprobante(c, sencillo(), ajustes_);
            if (r.clase != Clase::Grabado) {
                const std::lock_guard bloqueo(cerrojo);
                fallas << r.falla + textos(r.rechazos).join(' ');
            }
        }
    };
    std::vector<std::thread> hilos;
    for (int i = 0; i < kUsuarios; ++i)
        hilos.emplace_back(usuario);
    for (auto& h : hilos)
        h.join();
    QCOMPARE(fallas, QStringList());
    QCOMPARE(filas_de(base(), "select count(*), min(enco_numero), max(enco_numero) from "
                              "comprobante_encabezado"),
             "100|000001|000100");
    QCOMPARE(saldos_distintos(base()), QString());
}

void PruebaGrabacion::el_borrado_es_todo_o_nada_y_lo_firma_quien_borra() {
    Comprobante c = sencillo();
    c.lineas_niif = c.lineas_2649;
    const qint64 id = grabe(c).id;
    const PedidoBorrado pedido{id, "CG", "0001", "000001", 0, {}};
    const auto queda = [&] {
        return filas_de(
            base(), QStringLiteral("select (select count(*) from comprobante_encabezado where "
                                   "enco_consec = %1), (select count(*) from comprobante_detalle "
                                   "where enco_consec = %1), (select count(*) from "
                                   "comprobante_detalle_niif where enco_consec = %1) from "
                                   "rdb$database")
                        .arg(id));
    };
    // Falla la última orden: ninguna de las anteriores puede quedar.
    {
        Conexion dueno;
        dueno.conectar(base_->parametros("SYSDBA"));
        dueno.ejecute("create exception no_se_va 'no se va'");
        // Encendido y apagado por la sesión que borra: otra no le quita un disparador ya leído.
        dueno.ejecute("create trigger estorbo for comprobante_encabezado before delete as begin "
                      "if (rdb$get_context('USER_SESSION', 'ESTORBO') = 'S') then "
                      "exception no_se_va; end");
    }
    const auto estorbe = [&](const char* si) {
        base().consulte("select rdb$set_context('USER_SESSION', 'ESTORBO', ?) from rdb$database",
                        {QString(si)});
    };
    estorbe("S");
    const std::pair<const char*, QString> pantallas[] = {
        {"Tfbuscomproba", "detalle detalle_niif firma encabezado"},
        {"Tfedtmovimien", "detalle detalle_niif firma encabezado"},
        {"Tfauxiliarterc", "detalle_niif detalle encabezado"}};
    for (const auto& [pantalla, orden] : pantallas) {
        QStringList tocadas;
        base().observador = [&](const QString& sql) {
            if (sql.startsWith("update comprobante_encabezado"))
                tocadas << "firma";
            else if (sql.startsWith("delete from comprobante_"))
                tocadas << sql.section(' ', 2, 2).mid(12);
        };
        QVERIFY_THROWS_EXCEPTION(
            ErrorBase, borre_comprobante(base(), modo_borrado(pantalla), pedido, "AUXILIAR"));
        base().observador = nullptr;
        QCOMPARE(queda(), "1|2|2");
        QCOMPARE(tocadas.join(' '), orden);
    }
    estorbe("N");
    // Solo el libro 2649: las NIIF se quedan, como siempre desde esa lista.
    borre_comprobante(base(), modo_borrado("Tfcomproterc"), pedido, "AUXILIAR");
    QCOMPARE(queda(), "0|0|2");
    QCOMPARE(
        filas_de(base(), "select audi_oper, audi_usuario from auditoria where audi_oper = 'E'"),
        QString("E|AUXILIAR"));
    const qint64 otro = grabe(c).id;
    borre_comprobante(base(), modo_borrado("Tfedtmovimien"), {otro, "CG", "0001", "000002", 0, {}},
                      "AUXILIAR");
    QCOMPARE(filas_de(base(), "select list(audi_usuario) from auditoria where audi_oper = 'E' and "
                              "tido_cod = 1"),
             QString("AUXILIAR,AUXILIAR"));
    // Una fila por libro, aunque el borrado sean cuatro órdenes.
    QCOMPARE(filas_de(base(), "select tido_cod, audi_oper, audi_usuario from auditoria where "
                              "audi_oper <> 'I' and audi_iddoc = " +
                                  QString::number(otro) + " order by tido_cod"),
             QString("1|E|AUXILIAR\n1001|E|AUXILIAR"));
    QCOMPARE(revise_borrado(base(), {1, "CG", "0001", "1", 31, {}})->texto,
             "Debe utilizar la opcion Factura de venta para borrar el comprobante");
}

void PruebaGrabacion::un_cambio_ajeno_se_avisa_antes_de_borrar() {
    const qint64 id = grabe(sencillo()).id;
    PedidoBorrado pedido{id, "CG", "0001", "000001", 0, {}};
    pedido.visto = lea_comprobante(base(), id);
    std::ranges::reverse(pedido.visto->lineas_2649); // la pantalla las trae sin orden
    QVERIFY(!revise_cambio_ajeno(base(), pedido));
    base_->ejecute({"update comprobante_detalle set code_concepto = 'otro' where code_item = 1",
                    "update comprobante_encabezado set enco_usuario = 'AUXILIAR'"});
    const auto r = revise_cambio_ajeno(base(), pedido);
    QVERIFY(r);
    QCOMPARE(r->oferta, Oferta::Confirmar);
    QCOMPARE(r->pregunta, "El usuario AUXILIAR cambió este comprobante después de que usted "
                          "lo abrió. Desea borrarlo de todos modos?");
    pedido.visto.reset(); // quien no lo abrió no tiene con qué comparar
    QVERIFY(!revise_cambio_ajeno(base(), pedido));
}

QTEST_GUILESS_MAIN(PruebaGrabacion)
#include "prueba_grabacion.moc"
