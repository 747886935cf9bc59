#pragma once
// Vocabulario de los formatos de impresión de comprobantes: los datos que un formato puede llevar.
//
// El editor los ofrece en su lista y el intérprete los imprime; el orden es el de sus tablas. Los
// nombres son llaves guardadas en los formatos de los usuarios: no se corrigen.

/// Cómo se imprime un dato.
enum class ClaseDatoFormato {
    Texto,  ///< cadena, desde DAFO_INI y por DAFO_LONG
    Numero, ///< alineado a la derecha, con separadores de miles
    Pesos,  ///< número con el símbolo de moneda
    Imagen  ///< cuadrado de DAFO_LONG unidades
};

struct DatoFormato {
    const char* nombre; ///< DAFO_DATO
    bool detalle;       ///< del pase de detalle (DAFO_REPITE "S"); si no, del de encabezado
    ClaseDatoFormato clase;
};

inline constexpr DatoFormato kDatosFormato[] = {
    {"TIPO", false, ClaseDatoFormato::Texto},
    {"NOMBRE TIPO", false, ClaseDatoFormato::Texto},
    {"PREFIJO", false, ClaseDatoFormato::Texto},
    {"NUMERO", false, ClaseDatoFormato::Texto},
    {"FECHA", false, ClaseDatoFormato::Texto},
    {"CONCEPTO", false, ClaseDatoFormato::Texto},
    {"REFERENCIA", false, ClaseDatoFormato::Texto},
    {"ENCABEZADO NIT", false, ClaseDatoFormato::Texto}, // imprime el nombre, como el que sigue
    {"ENCABEZADO NOMBRE", false, ClaseDatoFormato::Texto},
    {"TOTAL DEBITOS", false, ClaseDatoFormato::Pesos},
    {"TOTAL CREDITOS", false, ClaseDatoFormato::Pesos},
    {"MONTO COMPROBANTE", false, ClaseDatoFormato::Pesos},
    {"MONTO LETRAS", false, ClaseDatoFormato::Texto},
    {"NOMBRE USUARIO", false, ClaseDatoFormato::Texto},
    {"CODIGO USUARIO", false, ClaseDatoFormato::Texto},
    {"NUMERO PAGINA", false, ClaseDatoFormato::Texto},
    {"FECHA REGISTRO", false, ClaseDatoFormato::Texto},
    {"HORA REGISTRO", false, ClaseDatoFormato::Texto},
    {"USUARIO REGISTRO", false, ClaseDatoFormato::Texto},
    {"NOMBRE COMPANIA", false, ClaseDatoFormato::Texto},
    {"DIR COMPANIA", false, ClaseDatoFormato::Texto},
    {"TELS COMPANIA", false, ClaseDatoFormato::Texto},
    {"NIT COMPANIA", false, ClaseDatoFormato::Texto},
    {"ENCABEZA COMPANIA", false, ClaseDatoFormato::Texto},
    {"LOGO COMPANIA", false, ClaseDatoFormato::Imagen},
    {"ITEM", true, ClaseDatoFormato::Texto},
    {"CUENTA", true, ClaseDatoFormato::Texto},
    {"NOMBRE CUENTA", true, ClaseDatoFormato::Texto},
    {"NIT TERCERO", true, ClaseDatoFormato::Texto},
    {"NOMBRE TERCERO", true, ClaseDatoFormato::Texto},
    {"CENTRO COSTO", true, ClaseDatoFormato::Texto},
    {"SUBCENTRO COSTO", true, ClaseDatoFormato::Texto},
    {"NOMBRE CENTRO COSTO", true, ClaseDatoFormato::Texto},
    {"NOMBRE SUBCEBTRO COSTO", true, ClaseDatoFormato::Texto}, // la errata es la llave
    {"CONCEPTO ITEM", true, ClaseDatoFormato::Texto},
    {"REFERENCIA ITEM", true, ClaseDatoFormato::Numero}, // una referencia con letras no convierte
    {"ARTICULO", true, ClaseDatoFormato::Texto},
    {"DESCRIPCION ARTICULO", true, ClaseDatoFormato::Texto},
    {"DEBITO ITEM", true, ClaseDatoFormato::Numero},
    {"CREDITO ITEM", true, ClaseDatoFormato::Numero},
    {"NETO ITEM", true, ClaseDatoFormato::Numero},
    {"BASE ITEM", true, ClaseDatoFormato::Numero},
    {"PORCENTAJE ITEM", true, ClaseDatoFormato::Numero},
    {"DOCUMENTO ITEM", true, ClaseDatoFormato::Texto},
    {"DOCUMENTO APLICACION", true, ClaseDatoFormato::Texto},
    {"DOCUMENTO VENCE", true, ClaseDatoFormato::Texto},
};
