-- Información para las autoridades: certificados, medios magnéticos y taxonomías.

CREATE TABLE CONFIGURA_CERTRETE (
  CFCR_CUENTA D_CUENTA NOT NULL,
  CFCR_ITEM integer NOT NULL,
  CFCR_CTABASE D_CUENTA NOT NULL,
  CFCR_BASE char(1) DEFAULT 'N'
);

CREATE TABLE CUENTAS_REPORTE_CERTDET (
  CRCD_CUENTA D_CUENTA NOT NULL,
  CRCD_NOMBRE D_NOMBRE,
  CRCD_IVA D_CUENTA,
  CRCD_RTFTE D_CUENTA,
  CRCD_RTIVA D_CUENTA,
  CRCD_RTICA D_CUENTA
);

-- Formatos y versiones. MEDM_REGLA es solo del servidor: "M" movimiento del período, "S" saldo a
-- la fecha final, "B" base y valor de las retenciones que le practicaron, "P" participación en el
-- saldo. MEDM_NATUR2, también, el lado que suma en la segunda cuenta del renglón: "C" retenciones,
-- "D" devoluciones de ventas.
CREATE TABLE MEDIOSMAG_ARCHIVOS (
  MEDM_FORMATO integer NOT NULL,
  MEDM_NOMBRE varchar(60),
  MEDM_VERSION varchar(2),
  MEDM_VALOR1 varchar(30),
  MEDM_VALOR2 varchar(30),
  MEDM_VALOR3 varchar(30),
  MEDM_VALOR4 varchar(30),
  MEDM_VALOR5 varchar(30),
  MEDM_VALOR6 varchar(30),
  MEDM_VALOR7 varchar(30),
  MEDM_VALOR8 varchar(30),
  MEDM_VALOR9 varchar(30),
  MEDM_VALOR10 varchar(30),
  MEDM_VALOR11 varchar(30),
  MEDM_PROCEDIMIENTO varchar(60),
  MEDM_ORDEN smallint,
  MEDM_REGLA char(1) DEFAULT 'M',
  MEDM_NATUR2 char(1) DEFAULT 'C'
);

-- Cuentas cuyo movimiento debería caer en algún concepto del formato.
CREATE TABLE MEDIOSMAG_VIGILADAS (
  MEDM_FORMATO integer NOT NULL,
  MEDV_CUENTA D_CUENTA NOT NULL
);

CREATE TABLE CONFIGURA_MEDIOSMAG (
  COME_ITEM integer NOT NULL,
  COME_DESCRIPCION D_NOMBRE,
  COME_RESPUESTA varchar(30),
  COME_FORMATO integer NOT NULL,
  COME_MINIMO D_MONEDA,
  COME_CUENTA D_CUENTA,
  COME_NATUR char(1)
);

CREATE TABLE MEDIOSMAG_CUENTAS (
  MMCU_CONS integer NOT NULL,
  MMCU_ITEM integer NOT NULL,
  MMCU_CUENTA D_CUENTA,
  MMCU_CTARTF D_CUENTA,
  MMCU_CTAIVA D_CUENTA,
  MMCU_CTARTIVA D_CUENTA,
  MMCU_CTAIVAND D_CUENTA,
  MMCU_NATUR char(1),
  MMCU_CTARCREE D_CUENTA,
  MMCU_CTARTCREEAS D_CUENTA
);

CREATE TABLE MEDIOS_MAGNETICOS_DATOS (
  MEMG_FORMATO integer NOT NULL,
  MEMG_ANO varchar(4) NOT NULL,
  MEMG_ITEM integer NOT NULL,
  MEMG_CONCEPTO integer,
  MEMG_TIPODOC integer,
  MEMG_NIT D_NIT,
  MEMG_DV char(1),
  MEMG_APELLIDO1 varchar(60),
  MEMG_APELLIDO2 varchar(60),
  MEMG_NOMBRE1 varchar(60),
  MEMG_NOMBRE2 varchar(60),
  MEMG_RAZONSOCIAL varchar(60),
  MEMG_DIRECCION varchar(60),
  MEMG_DEPARTAMENTO varchar(2),
  MEMG_MUNICIPIO varchar(3),
  MEMG_PAIS varchar(3),
  MEMG_PAGO D_MONEDA DEFAULT 0,
  MEMG_PAGOND D_MONEDA DEFAULT 0,
  MEMG_IVA D_MONEDA DEFAULT 0,
  MEMG_IVAND D_MONEDA DEFAULT 0,
  MEMG_RETENCION D_MONEDA DEFAULT 0,
  MEMG_RETEASUM D_MONEDA DEFAULT 0,
  MEMG_RETIVACOMUN D_MONEDA DEFAULT 0,
  MEMG_RETIVASIMP D_MONEDA DEFAULT 0,
  MEMG_RETIVAND D_MONEDA DEFAULT 0,
  MEMG_RETCREE D_MONEDA DEFAULT 0,
  MEMG_RASUMC D_MONEDA DEFAULT 0
);

-- Memoria de un cálculo: a qué concepto lleva cada cuenta afectable y en qué papel (1 el valor, 2 a
-- 7 sus compañeras, 10 la retención asumida), qué conceptos tocó cada tercero en cada comprobante,
-- y los importes.
CREATE GLOBAL TEMPORARY TABLE MEDIO_CUENTA (
  CUEN_COD D_CUENTA NOT NULL,
  PAPEL smallint NOT NULL,
  ITEM integer NOT NULL,
  NATUR char(1)
) ON COMMIT DELETE ROWS;

CREATE GLOBAL TEMPORARY TABLE MEDIO_ORIGEN (
  ENCO_CONSEC integer NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  ITEM integer NOT NULL
) ON COMMIT DELETE ROWS;

CREATE GLOBAL TEMPORARY TABLE MEDIO_IMPORTE (
  ITEM integer NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  PAPEL smallint NOT NULL,
  VALOR numeric(18,2) NOT NULL
) ON COMMIT DELETE ROWS;

CREATE TABLE MEDIOSMAG_DISTR (
  MMDI_ARTICULO integer NOT NULL,
  MMDI_ANO varchar(4) NOT NULL,
  MMDI_NOMBRE D_NOMBRE,
  MMDI_TOPE D_MONEDA,
  MMDI_PROY D_CODIGO4,
  MMDI_CENTRO D_CODIGO4,
  MMDI_PROCEDIMIENTO varchar(60),
  MMDI_NATUR char(1),
  MMDI_INCSALDO D_SN
);

CREATE TABLE MEDIOSMAG_DISTR_CUENTAS (
  MMDI_ARTICULO integer NOT NULL,
  MMDI_ANO varchar(4) NOT NULL,
  MMDC_ITEM integer NOT NULL,
  MMDC_CUENTA D_CUENTA,
  MMDC_CTASALDO D_CUENTA,
  MMDC_CTADEV D_CUENTA
);

CREATE TABLE MEDIOSMAG_DISTR_DATOS (
  MMDI_ARTICULO integer NOT NULL,
  MMDI_ANO varchar(4) NOT NULL,
  MMDD_ITEM integer NOT NULL,
  MMDD_NIT D_NIT,
  MMDD_NOMBRE varchar(60),
  MMDD_DIRECCION varchar(60),
  MMDD_TEL varchar(40),
  MMDD_EMAIL varchar(100),
  MMDD_CODMUNICIPIO varchar(5),
  MMDD_NOMMUNICIPIO varchar(60),
  MMDD_NOMDEPTO varchar(60),
  MMDD_BASE D_MONEDA,
  MMDD_TARIFA D_MONEDA,
  MMDD_MONTO D_MONEDA,
  MMDD_DEVOL D_MONEDA,
  MMDD_SALDO D_MONEDA,
  MMDD_FECHA date,
  MMDD_TIPODOC varchar(3),
  MMDD_DV char(1),
  MMDD_CONCSH smallint,
  MMDD_PAIS varchar(3)
);

-- Listados que se exportan como texto separado por comas.
CREATE TABLE MEDIOSMAG_LISTADOS (
  MM14_ID integer NOT NULL,
  MM14_NOMBRE varchar(100),
  MM14_PROCEDIMIENTO varchar(60)
);

CREATE TABLE TAXONOMIA (
  TAXO_ID integer NOT NULL,
  TAXO_NOMBRE varchar(100)
);

CREATE TABLE TAXONOMIA_ENCABEZA (
  TAXO_ID integer NOT NULL,
  TAXE_ID integer NOT NULL,
  TAXE_NOMBRE varchar(100)
);

-- TAXD_TIPO: 0 título, 1 renglón con cuentas, 2 suma de los renglones de mayor nivel que le siguen.
CREATE TABLE TAXONOMIA_DETALLE (
  TAXO_ID integer NOT NULL,
  TAXE_ID integer NOT NULL,
  TAXD_ITEM integer NOT NULL,
  TAXD_NOMBRE varchar(255),
  TAXD_TIPO smallint,
  TAXD_NIVEL smallint,
  TAXD_NORMA varchar(255)
);

-- TAXC_TIPO: 1 saldo, 2 movimiento del año, 3 solo débitos del año, 4 solo créditos del año; con
-- signo menos, el valor va por el lado crédito aunque la cuenta sea débito.
CREATE TABLE TAXONOMIA_CUENTAS (
  TAXO_ID integer NOT NULL,
  TAXE_ID integer NOT NULL,
  TAXD_ID integer NOT NULL,
  TAXC_ITEM integer NOT NULL,
  CUEN_COD D_CUENTA NOT NULL,
  TAXC_TIPO smallint DEFAULT 1
);

CREATE TABLE TAXONOMIA_NOTAS (
  TAXO_ID integer NOT NULL,
  TAXE_ID integer NOT NULL,
  TAXD_ID integer NOT NULL,
  TAIN_ANO varchar(4) NOT NULL,
  TAIN_PERIODO integer NOT NULL,
  TAIN_NOTA blob sub_type text
);
