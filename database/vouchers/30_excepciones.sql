-- Negativas de los comprobantes. El texto de cada una es el de reserva: quien la lanza nombra el
-- dato.

CREATE OR ALTER EXCEPTION COMPROBANTE_FECHA
  'La fecha del comprobante debe tener la forma aaaammdd.';
CREATE OR ALTER EXCEPTION COMPROBANTE_NUMERO
  'Debe indicar el número del comprobante.';
CREATE OR ALTER EXCEPTION COMPROBANTE_TERCERO
  'El tercero del comprobante no existe.';
CREATE OR ALTER EXCEPTION COMPROBANTE_BLOQUEADO
  'La contabilidad esta bloqueada en la fecha del comprobante.';
CREATE OR ALTER EXCEPTION COMPROBANTE_NO_EXISTE
  'No se encontró el comprobante solicitado.';
CREATE OR ALTER EXCEPTION LINEA_SIN_ENCABEZADO
  'No existe el comprobante al que pertenece la línea. Vuelva a abrirlo antes de grabar.';
CREATE OR ALTER EXCEPTION LINEA_CUENTA
  'La cuenta de la línea no puede llevar movimiento.';
CREATE OR ALTER EXCEPTION LINEA_ARTICULO
  'El artículo de la línea no existe.';
CREATE OR ALTER EXCEPTION LINEA_IMPORTE
  'El importe de la línea pasa de 9,999,999,999,999.99.';
CREATE OR ALTER EXCEPTION REPLICA_SIN_CUENTA
  'Una cuenta no tiene equivalente NIIF: la réplica quedaría descuadrada.';
CREATE OR ALTER EXCEPTION REPLICA_DESCUADRADA
  'El libro NIIF tiene líneas corregidas a mano: quedaría descuadrado.';
CREATE OR ALTER EXCEPTION PLANILLA_TITULO
  'Dos datos de la planilla tienen el mismo nombre. Cada uno debe tener el suyo.';
-- El texto es el de la primera negativa de REVISE_ASIENTO.
CREATE OR ALTER EXCEPTION ASIENTO_RECHAZADO
  'El comprobante no se puede grabar.';
