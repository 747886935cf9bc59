#include "reports/tfcataterceros.h"

#include "sesion/tfdmcnt.h"
#include "toolkit/formulario.h"

#include <QCheckBox>

namespace {

struct CampoTercero {
    const char* nombre;
    const char* etiqueta;
    int largo; ///< 1 bandera
};
constexpr CampoTercero kAntesDeNotas[]{
    {"TERC_NIT", "NIT", 20},
    {"TERC_DV", "DV", 1},
    {"TERC_DVDIAN", "DV DIAN", 1},
    {"TERC_TIPOID", "Tipo de documento", 1},
    {"TERC_NOM", "Nombre", 60},
    {"TERC_APELLIDO1", "Primer apellido", 60},
    {"TERC_APELLIDO2", "Segundo apellido", 60},
    {"TERC_NOMBRE1", "Primer nombre", 60},
    {"TERC_NOMBRE2", "Segundo nombre", 60},
    {"TERC_DIR", "Dirección", 60},
    {"TERC_CIU", "Ciudad", 40},
    {"CIUD_COD", "Código de la ciudad", 5},
    {"PAIS_ID", "País", 3},
    {"TERC_TEL", "Teléfono", 40},
    {"TERC_FAX", "Fax", 25},
    {"TERC_CEL", "Celular", 25},
    {"TERC_EMAIL", "Correo", 100},
    {"TERC_CONTACTO", "Contacto", 255},
};
/// Las banderas de papel, con la palabra que se imprime de cada una.
constexpr CampoTercero kPapeles[]{
    {"TERC_CLIE", "Cliente", 1},        {"TERC_PROV", "Proveedor", 1},
    {"TERC_EMPL", "Empleado", 1},       {"TERC_CONDUCTOR", "Conductor", 1},
    {"TERC_ASOCIADO", "Asociado", 1},   {"TERC_ASOCINAC", "Asociado nacional", 1},
    {"TERC_TRANS", "Transportador", 1}, {"TERC_ADMINI", "Administrador", 1},
    {"TERC_DEPOS", "Depositario", 1},
};
constexpr CampoTercero kOtros[]{
    {"TERC_SIMPLIFICA", "Régimen simplificado", 1},
    {"TERC_EXENTO", "Exento", 1},
    {"TERC_ESTADO", "Activo", 1},
    {"TERC_CATEGORIA", "Categoría de la licencia", 10},
    {"TERC_USUARIO", "Usuario", 10},
    {"TERC_CTARTFTE", "Cuenta retención en la fuente", 20},
    {"TERC_CTARTIVA", "Cuenta retención IVA", 20},
    {"TERC_CTARTICA", "Cuenta retención ICA", 20},
    {"TERC_CTARCREE", "Cuenta autorretención", 20},
    {"TERC_CTAVENTA", "Cuenta venta", 20},
    {"TERC_CTACLIENTE", "Cuenta cliente", 20},
    {"TERC_CTAPROV", "Cuenta proveedor", 20},
    {"TERC_CTAEMPL", "Cuenta empleado", 20},
    {"TERC_NITCONTA", "NIT contable", 20},
    {"TERC_ACTIVIDAD", "Actividad económica", 4},
};

template <size_t N> void defina(ConjuntoDatos& conjunto, const CampoTercero (&campos)[N]) {
    for (const CampoTercero& c : campos)
        (c.largo == 1 ? conjunto.bandera(c.nombre) : conjunto.texto(c.nombre, c.largo))
            .etiqueta(c.etiqueta);
}

/// Letra de la libreta: la primera del nombre, sin tilde; la eñe es letra aparte.
QString letra_de_libreta(const QString& nombre) {
    const QString letra = nombre.trimmed().left(1).toUpper();
    return letra == QStringLiteral("Ñ") ? letra
                                        : letra.normalized(QString::NormalizationForm_D).left(1);
}

QString dia_y_mes(QDate fecha) {
    if (!fecha.isValid())
        return {};
    return QStringLiteral("%1 %2")
        .arg(fecha.day())
        .arg(Tfdm::nombres_periodo()[fecha.month() - 1].left(3).toLower());
}

} // namespace

Tfcataterceros::Tfcataterceros()
    : FormaCatalogo("Tfcataterceros", "Catálogo de terceros", "RCataterceros", "CTerceros",
                    {"NIT", "terc_nit"}, {"Nombre", "terc_nom"}, ClaseRango::Tercero) {
    defina(CAuxiliar, kAntesDeNotas);
    CAuxiliar.memo("TERC_OBS").etiqueta("Observaciones");
    defina(CAuxiliar, kPapeles);
    defina(CAuxiliar, kOtros);
    CAuxiliar.fecha("TERC_ANIV").etiqueta("Aniversario");
    CAuxiliar.fecha("TERC_LICVEN").etiqueta("Licencia vence");
    CAuxiliar.entero("TERC_CONCSH").etiqueta("Concepto SH");
    palabra("Identificacion", 22);
    palabra("Papeles", 120);
    palabra("Estado", 10);
    palabra("Cumple", 10);
    palabra("Letra", 1);
    for (const char* linea : {"Telefono", "Celular", "Fax"})
        palabra(linea, 50);

    Formulario f(this);
    arme_rango(f);
    CkContacto = casilla("CkContacto", "Mostrar como libreta de contactos");
    CkCumple = casilla("CkCumple", "Cumpleaños del período actual");
    arme_casillas(f, {CkContacto});
    arme_casillas(f, {CkCumple});
    arme_titulo(f);
    arme_botones(f);
}

QString Tfcataterceros::sql() {
    const QString todos = QStringLiteral("select * from terceros where ") + dentro_del_rango();
    if (!marcada(CkCumple))
        return todos + " order by " + columna();
    return todos + QStringLiteral(" AND EXTRACT(MONTH FROM TERC_ANIV) = %1 order by "
                                  "EXTRACT(DAY FROM TERC_ANIV), TERC_NOM")
                       .arg(fdmcnt().periodo_actual + 1);
}

QString Tfcataterceros::rango_legible() {
    if (!marcada(CkCumple))
        return FormaCatalogo::rango_legible();
    const QString desde = valor("EDesde"), hasta = valor("EHasta");
    const QString cumple =
        "Cumpleaños de " + Tfdm::nombres_periodo().value(fdmcnt().periodo_actual).toLower();
    return tramo_legible("Registros", desde, hasta) == tramo_legible("Registros", "0", "ZZ")
               ? cumple
               : cumple + " · " + tramo_legible(orden().rotulo, desde, hasta);
}

QString Tfcataterceros::reporte() {
    return marcada(CkContacto) ? "Contactos" : "Terceros";
}

void Tfcataterceros::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    // Las letras solo separan una libreta que va por nombre.
    if (marcada(CkContacto) && (por_codigo() || marcada(CkCumple)))
        motor.fijar_grupo(pagina, "letra", {});
}

void Tfcataterceros::describa() {
    const auto fije = [this](const char* campo, const QString& texto) {
        CAuxiliar.FieldByName(campo) = texto;
    };
    const auto rotulado = [this](const char* rotulo, const char* campo) {
        const QString texto = dato(campo).trimmed();
        return texto.isEmpty() ? texto : QLatin1String(rotulo) + texto;
    };
    QStringList papeles;
    for (const CampoTercero& p : kPapeles)
        if (si(p.nombre))
            papeles << (papeles.isEmpty() ? p.etiqueta : QString(p.etiqueta).toLower());
    const QString dv = dato("TERC_DV").trimmed();
    fije("Identificacion", dv.isEmpty() ? dato("TERC_NIT") : dato("TERC_NIT") + '-' + dv);
    fije("Papeles", papeles.join(", "));
    fije("Estado", si("TERC_ESTADO") ? "" : "Inactivo");
    fije("Cumple", dia_y_mes(CAuxiliar.FieldByName("TERC_ANIV").fecha()));
    fije("Letra", letra_de_libreta(dato("TERC_NOM")));
    fije("Telefono", rotulado("Tel. ", "TERC_TEL"));
    fije("Celular", rotulado("Cel. ", "TERC_CEL"));
    fije("Fax", rotulado("Fax ", "TERC_FAX"));
}
