// Las operaciones de los módulos de la suite: qué procedimientos corren, con qué código leen las
// fallas y qué deciden la fecha y la configuración.
#include "posting/modulos_de_prueba.h"

namespace {

using Operacion = std::function<Contabilizado(int id, int interfaz, const QDate&)>;

template <class M, Contabilizado (M::*op)(int, int, const QDate&)> Operacion de() {
    return [](int id, int interfaz, const QDate& fecha) {
        return (modulo_suite<M>().*op)(id, interfaz, fecha);
    };
}

template <class M, Contabilizado (M::*op)(int)> Operacion de() {
    return [](int id, int, const QDate&) { return (modulo_suite<M>().*op)(id); };
}

/// Como las anota el contrato con los módulos ya instalados: código de las fallas de cada libro, 0
/// si no hay gemelo.
struct Miembro {
    const char* nombre;
    int tido, errores, errores_niif;
    Operacion operacion;
};

#define MIEMBRO(Modulo, operacion, tido, e, n)                                                     \
    { #operacion, tido, e, n, de < Modulo, &Modulo::operacion>() }

QVector<Miembro> miembros() {
    return {
        MIEMBRO(TfdmInv, contabilice_cambcosto, 10, 10, 11),
        MIEMBRO(TfdmInv, contabilice_entrada, 11, 11, 11),
        MIEMBRO(TfdmInv, contabilice_salida, 12, 12, 11),
        MIEMBRO(TfdmInv, contabilice_traslado, 13, 13, 11),
        MIEMBRO(TfdmInv, contabilice_ajuste, 14, 14, 11),
        MIEMBRO(TfdmInv, contabilice_ensamble, 15, 15, 11),
        MIEMBRO(TfdmInv, contabilice_desensamble, 16, 16, 11),
        MIEMBRO(TfdmInv, contabilice_produccion, 19, 19, 11),
        MIEMBRO(TfdmInv, contabilice_produccionEnt, 20, 20, 11),
        MIEMBRO(TfdmInv, contabilice_produccionSal, 28, 28, 11),
        MIEMBRO(TfdmInv, contabilice_produccionDev, 29, 29, 11),
        MIEMBRO(Tfdmcmp, contabilice_facturac, 21, 21, 31),
        MIEMBRO(Tfdmcmp, contabilice_remiprov, 22, 24, 31),
        MIEMBRO(Tfdmcmp, contabilice_devolucionc, 24, 24, 31),
        MIEMBRO(Tfdmfact, contabilice_factura, 31, 31, 31),
        MIEMBRO(Tfdmfact, contabilice_remiclie, 32, 32, 32),
        MIEMBRO(Tfdmfact, contabilice_devolucion, 33, 33, 33),
        MIEMBRO(Tfdmfact, contabilice_rutero, 37, 37, 0),
        MIEMBRO(Tfdmcar, contabilice_notadb, 41, 41, 31),
        MIEMBRO(Tfdmcar, contabilice_notacr, 42, 42, 31),
        MIEMBRO(Tfdmcar, contabilice_aplica, 43, 43, 31),
        MIEMBRO(Tfdmcar, contabilice_deterioro, 47, 47, 0),
        MIEMBRO(Tfdmcxp, contabilice_notadb, 51, 51, 31),
        MIEMBRO(Tfdmcxp, contabilice_notacr, 52, 52, 31),
        MIEMBRO(Tfdmcxp, contabilice_aplicapr, 53, 53, 31),
        MIEMBRO(Tfdmcja, contabilice_recibo, 61, 61, 31),
        {"contabilice_recicaja", 61, 41, 31,
         [](int id, int, const QDate& f) {
             return modulo_suite<Tfdmcja>().contabilice_recicaja(id, "0000", f);
         }},
        MIEMBRO(Tfdmcja, contabilice_egreso, 62, 62, 31),
        MIEMBRO(Tfdmcja, contabilice_consignatj, 64, 64, 31),
        MIEMBRO(Tfdmcja, contabilice_reciprov, 65, 65, 31),
        MIEMBRO(Tfdmcja, contabilice_trascaja, 66, 66, 31),
        MIEMBRO(Tfdmbnc, contabilice_consigna, 71, 71, 31),
        MIEMBRO(Tfdmbnc, contabilice_notadebito, 74, 74, 31),
        MIEMBRO(Tfdmbnc, contabilice_notacredito, 75, 75, 31),
        MIEMBRO(Tfdmbnc, contabilice_traslacuenta, 76, 76, 31),
        MIEMBRO(Tfdmbnc, contabilice_devolcheq, 77, 77, 31),
        MIEMBRO(Tfdmnomina, contabilice_pagonomi, 91, 62, 0),
        MIEMBRO(Tfdmnomina, contabilice_nomina, 92, 62, 0),
        MIEMBRO(Tfdmnomina, contabilice_prestamo, 95, 95, 0),
    };
}

const QDate kFecha(2017, 3, 15);

} // namespace

class PruebaServicio : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        m_.emplace();
        configure("GENERAR COMPROBANTES DE NIIF POR INTERFAZ O EQUIVALENCIAS", "INTERFAZ");
        configure("AÑO BALANCE DE APERTURA NIIF", "2016");
    }
    void cleanup() {
        m_.reset();
        s_.reset();
    }
    void cada_operacion_lee_las_fallas_con_su_codigo();
    void el_gemelo_corre_desde_el_ano_de_apertura();
    void una_factura_de_contado_depende_de_la_configuracion();
    void la_interfaz_se_abre_se_escoge_o_se_dice_por_que_no();

private:
    void configure(const char* llave, const QString& valor) {
        ::configure(base(), llave, valor);
        s_->dm.cargue_configuracion();
    }
    Conexion& base() { return s_->base.base(); }
    QString concepto(int tido) {
        return base()
            .consulte("select first 1 coin_concepto from concepto_interfaz join documento_contable"
                      " on doct_familia = coin_familia where tido_cod = ?",
                      {tido})
            .texto();
    }
    QString fallas(int codigo, int id) {
        const QString f = filas_de(
            base(), QStringLiteral("select erro_codigo || ':' || erro_cadena from errores where"
                                   " erro_tipodoc = %1 and erro_iddoc = %2")
                        .arg(codigo)
                        .arg(id));
        return f.isEmpty() ? f : QString(f).replace('\n', ' ') + ' ';
    }
    QString renglones(int cntb_id, const char* condicion) {
        return s_->dato(QStringLiteral("select count(*) from contabilizacion_det where cntb_id = %1"
                                       " and cnde_item %2")
                            .arg(cntb_id)
                            .arg(QLatin1String(condicion)));
    }
    std::optional<SesionGui> s_;
    std::optional<ModulosDePrueba> m_;
};

void PruebaServicio::cada_operacion_lee_las_fallas_con_su_codigo() {
    int cuantos = 10;
    for (const Miembro& m : miembros()) {
        // Sin cuentas en la interfaz falla el 2649; con una mala en el NIIF, solo el NIIF.
        const QString c = concepto(m.tido);
        const QString dos_lados = c + " 110505 D; " + c + " 110505 C";
        base().ejecute("delete from errores");
        base().ejecute(QStringLiteral("delete from interfaz_%1").arg(familia_de(base(), m.tido)));
        if (familia_de(base(), m.tido) == "NOMINA")
            for (const char* t : {"nomina_ctas", "nomina_niif"})
                base().ejecute(QStringLiteral("delete from %1").arg(t));
        DocumentoPrueba d{m.tido, c + " 5000"};
        d.numero = QString::number(++cuantos);
        const int id = registre(base(), d);
        registre(base(), m.tido, interfaz_de_prueba(QString(), 900));
        s_->dm.confirmar_contabilizacion = false;
        const Contabilizado sin_cuentas = m.operacion(id, 900, kFecha);
        QString comienzo = "Se presentaron los siguientes errores en la contabilización%1: ";
        const bool facturac = m.tido == 21;
        QVERIFY2(!fallas(m.errores, id).isEmpty(), m.nombre);
        QCOMPARE(sin_cuentas.mensajes,
                 QStringList(comienzo.arg(facturac ? " 2649" : "") + fallas(m.errores, id)));
        QVERIFY2(sin_cuentas.cntb_id > 0, m.nombre);
        QCOMPARE(renglones(sin_cuentas.cntb_id, ">= 100000"), "0");
        const bool nomina = m.tido == 91 || m.tido == 92; // lo dice su interfaz, no el resultado
        QCOMPARE(sin_cuentas.confirmar, !nomina);
        QCOMPARE(s_->dm.confirmar_contabilizacion, !nomina);

        base().ejecute(QStringLiteral("delete from interfaz_%1").arg(familia_de(base(), m.tido)));
        InterfazPrueba niif_mala = interfaz_de_prueba(dos_lados, 901);
        niif_mala.reglas_niif = c + " 110505 D; " + c + " 999999 C";
        if (!m.errores_niif)
            niif_mala.reglas_niif = dos_lados;
        registre(base(), m.tido, niif_mala);
        const Contabilizado c2 = m.operacion(id, 901, kFecha);
        QCOMPARE(renglones(c2.cntb_id, "< 100000"), "2");
        if (m.errores_niif) {
            QVERIFY2(!fallas(m.errores_niif, id).isEmpty(), m.nombre);
            QCOMPARE(c2.mensajes, QStringList(comienzo.arg(facturac ? " NIIF" : "") +
                                              fallas(m.errores_niif, id)));
            QVERIFY2(c2.confirmar, m.nombre);
        } else {
            QCOMPARE(c2.mensajes, QStringList());
            QCOMPARE(renglones(c2.cntb_id, ">= 100000"), "2");
            QVERIFY2(!s_->dm.confirmar_contabilizacion, m.nombre);
        }
    }
}

void PruebaServicio::el_gemelo_corre_desde_el_ano_de_apertura() {
    InterfazPrueba i = interfaz_de_prueba(kReglasVenta);
    i.confirmar = "S";
    registre(base(), 31, i);
    const int id = registre(base(), venta_de_prueba());
    struct {
        const char *apertura, *niif;
    } const casos[] = {{"2016", "3"}, {"2017", "3"}, {"2018", "0"}};
    for (const auto& caso : casos) {
        configure("AÑO BALANCE DE APERTURA NIIF", caso.apertura);
        const Contabilizado c = m_->fact.contabilice_factura(id, 1, kFecha);
        QCOMPARE(c.mensajes, QStringList());
        QCOMPARE(renglones(c.cntb_id, ">= 100000"), caso.niif);
        QVERIFY(c.confirmar); // lo pide la interfaz, corra o no el gemelo
    }
    // Mal escrito, la propuesta queda y se dice.
    base().ejecute("delete from contabilizacion_det");
    configure("AÑO BALANCE DE APERTURA NIIF", "pronto");
    QVERIFY_THROWS_EXCEPTION(ErrorDatos, m_->fact.contabilice_factura(id, 1, kFecha));
    QCOMPARE(s_->dato("select count(*) from contabilizacion_det"), "3");
}

void PruebaServicio::una_factura_de_contado_depende_de_la_configuracion() {
    const char* llave = "CONTABILIZAR EN LINEA LAS FACTURAS DE VENTA Y DEVOLUCIONES DE CONTADO";
    registre(base(), 31, interfaz_de_prueba(kReglasVenta));
    const int id = registre(base(), venta_de_prueba());
    base().ejecute("update or insert into autorizaciones (pref_pre, auto_contado) values ('0000',"
                   " 'S') matching (pref_pre)");
    configure(llave, "NO");
    s_->dm.confirmar_contabilizacion = true;
    QCOMPARE(m_->fact.contabilice_factura(id, 1, kFecha).cntb_id, 0);
    QVERIFY(!s_->dm.confirmar_contabilizacion);
    QCOMPARE(s_->dato("select count(*) from contabilizacion"), "0");
    configure(llave, "SI");
    QVERIFY(m_->fact.contabilice_factura(id, 1, kFecha).cntb_id > 0);
}

void PruebaServicio::la_interfaz_se_abre_se_escoge_o_se_dice_por_que_no() {
    int preguntas = 0;
    const auto la_segunda = [&](const QVector<InterfazContable>& i) {
        ++preguntas;
        return std::optional(i.value(1).id);
    };
    const auto ninguna = [](const QVector<InterfazContable>&) { return std::optional<int>(); };
    // Un recibo sin ella no corre.
    const Contabilizado recibo = m_->cja.contabilice_recicaja(
        registre(base(), {61, "MEDIO 5000; CLIENTE 5000"}), "0000", kFecha);
    QCOMPARE(recibo.mensajes,
             QStringList("Interfaz de recibo no encontrada. No se contabilizará el "
                         "recibo."));
    QCOMPARE(recibo.cntb_id, 0);
    QCOMPARE(s_->dato("select count(*) from errores"), "0");
    InterfazAbierta a = m_->fact.abre_interfaz(31, "0000", true, la_segunda);
    QCOMPARE(a.mensaje, "No se han definido interfaces para el documento. No podrá grabar hasta no "
                        "definirla.");
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 4));
    QCOMPARE(m_->fact.abre_interfaz(31, "0000", true, la_segunda).id, 4);
    QCOMPARE(m_->fact.abre_interfaz(31, "0000", false, la_segunda).id, 0);
    QCOMPARE(m_->fact.abre_interfaz(31, "0009", true, la_segunda).id, 0);
    registre(base(), 31, interfaz_de_prueba(kReglasVenta, 7));
    QCOMPARE(preguntas, 0);
    QCOMPARE(m_->fact.abre_interfaz(31, "0000", true, la_segunda).id, 7);
    QCOMPARE(preguntas, 1);
    QCOMPARE(m_->fact.abre_interfaz(31, "0000", true, ninguna).id, 0);

    registre(base(), 21, interfaz_de_prueba("COMPRA 143505 D", 0));
    a = m_->cmp.abre_interfaz(21, "0000", true, ninguna);
    QCOMPARE(a.mensaje, "La interfaz contable para este documento es incorrecta (ID=0).");

    // En bancos la interfaz es de una cuenta; la del cheque devuelto, solo si así se numera.
    for (int tido : {71, 77}) {
        InterfazPrueba i = interfaz_de_prueba("BANCO 111005 D", tido);
        i.banco = 2;
        registre(base(), tido, i);
    }
    QCOMPARE(m_->bnc.abre_interfaz(71, 2, true, "0000", ninguna).id, 71);
    a = m_->bnc.abre_interfaz(71, 1, true, "0000", ninguna);
    QCOMPARE(a.id, 0);
    QCOMPARE(a.mensaje, "No se han definido interfaces para el documento" + s_->dm.nombre_tipo(71) +
                            ". No podrá grabar hasta no definirla.");
    ::configure(base(), "CONSECUTIVOS POR CUENTA", "NO");
    s_->dm.cargue_configuracion();
    QCOMPARE(m_->bnc.abre_interfaz(77, 1, true, "0000", ninguna).id, 77);
    configure("CONSECUTIVOS POR CUENTA", "SI");
    QCOMPARE(m_->bnc.abre_interfaz(77, 1, true, "0000", ninguna).id, 0);
}

QTEST_MAIN(PruebaServicio)
#include "prueba_servicio.moc"
