#include "exchange/forma_mantenimiento.h"

#include "exchange/caja_de_codigo.h"
#include "exchange/pch.h"
#include "libro/catalogos.h"
#include "sesion/indices_catalogos.h"
#include "toolkit/aviso_trabajo.h"
#include "toolkit/controles/editor_sugerido.h"
#include "toolkit/controles/fecha_contable.h"
#include "toolkit/controles/lista_tecleo.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace {
/// Con más renglones, lo pendiente de los saldos se pasa de una vez y no en los ratos libres.
constexpr qint64 kMuchosRenglones = 2000;
} // namespace

FormaMantenimiento::FormaMantenimiento(const QString& clase, const QString& titulo)
    : Pantalla(clase, titulo), Aviso(new QLabel(this)) {
    campos_tipos_comprobante(CTipo);
    Aviso->setObjectName("Aviso");
    Aviso->setTextFormat(Qt::PlainText);
    Aviso->setWordWrap(true);
    enter_como_tab();
}

// ---------------------------------------------------------------- construcción

QLineEdit* FormaMantenimiento::caja(const QString& nombre, int largo) {
    auto* c = new QLineEdit;
    c->setObjectName(nombre);
    c->setMaxLength(largo);
    mida_como_codigo(*c);
    return c;
}

CajaSugerida* FormaMantenimiento::caja_de_codigo(const QString& nombre) {
    auto* c = new CajaSugerida;
    c->setObjectName(nombre);
    c->setMaxLength(20);
    mida_como_codigo(*c);
    c->setToolTip("? y parte del nombre abre la lista");
    c->installEventFilter(this);
    return c;
}

QLineEdit* FormaMantenimiento::caja_cuenta(const QString& nombre,
                                           std::function<void(const QString&)> al_dejarla) {
    CajaSugerida* c = caja_de_codigo(nombre);
    c->Sugiere = [this](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().cuentas(libro()).busque(tecleado);
    };
    cajas_[c] = {std::move(al_dejarla),
                 [this](QLineEdit* destino) {
                     escoja_cuenta(*this, libro(), destino->text().mid(1),
                                   [destino](const QString& cuenta) {
                                       destino->setText(cuenta);
                                       destino->setFocus();
                                   });
                 },
                 {},
                 true};
    return c;
}

QLineEdit* FormaMantenimiento::caja_tercero(const QString& nombre,
                                            std::function<void(const QString&)> al_dejarla) {
    CajaSugerida* c = caja_de_codigo(nombre);
    c->Sugiere = [](const QString& tecleado) {
        return IndicesCatalogos::de_la_sesion().terceros().busque(tecleado);
    };
    cajas_[c] = {std::move(al_dejarla),
                 [this](QLineEdit* destino) {
                     escoja_tercero(*this, destino->text().mid(1), [destino](const QString& nit) {
                         destino->setText(nit);
                         destino->setFocus();
                     });
                 },
                 {}};
    return c;
}

QLabel* FormaMantenimiento::rotulo(const QString& nombre, QLineEdit* caja) {
    auto* l = new QLabel;
    l->setObjectName(nombre);
    l->setTextFormat(Qt::PlainText);
    l->setMinimumWidth(l->fontMetrics().horizontalAdvance('n') * 34);
    if (caja)
        connect(caja, &QLineEdit::textEdited, l, [this, caja, l] {
            l->clear();
            cajas_[caja].vista.clear();
        });
    return l;
}

QCheckBox* FormaMantenimiento::casilla(const QString& nombre, const QString& texto) {
    auto* c = new QCheckBox(texto);
    c->setObjectName(nombre);
    return c;
}

QComboBox* FormaMantenimiento::lista_tipos(const QString& todos) {
    LTipo = new ListaTecleo;
    LTipo->setObjectName("LTipo");
    if (!todos.isEmpty())
        LTipo->addItem(todos, QString());
    return LTipo;
}

void FormaMantenimiento::arme_fechas(Formulario& f) {
    FecIni = caja("FecIni", 8);
    FecFin = caja("FecFin", 8);
    admita_barras(FecIni);
    admita_barras(FecFin);
    f.fila({{"Desde (aaaammdd)", FecIni}, {"Hasta (aaaammdd)", FecFin}});
}

void FormaMantenimiento::arme_botones(Formulario& f, const QString& texto) {
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", texto, "system-run",
                                  texto.startsWith("F5") ? Qt::Key_F5 : Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.ancha(Aviso, 0).estire().botones(barra);
}

// ---------------------------------------------------------------- vida

void FormaMantenimiento::FormCreate() {
    fdm().ConfigurarProviders(this);
    if (QWidget* primero = ckniif ? static_cast<QWidget*>(ckniif) : FecIni)
        primero->setFocus();
    if (ckniif)
        connect(ckniif, &QCheckBox::toggled, this, [this] { relea_cajas(); });
    if (!LTipo)
        return;
    CTipo.Open();
    CTipo.FetchAll();
    for (CTipo.First(); !CTipo.Eof(); CTipo.Next())
        LTipo->addItem(CTipo.FieldByName("TICO_NOM").texto(),
                       CTipo.FieldByName("TICO_COD").texto());
}

bool FormaMantenimiento::FormClose() {
    validando_ = true; // la caja que suelta el teclado al irse la ventana ya no se revisa
    CTipo.Close();
    return true;
}

bool FormaMantenimiento::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::FocusIn && cajas_.contains(objeto))
        proteja([&] {
            auto& indices = IndicesCatalogos::de_la_sesion();
            cajas_[objeto].de_cuenta ? indices.refresque_cuentas(libro())
                                     : indices.refresque_terceros();
        });
    if (evento->type() == QEvent::FocusOut && cajas_.contains(objeto) && !validando_ &&
        static_cast<QFocusEvent*>(evento)->reason() != Qt::ActiveWindowFocusReason) {
        auto* c = static_cast<QLineEdit*>(objeto);
        Caja& memoria = cajas_[objeto];
        const QString texto = c->text().trimmed();
        if (!texto.isEmpty() && texto != memoria.vista) {
            memoria.vista = texto;
            const QScopedValueRollback<bool> guarda(validando_, true);
            if (texto.startsWith('?'))
                proteja([&] { memoria.busque(c); });
            else if (memoria.al_dejarla)
                proteja([&] { memoria.al_dejarla(texto); });
        }
    }
    return Pantalla::eventFilter(objeto, evento);
}

void FormaMantenimiento::relea_cajas() {
    const QScopedValueRollback<bool> guarda(validando_, true);
    for (auto i = cajas_.begin(); i != cajas_.end(); ++i) {
        const QString texto = static_cast<QLineEdit*>(i.key())->text().trimmed();
        if (texto.isEmpty() || texto.startsWith('?') || !i->al_dejarla)
            continue;
        i->vista = texto;
        proteja([&] { i->al_dejarla(texto); });
    }
}

// ---------------------------------------------------------------- lo común

Libro FormaMantenimiento::libro() const {
    return ckniif && ckniif->isChecked() ? Libro::Niif : Libro::Decreto2649;
}

QString FormaMantenimiento::exija_cuenta(const QString& cuenta) {
    const QString nombre = nombre_en_el_plan(fdm().Quorvex, libro(), cuenta);
    if (nombre.isEmpty())
        muestre_mensaje("La cuenta " + cuenta + " no existe.");
    return nombre;
}

QString FormaMantenimiento::exija_tercero(const QString& nit) {
    const QString nombre = dato("select terc_nom from terceros where terc_nit = " + QuotedStr(nit));
    if (nombre.isEmpty())
        muestre_mensaje("El tercero " + nit + " no existe.");
    return nombre;
}

QString FormaMantenimiento::cuenta_de(QLineEdit* caja) {
    const QString cuenta = caja->text().trimmed();
    if (cuenta.isEmpty())
        rehuse(caja, "Debe indicar la cuenta.");
    if (exija_cuenta(cuenta).isEmpty())
        rehuse(caja, {});
    return cuenta;
}

QString FormaMantenimiento::tercero_de(QLineEdit* caja) {
    const QString nit = caja->text().trimmed();
    if (nit.isEmpty())
        rehuse(caja, "Debe indicar el tercero.");
    if (exija_tercero(nit).isEmpty())
        rehuse(caja, {});
    return nit;
}

std::optional<bool> FormaMantenimiento::hay_movimientos(const QString& nit, const QString& cuenta) {
    const QString desde = FecIni->text().trimmed(), hasta = FecFin->text().trimmed();
    if (revise_fecha(desde) || revise_fecha(hasta))
        return {};
    QString sql = QStringLiteral("select count(*) from %1 where enco_consec in (select enco_consec "
                                 "from comprobante_encabezado where enco_fecha >= ")
                      .arg(QLatin1String(datos(libro()).detalle)) +
                  QuotedStr(desde) + " and enco_fecha <= " + QuotedStr(hasta) + ")";
    if (!nit.isEmpty())
        sql += " and terc_nit = " + QuotedStr(nit);
    if (!cuenta.isEmpty())
        sql += " and cuen_cod = " + QuotedStr(cuenta);
    return dato(sql) != "0";
}

std::optional<RangoFechas> FormaMantenimiento::fechas() {
    for (QLineEdit* c : {FecIni, FecFin})
        if (const auto r = revise_fecha(c->text().trimmed())) {
            muestre_mensaje(r->texto);
            c->setFocus();
            return {};
        }
    const RangoFechas r{FecIni->text().trimmed(), FecFin->text().trimmed()};
    if (r.hasta < r.desde) {
        muestre_mensaje("La fecha final debe ser mayor o igual que la inicial.");
        FecFin->setFocus();
        return {};
    }
    return r;
}

bool FormaMantenimiento::confirme(const CifrasMantenimiento& cifras, const QString& pregunta) {
    if (cifras.negativa.isEmpty())
        return pregunte_con_no(pregunta);
    muestre_mensaje(cifras.negativa);
    return false;
}

void FormaMantenimiento::anuncie(const QString& texto) {
    Aviso->setText(texto);
    Aviso->repaint();
}

void FormaMantenimiento::mire(const QString& aviso, const std::function<void()>& trabajo) {
    const auto al_salir = qScopeGuard([this] {
        Aviso->clear();
        QApplication::restoreOverrideCursor();
    });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    anuncie(aviso);
    repinte_lo_descubierto();
    trabajo();
}

void FormaMantenimiento::trabaje(const QString& aviso,
                                 const std::function<CifrasMantenimiento()>& trabajo,
                                 const QString& sin_cifras) {
    // También si falla: un trabajo de los dos libros puede haber cambiado ya el primero.
    const auto al_salir = qScopeGuard([] { emit fdmcnt().balance_por_recalcular(); });
    CifrasMantenimiento hecho;
    mire(aviso, [&] {
        hecho = trabajo();
        if (hecho.renglones > kMuchosRenglones)
            compacte_lo_pendiente(fdm().Quorvex, [this](qint64 van) {
                anuncie(QStringLiteral("Poniendo los saldos al día: %1 ...").arg(van));
            });
    });
    AvisosBarra* barra = fdm().barra();
    const QString que = hecho.comprobantes > 0 ? hecho.cuantos() : sin_cifras;
    if (barra && !que.isEmpty())
        barra->texto(windowTitle() + ": " + que);
}

void FormaMantenimiento::pida_revision(QWidget* donde, const QString& cuenta) {
    fdm().mostrar_advertencia("Revise lo que exige la cuenta " + cuenta + " y oprima F2 otra vez.");
    donde->setFocus();
}

void FormaMantenimiento::rehuse(QWidget* donde, const QString& texto) {
    if (!texto.isEmpty())
        muestre_mensaje(texto);
    donde->setFocus();
    throw EdicionAbortada();
}

void FormaMantenimiento::SpeedButton1Click() {
    if (corra())
        close();
}
