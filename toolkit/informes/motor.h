#pragma once
// Motor de informes: el servicio con que una pantalla imprime sus filas con una plantilla.
//
//     MotorInformes motor(this);
//     motor.ProjectFile = ruta_proyecto("auxiliares.rav");
//     motor.abrir_proyecto(motor.ProjectFile);
//     motor.fijar_parametro("Titulo", ETit->text());
//     motor.conecte("RAuxiliarcta", CAuxiliar);
//     motor.seleccionar_reporte("Cuentas");
//     motor.fijar_texto("cuentas.Page1", "Text1", "Auxiliar por cuenta NIIF");
//     motor.ejecutar();
//     motor.cerrar();
//
// `ejecutar` muestra "Opciones de impresión", compone las hojas recorriendo el conjunto una sola
// vez y las lleva a la vista preliminar, la impresora o un archivo. Las fallas de plantilla, disco
// o impresora salen como ErrorInforme o ErrorExportacion y no dejan nada a medias.
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
    /// Nombre que se sugiere al grabar, sin extensión.
    QString nombre_archivo = QStringLiteral("Informe");

    /// Abre la plantilla del disco (la propia de la compañía) o, si no está, la del programa.
    void abrir_proyecto(const QString& ruta);
    void fijar_parametro(const QString& nombre, const QString& valor);
    void fijar_imagen(const QString& nombre, const QImage& imagen);
    /// El conjunto que la plantilla conoce con ese nombre de conexión.
    void conecte(const QString& conexion, ConjuntoDatos& conjunto);
    void seleccionar_reporte(const QString& nombre);
    /// Los tres lanzan ErrorInforme si la página, el item o la banda no están en el proyecto.
    void fijar_texto(const QString& pagina, const QString& item, const QString& texto);
    /// Una columna vacía deja la banda por fuera.
    void fijar_grupo(const QString& pagina, const QString& banda, const QString& columna);
    /// Falso si el usuario canceló.
    bool ejecutar();
    void cerrar();

    /// Documento dibujado por el cliente en vez de por una plantilla.
    using Trabajo = std::function<void(informes::Hojas&)>;
    bool ejecutar_trabajo(const Trabajo& trabajo);

    /// Impresión de varios documentos como uno solo: las opciones se piden una vez, antes del
    /// primero, y `termine_lote` los saca juntos. Falso si no se imprimió nada.
    void comience_lote();
    bool termine_lote();

private:
    informes::Reporte& reporte_de(const QString& pagina);
    bool pida_opciones();
    bool corra(const std::function<bool(informes::Hojas&, const informes::Compositor::Avance&)>& f);
    void saque(const informes::Hojas& hojas);
    QString titulo() const;

    QPointer<QWidget> ventana_;
    std::unique_ptr<informes::Proyecto> proyecto_;
    QString seleccionado_;
    informes::Variables variables_;
    QMap<QString, ConjuntoDatos*> conexiones_;
    informes::OpcionesReporte opciones_;
    std::unique_ptr<informes::Hojas> lote_;
    informes::Compositor::Avance avance_lote_;
    bool lote_pedido_ = false, lote_cancelado_ = false;
};
