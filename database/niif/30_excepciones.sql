-- Negativas de la apertura NIIF.

CREATE OR ALTER EXCEPTION APERTURA_RECHAZADA
  'El balance de apertura no se puede llevar a los saldos iniciales NIIF.';
