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
    const char* columna = nullptr; ///< de la consulta; nulo, lo sabe el intérprete
};

inline constexpr DatoFormato kDatosFormato[] = {
    {"TIPO", false, ClaseDatoFormato::Texto, "TIPO"},
    {"NOMBRE TIPO", false, ClaseDatoFormato::Texto, "NOMTIPO"},
    {"PREFIJO", false, ClaseDatoFormato::Texto, "PREF"},
    {"NUMERO", false, ClaseDatoFormato::Texto, "NUMERO"},
    {"FECHA", false, ClaseDatoFormato::Texto, "FECHA"},
    {"CONCEPTO", false, ClaseDatoFormato::Texto, "CONCEPTO"},
    {"REFERENCIA", false, ClaseDatoFormato::Texto, "REFER"},
    {"ENCABEZADO NIT", false, ClaseDatoFormato::Texto,
     "NOMENC"}, // imprime el nombre, como el que sigue
    {"ENCABEZADO NOMBRE", false, ClaseDatoFormato::Texto, "NOMENC"},
    {"TOTAL DEBITOS", false, ClaseDatoFormato::Pesos},
    {"TOTAL CREDITOS", false, ClaseDatoFormato::Pesos},
    {"MONTO COMPROBANTE", false, ClaseDatoFormato::Pesos, "MONTO"},
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
    {"ITEM", true, ClaseDatoFormato::Texto, "ITEM"},
    {"CUENTA", true, ClaseDatoFormato::Texto, "CUENTA"},
    {"NOMBRE CUENTA", true, ClaseDatoFormato::Texto, "NOMCUENTA"},
    {"NIT TERCERO", true, ClaseDatoFormato::Texto, "NIT"},
    {"NOMBRE TERCERO", true, ClaseDatoFormato::Texto, "NOMTERCERO"},
    {"CENTRO COSTO", true, ClaseDatoFormato::Texto, "PROYECTO"},
    {"SUBCENTRO COSTO", true, ClaseDatoFormato::Texto, "CENTRO"},
    {"NOMBRE CENTRO COSTO", true, ClaseDatoFormato::Texto, "NOMPROY"},
    {"NOMBRE SUBCEBTRO COSTO", true, ClaseDatoFormato::Texto, "NOMCENT"}, // la errata es la llave
    {"CONCEPTO ITEM", true, ClaseDatoFormato::Texto, "ITCONCEPTO"},
    {"REFERENCIA ITEM", true, ClaseDatoFormato::Numero,
     "ITREFER"}, // una referencia con letras no convierte
    {"ARTICULO", true, ClaseDatoFormato::Texto, "ARTICULO"},
    {"DESCRIPCION ARTICULO", true, ClaseDatoFormato::Texto, "NOMARTIC"},
    {"DEBITO ITEM", true, ClaseDatoFormato::Numero, "DEBITO"},
    {"CREDITO ITEM", true, ClaseDatoFormato::Numero, "CREDITO"},
    {"NETO ITEM", true, ClaseDatoFormato::Numero, "NETO"},
    {"BASE ITEM", true, ClaseDatoFormato::Numero, "BASE"},
    {"PORCENTAJE ITEM", true, ClaseDatoFormato::Numero, "PORC"},
    {"DOCUMENTO ITEM", true, ClaseDatoFormato::Texto, "NUMDOC"},
    {"DOCUMENTO APLICACION", true, ClaseDatoFormato::Texto, "NUMAPLICA"},
    {"DOCUMENTO VENCE", true, ClaseDatoFormato::Texto, "VENCE"},
};
