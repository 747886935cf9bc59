#include "toolkit/pivote/disposicion_cubo.h"

#include "datos/firebird/errores.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <array>

namespace {

constexpr qint64 kMaximo = 1024 * 1024; ///< octetos; más es otra cosa con ese nombre
constexpr std::array kMuestras = {"valor", "% fila", "% columna", "% total"};

class LectorDisposicion {
public:
    LectorDisposicion(const QString& archivo, const QStringList& campos)
        : archivo_(archivo), campos_(campos) {}

    DisposicionCubo lea(const QString& texto) {
        for (const QString& crudo : texto.split(QLatin1Char('\n'))) {
            ++renglon_;
            const QString linea = crudo.trimmed();
            if (linea.isEmpty() || linea.startsWith(QLatin1Char('#')))
                continue;
            if (!linea.contains(QLatin1Char('=')))
                falle(QStringLiteral("falta el signo ="));
            linea_de(linea.section(QLatin1Char('='), 0, 0).simplified(),
                     linea.section(QLatin1Char('='), 1).trimmed());
        }
        if (d_.valores.isEmpty())
            falle(QStringLiteral("no dice qué valores muestra"));
        return d_;
    }

private:
    [[noreturn]] void falle(const QString& que) const {
        throw ErrorDatos(QStringLiteral("%1, renglón %2: %3.")
                             .arg(QFileInfo(archivo_).fileName(), QString::number(renglon_), que));
    }
    QString campo(const QString& nombre) const {
        if (!campos_.contains(nombre))
            falle(QStringLiteral("no hay un campo %1").arg(nombre));
        return nombre;
    }
    QStringList campos(const QString& texto) const {
        QStringList lista;
        for (const QString& n : texto.split(QLatin1Char(','), Qt::SkipEmptyParts))
            lista << campo(n.trimmed());
        return lista;
    }
    bool si(const QString& texto) const {
        if (texto != QLatin1String("si") && texto != QLatin1String("no"))
            falle(QStringLiteral("se esperaba \"si\" o \"no\""));
        return texto == QLatin1String("si");
    }
    int numero(const QString& texto) const {
        bool bien = false;
        const int n = texto.toInt(&bien);
        if (!bien || n < 0)
            falle(QStringLiteral("se esperaba un número"));
        return n;
    }
    void muestra(const QString& nombre, const QString& texto) {
        for (ValorCubo& v : d_.valores)
            if (v.campo == nombre)
                for (size_t i = 0; i < kMuestras.size(); ++i)
                    if (texto == QLatin1String(kMuestras[i])) {
                        v.muestra = MuestraCubo(i);
                        return;
                    }
        falle(QStringLiteral("\"%1 = %2\" no se entiende").arg(nombre, texto));
    }
    void linea_de(const QString& clave, const QString& valor) {
        if (clave == QLatin1String("filas"))
            d_.filas = campos(valor);
        else if (clave == QLatin1String("columnas"))
            d_.columnas = campos(valor);
        else if (clave == QLatin1String("filtros"))
            d_.filtros = campos(valor);
        else if (clave == QLatin1String("valores"))
            for (const QString& c : campos(valor))
                d_.valores.append({c});
        else if (clave.startsWith(QLatin1String("muestra ")))
            muestra(clave.section(QLatin1Char(' '), 1), valor);
        else if (clave.startsWith(QLatin1String("solo ")))
            d_.solo[campo(clave.section(QLatin1Char(' '), 1))].insert(valor);
        else if (clave == QLatin1String("nivel filas"))
            d_.nivel_filas = numero(valor);
        else if (clave == QLatin1String("nivel columnas"))
            d_.nivel_columnas = numero(valor);
        else if (clave == QLatin1String("total filas"))
            d_.total_filas = si(valor);
        else if (clave == QLatin1String("total columnas"))
            d_.total_columnas = si(valor);
        else
            falle(QStringLiteral("\"%1\" no se entiende").arg(clave));
    }

    QString archivo_;
    QStringList campos_;
    DisposicionCubo d_;
    int renglon_ = 0;
};

} // namespace

QString texto_de(MuestraCubo muestra) {
    return QLatin1String(kMuestras[size_t(muestra)]);
}

DisposicionCubo lea_disposicion(const QString& texto, const QString& archivo,
                                const QStringList& campos) {
    return LectorDisposicion(archivo, campos).lea(texto);
}

DisposicionCubo lea_archivo_disposicion(const QString& ruta, const QStringList& campos) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorDatos(QStringLiteral("No se pudo leer la plantilla %1.").arg(ruta));
    const QByteArray texto = archivo.read(kMaximo + 1);
    if (texto.size() > kMaximo)
        throw ErrorDatos(QStringLiteral("%1 no es una plantilla: es demasiado grande.")
                             .arg(QFileInfo(ruta).fileName()));
    return lea_disposicion(QString::fromUtf8(texto), ruta, campos);
}

QString escriba_disposicion(const DisposicionCubo& d) {
    QStringList lineas{QStringLiteral("# Disposición de un cubo")};
    const auto diga = [&](const QString& clave, const QString& valor) {
        lineas << QStringList{clave, valor}.join(QStringLiteral(" = "));
    };
    const auto si = [](bool x) { return x ? QStringLiteral("si") : QStringLiteral("no"); };
    const auto lista = [](const QStringList& campos) { return campos.join(QStringLiteral(", ")); };
    QStringList valores;
    for (const ValorCubo& v : d.valores)
        valores << v.campo;
    diga(QStringLiteral("filas"), lista(d.filas));
    diga(QStringLiteral("columnas"), lista(d.columnas));
    diga(QStringLiteral("filtros"), lista(d.filtros));
    for (const auto& [campo, pasan] : d.solo.asKeyValueRange()) {
        QStringList orden(pasan.begin(), pasan.end());
        orden.sort();
        for (const QString& valor : orden)
            diga(QStringLiteral("solo ") + campo, valor);
    }
    diga(QStringLiteral("valores"), lista(valores));
    for (const ValorCubo& v : d.valores)
        if (v.muestra != MuestraCubo::Valor)
            diga(QStringLiteral("muestra ") + v.campo, texto_de(v.muestra));
    diga(QStringLiteral("nivel filas"), QString::number(d.nivel_filas));
    diga(QStringLiteral("nivel columnas"), QString::number(d.nivel_columnas));
    diga(QStringLiteral("total filas"), si(d.total_filas));
    diga(QStringLiteral("total columnas"), si(d.total_columnas));
    return lineas.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void grabe_archivo_disposicion(const DisposicionCubo& disposicion, const QString& ruta) {
    QSaveFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) ||
        archivo.write(escriba_disposicion(disposicion).toUtf8()) < 0 || !archivo.commit())
        throw ErrorDatos(QStringLiteral("No se pudo grabar la plantilla %1: %2.")
                             .arg(ruta, archivo.errorString()));
}
