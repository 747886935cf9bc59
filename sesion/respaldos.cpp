#include "sesion/respaldos.h"

#include "datos/firebird/reloj.h"
#include "sesion/instalacion.h"

#include <QDir>
#include <QSettings>

namespace {

QString archivo_de_ajustes() {
    return diraplicacion_callada() + QStringLiteral("/respaldo.cfg");
}

} // namespace

AjustesRespaldo ajustes_respaldo() {
    const QSettings s(archivo_de_ajustes(), QSettings::IniFormat);
    AjustesRespaldo a;
    a.carpeta = s.value("carpeta", diraplicacion_callada() + "/respaldos").toString();
    a.copias = qMax(1, s.value("copias", a.copias).toInt());
    return a;
}

void ajustes_respaldo(const AjustesRespaldo& a) {
    QSettings s(archivo_de_ajustes(), QSettings::IniFormat);
    s.setValue("carpeta", a.carpeta);
    s.setValue("copias", a.copias);
}

QDateTime ultimo_respaldo(const QString& compania) {
    return QSettings(archivo_de_ajustes(), QSettings::IniFormat)
        .value("ultimo/" + compania)
        .toDateTime();
}

QString letrero_respaldo(const QString& compania) {
    const QDateTime cuando = ultimo_respaldo(compania);
    return cuando.isValid()
               ? "Último respaldo bueno: " + cuando.toString(QStringLiteral("yyyy/MM/dd hh:mm"))
               : QStringLiteral("No hay ningún respaldo hecho desde este equipo.");
}

AvisoRespaldos& aviso_respaldos() {
    static AvisoRespaldos unico;
    return unico;
}

ResultadoRespaldo respalde_compania(const ParametrosConexion& base, const QString& compania,
                                    const AjustesRespaldo& ajustes, QString& archivo) {
    const QDateTime ahora = reloj().ahora();
    QDir carpeta(ajustes.carpeta);
    if (!carpeta.mkpath("."))
        throw ErrorDatos(
            QStringLiteral("No se pudo crear la carpeta %1. Indique otra.").arg(ajustes.carpeta));
    archivo = carpeta.filePath(compania + ahora.toString(QStringLiteral("_yyyyMMdd_hhmmss")) +
                               QStringLiteral(".fbk"));
    const ResultadoRespaldo r = respalde_y_pruebe(base, archivo);
    QSettings(archivo_de_ajustes(), QSettings::IniFormat).setValue("ultimo/" + compania, ahora);
    emit aviso_respaldos().hecho(compania);
    QStringList copias = carpeta.entryList({compania + "_????????_??????.fbk"}, QDir::Files,
                                           QDir::Name | QDir::Reversed);
    for (const QString& vieja : copias.mid(ajustes.copias))
        carpeta.remove(vieja);
    return r;
}
