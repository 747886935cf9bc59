#pragma once
// La compañía y quien firma, para las plantillas de los certificados.
class MotorInformes;

/// NitCia, DirCia, CiuCia, Firma y Cargo, de la configuración.
void fije_compania(MotorInformes& motor);
