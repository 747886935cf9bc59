#pragma once
// Lo que una caja no pudo guardar sigue en ella, señalado, hasta que se corrija o se repone con
// Esc.

class QWidget;

/// Deja escogida la letra que la base no guarda, o todo si no es una letra. Falso si el control no
/// es de texto: no hay nada que corregir en él.
bool senale_lo_rehusado(QWidget& control);
/// Con el foco en una caja que conserva lo rehusado, repone lo que había. Falso si no la hay.
bool reponga_lo_rehusado(QWidget* foco, bool solo_pregunta);
