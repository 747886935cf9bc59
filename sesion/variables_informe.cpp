#include "sesion/variables_informe.h"

#include "sesion/tfdm.h"
#include "toolkit/informes/motor.h"

#include <QRegularExpression>

namespace {

/// El título que compone el programa pega los rótulos a sus datos, "Cuentas:11...1399Fechas:2017",
/// y lleva las fechas como se guardan; en la hoja se leen como las demás.
QString con_espacios(QString titulo) {
    static const QRegularExpression tras_rotulo("(?<=\\p{L}):(?=[^\\s:])");
    static const QRegularExpression ante_rotulo("(?<=[\\p{Lu}\\d.])(?=\\p{Lu}\\p{Ll}+:)");
    static const QRegularExpression fechas("(?<=Fechas: )(\\d{4})(\\d\\d)(\\d\\d)\\.{3}"
                                           "(\\d{4})(\\d\\d)(\\d\\d)");
    return titulo.replace(tras_rotulo, ": ")
        .replace(ante_rotulo, " ")
        .replace(fechas, "\\1/\\2/\\3...\\4/\\5/\\6");
}

} // namespace

void fije_variables(MotorInformes& motor, const QString& titulo) {
    motor.fijar_parametro("NomCia", fdm().valor<Llave::NombreCompania>());
    motor.fijar_parametro("Titulo", titulo);
    motor.fijar_parametro("Usuario", fdm().nombre_usuario);
    motor.fijar_parametro("NitCia", fdm().valor<Llave::NitCompania>());
    motor.fijar_parametro("Rango", titulo);
    motor.fijar_parametro("Pie", con_espacios(titulo));
    const auto letras = [](const char* clave) {
        return fdm().configuracion("GENERAL", "GENERAL", clave);
    };
    motor.fijar_letras(letras("NOMBRE DE LA MONEDA A USAR EN LOS MONTOS EN LETRAS"),
                       letras("FRACCION DE MONEDA EN MONTOS EN LETRAS"),
                       letras("FINAL DE LA CADENA DE MONTOS EN LETRAS"));
}
