// Filas marcadas y portapapeles.
#include "datos/firebird/concuerde.h"
#include "toolkit/rejilla/rejilla.h"

#include "toolkit/controles/pegado_en_linea.h"
#include "toolkit/dialogos.h"
#include "toolkit/proteccion.h"
#include "toolkit/rejilla/editor_celda.h"
#include "toolkit/rejilla/indicador_filas.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/paso_atras.h"
#include "toolkit/rejilla/texto_tabulado.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QScopedValueRollback>
#include <optional>

// ---------------------------------------------------------------- marcas

void Rejilla::dgMultiSelect(bool activo) {
    marcas_activas_ = activo;
    if (!activo)
        quite_marcas();
}

QVector<int> Rejilla::filas_marcadas() const {
    return QVector<int>(marcas_.begin(), marcas_.end());
}

void Rejilla::marque(int fila, bool marcada) {
    if (fila < 0 || fila >= modelo_->rowCount() || marcada == this->marcada(fila))
        return;
    if (marcada)
        marcas_.insert(fila);
    else
        marcas_.erase(fila);
    viewport()->update();
    indicador_->viewport()->update();
    if (OnSelectionChanged)
        proteja([this] { OnSelectionChanged(); });
}

void Rejilla::quite_marcas() {
    if (marcas_.empty())
        return;
    marcas_.clear();
    viewport()->update();
    indicador_->viewport()->update();
    if (OnSelectionChanged)
        proteja([this] { OnSelectionChanged(); });
}

void Rejilla::alterne_marca(int fila) {
    marque(fila, !marcada(fila));
}

void Rejilla::marque_tramo(int desde, int hasta) {
    for (int f = qMin(desde, hasta); f <= qMax(desde, hasta); ++f)
        marque(f);
}

// ---------------------------------------------------------------- selección

bool Rejilla::tiene_seleccion() const {
    const QItemSelection s = selectionModel()->selection();
    return s.size() > 1 || (s.size() == 1 && (s[0].width() > 1 || s[0].height() > 1));
}

void Rejilla::seleccione_todo() {
    if (modelo_->rowCount() == 0 || columnas_.empty())
        return;
    if (marcas_activas_) {
        proteja([this] { conjunto()->FetchAll(); });
        for (int f = 0; f < modelo_->rowCount(); ++f)
            marcas_.insert(f);
        viewport()->update();
        indicador_->viewport()->update();
        if (OnSelectionChanged)
            proteja([this] { OnSelectionChanged(); });
        return;
    }
    if (!termine_edicion())
        return;
    // Lo que falta por traer se trae al copiar, y no por seleccionar.
    todo_ = true;
    selectionModel()->select(
        QItemSelection(modelo_->index(0, 0),
                       modelo_->index(modelo_->rowCount() - 1, cuenta_columnas() - 1)),
        QItemSelectionModel::ClearAndSelect);
}

bool Rejilla::puede_copiar() const {
    return conjunto() && conjunto()->Active() && !conjunto()->IsEmpty();
}

bool Rejilla::puede_pegar() const {
    return editable() && !QApplication::clipboard()->text().isEmpty();
}

bool Rejilla::puede_borrar() const {
    return puede_copiar() && editable();
}

QString Rejilla::texto_seleccionado() const {
    TextoTabulado tabla;
    const auto agregue = [&](int fila, int desde, int hasta) {
        QStringList celdas;
        for (int c = desde; c <= hasta; ++c)
            if (!isColumnHidden(c))
                celdas << modelo_->texto_editable(fila, c);
        tabla << celdas;
    };
    if (!marcas_.empty()) {
        for (const int f : marcas_)
            agregue(f, 0, cuenta_columnas() - 1);
    } else if (tiene_seleccion()) {
        const QItemSelectionRange r = selectionModel()->selection().first();
        for (int f = r.top(); f <= r.bottom(); ++f)
            agregue(f, r.left(), r.right());
    } else if (currentIndex().isValid()) {
        agregue(currentIndex().row(), SelectedIndex(), SelectedIndex());
    }
    return escriba_tabulado(tabla);
}

void Rejilla::copie() {
    if (digitando()) {
        editor_->copy();
        return;
    }
    if (!puede_copiar())
        return;
    if (todo_ && !conjunto()->completo() && !proteja([this] {
            conjunto()->FetchAll();
            seleccione_todo();
        }))
        return;
    QApplication::clipboard()->setText(texto_seleccionado());
}

void Rejilla::corte() {
    if (digitando()) {
        editor_->cut();
        editor_->modificado(true);
        return;
    }
    if (!puede_borrar())
        return;
    copie();
    borre_seleccion();
}

void Rejilla::borre_seleccion() {
    if (digitando()) {
        editor_->del();
        editor_->modificado(true);
        return;
    }
    if (!puede_borrar() || !currentIndex().isValid())
        return;
    const QItemSelection seleccion = selectionModel()->selection();
    const QItemSelectionRange r =
        seleccion.isEmpty() ? QItemSelectionRange(currentIndex()) : seleccion.first();
    const bool enteras = r.left() <= columna_visible(0, 1) &&
                         r.right() >= columna_visible(cuenta_columnas() - 1, -1);
    if (enteras && tiene_seleccion() && permite_borrar) {
        const int cuantas = r.height();
        if (!pregunte_con_no(concuerde(cuantas, "Desea borrar la fila actual?",
                                       "Desea borrar las %1 filas seleccionadas?")))
            return;
        const int ultima = r.bottom();
        proteja([&] {
            for (int i = 0; i < cuantas; ++i) {
                if (ultima - i != conjunto()->RecNo())
                    conjunto()->vaya_a(ultima - i);
                conjunto()->Delete();
            }
        });
        return;
    }
    const int arriba = r.top(), abajo = r.bottom(), izquierda = r.left(), derecha = r.right();
    const int fila = currentIndex().row(), columna = SelectedIndex();
    const bool varias = arriba != abajo;
    proteja([&] {
        for (int f = arriba; f <= abajo; ++f) {
            if (f != conjunto()->RecNo())
                conjunto()->vaya_a(f);
            conjunto()->Edit();
            for (int c = izquierda; c <= derecha; ++c)
                if (!isColumnHidden(c) && modelo_->editable(c))
                    asigne(c, {});
        }
        if (varias)
            conjunto()->vaya_a(fila);
    });
    if (conjunto()->RecNo() == fila)
        fije_actual(fila, columna);
}

// ---------------------------------------------------------------- pegar

void Rejilla::pegue_celda(int columna, const QString& texto) {
    if (!modelo_->editable(columna))
        return;
    const ColumnaRejilla& c = this->columna(columna);
    if (c.casilla) {
        asigne(columna, texto.trimmed().compare(QLatin1String("S"), Qt::CaseInsensitive) == 0
                            ? QStringLiteral("S")
                            : QStringLiteral("N"));
        return;
    }
    asigne(columna, modelo_->numerica(columna) ? texto.trimmed() : texto);
}

namespace {

/// Cuenta a la vista las líneas que van. No atiende otros eventos: un diálogo se llevaría el foco
/// de la celda, y con él la edición.
class AvancePegado {
public:
    AvancePegado(QWidget* donde, qsizetype total) : donde_(donde), total_(total) { reloj_.start(); }
    void operator()(qsizetype van) {
        if (reloj_.elapsed() < proximo_)
            return;
        if (!rotulo_) {
            rotulo_ = std::make_unique<QLabel>(donde_);
            rotulo_->setObjectName(QStringLiteral("avance_pegado"));
            rotulo_->setFrameShape(QFrame::StyledPanel);
            rotulo_->setAutoFillBackground(true);
            rotulo_->setMargin(12);
        }
        rotulo_->setText(QStringLiteral("Pegando %1 de %2 líneas...").arg(van).arg(total_));
        rotulo_->adjustSize();
        rotulo_->move(donde_->rect().center() - rotulo_->rect().center());
        rotulo_->show();
        rotulo_->repaint();
        proximo_ = reloj_.elapsed() + 100;
    }

private:
    QWidget* donde_;
    qsizetype total_;
    std::unique_ptr<QLabel> rotulo_;
    QElapsedTimer reloj_;
    qint64 proximo_ = Rejilla::ms_avance; ///< lo corto no llega a mostrarlo
};

} // namespace

bool Rejilla::pase_a_la_fila_pegada(int& fila, bool primera) {
    if (!primera && conjunto()->editando()) {
        const int antes = conjunto()->RecordCount();
        try {
            conjunto()->Post();
        } catch (const EdicionAbortada&) {
            // Una fila que se cancela sola por vacía no detiene las demás.
            if (conjunto()->RecordCount() == antes)
                throw;
            --fila;
        }
    }
    if (!primera)
        ++fila;
    if (fila < conjunto()->RecordCount()) {
        conjunto()->vaya_a(fila);
        conjunto()->Edit();
        return true;
    }
    if (!permite_insertar)
        return false;
    conjunto()->Append();
    fila = conjunto()->RecNo();
    return true;
}

void Rejilla::pegue() {
    if (digitando()) {
        pegue_en_linea(*editor_);
        editor_->modificado(true);
        return;
    }
    if (puede_pegar())
        pegue(tabla_pegada());
}

void Rejilla::pegue(const TextoTabulado& tabla) {
    const int primera = qMax(SelectedIndex(), columna_visible(0, 1));
    if (tabla.isEmpty() || primera < 0 || !editable())
        return;
    const auto escriba = [&] {
        // Las mismas cuentas y terceros se validan una vez.
        std::optional<ConsultasRepetidas> repetidas;
        if (conjunto()->sentencia())
            repetidas.emplace(conjunto()->conexion());
        AvancePegado avance(this, tabla.size());
        std::optional<QScopedValueRollback<bool>> pegando(std::in_place, pegando_, true);
        int fila = qMax(0, conjunto()->RecNo());
        int linea = 0;
        try {
            for (; linea < tabla.size() && pase_a_la_fila_pegada(fila, linea == 0); ++linea) {
                // La que no entra deja como estaba la fila sobre la que caía.
                if (tabla[linea].isEmpty() && linea > 0)
                    conjunto()->Cancel();
                int c = primera;
                for (const QString& celda : tabla[linea]) {
                    if (c < 0)
                        break;
                    pegue_celda(c, celda);
                    c = columna_visible(c + 1, 1);
                }
                avance(linea + 1);
            }
        } catch (const EdicionAbortada&) {
        } catch (...) {
            if (tabla.size() == 1)
                reporte_excepcion();
            else
                reporte_falla(QStringLiteral("Línea %1 de lo pegado: %2")
                                  .arg(linea + 1)
                                  .arg(falla_de_excepcion().para_usuario()));
        }
        pegando.reset();
        fije_actual(conjunto()->RecNo(), primera);
        mida_lo_aplazado();
    };
    // La pantalla que deshace por su cuenta recuerda más que estas filas.
    OnDeshacer ? escriba() : PasoAtras::de(*this).con(escriba);
}
