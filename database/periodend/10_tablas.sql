-- Procesos de fin de período: cada fila es un proceso ya hecho y guarda el comprobante que produjo.

CREATE TABLE CIERRE_ANUAL (
  CIAN_ID integer NOT NULL,
  CIAN_CONCEPTO varchar(60),
  TERC_NIT D_NIT,
  TICO_COD varchar(3) NOT NULL,
  PRCO_PREF varchar(4) NOT NULL,
  ENCO_CONSEC integer,
  ENCO_NUMERO varchar(6),
  CIAN_FECHA varchar(8) NOT NULL,
  CIAN_REFER varchar(8),
  CIAN_USUARIO D_USUARIO,
  CIAN_NIIF char(1) DEFAULT 'C' NOT NULL
);

CREATE TABLE CIERRE_TERCEROS (
  CITE_ID integer NOT NULL,
  CITE_CONCEPTO varchar(60),
  TICO_COD varchar(3) NOT NULL,
  PRCO_PREF varchar(4) NOT NULL,
  ENCO_CONSEC integer,
  TERC_NIT D_NIT,
  CITE_REFER varchar(8),
  ENCO_NUMERO varchar(6),
  CITE_FECHA varchar(8) NOT NULL,
  CITE_USUARIO D_USUARIO,
  CITE_NIIF char(1) DEFAULT 'C' NOT NULL,
  CUEN_COD D_CUENTA NOT NULL
);

CREATE TABLE AJUSTES_INFLACION (
  AJUS_ID integer NOT NULL,
  TICO_COD varchar(3) NOT NULL,
  PRCO_PREF varchar(4) NOT NULL,
  AJUS_CONC varchar(60),
  AJUS_REFER varchar(8),
  ENCO_CONSEC integer,
  TERC_NIT D_NIT,
  ENCO_NUMERO varchar(6),
  AJUS_FECHA varchar(8) NOT NULL,
  AJUS_PAAG numeric(15,2) NOT NULL
);

CREATE TABLE CONCEPTOS (
  CONC_COD varchar(4) NOT NULL,
  CONC_NOM D_NOMBRE,
  CONC_DEBITO D_SN,
  CONC_CTACIERRE D_CUENTA,
  CONC_ANOINI varchar(4),
  CONC_MESINI integer,
  CONC_ANOFIN varchar(4),
  CONC_MESFIN integer,
  CONC_VENCE D_SN DEFAULT 'N'
);

CREATE TABLE CONCEPTOS_CUENTAS (
  CONC_COD varchar(4) NOT NULL,
  COCU_ITEM integer NOT NULL,
  CUEN_COD D_CUENTA NOT NULL,
  COCU_CUENTABASE D_CUENTA,
  COCU_BASE varchar(4) DEFAULT 'FIN',
  COCU_PORC numeric(15,2),
  COCU_MONTO D_MONEDA,
  COCU_DEBITO D_SN DEFAULT 'N',
  TERC_NIT D_NIT,
  PROY_COD D_CODIGO4,
  CENT_COD D_CODIGO4
);

CREATE TABLE REGISTRO_AUTOMATICO (
  REAU_COD varchar(4) NOT NULL,
  REAU_NOM D_NOMBRE,
  TICO_COD varchar(3),
  PRCO_PREF varchar(4)
);

CREATE TABLE REGISTRO_CONCEPTOS (
  REAU_COD varchar(4) NOT NULL,
  RECO_ITEM integer NOT NULL,
  CONC_COD varchar(4) NOT NULL
);

-- Cada vez que un registro automático se ejecutó: para decirlo antes de hacerlo otra vez. Se va con
-- su comprobante.
CREATE TABLE REGISTRO_EJECUCION (
  ENCO_CONSEC integer NOT NULL,
  REAU_COD varchar(4) NOT NULL,
  REEJ_ANO varchar(4) NOT NULL,
  REEJ_MES smallint NOT NULL
);
