#include "posting/tfresumencontab.h"

#include "datos/firebird/concuerde.h"
#include "posting/pch.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/texto_de_fila.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

namespace {

/// En el orden en que se listan: lo que pide hacer algo va primero.
struct DatosDesenlace {
    Desenlace desenlace;
    const char *nombre, *uno, *varios;
};
const DatosDesenlace kDesenlaces[] = {
    {Desenlace::Fallo, "Falló", "%1 con falla", "%1 con falla"},
    {Desenlace::EnEspera, "En espera", "%1 en espera", "%1 en espera"},
    {Desenlace::Contabilizado, "Contabilizado", "%1 contabilizado", "%1 contabilizados"},
};

} // namespace

Tfresumencontab::Tfresumencontab() : Pantalla("Tfresumencontab", "Resumen de la contabilización") {
    CResumen.texto("RESULTADO", 14);
    CResumen.texto("TIPO", 10);
    CResumen.texto("PREFIJO", 4);
    CResumen.texto("NUMERO", 8);
    CResumen.fecha("FECHA");
    CResumen.texto("MOTIVO", 4000);
    CResumen.entero("CUAL");
    ECuenta = new QLabel;
    ECuenta->setObjectName("ECuenta");
    DBGridEh1 = new Rejilla(this, &CResumen);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Documentos del lote");
    DBGridEh1->ReadOnly = true;
    DBGridEh1->nombre_archivo = "ResumenContab";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->columnas({{"RESULTADO", "Resultado", 13},
                         {"TIPO", "Tipo", 11},
                         {"PREFIJO", "Prefijo", 8},
                         {"NUMERO", "Número", 9},
                         {"FECHA", "Fecha", 11},
                         {"MOTIVO", "Motivo", 56}});
    DBGridEh1->texto_vacio = "El lote no tenía documentos.";
    DBGridEh1->OnDblClick = [this](int) { BitBtn1Click(); };
    DBGridEh1->OnReturn = [this] { BitBtn1Click(); };
    EMotivo = new TextoDeFila(CResumen, "MOTIVO", "EMotivo", "Motivo", 4);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("BitBtn1", "F2:Ir al documento", "go-jump", Qt::Key_F2,
                                  [this] { BitBtn1Click(); }));
    barra->separe();
    barra->boton("BitBtn2", "Esc:Salir", "window-close", Qt::Key_Escape,
                 [this] { resultado_modal(mrCancel); });
    Formulario(this).ancha(ECuenta, 0).ancha(DBGridEh1).ancha(EMotivo, 0).botones(barra);
    tamano(860, 480);
}

void Tfresumencontab::FormCreate() {
    const AbreResumen pedido = peticion<AbreResumen>();
    QStringList cuentas;
    for (const DatosDesenlace& d : kDesenlaces)
        cuentas.prepend(concuerde(
            std::count_if(pedido.resultados.begin(), pedido.resultados.end(),
                          [&d](const ResultadoDocumento& r) { return r.desenlace == d.desenlace; }),
            d.uno, d.varios));
    if (pedido.sin_empezar > 0)
        cuentas << QStringLiteral("%1 sin empezar").arg(pedido.sin_empezar);
    ECuenta->setText(cuentas.join(", ") + '.');
    CResumen.CreateDataSet();
    llene(pedido.resultados);
    DBGridEh1->setFocus();
}

void Tfresumencontab::llene(const QVector<ResultadoDocumento>& resultados) {
    CResumen.DisableControls();
    for (const DatosDesenlace& d : kDesenlaces)
        for (qsizetype i = 0; i < resultados.size(); ++i) {
            const ResultadoDocumento& r = resultados[i];
            if (r.desenlace != d.desenlace)
                continue;
            CResumen.Append();
            CResumen.FieldByName("RESULTADO") = QString::fromUtf8(d.nombre);
            CResumen.FieldByName("TIPO") = r.documento.tipo;
            CResumen.FieldByName("PREFIJO") = r.documento.prefijo;
            CResumen.FieldByName("NUMERO") = r.documento.numero;
            CResumen.FieldByName("FECHA") = Valor(r.documento.fecha);
            CResumen.FieldByName("MOTIVO") = r.motivo.left(4000);
            CResumen.FieldByName("CUAL") = i;
            CResumen.Post();
        }
    CResumen.EnableControls();
    CResumen.First();
}

void Tfresumencontab::BitBtn1Click() {
    if (CResumen.IsEmpty())
        return;
    responda<AbreResumen>(int(CResumen.FieldByName("CUAL").entero()));
    resultado_modal(mrOk);
}
