#pragma once
// Borrador del comprobante que se digita, en un archivo del equipo: lo que un corte de luz o una
// caída dejan se ofrece la próxima vez, una sola. La base no se entera.
//
// Cada pantalla abierta lleva el suyo, con un candado que dice que su programa vive: el que no lo
// tiene quedó huérfano.
#include "datos/recordset/conjunto.h"
#include "libro/borrador.h"
#include "libro/conjuntos_comprobante.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QTimer>

class BorradorVivo : public QObject {
    Q_OBJECT
public:
    /// `llave` distingue la compañía y el usuario; `dia` da el día digitado.
    BorradorVivo(const ConjuntosComprobante& conjuntos, const QString& llave,
                 std::function<QString()> dia, QObject* dueno);
    ~BorradorVivo() override;

    /// Desde aquí lo que cambie se guarda, poco después de la última tecla.
    void siga() { sigue_ = true; }
    /// Lo guarda ya. Sin líneas ni concepto no hay qué guardar.
    void guarde();
    /// El comprobante se grabó o se dejó: no queda borrador.
    void descarte();
    /// El más reciente de los huérfanos, que deja de estarlo: no se vuelve a ofrecer.
    std::optional<Borrador> tome_huerfano();
    /// Carpeta de los borradores de esta llave.
    QString carpeta() const { return carpeta_; }

private:
    class Enlace;
    void marque();
    Comprobante en_pantalla() const;
    bool abra_archivo();

    ConjuntosComprobante c_;
    QString carpeta_, archivo_;
    std::function<QString()> dia_;
    std::vector<std::unique_ptr<EnlaceDatos>> enlaces_;
    std::unique_ptr<QLockFile> candado_;
    QTimer reloj_;
    QElapsedTimer espera_; ///< desde el primer cambio sin guardar
    bool sigue_ = false;
};
