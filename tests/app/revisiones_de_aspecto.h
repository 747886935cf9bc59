#pragma once
// Lo que a cada pantalla se le revisa con los ojos: ninguna cifra recortada habiendo ancho, los
// botones a la vista, el título de cada recuadro adentro, un nombre en cada control.
#include "apoyo_gui/consejo_visto.h"
#include "apoyo_gui/fotos.h"
#include "cada_pantalla.h"
#include "toolkit/barrabotones.h"
#include "toolkit/controles/editornumero.h"
#include "toolkit/estilo.h"
#include "toolkit/pivote/columna_fija.h"
#include "toolkit/pivote/rejilla_cubo.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

/// El que QUORVEX_MONITOR diga, a la escala de la sesión.
inline QSize monitor() {
    const QStringList lados = qEnvironmentVariable("QUORVEX_MONITOR", "1366x768").split('x');
    return QSize(lados[0].toInt(), lados[1].toInt()) / qApp->devicePixelRatio();
}

/// La ventana hija, o el diálogo si es modal.
inline QWidget* ventana_de(Pantalla* p) {
    for (QWidget* w = p; w; w = w->parentWidget())
        if (qobject_cast<QMdiSubWindow*>(w) || w->isWindow())
            return w;
    return p;
}

inline QVector<int> columnas_a_la_vista(const Rejilla& r) {
    QVector<int> v;
    for (int c = 0; c < r.cuenta_columnas(); ++c)
        if (!r.isColumnHidden(c))
            v << c;
    return v;
}

/// Un nombre o un concepto; lo demás son códigos, fechas, cifras y lo que se escoge de una lista,
/// que no se parten.
inline bool es_nombre(const Rejilla& r, int columna) {
    const ColumnaRejilla& c = r.columna(columna);
    if (r.modelo().numerica(columna) || !c.campo)
        return false;
    return c.campo->clase == ClaseCampo::Blob || c.ancho >= 24 ||
           (c.campo->Size >= 24 && c.PickList().isEmpty());
}

inline void revise_celdas(const Rejilla& r, QStringList& faltas) {
    for (const int c : columnas_a_la_vista(r)) {
        if (r.columna(c).casilla || es_nombre(r, c))
            continue;
        for (int f = 0; f < r.modelo().rowCount(); ++f) {
            const QFontMetrics m(r.aspecto_de(f).letra);
            const QString texto = r.modelo().texto(f, c).section('\n', 0, 0);
            if (m.horizontalAdvance(texto) > r.columnWidth(c) - 1 - 2 * DelegadoCelda::margen(m)) {
                faltas << QString("%1.%2 fila %3 se recorta: %4")
                              .arg(nombre_de(&r), r.columna(c).FieldName)
                              .arg(f)
                              .arg(texto);
                break;
            }
        }
    }
}

inline void revise_anchos(const Rejilla& r, QStringList& faltas) {
    int total = 0;
    bool nombres = false;
    QFont negrilla = r.font();
    negrilla.setBold(true);
    for (const int c : columnas_a_la_vista(r)) {
        total += r.columnWidth(c);
        nombres = nombres || es_nombre(r, c);
        bool dice = false; // si no, su suma no se muestra cuando no cabe
        for (int f = 0; f < r.modelo().rowCount() && !dice; ++f)
            dice = !r.modelo().texto(f, c).isEmpty();
        if (!r.pie() || !r.columna(c).ConSuma || !r.columna(c).campo || !dice)
            continue;
        const QString suma = r.columna(c).campo->presente(r.suma(c), r.columna(c).DisplayFormat);
        if (QFontMetrics(negrilla).horizontalAdvance(suma) > r.columnWidth(c))
            faltas << nombre_de(&r) + '.' + r.columna(c).FieldName +
                          ": la suma invade la columna vecina";
    }
    // Con las filas justas queda reservado el sitio de la barra del lado.
    const int barra = r.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &r);
    if (nombres && total < r.viewport()->width() - barra)
        faltas
            << QString("%1 usa %2 de %3").arg(nombre_de(&r)).arg(total).arg(r.viewport()->width());
}

inline bool se_recorta_un_nombre(const Rejilla& r) {
    constexpr int kLetras = 60, kFilas = 100;
    for (const int c : columnas_a_la_vista(r))
        for (int f = 0; f < qMin(kFilas, r.modelo().rowCount()); ++f) {
            const QFontMetrics m(r.aspecto_de(f).letra);
            const QString texto = r.modelo().texto(f, c).section('\n', 0, 0);
            if (es_nombre(r, c) && texto.size() <= kLetras &&
                m.horizontalAdvance(texto) > r.columnWidth(c) - 1 - 2 * DelegadoCelda::margen(m))
                return true;
            // El nombre tenue tras su código.
            const auto* celdas = static_cast<const DelegadoCelda*>(r.itemDelegate());
            const QString tenue = celdas->acompanante(r.model()->index(f, c));
            if (!tenue.isEmpty() && tenue.size() <= kLetras &&
                m.horizontalAdvance(texto + tenue) + 4 * DelegadoCelda::margen(m) >
                    r.columnWidth(c))
                return true;
        }
    return false;
}

/// Mientras al área le quede sitio, nadie tiene que desplazar una rejilla recién abierta ni
/// adivinar un nombre.
inline void revise_ventana(Pantalla* p, QStringList& faltas) {
    const QWidget* ventana = ventana_de(p);
    if (!qobject_cast<const QMdiSubWindow*>(ventana))
        return;
    const bool ancha = ventana->width() >= p->area_principal().width();
    const bool alta = ventana->height() >= p->area_principal().height() ||
                      ventana->property("alto_del_area").toBool();
    for (const Rejilla* r : p->findChildren<Rejilla*>()) {
        if (!r->isVisible())
            continue;
        if (!ancha && r->horizontalScrollBar()->maximum() > 0)
            faltas << nombre_de(r) + " se desplaza y su ventana puede ensancharse";
        else if (!ancha && se_recorta_un_nombre(*r))
            faltas << nombre_de(r) + " recorta un nombre y su ventana puede ensancharse";
        const bool quieta = r->digitando() || (r->conjunto() && r->conjunto()->Modified());
        if (!alta && !quieta && r->verticalScrollBar()->maximum() > 0)
            faltas << nombre_de(r) + " esconde filas y su ventana puede crecer";
    }
    for (const RejillaCubo* r : p->findChildren<RejillaCubo*>())
        if (!ancha && r->lo_que_falta() > 0)
            faltas << nombre_de(r) + " recorta y su ventana puede ensancharse";
}

/// Un nombre cede hasta doce letras antes de que una cifra haya que ir a buscarla.
inline void revise_desplazamiento(const Rejilla& r, QStringList& faltas) {
    const int falta = r.horizontalScrollBar()->maximum();
    const int corrida = r.horizontalScrollBar()->value();
    const int fin = r.visualRect(r.currentIndex()).right() + corrida;
    if (corrida > 0 && fin < r.viewport()->width())
        faltas << nombre_de(&r) + " abre corrida";
    const int doce = ancho_caracteres(r.fontMetrics(), 12);
    int ceden = 0;
    for (const int c : columnas_a_la_vista(r))
        if (es_nombre(r, c) && !r.columna(c).casilla)
            ceden +=
                qMax(0, r.columnWidth(c) - qMax(doce, r.horizontalHeader()->sectionSizeHint(c)));
    if (falta > 0 && falta <= ceden)
        faltas << QString("%1 se desplaza %2 y sus nombres ceden %3")
                      .arg(nombre_de(&r))
                      .arg(falta)
                      .arg(ceden);
}

/// Ninguna cifra del cubo sale en puntos.
inline void revise_celdas(const RejillaCubo& r, QStringList& faltas) {
    const int margen = r.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &r) + 1;
    for (int c = 1; c < r.model()->columnCount(); ++c)
        for (int f = 0; f < r.model()->rowCount(); ++f) {
            const QModelIndex celda = r.model()->index(f, c);
            const QVariant letra = celda.data(Qt::FontRole);
            const QFontMetrics m(letra.isValid() ? letra.value<QFont>() : r.font());
            const QString texto = celda.data().toString();
            if (m.horizontalAdvance(texto) > r.columnWidth(c) - 1 - 2 * margen) {
                faltas << QString("%1 columna %2 fila %3 se recorta: %4")
                              .arg(nombre_de(&r), QString::number(c), QString::number(f), texto);
                break;
            }
        }
}

/// La columna que no se desplaza no tapa las cifras del cubo, y por su aire no sale una barra.
inline void revise_cubos(const Pantalla* p, QStringList& faltas, Cobertura& con_filas) {
    for (const RejillaCubo* r : p->findChildren<RejillaCubo*>()) {
        const QString este = nombre_y_manera(*p) + '.' + r->objectName();
        con_filas.debe(este);
        if (r->isVisible() && r->model()->rowCount() > 0)
            con_filas.hecha(este);
        revise_celdas(*r, faltas);
        if (r->columnWidth(0) > qMax(paso(12), r->viewport()->width() / 2))
            faltas << nombre_de(r) + ": la columna fija tapa las cifras";
        const int falta = r->horizontalScrollBar()->maximum();
        if (falta > 0 && falta <= r->model()->columnCount() * paso())
            faltas << QString("%1 se desplaza por %2").arg(nombre_de(r)).arg(falta);
    }
}

/// Un título puede abreviarse, no quedar en puntos suspensivos.
inline void revise_titulos(const Rejilla& r, QStringList& faltas) {
    const auto& titulos = static_cast<const EncabezadoRejilla&>(*r.horizontalHeader());
    for (const int c : columnas_a_la_vista(r))
        if (titulos.titulo_partido(c).contains(QChar(0x2026)))
            faltas << QString("%1.%2 se titula %3")
                          .arg(nombre_de(&r), r.columna(c).FieldName, titulos.titulo_partido(c));
}

/// De qué lado se leen sus títulos, por rejilla y campo.
inline QMap<QString, int> lados(const Pantalla* p) {
    QMap<QString, int> lados;
    for (const Rejilla* r : p->findChildren<Rejilla*>())
        for (int c = 0; c < r->cuenta_columnas(); ++c)
            lados[r->objectName() + '.' + r->columna(c).FieldName] = r->modelo().alineacion(c);
    return lados;
}

inline void revise_rejillas(const Pantalla* p, QStringList& faltas, Cobertura& con_filas) {
    for (Rejilla* r : p->findChildren<Rejilla*>()) {
        const QString esta = nombre_y_manera(*p) + '.' + r->objectName();
        if (!r->isHidden()) // hay de solo exportar
            con_filas.debe(esta);
        if (r->isVisible())
            revise_titulos(*r, faltas);
        if (!r->isVisible() || !r->conjunto() || !r->conjunto()->Active())
            continue;
        r->conjunto()->FetchAll();
        agote_eventos();
        if (r->modelo().rowCount() > 0)
            con_filas.hecha(esta);
        revise_celdas(*r, faltas);
        revise_anchos(*r, faltas);
        revise_desplazamiento(*r, faltas);
        if (r->horizontalScrollBar()->maximum() !=
            qMax(0, r->horizontalHeader()->length() - r->viewport()->width()))
            faltas << nombre_de(r) + ": su barra no llega a todas las columnas";
    }
    faltas.removeDuplicates();
}

/// Una cifra que no se digita no tiene cómo verse después.
inline void revise_cajas(const Pantalla* p, QStringList& faltas) {
    for (const EditorNumero* e : p->findChildren<EditorNumero*>())
        if (e->isVisible() && e->isReadOnly() &&
            e->fontMetrics().horizontalAdvance(e->text()) > e->contentsRect().width())
            faltas << nombre_de(e) + " se recorta: " + e->text();
    constexpr int kLetras = 45, kAncho = 1366; // más angosto, un nombre cede otro poco
    for (const QLineEdit* e : p->findChildren<QLineEdit*>())
        if (e->isVisible() && monitor().width() >= kAncho &&
            e->fontMetrics().horizontalAdvance(e->text().left(kLetras)) >
                e->contentsRect().width() - 4)
            faltas << nombre_de(e) + " se recorta: " + e->text();
    for (const QLabel* l : p->findChildren<QLabel*>())
        if (l->isVisible() && l->text() == "Cifras de\ncontrol:" &&
            l->height() < l->parentWidget()->height())
            faltas << "las cifras de control se rotulan en dos renglones con su fila libre";
    for (const QComboBox* lista : p->findChildren<QComboBox*>())
        if (!lista->isEditable() && !lista->inherits("ListaTecleo"))
            faltas << nombre_de(lista) + " no busca lo que se teclea con espacios";
}

/// Lo que se corta y su consejo no dice, y cuánto se vio de cada clase.
class Consejos {
public:
    explicit Consejos(QStringList& faltas) : faltas_(faltas) {}
    static inline QMap<QString, int> vistos;

    void revise(const Pantalla* p) {
        for (const Rejilla* r : p->findChildren<Rejilla*>())
            if (r->isVisible())
                de_rejilla(*r);
        for (RejillaCubo* r : p->findChildren<RejillaCubo*>())
            if (r->isVisible())
                de_cubo(*r);
        for (QLineEdit* e : p->findChildren<QLineEdit*>())
            de_caja(*e);
        for (QComboBox* l : p->findChildren<QComboBox*>())
            de_lista(*l);
    }

private:
    void exija(const QString& clase, const QWidget* dueno, QWidget* w, const QPoint& punto,
               const QString& texto) {
        ++vistos[clase];
        const QString dicho = consejo_en(w, punto);
        if (!dicho.contains(texto.simplified()))
            faltas_ << QString("%1: se corta «%2» y su consejo dice «%3»")
                           .arg(nombre_de(dueno), texto, dicho);
    }
    void de_rejilla(const Rejilla& r) {
        const int ultima = r.rowAt(r.viewport()->height() - 1);
        for (const int c : columnas_a_la_vista(r)) {
            const int x = qMax(0, r.columnViewportPosition(c));
            if (x >= r.viewport()->width())
                continue;
            const auto& titulos = static_cast<const EncabezadoRejilla&>(*r.horizontalHeader());
            const QString titulo = r.columna(c).Titulo;
            if (titulos.titulo_a_la_vista(c).simplified() != titulo.simplified())
                exija("título", &r, titulos.viewport(), QPoint(x + 1, 2), titulo);
            for (int f = 0; f <= (ultima < 0 ? r.modelo().rowCount() - 1 : ultima); ++f) {
                const QRect celda = r.visualRect(r.model()->index(f, c)) & r.viewport()->rect();
                const QString texto = r.modelo().texto(f, c);
                const QFontMetrics m(r.aspecto_de(f).letra);
                const int ancho =
                    m.horizontalAdvance(texto.section('\n', 0, 0)) + 2 * DelegadoCelda::margen(m);
                if (r.columna(c).casilla || celda.isEmpty() ||
                    (ancho <= celda.width() && !texto.contains('\n')))
                    continue;
                exija("celda", &r, r.viewport(), celda.center(), texto);
                break;
            }
        }
    }
    void de_cubo(RejillaCubo& r) {
        QScrollBar& barra = *r.horizontalScrollBar();
        for (const int corrida : {barra.maximum(), 0}) {
            barra.setValue(corrida);
            agote_eventos();
            de_tabla("cubo", r, r.ancho_fijo());
            if (auto* fija = r.findChild<ColumnaFija*>(); fija && fija->isVisible())
                de_tabla("columna fija", *fija, 0);
        }
    }
    void de_tabla(const QString& clase, const QTableView& t, int tapado) {
        const int filas = qMin(t.model()->rowCount(), 40);
        for (int c = 0; c < t.model()->columnCount(); ++c)
            for (int f = 0; f < filas; ++f) {
                const QModelIndex i = t.model()->index(f, c);
                QRect celda = t.visualRect(i) & t.viewport()->rect();
                celda.setLeft(qMax(celda.left(), c > 0 ? tapado : 0));
                const QFont letra = qvariant_cast<QFont>(i.data(Qt::FontRole)).resolve(t.font());
                const QString texto = i.data().toString();
                if (celda.isEmpty() || celda.height() < 4 ||
                    QFontMetrics(letra).horizontalAdvance(texto) <= celda.width() - 4)
                    continue;
                exija(clase, &t, t.viewport(), celda.center(), texto);
                break;
            }
    }
    void de_caja(QLineEdit& e) {
        const bool parte = qobject_cast<QAbstractSpinBox*>(e.parentWidget()) ||
                           qobject_cast<QComboBox*>(e.parentWidget()) || e.inherits("EditorCelda");
        if (e.isVisible() && !parte && e.echoMode() == QLineEdit::Normal &&
            e.fontMetrics().horizontalAdvance(e.text()) > e.contentsRect().width() - 4)
            exija("caja", &e, &e, e.rect().center(), e.text());
    }
    void de_lista(QComboBox& l) {
        if (!l.isVisible())
            return;
        QStyleOptionComboBox opcion;
        opcion.initFrom(&l);
        opcion.editable = l.isEditable();
        opcion.frame = l.hasFrame();
        opcion.subControls = QStyle::SC_All;
        const int sitio =
            l.style()
                ->subControlRect(QStyle::CC_ComboBox, &opcion, QStyle::SC_ComboBoxEditField, &l)
                .width();
        if (l.fontMetrics().horizontalAdvance(l.currentText()) <= sitio)
            return;
        (void)l.grab(); // aunque haya que correr la pantalla para verla
        exija("lista", &l, &l, l.rect().center(), l.currentText());
    }
    QStringList& faltas_;
};

/// El título de un recuadro va dentro de él, y nada se le monta.
inline void revise_recuadros(const Pantalla* p, QStringList& faltas) {
    for (const QGroupBox* g : p->findChildren<QGroupBox*>()) {
        if (!g->isVisible() || g->title().isEmpty())
            continue;
        QStyleOptionGroupBox opcion;
        opcion.initFrom(g);
        opcion.text = g->title();
        opcion.lineWidth = 1;
        opcion.textAlignment = Qt::Alignment(g->alignment());
        opcion.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        const auto parte = [&](QStyle::SubControl cual) {
            return g->style()->subControlRect(QStyle::CC_GroupBox, &opcion, cual, g);
        };
        const QRect titulo = parte(QStyle::SC_GroupBoxLabel);
        if (!parte(QStyle::SC_GroupBoxFrame).adjusted(1, 1, -1, -1).contains(titulo))
            faltas << nombre_de(g) + ": su título no queda dentro del recuadro";
        for (const QWidget* w : g->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (w->isVisible() && w->geometry().intersects(titulo))
                faltas << nombre_de(w) + " tapa el título de su recuadro";
    }
}

/// Lo que un lector de pantalla diría de un control; vacío si nada.
inline QString nombre_dicho(QWidget* w) {
    QAccessibleInterface* i = QAccessible::queryAccessibleInterface(w);
    return i ? i->text(QAccessible::Name).trimmed() : QString();
}

inline void revise_nombres(const Pantalla* p, QStringList& faltas) {
    for (QWidget* w : p->findChildren<QWidget*>()) {
        const QWidget* padre = w->parentWidget();
        const bool parte =
            padre && (padre->inherits("QComboBox") || padre->inherits("QAbstractSpinBox"));
        // Una caja que no recibe Tab también se lee.
        const bool caja = qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                          qobject_cast<QAbstractSpinBox*>(w) || qobject_cast<QTextEdit*>(w);
        if (!w->isVisible() || parte || w->focusProxy() ||
            !(caja || w->focusPolicy() & Qt::TabFocus))
            continue;
        if (nombre_dicho(w).isEmpty())
            faltas << nombre_de(w) + " no dice su nombre";
    }
    for (Rejilla* r : p->findChildren<Rejilla*>()) {
        if (!r->isVisible() || r->modelo().rowCount() == 0)
            continue;
        for (const int c : columnas_a_la_vista(*r)) {
            const QModelIndex celda = r->model()->index(0, c);
            if (celda.data(Qt::AccessibleDescriptionRole).toString().isEmpty())
                faltas << QString("%1: la celda %2 no dice de qué es").arg(nombre_de(r)).arg(c);
        }
    }
    for (const RejillaCubo* r : p->findChildren<RejillaCubo*>())
        for (int c = 0; c < r->model()->columnCount(); ++c) {
            const QModelIndex celda = r->model()->index(0, c);
            if (celda.data(Qt::AccessibleDescriptionRole).toString().isEmpty())
                faltas << QString("%1: la celda %2 no dice de qué es").arg(nombre_de(r)).arg(c);
        }
}

inline void revise_botones(Pantalla* p, QStringList& faltas) {
    const QWidget* marco = p->parentWidget(); // la ventanilla por la que se ve la pantalla
    // En todas se graba, se sigue y se escoge con las mismas palabras, también en sus paneles.
    for (const BarraBotones* barra : p->findChildren<BarraBotones*>())
        for (const QPushButton* b : barra->findChildren<QPushButton*>()) {
            const QString dice = b->text().remove('&').section(':', -1).trimmed();
            const bool es_suya =
                dice == "Seleccionar" &&
                QStringList{"Tfconceptos", "Tfbuscplantilla"}.contains(p->objectName());
            if (!es_suya && QStringList{"Aceptar", "Seleccionar", "Escoger"}.contains(dice))
                faltas << nombre_de(b) + " dice " + b->text();
        }
    for (const BarraBotones* barra : p->findChildren<BarraBotones*>()) {
        if (!barra->isVisible())
            continue;
        for (const QPushButton* b : barra->findChildren<QPushButton*>()) {
            if (b->isVisible() &&
                !marco->rect().contains(QRect(b->mapTo(marco, QPoint()), b->size())))
                faltas << nombre_de(b) + " queda fuera de la vista";
            if (b->isVisible() && b->icon().isNull())
                faltas << nombre_de(b) + " no tiene dibujo";
            // En todas se graba y se sale con las mismas palabras.
            if (b->text().contains("Guardar") || b->text().contains("Cerrar"))
                faltas << nombre_de(b) + " dice " + b->text();
        }
    }
}

/// Nada que reciba el teclado queda cortado por abajo, salvo lo que se desplaza.
inline void revise_cortes(const Pantalla* p, QStringList& faltas) {
    for (const QWidget* w : p->findChildren<QWidget*>()) {
        QRect lugar = w->rect();
        const QWidget* c = w->isVisible() && (w->focusPolicy() & Qt::TabFocus) ? w : p;
        for (; c != p && !c->parentWidget()->inherits("QAbstractScrollArea") &&
               c->objectName() != "qt_scrollarea_viewport";
             c = c->parentWidget()) {
            lugar.translate(c->pos());
            if (lugar.bottom() > c->parentWidget()->height())
                faltas << nombre_de(w) + " queda cortado";
        }
    }
    faltas.removeDuplicates();
}

inline void revise_vacias(const Pantalla* p, QStringList& faltas) {
    for (const Rejilla* r : p->findChildren<Rejilla*>())
        if (r->isVisible() && r->conjunto() && r->texto_vacio.isEmpty())
            faltas << nombre_de(r) + " no diría que está vacía";
        else if (r->isVisible() && r->conjunto() && !r->conjunto()->Active() &&
                 r->property("sin_consultar").isNull())
            faltas << nombre_de(r) + " abre en blanco y no dice cómo se consulta";
}

/// Vacía nombra la tecla con que se crea la primera: la suya, o la del botón que la crea.
inline void revise_creacion(const Pantalla* p, QStringList& faltas) {
    static const QRegularExpression crea("^(F\\d+)\\W*(Nuev|Crea|Adicion|Agreg)");
    static const QRegularExpression tecla("\\bF\\d+\\b|Insert");
    QStringList creadoras;
    for (const QPushButton* b : p->findChildren<QPushButton*>())
        if (const auto m = crea.match(b->text().remove('&')); m.hasMatch() && b->isVisible()) {
            const int clave = QKeySequence(m.captured(1))[0].key();
            if (std::ranges::any_of(p->teclas(), [=](const Tecla& t) { return t.clave == clave; }))
                creadoras << m.captured(1); // hay un letrero que dice una que no sirve
        }
    bool dicha = creadoras.isEmpty();
    for (const Rejilla* r : p->findChildren<Rejilla*>()) {
        if (!r->isVisible() || !r->conjunto())
            continue;
        if (r->editable() && r->permite_insertar && !r->texto_vacio.contains(tecla))
            faltas << nombre_de(r) + " no dice qué tecla crea la primera: " + r->texto_vacio;
        for (const QString& f : creadoras)
            dicha = dicha || r->texto_vacio.contains(f);
    }
    if (!dicha && p->findChild<Rejilla*>())
        faltas << "ninguna lista vacía nombra " + creadoras.join('/');
}

/// Las filas de todas las listas tienen el mismo alto.
inline void revise_filas(const Pantalla* p, QStringList& faltas) {
    for (const QTableView* r : p->findChildren<QTableView*>()) {
        const int esperado = r->fontMetrics().height() + escalado(6);
        if (r->isVisible() && r->verticalHeader()->defaultSectionSize() != esperado)
            faltas << QString("%1 tiene filas de %2 y las demás, de %3")
                          .arg(nombre_de(r))
                          .arg(r->verticalHeader()->defaultSectionSize())
                          .arg(esperado);
    }
}

/// Bajo el último control no queda en blanco más de la cuarta parte de la ventana. Los informes
/// abren del tamaño que tienen señalado.
inline void revise_hueco(Pantalla* p, QStringList& faltas) {
    const auto* barra = p->findChild<BarraBotones*>();
    if (!barra || !barra->isVisible() || p->inherits("FormaRango"))
        return;
    int ultimo = 0;
    for (const QWidget* w : p->findChildren<QWidget*>()) {
        const bool contiene = w->layout() || w->inherits("QTabWidget") || w->inherits("QSplitter");
        if (w->isVisible() && !contiene && w != barra && !barra->isAncestorOf(w))
            ultimo = qMax(ultimo, w->mapTo(p, QPoint(0, w->height())).y());
    }
    const int hueco = barra->mapTo(p, QPoint()).y() - ultimo;
    if (hueco * 4 > ventana_de(p)->height())
        faltas << QString("deja %1 en blanco sobre los botones").arg(hueco);
}

/// A un monitor corriente, quien digita ve el asiento y no una ventanilla; con letra grande, sus
/// sumas.
inline void revise_lineas(const Pantalla* p, QStringList& faltas) {
    constexpr int kLineas = 14, kAltoA150 = 512;
    if (p->window()->height() < kAltoA150 ||
        !QStringList{"Tfmovimien", "Tfedtmovimien"}.contains(p->objectName()))
        return;
    if (p->height() > p->parentWidget()->height())
        faltas << "las sumas quedan detrás de los botones";
    if (p->window()->size() != QSize(1366, 768))
        return;
    const auto* r = p->findChild<Rejilla*>("DBGridEh1");
    constexpr int kTituloDelEscritorio = 20; // la barra que el gestor de ventanas pone al programa
    const int caben = (r->viewport()->height() - kTituloDelEscritorio) /
                      r->verticalHeader()->defaultSectionSize();
    if (caben < kLineas)
        faltas << QString("solo se ven %1 líneas").arg(caben);
}

/// Se abre por arriba, sin barra abajo, y lo enfocado o su comienzo no queda tras los botones.
inline void revise_apertura(const Pantalla* p, QStringList& faltas) {
    agote_eventos();
    const auto* marco = p->parentWidget();
    const auto* barras = qobject_cast<const QAbstractScrollArea*>(marco->parentWidget());
    const QWidget* foco = p->focusWidget();
    if (!barras || !foco)
        return;
    constexpr int kAnchoQueBasta = 700; // el del área a 150 %
    if (barras->horizontalScrollBar()->maximum() > 0 && marco->width() >= kAnchoQueBasta)
        faltas << "se desplaza de lado";
    if (const int m = barras->verticalScrollBar()->maximum(); m > 0 && m <= paso())
        faltas << QString("se desplaza por %1").arg(m);
    if (p->height() > marco->height() && !barras->verticalScrollBar()->isVisible())
        faltas << "no cabe y no tiene barra al lado";
    const BarraBotones* botones = p->findChild<BarraBotones*>();
    const int fondo = botones ? botones->mapTo(marco, QPoint()).y() : marco->height();
    const int corrida = barras->verticalScrollBar()->value();
    QRect lugar(foco->mapTo(marco, QPoint()), foco->size());
    // De una rejilla, hasta su fila; de la que se desplaza de lado, su fila y la barra.
    if (const auto* r = qobject_cast<const QAbstractItemView*>(foco)) {
        const QRect fila = r->visualRect(r->currentIndex());
        const int arriba = r->viewport()->y() + qMax(0, fila.top());
        if (r->horizontalScrollBar()->maximum() > 0 && lugar.height() - arriba + 4 * paso() < fondo)
            lugar.setTop(lugar.top() + arriba);
        else
            lugar.setHeight(r->viewport()->y() + qMax(0, fila.bottom()));
    } else if (qobject_cast<const QAbstractScrollArea*>(foco)) { // su primer renglón
        lugar.setHeight(foco->fontMetrics().height());
    }
    if (botones && botones->isAncestorOf(foco))
        return;
    if (lugar.top() < 0 || lugar.bottom() > fondo)
        faltas << nombre_de(foco) + " tiene el foco y no se ve";
    if (corrida > 0 && lugar.bottom() + corrida + 2 * paso() < fondo)
        faltas << QString("abre corrida %1").arg(corrida);
}

inline QStringList revise(Pantalla* p, Cobertura& con_filas) {
    QStringList faltas;
    agote_eventos();
    revise_ventana(p, faltas);
    revise_rejillas(p, faltas, con_filas);
    revise_cubos(p, faltas, con_filas);
    revise_cajas(p, faltas);
    revise_nombres(p, faltas);
    revise_botones(p, faltas);
    revise_cortes(p, faltas);
    revise_vacias(p, faltas);
    revise_creacion(p, faltas);
    revise_filas(p, faltas);
    revise_recuadros(p, faltas);
    Consejos(faltas).revise(p);
    revise_lineas(p, faltas);
    revise_hueco(p, faltas);
    return faltas;
}

/// Lo mismo en las hojas con pestaña que no se ven al abrir, cada una con su foto.
inline QStringList revise_las_otras_hojas(Pantalla* p, const QString& foto, Cobertura& con_filas) {
    QStringList faltas;
    for (QTabWidget* hojas : p->findChildren<QTabWidget*>()) {
        // En el que se edita, pasar de libro exige antes que este cuadre.
        const bool cuadra = p->objectName() != "Tfedtmovimien";
        const QSignalBlocker callada(cuadra ? nullptr : hojas);
        const int abierta = hojas->currentIndex();
        for (int i = 0; i < hojas->count(); ++i) {
            if (i == abierta || !hojas->isTabVisible(i))
                continue;
            hojas->setCurrentIndex(i);
            for (const QString& f : revise(p, con_filas))
                faltas << hojas->tabText(i) + ": " + f;
            QWidget* marco = p->parentWidget() ? p->parentWidget()->parentWidget() : nullptr;
            if (auto* corre = qobject_cast<QScrollArea*>(marco))
                corre->ensureWidgetVisible(hojas->currentWidget());
            tome_foto(ventana_de(p), foto + '_' + hojas->tabText(i).remove(' '));
        }
        hojas->setCurrentIndex(abierta);
    }
    return faltas;
}
