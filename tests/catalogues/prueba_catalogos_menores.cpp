// Ciudades, países, categorías y artículos.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_terceros.h"

namespace {

struct Menor {
    const char *pantalla, *conjunto, *tabla, *llave, *nombre, *archivo, *codigo;
};
const Menor menores[] = {
    {"Tfciudades", "CCiudades", "ciudades", "CIUD_COD", "CIUD_NOM", "Ciudades", "99998"},
    {"Tfpaises", "CPaises", "paises", "PAIS_ID", "PAIS_NOM", "Paises", "998"},
    {"Tfconceptos", "CConcepto", "concepto_contable", "CONC_COD", "CONC_NOMBRE", "Categorias",
     "0998"},
};
QString nombre_de(SesionGui& s, const Menor& m) {
    return s.dato(
        QString("select %1 from %2 where %3 = '%4'").arg(m.nombre, m.tabla, m.llave, m.codigo));
}
QString codigos(Pantalla* p) {
    return valores_de(componente<ConjuntoDatos>(p, "CArticulos"), "ARTI_COD").join(',');
}
} // namespace

class PruebaCatalogosMenores : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_terceros();
    }

    void f2_graba_lo_digitado_esc_lo_descarta_y_una_fila_sin_codigo_desaparece() {
        for (const Menor& m : menores) {
            SesionGui s;
            AvisosBarra barra;
            s.dm.barra(&barra);
            Pantalla* p = pantallas().abrir(m.pantalla);
            QVERIFY2(p, m.pantalla);
            const QString grabado = "Grabado: " + p->windowTitle();
            auto& rejilla = componente<Rejilla>(p, "DBGridEh1");
            auto& conjunto = componente<ConjuntoDatos>(p, m.conjunto);
            QCOMPARE(rejilla.nombre_archivo, m.archivo);
            const int antes = conjunto.RecordCount();
            rejilla.SelectedIndex(1);
            oprima(Qt::Key_Insert);
            rejilla.SelectedIndex(1);
            digite("Sin llave", Qt::Key_Down);
            QCOMPARE(conjunto.RecordCount(), antes);

            conjunto.First();
            oprima(Qt::Key_Insert);
            rejilla.SelectedIndex(0);
            digite(m.codigo, Qt::Key_Tab);
            digite("Prueba ñandú", Qt::Key_F2);
            QVERIFY2(s.escritorio.abiertas().isEmpty(), m.pantalla);
            QCOMPARE(nombre_de(s, m), "Prueba ñandú");
            QCOMPARE(barra.text(), grabado);
            // Sin nada que grabar no dice que grabó.
            barra.texto({});
            pantallas().abrir(m.pantalla);
            oprima(Qt::Key_F2);
            QVERIFY(barra.text().isEmpty() && s.escritorio.abiertas().isEmpty());

            p = pantallas().abrir(m.pantalla);
            auto& de_nuevo = componente<ConjuntoDatos>(p, m.conjunto);
            QVERIFY(de_nuevo.Locate(m.llave, {QString(m.codigo)}));
            de_nuevo.Edit();
            de_nuevo.FieldByName(m.nombre) = "Descartado";
            de_nuevo.Next(); // queda en memoria, no en la base
            dice(Qt::Key_Escape, "Desea salir y perder los cambios que no ha grabado?", "Sí");
            QVERIFY2(s.escritorio.abiertas().isEmpty(), m.pantalla);
            QCOMPARE(nombre_de(s, m), "Prueba ñandú");
            s.dm.barra(nullptr);
        }
    }

    void un_codigo_repetido_lo_dice_y_deja_la_pantalla_con_lo_digitado() {
        SesionGui s;
        Pantalla* p = pantallas().abrir("Tfpaises");
        auto& paises = componente<ConjuntoDatos>(p, "CPaises");
        paises.Insert();
        paises.FieldByName("PAIS_ID") = "169";
        paises.FieldByName("PAIS_NOM") = "Otra Colombia";
        dice(Qt::Key_F2, "Ya existe el registro en la tabla Paises");
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        QVERIFY(paises.Locate("PAIS_NOM", {"Otra Colombia"}));
    }

    void una_ciudad_inactiva_sale_en_rojo() {
        SesionGui s;
        s.base.ejecute({"update ciudades set ciud_activa = 'N' where ciud_cod = '05002'"});
        Pantalla* p = pantallas().abrir("Tfciudades");
        auto& rejilla = componente<Rejilla>(p, "DBGridEh1");
        auto& ciudades = componente<ConjuntoDatos>(p, "CCiudades");
        QVERIFY(ciudades.Locate("CIUD_COD", {"05002"}));
        QCOMPARE(rejilla.aspecto_de(ciudades.RecNo()).frente, color_inactivo());
        QVERIFY(rejilla.aspecto_de(ciudades.RecNo() + 1).frente != color_inactivo());
    }

    void una_categoria_se_escoge_con_el_boton_enter_o_doble_clic() {
        SesionGui s;
        s.base.ejecute(
            {"delete from concepto_contable",
             "insert into concepto_contable (conc_cod, conc_nombre) values ('01', 'Ventas')",
             "insert into concepto_contable (conc_cod, conc_nombre) values ('02', 'Compras')"});
        Solicitante<PideConcepto> yo;
        const auto escoja = [&](const std::function<void(Pantalla*, Rejilla&)>& como) {
            Pantalla* p = yo.pida("Tfconceptos");
            con_foco();
            componente<ConjuntoDatos>(p, "CConcepto").Last();
            como(p, componente<Rejilla>(p, "DBGridEh1"));
            return yo.recibidas().join(',');
        };
        QCOMPARE(escoja([](Pantalla* p, Rejilla&) {
                     componente<QPushButton>(p, "SpeedButton1").click();
                 }),
                 "02");
        QCOMPARE(escoja([](Pantalla*, Rejilla& r) { doble_clic(r); }), "02");
        QCOMPARE(s.escritorio.abiertas().size(), 1);
        // En mantenimiento Enter es de la rejilla.
        Pantalla* p = pantallas().abrir("Tfconceptos", AbreLista{true});
        con_foco();
        componente<ConjuntoDatos>(p, "CConcepto").Last();
        oprima(Qt::Key_Return);
        QCOMPARE(s.escritorio.activa(), p);
    }

    // ------------------------------------------------------------ artículos

    void un_articulo_se_crea_con_sus_valores_iniciales_y_se_modifica() {
        SesionGui s;
        Interlocutor i;
        Pantalla* lista = pantallas().abrir("Tfarticulos");
        oprima(Qt::Key_F5);
        Pantalla* p = s.escritorio.abierta("Tfnvoarticulo");
        QVERIFY(p);
        dice(Qt::Key_F2, "Los campos Código de artículo,  son obligatorios.");
        escriba(p, "EARTI_COD", "Z9");
        escriba(p, "EARTI_DES", "Llave inglesa");
        escriba(p, "EARTI_PRECIO", "1,234.50");
        // La foto se escoge en el diálogo de archivos; lo que no es imagen se rehúsa.
        QTemporaryDir carpeta;
        QImage foto(12, 8, QImage::Format_RGB32);
        foto.fill(Qt::red);
        QVERIFY(foto.save(carpeta.filePath("llave.png")));
        ponga_archivo(carpeta.filePath("falsa.png"), "nada");
        for (const char* archivo : {"falsa.png", "llave.png"}) {
            i.espere_archivo("QFileDialog", carpeta.filePath(archivo));
            if (*archivo == 'f')
                i.espere_modal("dialogo", [](QWidget* w) { w->close(); });
            componente<QPushButton>(p, "SBFoto").click();
        }
        componente<QLineEdit>(p, "EARTI_COD").setFocus();
        oprima(Qt::Key_F2);
        QVERIFY(
            s.dato("select octet_length(arti_foto) from articulo where arti_cod = 'Z9'").toInt() >
            20);
        QCOMPARE(s.dato("select arti_des || '|' || arti_desvar || arti_tipo || arti_exist || '|' "
                        "|| arti_unidad || '|' || arti_usuario || '|' || taiv_cod || '|' || "
                        "arti_precio from articulo where arti_cod = 'Z9'"),
                 "Llave inglesa|SAB|UNIDAD|ADMIN|01|1234.50");
        QCOMPARE(con_foco()->objectName(), "EARTI_COD"); // lista para otro
        oprima(Qt::Key_Escape);
        QCOMPARE(s.escritorio.activa(), lista);
        QVERIFY(codigos(lista).contains("Z9"));
        oprima(Qt::Key_F4);
        p = s.escritorio.abierta("Tfedtarticulo");
        QVERIFY(p);
        escriba(p, "EARTI_DES", "Llave de tubo");
        oprima(Qt::Key_F2);
        QVERIFY(!s.escritorio.abierta("Tfedtarticulo"));
        QCOMPARE(componente<ConjuntoDatos>(lista, "CArticulos").FieldByName("ARTI_DES").texto(),
                 "Llave de tubo");
    }
};

QTEST_MAIN(PruebaCatalogosMenores)
#include "prueba_catalogos_menores.moc"
