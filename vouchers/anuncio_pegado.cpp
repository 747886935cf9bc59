#include "vouchers/anuncio_pegado.h"

#include "toolkit/estilo.h"
#include "vouchers/pch.h"

#include <QDialogButtonBox>
#include <QTreeWidget>

namespace {

QString filas(int n) {
    return n == 1 ? QStringLiteral("1 fila") : QStringLiteral("%1 filas").arg(n);
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
    dialogo.resize(escalado(640), escalado(a.rehusadas.isEmpty() ? 380 : 560));
    // Con algo que no entra, Enter no lo pasa por alto.
    QPushButton* propuesto = a.rehusadas.isEmpty() ? pegar : cancelar;
    propuesto->setDefault(true);
    propuesto->setFocus();
    return dialogo.exec() == QDialog::Accepted ? RespuestaPegado::Pega : RespuestaPegado::Desiste;
}
