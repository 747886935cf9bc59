#include "reports/tfmodnotasestados.h"

#include "toolkit/controles/editorrico.h"
#include "toolkit/dialogos.h"

Tfmodnotasestados::Tfmodnotasestados() : FormaNota("Tfmodnotasestados", "Modificar nota") {}

void Tfmodnotasestados::FormCreate() {
    const QString id = peticion<AbreNota>().nota;
    abra(id.isEmpty() ? "0" : id);
    if (CNotasestados.IsEmpty()) {
        muestre_mensaje("No se encontró la nota indicada.");
        pida_cierre_al_crear();
        return;
    }
    muestre_periodo(int(CNotasestados.FieldByName("NOEF_ANO").entero()),
                    int(CNotasestados.FieldByName("NOEF_PERIODO").entero()));
    Editor->setFocus();
}
