// Pegar un comprobante largo, y guardar una cuenta en un plan grande.
#include "bench/copia.h"
#include "bench/medidas.h"
#include "tests/fallas/contador.h"

#include <QClipboard>

namespace {
constexpr int kLineas = 2000, kMsPegado = 1500, kCuentas = 5000;
} // namespace

void mida_pegado() {
    Copia copia;
    Contador c(copia.lugar, "ADMIN", {});
    const QString cuenta = cuenta_afectable(c.dm.Quorvex, false);
    QStringList filas;
    for (int i = 0; i < kLineas; ++i)
        filas << QStringList{cuenta,
                             "",
                             "",
                             "",
                             QString("Línea %1").arg(i),
                             "",
                             "",
                             "",
                             "",
                             i % 2 ? "" : "1000",
                             i % 2 ? "1000" : ""}
                     .join('\t');
    QApplication::clipboard()->setText(filas.join('\n'));
    c.p->DBEdit1->setFocus();
    digite("Concepto");
    Rejilla& r = *c.p->lineas_2649->rejilla;
    r.setFocus();
    r.SelectedIndex(0);
    const quint64 antes = c.dm.Quorvex.sentencias_ejecutadas();
    const double ms = mida([] { oprima(Qt::Key_V, Qt::ControlModifier); }, 1);
    if (c.p->CDetalle.RecordCount() != kLineas)
        throw ErrorDatos(QString("entraron %1 líneas: %2")
                             .arg(c.p->CDetalle.RecordCount())
                             .arg(c.mensajes.join(" / ")));
    informe(QStringLiteral("pegar %1 líneas en un comprobante").arg(kLineas), ms, "el tope",
            kMsPegado, 1);
    nota(QStringLiteral("pegado: %1 sentencias por línea")
             .arg(double(c.dm.Quorvex.sentencias_ejecutadas() - antes) / kLineas, 0, 'f', 2));
}

void mida_plan() {
    Copia copia;
    Conexion c;
    c.conectar({copia.lugar.base_compania("001"), "ADMIN", {}});
    agrande_plan(c, kCuentas);
    QObject dueno;
    Sentencia s(&dueno, "TCuentas", c, "select * from cuentas order by cuen_cod");
    Proveedor p(&dueno, "PCuentas", &s);
    ConjuntoDatos d(&dueno, "CCuentas", &p);
    d.Open();
    int n = 0;
    const auto grabe = [&](int errores) {
        d.vaya_a(d.RecordCount() - 1 - n);
        d.Edit();
        d.FieldByName("CUEN_NOM") = QString("Otra %1").arg(++n);
        d.Post();
        const quint64 antes = c.sentencias_ejecutadas();
        if (d.ApplyUpdates(errores) != 0)
            throw ErrorDatos("no grabó");
        return c.sentencias_ejecutadas() - antes;
    };
    grabe(0);
    quint64 estricta = 0, tolerante = 0;
    const auto [con_puntos, sin_puntos] =
        compare([&] { tolerante = grabe(-1); }, [&] { estricta = grabe(0); }, 9);
    informe(QStringLiteral("grabar una de %1 cuentas, con errores tolerados").arg(d.RecordCount()),
            con_puntos, "sin tolerarlos", sin_puntos, 2);
    nota(QStringLiteral("plan: %1 y %2 sentencias").arg(tolerante).arg(estricta));
    if (tolerante > 3)
        throw ErrorDatos("una cuenta cuesta sentencias por las demás");
}
