#pragma once
// Cajas donde se digita una fecha contable, que se guarda "aaaammdd".

class QLineEdit;

/// La caja admite también "aaaa/mm/dd" y "aaaa-mm-dd", digitadas o pegadas: completas, quedan como
/// se guardan.
void admita_barras(QLineEdit* caja);
