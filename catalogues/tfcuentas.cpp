#include "catalogues/tfcuentas.h"

#include "catalogues/plancuentas.h"
#include "core/tfdm.h"
#include "core/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QLineEdit>

namespace {

constexpr int kOpcionConsultar = 1;
constexpr int kOpcionBorrar = 2;

} // namespace

Tfcuentas::Tfcuentas(Libro libro)
    : Pantalla(datos(libro).pantalla_cuentas, plan(libro).titulo_lista), libro_(libro),
      base_(QStringLiteral("select * from %1 ").arg(datos(libro).cuentas)) {
    PCuentas = new Proveedor(this, "PCuentas", &fdmcnt().QBusccuentas, poAllowCommandText);
    CCuentas = new ConjuntoDatos(this, "CCuentas", PCuentas);
    campos_lista_cuentas(*CCuentas);
    // La lista no se edita: la llave sirve para volver a la misma cuenta al refrescar.
    CCuentas->FieldByName("CUEN_COD").banderas(pfInUpdate | pfInWhere | pfInKey);
    PBorrar = new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText);
    CBorrar = new ConjuntoDatos(this, "CBorrar", PBorrar);

    busqueda_ = new FilaBusqueda({{"Código", "cuen_cod"}, {"Nombre", "cuen_nom"}},
                                 "Mostrar inactivas", this);
    busqueda_->sbBuscarClick = [this] { sbBuscarClick(); };
    busqueda_->ckfiltroClick = [this](bool si) { DBGridEh1->filtro_visible(si); };
    arme_rejilla();
    arme_botones();
    Formulario(this).ancha(busqueda_, 0).ancha(DBGridEh1).botones(barra_);
    tamano(900, 560);
}

void Tfcuentas::arme_rejilla() {
    DBGridEh1 = new Rejilla(this, CCuentas);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->columnas({{"CUEN_COD", "Código", 12},
                         {"CUEN_NOM", "Nombre", 40},
                         {"CUEN_TERCERO", "Terc.", 5, Casilla},
                         {"CUEN_CENTRO", "Cent.", 5, Casilla},
                         {"CUEN_RETENCION", "Ret.", 5, Casilla},
                         {"CUEN_BASEMIN", "Base mínima", 14},
                         {"CUEN_PORC", "Porcentaje", 10},
                         {"CUEN_TIPO", "Tipo", 5},
                         {"CUEN_ACTIVA", "Activa", 6, Casilla}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "No hay cuentas que mostrar. F5 crea la primera.";
    DBGridEh1->nombre_archivo = plan(libro_).nombre_archivo;
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnGetCellParams = [this](int fila, QFont& letra, QColor& frente, QColor&) {
        pinte(fila, letra, frente);
    };
    DBGridEh1->OnDblClick = [this](int) {
        modo_mantenimiento_ ? SBModificarClick() : SBSelecClick();
    };
}

void Tfcuentas::arme_botones() {
    barra_ = new BarraBotones(this);
    SBSelec = barra_->boton("SBSelec", "Enter:Selecciona", "dialog-ok-apply", {},
                            [this] { SBSelecClick(); });
    SBNueva = barra_->boton("SBNueva", "F5:Nueva", "document-new", Qt::Key_F5,
                            [this] { SBNuevaClick(); });
    SBModificar = barra_->boton("SBModificar", "F4:Modificar", "document-edit", Qt::Key_F4,
                                [this] { SBModificarClick(); });
    SBBorrar = barra_->boton("SBBorrar", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                             [this] { SBBorrarClick(); });
    // Los dos letreros anuncian la tecla anterior a la que funciona: así se conocen.
    SBSaldos = barra_->boton("SBSaldos", "F7:Saldos", "view-statistics", Qt::Key_F8,
                             [this] { consulte(plan(libro_).pantalla_saldos); });
    SBMovimiento = barra_->boton("SBMovimiento", "F8:Movimiento", "view-list-details", Qt::Key_F9,
                                 [this] { consulte(datos(libro_).pantalla_auxiliar); });
    if (plan(libro_).con_normas)
        SBNormas = barra_->boton("SBNormas", "&Normas", "documentation", {}, [this] {
            if (codigo().isEmpty())
                return;
            fdmcnt().cuenta_auxiliar = codigo();
            pantallas().abrir("Tfnormacuenta");
        });
    barra_->separe();
    barra_->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, Qt::ShiftModifier, "EBuscar", [this] { busqueda_->EBuscar->setFocus(); });
}

void Tfcuentas::oculte_botones() {
    for (QPushButton* b : {SBNueva, SBModificar, SBBorrar, SBSaldos, SBMovimiento, SBNormas})
        if (b)
            b->hide();
    for (int clave : {Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F8, Qt::Key_F9})
        quite_tecla(clave);
}

void Tfcuentas::FormCreate() {
    modo_mantenimiento_ = std::exchange(fdm().modo_mantenimiento, false);
    if (plan(libro_).toma_selector && std::exchange(fdm().modo_selector, false))
        oculte_botones();
    fdm().ConfigurarProviders(this);
    SBSelec->setVisible(!modo_mantenimiento_);
    barra_->principal(modo_mantenimiento_ ? SBModificar : SBSelec);
    tecla(Qt::Key_Return, modo_mantenimiento_ ? "SBModificar" : "SBSelec");

    CCuentas->CommandText = base_ + "where cuen_activa = 'S' order by cuen_cod";
    CCuentas->Open();
    Tfdmcnt& contabilidad = fdmcnt();
    if (!contabilidad.cuenta_localizar.isEmpty())
        CCuentas->Locate("CUEN_COD", {std::exchange(contabilidad.cuenta_localizar, {})});
    if (const QString texto = std::exchange(contabilidad.texto_busqueda, {}); !texto.isEmpty()) {
        busqueda_->ItemIndex(texto[0].isDigit() ? 0 : 1);
        busqueda_->EBuscar->setText(texto);
        sbBuscarClick();
    }
    if (!fdm().exija_acceso(kOpcionConsultar))
        pida_cierre_al_crear();
}

void Tfcuentas::FormActivate() {
    fdmcnt().cuenta_seleccion.clear();
    fdmcnt().cuenta_auxiliar.clear();
    if (CCuentas->Active())
        CCuentas->Refresh();
    DBGridEh1->setFocus();
}

bool Tfcuentas::FormClose() {
    CCuentas->Close();
    CBorrar->Close();
    return true;
}

void Tfcuentas::sbBuscarClick() {
    CriterioBusqueda criterio;
    criterio.base = base_;
    criterio.columna_activo = "cuen_activa";
    CCuentas->Close();
    CCuentas->CommandText = sql_busqueda(busqueda_->criterio(criterio));
    CCuentas->Open();
}

void Tfcuentas::SBBorrarClick() {
    if (!fdm().exija_acceso(kOpcionBorrar))
        return;
    const QString cuenta = codigo();
    if (cuenta.isEmpty() || !pregunte(QStringLiteral("Desea borrar definitivamente la %1 %2 ?")
                                          .arg(datos(libro_).cuenta_de, cuenta)))
        return;
    CBorrar->Execute(QStringLiteral("delete from %1 where cuen_cod = ").arg(datos(libro_).cuentas) +
                     QuotedStr(cuenta));
    CCuentas->Refresh();
}

void Tfcuentas::SBNuevaClick() {
    pantallas().abrir(datos(libro_).pantalla_nueva_cuenta);
}

void Tfcuentas::SBModificarClick() {
    if (codigo().isEmpty())
        return;
    fdmcnt().cuenta_seleccion = codigo();
    pantallas().abrir(datos(libro_).pantalla_modificar_cuenta);
}

void Tfcuentas::consulte(const char* pantalla) {
    const QString cuenta = codigo();
    if (!fdmcnt().valide_cuenta(cuenta, libro_)) {
        QApplication::beep();
        return;
    }
    fdmcnt().cuenta_auxiliar = cuenta;
    pantallas().abrir(pantalla);
}

void Tfcuentas::SBSelecClick() {
    fdmcnt().seleccion_cancelada = false;
    fdmcnt().cuenta_seleccion = CCuentas->Fields(0).texto();
    if (es_modal())
        resultado_modal(mrOk);
    else
        close();
}

void Tfcuentas::pinte(int fila, QFont& letra, QColor& frente) const {
    if (CCuentas->valor_en(fila, CCuentas->FieldByName("CUEN_ACTIVA")).texto() == "N")
        frente = color_inactivo();
    const qsizetype digitos =
        CCuentas->valor_en(fila, CCuentas->FieldByName("CUEN_COD")).texto().size();
    letra.setBold(digitos <= 2);
    letra.setPointSizeF((digitos == 1 ? 10 : digitos == 2 ? 9 : 8) * escala());
}

QString escoja_cuenta(const QString& localizar, Libro libro) {
    Tfdmcnt& contabilidad = fdmcnt();
    contabilidad.cuenta_localizar = localizar;
    contabilidad.cuenta_seleccion.clear();
    contabilidad.seleccion_cancelada = true;
    fdm().modo_mantenimiento = false;
    fdm().modo_selector = plan(libro).toma_selector;
    pantallas().abrir_modal(datos(libro).pantalla_cuentas, [](Pantalla& lista) {
        static_cast<Tfcuentas&>(lista).oculte_botones();
    });
    if (contabilidad.seleccion_cancelada)
        return {};
    return std::exchange(contabilidad.cuenta_seleccion, {});
}
