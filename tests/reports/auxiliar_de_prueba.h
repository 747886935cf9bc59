#pragma once
// Informes sobre un libro al azar: rangos, lo impreso y las mismas cuentas hechas por fuera.
#include "catalogues/forma_rango.h"
#include "informe_de_prueba.h"
#include "ledger/libro_al_azar.h"
#include "reports/libro_de_estados.h"

/// Con el libro al azar.
struct SesionConLibro : SesionGui {
    SesionConLibro() { arme_libro_al_azar(base.base()); }
};
/// Con el libro de los estados, en un mes de 2018.
struct SesionDeEstados : SesionGui {
    explicit SesionDeEstados(quint32 semilla, int periodo = 0) {
        arme_libro_de_estados(base.base(), semilla);
        cnt.ano_actual = "2018";
        cnt.periodo_actual = periodo;
    }
};

/// Valores de las cajas de una pantalla, por nombre.
using Cajas = QMap<QString, QString>;

/// Escribe en cajas y listas.
inline void llene(Pantalla* f, const Cajas& cajas) {
    for (const auto& [nombre, valor] : cajas.asKeyValueRange()) {
        if (auto* lista = f->findChild<QComboBox*>(nombre))
            lista->isEditable() ? lista->setEditText(valor) : lista->setCurrentText(valor);
        else if (auto* numero = f->findChild<QSpinBox*>(nombre))
            numero->setValue(valor.toInt());
        else
            componente<QLineEdit>(f, qPrintable(nombre)).setText(valor);
    }
}

/// Abre el informe, marca las casillas, llena las cajas, oprime F2 y devuelve lo impreso. `orden`
/// recibe la consulta que se hizo.
inline QString imprima(const QString& clase, const Cajas& cajas, const QStringList& casillas = {},
                       QString* orden = nullptr, const Encargo& encargo = {}) {
    auto* f = qobject_cast<FormaRango*>(pantallas().abrir(clase, encargo));
    if (!f)
        qFatal("no existe %s", qPrintable(clase));
    for (const QString& c : casillas)
        f->findChild<QAbstractButton*>(c)->click();
    llene(f, cajas);
    if (orden)
        f->CAuxiliar.AfterOpen = [=] { *orden = f->CAuxiliar.CommandText; };
    const QString texto = informe_como_texto(f, Qt::Key_F2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return texto;
}

/// Importes con que termina un renglón: "1,190.00 -5.00".
inline QString importes(const QString& renglon) {
    static const QRegularExpression numero(R"(-?[\d,]+\.\d\d)");
    QStringList todos;
    for (auto i = numero.globalMatch(renglon); i.hasNext();)
        todos << i.next().captured();
    return todos.join(' ');
}

/// Importe como lo escriben los estados: los negativos, entre paréntesis.
inline QString impreso(Moneda m) {
    return m.negativa() ? '(' + m.absoluta().formateada() + ')' : m.formateada();
}
/// Lo que va después de un rótulo la última vez que sale, en su renglón.
inline QString tras(const QString& texto, const QString& rotulo) {
    return texto.section(rotulo, -1).section('\n', 0, 0).simplified();
}
/// Renglones que empiezan así, sin los espacios de los lados.
inline QStringList renglones_con(const QString& texto, const QString& comienzo) {
    QStringList lista;
    const QRegularExpression patron(QRegularExpression::anchoredPattern("\\s*" + comienzo + ".*"));
    for (const QString& r : texto.split('\n'))
        if (patron.match(r).hasMatch())
            lista << r.trimmed();
    return lista;
}

inline const QString kDiaImpreso = QStringLiteral(R"(\d{4}/\d\d/\d\d\s)");

/// Condición SQL de un rango de códigos; "ZZ" es hasta el último.
inline QString entre(const QString& columna, const QString& desde, const QString& hasta) {
    const QString c = "coalesce(" + columna + ", '')";
    const QString abajo = c + " >= " + QuotedStr(desde);
    return hasta.toUpper() == "ZZ" ? abajo : abajo + " and " + c + " <= " + QuotedStr(hasta);
}
/// Una cuenta de límite superior trae las que cuelgan de ella.
inline QString entre_cuentas(const QString& columna, const QString& desde, const QString& hasta) {
    return '(' + entre(columna, desde, hasta) + " or " + columna + " starting with " +
           QuotedStr(hasta) + ')';
}
