// Disposición de los controles del formulario de un tercero.
#include "catalogues/forma_tercero.h"

#include "toolkit/barrabotones.h"
#include "toolkit/controles/casilladato.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/fechadato.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/controles/memodato.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>

namespace {

template <class Control> Control* con_nombre(Control* control, const QString& nombre) {
    control->setObjectName(nombre);
    return control;
}

QPushButton* boton_pequeno(QWidget* padre, const QString& nombre, const QString& texto,
                           const QString& ayuda, std::function<void()> accion) {
    auto* b = con_nombre(new QPushButton(texto, padre), nombre);
    b->setToolTip(ayuda);
    b->setAutoDefault(false);
    if (texto.size() == 1)
        b->setFixedWidth(paso(4));
    QObject::connect(b, &QPushButton::clicked, padre, [accion] { proteja(accion); });
    return b;
}

/// Casillas en columnas parejas, sin columna de rótulos.
QWidget* en_columnas(int columnas, std::initializer_list<QWidget*> controles) {
    auto* cuadro = new QWidget;
    auto* cuadricula = new QGridLayout(cuadro);
    cuadricula->setContentsMargins(0, 0, 0, 0);
    cuadricula->setHorizontalSpacing(paso(1.5));
    int i = 0;
    for (QWidget* control : controles) {
        cuadricula->addWidget(control, i / columnas, i % columnas,
                              Qt::AlignLeft | Qt::AlignVCenter);
        ++i;
    }
    cuadricula->setColumnStretch(columnas, 1);
    return cuadro;
}

} // namespace

EditorDato* FormaTercero::editor(const QString& campo, const QString& nombre, int ancho) {
    auto* e = con_nombre(new EditorDato(CTerceros, campo), nombre);
    e->ancho(ancho);
    return e;
}

ListaDato* FormaTercero::lista(const QString& campo, const QString& nombre, ConjuntoDatos* tabla,
                               const QString& llave, const QString& columna) {
    auto* l = con_nombre(new ListaDato(CTerceros, campo), nombre);
    l->lista_de(tabla, llave, columna);
    return l;
}

CasillaDato* FormaTercero::casilla(const QString& texto, const QString& campo) {
    return con_nombre(new CasillaDato(texto, CTerceros, campo), "CK" + campo.mid(4));
}

void FormaTercero::arme() {
    Formulario f(this);
    arme_identificacion(f);
    arme_ubicacion(f);
    arme_papeles(f.al_lado());
    arme_cuentas(f.fin_grupo());
    barra_ = new BarraBotones(this);
    SBGrabar = barra_->boton("SBGrabar", "F2:Grabar", "document-save", QKeySequence(Qt::Key_F2),
                             [this] { SBGrabarClick(); });
    barra_->principal(SBGrabar);
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", QKeySequence(Qt::Key_Escape),
                  [this] { close(); });
    f.botones(barra_);
    enter_como_tab();
    tamano(1040, 650);
}

void FormaTercero::arme_identificacion(Formulario& f) {
    ENit = editor("TERC_NIT", "ENit", 17);
    DBEdit8 = editor("TERC_DV", "DBEdit8", 3);
    EditorDato* dvdian = editor("TERC_DVDIAN", "EDvdian", 3);
    dvdian->setToolTip("Dígito de verificación según la DIAN");
    LTipoid = lista("TERC_TIPOID", "LTipoid", Ctipo_id, "TIID_COD", "TIID_NOM");
    EApellido1 = editor("TERC_APELLIDO1", "EApellido1", 18);
    EApellido2 = editor("TERC_APELLIDO2", "EApellido2", 18);
    ENombre1 = editor("TERC_NOMBRE1", "ENombre1", 18);
    ENombre2 = editor("TERC_NOMBRE2", "ENombre2", 18);
    ENombre = editor("TERC_NOM", "ENombre", 60);
    DBEdit8->setAccessibleName("Dígito de verificación");
    dvdian->setAccessibleName("Dígito de verificación según la DIAN");
    f.grupo("Identificación")
        .fila({{"N&IT",
                Formulario::junto({ENit, new QLabel("DV:"), DBEdit8, new QLabel("DIAN:"), dvdian})},
               {"&Tipo", LTipoid}})
        .fila({{"Primer apellido", EApellido1}, {"Segundo apellido", EApellido2}})
        .fila({{"Primer nombre", ENombre1}, {"Segundo nombre", ENombre2}})
        .fila("&Nombre", en_flujo({ENombre, casilla("Activo", "TERC_ESTADO")}, paso()));
}

void FormaTercero::arme_ubicacion(Formulario& f) {
    auto* ciudades = boton_pequeno(this, "SpeedButton1", "…", "Abrir el catálogo de ciudades",
                                   [this] { abra_catalogo("Tfciudades", "CIUD_COD"); });
    auto* ciudad = lista("CIUD_COD", "LCiudad", CCiudades, "CIUD_COD", "CIUD_NOM");
    auto* pais = lista("PAIS_ID", "LPais", CPaises, "PAIS_ID", "PAIS_NOM");
    for (ListaDato* l : {ciudad, pais}) // parejas, diga lo que diga cada una
        l->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* paises = boton_pequeno(this, "SpeedButton3", "…", "Abrir el catálogo de países",
                                 [this] { abra_catalogo("Tfpaises", "PAIS_ID"); });
    f.grupo("Ubicación")
        .fila("Di&rección", editor("TERC_DIR", "EDir", 30))
        .fila("&Ciudad", Formulario::junto({ciudad, ciudades}))
        .fila("&País", Formulario::junto({pais, paises}))
        .fila({{"Te&léfono", editor("TERC_TEL", "ETel", 15)},
               {"Celular", editor("TERC_CEL", "ECel", 13)}})
        .fila({{"Fax", editor("TERC_FAX", "EFax", 15)},
               {"Aniversario", con_nombre(new FechaDato(CTerceros, "TERC_ANIV"), "FAniv")}})
        .fila("C&orreo", editor("TERC_EMAIL", "EEmail", 30))
        .fila("Contacto", editor("TERC_CONTACTO", "EContacto", 30));
}

void FormaTercero::arme_papeles(Formulario& f) {
    panel_exento_ = con_nombre(new QFrame, "PExento");
    panel_exento_->setFrameShape(QFrame::StyledPanel);
    auto* fila_exento = new QGridLayout(panel_exento_);
    fila_exento->addWidget(casilla("Exento", "TERC_EXENTO"), 0, 0);
    fila_exento->addWidget(boton_pequeno(this, "SpeedButton2", "Ocultar", "Ocultar este panel",
                                         [this] { panel_exento_->hide(); }),
                           0, 1);
    panel_exento_->hide();
    auto* exento = boton_pequeno(this, "SpeedButton7", "Exento…", "Mostrar si el tercero es exento",
                                 [this] { panel_exento_->show(); });
    EditorDato* nit_contable = editor("TERC_NITCONTA", "ENitconta", 16);
    nit_contable->setToolTip("NIT con que se contabiliza, si es otro");
    EditorDato* actividad = editor("TERC_ACTIVIDAD", "EActividad", 6);
    EditorDato* concepto = editor("TERC_CONCSH", "EConcsh", 6);
    concepto->setToolTip("Concepto en medios magnéticos");
    f.grupo("Papeles y tributos")
        .ancha(en_columnas(3, {casilla("Cl&iente", "TERC_CLIE"), casilla("Proveedor", "TERC_PROV"),
                               casilla("Empleado", "TERC_EMPL"),
                               casilla("Conductor", "TERC_CONDUCTOR"),
                               casilla("Transportador", "TERC_TRANS"),
                               casilla("Administrador", "TERC_ADMINI"),
                               casilla("Asociado", "TERC_ASOCIADO"),
                               casilla("Asociado nacional", "TERC_ASOCINAC"),
                               casilla("Depositario", "TERC_DEPOS")}),
               0)
        .ancha(en_columnas(
                   3, {casilla("Régimen simplificado", "TERC_SIMPLIFICA"), exento, panel_exento_}),
               0)
        .fila({{"Actividad", actividad}, {"Concepto", concepto}})
        .fila({{"Licencia vence", con_nombre(new FechaDato(CTerceros, "TERC_LICVEN"), "FLicven")},
               {"Categoría", editor("TERC_CATEGORIA", "ECategoria", 6)}})
        .fila("NIT contable", nit_contable);
}

void FormaTercero::arme_cuentas(Formulario& f) {
    const auto cuenta = [&](const char* campo, int numero) {
        EditorDato* e = editor(campo, "DBEdit" + QString::number(numero), 14);
        e->setToolTip("? y el comienzo de la cuenta abre el plan; doble clic también");
        e->OnDblClick = [this, e] { DBEdit9DblClick(*e); };
        return e;
    };
    EObs = con_nombre(new MemoDato(CTerceros, "TERC_OBS"), "EObs");
    EObs->lineas(3);
    EObs->setAccessibleName("Observaciones");
    f.grupo("Cuentas propias en vez de las generales")
        .fila({{"Cliente", cuenta("TERC_CTACLIENTE", 9)},
               {"Retención fuente", cuenta("TERC_CTARTFTE", 13)}})
        .fila({{"Proveedor", cuenta("TERC_CTAPROV", 10)},
               {"Retención IVA", cuenta("TERC_CTARTIVA", 14)}})
        .fila({{"Empleado", cuenta("TERC_CTAEMPL", 11)},
               {"Retención ICA", cuenta("TERC_CTARTICA", 15)}})
        .fila({{"Venta", cuenta("TERC_CTAVENTA", 12)},
               {"Autorretención", cuenta("TERC_CTARCREE", 16)}})
        .al_lado()
        .grupo("Observaciones")
        .ancha(EObs);
}
