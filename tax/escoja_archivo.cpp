#include "tax/escoja_archivo.h"

#include "toolkit/exportacion/exportacion.h"

#include <QFileDialog>

QString escoja_archivo(QWidget* padre, const QString& actual, const QString& filtro) {
    QFileDialog dialogo(padre, QStringLiteral("Nombre del archivo"), QFileInfo(actual).path(),
                        filtro_para_qt(filtro));
    dialogo.setObjectName(QStringLiteral("escoja_archivo"));
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    dialogo.selectFile(QFileInfo(actual).fileName());
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
        return {};
    return dialogo.selectedFiles().first();
}
