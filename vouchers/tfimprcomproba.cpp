#include "vouchers/tfimprcomproba.h"

#include "vouchers/pch.h"

Tfimprcomproba::Tfimprcomproba() : ImpresionComprobante("Tfimprcomproba", "Imprimir comprobante") {
    auto* rotulo = new QLabel("Prepare la impresora y presione Imprimir para generar el "
                              "comprobante");
    rotulo->setObjectName("Label1");
    rotulo->setWordWrap(true);
    rotulo->setAlignment(Qt::AlignCenter);
    ckniif = new QCheckBox("Cuentas NIIF");
    ckniif->setObjectName("ckniif");
    Formulario f(this);
    f.ancha(rotulo);
    f.fila({}, ckniif);
    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SpeedButton1", "F2:Imprimir", "document-print", Qt::Key_F2,
                                  [this] { SpeedButton1Click(); }));
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    f.botones(barra);
    declare_teclas();
    tamano(400, 160);
}

void Tfimprcomproba::SpeedButton1Click() {
    MotorInformes motor(this);
    motor.nombre_archivo = "Comprobante";
    imprima(motor, fdmcnt().comprobante_encontrado, ckniif->isChecked(), false);
    close();
}
