#pragma once
// Pegar en una caja de una línea: la celda de una hoja de cálculo trae un salto al final.
#include <QClipboard>

class QLineEdit;

/// Pega sin saltos ni otros controles, y sin blancos en los extremos si es todo el texto de la
/// caja. Lo que no cabe o no entra lo dice la barra.
void pegue_en_linea(QLineEdit& caja, QClipboard::Mode de = QClipboard::Clipboard);
/// Se pegue como se pegue en la caja (teclas, menú o ratón), es con `pegue_en_linea`.
void cuide_lo_pegado(QLineEdit& caja);
