-- Negativas de los saldos.

CREATE OR ALTER EXCEPTION SALDOS_SIN_INSTANTANEA
  'El recálculo de saldos debe ver una sola foto de la base: hágalo en una instantánea.';
CREATE OR ALTER EXCEPTION SALDOS_CONTROL_FIJA
  'Las filas de control de los saldos no se borran: sin ellas no se compacta ni se recalcula.';
-- El texto dice qué bloqueo y hasta cuándo.
CREATE OR ALTER EXCEPTION SALDOS_INICIALES_BLOQUEADOS
  'La contabilidad esta bloqueada en el mes de inicio.';
