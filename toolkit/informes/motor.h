#pragma once
// Motor de informes: el servicio con que una pantalla imprime sus filas con una plantilla.
//
//     MotorInformes motor(this);
//     motor.ProjectFile = ruta_informe("auxiliares.rav");
//     motor.abrir_proyecto(motor.ProjectFile);
//     motor.fijar_parametro("Titulo", ETit->text());
//     motor.conecte("RAuxiliarcta", CAuxiliar);
//     motor.seleccionar_reporte("Cuentas");
//     motor.fijar_texto("cuentas.Page1", "Text1", "Auxiliar por cuenta NIIF");
//     motor.ejecutar();
//     motor.cerrar();
//
// `ejecutar` compone las hojas recorriendo el conjunto una sola vez, avisa con `al_componer`,
// muestra "Opciones de impresión" y las lleva a la vista preliminar, la impresora o un archivo.
// Las fallas de plantilla, disco o impresora salen como ErrorInforme o ErrorExportacion y no dejan
// nada a medias.
#include "toolkit/informes/compositor.h"
#include "toolkit/informes/opciones_impresion.h"

#include <QPointer>
#include <memory>

class MotorInformes {
public:
    explicit MotorInformes(QWidget* ventana = nullptr);
    ~MotorInformes();

    QString ProjectFile;
    /// Falso: el destino que se propone es la impresora.
    bool vista_previa = true;
    /// La que se propone; vacía, la escogida para la sesión o la del sistema.
    QString impresora;
    /// Nombre que se sugiere al grabar, sin extensión.
    QString nombre_archivo = QStringLiteral("Informe");
    /// Nombre del trabajo en la cola de la impresora; vacío, el título del informe.
    QString nombre_trabajo;
    /// Las hojas ya están y falta mostrarlas: aquí se sueltan las filas, para que nadie tenga
    /// abierta una foto de la base mientras lee.
    std::function<void()> al_componer;

    /// Abre la plantilla del disco (la propia de la compañía) o, si no está, la del programa.
    void abrir_proyecto(const QString& ruta);
    void fijar_parametro(const QString& nombre, const QString& valor);
    void fijar_imagen(const QString& nombre, const QImage& imagen);
    /// De los importes en letras.
    void fijar_letras(const QString& moneda, const QString& fraccion, const QString& final);
    /// El conjunto que la plantilla conoce con ese nombre de conexión.
    void conecte(const QString& conexion, ConjuntoDatos& conjunto);
    void seleccionar_reporte(const QString& nombre);
    /// Los dos lanzan ErrorInforme si la página, el item o la banda no están en el proyecto.
    void fijar_texto(const QString& pagina, const QString& item, const QString& texto);
    /// `banda`: una banda, o un grupo declarado en el reporte. La columna (o las columnas) pasa a
    /// todas las bandas que comparten el grupo; vacía, deja por fuera la banda, o las del grupo.
    void fijar_grupo(const QString& pagina, const QString& banda, const QString& columna);
    /// Falso si el usuario canceló.
    bool ejecutar();
    /// Compone el reporte al final del documento, sin sacarlo: sus páginas siguen la numeración de
    /// las que ya hay. Falso si el usuario lo abandonó, y entonces no queda documento.
    bool agregue();
    /// Pide las opciones y saca lo agregado. Falso si el usuario canceló.
    bool saque_documento();
    /// Graba el informe en ese archivo, sin preguntar nada.
    void ejecutar_en(const QString& ruta,
                     informes::FormatoArchivo formato = informes::FormatoArchivo::Pdf);
    void cerrar();

    /// Documento dibujado por el cliente en vez de por una plantilla. Las opciones se piden antes:
    /// el papel que se escoja es el de sus hojas.
    using Trabajo = std::function<void(informes::Hojas&)>;
    bool ejecutar_trabajo(const Trabajo& trabajo);

    /// Impresión de varios documentos como uno solo: las opciones se piden una vez, ahora (falso si
    /// el usuario canceló), y `termine_lote` los saca juntos. Falso si no se imprimió nada.
    bool comience_lote();
    bool termine_lote();

private:
    class Avance;
    informes::Reporte& reporte_de(const QString& pagina);
    bool componga(informes::Hojas& hojas, const informes::Compositor::Avance& avance);
    bool pida_opciones();
    void saque(const informes::Hojas& hojas);
    QString titulo() const;

    QPointer<QWidget> ventana_;
    std::unique_ptr<informes::Proyecto> proyecto_;
    /// Como se leyó, mientras dura un lote: leer la plantilla cuesta más que componer una hoja.
    std::unique_ptr<informes::Proyecto> leido_;
    QString seleccionado_;
    informes::Variables variables_;
    QMap<QString, ConjuntoDatos*> conexiones_;
    informes::OpcionesReporte opciones_;
    std::unique_ptr<informes::Hojas> documento_; ///< lo agregado y sin sacar
    bool en_lote_ = false, lote_cancelado_ = false;
    std::unique_ptr<Avance> avance_lote_;
};
