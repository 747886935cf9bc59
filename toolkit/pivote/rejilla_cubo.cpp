#include "toolkit/pivote/rejilla_cubo.h"

#include "toolkit/dialogos.h"
#include "toolkit/estilo.h"
#include "toolkit/exportacion/exportacion.h"
#include "toolkit/pivote/tabla_cubo.h"
#include "toolkit/proteccion.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

RejillaCubo::RejillaCubo(QWidget* padre) : QTableView(padre) {
    setModel(&modelo_);
    setObjectName(QStringLiteral("RejillaCubo"));
    setAccessibleName(QStringLiteral("Tabla de resultados"));
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + escalado(6));
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    horizontalHeader()->setHighlightSections(false);
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int columna) {
        if (columna > 0)
            sin_moverse([&] { modelo_.alterne_columna(columna); });
    });
}

void RejillaCubo::sin_moverse(const std::function<void()>& cambio) {
    const QModelIndex antes = currentIndex();
    const int fila = antes.isValid() ? antes.row() : 0,
              columna = antes.isValid() ? antes.column() : 0;
    cambio();
    if (modelo_.rowCount() > 0)
        setCurrentIndex(modelo_.index(qMin(fila, modelo_.rowCount() - 1),
                                      qMin(columna, modelo_.columnCount() - 1)));
}

void RejillaCubo::disponga(const Cubo& cubo, const DisposicionCubo& disposicion) {
    sin_moverse([&] { modelo_.disponga(cubo, disposicion); });
    cubo_ = &cubo;
    ajuste_anchos();
}

void RejillaCubo::ajuste_anchos() {
    constexpr int kFilasMedidas = 200, kColumnasMedidas = 60;
    const QFontMetrics letra(QFont(font().family(), font().pointSize(), QFont::Bold));
    for (int c = 0; c < qMin(modelo_.columnCount(), kColumnasMedidas); ++c) {
        int ancho = 0;
        for (const QString& renglon :
             modelo_.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString().split('\n'))
            ancho = qMax(ancho, letra.horizontalAdvance(renglon));
        for (int f = 0; f < qMin(modelo_.rowCount(), kFilasMedidas); ++f)
            ancho = qMax(ancho, letra.horizontalAdvance(modelo_.index(f, c).data().toString()));
        setColumnWidth(c, qMin(ancho + paso(2), paso(50)));
    }
}

void RejillaCubo::alterne_actual() {
    if (currentIndex().isValid())
        sin_moverse([this] { modelo_.alterne(currentIndex().row()); });
}

void RejillaCubo::mueva_nivel(int paso) {
    const int campos = int(modelo_.disposicion().filas.size());
    const int ahora = modelo_.nivel() == 0 ? campos : modelo_.nivel();
    const int nuevo = qBound(1, ahora + paso, qMax(1, campos));
    if (nuevo == ahora)
        return;
    sin_moverse([&] { modelo_.nivel(nuevo == campos ? 0 : nuevo); });
    emit nivel_cambiado(modelo_.nivel());
}

void RejillaCubo::copie() const {
    const QItemSelection seleccion = selectionModel()->selection();
    if (seleccion.isEmpty())
        return;
    QStringList filas;
    const QItemSelectionRange& r = seleccion.first();
    for (int f = r.top(); f <= r.bottom(); ++f) {
        QStringList celdas;
        for (int c = r.left(); c <= r.right(); ++c)
            celdas << modelo_.index(f, c).data().toString().trimmed();
        filas << celdas.join('\t');
    }
    QApplication::clipboard()->setText(filas.join('\n'));
}

void RejillaCubo::guarde() {
    if (!cubo_ || cubo_->hechos() == 0) {
        QApplication::beep();
        return;
    }
    QFileDialog dialogo(this, QStringLiteral("Guardar cubo"), QDir::homePath(),
                        filtro_para_qt(kFiltroExportacion));
    dialogo.setObjectName(QStringLiteral("guardar_cubo"));
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    dialogo.selectNameFilter(dialogo.nameFilters().constLast()); // el libro
    dialogo.selectFile(nombre_archivo);
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
        return;
    const FormatoExportacion formato = formato_del_filtro(dialogo.selectedNameFilter());
    const QString ruta = componga_nombre(dialogo.selectedFiles().first(), extension_de(formato));
    if (QFileInfo::exists(ruta) &&
        !pregunte(QStringLiteral("El archivo %1 ya existe. Desea reemplazarlo?").arg(ruta)))
        return;
    TablaDeCubo tabla(modelo_, nombre_archivo);
    exporte(tabla, formato, ruta);
}

void RejillaCubo::keyPressEvent(QKeyEvent* evento) {
    const bool numerico = evento->modifiers() & Qt::KeypadModifier;
    if (evento->matches(QKeySequence::Copy))
        copie();
    else if (evento->key() == Qt::Key_Space || evento->key() == Qt::Key_Return ||
             evento->key() == Qt::Key_Enter)
        alterne_actual();
    else if (numerico && evento->key() == Qt::Key_Plus)
        mueva_nivel(1);
    else if (numerico && evento->key() == Qt::Key_Minus)
        mueva_nivel(-1);
    else
        QTableView::keyPressEvent(evento);
}

void RejillaCubo::mouseDoubleClickEvent(QMouseEvent*) {
    alterne_actual();
}

void RejillaCubo::paintEvent(QPaintEvent* evento) {
    QTableView::paintEvent(evento);
    if ((cubo_ && cubo_->hechos() > 0) || texto_vacio.isEmpty())
        return;
    QPainter p(viewport());
    p.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    p.drawText(viewport()->rect(), Qt::AlignCenter, texto_vacio);
}
