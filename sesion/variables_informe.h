#pragma once
// Variables que llevan todos los informes de la contabilidad.
class MotorInformes;
class QString;

/// NomCia, Titulo y Usuario, en ese orden; NitCia; Rango, que es el título mientras el informe no
/// dé uno mejor; Pie, el título con sus rótulos separados, y las palabras de los importes en
/// letras.
void fije_variables(MotorInformes& motor, const QString& titulo);
