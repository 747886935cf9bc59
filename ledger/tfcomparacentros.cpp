#include "ledger/tfcomparacentros.h"

#include "libro/sin_cierre.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/instalacion.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/pida_archivo.h"
#include "toolkit/pivote/rejilla_cubo.h"
#include "toolkit/pivote/zonas_cubo.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QSplitter>

namespace {

constexpr int kPrimerAnoComparacentros = 2000;
constexpr const char* kPorOmision = "comparacentros.mds";
constexpr const char* kPropias = ":/informes/"; ///< las que trae el programa

struct CampoBalance {
    const char *nombre, *titulo;
    int tamano;                ///< 0, una cifra; -1, un entero
    const char* etiqueta = ""; ///< campo con el nombre de sus valores
};
constexpr CampoBalance kCampos[] = {{"CUENTA", "Cuenta", 20, "NOM_CUENTA"},
                                    {"NOM_CUENTA", "Nombre de la cuenta", 60},
                                    {"PROY", "Centro", 4, "NOM_CENTRO"},
                                    {"CENTRO", "Subcentro", 4, "NOM_SUBCENTRO"},
                                    {"NOM_CENTRO", "Nombre del centro", 60},
                                    {"NOM_SUBCENTRO", "Nombre del subcentro", 60},
                                    {"INICIAL", "Inicial", 0},
                                    {"DEBITOS", "Débitos", 0},
                                    {"CREDITOS", "Créditos", 0},
                                    {"FINAL", "Final", 0},
                                    {"SCLASE", "Saldo", 0},
                                    {"SGRUPO", "Saldo del grupo", 0},
                                    {"SSUBGRUPO", "Saldo del subgrupo", 0},
                                    {"SCUENTA", "Saldo de la cuenta", 0},
                                    {"SCENTRO", "Saldo del centro", 0},
                                    {"MCLASE", "Movimiento de la clase", 0},
                                    {"MGRUPO", "Movimiento del grupo", 0},
                                    {"MSUBGRUPO", "Movimiento del subgrupo", 0},
                                    {"MCUENTA", "Movimiento de la cuenta", 0},
                                    {"MOVIMIEN", "Movimiento", 0},
                                    {"NOMCTACEN", "Cuenta o centro", 120},
                                    {"NIVEL", "Nivel", -1}};

QVector<CampoCubo> campos_del_cubo() {
    QVector<CampoCubo> campos;
    for (const CampoBalance& c : kCampos)
        campos.append({c.nombre, QString::fromUtf8(c.titulo), c.tamano == 0, c.etiqueta});
    return campos;
}

QString carpeta_de_plantillas() {
    return ruta_informe(QString());
}

} // namespace

Tfcomparacentros::Tfcomparacentros()
    : ConsultaPeriodo("Tfcomparacentros", "Comparativo centros de costo", kPrimerAnoComparacentros),
      cubo_(campos_del_cubo()) {
    defina_conjunto();
    ckNiif = new QCheckBox("Cuentas NIIF", this);
    ckNiif->setObjectName("ckNiif");
    ComboBox1 = new ListaTecleo(this);
    ComboBox1->setObjectName("ComboBox1");
    ComboBox1->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    zonas = new ZonasCubo(cubo_);
    rejilla = new RejillaCubo;
    rejilla->nombre_archivo = "ComparaCentros";
    rejilla->texto_vacio = "El período no tiene resultados por centro.";
    auto* division = new QSplitter(Qt::Horizontal);
    division->addWidget(zonas);
    division->addWidget(rejilla);
    division->setChildrenCollapsible(false);
    division->setStretchFactor(0, 0);
    division->setStretchFactor(1, 1);
    Formulario f(this);
    f.fila({{"Período", cree_periodo("SpeedButton1", "SpeedButton2")},
            {"Cargar ejemplo:", ComboBox1},
            {"", ckNiif}});
    f.ancha(division);
    arme_botones();
    f.botones(findChild<BarraBotones*>());
    flechas("SpeedButton1", "SpeedButton2");
    tamano_del_area(60, 60);

    connect(zonas, &ZonasCubo::cambio, this, [this] { ejecute([this] { muestre(); }); });
    connect(rejilla, &RejillaCubo::nivel_cambiado, zonas, &ZonasCubo::nivel_filas);
    connect(rejilla, &RejillaCubo::nivel_columnas_cambiado, zonas, &ZonasCubo::nivel_columnas);
    connect(ComboBox1, &QComboBox::activated, this,
            [this] { ejecute([this] { SpeedButton5Click(); }); });
    connect(ckNiif, &QCheckBox::clicked, this, [this] { ejecute([this] { recalcule(); }); });
    connect(&fdmcnt(), &Tfdmcnt::balance_por_recalcular, this, [this] { por_recalcular_ = true; });
}

void Tfcomparacentros::defina_conjunto() {
    for (const CampoBalance& c : kCampos) {
        if (c.tamano > 0)
            CBalcentro.texto(c.nombre, c.tamano).etiqueta(c.titulo);
        else if (c.tamano == 0)
            CBalcentro.decimal(c.nombre).etiqueta(c.titulo);
        else
            CBalcentro.entero(c.nombre).etiqueta(c.titulo);
    }
    CBalcentro.Instantanea = true;
}

void Tfcomparacentros::arme_botones() {
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton5", "F2:Calcula", "view-refresh", Qt::Key_F2,
                                  [this] { SpeedButton5Click(); }));
    barra->boton("SbGrabar", "Grabar Plantilla", "document-save", {}, [this] { SbGrabarClick(); });
    barra->boton("botonExportar", "F4:Exportar", "document-save-as", Qt::Key_F4,
                 [this] { rejilla->guarde(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
}

// ---------------------------------------------------------------- vida

void Tfcomparacentros::FormCreate() {
    fdm().ConfigurarProviders(this);
    ckNiif->setChecked(fdm().valor<Llave::LibroInicial>() != "2649");
    lea_plantillas();
    zonas->disposicion(plantilla_inicial());
    QWidget* antes = ckNiif;
    for (const Zona zona :
         {Zona::Campos, Zona::Filas, Zona::Columnas, Zona::Filtros, Zona::Valores}) {
        QWidget::setTabOrder(antes, zonas->lista(zona));
        antes = zonas->lista(zona);
    }
    for (QWidget* siguiente :
         {static_cast<QWidget*>(zonas->total_filas), static_cast<QWidget*>(zonas->total_columnas),
          static_cast<QWidget*>(rejilla)}) {
        QWidget::setTabOrder(antes, siguiente);
        antes = siguiente;
    }
}

void Tfcomparacentros::FormActivate() {
    if (por_recalcular_)
        recalcule();
    rejilla->setFocus();
}

bool Tfcomparacentros::FormClose() {
    CBalcentro.Close();
    CBorrar.Close();
    return true;
}

// ---------------------------------------------------------------- plantillas

void Tfcomparacentros::lea_plantillas() {
    const QString antes = ComboBox1->currentText();
    QSet<QString> nombres;
    for (const QString& carpeta : {QString::fromLatin1(kPropias), carpeta_de_plantillas()})
        for (const QString& n : QDir(carpeta).entryList({"*.mds"}, QDir::Files))
            nombres.insert(n);
    QStringList orden(nombres.begin(), nombres.end());
    orden.sort(Qt::CaseInsensitive);
    ComboBox1->clear();
    ComboBox1->addItems(orden);
    ComboBox1->setCurrentIndex(ComboBox1->findText(antes));
}

DisposicionCubo Tfcomparacentros::lea_plantilla(const QString& ruta) const {
    const DisposicionCubo d = lea_archivo_disposicion(ruta, cubo_.nombres());
    try {
        cubo_.revise(d);
    } catch (const ErrorDatos& e) {
        throw ErrorDatos(QStringLiteral("%1: %2").arg(QFileInfo(ruta).fileName(), e.texto()));
    }
    return d;
}

DisposicionCubo Tfcomparacentros::plantilla_escogida() const {
    const QString nombre =
        ComboBox1->currentText().isEmpty() ? QLatin1String(kPorOmision) : ComboBox1->currentText();
    // La de la carpeta reemplaza a la del programa.
    const QString propia = carpeta_de_plantillas() + nombre;
    return lea_plantilla(QFileInfo::exists(propia) ? propia : QLatin1String(kPropias) + nombre);
}

DisposicionCubo Tfcomparacentros::plantilla_inicial() const {
    // Una plantilla dañada no deja a nadie sin la pantalla: se dice y sirve la del programa.
    try {
        return plantilla_escogida();
    } catch (const ErrorDatos& e) {
        fdm().mostrar_advertencia(e.para_usuario());
        return lea_plantilla(QLatin1String(kPropias) + QLatin1String(kPorOmision));
    }
}

void Tfcomparacentros::SbGrabarClick() {
    QDir().mkpath(carpeta_de_plantillas());
    const auto escogido =
        pida_archivo(this, {.nombre = "grabar_plantilla",
                            .titulo = "Grabar plantilla",
                            .sugerido = carpeta_de_plantillas() + '/',
                            .filtro = "Plantillas (*.mds);;Todos los archivos (*)",
                            .termina = ".mds"});
    if (!escogido)
        return;
    grabe_archivo_disposicion(zonas->disposicion(), escogido->ruta);
    lea_plantillas();
    ComboBox1->setCurrentIndex(ComboBox1->findText(QFileInfo(escogido->ruta).fileName()));
}

// ---------------------------------------------------------------- lectura

void Tfcomparacentros::actualice_balance() {
    fdmcnt().guarde_periodo();
    muestre_periodo();
    CBalcentro.Close();
    const QString consulta = (ckNiif->isChecked() ? "SELECT * FROM  BALANCE_CON_CENTROS_MES_N("
                                                  : "SELECT * FROM  BALANCE_CON_CENTROS_MES(") +
                             QuotedStr(fdmcnt().ano_actual) + ", " +
                             QString::number(fdmcnt().periodo_actual + 1) +
                             ",'S', '4','999999','0','zz','0','zz')";
    sin_el_cierre(fdm().Quorvex, [&] { CBalcentro.Open(consulta); });
    rejilla->titulo_impreso =
        titulo_de_hoja(ckNiif->isChecked() ? Libro::Niif : Libro::Decreto2649, periodo_legible());
    CBalcentro.FetchAll();
    llene_cubo();
    por_recalcular_ = false;
}

void Tfcomparacentros::llene_cubo() {
    cubo_.vacie();
    // El campo se busca una vez y no en cada una de las miles de filas.
    std::vector<std::pair<const Campo*, bool>> columnas;
    for (const CampoBalance& c : kCampos)
        columnas.push_back({&CBalcentro.FieldByName(c.nombre), c.tamano == 0});
    for (int fila = 0; fila < CBalcentro.RecordCount(); ++fila) {
        QStringList textos;
        QVector<Moneda> cifras;
        for (const auto& [campo, es_cifra] : columnas) {
            const Valor valor = CBalcentro.valor_en(fila, *campo);
            if (es_cifra)
                cifras << valor.moneda();
            else
                textos << valor.texto();
        }
        cubo_.agregue(textos, cifras);
    }
}

void Tfcomparacentros::recalcule() {
    actualice_balance();
    muestre();
}

void Tfcomparacentros::muestre() {
    const DisposicionCubo d = zonas->disposicion();
    if (d.valores.isEmpty()) {
        advierta_de_pantalla("Ponga al menos una cifra en los valores.");
        return;
    }
    rejilla->disponga(cubo_, d);
    if (d.solo.value("NIVEL").size() != 1)
        fdm().mostrar_advertencia("Cada cuenta viene en todos sus niveles: los totales la cuentan "
                                  "varias veces. Escoja un solo valor en el filtro Nivel.");
}

void Tfcomparacentros::SpeedButton5Click() {
    zonas->disposicion(plantilla_escogida());
    recalcule();
}
