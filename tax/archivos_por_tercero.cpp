#include "tax/archivos_por_tercero.h"

#include "datos/firebird/concuerde.h"

#include <QRegularExpression>
#include <QSet>

namespace {
constexpr int kFallasALaVista = 10;
}

QString ResumenArchivos::texto(const QString& carpeta) const {
    QStringList renglones;
    if (cancelado)
        renglones << "Cancelado antes de terminar.";
    if (!grabados && fallas.isEmpty() && !cancelado)
        return QStringLiteral("No hay datos que cumplan con los rangos indicados.");
    renglones << concuerde(grabados, "Se generó %1 certificado en \"%2\".",
                           "Se generaron %1 certificados en \"%2\".")
                     .replace("%2", carpeta);
    if (!fallas.isEmpty())
        renglones << concuerde(fallas.size(),
                               "No se pudo generar %1:", "No se pudieron generar %1:")
                  << fallas.mid(0, kFallasALaVista);
    if (fallas.size() > kFallasALaVista)
        renglones << QStringLiteral("y %1 más.").arg(fallas.size() - kFallasALaVista);
    return renglones.join('\n');
}

QString nit_para_archivo(const QString& nit) {
    static const QRegularExpression raros("[^0-9A-Za-z.-]");
    return QString(nit).replace(raros, "_");
}

ResumenArchivos archivos_por_tercero(ConjuntoDatos& filas, ConjuntoDatos& uno,
                                     const QString& comienzo,
                                     const std::function<bool(const QString&, int)>& siga,
                                     const std::function<void(const QString&)>& grabe) {
    ResumenArchivos r;
    QSet<QString> usados;
    for (filas.First(); !filas.Eof();) {
        const QString nit = filas.FieldByName("NIT").texto();
        if (!siga(nit, r.grabados)) {
            r.cancelado = true;
            return r;
        }
        uno.Close();
        uno.CreateDataSet();
        for (; !filas.Eof() && filas.FieldByName("NIT").texto() == nit; filas.Next()) {
            uno.Append();
            for (int i = 0; i < uno.FieldCount(); ++i)
                if (Campo& campo = uno.Fields(i); campo.tipo == TipoCampo::Datos)
                    campo = filas.FieldByName(campo.FieldName).valor();
            uno.Post();
        }
        // Dos NIT que solo difieren en un signo no se pisan el archivo.
        QString nombre = nit_para_archivo(nit);
        while (usados.contains(nombre.toLower()))
            nombre += "_";
        usados.insert(nombre.toLower());
        try {
            grabe(comienzo + nombre + ".PDF");
            ++r.grabados;
        } catch (const ErrorDatos& falla) {
            r.fallas << nit + ": " + falla.texto();
        }
    }
    return r;
}
