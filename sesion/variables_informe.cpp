#include "sesion/variables_informe.h"

#include "sesion/tfdm.h"
#include "toolkit/informes/motor.h"

void fije_variables(MotorInformes& motor, const QString& titulo) {
    motor.fijar_parametro("NomCia", fdm().valor<Llave::NombreCompania>());
    motor.fijar_parametro("Titulo", titulo);
    motor.fijar_parametro("Usuario", fdm().nombre_usuario);
    motor.fijar_parametro("NitCia", fdm().valor<Llave::NitCompania>());
    motor.fijar_parametro("Rango", titulo);
    const auto letras = [](const char* clave) {
        return fdm().configuracion("GENERAL", "GENERAL", clave);
    };
    motor.fijar_letras(letras("NOMBRE DE LA MONEDA A USAR EN LOS MONTOS EN LETRAS"),
                       letras("FRACCION DE MONEDA EN MONTOS EN LETRAS"),
                       letras("FINAL DE LA CADENA DE MONTOS EN LETRAS"));
}
