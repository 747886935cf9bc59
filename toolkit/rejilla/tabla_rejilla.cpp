#include "toolkit/rejilla/tabla_rejilla.h"

#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

namespace {

constexpr int kFilasPorAviso = 500;

} // namespace

TablaRejilla::TablaRejilla(const Rejilla& rejilla) : rejilla_(rejilla) {
    for (int c = 0; c < rejilla.cuenta_columnas(); ++c)
        if (!rejilla.isColumnHidden(c))
            columnas_ << c;
}

QString TablaRejilla::titulo() const {
    // La fecha es de la hoja impresa: el archivo ya tiene la suya.
    if (!rejilla_.titulo_impreso.isEmpty())
        return QString(rejilla_.titulo_impreso).remove(QStringLiteral("%[Today]")).trimmed();
    // El título de la pantalla, que es una ventana hija, y no el del programa.
    for (const QWidget* w = &rejilla_; w; w = w->parentWidget())
        if (!w->windowTitle().isEmpty())
            return w->windowTitle();
    return {};
}

ColumnaExportable TablaRejilla::columna(int indice) const {
    const int numero = columnas_[indice];
    const ColumnaRejilla& c = rejilla_.columna(numero);
    ColumnaExportable e;
    e.titulo = c.Titulo;
    if (c.casilla) {
        e.tipo = TipoExportable::Casilla;
    } else if (!c.campo || !c.KeyList().isEmpty()) {
        e.tipo = TipoExportable::Texto;
    } else {
        switch (c.campo->clase) {
        case ClaseCampo::Entero:
            e.tipo = TipoExportable::Entero;
            break;
        case ClaseCampo::Decimal: {
            e.tipo = TipoExportable::Moneda;
            const QString& propio = c.DisplayFormat;
            const QString formato = propio.isEmpty() ? c.campo->DisplayFormat : propio;
            const qsizetype punto = formato.indexOf('.');
            e.decimales =
                formato.isEmpty() ? c.campo->Size
                : punto < 0
                    ? 0
                    : int(formato.mid(punto + 1).count('0') + formato.mid(punto + 1).count('#'));
            e.decimales = qBound(0, e.decimales, 4);
            break;
        }
        case ClaseCampo::Fecha:
            e.tipo = TipoExportable::Fecha;
            break;
        default:
            break;
        }
        if (c.campo && c.campo->Alignment == Alineacion::Centro)
            e.alineacion = Qt::AlignHCenter;
    }
    return e;
}

bool TablaRejilla::siguiente() {
    ConjuntoDatos* c = rejilla_.conjunto();
    if (!c || !c->Active())
        return false;
    if (fila_ + 1 >= c->RecordCount() && !c->traiga_paquete())
        return false;
    ++fila_;
    if (avance && fila_ % kFilasPorAviso == 0)
        avance(fila_);
    return true;
}

ValorExportable TablaRejilla::valor(int indice) const {
    const ColumnaRejilla& c = rejilla_.columna(columnas_[indice]);
    if (!c.campo)
        return {};
    const Valor v = rejilla_.conjunto()->valor_en(fila_, *c.campo);
    if (v.nulo())
        return {};
    if (c.casilla)
        return v.texto() == QLatin1String("S");
    if (!c.KeyList().isEmpty())
        return rejilla_.modelo().presente(v, columnas_[indice]);
    if (const auto* n = std::get_if<qint64>(&v.dato()))
        return *n;
    if (const auto* m = std::get_if<Moneda>(&v.dato()))
        return *m;
    if (const auto* d = std::get_if<QDate>(&v.dato()))
        return *d;
    return v.texto();
}

QString TablaRejilla::texto(int indice) const {
    const int numero = columnas_[indice];
    if (rejilla_.columna(numero).casilla)
        return TablaExportable::texto(indice);
    return rejilla_.modelo().texto(fila_, numero);
}

int TablaRejilla::sangria(int indice) const {
    const Campo* campo = rejilla_.columna(columnas_[indice]).campo;
    return campo && rejilla_.OnSangria ? rejilla_.OnSangria(fila_, *campo) : 0;
}

bool TablaRejilla::tiene_pie() const {
    return std::any_of(columnas_.begin(), columnas_.end(),
                       [this](int c) -> bool { return rejilla_.columna(c).ConSuma(); });
}

ValorExportable TablaRejilla::pie(int indice) const {
    const ColumnaRejilla& c = rejilla_.columna(columnas_[indice]);
    if (!c.ConSuma || !c.campo)
        return {};
    return rejilla_.suma(columnas_[indice]);
}

QString TablaRejilla::texto_pie(int indice) const {
    const ColumnaRejilla& c = rejilla_.columna(columnas_[indice]);
    if (!c.ConSuma || !c.campo)
        return {};
    return c.campo->presente(rejilla_.suma(columnas_[indice]), c.DisplayFormat);
}
