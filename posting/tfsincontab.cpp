#include "posting/tfsincontab.h"

#include "libro/propuesta.h"
#include "posting/pch.h"
#include "posting/tfresumencontab.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/peticiones.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/cajaperiodo.h"
#include "toolkit/dialogos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/rejilla/rejilla.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QSet>

namespace {

constexpr int kMsSinAvance = 500; ///< un lote corto no alcanza a mostrarlo
constexpr int kSinServidor = 2; ///< documentos seguidos: cada uno de los demás esperaría por él
const QString kEnAjustes =
    QStringLiteral("En el período de ajustes no hay documentos por contabilizar: escoja otro mes.");
const QString kListaDeAntes =
    QStringLiteral("El período de trabajo pasó al de ajustes, que no tiene documentos por "
                   "contabilizar: la lista es la que ya estaba. Escoja otro mes.");
constexpr int kPrimerAno = 1990, kUltimoAno = 2099, kUltimoMes = 11;

/// Cuánto va de un lote. Cancelar espera a que termine el documento que va.
class AvanceLote : public QProgressDialog {
public:
    AvanceLote(int cuantos, QWidget* padre)
        : QProgressDialog(QString(), "Cancelar", 0, cuantos, padre) {
        setObjectName("avance_contabilizacion");
        setWindowTitle("Contabilización");
        setWindowModality(Qt::ApplicationModal);
        // No se asoma solo: lo haría encima del documento que se revisa.
        setMinimumDuration(std::numeric_limits<int>::max());
        desde_.start();
        setMinimumWidth(420);
    }
    /// Falso si se canceló.
    bool siga(int hechos, const DocumentoPendiente& documento) {
        setLabelText(
            QStringLiteral("%1 (%2 de %3)")
                .arg(documento.nombre(), QString::number(hechos + 1), QString::number(maximum())));
        if (desde_.elapsed() > kMsSinAvance)
            show();
        setValue(hechos);
        return !wasCanceled();
    }

private:
    QElapsedTimer desde_;
};

} // namespace

Tfsincontab::Tfsincontab() : Pantalla("Tfsincontab", "Comprobantes sin contabilizar") {
    CSincontab.texto("TIPO", 10);
    CSincontab.texto("PREFIJO", 4);
    CSincontab.texto("NUMERO", 8);
    CSincontab.fecha("FECHA");
    CSincontab.texto("CONCEPTO", 60);
    CSincontab.entero("ID").banderas(pfInKey);
    CSincontab.entero("TIDO").banderas(pfInKey);
    CSincontab.entero("CTABCO");
    construya();
}

// ---------------------------------------------------------------- disposición

void Tfsincontab::construya() {
    periodo = new CajaPeriodo(this);
    periodo->nombres(Tfdm::nombres_periodo().mid(0, kUltimoMes + 1));
    periodo->rango_ano(kPrimerAno, kUltimoAno);
    connect(periodo, &CajaPeriodo::mes_cambiado, this, [this](int mes) {
        fdmcnt().periodo_actual = mes;
        ejecute([this] { calcule_pendientes(); }, false);
    });
    connect(periodo, &CajaPeriodo::ano_cambiado, this, [this](int ano) {
        fdmcnt().ano_actual = QString::number(ano);
        ejecute([this] { calcule_pendientes(); }, false);
    });
    DBGridEh1 = new Rejilla(this, &CSincontab);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Documentos sin contabilizar");
    DBGridEh1->ReadOnly = true;
    DBGridEh1->dgMultiSelect(true);
    DBGridEh1->texto_vacio = "No hay documentos sin contabilizar en el mes. F5 los busca de nuevo.";
    DBGridEh1->nombre_archivo = "SinContab";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->columnas({{"TIPO", "Tipo", 12},
                         {"PREFIJO", "Prefijo", 8},
                         {"NUMERO", "Número", 10},
                         {"FECHA", "Fecha", 12},
                         {"CONCEPTO", "Concepto", 50}});
    DBGridEh1->OnDblClick = [this](int) { BitBtn1Click(); };

    const auto relea = [this] { calcule_pendientes(); };
    ckcont = casilla("ckcont", "Incluir facturas y recibos de contado", relea);
    ckNiif = casilla("ckNiif", "Contabilización NIIF", relea);
    ckfiltro = casilla("ckfiltro", "Habilitar filtros",
                       [this] { DBGridEh1->filtro_visible(ckfiltro->isChecked()); });

    auto* barra = new BarraBotones(this);
    barra->boton("BitBtn2", "F5:Actualizar", "view-refresh", Qt::Key_F5,
                 [this] { calcule_pendientes(); });
    barra->principal(barra->boton("BitBtn1", "F2:Contabilizar", "document-save", Qt::Key_F2,
                                  [this] { BitBtn1Click(); }));
    barra
        ->boton("SpeedButton3", "Cont.Marcados", "document-save-all",
                QKeySequence(Qt::SHIFT | Qt::Key_F2), [this] { SpeedButton3Click(); })
        ->setToolTip("Mayús+F2: contabiliza los marcados con Espacio");
    barra->separe();
    barra->boton("BitBtn3", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });

    Formulario f(this);
    QWidget* mes =
        Formulario::junto({paso_de_mes("SpeedButton1", Qt::LeftArrow,
                                       "Mes anterior (Alt+Izquierda)", &Tfdmcnt::mes_menos),
                           periodo,
                           paso_de_mes("SpeedButton2", Qt::RightArrow,
                                       "Mes siguiente (Alt+Derecha)", &Tfdmcnt::mes_mas)});
    f.fila("Período", en_flujo({mes, ckcont, ckNiif, ckfiltro}, paso()));
    f.ancha(DBGridEh1).botones(barra);
    for (const auto& [clave, mes] :
         {std::pair{Qt::Key_Left, "SpeedButton1"}, std::pair{Qt::Key_Right, "SpeedButton2"}})
        tecla(clave, Qt::AltModifier, mes, [b = findChild<QToolButton*>(mes)] { b->click(); });
    tamano(940, 540);
}

QToolButton* Tfsincontab::paso_de_mes(const char* nombre, Qt::ArrowType sentido,
                                      const QString& ayuda, void (Tfdmcnt::*mueva)()) {
    auto* boton = new QToolButton(this);
    boton->setObjectName(nombre);
    boton->setArrowType(sentido);
    boton->setToolTip(ayuda);
    boton->setAccessibleName(ayuda.section(" (", 0, 0));
    boton->setFocusPolicy(Qt::TabFocus);
    connect(boton, &QToolButton::clicked, this, [this, mueva] {
        ejecute([this, mueva] {
            (fdmcnt().*mueva)();
            muestre_periodo();
            calcule_pendientes();
        });
    });
    return boton;
}

QCheckBox* Tfsincontab::casilla(const char* nombre, const QString& texto,
                                std::function<void()> al_cambiar) {
    auto* c = new QCheckBox(texto, this);
    c->setObjectName(nombre);
    connect(c, &QCheckBox::toggled, this,
            [this, al_cambiar = std::move(al_cambiar)] { ejecute(al_cambiar); });
    return c;
}

// ---------------------------------------------------------------- período y lista

void Tfsincontab::FormCreate() {
    fdm().ConfigurarProviders(this);
    periodo->mes(0);
    muestre_periodo();
    calcule_pendientes();
    DBGridEh1->setFocus();
}

void Tfsincontab::muestre_periodo() {
    periodo->ano(fdmcnt().ano_actual.toInt());
    if (fdmcnt().periodo_actual <= kUltimoMes)
        periodo->mes(fdmcnt().periodo_actual);
}

void Tfsincontab::calcule_pendientes() {
    const int indice = fdmcnt().periodo_actual;
    const bool abierta = CSincontab.Active();
    DBGridEh1->setProperty("sin_consultar", indice > kUltimoMes ? kEnAjustes : QString());
    if (indice > kUltimoMes) {
        advierta_de_pantalla(abierta ? kListaDeAntes : kEnAjustes);
        return;
    }
    for (const QString& aviso : {kEnAjustes, kListaDeAntes})
        retire_advertencia(fdm().barra(), aviso);
    const QDate primero(fdmcnt().ano_actual.toInt(), indice + 1, 1);
    const QDate ultimo(primero.year(), primero.month(), primero.daysInMonth());
    const auto si = [](const QCheckBox* c) { return c->isChecked() ? "S" : "N"; };
    DBGridEh1->quite_marcas();
    CSincontab.Open("select * from documentos_sin_contabilizar(" +
                    QuotedStr(Valor(primero).texto()) + ',' + QuotedStr(Valor(ultimo).texto()) +
                    ',' + QuotedStr(si(ckcont)) + ',' + QuotedStr(si(ckNiif)) + ')');
}

QPair<qint64, qint64> Tfsincontab::llave_de(int fila) const {
    return {CSincontab.valor_en(fila, CSincontab.FieldByName("TIDO")).entero(),
            CSincontab.valor_en(fila, CSincontab.FieldByName("ID")).entero()};
}

void Tfsincontab::refresque() {
    // Las marcas de los que siguen pendientes no se pierden con el que se fue.
    QSet<QPair<qint64, qint64>> marcados;
    for (const int fila : DBGridEh1->filas_marcadas())
        marcados.insert(llave_de(fila));
    DBGridEh1->quite_marcas();
    lista_vieja_ = true;
    if (CSincontab.Active()) {
        CSincontab.Refresh();
        for (int i = 0; i < CSincontab.RecordCount() && !marcados.isEmpty(); ++i)
            DBGridEh1->marque(i, marcados.contains(llave_de(i)));
    }
    lista_vieja_ = false;
    emit fdmcnt().balance_por_recalcular();
}

void Tfsincontab::actualice_si_vieja() {
    if (lista_vieja_)
        refresque();
}

// ---------------------------------------------------------------- contabilizar

DocumentoPendiente Tfsincontab::actual() const {
    const auto dato = [this](const char* campo) -> const Campo& {
        return CSincontab.FieldByName(campo);
    };
    if (!CSincontab.Active() || CSincontab.IsEmpty())
        return {};
    return {.tido = int(dato("TIDO").entero()),
            .id = int(dato("ID").entero()),
            .ctabco = int(dato("CTABCO").entero()),
            .tipo = dato("TIPO").texto(),
            .prefijo = dato("PREFIJO").texto(),
            .numero = dato("NUMERO").texto(),
            .fecha = dato("FECHA").valor().fecha()};
}

void Tfsincontab::BitBtn1Click() {
    actualice_si_vieja();
    const ResultadoDocumento r = contabilice_actual();
    if (r.desenlace == Desenlace::Contabilizado)
        anuncie(fdm().barra(), "Contabilizado " + r.documento.nombre());
}

ResultadoDocumento Tfsincontab::contabilice_actual() {
    const DocumentoPendiente documento = actual();
    if (documento.tipo.isEmpty())
        return {};
    // También si falla: lo que otro contabilizó deja de estar en la lista.
    const auto relea = qScopeGuard([this] {
        if (!batch)
            proteja([this] { refresque(); });
    });
    return contabilice(documento);
}

ResultadoDocumento Tfsincontab::contabilice(const DocumentoPendiente& documento) {
    ResultadoDocumento r{documento};
    if (!se_despacha(documento.tido))
        return r;
    const PropuestaPendiente p = proponga(documento, ckNiif->isChecked(), escoja_interfaz);
    for (const QString& mensaje : p.mensajes)
        muestre_mensaje(mensaje);
    r.motivo = QStringList(p.mensajes + QStringList(p.motivo)).join('\n').trimmed();
    if (p.cntb_id != 0)
        asiente(r, p.cntb_id);
    return r;
}

void Tfsincontab::asiente(ResultadoDocumento& r, int cntb_id) {
    const DocumentoOrigen origen{r.documento.tido, r.documento.id};
    const Libro corrida = ckNiif->isChecked() ? Libro::Niif : Libro::Decreto2649;
    Conexion& base = fdm().Quorvex;
    // Rehacer el comprobante con la propuesta bota lo que se le corrigió a mano.
    if (const QString corregido =
            es_niif(corrida) ? comprobante_corregido(base, cntb_id) : QString();
        !corregido.isEmpty() &&
        !pregunte_con_no(
            QStringLiteral("El comprobante %1 ya no es igual a la propuesta de la que salió: "
                           "alguien lo corrigió. Contabilizar en NIIF lo rehace con la propuesta "
                           "y esas correcciones se pierden. Desea continuar?")
                .arg(corregido))) {
        r.desenlace = Desenlace::EnEspera;
        r.motivo =
            QStringLiteral("El comprobante %1 tiene correcciones hechas a mano.").arg(corregido);
        return;
    }
    if (!fdm().confirmar_contabilizacion &&
        asiente_sin_revisar(base, origen, cntb_id, corrida,
                            fdm().valor<Llave::PermitirDescuadrados>(), fdm().usuario)) {
        r.desenlace = Desenlace::Contabilizado;
        return;
    }
    if (!revise_contabilizacion(origen.tipo, origen.id)) {
        r.desenlace = Desenlace::EnEspera;
        if (r.motivo.isEmpty())
            r.motivo = QStringLiteral("La revisión se cerró sin grabar.");
        return;
    }
    convierta_propuesta(base, cntb_id, corrida, fdm().usuario);
    r.desenlace = Desenlace::Contabilizado;
}

// ---------------------------------------------------------------- los marcados

void Tfsincontab::SpeedButton3Click() {
    actualice_si_vieja();
    const QVector<int> filas = DBGridEh1->filas_marcadas();
    if (filas.isEmpty()) {
        muestre_mensaje("Marque con Espacio los documentos por contabilizar; Ctrl+A los marca "
                        "todos.");
        return;
    }
    QVector<ResultadoDocumento> resultados;
    int sin_servidor = 0; // documentos seguidos
    {
        const QScopedValueRollback<bool> guarda(batch, true);
        AvanceLote avance(int(filas.size()), this);
        for (const int fila : filas) {
            CSincontab.vaya_a(fila);
            const DocumentoPendiente documento = actual();
            if (!avance.siga(int(resultados.size()), documento))
                break;
            resultados << contabilice_en_lote(documento);
            const bool perdido =
                resultados.last().desenlace == Desenlace::Fallo && !fdm().Quorvex.en_linea();
            sin_servidor = perdido ? sin_servidor + 1 : 0;
            if (sin_servidor == kSinServidor)
                break;
            // Quien cierra una revisión sin grabar puede querer dejar ahí todo el lote.
            const qsizetype faltan = filas.size() - resultados.size();
            if (resultados.last().desenlace == Desenlace::EnEspera && faltan > 0 &&
                !pregunte(
                    QStringLiteral("Documentos que faltan del lote: %1. Desea seguir con ellos?")
                        .arg(faltan)))
                break;
        }
    }
    DBGridEh1->quite_marcas();
    proteja([this] { refresque(); }); // sin servidor la lista sigue como estaba
    DBGridEh1->setFocus();
    muestre_resumen(resultados, int(filas.size() - resultados.size()));
}

ResultadoDocumento Tfsincontab::contabilice_en_lote(const DocumentoPendiente& documento) {
    try {
        return contabilice_actual();
    } catch (const EdicionAbortada&) {
        return {documento, Desenlace::EnEspera, QStringLiteral("Se dejó sin terminar.")};
    } catch (...) {
        // Uno que falla no detiene a los que siguen: se dice en el resumen, y lo que dijo el motor
        // queda para quien dé soporte.
        const ErrorDatos falla = falla_de_excepcion();
        fdm().registre_en_archivo(
            falla.detalle().isEmpty() ? falla.texto() : falla.texto() + " | " + falla.detalle());
        return {documento, Desenlace::Fallo, falla.para_usuario()};
    }
}

void Tfsincontab::muestre_resumen(const QVector<ResultadoDocumento>& resultados, int sin_empezar) {
    const auto cual =
        pantallas().pida_modal("Tfresumencontab", AbreResumen{resultados, sin_empezar});
    if (cual)
        vaya_a(resultados[*cual]);
}

void Tfsincontab::vaya_a(const ResultadoDocumento& r) {
    if (CSincontab.Locate("TIDO;ID", {r.documento.tido, r.documento.id})) {
        DBGridEh1->setFocus();
        return;
    }
    // Ya no está pendiente: se muestra su comprobante.
    const qint64 comprobante =
        comprobante_del_documento(fdm().Quorvex, {r.documento.tido, r.documento.id});
    if (comprobante != 0)
        pantallas().abrir_modal("Tfedtmovimien", AbreComprobante{QString::number(comprobante)});
}
