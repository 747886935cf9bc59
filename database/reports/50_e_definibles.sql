-- Cifras de una referencia de los informes que define el usuario. Una cuenta mayor suma lo que
-- cuelga de su código. Los saldos finales son de saldo_cuenta_mes y saldo_centro_mes.

SET TERM ^ ;

--<LIBROS>
-- Movimiento de una cuenta en un mes (1 a 14). CUAL "S", débitos; "N", créditos; "X", débitos menos
-- créditos. Lo llama Tfimpinforme.
CREATE OR ALTER PROCEDURE MOVIMIENTO_CUENTA_MES{_NIIF} (
  CUENTA varchar(20), ANO varchar(4), MES smallint, CUAL char(1))
RETURNS (VALOR numeric(15,2))
AS
BEGIN
  VALOR = coalesce((SELECT sum(decode(:CUAL, 'S', DEBITOS, 'N', CREDITOS, DEBITOS - CREDITOS))
    FROM LEA_SALDOS_CUENTA{_NIIF}(:CUENTA, :ANO, :MES)), 0);
  SUSPEND;
END^

-- Lo mismo en un proyecto y centro. Lo llama Tfimpinforme.
CREATE OR ALTER PROCEDURE MOVIMIENTO_CENTRO_MES{_N} (CUENTA varchar(20), PROYECTO varchar(4),
  CENTRO varchar(4), ANO varchar(4), MES smallint, CUAL char(1))
RETURNS (VALOR numeric(15,2))
AS
BEGIN
  VALOR = coalesce((SELECT sum(decode(:CUAL, 'S', DEBITOS, 'N', CREDITOS, DEBITOS - CREDITOS))
    FROM LEA_SALDOS_CENTRO{_NIIF}(:CUENTA, coalesce(:PROYECTO, ''), coalesce(:CENTRO, ''), :ANO,
      :MES)), 0);
  SUSPEND;
END^

-- Débitos menos créditos de una cuenta en un mes, sin mirar centros. Lo llama Tfimpinforme.
CREATE OR ALTER PROCEDURE MOVIMIENTO_NETO_CUENTA_MES{_N} (
  CUENTA varchar(20), ANO varchar(4), MES smallint)
RETURNS (VALOR numeric(15,2))
AS
BEGIN
  VALOR = coalesce((SELECT sum(DEBITOS - CREDITOS)
    FROM LEA_SALDOS_CUENTA{_NIIF}(:CUENTA, :ANO, :MES)), 0);
  SUSPEND;
END^

-- Base de retenciones e impuestos de una cuenta en un mes, y a qué porcentaje de ella equivale su
-- movimiento neto (0 sin base). Es lo único que lee las líneas: las bases no tienen saldo mensual.
-- Con proyecto y centro, los dos, solo las suyas. La base de un renglón al débito y la de uno al
-- crédito se restan, como sus valores; el signo con que se haya digitado no cuenta. La unión es
-- externa para que el motor entre por las cuentas y no por todas las líneas. Lo llama Tfimpinforme.
CREATE OR ALTER PROCEDURE BASE_CUENTA_MES{_NIIF} (CUENTA varchar(20), ANO varchar(4), MES smallint,
  PROYECTO varchar(4), CENTRO varchar(4))
RETURNS (BASE numeric(15,2), PORCENTAJE numeric(15,4))
AS
  DECLARE PREFIJO varchar(6);
  DECLARE NETO numeric(18,2);
BEGIN
  PREFIJO = ANO || lpad(MES, 2, '0');
  SELECT coalesce(sum(iif(coalesce(D.CODE_CREDITO, 0) > coalesce(D.CODE_DEBITO, 0),
      -abs(D.CODE_BASE), abs(D.CODE_BASE))), 0),
    coalesce(sum(coalesce(D.CODE_DEBITO, 0) - coalesce(D.CODE_CREDITO, 0)), 0)
  FROM {CUENTAS} C
  LEFT JOIN {DETALLE} D ON D.CUEN_COD = C.CUEN_COD AND D.CODE_FECHA >= :PREFIJO
    AND D.CODE_FECHA < :PREFIJO || '99'
  WHERE C.CUEN_COD STARTING WITH :CUENTA AND coalesce(D.CODE_BASE, 0) <> 0
    AND (coalesce(:PROYECTO, '') = '' OR coalesce(:CENTRO, '') = ''
      OR (D.PROY_COD = :PROYECTO AND D.CENT_COD = :CENTRO))
  INTO :BASE, :NETO;
  PORCENTAJE = iif(BASE = 0, 0, cast(NETO AS double precision) * 100 / nullif(BASE, 0));
  BASE = abs(BASE);
  SUSPEND;
END^
--</LIBROS>

SET TERM ; ^
