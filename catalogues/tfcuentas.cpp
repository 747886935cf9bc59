#include "catalogues/tfcuentas.h"

#include "catalogues/grabe_y_anuncie.h"
#include "catalogues/letracuenta.h"
#include "catalogues/plancuentas.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QPushButton>

namespace {

constexpr int kOpcionConsultar = 1;
constexpr int kOpcionBorrar = 2;

} // namespace

Tfcuentas::Tfcuentas(Libro libro)
    : ListaCatalogo(datos(libro).pantalla_cuentas, plan(libro).titulo_lista, fdmcnt().QBusccuentas,
                    "Cuentas"),
      libro_(libro), base_(QStringLiteral("select * from %1 ").arg(datos(libro).cuentas)) {
    campos_lista_cuentas(*conjunto_);
    // La lista no se edita: la llave sirve para volver a la misma cuenta al refrescar.
    conjunto_->FieldByName("CUEN_COD").banderas(pfInUpdate | pfInWhere | pfInKey);
    nombre_nuevo_ = "SBNueva";
    rotulo_nuevo_ = "F5:Nueva";
    enter_con_filtros_ = true;
    arme({{"&Código", "cuen_cod", true}, {"N&ombre", "cuen_nom"}}, "Mostrar inactivas",
         {{"CUEN_COD", "Código", 12},
          {"CUEN_NOM", "Nombre", 40},
          {"CUEN_TERCERO", "Terc.", 5, Casilla},
          {"CUEN_CENTRO", "Cent.", 5, Casilla},
          {"CUEN_RETENCION", "Ret.", 5, Casilla},
          {"CUEN_BASEMIN", "Base mínima", 14},
          {"CUEN_PORC", "Porcentaje", 10},
          {"CUEN_TIPO", "Tipo", 10},
          {"CUEN_ACTIVA", "Activa", 6, Casilla}},
         plan(libro).nombre_archivo);
    DBGridEh1->lista("CUEN_TIPO", clases_cuenta().nombres, clases_cuenta().codigos);
    DBGridEh1->texto_vacio = "No hay cuentas. F5 crea la primera.";
    DBGridEh1->OnGetCellParams = [this](int fila, QFont& letra, QColor& frente, QColor&) {
        pinte(fila, letra, frente);
    };
    arme_botones();
    tamano(960, 560);
}

void Tfcuentas::arme_botones() {
    // Los dos letreros anuncian la tecla anterior a la que funciona: así se conocen.
    barra_->boton("SBSaldos", "F7:Saldos", "accessories-calculator", Qt::Key_F8,
                  [this] { consulte_cuenta(plan(libro_).pantalla_saldos); });
    barra_->boton("SBMovimiento", "F8:Movimiento", "x-office-spreadsheet", Qt::Key_F9,
                  [this] { consulte_cuenta(datos(libro_).pantalla_auxiliar); });
    if (plan(libro_).con_normas)
        barra_->boton("SBNormas", "No&rmas", "accessories-dictionary", {},
                      [this] { SBNormasClick(); });
    boton_salir();
}

void Tfcuentas::oculte_botones() {
    for (const char* nombre :
         {"SBNueva", "SBModificar", "SBBorrar", "SBSaldos", "SBMovimiento", "SBNormas"})
        if (auto* boton = findChild<QPushButton*>(nombre))
            boton->hide();
}

void Tfcuentas::FormCreate() {
    const auto pedida = peticion<PideCuenta>();
    if (pedida.modo_selector)
        oculte_botones();
    fdm().ConfigurarProviders(this);
    lea_niveles();
    aplique_modo();
    consulte(base_ + "where cuen_activa = 'S' order by cuen_cod");
    if (!busque_lo_pedido(pedida.texto_busqueda))
        ubique(pedida.cuenta_localizar);
    if (!fdm().exija_acceso(kOpcionConsultar))
        pida_cierre_al_crear();
}

void Tfcuentas::lea_niveles() {
    QVector<qsizetype> digitos; // de cada nivel, del primero al último
    CBorrar->Open("select estr_digitos from estructura order by estr_nivel");
    for (; !CBorrar->Eof(); CBorrar->Next())
        digitos << qsizetype(CBorrar->Fields(0).entero());
    CBorrar->Close();
    DBGridEh1->sangre("CUEN_NOM", [this, digitos](int fila) {
        const QString codigo =
            conjunto_->valor_en(fila, conjunto_->FieldByName("CUEN_COD")).texto();
        return int(std::count_if(digitos.begin(), digitos.end(),
                                 [&](qsizetype d) { return d < codigo.size(); }));
    });
}

void Tfcuentas::sbBuscarClick() {
    CriterioBusqueda criterio;
    criterio.base = base_;
    criterio.columna_activo = "cuen_activa";
    consulte(sql_busqueda(busqueda_->criterio(criterio)));
}

void Tfcuentas::SBBorrarClick() {
    if (!fdm().exija_acceso(kOpcionBorrar))
        return;
    const QString cuenta = codigo();
    if (cuenta.isEmpty() ||
        !pregunte_con_no(QStringLiteral("Desea borrar definitivamente la %1 %2 ?")
                             .arg(datos(libro_).cuenta_de, cuenta)))
        return;
    const QString aviso = QStringLiteral("Borrada la %1 %2").arg(datos(libro_).cuenta_de, cuenta);
    borre_y_anuncie(*CBorrar,
                    QStringLiteral("delete from %1 where cuen_cod = ").arg(datos(libro_).cuentas) +
                        QuotedStr(cuenta),
                    aviso);
    conjunto_->Refresh();
}

void Tfcuentas::SBNuevoClick() {
    pantallas().abrir(datos(libro_).pantalla_nueva_cuenta);
}

void Tfcuentas::SBModificarClick() {
    if (codigo().isEmpty())
        return;
    modifique_cuenta(libro_, codigo());
}

void Tfcuentas::consulte_cuenta(const char* pantalla) {
    const QString cuenta = codigo();
    if (!fdmcnt().valide_cuenta(cuenta, libro_)) {
        QApplication::beep();
        return;
    }
    pantallas().abrir(pantalla, AbreAuxiliar{.cuenta_auxiliar = cuenta});
}

void Tfcuentas::SBNormasClick() {
    if (codigo().isEmpty())
        return;
    pantallas().abrir("Tfnormacuenta", AbreAuxiliar{.cuenta_auxiliar = codigo()});
}

void Tfcuentas::SBSelecClick() {
    responda_codigo<PideCuenta>();
}

void Tfcuentas::pinte(int fila, QFont& letra, QColor& frente) const {
    if (conjunto_->valor_en(fila, conjunto_->FieldByName("CUEN_ACTIVA")).texto() == "N")
        frente = color_inactivo();
    letra_por_nivel(letra, conjunto_->valor_en(fila, conjunto_->FieldByName("CUEN_COD")).texto());
}
