#include "reports/forma_consolidado.h"

#include "datos/firebird/concuerde.h"
#include "sesion/instalacion.h"
#include "toolkit/dialogos.h"
#include "toolkit/formulario.h"
#include "toolkit/letrero_espera.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopeGuard>

namespace {

/// Columnas que se suman de una compañía a la otra.
constexpr const char* kSumadas[] = {"INICIAL", "DEBITOS",   "CREDITOS", "FINAL",   "SCLASE",
                                    "SGRUPO",  "SSUBGRUPO", "SCUENTA",  "MOVIMIEN"};

void defina_destino(ConjuntoDatos& c) {
    c.texto("CODIGO", 20);
    c.texto("NOMBRE", 60);
    for (const char* suma : kSumadas)
        c.decimal(suma);
    c.entero("NIVEL");
    c.decimal("UOP");
    c.Instantanea = true;
}

/// Donde está la base de la sesión están las de las demás compañías.
QString base_de(const QString& compania) {
    QString ubicacion = fdm().Quorvex.parametros().base;
    const QString propia = ruta_base({}, fdm().codigo_compania);
    if (ubicacion.endsWith(propia))
        ubicacion.chop(propia.size());
    return ruta_base(ubicacion, compania);
}

/// Nulo si no existe.
Valor nombre_de(const QString& compania) {
    return fdm().CBorrarGen.valor_unico("select com_nombre from compania where comp_cod = " +
                                        QuotedStr(compania));
}

} // namespace

FormaConsolidado::FormaConsolidado(const DatosRango& datos,
                                   const QVector<VarianteConsolidado>& variantes)
    : FormaEstado(datos), CodCia1(caja("CodCia1", 3)), NomCia1(new QLineEdit(this)),
      variantes_(variantes) {
    defina_destino(CDestino);
    NomCia1->setObjectName("NomCia1");
    NomCia1->setReadOnly(true);
    NomCia1->setFocusPolicy(Qt::NoFocus);
    connect(CodCia1, &QLineEdit::editingFinished, this,
            [this] { proteja([this] { CodCia1Exit(); }); });
}

void FormaConsolidado::arme(Formulario& f) {
    CodCia1->setFixedWidth(CodCia1->minimumWidth());
    f.fila("Compañía a consolidar:", Formulario::junto({CodCia1, NomCia1}));
    f.fila("Período:", cree_periodo());
    arme_pares(f);
    f.fila("Nivel:", cree_nivel(5));
    arme_casillas(f, {casilla_sin_movimiento()});
    arme_titulo(f);
    arme_botones(f);
}

const VarianteConsolidado& FormaConsolidado::variante() const {
    for (const VarianteConsolidado& v : variantes_)
        if (es(v.tipo))
            return v;
    return variantes_.last();
}

void FormaConsolidado::FormCreate() {
    FormaEstado::FormCreate();
    setWindowTitle(QString::fromUtf8(variante().ventana));
    fije_nivel_del_tipo();
    CodCia1->setFocus();
}

void FormaConsolidado::CodCia1Exit() {
    const QString codigo = CodCia1->text().trimmed();
    if (codigo == buscada_)
        return;
    buscada_ = codigo;
    NomCia1->clear();
    if (codigo.isEmpty())
        return;
    const Valor nombre = nombre_de(codigo);
    if (nombre.nulo())
        muestre_mensaje("Compañía no encontrada.");
    else
        NomCia1->setText(nombre.texto());
}

// ---------------------------------------------------------------- la otra compañía

void FormaConsolidado::antes_de_abrir() {
    static const QRegularExpression kCodigo(QStringLiteral("^[0-9A-Za-z]+$"));
    const QString codigo = CodCia1->text().trimmed();
    if (codigo.isEmpty())
        rehuse(CodCia1, QStringLiteral("Debe indicar el código de la compañia a consolidar."));
    buscada_ = codigo; // el mensaje que siga quita el foco de la caja: no la busca otra vez
    if (!kCodigo.match(codigo).hasMatch())
        rehuse(CodCia1, QStringLiteral("Compañía no encontrada."));
    if (codigo == fdm().codigo_compania)
        rehuse(CodCia1,
               QStringLiteral("La compañía %1 es la de esta sesión: escoja la otra.").arg(codigo));
    NomCia1->setText(nombre_de(codigo).texto()); // F2 no sale de la caja del código
    const auto oculte = qScopeGuard([this] { Panel5->hide(); });
    Panel5->diga(QStringLiteral("Conectando a la base de datos %1 ...").arg(codigo));
    conecte();
    Panel5->diga(QStringLiteral("Generando informe..."));
}

void FormaConsolidado::conecte() {
    CDestino.Close();
    Conexion2.desconectar();
    ParametrosConexion parametros = fdm().Quorvex.parametros();
    parametros.base = base_de(CodCia1->text().trimmed());
    Conexion2.conectar(parametros);
}

void FormaConsolidado::despues_de_abrir() {
    const auto cierre = qScopeGuard([this] {
        CDestino.Close();
        Conexion2.desconectar();
    });
    CDestino.Open(sql());
    sume_destino();
    CAuxiliar.First();
}

void FormaConsolidado::sume_destino() {
    QVector<std::pair<QString, Moneda>> omitidas;
    // Las filas no cambian de lugar al sumarse: se buscan todas en una pasada.
    QHash<QString, int> lugares;
    const Campo& codigo_propio = CAuxiliar.FieldByName("CODIGO");
    for (int fila = 0; fila < CAuxiliar.RecordCount(); ++fila)
        lugares.insert(CAuxiliar.valor_en(fila, codigo_propio).texto(), fila);
    for (CDestino.First(); !CDestino.Eof(); CDestino.Next()) {
        const QString codigo = CDestino.FieldByName("CODIGO").texto();
        const int lugar = lugares.value(codigo, -1);
        if (lugar < 0) {
            if (std::ranges::any_of(kSumadas, [this](const char* columna) {
                    return !CDestino.FieldByName(QLatin1String(columna)).moneda().es_cero();
                }))
                omitidas.append({codigo, CDestino.FieldByName("FINAL").moneda()});
            continue;
        }
        CAuxiliar.vaya_a(lugar);
        CAuxiliar.Edit();
        for (const char* columna : kSumadas) {
            Campo& campo = CAuxiliar.FieldByName(QLatin1String(columna));
            campo = campo.moneda() + CDestino.FieldByName(QLatin1String(columna)).moneda();
        }
        CAuxiliar.Post();
    }
    diga_lo_omitido(omitidas);
}

void FormaConsolidado::diga_lo_omitido(const QVector<std::pair<QString, Moneda>>& omitidas) {
    // Una cuenta mayor repite lo de las suyas: se cuentan las que no tienen otra debajo. Vienen por
    // código, así que la de debajo es la que sigue.
    Moneda debito, credito;
    int& cuentas = sin_consolidar_ = 0;
    for (qsizetype i = 0; i < omitidas.size(); ++i) {
        const auto& [codigo, saldo] = omitidas[i];
        if (i + 1 < omitidas.size() && omitidas[i + 1].first.startsWith(codigo))
            continue;
        ++cuentas;
        (saldo.negativa() ? credito : debito) += saldo.absoluta();
    }
    if (cuentas > 0)
        fdm().mostrar_advertencia(
            QStringLiteral("Sin consolidar: %1, con saldos por %2 al débito y %3 al crédito.")
                .arg(lo_omitido(), debito.formateada(), credito.formateada()));
}

void FormaConsolidado::ajuste_reporte(MotorInformes& motor, const QString& pagina) {
    motor.fijar_parametro("Libro", "2649"); // el único que se consolida
    const QString otra = NomCia1->text().isEmpty() ? CodCia1->text().trimmed() : NomCia1->text();
    motor.fijar_texto(pagina, QStringLiteral("Text1"),
                      QString::fromUtf8(variante().titulo) + QStringLiteral(" con ") + otra);
}

QString FormaConsolidado::rango_legible() {
    QStringList partes{FormaEstado::rango_legible()};
    // Sin ellas una clase no es la suma de sus grupos: quien lo lee firmado debe saberlo.
    if (sin_consolidar_ > 0)
        partes << "sin " + lo_omitido();
    return partes.join(QStringLiteral(" · "));
}

QString FormaConsolidado::lo_omitido() const {
    return concuerde(sin_consolidar_, "una cuenta", "%1 cuentas") + " que solo movió la compañía " +
           CodCia1->text().trimmed();
}
