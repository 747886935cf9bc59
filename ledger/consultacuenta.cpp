#include "ledger/consultacuenta.h"

#include "toolkit/estilo.h"
#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QLineEdit>
#include <QRegularExpression>

namespace {
constexpr int kPrimerAnoConsultacuenta = 2000;

QString rotulo_de(Clave clave) {
    switch (clave) {
    case Clave::Tercero:
        return "Tercero";
    case Clave::Centro:
        return "Centro";
    case Clave::Articulo:
        return "Artículo";
    default:
        return {};
    }
}

/// Parejas y del largo de lo que dicen: lo demás es de los nombres.
void iguale_codigos(QLineEdit* cuenta, QLineEdit* clave) {
    constexpr int kMenos = 8;
    int ancho = ancho_caracteres(cuenta->fontMetrics(), kMenos);
    for (const QLineEdit* caja : {cuenta, clave})
        if (caja)
            ancho = qMax(ancho, caja->fontMetrics().horizontalAdvance(caja->text()));
    for (QLineEdit* caja : {cuenta, clave})
        if (caja)
            caja->setFixedWidth(ancho + paso(2));
}
} // namespace

ConsultaCuenta::ConsultaCuenta(const MiembroConsulta& miembro)
    : ConsultaPeriodo(miembro.clase, miembro.titulo, kPrimerAnoConsultacuenta),
      ECuenta(cree_lectura("ECuenta", 16)), NomCuenta(cree_lectura("NomCuenta")), datos_(miembro) {
    if (datos_.clave != Clave::Ninguna) {
        EClave = cree_lectura("EClave", 16);
        NomClave = cree_lectura("NomClave");
    }
    tamano(datos_.tamano.width(), datos_.tamano.height());
    centre_en_area(125, 120);
}

void ConsultaCuenta::arme_encabezado(Formulario& formulario) {
    formulario.fila("Cuenta", Formulario::junto({ECuenta, NomCuenta}));
    if (EClave)
        formulario.fila(rotulo_de(datos_.clave), Formulario::junto({EClave, NomClave}));
}

void ConsultaCuenta::FormCreate() {
    fdm().ConfigurarProviders(this);
    const auto pedida = peticion<AbreAuxiliar>();
    consulta_.cuenta = pedida.cuenta_auxiliar;
    consulta_.nit = pedida.tercero_auxiliar;
    consulta_.proyecto = pedida.proyecto_auxiliar;
    consulta_.centro = pedida.centro_auxiliar;
    consulta_.articulo = pedida.articulo_auxiliar;
    ECuenta->setText(consulta_.cuenta);
    NomCuenta->setText(nombre_cuenta());
    if (EClave)
        muestre_clave();
    iguale_codigos(ECuenta, EClave);
}

QString ConsultaCuenta::nombre_cuenta() {
    if (!*datos_.nombre_cuenta)
        return fdmcnt().nom_cuenta_niif(consulta_.cuenta);
    return dato(datos_.nombre_cuenta + QuotedStr(consulta_.cuenta));
}

void ConsultaCuenta::muestre_clave() {
    switch (datos_.clave) {
    case Clave::Tercero:
        EClave->setText(consulta_.nit);
        NomClave->setText(
            dato("select terc_nom from terceros where terc_nit = " + QuotedStr(consulta_.nit)));
        break;
    case Clave::Centro:
        EClave->setText(consulta_.proyecto + ' ' + consulta_.centro);
        NomClave->setText(
            dato("select cent_nom from centros where proy_cod = " + QuotedStr(consulta_.proyecto) +
                 " and cent_cod = " + QuotedStr(consulta_.centro)));
        break;
    case Clave::Articulo:
        EClave->setText(consulta_.articulo);
        NomClave->setText(dato("select arti_des from articulo where arti_cod = " +
                               QuotedStr(consulta_.articulo)));
        break;
    case Clave::Ninguna:
        break;
    }
}

void ConsultaCuenta::muestre_lo_consultado() {
    muestre_periodo();
    // El libro es el que se lee, que no siempre es el que dice la pantalla.
    static const QRegularExpression de_niif("_n(iif)?\\(",
                                            QRegularExpression::CaseInsensitiveOption);
    const bool niif = de_niif.match(QLatin1String(datos_.consulta)).hasMatch();
    QStringList consultado{ECuenta->text() + ' ' + NomCuenta->text()};
    if (EClave)
        consultado << EClave->text() + ' ' + NomClave->text();
    DBGridEh1->titulo_impreso =
        titulo_de_hoja(niif ? Libro::Niif : Libro::Decreto2649, periodo_legible(), consultado);
}

QString ConsultaCuenta::componga(const QString& orden, const char* consulta) {
    consulta_.ano = fdmcnt().ano_actual;
    consulta_.mes = fdmcnt().periodo_actual + 1;
    consulta_.orden = orden;
    return componga_consulta(consulta ? consulta : datos_.consulta, consulta_);
}
