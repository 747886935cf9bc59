#include "tax/variables_certificado.h"

#include "sesion/tfdm.h"
#include "toolkit/informes/motor.h"

void fije_compania(MotorInformes& motor) {
    motor.fijar_parametro("NitCia", fdm().valor<Llave::NitCompania>());
    motor.fijar_parametro("DirCia", fdm().valor<Llave::DireccionCompania>());
    motor.fijar_parametro("CiuCia", fdm().valor<Llave::CiudadCompania>());
    motor.fijar_parametro("Firma", fdm().valor<Llave::FirmaCertificados>());
    motor.fijar_parametro("Cargo", fdm().valor<Llave::CargoCertificados>());
}
