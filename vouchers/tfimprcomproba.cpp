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
    arme_botones(f);
    tamano(400, 160);
}

void Tfimprcomproba::SpeedButton1Click() {
    MotorInformes motor(this);
    motor.nombre_archivo = "Comprobante";
    motor.al_componer = [this] { CComproba.Close(); };
    imprima(motor, peticion<AbreComprobante>().comprobante_encontrado, ckniif->isChecked(), false);
    close();
}
