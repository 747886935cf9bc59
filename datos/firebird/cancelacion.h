#pragma once
// Abandonar, desde otro hilo, lo que una conexión está haciendo.
class Conexion;

/// Se hace antes de que la conexión empiece a trabajar en su hilo, y desde cualquiera la detiene.
class Cancelador {
public:
    explicit Cancelador(Conexion& conexion);
    ~Cancelador();
    Cancelador(const Cancelador&) = delete;
    Cancelador& operator=(const Cancelador&) = delete;
    /// La orden en curso falla donde vaya, también si espera por otro usuario; si no hay ninguna,
    /// falla la siguiente. Deshacer la transacción es de quien la abrió.
    void cancele() noexcept;

private:
    void* enlace_; ///< con una referencia propia: vive aunque la conexión se suelte
};
