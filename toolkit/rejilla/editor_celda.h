#pragma once
// Editor de una celda y la lista que despliega. No escribe en el campo: eso lo hace la rejilla.
#include <QLineEdit>
#include <QStringList>

class Campo;
class QListWidget;

class EditorCelda : public QLineEdit {
    Q_OBJECT
public:
    explicit EditorCelda(QWidget* padre);

    /// `numerico`: a la derecha y con el decimal del teclado numérico.
    void prepare(const Campo& campo, bool numerico, const QString& titulo);
    /// La máscara del campo deja digitar ese texto.
    bool admite(const QString& texto) const;
    /// Reemplaza el contenido como si se hubiera digitado.
    void digite(const QString& texto);
    bool modificado() const { return modificado_; }
    void modificado(bool si) { modificado_ = si; }

    QStringList opciones;
    /// Abre la lista bajo la celda, situada en lo escrito. Escoger emite `escogida`.
    void despliegue();
    bool desplegada() const;

signals:
    void escogida();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void escoja();
    QListWidget* lista_ = nullptr;
    bool numerico_ = false;
    bool modificado_ = false;
};
