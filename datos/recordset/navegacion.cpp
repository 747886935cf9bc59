// Cursor, edición y registro de cambios del conjunto de datos.
#include "datos/recordset/conjunto.h"
#include "datos/recordset/en_la_fila.h"
#include "datos/recordset/indice_busqueda.h"

bool ConjuntoDatos::IsEmpty() const {
    return orden_.empty();
}

void ConjuntoDatos::exija_abierto() const {
    if (!Active())
        throw ErrorDatos(QStringLiteral("No hay información abierta para cambiar."), objectName());
}

void ConjuntoDatos::CheckBrowseMode() {
    if (editando())
        Post();
}

void ConjuntoDatos::First() {
    CheckBrowseMode();
    if (orden_.empty()) {
        inicio_ = fin_ = true;
        return;
    }
    mueva(0);
    inicio_ = true;
}

void ConjuntoDatos::Last() {
    CheckBrowseMode();
    FetchAll();
    if (orden_.empty()) {
        inicio_ = fin_ = true;
        return;
    }
    mueva(int(orden_.size()) - 1);
    fin_ = true;
}

void ConjuntoDatos::Next() {
    CheckBrowseMode();
    if (Unidireccional && cursor_ && pos_ + 1 >= int(orden_.size())) {
        orden_.clear();
        propio_ = Detalle();
        pos_ = -1;
    }
    if (pos_ + 1 >= int(orden_.size()) && !traiga_paquete()) {
        fin_ = true;
        return;
    }
    mueva(pos_ + 1);
}

void ConjuntoDatos::Prior() {
    CheckBrowseMode();
    if (pos_ <= 0) {
        inicio_ = true;
        return;
    }
    mueva(pos_ - 1);
}

void ConjuntoDatos::vaya_a(int indice) {
    if (indice == pos_)
        return;
    const Fila* fila =
        indice >= 0 && indice < int(orden_.size()) ? orden_[size_t(indice)] : nullptr;
    CheckBrowseMode();
    // Grabar pudo reordenar o quitar la fila en que se estaba.
    const auto donde = std::find(orden_.begin(), orden_.end(), fila);
    if (donde == orden_.end())
        return;
    if (int(donde - orden_.begin()) != pos_)
        mueva(int(donde - orden_.begin()));
}

namespace {

bool coincide(const Valor& tiene, const Valor& pide, unsigned opciones) {
    if (!(opciones & (loCaseInsensitive | loPartialKey)))
        return tiene.nulo() == pide.nulo() && tiene.compare(pide) == 0;
    const auto cs = opciones & loCaseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive;
    return opciones & loPartialKey ? tiene.texto().startsWith(pide.texto(), cs)
                                   : tiene.texto().compare(pide.texto(), cs) == 0;
}

} // namespace

QVector<Campo*> ConjuntoDatos::campos_de_lista(const QString& nombres) const {
    QVector<Campo*> campos;
    for (const QString& n : nombres.split(';'))
        campos << &FieldByName(n.trimmed());
    return campos;
}

int ConjuntoDatos::busque_fila(const QVector<Campo*>& llaves, const QVector<Valor>& valores,
                               unsigned opciones) {
    int desde = 0;
    if (opciones == 0) {
        const int indizada = fila_con(llaves, valores);
        if (indizada >= 0)
            return indizada;
        if (indizada == kNoEsta)
            desde = int(orden_.size());
    }
    for (int i = desde; i < int(orden_.size()) || traiga_paquete(); ++i) {
        ++IndiceBusqueda::llaves_leidas;
        bool igual = true;
        for (int k = 0; igual && k < llaves.size(); ++k)
            igual = coincide(valor_en(i, *llaves[k]), valores.value(k), opciones);
        if (igual)
            return i;
    }
    return kNoEsta;
}

bool ConjuntoDatos::Locate(const QString& campos, const QVector<Valor>& valores,
                           unsigned opciones) {
    if (!Active())
        return false;
    CheckBrowseMode();
    const int i = busque_fila(campos_de_lista(campos), valores, opciones);
    if (i < 0)
        return false;
    if (i != pos_)
        mueva(i);
    return true;
}

Valor ConjuntoDatos::Lookup(const QString& campos, const QVector<Valor>& valores,
                            const QString& resultado) {
    const Campo& campo = FieldByName(resultado);
    return valor_en(busque_fila(campos_de_lista(campos), valores, 0), campo);
}

// ---------------------------------------------------------------- edición

void ConjuntoDatos::falle(const std::function<void(ConjuntoDatos&, const ErrorDatos&)>& manejador,
                          const ErrorDatos& error) {
    if (!manejador)
        throw error;
    manejador(*this, error);
    throw EdicionAbortada();
}

void ConjuntoDatos::inserte_fila(int posicion) {
    exija_abierto();
    Detalle* d = almacen();
    if (!d)
        throw ErrorDatos(QStringLiteral("No hay un registro al cual agregarle detalles."),
                         objectName());
    // Los detalles que no se pudieron leer se leen ahora: agregar a ciegas repetiría líneas.
    if (maestra_ && !d->cargado) {
        lea_detalle();
        posicion = int(orden_.size());
    }
    for (ConjuntoDatos* a : anidados_) {
        a->CheckBrowseMode();
        a->asegure_columnas();
    }
    pos_previa_ = pos_;
    nueva_ = std::make_unique<Fila>();
    nueva_->marca = Fila::Marca::Nueva;
    bufer_.fill(Valor(), int(campos_.size()));
    cambie_fila(*nueva_, [&] {
        orden_.insert(orden_.begin() + posicion, nueva_.get());
        pos_ = posicion;
        estado_ = Estado::Insercion;
    });
    inicio_ = fin_ = false;
    cargue_anidados(); // una maestra que nace no tiene detalles que leer
    avise([&](EnlaceDatos& e) { e.filas_insertadas(posicion, 1); });
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    avise([](EnlaceDatos& e) { e.fila_actual_cambiada(); });
    anuncie_anidados();
    // La llave de la maestra pasa a la línea al nacer.
    if (maestra_)
        for (const QString& n : sentencia_detalle_->MasterFields())
            if (Campo* c = FindField(n))
                bufer_[c->indice_] = maestra_->FieldByName(n).valor();
    for (const auto& c : campos_)
        if (!c->DefaultExpression.isEmpty()) {
            QString t = c->DefaultExpression;
            if (t.startsWith('\'') && t.endsWith('\''))
                t = t.mid(1).chopped(1);
            c->asigne(t);
        }
    if (AfterInsert)
        AfterInsert();
    if (OnNewRecord)
        OnNewRecord();
    if (AfterScroll)
        AfterScroll();
    modificado_ = false;
}

void ConjuntoDatos::Append() {
    CheckBrowseMode();
    if (BeforeInsert)
        BeforeInsert();
    FetchAll();
    inserte_fila(int(orden_.size()));
}

void ConjuntoDatos::Insert() {
    CheckBrowseMode();
    if (BeforeInsert)
        BeforeInsert();
    inserte_fila(qMax(pos_, 0));
}

void ConjuntoDatos::Edit() {
    if (editando())
        return;
    exija_abierto();
    if (orden_.empty()) {
        Insert();
        return;
    }
    if (BeforeEdit)
        BeforeEdit();
    const Fila& fila = *orden_[size_t(pos_)];
    QVector<Valor> valores(int(campos_.size()));
    for (const auto& c : campos_)
        if (vive_en_la_fila(*c))
            valores[c->indice_] = valor_de(fila, *c);
    bufer_ = std::move(valores);
    modificado_ = false;
    estado_ = Estado::Edicion;
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    if (AfterEdit)
        AfterEdit();
}

void ConjuntoDatos::valide_requeridos() {
    for (const auto& c : campos_)
        if (c->Required && c->tipo == TipoCampo::Datos && bufer_[c->indice_].texto().isEmpty())
            throw ErrorDatos(QStringLiteral("Field '%1': falta el dato").arg(c->etiqueta()), {},
                             QStringLiteral("Falta el dato %1.").arg(c->nombre_visible()));
}

bool ConjuntoDatos::cambiada(const QStringList& salvo) const {
    if (!editando())
        return false;
    const Fila& fila = *orden_[size_t(pos_)];
    for (const auto& c : campos_) {
        if (c->tipo != TipoCampo::Datos || salvo.contains(c->FieldName))
            continue;
        const Valor antes =
            fila.valores ? (*fila.valores)[c->indice_]
            : fila.cruda && c->columna_ >= 0
                ? decodifique(sentencia()->conexion(), columnas_[c->columna_], fila.cruda)
                : Valor();
        if (antes != bufer_[c->indice_])
            return true;
    }
    return false;
}

void ConjuntoDatos::guarde_en_memoria(Fila& fila) {
    if (estado_ == Estado::Insercion) {
        fila.valores = std::make_unique<QVector<Valor>>(bufer_);
        fila.marca = Fila::Marca::Insertada;
        fila.retenida = bool(condicion_);
        Detalle* d = almacen();
        // Una fila insertada en medio entra al almacén donde se ve, y no al final.
        auto donde = d->filas.end();
        if (size_t(pos_) + 1 < orden_.size())
            donde = std::find_if(d->filas.begin(), d->filas.end(), [&](const auto& f) {
                return f.get() == orden_[size_t(pos_) + 1];
            });
        d->filas.insert(donde, std::move(nueva_));
    } else if (const bool viaja = cambiada(); viaja || modificado_) {
        haga_propios(fila);
        if (viaja && fila.marca == Fila::Marca::Intacta) {
            fila.originales = std::move(fila.valores);
            fila.marca = Fila::Marca::Modificada;
        }
        fila.valores = std::make_unique<QVector<Valor>>(bufer_);
    }
    estado_ = Estado::Navegacion;
}

void ConjuntoDatos::Post() {
    if (!editando())
        return;
    avise([](EnlaceDatos& e) { e.escriba_pendiente(); });
    if (!editando())
        return;
    for (ConjuntoDatos* d : anidados_)
        d->CheckBrowseMode();
    if (BeforePost)
        BeforePost();
    if (!editando())
        return;
    try {
        valide_requeridos();
        valide_llave();
    } catch (const ErrorDatos& error) {
        falle(OnPostError, error);
    }
    Fila& fila = *orden_[size_t(pos_)];
    cambie_fila(fila, [&] { guarde_en_memoria(fila); });
    valores_cambiados(fila);
    if (!indice_.isEmpty() || (filtrado_ && expresion_filtro_) || condicion_) {
        reordene_y_avise();
    } else {
        avise([&](EnlaceDatos& e) { e.fila_modificada(pos_); });
    }
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    if (AfterPost)
        AfterPost();
}

void ConjuntoDatos::Cancel() {
    if (!editando())
        return;
    if (BeforeCancel)
        BeforeCancel();
    for (ConjuntoDatos* d : anidados_)
        d->Cancel();
    const bool insercion = estado_ == Estado::Insercion;
    std::exception_ptr falla;
    const Fila& fila = *orden_[size_t(pos_)];
    valores_cambiados(fila);
    if (insercion) {
        const int quitada = pos_;
        cambie_fila(fila, [&] {
            estado_ = Estado::Navegacion;
            orden_.erase(orden_.begin() + quitada);
        });
        nueva_.reset();
        pos_ = qMin(pos_previa_, int(orden_.size()) - 1);
        if (pos_ < 0 && !orden_.empty())
            pos_ = 0;
        fin_ = orden_.empty();
        falla = siga_a_la_fila();
        anuncie_anidados();
        avise([&](EnlaceDatos& e) { e.filas_borradas(quitada, 1); });
        avise([](EnlaceDatos& e) { e.fila_actual_cambiada(); });
    } else {
        cambie_fila(fila, [&] { estado_ = Estado::Navegacion; });
        avise([](EnlaceDatos& e) { e.campo_cambiado(nullptr); });
        avise([&](EnlaceDatos& e) { e.fila_modificada(pos_); });
    }
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    if (AfterCancel)
        AfterCancel();
    if (insercion && pos_ >= 0 && AfterScroll)
        AfterScroll();
    if (falla)
        std::rethrow_exception(falla);
}

void ConjuntoDatos::Delete() {
    if (estado_ == Estado::Insercion) {
        Cancel();
        return;
    }
    if (pos_ < 0 || orden_.empty())
        throw ErrorDatos(QStringLiteral("No hay un registro para borrar."), objectName());
    if (estado_ == Estado::Edicion)
        Cancel();
    if (BeforeDelete)
        BeforeDelete();
    if (proveedor && !(proveedor->Options & poCascadeDeletes))
        for (ConjuntoDatos* d : anidados_)
            if (!d->IsEmpty())
                falle(OnDeleteError,
                      ErrorDatos(QStringLiteral("Cannot delete master record with details."), {},
                                 QStringLiteral("Borre antes los detalles del registro.")));
    Fila* fila = orden_[size_t(pos_)];
    Detalle* d = almacen();
    const auto donde = std::find_if(d->filas.begin(), d->filas.end(),
                                    [&](const auto& f) { return f.get() == fila; });
    // Lo que la base no conoce desaparece; lo demás espera en el registro de cambios. Una nueva que
    // ya viajó y no se sabe si quedó, también espera.
    const bool espera = fila->marca != Fila::Marca::Insertada || fila->envio;
    const int quitada = pos_;
    std::unique_ptr<Fila> difunta;
    cambie_fila(*fila, [&] {
        if (espera)
            haga_propios(*fila);
        difunta = std::move(*donde);
        d->filas.erase(donde);
        orden_.erase(orden_.begin() + quitada);
    });
    if (espera)
        d->borradas.push_back(std::move(difunta));
    std::exception_ptr falla;
    try {
        if (pos_ >= int(orden_.size()) && !traiga_paquete())
            pos_ = int(orden_.size()) - 1;
    } catch (...) {
        falla = std::current_exception();
        pos_ = int(orden_.size()) - 1;
    }
    fin_ = orden_.empty();
    if (const auto otra = siga_a_la_fila(); !falla)
        falla = otra;
    anuncie_anidados();
    avise([&](EnlaceDatos& e) { e.filas_borradas(quitada, 1); });
    avise([](EnlaceDatos& e) { e.fila_actual_cambiada(); });
    if (AfterDelete)
        AfterDelete();
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
    if (falla)
        std::rethrow_exception(falla);
}

// ---------------------------------------------------------------- registro de cambios

int ConjuntoDatos::cuente_cambios(const Detalle& detalle) const {
    int n = int(detalle.borradas.size());
    for (const auto& f : detalle.filas) {
        if (f->marca != Fila::Marca::Intacta)
            ++n;
        for (const auto& d : f->detalles)
            n += cuente_cambios(*d);
    }
    return n;
}

int ConjuntoDatos::ChangeCount() const {
    const Detalle* d = almacen();
    int n = d ? cuente_cambios(*d) : 0;
    // Una fila en inserción todavía no está en el almacén, pero sus detalles ya pueden tener
    // cambios.
    if (nueva_)
        for (const auto& x : nueva_->detalles)
            n += cuente_cambios(*x);
    return n;
}

int ConjuntoDatos::ApplyUpdates(int errores_maximos) {
    CheckBrowseMode();
    for (ConjuntoDatos* d : anidados_)
        d->CheckBrowseMode();
    if (ChangeCount() == 0)
        return 0;
    if (!proveedor)
        throw ErrorDatos(QStringLiteral("No hay dónde grabar estos cambios."), objectName());
    return proveedor->aplique(*this, errores_maximos);
}

void ConjuntoDatos::acepte_cambios() {
    recalcule();
    cambiaron_filas();
    for (ConjuntoDatos* d : anidados_)
        d->acepte_cambios();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    avise([](EnlaceDatos& e) { e.campo_cambiado(nullptr); });
}

void ConjuntoDatos::descarte(Detalle& detalle) {
    for (auto i = detalle.filas.begin(); i != detalle.filas.end();) {
        Fila& f = **i;
        f.envio.reset(); // el usuario renunció a saber de él
        if (f.marca == Fila::Marca::Insertada) {
            i = detalle.filas.erase(i);
            continue;
        }
        if (f.marca == Fila::Marca::Modificada) {
            f.valores = std::move(f.originales);
            f.marca = Fila::Marca::Intacta;
        }
        for (const auto& d : f.detalles)
            descarte(*d);
        ++i;
    }
    for (auto& f : detalle.borradas)
        if (f->marca != Fila::Marca::Insertada)
            detalle.filas.push_back(std::move(f));
    detalle.borradas.clear();
}

void ConjuntoDatos::CancelUpdates() {
    if (!Active())
        return;
    for (ConjuntoDatos* d : anidados_)
        d->Cancel();
    Cancel();
    for (ConjuntoDatos* d : anidados_) { // las filas que se van no pueden quedar a la vista
        d->orden_.clear();
        d->pos_ = -1;
    }
    if (Detalle* d = almacen())
        descarte(*d);
    recalcule();
    reordene(pos_ >= 0 && pos_ < int(orden_.size()) ? orden_[size_t(pos_)] : nullptr);
    const std::exception_ptr falla = siga_a_la_fila();
    anuncie_anidados();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
    if (falla)
        std::rethrow_exception(falla);
}
