#include "vouchers/nombres_en_linea.h"

#include "toolkit/rejilla/anchos_rejilla.h"
#include "toolkit/rejilla/delegado_celda.h"
#include "toolkit/rejilla/encabezado_rejilla.h"
#include "toolkit/rejilla/modelo_conjunto.h"
#include "vouchers/pch.h"

NombresEnLinea::NombresEnLinea(Rejilla* rejilla, Libro libro, int columna)
    : QObject(rejilla), rejilla_(rejilla), libro_(libro), columna_(columna) {
    static_cast<DelegadoCelda*>(rejilla->itemDelegate())
        ->acompane(columna, [this, columna](int fila) {
            return nombre(rejilla_->modelo().texto(fila, columna));
        });
    // La que no existía pudo crearse desde la celda.
    connect(&fdmcnt(), &Tfdmcnt::balance_por_recalcular, this, [this] {
        if (nombres_.removeIf([](const auto& n) { return n.value().isEmpty(); }) > 0)
            rejilla_->viewport()->update();
    });
}

QString NombresEnLinea::nombre(const QString& cuenta) {
    if (cuenta.isEmpty())
        return {};
    const auto n = nombres_.constFind(cuenta);
    if (n != nombres_.constEnd())
        return *n;
    // Se está pintando: la base se consulta cuando termine, una vez por todas las que falten.
    if (por_consultar_.isEmpty())
        QMetaObject::invokeMethod(this, &NombresEnLinea::consulte, Qt::QueuedConnection);
    por_consultar_ << cuenta;
    return {};
}

void NombresEnLinea::consulte() {
    QStringList codigos;
    for (const QString& c : std::exchange(por_consultar_, {})) {
        nombres_.insert(c, {}); // la que no exista no se busca cada vez que se pinta
        codigos << QuotedStr(c);
    }
    // El nombre es un adorno: si no se puede leer, la línea sigue diciendo su código.
    try {
        auto filas =
            fdm().Quorvex.abra(QStringLiteral("select cuen_cod, cuen_nom from %1 where "
                                              "cuen_cod in (%2)")
                                   .arg(QLatin1String(datos(libro_).cuentas), codigos.join(',')));
        while (filas->siguiente())
            nombres_.insert(filas->valor(0).texto().trimmed(), filas->valor(1).texto());
    } catch (const std::exception&) {
        return;
    }
    static_cast<EncabezadoRejilla*>(rejilla_->horizontalHeader())->anchos().mida_nombres(columna_);
    rejilla_->viewport()->update();
}
