#pragma once
// Editor de texto con formato: letra, negrita, cursiva, listas, alineación y tablas de cifras.
//
// Lo escrito se lee y se entrega como HTML, con los caracteres que la base no guarda como entidades
// numéricas: nada se pierde al grabarlo. Ctrl+B, Ctrl+I y Ctrl+U son negrita, cursiva y subrayado;
// en una tabla, Tab pasa a la celda siguiente y, en la última, agrega una fila.
#include <QWidget>

class QAction;
class QComboBox;
class QFontComboBox;
class QTextCharFormat;
class QTextEdit;
class QToolBar;

class EditorRico : public QWidget {
    Q_OBJECT
public:
    explicit EditorRico(QWidget* padre = nullptr);

    QTextEdit* texto;
    QFontComboBox* letra; ///< empieza en "Arial"

    /// HTML de lo escrito; vacío si no hay nada.
    QString html() const;
    void html(const QString& html);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void arme_letras();
    void arme_parrafos();
    void arme_tablas();
    QAction* orden(const QString& nombre, const QString& rotulo, const QString& icono,
                   const QKeySequence& tecla, bool conmuta, std::function<void(bool)> accion);
    void aplique(const QTextCharFormat& formato);
    void liste(bool si, int estilo);
    void alinee(Qt::Alignment lado);
    void inserte_tabla();
    void refleje(); ///< los botones dicen cómo está lo que se va a escribir

    QToolBar* barra_;
    QComboBox* cuerpo_;
    QAction *negrita_, *cursiva_, *subrayado_, *vinetas_, *numeros_;
    QVector<QAction*> lados_;
};
