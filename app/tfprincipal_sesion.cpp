// La sesión: primera activación, fila de la sesión y cierre.
#include "app/tfprincipal.h"

#include "app/compactador.h"
#include "app/letrerorespaldo.h"
#include "app/paneldegradado.h"
#include "app/vigiamensajes.h"
#include "datos/firebird/claves.h"
#include "datos/firebird/reloj.h"
#include "datos/firebird/servicios.h"
#include "sesion/guardas.h"
#include "sesion/instalacion.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barraestado.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCloseEvent>
#include <QScopedValueRollback>
#include <QSettings>

namespace {

QString hoy() {
    return reloj().hoy().toString(QStringLiteral("yyyy/MM/dd"));
}

} // namespace

void Tfprincipal::showEvent(QShowEvent* evento) {
    QMainWindow::showEvent(evento);
    if (mostrada_)
        return;
    mostrada_ = true;
    // Con la ventana ya pintada.
    QTimer::singleShot(0, this, [this] {
        proteja([this] { FormActivate(); });
        emit activacion_terminada();
    });
}

void Tfprincipal::FormActivate() {
    if (!primera_activacion || activando_)
        return;
    // Un diálogo de la propia activación, al cerrarse, vuelve a activar la ventana.
    QScopedValueRollback<bool> guarda(activando_, true);
    if (!tome_argumentos()) {
        muestre_error("Acceso no permitido. Ingrese al módulo principal especificando un usuario "
                      "válido.");
        close();
        return;
    }
    conecte_compania();
    if (!version_al_dia(fdm().Quorvex, TipoBase::Compania))
        return;
    fdm().cargue_configuracion();
    fdm().registros_paquete = fdm().valor<Llave::RegistrosPorPaquete>();
    fdm().duracion_busquedas = fdm().valor<Llave::DuracionBusquedas>() * 1000;
    fdm().QRevision.Open("select revi_fecha from revision");
    LabRevision->setText(rotulo_revision() + fdm().QRevision.Fields(0).texto());
    fdm().QRevision.Close();
    conecte_general();
    if (!version_al_dia(fdm().ConGeneral, TipoBase::General))
        return;
    ConGeneralAfterConnect();
    lea_usuario();
    lea_compania();
    tome_colores();
    fdm().usuario = usuario;
    if (entre_usuario())
        abra_iniciales();
    habilite_submenus();
    primera_activacion = false;
    findChild<LetreroRespaldo*>()->muestre(codigo_compania, fdm().administrador);
    revise_guardas();
    proteja([this] { mensajes->Timer3Timer(); }); // lo demás no depende de que haya red
    if (fdm().sucursal_usuario != 0)
        lea_agencia();
    if (isVisible())
        compactador->inicie();
}

void Tfprincipal::revise_guardas() {
    if (encienda_guardas(fdm().Quorvex) > 0)
        fdm().mostrar_advertencia("Hay guardas de la base de datos apagadas. Pida al administrador "
                                  "que las encienda con quorvex-admin actualizar.");
    AvisosBarra* barra = fdm().barra();
    if (barra && !tiene_escritura_inmediata(fdm().Quorvex))
        barra->texto("La base no espera al disco: el administrador corre quorvex-admin "
                     "actualizar.");
}

bool Tfprincipal::entre_si_falta() {
    // La entrada falló (no había servidor) y el usuario pide algo: se intenta otra vez.
    if (primera_activacion)
        FormActivate();
    return !primera_activacion;
}

bool Tfprincipal::tome_argumentos() {
    if (argumentos_.value(3).isEmpty() || argumentos_.value(0) != "PUENTES")
        return false;
    usuario = argumentos_.value(1);
    codigo_compania = argumentos_.value(2);
    ubicacion_parametro = argumentos_.value(4);
    clave = aclare_clave(argumentos_.value(3));
    fdm().codigo_compania = codigo_compania;
    return true;
}

void Tfprincipal::conecte_compania() {
    fdm().Quorvex.desconectar();
    fdm().Quorvex.conectar(
        {ruta_base(ubicaciondb(ubicacion_parametro), codigo_compania), usuario, clave});
}

void Tfprincipal::conecte_general() {
    fdm().ConGeneral.desconectar();
    fdm().ConGeneral.conectar({ruta_base(ubicaciondb(ubicacion_parametro), {}), usuario, clave});
}

bool Tfprincipal::version_al_dia(Conexion& base, TipoBase tipo) {
    QString negativa;
    try {
        negativa = negativa_de_version(tipo, version_de_esquema(base));
    } catch (const ErrorBase& e) {
        if (!sin_permiso(e))
            throw;
        // El servidor lo dejó entrar, pero nadie lo registró en esta base.
        fdm().registre_en_archivo(e.texto() + " | " + e.detalle());
        negativa = tipo == TipoBase::Compania ? QStringLiteral("Nombre de usuario incorrecto")
                                              : QStringLiteral("Usuario no registrado.");
    }
    if (negativa.isEmpty())
        return true;
    muestre_error(negativa);
    fdm().ConGeneral.desconectar(); // no hay sesión que anotar ni que cerrar
    fdm().Quorvex.desconectar();
    close();
    return false;
}

void Tfprincipal::ConGeneralAfterConnect() {
    fdm().QUserFec.ExecSQL("UPDATE USUARIO SET FECCON = " + QuotedStr(hoy()) +
                           " WHERE USUA_COD = " + QuotedStr(fdm().ConGeneral.parametros().usuario));
}

void Tfprincipal::lea_usuario() {
    fdm().administrador =
        fdm()
            .CBorrarGen
            .valor_unico("select usua_admin from usuario where usua_cod = " + QuotedStr(usuario))
            .texto() == "S";
    fdm().nombre_usuario = fdm().valide_usuario(usuario);
}

void Tfprincipal::lea_compania() {
    CCompania.Open();
    // Una compañía que no está deja la primera fila, y de esa se copia.
    CCompania.Locate("COMP_COD", {codigo_compania});
    fdm().datos_compania = {CCompania.FieldByName("COM_NOMBRE").texto(),
                            CCompania.FieldByName("COMP_DIR").texto(),
                            CCompania.FieldByName("COMP_TELS").texto(),
                            CCompania.FieldByName("COMP_ENCABEZADO").texto(),
                            CCompania.FieldByName("COMP_LOGO").valor().binario(),
                            CCompania.FieldByName("COMP_NIT").texto()};
}

void Tfprincipal::lea_agencia() {
    CAgencia.Open();
    const bool hay = CAgencia.Locate("SUCU_ID", {fdm().sucursal_usuario});
    const auto dato = [&](const char* campo) {
        return hay ? CAgencia.FieldByName(campo).texto() : QString();
    };
    fdm().SUCU_NOMBRE = dato("SUCU_NOMBRE");
    fdm().SUCU_DIRECCION = dato("SUCU_DIRECCION");
    fdm().SUCU_TELEFONOS = dato("SUCU_TELEFONOS");
    CAgencia.Close();
}

void Tfprincipal::tome_colores() {
    fdm().color_ventana = fdm().texto_de(Llave::ColorVentana);
    fdm().color_final = fdm().texto_de(Llave::ColorFinalVentana);
    const QColor ventana = PanelDegradado::color(fdm().valor<Llave::ColorVentana>());
    const QColor final = PanelDegradado::color(fdm().valor<Llave::ColorFinalVentana>());
    AdvPanel1->colores(ventana, final);
    AdvPanel2->colores(final, ventana);
}

bool Tfprincipal::entre_usuario() {
    if (fdm().nombre_usuario.isEmpty()) {
        muestre_error("Usuario no registrado.");
        close();
        return false;
    }
    CUsuario.Open("select * from usuario where user_cod = " + QuotedStr(usuario));
    if (CUsuario.IsEmpty()) {
        muestre_error("Nombre de usuario incorrecto");
        close();
        CUsuario.Close();
        return false;
    }
    fdm().sucursal_usuario = int(CUsuario.FieldByName("SUCU_ID").entero());
    EUsuario->setText(fdm().nombre_usuario);
    EUsuario->setToolTip(EUsuario->text());
    EUsuario->home(false);
    fdmcnt().ano_actual = CUsuario.FieldByName("USER_ANOCNT").texto();
    fdmcnt().periodo_actual = int(CUsuario.FieldByName("USER_PERCNT").entero());
    CUsuario.Close();
    return true;
}

void Tfprincipal::abra_iniciales() {
    ECompania->setText(fdm().valor<Llave::NombreCompania>());
    ECompania->setToolTip(ECompania->text());
    ECompania->home(false);
    recuerde_preferencias();
    if (fdm().valor<Llave::MostrarSinContabilizar>())
        pantallas().abrir_modal("Tfsincontab");
    emit fdmcnt().balance_por_recalcular();
    if (fdm().valor<Llave::MostrarBalance>() && fdm().exija_acceso(150))
        pantallas().abrir("Tfbalanceprueba");
}

void Tfprincipal::recuerde_preferencias() {
    Rejilla::compania_impresa = ECompania->text();
    if (const QString nit = fdm().valor<Llave::NitCompania>(); !nit.isEmpty())
        Rejilla::compania_impresa += " · NIT " + nit;
    ajustes_ =
        std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                    QStringLiteral("quorvex2018"), QStringLiteral("contabilidad"));
    ajustes_->beginGroup(usuario);
    escritorio_->recuerde_en(ajustes_.get());
}

void Tfprincipal::habilite_submenus() {
    for (const Submenu& s : submenus())
        if (!fdm().valide_acceso("CONTABILIDAD", s.opcion))
            findChild<QMenu*>(s.nombre)->setEnabled(false);
}

void Tfprincipal::closeEvent(QCloseEvent* evento) {
    if (!escritorio_->cierre_todas()) {
        evento->ignore();
        return;
    }
    // Una falla se informa, pero no retiene al usuario: el servidor puede haberse ido.
    proteja([this] { FormClose(); });
    evento->accept();
}

void Tfprincipal::FormClose() {
    if (!fdm().ConGeneral.conectada())
        return;
    const QString quien = QuotedStr(fdm().ConGeneral.parametros().usuario);
    Sentencia& cuenta = fdm().QCuentausr;
    cuenta.Open("SELECT COUNT(USUA_COD) FROM USUARIO WHERE FECCON = " + QuotedStr(hoy()) +
                " AND USUA_COD = " + quien);
    const bool de_hoy = cuenta.Fields(0).entero() == 1;
    cuenta.Close();
    // El sello de otro día se queda como está.
    if (de_hoy)
        fdm().QUserFec.ExecSQL("UPDATE USUARIO SET FECCON = NULL WHERE USUA_COD = " + quien);
}
