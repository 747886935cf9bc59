-- Configuración de los estados de cambios y notas a los estados financieros.

CREATE TABLE CAMBIOS_SITUACION_CTAS (
  CASI_ID integer NOT NULL,
  CASI_CUENTA D_CUENTA,
  CASI_SECCION integer,
  CASI_DB char(1)
);

CREATE TABLE FLUJO_EFECTIVO (
  FLEF_ID integer NOT NULL,
  FLEF_CUENTA D_CUENTA,
  FLEF_SECCION integer,
  FLEF_DB char(1),
  FLEF_NIIF char(1) DEFAULT 'N'
);

CREATE TABLE NOTAS_ESTADOS_FINANCIEROS (
  NOEF_ID integer NOT NULL,
  NOEF_ANO smallint,
  NOEF_PERIODO smallint,
  NOEF_CUENTA D_CUENTA,
  NOEF_NUMERO smallint,
  NOEF_TITULO varchar(60),
  NOEF_NOTA blob sub_type text
);
