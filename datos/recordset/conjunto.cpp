#include "datos/recordset/conjunto.h"

#include "datos/recordset/en_la_fila.h"
#include "datos/recordset/expresion.h"
#include "datos/recordset/indice_busqueda.h"

#include <QScopedValueRollback>

// ---------------------------------------------------------------- enlaces

EnlaceDatos::~EnlaceDatos() {
    enlace(nullptr);
}

void EnlaceDatos::enlace(ConjuntoDatos* conjunto) {
    if (conjunto_ == conjunto)
        return;
    if (conjunto_)
        conjunto_->enlaces_.removeAll(this);
    conjunto_ = conjunto;
    if (conjunto_)
        conjunto_->enlaces_.push_back(this);
}

// ---------------------------------------------------------------- definición

ConjuntoDatos::ConjuntoDatos(QObject* dueno, const QString& nombre, Proveedor* p)
    : QObject(dueno), proveedor(p) {
    setObjectName(nombre);
}

ConjuntoDatos::~ConjuntoDatos() {
    for (EnlaceDatos* e : enlaces_)
        e->conjunto_ = nullptr;
    for (ConjuntoDatos* d : anidados_)
        d->maestra_ = nullptr;
    if (maestra_)
        maestra_->anidados_.removeAll(this);
}

Campo& ConjuntoDatos::agregue_campo(const QString& nombre, ClaseCampo clase, int tamano,
                                    TipoCampo tipo) {
    auto campo = std::unique_ptr<Campo>(new Campo(*this));
    campo->FieldName = nombre;
    campo->clase = clase;
    campo->Size = tamano;
    campo->tipo = tipo;
    campo->indice_ = int(campos_.size());
    if (tipo == TipoCampo::Calculado)
        campo->calculado_ = campos_calculados_++;
    if (clase == ClaseCampo::Decimal || clase == ClaseCampo::Entero)
        campo->Alignment = Alineacion::Derecha;
    por_nombre_.insert(nombre.toUpper(), campo.get());
    campos_.push_back(std::move(campo));
    return *campos_.back();
}

Campo& ConjuntoDatos::texto(const QString& n, int tamano) {
    return agregue_campo(n, ClaseCampo::Texto, tamano, TipoCampo::Datos);
}
Campo& ConjuntoDatos::bandera(const QString& n) {
    return texto(n, 1).fijo();
}
Campo& ConjuntoDatos::entero(const QString& n) {
    return agregue_campo(n, ClaseCampo::Entero, 0, TipoCampo::Datos);
}
Campo& ConjuntoDatos::decimal(const QString& n, int decimales) {
    return agregue_campo(n, ClaseCampo::Decimal, decimales, TipoCampo::Datos);
}
Campo& ConjuntoDatos::fecha(const QString& n) {
    return agregue_campo(n, ClaseCampo::Fecha, 0, TipoCampo::Datos);
}
Campo& ConjuntoDatos::hora(const QString& n) {
    return agregue_campo(n, ClaseCampo::Hora, 0, TipoCampo::Datos);
}
Campo& ConjuntoDatos::memo(const QString& n) {
    return agregue_campo(n, ClaseCampo::Memo, 0, TipoCampo::Datos);
}
Campo& ConjuntoDatos::blob(const QString& n) {
    return agregue_campo(n, ClaseCampo::Blob, 0, TipoCampo::Datos).banderas(pfInUpdate);
}
Campo& ConjuntoDatos::calculado(const QString& n, ClaseCampo clase, int tamano) {
    return agregue_campo(n, clase, tamano, TipoCampo::Calculado).banderas(0);
}
Campo& ConjuntoDatos::interno(const QString& n, ClaseCampo clase, int tamano) {
    return agregue_campo(n, clase, tamano, TipoCampo::Interno).banderas(0);
}
Campo& ConjuntoDatos::busqueda(const QString& n, int tamano, const QString& llaves,
                               ConjuntoDatos* tabla, const QString& llaves_tabla,
                               const QString& resultado) {
    Campo& c = agregue_campo(n, ClaseCampo::Texto, tamano, TipoCampo::Busqueda).banderas(0);
    c.KeyFields = llaves;
    c.LookupDataSet = tabla;
    c.LookupKeyFields = llaves_tabla;
    c.LookupResultField = resultado;
    return c;
}

void ConjuntoDatos::anide_en(ConjuntoDatos* maestra, Sentencia* sentencia_detalle) {
    maestra_ = maestra;
    sentencia_detalle_ = sentencia_detalle;
    maestra->anidados_.push_back(this);
    const auto& detalles = maestra->sentencia()->detalles();
    indice_detalle_ = int(detalles.indexOf(sentencia_detalle));
    Q_ASSERT(indice_detalle_ >= 0);
}

Sentencia* ConjuntoDatos::sentencia() const {
    return sentencia_detalle_ ? sentencia_detalle_ : proveedor ? proveedor->sentencia : nullptr;
}

Campo* ConjuntoDatos::FindField(const QString& nombre) const {
    return por_nombre_.value(nombre.toUpper());
}

Campo& ConjuntoDatos::FieldByName(const QString& nombre) const {
    if (Campo* c = FindField(nombre))
        return *c;
    throw ErrorDatos(QStringLiteral("La consulta no trae un dato que se necesita."),
                     objectName() + '.' + nombre);
}

Campo& ConjuntoDatos::Fields(int indice) const {
    if (indice < 0 || indice >= FieldCount())
        throw ErrorDatos(QStringLiteral("List index out of bounds (%1)").arg(indice), objectName(),
                         QStringLiteral("La consulta no trae la columna %1.").arg(indice));
    return *campos_[size_t(indice)];
}

QVector<Campo*> ConjuntoDatos::campos_llave() const {
    QVector<Campo*> llave;
    for (const auto& c : campos_)
        if (c->ProviderFlags & pfInKey)
            llave << c.get();
    return llave;
}

QVector<Campo*> ConjuntoDatos::campos_indice() const {
    if (indice_.isEmpty())
        return campos_llave();
    QVector<Campo*> campos;
    for (const QString& n : indice_.split(';'))
        campos << &FieldByName(n);
    return campos;
}

void ConjuntoDatos::FetchParams() {
    QStringList nombres;
    Sentencia::posicional(CommandText.isEmpty() ? sentencia()->SQL : CommandText, nombres);
    for (const QString& n : nombres)
        if (!Params.contains(n))
            Params.insert(n, Valor());
}

// ---------------------------------------------------------------- valores

Detalle* ConjuntoDatos::almacen() const {
    if (!maestra_)
        return const_cast<Detalle*>(&propio_);
    if (!maestra_->Active() || maestra_->pos_ < 0)
        return nullptr;
    Fila* fila = maestra_->orden_[size_t(maestra_->pos_)];
    while (int(fila->detalles.size()) <= indice_detalle_)
        fila->detalles.push_back(std::make_unique<Detalle>());
    return fila->detalles[size_t(indice_detalle_)].get();
}

const Fila* ConjuntoDatos::fila_activa() const {
    if (fila_calculo_)
        return fila_calculo_;
    return pos_ >= 0 && pos_ < int(orden_.size()) ? orden_[size_t(pos_)] : nullptr;
}

Valor ConjuntoDatos::valor_de(const Fila& fila, const Campo& campo) const {
    if (campo.tipo == TipoCampo::Calculado)
        return calcule(fila, campo);
    if (campo.tipo == TipoCampo::Busqueda) {
        const Fila* antes = fila_calculo_;
        fila_calculo_ = &fila;
        const Valor v = busque(campo);
        fila_calculo_ = antes;
        return v;
    }
    if (editando() && pos_ >= 0 && orden_[size_t(pos_)] == &fila)
        return bufer_[campo.indice_];
    return valor_guardado(fila, campo);
}

Valor ConjuntoDatos::valor_guardado(const Fila& fila, const Campo& campo) const {
    if (fila.valores)
        return (*fila.valores)[campo.indice_];
    if (fila.cruda && campo.columna_ >= 0)
        return decodifique(sentencia()->conexion(), columnas_[campo.columna_], fila.cruda);
    return {};
}

Valor ConjuntoDatos::valor_en(int indice, const Campo& campo) const {
    if (indice < 0 || indice >= int(orden_.size()))
        return {};
    return valor_de(*orden_[size_t(indice)], campo);
}

void ConjuntoDatos::corra_calculo(const Fila* fila) const {
    const Fila* antes = fila_calculo_;
    fila_calculo_ = fila;
    calculados_.fill(Valor(), int(campos_.size()));
    calculando_ = true;
    try {
        OnCalcFields();
    } catch (...) {
        calculando_ = false;
        fila_calculo_ = antes;
        throw;
    }
    calculando_ = false;
    fila_calculo_ = antes;
}

void ConjuntoDatos::calcule_al_traer(Fila& fila) const {
    if (OnCalcFields)
        calcule_fila(fila);
}

void ConjuntoDatos::calcule_fila(const Fila& fila) const {
    corra_calculo(&fila);
    fila.calculados = std::make_unique<QVector<Valor>>();
    for (const auto& c : campos_)
        if (c->tipo == TipoCampo::Calculado)
            fila.calculados->append(calculados_[c->indice_]);
    fila.vigencia = vigencia_;
}

Valor ConjuntoDatos::calcule(const Fila& fila, const Campo& campo) const {
    if (calculando_ || !OnCalcFields)
        return campo.indice_ < calculados_.size() ? calculados_[campo.indice_] : Valor();
    if (!calcular_al_traer && (!fila.calculados || fila.vigencia != vigencia_))
        calcule_fila(fila);
    return fila.calculados ? fila.calculados->value(campo.calculado_) : Valor();
}

Valor ConjuntoDatos::busque(const Campo& campo) const {
    if (!campo.LookupDataSet || !campo.LookupDataSet->Active())
        return {};
    QVector<Valor> valores;
    for (const QString& n : campo.KeyFields.split(';'))
        valores << FieldByName(n).valor();
    return campo.LookupDataSet->Lookup(campo.LookupKeyFields, valores, campo.LookupResultField);
}

void ConjuntoDatos::haga_propios(Fila& fila) const {
    if (fila.valores)
        return;
    auto v = std::make_unique<QVector<Valor>>(int(campos_.size()));
    for (const auto& c : campos_)
        if (c->tipo == TipoCampo::Datos && fila.cruda && c->columna_ >= 0)
            (*v)[c->indice_] =
                decodifique(sentencia()->conexion(), columnas_[c->columna_], fila.cruda);
    fila.valores = std::move(v);
}

void ConjuntoDatos::valores_cambiados(const Fila& fila) {
    fila.calculados.reset();
    for (ConjuntoDatos* d : anidados_)
        d->recalcule();
}

void ConjuntoDatos::asigne(Campo& campo, const Valor& valor) {
    if (calculando_ && campo.tipo == TipoCampo::Calculado) {
        calculados_[campo.indice_] = campo.convierta(valor);
        return;
    }
    const QString cual = objectName() + '.' + campo.FieldName;
    if (!editando())
        throw ErrorDatos(QStringLiteral("No hay un registro abierto para cambiar su %1.")
                             .arg(campo.nombre_visible()),
                         cual);
    if (!vive_en_la_fila(campo))
        throw ErrorDatos(QStringLiteral("El dato %1 se calcula: no se puede cambiar.")
                             .arg(campo.nombre_visible()),
                         cual);
    const Valor nuevo = campo.convierta(valor);
    if (campo.OnValidate)
        campo.OnValidate(campo, nuevo);
    bufer_[campo.indice_] = nuevo;
    modificado_ = true;
    valores_cambiados(*orden_[size_t(pos_)]);
    avise([&](EnlaceDatos& e) { e.campo_cambiado(&campo); });
    if (campo.OnChange)
        campo.OnChange(campo);
}

// ---------------------------------------------------------------- órdenes y consultas

void ConjuntoDatos::exija_texto_propio() const {
    if (!proveedor || !(proveedor->Options & poAllowCommandText))
        throw ErrorDatos(QStringLiteral("Esta consulta no se puede cambiar."), objectName());
}

qint64 ConjuntoDatos::Execute() {
    exija_texto_propio();
    QStringList nombres;
    const QString texto = Sentencia::posicional(CommandText, nombres);
    QVector<Valor> valores;
    for (const QString& n : nombres)
        valores << Params.value(n);
    return sentencia()->conexion().ejecute(texto, valores);
}

Valor ConjuntoDatos::valor_unico(const QString& sql) {
    const QScopedValueRollback<int> una(PacketRecords, 1);
    Open(sql);
    return IsEmpty() ? Valor() : Fields(0).valor();
}

void ConjuntoDatos::EnableControls() {
    if (controles_apagados_ > 0 && --controles_apagados_ == 0) {
        avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
        avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    }
}

// ---------------------------------------------------------------- orden y filtro

void ConjuntoDatos::IndexFieldNames(const QString& campos, bool descendente) {
    if (Active() && !campos.isEmpty())
        FetchAll();
    indice_ = campos;
    descendente_ = descendente;
    if (!Active())
        return;
    CheckBrowseMode();
    reordene_y_avise();
}

void ConjuntoDatos::Filter(const QString& expresion) {
    filtro_ = expresion;
    if (filtrado_)
        Filtered(true);
}

void ConjuntoDatos::Filtered(bool activo) {
    if (Active()) {
        CheckBrowseMode();
        if (activo && !filtro_.isEmpty())
            FetchAll();
    }
    filtrado_ = activo;
    expresion_filtro_.reset();
    if (!Active())
        return;
    if (activo && !filtro_.isEmpty())
        expresion_filtro_ = std::make_shared<Expresion>(*this, filtro_);
    reordene_y_avise();
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::reordene_y_avise() {
    const Fila* fila = pos_ >= 0 ? orden_[size_t(pos_)] : nullptr;
    reordene(fila);
    const bool misma = pos_ >= 0 && orden_[size_t(pos_)] == fila;
    const std::exception_ptr falla = misma ? nullptr : siga_a_la_fila();
    if (!misma)
        anuncie_anidados();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    if (falla)
        std::rethrow_exception(falla);
}

void ConjuntoDatos::condicion(std::function<bool()> f) {
    CheckBrowseMode();
    if (f && Active())
        FetchAll();
    condicion_ = std::move(f);
    if (!Active())
        return;
    if (const Detalle* d = almacen())
        for (const auto& fila : d->filas)
            fila->retenida = false;
    reordene_y_avise();
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

bool ConjuntoDatos::visible(Fila& fila) {
    const Fila* antes = fila_calculo_;
    fila_calculo_ = &fila;
    const bool si = (!filtrado_ || !expresion_filtro_ || expresion_filtro_->verdadera()) &&
                    (!condicion_ || fila.retenida || condicion_());
    fila_calculo_ = antes;
    return si;
}

bool ConjuntoDatos::menor(const Fila& a, const Fila& b) const {
    for (Campo* c : campos_indice()) {
        const int r = valor_de(a, *c).compare(valor_de(b, *c));
        if (r != 0)
            return descendente_ ? r > 0 : r < 0;
    }
    return false;
}

void ConjuntoDatos::reordene(const Fila* conservar) {
    Detalle* d = almacen();
    orden_.clear();
    cambiaron_filas();
    if (!d) {
        pos_ = -1;
        fin_ = true;
        return;
    }
    if (filtrado_ && !filtro_.isEmpty() && !expresion_filtro_)
        expresion_filtro_ = std::make_shared<Expresion>(*this, filtro_);
    orden_.reserve(d->filas.size());
    const bool filtra = (filtrado_ && expresion_filtro_) || condicion_;
    for (const auto& f : d->filas)
        if (!filtra || visible(*f))
            orden_.push_back(f.get());
    if (!indice_.isEmpty()) {
        // La llave se lee una vez por fila: comparar decodificando costaría n·log n lecturas.
        const auto campos = campos_indice();
        std::vector<std::pair<std::vector<Valor>, Fila*>> llaves;
        llaves.reserve(orden_.size());
        for (Fila* f : orden_) {
            std::vector<Valor> v;
            for (Campo* c : campos)
                v.push_back(valor_de(*f, *c));
            llaves.emplace_back(std::move(v), f);
        }
        std::stable_sort(llaves.begin(), llaves.end(), [this](const auto& a, const auto& b) {
            for (size_t i = 0; i < a.first.size(); ++i) {
                const int r = a.first[i].compare(b.first[i]);
                if (r != 0)
                    return descendente_ ? r > 0 : r < 0;
            }
            return false;
        });
        for (size_t i = 0; i < llaves.size(); ++i)
            orden_[i] = llaves[i].second;
    }
    const auto donde = std::find(orden_.begin(), orden_.end(), conservar);
    pos_ = donde != orden_.end() ? int(donde - orden_.begin()) : orden_.empty() ? -1 : 0;
    fin_ = orden_.empty();
}
