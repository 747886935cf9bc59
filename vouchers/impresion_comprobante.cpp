#include "vouchers/impresion_comprobante.h"

#include "sesion/instalacion.h"
#include "toolkit/barrabotones.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "vouchers/interprete_formato.h"

#include <QScopeGuard>

namespace {
constexpr const char* kFormatoBase = "0000";
} // namespace

ImpresionComprobante::ImpresionComprobante(const QString& clase, const QString& titulo)
    : Pantalla(clase, titulo) {
    CComproba.texto("TIPO", 3);
    CComproba.texto("PREF", 4);
    CComproba.texto("NUMERO", 6);
    CComproba.texto("FECHA", 8).fijo();
    CComproba.texto("CONCEPTO", 60);
    CComproba.texto("REFER", 8);
    CComproba.texto("NOMTIPO", 60);
    CComproba.entero("ITEM");
    CComproba.texto("CUENTA", 20);
    CComproba.texto("NOMCUENTA", 60);
    CComproba.texto("NIT", 20);
    CComproba.texto("NOMTERCERO", 60);
    CComproba.texto("PROYECTO", 4);
    CComproba.texto("CENTRO", 4);
    for (const char* nombre : {"NOMPROY", "NOMCENT", "ITCONCEPTO"})
        CComproba.texto(nombre, 60);
    CComproba.texto("ITREFER", 8);
    CComproba.texto("ARTICULO", 15);
    CComproba.texto("NOMARTIC", 60);
    CComproba.decimal("DEBITO");
    CComproba.decimal("CREDITO");
    CComproba.decimal("BASE");
    CComproba.decimal("PORC", 4);
    CComproba.texto("NUMDOC", 10);
    CComproba.texto("NUMAPLICA", 10);
    CComproba.texto("VENCE", 8).fijo();
    CComproba.texto("TIPODOC", 8);
    CComproba.texto("TIPODOCAP", 8);
    CComproba.texto("NITENC", 20);
    CComproba.texto("NOMENC", 60);
    CComproba.decimal("MONTO");
    CComproba.texto("FTO", 1);
    CComproba.decimal("MONEDA");
    CComproba.calculado("NETO", ClaseCampo::Decimal, 2);
    CComproba.OnCalcFields = [this] {
        CComproba.FieldByName("NETO") =
            CComproba.FieldByName("DEBITO").moneda() - CComproba.FieldByName("CREDITO").moneda();
    };
    CComproba.agregado("SumDb", "sum(DEBITO)");
    CComproba.agregado("SumCr", "sum(CREDITO)");
    CComproba.Instantanea = true;
    CFormdatos.anide_en(&CFormato, &fdm().Tformadatos);
    CFormlineas.anide_en(&CFormato, &fdm().Tformalineas);
}

void ImpresionComprobante::FormCreate() {
    fdm().ConfigurarProviders(this);
}

void ImpresionComprobante::arme_botones(Formulario& f) {
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.botones(barra);
    tecla(Qt::Key_Return, "SpeedButton1");
    tecla(Qt::Key_F10, "formato base", [this] {
        // Si no alcanza a imprimir, el F2 que siga vuelve al formato del tipo.
        const auto vuelva = qScopeGuard([this] { formato_base = false; });
        formato_base = true;
        SpeedButton1Click();
    });
}

bool ImpresionComprobante::imprima(MotorInformes& motor, const QString& id, bool niif,
                                   bool masiva) {
    CComproba.Close();
    CComproba.Open((niif ? "select * from impr_comprobante_niif("
                         : "select * from "
                           "impr_comprobante(") +
                   id + ")");
    // Los totales del formato cuentan todas las líneas, también las que aún no se han traído.
    CComproba.FetchAll();
    const auto cierre = qScopeGuard([this] { CComproba.Close(); });
    if (CComproba.IsEmpty()) {
        muestre_mensaje("El comprobante ya no existe: otro usuario lo eliminó.");
        return true;
    }
    return CComproba.FieldByName("FTO").texto() == "S" ? por_formato(motor, id, masiva)
                                                       : por_plantilla(motor, niif);
}

bool ImpresionComprobante::por_plantilla(MotorInformes& motor, bool niif) {
    motor.ProjectFile = ruta_informe("comprobantes.rav");
    motor.abrir_proyecto(motor.ProjectFile);
    motor.fijar_parametro("Compania", fdm().valor<Llave::NombreCompania>());
    motor.fijar_parametro("Usuario", fdm().nombre_usuario);
    motor.fijar_parametro("NitCia", fdm().valor<Llave::NitCompania>());
    motor.fijar_parametro("Libro", niif ? "NIIF" : "2649");
    motor.conecte("RComproba", CComproba);
    const bool carta = fdm().valor<Llave::PapelComprobantes>() == QLatin1String("CARTA");
    const QString reporte = carta ? "Comprobante" : "Comprobantemed";
    motor.seleccionar_reporte(reporte);
    if (niif)
        motor.fijar_texto(reporte + ".Page1", "Text21", "Comprobante contable NIIF");
    const bool salio = motor.ejecutar();
    motor.cerrar();
    return salio;
}

bool ImpresionComprobante::abra_formato() {
    const QString tipo = CComproba.FieldByName("TIPO").texto().trimmed();
    QString filtro = "tido_cod = 1 and pref_pre = ";
    if (formato_base) {
        filtro += QuotedStr(kFormatoBase);
    } else {
        // La llave puede ser el prefijo al definir el formato, pero aquí siempre se busca por tipo.
        (void)fdm().valor<Llave::FormatoPorTipo>();
        filtro += QuotedStr(tipo);
    }
    if (formato_abierto_ != filtro || !CFormato.Active()) {
        CFormato.Close();
        CFormato.Filter(filtro);
        CFormato.Filtered(true);
        CFormato.Open();
        formato_abierto_ = filtro;
    }
    if (!CFormato.IsEmpty())
        return true;
    muestre_mensaje("No se encontró el formato de impresión para el comprobante " + tipo);
    return false;
}

bool ImpresionComprobante::por_formato(MotorInformes& motor, const QString& id, bool masiva) {
    if (!abra_formato())
        return true;
    InterpreteFormato interprete({CFormato, CFormdatos, CFormlineas}, CComproba, id);
    interprete.graficos_a_su_tamano = masiva;
    return motor.ejecutar_trabajo([&](informes::Hojas& hojas) { interprete.imprima(hojas); });
}
