#include "reports/tfrngoficiales.h"

#include "toolkit/formulario.h"
#include "toolkit/rejilla/rejilla.h"

#include <QCheckBox>

namespace {

// Cada extremo de los tipos vale por sí solo: ninguno se completa con el otro.
const DatosRango kDatosRngoficiales{
    "Tfrngoficiales",
    "Libros oficiales",
    {382, 260},
    "balances.rav",
    "",
    "CMaybalance",
    "",
    144,
    {{"Ticoini", "Ticofin", "Tipo", ClaseRango::Tipo, "", "", UsoPar::DosValores}}};

struct LibroOficial {
    const char *tipo, *titulo, *niif, *conjunto, *conexion, *archivo;
};
constexpr LibroOficial kLibros[]{
    {"M", "Mayor y balance", "Libro Mayor y Balances NIIF", "CMaybalance", "ROficiales",
     "RepMayorybalance"},
    {"I", "Inventario y balance", "Libro de Inventarios y Balances NIIF", "CInvbalance",
     "RInvybalance", "RepInvybalance"},
    {"D", "Libro diario", "Libro Diario NIIF", "CDiario", "RDiario", "RepLibrodiariocta"}};

const LibroOficial& libro(const QString& tipo) {
    for (const LibroOficial& l : kLibros)
        if (tipo == QLatin1String(l.tipo))
            return l;
    return kLibros[0];
}

} // namespace

Tfrngoficiales::Tfrngoficiales() : FormaEstado(kDatosRngoficiales) {}

void Tfrngoficiales::FormCreate() {
    const LibroOficial& l = libro(tipo());
    setWindowTitle(QString::fromUtf8(l.titulo));
    CAuxiliar.setObjectName(QLatin1String(l.conjunto));
    datos_.conexion = QLatin1String(l.conexion);
    datos_.archivo = DBGridEh1->nombre_archivo = QLatin1String(l.archivo);
    if (!es("D"))
        datos_.pares.clear();
    es("I") ? defina_inventario() : es("D") ? defina_diario() : defina_mayor();
    arme();
    FormaEstado::FormCreate();
}

void Tfrngoficiales::arme() {
    Formulario f(this);
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    f.fila({{"Nivel:", cree_nivel(3)}, {"Fecha de impresión:", cree_fecha("EFecha")}});
    casilla_niif();
    arme_casillas(f, {casilla_sin_movimiento()});
    if (es("D")) {
        Ckfechas = casilla("Ckfechas", "Discriminar fechas");
        arme_casillas(f, {Ckfechas, ckniif});
    } else {
        arme_casillas(f, {ckniif});
    }
    arme_titulo(f);
    arme_botones(f);
}

// ---------------------------------------------------------------- columnas

void Tfrngoficiales::defina_mayor() {
    CAuxiliar.texto("CODIGO", 20).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    for (const char* sufijo : {"", "1"}) {
        for (const auto& [nombre, rotulo] : {std::pair{"INIDB", "Saldo anterior débito"},
                                             {"INICR", "Saldo anterior crédito"},
                                             {"DEBITOS", "Débitos"},
                                             {"CREDITOS", "Créditos"},
                                             {"FINDB", "Saldo final débito"},
                                             {"FINCR", "Saldo final crédito"}})
            importe(QLatin1String(nombre) + QLatin1String(sufijo),
                    QString::fromUtf8(rotulo) + (*sufijo ? " de la clase" : ""));
        if (!*sufijo)
            CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    }
}

void Tfrngoficiales::defina_inventario() {
    CAuxiliar.texto("CODIGO", 40).etiqueta("Código");
    CAuxiliar.texto("NOMBRE", 60).etiqueta("Nombre");
    CAuxiliar.texto("ARTICULO", 15).etiqueta("Artículo");
    CAuxiliar.texto("NOMARTICULO", 60).etiqueta("Nombre del artículo");
    importe("SALDO", "Saldo");
    defina_niveles("S");
    CAuxiliar.entero("NIVEL").etiqueta("Nivel");
    CAuxiliar.texto("NOMCTAART", 60).etiqueta("Cuenta o artículo");
}

void Tfrngoficiales::defina_diario() {
    CAuxiliar.texto("CUENTA", 20).etiqueta("Cuenta");
    CAuxiliar.texto("TIPOCOMP", 3).etiqueta("Tipo");
    CAuxiliar.texto("NOMCOMP", 60).etiqueta("Nombre del tipo");
    CAuxiliar.texto("FECHA", 8).etiqueta("Fecha");
    importe("DEBITOS", "Débitos");
    importe("CREDITOS", "Créditos");
    CAuxiliar.texto("NOMCUENTA", 60).etiqueta("Nombre de la cuenta");
}

// ---------------------------------------------------------------- consulta

QString Tfrngoficiales::sql() {
    return es("I") ? inventario() : es("D") ? diario() : mayor();
}

QString Tfrngoficiales::mayor() const {
    QString texto = "select * from mayor_y_balance(" + ano_y_periodo() + ',' + bandera(niif()) +
                    ',' + bandera(marcada(Cksinmov)) + ')';
    if (!fdm().valor<Llave::MayorSoloAfectables>())
        texto += " where Nivel = " + nivel();
    return texto + " order by CODIGO";
}

QString Tfrngoficiales::inventario() const {
    QString texto = "select * from inventario_y_balance(" + ano_y_periodo() + ',' +
                    bandera(niif()) + ") where nivel <= " + nivel();
    if (!marcada(Cksinmov))
        texto += " and (SALDO <> 0 OR SCUENTA <> 0 OR SSUBGRUPO <> 0 OR SGRUPO <> 0 OR SCLASE <> "
                 "0)";
    return texto + " order by CODIGO";
}

bool Tfrngoficiales::por_cuenta() const {
    return fdm().valor<Llave::OrdenLibroDiario>() == QLatin1String("CUENTA-COMPROBANTE");
}

QString Tfrngoficiales::diario() const {
    QString texto = "select * from libro_diario(" + ano_y_periodo() + ", " + nivel() + ',' +
                    bandera(niif()) + ',' + bandera(marcada(Ckfechas)) + ") where CUENTA <> ''";
    if (!marcada(Cksinmov))
        texto += " and (DEBITOS <> 0 OR CREDITOS <> 0)";
    if (!valor("Ticoini").isEmpty())
        texto += " and TIPOCOMP >= " + entre_comillas("Ticoini");
    if (!valor("Ticofin").isEmpty())
        texto += " and TIPOCOMP <= " + entre_comillas("Ticofin");
    if (!por_cuenta())
        return texto + " order by tipocomp, cuenta";
    return texto +
           (marcada(Ckfechas) ? " order by cuenta, fecha, tipocomp" : " order by cuenta, tipocomp");
}

// ---------------------------------------------------------------- plantilla

QString Tfrngoficiales::rango_legible() {
    const QString rango = "Período: " + nombre_del_periodo();
    if (!es("D") || (valor("Ticoini").isEmpty() && valor("Ticofin").isEmpty()))
        return rango;
    return rango + " · " +
           tramo_legible("Tipos de comprobante", valor("Ticoini"), valor("Ticofin"));
}

QString Tfrngoficiales::reporte() {
    if (es("I"))
        return QStringLiteral("Invybalance");
    if (es("D"))
        return !por_cuenta()       ? QStringLiteral("Librodiariocmp")
               : marcada(Ckfechas) ? QStringLiteral("Librodiariocta")
                                   : QStringLiteral("Librodiario");
    const bool solo_afectables = fdm().valor<Llave::MayorSoloAfectables>();
    return solo_afectables ? QStringLiteral("Mayorybalance") : QStringLiteral("Mayorybalancea");
}

QString Tfrngoficiales::titulo_niif() {
    return QString::fromUtf8(libro(tipo()).niif);
}

void Tfrngoficiales::fije_encabezado(MotorInformes& motor) {
    // Lo que el papel ya trae impreso es el encabezado; quiénes firman, no.
    if (fdm().valor<Llave::EncabezadoOficiales>())
        FormaEstado::fije_encabezado(motor);
    else
        fije_firmas(motor);
    motor.fijar_parametro("Fecha", fecha("EFecha").toString("yyyy/MM/dd"));
}
