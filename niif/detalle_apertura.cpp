// El detalle de una cuenta de la apertura NIIF: sus líneas, su nota y su hoja de trabajo.
#include "datos/recordset/consecutivo.h"
#include "datos/recordset/sin_eventos.h"
#include "niif/apertura.h"
#include "niif/paginas.h"
#include "niif/pch.h"
#include "niif/tfbalaperturaniif.h"
#include "sesion/ayuda_al_teclear.h"
#include "toolkit/rejilla/anuncio_pegado.h"

#include <QScopedValueRollback>

namespace {

constexpr int kAncestros = 3;
const QColor kFondoNiif(0xE3, 0xF1, 0xE6), kFondo2649(0xFD, 0xF3, 0xDC);

/// Los códigos que se ofrecen al teclear y los que se exigen al pegar.
void ofrezca_y_exija(Rejilla& lineas) {
    ofrezca_al_teclear(lineas, Libro::Decreto2649, "APND_CUENTA", "TERC_NIT");
    ofrezca_al_teclear(lineas, Libro::Niif, "APND_CTANIIF");
    ofrezca_centros(lineas, "PROY_COD", "CENT_COD");
    ReglasPegado::de(lineas).exija("ACTI_COD", [](const QString& codigo) {
        return fdmcnt().desc_activo(codigo).isEmpty() && fdmArt().desc_articulo(codigo).isEmpty()
                   ? QStringLiteral("El artículo o activo %1 no existe.").arg(codigo)
                   : QString();
    });
}

} // namespace

void Tfbalaperturaniif::defina_lineas() {
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    ConjuntoDatos& c = CAperniifdet;
    const auto valide = [this](Campo& campo) { valide_celda(campo); };
    const auto sume = [this](Campo&) { calcule_saldo_final(); };
    c.texto("CUEN_COD", 20).requerido().banderas(kLlave);
    c.entero("APND_ITEM").requerido().banderas(kLlave).etiqueta("Ítem");
    c.texto("APND_CUENTA", 20).etiqueta("Cuenta").OnChange = valide;
    c.texto("APND_TIPOCTA", 1);
    c.texto("APND_CONCEPTO", 60).etiqueta("Concepto");
    c.decimal("APND_SALDOINI").formato(kImporte).etiqueta("Saldo inicial");
    c.decimal("APND_DEBITO").formato(kImporte).etiqueta("Ajuste débito").OnChange = sume;
    c.decimal("APND_CREDITO").formato(kImporte).etiqueta("Ajuste crédito").OnChange = sume;
    c.decimal("APND_SALDOFIN").formato(kImporte).etiqueta("Saldo final");
    c.blob("APND_ARCHIVO");
    c.texto("APND_CTANIIF", 20).etiqueta("Cuenta NIIF").OnChange = valide;
    c.decimal("APND_RECLDB").formato(kImporte).etiqueta("Reclas. débito").OnChange = sume;
    c.decimal("APND_RECLCR").formato(kImporte).etiqueta("Reclas. crédito").OnChange = sume;
    c.texto("TERC_NIT", 20).etiqueta("Tercero").OnChange = valide;
    c.texto("PROY_COD", 4).etiqueta("Proyecto").OnChange = valide;
    c.texto("CENT_COD", 4).etiqueta("Centro").OnChange = valide;
    c.texto("ACTI_COD", 15).etiqueta("Artículo o activo").OnChange = valide;
    for (const char* celda :
         {"APND_CUENTA", "APND_CTANIIF", "TERC_NIT", "PROY_COD", "CENT_COD", "ACTI_COD"})
        pregunta_.atienda(c.FieldByName(celda));
    c.agregado("Sumadebito", "Sum(APND_DEBITO)");
    c.agregado("Sumacredito", "sum(APND_CREDITO)");
    c.agregado("SumaRecldb", "sum(apnd_recldb)");
    c.agregado("SumaReclcr", "sum(apnd_reclcr)");
    c.CampoConsecutivo = "APND_ITEM";
    c.AfterInsert = [this] { CAperniifdetAfterInsert(); };
    c.BeforePost = [this] {
        if (CAperniifdet.FieldByName("APND_CUENTA").vacio() &&
            CAperniifdet.FieldByName("APND_CTANIIF").vacio()) {
            CAperniifdet.Cancel();
            throw EdicionAbortada();
        }
    };
    c.AfterPost = c.AfterDelete = [this] { muestre_sumas(); };
}

QWidget* Tfbalaperturaniif::pagina_detalle() {
    auto* pagina = new QGroupBox("Detalle calculos");
    NomDetalle = new QLineEdit;
    NomDetalle->setObjectName("NomDetalle");
    NomDetalle->setReadOnly(true);
    NomDetalle->setFocusPolicy(Qt::NoFocus);
    Ancestros = new QLabel;
    Ancestros->setObjectName("Ancestros");
    Ancestros->setTextFormat(Qt::PlainText);
    Ancestros->setWordWrap(true); // en letra grande no ensancha la pantalla
    DBGridEh2 = new Rejilla(pagina, &CAperniifdet);
    DBGridEh2->setObjectName("DBGridEh2");
    DBGridEh2->setAccessibleName("Líneas de la cuenta");
    DBGridEh2->columnas({{"APND_CUENTA", "Cuenta", 12},
                         {"APND_CTANIIF", "Cuenta NIIF", 12},
                         {"APND_CONCEPTO", "Concepto", 22},
                         {"TERC_NIT", "Tercero", 13},
                         {"PROY_COD", "Proy", 6},
                         {"CENT_COD", "Centro", 7},
                         {"ACTI_COD", "Artíc./activo", 11},
                         {"APND_SALDOINI", "Saldo inicial", 15, SoloLectura},
                         {"APND_DEBITO", "Ajuste DB", 14, Suma},
                         {"APND_CREDITO", "Ajuste CR", 14, Suma},
                         {"APND_RECLDB", "Reclas. DB", 14, Suma},
                         {"APND_RECLCR", "Reclas. CR", 14, Suma},
                         {"APND_SALDOFIN", "Saldo final", 15, SoloLectura | Suma}});
    DBGridEh2->setMinimumHeight(DBGridEh2->fontMetrics().height() * 7);
    DBGridEh2->pie(true);
    ofrezca_y_exija(*DBGridEh2);
    DBGridEh2->enter_como_tab = true;
    DBGridEh2->reclama_escape = true;
    DBGridEh2->texto_vacio = "Sin líneas: Insert agrega la primera.";
    DBGridEh2->OnGetCellParams = [this](int fila, QFont&, QColor&, QColor& fondo) {
        const bool niif = !CAperniifdet.valor_en(fila, CAperniifdet.FieldByName("APND_CTANIIF"))
                               .texto()
                               .isEmpty();
        fondo = niif ? kFondoNiif : kFondo2649;
    };
    const auto suma = [](const char* nombre) {
        EditorNumero* e = EditorNumero::de_saldo();
        e->setObjectName(nombre);
        return e;
    };
    DetDebito = suma("DetDebito");
    DetCredito = suma("DetCredito");
    APNI_NOTA = new MemoDato(&CSaldos, "APNI_NOTA");
    APNI_NOTA->setObjectName("APNI_NOTA");
    APNI_NOTA->setTabChangesFocus(true);
    APNI_NOTA->lineas(3);
    auto* barra = new BarraBotones(this);
    barra->boton("AdvGlowButton3", "F2:Continuar", "dialog-ok-apply", {},
                 [this] { AdvGlowButton3Click(); });
    barra->boton("AdvGlowButton7", "F5:Hoja trabajo", "x-office-spreadsheet", {},
                 [this] { AdvGlowButton7Click(); });
    barra->boton("AdvGlowButton4", "Esc:Cancelar", "dialog-cancel", {},
                 [this] { cierre_detalle(); });
    Formulario f(pagina);
    f.fila("Cuenta", NomDetalle);
    f.ancha(Ancestros, 0);
    f.ancha(DBGridEh2, 1);
    f.fila({{"Dif. débito", DetDebito}, {"Dif. crédito", DetCredito}});
    f.fila("&Nota", APNI_NOTA);
    return con_botones(pagina, barra);
}

QWidget* Tfbalaperturaniif::pagina_hoja() {
    auto* pagina = new QGroupBox("Hoja de trabajo");
    LHoja = new QLabel;
    LHoja->setObjectName("LHoja");
    LHoja->setTextFormat(Qt::PlainText);
    LHoja->setWordWrap(true);
    auto* barra = new BarraBotones(this);
    barra->boton("AdvGlowButton5", "F2:Continuar", "dialog-ok-apply", {},
                 [this] { AdvGlowButton5Click(); });
    barra->boton("AdvGlowButton6", "Esc:Cancelar", "dialog-cancel", {},
                 [this] { AdvGlowButton6Click(); });
    Formulario(pagina).ancha(LHoja, 1);
    return con_botones(pagina, barra);
}

// ---------------------------------------------------------------- abrir y cerrar el panel

void Tfbalaperturaniif::AdvGlowButton1Click() {
    const QString cuenta = CAjusniif.FieldByName("CODIGO").texto();
    if (cuenta.isEmpty())
        return;
    fila_nueva_ = !CSaldos.Locate("CUEN_COD", {cuenta});
    if (!fila_nueva_) {
        CSaldos.Edit();
    } else {
        CSaldos.Append();
        CSaldos.FieldByName("CUEN_COD") = cuenta;
        CSaldos.FieldByName("APNI_CUENNIIF") = CAjusniif.FieldByName("CUENTANIIF").valor();
        for (const char* campo :
             {"APNI_SALDOANT", "APNI_AJUSTEDB", "APNI_AJUSTECR", "APNI_SALDONIIF"})
            CSaldos.FieldByName(campo) = Moneda();
        CSaldos.Post();
        CSaldos.Edit();
    }
    lineas_antes_ = lineas_del_detalle();
    NomDetalle->setText(cuenta + ' ' + CAjusniif.FieldByName("NOMBRE").texto());
    muestre_ancestros();
    muestre_sumas();
    CAperniifdet.First();
    DBGridEh2->SelectedIndex(0); // no en la celda en que quedó otra cuenta
    muestre_pagina(Detalle);
}

void Tfbalaperturaniif::muestre_ancestros() {
    QStringList nombres;
    QString cuenta = CAjusniif.FieldByName("CODIGO").texto();
    for (int i = 0; i < kAncestros; ++i) {
        cuenta = fdmcnt().padre(cuenta);
        if (cuenta.isEmpty())
            break;
        nombres.prepend(cuenta + ' ' + fdmcnt().nom_cuenta(cuenta));
    }
    Ancestros->setText(nombres.join("  ›  "));
}

void Tfbalaperturaniif::muestre_sumas() {
    if (trayendo_)
        return;
    const Moneda diferencia = CAperniifdet.agregado_total("Sumadebito").moneda() -
                              CAperniifdet.agregado_total("Sumacredito").moneda();
    DetDebito->vacie();
    DetCredito->vacie();
    if (diferencia > Moneda())
        DetDebito->valor(diferencia);
    else
        DetCredito->valor(-diferencia);
}

void Tfbalaperturaniif::AdvGlowButton3Click() {
    if (CAperniifdet.editando()) {
        if (CAperniifdet.FieldByName("APND_CUENTA").vacio() &&
            CAperniifdet.FieldByName("APND_CTANIIF").vacio())
            CAperniifdet.Cancel();
        else
            CAperniifdet.Post();
    }
    const Moneda debitos = CAperniifdet.agregado_total("Sumadebito").moneda(),
                 creditos = CAperniifdet.agregado_total("Sumacredito").moneda();
    if (!CAperniifdet.IsEmpty() && debitos.texto() != creditos.texto()) {
        muestre_mensaje("No puede grabar un ajuste NIIF descuadrado.");
        CAperniifdet.Edit();
        return;
    }
    if (CSaldos.editando())
        CSaldos.Post();
    muestre_pagina(Principal);
}

bool Tfbalaperturaniif::hay_detalle_por_perder() const {
    return APNI_NOTA->modificado() || CSaldos.Modified() || CAperniifdet.Modified() ||
           lineas_del_detalle() != lineas_antes_;
}

QMap<qint64, QVector<Valor>> Tfbalaperturaniif::lineas_del_detalle() const {
    QMap<qint64, QVector<Valor>> lineas;
    CAperniifdet.recorra_todas([&](const Fila& fila) {
        auto& linea =
            lineas[CAperniifdet.valor_de(fila, CAperniifdet.FieldByName("APND_ITEM")).entero()];
        for (int i = 0; i < CAperniifdet.FieldCount(); ++i)
            linea << CAperniifdet.valor_de(fila, CAperniifdet.Fields(i));
    });
    return lineas;
}

void Tfbalaperturaniif::reponga_lineas() {
    ConjuntoDatos& c = CAperniifdet;
    const SinEventos callado(c);
    auto faltan = lineas_antes_;
    const auto ponga = [&c](const QVector<Valor>& linea) {
        for (int i = 0; i < c.FieldCount(); ++i)
            if (c.Fields(i).valor() != linea[i])
                c.Fields(i) = linea[i];
        c.Post();
    };
    for (int i = c.RecordCount() - 1; i >= 0; --i) {
        c.vaya_a(i);
        const qint64 item = c.FieldByName("APND_ITEM").entero();
        if (!faltan.contains(item)) {
            c.Delete();
            continue;
        }
        c.Edit();
        ponga(faltan.take(item));
    }
    for (const QVector<Valor>& linea : std::as_const(faltan)) {
        c.Append();
        ponga(linea);
    }
}

void Tfbalaperturaniif::cierre_detalle() {
    if (hay_detalle_por_perder() &&
        !pregunte_con_no("Desea salir del detalle y perder los cambios que no ha aceptado?"))
        return;
    APNI_NOTA->restaure();
    CAperniifdet.Cancel();
    if (lineas_del_detalle() != lineas_antes_)
        reponga_lineas();
    CSaldos.Cancel();
    // Solo se miró: una fila vacía no deja traer los saldos después.
    if (fila_nueva_ && CAperniifdet.IsEmpty() && CSaldos.FieldByName("APNI_ARCHIVO").nulo())
        CSaldos.Delete();
    muestre_pagina(Principal);
}

// ---------------------------------------------------------------- líneas

void Tfbalaperturaniif::CAperniifdetAfterInsert() {
    if (trayendo_)
        return;
    const QString cuenta = CSaldos.FieldByName("CUEN_COD").texto();
    const QScopedValueRollback<bool> guarda(recibiendo_, true);
    CAperniifdet.FieldByName("APND_ITEM") = mayor_de(CAperniifdet, "APND_ITEM") + 1;
    CAperniifdet.FieldByName("CUEN_COD") = cuenta;
    CAperniifdet.FieldByName("APND_CUENTA") = cuenta;
    for (const char* campo : {"APND_DEBITO", "APND_CREDITO", "APND_RECLDB", "APND_RECLCR"})
        CAperniifdet.FieldByName(campo) = Moneda();
    const Moneda saldo = fdm()
                             .Quorvex
                             .consulte("Select * from saldo_cuenta_mes(" + QuotedStr(cuenta) + "," +
                                       QuotedStr(EAno->text()) + ",1,'S')")
                             .moneda();
    CAperniifdet.FieldByName("APND_SALDOINI") = saldo;
    CAperniifdet.FieldByName(saldo > Moneda() ? "APND_RECLCR" : "APND_RECLDB") = saldo.absoluta();
    calcule_saldo_final();
}

void Tfbalaperturaniif::calcule_saldo_final() {
    if (trayendo_)
        return;
    const auto valor = [this](const char* c) { return CAperniifdet.FieldByName(c).moneda(); };
    CAperniifdet.FieldByName("APND_SALDOFIN") =
        saldo_de_linea(valor("APND_SALDOINI"), valor("APND_DEBITO"), valor("APND_CREDITO"),
                       valor("APND_RECLDB"), valor("APND_RECLCR"));
}

void Tfbalaperturaniif::valide_celda(Campo& campo) {
    if (trayendo_ || recibiendo_ || pregunta_.reponiendo() || campo.vacio())
        return;
    const QString texto = campo.texto(), nombre = campo.FieldName;
    const bool busca = pregunta_.tome(campo).has_value(); // sin escoger queda lo que había
    const auto reciba_en = [this, nombre](const QString& valor) { reciba(nombre, valor); };
    if (nombre == "APND_CUENTA" || nombre == "APND_CTANIIF") {
        const Libro libro = nombre == "APND_CUENTA" ? Libro::Decreto2649 : Libro::Niif;
        if (busca)
            escoja_cuenta(*this, libro, texto.mid(1), reciba_en, campo.texto());
        else if (!fdmcnt().valide_cuenta(texto, libro))
            reciba(nombre, {});
    } else if (nombre == "TERC_NIT") {
        if (busca)
            escoja_tercero(*this, texto.mid(1), reciba_en, campo.texto());
        else if (!fdmter().valide_tercero(texto))
            reciba(nombre, {});
    } else if (nombre == "ACTI_COD") {
        valide_articulo(texto, reciba_en);
    } else if (busca) {
        escoja_centro(*this,
                      [this](const CentroEscogido& c) {
                          reciba("PROY_COD", c.proyecto_seleccion);
                          reciba("CENT_COD", c.centro_seleccion);
                      },
                      {CAperniifdet.FieldByName("PROY_COD").texto(),
                       CAperniifdet.FieldByName("CENT_COD").texto()});
    } else if (const QString proyecto = CAperniifdet.FieldByName("PROY_COD").texto();
               nombre == "CENT_COD" && !proyecto.isEmpty() &&
               !fdmcnt().valide_centro(proyecto, texto)) {
        reciba(nombre, {});
    }
}

void Tfbalaperturaniif::valide_articulo(const QString& texto,
                                        const std::function<void(const QString&)>& reciba_en) {
    // En una cuenta de inventarios es un artículo; en las demás, un activo fijo.
    const QString niif = CAperniifdet.FieldByName("APND_CTANIIF").texto();
    const Libro libro = niif.isEmpty() ? Libro::Decreto2649 : Libro::Niif;
    const QString cuenta = niif.isEmpty() ? CAperniifdet.FieldByName("APND_CUENTA").texto() : niif;
    const bool inventario =
        fdm()
            .Quorvex
            .consulte(QStringLiteral("select cuen_tipo from %1 where cuen_cod = ")
                          .arg(QLatin1String(datos(libro).cuentas)) +
                      QuotedStr(cuenta))
            .texto() == "I";
    if (texto.startsWith('?')) {
        const QString actual =
            texto.size() > 1 ? texto.mid(1) : CAperniifdet.FieldByName("ACTI_COD").texto();
        if (inventario)
            escoja_articulo(*this, reciba_en, actual);
        else
            escoja_activo(*this, reciba_en, actual);
    } else if (inventario && !fdmArt().valide_articulo(texto)) {
        reciba("ACTI_COD", {});
    } else if (!inventario && fdmcnt().desc_activo(texto).isEmpty()) {
        muestre_mensaje("El activo fijo " + texto + " no existe.");
        reciba("ACTI_COD", {});
    }
}

void Tfbalaperturaniif::reciba(const QString& campo, const QString& valor) {
    const QScopedValueRollback<bool> guarda(recibiendo_, true);
    if (!CAperniifdet.editando())
        CAperniifdet.Edit();
    CAperniifdet.FieldByName(campo) = valor;
}

void Tfbalaperturaniif::sugiera_db_cr() {
    if (CAperniifdet.IsEmpty() && !CAperniifdet.editando())
        return;
    DBGridEh2->escriba_pendiente();
    const auto valor = [this](const char* c) { return CAperniifdet.FieldByName(c).moneda(); };
    if (!valor("APND_DEBITO").es_cero() || !valor("APND_CREDITO").es_cero())
        return;
    const Lados lados = lados_que_cuadran(CAperniifdet.agregado_total("Sumadebito").moneda(),
                                          CAperniifdet.agregado_total("Sumacredito").moneda());
    if (!CAperniifdet.editando())
        CAperniifdet.Edit();
    CAperniifdet.FieldByName("APND_DEBITO") = lados.debito;
    CAperniifdet.FieldByName("APND_CREDITO") = lados.credito;
}

void Tfbalaperturaniif::cuadre_o_abra_hoja() {
    DBGridEh2->escriba_pendiente();
    if (CAperniifdet.agregado_total("Sumadebito").moneda() ==
        CAperniifdet.agregado_total("Sumacredito").moneda())
        AdvGlowButton7Click();
    else
        sugiera_db_cr();
}

// ---------------------------------------------------------------- hoja de trabajo

void Tfbalaperturaniif::AdvGlowButton7Click() {
    const QString cuenta = CSaldos.FieldByName("CUEN_COD").texto();
    hoja.abra(cuenta, CSaldos.FieldByName("APNI_ARCHIVO").valor().binario());
    LHoja->setText("La hoja de la cuenta " + cuenta +
                   " está abierta en el programa de hojas de cálculo.\n\nGuárdela allí con el "
                   "mismo nombre, cierre el programa y oprima F2 para traerla. Con Esc se deja "
                   "como estaba.\n\n" +
                   hoja.ruta());
    if (!hoja.rescatada().isEmpty())
        LHoja->setText(LHoja->text() +
                       "\n\nUna vez anterior no se alcanzó a traer; lo que había "
                       "en ella está en " +
                       hoja.rescatada());
    muestre_pagina(Hoja);
    paginas->currentWidget()->findChild<QPushButton*>("AdvGlowButton5")->setFocus();
}

void Tfbalaperturaniif::AdvGlowButton5Click() {
    if (hoja.en_uso()) {
        muestre_mensaje("Guarde la hoja y cierre el programa de hojas de cálculo antes de "
                        "continuar.");
        return;
    }
    const QByteArray libro = hoja.recoja();
    if (!CSaldos.editando())
        CSaldos.Edit();
    CSaldos.FieldByName("APNI_ARCHIVO") = Valor(libro);
    CSaldos.Post();
    CSaldos.Edit();
    hoja.termine();
    muestre_pagina(Detalle);
}

void Tfbalaperturaniif::AdvGlowButton6Click() {
    hoja.termine();
    muestre_pagina(Detalle);
}
