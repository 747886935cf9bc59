#pragma once
// Botones para recorrer y editar un conjunto de datos.
#include "datos/recordset/conjunto.h"

#include <QToolButton>
#include <QWidget>

enum BotonNavegador : unsigned {
    nbFirst = 1,
    nbPrior = 2,
    nbNext = 4,
    nbLast = 8,
    nbInsert = 16,
    nbDelete = 32,
    nbEdit = 64,
    nbPost = 128,
    nbCancel = 256,
    nbRefresh = 512,
    nbRecorrido = nbFirst | nbPrior | nbNext | nbLast,
    nbTodos = 1023,
};

class NavegadorDatos : public QWidget, public EnlaceDatos {
    Q_OBJECT
public:
    explicit NavegadorDatos(ConjuntoDatos* conjunto = nullptr, unsigned botones = nbTodos,
                            QWidget* padre = nullptr);

    void ate(ConjuntoDatos* conjunto);
    void botones(unsigned visibles);
    QToolButton* boton(BotonNavegador cual) const;
    /// Pregunta antes de borrar.
    bool ConfirmDelete = true;

    void estado_cambiado() override;
    void fila_actual_cambiada() override;
    void filas_reiniciadas() override;
    void filas_insertadas(int desde, int cuantas) override;
    void filas_borradas(int desde, int cuantas) override;

private:
    void pulse(BotonNavegador cual);
    void actualice();
    QVector<QToolButton*> botones_;
};
