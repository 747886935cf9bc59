// Reporte de fallas y avisos de la barra de estado.
#include "sesion/tfdm.h"

#include "datos/firebird/nombres.h"
#include "datos/firebird/reloj.h"
#include "sesion/aviso_de_fila.h"
#include "sesion/instalacion.h"
#include "toolkit/barraestado.h"
#include "toolkit/historia_avisos.h"
#include "toolkit/proteccion.h"

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

QString Tfdm::mensaje_en_memoria(ConjuntoDatos& conjunto, const ErrorDatos& error) {
    const QString prefijo = error.texto().left(30);
    if (prefijo.left(3) == "Fie") {
        QString lista;
        for (int i = 0; i < conjunto.FieldCount(); ++i) {
            const Campo& c = conjunto.Fields(i);
            if (c.Required && c.vacio())
                lista += nombre_campo(c.FieldName) + ", ";
        }
        return "Los campos " + lista + " son obligatorios.";
    }
    if (prefijo.left(3) == "key") {
        QString lista;
        const auto indice = conjunto.campos_indice();
        for (int i = 0; i < conjunto.FieldCount(); ++i)
            if (indice.contains(&conjunto.Fields(i)))
                lista += nombre_campo(conjunto.Fields(i).FieldName) + ' ';
        return "Ya existe un registro con el mismo " + lista;
    }
    if (prefijo == "Cannot delete master record wi")
        return "Error. Borre antes los detalles dependientes del registro.";
    return error.para_usuario();
}

QString Tfdm::mensaje_al_grabar(const Proveedor& remitente, const ErrorDatos& error) {
    const QString fragmento = error.texto().mid(18, 20);
    const QString tabla = remitente.sentencia->objectName().mid(1);
    if (fragmento.startsWith("violation of PRIMARY"))
        return "Ya existe el registro en la tabla " + tabla;
    if (!fragmento.startsWith("violation of FOREIGN"))
        return error.para_usuario();
    QString mensaje = "Está borrando o insertando un registro en la tabla " + tabla +
                      " que tiene una relación con otra tabla.";
    // Dónde se usa lo que se quería borrar, o qué falta registrar.
    if (const auto* motor = dynamic_cast<const ErrorBase*>(&error))
        mensaje += ' ' + motor->para_usuario();
    return mensaje;
}

QString Tfdm::mensaje_no_manejada(const ErrorDatos& error) {
    const QString& texto = error.texto();
    const auto entre_comillas = [&texto] { return texto.section('"', 1, 1); };
    if (texto.startsWith("dbExpress")) {
        if (texto.contains("Your user name and password are not defined"))
            return "El nombre de Usuario o la clave son incorrectas.";
        if (texto.contains("I/O error for file"))
            return "No se encontró el archivo o la ruta " + entre_comillas();
        if (texto.contains("Unable to complete network request"))
            return "No se encontró el equipo servidor con nombre " + entre_comillas();
        if (texto.contains("Connection failed"))
            return "No se encontró el servidor Interbase/Firebird. Verifique Servidor en panel de "
                   "control y puerto TCP 3050.";
    }
    return "Se presento el siguiente error: " + error.para_usuario();
}

void Tfdm::ManejarError(Proveedor* remitente, ConjuntoDatos* conjunto, const ErrorDatos& error) {
    const QString& texto = error.texto();
    // Lo que dijo el motor sirve a quien da soporte, y a nadie más.
    registre_en_archivo(error.detalle().isEmpty() ? texto : texto + " | " + error.detalle());
    hubo_error = true;
    const qint64 antes = ultimo_aviso(barra_);
    if (barra_)
        barra_->texto(texto);
    QString mensaje;
    if (conjunto && !remitente) {
        // La falla se dice aunque la barra no se pueda usar.
        proteja([&] { advierta_de_fila(*conjunto, conjunto->objectName() + ": " + texto); });
        mensaje = mensaje_en_memoria(*conjunto, error);
    } else if (conjunto) {
        mensaje = mensaje_al_grabar(*remitente, error);
    } else {
        mensaje = mensaje_no_manejada(error);
    }
    if (barra_)
        aviso_de_pantalla(*barra_, antes);
    QApplication::beep();
    muestre_error(mensaje);
}

void Tfdm::ManejarClientError(ConjuntoDatos& conjunto, const ErrorDatos& error) {
    ManejarError(nullptr, &conjunto, error);
}

void Tfdm::ENoManejada(const ErrorDatos& falla) {
    ManejarError(nullptr, nullptr, falla);
}

void Tfdm::instale_nombres() {
    const auto del_diccionario = [this](const QString& nombre) {
        const QString descripcion = nombre_campo(nombre);
        return descripcion == nombre ? QString() : descripcion;
    };
    instale_nombres_de_datos({del_diccionario, del_diccionario, [this] {
                                  QStringList otros;
                                  auto c = ConGeneral.abra(
                                      "select usua_cod from usuario where feccon = current_date "
                                      "and usua_cod <> ? order by usua_cod",
                                      {ConGeneral.parametros().usuario});
                                  while (c->siguiente())
                                      otros << c->valor(0).texto();
                                  return otros;
                              }});
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
    const int decimas = valor<Llave::DuracionAdvertencias>();
    if (barra_)
        barra_->mostrar_advertencia(texto, decimas);
}

void Tfdm::mostrar_alerta(const QString& texto) {
    const int decimas = valor<Llave::DuracionAdvertencias>();
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
