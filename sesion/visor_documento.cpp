#include "sesion/visor_documento.h"

#include "sesion/instalacion.h"
#include "sesion/tfdm.h"
#include "toolkit/proteccion.h"

#include <QDesktopServices>
#include <QDir>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>

namespace {
constexpr int kEsperaMs = 350;
}

VisorDocumento::VisorDocumento(QObject* dueno) : QObject(dueno) {
    espera_.setSingleShot(true);
    espera_.setInterval(kEsperaMs);
    connect(&espera_, &QTimer::timeout, this, [this] { proteja([this] { abra(); }); });
}

VisorDocumento::~VisorDocumento() {
    retire();
}

void VisorDocumento::muestre(const QByteArray& documento, const QString& nombre) {
    retire();
    if (documento.isEmpty())
        return;
    const QString aplicacion = diraplicacion();
    if (aplicacion.isEmpty())
        return; // ya se dijo que falta
    QString limpio = nombre;
    limpio.replace(QRegularExpression("[^\\w .-]", QRegularExpression::UseUnicodePropertiesOption),
                   "_");
    const QString carpeta = aplicacion + "/pdf";
    const QString ruta = carpeta + '/' + limpio + ".pdf";
    QDir().mkpath(carpeta);
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(documento) != documento.size() ||
        !archivo.commit())
        throw ErrorDatos("No se pudo escribir el documento en " + ruta + ": " +
                         archivo.errorString());
    ruta_ = ruta;
    espera_.start();
}

void VisorDocumento::retire() {
    espera_.stop();
    if (!ruta_.isEmpty())
        QFile::remove(std::exchange(ruta_, QString()));
}

void VisorDocumento::abra() {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(ruta_)))
        fdm().mostrar_advertencia("El equipo no tiene un programa para ver documentos PDF.");
}
