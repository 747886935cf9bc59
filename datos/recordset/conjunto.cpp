#include "datos/recordset/conjunto.h"

#include "datos/recordset/expresion.h"

namespace {

constexpr int kFilasPorBloque = 256;

ClaseCampo clase_de(const Columna& c) {
    switch (c.tipo) {
    case TipoColumna::Entero:
        return ClaseCampo::Entero;
    case TipoColumna::Decimal:
        return ClaseCampo::Decimal;
    case TipoColumna::Fecha:
        return ClaseCampo::Fecha;
    case TipoColumna::Hora:
        return ClaseCampo::Hora;
    case TipoColumna::FechaHora:
        return ClaseCampo::FechaHora;
    case TipoColumna::Memo:
        return ClaseCampo::Memo;
    case TipoColumna::Binario:
        return ClaseCampo::Blob;
    default:
        return ClaseCampo::Texto;
    }
}

} // namespace

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
    return agregue_campo(n, ClaseCampo::Memo, 0, TipoCampo::Datos).banderas(pfInUpdate);
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
    throw ErrorDatos(QStringLiteral("%1: no existe el campo '%2'.").arg(objectName(), nombre));
}

Campo& ConjuntoDatos::Fields(int indice) const {
    if (indice < 0 || indice >= FieldCount())
        throw ErrorDatos(QStringLiteral("List index out of bounds (%1)").arg(indice));
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

int ConjuntoDatos::orden_calculado(const Campo& campo) const {
    return int(std::count_if(campos_.begin(), campos_.begin() + campo.indice_,
                             [](const auto& c) { return c->tipo == TipoCampo::Calculado; }));
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
    if (!OnCalcFields)
        return;
    corra_calculo(&fila);
    fila.calculados = std::make_unique<QVector<Valor>>();
    for (const auto& c : campos_)
        if (c->tipo == TipoCampo::Calculado)
            fila.calculados->append(calculados_[c->indice_]);
}

Valor ConjuntoDatos::calcule(const Fila& fila, const Campo& campo) const {
    if (calculando_ || !OnCalcFields)
        return campo.indice_ < calculados_.size() ? calculados_[campo.indice_] : Valor();
    if (calcular_al_traer)
        return fila.calculados ? fila.calculados->value(orden_calculado(campo)) : Valor();
    corra_calculo(&fila);
    return calculados_[campo.indice_];
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

void ConjuntoDatos::asigne(Campo& campo, const Valor& valor) {
    if (calculando_ && campo.tipo == TipoCampo::Calculado) {
        calculados_[campo.indice_] = campo.convierta(valor);
        return;
    }
    if (!editando())
        throw ErrorDatos(
            QStringLiteral("%1: no está en edición ni en inserción.").arg(objectName()));
    if (campo.tipo != TipoCampo::Datos && campo.tipo != TipoCampo::Interno)
        throw ErrorDatos(
            QStringLiteral("%1: el campo %2 se calcula.").arg(objectName(), campo.FieldName));
    const Valor nuevo = campo.convierta(valor);
    if (campo.OnValidate)
        campo.OnValidate(campo, nuevo);
    bufer_[campo.indice_] = nuevo;
    modificado_ = true;
    avise([&](EnlaceDatos& e) { e.campo_cambiado(&campo); });
    if (campo.OnChange)
        campo.OnChange(campo);
}

// ---------------------------------------------------------------- apertura y paquetes

void ConjuntoDatos::ate_campos() {
    if (campos_.empty())
        campos_dinamicos_ = true;
    if (campos_dinamicos_) {
        // Los campos dinámicos se rehacen, pero un texto igual conserva sus objetos.
        bool iguales = int(campos_.size()) == columnas_.size();
        for (int i = 0; iguales && i < columnas_.size(); ++i)
            iguales = campos_[size_t(i)]->FieldName == columnas_[i].nombre &&
                      campos_[size_t(i)]->clase == clase_de(columnas_[i]);
        if (!iguales) {
            campos_.clear();
            por_nombre_.clear();
            for (const Columna& c : columnas_)
                agregue_campo(c.nombre, clase_de(c),
                              c.tipo == TipoColumna::Texto ? c.longitud : c.decimales,
                              TipoCampo::Datos);
        }
        for (int i = 0; i < columnas_.size(); ++i)
            campos_[size_t(i)]->columna_ = i;
        return;
    }
    QHash<QString, int> columnas;
    for (int i = 0; i < columnas_.size(); ++i)
        columnas.insert(columnas_[i].nombre.toUpper(), i);
    for (const auto& c : campos_) {
        if (c->tipo != TipoCampo::Datos)
            continue;
        c->columna_ = columnas.value(c->FieldName.toUpper(), -1);
        if (c->columna_ < 0)
            throw ErrorDatos(QStringLiteral("%1: el campo '%2' no está en el resultado.")
                                 .arg(objectName(), c->FieldName));
    }
}

void ConjuntoDatos::abra_cursor() {
    Sentencia* s = sentencia();
    if (!s)
        throw ErrorDatos(QStringLiteral("%1: sin proveedor.").arg(objectName()));
    QString sql = s->SQL;
    if (!CommandText.isEmpty() && !maestra_) {
        if (!(proveedor->Options & poAllowCommandText))
            throw ErrorDatos(
                QStringLiteral("%1: el proveedor no admite CommandText.").arg(objectName()));
        sql = CommandText;
    }
    QStringList nombres;
    const QString texto = Sentencia::posicional(sql, nombres);
    QVector<Valor> valores;
    for (const QString& n : nombres)
        valores << (maestra_             ? maestra_->FieldByName(n).valor()
                    : Params.contains(n) ? Params.value(n)
                                         : s->parametro(n));
    if (Instantanea) {
        foto_ = foto ? foto
                     : std::make_shared<Transaccion>(s->conexion(), Transaccion::Modo::Instantanea);
        cursor_ = std::make_unique<Cursor>(s->conexion().prepare(texto, *foto_), *foto_, valores);
    } else {
        cursor_ = s->conexion().abra(texto, valores);
    }
    columnas_ = cursor_->columnas();
    ate_campos();
}

bool ConjuntoDatos::traiga_paquete() {
    if (!cursor_)
        return false;
    Detalle* almacen = this->almacen();
    const bool con_blobs = std::any_of(columnas_.begin(), columnas_.end(), [](const Columna& c) {
        return c.tipo == TipoColumna::Memo || c.tipo == TipoColumna::Binario;
    });
    if (BeforeGetRecords)
        BeforeGetRecords();
    const int desde = int(orden_.size());
    const int limite = PacketRecords > 0 ? PacketRecords : std::numeric_limits<int>::max();
    const unsigned largo = cursor_->largo_mensaje();
    const bool filtra = (filtrado_ && expresion_filtro_) || condicion_;
    char* libre = nullptr;
    int quedan = 0;
    try {
        for (int traidas = 0; traidas < limite || (filtra && int(orden_.size()) == desde);
             ++traidas) {
            if (quedan == 0) {
                // Memoria sin iniciar y en bloques: una fila cuesta su mensaje y poco más.
                almacen->paquetes.push_back(QByteArray(
                    qsizetype(largo) * qMin(kFilasPorBloque, qMax(limite, 1)), Qt::Uninitialized));
                libre = almacen->paquetes.back().data();
                quedan = qMin(kFilasPorBloque, qMax(limite, 1));
            }
            if (!cursor_->siguiente_en(libre)) {
                cursor_.reset();
                break;
            }
            auto fila = std::make_unique<Fila>();
            fila->cruda = libre;
            if (calcular_al_traer)
                calcule_al_traer(*fila);
            if (con_blobs) // un blob se lee ya: su identificador no sobrevive a otros usuarios
                haga_propios(*fila);
            libre += largo;
            --quedan;
            if (!filtra || visible(*fila))
                orden_.push_back(fila.get());
            almacen->filas.push_back(std::move(fila));
        }
    } catch (...) {
        cursor_.reset();
        if (AfterGetRecords)
            AfterGetRecords();
        throw;
    }
    if (AfterGetRecords)
        AfterGetRecords();
    const int llegaron = int(orden_.size()) - desde;
    if (llegaron > 0 && !abriendo_)
        avise([&](EnlaceDatos& e) { e.filas_insertadas(desde, llegaron); });
    return llegaron > 0;
}

void ConjuntoDatos::FetchAll() {
    while (cursor_)
        traiga_paquete();
}

void ConjuntoDatos::Open() {
    if (Active())
        return;
    if (BeforeOpen)
        BeforeOpen();
    if (maestra_) {
        if (!maestra_->Active()) {
            maestra_->Open();
            return;
        }
        cargue_detalle();
    } else if (en_memoria_) {
        orden_.clear();
        reordene(nullptr);
    } else {
        orden_.clear();
        propio_ = Detalle();
        abriendo_ = true;
        try {
            abra_cursor();
            if (filtrado_ && !filtro_.isEmpty())
                expresion_filtro_ = std::make_shared<Expresion>(*this, filtro_);
            if (calcular_al_traer && OnCalcFields)
                corra_calculo(nullptr);
            traiga_paquete();
            abriendo_ = false;
        } catch (...) {
            abriendo_ = false;
            cursor_.reset();
            foto_.reset();
            orden_.clear();
            propio_ = Detalle();
            throw;
        }
        if (!indice_.isEmpty()) {
            FetchAll();
            reordene(nullptr);
        }
    }
    estado_ = Estado::Navegacion;
    pos_ = orden_.empty() ? -1 : 0;
    inicio_ = true;
    fin_ = orden_.empty();
    for (ConjuntoDatos* d : anidados_)
        if (!d->Active())
            d->Open();
        else
            d->maestra_movida();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    if (AfterOpen)
        AfterOpen();
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::cargue_detalle() {
    cursor_.reset();
    orden_.clear();
    Detalle* d = almacen();
    if (!d || maestra_->estado_ == Estado::Insercion ||
        maestra_->orden_[size_t(maestra_->pos_)]->marca == Fila::Marca::Insertada || d->cargado) {
        if (columnas_.isEmpty()) {
            // Sin fila guardada no hay qué traer, pero las columnas hacen falta para grabar.
            QStringList nombres;
            auto preparada = sentencia_detalle_->conexion().prepare(
                Sentencia::posicional(sentencia_detalle_->SQL, nombres),
                sentencia_detalle_->conexion().lectura());
            columnas_ = preparada->columnas();
            ate_campos();
        }
        if (d)
            d->cargado = true;
    } else {
        abriendo_ = true;
        try {
            abra_cursor();
            FetchAll();
        } catch (...) {
            abriendo_ = false;
            throw;
        }
        abriendo_ = false;
        d->cargado = true;
    }
    reordene(nullptr);
}

void ConjuntoDatos::maestra_movida() {
    if (!Active())
        return;
    estado_ = Estado::Navegacion;
    nueva_.reset();
    cargue_detalle();
    pos_ = orden_.empty() ? -1 : 0;
    inicio_ = true;
    fin_ = orden_.empty();
    for (ConjuntoDatos* d : anidados_)
        d->maestra_movida();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::Close() {
    if (!Active())
        return;
    if (BeforeClose)
        BeforeClose();
    for (ConjuntoDatos* d : anidados_)
        d->Close();
    cursor_.reset();
    foto_.reset();
    nueva_.reset();
    bufer_.clear();
    orden_.clear();
    estado_ = Estado::Cerrado;
    pos_ = -1;
    inicio_ = fin_ = true;
    if (!en_memoria_ && !maestra_)
        propio_ = Detalle();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    if (AfterClose)
        AfterClose();
}

void ConjuntoDatos::CreateDataSet() {
    en_memoria_ = true;
    propio_ = Detalle();
    Open();
}

void ConjuntoDatos::Refresh() {
    if (!Active() || en_memoria_)
        return;
    CheckBrowseMode();
    const auto llave = campos_llave();
    QVector<Valor> valores;
    QStringList nombres;
    const int antes = pos_;
    for (Campo* c : llave) {
        valores << c->valor();
        nombres << c->FieldName;
    }
    DisableControls();
    abriendo_ = true;
    try {
        cursor_.reset();
        orden_.clear();
        propio_ = Detalle();
        abra_cursor();
        traiga_paquete();
        if (!indice_.isEmpty()) {
            FetchAll();
            reordene(nullptr);
        }
        while (antes >= int(orden_.size()) && traiga_paquete()) {
        }
    } catch (...) {
        abriendo_ = false;
        pos_ = orden_.empty() ? -1 : 0;
        EnableControls();
        throw;
    }
    abriendo_ = false;
    pos_ = qMin(antes, int(orden_.size()) - 1);
    if (pos_ < 0 && !orden_.empty())
        pos_ = 0;
    fin_ = orden_.empty();
    for (ConjuntoDatos* d : anidados_)
        d->maestra_movida();
    EnableControls();
    const auto esta = [&] {
        for (int i = 0; i < llave.size(); ++i)
            if (llave[i]->valor() != valores[i])
                return false;
        return true;
    };
    if (!llave.isEmpty() && antes >= 0 && !esta())
        Locate(nombres.join(';'), valores);
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

qint64 ConjuntoDatos::Execute() {
    if (!proveedor || !(proveedor->Options & poAllowCommandText))
        throw ErrorDatos(
            QStringLiteral("%1: el proveedor no admite CommandText.").arg(objectName()));
    QStringList nombres;
    const QString texto = Sentencia::posicional(CommandText, nombres);
    QVector<Valor> valores;
    for (const QString& n : nombres)
        valores << Params.value(n);
    return sentencia()->conexion().ejecute(texto, valores);
}

Valor ConjuntoDatos::valor_unico(const QString& sql) {
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
    const Fila* fila = pos_ >= 0 ? orden_[size_t(pos_)] : nullptr;
    reordene(fila);
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
}

void ConjuntoDatos::Filter(const QString& expresion) {
    filtro_ = expresion;
    if (filtrado_)
        Filtered(true);
}

void ConjuntoDatos::Filtered(bool activo) {
    filtrado_ = activo;
    expresion_filtro_.reset();
    if (!Active())
        return;
    CheckBrowseMode();
    if (activo && !filtro_.isEmpty()) {
        expresion_filtro_ = std::make_shared<Expresion>(*this, filtro_);
        FetchAll();
    }
    reordene(pos_ >= 0 ? orden_[size_t(pos_)] : nullptr);
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::condicion(std::function<bool()> f) {
    CheckBrowseMode();
    condicion_ = std::move(f);
    if (!Active())
        return;
    if (const Detalle* d = almacen())
        for (const auto& fila : d->filas)
            fila->retenida = false;
    if (condicion_)
        FetchAll();
    reordene(pos_ >= 0 ? orden_[size_t(pos_)] : nullptr);
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
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

// ---------------------------------------------------------------- agregados

void ConjuntoDatos::agregado(const QString& nombre, const QString& expresion) {
    agregados_.insert(nombre.toUpper(), expresion);
}

Valor ConjuntoDatos::agregado(const QString& nombre) const {
    const QString expresion = agregados_.value(nombre.toUpper());
    if (!AggregatesActive || expresion.isEmpty() || !Active())
        return {};
    const qsizetype abre = expresion.indexOf('(');
    const QString funcion = expresion.left(abre).trimmed().toUpper();
    const Campo& campo = FieldByName(expresion.mid(abre + 1).chopped(1).trimmed());
    Moneda suma;
    bool hay = false;
    for (size_t i = 0; i < orden_.size(); ++i) {
        const Fila& fila = *orden_[i];
        // La fila en edición cuenta con lo que tenía: lo tecleado a medias no ha entrado al libro.
        Valor v;
        if (editando() && int(i) == pos_) {
            if (estado_ == Estado::Insercion)
                continue;
            v = valor_guardado(fila, campo);
        } else {
            v = valor_de(fila, campo);
        }
        if (v.nulo())
            continue;
        hay = true;
        if (funcion == QLatin1String("COUNT"))
            suma += Moneda(1);
        else
            suma += v.moneda();
    }
    return hay ? Valor(suma) : Valor();
}

// ---------------------------------------------------------------- todas las filas

int ConjuntoDatos::filas_en_memoria() const {
    const Detalle* d = Active() ? almacen() : nullptr;
    return (d ? int(d->filas.size()) : 0) + (nueva_ ? 1 : 0);
}

void ConjuntoDatos::recorra_todas(const std::function<void(const Fila&)>& visita) const {
    if (const Detalle* d = Active() ? almacen() : nullptr)
        for (const auto& fila : d->filas)
            visita(*fila);
}

Moneda ConjuntoDatos::total(const Campo& campo) const {
    Moneda suma;
    recorra_todas([&](const Fila& fila) {
        const bool de_datos = campo.tipo == TipoCampo::Datos || campo.tipo == TipoCampo::Interno;
        suma += (de_datos ? valor_guardado(fila, campo) : valor_de(fila, campo)).moneda();
    });
    return suma;
}

void ConjuntoDatos::borre_todas() {
    Cancel();
    Detalle* d = Active() ? almacen() : nullptr;
    if (!d || d->filas.empty())
        return;
    if (BeforeDelete)
        BeforeDelete();
    for (auto& fila : d->filas)
        if (fila->marca != Fila::Marca::Insertada) {
            haga_propios(*fila);
            d->borradas.push_back(std::move(fila));
        }
    orden_.clear();
    pos_ = -1;
    fin_ = true;
    d->filas.clear();
    for (ConjuntoDatos* a : anidados_)
        a->maestra_movida();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    if (AfterDelete)
        AfterDelete();
}

void ConjuntoDatos::corra_las_nuevas(const Campo& campo, qint64 cuanto) {
    CheckBrowseMode();
    if (const Detalle* d = Active() ? almacen() : nullptr)
        for (const auto& fila : d->filas)
            if (fila->marca == Fila::Marca::Insertada) {
                Valor& numero = (*fila->valores)[campo.indice_];
                numero = numero.entero() + cuanto;
            }
    avise([](EnlaceDatos& e) { e.campo_cambiado(nullptr); });
}
