-- Un solo consecutivo para los documentos de todos los módulos: un id no se repite entre tipos.

CREATE SEQUENCE SEC_DOCUMENTO;
