#include "vouchers/busqueda_por_tipo.h"

#include "vouchers/pch.h"

namespace {

/// Qué hacer cuando la búsqueda en todos los tipos lleva más de una condición.
QString texto_sobrantes(QStringList llenas) {
    const QString ultima = llenas.takeLast(), otras = llenas.join(", ");
    return QString("Con todos los tipos la búsqueda admite un solo dato y hay varios: %1 y %2. "
                   "Escoja un tipo o %3.")
        .arg(otras, ultima,
             llenas.size() == 1 ? QString("vacíe %1 o %2").arg(otras, ultima)
                                : QString("deje lleno solo uno de ellos"));
}

} // namespace

BusquedaPorTipo::BusquedaPorTipo(const QString& clase, const QString& titulo, Sentencia& sentencia,
                                 const QString& conjunto)
    : Pantalla(clase, titulo), PTipodoc(this, "PTipodoc", &fdm().TTipocomp),
      PBorrar(this, "PBorrar", &fdm().QBorrar, poAllowCommandText),
      proveedor_(this, 'P' + conjunto.mid(1), &sentencia, poAllowCommandText),
      CTipodoc(this, "CTipodoc", &PTipodoc), CVirtual(this, "CVirtual"),
      CBorrar(this, "CBorrar", &PBorrar), conjunto_(this, conjunto, &proveedor_) {
    campos_tipos_comprobante(CTipodoc);
    campos_tipos_comprobante(CVirtual);
    CVirtual.IndexFieldNames("TICO_NOM");
}

void BusquedaPorTipo::construya_filtros(const QVector<FiltroTexto>& filtros,
                                        const char* nombre_boton, bool con_fila,
                                        const Formulario::Par& antes) {
    filtros_ = new FiltrosBusqueda(CVirtual, filtros, nombre_boton, con_fila, antes, this);
}

Rejilla* BusquedaPorTipo::rejilla(const char* nombre, const QVector<DefinicionColumna>& columnas,
                                  const QString& archivo, Rejilla::Orden orden_imprimir) {
    auto* r = new Rejilla(this, &conjunto_);
    r->setObjectName(nombre);
    r->setAccessibleName(windowTitle());
    r->columnas(columnas);
    r->ReadOnly = true;
    r->nombre_archivo = archivo;
    r->titulo_impreso = windowTitle() + "  %[Today]";
    r->menu_emergente(
        {Rejilla::Copiar, Rejilla::SeleccionarTodo, orden_imprimir, Rejilla::Guardar});
    return r;
}

void BusquedaPorTipo::abra_tipos() {
    fdm().ConfigurarProviders(this);
    CTipodoc.Open();
    CVirtual.CreateDataSet();
    const auto agregue = [this](const QString& codigo, const QString& nombre) {
        CVirtual.Append();
        CVirtual.FieldByName("TICO_COD") = codigo;
        CVirtual.FieldByName("TICO_NOM") = nombre;
        CVirtual.Post();
    };
    agregue(FiltrosBusqueda::kTodos, "Todos");
    for (CTipodoc.First(); !CTipodoc.Eof(); CTipodoc.Next())
        agregue(CTipodoc.FieldByName("TICO_COD").texto(), CTipodoc.FieldByName("TICO_NOM").texto());
    filtros_->escoja_tipo(FiltrosBusqueda::kTodos);
}

void BusquedaPorTipo::compone_query() {
    condicion_ = filtros_->condicion(condicion_base_, columna_tipo_);
}

void BusquedaPorTipo::busque(const QString& orden) {
    compone_query();
    conjunto_.Close();
    try {
        conjunto_.Open(fijo_ + condicion_ + orden);
    } catch (const ErrorBase& falla) {
        const QStringList llenas = filtros_->sobrantes(condicion_base_);
        if (llenas.isEmpty() || falla.conexion_perdida())
            throw;
        // La base rehúsa el "where" repetido: se anota lo que dijo y se explica qué hacer.
        fdm().registre_en_archivo(falla.texto() + " | " + falla.detalle());
        muestre_mensaje(texto_sobrantes(llenas));
    }
}

QString BusquedaPorTipo::dato(const char* campo) const {
    return conjunto_.FieldByName(campo).texto();
}

void BusquedaPorTipo::editar_comprobante(const QString& id) {
    abra_comprobante(id);
}

bool BusquedaPorTipo::FormClose() {
    conjunto_.Close();
    return true;
}
