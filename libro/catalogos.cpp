#include "libro/catalogos.h"

namespace {

Rechazo de_cuenta(Motivo motivo, const QString& texto) {
    Rechazo r;
    r.motivo = motivo;
    r.texto = texto;
    r.campo = QStringLiteral("CUEN_COD");
    return r;
}

} // namespace

std::optional<AtributosCuenta> atributos_de_cuenta(Conexion& conexion, Libro libro,
                                                   const QString& cuenta) {
    const auto c = conexion.abra(
        QStringLiteral("select cuen_tercero, cuen_centro, cuen_retencion, cuen_tipo, cuen_basemin, "
                       "cuen_porc, cuen_activa, %1 from %2 where cuen_cod = ?")
            .arg(QLatin1String(es_niif(libro) ? "''" : "cuen_eqniif"),
                 QLatin1String(datos(libro).cuentas)),
        {cuenta});
    if (!c->siguiente())
        return {};
    AtributosCuenta a;
    a.tercero = c->valor(0).texto();
    a.centro = c->valor(1).texto();
    a.retencion = c->valor(2).texto();
    a.clase = c->valor(3).texto();
    a.base_minima = c->valor(4).moneda();
    a.porcentaje = c->valor(5).moneda();
    a.activa = c->valor(6).texto() != "N";
    a.equivalente = c->valor(7).texto();
    return a;
}

std::optional<Rechazo> revise_cuenta(Conexion& conexion, Libro libro, const QString& cuenta) {
    const DatosLibro& l = datos(libro);
    const qint64 error = conexion
                             .consulte(QStringLiteral("select * from %1(").arg(l.valide_cuenta) +
                                       QuotedStr(cuenta) + ')')
                             .entero();
    switch (error) {
    case 0:
        return {};
    case 1: {
        const QString pregunta = l.no_existe;
        Rechazo r = de_cuenta(Motivo::CuentaInexistente, pregunta.section(" Desea", 0, 0));
        r.oferta = Oferta::CrearCuenta;
        r.pregunta = pregunta;
        r.dato = cuenta;
        return r;
    }
    case 2:
        return de_cuenta(Motivo::CuentaIncompleta, l.incompleta);
    case 3:
        return de_cuenta(Motivo::CuentaSuperior, l.inferior);
    case 4:
        return de_cuenta(Motivo::CuentaConAuxiliares, l.con_auxiliares);
    default:
        return de_cuenta(Motivo::CuentaNoSirve, {});
    }
}

QString nombre_de_cuenta(Conexion& conexion, Libro libro, const QString& cuenta,
                         std::optional<Rechazo>& rechazo) {
    const DatosLibro& l = datos(libro);
    const auto c = conexion.abra(
        QStringLiteral("select cuen_nom, cuen_activa from %1 where cuen_cod = ?").arg(l.cuentas),
        {cuenta});
    if (!c->siguiente())
        return {};
    if (c->valor(1).texto() != "N")
        return c->valor(0).texto();
    rechazo = de_cuenta(Motivo::CuentaInactiva,
                        QStringLiteral("La %1 %2 está inactiva.").arg(l.cuenta_de, cuenta));
    return {};
}

QString nombre_en_el_plan(Conexion& conexion, Libro libro, const QString& cuenta) {
    if (cuenta.isEmpty())
        return {};
    // En el texto y no como parámetro: uno más largo que la columna no está, y no es una falla.
    return conexion
        .consulte(
            QStringLiteral("select cuen_nom from %1 where cuen_cod = ").arg(datos(libro).cuentas) +
            QuotedStr(cuenta))
        .texto();
}

QString nombre_de_tercero(Conexion& conexion, const QString& nit) {
    return conexion
        .consulte("select terc_nom from terceros where terc_estado = 'S' and terc_nit = ?", {nit})
        .texto();
}

Rechazo tercero_no_encontrado(const QString& nit) {
    Rechazo r;
    r.motivo = Motivo::Tercero;
    r.texto = QStringLiteral("Tercero no encontrado.");
    r.campo = QStringLiteral("TERC_NIT");
    r.oferta = Oferta::CrearTercero;
    r.pregunta = QStringLiteral("Tercero no encontrado. Desea crearlo?");
    r.dato = nit;
    return r;
}

bool tercero_activo(Conexion& conexion, const QString& nit) {
    return conexion.consulte("select * from existe_tercero(" + QuotedStr(nit) + ')').texto() == "S";
}

std::optional<Rechazo> revise_tercero(Conexion& conexion, const QString& nit) {
    if (tercero_activo(conexion, nit))
        return {};
    return tercero_no_encontrado(nit);
}

QString nombre_de_proyecto(Conexion& conexion, const QString& proyecto) {
    return conexion.consulte("select proy_nom from proyectos where proy_cod = ?", {proyecto})
        .texto();
}

QString nombre_de_centro(Conexion& conexion, const QString& proyecto, const QString& centro) {
    return conexion
        .consulte("select cent_nom from centros where proy_cod = ? and cent_cod = ?",
                  {proyecto, centro})
        .texto();
}

std::optional<Rechazo> revise_centro(Conexion& conexion, const QString& proyecto,
                                     const QString& centro) {
    const QString sql =
        "select * from existe_centro(" + QuotedStr(proyecto) + ',' + QuotedStr(centro) + ')';
    if (conexion.consulte(sql).texto() == "S")
        return {};
    Rechazo r;
    r.motivo = Motivo::Centro;
    r.texto = QStringLiteral("Proyecto-Centro no encontrado.");
    r.campo = QStringLiteral("CENT_COD");
    return r;
}

std::optional<Rechazo> revise_categoria(Conexion& conexion, Libro libro, const QString& codigo) {
    const Valor nombre = conexion.consulte(
        "SELECT CONC_NOMBRE FROM CONCEPTO_CONTABLE WHERE CONC_COD = " + QuotedStr(codigo));
    if (!nombre.nulo())
        return {};
    Rechazo r;
    r.motivo = Motivo::Categoria;
    r.texto = QString::fromUtf8(datos(libro).categoria_inexistente);
    r.campo = QStringLiteral("CONC_COD");
    return r;
}

std::optional<Rechazo> revise_articulo(Conexion& conexion, const QString& clase,
                                       const QString& codigo) {
    const bool activo = clase == "A";
    if (codigo.isEmpty())
        return {};
    const QString sql = activo ? "select 1 from activos_fijos where acfj_cod = ?"
                               : "select 1 from articulo where arti_cod = ?";
    if (!conexion.consulte(sql, {codigo}).nulo())
        return {};
    Rechazo r;
    r.motivo = Motivo::Articulo;
    r.texto = (activo ? QStringLiteral("El activo fijo %1 no existe.")
                      : QStringLiteral("El artículo %1 no existe."))
                  .arg(codigo);
    r.campo = QStringLiteral("ARTI_COD");
    return r;
}

QString negativa_de_saldos_iniciales(Conexion& conexion, Libro libro) {
    return conexion
        .consulte("select negativa_saldos_iniciales(" +
                  QuotedStr(es_niif(libro) ? "NIIF" : "2649") + ") from rdb$database")
        .texto();
}
