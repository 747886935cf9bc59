#pragma once
// Los módulos de datos de la suite, que viven lo que la prueba, y un documento que se contabiliza.
#include "apoyo_gui/sesion_gui.h"
#include "posting/documentos_de_prueba.h"
#include "sesion/modulos_suite.h"

struct ModulosDePrueba {
    TfdmInv inv;
    Tfdmcmp cmp;
    Tfdmfact fact;
    Tfdmcar car;
    Tfdmcxp cxp;
    Tfdmcja cja;
    Tfdmbnc bnc;
    Tfdmnomina nomina;
};

/// Una venta a crédito que cuadra: 100.000 y su IVA.
inline DocumentoPrueba venta_de_prueba(const QString& numero = QStringLiteral("000001")) {
    DocumentoPrueba d{31, QStringLiteral("VENTA 100000; IVA 19000; CLIENTE 119000")};
    d.numero = numero;
    d.nit = QStringLiteral("900123456");
    d.centro = QStringLiteral("0002-0001");
    return d;
}
inline const char* const kReglasVenta = "CLIENTE 130505 D tn; VENTA 413505 C c; IVA 240805 C";

inline InterfazPrueba interfaz_de_prueba(const QString& reglas, int id = 1) {
    InterfazPrueba i;
    i.id = id;
    i.reglas = reglas;
    return i;
}
