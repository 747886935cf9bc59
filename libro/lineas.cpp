#include "libro/lineas.h"

QString concepto_al_dejarlo(const QString& celda, const QString& encabezado,
                            const MemoriasLinea& memorias) {
    if (celda.isEmpty())
        return encabezado;
    return es_repeticion(celda) ? memorias.concepto_anterior : celda;
}

QString tercero_al_dejarlo(const QString& celda, const AtributosCuenta& cuenta,
                           const MemoriasLinea& memorias) {
    return celda.isEmpty() && cuenta.tercero == "S" ? memorias.tercero_anterior : celda;
}

void recuerde(MemoriasLinea& memorias, const LineaComprobante& linea, bool con_tercero) {
    memorias.concepto_anterior = linea.concepto;
    memorias.referencia_anterior = linea.referencia;
    if (con_tercero)
        memorias.tercero_anterior = linea.nit;
}

QString referencia_al_dejarla(const QString& celda, const QString& encabezado) {
    return celda.isEmpty() ? encabezado : celda;
}

namespace {

Rechazo falta(Motivo motivo, const char* texto, const char* campo) {
    Rechazo r;
    r.motivo = motivo;
    r.texto = QString::fromUtf8(texto);
    r.campo = QLatin1String(campo);
    return r;
}

} // namespace

Rechazos faltas_de_linea(const LineaComprobante& linea, const AtributosCuenta& cuenta) {
    Rechazos lista;
    if (cuenta.exige_tercero() && linea.nit.isEmpty())
        lista << falta(Motivo::FaltaTercero, "Debe indicar un NIT para el movimiento.", "TERC_NIT");
    if (cuenta.es_retencion() && linea.base.es_cero())
        lista << falta(Motivo::FaltaBase, "Debe indicar una base para el movimiento.", "CODE_BASE");
    if (cuenta.es_retencion() && linea.porcentaje.es_cero())
        lista << falta(Motivo::FaltaPorcentaje, "Debe indicar un porcentaje para el movimiento.",
                       "CODE_PORC");
    if (cuenta.exige_centro() && (linea.proyecto.isEmpty() || linea.centro.isEmpty()))
        lista << falta(Motivo::FaltaCentro, "Debe indicar un Proyecto-Centro para el movimiento.",
                       linea.proyecto.isEmpty() ? "PROY_COD" : "CENT_COD");
    return lista;
}

std::optional<Rechazo> revise_porcentaje(Moneda porcentaje) {
    if (porcentaje <= Moneda(100))
        return {};
    Rechazo r = falta(Motivo::PorcentajeAlto, "", "CODE_PORC");
    r.texto = QStringLiteral("El porcentaje %1 pasa de 100.").arg(porcentaje.texto());
    r.oferta = Oferta::Confirmar;
    r.pregunta = r.texto + " Desea dejarlo?";
    return r;
}
