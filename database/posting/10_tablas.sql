-- Contabilización de los documentos de los módulos hermanos: interfaces, propuestas y errores.

-- Los tipos de documento que se contabilizan: dónde está cada uno, qué procedimientos lo
-- contabilizan y con qué códigos quedan sus errores. Los códigos que no son el del tipo son los que
-- esperan los módulos ya instalados. DOCT_LISTA "S": sale en la lista de pendientes. DOCT_INTERFAZ:
-- el procedimiento recibe la interfaz. DOCT_CLAVE: el id del documento es la clave de su tabla.
CREATE TABLE DOCUMENTO_CONTABLE (
  TIDO_COD integer NOT NULL,
  DOCT_FAMILIA varchar(10) NOT NULL,
  DOCT_TABLA varchar(31) NOT NULL,
  DOCT_CAMPOID varchar(31) NOT NULL,
  DOCT_CAMPOPREF varchar(31) NOT NULL,
  DOCT_CAMPONUM varchar(31) NOT NULL,
  DOCT_PROC varchar(31) NOT NULL,
  DOCT_GEMELO varchar(31) NOT NULL,
  DOCT_ERROR integer NOT NULL,
  DOCT_ERROR2 integer NOT NULL,
  DOCT_ERRORNIIF integer NOT NULL,
  DOCT_LISTA D_SN NOT NULL,
  DOCT_INTERFAZ varchar(1) NOT NULL,
  DOCT_CLAVE varchar(1) NOT NULL
);

-- Familias que tienen interfaz con cuentas y las letras con que empiezan sus columnas.
CREATE TABLE FAMILIA_CONTABLE (
  FACO_FAMILIA varchar(10) NOT NULL,
  FACO_INI varchar(4) NOT NULL
);

-- Conceptos de los documentos de cada familia. COIN_CTATERC: cuenta del tercero que, si la tiene,
-- reemplaza la de la interfaz (RTFTE es TERC_CTARTFTE y así las demás).
CREATE TABLE CONCEPTO_INTERFAZ (
  COIN_FAMILIA varchar(10) NOT NULL,
  COIN_CONCEPTO varchar(10) NOT NULL,
  COIN_NOMBRE varchar(60) NOT NULL,
  COIN_CTATERC varchar(10) NOT NULL
);

--<FILAS posting/datos/60_FAMILIA_CONTABLE.tsv>
-- Interfaz de {FACO_FAMILIA}: con qué tipo y prefijo de comprobante se contabiliza un documento.
-- {FACO_INI}_CONFIRMAR "S": una persona revisa cada propuesta. {FACO_INI}_DET "S": un renglón por
-- cada línea del documento; si no, los importes iguales se juntan.
CREATE TABLE INTERFAZ_{FACO_FAMILIA} (
  {FACO_INI}_ID integer NOT NULL,
  TIDO_COD integer NOT NULL,
  PREF_PRE varchar(4) DEFAULT '0000' NOT NULL,
  {FACO_INI}_NOMBRE varchar(60),
  TICO_COD varchar(3),
  PRCO_PRE varchar(4),
  {FACO_INI}_CONFIRMAR varchar(1) DEFAULT 'N',
  {FACO_INI}_USUARIO D_USUARIO,
  {FACO_INI}_DET varchar(1) DEFAULT 'N'
);

--<LIBROS>
-- Cuentas del libro {LIBRO}. Un concepto puede tener varias filas; en cada lado (D o C) valen las
-- de la clase de la línea y, si no hay, las de clase vacía. INCT_TERCERO, INCT_CENTRO,
-- INCT_ARTICULO e INCT_BASE "S": el renglón los lleva y se separa por ellos; una cuenta que los
-- exige los lleva siempre. INCT_PORC: porcentaje cuando el documento no lo trae. INCT_DOCUMENTO:
-- "N" el renglón abre un documento, "A" se aplica a otro, "-" ninguno. CONC_COD: categoría.
CREATE TABLE INTERFAZ_{FACO_FAMILIA}{_CTAS} (
  {FACO_INI}_ID integer NOT NULL,
  INCT_ITEM integer NOT NULL,
  INCT_CONCEPTO varchar(10) NOT NULL,
  INCT_CLASE varchar(15) DEFAULT '' NOT NULL,
  INCT_CUENTA D_CUENTA NOT NULL,
  INCT_LADO char(1) NOT NULL,
  INCT_TERCERO D_SN DEFAULT 'N' NOT NULL,
  INCT_CENTRO D_SN DEFAULT 'N' NOT NULL,
  INCT_ARTICULO D_SN DEFAULT 'N' NOT NULL,
  INCT_BASE D_SN DEFAULT 'N' NOT NULL,
  INCT_PORC D_TASA,
  INCT_DOCUMENTO char(1) DEFAULT '-' NOT NULL,
  CONC_COD varchar(4)
);
--</LIBROS>
--</FILAS>
ALTER TABLE INTERFAZ_BANCOS ADD CUBA_COD integer DEFAULT 0 NOT NULL;

-- La nómina no tiene cuentas por interfaz: son las del módulo, por tipo de documento.
CREATE TABLE INTERFAZ_NOMINA (
  INNO_ID integer NOT NULL,
  TIDO_COD integer,
  INNO_NOMBRE varchar(60),
  TICO_COD varchar(3),
  PRCO_PRE varchar(4),
  INNO_CONFIRMAR varchar(1),
  INNO_USUARIO varchar(10),
  INNO_DET varchar(1)
);
--<LIBROS>
CREATE TABLE NOMINA{_CTAS} (
  TIDO_COD integer NOT NULL,
  INCT_ITEM integer NOT NULL,
  INCT_CONCEPTO varchar(10) NOT NULL,
  INCT_CLASE varchar(15) DEFAULT '' NOT NULL,
  INCT_CUENTA D_CUENTA NOT NULL,
  INCT_LADO char(1) NOT NULL,
  INCT_TERCERO D_SN DEFAULT 'N' NOT NULL,
  INCT_CENTRO D_SN DEFAULT 'N' NOT NULL,
  INCT_ARTICULO D_SN DEFAULT 'N' NOT NULL,
  INCT_BASE D_SN DEFAULT 'N' NOT NULL,
  INCT_PORC D_TASA,
  INCT_DOCUMENTO char(1) DEFAULT '-' NOT NULL,
  CONC_COD varchar(4)
);
--</LIBROS>

-- Propuesta de comprobante de un documento. Un documento tiene una sola: volver a contabilizarlo
-- reemplaza la anterior. CNTB_NUMERO es el del comprobante que salió de ella, que se conserva al
-- rehacerlo. CNTB_ULTIMO es solo del servidor: el mayor comprobante del documento cuando se hizo;
-- si después aparece otro mayor, lo contabilizó alguien más.
CREATE TABLE CONTABILIZACION (
  CNTB_ID integer NOT NULL,
  CNTB_TIPOREF varchar(2) NOT NULL,
  CNTB_IDREF integer NOT NULL,
  CNTB_PREFREF varchar(4) NOT NULL,
  CNTB_NUMREF varchar(6) NOT NULL,
  CNTB_FECHA varchar(8),
  CNTB_TIPOCOMP varchar(3),
  CNTB_PREFCNT varchar(4),
  CNTB_REF varchar(20),
  CNTB_CONCEPTO varchar(60),
  CNTB_NUMERO varchar(6),
  CNTB_ULTIMO integer DEFAULT 0 NOT NULL
);

-- Renglones de la propuesta: del libro 2649 los menores de 100000 y del NIIF los demás.
CREATE TABLE CONTABILIZACION_DET (
  CNTB_ID integer NOT NULL,
  CNDE_ITEM integer NOT NULL,
  CNDE_CUENTA D_CUENTA NOT NULL,
  CNDE_TERC D_NIT,
  CNDE_PROY D_CODIGO4,
  CNDE_CENTRO D_CODIGO4,
  CNDE_CONC varchar(60),
  CNDE_BASE D_MONEDA,
  CNDE_PORC D_TASA,
  CNDE_DEBITOS D_MONEDA,
  CNDE_CREDITOS D_MONEDA,
  CNDE_REF varchar(8),
  CNDE_DOCVENCE date,
  CNDE_DOCTIPON integer,
  CNDE_DOCTIPOA integer,
  CNDE_CONCOD varchar(4),
  CNDE_ARTICULO D_ARTICULO,
  CNDE_DOCNUMERO varchar(10),
  CNDE_DOCAPLICAR varchar(10)
);

-- Lo que impidió contabilizar limpio un documento. ERRO_TIPODOC es el código bajo el que lo buscan
-- los programas, que no siempre es el del documento: por eso una falla puede estar bajo dos
-- códigos. ERRO_TIDO y ERRO_LIBRO son de la base: el tipo verdadero y el libro de la falla.
CREATE TABLE ERRORES (
  ERRO_TIPODOC integer NOT NULL,
  ERRO_IDDOC integer NOT NULL,
  ERRO_CODIGO varchar(20),
  ERRO_CADENA varchar(400),
  ERRO_TIDO integer NOT NULL,
  ERRO_LIBRO varchar(4) NOT NULL
);
