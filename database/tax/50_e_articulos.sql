-- Un procedimiento por artículo, que es como los nombra su configuración. Los llama Tfmediosmagbog.

SET TERM ^ ;

--<CLAVES>
--| ARTICULO
--| 2
--| 3
--| 4
--| 6
--| 22
--| 23
--| 24
--| 26
--| 32
--| 33
--| 34
--| 36
--| 42
--| 43
--| 44
--| 46
--| 51
--| 52
--| 53
--| 54
--| 56
--| 310
--| 410
--| 510
CREATE OR ALTER PROCEDURE ARTICULO_{ARTICULO} (
  ANO varchar(4), INICIO varchar(8), FINAL varchar(8), NITSHD varchar(20))
AS
BEGIN
  EXECUTE PROCEDURE CALCULE_ARTICULO({ARTICULO}, ANO, INICIO, FINAL, NITSHD);
END^
--</CLAVES>

SET TERM ; ^
