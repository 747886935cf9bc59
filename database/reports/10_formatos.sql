-- Informes que define el usuario: un renglón por informe, sus datos y sus elementos fijos.
--
-- FOCD_DATO y FOCD_CUENTA son los nombres con que otras versiones guardaban el dato de un renglón:
-- la copia de un informe todavía los nombra, y un disparador los mantiene iguales a FOCD_CUENTAS.

CREATE TABLE FORMATOS_CONTABLES (
  FOCO_ID integer NOT NULL,
  FOCO_NOMBRE varchar(60),
  FOCO_IMPRESORA integer,
  FOCO_LINEAS integer,
  FOCO_TITULO varchar(60),
  FOCO_SUBTITULO varchar(255),
  FOCO_FACTOR numeric(15,2),
  FOCO_PAGINAS integer DEFAULT 1,
  FOCO_NIIF char(1) DEFAULT 'N'
);

CREATE TABLE FORMATOCONTABLE_DETALLE (
  FOCO_ID integer NOT NULL,
  FOCD_ITEM integer NOT NULL,
  FOCD_POSX integer,
  FOCD_POSY integer,
  FOCD_FONT varchar(60),
  FOCD_FSIZE integer,
  FOCD_INI integer,
  FOCD_LONG integer,
  FOCD_OPER varchar(1),
  FOCD_PAGINA integer DEFAULT 1,
  FOCD_CUENTAS varchar(255),
  FOCD_PROY varchar(4),
  FOCD_CENTRO varchar(4),
  FOCD_FACTOR numeric(15,2),
  FOCD_DATO varchar(30),
  FOCD_CUENTA varchar(255)
);

CREATE TABLE FORMATOCONTABLE_TEXTOS (
  FOCO_ID integer NOT NULL,
  FOCD_ITEM integer NOT NULL,
  FOCD_TIPO varchar(1),
  FOCD_CADENA varchar(255),
  FOCD_POSX integer,
  FOCD_POSY integer,
  FOCD_X integer,
  FOCD_Y integer,
  FOCD_FONT varchar(60),
  FOCD_FSIZE integer,
  FOCD_PAGINA integer DEFAULT 1,
  FOCD_IMAGEN blob sub_type binary
);
