#include "bench/medidas.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>
#include <stdexcept>
#include <sys/resource.h>

namespace {
int faltas_ = 0;

void renglon(const QString& medida, double ms, const QString& contra, double base, double razon,
             const QString& exigencia, bool bien) {
    std::printf("| %s | %.2f | %s | %.2f | %.2f | %s |\n", qPrintable(medida), ms,
                qPrintable(contra), base, razon,
                qPrintable(exigencia + (bien ? QString() : QStringLiteral(" **NO**"))));
    std::fflush(stdout);
    faltas_ += bien ? 0 : 1;
}
} // namespace

double mida(const std::function<void()>& trabajo, int repeticiones) {
    double mejor = 1e12;
    for (int i = 0; i < repeticiones; ++i) {
        QElapsedTimer reloj;
        reloj.start();
        trabajo();
        mejor = qMin(mejor, double(reloj.nsecsElapsed()) / 1e6);
    }
    return mejor;
}

std::pair<double, double> compare(const std::function<void()>& uno,
                                  const std::function<void()>& otro, int repeticiones) {
    std::pair<double, double> mejores{1e12, 1e12};
    for (int i = 0; i < repeticiones; ++i) {
        mejores.first = qMin(mejores.first, mida(uno, 1));
        mejores.second = qMin(mejores.second, mida(otro, 1));
    }
    return mejores;
}

void informe(const QString& medida, double ms, const QString& contra, double base, double tope) {
    const double razon = ms / base;
    renglon(medida, ms, contra, base, razon,
            tope > 0 ? QStringLiteral("<= %1").arg(tope) : QStringLiteral("-"),
            tope <= 0 || razon <= tope);
}

void informe_ganancia(const QString& medida, double ms, const QString& contra, double base,
                      double minimo) {
    renglon(medida, ms, contra, base, base / ms, QStringLiteral(">= %1").arg(minimo),
            base / ms >= minimo);
}

void nota(const QString& texto) {
    std::printf("| %s | | | | | |\n", qPrintable(texto));
    std::fflush(stdout);
}

int faltas() {
    return faltas_;
}

long memoria_maxima_mb() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return uso.ru_maxrss / 1024;
}

QString demostracion(int renglones) {
    const QString programas = QCoreApplication::applicationDirPath();
    const QString carpeta =
        QDir::cleanPath(QStringLiteral("%1/../bench_bd/%2").arg(programas).arg(renglones));
    const QString listo = carpeta + QStringLiteral("/listo");
    const QString administrador = programas + QStringLiteral("/quorvex-admin");
    const auto marque = [&] {
        QFile marca(listo);
        if (!marca.open(QIODevice::WriteOnly))
            throw std::runtime_error("no se pudo escribir en la carpeta de las medidas");
    };
    if (QFile::exists(listo)) {
        // La de una versión anterior recibe los procedimientos de esta.
        if (QFileInfo(listo).lastModified() < QFileInfo(administrador).lastModified()) {
            if (QProcess::execute(administrador, {"actualizar", "--ubicacion", carpeta}) != 0)
                throw std::runtime_error("no se pudo poner al día la demostración");
            marque();
        }
        return carpeta;
    }
    QDir(carpeta).removeRecursively();
    QDir().mkpath(carpeta);
    std::fprintf(stderr, "creando la demostración de %d renglones...\n", renglones);
    if (QProcess::execute(administrador, {"crear-demo", "--ubicacion", carpeta, "--lineas",
                                          QString::number(renglones)}) != 0)
        throw std::runtime_error("no se pudo crear la demostración");
    marque();
    return carpeta;
}
