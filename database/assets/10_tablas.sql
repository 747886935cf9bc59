-- Depreciación, baja y deterioro de los activos fijos. La ficha del activo está en los catálogos.

-- Una fila es un proceso hecho: con DEPR_NIIF ("C", "N" o "A") una depreciación del mes; sin él, la
-- baja de los activos que la ficha tiene fuera de uso.
CREATE TABLE DEPRECIACION (
  DEPR_ID integer NOT NULL,
  DEPR_FECHA varchar(8) NOT NULL,
  TICO_COD varchar(3) NOT NULL,
  PRCO_PREF varchar(4) NOT NULL,
  ENCO_CONSEC integer,
  DEPR_REFER varchar(10),
  ENCO_NUMERO varchar(8),
  DEPR_USUARIO D_USUARIO,
  DEPR_CONC varchar(60),
  DEPR_NIIF char(1)
);

CREATE TABLE DEPRECIACION_UNIDADES (
  DEPR_ID integer NOT NULL,
  DEPU_ITEM integer NOT NULL,
  ACFJ_COD D_ARTICULO NOT NULL,
  DEPU_UNIDADES integer NOT NULL
);

-- Lo que cada proceso le hizo a cada activo en cada libro. DEDE_CLASE: "D" depreciación, "B" baja,
-- "V" deterioro o recuperación, "I" lo que ya traía depreciado al llegar al programa. DEDE_VALOR
-- baja el valor en libros si es positivo.
CREATE TABLE DEPRECIACION_DETALLE (
  DEDE_ID bigint NOT NULL,
  DEPR_ID integer,
  ACFJ_COD D_ARTICULO NOT NULL,
  DEDE_LIBRO varchar(4) NOT NULL,
  DEDE_CLASE char(1) NOT NULL,
  DEDE_FECHA varchar(8) NOT NULL,
  DEDE_MES integer NOT NULL,
  DEDE_UNIDADES integer DEFAULT 0 NOT NULL,
  DEDE_VALOR D_MONEDA NOT NULL,
  ENCO_CONSEC integer
);

CREATE TABLE ACTIVOS_FIJOS_VALOR (
  ACFJ_COD D_ARTICULO NOT NULL,
  ACFV_FECHA varchar(8) NOT NULL,
  ACFV_VALOR D_MONEDA,
  ACFV_VRUSO D_MONEDA,
  ACFJ_CSUSO D_MONEDA,
  ACFV_PRVENTA D_MONEDA,
  ACFV_CSVENTA D_MONEDA,
  ACFV_VRRECUP D_MONEDA,
  ACFV_DIFER D_MONEDA,
  ACFV_OBS blob sub_type text,
  ACFV_DOCUMENTO blob sub_type binary,
  ACFV_IDCOMP integer,
  TICO_COD varchar(3) NOT NULL,
  PRCO_PREF varchar(4) NOT NULL,
  ACFV_CONC varchar(60),
  ENCO_NUMERO varchar(8)
);

-- Lo que un activo ya traía depreciado en un libro cuando llegó al programa, hasta el mes de
-- ACIN_HASTA. No hace comprobante: el acumulado ya viene en los saldos iniciales.
CREATE TABLE ACTIVOS_INICIAL (
  ACFJ_COD D_ARTICULO NOT NULL,
  ACIN_LIBRO varchar(4) NOT NULL,
  ACIN_HASTA date NOT NULL,
  ACIN_VALOR D_MONEDA NOT NULL,
  ACIN_UNIDADES integer DEFAULT 0 NOT NULL
);

-- Foto del activo; aparte de la ficha, para que las listas no la carguen.
CREATE TABLE ACTIVOS_FOTOS (
  ACFJ_COD D_ARTICULO NOT NULL,
  ACFO_FOTO blob sub_type binary
);

-- Lo que una corrida le hará a cada activo, mientras se arma su asiento.
CREATE GLOBAL TEMPORARY TABLE ACTIVO_CARGO (
  ACFJ_COD D_ARTICULO NOT NULL,
  LIBRO varchar(4) NOT NULL,
  MES integer NOT NULL,
  UNIDADES integer NOT NULL,
  VALOR D_MONEDA NOT NULL,
  CTA_DEBITO D_CUENTA,
  CTA_CREDITO D_CUENTA
) ON COMMIT DELETE ROWS;

-- Depreciaciones de la transacción en curso: el comprobante se hace al confirmar, cuando ya
-- llegaron las unidades producidas de la misma grabación.
CREATE GLOBAL TEMPORARY TABLE DEPRECIACION_PENDIENTE (
  DEPR_ID integer NOT NULL
) ON COMMIT DELETE ROWS;
