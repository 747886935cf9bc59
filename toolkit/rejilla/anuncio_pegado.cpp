#include "toolkit/rejilla/anuncio_pegado.h"

#include "datos/firebird/concuerde.h"
#include "toolkit/controles/teclas_numericas.h"
#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/letras_alt.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "toolkit/rejilla/rejilla.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString filas(int n) {
    return concuerde(n, "%1 fila", "%1 filas");
}

QString resumen(const AnuncioPegado& a) {
    QString texto = QStringLiteral("Lo copiado trae %1.").arg(filas(a.filas));
    if (a.reemplaza > 0)
        texto += QStringLiteral(" Sobre las líneas que ya están: %1. Nuevas: %2.")
                     .arg(a.reemplaza)
                     .arg(a.filas - a.reemplaza);
    if (!a.rehusadas.isEmpty())
        texto += QStringLiteral("\nNo pueden entrar: %1. Nada ha cambiado todavía.")
                     .arg(filas(int(a.rehusadas.size())));
    return texto;
}

QTreeWidget* tabla(const char* nombre, const QStringList& titulos, const QString& accesible) {
    auto* t = new QTreeWidget;
    t->setObjectName(QLatin1String(nombre));
    t->setAccessibleName(accesible);
    t->setHeaderLabels(titulos);
    t->setRootIsDecorated(false);
    t->setAlternatingRowColors(true);
    t->setUniformRowHeights(true);
    return t;
}

void ajuste(QTreeWidget* t) {
    for (int c = 0; c < t->columnCount() - 1; ++c)
        t->resizeColumnToContents(c);
    if (t->topLevelItemCount() > 0)
        t->setCurrentItem(t->topLevelItem(0));
}

} // namespace

RespuestaPegado muestre_anuncio(QWidget* padre, const AnuncioPegado& a) {
    QDialog dialogo(padre);
    dialogo.setObjectName(QStringLiteral("anuncio_pegado"));
    dialogo.setWindowTitle(QStringLiteral("Pegar"));
    auto* todo = new QVBoxLayout(&dialogo);
    auto* texto = new QLabel(resumen(a));
    texto->setTextFormat(Qt::PlainText);
    texto->setObjectName(QStringLiteral("resumen"));
    todo->addWidget(texto);
    auto* columnas = tabla("columnas", {"De lo copiado", "Va a", "En la primera fila"}, "Columnas");
    for (int i = 0; i < a.columnas.size(); ++i)
        new QTreeWidgetItem(columnas, {QStringLiteral("Columna %1").arg(i + 1), a.columnas[i].va_a,
                                       a.columnas[i].muestra});
    ajuste(columnas);
    todo->addWidget(columnas, 1);
    if (!a.rehusadas.isEmpty()) {
        auto* rehusadas = tabla("rehusadas", {"Fila", "Por qué no entra"}, "Filas que no entran");
        for (const FilaRehusada& r : a.rehusadas)
            new QTreeWidgetItem(rehusadas, {QString::number(r.fila), r.razon});
        ajuste(rehusadas);
        todo->addWidget(rehusadas, 1);
    }
    auto* botones = new QDialogButtonBox;
    const int buenas = a.filas - int(a.rehusadas.size());
    auto* pegar = botones->addButton(a.rehusadas.isEmpty()
                                         ? QStringLiteral("Pegar")
                                         : QStringLiteral("Pegar las demás (%1)").arg(buenas),
                                     QDialogButtonBox::AcceptRole);
    auto* cancelar = botones->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
    pegar->setEnabled(buenas > 0);
    QObject::connect(botones, &QDialogButtonBox::accepted, &dialogo, &QDialog::accept);
    QObject::connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
    todo->addWidget(botones);
    ponga_letras(dialogo);
    dialogo.resize(escalado(640), escalado(a.rehusadas.isEmpty() ? 380 : 560));
    // Con algo que no entra, Enter no lo pasa por alto.
    QPushButton* propuesto = a.rehusadas.isEmpty() ? pegar : cancelar;
    propuesto->setDefault(true);
    propuesto->setFocus();
    return dialogo.exec() == QDialog::Accepted ? RespuestaPegado::Pega : RespuestaPegado::Desiste;
}

bool son_varias_celdas(const QVector<QStringList>& filas) {
    return filas.size() > 1 || (filas.size() == 1 && filas.first().size() > 1);
}

AnuncioPegado reparta_pegado(const Rejilla& rejilla, const QVector<QStringList>& filas, int desde,
                             const std::function<bool(int)>& cerrada) {
    qsizetype ancho = 0;
    for (const QStringList& f : filas)
        ancho = qMax(ancho, f.size());
    AnuncioPegado anuncio;
    anuncio.filas = int(filas.size());
    anuncio.reemplaza = qBound(0, rejilla.conjunto()->RecordCount() - desde, anuncio.filas);
    int c = qMax(0, rejilla.SelectedIndex());
    for (qsizetype i = 0; i < ancho; ++i, ++c) {
        while (c < rejilla.cuenta_columnas() && rejilla.isColumnHidden(c))
            ++c;
        const QString muestra = filas.first().value(i);
        if (c >= rejilla.cuenta_columnas())
            anuncio.columnas.append({QStringLiteral("No cabe: no se pega"), muestra, {}});
        else if (const QString titulo = rejilla.columna(c).Titulo(); cerrada(c))
            anuncio.columnas.append(
                {QStringLiteral("%1: está cerrada, no se pega").arg(titulo), muestra, {}});
        else
            anuncio.columnas.append({titulo, muestra, rejilla.columna(c).FieldName});
    }
    return anuncio;
}

QVector<QStringList> las_que_entran(QVector<QStringList> filas, const AnuncioPegado& anuncio) {
    for (auto i = anuncio.rehusadas.crbegin(); i != anuncio.rehusadas.crend(); ++i)
        if (const int cual = i->fila - (anuncio.sobre_la_nueva ? 1 : 0);
            cual > 0 && cual <= anuncio.reemplaza)
            filas[i->fila - 1].clear(); // la que sigue no toma su lugar
        else
            filas.removeAt(i->fila - 1);
    return filas;
}

// ---------------------------------------------------------------- reglas de una rejilla

namespace {

/// Lo que los campos admiten y las llaves que no se repiten.
class RevisionDeCampos {
public:
    RevisionDeCampos(const Rejilla& rejilla, const TextoPegado& pegado)
        : rejilla_(rejilla), c_(*rejilla.conjunto()), p_(pegado) {
        for (const QString& nombre : pegado.campos)
            campos_ << (nombre.isEmpty() ? nullptr : c_.FindField(nombre));
        bool entera = true; // se va a escribir toda, y entonces no se puede repetir
        for (Campo* k : c_.campos_llave())
            if (rejilla.columna_de(k->FieldName) >= 0) {
                llave_ << k;
                entera = entera && campos_.contains(k);
            }
        if (!entera)
            llave_.clear();
        const int desde = primera_reemplazada();
        for (int f = 0; !llave_.isEmpty() && f < c_.RecordCount(); ++f)
            if (f < desde || f >= desde + p_.existentes)
                if (const QString suya = llave_de_fila(f); !suya.isEmpty())
                    llaves_.insert(suya);
    }

    QString revise(int i) {
        const QStringList& celdas = p_.filas[i];
        const bool nace = i >= p_.existentes + (c_.State() == Estado::Insercion ? 1 : 0);
        if (nace && !rejilla_.permite_insertar)
            return QStringLiteral("No cabe: esta lista no admite filas nuevas.");
        QStringList llave;
        for (int k = 0; k < celdas.size() && k < campos_.size(); ++k) {
            Campo* campo = campos_[k];
            if (!campo)
                continue;
            try {
                const Valor v = lea(*campo, celdas[k]);
                if (campo->Required && v.texto().isEmpty())
                    return QStringLiteral("Falta el dato %1.").arg(campo->nombre_visible());
                if (campo->OnValidate)
                    campo->OnValidate(*campo, v);
                if (llave_.contains(campo))
                    llave << v.texto();
            } catch (const ErrorDatos& error) {
                return error.para_usuario();
            }
        }
        if (llave_.isEmpty() || llave.size() != llave_.size())
            return {};
        const QString suya = llave.join('\t');
        if (llaves_.contains(suya))
            return QStringLiteral("%1 ya está en la lista.").arg(llave.join(QStringLiteral(", ")));
        llaves_.insert(suya);
        return {};
    }

private:
    int primera_reemplazada() const {
        return qMax(0, c_.RecNo()) + (c_.State() == Estado::Insercion ? 1 : 0);
    }

    Valor lea(const Campo& campo, const QString& celda) const {
        const int columna = rejilla_.columna_de(campo.FieldName);
        if (rejilla_.columna(columna).casilla || !rejilla_.columna(columna).KeyList().isEmpty())
            return celda;
        return campo.convierta(
            campo.numerico()  ? contenido_numerico(celda, campo, rejilla_.columna(columna).Titulo())
            : celda.isEmpty() ? Valor()
                              : Valor(celda));
    }

    QString llave_de_fila(int fila) const {
        if (fila == c_.RecNo() && c_.State() == Estado::Insercion)
            return {};
        QStringList valores;
        for (const Campo* campo : campos_)
            if (campo && llave_.contains(campo))
                valores << c_.valor_en(fila, *campo).texto();
        return valores.join('\t');
    }

    const Rejilla& rejilla_;
    const ConjuntoDatos& c_;
    const TextoPegado& p_;
    QVector<Campo*> campos_, llave_;
    QSet<QString> llaves_;
};

} // namespace

ReglasPegado::ReglasPegado(Rejilla& rejilla) : QObject(&rejilla), rejilla_(rejilla) {}

ReglasPegado& ReglasPegado::de(Rejilla& rejilla) {
    auto* hechas = rejilla.findChild<ReglasPegado*>(QString(), Qt::FindDirectChildrenOnly);
    return hechas ? *hechas : *new ReglasPegado(rejilla);
}

void ReglasPegado::exija(const QString& campo, std::function<QString(const QString&)> razon) {
    agregue([campo, razon = std::move(razon)](const TextoPegado& p) {
        QVector<FilaRehusada> rehusadas;
        const qsizetype cual = p.campos.indexOf(campo);
        for (int i = 0; cual >= 0 && i < p.filas.size(); ++i)
            if (const QString valor = p.filas[i].value(cual); !valor.isEmpty())
                if (const QString no = razon(valor); !no.isEmpty())
                    rehusadas.append({i + 1, no});
        return rehusadas;
    });
}

QVector<FilaRehusada> ReglasPegado::rehusadas(const TextoPegado& pegado) const {
    QMap<int, QString> razones;
    RevisionDeCampos campos(rejilla_, pegado);
    for (int i = 0; i < pegado.filas.size(); ++i)
        if (const QString razon = campos.revise(i); !razon.isEmpty())
            razones[i + 1] = razon;
    for (const Revision& revision : revisiones_)
        for (const FilaRehusada& r : revision(pegado))
            if (!razones.contains(r.fila))
                razones[r.fila] = r.razon;
    QVector<FilaRehusada> todas;
    for (auto i = razones.begin(); i != razones.end(); ++i)
        todas.append({i.key(), i.value()});
    return todas;
}

void pegue_con_anuncio(Rejilla& rejilla, const QVector<QStringList>& filas) {
    if (!son_varias_celdas(filas)) {
        rejilla.pegue(filas);
        return;
    }
    const ConjuntoDatos& c = *rejilla.conjunto();
    // La fila que se está agregando recibe la primera, y no reemplaza a nadie.
    const int nace = c.State() == Estado::Insercion ? 1 : 0;
    AnuncioPegado anuncio =
        reparta_pegado(rejilla, filas, qMax(0, c.RecNo()) + nace,
                       [&](int columna) { return !rejilla.modelo().editable(columna); });
    anuncio.sobre_la_nueva = nace == 1;
    anuncio.reemplaza = qMin(anuncio.reemplaza, int(filas.size()) - nace);
    TextoPegado pegado{filas, {}, {}, anuncio.reemplaza};
    for (const auto& columna : anuncio.columnas)
        pegado.campos << columna.campo;
    if (pegado.campos.join(QString()).isEmpty()) {
        muestre_mensaje(QStringLiteral("Nada de lo copiado cae en una columna que se pueda "
                                       "escribir. No se pegó nada."));
        return;
    }
    anuncio.rehusadas = ReglasPegado::de(rejilla).rehusadas(pegado);
    if (muestre_anuncio(rejilla.window(), anuncio) == RespuestaPegado::Pega)
        rejilla.pegue(las_que_entran(filas, anuncio));
}
