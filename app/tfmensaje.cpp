#include "app/tfmensaje.h"

#include "datos/firebird/reloj.h"
#include "sesion/peticiones.h"
#include "toolkit/barrabotones.h"
#include "toolkit/barraestado.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/texto_de_fila.h"
#include "toolkit/division_fluida.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"
#include "toolkit/sin_grabar.h"

namespace {
constexpr int kMsRefresco = 15000;
constexpr const char* kATodos = "Todos";
} // namespace

Tfmensaje::Tfmensaje() : Pantalla("Tfmensaje", "Mensaje instantáneo"), Timer1(new QTimer(this)) {
    defina_conjuntos();
    cuide_lo_digitado(*this, {&CMensajes});
    construya();
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(kMsRefresco);
    connect(Timer1, &QTimer::timeout, this, [this] {
        // Sin servidor no hay a quién ver: no le toca a este reloj esperarlo.
        if (fdm().ConGeneral.en_linea())
            proteja([this] { CUsermens.Refresh(); });
    });
}

void Tfmensaje::defina_conjuntos() {
    CUsuarios.texto("USUA_COD", 10);
    CUsuarios.texto("USUA_NOMBRE", 60);
    // Con llave: al refrescar sigue señalado el mismo usuario aunque cambien los demás.
    CUsermens.texto("USUARIO", 10).banderas(pfInKey);
    CUsermens.texto("NOMBRE", 60);
    CUsermens.fecha("FECCON");
    CUsermens.calculado("Conectado", ClaseCampo::Texto, 1);
    CUsermens.OnCalcFields = [this] {
        CUsermens.FieldByName("Conectado") =
            CUsermens.FieldByName("FECCON").fecha() == reloj().hoy() ? "S" : "N";
    };
    CUsermens.AfterScroll = [this] {
        Chistomens.Filter("REMITE = " + QuotedStr(CUsermens.FieldByName("USUARIO").texto()));
    };
    Chistomens.Filtered(true);
    Chistomens.entero("ID");
    Chistomens.texto("EOS", 1);
    Chistomens.fecha("FECHA");
    Chistomens.hora("HORA");
    Chistomens.texto("REMITE", 10);
    Chistomens.texto("MENSAJE", 255);
    Chistomens.texto("LEIDO", 1);
    ConjuntoDatos& m = CMensajes;
    m.entero("MENS_ID").banderas(pfInUpdate | pfInWhere | pfInKey);
    m.texto("MENS_AUTOR", 10);
    m.texto("MENS_MENSAJE", 255).etiqueta("Mensaje");
    m.fecha("MENS_FECHA");
    m.hora("MENS_HORA");
    m.entero("MENS_NIVEL");
    m.texto("MENS_DESTINO", 10);
    m.bandera("MENS_LEIDO");
    m.fecha("MENS_FECLEIDO");
    m.hora("MENS_HORALEIDO");
    m.entero("MENS_RESPUESTA");
    m.AfterInsert = [this] {
        CMensajes.FieldByName("MENS_ID") = 0;
        CMensajes.FieldByName("MENS_LEIDO") = "N";
        CMensajes.FieldByName("MENS_RESPUESTA") = 0;
        CMensajes.FieldByName("MENS_NIVEL") = 3;
    };
}

void Tfmensaje::construya() {
    auto* division = new DivisionFluida(this);
    const auto rejilla = [&](const char* nombre, ConjuntoDatos& c, const QString& titulo) {
        auto* r = new Rejilla(division, &c);
        r->setObjectName(nombre);
        r->setAccessibleName(titulo);
        r->ReadOnly = true;
        return r;
    };
    DBGridEh1 = rejilla("DBGridEh1", CUsermens, "Usuarios");
    DBGridEh1->columnas({{"USUARIO", "Usuario", 10},
                         {"NOMBRE", "Nombre", 24},
                         {"Conectado", "Conectado", 10, Casilla}});
    DBGridEh1->texto_vacio = "No hay a quién enviar mensajes.";
    DBGridEh2 = rejilla("DBGridEh2", Chistomens, "Mensajes con el usuario");
    DBGridEh2->columnas({{"EOS", "E/S", 5},
                         {"FECHA", "Fecha", 11},
                         {"HORA", "Hora", 9},
                         {"MENSAJE", "Mensaje", 40},
                         {"LEIDO", "Leído", 6, Casilla}});
    DBGridEh2->texto_vacio = "Sin mensajes con este usuario.";
    EMensaje = new TextoDeFila(Chistomens, "MENSAJE", "EMensaje", "Mensaje señalado", 2);
    MENS_MENSAJE = new MemoDato(&CMensajes, "MENS_MENSAJE");
    MENS_MENSAJE->setObjectName("MENS_MENSAJE");
    MENS_MENSAJE->setTabChangesFocus(true);
    MENS_MENSAJE->lineas(4);
    MENS_NIVEL = new ListaDato(&CMensajes, "MENS_NIVEL");
    MENS_NIVEL->setObjectName("MENS_NIVEL");
    MENS_NIVEL->lista_de({"Normal", "Media", "Alta"}, {"3", "2", "1"});
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("PngSpeedButton1", "F2:Enviar", "document-send", Qt::Key_F2,
                                  [this] { envie(CUsermens.FieldByName("USUARIO").texto()); }));
    barra->boton("PngSpeedButton4", "F5:Enviar a todos", "mail-reply-all", Qt::Key_F5,
                 [this] { envie(kATodos); });
    barra->boton("PngSpeedButton2", "Esc:Cancela", "window-close", Qt::Key_Escape,
                 [this] { close(); });
    Formulario f(this);
    f.ancha(division, 1).ancha(EMensaje, 0);
    f.fila("&Mensaje", MENS_MENSAJE);
    f.fila("&Prioridad", MENS_NIVEL);
    f.botones(barra);
    tamano(860, 480);
}

void Tfmensaje::FormCreate() {
    fdm().ConfigurarProviders(this);
    Chistomens.PacketRecords = -1;
    const RespondeMensaje contestado = peticion<RespondeMensaje>();
    Chistomens.CommandText = "select * from historia_mensajes(" + QuotedStr(fdm().usuario) +
                             ") order by FECHA DESC, HORA DESC";
    CUsuarios.Open();
    CUsermens.Open();
    Chistomens.Open();
    CMensajes.Params["ID"] = 0;
    CMensajes.Open();
    CMensajes.Append();
    if (!contestado.autor_responder.isEmpty()) {
        CUsermens.Locate("USUARIO", {contestado.autor_responder});
        CMensajes.FieldByName("MENS_DESTINO") = contestado.autor_responder;
    }
    if (!contestado.mensaje_responder.isEmpty())
        CMensajes.FieldByName("MENS_RESPUESTA") = contestado.mensaje_responder;
    Timer1->start();
    MENS_MENSAJE->setFocus();
}

void Tfmensaje::envie(const QString& destino) {
    if (CMensajes.FieldByName("MENS_MENSAJE").texto().trimmed().isEmpty()) {
        muestre_mensaje("Escriba antes el mensaje.");
        MENS_MENSAJE->setFocus();
        return;
    }
    if (!CMensajes.editando()) // un envío anterior falló
        CMensajes.Edit();
    CMensajes.FieldByName("MENS_DESTINO") = destino;
    if (CMensajes.ApplyUpdates(0) != 0)
        return;
    if (AvisosBarra* barra = fdm().barra())
        barra->texto("Mensaje enviado a " + destino);
    close();
}

bool Tfmensaje::FormClose() {
    Timer1->stop();
    CMensajes.CancelUpdates();
    for (ConjuntoDatos* c : {&CMensajes, &Chistomens, &CUsermens, &CUsuarios})
        c->Close();
    return true;
}
