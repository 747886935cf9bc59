#pragma once
// "Renglones rechazados": lo que la última importación no recibió, con su razón. Se graban en un
// archivo igual al original para corregirlos y leerlos otra vez.
#include "datos/recordset/conjunto.h"
#include "exchange/asistente_importacion.h"
#include "toolkit/pantalla.h"

class Rejilla;
class TextoDeFila;

class Tfrechazosimp : public Pantalla {
    Q_OBJECT
public:
    Tfrechazosimp();

    ConjuntoDatos CRechazos{this, "CRechazos"}; ///< en memoria
    Rejilla* DBGridEh1;
    TextoDeFila* ERazon;

    void FormCreate() override;

    /// Graba los renglones como estaban en el archivo.
    static void grabe(const QVector<RenglonRechazado>& renglones, const QString& ruta);

private:
    void SBGrabarClick();
    AbreRechazos rechazos_;
};
