// Reporte de fallas y avisos de la barra de estado.
#include "sesion/tfdm.h"

#include "datos/firebird/reloj.h"
#include "sesion/instalacion.h"
#include "toolkit/barraestado.h"

#include <QLocale>

void Tfdm::registre_en_archivo(const QString& texto) {
    // Una carpeta de solo lectura cuesta el registro y nada más.
    const QString ruta = diraplicacion_callada() + QStringLiteral("/ERRORES.TXT");
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::Append))
        return;
    QString linea = texto;
    linea.replace("\r\n", " ").replace('\n', ' ');
    archivo.write((reloj().ahora().toString(QStringLiteral("yyyy/MM/dd,HH:mm:ss")) + ',' + usuario +
                   ',' + linea + "\r\n")
                      .toLatin1());
}

void Tfdm::ManejarError(Proveedor* remitente, ConjuntoDatos* conjunto, const ErrorDatos& error) {
    const QString texto = error.texto();
    registre_en_archivo(texto);
    hubo_error = true;
    if (barra_)
        barra_->texto(texto);
    QString mensaje = texto;
    if (conjunto && !remitente) {
        mostrar_advertencia(conjunto->objectName() + ": " + texto);
        const QString prefijo = texto.left(30);
        if (prefijo == "Cannot delete master record wi")
            mensaje = "Error. Borre antes los detalles dependientes del registro.";
        if (prefijo.left(3) == "Fie") {
            QString lista;
            for (int i = 0; i < conjunto->FieldCount(); ++i) {
                const Campo& c = conjunto->Fields(i);
                if (c.Required && c.vacio())
                    lista += nombre_campo(c.FieldName) + ", ";
            }
            mensaje = "Los campos " + lista + " son obligatorios.";
        } else if (prefijo.left(3) == "key") {
            QString lista;
            const auto indice = conjunto->campos_indice();
            for (int i = 0; i < conjunto->FieldCount(); ++i)
                if (indice.contains(&conjunto->Fields(i)))
                    lista += nombre_campo(conjunto->Fields(i).FieldName) + ' ';
            mensaje = "Ya existe un registro con el mismo " + lista;
        }
    } else if (conjunto) {
        const QString fragmento = texto.mid(18, 20);
        const QString tabla = remitente->sentencia->objectName().mid(1);
        if (fragmento.startsWith("violation of PRIMARY"))
            mensaje = "Ya existe el registro en la tabla " + tabla;
        else if (fragmento.startsWith("violation of FOREIGN"))
            mensaje = "Está borrando o insertando un registro en la tabla " + tabla +
                      " que tiene una relación con otra tabla.";
    } else {
        const auto entre_comillas = [&texto] { return texto.section('"', 1, 1); };
        if (texto.startsWith("dbExpress")) {
            if (texto.contains("Your user name and password are not defined"))
                mensaje = "El nombre de Usuario o la clave son incorrectas.";
            else if (texto.contains("I/O error for file"))
                mensaje = "No se encontró el archivo o la ruta " + entre_comillas();
            else if (texto.contains("Unable to complete network request"))
                mensaje = "No se encontró el equipo servidor con nombre " + entre_comillas();
            else if (texto.contains("Connection failed"))
                mensaje = "No se encontró el servidor Interbase/Firebird. Verifique Servidor en "
                          "panel de control y puerto TCP 3050.";
            else
                mensaje = "Se presento el siguiente error: " + texto;
        } else {
            mensaje = "Se presento el siguiente error: " + texto;
        }
    }
    QApplication::beep();
    muestre_error(mensaje);
}

void Tfdm::ManejarClientError(ConjuntoDatos& conjunto, const ErrorDatos& error) {
    ManejarError(nullptr, &conjunto, error);
}

void Tfdm::ENoManejada(const QString& texto) {
    ManejarError(nullptr, nullptr, ErrorDatos(texto));
}

QString Tfdm::nombre_campo(const QString& nombre) {
    CNomcampos.Open();
    const QString descripcion = CNomcampos.Locate("NOMBRE", {nombre})
                                    ? CNomcampos.FieldByName("DESCRIPCION").texto()
                                    : nombre;
    CNomcampos.Close();
    return descripcion;
}

void Tfdm::mostrar_advertencia(const QString& texto) {
    const int decimas = entero(configuracion("GENERAL", "GENERAL", "DURACION DE LAS ADVERTENCIAS"));
    if (barra_)
        barra_->mostrar_advertencia(texto, decimas);
}

void Tfdm::mostrar_alerta(const QString& texto) {
    const int decimas = entero(configuracion("GENERAL", "GENERAL", "DURACION DE LAS ADVERTENCIAS"));
    if (barra_)
        barra_->mostrar_alerta(texto, decimas);
}

void Tfdm::mostrar_mensaje() {
    if (!sin_mensaje && barra_)
        barra_->mostrar_mensaje();
}

void Tfdm::quitar_mensaje() {
    if (barra_)
        barra_->quitar_mensaje();
}

void Tfdm::mensaje_error(const QString& texto) {
    mensaje_temporal(texto);
}
