#include "exchange/importacion.h"

#include "exchange/diario_importacion.h"
#include "libro/catalogos.h"

#include <QFileInfo>

namespace {

constexpr qint64 kBloque = 64 * 1024;
constexpr qint64 kArchivoChico = 100; ///< con menos octetos el avance va por quintos

/// Quien la lanza detiene la lectura sin que sea una falla.
struct Cancelada {};

/// Mira octeto por octeto si un archivo con letras de más de un octeto es todo él UTF-8. Un texto
/// de un octeto por letra con tildes casi nunca lo es.
class MiradaUtf8 {
public:
    void mire(const QByteArray& octetos) {
        for (const char c : octetos) {
            const auto o = uchar(c);
            if (faltan_ > 0) {
                vale_ = vale_ && (o & 0xC0) == 0x80;
                --faltan_;
            } else if (o >= 0x80) {
                faltan_ = o >= 0xF0 ? 3 : o >= 0xE0 ? 2 : 1;
                vale_ = vale_ && o >= 0xC2 && o <= 0xF4;
                hay_ = true;
            }
        }
    }
    bool es() const { return hay_ && vale_ && faltan_ == 0; }

private:
    int faltan_ = 0; ///< octetos de la letra que va
    bool vale_ = true, hay_ = false;
};

/// El archivo se lee con la página de códigos de la base, sin convertirlo: uno en Unicode entraría
/// con las tildes y las eñes cambiadas. Lo deja en su comienzo.
void exija_un_octeto_por_letra(QFile& archivo) {
    const QByteArray marca = archivo.peek(3);
    bool unicode =
        marca == "\xEF\xBB\xBF" || marca.startsWith("\xFF\xFE") || marca.startsWith("\xFE\xFF");
    MiradaUtf8 mirada;
    while (!unicode && !archivo.atEnd()) {
        const QByteArray octetos = archivo.read(kBloque);
        if (octetos.isEmpty())
            break; // no se deja leer: lo dice la lectura
        mirada.mire(octetos);
    }
    if (unicode || mirada.es())
        throw ErrorDatos(QStringLiteral(
            "El archivo está en Unicode (UTF-8): sus tildes y eñes entrarían cambiadas. Guárdelo "
            "como texto ANSI (Windows-1252) y vuelva a importarlo. No se grabó nada."));
    archivo.seek(0);
}

} // namespace

QString ResultadoImportacion::descuadre() const {
    return saldos && saldos->first != saldos->second
               ? (saldos->first - saldos->second).absoluta().formateada()
               : QString();
}

QString ResultadoImportacion::resumen() const {
    QString texto = QStringLiteral("Leídos %1, grabados %2, rechazados %3, omitidos %4")
                        .arg(leidos)
                        .arg(grabados)
                        .arg(rechazados.size())
                        .arg(omitidos);
    if (de_antes != 0)
        texto += QStringLiteral("; de antes de cortarse: %1").arg(de_antes);
    if (agregados != 0)
        texto += QStringLiteral("; agregados a comprobantes que ya estaban: %1").arg(agregados);
    if (!avisos.isEmpty())
        texto += QStringLiteral("; incompletos: %1").arg(avisos.size());
    if (siguen_los_anteriores)
        texto += QStringLiteral("; los saldos anteriores siguen como estaban");
    if (saldos)
        texto += QStringLiteral("; saldos iniciales: débitos %1, créditos %2")
                     .arg(saldos->first.formateada(), saldos->second.formateada());
    if (!descuadre().isEmpty())
        texto += QStringLiteral(", descuadrados por ") + descuadre();
    return texto;
}

Importacion::Importacion(Conexion& conexion, const PeticionImportacion& peticion,
                         const AjustesLibro& ajustes, const QString& usuario)
    : conexion_(conexion), peticion_(peticion), ajustes_(ajustes), usuario_(usuario) {}

Importacion::~Importacion() = default;

ResultadoImportacion Importacion::corra() {
    QFile archivo(peticion_.archivo);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorDatos(
            QStringLiteral("Error al abrir el archivo, asegúrece que el nombre sea correcto y que "
                           "no esté abierto en otra aplicación en este momento."));
    const qint64 total = archivo.size();
    paso_ = total / (total < kArchivoChico ? 5 : 100);
    if (paso_ == 0)
        throw ErrorDatos(QStringLiteral("División por cero: el archivo tiene menos de cinco "
                                        "octetos y no hay avance que mostrar."));
    exija_un_octeto_por_letra(archivo);
    proximo_ = 0;
    if (peticion_.ensayo)
        todo_junto();
    if (diario)
        diario->empiece();
    qint64 leidos = 0;
    try {
        prepare();
        LectorRegistros lector(peticion_.separador, peticion_.delimitador,
                               [&](const RegistroLeido& registro) {
                                   ++resultado_.leidos;
                                   if (!resuelto_antes(registro))
                                       procese(registro);
                                   leidos += registro.crudo.size() + 1;
                                   avance_de(leidos, total);
                               });
        while (!archivo.atEnd()) {
            const QByteArray octetos = archivo.read(kBloque);
            if (octetos.isEmpty() && archivo.error() != QFileDevice::NoError)
                throw ErrorDatos(QStringLiteral("No se pudo leer el archivo hasta el final: %1.")
                                     .arg(peticion_.archivo));
            lector.alimente(octetos);
        }
        termine();
        avise_lo_que_quedo(lector);
        if (diario)
            diario->termine();
    } catch (const Cancelada&) {
        detengase();
    } catch (const ErrorDatos& falla) {
        if (resultado_.leidos == 0)
            throw;
        resultado_.falla = falla;
        detengase();
    }
    junto_.reset(); // lo que no se confirmó se deshace
    return resultado_;
}

bool Importacion::resuelto_antes(const RegistroLeido& registro) {
    if (!diario || registro.renglon > diario->desde().hasta)
        return false;
    if (const QString razon = diario->desde().rechazados.value(registro.renglon); !razon.isEmpty())
        resultado_.rechazados.append({registro.renglon, registro.crudo, razon});
    else
        ++resultado_.de_antes;
    return true;
}

void Importacion::detengase() {
    resultado_.cancelada = true;
    if (resultado_.siguen_los_anteriores)
        resultado_.grabados = 0;
    // Lo leído que no alcanzó a resolverse no se cuenta: lo toma la que siga.
    resultado_.leidos = resultado_.grabados + resultado_.rechazados.size() + resultado_.omitidos +
                        resultado_.de_antes;
}

void Importacion::avise_lo_que_quedo(const LectorRegistros& lector) {
    if (lector.sin_fin().trimmed().isEmpty())
        return;
    resultado_.avisos << QStringLiteral("El último renglón no termina en fin de línea y no entró: "
                                        "%1")
                             .arg(QString::fromLatin1(lector.sin_fin().left(60)));
    if (anote)
        anote(resultado_.avisos.last(), llave_);
}

void Importacion::avance_de(qint64 leidos, qint64 total) {
    if (leidos < proximo_)
        return;
    proximo_ = leidos - leidos % paso_ + paso_;
    if (avance && !avance(que_, int(qMin<qint64>(100, leidos * 100 / total))))
        throw Cancelada();
}

QString Importacion::texto(const char* dato) const {
    return valores_.value(QLatin1String(dato)).texto();
}

Valor Importacion::valor(const char* dato) const {
    return valores_.value(QLatin1String(dato));
}

QString Importacion::lea(const RegistroLeido& registro, const QStringList& salvo) {
    valores_.clear();
    QStringList razones;
    for (const ColumnaImportacion& c : peticion_.columnas) {
        const DatoImportacion* dato = dato_de(peticion_.clase, c.dato);
        if (!dato || salvo.contains(c.dato))
            continue;
        const DatoLeido leido = lea_dato(*dato, registro.columna(c.columna));
        valores_[c.dato] = leido.valor;
        if (!leido.rechazo.isEmpty())
            razones << leido.rechazo;
    }
    return razones.join(' ');
}

QString Importacion::escriba(const std::function<void(Transaccion&)>& trabajo) {
    try {
        if (junto_)
            trabajo(*junto_);
        else
            conexion_.en_transaccion(ModoTransaccion::Escritura, trabajo);
    } catch (const ErrorBase& falla) {
        // Sin servidor no hay renglón que rehusar: se detiene todo.
        if (falla.conexion_perdida())
            throw;
        return falla.para_usuario();
    }
    return {};
}

void Importacion::todo_junto() {
    if (!junto_)
        junto_ = std::make_unique<Transaccion>(conexion_, ModoTransaccion::Escritura);
}

void Importacion::confirme_junto() {
    if (!peticion_.ensayo && junto_)
        junto_->confirme();
}

void Importacion::rechace(const RegistroLeido& registro, const QString& razon) {
    resultado_.rechazados.append({registro.renglon, registro.crudo, razon});
    if (diario)
        diario->rechazado(registro.renglon, razon);
}

const QStringList& Importacion::codigos(const QString& sql) {
    auto i = codigos_.find(sql);
    if (i == codigos_.end()) {
        i = codigos_.insert(sql, {});
        for (const auto c = conexion_.abra(sql); c->siguiente();)
            *i << c->valor(0).texto();
    }
    return *i;
}

// ---------------------------------------------------------------- reglas de las líneas

struct RevisorImportacion::Cuenta {
    std::optional<AtributosCuenta> atributos;
    bool nombrada = false, vale = false;
};

const RevisorImportacion::Cuenta& RevisorImportacion::cuenta(const QString& codigo) {
    auto& memoria = cuentas_[codigo];
    if (!memoria) {
        memoria = std::make_shared<Cuenta>();
        std::optional<Rechazo> inactiva;
        memoria->atributos = atributos_de_cuenta(conexion_, libro_, codigo);
        memoria->nombrada = !nombre_de_cuenta(conexion_, libro_, codigo, inactiva).isEmpty();
        memoria->vale = memoria->nombrada && !revise_cuenta(conexion_, libro_, codigo);
    }
    return *memoria;
}

bool RevisorImportacion::existe_cuenta(const QString& codigo) {
    return cuenta(codigo).nombrada;
}

bool RevisorImportacion::cuenta_vale(const QString& codigo) {
    return cuenta(codigo).vale;
}

bool RevisorImportacion::completa(const LineaImportada& l, bool retencion) {
    const auto& a = cuenta(l.cuenta).atributos;
    if (!a)
        return true;
    if (retencion && a->es_retencion() &&
        (l.nit.isEmpty() || l.base.es_cero() || l.porcentaje.es_cero()))
        return false;
    if (a->tercero == "S" && l.nit.isEmpty())
        return false;
    if (a->exige_centro() && (l.proyecto.isEmpty() || l.centro.isEmpty()))
        return false;
    return a->clase != "I" || !l.articulo.isEmpty();
}

void RevisorImportacion::revise_codigos(const LineaImportada& l, QStringList& razones) {
    const auto pregunte = [](QHash<QString, bool>& memoria, const QString& llave, auto f) {
        const auto i = memoria.constFind(llave);
        return i != memoria.constEnd() ? *i : *memoria.insert(llave, f());
    };
    if (!l.nit.isEmpty() &&
        !pregunte(terceros_, l.nit, [&] { return tercero_activo(conexion_, l.nit); }))
        razones << "NIT no encontrado " + l.nit;
    if (!l.proyecto.isEmpty() && !l.centro.isEmpty() &&
        !pregunte(centros_, l.proyecto + '-' + l.centro,
                  [&] { return !revise_centro(conexion_, l.proyecto, l.centro); }))
        razones << "Proyecto-centro no encontrado " + l.proyecto + "-" + l.centro;
}
