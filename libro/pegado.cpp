#include "libro/pegado.h"

#include "datos/firebird/letras.h"
#include "libro/columnas_comprobante.h"
#include "libro/importes.h"
#include "libro/memoria.h"

namespace {

/// Revisa filas de texto como líneas; cada código se pregunta a la base una vez.
class RevisorPegado {
public:
    RevisorPegado(Conexion& conexion, Libro libro, const TextoPegado& pegado)
        : conexion_(conexion), libro_(libro), p_(pegado), memorias_(pegado.memorias) {
        for (const auto& c : columnas_linea(libro))
            columnas_.insert(QLatin1String(c.nombre), &c);
    }

    /// Por qué no entra; vacío si entra.
    QString revise(const QStringList& celdas, bool nace) {
        LineaComprobante l;
        for (int i = 0; i < celdas.size() && i < p_.campos.size(); ++i)
            if (const auto* c = columnas_.value(p_.campos[i]))
                if (const QString razon = lea(l, *c, celdas[i]); !razon.isEmpty())
                    return razon;
        if (nace && !p_.solo_codigos && l.cuenta.isEmpty() && l != LineaComprobante())
            return QStringLiteral("No tiene cuenta.");
        const QString razon = revise_codigos(l);
        // Sin su cuenta entre lo pegado, lo que se le exija lo dice la línea que ya está.
        if (!razon.isEmpty() || l.cuenta.isEmpty() || p_.solo_codigos)
            return razon;
        const QString falta = revise_exigencias(l);
        // De una base y su porcentaje sale el importe.
        if (falta.isEmpty() && nace && p_.exige_valor && l.debito.es_cero() &&
            l.credito.es_cero() && (l.base.es_cero() || l.porcentaje.es_cero()))
            return QStringLiteral("Debe indicar un valor débito o crédito para la cuenta %1.")
                .arg(l.cuenta);
        // La que entra deja su tercero para las que sigan sin él.
        if (falta.isEmpty() && memorias_.tercero_anterior.isEmpty())
            memorias_.tercero_anterior = l.nit;
        return falta;
    }

private:
    using Columna = ColumnaDe<LineaComprobante>;

    static QString lea(LineaComprobante& l, const Columna& c, const QString& pegado) {
        const QString celda = controles_a_blancos(pegado);
        const QString texto = celda.trimmed(), rotulo = QString::fromUtf8(c.rotulo);
        if (const auto* m = std::get_if<Moneda LineaComprobante::*>(&c.miembro)) {
            const ImporteLeido leido =
                c.rasgos & ColTasa ? lea_porcentaje(texto) : lea_importe(texto);
            if (const QString razon = rechazo_de_importe(leido, texto, rotulo); !razon.isEmpty())
                return razon;
            l.** m = leido.valor;
            return {};
        }
        if (const QChar ajeno = caracter_fuera_de_latin1(celda); !ajeno.isNull())
            return QStringLiteral("%1: el carácter %2 no se puede guardar.")
                .arg(rotulo, letra_nombrada(celda, celda.indexOf(ajeno)));
        if (c.tamano > 1 && celda.size() > c.tamano)
            return QStringLiteral("%1: '%2' pasa de %3 caracteres.")
                .arg(rotulo, celda.left(20), QString::number(c.tamano));
        if (const auto* t = std::get_if<QString LineaComprobante::*>(&c.miembro))
            l.** t = celda;
        return {};
    }

    QString revise_codigos(const LineaComprobante& l) {
        if (!l.cuenta.isEmpty())
            if (const QString razon = cuenta(l.cuenta); !razon.isEmpty())
                return razon;
        if (!l.nit.isEmpty() &&
            !recordado(terceros_, l.nit, [&] { return tercero_activo(conexion_, l.nit); }))
            return QStringLiteral("El tercero %1 no existe o está inactivo.").arg(l.nit);
        if (!l.proyecto.isEmpty() && !l.centro.isEmpty() &&
            !recordado(centros_, l.proyecto + '/' + l.centro,
                       [&] { return !revise_centro(conexion_, l.proyecto, l.centro).has_value(); }))
            return QStringLiteral("El centro %1 del proyecto %2 no existe.")
                .arg(l.centro, l.proyecto);
        if (!l.categoria.isEmpty())
            if (const auto r = revise_categoria(conexion_, libro_, l.categoria))
                return r->texto;
        return {};
    }

    QString cuenta(const QString& codigo) {
        return recordado(cuentas_, codigo, [&]() -> QString {
            if (const auto r = revise_cuenta(conexion_, libro_, codigo))
                return QStringLiteral("%1 (%2)").arg(r->texto.trimmed(), codigo);
            std::optional<Rechazo> inactiva;
            nombre_de_cuenta(conexion_, libro_, codigo, inactiva);
            return inactiva ? inactiva->texto : QString();
        });
    }

    /// Lo que la cuenta pide, después de completar lo que la pantalla completa.
    QString revise_exigencias(LineaComprobante l) {
        const auto& a = recordado(atributos_, l.cuenta,
                                  [&] { return atributos_de_cuenta(conexion_, libro_, l.cuenta); });
        if (!a)
            return {};
        l.nit = tercero_al_dejarlo(l.nit, *a, memorias_);
        if (const auto sugerido =
                porcentaje_sugerido(l.base, l.porcentaje, a->base_minima, a->porcentaje))
            l.porcentaje = *sugerido;
        const Rechazos faltas = faltas_de_linea(l, *a);
        return faltas.isEmpty() ? QString() : faltas.first().texto;
    }

    Conexion& conexion_;
    const Libro libro_;
    const TextoPegado& p_;
    MemoriasLinea memorias_;
    QHash<QString, const Columna*> columnas_;
    QHash<QString, QString> cuentas_;
    QHash<QString, bool> terceros_, centros_;
    QHash<QString, std::optional<AtributosCuenta>> atributos_;
};

} // namespace

QVector<FilaRehusada> revise_pegado(Conexion& conexion, Libro libro, const TextoPegado& pegado) {
    RevisorPegado revisor(conexion, libro, pegado);
    QVector<FilaRehusada> rehusadas;
    for (int i = 0; i < pegado.filas.size(); ++i)
        if (const QString razon = revisor.revise(pegado.filas[i], i >= pegado.existentes);
            !razon.isEmpty())
            rehusadas.append({i + 1, razon});
    return rehusadas;
}
