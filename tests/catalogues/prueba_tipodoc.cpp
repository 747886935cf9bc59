// Tipos de comprobante y sus prefijos.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_terceros.h"

namespace {

ConjuntoDatos& tipos(Pantalla* p) {
    return componente<ConjuntoDatos>(p, "CTipodoc");
}
ConjuntoDatos& prefijos(Pantalla* p) {
    return componente<ConjuntoDatos>(p, "CPrefijos");
}

} // namespace

class PruebaTipodoc : public QObject {
    Q_OBJECT
    QString formato_; ///< llave con que se abrió el editor de formatos

private slots:
    void initTestCase() { registre_pantallas_terceros(); }

    void un_tipo_nuevo_nace_sin_formato_y_su_prefijo_a_mano_y_activo() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tftipodoc");
        enfoque(p, "DBGridEh1", 0);
        oprima(Qt::Key_Insert);
        digite("EG", Qt::Key_Tab);
        digite("Egreso");
        oprima(Qt::Key_F12); // a sus prefijos, desde la fila en que se esté
        QVERIFY(componente<Rejilla>(p, "DBGridEh2").enfocada());
        enfoque(p, "DBGridEh2", 0);
        oprima(Qt::Key_Insert);
        digite("0001", Qt::Key_Tab);
        digite("000100", Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select t.tico_nom || '|' || t.tico_formato || '|' || p.prco_pref || '|' "
                        "|| p.pref_numero || '|' || p.prco_auto || p.prco_activo || '|' || "
                        "p.prco_usuario from tipo_comprobante t, prefijos_conta p where p.tico_cod "
                        "= t.tico_cod and t.tico_cod = 'EG'"),
                 "Egreso|N|0001|000100|NS|ADMIN");
    }

    void una_fila_sin_codigo_desaparece_al_dejarla() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tftipodoc");
        const int antes = tipos(p).RecordCount();
        tipos(p).Append();
        tipos(p).FieldByName("TICO_NOM") = "Sin código";
        componente<NavegadorDatos>(p, "DBNavigator1").boton(nbFirst)->click();
        QCOMPARE(tipos(p).RecordCount(), antes);
        const int de_prefijos = prefijos(p).RecordCount();
        prefijos(p).Append();
        QCOMPARE(prefijos(p).RecordCount(), de_prefijos + 1);
        componente<NavegadorDatos>(p, "DBNavigator2").boton(nbFirst)->click();
        QCOMPARE(prefijos(p).RecordCount(), de_prefijos);
        // Un prefijo del tipo que se va por vacío no cae en el que queda señalado.
        tipos(p).Append();
        componente<NavegadorDatos>(p, "DBNavigator2").boton(nbInsert)->click();
        QCOMPARE(tipos(p).RecordCount(), antes);
        QVERIFY(prefijos(p).State() != Estado::Insercion);
    }

    void el_prefijo_senalado_queda_en_edicion_y_solo_el_que_cambia_lleva_el_usuario() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tftipodoc");
        QVERIFY(tipos(p).Locate("TICO_COD", {"RC"}));
        QVERIFY(prefijos(p).State() == Estado::Edicion);
        enfoque(p, "DBGridEh2", 1);
        oprima(Qt::Key_Down);
        QCOMPARE(prefijos(p).FieldByName("PRCO_PREF").texto(), "0002");
        QVERIFY(prefijos(p).State() == Estado::Edicion);
        // El número admite cifras; cambiarlo a mano es libre.
        digite("x0x0777", Qt::Key_F2);
        QCOMPARE(s.dato("select pref_numero || prco_usuario from prefijos_conta where tico_cod = "
                        "'RC' and prco_pref = '0002'"),
                 "00777ADMIN");
        QVERIFY(s.dato("select prco_usuario from prefijos_conta where tico_cod = 'RC' and "
                       "prco_pref = '0001'")
                    .isEmpty());
    }

    void el_contador_que_otro_movio_no_se_pisa() {
        SesionGui s;
        Interlocutor i;
        Pantalla* p = pantallas().abrir("Tftipodoc");
        s.base.ejecute({"update prefijos_conta set pref_numero = '000050' where tico_cod = 'CG'"});
        enfoque(p, "DBGridEh2", 1);
        digite("000009");
        i.espere_comienzo("Otro usuario cambió");
        oprima(Qt::Key_F2);
        QCOMPARE(s.escritorio.abiertas().size(), 1); // lo digitado sigue ahí
        QCOMPARE(prefijos(p).FieldByName("PREF_NUMERO").texto(), "000009");
        QCOMPARE(s.dato("select pref_numero from prefijos_conta where tico_cod = 'CG'"), "000050");
    }

    void la_base_rehusa_un_tipo_repetido_y_borrar_uno_con_prefijos() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tftipodoc");
        tipos(p).Append();
        tipos(p).FieldByName("TICO_COD") = "CG";
        tipos(p).FieldByName("TICO_NOM") = "Otro";
        dice(Qt::Key_F2, "Ya existe el registro en la tabla Tipocomp");
        dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "Sí");

        p = pantallas().abrir("Tftipodoc");
        QVERIFY(tipos(p).Locate("TICO_COD", {"RC"}));
        dice([&] { componente<NavegadorDatos>(p, "DBNavigator1").boton(nbDelete)->click(); },
             "Desea borrar el registro?", "Sí");
        dice(Qt::Key_F2, "Está borrando o insertando un registro en la tabla Tipocomp que tiene "
                         "una relación con otra tabla. No se puede borrar ni cambiar su código: se "
                         "usa en los prefijos de los comprobantes.");
        QCOMPARE(s.dato("select count(*) from tipo_comprobante where tico_cod = 'RC'"), "1");
        QCOMPARE(s.dato("select count(*) from prefijos_conta where tico_cod = 'RC'"), "2");
        dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "Sí");

        // Quitando antes los prefijos, en la misma ventana, el tipo sí se va.
        p = pantallas().abrir("Tftipodoc");
        QVERIFY(tipos(p).Locate("TICO_COD", {"RC"}));
        for (const char* navegador : {"DBNavigator2", "DBNavigator2", "DBNavigator1"}) {
            dice([&] { componente<NavegadorDatos>(p, navegador).boton(nbDelete)->click(); },
                 "Desea borrar el registro?", "Sí");
        }
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from tipo_comprobante where tico_cod = 'RC'"), "0");
    }

    void esc_deja_todo_como_estaba() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tftipodoc");
        enfoque(p, "DBGridEh1", 1);
        digite("Cambiado", Qt::Key_Tab);
        tipos(p).Last();
        dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "Sí");
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from tipo_comprobante where tico_nom = 'Cambiado'"), "0");
    }

    void el_formato_se_abre_con_f8_en_los_tipos_que_lo_tienen() {
        SesionGui s;
        registre_testigo("Tfedtformato", [this](const Pantalla& p) {
            formato_ = p.peticion<AbreFormato>().formato_actual;
        });
        Pantalla* p = pantallas().abrir("Tftipodoc");
        auto& boton = componente<QPushButton>(p, "SpeedButton3");
        QVERIFY(!boton.isEnabled()); // CG no tiene formato
        oprima(Qt::Key_F8);
        QVERIFY(formato_.isEmpty());
        for (const char* marca : {"S", "N"}) { // desde que se marca, sin cambiar de fila
            tipos(p).Edit();
            tipos(p).FieldByName("TICO_FORMATO") = marca;
            QCOMPARE(boton.isEnabled(), *marca == 'S');
        }
        QVERIFY(tipos(p).Locate("TICO_COD", {"RC"}));
        prefijos(p).Last();
        QVERIFY(boton.isEnabled());
        oprima_seguidas({Qt::Key_F8, Qt::Key_F8});
        QCOMPARE(formato_, "RC");
        s.escritorio.activa()->close();
        s.configure("USAR TIPO DE COMPROBANTE COMO PREFIJO DEL FORMATO A IMPRIMIR", "NO");
        oprima(Qt::Key_F8);
        QCOMPARE(formato_, "0002");
    }
};

QTEST_MAIN(PruebaTipodoc)
#include "prueba_tipodoc.moc"
