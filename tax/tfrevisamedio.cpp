#include "tax/tfrevisamedio.h"

#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "tax/esquema.h"
#include "tax/revision_medio.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/texto_de_fila.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/rejilla.h"

#include <QApplication>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

Rejilla* cree_rejilla(const QString& nombre, ConjuntoDatos* conjunto, const QString& titulo,
                      QSplitter* division) {
    auto* marco = new QGroupBox(titulo, division);
    auto* r = new Rejilla(marco, conjunto);
    r->setObjectName(nombre);
    r->setAccessibleName(titulo);
    r->ReadOnly = true;
    r->orden_local = true;
    r->titulo_impreso = titulo + "  %[Today]";
    r->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    (new QVBoxLayout(marco))->addWidget(r);
    return r;
}

} // namespace

Tfrevisamedio::Tfrevisamedio() : Pantalla("Tfrevisamedio", "Revisión del medio magnético") {
    CProblemas = new ConjuntoDatos(this, "CProblemas");
    CProblemas->texto("CONCEPTO", 10).etiqueta("Concepto");
    CProblemas->texto("NIT", 20).etiqueta("NIT");
    CProblemas->texto("NOMBRE", 130).etiqueta("Nombre");
    CProblemas->texto("CAUSA", 250).etiqueta("Qué le pasa");
    CCuadre = new ConjuntoDatos(this, "CCuadre");
    CCuadre->texto("CONCEPTO", 10).etiqueta("Concepto");
    CCuadre->texto("CUENTA", 20).etiqueta("Cuenta");
    CCuadre->texto("NOMBRE", 60).etiqueta("Nombre");
    for (const auto& [campo, rotulo] :
         {std::pair{"ARCHIVO", "Archivo"}, {"LIBRO", "Libro"}, {"DIFERENCIA", "Diferencia"}})
        CCuadre->decimal(campo).etiqueta(rotulo).formato(kImporteConCero);

    LResumen = new QLabel(this);
    LResumen->setObjectName("LResumen");
    LResumen->setWordWrap(true);
    LResumen->setTextFormat(Qt::PlainText);
    auto* division = new QSplitter(Qt::Vertical, this);
    division->setChildrenCollapsible(false);
    DBGridEh1 = cree_rejilla("DBGridEh1", CProblemas, "Por corregir", division);
    DBGridEh1->columnas({{"CONCEPTO", "Concepto", 9},
                         {"NIT", "NIT", 14},
                         {"NOMBRE", "Nombre", 34},
                         {"CAUSA", "Qué le pasa", 56}});
    ECausa = new TextoDeFila(*CProblemas, "CAUSA", "ECausa", "Qué le pasa", 2);
    DBGridEh1->parentWidget()->layout()->addWidget(ECausa);
    DBGridEh1->texto_vacio = "Nada por corregir.";
    DBGridEh1->nombre_archivo = "PorCorregir";
    DBGridEh1->OnReturn = [this] { SBTerceroClick(); };
    DBGridEh1->OnDblClick = [this](int) { SBTerceroClick(); };
    DBGridEh2 = cree_rejilla(
        "DBGridEh2", CCuadre,
        "Cuadre con el libro, y cuentas con movimiento que ningún concepto toma", division);
    DBGridEh2->columnas({{"CONCEPTO", "Concepto", 9},
                         {"CUENTA", "Cuenta", 12},
                         {"NOMBRE", "Nombre", 40},
                         {"ARCHIVO", "Archivo", 17, Suma, kImporteConCero},
                         {"LIBRO", "Libro", 17, Suma, kImporteConCero},
                         {"DIFERENCIA", "Diferencia", 15, Suma, kImporteConCero}});
    // Un importe largo puede entrar después: la rejilla se desplaza antes que cortarlos.
    DBGridEh2->setProperty(AnchosRejilla::kLetrasDeNombre, 30);
    DBGridEh2->pie(true);
    DBGridEh2->texto_vacio = "El formato no tiene conceptos con movimiento.";
    DBGridEh2->nombre_archivo = "CuadreMedio";

    auto* barra = new BarraBotones(this);
    barra->principal(barra->boton("SBTercero", "Enter:Tercero", "system-users", {},
                                  [this] { SBTerceroClick(); }));
    SBGrabar = barra->boton("SBGrabar", "F5:Graba XML", "document-save", Qt::Key_F5,
                            [this] { SBGrabarClick(); });
    barra->separe();
    barra->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    tecla(Qt::Key_F12, "Cambiar de rejilla",
          [this] { (DBGridEh1->enfocada() ? DBGridEh2 : DBGridEh1)->setFocus(); });
    Formulario(this).ancha(LResumen, 0).ancha(division).botones(barra);
    tamano(960, 560);
}

void Tfrevisamedio::FormCreate() {
    const bool antes = trae<PideRevisionMedio>();
    SBGrabar->setVisible(antes);
    if (antes) {
        pedido_.medio = peticion<PideRevisionMedio>().medio;
    } else {
        quite_tecla(Qt::Key_F5);
        pedido_ = peticion<AbreRevisionMedio>();
    }
    lea();
}

void Tfrevisamedio::FormActivate() {
    if (!nit_abierto_.isEmpty())
        ponga_al_dia();
    DBGridEh1->setFocus();
}

void Tfrevisamedio::ponga_al_dia() {
    const QString nit = std::exchange(nit_abierto_, {});
    const FilasCorregidas r = corrija_filas_del_tercero(fdm().Quorvex, pedido_.medio.formato,
                                                        pedido_.medio.ano, nit, identificacion_);
    if (r.columnas.isEmpty() && !r.recalcular)
        return;
    QStringList datos;
    for (const QString& columna : r.columnas)
        datos << columna_en_palabras(columna);
    QString aviso = r.filas ? QStringLiteral("Se actualizó el tercero %1 en las filas guardadas "
                                             "(%2): %3. Los importes no cambian. ")
                                  .arg(nit, QString::number(r.filas), datos.join(", "))
                            : QString();
    if (r.recalcular)
        aviso += "Cambió su país o su régimen de IVA: recalcule para que sus retenciones queden en "
                 "la columna que les toca. ";
    if (!pedido_.archivos.isEmpty())
        aviso += "Los archivos ya grabados siguen con lo anterior: grábelos otra vez. ";
    const int fila = CProblemas->RecNo();
    lea(aviso);
    if (!CProblemas->IsEmpty())
        CProblemas->vaya_a(qBound(0, fila, CProblemas->RecordCount() - 1));
}

void Tfrevisamedio::lea(const QString& aviso) {
    for (ConjuntoDatos* c : {CProblemas, CCuadre}) {
        c->Close();
        c->CreateDataSet();
    }
    QString resumen = pedido_.medio.nombre + ", año " + pedido_.medio.ano + ". " + aviso;
    for (const ProblemaMedio& p :
         revise_medio(fdm().Quorvex, pedido_.medio.formato, pedido_.medio.ano))
        agregue_problema(p.concepto, p.nit, p.nombre, p.causa);
    if (trae<PideRevisionMedio>() && CProblemas->IsEmpty())
        resumen += "Ya no hay nada por corregir: F5 graba el archivo.";
    else if (trae<PideRevisionMedio>())
        resumen += "Hay filas que convendría corregir antes de grabar el archivo: en el tercero "
                   "(Enter), que pone al día sus filas, o a mano en la rejilla.";
    if (!pedido_.archivos.isEmpty()) {
        const int antes = CProblemas->RecordCount();
        lea_archivos(pedido_.archivos);
        resumen += "Se grabó en " + pedido_.archivos.join(", ") + ". " +
                   (CProblemas->RecordCount() == antes
                        ? QStringLiteral("Cumple el esquema de su formato.")
                        : QStringLiteral("NO cumple el esquema de su formato: corrija y repita."));
    }
    // Lo que no cuadra va primero: no hay que buscarlo.
    QVector<CuadreMedio> cuadre =
        cuadre_medio(fdm().Quorvex, pedido_.medio.formato, pedido_.medio.ano, pedido_.medio.inicio,
                     pedido_.medio.final);
    std::stable_partition(cuadre.begin(), cuadre.end(),
                          [](const CuadreMedio& r) { return !r.diferencia.es_cero(); });
    for (const CuadreMedio& r : cuadre) {
        CCuadre->Append();
        CCuadre->FieldByName("CONCEPTO") = r.concepto;
        CCuadre->FieldByName("CUENTA") = r.cuenta;
        CCuadre->FieldByName("NOMBRE") = r.nombre;
        CCuadre->FieldByName("ARCHIVO") = r.archivo;
        CCuadre->FieldByName("LIBRO") = r.libro;
        CCuadre->FieldByName("DIFERENCIA") = r.diferencia;
        CCuadre->Post();
    }
    CProblemas->First();
    CCuadre->First();
    LResumen->setText(resumen);
}

void Tfrevisamedio::lea_archivos(const QStringList& archivos) {
    for (const QString& archivo : archivos)
        for (const FallaEsquema& f : revise_xml(archivo, pedido_.medio.formato))
            agregue_problema({}, {}, QFileInfo(archivo).fileName(), f.texto);
}

void Tfrevisamedio::agregue_problema(const QString& concepto, const QString& nit,
                                     const QString& nombre, const QString& causa) {
    CProblemas->Append();
    CProblemas->FieldByName("CONCEPTO") = concepto;
    CProblemas->FieldByName("NIT") = nit;
    CProblemas->FieldByName("NOMBRE") = nombre;
    CProblemas->FieldByName("CAUSA") = causa.left(250);
    CProblemas->Post();
}

void Tfrevisamedio::SBTerceroClick() {
    const QString nit = CProblemas->IsEmpty() ? QString() : CProblemas->FieldByName("NIT").texto();
    if (nit.isEmpty()) {
        QApplication::beep();
        return;
    }
    identificacion_ = identificacion_medio(fdm().Quorvex, nit);
    nit_abierto_ = nit;
    pantallas().abrir("Tfmodtercero", AbreTercero{nit});
}

void Tfrevisamedio::SBGrabarClick() {
    responda<PideRevisionMedio>(true);
    close();
}
