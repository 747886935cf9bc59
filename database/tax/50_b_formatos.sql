-- Un procedimiento por formato y versión, que es como los nombra MEDIOSMAG_ARCHIVOS; todos calculan
-- igual. INICIO y FINAL "aaaammdd". Los llama Tfmediosmag13; su resultado no se lee.

SET TERM ^ ;

--<CLAVES>
--| FORMATO | VERSION
--| 1001    | 8
--| 1001    | 9
--| 1001    | 10
--| 1002    | 6
--| 1003    | 7
--| 1004    | 6
--| 1005    | 7
--| 1006    | 7
--| 1006    | 8
--| 1007    | 8
--| 1007    | 9
--| 1008    | 7
--| 1009    | 7
--| 1010    | 8
--| 1011    | 6
--| 1012    | 7
CREATE OR ALTER PROCEDURE MEDIO_{FORMATO}_V{VERSION} (INICIO varchar(8), FINAL varchar(8))
AS
BEGIN
  EXECUTE PROCEDURE CALCULE_MEDIO({FORMATO}{VERSION}, INICIO, FINAL);
END^
--</CLAVES>

SET TERM ; ^
