-- Consecutivos y excepciones de los servicios comunes.

CREATE SEQUENCE SEC_AUDITORIA;
CREATE SEQUENCE SEC_MENSAJERIA;
