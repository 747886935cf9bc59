-- Se apaga para que la siguiente actualización pueda soltar la clave de la estructura: la tiene en
-- uso desde que se abre la conexión. Los guiones lo vuelven a encender.

SET TERM ^ ;

EXECUTE BLOCK
AS
BEGIN
  IF (EXISTS (SELECT 1 FROM RDB$TRIGGERS
    WHERE RDB$TRIGGER_NAME = 'DEPRECIACIONES_AL_CONFIRMAR')) THEN
    EXECUTE STATEMENT 'ALTER TRIGGER DEPRECIACIONES_AL_CONFIRMAR INACTIVE';
END^

SET TERM ; ^
