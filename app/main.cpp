// Entrada del proceso. La arranca el módulo principal de la suite:
//   quorvex-contabilidad PUENTES usuario compañía clave-ofuscada [ubicación]
#include "app/aplicacion.h"
#include "app/registro.h"
#include "app/tfacercade.h"
#include "app/tfprincipal.h"
#include "sesion/modulos_suite.h"
#include "sesion/tfdmart.h"
#include "sesion/tfdmcnt.h"
#include "sesion/tfdmter.h"
#include "toolkit/regreso_teclado.h"

int main(int cuantos, char** argumentos) {
    Aplicacion aplicacion(cuantos, argumentos);
    Tfdm datos;
    Tfdmnomina datos_nomina;
    Tfacercade portada;
    portada.muestre_portada();
    Tfdmcnt datos_contables;
    TfdmArt datos_articulos;
    Tfdmter datos_terceros;
    Tfdmfact datos_facturacion;
    TfdmInv datos_inventario;
    Tfdmcxp datos_por_pagar;
    Tfdmcja datos_caja;
    Tfdmcar datos_cartera;
    Tfdmcmp datos_compras;
    Tfdmbnc datos_bancos;
    Tfdmcrm datos_clientes;
    registre_pantallas();
    Tfprincipal principal(Aplicacion::arguments().mid(1));
    QObject::connect(&principal, &Tfprincipal::activacion_terminada, &portada, &QWidget::hide);
    new RegresoTeclado(&principal);
    principal.showMaximized();
    portada.raise();
    return Aplicacion::exec();
}
