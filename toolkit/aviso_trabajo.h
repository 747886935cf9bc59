#pragma once
// Aviso de un trabajo largo que la base hace de un solo viaje: dice qué se está haciendo mientras
// la pantalla espera. No se puede cancelar, porque nada quedaría a medias.
#include <QString>
#include <memory>

class QProgressDialog;
class QWidget;

/// Antes de un trabajo que no deja pintar: la pregunta que se acaba de contestar no queda encima de
/// él. Lo que el usuario oprima mientras tanto espera su turno.
void repinte_lo_descubierto();

class AvisoTrabajo {
public:
    /// Se muestra al nacer, sobre la ventana de `padre`, y se quita al morir.
    AvisoTrabajo(QWidget* padre, const QString& texto);
    ~AvisoTrabajo();
    AvisoTrabajo(const AvisoTrabajo&) = delete;
    AvisoTrabajo& operator=(const AvisoTrabajo&) = delete;
    /// Cambia el texto y, si se sabe cuánto falta, la barra.
    void diga(const QString& texto, int hechos = 0, int total = 0);

private:
    std::unique_ptr<QProgressDialog> dialogo_;
};
