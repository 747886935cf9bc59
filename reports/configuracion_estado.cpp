#include "reports/configuracion_estado.h"

#include "sesion/peticiones.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/rejilla/rejilla.h"

ConfiguracionEstado::ConfiguracionEstado(const DatosConfiguracion& datos)
    : RejillaCatalogo(datos.pantalla, QString::fromUtf8(datos.titulo),
                      QStringLiteral("select * from %1 order by %2SECCION, %2ID")
                          .arg(QLatin1String(datos.tabla), datos.prefijo),
                      fdm().Quorvex, QLatin1String(datos.pantalla).mid(6),
                      datos.prefijo + "CUENTA"),
      datos_(datos) {
    conjunto_->entero(columna("ID")).etiqueta("Item").banderas(pfInUpdate | pfInWhere | pfInKey);
    conjunto_->texto(columna("CUENTA"), 20).etiqueta("Cuenta a incluir");
    conjunto_->entero(columna("SECCION")).etiqueta("Sección");
    conjunto_->texto(columna("DB"), 1).etiqueta("Db/Cr");
    conjunto_->AfterInsert = [this] { AfterInsert(); };
    conjunto_->FieldByName(columna("CUENTA")).OnChange = [this](Campo& c) { cuenta_cambiada(c); };
    pregunta_.atienda(conjunto_->FieldByName(columna("CUENTA")));
    rotulo_grabar_ = "F2:Grabar";
}

void ConfiguracionEstado::FormCreate() {
    QStringList numeros;
    for (int i = 1; i <= datos_.secciones.size(); ++i)
        numeros << QString::number(i);
    DBGridEh1->lista(columna("SECCION"), datos_.secciones, numeros);
    DBGridEh1->lista(columna("DB"), {"Débito", "Crédito"}, {"S", "N"});
    RejillaCatalogo::FormCreate();
}

void ConfiguracionEstado::AfterInsert() {
    conjunto_->FieldByName(columna("SECCION")) = 1;
    conjunto_->FieldByName(columna("DB")) = "N";
    fila_nueva();
}

void ConfiguracionEstado::cuenta_cambiada(Campo& cuenta) {
    if (cuenta.vacio() || pregunta_.reponiendo())
        return;
    if (const auto texto = pregunta_.tome(cuenta)) {
        escoja_cuenta(
            *this, libro(), *texto,
            [&cuenta](const QString& escogida) {
                cuenta.conjunto().Edit();
                cuenta = escogida;
            },
            cuenta.texto());
    } else if (!fdmcnt().valide_cuenta(cuenta.texto(), libro())) {
        cuenta.limpie();
        throw EdicionAbortada(); // la celda queda abierta
    }
}
