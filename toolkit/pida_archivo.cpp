#include "toolkit/pida_archivo.h"

#include "toolkit/dialogos.h"
#include "toolkit/exportacion/exportacion.h"

#include <QDir>
#include <QFileDialog>

std::optional<ArchivoEscogido> pida_archivo(QWidget* padre, const ArchivoPorGrabar& que) {
    const QFileInfo sugerido(que.sugerido);
    const bool con_carpeta = que.sugerido.contains('/');
    QFileDialog dialogo(padre, que.titulo, con_carpeta ? sugerido.path() : QDir::homePath(),
                        que.filtro);
    dialogo.setObjectName(que.nombre);
    dialogo.setAcceptMode(QFileDialog::AcceptSave);
    // La extensión se agrega después: la pregunta por el archivo existente es sobre el nombre
    // final.
    dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    if (que.ultimo_filtro)
        dialogo.selectNameFilter(dialogo.nameFilters().constLast());
    if (!sugerido.fileName().isEmpty())
        dialogo.selectFile(sugerido.fileName());
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
        return {};
    const QString filtro = dialogo.selectedNameFilter();
    const QString dado = dialogo.selectedFiles().constFirst();
    QString ruta = que.extension ? componga_nombre(dado, que.extension(filtro)) : dado;
    if (!ruta.endsWith(que.termina, Qt::CaseInsensitive))
        ruta += que.termina;
    if (que.reemplaza && QFileInfo::exists(ruta) &&
        !pregunte_con_no(QStringLiteral("El archivo %1 ya existe. Desea reemplazarlo?").arg(ruta)))
        return {};
    return ArchivoEscogido{ruta, filtro};
}
