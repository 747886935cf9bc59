#pragma once
// Primera columna de una tabla ancha, quieta sobre ella mientras lo demás se corre: sin los nombres
// de las filas las cifras de la derecha no dicen nada. Aparece solo cuando la tabla se corrió.
#include <QTableView>

class ColumnaFija : public QTableView {
    Q_OBJECT
public:
    /// La tabla ya tiene su modelo; queda corriéndose por pixeles.
    explicit ColumnaFija(QTableView* tabla);

    /// Cuánto de una celda de la tabla queda debajo, en pixeles.
    int tapado(const QModelIndex& celda) const;

signals:
    void fila_pulsada(int fila);
    void fila_doble_pulsada(int fila);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void acomode();
    QTableView* tabla_;
};
