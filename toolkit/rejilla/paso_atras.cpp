#include "toolkit/rejilla/paso_atras.h"

#include "datos/recordset/sin_eventos.h"
#include "toolkit/dialogos.h"
#include "toolkit/rejilla/rejilla.h"

#include <QScopeGuard>
#include <tuple>

bool confirme_deshacer(const QString& que) {
    return pregunte_con_no("Después de " + que +
                           " hubo otros cambios, que también se perderán. Desea deshacerlo?");
}

PasoAtras::PasoAtras(Rejilla& rejilla) : QObject(&rejilla), rejilla_(rejilla) {}

PasoAtras& PasoAtras::de(Rejilla& rejilla) {
    auto* paso = rejilla.findChild<PasoAtras*>(QString(), Qt::FindDirectChildrenOnly);
    if (!paso)
        paso = new PasoAtras(rejilla);
    if (paso->EnlaceDatos::conjunto() != rejilla.conjunto()) {
        paso->enlace(rejilla.conjunto());
        paso->filas_reiniciadas();
    }
    return *paso;
}

PasoAtras::Valores PasoAtras::valores_de(int fila) const {
    const ConjuntoDatos& c = *rejilla_.conjunto();
    Valores v;
    for (int i = 0; i < c.FieldCount(); ++i)
        v << (c.Fields(i).tipo == TipoCampo::Datos ? c.valor_en(fila, c.Fields(i)) : Valor());
    return v;
}

QVector<PasoAtras::Valores> PasoAtras::todas() const {
    QVector<Valores> filas;
    for (int i = 0; i < rejilla_.conjunto()->RecordCount(); ++i)
        filas << valores_de(i);
    return filas;
}

void PasoAtras::con(const std::function<void()>& cambio, const QString& que) {
    ConjuntoDatos& c = *rejilla_.conjunto();
    c.FetchAll(); // una fila que llegue después no es de lo pegado
    const auto anterior = std::make_tuple(sigue_, antes_, borradas_, despues_, que_);
    filas_reiniciadas();
    que_ = que;
    const QVector<Valores> habia = todas();
    for (const Valores& v : habia)
        antes_ << v;
    if (c.State() == Estado::Insercion) // la que se está agregando todavía no es
        antes_[c.RecNo()].reset();
    sigue_ = true;
    // También lo que quedó a medias por una falla se puede deshacer; y si se desistió, lo anterior
    // todavía se puede deshacer.
    const auto anote = qScopeGuard([&] {
        if (!sigue_)
            return;
        try {
            despues_ = todas();
            if (*despues_ == habia && borradas_.isEmpty())
                std::tie(sigue_, antes_, borradas_, despues_, que_) = anterior;
        } catch (...) {
            filas_reiniciadas(); // no se sabe a qué se volvería
        }
    });
    cambio();
}

void PasoAtras::filas_reiniciadas() {
    sigue_ = false;
    antes_.clear();
    borradas_.clear();
    despues_.reset();
}

void PasoAtras::filas_insertadas(int desde, int cuantas) {
    if (sigue_)
        antes_.insert(desde, cuantas, std::nullopt);
}

void PasoAtras::filas_borradas(int desde, int cuantas) {
    if (!sigue_)
        return;
    for (int i = desde; i < desde + cuantas; ++i)
        if (antes_[i])
            borradas_ << *antes_[i];
    antes_.remove(desde, cuantas);
}

void PasoAtras::deshaga() {
    ConjuntoDatos* c = rejilla_.conjunto();
    if (!rejilla_.editable())
        return;
    if (!despues_) {
        QApplication::beep();
        return;
    }
    if (todas() != *despues_ && !confirme_deshacer(que_))
        return;
    const int columna = rejilla_.SelectedIndex();
    {
        const SinEventos callado(*c);
        reponga();
    }
    filas_reiniciadas();
    // Los nombres y las sumas de la pantalla siguen a sus filas.
    if (c->AfterPost)
        c->AfterPost();
    c->First();
    if (c->AfterScroll)
        c->AfterScroll();
    rejilla_.SelectedIndex(columna);
}

void PasoAtras::ponga(const Valores& valores) {
    ConjuntoDatos& c = *rejilla_.conjunto();
    for (int i = 0; i < c.FieldCount(); ++i) {
        Campo& campo = c.Fields(i);
        if (campo.tipo == TipoCampo::Datos && campo.valor() != valores[i])
            campo = valores[i];
    }
    c.Post();
}

void PasoAtras::reponga() {
    ConjuntoDatos& c = *rejilla_.conjunto();
    c.Cancel();
    // Primero salen las nuevas: una que vuelve puede tener su llave.
    for (int i = c.RecordCount() - 1; i >= 0; --i)
        if (!antes_[i]) {
            c.vaya_a(i);
            c.Delete();
        }
    const auto quedan = antes_; // al grabar, el conjunto puede moverlas
    for (int i = 0; i < c.RecordCount(); ++i)
        if (valores_de(i) != *quedan[i]) {
            c.vaya_a(i);
            c.Edit();
            ponga(*quedan[i]);
        }
    for (const Valores& v : QVector<Valores>(borradas_)) {
        c.Append();
        ponga(v);
    }
}
