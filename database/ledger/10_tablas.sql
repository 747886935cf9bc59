-- Saldos de los dos libros. Nadie actualiza un saldo al grabar: se insertan diferencias en
-- SALDOS_DIFERENCIA y COMPACTE_SALDOS las pasa a las tablas compactadas. Un saldo es la suma de
-- lo compactado y lo pendiente.
-- SALD_MES: 1 a 12 los meses, 13 ajustes, 0 los saldos iniciales del año de inicio (anteriores a
-- todo movimiento y nunca movimiento de un mes). Las dimensiones ausentes van vacías, no nulas.

--<LIBROS>
CREATE TABLE SALDOS_DIFERENCIA{_NIIF} (
  CUEN_COD D_CUENTA NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  PROY_COD D_CODIGO4 NOT NULL,
  CENT_COD D_CODIGO4 NOT NULL,
  ARTI_COD D_ARTICULO NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
);

CREATE TABLE SALDOS_CUENTA{_NIIF} (
  CUEN_COD D_CUENTA NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
);

CREATE TABLE SALDOS_TERCERO{_NIIF} (
  CUEN_COD D_CUENTA NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
);

CREATE TABLE SALDOS_CENTRO{_NIIF} (
  CUEN_COD D_CUENTA NOT NULL,
  PROY_COD D_CODIGO4 NOT NULL,
  CENT_COD D_CODIGO4 NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
);

CREATE TABLE SALDOS_ARTICULO{_NIIF} (
  CUEN_COD D_CUENTA NOT NULL,
  ARTI_COD D_ARTICULO NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
);

-- La más fina, con todas las dimensiones: de ella se rehacen las demás.
CREATE TABLE SALDOS_DETALLE{_NIIF} (
  CUEN_COD D_CUENTA NOT NULL,
  PROY_COD D_CODIGO4 NOT NULL,
  CENT_COD D_CODIGO4 NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  ARTI_COD D_ARTICULO NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
);
--</LIBROS>

-- Lote de diferencias que se está compactando.
CREATE GLOBAL TEMPORARY TABLE SALDOS_LOTE (
  CUEN_COD D_CUENTA NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  PROY_COD D_CODIGO4 NOT NULL,
  CENT_COD D_CODIGO4 NOT NULL,
  ARTI_COD D_ARTICULO NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
) ON COMMIT DELETE ROWS;

-- Lo que suman las líneas, mientras se comparan con los saldos.
CREATE GLOBAL TEMPORARY TABLE SALDOS_LINEAS (
  CUEN_COD D_CUENTA NOT NULL,
  SALD_ANO char(4) NOT NULL,
  SALD_MES smallint NOT NULL,
  TERC_NIT D_NIT NOT NULL,
  PROY_COD D_CODIGO4 NOT NULL,
  CENT_COD D_CODIGO4 NOT NULL,
  ARTI_COD D_ARTICULO NOT NULL,
  SALD_DEBITO numeric(18,2) NOT NULL,
  SALD_CREDITO numeric(18,2) NOT NULL
) ON COMMIT DELETE ROWS;

-- Una fila por libro: quien compacta la toma con bloqueo, y SACO_VUELTA le dice a una consulta en
-- curso si las tablas cambiaron bajo sus pies. SACO_ANO es el año con que se guardaron los saldos
-- iniciales: lo cambia la configuración, pero los saldos no dependen de que su fila siga allí.
CREATE TABLE SALDOS_CONTROL (
  SACO_LIBRO varchar(4) NOT NULL,
  SACO_VUELTA bigint DEFAULT 0 NOT NULL,
  SACO_ANO char(4)
);

-- Cuentas cuyos importes no caben en una suma: se nombran en lugar de sumarlas.
CREATE GLOBAL TEMPORARY TABLE SALDOS_DESBORDE (
  CUEN_COD D_CUENTA NOT NULL
) ON COMMIT DELETE ROWS;

-- Saldos que el último recálculo de esta conexión encontró mal, con lo que decían y lo que dan las
-- líneas.
CREATE GLOBAL TEMPORARY TABLE SALDOS_CORREGIDOS (
  SACO_LIBRO varchar(4) NOT NULL,
  TABLA varchar(31),
  CUENTA varchar(20),
  ANO char(4),
  MES smallint,
  NIT varchar(20),
  PROYECTO varchar(4),
  CENTRO varchar(4),
  ARTICULO varchar(15),
  DEBITO numeric(18,2),
  CREDITO numeric(18,2),
  DEBITO_LINEAS numeric(18,2),
  CREDITO_LINEAS numeric(18,2)
) ON COMMIT PRESERVE ROWS;
