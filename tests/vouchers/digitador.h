#pragma once
// Un contador que solo usa el teclado, sobre la pantalla de comprobantes.
#include "apoyo_gui/sesion_gui.h"
#include "vouchers/registro.h"
#include "vouchers/tfedtmovimien.h"
#include "vouchers/tfmovimien.h"

/// Impresión que se cierra sola: quien digita no la atiende en cada comprobante.
class SinImpresion : public Pantalla {
public:
    SinImpresion() : Pantalla("Tfimprcomproba") {}
    void FormCreate() override { pida_cierre_al_crear(); }
};

struct Digitador {
    explicit Digitador(SesionGui& sesion, bool imprime = false) : s(sesion) {
        registre_pantallas_comprobantes();
        if (!imprime)
            pantallas().registre("Tfimprcomproba", [] { return new SinImpresion; });
        s.cnt.dia_actual = "05";
        s.dm.barra(&barra);
    }
    ~Digitador() { s.dm.barra(nullptr); }

    void configure(const QString& categoria, const QString& propiedad, const QString& valor) {
        s.base.base().ejecute(
            "update configuracion set conf_valor = " + QuotedStr(valor) +
            " where conf_modulo = 'CONTABILIDAD' and conf_categoria = " + QuotedStr(categoria) +
            " and conf_propiedad = " + QuotedStr(propiedad));
        s.dm.cargue_configuracion();
    }
    Tfmovimien* abra() { return p = s.abra<Tfmovimien>("Tfmovimien"); }
    /// Con el encabezado puesto.
    Tfmovimien* comience(const QString& tipo, const QString& dia, const QString& concepto) {
        abra();
        encabezado(tipo, dia, concepto);
        return p;
    }
    /// Lo mismo, y el cursor en la primera línea.
    Tfmovimien* abra(const QString& tipo, const QString& dia, const QString& concepto) {
        comience(tipo, dia, concepto);
        entre_a_la_rejilla();
        return p;
    }

    /// Encabezado: tipo, día y concepto, desde la lista de tipos.
    void encabezado(const QString& tipo, const QString& dia, const QString& concepto) {
        p->LTipo->setFocus();
        // la primera palabra de su nombre: un blanco desplegaría la lista
        const QString nombre =
            s.dato("select tico_nom from tipo_comprobante where tico_cod = " + QuotedStr(tipo));
        digite(nombre.section(' ', 0, 0));
        QCOMPARE(p->LTipo->valor().texto(), tipo);
        redigite(p->EDia, dia);
        digite_en(p->DBEdit1, concepto, Qt::Key_Tab);
    }
    /// El prefijo que se numera a mano, y su número.
    void numere_a_mano(const QString& numero) {
        oprima_en(p->LPref, Qt::Key_Down);
        renumere(numero);
    }
    void renumere(const QString& numero) { redigite(p->ENumero, numero); }
    void redigite(QLineEdit* caja, const QString& texto) {
        caja->setFocus();
        caja->selectAll();
        digite(texto, Qt::Key_Tab);
    }
    Rejilla& rejilla() { return *p->lineas_a_la_vista().rejilla; }
    void entre_a_la_rejilla() {
        rejilla().setFocus();
        rejilla().SelectedIndex(0);
    }
    /// Recorre una línea celda por celda con Enter; "" deja la celda como esté.
    void linea(const QStringList& celdas) { digite_celdas(celdas); }
    /// En una línea nueva, al final.
    void al_final(const QStringList& celdas) {
        entre_a_la_rejilla();
        p->lineas_a_la_vista().detalle.Last();
        oprima(Qt::Key_Down);
        rejilla().SelectedIndex(0);
        linea(celdas);
    }
    /// Dos líneas que cuadran, en la página a la vista.
    void asiento(const QString& debito, const QString& credito, const QString& valor) {
        entre_a_la_rejilla();
        linea({debito, "", "", "", "", "", "", "", "", valor, "", ""});
        linea({credito, "", "", "", "", "", "", "", "", "", valor});
    }
    QString celda(const char* campo) {
        return p->lineas_a_la_vista().detalle.FieldByName(campo).texto();
    }

    SesionGui& s;
    AvisosBarra barra;
    Tfmovimien* p = nullptr;
};

/// Un comprobante recién empezado, con la celda de la primera cuenta por digitar:
///
///     Empezado e("CG", "05", "x");
///     auto& [s, d, p] = e;
struct Empezado {
    SesionGui s;
    Digitador d{s};
    Tfmovimien* p;

    Empezado(const QString& tipo, const QString& dia, const QString& concepto)
        : p(d.abra(tipo, dia, concepto)) {}
};

/// Líneas a las que les falta algo y lo que se dice al dejarlas: en un comprobante y en una
/// plantilla.
struct LineaIncompleta {
    QStringList celdas; ///< hasta la columna en que se sale de la fila
    const char* mensaje;
};
inline const LineaIncompleta kLineasIncompletas[] = {
    {{"130505", "", "", "", "", "", "", "", "", "5"}, "Debe indicar un NIT para el movimiento."},
    {{"236540"}, "Debe indicar un NIT para el movimiento."},
    {{"236540", "900123456"}, "Debe indicar una base para el movimiento."},
    {{"236540", "900123456", "", "", "", "", "", "100"},
     "Debe indicar un porcentaje para el movimiento."},
    {{"413505", "", "0002", "", "", "", "", "", "", "5"},
     "Debe indicar un Proyecto-Centro para el movimiento."},
};

inline Tfedtmovimien* abra_edicion(SesionGui& s, int id) {
    return s.abra<Tfedtmovimien>("Tfedtmovimien", AbreComprobante{QString::number(id)});
}

/// Lo que se contesta antes de que una plantilla reemplace lo digitado.
inline const QString kTraePlantilla =
    "Al traer la plantilla perderá los movimientos digitados en el comprobante, Continuar?";

/// Una plantilla puesta por SQL: encabezado y pares cuenta:débito:crédito en el libro dado.
inline void ponga_plantilla(SesionGui& s, int id, const QString& tipo, const QString& prefijo,
                            const QString& concepto, const QString& refer,
                            const QStringList& lineas = {}, const QString& sufijo = {}) {
    Conexion& b = s.base.base();
    if (sufijo.isEmpty())
        b.ejecute("insert into plantilla_encabezado (plan_id, tico_cod, prco_pref, plan_concepto, "
                  "plan_refer, plan_usuario) values (?, ?, ?, ?, ?, 'OTRO')",
                  {Valor(id), Valor(tipo), Valor(prefijo), Valor(concepto), Valor(refer)});
    int item = 0;
    for (const QString& l : lineas) {
        const QStringList x = l.split(':');
        b.ejecute("insert into plantilla_detalle" + sufijo +
                      " (plan_id, plde_item, cuen_cod, plde_debitos, plde_creditos, plde_base, "
                      "plde_porc) values (?, ?, ?, ?, ?, 0, 0)",
                  {Valor(id), Valor(++item), Valor(x[0]), Valor(Moneda::de_texto(x[1])),
                   Valor(Moneda::de_texto(x[2]))});
    }
}

/// Una plantilla que se escoge en la lista abierta desde el menú.
inline void escoja_sin_que_la_pidan(const QString& id) {
    registre_testigo("TfOtra");
    Pantalla* otra = pantallas().abrir("TfOtra");
    otra->ofrezca<PidePlantilla>(id);
    otra->close();
}

/// Un comprobante puesto por SQL: encabezado y pares cuenta:débito:crédito en el libro dado.
inline void ponga_comprobante(SesionGui& s, int id, const QString& numero, const QString& fecha,
                              const QStringList& lineas,
                              const QString& detalle = "comprobante_detalle", int tiporef = 0,
                              int idref = 0) {
    Conexion& b = s.base.base();
    if (b.consulte("select count(*) from comprobante_encabezado where enco_consec = " +
                   QString::number(id))
            .entero() == 0)
        b.ejecute(QStringLiteral(
                      "insert into comprobante_encabezado (enco_consec, tico_cod, prco_pref, "
                      "enco_numero, enco_fecha, enco_concepto, enco_tiporef, enco_idref, "
                      "enco_usuario, enco_descontable, enco_repniif) values (%1, 'CG', '0001', "
                      "%2, %3, 'Concepto', %4, %5, 'ADMIN', 'S', 'N')")
                      .arg(id)
                      .arg(QuotedStr(numero), QuotedStr(fecha))
                      .arg(tiporef)
                      .arg(idref));
    int item = 0;
    for (const QString& l : lineas) {
        const QStringList x = l.split(':');
        b.ejecute(QStringLiteral("insert into %1 (enco_consec, code_item, cuen_cod, code_debito, "
                                 "code_credito, code_descontable) values (%2, %3, %4, %5, %6, 'S')")
                      .arg(detalle)
                      .arg(id)
                      .arg(++item)
                      .arg(QuotedStr(x[0]), x[1], x[2]));
    }
}
