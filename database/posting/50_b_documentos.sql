-- Los procedimientos con que cada programa contabiliza sus documentos, por su nombre. Se leen por
-- posición: errores, confirmar y propuesta. Los llaman los módulos de datos de la contabilización.

SET TERM ^ ;

--<FILAS posting/datos/60_DOCUMENTO_CONTABLE.tsv CON DOCT_INTERFAZ>
-- Contabiliza el documento ID de tipo {TIDO_COD} ({DOCT_TABLA}) con una interfaz de {DOCT_FAMILIA}.
CREATE OR ALTER PROCEDURE {DOCT_PROC} (ID integer, INTERFAZ integer)
RETURNS (ERRORES integer, CONFIRMAR char(1), CNTB_ID integer)
AS
BEGIN
  EXECUTE PROCEDURE CONTABILICE_DOCUMENTO({TIDO_COD}, ID, INTERFAZ)
  RETURNING_VALUES :ERRORES, :CONFIRMAR, :CNTB_ID;
  SUSPEND;
END^

--</FILAS>
--<FILAS posting/datos/60_DOCUMENTO_CONTABLE.tsv CON DOCT_GEMELO>
-- Agrega el libro NIIF a la propuesta CNTB del documento ID de tipo {TIDO_COD}.
CREATE OR ALTER PROCEDURE {DOCT_GEMELO} (ID integer, INTERFAZ integer, CNTB integer)
RETURNS (ERRORES integer, CONFIRMAR char(1), CNTB_ID integer)
AS
BEGIN
  EXECUTE PROCEDURE CONTABILICE_GEMELO(ID, INTERFAZ, CNTB)
  RETURNING_VALUES :ERRORES, :CONFIRMAR, :CNTB_ID;
  SUSPEND;
END^

--</FILAS>
-- Contabiliza una nómina, los dos libros. La segunda columna es la propuesta: si hay que
-- confirmarla lo dice INTERFAZ_NOMINA.
CREATE OR ALTER PROCEDURE CONTABIL_NOMINA (ID integer)
RETURNS (ERRORES integer, CNTB_ID integer)
AS
  DECLARE CONFIRMAR char(1);
BEGIN
  EXECUTE PROCEDURE CONTABILICE_DOCUMENTO(92, ID, NULL)
  RETURNING_VALUES :ERRORES, :CONFIRMAR, :CNTB_ID;
  SUSPEND;
END^

-- Contabiliza un pago de nómina. Columnas como CONTABIL_NOMINA.
CREATE OR ALTER PROCEDURE CONTABIL_PAGONOMI (ID integer)
RETURNS (ERRORES integer, CNTB_ID integer)
AS
  DECLARE CONFIRMAR char(1);
BEGIN
  EXECUTE PROCEDURE CONTABILICE_DOCUMENTO(91, ID, NULL)
  RETURNING_VALUES :ERRORES, :CONFIRMAR, :CNTB_ID;
  SUSPEND;
END^

-- Contabiliza un préstamo a un empleado.
CREATE OR ALTER PROCEDURE CONTABIL_PRESTAMO (ID integer)
RETURNS (ERRORES integer, CONFIRMAR char(1), CNTB_ID integer)
AS
BEGIN
  EXECUTE PROCEDURE CONTABILICE_DOCUMENTO(95, ID, NULL)
  RETURNING_VALUES :ERRORES, :CONFIRMAR, :CNTB_ID;
  SUSPEND;
END^

SET TERM ; ^
