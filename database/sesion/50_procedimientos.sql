-- Procedimientos comunes.

SET TERM ^ ;

-- Historia de los mensajes de un usuario, de ida y de vuelta.
-- USUARIO: código. Columnas: ID; EOS, "E" recibido o "S" enviado; FECHA, HORA; REMITE, la otra
-- parte de la conversación (por ella filtra la pantalla); MENSAJE; LEIDO. La llama Tfmensaje.
CREATE OR ALTER PROCEDURE HISTORIA_MENSAJES (USUARIO varchar(10))
RETURNS (ID integer, EOS char(1), FECHA date, HORA time, REMITE varchar(10),
  MENSAJE varchar(255), LEIDO char(1))
AS
BEGIN
  FOR
    SELECT MENS_ID, 'E', MENS_FECHA, MENS_HORA, MENS_AUTOR, MENS_MENSAJE, MENS_LEIDO
    FROM MENSAJERIA
    WHERE MENS_DESTINO = :USUARIO
    UNION ALL
    SELECT MENS_ID, 'S', MENS_FECHA, MENS_HORA, MENS_DESTINO, MENS_MENSAJE, MENS_LEIDO
    FROM MENSAJERIA
    WHERE MENS_AUTOR = :USUARIO AND MENS_DESTINO <> :USUARIO
    INTO :ID, :EOS, :FECHA, :HORA, :REMITE, :MENSAJE, :LEIDO
  DO
    SUSPEND;
END^

-- Pone al día las estadísticas de los índices, de las que salen los planes. La llama la herramienta
-- de administración, con el dueño de la base: al crear la demostración, actualizar y compactar.
CREATE OR ALTER PROCEDURE ACTUALICE_ESTADISTICAS
AS
  DECLARE ORDEN varchar(100);
BEGIN
  FOR
    SELECT 'SET STATISTICS INDEX ' || trim(RDB$INDEX_NAME) FROM RDB$INDICES
    WHERE coalesce(RDB$SYSTEM_FLAG, 0) = 0
    INTO :ORDEN
  DO
    EXECUTE STATEMENT ORDEN;
END^

SET TERM ; ^
