-- Consecutivos de los informes.

CREATE SEQUENCE SEC_NOTAS_ESTADOS;
