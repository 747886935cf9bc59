#include "reports/tfnotasestados.h"

#include "toolkit/controles/editordato.h"

Tfnotasestados::Tfnotasestados() : FormaNota("Tfnotasestados", "Nueva nota") {
    CNotasestados.AfterInsert = [this] { CNotasestadosAfterInsert(); };
}

void Tfnotasestados::FormCreate() {
    const CursorPeriodo sesion = fdmcnt().cursor();
    muestre_periodo(sesion.ano, sesion.numero());
    abra("0");
    CNotasestados.Append();
    ETitulo->setFocus();
}

void Tfnotasestados::CNotasestadosAfterInsert() {
    CNotasestados.FieldByName("NOEF_ID") = 0; // el número lo da la base
    CNotasestados.FieldByName("NOEF_ANO") = ano();
    CNotasestados.FieldByName("NOEF_PERIODO") = numero_de_periodo();
    CNotasestados.FieldByName("NOEF_NUMERO") = numero_siguiente();
}
