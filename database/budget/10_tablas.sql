-- Presupuesto por cuenta y período (1 a 12 los meses, 13 ajustes). PRES_AFECTA "S" son las filas
-- que se digitan; las "N" son las sumas de las cuentas superiores, que lleva la base.

CREATE TABLE PRESUPUESTO (
  PRES_ANO varchar(4) NOT NULL,
  PRES_PERIODO integer NOT NULL,
  CUEN_COD D_CUENTA NOT NULL,
  PRES_DEBITO D_MONEDA,
  PRES_CREDITO D_MONEDA,
  PRES_AFECTA D_SN DEFAULT 'S' NOT NULL
);
