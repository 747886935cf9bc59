#include "catalogues/lista_proceso.h"

#include "datos/recordset/condicion.h"
#include "sesion/peticiones.h"
#include "sesion/tfdm.h"
#include "sesion/tfdmcnt.h"
#include "toolkit/aviso_trabajo.h"
#include "toolkit/barrabotones.h"
#include "toolkit/barraestado.h"
#include "toolkit/dialogos.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/lista_teclas.h"
#include "toolkit/rejilla/rejilla.h"

#include <QLineEdit>

namespace {

ConjuntoDatos& nuevo(QObject* dueno, const QString& nombre, Proveedor* proveedor) {
    return *new ConjuntoDatos(dueno, nombre, proveedor);
}

} // namespace

ListaProceso::ListaProceso(const DatosLista& datos)
    : Pantalla(datos.clase, datos.titulo),
      CLista(nuevo(
          this, datos.conjunto,
          new Proveedor(this, 'P' + QString(datos.conjunto).mid(1), nullptr, poAllowCommandText))),
      CBorrar(nuevo(this, "CBorrar",
                    new Proveedor(this, "PBorrar", &fdm().QBorrar, poAllowCommandText))),
      datos_(datos), orden_(datos.orden), QLista(this, "QLista", fdm().Quorvex) {
    CLista.proveedor->sentencia = &QLista;
    for (const DatosLista::Filtro& filtro : datos_.filtros) {
        auto* caja = new QLineEdit(this);
        caja->setObjectName(filtro.nombre);
        caja->setMaxLength(filtro.ancho);
        constexpr int kCodigo = 24; // desde ahí es un texto, y toma el ancho que haya
        caja->setMinimumWidth(ancho_caracteres(fontMetrics(), qMin(filtro.ancho + 2, kCodigo)));
        if (filtro.ancho < kCodigo)
            caja->setMaximumWidth(caja->minimumWidth());
        connect(caja, &QLineEdit::returnPressed, this,
                [this] { proteja([this] { busque(orden_); }); });
        cajas_ << caja;
    }
    if (!cajas_.isEmpty())
        explique_tecla(*cajas_.first(), "Enter en una caja", "Buscar");
    DBGridEh1 = new Rejilla(this, &CLista);
    DBGridEh1->setObjectName("DBGridEh1");
    DBGridEh1->setAccessibleName(windowTitle());
    DBGridEh1->columnas(datos_.columnas);
    DBGridEh1->ReadOnly = true;
    DBGridEh1->texto_vacio = "No hay registros. F5 crea el primero.";
    DBGridEh1->nombre_archivo = datos_.archivo;
    DBGridEh1->titulo_impreso = windowTitle() + "  %[Today]";
    DBGridEh1->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, Rejilla::Imprimir, Rejilla::Guardar});
    DBGridEh1->OnTitleClick = [this](Campo& campo) { busque("order by " + campo.FieldName); };
    DBGridEh1->OnDblClick = [this](int) { escoja(); };
    barra_ = new BarraBotones(this);
    barra_->setObjectName("barra");

    Formulario f(this);
    if (!cajas_.isEmpty()) {
        auto* buscar = new QPushButton(icono("edit-find"), "&Buscar", this);
        buscar->setObjectName("SBBuscar");
        buscar->setAutoDefault(false);
        connect(buscar, &QPushButton::clicked, this,
                [this] { proteja([this] { busque(orden_); }); });
        QWidget* fila = Formulario::junto({cajas_[0], buscar});
        if (cajas_.size() > 1) {
            QWidget* otra = con_rotulo(datos_.filtros[1].rotulo, cajas_[1]);
            fila = Formulario::junto({cajas_[0], otra, buscar});
        }
        f.fila(datos_.filtros[0].rotulo, fila);
    }
    f.ancha(DBGridEh1).botones(barra_);
    tamano(940, 520);
}

void ListaProceso::arme_botones() {
    if (datos_.nuevo)
        barra_->boton("SBNuevo", "F5: Nuevo", "document-new", Qt::Key_F5,
                      [this] { SBNuevoClick(); });
    barra_->principal(barra_->boton("SBModificar", "F4:Modificar", "accessories-text-editor",
                                    Qt::Key_F4, [this] { SBModificarClick(); }));
    barra_->boton("SBBorrar", "F3:Eliminar", "edit-delete", Qt::Key_F3,
                  [this] { SBBorrarClick(); });
    botones_propios(*barra_);
}

// ---------------------------------------------------------------- vida

void ListaProceso::FormCreate() {
    arme_botones();
    barra_->separe();
    barra_->boton("SBSalir", "Esc:Salir", "window-close", Qt::Key_Escape, [this] { close(); });
    fdm().ConfigurarProviders(this);
    if (datos_.opcion && !fdm().exija_acceso(datos_.opcion)) {
        pida_cierre_al_crear();
        return;
    }
    busque(orden_);
    DBGridEh1->setFocus();
}

void ListaProceso::FormActivate() {
    if (std::exchange(recien_abierta_, false) || !CLista.Active())
        return;
    const QSet<QString> antes = llaves();
    const bool se_sabian = CLista.completo();
    CLista.Refresh();
    if (!se_sabian)
        return;
    // Lo que se acaba de hacer queda señalado: si no, F3 ofrecería borrar otro.
    const QSet<QString> nuevas = llaves() - antes;
    if (nuevas.size() == 1)
        CLista.Locate(datos_.llave, {*nuevas.begin()});
}

QSet<QString> ListaProceso::llaves() const {
    QSet<QString> todas;
    const Campo& llave = CLista.FieldByName(datos_.llave);
    for (int i = 0; i < CLista.RecordCount(); ++i)
        todas << CLista.valor_en(i, llave).texto();
    return todas;
}

bool ListaProceso::FormClose() {
    CLista.Close();
    return true;
}

// ---------------------------------------------------------------- consulta

QString ListaProceso::compone_query() const {
    QString sql = consulta(), conector = "where ";
    for (qsizetype i = 0; i < cajas_.size(); ++i) {
        const QString texto = cajas_[i]->text().trimmed();
        if (texto.isEmpty())
            continue;
        const DatosLista::Filtro& f = datos_.filtros[i];
        const QString condicion =
            f.desde ? f.columna + QStringLiteral(" >= ") + QuotedStr(QString(texto).remove('/'))
                    : condicion_contiene(f.columna, texto);
        sql += conector + condicion + ' ';
        conector = "and ";
    }
    return sql;
}

void ListaProceso::busque(const QString& orden) {
    orden_ = orden;
    CLista.Open(compone_query() + orden);
}

// ---------------------------------------------------------------- mantenimiento

void ListaProceso::SBNuevoClick() {
    pantallas().abrir(datos_.nuevo);
}

void ListaProceso::SBModificarClick() {
    if (!hay_fila())
        return;
    const QString id = dato("ENCO_CONSEC");
    abra_comprobante(id.isEmpty() ? QStringLiteral("0") : id);
}

void ListaProceso::SBBorrarClick() {
    if (!hay_fila())
        return;
    QStringList nombre;
    for (const QString& columna : datos_.nombra)
        nombre << CLista.FieldByName(columna).texto();
    if (!pregunte_con_no(datos_.pregunta + nombre.join(' ') + '?'))
        return;
    const Campo& llave = CLista.FieldByName(datos_.llave);
    {
        const AvisoTrabajo aviso(this, datos_.deshaciendo);
        CBorrar.Execute(datos_.borrado +
                        (llave.numerico() ? llave.texto() : QuotedStr(llave.texto())));
    }
    emit fdmcnt().balance_por_recalcular();
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(QString(datos_.pregunta).replace("Desea borrar definitivamente", "Se borró") +
                     nombre.join(' '));
    CLista.Refresh();
}
