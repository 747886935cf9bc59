#pragma once
// Documentos PDF guardados con un maestro (tercero, activo fijo): la lista, que muestra el señalado
// en el visor del sistema, y la pantalla que agrega uno.
#include "datos/recordset/conjunto.h"
#include "sesion/visor_documento.h"
#include "toolkit/pantalla.h"

class EditorDato;
class QLineEdit;
class Rejilla;

/// Tabla de los documentos de un maestro y cómo se habla de él.
struct DatosDocumentos {
    const char *lista, *nuevo; ///< clases de las dos pantallas
    const char *titulo, *titulo_nuevo, *vacio;
    const char *tabla, *llave, *item, *nombre, *archivo; ///< columnas
    Sentencia& (*sentencia)(QObject* dueno);             ///< por la que se leen
    void (*campos)(ConjuntoDatos& c);
    int opcion_borrar;
};

class PantallaDocumentos : public Pantalla {
    Q_OBJECT
public:
    explicit PantallaDocumentos(const DatosDocumentos& datos);
    void FormCreate() override;
    bool FormClose() override;

protected:
    /// El maestro con que se abrió.
    virtual QString maestro() const = 0;
    virtual QString modulo() const { return QStringLiteral("CONTABILIDAD"); }
    virtual bool abra_nuevo(const QString& maestro) = 0; ///< verdadero si agregó
    /// Nombre del archivo que abre el visor, sin extensión.
    virtual QString nombre_archivo() const = 0;

    const DatosDocumentos& datos_;
    ConjuntoDatos& CDocs;
    QString maestro_;

private:
    void PngSpeedButton1Click();
    void PngSpeedButton3Click();

    ConjuntoDatos& CBorrar;
    Rejilla* DBGridEh1;
    VisorDocumento visor_;
};

class NuevoDocumento : public Pantalla {
    Q_OBJECT
public:
    explicit NuevoDocumento(const DatosDocumentos& datos);
    void FormCreate() override;
    bool FormClose() override;

protected:
    virtual QString maestro() const = 0;

private:
    void SBExaminarClick();
    void SBGrabarClick();

    const DatosDocumentos& datos_;
    ConjuntoDatos &CDocs, &CBorrar;
    EditorDato* ENombre;
    QLineEdit* EArchivo;
};
