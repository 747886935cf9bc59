#pragma once
// Editor de una celda y la lista que despliega. No escribe en el campo: eso lo hace la rejilla.
#include <QLineEdit>
#include <QPointer>
#include <QStringList>
#include <functional>

class Campo;
class ListaSugerencias;
class MuestraOperacion;
class QListWidget;
struct Sugerencia;

class EditorCelda : public QLineEdit {
    Q_OBJECT
public:
    explicit EditorCelda(QWidget* padre);
    ~EditorCelda() override;

    /// `numerico`: a la derecha y con el decimal del teclado numérico.
    void prepare(const Campo& campo, bool numerico, const QString& titulo);
    /// La máscara del campo deja digitar ese texto.
    bool admite(const QString& texto) const;
    /// Reemplaza el contenido como si se hubiera digitado.
    void digite(const QString& texto);
    bool modificado() const { return modificado_; }
    void modificado(bool si) { modificado_ = si; }

    /// Lo que va al campo: el texto o, en un importe, el resultado de la operación digitada. Lanza
    /// ErrorDatos si la operación no se puede calcular.
    QString contenido() const;

    /// Qué ofrecer bajo la celda; nulo, nada.
    std::function<QVector<Sugerencia>(const QString&)> Sugiere;
    /// Ofrece para lo que está escrito, y muestra lo que daría una operación.
    void ayude();
    /// Hay sugerencias a la vista: Esc es de ellas.
    bool sugiriendo() const;
    /// La tecla era de las sugerencias.
    bool atienda_sugerencias(const QKeyEvent& tecla);

    QStringList opciones;
    /// Abre la lista bajo la celda, situada en lo escrito. Escoger emite `escogida`.
    void despliegue();

signals:
    void escogida();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void hideEvent(QHideEvent* evento) override;

private:
    void escoja();
    QPointer<ListaSugerencias> sugerencias_; ///< hija de la ventana: la rejilla no la recorta
    MuestraOperacion* resultado_;
    int decimales_ = -1; ///< de un importe, que admite operaciones; -1, no las admite
    QListWidget* lista_ = nullptr;
    bool numerico_ = false;
    bool modificado_ = false;
};
