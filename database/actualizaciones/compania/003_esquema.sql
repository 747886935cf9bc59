-- Una base de la versión 1 o de la 2 tiene lo que sus guiones traían el día en que se creó. Aquí
-- se iguala lo que repetir los guiones no cambia: columnas que se agregaron a tablas que ya
-- estaban y disparadores que hoy son otros. Todo se puede hacer sobre una base que ya lo tenga.

ALTER TABLE SALDOS_CONTROL ADD SACO_ANO char(4);
ALTER TABLE AUDITADO ADD AUDI_ID bigint;
ALTER TABLE AUDITADO ADD AUDI_ORIGEN char(1);
ALTER TABLE AUDITADO ADD AUDI_BORRO char(1);

SET TERM ^ ;

-- El traslado de los saldos iniciales lo hace un solo disparador por libro: con los de antes se
-- haría dos veces. El de las depreciaciones se apaga para que la siguiente actualización pueda
-- soltar el índice que usa; los guiones lo vuelven a encender.
EXECUTE BLOCK
AS
  DECLARE NOMBRE varchar(31);
BEGIN
  FOR
    SELECT trim(RDB$TRIGGER_NAME) FROM RDB$TRIGGERS
    WHERE RDB$TRIGGER_NAME IN ('CONFIGURACION_INICIADO', 'CONFIGURACION_INICIADO_NIIF')
    INTO :NOMBRE
  DO
    EXECUTE STATEMENT 'DROP TRIGGER ' || NOMBRE;
  IF (EXISTS (SELECT 1 FROM RDB$TRIGGERS
    WHERE RDB$TRIGGER_NAME = 'DEPRECIACIONES_AL_CONFIRMAR')) THEN
    EXECUTE STATEMENT 'ALTER TRIGGER DEPRECIACIONES_AL_CONFIRMAR INACTIVE';
END^

SET TERM ; ^
