// Apertura, paquetes y anidados. Una lectura que falla deja el conjunto como estaba.
#include "datos/recordset/conjunto.h"

#include "datos/recordset/expresion.h"

#include <QScopedValueRollback>

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

[[noreturn]] void quedo_cortada(const QString& conjunto) {
    throw ErrorBase({ClaseFalla::ConexionPerdida},
                    QStringLiteral("La conexión se perdió antes de traer toda la información. "
                                   "Consulte de nuevo para verla completa."),
                    conjunto);
}

} // namespace

// ---------------------------------------------------------------- lo que se guarda por si falla

/// Guarda aparte lo que una lectura reemplaza, del conjunto y sus anidados, y lo devuelve si nadie
/// dice que salió bien.
class ConjuntoDatos::Intento {
public:
    enum Alcance {
        ConFilas,     ///< el conjunto se lee de nuevo, y con él sus anidados
        SinFilas,     ///< se muestran otra vez las filas que ya están en memoria
        SoloAnidados, ///< el conjunto solo pasa a otra fila
    };
    explicit Intento(ConjuntoDatos& c, Alcance alcance = ConFilas) {
        if (alcance == SoloAnidados)
            for (ConjuntoDatos* d : c.anidados_)
                guarde(*d, false);
        else
            guarde(c, alcance == ConFilas);
    }
    ~Intento() {
        if (confirmado_) {
            for (Vista& v : vistas_)
                v.conjunto->campos_previos_.clear();
            return;
        }
        for (Vista& v : vistas_)
            devuelva(v);
        for (const Vista& v : vistas_)
            anuncie(*v.conjunto);
    }
    Intento(const Intento&) = delete;
    Intento& operator=(const Intento&) = delete;
    void confirme() { confirmado_ = true; }

private:
    struct Vista {
        ConjuntoDatos* conjunto = nullptr;
        Detalle* almacen = nullptr; ///< nulo si sus filas no se reemplazan
        Detalle contenido;
        std::vector<Fila*> orden;
        std::shared_ptr<Transaccion> foto; // antes que su cursor: se suelta después
        std::unique_ptr<Cursor> cursor;
        std::unique_ptr<Fila> nueva;
        QVector<Valor> bufer;
        std::shared_ptr<Expresion> filtro;
        QVector<Columna> columnas;
        QVector<int> lugares; ///< columna de cada campo
        Estado estado = Estado::Cerrado;
        int pos = -1, previa = -1;
        bool inicio = true, fin = true, cortada = false, modificado = false;
    };

    void guarde(ConjuntoDatos& c, bool con_filas) {
        Vista v;
        v.conjunto = &c;
        if (con_filas && (v.almacen = c.almacen()))
            v.contenido = std::exchange(*v.almacen, Detalle());
        v.orden = std::exchange(c.orden_, {});
        v.foto = std::exchange(c.foto_, nullptr);
        v.cursor = std::move(c.cursor_);
        v.nueva = std::move(c.nueva_);
        v.bufer = c.bufer_;
        v.filtro = c.expresion_filtro_;
        v.columnas = c.columnas_;
        for (const auto& campo : c.campos_)
            v.lugares << campo->columna_;
        v.estado = c.estado_;
        v.pos = c.pos_;
        v.previa = c.pos_previa_;
        v.inicio = c.inicio_;
        v.fin = c.fin_;
        v.cortada = std::exchange(c.cortada_, false);
        v.modificado = c.modificado_;
        vistas_.push_back(std::move(v));
        c.cambiaron_filas();
        for (ConjuntoDatos* d : c.anidados_)
            guarde(*d, false);
    }
    static void devuelva(Vista& v) {
        ConjuntoDatos& c = *v.conjunto;
        c.cursor_.reset();
        if (v.almacen)
            *v.almacen = std::move(v.contenido);
        if (!c.campos_previos_.empty()) {
            c.campos_ = std::move(c.campos_previos_);
            c.campos_previos_.clear();
            c.por_nombre_.clear();
            for (const auto& campo : c.campos_)
                c.por_nombre_.insert(campo->FieldName.toUpper(), campo.get());
        }
        for (int i = 0; i < v.lugares.size() && i < int(c.campos_.size()); ++i)
            c.campos_[size_t(i)]->columna_ = v.lugares[i];
        c.orden_ = std::move(v.orden);
        c.foto_ = std::move(v.foto);
        c.cursor_ = std::move(v.cursor);
        c.nueva_ = std::move(v.nueva);
        c.bufer_ = std::move(v.bufer);
        c.expresion_filtro_ = std::move(v.filtro);
        c.columnas_ = std::move(v.columnas);
        c.estado_ = v.estado;
        c.pos_ = v.pos;
        c.pos_previa_ = v.previa;
        c.inicio_ = v.inicio;
        c.fin_ = v.fin;
        c.cortada_ = v.cortada;
        c.modificado_ = v.modificado;
        c.recien_abierto_ = false;
        c.cambiaron_filas();
    }
    static void anuncie(ConjuntoDatos& c) noexcept {
        try {
            c.avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
            c.avise([](EnlaceDatos& e) { e.estado_cambiado(); });
            c.avise([](EnlaceDatos& e) { e.campo_cambiado(nullptr); });
        } catch (...) {
            // Quien mira no puede impedir que vuelva lo que había.
        }
    }

    std::vector<Vista> vistas_;
    bool confirmado_ = false;
};

// ---------------------------------------------------------------- columnas y cursor

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
            if (campos_previos_.empty())
                campos_previos_ = std::move(campos_);
            campos_.clear();
            por_nombre_.clear();
            campos_calculados_ = 0;
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
            throw ErrorDatos(
                QStringLiteral("La consulta no trae el dato %1.").arg(c->nombre_visible()),
                objectName() + '.' + c->FieldName);
    }
}

void ConjuntoDatos::abra_cursor() {
    Sentencia* s = sentencia();
    if (!s)
        throw ErrorDatos(QStringLiteral("No hay de dónde consultar."), objectName());
    QString sql = s->SQL;
    if (!CommandText.isEmpty() && !maestra_) {
        exija_texto_propio();
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

void ConjuntoDatos::asegure_columnas() {
    if (!columnas_.isEmpty() || !sentencia_detalle_)
        return;
    QStringList nombres;
    Conexion& c = sentencia_detalle_->conexion();
    columnas_ =
        c.prepare(Sentencia::posicional(sentencia_detalle_->SQL, nombres), c.lectura())->columnas();
    ate_campos();
    campos_previos_.clear();
}

// ---------------------------------------------------------------- paquetes

bool ConjuntoDatos::traiga_paquete() {
    if (cortada_)
        quedo_cortada(objectName());
    if (!cursor_)
        return false;
    if (BeforeGetRecords)
        BeforeGetRecords();
    Detalle& almacen = *this->almacen();
    const size_t desde = orden_.size(), tenia = almacen.filas.size(),
                 bloques = almacen.paquetes.size();
    try {
        lea_paquete(almacen, desde);
    } catch (...) {
        // Lo que alcanzó a llegar no es un paquete: se ve lo de antes, y se sabe que falta.
        orden_.resize(desde);
        almacen.filas.erase(almacen.filas.begin() + long(tenia), almacen.filas.end());
        almacen.paquetes.resize(bloques);
        cursor_.reset();
        foto_.reset();
        cortada_ = true;
        if (AfterGetRecords)
            AfterGetRecords();
        throw;
    }
    if (AfterGetRecords)
        AfterGetRecords();
    const int llegaron = int(orden_.size() - desde);
    if (llegaron > 0 && !abriendo_)
        avise([&](EnlaceDatos& e) { e.filas_insertadas(int(desde), llegaron); });
    return llegaron > 0;
}

void ConjuntoDatos::lea_paquete(Detalle& almacen, size_t desde) {
    const bool con_blobs = std::any_of(columnas_.begin(), columnas_.end(), [](const Columna& c) {
        return c.tipo == TipoColumna::Memo || c.tipo == TipoColumna::Binario;
    });
    const int limite = PacketRecords > 0 ? PacketRecords : std::numeric_limits<int>::max();
    const int bloque = qMin(kFilasPorBloque, qMax(limite, 1));
    const unsigned largo = cursor_->largo_mensaje();
    const bool filtra = (filtrado_ && expresion_filtro_) || condicion_;
    char* libre = nullptr;
    int quedan = 0;
    for (int traidas = 0; traidas < limite || (filtra && orden_.size() == desde); ++traidas) {
        if (quedan == 0) {
            // Memoria sin iniciar y en bloques: una fila cuesta su mensaje y poco más.
            almacen.paquetes.push_back(QByteArray(qsizetype(largo) * bloque, Qt::Uninitialized));
            libre = almacen.paquetes.back().data();
            quedan = bloque;
        }
        if (!cursor_->siguiente_en(libre)) {
            cursor_.reset();
            foto_.reset(); // una foto que nadie lee no debe retener versiones viejas
            return;
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
        almacen.filas.push_back(std::move(fila));
    }
}

void ConjuntoDatos::FetchAll() {
    if (cortada_)
        quedo_cortada(objectName());
    while (cursor_)
        traiga_paquete();
}

// ---------------------------------------------------------------- abrir y cerrar

void ConjuntoDatos::lea_filas() {
    const QScopedValueRollback<bool> guarda(abriendo_, true);
    abra_cursor();
    if (filtrado_ && !filtro_.isEmpty())
        expresion_filtro_ = std::make_shared<Expresion>(*this, filtro_);
    if (calcular_al_traer && OnCalcFields)
        corra_calculo(nullptr);
    traiga_paquete();
    if (!indice_.isEmpty()) {
        FetchAll();
        reordene(nullptr);
    }
}

void ConjuntoDatos::lea_detalle() {
    cursor_.reset();
    cortada_ = false;
    orden_.clear();
    Detalle* d = almacen();
    if (!d || d->cargado || maestra_->estado_ == Estado::Insercion ||
        maestra_->orden_[size_t(maestra_->pos_)]->marca == Fila::Marca::Insertada) {
        // Sin fila guardada no hay qué traer, pero las columnas hacen falta para grabar.
        asegure_columnas();
    } else {
        const QScopedValueRollback<bool> guarda(abriendo_, true);
        try {
            abra_cursor();
            FetchAll();
        } catch (...) {
            *d = Detalle();
            orden_.clear();
            cortada_ = false; // se leerá entero la próxima vez
            throw;
        }
        campos_previos_.clear();
    }
    if (d)
        d->cargado = true;
    reordene(nullptr);
}

void ConjuntoDatos::cargue_anidado() {
    estado_ = Estado::Navegacion;
    nueva_.reset();
    recalcule();
    lea_detalle();
    pos_ = orden_.empty() ? -1 : 0;
    inicio_ = true;
    fin_ = orden_.empty();
    cargue_anidados();
}

void ConjuntoDatos::cargue_anidados() {
    for (ConjuntoDatos* d : anidados_)
        if (d->Active())
            d->cargue_anidado();
}

std::exception_ptr ConjuntoDatos::siga_a_la_fila() {
    std::exception_ptr falla;
    for (ConjuntoDatos* d : anidados_) {
        if (!d->Active())
            continue;
        try {
            d->cargue_anidado();
        } catch (...) {
            // La fila anterior pudo irse: sus detalles no pueden quedar a la vista.
            falla = std::current_exception();
            d->orden_.clear();
            d->pos_ = -1;
            d->fin_ = true;
            d->cambiaron_filas();
            d->siga_a_la_fila();
        }
    }
    return falla;
}

void ConjuntoDatos::mueva(int destino, bool anuncie) {
    for (ConjuntoDatos* d : anidados_)
        d->CheckBrowseMode();
    if (anuncie && BeforeScroll)
        BeforeScroll();
    {
        Intento intento(*this, Intento::SoloAnidados);
        const int antes = std::exchange(pos_, destino);
        try {
            cargue_anidados();
        } catch (...) {
            pos_ = antes;
            throw;
        }
        intento.confirme();
    }
    inicio_ = fin_ = false;
    anuncie_anidados();
    avise([](EnlaceDatos& e) { e.fila_actual_cambiada(); });
    if (anuncie && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::anuncie_anidados() {
    for (ConjuntoDatos* d : anidados_) {
        if (!d->Active())
            continue;
        d->anuncie_anidados();
        d->avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
        if (d->pos_ >= 0 && d->AfterScroll)
            d->AfterScroll();
    }
}

void ConjuntoDatos::Open() {
    if (Active())
        return;
    if (BeforeOpen)
        BeforeOpen();
    if (maestra_ && !maestra_->Active()) {
        maestra_->Open();
        return;
    }
    {
        Intento intento(*this, maestra_ || en_memoria_ ? Intento::SinFilas : Intento::ConFilas);
        prepare_apertura();
        intento.confirme();
    }
    anuncie_apertura();
}

void ConjuntoDatos::prepare_apertura() {
    if (maestra_)
        lea_detalle();
    else if (en_memoria_)
        reordene(nullptr);
    else
        lea_filas();
    estado_ = Estado::Navegacion;
    pos_ = orden_.empty() ? -1 : 0;
    inicio_ = true;
    fin_ = orden_.empty();
    recien_abierto_ = true;
    for (ConjuntoDatos* d : anidados_) {
        if (!d->Active() && d->BeforeOpen)
            d->BeforeOpen();
        d->prepare_apertura();
    }
}

void ConjuntoDatos::anuncie_apertura() {
    recien_abierto_ = false;
    for (ConjuntoDatos* d : anidados_)
        if (d->recien_abierto_)
            d->anuncie_apertura();
    avise([](EnlaceDatos& e) { e.filas_reiniciadas(); });
    avise([](EnlaceDatos& e) { e.estado_cambiado(); });
    if (AfterOpen)
        AfterOpen();
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::Reabra() {
    {
        Intento intento(*this);
        Close();
        if (BeforeOpen)
            BeforeOpen();
        prepare_apertura();
        intento.confirme();
    }
    anuncie_apertura();
}

void ConjuntoDatos::Open(const QString& texto) {
    const QString antes = CommandText; // `texto` puede ser el mismo que ya tenía
    CommandText = texto;
    try {
        if (Active())
            Reabra();
        else
            Open();
    } catch (...) {
        if (Active())
            CommandText = antes;
        throw;
    }
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
    cortada_ = false;
    cambiaron_filas();
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

// ---------------------------------------------------------------- leer de nuevo

void ConjuntoDatos::Refresh() {
    if (!Active() || en_memoria_)
        return;
    CheckBrowseMode();
    const auto llave = campos_llave();
    QVector<Valor> valores;
    for (Campo* c : llave)
        valores << c->valor();
    const int antes = pos_;
    DisableControls();
    try {
        Intento intento(*this);
        if (maestra_)
            lea_detalle();
        else
            lea_filas();
        estado_ = Estado::Navegacion;
        ubique_tras_refrescar(antes, llave, valores);
        cargue_anidados();
        intento.confirme();
    } catch (...) {
        EnableControls();
        throw;
    }
    EnableControls();
    anuncie_anidados();
    if (pos_ >= 0 && AfterScroll)
        AfterScroll();
}

void ConjuntoDatos::ubique_tras_refrescar(int antes, const QVector<Campo*>& llave,
                                          const QVector<Valor>& valores) {
    const QScopedValueRollback<bool> guarda(abriendo_, true);
    while (antes >= int(orden_.size()) && traiga_paquete()) {
    }
    pos_ = qMin(antes, int(orden_.size()) - 1);
    if (pos_ < 0 && !orden_.empty())
        pos_ = 0;
    inicio_ = pos_ <= 0;
    fin_ = orden_.empty();
    if (llave.isEmpty() || antes < 0)
        return;
    const auto es = [&](int i) {
        for (int k = 0; k < llave.size(); ++k)
            if (valor_en(i, *llave[k]) != valores[k])
                return false;
        return true;
    };
    if (pos_ >= 0 && es(pos_))
        return;
    for (int i = 0; i < int(orden_.size()) || traiga_paquete(); ++i)
        if (es(i)) {
            pos_ = i;
            return;
        }
}
