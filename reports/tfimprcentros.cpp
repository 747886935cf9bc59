#include "reports/tfimprcentros.h"

#include "sesion/variables_informe.h"

#include "catalogues/forma_rango.h"
#include "sesion/instalacion.h"
#include "toolkit/dialogos.h"

#include <QMdiArea>

const QVector<DatosDirecto>& Tfimprcentros::directos() {
    static const QVector<DatosDirecto> tabla{
        {"Tfimprcentros", "Proyectos y centros de costo", "RCatacentros", "CCentros", "Centros",
         "select P.PROY_COD, P.PROY_NOM, C.CENT_COD, C.CENT_NOM,"
         " case when C.SUCU_ID = 0 then 'Todas' else S.SUCU_NOMBRE end AGENCIA,"
         " iif(C.CENT_COD is null, 0, 1) CENTROS"
         " from PROYECTOS P left join CENTROS C on C.PROY_COD = P.PROY_COD"
         " left join SUCURSALES S on S.SUCU_ID = C.SUCU_ID"
         " order by P.PROY_COD, C.CENT_COD"},
        {"Tipos", "Tipos de comprobante y prefijos", "RCatatipos", "CTipocomp", "Tipos",
         "select T.TICO_COD, T.TICO_NOM, iif(T.TICO_FORMATO = 'S', 'Formato propio', '') FORMATO,"
         " P.PRCO_PREF, P.PREF_NUMERO, iif(P.PRCO_AUTO = 'S', 'Automática', 'Manual') NUMERACION,"
         " iif(P.PRCO_ACTIVO = 'S', 'Activo', 'Inactivo') ESTADO, P.PRCO_USUARIO"
         " from TIPO_COMPROBANTE T left join PREFIJOS_CONTA P on P.TICO_COD = T.TICO_COD"
         " order by T.TICO_COD, P.PRCO_PREF"},
        // La rama del decreto trae también las plantillas sin líneas; la de NIIF, solo líneas.
        {"Plantillas", "Plantillas", "RCataplantillas", "CPlantillas", "Plantillas",
         "select E.PLAN_ID, E.TICO_COD, E.PRCO_PREF, E.PLAN_CONCEPTO, E.PLAN_REFER,"
         " E.PLAN_USUARIO, T.TICO_NOM, 1 ORDEN, 'Decreto 2649' LIBRO, D.PLDE_ITEM, D.CUEN_COD,"
         " C.CUEN_NOM, D.PLDE_CONCEPTO, D.PLDE_REFER, D.PLDE_DEBITOS, D.PLDE_CREDITOS, D.TERC_NIT,"
         " D.PROY_COD, D.CENT_COD, D.PLDE_BASE, D.PLDE_PORC"
         " from PLANTILLA_ENCABEZADO E"
         " left join TIPO_COMPROBANTE T on T.TICO_COD = E.TICO_COD"
         " left join PLANTILLA_DETALLE D on D.PLAN_ID = E.PLAN_ID"
         " left join CUENTAS C on C.CUEN_COD = D.CUEN_COD"
         " union all"
         " select E.PLAN_ID, E.TICO_COD, E.PRCO_PREF, E.PLAN_CONCEPTO, E.PLAN_REFER,"
         " E.PLAN_USUARIO, T.TICO_NOM, 2, 'NIIF', D.PLDE_ITEM, D.CUEN_COD,"
         " C.CUEN_NOM, D.PLDE_CONCEPTO, D.PLDE_REFER, D.PLDE_DEBITOS, D.PLDE_CREDITOS, D.TERC_NIT,"
         " D.PROY_COD, D.CENT_COD, D.PLDE_BASE, D.PLDE_PORC"
         " from PLANTILLA_ENCABEZADO E"
         " join PLANTILLA_DETALLE_NIIF D on D.PLAN_ID = E.PLAN_ID"
         " left join TIPO_COMPROBANTE T on T.TICO_COD = E.TICO_COD"
         " left join CUENTAS_NIIF C on C.CUEN_COD = D.CUEN_COD"
         " order by 2, 3, 4, 1, 8, 10"},
    };
    return tabla;
}

Tfimprcentros::Tfimprcentros(const DatosDirecto& datos)
    : Pantalla(datos.pantalla, datos.titulo), datos_(datos),
      CCatalogo(this, datos.conjunto, &PCatalogo) {
    CCatalogo.Instantanea = true;
    CCatalogo.Unidireccional = true;
}

void Tfimprcentros::FormCreate() {
    pida_cierre_al_crear();
    fdm().ConfigurarProviders(this);
    imprima();
}

void Tfimprcentros::imprima() {
    CCatalogo.Open(datos_.sql);
    if (CCatalogo.IsEmpty()) {
        muestre_mensaje("No hay datos que cumplan con los rangos indicados.");
        return;
    }
    MotorInformes motor(escritorio() ? escritorio()->area()->window() : nullptr);
    motor.nombre_archivo = datos_.reporte;
    motor.ProjectFile = ruta_informe("catalogos.rav");
    motor.abrir_proyecto(motor.ProjectFile);
    fije_variables(motor, datos_.titulo);
    motor.conecte(datos_.conexion, CCatalogo);
    motor.al_componer = [this] { CCatalogo.Close(); };
    motor.seleccionar_reporte(datos_.reporte);
    motor.ejecutar();
    motor.cerrar();
}
