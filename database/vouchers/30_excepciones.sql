-- Negativas de los comprobantes.

CREATE OR ALTER EXCEPTION COMPROBANTE_FECHA
  'La fecha del comprobante debe tener la forma aaaammdd.';
-- El texto lo pone quien rehúsa: es el de la primera negativa de REVISE_ASIENTO.
CREATE OR ALTER EXCEPTION ASIENTO_RECHAZADO
  'El comprobante no se puede grabar.';
CREATE OR ALTER EXCEPTION COMPROBANTE_BLOQUEADO
  'La contabilidad esta bloqueada en la fecha del comprobante.';
CREATE OR ALTER EXCEPTION COMPROBANTE_NO_EXISTE
  'No se encontró el comprobante solicitado.';
