-- Movimiento de los elementos de un formato de impresión.

SET TERM ^ ;

CREATE OR ALTER EXCEPTION FORMATO_ACCION 'No existe esa forma de mover un formato.'^

-- Mueve o cambia de escala los elementos del formato PREFI del tipo de documento TIPO, los datos y
-- los dibujos por igual. ACCION:
--   R, L  suma o resta POSICIONES al lugar horizontal de los elementos que empiezan entre DESDE y
--         HASTA, con los dos;
--   D, U  lo mismo con el lugar vertical: D baja y U sube;
--   M, C  la mitad y el doble en vertical, de todo el formato: lugares, altos de los dibujos y
--         espacio entre líneas;
--   Y, X  la mitad y el doble en horizontal: lugares y anchos.
-- DESDE en 0 y HASTA en 2000 son los bordes de la página y no ponen límite: lo que salió de ella se
-- trae de vuelta con el movimiento contrario. La llama TFmoverforma.
CREATE OR ALTER PROCEDURE MOVER_FORMATO (TIPO integer, PREFI varchar(6), POSICIONES integer,
  DESDE integer, HASTA integer, ACCION char(1))
AS
  DECLARE POR integer = 1;
  DECLARE ENTRE integer = 1;
BEGIN
  ACCION = upper(ACCION);
  IF (ACCION IS NULL OR position(ACCION IN 'RLUDMCYX') = 0) THEN
    EXCEPTION FORMATO_ACCION;
  POSICIONES = coalesce(POSICIONES, 0);
  IF (ACCION IN ('L', 'U')) THEN
    POSICIONES = -POSICIONES;
  IF (ACCION IN ('C', 'X')) THEN
    POR = 2;
  IF (ACCION IN ('M', 'Y')) THEN
    ENTRE = 2;

  IF (coalesce(DESDE, 0) <= 0) THEN
    DESDE = -2147483648;
  IF (coalesce(HASTA, 2000) >= 2000) THEN
    HASTA = 2147483647;
  IF (ACCION IN ('R', 'L')) THEN
  BEGIN
    UPDATE FORMATO_DATOS SET DAFO_POSX = DAFO_POSX + :POSICIONES
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI AND DAFO_POSX BETWEEN :DESDE AND :HASTA;
    UPDATE FORMATO_LINEAS SET FOLI_POSX = FOLI_POSX + :POSICIONES
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI AND FOLI_POSX BETWEEN :DESDE AND :HASTA;
  END
  ELSE IF (ACCION IN ('U', 'D')) THEN
  BEGIN
    UPDATE FORMATO_DATOS SET DAFO_POSY = DAFO_POSY + :POSICIONES
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI AND DAFO_POSY BETWEEN :DESDE AND :HASTA;
    UPDATE FORMATO_LINEAS SET FOLI_POSY = FOLI_POSY + :POSICIONES
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI AND FOLI_POSY BETWEEN :DESDE AND :HASTA;
  END
  ELSE IF (ACCION IN ('M', 'C')) THEN
  BEGIN
    UPDATE FORMATOS SET FORM_ENTRELINEA = FORM_ENTRELINEA * :POR / :ENTRE
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI;
    UPDATE FORMATO_DATOS SET DAFO_POSY = DAFO_POSY * :POR / :ENTRE
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI;
    UPDATE FORMATO_LINEAS SET FOLI_POSY = FOLI_POSY * :POR / :ENTRE,
      FOLI_Y = FOLI_Y * :POR / :ENTRE
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI;
  END
  ELSE
  BEGIN
    UPDATE FORMATO_DATOS SET DAFO_POSX = DAFO_POSX * :POR / :ENTRE
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI;
    UPDATE FORMATO_LINEAS SET FOLI_POSX = FOLI_POSX * :POR / :ENTRE,
      FOLI_X = FOLI_X * :POR / :ENTRE
    WHERE TIDO_COD = :TIPO AND PREF_PRE = :PREFI;
  END
END^

SET TERM ; ^
