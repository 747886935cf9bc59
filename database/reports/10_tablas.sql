-- Informes contables: lo que se guarda de ellos.

-- Notas a los estados financieros. NOEF_PERIODO 1 a 13; 0, todos los del año. NOEF_NOTA lleva el
-- texto con su formato (HTML), como lo imprime el informe. NOEF_CUENTA: a cuál se refiere.
CREATE TABLE NOTAS_ESTADOS_FINANCIEROS (
  NOEF_ID integer NOT NULL,
  NOEF_ANO smallint NOT NULL,
  NOEF_PERIODO smallint DEFAULT 0 NOT NULL,
  NOEF_CUENTA D_CUENTA,
  NOEF_NUMERO smallint,
  NOEF_TITULO varchar(60),
  NOEF_NOTA blob sub_type text
);
