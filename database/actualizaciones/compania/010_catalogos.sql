-- Dos que cambiaban el plan a la vez podían dejar como de movimiento una cuenta con auxiliares. Las
-- que quedaron así dejan de serlo; sus líneas, si tiene, las nombra la verificación.

--<LIBROS>
UPDATE {CUENTAS} C SET CUEN_AFECTABLE = 'N'
WHERE CUEN_AFECTABLE = 'S' AND EXISTS (SELECT 1 FROM {CUENTAS} A
  WHERE A.CUEN_COD STARTING WITH C.CUEN_COD AND char_length(A.CUEN_COD) > char_length(C.CUEN_COD));
--</LIBROS>
