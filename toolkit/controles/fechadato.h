#pragma once
// Fecha "aaaa/mm/dd", que puede quedar vacía.
#include "toolkit/controles/controldato.h"

#include <QDateEdit>

/// Sobre un campo de fecha guarda una fecha; sobre uno de texto, "aaaammdd". También sirve suelto,
/// sin campo, con `fecha()` y `fecha_texto()`.
class FechaDato : public QDateEdit, public ControlDato {
    Q_OBJECT
public:
    explicit FechaDato(QWidget* padre = nullptr);
    FechaDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);

    QWidget* widget() override { return this; }
    bool vacia() const;
    QDate fecha() const; ///< inválida si está vacía
    void fecha(QDate fecha);
    QString fecha_texto() const; ///< "aaaammdd" o vacío
    void fecha_texto(const QString& aaaammdd);
    /// Después de un cambio del usuario.
    std::function<void()> OnChange;
    QSize sizeHint() const override;
    void stepBy(int pasos) override;

protected:
    void muestre() override;
    Valor contenido() const override;
    void aplique_permiso() override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool focusNextPrevChild(bool siguiente) override;
    QString textFromDateTime(const QDateTime& momento) const override;
    QDateTime dateTimeFromText(const QString& texto) const override;
    QValidator::State validate(QString& texto, int& posicion) const override;
    StepEnabled stepEnabled() const override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;

private:
    void ponga(QDate fecha, const QString& texto_ajeno = {});
    void vacie_por_usuario();
    void arranque();
    /// Con toda la fecha escogida, como queda al recibir el foco, se empieza por el año.
    void entre_por_el_ano();
    bool vacia_ = true;
    bool poniendo_ = false;
    QString texto_ajeno_; ///< valor que no es fecha (mes 13 de ajustes); se muestra sin editar
};
