#include "toolkit/exportacion/flujo_ole.h"

#include "toolkit/exportacion/archivo_salida.h"

// GLib usa esta palabra como nombre de campo y Qt la define como macro.
#undef signals
#include <gsf/gsf.h>
#define signals Q_SIGNALS // para las fuentes que se compilen después con esta

#include <cerrno>
#include <cstdio>
#include <mutex>
#include <unistd.h>

namespace exportacion {

struct FlujoOle::Objetos {
    const ArchivoSalida& salida;
    GsfOutput* archivo = nullptr;
    GsfOutfile* contenedor = nullptr;
    GsfOutput* flujo = nullptr;
    QByteArray pendiente;

    explicit Objetos(const ArchivoSalida& destino) : salida(destino) {}

    ~Objetos() {
        // Cada objeto se cierra solo al soltarlo, de dentro hacia fuera.
        if (flujo)
            g_object_unref(flujo);
        if (contenedor)
            g_object_unref(contenedor);
        if (archivo)
            g_object_unref(archivo);
    }

    // La causa la conoce el archivo, no las capas que lo envuelven.
    void exija(gboolean bien) const {
        if (bien)
            return;
        const int numero_error = errno;
        const GError* error = gsf_output_error(archivo);
        salida.falle(error ? error->code : numero_error);
    }

    void vacie() {
        errno = 0;
        exija(gsf_output_write(flujo, pendiente.size(),
                               reinterpret_cast<const guint8*>(pendiente.constData())));
        pendiente.resize(0);
    }
};

FlujoOle::FlujoOle(ArchivoSalida& salida, const char* nombre, const unsigned char (&clase)[16])
    : objetos_(std::make_unique<Objetos>(salida)) {
    static std::once_flag iniciada;
    std::call_once(iniciada, gsf_init);

    // libgsf cierra lo que recibe: se le da una copia del descriptor.
    const int copia = dup(salida.descriptor());
    FILE* corriente = copia < 0 ? nullptr : fdopen(copia, "wb");
    if (!corriente) {
        const int numero_error = errno;
        if (copia >= 0)
            close(copia);
        salida.falle(numero_error);
    }
    objetos_->archivo = gsf_output_stdio_new_FILE("libro", corriente, FALSE);
    objetos_->contenedor = gsf_outfile_msole_new(objetos_->archivo);
    gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(objetos_->contenedor), clase);
    objetos_->flujo = gsf_outfile_new_child(objetos_->contenedor, nombre, FALSE);
}

FlujoOle::~FlujoOle() = default;

void FlujoOle::escriba(const QByteArray& bytes) {
    constexpr qsizetype kBloque = 64 * 1024;
    objetos_->pendiente += bytes;
    if (objetos_->pendiente.size() >= kBloque)
        objetos_->vacie();
}

qint64 FlujoOle::posicion() const {
    return gsf_output_tell(objetos_->flujo) + objetos_->pendiente.size();
}

void FlujoOle::corrija(qint64 posicion, const QByteArray& bytes) {
    objetos_->vacie();
    const gsf_off_t final_actual = gsf_output_tell(objetos_->flujo);
    objetos_->exija(gsf_output_seek(objetos_->flujo, posicion, G_SEEK_SET));
    objetos_->exija(gsf_output_write(objetos_->flujo, bytes.size(),
                                     reinterpret_cast<const guint8*>(bytes.constData())));
    objetos_->exija(gsf_output_seek(objetos_->flujo, final_actual, G_SEEK_SET));
}

void FlujoOle::cierre() {
    objetos_->vacie();
    objetos_->exija(gsf_output_close(objetos_->flujo));
    // El contenedor cierra también el archivo, cuyo último tramo puede fallar aún.
    errno = 0;
    objetos_->exija(gsf_output_close(GSF_OUTPUT(objetos_->contenedor)));
}

} // namespace exportacion
