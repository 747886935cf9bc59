#pragma once
// Un contador que solo usa el teclado, sobre la pantalla de comprobantes.
#include "apoyo_gui/interlocutor.h"
#include "apoyo_gui/sesion_gui.h"
#include "toolkit/barraestado.h"
#include "toolkit/controles/editordato.h"
#include "toolkit/controles/editornumero.h"
#include "toolkit/controles/listadato.h"
#include "toolkit/rejilla/rejilla.h"
#include "vouchers/registro.h"
#include "vouchers/tfedtmovimien.h"
#include "vouchers/tfmovimien.h"

#include <QLineEdit>
#include <QTabWidget>

struct Digitador {
    explicit Digitador(SesionGui& sesion) : s(sesion) {
        registre_pantallas_comprobantes();
        s.cnt.dia_actual = "05";
    }
    Tfmovimien* abra() { return p = s.abra<Tfmovimien>("Tfmovimien"); }

    /// Encabezado: tipo, día y concepto, desde la lista de tipos.
    void encabezado(const QString& tipo, const QString& dia, const QString& concepto) {
        p->LTipo->setFocus();
        for (int i = 0; i < 20 && p->LTipo->valor().texto() != tipo; ++i)
            oprima(Qt::Key_Down);
        QCOMPARE(p->LTipo->valor().texto(), tipo);
        p->EDia->setFocus();
        p->EDia->selectAll();
        digite(dia);
        p->DBEdit1->setFocus();
        digite(concepto);
        if (qEnvironmentVariableIsSet("RASTRO")) qInfo() << QApplication::focusWidget() << p->DBEdit1->text() << p->CMovimiento.FieldByName("ENCO_CONCEPTO").texto() << int(p->CMovimiento.State());
        oprima(Qt::Key_Tab);
        if (qEnvironmentVariableIsSet("RASTRO")) qInfo() << QApplication::focusWidget() << p->DBEdit1->text() << p->CMovimiento.FieldByName("ENCO_CONCEPTO").texto() << int(p->CMovimiento.State());
    }
    Rejilla& rejilla() { return *p->lineas_a_la_vista().rejilla; }
    void entre_a_la_rejilla() {
        rejilla().setFocus();
        rejilla().SelectedIndex(0);
    }
    /// Recorre una línea celda por celda con Enter; "" deja la celda como esté.
    void linea(const QStringList& celdas) {
        for (const QString& celda : celdas) {
            if (!celda.isEmpty())
                digite(celda);
            if (qEnvironmentVariableIsSet("RASTRO")) qInfo() << rejilla().SelectedIndex() << celda << p->lineas_a_la_vista().detalle.RecNo() << this->celda("CUEN_COD") << this->celda("CODE_CONCEPTO") << this->celda("CODE_REFER") << int(p->CDetalle.State()) << QApplication::focusWidget();
            oprima(Qt::Key_Return);
        }
    }
    QString celda(const char* campo) {
        return p->lineas_a_la_vista().detalle.FieldByName(campo).texto();
    }

    SesionGui& s;
    Tfmovimien* p = nullptr;
};
