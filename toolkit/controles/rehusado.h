#pragma once
// Lo que una caja no pudo guardar sigue en ella, señalado, hasta que se corrija o se repone con
// Esc. Con ello se va de la barra de estado la razón.
class QWidget;

/// Deja escogida la letra que la base no guarda, o todo si no es una letra. Falso si el control no
/// es de texto: no hay nada que corregir en él.
bool senale_lo_rehusado(QWidget& control);
/// La falla en curso (solo dentro de un catch) es de ese control.
void recuerde_la_razon(QWidget& control);
/// Lo de ese control ya se corrigió o se dejó.
void olvide_la_razon(QWidget& control);
/// Con el foco en una caja que conserva lo rehusado, repone lo que había; un texto de varios
/// renglones no se lo lleva: deja el cursor donde se corrige. Falso si no la hay.
bool reponga_lo_rehusado(QWidget* foco, bool solo_pregunta);
