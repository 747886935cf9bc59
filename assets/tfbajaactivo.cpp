#include "assets/tfbajaactivo.h"

#include "assets/pch.h"
#include "assets/peticiones_activos.h"
#include "assets/procesos_activos.h"

Tfbajaactivo::Tfbajaactivo()
    : FormaProceso(baja(), SinArmar{}),
      QBajas(this, "QBajas", fdm().Quorvex, "select * from activos_por_bajar"),
      PBajas(this, "PBajas", &QBajas), CBajas(this, "CBajas", &PBajas) {
    CBajas.texto("ACTIVO", 15);
    CBajas.texto("NOMBRE", 60);
    CBajas.decimal("VALOR").formato("#,###.00");
    CBajas.decimal("VALORNIIF").formato("#,###.00");
    DBGridEh1 = new Rejilla(this, &CBajas);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName("Activos por dar de baja");
    DBGridEh1->columnas({{"ACTIVO", "Activo", 12},
                         {"NOMBRE", "Descripción", 36},
                         {"VALOR", "Valor Dec. 2649", 16, Suma},
                         {"VALORNIIF", "Valor NIIF", 16, Suma}});
    DBGridEh1->ReadOnly = true;
    DBGridEh1->pie(true);
    DBGridEh1->texto_vacio =
        "No hay activos fuera de uso. F4 en la lista de activos abre la ficha y le quita la marca.";
    DBGridEh1->OnDblClick = [this](int) {
        if (!CBajas.IsEmpty())
            pantallas().abrir("Tfedtactivo", AbreActivo{CBajas.FieldByName("ACTIVO").texto()});
    };
    arme();
    tamano(820, 480);
}

void Tfbajaactivo::bajo_el_encabezado(Formulario& f) {
    f.ancha(DBGridEh1);
}

void Tfbajaactivo::FormCreate() {
    FormaProceso::FormCreate();
    CBajas.Open();
}

void Tfbajaactivo::FormActivate() {
    FormaProceso::FormActivate();
    if (CBajas.Active())
        CBajas.Refresh();
}
