-- Negativas de los planes de cuentas.

CREATE OR ALTER EXCEPTION CUENTA_DIGITOS
  'El código de la cuenta solo puede tener dígitos.';
CREATE OR ALTER EXCEPTION CUENTA_LONGITUD
  'El código de la cuenta no tiene la longitud de ningún nivel de la estructura.';
CREATE OR ALTER EXCEPTION CUENTA_SIN_PADRE
  'No existe la cuenta de nivel superior.';
CREATE OR ALTER EXCEPTION CUENTA_PADRE_CON_MOVIMIENTO
  'La cuenta de nivel superior tiene movimiento y no puede recibir auxiliares.';
CREATE OR ALTER EXCEPTION CUENTA_CON_MOVIMIENTO
  'La cuenta tiene movimiento: no se pueden cambiar su código ni sus indicadores.';
CREATE OR ALTER EXCEPTION CUENTA_CON_AUXILIARES
  'La cuenta tiene auxiliares definidos.';
CREATE OR ALTER EXCEPTION CATALOGO_EN_USO
  'El código está en uso: no se puede borrar ni cambiar.';
CREATE OR ALTER EXCEPTION PROYECTO_OTRAS_AGENCIAS
  'El proyecto tiene centros de otras agencias: no se puede borrar.';
CREATE OR ALTER EXCEPTION ESTRUCTURA_EN_USO
  'La estructura no se puede cambiar: ya hay cuentas creadas.';
CREATE OR ALTER EXCEPTION ESTRUCTURA_INCOHERENTE
  'Cada nivel de la estructura debe tener más dígitos que el anterior, de 1 a 20.';
