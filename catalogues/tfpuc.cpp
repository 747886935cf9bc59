#include "catalogues/tfpuc.h"

#include "datos/firebird/concuerde.h"
#include "sesion/tfdm.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QLineEdit>

namespace {

/// Número de la lista publicada que usa la compañía.
int lista_en_uso() {
    static const QStringList kListas = {"COMERCIAL", "OFICIAL", "COOPERATIVO", "SERVICIOSP"};
    const qsizetype i = kListas.indexOf(fdm().valor<Llave::TipoPuc>());
    return i < 0 ? 5 : int(i) + 1;
}

} // namespace

Tfpuc::Tfpuc() : Pantalla("Tfpuc", "Plan único de cuentas") {
    PPuc = new Proveedor(this, "PPuc", &fdm().QPuc, poAllowCommandText);
    CPuc = new ConjuntoDatos(this, "CPuc", PPuc);
    CPuc->entero("TIPU_COD").requerido().etiqueta("Lista");
    CPuc->texto("PUC_COD", 20).requerido().etiqueta("Código");
    CPuc->texto("PUC_NOM", 60).requerido().etiqueta("Nombre");
    CPuc->bandera("PUC_TERC").etiqueta("Terceros");
    CPuc->bandera("PUC_RETEN").etiqueta("Retenciones");
    CPuc->texto("PUC_CTAAJUS", 20).etiqueta("Cuenta de ajuste");
    CPuc->texto("PUC_CTACORR", 20).etiqueta("Cuenta de corrección");
    CPuc->bandera("PUC_AJDB").etiqueta("Ajuste al débito");

    busqueda_ = new FilaBusqueda({{"Código", "puc_cod", true}, {"Nombre", "puc_nom"}}, {}, this);
    busqueda_->demora = fdm().duracion_busquedas;
    busqueda_->sbBuscarClick = [this] { sbBuscarClick(); };
    busqueda_->ckfiltroClick = [this](bool si) { DBGridEh1->filtro_visible(si); };

    DBGridEh1 = new Rejilla(this, CPuc);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->columnas({{"PUC_COD", "Código", 12},
                         {"PUC_NOM", "Nombre", 50},
                         {"PUC_TERC", "Terc.", 6, Casilla},
                         {"PUC_RETEN", "Ret.", 6, Casilla}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->orden_local = true;
    DBGridEh1->dgMultiSelect(true);
    DBGridEh1->OnTeclear = [this](const QString& texto) { busqueda_->busque_texto(texto); };
    busqueda_->al_bajar = [this] { DBGridEh1->setFocus(); };
    busqueda_->siga(DBGridEh1);
    DBGridEh1->texto_vacio = "La lista publicada no tiene cuentas.";
    DBGridEh1->nombre_archivo = "PlanUnico";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});

    auto* barra = new BarraBotones(this);
    SBSelec = barra->boton("SBSelec", "Enter:Selecciona", "emblem-default", {},
                           [this] { SBSelecClick(); });
    SBSelec->hide();
    barra->boton("SpeedButton1", "Crear Seleccionados", "list-add", {},
                 [this] { SpeedButton1Click(); });
    barra->separe();
    barra->boton("SpeedButton2", "Esc:Salirr", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, Qt::ShiftModifier, "EBuscar",
          [this] { busqueda_->EBuscar->setFocus(Qt::ShortcutFocusReason); });
    Formulario(this).ancha(busqueda_, 0).ancha(DBGridEh1).botones(barra);
    tamano(800, 560);
}

void Tfpuc::ofrezca_seleccion() {
    SBSelec->show();
    tecla(Qt::Key_Return, "SBSelec");
    DBGridEh1->OnDblClick = [this](int) { SBSelecClick(); };
    DBGridEh1->OnReturn = [this] { SBSelecClick(); };
}

void Tfpuc::SBSelecClick() {
    busqueda_->pongase_al_dia();
    QMap<QString, Valor> cuenta;
    for (int i = 0; i < CPuc->FieldCount(); ++i)
        cuenta[CPuc->Fields(i).FieldName] = CPuc->Fields(i).valor();
    if (!CPuc->IsEmpty())
        responda<PidePuc>(cuenta);
    resultado_modal(mrOk);
}

void Tfpuc::FormCreate() {
    fdm().ConfigurarProviders(this);
    if (trae<PidePuc>())
        ofrezca_seleccion();
    base_ = QStringLiteral("select * from PUC where TIPU_COD = %1 ").arg(lista_en_uso());
    CPuc->Open(base_ + "order by puc_cod");
}

void Tfpuc::FormActivate() {
    DBGridEh1->setFocus();
}

void Tfpuc::sbBuscarClick() {
    CriterioBusqueda criterio;
    criterio.base = base_;
    criterio.conector = " and ";
    CPuc->Close();
    CPuc->IndexFieldNames({}); // el orden de un título no sobrevive a otra búsqueda
    CPuc->CommandText = sql_busqueda(busqueda_->criterio(criterio));
    CPuc->Open();
}

void Tfpuc::SpeedButton1Click() {
    Sentencia& cree = fdm().SCreectapuc;
    QStringList sin_crear;
    const QVector<int> filas = DBGridEh1->filas_marcadas();
    for (int fila : filas) {
        const Valor cuenta = CPuc->valor_en(fila, CPuc->FieldByName("PUC_COD"));
        cree.ParamByName("CUENTA") = cuenta;
        cree.ExecProc();
        if (fdm().Quorvex.consulte("select 1 from cuentas where cuen_cod = ?", {cuenta}).nulo())
            sin_crear << cuenta.texto();
    }
    if (!sin_crear.isEmpty())
        muestre_mensaje(
            concuerde(filas.size() - sin_crear.size(), "Quedó creada %1", "Quedaron creadas %1") +
            concuerde(filas.size(), " de %1 cuenta. ", " de %1 cuentas. ") +
            concuerde(sin_crear.size(), "La longitud de la que falta", "La longitud de las demás") +
            " no es la de ningún nivel de la estructura: " + sin_crear.join(", ") + '.');
    close();
}
