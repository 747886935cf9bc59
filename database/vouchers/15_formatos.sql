-- Formatos de impresión: qué dato va en qué lugar de la papelería de un tipo o prefijo. TIDO_COD 1
-- son los comprobantes; los demás documentos de la suite usan las mismas tablas con el suyo.

CREATE TABLE FORMATOS (
  TIDO_COD integer NOT NULL,
  PREF_PRE varchar(6) NOT NULL,
  FORM_IMPRE varchar(60),
  FORM_NROITEMS integer,
  FORM_PAGINAS varchar(1),
  FORM_ENTRELINEA integer,
  FORM_FONT varchar(60),
  FORM_FSIZE integer,
  FORM_PAPELAN numeric(15,2),
  FORM_PAPELAL numeric(15,2)
);

-- PREF_PRE mide aquí lo que un tipo o un prefijo de comprobante.
CREATE TABLE FORMATO_DATOS (
  TIDO_COD integer NOT NULL,
  PREF_PRE varchar(4) NOT NULL,
  DAFO_ITEM integer NOT NULL,
  DAFO_DATO varchar(30),
  DAFO_IMPRIME char(1),
  DAFO_POSX integer,
  DAFO_POSY integer,
  DAFO_INI smallint,
  DAFO_LONG integer,
  DAFO_FORMATO varchar(20),
  DAFO_REPITE char(1),
  DAFO_FONT varchar(60),
  DAFO_FSIZE integer,
  DAFO_LIQUIDA char(1),
  DAFO_POSYVAR char(1)
);

CREATE TABLE FORMATO_LINEAS (
  TIDO_COD integer NOT NULL,
  PREF_PRE varchar(6) NOT NULL,
  FOLI_ITEM integer NOT NULL,
  FOLI_TIPO char(1),
  FOLI_X integer,
  FOLI_Y integer,
  FOLI_POSX integer,
  FOLI_POSY integer,
  FOLI_CADENA varchar(60),
  FOLI_FONT varchar(60),
  FOLI_FSIZE integer,
  FOLI_LIQUIDA char(1),
  FOLI_IMAGEN blob sub_type binary
);
