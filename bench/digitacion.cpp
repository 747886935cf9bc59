// Digitar y grabar: sentencias por cambio de celda, y el guardado contra inserciones preparadas.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "tests/fallas/contador.h"

namespace {

constexpr int kRenglones = 20, kComprobantes = 150, kTandas = 3;

QString numero(int n) {
    return QString::number(500000 + n);
}

/// El comprobante como lo lleva la pantalla: encabezado con los dos libros anidados.
struct PorElProveedor {
    PorElProveedor(SesionEnLugar& s, const QStringList& c)
        : cuentas(c), proveedor(&dueno, "PMovimiento", &s.cnt.TComprobantes,
                                poCascadeDeletes | poCascadeUpdates),
          encabezado(&dueno, "CMovimiento", &proveedor), detalle(&dueno, "CDetalle"),
          niif(&dueno, "Cdetniif") {
        encabezado.entero("ENCO_CONSEC").requerido();
        encabezado.texto("TICO_COD", 3).fijo().requerido();
        encabezado.texto("PRCO_PREF", 4).requerido();
        encabezado.texto("ENCO_NUMERO", 6).requerido();
        encabezado.texto("ENCO_FECHA", 8).fijo().requerido();
        encabezado.texto("ENCO_CONCEPTO", 60);
        encabezado.entero("ENCO_TIPOREF");
        encabezado.entero("ENCO_IDREF");
        encabezado.texto("ENCO_USUARIO", 10);
        encabezado.bandera("ENCO_DESCONTABLE");
        encabezado.bandera("ENCO_REPNIIF");
        encabezado.memo("ENCO_OBS");
        detalle.anide_en(&encabezado, &s.cnt.TComprDetalle);
        niif.anide_en(&encabezado, &s.cnt.TCompniif);
        LineasLibro::defina_campos(detalle, Libro::Decreto2649);
        LineasLibro::defina_campos(niif, Libro::Niif);
        encabezado.Params["ID"] = "-1";
        encabezado.Open();
    }
    void digite(int id, int n) {
        const auto ponga = [](ConjuntoDatos& d, const char* campo, const Valor& v) {
            d.FieldByName(campo) = v;
        };
        encabezado.Close();
        encabezado.Open();
        encabezado.Append();
        ponga(encabezado, "ENCO_CONSEC", id);
        ponga(encabezado, "TICO_COD", "CG");
        ponga(encabezado, "PRCO_PREF", "0001");
        ponga(encabezado, "ENCO_NUMERO", numero(n));
        ponga(encabezado, "ENCO_FECHA", "20170615");
        ponga(encabezado, "ENCO_CONCEPTO", "Comprobante de veinte renglones");
        ponga(encabezado, "ENCO_TIPOREF", 0);
        ponga(encabezado, "ENCO_IDREF", 0);
        ponga(encabezado, "ENCO_USUARIO", "ADMIN");
        ponga(encabezado, "ENCO_DESCONTABLE", "S");
        ponga(encabezado, "ENCO_REPNIIF", "N");
        encabezado.Post();
        for (ConjuntoDatos* d : {&detalle, &niif})
            for (int i = 1; i <= kRenglones; ++i) {
                d->Append();
                ponga(*d, "ENCO_CONSEC", id);
                ponga(*d, "CODE_ITEM", i);
                ponga(*d, "CUEN_COD", cuentas[i % 2]);
                ponga(*d, "CODE_CONCEPTO", "Renglón del comprobante");
                ponga(*d, "CODE_DEBITO", Moneda(i % 2 ? 1000 : 0));
                ponga(*d, "CODE_CREDITO", Moneda(i % 2 ? 0 : 1000));
                ponga(*d, "CODE_DESCONTABLE", "S");
                d->Post();
            }
    }
    void grabe() {
        if (encabezado.ApplyUpdates(0) != 0)
            throw ErrorDatos("no grabó");
    }

    QStringList cuentas;
    QObject dueno;
    Proveedor proveedor;
    ConjuntoDatos encabezado, detalle, niif;
};

/// Las mismas inserciones, en una transacción por comprobante, con las sentencias ya preparadas.
struct Preparadas {
    Preparadas(Conexion& c, const QStringList& cuentas)
        : cuentas(cuentas), conexion(c), preparacion(c, Transaccion::Modo::Escritura),
          encabezado(c, preparacion,
                     "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                     "enco_numero, enco_fecha, enco_concepto, enco_tiporef, enco_idref, "
                     "enco_usuario, enco_descontable, enco_repniif) values "
                     "(?,?,?,?,?,?,?,?,?,?,?)"),
          detalle(c, preparacion, "insert into comprobante_detalle " + kColumnas),
          niif(c, preparacion, "insert into comprobante_detalle_niif " + kColumnas) {
        preparacion.confirme();
    }
    void grabe(int id, int n) {
        Transaccion t(conexion, Transaccion::Modo::Escritura);
        encabezado.ejecute(t, {id, "CG", "0001", numero(n), "20170615",
                               "Comprobante de veinte renglones", 0, 0, "ADMIN", "S", "N"});
        for (Preparada* p : {&detalle, &niif})
            for (int i = 1; i <= kRenglones; ++i)
                p->ejecute(t, {id, i, cuentas[i % 2], "Renglón del comprobante",
                               Moneda(i % 2 ? 1000 : 0), Moneda(i % 2 ? 0 : 1000), "S"});
        t.confirme();
    }

    static inline const QString kColumnas =
        "(enco_consec, code_item, cuen_cod, code_concepto, code_debito, code_credito, "
        "code_descontable) values (?,?,?,?,?,?,?)";
    QStringList cuentas;
    Conexion& conexion;
    Transaccion preparacion;
    Preparada encabezado, detalle, niif;
};

} // namespace

void mida_guardado() {
    Copia copia;
    SesionEnLugar s(copia.lugar, "ADMIN", {});
    Conexion aparte;
    aparte.conectar({copia.lugar.base_compania("001"), "ADMIN", {}});
    const QStringList cuentas{cuenta_afectable(aparte, false), cuenta_afectable(aparte, true)};
    PorElProveedor proveedor(s, cuentas);
    Preparadas crudas(aparte, cuentas);
    double por_proveedor = 1e12, por_crudas = 1e12;
    int n = 0;
    constexpr int kPrimerId = 90000000;
    for (int tanda = 0; tanda < kTandas; ++tanda) {
        double a = 0, b = 0;
        for (int i = 0; i < kComprobantes; ++i, n += 2) {
            proveedor.digite(kPrimerId + n, n);
            a += mida([&] { proveedor.grabe(); }, 1);
            b += mida([&] { crudas.grabe(kPrimerId + n + 1, n + 1); }, 1);
        }
        por_proveedor = qMin(por_proveedor, a / kComprobantes);
        por_crudas = qMin(por_crudas, b / kComprobantes);
    }
    informe(
        QStringLiteral("grabar un comprobante de %1 renglones en los dos libros").arg(kRenglones),
        por_proveedor, "las mismas inserciones preparadas", por_crudas, 1.3);
    const quint64 antes = s.dm.Quorvex.sentencias_ejecutadas();
    proveedor.digite(kPrimerId + n, n);
    const quint64 medio = s.dm.Quorvex.sentencias_ejecutadas();
    proveedor.grabe();
    nota(QStringLiteral("guardado: %1 sentencias (41 filas); llenar el conjunto, %2")
             .arg(s.dm.Quorvex.sentencias_ejecutadas() - medio)
             .arg(medio - antes));
}

void mida_celdas() {
    Copia copia;
    for (const char* saldo : {"NO", "SI"}) {
        {
            Conexion c;
            c.conectar({copia.lugar.base_compania("001"), "SYSDBA", {}});
            c.ejecute("update configuracion set conf_valor = ? where conf_propiedad = 'MOSTRAR "
                      "SALDO POR CUENTA Y POR TERCERO AL DIGITAR MOVIMIENTOS'",
                      {Valor(saldo)});
        }
        Contador c(copia.lugar, "ADMIN", {});
        const QString nit =
            c.dm.Quorvex.consulte("select first 1 terc_nit from terceros order by terc_nit")
                .texto();
        c.p->LTipo->setFocus();
        c.p->DBEdit1->setFocus();
        digite("Concepto");
        Rejilla& r = *c.p->lineas_2649->rejilla;
        r.setFocus();
        r.SelectedIndex(0);
        const QStringList columnas{"cuenta",     "tercero",   "proyecto", "centro",
                                   "concepto",   "categoría", "ref",      "base",
                                   "porcentaje", "débito",    "crédito",  "descripción"};
        const QStringList celdas{
            cuenta_afectable(c.dm.Quorvex, false), nit, "", "", "", "", "", "", "", "1000", "", ""};
        if (qEnvironmentVariableIsSet("QUORVEX_VER_SQL"))
            c.dm.Quorvex.observador = [](const QString& sql) {
                std::fprintf(stderr, "    %s\n", qPrintable(sql));
            };
        QStringList cuentas;
        quint64 total = 0;
        double peor = 0;
        for (int vuelta = 0; vuelta < 2; ++vuelta) {
            // La segunda línea: la primera prepara textos por primera vez.
            cuentas.clear();
            total = 0;
            peor = 0;
            for (int i = 0; i < celdas.size(); ++i) {
                if (!celdas[i].isEmpty())
                    digite(celdas[i]);
                const quint64 antes = c.dm.Quorvex.sentencias_ejecutadas();
                peor = qMax(peor, mida([] { oprima(Qt::Key_Return); }, 1));
                const quint64 van = c.dm.Quorvex.sentencias_ejecutadas() - antes;
                total += van;
                if (van > 0)
                    cuentas << QStringLiteral("%1 %2").arg(columnas[i]).arg(van);
            }
        }
        if (c.p->CDetalle.RecordCount() < 2)
            throw ErrorDatos("las líneas no entraron: " + celdas[0]);
        nota(QStringLiteral("sentencias por cambio de celda, saldos a la vista %1: %2; total de la "
                            "línea %3; la celda más lenta %4 ms")
                 .arg(saldo, cuentas.join(", "))
                 .arg(total)
                 .arg(peor, 0, 'f', 2));
        if (!c.mensajes.isEmpty())
            nota("mensajes: " + c.mensajes.join(" / "));
    }
}
