-- Lo que puede hacer una persona lo deciden las opciones del programa; la base se abre a todos los
-- usuarios que el servidor deja entrar. Corre al final, cuando ya existe todo.

SET TERM ^ ;

EXECUTE BLOCK
AS
  DECLARE ORDEN varchar(200);
BEGIN
  FOR
    SELECT 'GRANT ALL ON ' || trim(RDB$RELATION_NAME) || ' TO PUBLIC' FROM RDB$RELATIONS
    WHERE coalesce(RDB$SYSTEM_FLAG, 0) = 0
    UNION ALL
    SELECT 'GRANT EXECUTE ON PROCEDURE ' || trim(RDB$PROCEDURE_NAME) || ' TO PUBLIC'
    FROM RDB$PROCEDURES WHERE coalesce(RDB$SYSTEM_FLAG, 0) = 0
    UNION ALL
    SELECT 'GRANT EXECUTE ON FUNCTION ' || trim(RDB$FUNCTION_NAME) || ' TO PUBLIC'
    FROM RDB$FUNCTIONS WHERE coalesce(RDB$SYSTEM_FLAG, 0) = 0
    UNION ALL
    SELECT 'GRANT USAGE ON SEQUENCE ' || trim(RDB$GENERATOR_NAME) || ' TO PUBLIC'
    FROM RDB$GENERATORS WHERE coalesce(RDB$SYSTEM_FLAG, 0) = 0
    UNION ALL
    SELECT 'GRANT USAGE ON EXCEPTION ' || trim(RDB$EXCEPTION_NAME) || ' TO PUBLIC'
    FROM RDB$EXCEPTIONS WHERE coalesce(RDB$SYSTEM_FLAG, 0) = 0
    INTO :ORDEN
  DO
    EXECUTE STATEMENT ORDEN;
END^

SET TERM ; ^
