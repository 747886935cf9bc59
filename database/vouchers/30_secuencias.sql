-- Consecutivos y excepciones de los comprobantes.

CREATE SEQUENCE SEC_COMPROBANTE;
CREATE SEQUENCE SEC_PLANTILLA;
CREATE SEQUENCE SEC_PLANILLA_DIGITACION;

CREATE OR ALTER EXCEPTION COMPROBANTE_FECHA
  'La fecha del comprobante debe tener la forma aaaammdd.';
