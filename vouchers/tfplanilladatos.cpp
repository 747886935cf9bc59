#include "vouchers/tfplanilladatos.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/firebird/concuerde.h"
#include "libro/catalogos.h"
#include "libro/numeracion.h"
#include "libro/revision.h"
#include "sesion/ayuda_al_teclear.h"
#include "sesion/borrador_filas.h"
#include "toolkit/aviso_trabajo.h"
#include "vouchers/lineas_cuenta.h"
#include "vouchers/pch.h"
#include "vouchers/peticiones_planilla.h"
#include "vouchers/piezas.h"

using namespace columnas_planilla;

Tfplanilladatos::Tfplanilladatos()
    : Pantalla("Tfplanilladatos", "Digitación rápida"),
      PMovimiento(this, "PMovimiento", &fdmcnt().TComprobantes,
                  poCascadeDeletes | poCascadeUpdates),
      CMovimiento(this, "CMovimiento", &PMovimiento), CDetalle(this, "CDetalle"),
      Cdetniif(this, "Cdetniif"), CVirtdata(this, "CVirtdata") {
    defina_encabezado(CMovimiento);
    CDetalle.anide_en(&CMovimiento, &fdmcnt().TComprDetalle);
    Cdetniif.anide_en(&CMovimiento, &fdmcnt().TCompniif);
    defina_lineas(CDetalle, Libro::Decreto2649);
    defina_lineas(Cdetniif, Libro::Niif);
    construya();
}

Tfplanilladatos::~Tfplanilladatos() = default;

void Tfplanilladatos::construya() {
    ETipo = caja_de_lectura("ETipo", 30);
    EMes = caja_de_lectura("EMes", 12);
    EAno = caja_de_lectura("EAno", 5);
    DBGridEh1 = nombrado(new Rejilla(this), "DBGridEh1");
    DBGridEh1->setAccessibleName("Comprobantes por grabar");
    DBGridEh1->enter_como_tab = true;
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio = "Insert agrega el primer comprobante; también se pueden pegar filas.";
    DBGridEh1->nombre_archivo = "Plandigita";
    DBGridEh1->menu_emergente(LineasCuenta::ordenes_de_comprobante());
    DBGridEh1->OnDblClick = [this](int columna) { DBGridDblClick(columna); };
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                  [this] { SBGrabarClick(); }));
    barra->separe();
    barra->boton("SBCancel", "Esc:Cancelar", "dialog-cancel", Qt::Key_Escape, [this] { close(); });
    // Ir a buscar no escribe la celda a medias: lo escogido la reemplaza.
    tecla(
        Qt::Key_F6, Qt::NoModifier, "Tfterceros", [this] { busque_tercero({}); }, false);
    tecla(
        Qt::Key_F7, Qt::NoModifier, "Tfcentros", [this] { busque_centro(); }, false);
    Formulario(this)
        .fila({{"Tipo", ETipo}, {"Período", Formulario::junto({EMes, EAno})}})
        .ancha(DBGridEh1)
        .botones(barra);
    tamano(720, 700); // de ahí crece con los datos de su planilla
}

// ---------------------------------------------------------------- creación

void Tfplanilladatos::FormCreate() {
    fdm().ConfigurarProviders(this);
    const auto leida =
        lea_planilla(fdm().Quorvex, peticion<AbrePlanilla>().planilla_seleccion.toLongLong());
    if (!leida) {
        muestre_mensaje("No se encontró la planilla.");
        pida_cierre_al_crear();
        return;
    }
    planilla_ = *leida;
    setWindowTitle(windowTitle() + " - " + planilla_.nombre);
    fdm().QBorrar.Open("SELECT TICO_NOM FROM TIPO_COMPROBANTE WHERE TICO_COD = " +
                       QuotedStr(planilla_.tipo));
    ETipo->setText(fdm().QBorrar.Fields(0).texto());
    fdm().QBorrar.Close();
    periodo_ = fdmcnt().cursor();
    muestre_periodo();
    for (QLineEdit* e : {EAno, EMes})
        e->setVisible(!planilla_.pide_fecha);
    QStringList titulos;
    for (const CuentaPlanilla& c : planilla_.cuentas) {
        if (const QString negativa = negativa_de_titulo(c.titulo, titulos); !negativa.isEmpty()) {
            muestre_mensaje(negativa);
            pida_cierre_al_crear();
            return;
        }
        titulos << c.titulo;
    }
    defina_hoja();
    DBGridEh1->setFocus();
    if (!fdm().exija_acceso(kDigitarPlanilla))
        pida_cierre_al_crear();
}

void Tfplanilladatos::muestre_periodo() {
    EAno->setText(QString::number(periodo_.ano));
    EMes->setText(Tfdm::nombres_periodo().value(periodo_.indice));
}

void Tfplanilladatos::tome_periodo_de_las_filas() {
    CVirtdata.recorra_todas([this](const Fila& fila) {
        const QString p = CVirtdata.valor_de(fila, CVirtdata.FieldByName(kPeriodo)).texto();
        if (p.size() == kLargoPeriodo)
            periodo_ = {p.left(4).toInt(), p.mid(4).toInt() - 1};
    });
    muestre_periodo();
}

void Tfplanilladatos::defina_hoja() {
    QVector<DefinicionColumna> columnas;
    const auto columna = [&](Campo& campo, int ancho, unsigned opciones = 0) {
        columnas.append({campo.FieldName, campo.FieldName, ancho, opciones, {}});
    };
    ConjuntoDatos& c = CVirtdata;
    const auto importe = [&](const QString& titulo) -> Campo& {
        return c.decimal(titulo).formato(kImporte);
    };
    if (planilla_.pide_fecha)
        columna(c.texto(kFecha, 8).requerido(), 9);
    else
        columna(c.entero(kDia).requerido(), 5);
    // Si nada más lleva un nombre, lo que sobre es suyo.
    constexpr int kNumeroSolo = 24;
    const bool solo = !planilla_.pide_tercero && !planilla_.pide_centro && !planilla_.pide_concepto;
    columna(c.texto(kNumero, 6).requerido(), solo ? kNumeroSolo : 8);
    if (planilla_.pide_tercero)
        columna(c.texto(kTercero, 20), 14);
    if (planilla_.pide_centro) {
        columna(c.texto(kCentro, 4), 7);
        columna(c.texto(kSubcentro, 4), 10);
    }
    if (planilla_.pide_concepto)
        columna(c.texto(kConcepto, 60), 26);
    bool con_base = false;
    for (const CuentaPlanilla& cuenta : planilla_.cuentas) {
        if (cuenta.con_base && !std::exchange(con_base, true))
            columna(importe(kBase), 14, Suma);
        columna(importe(cuenta.titulo), 14, Suma);
    }
    c.texto(kPeriodo, kLargoPeriodo);
    c.AfterInsert = [this] {
        CVirtdata.FieldByName(kPeriodo) =
            componga_fecha(periodo_.ano, periodo_.numero(), 1).fecha.left(kLargoPeriodo);
    };
    c.BeforePost = [this] { VirtdataBeforePost(); };
    valide(kTercero, [](const QString& nit) { return revise_tercero(fdm().Quorvex, nit); });
    c.CreateDataSet();
    DBGridEh1->ate(&c);
    DBGridEh1->columnas(columnas);
    ofrezca_al_teclear(*DBGridEh1, Libro::Decreto2649, {}, kTercero);
    ofrezca_centros(*DBGridEh1, kCentro, kSubcentro);
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
}

void Tfplanilladatos::valide(const char* columna,
                             std::function<std::optional<Rechazo>(const QString&)> revise) {
    Campo* campo = CVirtdata.FindField(columna);
    if (!campo)
        return;
    campo->OnChange = [this](Campo& c) {
        if (const auto texto = pregunta_.tome(c))
            busque_tercero(*texto);
    };
    campo->OnValidate = [revise](Campo&, const Valor& v) {
        if (v.texto().isEmpty())
            return;
        if (const auto rechazo = revise(v.texto()))
            throw ErrorDatos(rechazo->texto);
    };
    pregunta_.atienda(*campo);
}

void Tfplanilladatos::FormActivate() {
    // Ya con la ventana a la vista, para que la pregunta se entienda.
    if (std::exchange(mirado_, true))
        return;
    borrador_ = new BorradorFilas("planilla/" + peticion<AbrePlanilla>().planilla_seleccion,
                                  {&CVirtdata}, nullptr, this);
    const bool retomada = borrador_->ofrezca([](const BorradorFilas::Huerfano& h) {
        const qsizetype n = h.cambios.first().size();
        return QStringLiteral("quedó esta planilla sin grabar, con %1. Desea retomarla?")
            .arg(concuerde(n, "%1 fila", "%1 filas"));
    });
    if (retomada)
        tome_periodo_de_las_filas();
    borrador_->siga();
}

// ---------------------------------------------------------------- filas

void Tfplanilladatos::VirtdataBeforePost() {
    const auto texto = [this](const char* columna) {
        return CVirtdata.FieldByName(columna).texto();
    };
    if (planilla_.pide_centro && !(texto(kCentro).isEmpty() && texto(kSubcentro).isEmpty()))
        if (const auto r = revise_centro(fdm().Quorvex, texto(kCentro), texto(kSubcentro)))
            throw ErrorDatos(r->texto);
}

void Tfplanilladatos::abra_fila() {
    if (CVirtdata.editando())
        return;
    if (CVirtdata.IsEmpty() || CVirtdata.FieldByName(kNumero).vacio())
        CVirtdata.Append();
    else
        CVirtdata.Edit();
}

void Tfplanilladatos::busque_tercero(const QString& texto) {
    if (!planilla_.pide_tercero)
        return;
    escoja_tercero(
        *this, texto,
        [this](const QString& nit) {
            abra_fila();
            CVirtdata.FieldByName(kTercero) = nit;
        },
        CVirtdata.FieldByName(kTercero).texto());
}

void Tfplanilladatos::busque_centro() {
    if (!planilla_.pide_centro)
        return;
    escoja_centro(
        *this,
        [this](const CentroEscogido& centro) {
            abra_fila();
            CVirtdata.FieldByName(kCentro) = centro.proyecto_seleccion;
            CVirtdata.FieldByName(kSubcentro) = centro.centro_seleccion;
        },
        {CVirtdata.FieldByName(kCentro).texto(), CVirtdata.FieldByName(kSubcentro).texto()});
}

void Tfplanilladatos::DBGridDblClick(int columna) {
    const QString titulo = DBGridEh1->columna(columna).FieldName;
    if (titulo == kTercero)
        busque_tercero({});
    else if (titulo == kCentro || titulo == kSubcentro)
        busque_centro();
}

// ---------------------------------------------------------------- comprobantes

QString Tfplanilladatos::fecha_del_dia(const QString& dia) const {
    const FechaCompuesta f = componga_fecha(periodo_.ano, periodo_.numero(), Tfdm::entero(dia));
    if (f.corregida)
        QApplication::beep();
    return f.fecha;
}

FilaPlanilla Tfplanilladatos::fila_de(const std::function<Valor(const Campo&)>& valor) const {
    const auto texto = [&](const char* columna) {
        const Campo* campo = CVirtdata.FindField(columna);
        return campo ? valor(*campo).texto() : QString();
    };
    FilaPlanilla f{.fecha = planilla_.pide_fecha ? texto(kFecha) : fecha_del_dia(texto(kDia)),
                   .numero = texto(kNumero),
                   .nit = texto(kTercero),
                   .proyecto = texto(kCentro),
                   .centro = texto(kSubcentro),
                   .concepto = texto(kConcepto),
                   .base = {},
                   .importes = {}};
    if (const Campo* base = CVirtdata.FindField(kBase))
        f.base = valor(*base).moneda();
    for (const CuentaPlanilla& c : planilla_.cuentas)
        f.importes << valor(CVirtdata.FieldByName(c.titulo)).moneda();
    return f;
}

QVector<Comprobante> Tfplanilladatos::comprobantes() const {
    QVector<Comprobante> todos;
    CVirtdata.recorra_todas([&](const Fila& fila) {
        Comprobante c = comprobante_de_fila(planilla_, fila_de([&](const Campo& campo) {
                                                return CVirtdata.valor_de(fila, campo);
                                            }));
        c.usuario = fdm().usuario;
        c.nombre_tercero = c.nit.isEmpty() ? QString() : fdmter().nom_tercero(c.nit);
        todos << c;
    });
    return todos;
}

bool Tfplanilladatos::cuadra(const Comprobante& comprobante) const {
    return !revise_cuadre(comprobante, Libro::Decreto2649);
}

QStringList Tfplanilladatos::rehusados(const QVector<Comprobante>& todos) {
    // El cuadre se mira aparte, y una fila en ceros vale: es un comprobante sin líneas.
    ModoGrabacion modo = modo_de(Grabador::Lote);
    modo.prueba_2649 = modo.prueba_niif = modo.rehusa_vacio = false;
    const AjustesLibro ajustes = fdmcnt().ajustes_libro();
    const ConsultasRepetidas repetidas(fdm().Quorvex);
    QStringList textos;
    QSet<QString> numeros;
    for (qsizetype i = 0; i < todos.size(); ++i) {
        const QString sitio = QString("Fila %1, comprobante %2: ").arg(i + 1).arg(todos[i].numero);
        const QString numero = complete_numero(todos[i].numero);
        if (numeros.contains(numero))
            textos << sitio + "el número está repetido en la planilla.";
        numeros << numero;
        for (const Rechazo& r : revise(fdm().Quorvex, todos[i], modo, ajustes)) {
            const QString cuenta = r.de_linea() && r.item < todos[i].lineas_2649.size()
                                       ? "cuenta " + todos[i].lineas_2649[r.item].cuenta + ": "
                                       : QString();
            textos << sitio + cuenta + r.texto;
        }
    }
    return textos;
}

// ---------------------------------------------------------------- grabar

void Tfplanilladatos::agregue(const Comprobante& comprobante) {
    Comprobante c = comprobante;
    Sentencia& s = fdmcnt().SIdComproba;
    s.Close();
    s.ExecProc();
    c.id = s.ParamByName("ID").entero();
    CMovimiento.Append();
    CMovimiento.FieldByName("ENCO_CONSEC") = c.id;
    vuelque(c, {CMovimiento, CDetalle, Cdetniif});
    CMovimiento.CheckBrowseMode();
}

void Tfplanilladatos::SBGrabarClick() {
    // La fila que abre el último Enter, sin nada escrito, no es un comprobante.
    if (CVirtdata.State() == Estado::Insercion && !CVirtdata.Modified())
        CVirtdata.Cancel();
    CVirtdata.CheckBrowseMode();
    const bool permite_descuadre = fdm().valor<Llave::PermitirDescuadrados>();
    QVector<Comprobante> todos = comprobantes();
    QStringList omitidos;
    if (!permite_descuadre)
        todos.removeIf([&](const Comprobante& c) {
            if (cuadra(c))
                return false;
            omitidos << c.numero;
            return true;
        });
    constexpr int kCaben = 15; // en un mensaje
    if (QStringList textos = rehusados(todos); !textos.isEmpty()) {
        const qsizetype mas = textos.size() - kCaben;
        textos = textos.mid(0, kCaben);
        if (mas > 0)
            textos << QString("... y %1 más.").arg(mas);
        muestre_mensaje("No se grabó ningún comprobante.\n" + textos.join('\n'));
        return;
    }
    avise_omitidos(omitidos);
    CMovimiento.Params["ID"] = -1;
    CMovimiento.Open();
    int fallas = 0;
    {
        AvisoTrabajo aviso(this, "Preparando los comprobantes...");
        for (qsizetype i = 0; i < todos.size(); ++i) {
            agregue(todos[i]);
            if (i % 20 == 0)
                aviso.diga("Preparando los comprobantes...", int(i), int(todos.size()));
        }
        aviso.diga(
            concuerde(todos.size(), "Grabando %1 comprobante...", "Grabando %1 comprobantes..."));
        fallas = grabe_y_anuncie(CMovimiento, concuerde(todos.size(), "Grabado un comprobante",
                                                        "Grabados %1 comprobantes"));
    }
    if (fallas == 0) {
        emit fdmcnt().balance_por_recalcular();
        deja_borrador_ = !omitidos.isEmpty() && deje_las_omitidas();
        grabado_ = omitidos.isEmpty() || deja_borrador_;
        if (grabado_) {
            close();
            return;
        }
        muestre_mensaje("Las filas omitidas no se pudieron guardar en este equipo: siguen en la "
                        "planilla para corregirlas.");
    }
    // Otro intento empieza de la hoja, que sigue como estaba.
    CMovimiento.CancelUpdates();
    CMovimiento.Close();
}

bool Tfplanilladatos::deje_las_omitidas() {
    CVirtdata.Filtered(false);
    for (int i = CVirtdata.RecordCount() - 1; i >= 0; --i) {
        const FilaPlanilla fila =
            fila_de([&](const Campo& campo) { return CVirtdata.valor_en(i, campo); });
        if (!cuadra(comprobante_de_fila(planilla_, fila)))
            continue;
        CVirtdata.vaya_a(i);
        CVirtdata.Delete();
    }
    return borrador_ && borrador_->guarde();
}

void Tfplanilladatos::avise_omitidos(const QStringList& numeros) {
    QStringList renglones;
    for (const QString& numero : numeros)
        renglones << "No puede grabar un comprobante descuadrado. Se omite el comprobante " +
                         numero;
    if (!renglones.isEmpty())
        muestre_mensaje(renglones.join('\n') +
                        "\nAl abrir otra vez esta planilla se ofrecen las filas omitidas.");
}

bool Tfplanilladatos::FormClose() {
    const bool hay = CVirtdata.Active() && (!CVirtdata.IsEmpty() || CVirtdata.Modified());
    if (!grabado_ && hay &&
        !pregunte_con_no("Desea salir de la planilla y perder los movimientos que no ha grabado?"))
        return false;
    CVirtdata.Cancel();
    CVirtdata.Close();
    if (deja_borrador_)
        delete std::exchange(borrador_, nullptr); // suelta el archivo para la próxima hoja
    else if (borrador_)
        borrador_->descarte();
    CMovimiento.Close();
    return true;
}
