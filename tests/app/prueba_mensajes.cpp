// Mensajes entre usuarios: escribir, contestar, a todos, la historia y quién está conectado; y de
// un programa a otro, por un servidor.
#include "apoyo/intermediario.h"
#include "apoyo/servidor_prueba.h"
#include "app/tfmensaje.h"
#include "app/ventanaavisos.h"
#include "app/vigiamensajes.h"
#include "fallas/contador.h"
#include "toolkit/controles/texto_de_fila.h"

namespace {

void registre() {
    pantallas().registre("Tfmensaje", [] { return new Tfmensaje; });
}

} // namespace

class PruebaMensajes : public QObject {
    Q_OBJECT
private slots:
    void init() {
        s_.emplace();
        i_.emplace();
        registre();
    }
    void cleanup() {
        i_.reset();
        s_.reset();
    }

    void enviar_pone_autor_hora_y_destino();
    void a_todos_llega_uno_a_cada_usuario_menos_a_quien_lo_manda();
    void contestar_ubica_al_autor_y_nombra_el_mensaje();
    void conectado_es_quien_entro_hoy();
    void la_historia_es_la_del_usuario_senalado();
    void uno_vacio_no_se_envia_y_esc_no_deja_nada();
    void entre_dos_programas_por_un_servidor();

private:
    Tfmensaje* abra(Encargo e = {}) { return s_->abra<Tfmensaje>("Tfmensaje", std::move(e)); }
    QString filas(const QString& sql) { return filas_de(s_->base.base(), sql); }

    std::optional<SesionGui> s_;
    std::optional<Interlocutor> i_;
};

void PruebaMensajes::enviar_pone_autor_hora_y_destino() {
    Tfmensaje* p = abra();
    AvisosBarra barra;
    fdm().barra(&barra);
    QVERIFY(p->CUsermens.Locate("USUARIO", {"AUXILIAR"}));
    digite_en(p->MENS_MENSAJE, "Revise la caja");
    p->CMensajes.FieldByName("MENS_NIVEL") = 1;
    oprima(Qt::Key_F2);
    agote_eventos();
    QCOMPARE(filas("select mens_autor, mens_mensaje, mens_nivel, mens_destino, mens_leido, "
                   "mens_respuesta, iif(mens_id > 0 and mens_fecha is not null and mens_hora is "
                   "not null, 'S', 'N') from mensajeria"),
             "ADMIN|Revise la caja|1|AUXILIAR|N|0|S");
    QVERIFY(!escritorio()->abierta("Tfmensaje"));
    QCOMPARE(barra.text(), "Mensaje enviado a AUXILIAR");
    fdm().barra(nullptr);
}

void PruebaMensajes::a_todos_llega_uno_a_cada_usuario_menos_a_quien_lo_manda() {
    s_->base.base().ejecute("insert into usuario (user_cod) values ('OTRO')");
    Tfmensaje* p = abra();
    digite_en(p->MENS_MENSAJE, "Cierre a las cinco", Qt::Key_F5);
    agote_eventos();
    QCOMPARE(filas("select mens_destino, mens_autor, mens_nivel from mensajeria where mens_leido = "
                   "'N' order by 1"),
             "AUXILIAR|ADMIN|3\nOTRO|ADMIN|3");
    QCOMPARE(filas("select count(*) from mensajeria where mens_destino = 'Todos'"), "1");
}

void PruebaMensajes::contestar_ubica_al_autor_y_nombra_el_mensaje() {
    Tfmensaje* p = abra(RespondeMensaje{.mensaje_responder = "77", .autor_responder = "AUXILIAR"});
    QCOMPARE(p->CUsermens.FieldByName("USUARIO").texto(), "AUXILIAR");
    digite_en(p->MENS_MENSAJE, "Listo", Qt::Key_F2);
    agote_eventos();
    QCOMPARE(filas("select mens_destino, mens_respuesta from mensajeria"), "AUXILIAR|77");
}

void PruebaMensajes::conectado_es_quien_entro_hoy() {
    RelojDetenido reloj;
    const QString hoy = ::reloj().hoy().toString("yyyy-MM-dd");
    s_->base.general().ejecute("update usuario set feccon = date '" + hoy +
                               "' where usua_cod = 'ADMIN'");
    s_->base.general().ejecute("update usuario set feccon = date '" + hoy +
                               "' - 1 where usua_cod = 'AUXILIAR'");
    Tfmensaje* p = abra();
    const auto conectado = [&](const char* usuario) {
        return p->CUsermens.Lookup("USUARIO", {usuario}, "Conectado").texto();
    };
    QCOMPARE(conectado("ADMIN"), "S");
    QCOMPARE(conectado("AUXILIAR"), "N"); // sigue adentro desde ayer, y así se ve
    // El reloj lo vuelve a mirar.
    s_->base.general().ejecute("update usuario set feccon = date '" + hoy +
                               "' where usua_cod = 'AUXILIAR'");
    QCOMPARE(p->Timer1->interval(), 15000);
    emit p->Timer1->timeout({});
    QCOMPARE(conectado("AUXILIAR"), "S");
    // Y el señalado es el mismo aunque otro se vaya de la lista.
    for (const char* usuario : {"TRES", "CUATRO"})
        s_->base.general().ejecute("insert into usuario (usua_cod) values (?)", {usuario});
    p->CUsermens.Refresh();
    QVERIFY(p->CUsermens.Locate("USUARIO", {"TRES"}));
    s_->base.general().ejecute("delete from usuario where usua_cod = 'AUXILIAR'");
    emit p->Timer1->timeout({});
    QCOMPARE(p->CUsermens.FieldByName("USUARIO").texto(), "TRES");
}

void PruebaMensajes::la_historia_es_la_del_usuario_senalado() {
    s_->base.ejecute({"insert into mensajeria (mens_autor, mens_mensaje, mens_destino, mens_fecha) "
                      "values ('AUXILIAR', 'uno', 'ADMIN', date '2017-01-01')",
                      "insert into mensajeria (mens_autor, mens_mensaje, mens_destino, mens_fecha) "
                      "values ('ADMIN', 'dos', 'AUXILIAR', date '2017-01-02')",
                      "insert into mensajeria (mens_autor, mens_mensaje, mens_destino, mens_fecha) "
                      "values ('OTRO', 'ajeno', 'AUXILIAR', date '2017-01-03')"});
    Tfmensaje* p = abra();
    QVERIFY(p->CUsermens.Locate("USUARIO", {"AUXILIAR"}));
    QCOMPARE(valores_de(p->Chistomens, "MENSAJE"), QStringList({"dos", "uno"}));
    QCOMPARE(valores_de(p->Chistomens, "EOS"), QStringList({"S", "E"}));
    p->Chistomens.Next();
    QCOMPARE(p->EMensaje->toPlainText(), "uno");
    QVERIFY(p->CUsermens.Locate("USUARIO", {"ADMIN"}));
    QVERIFY(p->Chistomens.IsEmpty() && p->EMensaje->isHidden());
}

void PruebaMensajes::uno_vacio_no_se_envia_y_esc_no_deja_nada() {
    Tfmensaje* p = abra();
    dice(Qt::Key_F2, "Escriba antes el mensaje.");
    // Una letra que no se guarda no se lleva el mensaje, ni Esc tampoco: se corrige ella sola, y
    // con ella se va de la barra la razón.
    AvisosBarra barra;
    fdm().barra(&barra);
    p->MENS_MENSAJE->insertPlainText("Son €5");
    i_->espere_comienzo("Se presento el siguiente error: El carácter '€' del campo ");
    oprima(Qt::Key_F2);
    QCOMPARE(p->MENS_MENSAJE->toPlainText(), "Son €5");
    QCOMPARE(p->MENS_MENSAJE->textCursor().selectedText(), "€");
    oprima(Qt::Key_Escape);
    QCOMPARE(p->MENS_MENSAJE->toPlainText(), "Son €5");
    QVERIFY(barra.text().startsWith("El carácter '€'"));
    p->MENS_MENSAJE->textCursor().deletePreviousChar();
    oprima(Qt::Key_Tab);
    QCOMPARE(barra.text(), "");
    QCOMPARE(p->CMensajes.FieldByName("MENS_MENSAJE").texto(), "Son 5");
    fdm().barra(nullptr);
    i_->espere("Desea salir y perder los cambios que no ha grabado?", "Sí");
    oprima(Qt::Key_Escape);
    agote_eventos();
    QCOMPARE(filas("select count(*) from mensajeria"), "0");
}

void PruebaMensajes::entre_dos_programas_por_un_servidor() {
    QVERIFY2(!ServidorDePrueba::programa().isEmpty(), "falta firebird3.0-server");
    i_.reset();
    s_.reset();
    ServidorDePrueba servidor;
    Intermediario red(servidor.puerto());
    SesionEnLugar yo(red.por_aqui(servidor.ubicacion()), "ADMIN", ServidorDePrueba::kClave);
    VigiaMensajes vigia(&yo.ventana);
    vigia.Timer3Timer();
    QVERIFY(!vigia.AdvAlertWindow2->isVisible() && vigia.Timer3->isActive());
    // Si la red se va mientras pregunta, lo dice una vez y el reloj queda quieto.
    yo.reloj.stop(); // los mensajes los lee la prueba
    i_.emplace();
    i_->espere_comienzo("Se presento el siguiente error: Se perdió la conexión");
    red.corte();
    emit vigia.Timer3->timeout({});
    QVERIFY(!vigia.Timer3->isActive());
    oprima_en(&yo.ventana, Qt::Key_Shift); // sigue sin servidor
    QVERIFY(!vigia.Timer3->isActive());
    // De vuelta, anda con lo siguiente que el usuario haga.
    red.atienda();
    yo.dm.Quorvex.consulte("select 1 from rdb$database");
    oprima_en(&yo.ventana, Qt::Key_Shift);
    QVERIFY(vigia.Timer3->isActive());
    // Si la pérdida la vio otro, sigue andando y no dice nada.
    red.corte();
    QVERIFY_THROWS_EXCEPTION(ErrorBase, yo.dm.Quorvex.consulte("select 1 from rdb$database"));
    emit vigia.Timer3->timeout({});
    QVERIFY(vigia.Timer3->isActive());
    red.atienda();
    yo.dm.Quorvex.consulte("select 1 from rdb$database");
    QProcess otro;
    otro.start(QCoreApplication::applicationFilePath(),
               {"--escriba", servidor.ubicacion().texto()});
    QVERIFY2(otro.waitForFinished(-1) && otro.exitCode() == 0,
             otro.readAllStandardError().constData());
    vigia.Timer3Timer();
    QVERIFY(vigia.AdvAlertWindow2->isVisible());
    QVERIFY(!vigia.Timer3->isActive()); // con el aviso a la vista no se pregunta
    QVERIFY2(vigia.AdvAlertWindow2->texto_actual().contains("<b>Desde el otro programa<br>De : "
                                                            "AUXILIAR</b>"),
             qPrintable(vigia.AdvAlertWindow2->texto_actual()));
    // Contestarle lo abre con él ya escogido.
    vigia.AdvAlertWindow2PopupClick();
    auto* p = qobject_cast<Tfmensaje*>(escritorio()->activa());
    QVERIFY(p);
    QCOMPARE(p->CUsermens.FieldByName("USUARIO").texto(), "AUXILIAR");
    QVERIFY(vigia.Timer3->isActive());
    QCOMPARE(
        yo.dm.Quorvex
            .consulte("select mens_leido || iif(mens_fecleido is null, 'N', 'S') from mensajeria")
            .texto(),
        "SS");
}

/// El otro programa: AUXILIAR escribe a ADMIN en su propia pantalla.
int escriba_desde(const QString& lugar) {
    registre();
    SesionEnLugar s(Ubicacion(lugar), "AUXILIAR", ServidorDePrueba::kClave);
    auto* p = qobject_cast<Tfmensaje*>(pantallas().abrir("Tfmensaje"));
    if (!p || !p->CUsermens.Locate("USUARIO", {"ADMIN"}))
        return 1;
    digite_en(p->MENS_MENSAJE, "Desde el otro programa", Qt::Key_F2);
    agote_eventos();
    return escritorio()->abierta("Tfmensaje") ? 2 : 0;
}

int main(int argc, char** argv) {
    QApplication aplicacion(argc, argv);
    if (aplicacion.arguments().value(1) == "--escriba")
        return escriba_desde(aplicacion.arguments().value(2));
    PruebaMensajes prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "prueba_mensajes.moc"
