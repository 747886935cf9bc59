// Proyectos y centros de costo: mantenimiento, selección y agencias.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_terceros.h"

namespace {

ConjuntoDatos& proyectos(Pantalla* p) {
    return componente<ConjuntoDatos>(p, "CProyectos");
}
ConjuntoDatos& centros(Pantalla* p) {
    return componente<ConjuntoDatos>(p, "CCentros");
}
QString nombres(ConjuntoDatos& c, const QString& campo) {
    return valores_de(c, campo).join(',');
}
void filtre_por_agencia(SesionGui& s) {
    s.configure("FILTRAR CENTROS DE COSTO POR AGENCIA", "SI");
}
void borre_proyecto(Pantalla* p) {
    componente<NavegadorDatos>(p, "DBNavigator1").boton(nbDelete)->click();
}

} // namespace

class PruebaCentros : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { registre_pantallas_terceros(); }

    void un_proyecto_y_sus_centros_se_digitan_y_se_graban_juntos() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfcentros");
        QVERIFY(p);
        QCOMPARE(nombres(proyectos(p), "PROY_NOM"), "Administración,Ventas");
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Gerencia,Contabilidad");
        oprima(Qt::Key_Down);
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Mostrador,Bodega");
        QCOMPARE(nombres(centros(p), "NomAgen"), "Principal,Norte");

        componente<NavegadorDatos>(p, "DBNavigator1").boton(nbInsert)->click();
        enfoque(p, "DBGridEh1", 0);
        digite("0009", Qt::Key_Tab);
        digite("Obra");
        oprima(Qt::Key_F12); // a la otra rejilla
        QVERIFY(componente<Rejilla>(p, "DBGridEh2").enfocada());
        oprima(Qt::Key_Insert);
        enfoque(p, "DBGridEh2", 0);
        digite("0001", Qt::Key_Tab);
        digite("Cimientos", Qt::Key_Tab);
        QCOMPARE(s.dato("select count(*) from proyectos where proy_cod = '0009'"), "0");
        oprima(Qt::Key_Insert); // la que queda vacía no estorba
        oprima(Qt::Key_F2);
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select p.proy_nom || '/' || c.cent_nom || '/' || c.sucu_id from proyectos "
                        "p, centros c where c.proy_cod = p.proy_cod and p.proy_cod = '0009'"),
                 "Obra/Cimientos/0");
    }

    void cambiar_el_codigo_de_un_proyecto_arrastra_sus_centros() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfcentros");
        enfoque(p, "DBGridEh1", 0);
        digite("0005", Qt::Key_F2);
        QCOMPARE(s.dato("select list(cent_nom) from centros where proy_cod = '0005'"),
                 "Gerencia,Contabilidad");
        // Y borrarlo se los lleva.
        p = pantallas().abrir("Tfcentros");
        QVERIFY(proyectos(p).Locate("PROY_COD", {"0005"}));
        dice([&] { borre_proyecto(p); }, "Desea borrar el registro?", "Sí");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select count(*) from centros where proy_cod in ('0001', '0005')"), "0");
    }

    void sin_la_opcion_20_no_graba_y_con_una_falla_cierra_de_todos_modos() {
        {
            SesionGui s("AUXILIAR");
            Pantalla* p = pantallas().abrir("Tfcentros");
            QVERIFY(p); // abre para todos
            enfoque(p, "DBGridEh1", 1);
            digite("Otra cosa");
            dice(Qt::Key_F2, "Acceso no permitido. NO se grabarán los cambios.");
            QVERIFY(s.escritorio.abiertas().isEmpty());
            QCOMPARE(s.dato("select proy_nom from proyectos where proy_cod = '0001'"),
                     "Administración");
        }
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfcentros");
        proyectos(p).Append();
        proyectos(p).FieldByName("PROY_COD") = "0002";
        proyectos(p).FieldByName("PROY_NOM") = "Repetido";
        dice(Qt::Key_F2, "Ya existe el registro en la tabla Proyectos");
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select proy_nom from proyectos where proy_cod = '0002'"), "Ventas");
    }

    void un_centro_repetido_o_incompleto_se_rehusa_al_dejar_su_fila() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfcentros");
        enfoque(p, "DBGridEh2", 0);
        oprima(Qt::Key_Insert);
        digite("0002", Qt::Key_Tab);
        dice(Qt::Key_Down, "Los campos Nombre del centro,  son obligatorios.");
        digite("Otro");
        dice(Qt::Key_Down, "Ya existe un registro con el mismo Proyecto Centro de costo ");
        QVERIFY(centros(p).editando());
        for (int i = 0; i < 3 && !s.escritorio.abiertas().isEmpty(); ++i)
            oprima(Qt::Key_Escape); // la celda, la fila y la pantalla
        QVERIFY(s.escritorio.abiertas().isEmpty());
        QCOMPARE(s.dato("select count(*) from centros where proy_cod = '0001'"), "2");
    }

    void la_agencia_del_usuario_filtra_los_centros_si_asi_se_configura() {
        SesionGui s;
        s.dm.sucursal_usuario = 2;
        Pantalla* p = pantallas().abrir("Tfcentros"); // sin configurar, todos
        proyectos(p).Last();
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Mostrador,Bodega");
        p->close();
        filtre_por_agencia(s);
        p = pantallas().abrir("Tfcentros");
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Gerencia,Contabilidad"); // de todas
        proyectos(p).Last();
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Bodega");
        p->close();
        s.dm.sucursal_usuario = 0;
        p = pantallas().abrir("Tfcentros");
        proyectos(p).Last();
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Mostrador,Bodega");
    }

    void con_el_filtro_no_se_borra_un_proyecto_con_centros_que_no_se_ven() {
        SesionGui s;
        s.base.ejecute(
            {"update centros set sucu_id = 3 where proy_cod = '0002' and cent_cod = '0001'"});
        filtre_por_agencia(s);
        s.dm.sucursal_usuario = 2;
        Interlocutor i;
        Pantalla* p = pantallas().abrir("Tfcentros");
        proyectos(p).Last();
        QCOMPARE(nombres(centros(p), "CENT_NOM"), "Bodega");
        i.espere("Desea borrar el registro?", "Sí");
        i.espere("El proyecto 0002 tiene centros de otras agencias, que aquí no se ven: 0001 "
                 "Mostrador. No se puede borrar.");
        borre_proyecto(p);
        QCOMPARE(nombres(proyectos(p), "PROY_COD"), "0001,0002");
        // Con todos a la vista, sí.
        proyectos(p).First();
        dice([&] { borre_proyecto(p); }, "Desea borrar el registro?", "Sí");
        oprima(Qt::Key_F2);
        QCOMPARE(s.dato("select list(proy_cod || cent_cod) from centros"), "00020001,00020002");
    }

    void escoge_proyecto_y_centro_como_ventana_o_como_selector_modal() {
        SesionGui s;
        Interlocutor i;
        Solicitante<PideCentro> yo;
        Pantalla* p = yo.pida("Tfcentros");
        proyectos(p).Last();
        centros(p).Last();
        componente<QPushButton>(p, "SBSelec").click();
        const QList<CentroEscogido> recibidos = yo.recibidas();
        QCOMPARE(recibidos.size(), 1);
        QCOMPARE(recibidos[0].proyecto_seleccion + recibidos[0].centro_seleccion, "00020002");

        const auto pida_modal = [&](std::function<void(Pantalla*)> atienda) {
            i.espere_modal("Tfcentros", [=](QWidget* modal) {
                atienda(modal->findChild<Pantalla*>("Tfcentros"));
            });
            const auto c = pantallas().pida_modal("Tfcentros", PideCentro{.modo_selector = true});
            return c ? c->proyecto_seleccion + c->centro_seleccion : QString("nada");
        };
        QCOMPARE(pida_modal([](Pantalla* lista) {
                     centros(lista).Last();
                     doble_clic(componente<Rejilla>(lista, "DBGridEh2"));
                 }),
                 "00010002");
        QCOMPARE(pida_modal([](Pantalla* lista) {
                     QTest::keyClick(&componente<Rejilla>(lista, "DBGridEh1"), Qt::Key_Escape);
                 }),
                 "nada");
    }
};

QTEST_MAIN(PruebaCentros)
#include "prueba_centros.moc"
