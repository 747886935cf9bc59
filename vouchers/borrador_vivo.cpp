#include "vouchers/borrador_vivo.h"

#include "datos/firebird/reloj.h"
#include "libro/columnas_comprobante.h"

#include <QCryptographicHash>
#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>

namespace {
constexpr int kMsDespuesDeLaTecla = 400, kFilasLargo = 200, kMsPausa = 1500, kMsSinPausa = 20000;
constexpr const char* kExtension = ".borrador";
} // namespace

/// Avisa de todo lo que cambie en un conjunto.
class BorradorVivo::Enlace : public EnlaceDatos {
public:
    Enlace(BorradorVivo& b, ConjuntoDatos& conjunto) : b_(b) { enlace(&conjunto); }
    void campo_cambiado(Campo*) override { b_.marque(); }
    void filas_reiniciadas() override { b_.marque(); }
    void filas_insertadas(int, int) override { b_.marque(); }
    void filas_borradas(int, int) override { b_.marque(); }
    void fila_modificada(int) override { b_.marque(); }

private:
    BorradorVivo& b_;
};

BorradorVivo::BorradorVivo(const ConjuntosComprobante& conjuntos, const QString& llave,
                           std::function<QString()> dia, QObject* dueno)
    : QObject(dueno), c_(conjuntos), dia_(std::move(dia)) {
    const QByteArray nombre =
        QCryptographicHash::hash(llave.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    carpeta_ = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
               "/quorvex/borradores/" + QString::fromLatin1(nombre);
    for (ConjuntoDatos* d : {&c_.encabezado, &c_.lineas_2649, &c_.lineas_niif})
        enlaces_.push_back(std::make_unique<Enlace>(*this, *d));
    reloj_.setSingleShot(true);
    connect(&reloj_, &QTimer::timeout, this, &BorradorVivo::guarde);
}

BorradorVivo::~BorradorVivo() = default;

void BorradorVivo::marque() {
    if (!sigue_)
        return;
    if (!reloj_.isActive())
        espera_.start();
    // Uno largo se escribe cuando quien digita hace una pausa, para que no lo sienta; si no la
    // hace, al cabo de un rato de todas maneras.
    const int filas = c_.lineas_2649.filas_en_memoria() + c_.lineas_niif.filas_en_memoria();
    if (filas > kFilasLargo && espera_.elapsed() < kMsSinPausa)
        reloj_.start(kMsPausa);
    else if (!reloj_.isActive())
        reloj_.start(kMsDespuesDeLaTecla);
}

Comprobante BorradorVivo::en_pantalla() const {
    Comprobante c = lea_comprobante(c_);
    for (Libro libro : {Libro::Decreto2649, Libro::Niif}) {
        const ConjuntoDatos& d = c_.lineas(libro);
        // La que se está insertando aún no es de las líneas, pero ya está escrita.
        if (d.State() != Estado::Insercion || d.FieldByName("CUEN_COD").vacio())
            continue;
        LineaComprobante l;
        for (const auto& columna : columnas_linea(libro))
            columna.ponga(l, d.FieldByName(QLatin1String(columna.nombre)).valor());
        c.lineas(libro).append(l);
    }
    return c;
}

bool BorradorVivo::abra_archivo() {
    if (candado_)
        return true;
    // Del usuario y de nadie más: son sus asientos.
    if (!QDir().mkpath(carpeta_))
        return false;
    QFile::setPermissions(carpeta_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    archivo_ = carpeta_ + '/' + QUuid::createUuid().toString(QUuid::Id128) + kExtension;
    candado_ = std::make_unique<QLockFile>(archivo_ + ".candado");
    candado_->setStaleLockTime(0); // nunca por viejo: solo si su programa ya no vive
    if (candado_->tryLock(0))
        return true;
    candado_.reset();
    return false;
}

void BorradorVivo::guarde() {
    reloj_.stop();
    if (!sigue_ || !c_.encabezado.Active() || c_.encabezado.IsEmpty())
        return;
    const Comprobante c = en_pantalla();
    if (c.lineas_2649.isEmpty() && c.lineas_niif.isEmpty() && c.concepto.isEmpty()) {
        if (candado_)
            QFile::remove(archivo_);
        return;
    }
    // Un disco lleno no le quita el comprobante de las manos a quien digita: solo no hay borrador.
    if (!abra_archivo())
        return;
    QSaveFile f(archivo_);
    if (!f.open(QIODevice::WriteOnly))
        return;
    f.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    f.write(escriba_borrador({reloj().ahora(), dia_(), c}));
    f.commit();
}

void BorradorVivo::descarte() {
    reloj_.stop();
    if (!candado_)
        return;
    QFile::remove(archivo_);
    candado_.reset();
}

std::optional<Borrador> BorradorVivo::tome_huerfano() {
    const QDir carpeta(carpeta_);
    for (const QString& nombre :
         carpeta.entryList({QStringLiteral("*") + kExtension}, QDir::Files, QDir::Time)) {
        const QString ruta = carpeta.filePath(nombre);
        QLockFile candado(ruta + ".candado");
        candado.setStaleLockTime(0);
        if (!candado.tryLock(0))
            continue; // otro programa, u otra pantalla, lo está digitando
        QFile f(ruta);
        const auto leido =
            f.open(QIODevice::ReadOnly) ? lea_borrador(f.readAll()) : std::optional<Borrador>();
        f.close();
        // De a uno por vez: los demás quedan para la próxima pantalla. Lo que no se entiende no se
        // vuelve a mirar.
        QFile::remove(ruta);
        if (leido)
            return leido;
    }
    return {};
}
