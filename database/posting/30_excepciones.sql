-- Negativas de la contabilización.

CREATE OR ALTER EXCEPTION PROPUESTA_NO_EXISTE
  'La propuesta ya no existe: otro usuario volvió a contabilizar el documento.';
-- El texto lo pone quien rehúsa, con el comprobante.
CREATE OR ALTER EXCEPTION DOCUMENTO_CONTABILIZADO
  'El documento ya fue contabilizado.';
