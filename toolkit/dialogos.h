#pragma once
// Mensajes y preguntas al usuario. Los textos son planos: nada en ellos se interpreta.
//
// Cada uno es un QMessageBox modal de objectName "dialogo"; Esc es siempre la salida que no cambia
// nada.
#include <QString>
#include <QStringList>
#include <functional>

void muestre_mensaje(const QString& texto);
void muestre_error(const QString& texto);
/// Botones "Sí" y "No"; Esc o cerrar es No.
bool pregunte(const QString& texto);
/// Como pregunte, con "No" ya escogido: lo que se va a perder o a pasar por alto pide decirlo.
bool pregunte_con_no(const QString& texto);

enum Respuesta { Ninguna = -1, Primera = 0, Segunda = 1 };
/// Un botón por rótulo; devuelve la posición del oprimido, o Ninguna si se cerró el diálogo.
/// `escogida`: la de Enter, que no pierde nada.
Respuesta pregunte_botones(const QString& texto, const QStringList& rotulos,
                           Respuesta escogida = Primera);

/// Mensaje que se quita solo: título "Advertencia", sin botones, hasta diez esperas de 500 ms o
/// Esc.
void mensaje_temporal(const QString& texto);
/// Reemplaza cómo espera `mensaje_temporal` entre rondas y devuelve la espera anterior.
std::function<void(int milisegundos)>
cambie_espera_de_mensajes(std::function<void(int milisegundos)> espera);
