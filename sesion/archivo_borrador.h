#pragma once
// Archivo del equipo con lo que se digita y aún no está en la base: lo que un corte de luz o una
// caída dejan se ofrece la próxima vez, una sola. La base no se entera.
//
// Cada pantalla abierta lleva el suyo, con un candado que dice que su programa vive: el que no lo
// tiene quedó huérfano.
#include "datos/recordset/conjunto.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QTimer>

class ArchivoBorrador : public QObject {
    Q_OBJECT
public:
    ~ArchivoBorrador() override;

    /// Desde aquí lo que cambie se guarda, poco después de la última tecla.
    void siga();
    /// Lo guarda ya; sin nada que valga la pena no deja archivo. Devuelve si quedó guardado.
    bool guarde();
    /// Se grabó o se dejó: no queda borrador.
    void descarte();
    /// El huérfano ya se retomó, o no se quiso: no se vuelve a ofrecer.
    void resuelva_huerfano();
    /// Carpeta de los borradores de esta llave.
    QString carpeta() const { return carpeta_; }

protected:
    /// `llave` distingue la compañía, el usuario y lo que se digita.
    ArchivoBorrador(const QString& llave, const QVector<ConjuntoDatos*>& conjuntos, QObject* dueno);
    /// Lo que se guarda; vacío si no hay qué.
    virtual QByteArray contenido() const = 0;
    /// El más reciente de los huérfanos que se entienda: es de esta pantalla, pero su archivo sigue
    /// ahí hasta que se resuelva. El que no se entiende queda aparte, y se dice.
    bool tome_el_huerfano(const std::function<bool(const QByteArray&)>& lea);

private:
    class Enlace;
    void marque();
    bool abra_archivo();

    QString carpeta_, archivo_, huerfano_;
    QVector<ConjuntoDatos*> conjuntos_;
    std::vector<std::unique_ptr<EnlaceDatos>> enlaces_;
    std::unique_ptr<QLockFile> candado_, candado_huerfano_;
    QTimer reloj_;
    QElapsedTimer espera_; ///< desde el primer cambio sin guardar
    bool sigue_ = false;
};
