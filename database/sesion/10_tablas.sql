-- Tablas de la sesión y los servicios comunes.

CREATE TABLE VERSION_ESQUEMA (
  VERS_NUMERO integer NOT NULL,
  VERS_FECHA timestamp,
  VERS_NOMBRE varchar(60)
);

CREATE TABLE REVISION (
  REVI_FECHA date NOT NULL
);

CREATE TABLE CONFIGURACION (
  CONF_MODULO varchar(20) NOT NULL,
  CONF_CATEGORIA varchar(20) NOT NULL,
  CONF_PROPIEDAD varchar(100) NOT NULL,
  CONF_VALOR varchar(100)
);

CREATE TABLE NOMBRES_CAMPOS (
  NOMBRE varchar(30) NOT NULL,
  DESCRIPCION varchar(50)
);

CREATE TABLE SUCURSALES (
  SUCU_ID integer NOT NULL,
  SUCU_NOMBRE D_NOMBRE,
  SUCU_DIRECCION varchar(60),
  SUCU_TELEFONOS varchar(60)
);

CREATE TABLE USUARIO (
  USER_COD D_USUARIO NOT NULL,
  USER_ANOCNT varchar(4),
  USER_PERCNT integer,
  SUCU_ID integer
);

CREATE TABLE ACCESO_USUARIO (
  USER_COD D_USUARIO NOT NULL,
  ACUS_MODULO varchar(20) NOT NULL,
  ACUS_OPCION integer NOT NULL,
  ACUS_SI D_SN
);

CREATE TABLE AUDITORIA (
  AUDI_ID bigint NOT NULL,
  TIDO_COD integer NOT NULL,
  AUDI_IDDOC integer,
  AUDI_COD varchar(20),
  AUDI_OPER char(1) NOT NULL,
  AUDI_USUARIO D_USUARIO,
  AUDI_FECHA date,
  AUDI_HORA time,
  AUDI_RAZON varchar(255)
);

-- Lo ya auditado en la transacción en curso, para dejar una sola fila por operación. Las
-- variables de contexto no sirven de memoria: el motor solo admite mil por transacción.
-- AUDI_ID es la fila que quedó, nulo mientras el borrado solo está anunciado; AUDI_ORIGEN, "E" si
-- empezó por el encabezado y "L" por una línea; AUDI_BORRO, "S" si se borraron líneas y "N" si, con
-- el borrado anunciado, se tocó otra cosa.
CREATE GLOBAL TEMPORARY TABLE AUDITADO (
  TIDO_COD integer NOT NULL,
  AUDI_IDDOC integer NOT NULL,
  AUDI_ID bigint,
  AUDI_ORIGEN char(1),
  AUDI_BORRO char(1)
) ON COMMIT DELETE ROWS;

-- Lo que un proceso se permite en la transacción en curso y a nadie más: saltarse una guarda. Solo
-- lo escriben los procedimientos; una variable de contexto la pondría cualquiera.
CREATE GLOBAL TEMPORARY TABLE PERMISO_INTERNO (
  PEIN_QUE varchar(20) NOT NULL,
  PEIN_DATO varchar(40)
) ON COMMIT DELETE ROWS;

CREATE TABLE TIPO_COMPROBANTE (
  TICO_COD varchar(3) NOT NULL,
  TICO_NOM D_NOMBRE NOT NULL,
  TICO_FORMATO D_SN
);

CREATE TABLE PREFIJOS_CONTA (
  TICO_COD varchar(3) NOT NULL,
  PRCO_PREF varchar(4) NOT NULL,
  PREF_NUMERO varchar(8) NOT NULL,
  PRCO_AUTO D_SN DEFAULT 'S' NOT NULL,
  PRCO_ACTIVO D_SN DEFAULT 'S',
  PRCO_USUARIO D_USUARIO
);

CREATE TABLE TIPO_DOCUMENTO (
  TIDO_COD integer NOT NULL,
  TIDO_NOMCORTO varchar(8),
  TIDO_NOMLARGO varchar(30) COLLATE ES_ES,
  TIDO_MODULO varchar(20),
  TIDO_INVE D_SN DEFAULT 'N',
  TIDO_CART D_SN DEFAULT 'N',
  TIDO_CXP D_SN DEFAULT 'N',
  TIDO_CAJA D_SN DEFAULT 'N',
  TIDO_BCOS D_SN DEFAULT 'N'
);

CREATE TABLE PREFIJOS (
  TIDO_COD integer NOT NULL,
  PREF_PRE varchar(4) NOT NULL,
  PREF_AUTO D_SN DEFAULT 'N',
  PREF_ACTUAL varchar(8),
  PREF_IVAINC D_SN DEFAULT 'N',
  PREF_ACTIVO D_SN DEFAULT 'S'
);

CREATE TABLE MENSAJERIA (
  MENS_ID integer NOT NULL,
  MENS_AUTOR D_USUARIO,
  MENS_MENSAJE varchar(255),
  MENS_FECHA date,
  MENS_HORA time,
  MENS_NIVEL integer,
  MENS_DESTINO varchar(10),
  MENS_LEIDO D_SN,
  MENS_FECLEIDO date,
  MENS_HORALEIDO time,
  MENS_RESPUESTA integer
);
