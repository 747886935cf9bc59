// Las órdenes de los catálogos, una por una: en qué pantalla, con qué tecla, qué botón con qué
// letrero, qué abre y qué derecho pide. La tabla es la de la descripción del sistema: un letrero
// que no dice su tecla está aquí como se conoce.
#include "apoyo_gui/sesion_gui.h"
#include "catalogues/registro_cuentas.h"
#include "catalogues/registro_terceros.h"

namespace {

const char* const kComuniquese =
    "Acceso no permitido. comuníquese con el administrador del sistema.";
const char* const kComuniqueseMayuscula =
    "Acceso no permitido. Comuníquese con el administrador del sistema.";

/// Cómo se abre la pantalla en la prueba.
enum Modo { Mantenimiento, Selector, Ficha };

struct Orden {
    const char* pantalla;
    Modo modo;
    int tecla; ///< 0: solo el botón
    Qt::KeyboardModifiers con;
    const char *boton, *letrero; ///< nulos: la tecla no tiene botón
    const char* abre;            ///< pantalla que abre; "cierra": se cierra; nulo: lo que hace se
                                 ///< prueba en otra parte
};
constexpr auto nada = Qt::NoModifier;
const Orden kOrdenes[] = {
    {"Tfmnucuentas", Mantenimiento, 0, nada, "SBPlan2649", "Plan Dec.2649", "Tfcuentas"},
    {"Tfmnucuentas", Mantenimiento, 0, nada, "SBPlanNiif", "Plan NIIF", "Tfcuentasniif"},
    {"Tfmnucuentas", Mantenimiento, Qt::Key_Escape, nada, nullptr, nullptr, "cierra"},

    {"Tfcuentas", Mantenimiento, Qt::Key_F3, nada, "SBBorrar", "F3:Eliminar", nullptr},
    {"Tfcuentas", Mantenimiento, Qt::Key_F4, nada, "SBModificar", "F4:Modificar", "Tfmodcuenta"},
    {"Tfcuentas", Mantenimiento, Qt::Key_F5, nada, "SBNueva", "F5:Nueva", "Tfnvacuenta"},
    {"Tfcuentas", Mantenimiento, Qt::Key_F8, nada, "SBSaldos", "F7:Saldos", "Tfsaldoterc"},
    {"Tfcuentas", Mantenimiento, Qt::Key_F9, nada, "SBMovimiento", "F8:Movimiento", "Tfauxiliar"},
    {"Tfcuentas", Mantenimiento, Qt::Key_Return, nada, nullptr, nullptr, "Tfmodcuenta"},
    {"Tfcuentas", Mantenimiento, Qt::Key_Escape, nada, "SBSalir", "Esc:Salir", "cierra"},
    {"Tfcuentas", Mantenimiento, Qt::Key_F12, Qt::ShiftModifier, nullptr, nullptr, nullptr},
    {"Tfcuentas", Selector, Qt::Key_Return, nada, nullptr, nullptr, "cierra"},
    {"Tfcuentas", Selector, 0, nada, "SBSelec", "Enter:Selecciona", "cierra"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_F3, nada, "SBBorrar", "F3:Eliminar", nullptr},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_F4, nada, "SBModificar", "F4:Modificar",
     "Tfmodcuentaniif"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_F5, nada, "SBNueva", "F5:Nueva", "Tfnvacuentaniif"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_F8, nada, "SBSaldos", "F7:Saldos", "Tfsaldotercniif"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_F9, nada, "SBMovimiento", "F8:Movimiento",
     "Tfauxiliarniif"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_Return, nada, nullptr, nullptr, "Tfmodcuentaniif"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_Escape, nada, "SBSalir", "Esc:Salir", "cierra"},
    {"Tfcuentasniif", Mantenimiento, Qt::Key_F12, Qt::ShiftModifier, nullptr, nullptr, nullptr},
    {"Tfcuentasniif", Selector, Qt::Key_Return, nada, nullptr, nullptr, "cierra"},

    {"Tfnvacuenta", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", nullptr},
    {"Tfnvacuenta", Ficha, Qt::Key_F5, nada, "BitBtn1", "P.U.C.", nullptr},
    {"Tfnvacuenta", Ficha, Qt::Key_F11, nada, "SpeedButton1", "Inventario", "Tfarticulos"},
    {"Tfnvacuenta", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfnvacuentaniif", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", nullptr},
    {"Tfnvacuentaniif", Ficha, Qt::Key_F11, nada, "SpeedButton1", "Inventario", "Tfarticulos"},
    {"Tfnvacuentaniif", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfmodcuenta", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", nullptr},
    {"Tfmodcuenta", Ficha, Qt::Key_F4, nada, "SpeedButton2", "F4:Anterior", nullptr},
    {"Tfmodcuenta", Ficha, Qt::Key_F5, nada, "SpeedButton1", "F5:Siguiente", nullptr},
    {"Tfmodcuenta", Ficha, Qt::Key_F11, nada, "SpeedButton3", "Inventario", "Tfarticulos"},
    {"Tfmodcuenta", Ficha, Qt::Key_Escape, nada, "SBSalir", "Esc:Salir", "cierra"},
    {"Tfmodcuentaniif", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", nullptr},
    {"Tfmodcuentaniif", Ficha, Qt::Key_F4, nada, "SpeedButton2", "F4:Anterior", nullptr},
    {"Tfmodcuentaniif", Ficha, Qt::Key_F5, nada, "SpeedButton1", "F5:Siguiente", nullptr},
    {"Tfmodcuentaniif", Ficha, Qt::Key_F11, nada, "SpeedButton3", "Inventario", "Tfarticulos"},
    {"Tfmodcuentaniif", Ficha, Qt::Key_Escape, nada, "SBSalir", "Esc:Salir", "cierra"},

    {"Tfpuc", Ficha, 0, nada, "SpeedButton1", "Crear Seleccionados", "cierra"},
    {"Tfpuc", Ficha, Qt::Key_Escape, nada, "SpeedButton2", "Esc:Salirr", "cierra"},

    {"Tfnormas", Ficha, Qt::Key_F12, nada, nullptr, nullptr, nullptr},
    {"Tfnormas", Ficha, Qt::Key_F2, nada, nullptr, nullptr, nullptr},
    {"Tfnormas", Ficha, 0, nada, "SBSelec", "Selecciona", nullptr},
    {"Tfnormas", Ficha, Qt::Key_Escape, nada, nullptr, nullptr, "cierra"},
    {"Tfnormacuenta", Ficha, Qt::Key_F5, nada, "SpeedButton3", "F5: Nuevo", "Tfnormas"},
    {"Tfnormacuenta", Ficha, Qt::Key_F3, nada, "SBBorrar", "F3:Eliminar", nullptr},

    {"Tfterceros", Mantenimiento, Qt::Key_F3, nada, "SBBorrar", "F3:Eliminar", nullptr},
    {"Tfterceros", Mantenimiento, Qt::Key_F4, nada, "SBModificar", "F4:Modificar", "Tfmodtercero"},
    {"Tfterceros", Mantenimiento, Qt::Key_F5, nada, "SBNuevo", "F5:Nuevo", "Tfnvotercero"},
    {"Tfterceros", Mantenimiento, Qt::Key_F9, nada, "SBMovimiento", "F8:Movimiento",
     "Tfcomproterc"},
    {"Tfterceros", Mantenimiento, Qt::Key_Return, nada, nullptr, nullptr, "Tfmodtercero"},
    {"Tfterceros", Mantenimiento, Qt::Key_Escape, nada, "SBSalir", "Esc:Salir", "cierra"},
    {"Tfterceros", Mantenimiento, Qt::Key_F12, Qt::ShiftModifier, nullptr, nullptr, nullptr},
    {"Tfterceros", Selector, Qt::Key_Return, nada, nullptr, nullptr, "cierra"},
    {"Tfnvotercero", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", nullptr},
    {"Tfnvotercero", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfmodtercero", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", nullptr},
    {"Tfmodtercero", Ficha, 0, nada, "SBDocumentos", "Documentos", "Tfdocsterc"},
    {"Tfmodtercero", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfciudades", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", "cierra"},
    {"Tfciudades", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfpaises", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Grabar", "cierra"},
    {"Tfpaises", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},

    {"Tfcentros", Ficha, Qt::Key_F2, nada, "SBGrabar", "F2:Modificar", "cierra"},
    {"Tfcentros", Ficha, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfcentros", Ficha, 0, nada, "SBSelec", "Selecciona", "cierra"},
    {"Tfcentros", Ficha, Qt::Key_F12, nada, nullptr, nullptr, nullptr},

    {"Tfarticulos", Mantenimiento, Qt::Key_F3, nada, "SBBorrar", "F3:Eliminar", nullptr},
    {"Tfarticulos", Mantenimiento, Qt::Key_F4, nada, "SBModificar", "F4:Modificar",
     "Tfedtarticulo"},
    {"Tfarticulos", Mantenimiento, Qt::Key_F5, nada, "SBNuevo", "F5:Nuevo", "Tfnvoarticulo"},
    {"Tfarticulos", Mantenimiento, Qt::Key_Return, nada, nullptr, nullptr, "Tfedtarticulo"},
    {"Tfarticulos", Mantenimiento, Qt::Key_Escape, nada, "SBSalir", "Esc:Salir", "cierra"},
    {"Tfarticulos", Selector, Qt::Key_Return, nada, nullptr, nullptr, "cierra"},
    {"Tfconceptos", Mantenimiento, Qt::Key_F2, nada, "SBGrabar", "F2: Grabar", "cierra"},
    {"Tfconceptos", Mantenimiento, Qt::Key_Escape, nada, "SBCancelar", "Esc:Salir", "cierra"},
    {"Tfconceptos", Selector, 0, nada, "SpeedButton1", "Seleccionar", "cierra"},

    {"Tftipodoc", Ficha, Qt::Key_F2, nada, "SpeedButton2", "F2:Modificar", "cierra"},
    {"Tftipodoc", Ficha, Qt::Key_F8, nada, "SpeedButton3", "F8:Formato", nullptr},
    {"Tftipodoc", Ficha, Qt::Key_F12, nada, nullptr, nullptr, nullptr},
    {"Tftipodoc", Ficha, Qt::Key_Escape, nada, "SpeedButton1", "Esc:Salir", "cierra"},
};

/// Derecho que la pantalla pide al crearse: negado, lo dice y no abre.
const struct {
    const char* pantalla;
    int opcion;
} kEntradas[] = {{"Tfcuentas", 1},       {"Tfcuentasniif", 1}, {"Tfnvacuenta", 0},
                 {"Tfnvacuentaniif", 0}, {"Tfterceros", 11},   {"Tftipodoc", 60}};

/// Derecho que pide una orden: negado, lo dice y no hace nada más.
const struct {
    const char* pantalla;
    int tecla, opcion;
    const char* mensaje;
} kDerechos[] = {
    {"Tfcuentas", Qt::Key_F3, 2, kComuniquese},
    {"Tfcuentasniif", Qt::Key_F3, 2, kComuniquese},
    {"Tfterceros", Qt::Key_F3, 12, kComuniquese},
    {"Tfterceros", Qt::Key_F5, 10, kComuniqueseMayuscula},
    {"Tfcentros", Qt::Key_F2, 20, "Acceso no permitido. NO se grabarán los cambios."},
    {"Tfdocsterc", Qt::Key_F3, 12, kComuniquese},
};

Pantalla* abra(const Orden& o) {
    const QString nombre = o.pantalla;
    if (nombre.startsWith("Tfmodcuenta"))
        return pantallas().abrir(nombre, AbreCuenta{"110505"});
    if (nombre == "Tfmodtercero" || nombre == "Tfdocsterc")
        return pantallas().abrir(nombre, AbreTercero{"900123456"});
    if (nombre == "Tfnormacuenta")
        return pantallas().abrir(nombre, AbreAuxiliar{.cuenta_auxiliar = "110505"});
    if (o.modo == Mantenimiento)
        return pantallas().abrir(nombre, AbreLista{.modo_mantenimiento = true});
    return pantallas().abrir(nombre);
}

/// Deja señalada una cuenta que puede llevar movimiento.
void ubique(Pantalla* p) {
    if (auto* cuentas = p->findChild<ConjuntoDatos*>("CCuentas");
        cuentas && p->objectName().startsWith("Tfcuentas"))
        cuentas->Locate("CUEN_COD", {"110505"});
}

} // namespace

class PruebaOrdenesCatalogos : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        aplique_estilo(*qApp);
        registre_pantallas_cuentas();
        registre_pantallas_terceros();
        for (const char* nombre : {"Tfsaldoterc", "Tfsaldotercniif", "Tfauxiliar", "Tfauxiliarniif",
                                   "Tfcomproterc", "Tfedtformato"})
            registre_testigo(nombre);
    }

    void cada_orden_esta_en_su_tecla_con_su_letrero_y_abre_lo_suyo() {
        SesionGui s;
        for (const Orden& o : kOrdenes) {
            const QByteArray cual = QByteArray(o.pantalla) + ' ' + QByteArray::number(o.tecla, 16) +
                                    ' ' + (o.boton ? o.boton : "");
            Pantalla* p = abra(o);
            QVERIFY2(p, cual);
            ubique(p);
            if (o.boton) {
                auto* boton = p->findChild<QPushButton*>(o.boton);
                QVERIFY2(boton, cual);
                QCOMPARE(boton->text().remove('&'), o.letrero);
            }
            if (o.tecla) {
                const auto& teclas = p->teclas();
                const auto esta = [&](const Tecla& t) {
                    return t.clave == o.tecla && t.modificadores == o.con &&
                           (!o.boton || t.nombre == o.boton);
                };
                QVERIFY2(std::any_of(teclas.begin(), teclas.end(), esta), cual);
            }
            if (o.abre) {
                QPointer<Pantalla> viva = p;
                if (o.tecla)
                    oprima(o.tecla, o.con);
                else
                    p->findChild<QPushButton*>(o.boton)->click();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                if (QByteArray(o.abre) == "cierra")
                    QVERIFY2(!viva && s.escritorio.abiertas().isEmpty(), cual);
                else
                    QVERIFY2(s.escritorio.activa() &&
                                 s.escritorio.activa()->objectName() == QLatin1String(o.abre),
                             cual);
            }
            s.escritorio.cierre_todas();
        }
    }

    void ninguna_pantalla_tiene_otra_tecla_de_funcion() {
        SesionGui s;
        QSet<QString> vistas;
        for (const Orden& o : kOrdenes) {
            if (vistas.contains(o.pantalla))
                continue;
            vistas << o.pantalla;
            Pantalla* p = abra(o);
            QVERIFY2(p, o.pantalla);
            // Mayús+F12 va a la caja de búsqueda de cualquier lista.
            const auto buscar = [](const Tecla& t) {
                return t.clave == Qt::Key_F12 && t.modificadores == Qt::ShiftModifier;
            };
            for (const Tecla& t : p->teclas())
                if (t.clave >= Qt::Key_F2 && t.clave <= Qt::Key_F12 && !buscar(t))
                    QVERIFY2(std::any_of(std::begin(kOrdenes), std::end(kOrdenes),
                                         [&](const Orden& x) {
                                             return !qstrcmp(x.pantalla, o.pantalla) &&
                                                    x.tecla == t.clave && x.con == t.modificadores;
                                         }),
                             qPrintable(QString(o.pantalla) + " F" +
                                        QString::number(t.clave - Qt::Key_F1 + 1)));
            p->close();
        }
    }

    void cada_derecho_se_pide_antes_que_nada() {
        SesionGui s("AUXILIAR");
        s.base.base().ejecute("insert into tercero_documentos (terc_nit, tedo_item, tedo_nombre) "
                              "values ('900123456', 1, 'RUT')");
        for (const auto& entrada : kEntradas) {
            s.niegue(entrada.opcion);
            dice([&] { QVERIFY2(!pantallas().abrir(entrada.pantalla), entrada.pantalla); },
                 kComuniquese);
            s.otorgue(entrada.opcion);
            Pantalla* p = pantallas().abrir(entrada.pantalla);
            QVERIFY2(p, entrada.pantalla);
            p->close();
        }
        for (const auto& d : kDerechos) {
            s.niegue(d.opcion);
            Pantalla* p = abra({d.pantalla, Mantenimiento, 0, nada, nullptr, nullptr, nullptr});
            QVERIFY2(p, d.pantalla);
            ubique(p);
            const qsizetype abiertas = s.escritorio.abiertas().size();
            dice([&] { oprima(d.tecla); }, d.mensaje);
            QVERIFY2(s.escritorio.abiertas().size() <= abiertas, d.pantalla);
            s.escritorio.cierre_todas();
            s.otorgue(d.opcion);
        }
    }
};

QTEST_MAIN(PruebaOrdenesCatalogos)
#include "prueba_ordenes_catalogos.moc"
