#include "assets/tfactivos.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"

#include <QCheckBox>

namespace {
const QString kBase = "select acfj_cod, acfj_desc, acfj_fecing, acfj_fecgar, acfj_modelo, "
                      "acfj_marca, acfj_activo, acfj_dep from activos_fijos ";

Sentencia& sentencia_de_activos() {
    static QPointer<Sentencia> s;
    if (!s)
        s = new Sentencia(&fdmcnt(), "QActivos", fdm().Quorvex);
    return *s;
}
} // namespace

Tfactivos::Tfactivos()
    : ListaCatalogo("Tfactivos", "Activos fijos", sentencia_de_activos(), "Activos") {
    ConjuntoDatos& a = *conjunto_;
    a.texto("ACFJ_COD", 15).banderas(pfInUpdate | pfInWhere | pfInKey);
    a.texto("ACFJ_DESC", 60);
    a.fecha("ACFJ_FECING");
    a.fecha("ACFJ_FECGAR");
    a.texto("ACFJ_MODELO", 60);
    a.texto("ACFJ_MARCA", 60);
    a.bandera("ACFJ_ACTIVO");
    a.bandera("ACFJ_DEP");
    rotulo_nuevo_ = "F5: Nuevo";
    arme({{"C&ódigo", "acfj_cod", true}, {"&Descripción", "acfj_desc"}}, {},
         {{"ACFJ_COD", "Código", 12},
          {"ACFJ_DESC", "Descripción", 36},
          {"ACFJ_FECING", "Ingreso", 11},
          {"ACFJ_FECGAR", "Garantía", 11},
          {"ACFJ_MODELO", "Modelo", 18},
          {"ACFJ_MARCA", "Marca", 18},
          {"ACFJ_ACTIVO", "En uso", 7, Casilla},
          {"ACFJ_DEP", "Deprecia", 8, Casilla}},
         "Activos");
    busqueda_->CkDesorden->setText("Buscar e&n cualquier orden");
    busqueda_->ItemIndex(1);
    findChild<QPushButton*>("SBSelec")->setText("Selecciona");
    DBGridEh1->OnGetCellParams = [this](int fila, QFont&, QColor& frente, QColor&) {
        if (conjunto_->valor_en(fila, conjunto_->FieldByName("ACFJ_ACTIVO")).texto() != "S")
            frente = color_inactivo();
    };
    const auto boton = [this](const char* nombre, const char* texto, const char* icono,
                              const QKeySequence& tecla, const char* pantalla) {
        barra_->boton(nombre, texto, icono, tecla, [this, pantalla] { abra_del_activo(pantalla); });
    };
    boton("SBMovto", "F8:Movto.", "view-list-details", Qt::Key_F8, "Tfmovactivo");
    boton("SBCuadro", "F2:Cuadro", "x-office-spreadsheet", Qt::Key_F2, "Tfcuadroactivo");
    barra_->boton("SBReporte", "F9:Reporte", "document-print", Qt::Key_F9,
                  [] { pantallas().abrir("Tfcataactivos"); });
    barra_->boton("SBDepreciar", "F7:Depreciar", "accessories-calculator", Qt::Key_F7,
                  [] { pantallas().abrir("Tfbuscdep"); });
    barra_->boton("SBBaja", "F6:Dar Baja", "edit-clear", Qt::Key_F6,
                  [] { pantallas().abrir("Tfbajaactivo"); });
    // El letrero anuncia F5, que ya crea uno nuevo: la que funciona es Mayús+F5.
    boton("SBDeterioro", "F5.Deterioro", "go-down", Qt::SHIFT | Qt::Key_F5, "Tfvalactivo");
    boton_salir();
    tamano(1060, 560);
}

void Tfactivos::FormCreate() {
    fdm().ConfigurarProviders(this);
    aplique_modo(!trae<PideActivo>()); // solo se escoge para quien lo pide
    consulte(kBase + "order by acfj_desc");
    ubique_o_busque(peticion<PideActivo>().activo_localizar);
}

void Tfactivos::sbBuscarClick() {
    CriterioBusqueda plantilla;
    plantilla.base = kBase;
    consulte(sql_busqueda(busqueda_->criterio(plantilla)));
}

void Tfactivos::abra_del_activo(const char* pantalla) {
    if (!codigo().isEmpty())
        pantallas().abrir(pantalla, AbreActivo{codigo()});
}

void Tfactivos::SBNuevoClick() {
    pantallas().abrir("Tfnvoactivo");
}

void Tfactivos::SBModificarClick() {
    abra_del_activo("Tfedtactivo");
}

void Tfactivos::SBBorrarClick() {
    if (codigo().isEmpty() ||
        !pregunte_con_no("Desea borrar definitivamente el activo " + codigo() + " ?"))
        return;
    CBorrar->Execute("delete from activos_fijos where acfj_cod = " + QuotedStr(codigo()));
    conjunto_->Refresh();
}

void Tfactivos::SBSelecClick() {
    responda_codigo<PideActivo>();
}
