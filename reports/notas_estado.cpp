#include "reports/notas_estado.h"

#include "toolkit/informes/motor.h"

#include <QScopeGuard>

NotasEstado::NotasEstado(QObject* dueno)
    : CNotasest(dueno, "CNotasest", nullptr), QNotasest(dueno, "QNotasest", fdm().Quorvex),
      PNotasest(dueno, "PNotasest", &QNotasest, poAllowCommandText) {
    CNotasest.proveedor = &PNotasest;
    CNotasest.Instantanea = true;
    CNotasest.entero("NOEF_ID");
    CNotasest.entero("NOEF_NUMERO");
    CNotasest.texto("NOEF_TITULO", 60);
    CNotasest.memo("NOEF_NOTA");
}

void NotasEstado::anexe(MotorInformes& motor, int ano, int periodo, const QString& cuando) {
    CNotasest.Open(
        QStringLiteral("select noef_id, noef_numero, noef_titulo, noef_nota from "
                       "notas_estados_financieros where noef_ano = %1 and "
                       "((noef_periodo = 0) or (noef_periodo = %2)) order by noef_numero")
            .arg(QuotedStr(QString::number(ano)))
            .arg(periodo));
    const auto cierre = qScopeGuard([this] { CNotasest.Close(); });
    if (CNotasest.IsEmpty())
        return;
    // Las notas son del período entero: ni las cuentas ni el nivel del estado las escogen.
    motor.fijar_parametro("Rango", cuando);
    motor.conecte(QStringLiteral("RNotasest"), CNotasest);
    motor.seleccionar_reporte(QStringLiteral("Notasestados"));
    motor.agregue();
}
