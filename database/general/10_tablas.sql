-- Tablas de la base de datos general, común a todas las compañías.

CREATE TABLE VERSION_ESQUEMA (
  VERS_NUMERO integer NOT NULL,
  VERS_FECHA timestamp,
  VERS_NOMBRE varchar(60)
);

CREATE TABLE USUARIO (
  USUA_COD varchar(10) NOT NULL,
  USUA_NOMBRE varchar(60) COLLATE ES_ES,
  USUA_ADMIN char(1),
  FECCON date
);

CREATE TABLE COMPANIA (
  COMP_COD char(3) NOT NULL,
  COM_NOMBRE varchar(80),
  COMP_NIT varchar(20),
  COMP_LOGO blob sub_type binary,
  COMP_DIR varchar(140),
  COMP_TELS varchar(140),
  COMP_ENCABEZADO varchar(140)
);
