#include "sesion/archivo_borrador.h"

#include "toolkit/dialogos.h"

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
class ArchivoBorrador::Enlace : public EnlaceDatos {
public:
    Enlace(ArchivoBorrador& b, ConjuntoDatos& conjunto) : b_(b) { enlace(&conjunto); }
    void campo_cambiado(Campo*) override { b_.marque(); }
    void filas_reiniciadas() override { b_.marque(); }
    void filas_insertadas(int, int) override { b_.marque(); }
    void filas_borradas(int, int) override { b_.marque(); }
    void fila_modificada(int) override { b_.marque(); }

private:
    ArchivoBorrador& b_;
};

ArchivoBorrador::ArchivoBorrador(const QString& llave, const QVector<ConjuntoDatos*>& conjuntos,
                                 QObject* dueno)
    : QObject(dueno), conjuntos_(conjuntos) {
    const QByteArray nombre =
        QCryptographicHash::hash(llave.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    carpeta_ = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
               "/quorvex/borradores/" + QString::fromLatin1(nombre);
    for (ConjuntoDatos* d : conjuntos)
        enlaces_.push_back(std::make_unique<Enlace>(*this, *d));
    reloj_.setSingleShot(true);
    connect(&reloj_, &QTimer::timeout, this, &ArchivoBorrador::guarde);
}

ArchivoBorrador::~ArchivoBorrador() = default;

void ArchivoBorrador::marque() {
    if (!sigue_)
        return;
    if (!reloj_.isActive())
        espera_.start();
    // Uno largo se escribe cuando quien digita hace una pausa, para que no lo sienta; si no la
    // hace, al cabo de un rato de todas maneras.
    int filas = 0;
    for (const ConjuntoDatos* c : conjuntos_)
        filas += c->RecordCount();
    if (filas > kFilasLargo && espera_.elapsed() < kMsSinPausa)
        reloj_.start(kMsPausa);
    else if (!reloj_.isActive())
        reloj_.start(kMsDespuesDeLaTecla);
}

bool ArchivoBorrador::abra_archivo() {
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

void ArchivoBorrador::siga() {
    sigue_ = true;
    marque(); // lo que se retomó de otro vuelve a estar a salvo
}

bool ArchivoBorrador::guarde() {
    reloj_.stop();
    if (!sigue_ || !conjuntos_.first()->Active())
        return false;
    const QByteArray texto = contenido();
    if (texto.isEmpty()) {
        if (candado_)
            QFile::remove(archivo_);
        return false;
    }
    // Un disco lleno no le quita lo digitado de las manos a quien digita: solo no hay borrador.
    if (!abra_archivo())
        return false;
    QSaveFile f(archivo_);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    f.write(texto);
    return f.commit();
}

void ArchivoBorrador::descarte() {
    reloj_.stop();
    if (!candado_)
        return;
    QFile::remove(archivo_);
    candado_.reset();
}

bool ArchivoBorrador::tome_el_huerfano(const std::function<bool(const QByteArray&)>& lea) {
    const QDir carpeta(carpeta_);
    for (const QString& nombre :
         carpeta.entryList({QStringLiteral("*") + kExtension}, QDir::Files, QDir::Time)) {
        const QString ruta = carpeta.filePath(nombre);
        auto candado = std::make_unique<QLockFile>(ruta + ".candado");
        candado->setStaleLockTime(0);
        if (!candado->tryLock(0))
            continue; // otro programa, u otra pantalla, lo está digitando
        QFile f(ruta);
        const bool leido = f.open(QIODevice::ReadOnly) && lea(f.readAll());
        const bool vacio = f.size() == 0;
        f.close();
        const QString aparte = ruta + ".ilegible";
        if (leido) { // de a uno por vez: los demás quedan para la próxima pantalla
            huerfano_ = ruta;
            candado_huerfano_ = std::move(candado);
            return true;
        }
        if (vacio)
            QFile::remove(ruta);
        else if (QFile::rename(ruta, aparte))
            muestre_mensaje("Lo que quedó sin grabar lo guardó otra versión del programa, y esta "
                            "no lo puede leer. El archivo queda aparte: " +
                            aparte);
    }
    return false;
}

void ArchivoBorrador::resuelva_huerfano() {
    if (!candado_huerfano_)
        return;
    QFile::remove(huerfano_);
    candado_huerfano_.reset();
}
