-- Auxiliares por rango de cuentas y fechas, los de los informes.
--
-- Límites: los códigos y las fechas "aaaammdd" se comparan como texto, con los dos extremos; una
-- cuenta arriba incluye las que cuelgan de ella y "ZZ" es hasta el último. Un proyecto, centro o
-- NIT que falta va vacío: entra si el límite de abajo es vacío y no si es "0". Las fechas llegan a
-- los meses 13 y 14, que siguen a diciembre.
-- CONCEPTO y REF son los de la línea y, si no los tiene, los del encabezado. CATEGORIA es la de la
-- línea (CONC_COD).
-- Saldos, débitos menos créditos. El de partida es de la clave antes del primer día, dentro de los
-- proyectos y centros pedidos, y se repite en todas sus filas: partida más débitos menos créditos
-- de las filas de la clave da siempre el final.
-- SINMOV "S" agrega una fila por clave sin movimiento en las fechas, con los datos del comprobante
-- nulos y el importe en cero.
--
-- Las líneas se cruzan con los saldos de sus claves, que son pocos, por igualdad y sin índices: el
-- motor los dispersa una vez. ITEM va al final para quien reordena.

SET TERM ^ ;

--<LIBROS>
-- Auxiliar por cuenta. Por CUENTA, FECHA, tipo, prefijo, número y línea. INICIAL: saldo de partida
-- de la cuenta. SALDO: el de la cuenta en el proyecto y centro de la fila, para quien agrupa por
-- centros. Sin movimiento salen la cuenta en cada centro en que tiene saldo y, sin centro, la que
-- no tiene ninguno y puede llevar movimiento. SOLO_CENTRO "S": la fila sobra si no se agrupa por
-- centros, porque la cuenta ya tiene otra. Lo llama Tfrngauxiliarcta.
CREATE OR ALTER PROCEDURE AUXILIAR_DESDE_HASTA{_NIIF} (CTAINI varchar(20), CTAFIN varchar(20),
  FECINI varchar(20), FECFIN varchar(20), PROYINI varchar(20), PROYFIN varchar(20),
  CENTINI varchar(20), CENTFIN varchar(20), SINMOV char(1))
RETURNS (ID integer, CUENTA varchar(20), TIPOCOMP varchar(3), PREFIJO varchar(4),
  NUMERO varchar(8), FECHA varchar(8), CONCEPTO varchar(60), NIT varchar(20), REF varchar(20),
  BASE numeric(15,2), PORC numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2),
  PROYECTO varchar(4), CENTRO varchar(4), TIPOREF integer, IDREF integer, NOMCUENTA varchar(60),
  SALDO numeric(15,2), CATEGORIA varchar(4), INICIAL numeric(15,2), ITEM integer,
  SOLO_CENTRO char(1))
AS
  DECLARE CTASIN varchar(20);
BEGIN
  CTAFIN = HASTA_CUENTA(CTAFIN);
  PROYFIN = HASTA_CODIGO(PROYFIN);
  CENTFIN = HASTA_CODIGO(CENTFIN);
  FECINI = FECHA_LIMITE(FECINI);
  FECFIN = FECHA_LIMITE(FECFIN);
  CTASIN = iif(SINMOV = 'S', CTAFIN, '');
  FOR
    SELECT E.ENCO_CONSEC, L.CUENTA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(L.CONCEPTO, E.ENCO_CONCEPTO), L.NIT, coalesce(L.REFER, E.ENCO_REFER), L.BASE,
      L.PORC, L.DEBITO, L.CREDITO, L.PROYECTO, L.CENTRO, E.ENCO_TIPOREF, E.ENCO_IDREF, C.CUEN_NOM,
      K.SALDO, L.CATEGORIA, K.INICIAL, L.ITEM,
      iif(L.ID IS NULL AND (K.DE_LA_CUENTA > 0 OR K.TURNO > 1), 'S', 'N')
    FROM (
      SELECT CUENTA, PROYECTO, CENTRO, sum(PARTIDA) SALDO, sum(LINEAS) LINEAS,
        sum(sum(PARTIDA)) OVER (PARTITION BY CUENTA) INICIAL,
        sum(sum(LINEAS)) OVER (PARTITION BY CUENTA) DE_LA_CUENTA,
        sum(iif(sum(PARTIDA) <> 0, 1, 0)) OVER (PARTITION BY CUENTA) CON_SALDO,
        row_number() OVER (PARTITION BY CUENTA
          ORDER BY iif(sum(PARTIDA) <> 0 AND sum(LINEAS) = 0, 0, 1), PROYECTO, CENTRO) TURNO
      FROM (
        SELECT CUENTA, PROYECTO, CENTRO, INICIAL PARTIDA, 0 LINEAS
        FROM LEA_INICIALES{_NIIF}('N', :CTAINI, :CTAFIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI,
          :CENTFIN, :FECINI, substring(:FECFIN FROM 1 FOR 4))
        UNION ALL
        SELECT CUENTA, PROYECTO, CENTRO, 0, 1
        FROM LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI, :CENTFIN,
          :FECINI, :FECFIN)
        UNION ALL
        SELECT CUEN_COD, '', '', 0, 0
        FROM {CUENTAS} WHERE CUEN_COD BETWEEN :CTAINI AND :CTASIN)
      GROUP BY CUENTA, PROYECTO, CENTRO) K
    JOIN (
      SELECT CUENTA, NIT, PROYECTO, CENTRO, ID, ITEM, CONCEPTO, REFER, BASE, PORC, DEBITO, CREDITO,
        CATEGORIA
      FROM LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI, :CENTFIN,
        :FECINI, :FECFIN)
      UNION ALL
      SELECT CUEN_COD, '', '', '', NULL, NULL, NULL, NULL, NULL, NULL, 0, 0, ''
      FROM {CUENTAS} WHERE CUEN_COD BETWEEN :CTAINI AND :CTASIN
      UNION ALL
      SELECT CUENTA, '', PROYECTO, CENTRO, NULL, NULL, NULL, NULL, NULL, NULL, 0, 0, ''
      FROM LEA_INICIALES{_NIIF}('N', :CTAINI, :CTASIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI,
        :CENTFIN, :FECINI, substring(:FECFIN FROM 1 FOR 4))
      WHERE PROYECTO <> '' OR CENTRO <> '') L
    ON L.CUENTA = K.CUENTA AND L.PROYECTO = K.PROYECTO AND L.CENTRO = K.CENTRO
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = L.CUENTA
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = L.ID
    WHERE L.ID IS NOT NULL OR (K.LINEAS = 0 AND (K.SALDO <> 0
      OR (K.DE_LA_CUENTA = 0 AND K.CON_SALDO = 0 AND L.PROYECTO = '' AND L.CENTRO = ''
        AND C.CUEN_AFECTABLE = 'S')))
    ORDER BY L.CUENTA, E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, L.ITEM, L.PROYECTO,
      L.CENTRO
    INTO :ID, :CUENTA, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :NIT, :REF, :BASE, :PORC,
      :DEBITO, :CREDITO, :PROYECTO, :CENTRO, :TIPOREF, :IDREF, :NOMCUENTA, :SALDO, :CATEGORIA,
      :INICIAL, :ITEM, :SOLO_CENTRO
  DO
    SUSPEND;
END^

-- Auxiliar por tercero. Por CUENTA, NIT, FECHA, tipo, prefijo, número y línea. CUENTANIT: la cuenta
-- y el NIT en una clave. SALDO y SALDOFIN: partida y final del tercero en la cuenta. SALDOCTA y
-- SALDOCTAF: los de la cuenta en todos los terceros del rango, se listen o no. Sin movimiento salen
-- los terceros con saldo. Lo llama Tfrngauxiliarter.
CREATE OR ALTER PROCEDURE AUXILIAR_TERCERO_DESDE_HASTA{_N} (CTAINI varchar(20),
  CTAFIN varchar(20), NITINI varchar(20), NITFIN varchar(20), FECINI varchar(20),
  FECFIN varchar(20), PROYINI varchar(20), PROYFIN varchar(20), CENTINI varchar(20),
  CENTFIN varchar(20), SINMOV char(1))
RETURNS (ID integer, CUENTA varchar(20), TIPOCOMP varchar(3), PREFIJO varchar(4),
  NUMERO varchar(8), FECHA varchar(8), CONCEPTO varchar(60), NIT varchar(20), REF varchar(20),
  BASE numeric(15,2), PORC numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2),
  PROYECTO varchar(4), CENTRO varchar(4), TIPOREF integer, IDREF integer, NOMCUENTA varchar(60),
  NOMTERCERO D_NOMBRE, CUENTANIT varchar(40), SALDO numeric(15,2), SALDOFIN numeric(15,2),
  SALDOCTA numeric(15,2), DV char(1), SALDOCTAF numeric(15,2), ITEM integer)
AS
  DECLARE CTASIN varchar(20);
BEGIN
  CTAFIN = HASTA_CUENTA(CTAFIN);
  NITFIN = HASTA_CODIGO(NITFIN);
  PROYFIN = HASTA_CODIGO(PROYFIN);
  CENTFIN = HASTA_CODIGO(CENTFIN);
  FECINI = FECHA_LIMITE(FECINI);
  FECFIN = FECHA_LIMITE(FECFIN);
  CTASIN = iif(SINMOV = 'S', CTAFIN, '');
  FOR
    SELECT E.ENCO_CONSEC, L.CUENTA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(L.CONCEPTO, E.ENCO_CONCEPTO), L.NIT, coalesce(L.REFER, E.ENCO_REFER), L.BASE,
      L.PORC, L.DEBITO, L.CREDITO, L.PROYECTO, L.CENTRO, E.ENCO_TIPOREF, E.ENCO_IDREF, C.CUEN_NOM,
      T.TERC_NOM, L.CUENTA || L.NIT, K.SALDO, K.SALDOFIN, K.SALDOCTA, T.TERC_DV, K.SALDOCTAF,
      L.ITEM
    FROM (
      SELECT CUENTA, NIT, sum(PARTIDA) SALDO, sum(PARTIDA + NETO) SALDOFIN,
        sum(sum(PARTIDA)) OVER (PARTITION BY CUENTA) SALDOCTA,
        sum(sum(PARTIDA + NETO)) OVER (PARTITION BY CUENTA) SALDOCTAF, sum(LINEAS) LINEAS
      FROM (
        SELECT CUENTA, NIT, INICIAL PARTIDA, 0 NETO, 0 LINEAS
        FROM LEA_INICIALES{_NIIF}('S', :CTAINI, :CTAFIN, :NITINI, :NITFIN, :PROYINI, :PROYFIN,
          :CENTINI, :CENTFIN, :FECINI, substring(:FECFIN FROM 1 FOR 4))
        UNION ALL
        SELECT CUENTA, NIT, 0, DEBITO - CREDITO, 1
        FROM LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, :NITINI, :NITFIN, :PROYINI, :PROYFIN, :CENTINI,
          :CENTFIN, :FECINI, :FECFIN))
      GROUP BY CUENTA, NIT) K
    JOIN (
      SELECT CUENTA, NIT, PROYECTO, CENTRO, ID, ITEM, CONCEPTO, REFER, BASE, PORC, DEBITO, CREDITO
      FROM LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, :NITINI, :NITFIN, :PROYINI, :PROYFIN, :CENTINI,
        :CENTFIN, :FECINI, :FECFIN)
      UNION ALL
      SELECT CUENTA, NIT, '', '', NULL, NULL, NULL, NULL, NULL, NULL, 0, 0
      FROM LEA_INICIALES{_NIIF}('S', :CTAINI, :CTASIN, :NITINI, :NITFIN, :PROYINI, :PROYFIN,
        :CENTINI, :CENTFIN, :FECINI, substring(:FECFIN FROM 1 FOR 4))) L
    ON L.CUENTA = K.CUENTA AND L.NIT = K.NIT
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = L.CUENTA
    LEFT JOIN TERCEROS T ON T.TERC_NIT = L.NIT
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = L.ID
    WHERE L.ID IS NOT NULL OR (K.LINEAS = 0 AND K.SALDO <> 0)
    ORDER BY L.CUENTA, L.NIT, E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, L.ITEM
    INTO :ID, :CUENTA, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :NIT, :REF, :BASE, :PORC,
      :DEBITO, :CREDITO, :PROYECTO, :CENTRO, :TIPOREF, :IDREF, :NOMCUENTA, :NOMTERCERO,
      :CUENTANIT, :SALDO, :SALDOFIN, :SALDOCTA, :DV, :SALDOCTAF, :ITEM
  DO
    SUSPEND;
END^

-- Auxiliar por centro de costo. Por CUENTA, PROYECTO, CENTRO, NIT, FECHA, tipo, prefijo, número y
-- línea: el NIT va antes que la fecha para que se pueda agrupar por tercero dentro del centro.
-- CTAPROY y CTAPROYCENT: la cuenta con su proyecto y con su centro en una clave, el proyecto a
-- cuatro posiciones. SALDO y SALDOF: partida y final de CTAPROYCENT. TERCERO: nombre del tercero.
-- Lo llama Tfrngauxiliarcent.
CREATE OR ALTER PROCEDURE AUXILIAR_CENTRO_DESDE_HASTA{_N} (CTAINI varchar(20), CTAFIN varchar(20),
  PROYINI varchar(20), PROYFIN varchar(20), CENTINI varchar(20), CENTFIN varchar(20),
  FECINI varchar(20), FECFIN varchar(20))
RETURNS (ID integer, CUENTA varchar(20), TIPOCOMP varchar(3), PREFIJO varchar(4),
  NUMERO varchar(8), FECHA varchar(8), CONCEPTO varchar(60), NIT varchar(20), REF varchar(20),
  BASE numeric(15,2), PORC numeric(15,4), DEBITO numeric(15,2), CREDITO numeric(15,2),
  PROYECTO varchar(4), CENTRO varchar(4), TIPOREF integer, IDREF integer, NOMCUENTA varchar(60),
  NOMPROY D_NOMBRE, NOMCENT D_NOMBRE, CTAPROY varchar(24), CTAPROYCENT varchar(28),
  SALDO numeric(15,2), TERCERO D_NOMBRE, SALDOF numeric(15,2), ITEM integer)
AS
BEGIN
  CTAFIN = HASTA_CUENTA(CTAFIN);
  PROYFIN = HASTA_CODIGO(PROYFIN);
  CENTFIN = HASTA_CODIGO(CENTFIN);
  FECINI = FECHA_LIMITE(FECINI);
  FECFIN = FECHA_LIMITE(FECFIN);
  FOR
    SELECT E.ENCO_CONSEC, L.CUENTA, E.TICO_COD, E.PRCO_PREF, E.ENCO_NUMERO, E.ENCO_FECHA,
      coalesce(L.CONCEPTO, E.ENCO_CONCEPTO), L.NIT, coalesce(L.REFER, E.ENCO_REFER), L.BASE,
      L.PORC, L.DEBITO, L.CREDITO, L.PROYECTO, L.CENTRO, E.ENCO_TIPOREF, E.ENCO_IDREF, C.CUEN_NOM,
      P.PROY_NOM, N.CENT_NOM, L.CUENTA || rpad(L.PROYECTO, 4),
      L.CUENTA || rpad(L.PROYECTO, 4) || L.CENTRO, K.SALDO, T.TERC_NOM, K.SALDOF, L.ITEM
    FROM (
      SELECT CUENTA, PROYECTO, CENTRO, sum(PARTIDA) SALDO, sum(PARTIDA + NETO) SALDOF
      FROM (
        SELECT CUENTA, PROYECTO, CENTRO, INICIAL PARTIDA, 0 NETO
        FROM LEA_INICIALES{_NIIF}('N', :CTAINI, :CTAFIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI,
          :CENTFIN, :FECINI, substring(:FECFIN FROM 1 FOR 4))
        UNION ALL
        SELECT CUENTA, PROYECTO, CENTRO, 0, DEBITO - CREDITO
        FROM LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI, :CENTFIN,
          :FECINI, :FECFIN))
      GROUP BY CUENTA, PROYECTO, CENTRO) K
    JOIN LEA_LINEAS{_NIIF}(:CTAINI, :CTAFIN, NULL, NULL, :PROYINI, :PROYFIN, :CENTINI, :CENTFIN,
      :FECINI, :FECFIN) L
    ON L.CUENTA = K.CUENTA AND L.PROYECTO = K.PROYECTO AND L.CENTRO = K.CENTRO
    LEFT JOIN {CUENTAS} C ON C.CUEN_COD = L.CUENTA
    LEFT JOIN PROYECTOS P ON P.PROY_COD = L.PROYECTO
    LEFT JOIN CENTROS N ON N.PROY_COD = L.PROYECTO AND N.CENT_COD = L.CENTRO
    LEFT JOIN TERCEROS T ON T.TERC_NIT = L.NIT
    LEFT JOIN COMPROBANTE_ENCABEZADO E ON E.ENCO_CONSEC = L.ID
    ORDER BY L.CUENTA, L.PROYECTO, L.CENTRO, L.NIT, E.ENCO_FECHA, E.TICO_COD, E.PRCO_PREF,
      E.ENCO_NUMERO, L.ITEM
    INTO :ID, :CUENTA, :TIPOCOMP, :PREFIJO, :NUMERO, :FECHA, :CONCEPTO, :NIT, :REF, :BASE, :PORC,
      :DEBITO, :CREDITO, :PROYECTO, :CENTRO, :TIPOREF, :IDREF, :NOMCUENTA, :NOMPROY, :NOMCENT,
      :CTAPROY, :CTAPROYCENT, :SALDO, :TERCERO, :SALDOF, :ITEM
  DO
    SUSPEND;
END^
--</LIBROS>

SET TERM ; ^
