#include "vouchers/filtros_busqueda.h"

#include "datos/recordset/condicion.h"
#include "libro/fechas.h"
#include "libro/numeracion.h"
#include "toolkit/aire.h"
#include "toolkit/controles/fecha_contable.h"
#include "toolkit/disposicion_flujo.h"
#include "toolkit/estilo.h"
#include "toolkit/lista_teclas.h"
#include "vouchers/pch.h"
#include "vouchers/piezas.h"

#include <QHBoxLayout>
#include <QKeyEvent>

QString FiltroTexto::condicion(const QString& digitado) const {
    static constexpr const char* kSignos[] = {" = ", " >= ", " <= "};
    return comparacion == Contiene ? condicion_contiene(columna, digitado)
                                   : columna + QString(kSignos[comparacion]) + QuotedStr(digitado);
}

bool FiltroTexto::es_fecha() const {
    return QLatin1String(rotulo).startsWith(QLatin1String("Fecha"));
}

FiltrosBusqueda::FiltrosBusqueda(ConjuntoDatos& tipos, const QVector<FiltroTexto>& filtros,
                                 const char* nombre_boton, bool con_fila,
                                 const Formulario::Par& antes, QWidget* padre)
    : QWidget(padre), tipos_(tipos), filtros_(filtros) {
    LTipo = new ListaDato(this);
    LTipo->setObjectName("LTipo");
    LTipo->lista_de(&tipos, "TICO_COD", "TICO_NOM");
    LTipo->OnChange = [this] { pendiente_ = true; };
    LTipo->installEventFilter(this);
    buscar = new QPushButton(icono("edit-find"), "Buscar", this);
    buscar->setObjectName(nombre_boton);
    buscar->setAutoDefault(false);
    explique_tecla(*this, "Enter tras cambiar una condición", "Buscar");
    // Los datos cortos van con el tipo; del primero largo en adelante, en el otro renglón.
    // Con letra grande los cortos siguen en otro renglón.
    QWidget* arriba = en_flujo({LTipo}, paso());
    auto* segundo = new QWidget;
    auto* abajo = new DisposicionFlujo(segundo, paso());
    QLineEdit* primero_largo = nullptr;
    QBoxLayout* fechas = nullptr; // desde y hasta van juntas
    constexpr int kCorto = 8, kLargo = 16;
    for (const FiltroTexto& f : filtros_) {
        auto* caja = nombrado(new QLineEdit(this), f.nombre);
        caja->setMaxLength(f.ancho);
        if (f.es_fecha())
            admita_barras(caja);
        caja->installEventFilter(this);
        connect(caja, &QLineEdit::textEdited, this, [this] { pendiente_ = true; });
        cajas_ << caja;
        const QString texto = QString::fromUtf8(f.rotulo);
        if (f.ancho > kCorto && !primero_largo) {
            primero_largo = caja;
            caja->setMinimumWidth(ancho_caracteres(fontMetrics(), kLargo));
            abajo->addWidget(caja);
            continue;
        }
        caja->setFixedWidth(ancho_caracteres(fontMetrics(), f.ancho + 2));
        if (f.es_fecha() && fechas) {
            const int fin = fechas->count() - 1; // antes del espacio que las junta
            fechas->insertSpacing(fin, paso(0.5));
            fechas->insertWidget(fin + 1, rotulo(texto, caja));
            fechas->insertWidget(fin + 2, caja);
            continue;
        }
        QWidget* par = Formulario::junto({rotulo(texto, caja), caja});
        if (f.es_fecha())
            fechas = static_cast<QBoxLayout*>(par->layout());
        (primero_largo ? static_cast<QLayout*>(abajo) : arriba->layout())->addWidget(par);
    }
    abajo->addWidget(buscar);
    if (con_fila) {
        ckfiltro = nombrado(new QCheckBox("Habilitar filtros", this), "ckfiltro");
        // En un área estrecha, donde las fechas dejan sitio: otro renglón le quita filas a la
        // lista.
        (area_estrecha() ? arriba->layout() : abajo)->addWidget(ckfiltro);
    }
    segundo->setFocusProxy(primero_largo);
    Formulario f(this);
    if (antes.control)
        f.fila({antes});
    f.fila("Tipo", arriba).fila("Concepto", segundo);
    layout()->setContentsMargins(0, 0, 0, 0);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum); // más renglones si no cabe
    connect(buscar, &QPushButton::clicked, this, [this] { busque(); });
}

QLineEdit* FiltrosBusqueda::caja(const char* nombre) const {
    return findChild<QLineEdit*>(QLatin1String(nombre));
}

void FiltrosBusqueda::escoja_tipo(const QString& codigo) {
    const Campo& llave = tipos_.FieldByName("TICO_COD");
    for (int i = 0; i < tipos_.RecordCount(); ++i)
        if (tipos_.valor_en(i, llave).texto() == codigo.trimmed()) {
            LTipo->relea();
            LTipo->setCurrentIndex(i);
        }
}

bool FiltrosBusqueda::con_tipo() const {
    const QString tipo = LTipo->valor().texto();
    return !tipo.isEmpty() && tipo != kTodos;
}

QString FiltrosBusqueda::condicion(const QString& base, const QString& columna_tipo) const {
    QString texto = base;
    bool hay_where = !base.isEmpty();
    if (con_tipo()) {
        texto += (hay_where ? "and " : " where ") + columna_tipo + " = " +
                 QuotedStr(LTipo->valor().texto()) + ' ';
        hay_where = true;
    }
    // Solo el tipo cuenta como un where ya puesto: con todos los tipos y dos cajas llenas el texto
    // lo trae dos veces.
    for (int i = 0; i < filtros_.size(); ++i)
        if (const QString digitado = cajas_[i]->text(); !digitado.isEmpty())
            texto += (hay_where ? "and " : "where ") + filtros_[i].condicion(digitado) + ' ';
    return texto;
}

QStringList FiltrosBusqueda::sobrantes(const QString& base) const {
    QStringList llenas;
    for (int i = 0; i < filtros_.size(); ++i)
        if (!cajas_[i]->text().isEmpty())
            llenas << QString::fromUtf8(filtros_[i].rotulo);
    return base.isEmpty() && !con_tipo() && llenas.size() > 1 ? llenas : QStringList();
}

QString FiltrosBusqueda::numero_como_se_graba() const {
    const QLineEdit* numero = caja("TNum");
    if (!numero || numero->text().isEmpty() || numero->text().size() >= kCifrasNumero)
        return {};
    bool cifras = false;
    numero->text().toInt(&cifras);
    return cifras ? complete_numero(numero->text()) : QString();
}

void FiltrosBusqueda::busque() {
    // Como límite vale también un comienzo de fecha ("2017"); unas letras nunca hallarían nada.
    for (int i = 0; i < filtros_.size(); ++i)
        if (const QString texto = cajas_[i]->text(); filtros_[i].es_fecha())
            if (std::any_of(texto.begin(), texto.end(), [](QChar c) { return !c.isDigit(); })) {
                cajas_[i]->setFocus();
                muestre_mensaje(revise_fecha(texto)->texto);
                return;
            }
    pendiente_ = false;
    if (al_buscar)
        proteja(al_buscar);
}

bool FiltrosBusqueda::reclama(const QKeyEvent& evento) {
    const bool enter = evento.key() == Qt::Key_Return || evento.key() == Qt::Key_Enter;
    return enter && pendiente_ &&
           (LTipo->hasFocus() || cajas_.contains(qobject_cast<QLineEdit*>(focusWidget())));
}

bool FiltrosBusqueda::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress && reclama(*static_cast<QKeyEvent*>(evento))) {
        busque();
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}
