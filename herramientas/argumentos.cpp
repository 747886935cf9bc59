#include "herramientas/argumentos.h"

namespace {
constexpr int kMayorOpcion = 999; // la de cualquier módulo
}

Argumentos::Argumentos(const QStringList& escritos, const QStringList& con_valor,
                       const QStringList& banderas) {
    for (qsizetype i = 0; i < escritos.size(); ++i) {
        const QString& escrito = escritos[i];
        if (!escrito.startsWith(QLatin1String("--"))) {
            sueltos_ << escrito;
            continue;
        }
        QString nombre = escrito.mid(2), valor;
        const bool pegado = nombre.contains('=');
        if (pegado) {
            valor = nombre.section('=', 1);
            nombre = nombre.section('=', 0, 0);
        }
        if (valores_.contains(nombre))
            throw ErrorDeUso(QStringLiteral("La opción --%1 está repetida.").arg(nombre));
        if (con_valor.contains(nombre)) {
            if (!pegado && ++i >= escritos.size())
                throw ErrorDeUso(QStringLiteral("La opción --%1 necesita un valor.").arg(nombre));
            valores_[nombre] = pegado ? valor : escritos[i];
        } else if (banderas.contains(nombre) && !pegado) {
            valores_[nombre] = QString();
        } else {
            throw ErrorDeUso(QStringLiteral("No se conoce la opción %1.").arg(escrito));
        }
    }
}

QString Argumentos::exija(const QString& nombre) const {
    const QString v = valor(nombre);
    if (v.isEmpty())
        throw ErrorDeUso(QStringLiteral("Falta la opción --%1.").arg(nombre));
    return v;
}

int Argumentos::entero(const QString& nombre, int si_falta, int minimo, int maximo) const {
    if (!tiene(nombre))
        return si_falta;
    bool numero = false;
    const int v = valor(nombre).toInt(&numero);
    if (!numero || v < minimo || v > maximo)
        throw ErrorDeUso(QStringLiteral("La opción --%1 es un número entre %2 y %3.")
                             .arg(nombre)
                             .arg(minimo)
                             .arg(maximo));
    return v;
}

QVector<int> numeros(const QStringList& textos) {
    QVector<int> lista;
    for (const QString& texto : textos)
        for (const QString& parte : texto.split(',', Qt::SkipEmptyParts)) {
            bool bien = false, tambien = true;
            const int desde = parte.section('-', 0, 0).toInt(&bien);
            const int hasta = parte.contains('-') ? parte.section('-', 1).toInt(&tambien) : desde;
            if (!bien || !tambien || hasta < desde)
                throw ErrorDeUso(
                    QStringLiteral("'%1' no es un número de opción ni un tramo.").arg(parte));
            if (hasta > kMayorOpcion)
                throw ErrorDeUso(QStringLiteral("No hay opciones mayores que %1: '%2'.")
                                     .arg(kMayorOpcion)
                                     .arg(parte));
            for (int i = desde; i <= hasta; ++i)
                lista.push_back(i);
        }
    return lista;
}
