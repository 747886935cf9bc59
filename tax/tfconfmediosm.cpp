#include "tax/tfconfmediosm.h"

#include "catalogues/grabe_y_anuncie.h"
#include "datos/recordset/consecutivo.h"
#include "sesion/tfdm.h"
#include "tax/cuentas_configuradas.h"
#include "tax/tfmediosmag13.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/rejilla/rejilla.h"

#include <QRegularExpression>
#include <array>

namespace {

/// Las columnas de cuentas, en el orden de la rejilla.
constexpr std::array kCuentasConfmediosm{"MMCU_CUENTA",     "MMCU_CTARTF",   "MMCU_CTAIVA",
                                         "MMCU_CTARTIVA",   "MMCU_CTAIVAND", "MMCU_CTARCREE",
                                         "MMCU_CTARTCREEAS"};

/// Hasta cuál columna muestra un formato, y cómo titula las dos primeras si las cambia.
struct RejillaFormato {
    int codigo, ultima;
    const char *primera = nullptr, *segunda = nullptr;
};
constexpr RejillaFormato kFormatos[] = {{1004, 1, "Valor pagado", "Descuento"},
                                        {1005, 1, "IVA descontable", "IVA dev.ventas"},
                                        {1006, 1, "IVA generado", "IVA dev.compras"},
                                        {1007, 1, "Ingresos", "Devoluciones"}};

RejillaFormato rejilla_de(int formato) {
    const int codigo = QString::number(formato).left(4).toInt();
    if (codigo == 1001) // la versión 9 trajo el CREE
        return {codigo, QString::number(formato).mid(4).toInt() >= 9 ? 6 : 4};
    for (const RejillaFormato& r : kFormatos)
        if (r.codigo == codigo)
            return r;
    return {codigo, 0};
}

} // namespace

Tfconfmediosm::Consultas Tfconfmediosm::cree_consultas() {
    Consultas c{new Sentencia(nullptr, "QCambiosit", fdm().Quorvex),
                new Sentencia(nullptr, "Qmmcuentas", fdm().Quorvex,
                              // COME_ITEM lleva hasta las cuentas el número con que el concepto
                              // se grabe.
                              "SELECT M.*, cast(MMCU_ITEM as integer) COME_ITEM FROM "
                              "MEDIOSMAG_CUENTAS M WHERE MMCU_ITEM = :COME_ITEM order by "
                              "MMCU_CONS")};
    c.cuentas->enlace_maestra(c.conceptos, {"COME_ITEM"});
    return c;
}

Tfconfmediosm::Tfconfmediosm() : Tfconfmediosm(cree_consultas()) {}

Tfconfmediosm::Tfconfmediosm(Consultas consultas)
    : MaestroDetalle("Tfconfmediosm", "Configuración medios magnéticos", "PCambiosit",
                     *consultas.conceptos, poCascadeDeletes | poCascadeUpdates, "CCambiosit",
                     "Cmmcuentas", *consultas.cuentas),
      conceptos_(consultas.conceptos) {
    consultas.conceptos->setParent(this);
    consultas.cuentas->setParent(this);
    constexpr unsigned kLlave = pfInUpdate | pfInWhere | pfInKey;
    maestro_->entero("COME_ITEM").requerido().banderas(kLlave).etiqueta("#");
    maestro_->texto("COME_DESCRIPCION", 60).etiqueta("Descripción");
    maestro_->texto("COME_RESPUESTA", 30).etiqueta("Concepto");
    maestro_->entero("COME_FORMATO").etiqueta("Formato");
    maestro_->decimal("COME_MINIMO").etiqueta("Base Mínima").formato("#,##0.00");
    maestro_->texto("COME_CUENTA", 20);
    maestro_->texto("COME_NATUR", 1).etiqueta("Nat.");
    detalle_->entero("MMCU_CONS").requerido().banderas(kLlave);
    detalle_->entero("MMCU_ITEM");
    detalle_->entero("COME_ITEM");
    maestro_->CampoConsecutivo = "COME_ITEM"; // dos usuarios pueden configurar a la vez
    detalle_->CampoConsecutivo = "MMCU_CONS";
    proveedor_->BeforeUpdateRecord = [this](ConjuntoDatos& c, Fila& fila, ClaseCambio clase) {
        if (&c == detalle_ && clase == ClaseCambio::Insercion)
            (*fila.valores)[c.FieldByName("MMCU_ITEM").indice()] =
                c.valor_de(fila, c.FieldByName("COME_ITEM"));
    };
    const char* const kTitulos[] = {"Cuentas",         "Cta.Rtfte", "Cta. IVA",     "Cta. RtIVA",
                                    "Cta.IVA No Des.", "Rt.CREE",   "Rt.CREE Asum."};
    QVector<DefinicionColumna> columnas;
    for (std::size_t i = 0; i < kCuentasConfmediosm.size(); ++i) {
        atienda_cuenta(*this, detalle_->texto(kCuentasConfmediosm[i], 20).etiqueta(kTitulos[i]),
                       existe_o_se_crea);
        columnas << DefinicionColumna{kCuentasConfmediosm[i], kTitulos[i], 12};
    }
    detalle_->texto("MMCU_NATUR", 1).etiqueta("Nat.");
    columnas << DefinicionColumna{"MMCU_NATUR", "Nat.", 16};
    arme({"Conceptos",
          {{"COME_ITEM", "#", 11, SoloLectura},
           {"COME_RESPUESTA", "Concepto", 9},
           {"COME_DESCRIPCION", "Descripción", 36},
           {"COME_MINIMO", "Base Mínima", 13},
           {"COME_NATUR", "Nat.", 8}},
          5},
         {"Cuentas del concepto", columnas, 5});
    for (Rejilla* r : {DBGridEh1, DBGridEh2}) {
        r->nombre_archivo = "CofCambioFin";
        r->titulo_impreso = windowTitle() + "  %[Today]";
        r->menu_emergente({Rejilla::Cortar, Rejilla::Copiar, Rejilla::Pegar, Rejilla::Borrar,
                           Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    }
    DBGridEh1->lista("COME_NATUR", {"Débito", "Crédito"}, {"D", "C"});
    DBGridEh2->lista("MMCU_NATUR",
                     {"Débito", "Crédito", "Solo débitos", "Solo créditos", "Débito con tercero",
                      "Impuesto al consumo", "Retención asumida", "No se reporta"},
                     {"D", "C", "B", "R", "T", "I", "A", "N"});
    maestro_->BeforePost = [this] { CCambiositBeforePost(); };
    maestro_->AfterInsert = [this] { CCambiositAfterInsert(); };
    detalle_->AfterInsert = [this] { CmmcuentasAfterInsert(); };
    detalle_->BeforePost = [this] { CmmcuentasBeforePost(); };
    barra_->principal(barra_->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                                    [this] { SBGrabarClick(); }));
    barra_->separe();
    barra_->boton("SBCancelar", "Esc:Salir", "window-close", Qt::Key_Escape,
                  [this] { cancele_y_cierre(); });
    tamano(1100, 540);
}

void Tfconfmediosm::FormCreate() {
    fdm().ConfigurarProviders(this);
    formato_ = peticion<AbreConfiguracionMedio>().formato;
    muestre_columnas(formato_);
    conceptos_->SQL = QStringLiteral("SELECT * FROM CONFIGURA_MEDIOSMAG where COME_FORMATO = %1 "
                                     "order by COME_ITEM")
                          .arg(QString::number(formato_));
    const Valor ultimo = fdm().Quorvex.consulte("select max(mmcu_cons) from mediosmag_cuentas");
    siguiente_ = ultimo.nulo() ? 0 : int(ultimo.entero()) + 1;
    maestro_->Open();
    DBGridEh1->setFocus();
}

void Tfconfmediosm::muestre_columnas(int formato) {
    const RejillaFormato r = rejilla_de(formato);
    for (int i = 1; i < int(kCuentasConfmediosm.size()); ++i)
        DBGridEh2->columna(i).Visible = i <= r.ultima;
    if (r.primera) {
        DBGridEh2->columna(0).Titulo = QString::fromUtf8(r.primera);
        DBGridEh2->columna(1).Titulo = QString::fromUtf8(r.segunda);
    }
}

// ---------------------------------------------------------------- filas

void Tfconfmediosm::CCambiositAfterInsert() {
    // El concepto se numera sobre todos los formatos, con los que aún no se graban.
    const qint64 grabado =
        fdm().Quorvex.consulte("select max(come_item) from configura_mediosmag").entero();
    maestro_->FieldByName("COME_ITEM") = mayor_de(*maestro_, "COME_ITEM", grabado) + 1;
    maestro_->FieldByName("COME_FORMATO") = formato_;
    maestro_->FieldByName("COME_NATUR") = "D";
}

void Tfconfmediosm::CCambiositBeforePost() {
    static const QRegularExpression numero("^[0-9]{1,4}$");
    const QString concepto = maestro_->FieldByName("COME_RESPUESTA").texto();
    if (numero.match(concepto).hasMatch())
        return;
    muestre_mensaje(concepto.isEmpty()
                        ? "Debe indicar la cuenta y concepto del tipo de registro"
                        : "El concepto es un número de hasta cuatro cifras, como 5002; cero en los "
                          "formatos que no llevan concepto.");
    throw EdicionAbortada();
}

void Tfconfmediosm::CmmcuentasAfterInsert() {
    for (const char* concepto : {"MMCU_ITEM", "COME_ITEM"})
        detalle_->FieldByName(concepto) = maestro_->FieldByName("COME_ITEM").valor();
    detalle_->FieldByName("MMCU_CONS") = siguiente_++;
}

void Tfconfmediosm::CmmcuentasBeforePost() {
    for (const char* cuenta : kCuentasConfmediosm)
        if (!detalle_->FieldByName(cuenta).vacio())
            return;
    detalle_->Cancel();
}

void Tfconfmediosm::SBGrabarClick() {
    for (ConjuntoDatos* c : {detalle_, maestro_})
        c->CheckBrowseMode();
    grabe_y_anuncie(*maestro_, "Grabado: " + windowTitle());
}
