#include "vouchers/lineas_propuesta.h"

#include "datos/recordset/sin_eventos.h"
#include "toolkit/rejilla/paso_atras.h"
#include "vouchers/pch.h"

#include <QScopeGuard>

namespace {

const CamposLinea kDePropuesta{
    .linea = {.debito = "CNDE_DEBITOS",
              .credito = "CNDE_CREDITOS",
              .cuenta = "CNDE_CUENTA",
              .tercero = "CNDE_TERC",
              .proyecto = "CNDE_PROY",
              .centro = "CNDE_CENTRO"},
    .item = "CNDE_ITEM",
    .concepto = "CNDE_CONC",
    .referencia = "CNDE_REF",
    .base = "CNDE_BASE",
    .porcentaje = "CNDE_PORC",
    .categoria = "CNDE_CONCOD",
    .articulo = "CNDE_ARTICULO",
    .concepto_encabezado = "CNTB_CONCEPTO",
    .referencia_encabezado = "CNTB_REF",
    .dif_debito = "Difdeb",
    .dif_credito = "DifCred",
    .dif_debito_niif = "DifDebN",
    .dif_credito_niif = "DifCreN",
    .referencia_antes = true,
    .columnas_libres = true,
    .comilla_en_celda = true,
    .memoria_comun = true,
    .tarifa_del_2649 = true,
    .base_con_signo = true,
    .pregunta_con_los_dos = true,
    .exige_valor = true,
    .solo_nombres = true,
    .completa_con_la_cuenta = false,
};

} // namespace

LineasPropuesta::LineasPropuesta(Libro l, AnfitrionLineas& anfitrion, ConjuntoDatos& d,
                                 ConjuntoDatos& consulta, MemoriasLinea& memorias,
                                 const AjustesLinea& ajustes, QObject* dueno)
    : LineasLibro(l, kDePropuesta, anfitrion, d, consulta, memorias, ajustes, dueno) {
    siempre_recuerda_tercero = true;
}

void LineasPropuesta::defina_campos(ConjuntoDatos& d) {
    d.entero("CNTB_ID").requerido();
    d.entero("CNDE_ITEM").requerido();
    d.texto("CNDE_CUENTA", 20).requerido().etiqueta("Cuenta");
    d.texto("CNDE_TERC", 20).etiqueta("Tercero");
    d.texto("CNDE_PROY", 4).etiqueta("Proyecto");
    d.texto("CNDE_CENTRO", 4).etiqueta("Centro");
    d.texto("CNDE_CONC", 60).etiqueta("Concepto");
    d.decimal("CNDE_BASE").formato("#,###.00").etiqueta("Base");
    d.decimal("CNDE_PORC", 4).formato("#,##0.####").tasa().etiqueta("Porcentaje");
    d.decimal("CNDE_DEBITOS").formato("#,###.00").etiqueta("Débito");
    d.decimal("CNDE_CREDITOS").formato("#,###.00").etiqueta("Crédito");
    d.texto("CNDE_REF", 8).etiqueta("Referencia");
    d.fecha("CNDE_DOCVENCE").etiqueta("Vencimiento");
    d.entero("CNDE_DOCTIPON");
    d.entero("CNDE_DOCTIPOA");
    d.texto("CNDE_CONCOD", 4).etiqueta("Categoría");
    d.texto("CNDE_ARTICULO", 15).etiqueta("Artículo");
    d.texto("CNDE_DOCNUMERO", 10).etiqueta("Documento");
    d.texto("CNDE_DOCAPLICAR", 10).etiqueta("Documento que se aplica");
    d.agregado("SumDebitos", "sum(cnde_debitos)");
    d.agregado("SumCreditos", "sum(cnde_creditos)");
}

QString LineasPropuesta::filtro() const {
    return QStringLiteral("CNDE_ITEM %1 %2").arg(es_niif(libro) ? ">=" : "<").arg(kPrimerItemNiif);
}

Moneda LineasPropuesta::sume(const char* lado) const {
    const Campo &item = campo(c_.item), &valor = campo(lado);
    Moneda suma;
    detalle.recorra_todas([&](const Fila& f) {
        if ((detalle.valor_de(f, item).entero() >= kPrimerItemNiif) == es_niif(libro))
            suma += detalle.valor_de(f, valor).moneda();
    });
    return suma;
}

bool LineasPropuesta::cuadrada() const {
    const Campo& valor = campo(n_.debito);
    return valor.presente(Valor(suma_debito())) == valor.presente(Valor(suma_credito()));
}

bool LineasPropuesta::hay_agregadas() const {
    const Campo& item = campo(c_.item);
    bool hay = false;
    detalle.recorra_todas([&](const Fila& f) {
        hay |= f.marca == Fila::Marca::Insertada &&
               (detalle.valor_de(f, item).entero() >= kPrimerItemNiif) == es_niif(libro);
    });
    return hay;
}

void LineasPropuesta::exija_agregadas() {
    for (int i = 0; i < detalle.RecordCount(); ++i) {
        if (detalle.marca_en(i) != Fila::Marca::Insertada)
            continue;
        {
            const SinEventos callado(detalle);
            detalle.vaya_a(i);
        }
        try {
            exija_completa();
        } catch (...) {
            muestre_linea();
            rejilla->setFocus();
            throw;
        }
    }
    detalle.Cancel(); // la que se abrió al pasar de página
}

void LineasPropuesta::pregunte_por(int columna) {
    if (columna > kCentro)
        return;
    if (detalle.IsEmpty())
        detalle.Insert();
    else
        detalle.Edit();
    if (columna == kCuenta || columna == kTercero) {
        Campo& celda = campo(columna == kCuenta ? n_.cuenta : n_.tercero);
        celda = '?' + celda.texto();
        se_pregunto(); // con el ratón, sin dejar la celda
        return;
    }
    campo(n_.centro) = QStringLiteral("?");
    if (PreguntaEnCampo::es(campo(n_.centro).texto())) // sin proyecto espera por el suyo
        campo(n_.proyecto) = QStringLiteral("?");
    se_pregunto();
}

void LineasPropuesta::validar_centro() {
    const QString proyecto = campo(n_.proyecto).texto(), centro = campo(n_.centro).texto();
    if (proyecto.isEmpty() || centro.isEmpty())
        return;
    if (busque_proyecto() || busque_centro())
        return;
    QString sql = "select proy_cod, cent_cod from centros where proy_cod = " + QuotedStr(proyecto) +
                  " and cent_cod = " + QuotedStr(centro);
    if (ajustes().filtra_centros && fdm().sucursal_usuario != 0)
        sql += QStringLiteral(" and ((sucu_id = 0) or (sucu_id = %1))").arg(fdm().sucursal_usuario);
    consulta_.Open(sql);
    if (!consulta_.IsEmpty()) {
        muestre_nombres();
        return;
    }
    muestre_mensaje("Centro-subcentro no encontrado.");
    campo(n_.proyecto).limpie();
    campo(n_.centro).limpie();
}

// ---------------------------------------------------------------- pegar y deshacer

void LineasPropuesta::pegue_lo_copiado() {
    const auto filas = anuncie_pegado(false);
    if (!filas)
        return;
    prepare_pegado();
    con(QStringLiteral("lo pegado"), [&] { rejilla->pegue(*filas); });
}

LineasPropuesta::Lineas LineasPropuesta::lea_lineas(bool con_la_que_nace) const {
    Lineas lineas;
    for (int i = 0; i < detalle.RecordCount(); ++i) {
        if (!con_la_que_nace && detalle.marca_en(i) == Fila::Marca::Nueva)
            continue;
        QVector<Valor> valores;
        for (int k = 0; k < detalle.FieldCount(); ++k)
            valores << detalle.valor_en(i, detalle.Fields(k));
        lineas[detalle.valor_en(i, campo(c_.item)).entero()] = valores;
    }
    return lineas;
}

void LineasPropuesta::con(const QString& que, const std::function<void()>& cambio) {
    const Lineas antes = lea_lineas(false), habia = lea_lineas(true);
    // También lo que quedó a medias por una falla se puede deshacer; y si se desistió, lo anterior
    // todavía se puede deshacer.
    const auto anote = qScopeGuard([&] {
        try {
            Lineas quedan = lea_lineas(true);
            if (quedan == habia)
                return;
            antes_ = antes;
            despues_ = std::move(quedan);
            que_ = que;
        } catch (...) {
            antes_.reset(); // no se sabe a qué se volvería
        }
    });
    cambio();
}

void LineasPropuesta::deshaga() {
    if (!antes_) {
        QApplication::beep();
        return;
    }
    if (lea_lineas(true) != despues_ && !confirme_deshacer(que_))
        return;
    reponga(*std::exchange(antes_, std::nullopt));
    detalle.First();
    vacie_pie();
    muestre_linea();
}

void LineasPropuesta::reponga(const Lineas& lineas) {
    const SinEventos callado(detalle);
    detalle.Cancel();
    for (int i = detalle.RecordCount() - 1; i >= 0; --i)
        if (!lineas.contains(detalle.valor_en(i, campo(c_.item)).entero())) {
            detalle.vaya_a(i);
            detalle.Delete();
        }
    for (auto i = lineas.begin(); i != lineas.end(); ++i) {
        if (detalle.Locate(c_.item, {i.key()}))
            detalle.Edit();
        else
            detalle.Append();
        for (int k = 0; k < detalle.FieldCount(); ++k)
            if (Campo& c = detalle.Fields(k);
                c.tipo == TipoCampo::Datos && c.valor() != i.value()[k])
                c = i.value()[k];
        detalle.Post();
    }
}
