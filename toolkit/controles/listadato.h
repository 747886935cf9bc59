#pragma once
// Lista desplegable atada a un campo: de una tabla (llave guardada, nombre a la vista) o de textos.
#include "toolkit/controles/controldato.h"
#include "toolkit/controles/lista_tecleo.h"

class ListaDato : public ListaTecleo, public ControlDato {
    Q_OBJECT
public:
    explicit ListaDato(QWidget* padre = nullptr);
    ListaDato(ConjuntoDatos* conjunto, const QString& campo, QWidget* padre = nullptr);
    ~ListaDato() override;

    QWidget* widget() override { return this; }
    /// El campo guarda `llave` de la tabla y la lista muestra `columna`. Se relee cuando la tabla
    /// cambia. Mover la lista no mueve el cursor de la tabla hasta que el usuario escoge.
    void lista_de(ConjuntoDatos* tabla, const QString& llave, const QString& columna);
    /// Textos fijos; el campo guarda el texto mismo o, con `valores`, el de igual posición.
    void lista_de(const QStringList& textos, const QStringList& valores = {});
    /// Lo que se ve: el texto escogido o, si el campo no está en la lista, su valor.
    QString texto_a_la_vista() const {
        return texto_ajeno_.isEmpty() ? currentText() : texto_ajeno_;
    }
    /// Valor escogido, o nulo.
    Valor valor() const;
    /// Vuelve a leer la tabla de la lista.
    void relea();
    /// Después de que el usuario escogió y el campo guardó el valor.
    std::function<void()> OnChange;

protected:
    void muestre() override;
    Valor contenido() const override;
    void aplique_permiso() override;
    void asegure_lista() override;
    void keyPressEvent(QKeyEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

private:
    class EnlaceTabla;
    void escogido(int indice);
    void lea_tabla();
    void marque_vieja();

    ConjuntoDatos* tabla_ = nullptr;
    QString llave_, columna_;
    QVector<Valor> valores_;
    bool releyendo_ = false;
    bool vieja_ = false;  ///< la tabla cambió desde la última lectura
    QString texto_ajeno_; ///< valor del campo que no está en la lista
    std::unique_ptr<EnlaceTabla> enlace_tabla_;
};
