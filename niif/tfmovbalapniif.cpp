#include "niif/tfmovbalapniif.h"

#include "niif/pch.h"
#include "niif/peticiones_niif.h"

Tfmovbalapniif::Tfmovbalapniif()
    : Pantalla("Tfmovbalapniif", "Movimiento balance de apertura NIIF") {
    CMovimiento.texto("CUEN_COD", 20);
    CMovimiento.decimal("APND_SALDOINI").formato(kImporte);
    CMovimiento.texto("APND_CONCEPTO", 60);
    CMovimiento.decimal("APND_DEBITO").formato(kImporte);
    CMovimiento.decimal("APND_CREDITO").formato(kImporte);
    DBGridEh1 = new Rejilla(this, &CMovimiento);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas({{"CUEN_COD", "Cuenta", 14},
                         {"APND_SALDOINI", "Saldo inicial", 18, Suma},
                         {"APND_CONCEPTO", "Concepto", 34},
                         {"APND_DEBITO", "Débito", 18, Suma},
                         {"APND_CREDITO", "Crédito", 18, Suma}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->nombre_archivo = "MovBalApNIIF";
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->texto_vacio = "Ninguna línea de la hoja toca esta cuenta.";
    DBGridEh1->menu_emergente({Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir,
                               Rejilla::VistaPreliminar, Rejilla::Guardar});
    auto* barra = new BarraBotones(this);
    barra->boton("SBImprimir", "F8:Imprimir", "document-print", Qt::Key_F8,
                 [this] { DBGridEh1->ejecute_orden(Rejilla::Imprimir); });
    barra->boton("SBGrabar", "F2:Grabar", "document-save", Qt::Key_F2,
                 [this] { DBGridEh1->ejecute_orden(Rejilla::Guardar); });
    barra->separe();
    barra->boton("SBCancel", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    Formulario(this).ancha(DBGridEh1, 1).botones(barra);
    tamano(860, 420);
}

void Tfmovbalapniif::FormCreate() {
    fdm().ConfigurarProviders(this);
    const auto p = peticion<AbreMovimientoApertura>();
    setWindowTitle(windowTitle() + ' ' + p.cuenta);
    CMovimiento.Open(
        QStringLiteral("select cuen_cod, apnd_saldoini, apnd_concepto, apnd_debito+apnd_recldb "
                       "apnd_debito, apnd_credito+apnd_reclcr apnd_credito from "
                       "apertura_niif_det where %1 = ")
            .arg(QLatin1String(p.niif ? "apnd_ctaniif" : "apnd_cuenta")) +
        QuotedStr(p.cuenta) + " order by cuen_cod, apnd_item");
    DBGridEh1->setFocus();
}

bool Tfmovbalapniif::FormClose() {
    CMovimiento.Close();
    return true;
}
