#include "tax/medio_formato.h"

namespace {

using A = AtributoMedio;

const QVector<A> kConcepto{{"cpt", "MEMG_CONCEPTO"}};
const QVector<A> kTerceroMedio_formato{{"tdoc", "MEMG_TIPODOC"},
                                       {"nid", "MEMG_NIT"},
                                       {"dv", "MEMG_DV", A::Digito},
                                       {"apl1", "MEMG_APELLIDO1", A::Lleno},
                                       {"apl2", "MEMG_APELLIDO2", A::Lleno},
                                       {"nom1", "MEMG_NOMBRE1", A::Lleno},
                                       {"nom2", "MEMG_NOMBRE2", A::Lleno},
                                       {"raz", "MEMG_RAZONSOCIAL", A::RazonSocial}};
const QVector<A> kDireccion{{"dir", "MEMG_DIRECCION"}, {"dpto", "MEMG_DEPARTAMENTO"}};
const QVector<A> kMunicipioSolo{{"mcpo", "MEMG_MUNICIPIO"}};
const QVector<A> kMunicipio{{"mun", "MEMG_MUNICIPIO", A::EnColombia}};
const QVector<A> kPais{{"pais", "MEMG_PAIS"}};
const QVector<A> kDomicilio = kDireccion + kMunicipio + kPais;

const QVector<A> kPagos{
    {"pago", "MEMG_PAGO"},         {"pnded", "MEMG_PAGOND"},    {"ided", "MEMG_IVA"},
    {"inded", "MEMG_IVAND"},       {"retp", "MEMG_RETENCION"},  {"reta", "MEMG_RETEASUM"},
    {"comun", "MEMG_RETIVACOMUN"}, {"simp", "MEMG_RETIVASIMP"}, {"ndom", "MEMG_RETIVAND"}};
const QVector<A> kCree{{"rcree", "MEMG_RETCREE"}, {"rasumc", "MEMG_RASUMC"}};

QVector<A> dos(const char* uno, const char* otro) {
    return {{uno, "MEMG_PAGO"}, {otro, "MEMG_RETENCION"}};
}
QVector<A> uno(const char* nombre) {
    return {{nombre, "MEMG_PAGO"}};
}

QVector<A> ingresos() {
    QVector<A> todos = uno("ipro");
    for (const char* fijo : {"icon", "iman", "iexp", "ifid", "iter"})
        todos << A{fijo, "0", A::Fijo};
    return todos << A{"dev", "MEMG_RETENCION"};
}

QVector<A> iva_generado(const QString& version) {
    if (version != QLatin1String("08"))
        return dos("imp", "iva");
    return dos("imp", "IVA") << A{"icon", "MEMG_PAGOND"};
}

} // namespace

bool FormatoMedio::escribe(const QString& columna) const {
    for (const AtributoMedio& a : atributos)
        if (a.columna == columna)
            return true;
    return false;
}

std::optional<FormatoMedio> formato_medio(int codigo, const QString& version) {
    const auto formato = [codigo](const char* elemento, const QVector<A>& atributos) {
        return FormatoMedio{codigo, elemento, atributos};
    };
    switch (codigo) {
    case 1001:
        return formato("pagos", kConcepto + kTerceroMedio_formato + kDomicilio + kPagos +
                                    (version.toInt() >= 9 ? kCree : QVector<A>()));
    case 1002:
        return formato("rets",
                       kConcepto + kTerceroMedio_formato + kDomicilio + dos("vabo", "vret"));
    case 1003:
        return formato("rets", kConcepto + kTerceroMedio_formato + kDireccion + kMunicipioSolo +
                                   dos("valor", "ret"));
    case 1004:
        return formato("descuentos", kConcepto + dos("vpag", "vdes"));
    case 1005:
        return formato("impventas", kTerceroMedio_formato + dos("vimp", "ivade"));
    case 1006:
        return formato("impoventas", kTerceroMedio_formato + iva_generado(version));
    case 1007:
        return formato("ingresos", kConcepto + kTerceroMedio_formato + kPais + ingresos());
    case 1008:
        return formato("saldoscc", kConcepto + kTerceroMedio_formato + kDomicilio + uno("sal"));
    case 1009:
        return formato("saldoscp", kConcepto + kTerceroMedio_formato + kDomicilio + uno("sal"));
    case 1010:
        return formato("socios", kTerceroMedio_formato + kDomicilio + dos("val", "vpar"));
    case 1011:
        return formato("decl", kConcepto + uno("sal"));
    case 1012:
        return formato("dectri", kConcepto + kTerceroMedio_formato + kPais + uno("val"));
    default:
        return std::nullopt;
    }
}

SumaMedio suma_de_los_demas(int codigo) {
    switch (codigo) {
    case 1001:
    case 1004:
    case 1008:
    case 1009:
    case 1011:
    case 1012:
        return SumaMedio::Valor1;
    case 1005:
    case 1006:
        return SumaMedio::Valor3;
    case 1007:
        return SumaMedio::Valor4;
    default:
        return SumaMedio::Valor2;
    }
}

SumaMedio suma_del_primero(int codigo, const QString& version) {
    // Desde la versión 9 el 1001 totaliza los conceptos.
    if (codigo == 1001 && version != QLatin1String("08"))
        return SumaMedio::Valor4;
    return suma_de_los_demas(codigo);
}
