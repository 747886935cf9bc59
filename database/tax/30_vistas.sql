-- Cómo se identifica cada tercero en los medios magnéticos: la persona con sus apellidos y nombres,
-- los demás con su razón social; el dígito solo con el tipo 31; departamento y municipio solo en
-- Colombia (169). La leen CALCULE_MEDIO y Tfrevisamedio, que pone al día las filas de un tercero
-- que se acaba de corregir.
CREATE OR ALTER VIEW VISTA_TERCERO_MEDIO (TERC_NIT, TERC_SIMPLIFICA, MEMG_TIPODOC, MEMG_DV,
  MEMG_APELLIDO1, MEMG_APELLIDO2, MEMG_NOMBRE1, MEMG_NOMBRE2, MEMG_RAZONSOCIAL, MEMG_DIRECCION,
  MEMG_DEPARTAMENTO, MEMG_MUNICIPIO, MEMG_PAIS) AS
SELECT T.TERC_NIT, T.TERC_SIMPLIFICA,
  iif(K.TIID_CODIGO SIMILAR TO '[0-9]{1,4}', cast(K.TIID_CODIGO AS integer), NULL),
  iif(K.TIID_CODIGO = '31', T.TERC_DV, NULL),
  iif(T.TERC_APELLIDO1 <> '' OR T.TERC_NOMBRE1 <> '', T.TERC_APELLIDO1, NULL),
  iif(T.TERC_APELLIDO1 <> '' OR T.TERC_NOMBRE1 <> '', T.TERC_APELLIDO2, NULL),
  iif(T.TERC_APELLIDO1 <> '' OR T.TERC_NOMBRE1 <> '', T.TERC_NOMBRE1, NULL),
  iif(T.TERC_APELLIDO1 <> '' OR T.TERC_NOMBRE1 <> '', T.TERC_NOMBRE2, NULL),
  iif(T.TERC_APELLIDO1 <> '' OR T.TERC_NOMBRE1 <> '', NULL, T.TERC_NOM), T.TERC_DIR,
  iif(coalesce(T.PAIS_ID, '169') = '169', substring(T.CIUD_COD FROM 1 FOR 2), NULL),
  iif(coalesce(T.PAIS_ID, '169') = '169', substring(T.CIUD_COD FROM 3 FOR 3), NULL),
  coalesce(T.PAIS_ID, '169')
FROM TERCEROS T
LEFT JOIN TIPO_ID K ON K.TIID_COD = T.TERC_TIPOID;
