-- Negativas de los procesos de fin de período; el texto que llega al usuario lo arma quien rehúsa.

CREATE SEQUENCE SEC_CIERRE_ANUAL;
CREATE SEQUENCE SEC_CIERRE_TERCEROS;
CREATE SEQUENCE SEC_AJUSTE_INFLACION;
-- Número de la hoja en que un proceso arma su asiento; no deja rastro.
CREATE SEQUENCE SEC_ASIENTO_PROCESO;

CREATE OR ALTER EXCEPTION PROCESO_REPETIDO 'El proceso ya se hizo.';
CREATE OR ALTER EXCEPTION PROCESO_VACIO 'El proceso no produce ningún movimiento.';
CREATE OR ALTER EXCEPTION PROCESO_INCOMPLETO 'Falta un dato para hacer el proceso.';
CREATE OR ALTER EXCEPTION PROCESO_FIJO
  'Un proceso ya hecho no se modifica: bórrelo y hágalo de nuevo.';
