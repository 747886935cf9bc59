-- Dominios de la base de datos de la compañía.
-- Los nombres que la gente busca y ordena llevan la ordenación española (ES_ES): la eñe tras la
-- ene y las tildes junto a su vocal. Los códigos y las fechas quedan en orden binario.

CREATE DOMAIN D_NOMBRE AS varchar(60) COLLATE ES_ES;
CREATE DOMAIN D_CUENTA AS varchar(20);
CREATE DOMAIN D_NIT AS varchar(20);
CREATE DOMAIN D_CODIGO4 AS varchar(4);
CREATE DOMAIN D_ARTICULO AS varchar(15);
CREATE DOMAIN D_SN AS char(1);
-- Fecha contable "aaaammdd"; el mes llega a 13 (ajustes).
CREATE DOMAIN D_FECHA AS char(8);
CREATE DOMAIN D_MONEDA AS numeric(15,2);
CREATE DOMAIN D_TASA AS numeric(15,4);
CREATE DOMAIN D_USUARIO AS varchar(10);
