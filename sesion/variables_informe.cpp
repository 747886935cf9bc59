#include "sesion/variables_informe.h"

#include "sesion/tfdm.h"
#include "toolkit/informes/motor.h"

void fije_variables(MotorInformes& motor, const QString& titulo) {
    motor.fijar_parametro("NomCia", fdm().valor<Llave::NombreCompania>());
    motor.fijar_parametro("Titulo", titulo);
    motor.fijar_parametro("Usuario", fdm().nombre_usuario);
}
