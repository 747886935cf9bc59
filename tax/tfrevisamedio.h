#pragma once
// Lo que conviene arreglar de un formato antes de enviarlo, y su cuadre con el libro.
//
// Con un problema señalado, Enter abre el tercero; al volver, las filas guardadas toman lo que se
// haya corregido en él. Después de grabar dice además lo que los archivos no cumplen de su esquema.
#include "datos/recordset/conjunto.h"
#include "tax/tercero_corregido.h"
#include "toolkit/pantalla.h"

class QLabel;
class Rejilla;
class TextoDeFila;

struct MedioRevisado {
    int formato = 0; ///< MEDM_FORMATO
    QString nombre = {}, ano = {}, inicio = {}, final = {};
};
/// Mirar el formato, con los archivos que se acaban de grabar si los hay.
struct AbreRevisionMedio {
    MedioRevisado medio = {};
    QStringList archivos = {};
};
/// Lo mismo antes de grabar: responde verdadero para grabar de todos modos.
struct PideRevisionMedio {
    using Respuesta = bool;
    MedioRevisado medio = {};
};

class Tfrevisamedio : public Pantalla {
    Q_OBJECT
public:
    Tfrevisamedio();

    ConjuntoDatos *CProblemas, *CCuadre;
    Rejilla *DBGridEh1, *DBGridEh2;
    QLabel* LResumen;
    TextoDeFila* ECausa;

    void FormCreate() override;
    void FormActivate() override;

private:
    void lea(const QString& aviso = {});
    void ponga_al_dia();
    void lea_archivos(const QStringList& archivos);
    void agregue_problema(const QString& concepto, const QString& nit, const QString& nombre,
                          const QString& causa);
    void SBTerceroClick();
    void SBGrabarClick();

    AbreRevisionMedio pedido_;
    QString nit_abierto_; ///< el tercero que se fue a corregir
    IdentificacionMedio identificacion_;
    QPushButton* SBGrabar;
};
