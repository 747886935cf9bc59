-- Negativas del mantenimiento. El texto es el de la primera que encontró el procedimiento.

CREATE OR ALTER EXCEPTION MANTENIMIENTO_RECHAZADO
  'El cambio no se puede hacer.';
