#include "exchange/asistente_importacion.h"

#include "exchange/pch.h"
#include "sesion/instalacion.h"

#include <QSettings>

namespace {

/// Junto a los demás archivos de la instalación, con un grupo por usuario y clase de datos.
class Memoria {
public:
    explicit Memoria(int tipo)
        : ajustes_(diraplicacion_callada() + "/importacion.cfg", QSettings::IniFormat) {
        ajustes_.beginGroup(QStringLiteral("%1-%2").arg(fdm().usuario, QString::number(tipo)));
    }
    QSettings* operator->() { return &ajustes_; }

private:
    QSettings ajustes_;
};

AbreRechazos& memoria_de_rechazos() {
    static AbreRechazos rechazos;
    return rechazos;
}

} // namespace

AsistenteImportacion recordado(int tipo) {
    Memoria m(tipo);
    AsistenteImportacion a;
    a.tipo = tipo;
    a.archivo = m->value("archivo").toString();
    a.formato = m->value("formato", 1).toInt();
    a.separador = m->value("separador").toInt();
    a.delimitador = m->value("delimitador").toInt();
    return a;
}

// El libro no se recuerda: el archivo siguiente entraría al NIIF sin que nadie lo pidiera.
void recuerde(const AsistenteImportacion& a) {
    Memoria m(a.tipo);
    m->setValue("archivo", a.archivo);
    m->setValue("formato", a.formato);
    m->setValue("separador", a.separador);
    m->setValue("delimitador", a.delimitador);
}

QVector<ColumnaImportacion> columnas_recordadas(int tipo) {
    QVector<ColumnaImportacion> columnas;
    for (const QString& par : Memoria(tipo)->value("columnas").toStringList())
        columnas.append({par.section('=', 0, 0), par.section('=', 1).toInt()});
    return columnas;
}

void recuerde_columnas(int tipo, const QVector<ColumnaImportacion>& columnas) {
    QStringList pares;
    for (const ColumnaImportacion& c : columnas)
        pares << QStringLiteral("%1=%2").arg(c.dato).arg(c.columna);
    Memoria(tipo)->setValue("columnas", pares);
}

const AbreRechazos& ultima_importacion() {
    return memoria_de_rechazos();
}

void recuerde_importacion(const AbreRechazos& rechazos) {
    memoria_de_rechazos() = rechazos;
}

void muestre_rechazos() {
    if (ultima_importacion().resultado.rechazados.isEmpty())
        muestre_mensaje("La última importación no rechazó ningún renglón.");
    else
        pantallas().abrir("Tfrechazosimp", ultima_importacion());
}
