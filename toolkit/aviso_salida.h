#pragma once
// A dónde fue lo que se imprimió o se grabó. El piso de la sesión lo dice en la barra de estado.
#include <QString>
#include <functional>

class QPrinter;

/// Quién dice los avisos, y quién retira los que ya se resolvieron; sin nadie, se pierden.
void diga_salidas(std::function<void(const QString& texto)> quien,
                  std::function<void(const QString& texto)> retira = {});
/// Lo que la barra de estado dice con ese texto ya se corrigió: deja de verse.
void aviso_resuelto(const QString& texto);
/// Lo dice la barra de estado, sin detener a nadie.
void avise(const QString& texto);
/// "Grabado en /ruta/balance.pdf".
void avise_grabado(const QString& ruta);
/// "Impreso en la impresora del sistema: 3 páginas"; o grabado, si la impresora escribe un archivo.
void avise_impreso(const QPrinter& impresora, int paginas);
