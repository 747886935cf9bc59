#include "exchange/tfchequeosaldos.h"

#include "exchange/pch.h"

namespace {

constexpr const char* kPrimera = "0";
constexpr const char* kUltima = "99999999";
constexpr int kMuestra = 8; ///< saldos corregidos que se nombran uno por uno

QString periodo(const SaldoCorregido& s) {
    return s.mes == 0 ? "saldo inicial de " + s.ano
                      : Tfdm::nombres_periodo().value(s.mes - 1) + " de " + s.ano;
}

QString descripcion(const SaldoCorregido& s) {
    QString t = "Cuenta " + s.cuenta;
    if (!s.nit.isEmpty())
        t += ", tercero " + s.nit;
    if (!s.proyecto.isEmpty() || !s.centro.isEmpty())
        t += ", centro " + s.proyecto + '-' + s.centro;
    if (!s.articulo.isEmpty())
        t += ", artículo " + s.articulo;
    return t + ", " + periodo(s) + ": decía " + s.debito.formateada() + " y " +
           s.credito.formateada() + "; son " + s.debito_lineas.formateada() + " y " +
           s.credito_lineas.formateada();
}

} // namespace

Tfchequeosaldos::Tfchequeosaldos() : FormaMantenimiento("Tfchequeosaldos", "Recálculo de saldos") {
    Fecha = caja("Fecha", 8);
    Fecha->setText("20000101");
    ckniif = casilla("ckniif", "Información NIIF");
    Avance = new QProgressBar;
    Avance->setObjectName("Avance");
    Avance->hide();
    Formulario f(this);
    f.fila("Desde (aaaammdd)", Fecha);
    f.fila("", ckniif);
    f.ancha(Avance, 0);
    arme_botones(f, "F5: Recalcular");
    tamano(460, 230);
}

bool Tfchequeosaldos::corra() {
    const QString desde = Fecha->text().trimmed();
    if (const auto r = revise_fecha(desde))
        rehuse(Fecha, r->texto);
    QVector<Libro> libros{Libro::Decreto2649};
    if (ckniif->isChecked())
        libros << Libro::Niif;
    Avance->setRange(0, int(libros.size()));
    Avance->setValue(0);
    Avance->show();
    QVector<SaldoCorregido> corregidos;
    trabaje("Recalculando saldos contabilidad ...", [&] {
        for (const Libro l : libros) {
            anuncie(es_niif(l) ? QStringLiteral("Recalculando saldos contabilidad NIIF ...")
                               : QStringLiteral("Recalculando saldos contabilidad ..."));
            corregidos += recalcule_saldos(fdm().Quorvex, l, desde, kPrimera, kUltima);
            Avance->setValue(Avance->value() + 1);
            Avance->repaint();
        }
        return CifrasMantenimiento();
    });
    cuente(corregidos);
    return true;
}

void Tfchequeosaldos::cuente(const QVector<SaldoCorregido>& corregidos) {
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(corregidos.isEmpty()
                         ? windowTitle() + ": todos estaban bien"
                         : windowTitle() +
                               QStringLiteral(": %1 corregidos").arg(corregidos.size()));
    if (corregidos.isEmpty()) {
        muestre_mensaje("Recálculo terminado: todos los saldos estaban bien.");
        return;
    }
    QStringList lineas;
    for (const SaldoCorregido& s : corregidos.mid(0, kMuestra))
        lineas << descripcion(s);
    if (corregidos.size() > kMuestra)
        lineas << QStringLiteral("y %1 más.").arg(corregidos.size() - kMuestra);
    muestre_mensaje(
        QStringLiteral("Recálculo terminado: se corrigieron %1 saldos.\n").arg(corregidos.size()) +
        lineas.join('\n'));
}
