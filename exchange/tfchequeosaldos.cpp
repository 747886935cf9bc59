#include "exchange/tfchequeosaldos.h"

#include "datos/firebird/concuerde.h"
#include "exchange/pch.h"
#include "toolkit/controles/fecha_contable.h"

#include <QProgressDialog>

namespace {

constexpr const char* kPrimera = "0";
constexpr const char* kUltima = "99999999";
constexpr int kSaldosNombrados = 8; ///< saldos corregidos que se nombran uno por uno

/// Cuánto va de un libro. Cancelar espera a que termine el mes que va.
class AvanceLibro : public QProgressDialog {
public:
    AvanceLibro(const QString& texto, QWidget* padre)
        : QProgressDialog(texto, "Cancelar", 0, 100, padre) {
        setObjectName("avance_recalculo");
        setWindowTitle("Recálculo de saldos");
        setWindowModality(Qt::ApplicationModal);
        setMinimumDuration(0);
        setMinimumWidth(420);
        // Con Esc o el ratón: el Enter que venga de atrás no lo detiene.
        auto* cancelar = findChild<QPushButton*>();
        cancelar->setAutoDefault(false);
        cancelar->setFocusPolicy(Qt::NoFocus);
        setValue(0);
    }
};

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
    admita_barras(Fecha);
    Fecha->setText("20000101");
    ckniif = casilla("ckniif", "Información NIIF");
    Formulario f(this);
    f.fila("Desde (aaaammdd)", Fecha);
    f.fila("", ckniif);
    arme_botones(f, "F5: Recalcular");
    tamano(460, 230);
}

void Tfchequeosaldos::FormCreate() {
    FormaMantenimiento::FormCreate();
    Fecha->setFocus(); // aquí es lo primero, antes de la casilla
}

bool Tfchequeosaldos::corra() {
    const QString desde = Fecha->text().trimmed();
    if (const auto r = revise_fecha(desde))
        rehuse(Fecha, r->texto);
    QVector<Libro> libros{Libro::Decreto2649};
    if (ckniif->isChecked())
        libros << Libro::Niif;
    QVector<SaldoCorregido> corregidos;
    std::optional<Libro> detenido;
    trabaje("Recalculando saldos contabilidad ...", [&] {
        for (const Libro l : libros) {
            const QString texto = es_niif(l) ? "Recalculando saldos contabilidad NIIF ..."
                                             : "Recalculando saldos contabilidad ...";
            anuncie(texto);
            AvanceLibro avance(texto, this);
            try {
                corregidos += recalcule_saldos(fdm().Quorvex, l, desde, kPrimera, kUltima,
                                               [&avance](int ciento) {
                                                   avance.setValue(ciento);
                                                   return !avance.wasCanceled();
                                               });
            } catch (const EdicionAbortada&) {
                detenido = l;
                break;
            }
        }
        return CifrasMantenimiento();
    });
    cuente(corregidos, detenido);
    return !detenido;
}

void Tfchequeosaldos::cuente(const QVector<SaldoCorregido>& corregidos,
                             std::optional<Libro> detenido) {
    const QString fin = detenido ? "Recálculo detenido: los saldos del libro " +
                                       QString::fromUtf8(datos(*detenido).nombre) +
                                       " quedan como estaban"
                                 : QStringLiteral("Recálculo terminado");
    if (AvisosBarra* barra = fdm().barra())
        barra->texto(windowTitle() +
                     (!corregidos.isEmpty()
                          ? concuerde(corregidos.size(), ": %1 corregido", ": %1 corregidos")
                      : detenido ? QStringLiteral(": detenido")
                                 : QStringLiteral(": todos estaban bien")));
    if (corregidos.isEmpty()) {
        muestre_mensaje(fin + (detenido ? "." : ": todos los saldos estaban bien."));
        return;
    }
    QStringList lineas;
    for (const SaldoCorregido& s : corregidos.mid(0, kSaldosNombrados))
        lineas << descripcion(s);
    if (corregidos.size() > kSaldosNombrados)
        lineas << QStringLiteral("y %1 más.").arg(corregidos.size() - kSaldosNombrados);
    muestre_mensaje(
        fin + (detenido ? "; en el otro" : ":") +
        concuerde(corregidos.size(), " se corrigió %1 saldo.\n", " se corrigieron %1 saldos.\n") +
        lineas.join('\n'));
}
