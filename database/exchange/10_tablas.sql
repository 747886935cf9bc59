-- Importación, exportación y procedimientos de usuario.

-- Formato de importación de cada clase de datos: 4 cuentas, 5 terceros, 6 comprobantes, 7 saldos
-- iniciales. Las clases menores son del módulo de inventario.
CREATE TABLE IMPORTACION_INVENTARIO (
  IMIN_TIPO integer NOT NULL,
  IMIN_DATO varchar(60) NOT NULL,
  IMIN_COLUMNA integer,
  IMIN_ANCHO integer
);

CREATE TABLE CUENTAS_EXPORTACION (
  CUEN_COD D_CUENTA NOT NULL,
  CUEX_COD D_CUENTA
);

CREATE TABLE PREFIJOS_EXPORTACION (
  PREX_TIPO varchar(3) NOT NULL,
  PREX_PREF varchar(4) NOT NULL,
  PREX_EXPORTA varchar(10),
  PREX_TIPOEXP varchar(10)
);

CREATE TABLE PROCEDIMIENTOS_USUARIO (
  PRUS_COD varchar(10) NOT NULL,
  PRUS_NOMBRE D_NOMBRE,
  PRUS_SP varchar(31) NOT NULL,
  PRUS_PARAM1 varchar(40),
  PRUS_PARAM2 varchar(40),
  PRUS_PARAM3 varchar(40),
  PRUS_PARAM4 varchar(40),
  PRUS_PARAM5 varchar(40),
  PRUS_MODULO varchar(20)
);

-- De los módulos hermanos, lo que la exportación busca para nombrar el documento de referencia: la
-- factura que se devuelve y los documentos que paga un egreso.
ALTER TABLE DEVOLUCIONES_VENTAS ADD DEVT_FACTURA varchar(20);
ALTER TABLE DEVOLUCIONES_COMPRAS ADD DVCO_FACTURA varchar(20);
CREATE TABLE EGRESOS_DETALLE (
  EGRE_ID integer NOT NULL,
  EGDE_ITEM integer NOT NULL,
  EGDE_TIPODOC varchar(3),
  EGDE_PREFIJO varchar(4),
  EGDE_NUMERO varchar(8)
);
