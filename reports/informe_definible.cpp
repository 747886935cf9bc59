#include "reports/informe_definible.h"

#include "datos/recordset/foto.h"
#include "sesion/tfdmcnt.h"

#include <QLocale>

using namespace informes;

namespace {

constexpr const char* kLetra = "Arial";
constexpr int kCuerpo = 9;
constexpr int kDecimales = 2;

QString fecha_en_letras(const QDate& fecha, const char* formato) {
    return QLocale(QLocale::Spanish, QLocale::Colombia).toString(fecha, QLatin1String(formato));
}

} // namespace

/// Una fila de un conjunto, por su lugar.
struct InformeDefinible::Renglon {
    const ConjuntoDatos& c;
    int fila;
    const Digitado& digitado;
    Valor v(const char* campo) const {
        if (digitado.conjunto == &c && digitado.fila == fila &&
            digitado.campo == QLatin1String(campo))
            return digitado.valor;
        return c.valor_en(fila, c.FieldByName(QLatin1String(campo)));
    }
    QString t(const char* campo) const { return v(campo).texto(); }
    qint64 n(const char* campo) const { return v(campo).entero(); }
    bool en(int pagina) const { return n("FOCD_PAGINA") == pagina; }
};

PeriodoFormula periodo_de_la_sesion(bool niif) {
    const CursorPeriodo cursor = fdmcnt().cursor();
    return {cursor.ano, cursor.numero(), fdm().valor<Llave::AnoInicio>(),
            fdm().valor<Llave::MesInicio>(), niif};
}

LectorReferencias::LectorReferencias() : foto_(std::make_shared<Foto>(fdm().Quorvex)) {}

Moneda LectorReferencias::operator()(const LecturaDato& lectura) {
    ConjuntoDatos& consulta = fdmcnt().CConsultas;
    consulta.Close();
    foto_->abra(consulta, lectura.sql);
    const Moneda valor = consulta.IsEmpty() ? Moneda() : consulta.Fields(lectura.columna).moneda();
    consulta.Close();
    return valor;
}

const QVector<CodigoReferencia>& InformeDefinible::codigos_fijos() {
    static const QVector<CodigoReferencia> codigos{
        {"NO", "nombre de la compañía"}, {"NI", "NIT de la compañía"},
        {"TI", "título del informe"},    {"ST", "subtítulo"},
        {"FE", "fecha de impresión"},    {"FL", "fecha con el mes en letras"},
        {"FA", "año de la fecha"},       {"FM", "mes de la fecha"},
        {"FD", "día de la fecha"},       {"NC", "nombre de la cuenta que sigue"}};
    return codigos;
}

bool InformeDefinible::es_fijo(const QString& dato) {
    for (const CodigoReferencia& c : codigos_fijos())
        if (dato.startsWith(QLatin1String(c.codigo)))
            return true;
    return false;
}

InformeDefinible::InformeDefinible(const DefinicionInforme& definicion,
                                   const CabeceraInforme& cabecera, const FormulaContable& formulas)
    : nom_cuenta([](const QString& cuenta) { return fdmcnt().nom_cuenta(cuenta); }), d_(definicion),
      cabecera_(cabecera), formulas_(formulas) {}

int InformeDefinible::paginas() const {
    return int(d_.CFormato.FieldByName("FOCO_PAGINAS").entero());
}

void InformeDefinible::imprime_informe(Hojas& hojas, const Papel& papel) {
    for (int pagina = 1; pagina <= qMax(1, paginas()); ++pagina)
        imprime_pagina(hojas, papel, pagina);
}

void InformeDefinible::imprime_pagina(Hojas& hojas, const Papel& papel, int pagina) {
    pintor_.emplace(hojas, papel, kRejilla);
    pintor_->comience_hoja();
    dibuje_fijos(pagina);
    dibuje_textos(pagina);
    dibuje_datos(pagina);
    pintor_->termine_hoja();
}

// ---------------------------------------------------------------- elementos fijos

void InformeDefinible::dibuje_fijos(int pagina) {
    for (int i = 0; i < d_.CFormalineas.RecordCount(); ++i) {
        const Renglon r = renglon(d_.CFormalineas, i);
        if (!r.en(pagina))
            continue;
        const QString tipo = r.t("FOCD_TIPO");
        const auto x = qreal(r.n("FOCD_POSX")), y = qreal(r.n("FOCD_POSY"));
        const auto dx = qreal(r.n("FOCD_X")), dy = qreal(r.n("FOCD_Y"));
        if (tipo == QLatin1String("L"))
            pintor_->linea(x, y, dx, dy);
        else if (tipo == QLatin1String("C"))
            pintor_->cuadro(x, y, dx, dy);
        else if (tipo == QLatin1String("G"))
            pintor_->imagen(r.v("FOCD_IMAGEN").binario(), x, y, dx, dy);
    }
}

void InformeDefinible::dibuje_textos(int pagina) {
    for (int i = 0; i < d_.CFormalineas.RecordCount(); ++i) {
        const Renglon r = renglon(d_.CFormalineas, i);
        if (!r.en(pagina) || r.t("FOCD_TIPO") != QLatin1String("T"))
            continue;
        letra(r);
        coloque(r, pintor_->cadena(r.t("FOCD_CADENA"), qreal(r.n("FOCD_POSX")),
                                   qreal(r.n("FOCD_POSY"))));
    }
}

void InformeDefinible::letra(const Renglon& r) {
    const QString familia = r.t("FOCD_FONT");
    const qint64 cuerpo = r.n("FOCD_FSIZE");
    pintor_->letra(familia.isEmpty() ? QLatin1String(kLetra) : familia,
                   cuerpo > 0 ? cuerpo : kCuerpo);
}

InformeDefinible::Renglon InformeDefinible::renglon(const ConjuntoDatos& conjunto, int fila) const {
    return {conjunto, fila, digitado};
}

void InformeDefinible::coloque(const Renglon& r, const QRectF& lugar) {
    if (al_colocar)
        al_colocar(r.c, r.fila, lugar);
}

// ---------------------------------------------------------------- datos

void InformeDefinible::dibuje_datos(int pagina) {
    for (int i = 0; i < d_.CFormadatos.RecordCount(); ++i) {
        const Renglon r = renglon(d_.CFormadatos, i);
        if (!r.en(pagina))
            continue;
        letra(r);
        if (!al_fallar) {
            imprima_dato(r);
            continue;
        }
        try {
            imprima_dato(r);
        } catch (const ErrorDatos& e) {
            coloque(r, pintor_->cadena(QStringLiteral("¿?"), qreal(r.n("FOCD_POSX")),
                                       qreal(r.n("FOCD_POSY"))));
            al_fallar(i, e.texto());
        }
    }
}

void InformeDefinible::imprima_dato(const Renglon& r) {
    const QString dato = r.t("FOCD_CUENTAS");
    if (dato.isEmpty())
        return; // un renglón sin dato no tiene valor que imprimir
    if (es_fijo(dato))
        imprima_cadena(r, texto_fijo(dato));
    else
        imprima_numero(r, formulas_.evalue_cuenta({dato, r.t("FOCD_PROY"), r.t("FOCD_CENTRO"),
                                                   r.t("FOCD_OPER"), r.v("FOCD_FACTOR").moneda()}));
}

QString InformeDefinible::texto_fijo(const QString& dato) {
    const QString codigo = dato.left(2);
    const auto es = [&](const char* c) { return codigo == QLatin1String(c); };
    if (es("NO"))
        return fdm().datos_compania.nombre;
    if (es("NI"))
        return fdm().datos_compania.nit;
    if (es("TI"))
        return cabecera_.titulo;
    if (es("ST"))
        return cabecera_.subtitulo;
    if (es("FE"))
        return cabecera_.fecha.toString(QStringLiteral("yyyy/MM/dd"));
    if (es("FL"))
        return fecha_en_letras(cabecera_.fecha, "MMMM d, yyyy");
    if (es("FA"))
        return cabecera_.fecha.toString(QStringLiteral("yyyy"));
    if (es("FM"))
        return fecha_en_letras(cabecera_.fecha, "MMMM");
    if (es("FD"))
        return cabecera_.fecha.toString(QStringLiteral("d"));
    // El nombre es el del plan 2649 en los dos libros.
    return nom_cuenta(dato.mid(2));
}

void InformeDefinible::imprima_cadena(const Renglon& r, const QString& texto) {
    coloque(r, pintor_->cadena(texto, qreal(r.n("FOCD_POSX")), qreal(r.n("FOCD_POSY")),
                               r.n("FOCD_INI"), r.n("FOCD_LONG")));
}

void InformeDefinible::imprima_numero(const Renglon& r, Moneda valor) {
    const Valor decimales = r.v("FOCD_LONG");
    coloque(r, pintor_->numero(valor, decimales.nulo() ? kDecimales : int(decimales.entero()),
                               false, qreal(r.n("FOCD_POSX")), qreal(r.n("FOCD_POSY"))));
}
