#pragma once
// Variables que llevan todos los informes de la contabilidad.
class MotorInformes;
class QString;

/// NomCia, Titulo y Usuario, en ese orden.
void fije_variables(MotorInformes& motor, const QString& titulo);
