#include "exchange/tfexportar.h"

#include "datos/firebird/concuerde.h"
#include "datos/firebird/reloj.h"
#include "exchange/pch.h"
#include "toolkit/controles/fecha_contable.h"
#include "toolkit/controles/lista_tecleo.h"
#include "toolkit/pida_archivo.h"

namespace {

QLineEdit* caja(const char* nombre, int largo = 0) {
    auto* c = new QLineEdit;
    c->setObjectName(nombre);
    if (largo > 0)
        c->setMaxLength(largo);
    return c;
}

} // namespace

Tfexportar::Tfexportar() : Pantalla("Tfexportar", "Exportación de movimientos") {
    campos_tipos_comprobante(CTipo);
    construya();
}

void Tfexportar::construya() {
    FecIni = caja("FecIni", 8);
    FecFin = caja("FecFin", 8);
    admita_barras(FecIni);
    admita_barras(FecFin);
    Archivo = caja("Archivo");
    Pref = caja("Pref", 4);
    LTipo = lista_tecleo("LTipo", {"Todos"});
    LSepara = lista_tecleo("LSepara",
                           {"Coma (,)", "Punto y coma (;)", "Tabulador", "Ninguno (Ancho fijo)"});
    LDestino = lista_tecleo("LDestino", {"SIIGO", "WEB GERENCIAL", "CSV", "ISIS"});
    ckfcontado = new QCheckBox("Omitir facturas de contado");
    ckfcontado->setObjectName("ckfcontado");
    auto* examinar = new QPushButton("E&xaminar");
    examinar->setObjectName("Examinar");
    connect(examinar, &QPushButton::clicked, this,
            [this] { proteja([this] { ExaminarClick(); }); });
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Exportar", "document-send", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBConfigurar", "F5:Equivalencias", "preferences-system", Qt::Key_F5,
                 [] { pantallas().abrir("Tfconfexporta"); });
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario f(this);
    f.fila({{"Desde (aaaammdd)", FecIni}, {"Hasta (aaaammdd)", FecFin}});
    f.fila("&Archivo", Formulario::junto({Archivo, examinar}));
    f.fila({{"&Tipo", LTipo}, {"&Prefijo", Pref}});
    f.fila({{"&Separador", LSepara}, {"&Destino", LDestino}});
    f.fila("", ckfcontado);
    f.estire().botones(barra);
    enter_como_tab();
    tamano(640, 320);
}

void Tfexportar::FormCreate() {
    fdm().ConfigurarProviders(this);
    CTipo.Open();
    CTipo.FetchAll();
    for (CTipo.First(); !CTipo.Eof(); CTipo.Next())
        LTipo->addItem(CTipo.FieldByName("TICO_NOM").texto(),
                       CTipo.FieldByName("TICO_COD").texto());
    FecIni->setFocus();
}

bool Tfexportar::FormClose() {
    CTipo.Close();
    return true;
}

void Tfexportar::ExaminarClick() {
    // El archivo que ya está se pregunta al grabarlo: el nombre se puede escribir a mano.
    if (const auto escogido = pida_archivo(this, {.nombre = "escoger_archivo",
                                                  .titulo = "Archivo de la exportación",
                                                  .sugerido = Archivo->text(),
                                                  .filtro = "Texto (*.txt *.csv);;Todos (*)",
                                                  .reemplaza = false}))
        Archivo->setText(escogido->ruta);
}

std::optional<PeticionExportacion> Tfexportar::pedido() {
    const auto rehuse = [](QWidget* donde, const QString& texto) {
        muestre_mensaje(texto);
        donde->setFocus();
        return std::nullopt;
    };
    for (QLineEdit* fecha : {FecIni, FecFin})
        if (const auto r = revise_fecha(fecha->text().trimmed()))
            return rehuse(fecha, r->texto);
    PeticionExportacion p;
    p.desde = FecIni->text().trimmed();
    p.hasta = FecFin->text().trimmed();
    if (p.hasta < p.desde)
        return rehuse(FecFin, "La fecha final debe ser mayor o igual que la inicial.");
    p.archivo = Archivo->text().trimmed();
    if (p.archivo.isEmpty())
        return rehuse(Archivo, "Debe indicar el archivo en que se graba la exportación.");
    p.destino = DestinoExportacion(LDestino->currentIndex());
    p.separador = QStringLiteral(",;\t")[qMin(LSepara->currentIndex(), 2)];
    if (LSepara->currentIndex() == 3)
        p.separador = QChar();
    if (p.separador.isNull() && p.destino == DestinoExportacion::Csv)
        return rehuse(LSepara, "El formato CSV necesita un separador: escoja uno.");
    p.tipo = LTipo->currentData().toString();
    p.prefijo = Pref->text().trimmed();
    p.omita_contado = ckfcontado->isChecked();
    p.hoy = reloj().hoy();
    return p;
}

void Tfexportar::SpeedButton1Click() {
    const auto p = pedido();
    if (!p)
        return;
    QStringList existentes;
    if (p->destino != DestinoExportacion::WebGerencial && QFileInfo::exists(p->archivo))
        existentes << p->archivo;
    if (!existentes.isEmpty() &&
        !pregunte_con_no(
            QStringLiteral("El archivo %1 ya existe. Desea reemplazarlo?").arg(p->archivo)))
        return;
    const ResultadoExportacion r = exporte_movimientos(fdm().Quorvex, *p);
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(concuerde(r.registros, "Exportado %1 registro", "Exportados %1 registros"));
    const QString sin_tercero =
        r.sin_tercero == 0 ? QString()
                           : QStringLiteral("\nLíneas sin tercero, que este formato no lleva: %1.")
                                 .arg(r.sin_tercero);
    muestre_mensaje(p->destino == DestinoExportacion::WebGerencial
                        ? QStringLiteral("PROCESO FINALIZADO. SE GENERARON LOS ARCHIVOS "
                                         "COMPROBANTES.TXT Y TRANSACCIONES.TXT EN LA CARPETA "
                                         "INDICADA.")
                        : QStringLiteral("PROCESO FINALIZADO. SE GENERÓ EL ARCHIVO %1 CON %2 "
                                         "REGISTROS.")
                                  .arg(p->archivo, QString::number(r.registros)) +
                              sin_tercero);
}
