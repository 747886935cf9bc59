#include "toolkit/rejilla/texto_tabulado.h"

#include "datos/firebird/letras.h"

#include <QApplication>
#include <QClipboard>

QString escriba_tabulado(const TextoTabulado& tabla) {
    QStringList lineas;
    for (const QStringList& fila : tabla) {
        QStringList celdas;
        for (QString celda : fila) {
            const bool comillas = celda.contains('\t') || celda.contains('\n') ||
                                  celda.contains('\r') ||
                                  (celda.startsWith('"') && celda.size() > 1);
            if (comillas)
                celda = '"' + celda.replace('"', QStringLiteral("\"\"")) + '"';
            celdas << celda;
        }
        lineas << celdas.join('\t');
    }
    return lineas.join('\n');
}

namespace {

/// Celda entre comillas desde `i`; mueve `i` tras ella. Falso si las comillas no la encierran.
bool lea_entre_comillas(const QString& t, qsizetype& i, QString& celda) {
    QString leida;
    for (qsizetype k = i + 1; k < t.size(); ++k) {
        if (t[k] != '"') {
            leida += t[k];
        } else if (k + 1 < t.size() && t[k + 1] == '"') {
            leida += '"';
            ++k;
        } else {
            if (k + 1 < t.size() && t[k + 1] != '\t' && t[k + 1] != '\n')
                return false;
            i = k + 1;
            celda = leida;
            return true;
        }
    }
    return false;
}

} // namespace

TextoTabulado lea_tabulado(const QString& texto) {
    QString t = texto;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace('\r', '\n');
    if (t.endsWith('\n')) // la hoja de cálculo cierra la última línea
        t.chop(1);
    TextoTabulado tabla;
    if (t.isEmpty())
        return tabla;
    QStringList fila;
    qsizetype i = 0;
    while (true) {
        QString celda;
        if (!(i < t.size() && t[i] == '"' && lea_entre_comillas(t, i, celda))) {
            const qsizetype desde = i;
            while (i < t.size() && t[i] != '\t' && t[i] != '\n')
                ++i;
            celda = t.mid(desde, i - desde);
        }
        fila << celda;
        if (i >= t.size())
            break;
        if (t[i] == '\n') {
            tabla << fila;
            fila.clear();
        }
        ++i;
    }
    tabla << fila;
    return tabla;
}

TextoTabulado tabla_pegada() {
    TextoTabulado tabla = lea_tabulado(QApplication::clipboard()->text());
    for (QStringList& fila : tabla)
        for (QString& celda : fila)
            celda = en_un_renglon(celda);
    return tabla;
}
